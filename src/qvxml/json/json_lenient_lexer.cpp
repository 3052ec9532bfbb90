#include <algorithm>
#include <iterator>

#include "qvxml/json/json_lenient_lexer_internal.h"
#include "qvxml/types/binary_data.h"

namespace QvXmlLib16::detail {

std::string_view CLenientLexer::TextSince(const char* start, std::string& scratch) const {
  const std::string_view text(start, static_cast<size_t>(m_position - start));
  if (text.find('\n') == std::string_view::npos) return text;
  scratch.clear();
  std::remove_copy(text.begin(), text.end(), std::back_inserter(scratch), '\n');
  return scratch;
}

// Behind a slash; false when it begins no comment and stays the current character.
bool CLenientLexer::SkipComment() noexcept {
  const std::string_view rest(m_position, GetRemaining());
  size_t end = std::string_view::npos;
  if (rest.compare(0, 1, "/") == 0) {
    end = rest.find('\n');
    if (end != std::string_view::npos) end += 1;
  } else if (rest.compare(0, 1, "*") == 0) {
    end = rest.find("*/", 1);
    if (end != std::string_view::npos) end += 2;
  } else {
    return false;
  }
  m_position = end != std::string_view::npos ? m_position + end : m_end;
  return true;
}

std::string_view CLenientLexer::ReadEscapedString(std::string& scratch) {
  scratch.clear();
  for (;;) {
    const char* const stop = FindEscaped<CStringStops>(m_position, m_end);
    scratch.append(m_position, stop);
    m_position = stop;
    if (stop == m_end) {
      Fail("Unexpected End of File. Expected string value at line %d, position %d.");
    }
    m_current = *m_position++;
    if (m_current == '"') return scratch;
    if (m_current == '\\') scratch += ReadEscape();
  }
}

char CLenientLexer::ReadEscape() {
  if (Peek() == kEnd) {
    m_position = m_end;
    Fail("Unexpected End of File. Expected string value at line %d, position %d.");
  }
  Take();
  switch (m_current) {
    case '"':
    case '\\':
    case '/':
      return m_current;
    case 'b':
      return '\b';
    case 'f':
      return '\f';
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    case 'u':
      return ReadUnicodeEscape();
    default:
      FailFound("Invalid Escape Character '%c' at line %d, position %d.");
  }
}

// Kept: the digits are not checked, and \u0041 is "3", the first digit of the code of its first
// character.
char CLenientLexer::ReadUnicodeEscape() {
  constexpr size_t kDigits = 4;
  if (GetRemaining() < kDigits) {
    Fail("Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line %d, position %d.");
  }
  const unsigned char first = static_cast<unsigned char>(*m_position);
  m_position += kDigits;
  return CBinaryData::GetAsHexString(&first, 1).front();
}

}  // namespace QvXmlLib16::detail
