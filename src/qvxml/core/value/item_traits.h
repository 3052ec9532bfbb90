// What the code knows about each item type, made from the rows of item_types.def, and the one
// switch over an ItemType.

#ifndef QVXML_CORE_VALUE_ITEM_TRAITS_H_
#define QVXML_CORE_VALUE_ITEM_TRAITS_H_

#include <string>
#include <utility>

#include "qvxml/core/item_type.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/core/whitespace.h"
#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"

namespace QvXmlLib16 {

/// How a variant holds a value.
enum class ItemHolding { Inline, Owned };

/// Which facets apply to a type and how a value is quoted in a message; the rows tell more.
enum class FacetFamily {
  None,
  Integer,
  Float,
  Decimal,
  BigInteger,
  String,
  Binary,
  Duration,
  DateTime,
  Boolean,
};

/// The facts of one item type: its `Carrier`, name, holding and facets, and the one pair of
/// conversions and of variant accessors. Defined for 1 to 26.
///
/// Some accessors save copies where a value passes through a variant: `View` refers to the value
/// of a variant that has this very tag and is not nil. `Lend` lets the variant refer to a value
/// that stays unchanged as long as the variant is used (a copy of the variant has its own one), and
/// `Offer` to one that its owner does not need any more. `Give` lends to a variant that the library
/// reads a property into, and copies into any other. `TakeInto` is for a variant of this very tag:
/// it moves a value that was offered, and copies any other.
template <ItemType>
struct ItemTraits;

#define QVXML_ITEM_TYPE(name, number, accessor, carrier, held, facets, fastInfoset)             \
  static_assert(ItemType_##name == number, "a row and its enumerator have one number");         \
  template <>                                                                                   \
  struct ItemTraits<ItemType_##name> {                                                          \
    using Carrier = carrier;                                                                    \
    static constexpr ItemType kType = ItemType_##name;                                          \
    static constexpr const char* kName = #name;                                                 \
    static constexpr ItemHolding kHolding = ItemHolding::held;                                  \
    static constexpr FacetFamily kFacets = FacetFamily::facets;                                 \
    static std::string ToText(const Carrier& value) {                                           \
      return CConversions::name##ToString(value);                                               \
    }                                                                                           \
    static Carrier FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {   \
      return CConversions::name##FromString(text, rule);                                        \
    }                                                                                           \
    static Carrier Get(const QvVariant& variant) { return variant.Get##accessor(); }            \
    static void Set(QvVariant& variant, const Carrier& value) { variant.Set##accessor(value); } \
    static decltype(auto) View(const QvVariant& variant) {                                      \
      if constexpr (kHolding == ItemHolding::Owned) {                                           \
        return *static_cast<const Carrier*>(variant.GetInline<const void*>());                  \
      } else {                                                                                  \
        return Get(variant);                                                                    \
      }                                                                                         \
    }                                                                                           \
    static void Lend(QvVariant& variant, const Carrier& value) {                                \
      if constexpr (kHolding == ItemHolding::Owned) {                                           \
        variant.SetInline(kType, static_cast<const void*>(&value));                             \
      } else {                                                                                  \
        Set(variant, value);                                                                    \
      }                                                                                         \
    }                                                                                           \
    static void Offer(QvVariant& variant, Carrier& value) {                                     \
      Lend(variant, value);                                                                     \
      variant.m_isOffered = kHolding == ItemHolding::Owned;                                     \
    }                                                                                           \
    static void Give(QvVariant& variant, const Carrier& value) {                                \
      if (variant.m_takesLoans) {                                                               \
        Lend(variant, value);                                                                   \
      } else {                                                                                  \
        Set(variant, value);                                                                    \
      }                                                                                         \
    }                                                                                           \
    template <class TTarget>                                                                    \
    static void TakeInto(QvVariant& variant, TTarget& target) {                                 \
      if constexpr (kHolding == ItemHolding::Owned) {                                           \
        auto* const value = static_cast<Carrier*>(variant.GetInline<void*>());                  \
        if (value == nullptr) {                                                                 \
          target = Carrier();                                                                   \
        } else if (variant.m_isOffered) {                                                       \
          target = std::move(*value);                                                           \
        } else {                                                                                \
          target = static_cast<const Carrier&>(*value);                                         \
        }                                                                                       \
      } else {                                                                                  \
        target = Get(variant);                                                                  \
      }                                                                                         \
    }                                                                                           \
  };
#include "qvxml/core/value/item_types.def"

/// Calls `visit` with the ItemTraits of `type`, or `otherwise` when it is not a primitive type (0,
/// 27, 28 and unknown numbers). Both return the same type, which is the result.
template <class TVisit, class TOtherwise>
auto VisitItemType(ItemType type, TVisit&& visit, TOtherwise&& otherwise) {
  switch (type) {
#define QVXML_ITEM_TYPE(name, number, accessor, carrier, held, facets, fastInfoset) \
  case ItemType_##name:                                                             \
    return visit(ItemTraits<ItemType_##name>());
#include "qvxml/core/value/item_types.def"
    default:
      return otherwise();
  }
}

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_VALUE_ITEM_TRAITS_H_
