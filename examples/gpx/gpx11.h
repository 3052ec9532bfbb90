// Generated from gpx.xsd (GPX 1.1).
#ifndef EXAMPLES_GPX_GPX11_H_
#define EXAMPLES_GPX_GPX11_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace gpx11 {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// fixType
enum class EFix : int { e_none, e_2d, e_3d, e_dgps, e_pps };

/// extensionsType: elements of other namespaces.
class CExtensions : public TGeneratedClass<CExtensions> {
 public:
  explicit CExtensions(const char* elementName = "extensions");

  CElementCol& GetAnyElement() const { return *m_anyElement; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kAnyElement };

  CSmartPtr<CElementCol> m_anyElement;
};

/// linkType
class CLink : public TGeneratedClass<CLink> {
 public:
  explicit CLink(const char* elementName = "link");

  const std::optional<std::string>& GetHref() const { return m_href; }
  void SetHref(std::optional<std::string> value) { m_href = std::move(value); }
  const std::optional<std::string>& GetText() const { return m_text; }
  void SetText(std::optional<std::string> value) { m_text = std::move(value); }
  const std::optional<std::string>& GetType() const { return m_type; }
  void SetType(std::optional<std::string> value) { m_type = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kHref, kText, kType };

  std::optional<std::string> m_href;
  std::optional<std::string> m_text;
  std::optional<std::string> m_type;
};

/// emailType: an address in two halves.
class CEmail : public TGeneratedClass<CEmail> {
 public:
  explicit CEmail(const char* elementName = "email");

  const std::optional<std::string>& GetId() const { return m_id; }
  void SetId(std::optional<std::string> value) { m_id = std::move(value); }
  const std::optional<std::string>& GetDomain() const { return m_domain; }
  void SetDomain(std::optional<std::string> value) { m_domain = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kId, kDomain };

  std::optional<std::string> m_id;
  std::optional<std::string> m_domain;
};

/// personType
class CPerson : public TGeneratedClass<CPerson> {
 public:
  explicit CPerson(const char* elementName = "author");

  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  CEmail* GetEmail() const { return m_email.Ptr(); }
  void SetEmail(CSmartPtr<CEmail> value);
  CLink* GetLink() const { return m_link.Ptr(); }
  void SetLink(CSmartPtr<CLink> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kName, kEmail, kLink };

  std::optional<std::string> m_name;
  CSmartPtr<CEmail> m_email;
  CSmartPtr<CLink> m_link;
};

/// copyrightType
class CCopyright : public TGeneratedClass<CCopyright> {
 public:
  explicit CCopyright(const char* elementName = "copyright");

  const std::optional<std::string>& GetAuthor() const { return m_author; }
  void SetAuthor(std::optional<std::string> value) { m_author = std::move(value); }
  const std::optional<unsigned short>& GetYear() const { return m_year; }
  void SetYear(std::optional<unsigned short> value) { m_year = std::move(value); }
  const std::optional<std::string>& GetLicense() const { return m_license; }
  void SetLicense(std::optional<std::string> value) { m_license = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kAuthor, kYear, kLicense };

  std::optional<std::string> m_author;
  std::optional<unsigned short> m_year;
  std::optional<std::string> m_license;
};

/// boundsType
class CBounds : public TGeneratedClass<CBounds> {
 public:
  explicit CBounds(const char* elementName = "bounds");

  const std::optional<CDecimal>& GetMinlat() const { return m_minlat; }
  void SetMinlat(std::optional<CDecimal> value) { m_minlat = std::move(value); }
  const std::optional<CDecimal>& GetMinlon() const { return m_minlon; }
  void SetMinlon(std::optional<CDecimal> value) { m_minlon = std::move(value); }
  const std::optional<CDecimal>& GetMaxlat() const { return m_maxlat; }
  void SetMaxlat(std::optional<CDecimal> value) { m_maxlat = std::move(value); }
  const std::optional<CDecimal>& GetMaxlon() const { return m_maxlon; }
  void SetMaxlon(std::optional<CDecimal> value) { m_maxlon = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kMinlat, kMinlon, kMaxlat, kMaxlon };

  std::optional<CDecimal> m_minlat;
  std::optional<CDecimal> m_minlon;
  std::optional<CDecimal> m_maxlat;
  std::optional<CDecimal> m_maxlon;
};

/// metadataType
class CMetadata : public TGeneratedClass<CMetadata> {
 public:
  explicit CMetadata(const char* elementName = "metadata");

  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  const std::optional<std::string>& GetDesc() const { return m_desc; }
  void SetDesc(std::optional<std::string> value) { m_desc = std::move(value); }
  CPerson* GetAuthor() const { return m_author.Ptr(); }
  void SetAuthor(CSmartPtr<CPerson> value);
  CCopyright* GetCopyright() const { return m_copyright.Ptr(); }
  void SetCopyright(CSmartPtr<CCopyright> value);
  TObjectCollection<CLink>& GetLink() const { return *m_link; }
  const std::optional<CDateTime>& GetTime() const { return m_time; }
  void SetTime(std::optional<CDateTime> value) { m_time = std::move(value); }
  const std::optional<std::string>& GetKeywords() const { return m_keywords; }
  void SetKeywords(std::optional<std::string> value) { m_keywords = std::move(value); }
  CBounds* GetBounds() const { return m_bounds.Ptr(); }
  void SetBounds(CSmartPtr<CBounds> value);
  CExtensions* GetExtensions() const { return m_extensions.Ptr(); }
  void SetExtensions(CSmartPtr<CExtensions> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int {
    kName,
    kDesc,
    kAuthor,
    kCopyright,
    kLink,
    kTime,
    kKeywords,
    kBounds,
    kExtensions
  };

  std::optional<std::string> m_name;
  std::optional<std::string> m_desc;
  CSmartPtr<CPerson> m_author;
  CSmartPtr<CCopyright> m_copyright;
  CSmartPtr<TObjectCollection<CLink>> m_link;
  std::optional<CDateTime> m_time;
  std::optional<std::string> m_keywords;
  CSmartPtr<CBounds> m_bounds;
  CSmartPtr<CExtensions> m_extensions;
};

/// wptType: the properties of every point; one class below for each element of the type.
class CWptType : public CXmlGeneratedClass {
 public:
  const std::optional<CDecimal>& GetLat() const { return m_lat; }
  void SetLat(std::optional<CDecimal> value) { m_lat = std::move(value); }
  const std::optional<CDecimal>& GetLon() const { return m_lon; }
  void SetLon(std::optional<CDecimal> value) { m_lon = std::move(value); }
  const std::optional<CDecimal>& GetEle() const { return m_ele; }
  void SetEle(std::optional<CDecimal> value) { m_ele = std::move(value); }
  const std::optional<CDateTime>& GetTime() const { return m_time; }
  void SetTime(std::optional<CDateTime> value) { m_time = std::move(value); }
  const std::optional<CDecimal>& GetMagvar() const { return m_magvar; }
  void SetMagvar(std::optional<CDecimal> value) { m_magvar = std::move(value); }
  const std::optional<CDecimal>& GetGeoidheight() const { return m_geoidheight; }
  void SetGeoidheight(std::optional<CDecimal> value) { m_geoidheight = std::move(value); }
  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  const std::optional<std::string>& GetCmt() const { return m_cmt; }
  void SetCmt(std::optional<std::string> value) { m_cmt = std::move(value); }
  const std::optional<std::string>& GetDesc() const { return m_desc; }
  void SetDesc(std::optional<std::string> value) { m_desc = std::move(value); }
  const std::optional<std::string>& GetSrc() const { return m_src; }
  void SetSrc(std::optional<std::string> value) { m_src = std::move(value); }
  TObjectCollection<CLink>& GetLink() const { return *m_link; }
  const std::optional<std::string>& GetSym() const { return m_sym; }
  void SetSym(std::optional<std::string> value) { m_sym = std::move(value); }
  const std::optional<std::string>& GetType() const { return m_type; }
  void SetType(std::optional<std::string> value) { m_type = std::move(value); }
  const std::optional<EFix>& GetFix() const { return m_fix; }
  void SetFix(std::optional<EFix> value) { m_fix = std::move(value); }
  const std::optional<CBigInteger>& GetSat() const { return m_sat; }
  void SetSat(std::optional<CBigInteger> value) { m_sat = std::move(value); }
  const std::optional<CDecimal>& GetHdop() const { return m_hdop; }
  void SetHdop(std::optional<CDecimal> value) { m_hdop = std::move(value); }
  const std::optional<CDecimal>& GetVdop() const { return m_vdop; }
  void SetVdop(std::optional<CDecimal> value) { m_vdop = std::move(value); }
  const std::optional<CDecimal>& GetPdop() const { return m_pdop; }
  void SetPdop(std::optional<CDecimal> value) { m_pdop = std::move(value); }
  const std::optional<CDecimal>& GetAgeofdgpsdata() const { return m_ageofdgpsdata; }
  void SetAgeofdgpsdata(std::optional<CDecimal> value) { m_ageofdgpsdata = std::move(value); }
  const std::optional<CBigInteger>& GetDgpsid() const { return m_dgpsid; }
  void SetDgpsid(std::optional<CBigInteger> value) { m_dgpsid = std::move(value); }
  CExtensions* GetExtensions() const { return m_extensions.Ptr(); }
  void SetExtensions(CSmartPtr<CExtensions> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;

 protected:
  explicit CWptType(const char* elementName);
  /// The element metadata of the type, under the name of an element.
  static CClassMetaData MakeMetaData(const char* elementName);

  enum Property : int {
    kLat,
    kLon,
    kEle,
    kTime,
    kMagvar,
    kGeoidheight,
    kName,
    kCmt,
    kDesc,
    kSrc,
    kLink,
    kSym,
    kType,
    kFix,
    kSat,
    kHdop,
    kVdop,
    kPdop,
    kAgeofdgpsdata,
    kDgpsid,
    kExtensions,
    kPropertyCountWptType
  };

 private:
  std::optional<CDecimal> m_lat;
  std::optional<CDecimal> m_lon;
  std::optional<CDecimal> m_ele;
  std::optional<CDateTime> m_time;
  std::optional<CDecimal> m_magvar;
  std::optional<CDecimal> m_geoidheight;
  std::optional<std::string> m_name;
  std::optional<std::string> m_cmt;
  std::optional<std::string> m_desc;
  std::optional<std::string> m_src;
  CSmartPtr<TObjectCollection<CLink>> m_link;
  std::optional<std::string> m_sym;
  std::optional<std::string> m_type;
  std::optional<EFix> m_fix;
  std::optional<CBigInteger> m_sat;
  std::optional<CDecimal> m_hdop;
  std::optional<CDecimal> m_vdop;
  std::optional<CDecimal> m_pdop;
  std::optional<CDecimal> m_ageofdgpsdata;
  std::optional<CBigInteger> m_dgpsid;
  CSmartPtr<CExtensions> m_extensions;
};

/// Element wpt: a point of interest.
class CWpt : public TGeneratedClass<CWpt, CWptType> {
 public:
  explicit CWpt(const char* elementName = "wpt") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

/// Element rtept: a point of a route.
class CRtept : public TGeneratedClass<CRtept, CWptType> {
 public:
  explicit CRtept(const char* elementName = "rtept") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

/// Element trkpt: a point of a track.
class CTrkpt : public TGeneratedClass<CTrkpt, CWptType> {
 public:
  explicit CTrkpt(const char* elementName = "trkpt") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

/// rteType
class CRte : public TGeneratedClass<CRte> {
 public:
  explicit CRte(const char* elementName = "rte");

  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  const std::optional<std::string>& GetCmt() const { return m_cmt; }
  void SetCmt(std::optional<std::string> value) { m_cmt = std::move(value); }
  const std::optional<std::string>& GetDesc() const { return m_desc; }
  void SetDesc(std::optional<std::string> value) { m_desc = std::move(value); }
  const std::optional<std::string>& GetSrc() const { return m_src; }
  void SetSrc(std::optional<std::string> value) { m_src = std::move(value); }
  TObjectCollection<CLink>& GetLink() const { return *m_link; }
  const std::optional<CBigInteger>& GetNumber() const { return m_number; }
  void SetNumber(std::optional<CBigInteger> value) { m_number = std::move(value); }
  const std::optional<std::string>& GetType() const { return m_type; }
  void SetType(std::optional<std::string> value) { m_type = std::move(value); }
  CExtensions* GetExtensions() const { return m_extensions.Ptr(); }
  void SetExtensions(CSmartPtr<CExtensions> value);
  TObjectCollection<CRtept>& GetRtept() const { return *m_rtept; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kName, kCmt, kDesc, kSrc, kLink, kNumber, kType, kExtensions, kRtept };

  std::optional<std::string> m_name;
  std::optional<std::string> m_cmt;
  std::optional<std::string> m_desc;
  std::optional<std::string> m_src;
  CSmartPtr<TObjectCollection<CLink>> m_link;
  std::optional<CBigInteger> m_number;
  std::optional<std::string> m_type;
  CSmartPtr<CExtensions> m_extensions;
  CSmartPtr<TObjectCollection<CRtept>> m_rtept;
};

/// trksegType
class CTrkseg : public TGeneratedClass<CTrkseg> {
 public:
  explicit CTrkseg(const char* elementName = "trkseg");

  TObjectCollection<CTrkpt>& GetTrkpt() const { return *m_trkpt; }
  CExtensions* GetExtensions() const { return m_extensions.Ptr(); }
  void SetExtensions(CSmartPtr<CExtensions> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kTrkpt, kExtensions };

  CSmartPtr<TObjectCollection<CTrkpt>> m_trkpt;
  CSmartPtr<CExtensions> m_extensions;
};

/// trkType
class CTrk : public TGeneratedClass<CTrk> {
 public:
  explicit CTrk(const char* elementName = "trk");

  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  const std::optional<std::string>& GetCmt() const { return m_cmt; }
  void SetCmt(std::optional<std::string> value) { m_cmt = std::move(value); }
  const std::optional<std::string>& GetDesc() const { return m_desc; }
  void SetDesc(std::optional<std::string> value) { m_desc = std::move(value); }
  const std::optional<std::string>& GetSrc() const { return m_src; }
  void SetSrc(std::optional<std::string> value) { m_src = std::move(value); }
  TObjectCollection<CLink>& GetLink() const { return *m_link; }
  const std::optional<CBigInteger>& GetNumber() const { return m_number; }
  void SetNumber(std::optional<CBigInteger> value) { m_number = std::move(value); }
  const std::optional<std::string>& GetType() const { return m_type; }
  void SetType(std::optional<std::string> value) { m_type = std::move(value); }
  CExtensions* GetExtensions() const { return m_extensions.Ptr(); }
  void SetExtensions(CSmartPtr<CExtensions> value);
  TObjectCollection<CTrkseg>& GetTrkseg() const { return *m_trkseg; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kName, kCmt, kDesc, kSrc, kLink, kNumber, kType, kExtensions, kTrkseg };

  std::optional<std::string> m_name;
  std::optional<std::string> m_cmt;
  std::optional<std::string> m_desc;
  std::optional<std::string> m_src;
  CSmartPtr<TObjectCollection<CLink>> m_link;
  std::optional<CBigInteger> m_number;
  std::optional<std::string> m_type;
  CSmartPtr<CExtensions> m_extensions;
  CSmartPtr<TObjectCollection<CTrkseg>> m_trkseg;
};

/// gpxType: the document.
class CGpx : public TGeneratedClass<CGpx> {
 public:
  explicit CGpx(const char* elementName = "gpx");

  const std::optional<std::string>& GetVersion() const { return m_version; }
  void SetVersion(std::optional<std::string> value) { m_version = std::move(value); }
  const std::optional<std::string>& GetCreator() const { return m_creator; }
  void SetCreator(std::optional<std::string> value) { m_creator = std::move(value); }
  CMetadata* GetMetadata() const { return m_metadata.Ptr(); }
  void SetMetadata(CSmartPtr<CMetadata> value);
  TObjectCollection<CWpt>& GetWpt() const { return *m_wpt; }
  TObjectCollection<CRte>& GetRte() const { return *m_rte; }
  TObjectCollection<CTrk>& GetTrk() const { return *m_trk; }
  CExtensions* GetExtensions() const { return m_extensions.Ptr(); }
  void SetExtensions(CSmartPtr<CExtensions> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kVersion, kCreator, kMetadata, kWpt, kRte, kTrk, kExtensions };

  std::optional<std::string> m_version;
  std::optional<std::string> m_creator;
  CSmartPtr<CMetadata> m_metadata;
  CSmartPtr<TObjectCollection<CWpt>> m_wpt;
  CSmartPtr<TObjectCollection<CRte>> m_rte;
  CSmartPtr<TObjectCollection<CTrk>> m_trk;
  CSmartPtr<CExtensions> m_extensions;
};

}  // namespace gpx11

#endif  // EXAMPLES_GPX_GPX11_H_
