#include "tests/samples/typed_elements.h"

namespace samples {

using namespace schema;

namespace {

// By item type; there is no member for 0 and for char, 22.
// clang-format off
constexpr const char* kDefaults[] = {
    "", "0AFF", "AQID", "-8", "-300", "-70000", "-5000000000", "8", "300", "70000", "5000000000",
    "0.5", "-2.25", "P1DT2H", "2024-02", "--02-29", "2024", "--02", "---29", "2024-02-29",
    "2024-02-29T12:30:00Z", "12:30:00", "", "default text", "true", "-12.75",
    "123456789012345678901234567890", "green"};
// clang-format on

template <class TPrim, class TEnum, ItemType... kTypes>
CClassMetaData MakeMetaData(TItemTypes<kTypes...>, const char* name, bool hasDefaults = false) {
  const auto defaultOf = [=](int index) { return hasDefaults ? kDefaults[index] : ""; };
  return CClassMetaData(NewTypedClassInfo(name),
                        {NewTypedInfo<TPrim, kTypes>(kNamespace, false, defaultOf(kTypes))...,
                         new TEnum("color", kNamespace, kColor, false, ColorToText, ColorFromText,
                                   defaultOf(kColor))},
                        {});
}

}  // namespace

CTypedOptionals::CTypedOptionals(const char* elementName) : TGeneratedClass(elementName) {
  CTypedOptionals::Init();
}

void CTypedOptionals::Init() {
  m_typed = decltype(m_typed)();
  m_color.reset();
}

void CTypedOptionals::AccessProperty(int index, bool get, QvVariant& value) {
  if (index == kColor) return AccessEnum(get, value, m_color);
  AllItemTypes::Access(index, get, value, m_typed);
}

const CClassMetaData& CTypedOptionals::GetMetaData() {
  static const CClassMetaData metaData =
      MakeMetaData<CElementInfoSeqPrimOpt, CElementInfoSeqEnumOpt>(AllItemTypes(), "optionals");
  return metaData;
}

const CClassMetaData& CTypedMandatories::GetMetaData() {
  static const CClassMetaData metaData =
      MakeMetaData<CElementInfoSeqPrimMnd, CElementInfoSeqEnumMnd>(AllItemTypes(), "mandatories");
  return metaData;
}

const CClassMetaData& CTypedDefaults::GetMetaData() {
  static const CClassMetaData metaData =
      MakeMetaData<CElementInfoSeqPrimOpt, CElementInfoSeqEnumOpt>(AllItemTypes(), "defaults",
                                                                   true);
  return metaData;
}

}  // namespace samples
