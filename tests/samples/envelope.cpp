// Generated from samples.xsd.

#include "tests/samples/envelope.h"

namespace samples {

using namespace schema;

CEnvelope::CEnvelope(const char* elementName) : TGeneratedClass(elementName) { CEnvelope::Init(); }

void CEnvelope::Init() {
  ResetProperties(m_id, m_header, m_payload, m_subject);
  ResetCollection(m_anyAttribute, "AnyAttribute", "##other", kNamespace);
  ResetCollection(m_anyElement, "AnyElement", "##other", kNamespace, 0, 4);
}

void CEnvelope::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_string>(get, value, m_id);
    case kAnyAttribute: return AccessCollection(get, value, m_anyAttribute.Ptr());
    case kHeader: return AccessObject(get, value, m_header);
    case kPayload: return AccessObject(get, value, m_payload);
    case kSubject: return AccessValue<ItemType_string>(get, value, m_subject);
    case kAnyElement: return AccessCollection(get, value, m_anyElement.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CEnvelope::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "envelope", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqUntpdMnd("header", kNamespace, kHeader, "##any", kNamespace),
       new CElementInfoSeqUntpdOpt("AnyElement", kNamespace, kPayload, "urn:payload", kNamespace),
       new CElementInfoSeqPrimOpt("subject", kNamespace, kSubject, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqUntpdCol("AnyElement", kNamespace, kAnyElement)},
      {new CAttributeInfoPrimitive("id", "", kId, true, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CAttributeInfoAny("AnyAttribute", "", kAnyAttribute, true, "", "##other", kNamespace)});
  // clang-format on
  return metaData;
}

}  // namespace samples
