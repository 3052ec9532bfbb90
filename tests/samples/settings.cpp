// Generated from samples.xsd.

#include "tests/samples/settings.h"

namespace samples {

using namespace schema;

namespace {

constexpr const char* kLevelTexts[] = {"low", "high"};
const char* LevelToText(int value) { return GetEnumText(kLevelTexts, value); }
int LevelFromText(const char* text) { return FindEnumValue(kLevelTexts, "Level", text); }

}  // namespace

CServerType::CServerType(const char* elementName) : CXmlGeneratedClass(elementName) {
  CServerType::Init();
}

void CServerType::Init() { ResetProperties(m_host); }

void CServerType::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kHost: return AccessValue<ItemType_string>(get, value, m_host);
  }
  // clang-format on
}

CClassMetaData CServerType::MakeMetaData(const char* elementName) {
  // clang-format off
  return CClassMetaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, elementName, kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("host", kNamespace, kHost, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {});
  // clang-format on
}

const CClassMetaData& CServer::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("server");
  return metaData;
}

const CClassMetaData& CMirror::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("mirror");
  return metaData;
}

CSettings::CSettings(const char* elementName) : TGeneratedClass(elementName) { CSettings::Init(); }

void CSettings::Init() {
  ResetProperties(m_title, m_port, m_level, m_fallback, m_mirror);
  ResetChild(m_server, "server");
  ResetCollection(m_note, "note", kNamespace, 0, 2, NoFacets(), kPreserve, "");
}

void CSettings::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kTitle: return AccessValue<ItemType_string>(get, value, m_title);
    case kPort: return AccessValue<ItemType_ui2>(get, value, m_port);
    case kLevel: return AccessEnum(get, value, m_level);
    case kFallback: return AccessEnum(get, value, m_fallback);
    case kServer: return AccessObject(get, value, m_server);
    case kMirror: return AccessObject(get, value, m_mirror);
    case kNote: return AccessCollection(get, value, m_note.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CSettings::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_All, XmlElementType_Element, "settings", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoAllPrimMnd("title", kNamespace, kTitle, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoAllPrimOpt("port", kNamespace, kPort, false, ItemType_ui2, "", kCollapse, NoFacets(), ""),
       new CElementInfoAllEnumMnd("level", kNamespace, kLevel, false, LevelToText, LevelFromText, ""),
       new CElementInfoAllEnumOpt("fallback", kNamespace, kFallback, false, LevelToText, LevelFromText, ""),
       new CElementInfoAllClsMnd("server", kNamespace, kServer, XmlElementType_Element, CreateObject<CServer>, 0, true),
       new CElementInfoAllClsOpt("mirror", kNamespace, kMirror, XmlElementType_Element, CreateObject<CMirror>, 0),
       new CElementInfoAllPrimCol("note", kNamespace, kNote)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace samples
