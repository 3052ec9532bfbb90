// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_SETTINGS_H_
#define TESTS_SAMPLES_SETTINGS_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// levelType
enum class ELevel : int { e_low, e_high };

/// serverType
class CServer : public TGeneratedClass<CServer> {
 public:
  explicit CServer(const char* elementName = "server");

  const std::optional<std::string>& GetHost() const { return m_host; }
  void SetHost(std::optional<std::string> value) { m_host = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kHost };

  std::optional<std::string> m_host;
};

/// An all-group: members in any order.
class CSettings : public TGeneratedClass<CSettings> {
 public:
  explicit CSettings(const char* elementName = "settings");

  const std::optional<std::string>& GetTitle() const { return m_title; }
  void SetTitle(std::optional<std::string> value) { m_title = std::move(value); }
  const std::optional<unsigned short>& GetPort() const { return m_port; }
  void SetPort(std::optional<unsigned short> value) { m_port = std::move(value); }
  const std::optional<ELevel>& GetLevel() const { return m_level; }
  void SetLevel(std::optional<ELevel> value) { m_level = std::move(value); }
  const std::optional<ELevel>& GetFallback() const { return m_fallback; }
  void SetFallback(std::optional<ELevel> value) { m_fallback = std::move(value); }
  CServer* GetServer() const { return m_server.Ptr(); }
  void SetServer(CSmartPtr<CServer> value);
  CServer* GetMirror() const { return m_mirror.Ptr(); }
  void SetMirror(CSmartPtr<CServer> value);
  CstringCol& GetNote() const { return *m_note; }

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
  CSmartPtr<CServer> m_mirror;
  CSmartPtr<CstringCol> m_note;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_SETTINGS_H_
