// Generated from samples.xsd.

#include "tests/samples/note.h"

namespace samples {

using namespace schema;

CRemarkType::CRemarkType(const char* elementName) : CXmlGeneratedClass(elementName) {
  CRemarkType::Init();
}

void CRemarkType::Init() {
  SetNil(false);
  ResetProperties(m_author, m_text);
}

void CRemarkType::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kAuthor: return AccessValue<ItemType_string>(get, value, m_author);
    case kText: return AccessValue<ItemType_string>(get, value, m_text);
  }
  // clang-format on
}

CClassMetaData CRemarkType::MakeMetaData(const char* elementName) {
  // clang-format off
  return CClassMetaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, elementName, kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("text", kNamespace, kText, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {new CAttributeInfoPrimitive("author", "", kAuthor, true, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
}

const CClassMetaData& CRemark::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("remark");
  return metaData;
}

const CClassMetaData& CReply::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("reply");
  return metaData;
}

CNote::CNote(const char* elementName) : TGeneratedClass(elementName) { CNote::Init(); }

void CNote::SetRemark(CSmartPtr<CRemark> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "remark");
  Throw_IfElementNameDiffers(value.Ptr(), "remark");
  m_remark = std::move(value);
}

void CNote::SetReply(CSmartPtr<CReply> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "reply");
  m_reply = std::move(value);
}

void CNote::Init() {
  ResetProperties(m_pages, m_reply);
  m_due = TNillable<CDateTime>::Nil();
  ResetChild(m_remark, "remark");
}

void CNote::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kDue: return AccessValue<ItemType_date>(get, value, m_due);
    case kPages: return AccessValue<ItemType_ui2>(get, value, m_pages);
    case kRemark: return AccessObject(get, value, m_remark);
    case kReply: return AccessObject(get, value, m_reply);
  }
  // clang-format on
}

const CClassMetaData& CNote::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "note", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("due", kNamespace, kDue, true, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("pages", kNamespace, kPages, true, ItemType_ui2, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqClsMnd("remark", kNamespace, kRemark, XmlElementType_Element, CreateObject<CRemark>, 0, false),
       new CElementInfoSeqClsOpt("reply", kNamespace, kReply, XmlElementType_Element, CreateObject<CReply>, 0)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace samples
