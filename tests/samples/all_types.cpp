// Generated from samples.xsd.

#include "tests/samples/all_types.h"

namespace samples {

using namespace schema;

namespace {

[[maybe_unused]] const bool kIsRegistered = [] {
  RegisterGeneratedCode(16, LicenceKind_Licensed);
  return true;
}();

}  // namespace

CAllTypes::CAllTypes(const char* elementName) : TGeneratedClass(elementName) { CAllTypes::Init(); }

void CAllTypes::Init() {
  ResetChild(m_attributes, "attributes");
  ResetChild(m_mandatories, "mandatories");
  ResetChild(m_optionals, "optionals");
  ResetChild(m_nillables, "nillables");
  ResetChild(m_defaults, "defaults");
  ResetChild(m_lists, "lists");
}

void CAllTypes::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kAttributes: return AccessObject(get, value, m_attributes);
    case kMandatories: return AccessObject(get, value, m_mandatories);
    case kOptionals: return AccessObject(get, value, m_optionals);
    case kNillables: return AccessObject(get, value, m_nillables);
    case kDefaults: return AccessObject(get, value, m_defaults);
    case kLists: return AccessObject(get, value, m_lists);
  }
  // clang-format on
}

const CClassMetaData& CAllTypes::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "allTypes", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsMnd("attributes", kNamespace, kAttributes, XmlElementType_Element, CreateObject<CTypedAttributes>, 0, false),
       new CElementInfoSeqClsMnd("mandatories", kNamespace, kMandatories, XmlElementType_Element, CreateObject<CTypedMandatories>, 0, false),
       new CElementInfoSeqClsMnd("optionals", kNamespace, kOptionals, XmlElementType_Element, CreateObject<CTypedOptionals>, 0, false),
       new CElementInfoSeqClsMnd("nillables", kNamespace, kNillables, XmlElementType_Element, CreateObject<CTypedNillables>, 0, false),
       new CElementInfoSeqClsMnd("defaults", kNamespace, kDefaults, XmlElementType_Element, CreateObject<CTypedDefaults>, 0, false),
       new CElementInfoSeqClsMnd("lists", kNamespace, kLists, XmlElementType_Element, CreateObject<CTypedLists>, 0, false)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace samples
