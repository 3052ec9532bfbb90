#include "tests/samples/typed_attributes.h"

namespace samples {

using namespace schema;

namespace {

CPrimitiveRestrictions UpToTen() { return CPrimitiveRestrictions("", -1, -1, "0", "10"); }

template <ItemType... kTypes>
CClassMetaData MakeMetaData(TItemTypes<kTypes...>) {
  // clang-format off
  return CClassMetaData(
      NewTypedClassInfo("attributes"),
      {},
      {NewTypedInfo<CAttributeInfoPrimitive, kTypes>("", true)...,
       new CAttributeInfoEnum("color", "", kColor, true, ColorToText, ColorFromText, "green"),
       new CAttributeInfoPrimitive("count", "", kCount, false, ItemType_i4, "", kCollapse, UpToTen(), ""),
       new CAttributeInfoAny("AnyAttribute", "", kOtherAttributes, true, "", "##other", kNamespace)});
  // clang-format on
}

}  // namespace

CTypedAttributes::CTypedAttributes(const char* elementName) : TGeneratedClass(elementName) {
  CTypedAttributes::Init();
}

void CTypedAttributes::Init() {
  m_typed = decltype(m_typed)();
  ResetProperties(m_color, m_count);
  ResetCollection(m_anyAttribute, "AnyAttribute", "##other", kNamespace);
}

void CTypedAttributes::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kColor: return AccessEnum(get, value, m_color);
    case kCount: return AccessValue<ItemType_i4>(get, value, m_count);
    case kOtherAttributes: return AccessCollection(get, value, m_anyAttribute.Ptr());
    default: return AllItemTypes::Access(index, get, value, m_typed);
  }
  // clang-format on
}

const CClassMetaData& CTypedAttributes::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData(AllItemTypes());
  return metaData;
}

}  // namespace samples
