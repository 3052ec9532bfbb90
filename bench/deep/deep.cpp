// Generated from deep.xsd.

#include "bench/deep/deep.h"

namespace deep {

namespace {

[[maybe_unused]] const bool kIsRegistered = [] {
  RegisterGeneratedCode(16, LicenceKind_Licensed);
  return true;
}();

constexpr char kNamespace[] = "http://example.org/2024/deep";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }

}  // namespace

CNode::CNode(const char* elementName) : TGeneratedClass(elementName) { CNode::Init(); }

void CNode::SetNode(CSmartPtr<CNode> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "node");
  m_node = std::move(value);
}

void CNode::Init() { ResetProperties(m_id, m_label, m_node); }

void CNode::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_i4>(get, value, m_id);
    case kLabel: return AccessValue<ItemType_string>(get, value, m_label);
    case kNode: return AccessObject(get, value, m_node);
  }
  // clang-format on
}

const CClassMetaData& CNode::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "node", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("label", kNamespace, kLabel, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsOpt("node", kNamespace, kNode, XmlElementType_Element, CreateObject<CNode>, 0)},
      {new CAttributeInfoPrimitive("id", "", kId, false, ItemType_i4, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CChain::CChain(const char* elementName) : TGeneratedClass(elementName) { CChain::Init(); }

void CChain::SetNode(CSmartPtr<CNode> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "node");
  Throw_IfElementNameDiffers(value.Ptr(), "node");
  m_node = std::move(value);
}

void CChain::Init() { ResetChild(m_node, "node"); }

void CChain::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kNode: return AccessObject(get, value, m_node);
  }
  // clang-format on
}

const CClassMetaData& CChain::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "chain", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsMnd("node", kNamespace, kNode, XmlElementType_Element, CreateObject<CNode>, 0, false)},
      {});
  // clang-format on
  return metaData;
}

CDeep::CDeep(const char* elementName) : TGeneratedClass(elementName) { CDeep::Init(); }

void CDeep::Init() { ResetCollection(m_chain, "chain", kNamespace, 1, kUnbounded); }

void CDeep::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kChain: return AccessCollection(get, value, m_chain.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CDeep::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "deep", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsCol("chain", kNamespace, kChain, XmlElementType_Element)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace deep
