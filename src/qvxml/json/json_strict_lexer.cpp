#include "qvxml/core/unicode_internal.h"
#include "qvxml/json/json_strict_lexer_internal.h"

namespace QvXmlLib16::detail {

namespace {

constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

bool CStrictLexer::Start() {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (std::string_view(m_begin, GetRemaining()).substr(0, 3) == kByteOrderMark) {
    m_begin = m_position = m_begin + kByteOrderMark.size();
  }
  const size_t validLength = ValidUtf8Length(m_begin, GetRemaining());
  if (validLength != GetRemaining()) {
    m_position += validLength + 1;
    Fail("Invalid UTF-8 at line %d, position %d.");
  }
  if (!Next()) Fail("Unexpected End of File. Expected a value at line %d, position %d.");
  return true;
}

void CStrictLexer::Finish() {
  if (Next()) FailFound("Expected the end of the text, found '%c' at line %d, position %d.");
}

void CStrictLexer::CheckFirstDigit() {
  if (m_current != '0' || !IsJsonDigit(Peek())) return;
  Take();
  Fail("A number must not begin with '0' at line %d, position %d.");
}

std::string_view CStrictLexer::ReadEscapedString(std::string& scratch) {
  scratch.clear();
  for (;;) {
    const char* const stop = FindEscaped<CStringStops>(m_position, m_end);
    scratch.append(m_position, stop);
    m_position = stop;
    if (stop == m_end) FailInString();
    m_current = *m_position++;
    if (m_current == '"') return scratch;
    if (m_current != '\\') {
      Fail("A string must not hold a control character as it is at line %d, position %d.");
    }
    ReadEscape(scratch);
  }
}

void CStrictLexer::ReadEscape(std::string& text) {
  if (Peek() == kEnd) FailInString();
  Take();
  switch (m_current) {
    case '"':
    case '\\':
    case '/':
      text += m_current;
      break;
    case 'b':
      text += '\b';
      break;
    case 'f':
      text += '\f';
      break;
    case 'n':
      text += '\n';
      break;
    case 'r':
      text += '\r';
      break;
    case 't':
      text += '\t';
      break;
    case 'u':
      AppendUtf8(text, ReadUnicodeEscape());
      break;
    default:
      FailFound("Invalid Escape Character '%c' at line %d, position %d.");
  }
}

char32_t CStrictLexer::ReadUnicodeEscape() {
  const char32_t unit = ReadCodeUnit();
  if (IsLowSurrogate(unit)) FailUnpaired();
  if (!IsHighSurrogate(unit)) return unit;
  if (std::string_view(m_position, GetRemaining()).substr(0, 2) != "\\u") FailUnpaired();
  m_position += 2;
  const char32_t low = ReadCodeUnit();
  if (!IsLowSurrogate(low)) FailUnpaired();
  return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

char32_t CStrictLexer::ReadCodeUnit() {
  constexpr size_t kDigits = 4;
  if (GetRemaining() < kDigits) {
    Fail("Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line %d, position %d.");
  }
  char32_t unit = 0;
  for (size_t i = 0; i < kDigits; ++i) {
    Take();
    unit <<= 4;
    if (IsJsonDigit(m_current)) {
      unit |= static_cast<char32_t>(m_current - '0');
    } else if ((m_current >= 'a' && m_current <= 'f') || (m_current >= 'A' && m_current <= 'F')) {
      unit |= static_cast<char32_t>((m_current | 0x20) - 'a' + 10);
    } else {
      FailFound("Invalid hexadecimal digit '%c' at line %d, position %d.");
    }
  }
  return unit;
}

void CStrictLexer::FailInString() const {
  Fail("Unexpected End of File. Expected string value at line %d, position %d.");
}

void CStrictLexer::FailUnpaired() const {
  Fail("Unpaired surrogate in a string at line %d, position %d.");
}

}  // namespace QvXmlLib16::detail
