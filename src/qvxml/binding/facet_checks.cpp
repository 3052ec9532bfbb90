#include "qvxml/binding/facet_checks.h"

#include <algorithm>
#include <compare>
#include <cstdint>
#include <type_traits>

#include "qvxml/binding/primitive_restrictions.h"
#include "qvxml/binding/xsd_pattern.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/core/value/item_traits.h"
#include "qvxml/core/value/variant.h"

namespace QvXmlLib16 {

namespace {

const char* OrEmpty(const char* name) { return name != nullptr ? name : ""; }

[[noreturn]] void ThrowInvalidValue(const char* name, const std::string& text) {
  throw CQvException(FormatString("Invalid Value for %s [%s].", OrEmpty(name), text.c_str()));
}

template <class TTraits>
[[noreturn]] void ThrowInvalid(const char* name, const typename TTraits::Carrier& value) {
  if constexpr (TTraits::kFacets != FacetFamily::Integer) {
    ThrowInvalidValue(name, TTraits::ToText(value));
  } else if constexpr (std::is_signed_v<typename TTraits::Carrier>) {
    throw CQvException(
        FormatString("Invalid Value for %s [%lld]", OrEmpty(name), static_cast<long long>(value)));
  } else {
    throw CQvException(FormatString("Invalid Value for %s [%llu]", OrEmpty(name),
                                    static_cast<unsigned long long>(value)));
  }
}

// Order of a value to a bound; a value and a bound without order break no facet.

template <class TNumber>
std::enable_if_t<std::is_arithmetic_v<TNumber>, std::partial_ordering> Order(TNumber value,
                                                                             TNumber bound) {
  return value <=> bound;
}
std::partial_ordering Order(const CBigInteger& value, const CBigInteger& bound) {
  return value.Compare(bound) <=> 0;
}
std::partial_ordering Order(const CDecimal& value, const CDecimal& bound) {
  return value.Compare(bound) <=> 0;
}
template <class TMoment>
std::enable_if_t<std::is_class_v<TMoment>, std::partial_ordering> Order(const TMoment& value,
                                                                        const TMoment& bound) {
  static constexpr std::partial_ordering kOrders[] = {
      std::partial_ordering::equivalent, std::partial_ordering::less,
      std::partial_ordering::greater, std::partial_ordering::unordered};
  return kOrders[value.CompareTo(bound)];
}

template <class TTraits>
bool BreaksBound(const typename TTraits::Carrier& value, const CPrimitiveRestrictions& facets) {
  const auto order = [&value](const detail::CFacetText& bound) {
    if (const QvVariant* const kept = bound.FindKept(TTraits::kType)) {
      return Order(value, TTraits::View(*kept));
    }
    QvVariant room;
    const QvVariant& converted = bound.As(TTraits::kType, room);
    return Order(value, TTraits::View(converted));
  };
  return (facets.MinInclusive().IsPresent() && order(facets.MinInclusive()) < 0) ||
         (facets.MaxInclusive().IsPresent() && order(facets.MaxInclusive()) > 0) ||
         (facets.MinExclusive().IsPresent() && order(facets.MinExclusive()) <= 0) ||
         (facets.MaxExclusive().IsPresent() && order(facets.MaxExclusive()) >= 0);
}

template <class TTraits>
bool BreaksDigits(const typename TTraits::Carrier& value, const CPrimitiveRestrictions& facets) {
  const std::int64_t totalDigits = facets.GetTotalDigits();
  if constexpr (TTraits::kFacets == FacetFamily::Decimal) {
    const std::int64_t fractionLength = CXmlObjectHelper::GetDecimalFractionPartLen(value);
    return (totalDigits >= 0 &&
            CXmlObjectHelper::GetDecimalIntegerPartLen(value) + fractionLength > totalDigits) ||
           (facets.GetFractionDigits() >= 0 && fractionLength > facets.GetFractionDigits());
  } else if constexpr (TTraits::kFacets == FacetFamily::Duration ||
                       TTraits::kFacets == FacetFamily::DateTime) {
    return false;
  } else {
    if (totalDigits < 0) return false;
    // Kept: the sign counts, so -5 breaks totalDigits 1.
    return static_cast<std::int64_t>(TTraits::ToText(value).size()) > totalDigits;
  }
}

bool BreaksLength(std::uint64_t size, const CPrimitiveRestrictions& facets) {
  const auto length = static_cast<std::int64_t>(size);
  return (facets.GetMinLength() >= 0 && length < facets.GetMinLength()) ||
         (facets.GetMaxLength() >= 0 && length > facets.GetMaxLength()) ||
         (facets.GetLength() >= 0 && length != facets.GetLength());
}

bool BreaksPattern(const char* name, const std::string& value,
                   const CPrimitiveRestrictions& facets) {
  if (facets.GetPattern().empty()) return false;
  try {
    return !TestRegEx(LocalCodePageToUtf8(value.data(), value.size()), facets.GetPattern());
  } catch (const CQvException& fault) {
    throw CQvException(FormatString("%s\nInvalid Value for %s [%s].", fault.GetMessage().c_str(),
                                    OrEmpty(name), value.c_str()));
  }
}

template <class TTraits>
bool IsEqual(const typename TTraits::Carrier& value, const std::string& text) {
  if constexpr (TTraits::kFacets == FacetFamily::String) {
    return value == text;
  } else {
    const auto allowed = TTraits::FromText(text, CWhitespaceUtils::ws_collapse);
    if constexpr (TTraits::kFacets == FacetFamily::Float) {
      if (value != value) return allowed != allowed;
    }
    return value == allowed;
  }
}

template <class TTraits>
bool BreaksEnumeration(const typename TTraits::Carrier& value,
                       const CPrimitiveRestrictions& facets) {
  const auto& allowed = facets.GetEnumeration();
  return !allowed.empty() &&
         std::none_of(allowed.begin(), allowed.end(),
                      [&value](const std::string& text) { return IsEqual<TTraits>(value, text); });
}

template <class TTraits>
void Check(const char* name, const typename TTraits::Carrier& value,
           const CPrimitiveRestrictions& facets) {
  if (!facets.HasFacets()) return;
  bool isBroken = false;
  if constexpr (TTraits::kFacets == FacetFamily::Boolean) {
    return;
  } else if constexpr (TTraits::kFacets == FacetFamily::String) {
    isBroken = BreaksLength(value.size(), facets) || BreaksPattern(name, value, facets);
  } else if constexpr (TTraits::kFacets == FacetFamily::Binary) {
    isBroken = BreaksLength(value.GetLength(), facets);
  } else {
    isBroken = BreaksBound<TTraits>(value, facets) || BreaksDigits<TTraits>(value, facets);
  }
  if (isBroken || BreaksEnumeration<TTraits>(value, facets)) ThrowInvalid<TTraits>(name, value);
}

// Variants

[[noreturn]] void ThrowNoCheck(const std::string& typeName) {
  throw CQvException("Cannot CheckRestriction for type: " + typeName);
}

std::string GetNameOfOtherType(ItemType type) {
  if (type == ItemType_none) return "none";
  if (type == ItemType_xmlObject) return "xmlObject";
  if (type == ItemType_xmlCollection) return "xmlCollection";
  return FormatString("%d", static_cast<int>(type));
}

// The value as TTraits' type, whatever its tag is.
template <class TTraits>
typename TTraits::Carrier Take(const QvVariant& value) {
  const ItemType held = value.GetItemType();
  const bool isReadable = VisitItemType(
      held,
      [](auto heldTraits) {
        return std::is_same_v<typename decltype(heldTraits)::Carrier, typename TTraits::Carrier>;
      },
      [held]() -> bool {
        throw CQvException(FormatString("Invalid Type %d", static_cast<int>(held)));
      });
  if (isReadable) return TTraits::Get(value);
  const auto rule = TTraits::kFacets == FacetFamily::String ? CWhitespaceUtils::ws_none
                                                            : CWhitespaceUtils::ws_collapse;
  return TTraits::FromText(value.ToString(), rule);
}

template <class TTraits>
void CheckVariant(const char* name, const QvVariant& value, const CPrimitiveRestrictions& facets) {
  if constexpr (TTraits::kFacets == FacetFamily::None) {
    ThrowNoCheck(TTraits::kName);
  } else {
    if (!facets.HasFacets() || value.IsNil()) return;
    if constexpr (TTraits::kFacets == FacetFamily::Boolean) return;
    if (value.GetItemType() == TTraits::kType) {
      return Check<TTraits>(name, TTraits::View(value), facets);
    }
    Check<TTraits>(name, Take<TTraits>(value), facets);
  }
}

}  // namespace

bool CXmlObjectHelper::NeedsCheck(ItemType type, const CPrimitiveRestrictions& restrictions) {
  return restrictions.HasFacets() ||
         VisitItemType(
             type, [](auto traits) { return decltype(traits)::kFacets == FacetFamily::None; },
             [] { return true; });
}

void CXmlObjectHelper::CheckRestriction(const char* name, const QvVariant& value, ItemType type,
                                        const CPrimitiveRestrictions& restrictions) {
  VisitItemType(
      type, [&](auto traits) { CheckVariant<decltype(traits)>(name, value, restrictions); },
      [type] { ThrowNoCheck(GetNameOfOtherType(type)); });
}

void CXmlObjectHelper::CheckRestrictionFori1(const char* name, char value,
                                             const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_i1>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFori2(const char* name, short value,
                                             const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_i2>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFori4(const char* name, long value,
                                             const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_i4>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFori8(const char* name, long long value,
                                             const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_i8>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForui1(const char* name, unsigned char value,
                                              const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_ui1>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForui2(const char* name, unsigned short value,
                                              const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_ui2>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForui4(const char* name, unsigned long value,
                                              const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_ui4>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForui8(const char* name, unsigned long long value,
                                              const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_ui8>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForyear(const char* name, unsigned short value,
                                               const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_year>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFormonth(const char* name, unsigned char value,
                                                const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_month>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForday(const char* name, unsigned char value,
                                              const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_day>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForr4(const char* name, float value,
                                             const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_r4>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForr8(const char* name, double value,
                                             const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_r8>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForinteger(const char* name, const CBigInteger& value,
                                                  const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_integer>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFordecimal(const char* name, const CDecimal& value,
                                                  const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_decimal>>(name, value, restrictions);
}

long long CXmlObjectHelper::GetDecimalIntegerPartLen(const CDecimal& value) {
  return static_cast<long long>(value.GetIntegerDigitCount());
}

long long CXmlObjectHelper::GetDecimalFractionPartLen(const CDecimal& value) {
  return static_cast<long long>(value.GetFractionDigitCount());
}

void CXmlObjectHelper::CheckRestrictionForduration(const char* name, const CDateTimeSpan& value,
                                                   const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_duration>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFordate(const char* name, const CDateTime& value,
                                               const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_date>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFortime(const char* name, const CDateTime& value,
                                               const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_time>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFordatetime(const char* name, const CDateTime& value,
                                                   const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_datetime>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForyearMonth(const char* name, const CDateTime& value,
                                                    const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_yearMonth>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFormonthDay(const char* name, const CDateTime& value,
                                                   const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_monthDay>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFormonthYear(const char* name, const CDateTime& value,
                                                    const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_yearMonth>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForhexBinary(const char* name, const CBinaryData& value,
                                                    const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_hexBinary>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForbase64Binary(const char* name, const CBinaryData& value,
                                                       const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_base64Binary>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForstring(const char* name, const std::string& value,
                                                 const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_string>>(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionForboolean(const char* name, bool value,
                                                  const CPrimitiveRestrictions& restrictions) {
  Check<ItemTraits<ItemType_boolean>>(name, value, restrictions);
}

}  // namespace QvXmlLib16
