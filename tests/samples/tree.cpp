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

void CNode::Init() {
  ResetProperties(m_id, m_label);
  ResetCollection(m_node, "node", kNamespace, 0, kUnbounded);
}

void CNode::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_i4>(get, value, m_id);
    case kLabel: return AccessValue<ItemType_string>(get, value, m_label);
    case kNode: return AccessCollection(get, value, m_node.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CNode::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "node", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("label", kNamespace, kLabel, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsCol("node", kNamespace, kNode, XmlElementType_Element)},
      {new CAttributeInfoPrimitive("id", "", kId, false, ItemType_i4, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CChain::CChain(const char* elementName) : TGeneratedClass(elementName) { CChain::Init(); }

void CChain::Init() { ResetProperties(m_id, m_chain); }

void CChain::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_i4>(get, value, m_id);
    case kChain: return AccessObject(get, value, m_chain);
  }
  // clang-format on
}

const CClassMetaData& CChain::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "chain", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsOpt("chain", kNamespace, kChain, XmlElementType_Element, CreateObject<CChain>, 0)},
      {new CAttributeInfoPrimitive("id", "", kId, true, ItemType_i4, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

}  // namespace samples
