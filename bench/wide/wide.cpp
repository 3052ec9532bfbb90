// Generated from wide.xsd.

#include "bench/wide/wide.h"

namespace wide {

namespace {

[[maybe_unused]] const bool kIsRegistered = [] {
  RegisterGeneratedCode(16, LicenceKind_Licensed);
  return true;
}();

constexpr char kNamespace[] = "http://example.org/2024/wide";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }

}  // namespace

CRow::CRow(const char* elementName) : TGeneratedClass(elementName) { CRow::Init(); }

void CRow::Init() {
  ResetProperties(m_i0, m_d1, m_s2, m_t3, m_b4, m_i5, m_d6, m_s7, m_t8, m_b9, m_i10, m_d11, m_s12,
                  m_t13, m_b14, m_i15, m_d16, m_s17, m_t18, m_b19);
}

void CRow::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kI0: return AccessValue<ItemType_i4>(get, value, m_i0);
    case kD1: return AccessValue<ItemType_r8>(get, value, m_d1);
    case kS2: return AccessValue<ItemType_string>(get, value, m_s2);
    case kT3: return AccessValue<ItemType_date>(get, value, m_t3);
    case kB4: return AccessValue<ItemType_boolean>(get, value, m_b4);
    case kI5: return AccessValue<ItemType_i4>(get, value, m_i5);
    case kD6: return AccessValue<ItemType_r8>(get, value, m_d6);
    case kS7: return AccessValue<ItemType_string>(get, value, m_s7);
    case kT8: return AccessValue<ItemType_date>(get, value, m_t8);
    case kB9: return AccessValue<ItemType_boolean>(get, value, m_b9);
    case kI10: return AccessValue<ItemType_i4>(get, value, m_i10);
    case kD11: return AccessValue<ItemType_r8>(get, value, m_d11);
    case kS12: return AccessValue<ItemType_string>(get, value, m_s12);
    case kT13: return AccessValue<ItemType_date>(get, value, m_t13);
    case kB14: return AccessValue<ItemType_boolean>(get, value, m_b14);
    case kI15: return AccessValue<ItemType_i4>(get, value, m_i15);
    case kD16: return AccessValue<ItemType_r8>(get, value, m_d16);
    case kS17: return AccessValue<ItemType_string>(get, value, m_s17);
    case kT18: return AccessValue<ItemType_date>(get, value, m_t18);
    case kB19: return AccessValue<ItemType_boolean>(get, value, m_b19);
  }
  // clang-format on
}

const CClassMetaData& CRow::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "row", kNamespace, true, false, -1, ItemType_none, "", false),
      {},
      {new CAttributeInfoPrimitive("i0", "", kI0, false, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("d1", "", kD1, false, ItemType_r8, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("s2", "", kS2, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CAttributeInfoPrimitive("t3", "", kT3, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("b4", "", kB4, false, ItemType_boolean, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("i5", "", kI5, false, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("d6", "", kD6, false, ItemType_r8, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("s7", "", kS7, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CAttributeInfoPrimitive("t8", "", kT8, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("b9", "", kB9, false, ItemType_boolean, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("i10", "", kI10, false, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("d11", "", kD11, false, ItemType_r8, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("s12", "", kS12, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CAttributeInfoPrimitive("t13", "", kT13, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("b14", "", kB14, false, ItemType_boolean, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("i15", "", kI15, false, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("d16", "", kD16, false, ItemType_r8, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("s17", "", kS17, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CAttributeInfoPrimitive("t18", "", kT18, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("b19", "", kB19, false, ItemType_boolean, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CWide::CWide(const char* elementName) : TGeneratedClass(elementName) { CWide::Init(); }

void CWide::Init() { ResetCollection(m_row, "row", kNamespace, 1, kUnbounded); }

void CWide::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kRow: return AccessCollection(get, value, m_row.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CWide::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "wide", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsCol("row", kNamespace, kRow, XmlElementType_Element)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace wide
