// Generated from samples.xsd.

#include "tests/samples/tree.h"

namespace samples {

namespace {

constexpr char kNamespace[] = "urn:qvxml:samples";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }

}  // namespace

CNode::CNode(const char* elementName) : TGeneratedClass(elementName) { CNode::Init(); }

void CNode::SetNext(CSmartPtr<CNode> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "next");
  m_next = std::move(value);
}

void CNode::Init() {
  ResetProperties(m_id, m_label, m_next);
  ResetCollection(m_node, "node", kNamespace, 0, kUnbounded);
}

void CNode::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_i4>(get, value, m_id);
    case kLabel: return AccessValue<ItemType_string>(get, value, m_label);
    case kNext: return AccessObject(get, value, m_next);
    case kNode: return AccessCollection(get, value, m_node.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CNode::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "node", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("label", kNamespace, kLabel, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsOpt("next", kNamespace, kNext, XmlElementType_Element, CreateObject<CNode>, 0),
       new CElementInfoSeqClsCol("node", kNamespace, kNode, XmlElementType_Element)},
      {new CAttributeInfoPrimitive("id", "", kId, false, ItemType_i4, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

}  // namespace samples
