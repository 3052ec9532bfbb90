// Text inside JSON strings.

#ifndef QVXML_JSON_JSON_TEXT_INTERNAL_H_
#define QVXML_JSON_JSON_TEXT_INTERNAL_H_

#include <cstddef>

#include "qvxml/xml/escape_scan_internal.h"
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
