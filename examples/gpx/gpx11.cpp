// Generated from gpx.xsd (GPX 1.1).

#include "gpx11.h"

namespace gpx11 {

namespace {

[[maybe_unused]] const bool kIsRegistered = [] {
  RegisterGeneratedCode(16, LicenceKind_Licensed);
  return true;
}();

constexpr char kNamespace[] = "http://www.topografix.com/GPX/1/1";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }
constexpr const char* kFixTexts[] = {"none", "2d", "3d", "dgps", "pps"};
const char* FixToText(int value) { return GetEnumText(kFixTexts, value); }
int FixFromText(const char* text) { return FindEnumValue(kFixTexts, "Fix", text); }

CPrimitiveRestrictions Latitude() { return CPrimitiveRestrictions("", -1, -1, "-90.0", "90.0"); }
CPrimitiveRestrictions Longitude() {
  return CPrimitiveRestrictions("", -1, -1, "-180.0", "", "", "180.0");
}
CPrimitiveRestrictions Degrees() {
  return CPrimitiveRestrictions("", -1, -1, "0.0", "", "", "360.0");
}
CPrimitiveRestrictions NonNegative() { return CPrimitiveRestrictions("", -1, -1, "0"); }
CPrimitiveRestrictions DgpsStation() { return CPrimitiveRestrictions("", -1, -1, "0", "1023"); }
CPrimitiveRestrictions Version() {
  return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1, -1, -1, {"1.1"});
}

}  // namespace

CExtensions::CExtensions(const char* elementName) : TGeneratedClass(elementName) {
  CExtensions::Init();
}

void CExtensions::Init() {
  ResetCollection(m_anyElement, "AnyElement", "##other", kNamespace, 0, kUnbounded);
}

void CExtensions::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kAnyElement: return AccessCollection(get, value, m_anyElement.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CExtensions::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "extensions", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqUntpdCol("AnyElement", kNamespace, kAnyElement)},
      {});
  // clang-format on
  return metaData;
}

CLink::CLink(const char* elementName) : TGeneratedClass(elementName) { CLink::Init(); }

void CLink::Init() { ResetProperties(m_href, m_text, m_type); }

void CLink::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kHref: return AccessValue<ItemType_string>(get, value, m_href);
    case kText: return AccessValue<ItemType_string>(get, value, m_text);
    case kType: return AccessValue<ItemType_string>(get, value, m_type);
  }
  // clang-format on
}

const CClassMetaData& CLink::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "link", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("text", kNamespace, kText, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("type", kNamespace, kType, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {new CAttributeInfoPrimitive("href", "", kHref, false, ItemType_string, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CEmail::CEmail(const char* elementName) : TGeneratedClass(elementName) { CEmail::Init(); }

void CEmail::Init() { ResetProperties(m_id, m_domain); }

void CEmail::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_string>(get, value, m_id);
    case kDomain: return AccessValue<ItemType_string>(get, value, m_domain);
  }
  // clang-format on
}

const CClassMetaData& CEmail::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "email", kNamespace, true, false, -1, ItemType_none, "", false),
      {},
      {new CAttributeInfoPrimitive("id", "", kId, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CAttributeInfoPrimitive("domain", "", kDomain, false, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CPerson::CPerson(const char* elementName) : TGeneratedClass(elementName) { CPerson::Init(); }

void CPerson::SetEmail(CSmartPtr<CEmail> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "email");
  m_email = std::move(value);
}

void CPerson::SetLink(CSmartPtr<CLink> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "link");
  m_link = std::move(value);
}

void CPerson::Init() { ResetProperties(m_name, m_email, m_link); }

void CPerson::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kEmail: return AccessObject(get, value, m_email);
    case kLink: return AccessObject(get, value, m_link);
  }
  // clang-format on
}

const CClassMetaData& CPerson::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "author", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("name", kNamespace, kName, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsOpt("email", kNamespace, kEmail, XmlElementType_Element, CreateObject<CEmail>, 0),
       new CElementInfoSeqClsOpt("link", kNamespace, kLink, XmlElementType_Element, CreateObject<CLink>, 0)},
      {});
  // clang-format on
  return metaData;
}

CCopyright::CCopyright(const char* elementName) : TGeneratedClass(elementName) {
  CCopyright::Init();
}

void CCopyright::Init() { ResetProperties(m_author, m_year, m_license); }

void CCopyright::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kAuthor: return AccessValue<ItemType_string>(get, value, m_author);
    case kYear: return AccessValue<ItemType_year>(get, value, m_year);
    case kLicense: return AccessValue<ItemType_string>(get, value, m_license);
  }
  // clang-format on
}

const CClassMetaData& CCopyright::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "copyright", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("year", kNamespace, kYear, false, ItemType_year, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("license", kNamespace, kLicense, false, ItemType_string, "", kCollapse, NoFacets(), "")},
      {new CAttributeInfoPrimitive("author", "", kAuthor, false, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CBounds::CBounds(const char* elementName) : TGeneratedClass(elementName) { CBounds::Init(); }

void CBounds::Init() { ResetProperties(m_minlat, m_minlon, m_maxlat, m_maxlon); }

void CBounds::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kMinlat: return AccessValue<ItemType_decimal>(get, value, m_minlat);
    case kMinlon: return AccessValue<ItemType_decimal>(get, value, m_minlon);
    case kMaxlat: return AccessValue<ItemType_decimal>(get, value, m_maxlat);
    case kMaxlon: return AccessValue<ItemType_decimal>(get, value, m_maxlon);
  }
  // clang-format on
}

const CClassMetaData& CBounds::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "bounds", kNamespace, true, false, -1, ItemType_none, "", false),
      {},
      {new CAttributeInfoPrimitive("minlat", "", kMinlat, false, ItemType_decimal, "", kCollapse, Latitude(), ""),
       new CAttributeInfoPrimitive("minlon", "", kMinlon, false, ItemType_decimal, "", kCollapse, Longitude(), ""),
       new CAttributeInfoPrimitive("maxlat", "", kMaxlat, false, ItemType_decimal, "", kCollapse, Latitude(), ""),
       new CAttributeInfoPrimitive("maxlon", "", kMaxlon, false, ItemType_decimal, "", kCollapse, Longitude(), "")});
  // clang-format on
  return metaData;
}

CMetadata::CMetadata(const char* elementName) : TGeneratedClass(elementName) { CMetadata::Init(); }

void CMetadata::SetAuthor(CSmartPtr<CPerson> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "author");
  m_author = std::move(value);
}

void CMetadata::SetCopyright(CSmartPtr<CCopyright> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "copyright");
  m_copyright = std::move(value);
}

void CMetadata::SetBounds(CSmartPtr<CBounds> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "bounds");
  m_bounds = std::move(value);
}

void CMetadata::SetExtensions(CSmartPtr<CExtensions> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "extensions");
  m_extensions = std::move(value);
}

void CMetadata::Init() {
  ResetProperties(m_name, m_desc, m_author, m_copyright, m_time, m_keywords, m_bounds,
                  m_extensions);
  ResetCollection(m_link, "link", kNamespace, 0, kUnbounded);
}

void CMetadata::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kDesc: return AccessValue<ItemType_string>(get, value, m_desc);
    case kAuthor: return AccessObject(get, value, m_author);
    case kCopyright: return AccessObject(get, value, m_copyright);
    case kLink: return AccessCollection(get, value, m_link.Ptr());
    case kTime: return AccessValue<ItemType_datetime>(get, value, m_time);
    case kKeywords: return AccessValue<ItemType_string>(get, value, m_keywords);
    case kBounds: return AccessObject(get, value, m_bounds);
    case kExtensions: return AccessObject(get, value, m_extensions);
  }
  // clang-format on
}

const CClassMetaData& CMetadata::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "metadata", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("name", kNamespace, kName, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("desc", kNamespace, kDesc, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsOpt("author", kNamespace, kAuthor, XmlElementType_Element, CreateObject<CPerson>, 0),
       new CElementInfoSeqClsOpt("copyright", kNamespace, kCopyright, XmlElementType_Element, CreateObject<CCopyright>, 0),
       new CElementInfoSeqClsCol("link", kNamespace, kLink, XmlElementType_Element),
       new CElementInfoSeqPrimOpt("time", kNamespace, kTime, false, ItemType_datetime, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("keywords", kNamespace, kKeywords, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsOpt("bounds", kNamespace, kBounds, XmlElementType_Element, CreateObject<CBounds>, 0),
       new CElementInfoSeqClsOpt("extensions", kNamespace, kExtensions, XmlElementType_Element, CreateObject<CExtensions>, 0)},
      {});
  // clang-format on
  return metaData;
}

void CWptType::SetExtensions(CSmartPtr<CExtensions> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "extensions");
  m_extensions = std::move(value);
}

CWptType::CWptType(const char* elementName) : CXmlGeneratedClass(elementName) { CWptType::Init(); }

void CWptType::Init() {
  ResetProperties(m_lat, m_lon, m_ele, m_time, m_magvar, m_geoidheight, m_name, m_cmt, m_desc,
                  m_src, m_sym, m_type, m_fix, m_sat, m_hdop, m_vdop, m_pdop, m_ageofdgpsdata,
                  m_dgpsid, m_extensions);
  ResetCollection(m_link, "link", kNamespace, 0, kUnbounded);
}

void CWptType::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kLat: return AccessValue<ItemType_decimal>(get, value, m_lat);
    case kLon: return AccessValue<ItemType_decimal>(get, value, m_lon);
    case kEle: return AccessValue<ItemType_decimal>(get, value, m_ele);
    case kTime: return AccessValue<ItemType_datetime>(get, value, m_time);
    case kMagvar: return AccessValue<ItemType_decimal>(get, value, m_magvar);
    case kGeoidheight: return AccessValue<ItemType_decimal>(get, value, m_geoidheight);
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kCmt: return AccessValue<ItemType_string>(get, value, m_cmt);
    case kDesc: return AccessValue<ItemType_string>(get, value, m_desc);
    case kSrc: return AccessValue<ItemType_string>(get, value, m_src);
    case kLink: return AccessCollection(get, value, m_link.Ptr());
    case kSym: return AccessValue<ItemType_string>(get, value, m_sym);
    case kType: return AccessValue<ItemType_string>(get, value, m_type);
    case kFix: return AccessEnum(get, value, m_fix);
    case kSat: return AccessValue<ItemType_integer>(get, value, m_sat);
    case kHdop: return AccessValue<ItemType_decimal>(get, value, m_hdop);
    case kVdop: return AccessValue<ItemType_decimal>(get, value, m_vdop);
    case kPdop: return AccessValue<ItemType_decimal>(get, value, m_pdop);
    case kAgeofdgpsdata: return AccessValue<ItemType_decimal>(get, value, m_ageofdgpsdata);
    case kDgpsid: return AccessValue<ItemType_integer>(get, value, m_dgpsid);
    case kExtensions: return AccessObject(get, value, m_extensions);
  }
  // clang-format on
}

CClassMetaData CWptType::MakeMetaData(const char* elementName) {
  // clang-format off
  return CClassMetaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, elementName, kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("ele", kNamespace, kEle, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("time", kNamespace, kTime, false, ItemType_datetime, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("magvar", kNamespace, kMagvar, false, ItemType_decimal, "", kCollapse, Degrees(), ""),
       new CElementInfoSeqPrimOpt("geoidheight", kNamespace, kGeoidheight, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("name", kNamespace, kName, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("cmt", kNamespace, kCmt, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("desc", kNamespace, kDesc, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("src", kNamespace, kSrc, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsCol("link", kNamespace, kLink, XmlElementType_Element),
       new CElementInfoSeqPrimOpt("sym", kNamespace, kSym, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("type", kNamespace, kType, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqEnumOpt("fix", kNamespace, kFix, false, FixToText, FixFromText, ""),
       new CElementInfoSeqPrimOpt("sat", kNamespace, kSat, false, ItemType_integer, "", kCollapse, NonNegative(), ""),
       new CElementInfoSeqPrimOpt("hdop", kNamespace, kHdop, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("vdop", kNamespace, kVdop, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("pdop", kNamespace, kPdop, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("ageofdgpsdata", kNamespace, kAgeofdgpsdata, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("dgpsid", kNamespace, kDgpsid, false, ItemType_integer, "", kCollapse, DgpsStation(), ""),
       new CElementInfoSeqClsOpt("extensions", kNamespace, kExtensions, XmlElementType_Element, CreateObject<CExtensions>, 0)},
      {new CAttributeInfoPrimitive("lat", "", kLat, false, ItemType_decimal, "", kCollapse, Latitude(), ""),
       new CAttributeInfoPrimitive("lon", "", kLon, false, ItemType_decimal, "", kCollapse, Longitude(), "")});
  // clang-format on
}

const CClassMetaData& CWpt::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("wpt");
  return metaData;
}

const CClassMetaData& CRtept::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("rtept");
  return metaData;
}

const CClassMetaData& CTrkpt::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("trkpt");
  return metaData;
}

CRte::CRte(const char* elementName) : TGeneratedClass(elementName) { CRte::Init(); }

void CRte::SetExtensions(CSmartPtr<CExtensions> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "extensions");
  m_extensions = std::move(value);
}

void CRte::Init() {
  ResetProperties(m_name, m_cmt, m_desc, m_src, m_number, m_type, m_extensions);
  ResetCollection(m_link, "link", kNamespace, 0, kUnbounded);
  ResetCollection(m_rtept, "rtept", kNamespace, 0, kUnbounded);
}

void CRte::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kCmt: return AccessValue<ItemType_string>(get, value, m_cmt);
    case kDesc: return AccessValue<ItemType_string>(get, value, m_desc);
    case kSrc: return AccessValue<ItemType_string>(get, value, m_src);
    case kLink: return AccessCollection(get, value, m_link.Ptr());
    case kNumber: return AccessValue<ItemType_integer>(get, value, m_number);
    case kType: return AccessValue<ItemType_string>(get, value, m_type);
    case kExtensions: return AccessObject(get, value, m_extensions);
    case kRtept: return AccessCollection(get, value, m_rtept.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CRte::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "rte", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("name", kNamespace, kName, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("cmt", kNamespace, kCmt, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("desc", kNamespace, kDesc, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("src", kNamespace, kSrc, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsCol("link", kNamespace, kLink, XmlElementType_Element),
       new CElementInfoSeqPrimOpt("number", kNamespace, kNumber, false, ItemType_integer, "", kCollapse, NonNegative(), ""),
       new CElementInfoSeqPrimOpt("type", kNamespace, kType, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsOpt("extensions", kNamespace, kExtensions, XmlElementType_Element, CreateObject<CExtensions>, 0),
       new CElementInfoSeqClsCol("rtept", kNamespace, kRtept, XmlElementType_Element)},
      {});
  // clang-format on
  return metaData;
}

CTrkseg::CTrkseg(const char* elementName) : TGeneratedClass(elementName) { CTrkseg::Init(); }

void CTrkseg::SetExtensions(CSmartPtr<CExtensions> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "extensions");
  m_extensions = std::move(value);
}

void CTrkseg::Init() {
  ResetProperties(m_extensions);
  ResetCollection(m_trkpt, "trkpt", kNamespace, 0, kUnbounded);
}

void CTrkseg::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kTrkpt: return AccessCollection(get, value, m_trkpt.Ptr());
    case kExtensions: return AccessObject(get, value, m_extensions);
  }
  // clang-format on
}

const CClassMetaData& CTrkseg::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "trkseg", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsCol("trkpt", kNamespace, kTrkpt, XmlElementType_Element),
       new CElementInfoSeqClsOpt("extensions", kNamespace, kExtensions, XmlElementType_Element, CreateObject<CExtensions>, 0)},
      {});
  // clang-format on
  return metaData;
}

CTrk::CTrk(const char* elementName) : TGeneratedClass(elementName) { CTrk::Init(); }

void CTrk::SetExtensions(CSmartPtr<CExtensions> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "extensions");
  m_extensions = std::move(value);
}

void CTrk::Init() {
  ResetProperties(m_name, m_cmt, m_desc, m_src, m_number, m_type, m_extensions);
  ResetCollection(m_link, "link", kNamespace, 0, kUnbounded);
  ResetCollection(m_trkseg, "trkseg", kNamespace, 0, kUnbounded);
}

void CTrk::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kCmt: return AccessValue<ItemType_string>(get, value, m_cmt);
    case kDesc: return AccessValue<ItemType_string>(get, value, m_desc);
    case kSrc: return AccessValue<ItemType_string>(get, value, m_src);
    case kLink: return AccessCollection(get, value, m_link.Ptr());
    case kNumber: return AccessValue<ItemType_integer>(get, value, m_number);
    case kType: return AccessValue<ItemType_string>(get, value, m_type);
    case kExtensions: return AccessObject(get, value, m_extensions);
    case kTrkseg: return AccessCollection(get, value, m_trkseg.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CTrk::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "trk", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimOpt("name", kNamespace, kName, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("cmt", kNamespace, kCmt, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("desc", kNamespace, kDesc, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("src", kNamespace, kSrc, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsCol("link", kNamespace, kLink, XmlElementType_Element),
       new CElementInfoSeqPrimOpt("number", kNamespace, kNumber, false, ItemType_integer, "", kCollapse, NonNegative(), ""),
       new CElementInfoSeqPrimOpt("type", kNamespace, kType, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsOpt("extensions", kNamespace, kExtensions, XmlElementType_Element, CreateObject<CExtensions>, 0),
       new CElementInfoSeqClsCol("trkseg", kNamespace, kTrkseg, XmlElementType_Element)},
      {});
  // clang-format on
  return metaData;
}

CGpx::CGpx(const char* elementName) : TGeneratedClass(elementName) { CGpx::Init(); }

void CGpx::SetMetadata(CSmartPtr<CMetadata> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "metadata");
  m_metadata = std::move(value);
}

void CGpx::SetExtensions(CSmartPtr<CExtensions> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "extensions");
  m_extensions = std::move(value);
}

void CGpx::Init() {
  ResetProperties(m_creator, m_metadata, m_extensions);
  m_version = "1.1";
  ResetCollection(m_wpt, "wpt", kNamespace, 0, kUnbounded);
  ResetCollection(m_rte, "rte", kNamespace, 0, kUnbounded);
  ResetCollection(m_trk, "trk", kNamespace, 0, kUnbounded);
}

void CGpx::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kVersion: return AccessValue<ItemType_string>(get, value, m_version);
    case kCreator: return AccessValue<ItemType_string>(get, value, m_creator);
    case kMetadata: return AccessObject(get, value, m_metadata);
    case kWpt: return AccessCollection(get, value, m_wpt.Ptr());
    case kRte: return AccessCollection(get, value, m_rte.Ptr());
    case kTrk: return AccessCollection(get, value, m_trk.Ptr());
    case kExtensions: return AccessObject(get, value, m_extensions);
  }
  // clang-format on
}

const CClassMetaData& CGpx::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "gpx", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsOpt("metadata", kNamespace, kMetadata, XmlElementType_Element, CreateObject<CMetadata>, 0),
       new CElementInfoSeqClsCol("wpt", kNamespace, kWpt, XmlElementType_Element),
       new CElementInfoSeqClsCol("rte", kNamespace, kRte, XmlElementType_Element),
       new CElementInfoSeqClsCol("trk", kNamespace, kTrk, XmlElementType_Element),
       new CElementInfoSeqClsOpt("extensions", kNamespace, kExtensions, XmlElementType_Element, CreateObject<CExtensions>, 0)},
      {new CAttributeInfoPrimitive("version", "", kVersion, false, ItemType_string, "", kPreserve, Version(), ""),
       new CAttributeInfoPrimitive("creator", "", kCreator, false, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

}  // namespace gpx11
