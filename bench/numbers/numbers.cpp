// Generated from numbers.xsd.

#include "bench/numbers/numbers.h"

namespace numbers {

namespace {

[[maybe_unused]] const bool kIsRegistered = [] {
  RegisterGeneratedCode(16, LicenceKind_Licensed);
  return true;
}();

constexpr char kNamespace[] = "http://example.org/2024/numbers";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }

}  // namespace

CDoubles::CDoubles(const char* elementName) : TGeneratedClass(elementName) { CDoubles::Init(); }

void CDoubles::Init() {
  ResetCollection(m_d, "d", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
}

void CDoubles::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kD: return AccessCollection(get, value, m_d.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CDoubles::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "doubles", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimCol("d", kNamespace, kD)},
      {});
  // clang-format on
  return metaData;
}

CInts::CInts(const char* elementName) : TGeneratedClass(elementName) { CInts::Init(); }

void CInts::Init() {
  ResetCollection(m_i, "i", kNamespace, 0, kUnbounded, NoFacets(), kCollapse, "");
}

void CInts::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kI: return AccessCollection(get, value, m_i.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CInts::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "ints", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimCol("i", kNamespace, kI)},
      {});
  // clang-format on
  return metaData;
}

CSeries::CSeries(const char* elementName) : TGeneratedClass(elementName) { CSeries::Init(); }

void CSeries::SetDoubles(CSmartPtr<CDoubles> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "doubles");
  Throw_IfElementNameDiffers(value.Ptr(), "doubles");
  m_doubles = std::move(value);
}

void CSeries::SetInts(CSmartPtr<CInts> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "ints");
  Throw_IfElementNameDiffers(value.Ptr(), "ints");
  m_ints = std::move(value);
}

void CSeries::Init() {
  ResetProperties(m_name);
  ResetChild(m_doubles, "doubles");
  ResetChild(m_ints, "ints");
}

void CSeries::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kDoubles: return AccessObject(get, value, m_doubles);
    case kInts: return AccessObject(get, value, m_ints);
  }
  // clang-format on
}

const CClassMetaData& CSeries::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "series", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsMnd("doubles", kNamespace, kDoubles, XmlElementType_Element, CreateObject<CDoubles>, 0, false),
       new CElementInfoSeqClsMnd("ints", kNamespace, kInts, XmlElementType_Element, CreateObject<CInts>, 0, false)},
      {new CAttributeInfoPrimitive("name", "", kName, false, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CNumbers::CNumbers(const char* elementName) : TGeneratedClass(elementName) { CNumbers::Init(); }

void CNumbers::Init() { ResetCollection(m_series, "series", kNamespace, 1, kUnbounded); }

void CNumbers::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kSeries: return AccessCollection(get, value, m_series.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CNumbers::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "numbers", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsCol("series", kNamespace, kSeries, XmlElementType_Element)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace numbers
