// Generated from samples.xsd.

#include "tests/samples/typed_lists.h"

namespace samples {

namespace {

constexpr char kNamespace[] = "urn:qvxml:samples";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr auto kNone = CWhitespaceUtils::ws_none;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }
CPrimitiveRestrictions Color() {
  return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1, -1, -1, {"red", "green", "blue"});
}

}  // namespace

CTypedLists::CTypedLists(const char* elementName) : TGeneratedClass(elementName) {
  CTypedLists::Init();
}

void CTypedLists::Init() {
  ResetCollection(m_hexBinary, "hexBinary", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_base64Binary, "base64Binary", kNamespace, 0, kUnbounded, NoFacets(), kCollapse,
                  "");
  ResetCollection(m_i1, "i1", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_i2, "i2", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_i4, "i4", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_i8, "i8", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_ui1, "ui1", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_ui2, "ui2", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_ui4, "ui4", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_ui8, "ui8", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_r4, "r4", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "%.9g");
  ResetCollection(m_r8, "r8", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "%.17g");
  ResetCollection(m_duration, "duration", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_yearMonth, "yearMonth", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_monthDay, "monthDay", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_year, "year", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_month, "month", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_day, "day", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_date, "date", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_datetime, "datetime", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_time, "time", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_string, "string", kNamespace, 0, kUnbounded, NoFacets(), kPreserve, "");
  ResetCollection(m_boolean, "boolean", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_decimal, "decimal", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_integer, "integer", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
  ResetCollection(m_color, "color", kNamespace, 0, kUnbounded, Color(), kNone, "");
}

void CTypedLists::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kHexBinary: return AccessCollection(get, value, m_hexBinary.Ptr());
    case kBase64Binary: return AccessCollection(get, value, m_base64Binary.Ptr());
    case kI1: return AccessCollection(get, value, m_i1.Ptr());
    case kI2: return AccessCollection(get, value, m_i2.Ptr());
    case kI4: return AccessCollection(get, value, m_i4.Ptr());
    case kI8: return AccessCollection(get, value, m_i8.Ptr());
    case kUi1: return AccessCollection(get, value, m_ui1.Ptr());
    case kUi2: return AccessCollection(get, value, m_ui2.Ptr());
    case kUi4: return AccessCollection(get, value, m_ui4.Ptr());
    case kUi8: return AccessCollection(get, value, m_ui8.Ptr());
    case kR4: return AccessCollection(get, value, m_r4.Ptr());
    case kR8: return AccessCollection(get, value, m_r8.Ptr());
    case kDuration: return AccessCollection(get, value, m_duration.Ptr());
    case kYearMonth: return AccessCollection(get, value, m_yearMonth.Ptr());
    case kMonthDay: return AccessCollection(get, value, m_monthDay.Ptr());
    case kYear: return AccessCollection(get, value, m_year.Ptr());
    case kMonth: return AccessCollection(get, value, m_month.Ptr());
    case kDay: return AccessCollection(get, value, m_day.Ptr());
    case kDate: return AccessCollection(get, value, m_date.Ptr());
    case kDatetime: return AccessCollection(get, value, m_datetime.Ptr());
    case kTime: return AccessCollection(get, value, m_time.Ptr());
    case kString: return AccessCollection(get, value, m_string.Ptr());
    case kBoolean: return AccessCollection(get, value, m_boolean.Ptr());
    case kDecimal: return AccessCollection(get, value, m_decimal.Ptr());
    case kInteger: return AccessCollection(get, value, m_integer.Ptr());
    case kColor: return AccessCollection(get, value, m_color.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CTypedLists::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "lists", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimCol("hexBinary", kNamespace, kHexBinary),
       new CElementInfoSeqPrimCol("base64Binary", kNamespace, kBase64Binary),
       new CElementInfoSeqPrimCol("i1", kNamespace, kI1),
       new CElementInfoSeqPrimCol("i2", kNamespace, kI2),
       new CElementInfoSeqPrimCol("i4", kNamespace, kI4),
       new CElementInfoSeqPrimCol("i8", kNamespace, kI8),
       new CElementInfoSeqPrimCol("ui1", kNamespace, kUi1),
       new CElementInfoSeqPrimCol("ui2", kNamespace, kUi2),
       new CElementInfoSeqPrimCol("ui4", kNamespace, kUi4),
       new CElementInfoSeqPrimCol("ui8", kNamespace, kUi8),
       new CElementInfoSeqPrimCol("r4", kNamespace, kR4),
       new CElementInfoSeqPrimCol("r8", kNamespace, kR8),
       new CElementInfoSeqPrimCol("duration", kNamespace, kDuration),
       new CElementInfoSeqPrimCol("yearMonth", kNamespace, kYearMonth),
       new CElementInfoSeqPrimCol("monthDay", kNamespace, kMonthDay),
       new CElementInfoSeqPrimCol("year", kNamespace, kYear),
       new CElementInfoSeqPrimCol("month", kNamespace, kMonth),
       new CElementInfoSeqPrimCol("day", kNamespace, kDay),
       new CElementInfoSeqPrimCol("date", kNamespace, kDate),
       new CElementInfoSeqPrimCol("datetime", kNamespace, kDatetime),
       new CElementInfoSeqPrimCol("time", kNamespace, kTime),
       new CElementInfoSeqPrimCol("string", kNamespace, kString),
       new CElementInfoSeqPrimCol("boolean", kNamespace, kBoolean),
       new CElementInfoSeqPrimCol("decimal", kNamespace, kDecimal),
       new CElementInfoSeqPrimCol("integer", kNamespace, kInteger),
       new CElementInfoSeqEnumCol("color", kNamespace, kColor)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace samples
