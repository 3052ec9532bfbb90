// Generated from samples.xsd.

#include "tests/samples/contact.h"

namespace samples {

using namespace schema;

CReach::CReach(const char* elementName) : TGeneratedClass(elementName) { CReach::Init(); }

void CReach::Init() {
  ResetProperties(m_email, m_phone);
  m_selected.clear();
}

void CReach::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kEmail: if (!get) m_selected = "email"; return AccessValue<ItemType_string>(get, value, m_email);
    case kPhone: if (!get) m_selected = "phone"; return AccessValue<ItemType_string>(get, value, m_phone);
  }
  // clang-format on
}

const CClassMetaData& CReach::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Group, "reach", kNamespace, false, false, -1, ItemType_none, "", false),
      {new CElementInfoChoicePrimOpt("email", kNamespace, kEmail, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoChoicePrimOpt("phone", kNamespace, kPhone, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {});
  // clang-format on
  return metaData;
}

CPlace::CPlace(const char* elementName) : TGeneratedClass(elementName) { CPlace::Init(); }

void CPlace::Init() { ResetProperties(m_street, m_city); }

void CPlace::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kStreet: return AccessValue<ItemType_string>(get, value, m_street);
    case kCity: return AccessValue<ItemType_string>(get, value, m_city);
  }
  // clang-format on
}

const CClassMetaData& CPlace::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Group, "place", kNamespace, false, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("street", kNamespace, kStreet, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("city", kNamespace, kCity, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {});
  // clang-format on
  return metaData;
}

CFact::CFact(const char* elementName) : TGeneratedClass(elementName) { CFact::Init(); }

void CFact::Init() { ResetProperties(m_key, m_value); }

void CFact::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kKey: return AccessValue<ItemType_string>(get, value, m_key);
    case kValue: return AccessValue<ItemType_string>(get, value, m_value);
  }
  // clang-format on
}

const CClassMetaData& CFact::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Group, "fact", kNamespace, false, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("key", kNamespace, kKey, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("value", kNamespace, kValue, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {});
  // clang-format on
  return metaData;
}

CContact::CContact(const char* elementName) : TGeneratedClass(elementName) { CContact::Init(); }

void CContact::Init() {
  ResetProperties(m_id, m_name, m_place, m_remark);
  ResetChild(m_reach, "reach");
  ResetCollection(m_fact, "fact", kNamespace, 0, kUnbounded, XmlElementType_Group);
}

void CContact::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_string>(get, value, m_id);
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kReach: return AccessObject(get, value, m_reach);
    case kPlace: return AccessObject(get, value, m_place);
    case kFact: return AccessCollection(get, value, m_fact.Ptr());
    case kRemark: return AccessValue<ItemType_string>(get, value, m_remark);
  }
  // clang-format on
}

const CClassMetaData& CContact::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "contact", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("name", kNamespace, kName, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsMnd("reach", kNamespace, kReach, XmlElementType_Group, CreateObject<CReach>, 0, true),
       new CElementInfoSeqClsOpt("place", kNamespace, kPlace, XmlElementType_Group, CreateObject<CPlace>, 0),
       new CElementInfoSeqClsCol("fact", kNamespace, kFact, XmlElementType_Group),
       new CElementInfoSeqPrimOpt("remark", kNamespace, kRemark, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {new CAttributeInfoPrimitive("id", "", kId, true, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

}  // namespace samples
