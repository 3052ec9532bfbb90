#include "qvxml/core/locale_text.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <cwchar>
#include <new>
#include <utility>

#include <langinfo.h>

#include "qvxml/core/unicode_internal.h"

namespace QvXmlLib16 {

namespace {

constexpr locale_t kNoLocale = static_cast<locale_t>(nullptr);

// Made once and never freed: static destructors may still format.
locale_t InvariantLocale() {
  static const locale_t locale = [] {
    errno = 0;
    const locale_t utf8 = newlocale(LC_ALL_MASK, "C.UTF-8", kNoLocale);
    // Tried again the next time: one moment without memory must not decide for good.
    if (utf8 == kNoLocale && errno == ENOMEM) throw std::bad_alloc();
    return utf8 != kNoLocale ? utf8 : newlocale(LC_ALL_MASK, "C", kNoLocale);
  }();
  return locale;
}

// Name of the current encoding. The C library keeps the data of every locale that setlocale ever
// chose, so the name stays readable while another thread switches.
const char* Codeset() { return nl_langinfo(CODESET); }

bool IsUnsetCodeset(const char* codeset) { return std::strcmp(codeset, "ANSI_X3.4-1968") == 0; }

// The result is the one of a loop over mbrtowc in a UTF-8 locale, made from whole valid stretches.
std::string WithoutMalformedUtf8(const char* text, size_t length) {
  std::string valid;
  for (;;) {
    const size_t stretch = detail::ValidUtf8Length(text, length);
    valid.append(text, stretch);
    if (stretch == length) return valid;
    valid += '?';
    text += stretch + 1;
    length -= stretch + 1;
  }
}

std::string DecodeByLocale(const char* text, size_t length) {
  const CTextLocaleScope locale;
  std::string utf8;
  utf8.reserve(length);
  std::mbstate_t state{};
  while (length != 0) {
    wchar_t character = 0;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): it is safe with a state of the caller's own.
    size_t used = std::mbrtowc(&character, text, length, &state);
    // Both failures are the largest values of size_t.
    if (used > length || !detail::IsScalarValue(static_cast<char32_t>(character))) {
      character = L'?';
      used = 1;
      state = std::mbstate_t{};
    } else if (used == 0 && character == 0) {
      used = 1;
    }
    detail::AppendUtf8(utf8, static_cast<char32_t>(character));
    text += used;
    length -= used;
  }
  return utf8;
}

// Encodes one character after another in the locale that the object was made in.
class CLocaleEncoder {
 public:
  void Append(char32_t character) {
    char bytes[MB_LEN_MAX];
    const size_t count = detail::IsScalarValue(character)
                             // NOLINTNEXTLINE(concurrency-mt-unsafe): as above.
                             ? std::wcrtomb(bytes, static_cast<wchar_t>(character), &m_state)
                             : static_cast<size_t>(-1);
    if (count == static_cast<size_t>(-1)) {
      m_text += '?';
      m_state = std::mbstate_t{};
    } else {
      m_text.append(bytes, count);
    }
  }
  std::string TakeText() { return std::move(m_text); }

 private:
  const CTextLocaleScope m_locale;
  std::mbstate_t m_state{};
  std::string m_text;
};

}  // namespace

CInvariantLocaleScope::CInvariantLocaleScope() : m_previous(uselocale(InvariantLocale())) {}

CInvariantLocaleScope::~CInvariantLocaleScope() { uselocale(m_previous); }

CTextLocaleScope::CTextLocaleScope() : m_previous(uselocale(kNoLocale)), m_snapshot(kNoLocale) {
  if (m_previous == LC_GLOBAL_LOCALE) {
    m_snapshot = duplocale(LC_GLOBAL_LOCALE);
    uselocale(m_snapshot);
  }
  // Only now: the global locale may have changed until the snapshot was taken.
  if (IsUnsetCodeset(Codeset())) uselocale(InvariantLocale());
}

CTextLocaleScope::~CTextLocaleScope() {
  uselocale(m_previous);
  if (m_snapshot != kNoLocale) freelocale(m_snapshot);
}

bool IsLocaleTextUtf8() {
  const char* codeset = Codeset();
  return std::strcmp(codeset, "UTF-8") == 0 || IsUnsetCodeset(codeset);
}

std::string LocalCodePageToUtf8(const char* text, size_t length) {
  if (text == nullptr) return std::string();
  return IsLocaleTextUtf8() ? WithoutMalformedUtf8(text, length) : DecodeByLocale(text, length);
}

std::string Utf8ToLocalCodePage(const char* text, size_t length) {
  if (text == nullptr) return std::string();
  if (IsLocaleTextUtf8()) return WithoutMalformedUtf8(text, length);
  const char* const end = text + length;
  const char* const firstNonAscii = text + detail::AsciiLength(text, length);
  if (firstNonAscii == end) return std::string(text, length);
  CLocaleEncoder encoder;
  while (text != end) {
    char32_t character;
    const size_t used = detail::ReadUtf8(text, end, character);
    encoder.Append(used != 0 ? character : U'?');
    text += used != 0 ? used : 1;
  }
  return encoder.TakeText();
}

std::string UnicodeToLocalCodePage(const wchar_t* text, size_t length) {
  if (text == nullptr || length == 0) return std::string();
  if (!IsLocaleTextUtf8()) {
    CLocaleEncoder encoder;
    for (size_t i = 0; i < length; ++i) encoder.Append(static_cast<char32_t>(text[i]));
    return encoder.TakeText();
  }
  std::string utf8;
  for (size_t i = 0; i < length; ++i) {
    const char32_t character = static_cast<char32_t>(text[i]);
    detail::AppendUtf8(utf8, detail::IsScalarValue(character) ? character : U'?');
  }
  return utf8;
}

}  // namespace QvXmlLib16
