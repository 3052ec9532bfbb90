// Generated from samples.xsd.

#include "tests/samples/typed_nillables.h"

namespace samples {

namespace {

constexpr char kNamespace[] = "urn:qvxml:samples";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr auto kNone = CWhitespaceUtils::ws_none;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }

}  // namespace

CTypedNillables::CTypedNillables(const char* elementName) : TGeneratedClass(elementName) {
  CTypedNillables::Init();
}

void CTypedNillables::Init() {
  ResetProperties(m_yearMonth, m_monthDay, m_year, m_month, m_day, m_date, m_datetime, m_time,
                  m_character, m_string, m_boolean, m_decimal, m_integer);
  m_hexBinary = TNillable<CBinaryData>::Nil();
  m_base64Binary = TNillable<CBinaryData>::Nil();
  m_i1 = TNillable<char>::Nil();
  m_i2 = TNillable<short>::Nil();
  m_i4 = TNillable<long>::Nil();
  m_i8 = TNillable<long long>::Nil();
  m_ui1 = TNillable<unsigned char>::Nil();
  m_ui2 = TNillable<unsigned short>::Nil();
  m_ui4 = TNillable<unsigned long>::Nil();
  m_ui8 = TNillable<unsigned long long>::Nil();
  m_r4 = TNillable<float>::Nil();
  m_r8 = TNillable<double>::Nil();
  m_duration = TNillable<CDateTimeSpan>::Nil();
}

void CTypedNillables::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kHexBinary: return AccessValue<ItemType_hexBinary>(get, value, m_hexBinary);
    case kBase64Binary: return AccessValue<ItemType_base64Binary>(get, value, m_base64Binary);
    case kI1: return AccessValue<ItemType_i1>(get, value, m_i1);
    case kI2: return AccessValue<ItemType_i2>(get, value, m_i2);
    case kI4: return AccessValue<ItemType_i4>(get, value, m_i4);
    case kI8: return AccessValue<ItemType_i8>(get, value, m_i8);
    case kUi1: return AccessValue<ItemType_ui1>(get, value, m_ui1);
    case kUi2: return AccessValue<ItemType_ui2>(get, value, m_ui2);
    case kUi4: return AccessValue<ItemType_ui4>(get, value, m_ui4);
    case kUi8: return AccessValue<ItemType_ui8>(get, value, m_ui8);
    case kR4: return AccessValue<ItemType_r4>(get, value, m_r4);
    case kR8: return AccessValue<ItemType_r8>(get, value, m_r8);
    case kDuration: return AccessValue<ItemType_duration>(get, value, m_duration);
    case kYearMonth: return AccessValue<ItemType_yearMonth>(get, value, m_yearMonth);
    case kMonthDay: return AccessValue<ItemType_monthDay>(get, value, m_monthDay);
    case kYear: return AccessValue<ItemType_year>(get, value, m_year);
    case kMonth: return AccessValue<ItemType_month>(get, value, m_month);
    case kDay: return AccessValue<ItemType_day>(get, value, m_day);
    case kDate: return AccessValue<ItemType_date>(get, value, m_date);
    case kDatetime: return AccessValue<ItemType_datetime>(get, value, m_datetime);
    case kTime: return AccessValue<ItemType_time>(get, value, m_time);
    case kCharacter: return AccessValue<ItemType_char>(get, value, m_character);
    case kString: return AccessValue<ItemType_string>(get, value, m_string);
    case kBoolean: return AccessValue<ItemType_boolean>(get, value, m_boolean);
    case kDecimal: return AccessValue<ItemType_decimal>(get, value, m_decimal);
    case kInteger: return AccessValue<ItemType_integer>(get, value, m_integer);
  }
  // clang-format on
}

const CClassMetaData& CTypedNillables::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "nillables", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("hexBinary", kNamespace, kHexBinary, true, ItemType_hexBinary, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("base64Binary", kNamespace, kBase64Binary, true, ItemType_base64Binary, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("i1", kNamespace, kI1, true, ItemType_i1, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("i2", kNamespace, kI2, true, ItemType_i2, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("i4", kNamespace, kI4, true, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("i8", kNamespace, kI8, true, ItemType_i8, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("ui1", kNamespace, kUi1, true, ItemType_ui1, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("ui2", kNamespace, kUi2, true, ItemType_ui2, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("ui4", kNamespace, kUi4, true, ItemType_ui4, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("ui8", kNamespace, kUi8, true, ItemType_ui8, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("r4", kNamespace, kR4, true, ItemType_r4, "%.9g", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("r8", kNamespace, kR8, true, ItemType_r8, "%.17g", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("duration", kNamespace, kDuration, true, ItemType_duration, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("yearMonth", kNamespace, kYearMonth, true, ItemType_yearMonth, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("monthDay", kNamespace, kMonthDay, true, ItemType_monthDay, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("year", kNamespace, kYear, true, ItemType_year, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("month", kNamespace, kMonth, true, ItemType_month, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("day", kNamespace, kDay, true, ItemType_day, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("date", kNamespace, kDate, true, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("datetime", kNamespace, kDatetime, true, ItemType_datetime, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("time", kNamespace, kTime, true, ItemType_time, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("character", kNamespace, kCharacter, true, ItemType_char, "", kNone, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("string", kNamespace, kString, true, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("boolean", kNamespace, kBoolean, true, ItemType_boolean, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("decimal", kNamespace, kDecimal, true, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("integer", kNamespace, kInteger, true, ItemType_integer, "", kCollapse, NoFacets(), "")},
      {});
  // clang-format on
  return metaData;
}

}  // namespace samples
