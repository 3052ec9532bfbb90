#include <array>
#include <string>

#include "qvxml/core/format.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/core/unicode_internal.h"
#include "qvxml/json/json_conversion_failures_internal.h"

namespace QvXmlLib16::detail {

namespace {

[[noreturn]] void Throw(const std::string& message, const CQvException* cause) {
  if (cause != nullptr) throw CQvInvalidStateException(message, *cause);
  throw CQvInvalidStateException(message);
}

constexpr std::array<bool, 256> MakeRefusedTable() {
  std::array<bool, 256> isRefused{};
  for (size_t i = 0; i <= ' '; ++i) isRefused[i] = true;
  isRefused[0x7F] = true;
  for (const char character : std::string_view("<>/&\"'=")) {
    isRefused[static_cast<unsigned char>(character)] = true;
  }
  return isRefused;
}

constexpr std::array<bool, 256> kIsRefused = MakeRefusedTable();

}  // namespace

void ThrowNameFailure(std::string_view name, const CQvException* cause) {
  Throw(FormatString("Failed to convert name '%s' to Element name in XML.",
                     std::string(name).c_str()),
        cause);
}

void ThrowTextFailure(std::string_view value, const CQvException* cause) {
  Throw(FormatString("Failed to convert value '%s' to Element string value in XML.",
                     std::string(value).c_str()),
        cause);
}

void ThrowAttributeFailure(std::string_view value, const CQvException* cause) {
  Throw(FormatString("Failed to convert value '%s' to Attribute string value in XML.",
                     std::string(value).c_str()),
        cause);
}

void CheckXmlName(std::string_view name, std::string_view jsonName) {
  if (name.empty() || name.front() == '!' || name.front() == '?') ThrowNameFailure(jsonName);
  for (const char character : name) {
    if (kIsRefused[static_cast<unsigned char>(character)]) ThrowNameFailure(jsonName);
  }
}

void CheckLocaleName(std::string_view name) {
  if (AsciiLength(name.data(), name.size()) == name.size()) return;
  const bool isText =
      IsLocaleTextUtf8()
          ? ValidUtf8Length(name.data(), name.size()) == name.size()
          : LocalCodePageToUtf8(name.data(), name.size()).find('?') == std::string::npos;
  if (!isText) ThrowNameFailure(name);
}

bool IsSection(std::string_view text) noexcept {
  constexpr std::string_view kBegin = "<![CDATA[";
  constexpr std::string_view kEnd = "]]>";
  if (text.substr(0, kBegin.size()) != kBegin) return false;
  const size_t end = text.find(kEnd, kBegin.size());
  return end != std::string_view::npos && end + kEnd.size() == text.size();
}

}  // namespace QvXmlLib16::detail
