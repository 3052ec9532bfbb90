// The grammar of RFC 8259, for the standard mode.

#ifndef QVXML_JSON_JSON_STRICT_LEXER_INTERNAL_H_
#define QVXML_JSON_JSON_STRICT_LEXER_INTERNAL_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "qvxml/json/json_cursor_internal.h"
#include "qvxml/json/json_text_internal.h"

namespace QvXmlLib16::detail {

/// Accepts UTF-8 text of exactly one value, with or without a byte-order mark. Names may be
/// repeated in an object, as the RFC allows: elements are, and XML tells whether they may be.
class CStrictLexer : public TJsonLexer<CStrictLexer> {
 public:
  using TJsonLexer::TJsonLexer;

  /// Goes to the first character of the value. Fails for text that is not UTF-8 or has no value.
  bool Start();
  /// Goes to the next character that is not blank; false when there is none.
  bool Next() noexcept {
    SkipBlanks();
    if (m_position == m_end) return false;
    m_current = *m_position++;
    return true;
  }
  /// Fails when anything follows the value.
  void Finish();

  /// Reads on behind the opening quotation mark. The result is the input's own or in `scratch`.
  std::string_view ReadString(std::string& scratch) {
    const char* const start = m_position;
    const char* const stop = FindEscaped<CStringStops>(start, m_end);
    if (stop == m_end || *stop != '"') return ReadEscapedString(scratch);
    m_position = stop + 1;
    return {start, static_cast<size_t>(stop - start)};
  }

  // For numbers.

  int Peek() const noexcept {
    return m_position != m_end ? static_cast<unsigned char>(*m_position) : kEnd;
  }
  void Take() noexcept { m_current = *m_position++; }
  void CheckFirstDigit();
  static bool IsPlainNumber(const char* start, const char* end) noexcept {
    if (*start == '-') ++start;
    return *start != '0' || end - start == 1 || !IsJsonDigit(start[1]);
  }
  std::string_view TextSince(const char* start, std::string&) const noexcept {
    return {start, static_cast<size_t>(m_position - start)};
  }

 private:
  // What writers escape, and so the closing quotation mark too.
  using CStringStops = TJsonEscapes<true>;

  std::string_view ReadEscapedString(std::string& scratch);
  void ReadEscape(std::string& text);
  char32_t ReadUnicodeEscape();
  char32_t ReadCodeUnit();
  [[noreturn]] void FailInString() const;
  [[noreturn]] void FailUnpaired() const;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_STRICT_LEXER_INTERNAL_H_
