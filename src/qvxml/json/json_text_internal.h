// Text inside JSON strings.

#ifndef QVXML_JSON_JSON_TEXT_INTERNAL_H_
#define QVXML_JSON_JSON_TEXT_INTERNAL_H_

#include <cstddef>
#include <cstring>
#include <string_view>

#include "qvxml/xml/escape_scan_internal.h"
#include "qvxml/xml/short_copy.h"
#include "qvxml/xml/text_stream.h"

namespace QvXmlLib16::detail {

/// The characters that JSON strings must not hold as they are: all control characters; when
/// well-formed the double quotation mark and the backslash too.
template <bool kWellFormed>
struct TJsonEscapes {
  static constexpr bool Has(char character) noexcept {
    return static_cast<unsigned char>(character) < 0x20 ||
           (kWellFormed && (character == '"' || character == '\\'));
  }

#if defined(__SSE2__)
  static __m128i Find(__m128i characters) noexcept {
    const __m128i last = _mm_set1_epi8(0x1F);
    const __m128i found = _mm_cmpeq_epi8(_mm_max_epu8(characters, last), last);
    if (!kWellFormed) return found;
    return _mm_or_si128(found,
                        _mm_or_si128(BytesEqual(characters, '"'), BytesEqual(characters, '\\')));
  }
#endif
};

template <class TEscapes>
bool HasEscaped(std::string_view text) noexcept {
  const char* const end = text.data() + text.size();
  return FindEscaped<TEscapes>(text.data(), end) != end;
}

/// Appends the text between quotation marks, if there is room for it at once and none of its
/// characters is one that `TEscapes` has; false otherwise.
template <class TEscapes>
bool AppendQuoted(CTextStream& stream, std::string_view text) {
  char* to = stream.FindRoom(text.size() + 2);
  if (to == nullptr || HasEscaped<TEscapes>(text)) return false;
  *to++ = '"';
  to = PutShort(to, text);
  *to++ = '"';
  stream.AdvanceTo(to);
  return true;
}

/// Appends a name between quotation marks, the colon and the blank, if there is room at once. The
/// prefix may be "".
inline bool AppendName(CTextStream& stream, std::string_view mark, std::string_view prefix,
                       std::string_view localName) {
  constexpr size_t kMarks = std::string_view("\":\": ").size();
  constexpr char kEnd[] = {'"', ':', ' '};
  char* to = stream.FindRoom(mark.size() + prefix.size() + localName.size() + kMarks);
  if (to == nullptr) return false;
  *to++ = '"';
  to = PutShort(to, mark);
  if (!prefix.empty()) {
    to = PutShort(to, prefix);
    *to++ = ':';
  }
  to = PutShort(to, localName);
  std::memcpy(to, kEnd, sizeof kEnd);
  stream.AdvanceTo(to + sizeof kEnd);
  return true;
}

/// Appends a literal without measuring it.
template <size_t kSize>
void AppendLiteral(CTextStream& stream, const char (&literal)[kSize]) {
  stream.Append(literal, kSize - 1);
}

/// Appends the four-digit escape of a character below 0x20.
inline void AppendUnicodeEscape(CTextStream& stream, char character) {
  AppendLiteral(stream, "\\u00");
  stream.Append(static_cast<char>('0' + (character >> 4)));
  stream.Append("0123456789ABCDEF"[character & 0xF]);
}

/// Appends the escape of a character that TJsonEscapes<true> has.
inline void AppendEscape(CTextStream& stream, char character) {
  switch (character) {
    case '"':
      return AppendLiteral(stream, "\\\"");
    case '\\':
      return AppendLiteral(stream, "\\\\");
    case '\b':
      return AppendLiteral(stream, "\\b");
    case '\f':
      return AppendLiteral(stream, "\\f");
    case '\n':
      return AppendLiteral(stream, "\\n");
    case '\r':
      return AppendLiteral(stream, "\\r");
    case '\t':
      return AppendLiteral(stream, "\\t");
    default:
      return AppendUnicodeEscape(stream, character);
  }
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_TEXT_INTERNAL_H_
