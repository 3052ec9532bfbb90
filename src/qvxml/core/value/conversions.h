// Conversions of every primitive value to and from its XSD lexical form.

#ifndef QVXML_CORE_VALUE_CONVERSIONS_H_
#define QVXML_CORE_VALUE_CONVERSIONS_H_

#include <string>

#include "qvxml/core/whitespace.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {

class CBigInteger;    // types/big_integer.h
class CBinaryData;    // types/binary_data.h
class CDateTime;      // types/date_time.h
class CDateTimeSpan;  // types/date_time_span.h
class CDecimal;       // types/decimal.h

/// Conversions between values and text, one pair for each item type; none depends on the locale.
///
/// Each `...FromString` applies the whitespace rule first and throws CQvInvalidValueException,
/// quoting the text, when the result is not a value of the kind; CQvException for an unknown rule.
/// In the text of the built-in numbers and booleans, of binary data, dates, times and durations
/// whatever follows a NUL byte is ignored.
class QVXML_API CConversions {
 public:
  // Integers. From text they accept what strtol and its kin do in base 10: leading whitespace where
  // the rule leaves it, and a sign. "-" wraps modulo 2^64 for the unsigned kinds.

  static std::string i1ToString(char value);
  static std::string i2ToString(short value);
  static std::string i4ToString(long value);
  static std::string i8ToString(long long value);
  static std::string ui1ToString(unsigned char value);
  static std::string ui2ToString(unsigned short value);
  static std::string ui4ToString(unsigned long value);
  static std::string ui8ToString(unsigned long long value);

  /// i1 and i2 are read as i4 and ui1 and ui2 as ui4, which a message about text that is no number
  /// names; a message about their own range quotes the text as passed in.
  static char i1FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
  static short i2FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
  /// The result is 64 bits wide.
  static long i4FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
  static long long i8FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
  static unsigned char ui1FromString(const std::string& text,
                                     CWhitespaceUtils::WhitespaceRule rule);
  static unsigned short ui2FromString(const std::string& text,
                                      CWhitespaceUtils::WhitespaceRule rule);
  /// The result is 64 bits wide.
  static unsigned long ui4FromString(const std::string& text,
                                     CWhitespaceUtils::WhitespaceRule rule);
  static unsigned long long ui8FromString(const std::string& text,
                                          CWhitespaceUtils::WhitespaceRule rule);

  // Floating point.

  /// "NaN", "INF", "-INF", or the value as printf writes it with `format`, cut at 31 characters.
  ///
  /// `format` is text around at most one floating conversion without "*" ("%%" is text, width and
  /// precision have at most four digits); without one the result is that text. Anything else, ""
  /// included, counts as the default, "%.7g" for r4 and "%.16g" for r8, which does not tell all
  /// values apart.
  static std::string r4ToString(float value, const std::string& format);
  static std::string r4ToString(float value);
  static std::string r8ToString(double value, const std::string& format);
  static std::string r8ToString(double value);

  /// Accepts "NaN", "1.#QNAN", "-NAN", "INF", "-INF" and whatever strtod does. A value beyond the
  /// range becomes an infinity. r4 is read as r8 and then narrowed.
  static float r4FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
  static double r8FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);

  // Boolean, char and string.

  /// "true" or "false".
  static std::string booleanToString(bool value);
  /// Accepts "true", "false", "1" and "0" in any case. The message quotes the text as passed in.
  static bool booleanFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);

  static std::string charToString(char value);
  /// Accepts exactly one byte.
  static char charFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);

  static std::string stringToString(const std::string& value);
  /// The text after the rule.
  static std::string stringFromString(const std::string& text,
                                      CWhitespaceUtils::WhitespaceRule rule);

  // Numbers of any length. Reading throws what the constructor of the class does.

  /// `format` is the number of fraction digits, read as strtol does ("%.2f" is 0 digits); with ""
  /// all digits are written. More digits than CBigInteger::GetExponentLimit() throw
  /// CQvInvalidValueException "Invalid fractional divider [%d], the limit is %u".
  static std::string decimalToString(const CDecimal& value, const std::string& format);
  static std::string decimalToString(const CDecimal& value);
  static CDecimal decimalFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);

  static std::string integerToString(const CBigInteger& value);
  static CBigInteger integerFromString(const std::string& text,
                                       CWhitespaceUtils::WhitespaceRule rule);

  // Binary data. Reading throws what CBinaryData::SetAsHexString and SetAsBase64 do.

  static std::string hexBinaryToString(const CBinaryData& value);
  static CBinaryData hexBinaryFromString(const std::string& text,
                                         CWhitespaceUtils::WhitespaceRule rule);
  static std::string base64BinaryToString(const CBinaryData& value);
  static CBinaryData base64BinaryFromString(const std::string& text,
                                            CWhitespaceUtils::WhitespaceRule rule);

  // Durations, dates and times. Reading throws what the parse of the class does.

  static std::string durationToString(const CDateTimeSpan& value);
  static CDateTimeSpan durationFromString(const std::string& text,
                                          CWhitespaceUtils::WhitespaceRule rule);

  /// The five of CDateTime are one operation: the kind of the value decides its form.
  static std::string datetimeToString(const CDateTime& value);
  static std::string dateToString(const CDateTime& value);
  static std::string timeToString(const CDateTime& value);
  static std::string yearMonthToString(const CDateTime& value);
  static std::string monthDayToString(const CDateTime& value);

  static CDateTime datetimeFromString(const std::string& text,
                                      CWhitespaceUtils::WhitespaceRule rule);
  /// Date kinds are told apart by the form of the text: dateFromString("2001") is a gYear.
  static CDateTime dateFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
  static CDateTime timeFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
  static CDateTime yearMonthFromString(const std::string& text,
                                       CWhitespaceUtils::WhitespaceRule rule);
  static CDateTime monthDayFromString(const std::string& text,
                                      CWhitespaceUtils::WhitespaceRule rule);

  /// The year without padding, so "44" for 44.
  static std::string yearToString(unsigned short value);
  static std::string monthToString(unsigned char value);
  static std::string dayToString(unsigned char value);

  /// The field of any date kind that the text has the form of; a zone is dropped, and a year before
  /// 1 wraps modulo 2^16.
  static unsigned short yearFromString(const std::string& text,
                                       CWhitespaceUtils::WhitespaceRule rule);
  static unsigned char monthFromString(const std::string& text,
                                       CWhitespaceUtils::WhitespaceRule rule);
  static unsigned char dayFromString(const std::string& text,
                                     CWhitespaceUtils::WhitespaceRule rule);
};

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_VALUE_CONVERSIONS_H_
