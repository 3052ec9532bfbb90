// Generated from samples.xsd.

#include "tests/samples/typed_elements.h"

namespace samples {

namespace {

constexpr char kNamespace[] = "urn:qvxml:samples";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr auto kNone = CWhitespaceUtils::ws_none;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }

}  // namespace

CTypedOptionals::CTypedOptionals(const char* elementName) : TGeneratedClass(elementName) {
  CTypedOptionals::Init();
}

void CTypedOptionals::Init() {
  ResetProperties(m_hexBinary, m_base64Binary, m_i1, m_i2, m_i4, m_i8, m_ui1, m_ui2, m_ui4, m_ui8,
                  m_r4, m_r8, m_duration, m_yearMonth, m_monthDay, m_year, m_month, m_day, m_date,
                  m_datetime, m_time, m_character, m_string, m_boolean, m_decimal, m_integer,
                  m_color);
}

void CTypedOptionals::AccessProperty(int index, bool get, QvVariant& value) {
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
    case kColor: return AccessEnum(get, value, m_color);
  }
  // clang-format on
}

const CClassMetaData& CTypedOptionals::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "optionals", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("hexBinary", kNamespace, kHexBinary, false, ItemType_hexBinary, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("base64Binary", kNamespace, kBase64Binary, false, ItemType_base64Binary, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("i1", kNamespace, kI1, false, ItemType_i1, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("i2", kNamespace, kI2, false, ItemType_i2, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("i4", kNamespace, kI4, false, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("i8", kNamespace, kI8, false, ItemType_i8, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("ui1", kNamespace, kUi1, false, ItemType_ui1, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("ui2", kNamespace, kUi2, false, ItemType_ui2, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("ui4", kNamespace, kUi4, false, ItemType_ui4, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("ui8", kNamespace, kUi8, false, ItemType_ui8, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("r4", kNamespace, kR4, false, ItemType_r4, "%.9g", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("r8", kNamespace, kR8, false, ItemType_r8, "%.17g", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("duration", kNamespace, kDuration, false, ItemType_duration, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("yearMonth", kNamespace, kYearMonth, false, ItemType_yearMonth, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("monthDay", kNamespace, kMonthDay, false, ItemType_monthDay, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("year", kNamespace, kYear, false, ItemType_year, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("month", kNamespace, kMonth, false, ItemType_month, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("day", kNamespace, kDay, false, ItemType_day, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("date", kNamespace, kDate, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("datetime", kNamespace, kDatetime, false, ItemType_datetime, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("time", kNamespace, kTime, false, ItemType_time, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("character", kNamespace, kCharacter, false, ItemType_char, "", kNone, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("string", kNamespace, kString, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("boolean", kNamespace, kBoolean, false, ItemType_boolean, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("decimal", kNamespace, kDecimal, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("integer", kNamespace, kInteger, false, ItemType_integer, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqEnumOpt("color", kNamespace, kColor, false, ColorToText, ColorFromText, "")},
      {});
  // clang-format on
  return metaData;
}

CTypedMandatories::CTypedMandatories(const char* elementName) : TGeneratedClass(elementName) {
  CTypedMandatories::Init();
}

const CClassMetaData& CTypedMandatories::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "mandatories", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("hexBinary", kNamespace, kHexBinary, false, ItemType_hexBinary, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("base64Binary", kNamespace, kBase64Binary, false, ItemType_base64Binary, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("i1", kNamespace, kI1, false, ItemType_i1, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("i2", kNamespace, kI2, false, ItemType_i2, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("i4", kNamespace, kI4, false, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("i8", kNamespace, kI8, false, ItemType_i8, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("ui1", kNamespace, kUi1, false, ItemType_ui1, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("ui2", kNamespace, kUi2, false, ItemType_ui2, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("ui4", kNamespace, kUi4, false, ItemType_ui4, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("ui8", kNamespace, kUi8, false, ItemType_ui8, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("r4", kNamespace, kR4, false, ItemType_r4, "%.9g", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("r8", kNamespace, kR8, false, ItemType_r8, "%.17g", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("duration", kNamespace, kDuration, false, ItemType_duration, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("yearMonth", kNamespace, kYearMonth, false, ItemType_yearMonth, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("monthDay", kNamespace, kMonthDay, false, ItemType_monthDay, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("year", kNamespace, kYear, false, ItemType_year, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("month", kNamespace, kMonth, false, ItemType_month, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("day", kNamespace, kDay, false, ItemType_day, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("date", kNamespace, kDate, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("datetime", kNamespace, kDatetime, false, ItemType_datetime, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("time", kNamespace, kTime, false, ItemType_time, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("character", kNamespace, kCharacter, false, ItemType_char, "", kNone, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("string", kNamespace, kString, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("boolean", kNamespace, kBoolean, false, ItemType_boolean, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("decimal", kNamespace, kDecimal, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("integer", kNamespace, kInteger, false, ItemType_integer, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqEnumMnd("color", kNamespace, kColor, false, ColorToText, ColorFromText, "")},
      {});
  // clang-format on
  return metaData;
}

CTypedDefaults::CTypedDefaults(const char* elementName) : TGeneratedClass(elementName) {
  CTypedDefaults::Init();
}

const CClassMetaData& CTypedDefaults::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "defaults", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("hexBinary", kNamespace, kHexBinary, false, ItemType_hexBinary, "", kCollapse, NoFacets(), "0AFF"),
       new CElementInfoSeqPrimOpt("base64Binary", kNamespace, kBase64Binary, false, ItemType_base64Binary, "", kCollapse, NoFacets(), "AQID"),
       new CElementInfoSeqPrimOpt("i1", kNamespace, kI1, false, ItemType_i1, "", kCollapse, NoFacets(), "-8"),
       new CElementInfoSeqPrimOpt("i2", kNamespace, kI2, false, ItemType_i2, "", kCollapse, NoFacets(), "-300"),
       new CElementInfoSeqPrimOpt("i4", kNamespace, kI4, false, ItemType_i4, "", kCollapse, NoFacets(), "-70000"),
       new CElementInfoSeqPrimOpt("i8", kNamespace, kI8, false, ItemType_i8, "", kCollapse, NoFacets(), "-5000000000"),
       new CElementInfoSeqPrimOpt("ui1", kNamespace, kUi1, false, ItemType_ui1, "", kCollapse, NoFacets(), "8"),
       new CElementInfoSeqPrimOpt("ui2", kNamespace, kUi2, false, ItemType_ui2, "", kCollapse, NoFacets(), "300"),
       new CElementInfoSeqPrimOpt("ui4", kNamespace, kUi4, false, ItemType_ui4, "", kCollapse, NoFacets(), "70000"),
       new CElementInfoSeqPrimOpt("ui8", kNamespace, kUi8, false, ItemType_ui8, "", kCollapse, NoFacets(), "5000000000"),
       new CElementInfoSeqPrimOpt("r4", kNamespace, kR4, false, ItemType_r4, "%.9g", kCollapse, NoFacets(), "0.5"),
       new CElementInfoSeqPrimOpt("r8", kNamespace, kR8, false, ItemType_r8, "%.17g", kCollapse, NoFacets(), "-2.25"),
       new CElementInfoSeqPrimOpt("duration", kNamespace, kDuration, false, ItemType_duration, "", kCollapse, NoFacets(), "P1DT2H"),
       new CElementInfoSeqPrimOpt("yearMonth", kNamespace, kYearMonth, false, ItemType_yearMonth, "", kCollapse, NoFacets(), "2024-02"),
       new CElementInfoSeqPrimOpt("monthDay", kNamespace, kMonthDay, false, ItemType_monthDay, "", kCollapse, NoFacets(), "--02-29"),
       new CElementInfoSeqPrimOpt("year", kNamespace, kYear, false, ItemType_year, "", kCollapse, NoFacets(), "2024"),
       new CElementInfoSeqPrimOpt("month", kNamespace, kMonth, false, ItemType_month, "", kCollapse, NoFacets(), "--02--"),
       new CElementInfoSeqPrimOpt("day", kNamespace, kDay, false, ItemType_day, "", kCollapse, NoFacets(), "---29"),
       new CElementInfoSeqPrimOpt("date", kNamespace, kDate, false, ItemType_date, "", kCollapse, NoFacets(), "2024-02-29"),
       new CElementInfoSeqPrimOpt("datetime", kNamespace, kDatetime, false, ItemType_datetime, "", kCollapse, NoFacets(), "2024-02-29T12:30:00Z"),
       new CElementInfoSeqPrimOpt("time", kNamespace, kTime, false, ItemType_time, "", kCollapse, NoFacets(), "12:30:00"),
       new CElementInfoSeqPrimOpt("character", kNamespace, kCharacter, false, ItemType_char, "", kNone, NoFacets(), "x"),
       new CElementInfoSeqPrimOpt("string", kNamespace, kString, false, ItemType_string, "", kPreserve, NoFacets(), "default text"),
       new CElementInfoSeqPrimOpt("boolean", kNamespace, kBoolean, false, ItemType_boolean, "", kCollapse, NoFacets(), "true"),
       new CElementInfoSeqPrimOpt("decimal", kNamespace, kDecimal, false, ItemType_decimal, "", kCollapse, NoFacets(), "-12.75"),
       new CElementInfoSeqPrimOpt("integer", kNamespace, kInteger, false, ItemType_integer, "", kCollapse, NoFacets(), "123456789012345678901234567890"),
       new CElementInfoSeqEnumOpt("color", kNamespace, kColor, false, ColorToText, ColorFromText, "green")},
      {});
  // clang-format on
  return metaData;
}

}  // namespace samples
