// What the classes with a property of every type share: the types in their order, access to the
// properties, metadata. A generator writes all of it out; the other samples show that.

#ifndef TESTS_SAMPLES_TYPED_MEMBERS_H_
#define TESTS_SAMPLES_TYPED_MEMBERS_H_

#include <tuple>
#include <utility>

#include "tests/samples/color_type.h"
#include "tests/samples/schema.h"

namespace samples {

inline CParentElementInfo* NewTypedClassInfo(const char* name) {
  return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, name,
                                schema::kNamespace, true, false, -1, ItemType_none, "", false);
}

template <ItemType kType>
constexpr auto kTypedRule =
    kType == ItemType_string ? schema::kPreserve : CWhitespaceUtils::ws_collapse;
template <ItemType kType>
constexpr const char* kTypedFormat = kType == ItemType_r4   ? "%.9g"
                                     : kType == ItemType_r8 ? "%.17g"
                                                            : "";

/// Metadata of an attribute or element; `flag` is whether the one is optional, the other nillable.
template <class TInfo, ItemType kType>
TInfo* NewTypedInfo(const char* namespaceUri, bool flag, const char* defaultValue = "") {
  return new TInfo(ItemTraits<kType>::kName, namespaceUri, kType, flag, kType, kTypedFormat<kType>,
                   kTypedRule<kType>, CPrimitiveRestrictions(), defaultValue);
}

/// A property for each of the types; its index and its name are those of the type.
template <ItemType... kTypes>
struct TItemTypes {
  using Values = std::tuple<typename ItemTraits<kTypes>::Carrier...>;
  template <template <class> class TProperty>
  using Properties = std::tuple<TProperty<typename ItemTraits<kTypes>::Carrier>...>;

  /// Calls `visit` with the traits of each type and the item of each tuple.
  template <class TVisit, class... TTuples>
  static void ForEach(const TVisit& visit, TTuples&&... tuples) {
    Visit(visit, std::make_index_sequence<sizeof...(kTypes)>(), tuples...);
  }
  template <class TProperties>
  static void Access(int index, bool get, QvVariant& value, TProperties& properties) {
    ForEach(
        [&](auto traits, auto& property) {
          if (index == traits.kType) AccessValue<traits.kType>(get, value, property);
        },
        properties);
  }

 private:
  template <class TVisit, std::size_t... kIndexes, class... TTuples>
  static void Visit(const TVisit& visit, std::index_sequence<kIndexes...>, TTuples&... tuples) {
    const auto at = [&](auto traits, auto index) { visit(traits, std::get<index>(tuples)...); };
    (at(ItemTraits<kTypes>(), std::integral_constant<std::size_t, kIndexes>()), ...);
  }
};

using AllItemTypes =
    TItemTypes<ItemType_hexBinary, ItemType_base64Binary, ItemType_i1, ItemType_i2, ItemType_i4,
               ItemType_i8, ItemType_ui1, ItemType_ui2, ItemType_ui4, ItemType_ui8, ItemType_r4,
               ItemType_r8, ItemType_duration, ItemType_yearMonth, ItemType_monthDay, ItemType_year,
               ItemType_month, ItemType_day, ItemType_date, ItemType_datetime, ItemType_time,
               ItemType_string, ItemType_boolean, ItemType_decimal, ItemType_integer>;
/// Indexes of the properties that follow.
enum TypedProperty : int { kColor = ItemType_integer + 1, kCount, kOtherAttributes };

}  // namespace samples

#endif  // TESTS_SAMPLES_TYPED_MEMBERS_H_
