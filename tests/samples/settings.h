// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_SETTINGS_H_
#define TESTS_SAMPLES_SETTINGS_H_

#include "tests/samples/schema.h"

namespace samples {

/// levelType
enum class ELevel : int { e_low, e_high };

/// serverType, the type of two elements.
class CServerType : public CXmlGeneratedClass {
 public:
  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;

 protected:
  explicit CServerType(const char* elementName);
  /// The element metadata of the type, under the name of an element.
  static CClassMetaData MakeMetaData(const char* elementName);

  enum Property : int { kHost };

 private:
  std::optional<std::string> m_host;
};

/// Element server.
class CServer : public TGeneratedClass<CServer, CServerType> {
 public:
  explicit CServer(const char* elementName = "server") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

/// Element mirror.
class CMirror : public TGeneratedClass<CMirror, CServerType> {
 public:
  explicit CMirror(const char* elementName = "mirror") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

/// An all-group: members in any order.
class CSettings : public TGeneratedClass<CSettings> {
 public:
  explicit CSettings(const char* elementName = "settings");

  void SetTitle(std::optional<std::string> value) { m_title = std::move(value); }
  void SetLevel(std::optional<ELevel> value) { m_level = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kTitle, kPort, kLevel, kFallback, kServer, kMirror, kNote };

  std::optional<std::string> m_title;
  std::optional<unsigned short> m_port;
  std::optional<ELevel> m_level;
  std::optional<ELevel> m_fallback;
  CSmartPtr<CServer> m_server;
  CSmartPtr<CMirror> m_mirror;
  CSmartPtr<CstringCol> m_note;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_SETTINGS_H_
