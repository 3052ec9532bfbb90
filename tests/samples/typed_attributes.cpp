// Generated from samples.xsd.

#include "tests/samples/typed_attributes.h"

namespace samples {

namespace {

constexpr char kNamespace[] = "urn:qvxml:samples";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr auto kNone = CWhitespaceUtils::ws_none;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }
CPrimitiveRestrictions UpToTen() { return CPrimitiveRestrictions("", -1, -1, "0", "10"); }

}  // namespace

CTypedAttributes::CTypedAttributes(const char* elementName) : TGeneratedClass(elementName) {
  CTypedAttributes::Init();
}

void CTypedAttributes::Init() {
  ResetProperties(m_hexBinary, m_base64Binary, m_i1, m_i2, m_i4, m_i8, m_ui1, m_ui2, m_ui4, m_ui8,
                  m_r4, m_r8, m_duration, m_yearMonth, m_monthDay, m_year, m_month, m_day, m_date,
                  m_datetime, m_time, m_character, m_string, m_boolean, m_decimal, m_integer,
                  m_color, m_count);
  ResetCollection(m_anyAttribute, "AnyAttribute", "##other", kNamespace);
}

void CTypedAttributes::AccessProperty(int index, bool get, QvVariant& value) {
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
    case kCount: return AccessValue<ItemType_i4>(get, value, m_count);
    case kAnyAttribute: return AccessCollection(get, value, m_anyAttribute.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CTypedAttributes::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "attributes", kNamespace, true, false, -1, ItemType_none, "", false),
      {},
      {new CAttributeInfoPrimitive("hexBinary", "", kHexBinary, true, ItemType_hexBinary, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("base64Binary", "", kBase64Binary, true, ItemType_base64Binary, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("i1", "", kI1, true, ItemType_i1, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("i2", "", kI2, true, ItemType_i2, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("i4", "", kI4, true, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("i8", "", kI8, true, ItemType_i8, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("ui1", "", kUi1, true, ItemType_ui1, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("ui2", "", kUi2, true, ItemType_ui2, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("ui4", "", kUi4, true, ItemType_ui4, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("ui8", "", kUi8, true, ItemType_ui8, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("r4", "", kR4, true, ItemType_r4, "%.9g", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("r8", "", kR8, true, ItemType_r8, "%.17g", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("duration", "", kDuration, true, ItemType_duration, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("yearMonth", "", kYearMonth, true, ItemType_yearMonth, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("monthDay", "", kMonthDay, true, ItemType_monthDay, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("year", "", kYear, true, ItemType_year, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("month", "", kMonth, true, ItemType_month, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("day", "", kDay, true, ItemType_day, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("date", "", kDate, true, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("datetime", "", kDatetime, true, ItemType_datetime, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("time", "", kTime, true, ItemType_time, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("character", "", kCharacter, true, ItemType_char, "", kNone, NoFacets(), ""),
       new CAttributeInfoPrimitive("string", "", kString, true, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CAttributeInfoPrimitive("boolean", "", kBoolean, true, ItemType_boolean, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("decimal", "", kDecimal, true, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("integer", "", kInteger, true, ItemType_integer, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoEnum("color", "", kColor, true, ColorToText, ColorFromText, "green"),
       new CAttributeInfoPrimitive("count", "", kCount, false, ItemType_i4, "", kCollapse, UpToTen(), ""),
       new CAttributeInfoAny("AnyAttribute", "", kAnyAttribute, true, "", "##other", kNamespace)});
  // clang-format on
  return metaData;
}

}  // namespace samples
