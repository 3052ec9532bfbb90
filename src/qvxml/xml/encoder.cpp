#include "qvxml/xml/encoder.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <cwchar>
#include <memory>

#include "qvxml/core/locale_text.h"
#include "qvxml/core/unicode_internal.h"

namespace QvXmlLib16 {

bool ASCII_ONLY = false;

namespace {

const unsigned char* AsBytes(const void* text) { return static_cast<const unsigned char*>(text); }

CBinaryData CopyOf(const char* text, size_t length) { return CBinaryData(AsBytes(text), length); }

size_t LengthOf(const char* text) { return text != nullptr ? std::strlen(text) : 0; }

// Reads one character as mbrtowc does; what it rejects is "?" and one byte long. So is what it
// takes though it is no character of Unicode.
size_t DecodeCharacter(const char* text, size_t length, std::mbstate_t& state, wchar_t& character) {
  // NOLINTNEXTLINE(concurrency-mt-unsafe): it is safe with a state of the caller's own.
  const size_t used = std::mbrtowc(&character, text, length, &state);
  if (used == 0) {
    character = L'\0';
    return 1;
  }
  // Both failures are the largest values of size_t.
  if (used <= length && detail::IsScalarValue(static_cast<char32_t>(character))) return used;
  state = std::mbstate_t{};
  character = L'?';
  return 1;
}

}  // namespace

CBinaryData CEncoder::LocalCodePageToUtf8Binary(const char* text) {
  return LocalCodePageToUtf8Binary(text, LengthOf(text));
}

CBinaryData CEncoder::LocalCodePageToUtf8Binary(const char* text, size_t length) {
  if (text == nullptr) return CBinaryData();
  if (ASCII_ONLY || detail::AsciiLength(text, length) == length) return CopyOf(text, length);
  const std::string utf8 = LocalCodePageToUtf8(text, length);
  return CopyOf(utf8.data(), utf8.size());
}

CBinaryData CEncoder::LocalCodePageToUnicodeBinary(const char* text) {
  return LocalCodePageToUnicodeBinary(text, LengthOf(text));
}

CBinaryData CEncoder::LocalCodePageToUnicodeBinary(const char* text, size_t length) {
  constexpr size_t kCharactersAtOnce = 1024;
  CBinaryData wide;
  if (text == nullptr) return wide;
  const CTextLocaleScope locale;
  std::mbstate_t state{};
  wchar_t characters[kCharactersAtOnce];
  while (length != 0) {
    size_t count = 0;
    while (length != 0 && count < kCharactersAtOnce) {
      const size_t used = DecodeCharacter(text, length, state, characters[count++]);
      text += used;
      length -= used;
    }
    wide.Append(AsBytes(characters), count * sizeof(wchar_t));
  }
  return wide;
}

CBinaryData CEncoder::UnicodeToUtf8Binary(const wchar_t* text) {
  if (text == nullptr) return CBinaryData();
  std::string utf8;
  utf8.reserve(std::wcslen(text));
  for (; *text != L'\0'; ++text) {
    const auto character = static_cast<char32_t>(*text);
    detail::AppendUtf8(utf8, detail::IsScalarValue(character) ? character : U'?');
  }
  return CopyOf(utf8.data(), utf8.size());
}

std::string CEncoder::Utf8ToLocalCodePage(const unsigned char* bytes, size_t length) {
  return QvXmlLib16::Utf8ToLocalCodePage(reinterpret_cast<const char*>(bytes), length);
}

std::string CEncoder::Utf8ToLocalCodePage(const char* text) {
  return QvXmlLib16::Utf8ToLocalCodePage(text, LengthOf(text));
}

std::string CEncoder::Utf8ToLocalCodePage(const unsigned char* bytes, size_t length, std::wstring&,
                                          std::string&) {
  return Utf8ToLocalCodePage(bytes, length);
}

std::string CEncoder::Utf8ToLocalCodePage(const char* text, std::wstring&, std::string&) {
  return Utf8ToLocalCodePage(text);
}

std::string CEncoder::Utf16ToLocalCodePage(const unsigned char*, int) { return std::string(); }

}  // namespace QvXmlLib16
