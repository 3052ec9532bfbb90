// The search for characters that XML text must not hold as they are.

#ifndef QVXML_XML_ESCAPE_SCAN_INTERNAL_H_
#define QVXML_XML_ESCAPE_SCAN_INTERNAL_H_

#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace QvXmlLib16::detail {

/// Whether the writer changes the character: & < > and both line end characters, in attribute
/// values the double quotation mark too.
template <bool kInAttribute>
constexpr bool IsEscaped(char character) noexcept {
  switch (character) {
    case '&':
    case '<':
    case '>':
    case '\n':
    case '\r':
      return true;
    case '"':
      return kInAttribute;
    default:
      return false;
  }
}

template <bool kInAttribute>
const char* FindEscapedPlainly(const char* text, const char* end) noexcept {
  while (text != end && !IsEscaped<kInAttribute>(*text)) ++text;
  return text;
}

#if defined(__SSE2__)
/// One bit for each of 16 characters, set where it is to be changed.
template <bool kInAttribute>
unsigned EscapedMask(__m128i characters) noexcept {
  const auto equals = [](__m128i block, char character) {
    return _mm_cmpeq_epi8(block, _mm_set1_epi8(character));
  };
  // '<' and '>' differ in one bit only, and so do '&' and '"'.
  __m128i found = equals(_mm_or_si128(characters, _mm_set1_epi8('<' ^ '>')), '<' | '>');
  const __m128i maybeQuote =
      kInAttribute ? _mm_or_si128(characters, _mm_set1_epi8('&' ^ '"')) : characters;
  found = _mm_or_si128(found, equals(maybeQuote, '&'));
  found = _mm_or_si128(found, equals(characters, '\n'));
  found = _mm_or_si128(found, equals(characters, '\r'));
  return static_cast<unsigned>(_mm_movemask_epi8(found));
}
#endif

/// The first character to be changed, or `end`.
template <bool kInAttribute>
const char* FindEscaped(const char* text, const char* end) noexcept {
#if defined(__SSE2__)
  for (; end - text >= 16; text += 16) {
    const unsigned mask =
        EscapedMask<kInAttribute>(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text)));
    if (mask != 0) return text + __builtin_ctz(mask);
  }
  if (end - text >= 8) {
    // The two halves overlap when there are fewer than 16 characters.
    const __m128i first = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(text));
    const __m128i last = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(end - 8));
    if (EscapedMask<kInAttribute>(_mm_unpacklo_epi64(first, last)) == 0) return end;
  }
#endif
  return FindEscapedPlainly<kInAttribute>(text, end);
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_ESCAPE_SCAN_INTERNAL_H_
