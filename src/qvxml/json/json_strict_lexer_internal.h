// The grammar of RFC 8259, for the standard mode.

#ifndef QVXML_JSON_JSON_STRICT_LEXER_INTERNAL_H_
#define QVXML_JSON_JSON_STRICT_LEXER_INTERNAL_H_

#include <cstddef>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/json/json_cursor_internal.h"

namespace QvXmlLib16::detail {

/// The member names of the open objects.
class CUniqueNames {
 public:
  void Open() { m_objects.push_back({m_names.size(), nullptr}); }
  /// False when the innermost object has the name already. A name that is not lasting is copied.
  bool Add(std::string_view name, bool isLasting);
  void Close();

 private:
  struct CName {
    std::string_view text;
    bool isOwn;
  };
  struct CObject {
    size_t firstName;
    // Made when there are many.
    std::unique_ptr<std::set<std::string_view>> index;
  };

  bool Contains(CObject& object, std::string_view name);

  std::vector<CName> m_names;
  std::vector<CObject> m_objects;
  std::deque<std::string> m_ownNames;
};

/// Accepts UTF-8 text of exactly one value, with or without a byte-order mark.
class CStrictLexer : public TJsonLexer<CStrictLexer> {
 public:
  using CNames = CUniqueNames;
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
    const char* const stop = FindStop<CStringStop>(start, m_end);
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
  std::string_view TextSince(const char* start, std::string&) const noexcept {
    return {start, static_cast<size_t>(m_position - start)};
  }

 private:
  struct CStringStop {
    static bool Stops(char character) noexcept {
      return character == '"' || character == '\\' || static_cast<unsigned char>(character) < 0x20;
    }
#if defined(__SSE2__)
    static __m128i Stops(__m128i block) noexcept {
      const __m128i quoteOrEscape = _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8('"')),
                                                 _mm_cmpeq_epi8(block, _mm_set1_epi8('\\')));
      const __m128i lastControl = _mm_set1_epi8(0x1F);
      const __m128i control = _mm_cmpeq_epi8(_mm_max_epu8(block, lastControl), lastControl);
      return _mm_or_si128(quoteOrEscape, control);
    }
#endif
  };

  std::string_view ReadEscapedString(std::string& scratch);
  void ReadEscape(std::string& text);
  char32_t ReadUnicodeEscape();
  char32_t ReadCodeUnit();
  [[noreturn]] void FailInString() const;
  [[noreturn]] void FailUnpaired() const;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_STRICT_LEXER_INTERNAL_H_
