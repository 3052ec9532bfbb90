// The search for characters that a text format must not hold as they are.

#ifndef QVXML_XML_ESCAPE_SCAN_INTERNAL_H_
#define QVXML_XML_ESCAPE_SCAN_INTERNAL_H_

#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace QvXmlLib16::detail {

#if defined(__SSE2__)
inline __m128i BytesEqual(__m128i characters, char character) noexcept {
  return _mm_cmpeq_epi8(characters, _mm_set1_epi8(character));
}
#endif

/// The characters that XML text must not hold as they are: & < > and both line end characters, in
/// attribute values the double quotation mark too.
template <bool kInAttribute>
struct TXmlEscapes {
  static constexpr bool Has(char character) noexcept {
    switch (character) {
      case '&':
      case '<':
      case '>':
      case '\n':
      case '\r':
        return true;
      default:
        return kInAttribute && character == '"';
    }
  }

#if defined(__SSE2__)
  /// All bits of each byte that is one of them.
  static __m128i Find(__m128i characters) noexcept {
    // '<' and '>' differ in one bit only, and so do '&' and '"'.
    __m128i found = BytesEqual(_mm_or_si128(characters, _mm_set1_epi8('<' ^ '>')), '<' | '>');
    const __m128i maybeQuote =
        kInAttribute ? _mm_or_si128(characters, _mm_set1_epi8('&' ^ '"')) : characters;
    found = _mm_or_si128(found, BytesEqual(maybeQuote, '&'));
    found = _mm_or_si128(found, BytesEqual(characters, '\n'));
    return _mm_or_si128(found, BytesEqual(characters, '\r'));
  }
#endif
};

/// The first character that `TEscapes` has, or `end`.
template <class TEscapes>
const char* FindEscaped(const char* text, const char* end) noexcept {
#if defined(__SSE2__)
  const auto mask = [](__m128i characters) {
    return static_cast<unsigned>(_mm_movemask_epi8(TEscapes::Find(characters)));
  };
  for (; end - text >= 16; text += 16) {
    const unsigned found = mask(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text)));
    if (found != 0) return text + __builtin_ctz(found);
  }
  if (end - text >= 8) {
    // The two halves overlap when there are fewer than 16 characters.
    const __m128i first = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(text));
    const __m128i last = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(end - 8));
    if (mask(_mm_unpacklo_epi64(first, last)) == 0) return end;
  } else if (end - text >= 4) {
    const __m128i first = _mm_loadu_si32(text);
    const __m128i last = _mm_loadu_si32(end - 4);
    if ((mask(_mm_unpacklo_epi32(first, last)) & 0xFF) == 0) return end;
  }
#endif
  while (text != end && !TEscapes::Has(*text)) ++text;
  return text;
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_ESCAPE_SCAN_INTERNAL_H_
