// Checks of values against the facets of their type.

#ifndef QVXML_BINDING_FACET_CHECKS_H_
#define QVXML_BINDING_FACET_CHECKS_H_

#include <string>

#include "qvxml/core/item_type.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {

class CBigInteger;             // types/big_integer.h
class CBinaryData;             // types/binary_data.h
class CDateTime;               // types/date_time.h
class CDateTimeSpan;           // types/date_time_span.h
class CDecimal;                // types/decimal.h
class CPrimitiveRestrictions;  // binding/primitive_restrictions.h
class QvVariant;               // core/value/variant.h

/// The facet checks: each returns when the value meets every facet, and throws CQvException when it
/// breaks one: "Invalid Value for %s [%d]" for an integer, "Invalid Value for %s [%s]." for any
/// other kind, with `name`, the name of the attribute or element (null is ""), and the value.
///
/// Facets are tried in the order given here, and those that a kind does not have are ignored. The
/// text of a bound or of an enumeration is read by the conversion of the value's type with
/// ws_collapse, whose exception passes through when it cannot be.
class QVXML_API CXmlObjectHelper {
 public:
  CXmlObjectHelper() = delete;

  /// Checks `value` as `type`. A nil value has nothing to check.
  ///
  /// A value stored under another tag is converted, through its text unless both types have one
  /// carrier; without a value, and for objects and collections, that throws CQvException "Invalid
  /// Type %d" with the tag. A type without a check throws CQvException "Cannot CheckRestriction for
  /// type: " and its name: "char", "none", "xmlObject", "xmlCollection", or the number of an
  /// unknown one.
  static void CheckRestriction(const char* name, const QvVariant& value, ItemType type,
                               const CPrimitiveRestrictions& restrictions);
  /// Whether CheckRestriction can throw for any value at all.
  static bool NeedsCheck(ItemType type, const CPrimitiveRestrictions& restrictions);

  // Integers: minInclusive, maxInclusive, minExclusive, maxExclusive; totalDigits, which limits the
  // characters of the value's text, a minus sign and the dashes of month and day included;
  // enumeration by value.

  static void CheckRestrictionFori1(const char* name, char value,
                                    const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFori2(const char* name, short value,
                                    const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFori4(const char* name, long value,
                                    const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFori8(const char* name, long long value,
                                    const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForui1(const char* name, unsigned char value,
                                     const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForui2(const char* name, unsigned short value,
                                     const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForui4(const char* name, unsigned long value,
                                     const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForui8(const char* name, unsigned long long value,
                                     const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForyear(const char* name, unsigned short value,
                                      const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFormonth(const char* name, unsigned char value,
                                       const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForday(const char* name, unsigned char value,
                                     const CPrimitiveRestrictions& restrictions);

  // The same facets, with the value quoted as text. NaN, as a value or as a bound, breaks no bound;
  // in an enumeration it equals NaN.

  static void CheckRestrictionForr4(const char* name, float value,
                                    const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForr8(const char* name, double value,
                                    const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForinteger(const char* name, const CBigInteger& value,
                                         const CPrimitiveRestrictions& restrictions);

  // The same bounds; totalDigits limits the digits of both parts together, the sign not counted;
  // then fractionDigits; enumeration by value.

  static void CheckRestrictionFordecimal(const char* name, const CDecimal& value,
                                         const CPrimitiveRestrictions& restrictions);

  /// Digits of the integer part: 0 for a fraction below 1, 1 for zero. The sign does not count.
  static long long GetDecimalIntegerPartLen(const CDecimal& value);
  /// Digits of the fraction, those in front of trailing zeros.
  static long long GetDecimalFractionPartLen(const CDecimal& value);

  // Bounds and enumeration in the order of CompareTo; a value whose order to a bound is
  // indeterminate does not break it. `monthYear` is checked as `yearMonth`.

  static void CheckRestrictionForduration(const char* name, const CDateTimeSpan& value,
                                          const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFordate(const char* name, const CDateTime& value,
                                      const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFortime(const char* name, const CDateTime& value,
                                      const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFordatetime(const char* name, const CDateTime& value,
                                          const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForyearMonth(const char* name, const CDateTime& value,
                                           const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFormonthDay(const char* name, const CDateTime& value,
                                          const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionFormonthYear(const char* name, const CDateTime& value,
                                           const CPrimitiveRestrictions& restrictions);

  // minLength, maxLength and length in bytes; enumeration by value.

  static void CheckRestrictionForhexBinary(const char* name, const CBinaryData& value,
                                           const CPrimitiveRestrictions& restrictions);
  static void CheckRestrictionForbase64Binary(const char* name, const CBinaryData& value,
                                              const CPrimitiveRestrictions& restrictions);

  /// minLength, maxLength and length in bytes; pattern, which TestRegEx (xsd_pattern.h) tests on
  /// the value in UTF-8; enumeration byte for byte. When TestRegEx throws, the message is
  /// "%s\nInvalid Value for %s [%s]." with its text first.
  static void CheckRestrictionForstring(const char* name, const std::string& value,
                                        const CPrimitiveRestrictions& restrictions);

  /// Has no facets: accepts both values.
  static void CheckRestrictionForboolean(const char* name, bool value,
                                         const CPrimitiveRestrictions& restrictions);
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_FACET_CHECKS_H_
