// Generated from samples.xsd.

#include "tests/samples/measure.h"

namespace samples {

using namespace schema;

CLength::CLength(const char* elementName) : TGeneratedClass(elementName) { CLength::Init(); }

void CLength::Init() { ResetProperties(m_unit, m_value); }

void CLength::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kUnit: return AccessValue<ItemType_string>(get, value, m_unit);
    case kValue: return AccessValue<ItemType_decimal>(get, value, m_value);
  }
  // clang-format on
}

const CClassMetaData& CLength::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "length", kNamespace, true, false, kValue, ItemType_decimal, "", false),
      {},
      {new CAttributeInfoPrimitive("unit", "", kUnit, false, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CComment::CComment(const char* elementName) : TGeneratedClass(elementName) { CComment::Init(); }

void CComment::Init() { ResetProperties(m_lang, m_value); }

void CComment::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kLang: return AccessValue<ItemType_string>(get, value, m_lang);
    case kValue: return AccessValue<ItemType_string>(get, value, m_value);
  }
  // clang-format on
}

const CClassMetaData& CComment::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "comment", kNamespace, true, false, kValue, ItemType_string, "", true),
      {},
      {new CAttributeInfoPrimitive("lang", CXmlWriter::XML_NAMESPACE, kLang, true, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CGrade::CGrade(const char* elementName) : TGeneratedClass(elementName) { CGrade::Init(); }

void CGrade::Init() { ResetProperties(m_value); }

void CGrade::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kValue: return AccessValue<ItemType_char>(get, value, m_value);
  }
  // clang-format on
}

const CClassMetaData& CGrade::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "grade", kNamespace, true, false, kValue, ItemType_char, "", false),
      {},
      {});
  // clang-format on
  return metaData;
}

CMeasure::CMeasure(const char* elementName) : TGeneratedClass(elementName) { CMeasure::Init(); }

void CMeasure::Init() {
  ResetProperties(m_comment, m_grade);
  ResetChild(m_length, "length");
}

void CMeasure::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kLength: return AccessObject(get, value, m_length);
    case kComment: return AccessObject(get, value, m_comment);
    case kGrade: return AccessObject(get, value, m_grade);
  }
  // clang-format on
}

const CClassMetaData& CMeasure::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "measure", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsMnd("length", kNamespace, kLength, XmlElementType_Element, CreateObject<CLength>, 0, false),
       new CElementInfoSeqClsOpt("comment", kNamespace, kComment, XmlElementType_Element, CreateObject<CComment>, 0),
       new CElementInfoSeqClsOpt("grade", kNamespace, kGrade, XmlElementType_Element, CreateObject<CGrade>, 0)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace samples
