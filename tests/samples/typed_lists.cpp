#include "tests/samples/typed_lists.h"

namespace samples {

using namespace schema;

namespace {

CPrimitiveRestrictions Color() {
  return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1, -1, -1, {"red", "green", "blue"});
}

template <ItemType... kTypes>
CClassMetaData MakeMetaData(TItemTypes<kTypes...>) {
  return CClassMetaData(
      NewTypedClassInfo("lists"),
      {new CElementInfoSeqPrimCol(ItemTraits<kTypes>::kName, kNamespace, kTypes)...,
       new CElementInfoSeqEnumCol("color", kNamespace, kColor)},
      {});
}

}  // namespace

CTypedLists::CTypedLists(const char* elementName) : TGeneratedClass(elementName) {
  CTypedLists::Init();
}

void CTypedLists::Init() {
  const auto reset = [](auto traits, auto& list) {
    ResetCollection(list, traits.kName, kNamespace, 0, kUnbounded, CPrimitiveRestrictions(),
                    kTypedRule<traits.kType>, kTypedFormat<traits.kType>);
  };
  AllItemTypes::ForEach(reset, m_typed);
  ResetCollection(m_color, "color", kNamespace, 0, kUnbounded, Color(), CWhitespaceUtils::ws_none,
                  "");
}

void CTypedLists::AccessProperty(int index, bool get, QvVariant& value) {
  if (index == kColor) return AccessCollection(get, value, m_color.Ptr());
  const auto access = [&](auto traits, const auto& list) {
    if (index == traits.kType) AccessCollection(get, value, list.Ptr());
  };
  AllItemTypes::ForEach(access, m_typed);
}

const CClassMetaData& CTypedLists::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData(AllItemTypes());
  return metaData;
}

}  // namespace samples
