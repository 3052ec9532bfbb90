// The grammar of the default mode, which accepts what CJsonTextWriter writes in it.

#ifndef QVXML_JSON_JSON_LENIENT_LEXER_INTERNAL_H_
#define QVXML_JSON_JSON_LENIENT_LEXER_INTERNAL_H_

#include <string>
#include <string_view>

#include "qvxml/json/json_cursor_internal.h"
#include "qvxml/xml/escape_scan_internal.h"

namespace QvXmlLib16::detail {

/// Values inside each other that are read, the outermost counted.
inline constexpr size_t kLenientMaxDepth = 100;

/// Kept: a raw line feed is never a character of the text, in strings and numbers neither; control
/// characters in strings are; what follows the first value is not looked at.
class CLenientLexer : public TJsonLexer<CLenientLexer> {
 public:
  CLenientLexer(std::string_view text, IErrorPathProvider& paths, bool allowsComments) noexcept
      : TJsonLexer(text, paths), m_allowsComments(allowsComments) {}

  /// Goes to the first character that is not blank; false when there is none.
  bool Start() { return Next(); }
  /// Goes to the next character that is not blank; false when there is none.
  bool Next() {
    for (;;) {
      SkipBlanks();
      if (m_position == m_end) return false;
      m_current = *m_position++;
      if (m_current != '/' || !m_allowsComments || !SkipComment()) return true;
    }
  }
  void Finish() noexcept {}

  /// Reads on behind the opening quotation mark. The result is the input's own or in `scratch`.
  std::string_view ReadString(std::string& scratch) {
    const char* const start = m_position;
    const char* const stop = FindEscaped<CStringStops>(start, m_end);
    if (stop == m_end || *stop != '"') return ReadEscapedString(scratch);
    m_position = stop + 1;
    return {start, static_cast<size_t>(stop - start)};
  }

  // For numbers.

  int Peek() noexcept {
    m_next = m_position;
    while (m_next != m_end && *m_next == '\n') ++m_next;
    return m_next != m_end ? static_cast<unsigned char>(*m_next) : kEnd;
  }
  void Take() noexcept {
    m_current = *m_next;
    m_position = m_next + 1;
  }
  void CheckFirstDigit() noexcept {}
  /// `end` is before the end of the text: more digits may follow a line feed.
  static bool IsPlainNumber(const char*, const char* end) noexcept { return *end != '\n'; }
  std::string_view TextSince(const char* start, std::string& scratch) const;

 private:
  // What a string does not hold as it is, the closing quotation mark included.
  struct CStringStops {
    static constexpr bool Has(char character) noexcept {
      return character == '"' || character == '\\' || character == '\n';
    }
#if defined(__SSE2__)
    static __m128i Find(__m128i characters) noexcept {
      const __m128i found = _mm_or_si128(BytesEqual(characters, '"'), BytesEqual(characters, '\\'));
      return _mm_or_si128(found, BytesEqual(characters, '\n'));
    }
#endif
  };

  bool SkipComment() noexcept;
  std::string_view ReadEscapedString(std::string& scratch);
  char ReadEscape();
  char ReadUnicodeEscape();

  const bool m_allowsComments;
  // What Peek() saw.
  const char* m_next = nullptr;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_LENIENT_LEXER_INTERNAL_H_
