// The place in a JSON text, its characters, and the failures that name it. What the two grammars
// share; they are in json_lenient_lexer_internal.h and json_strict_lexer_internal.h.

#ifndef QVXML_JSON_JSON_CURSOR_INTERNAL_H_
#define QVXML_JSON_JSON_CURSOR_INTERNAL_H_

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "qvxml/core/error_path_provider.h"

namespace QvXmlLib16::detail {

constexpr bool IsJsonDigit(int character) noexcept { return character >= '0' && character <= '9'; }

/// A position in a text that must outlive it. Lines and positions are counted only when a failure
/// asks for them.
class CJsonCursor {
 public:
  CJsonCursor(std::string_view text, IErrorPathProvider& paths) noexcept
      : m_begin(text.data()), m_position(m_begin), m_end(m_begin + text.size()), m_paths(paths) {}

  /// The character that was read last.
  char GetCurrent() const noexcept { return m_current; }
  const char* GetPosition() const noexcept { return m_position; }
  void MoveTo(const char* position) noexcept { m_position = position; }

  // Throw CQvValidationException. The formats take the line, counted from 1, and the bytes read of
  // it; those of FailFound the current character first.

  [[noreturn]] void Fail(const char* format) const;
  [[noreturn]] void FailFound(const char* format) const;

 protected:
  static constexpr int kEnd = -1;

  static bool IsBlank(char character) noexcept {
    return character == ' ' || character == '\n' || character == '\t' || character == '\r';
  }
  void SkipBlanks() noexcept {
    while (m_position != m_end && IsBlank(*m_position)) ++m_position;
  }
  size_t GetRemaining() const noexcept { return static_cast<size_t>(m_end - m_position); }

  const char* m_begin;
  const char* m_position;
  const char* m_end;
  char m_current = '\0';

 private:
  int CountLine() const noexcept;
  int CountPosition() const noexcept;

  IErrorPathProvider& m_paths;
};

/// The end of the number that begins at `text`, or null when none ends before `end`. Numbers may
/// begin with zeros.
inline const char* FindNumberEnd(const char* text, const char* end) noexcept {
  const auto skipDigits = [&text, end] {
    const char* const start = text;
    while (text != end && IsJsonDigit(*text)) ++text;
    return text != start && text != end;
  };
  if (*text == '-') ++text;
  if (!skipDigits()) return nullptr;
  if (*text == '.') {
    ++text;
    if (!skipDigits()) return nullptr;
  }
  if (*text == 'e' || *text == 'E') {
    ++text;
    if (text != end && (*text == '+' || *text == '-')) ++text;
    if (!skipDigits()) return nullptr;
  }
  return text;
}

/// Literals and numbers. `TLexer` has Peek(), the next character or kEnd, Take(), which makes it
/// the current one, CheckFirstDigit(), TextSince(), and IsPlainNumber(), which tells whether that
/// is all there is to a number.
template <class TLexer>
class TJsonLexer : public CJsonCursor {
 public:
  using CJsonCursor::CJsonCursor;

  // The three begin at the first letter.

  void ReadNull() {
    ReadRest("ull", "Expected 'NULL' at line %d, position %d.",
             "Unexpected End of File. Expected value 'NULL' at line %d, position %d.");
  }
  void ReadTrue() {
    ReadRest("rue", "Expected 'true' at line %d, position %d.",
             "Unexpected End of File. Expected value 'true' at line %d, position %d.");
  }
  void ReadFalse() {
    ReadRest("alse", "Expected 'false' at line %d, position %d.",
             "Unexpected End of File. Expected value 'false' at line %d, position %d.");
  }

  /// Begins at the sign or the first digit. The result is the input's own or in `scratch`.
  std::string_view ReadNumber(std::string& scratch) {
    const char* const start = m_position - 1;
    const char* const end = FindNumberEnd(start, m_end);
    if (end == nullptr || !TLexer::IsPlainNumber(start, end)) return ReadNumberSlowly(scratch);
    m_position = end;
    return {start, static_cast<size_t>(end - start)};
  }

 private:
  TLexer& Self() noexcept { return static_cast<TLexer&>(*this); }

  std::string_view ReadNumberSlowly(std::string& scratch) {
    const char* const start = m_position - 1;
    if (m_current == '-') {
      TakeDigit("Unexpected End of File. Expected a number at line %d, position %d.");
    }
    Self().CheckFirstDigit();
    TakeDigits();
    if (Self().Peek() == '.') {
      Self().Take();
      TakeFractionDigit();
      TakeDigits();
    }
    if (Self().Peek() == 'e' || Self().Peek() == 'E') {
      Self().Take();
      ReadExponent();
    }
    return Self().TextSince(start, scratch);
  }

  void TakeDigit(const char* failureAtEnd) {
    if (Self().Peek() == kEnd) Fail(failureAtEnd);
    Self().Take();
    if (!IsJsonDigit(m_current)) {
      FailFound("Expected a digit '0' to '9', found '%c' at line %d, position %d.");
    }
  }
  template <size_t kSize>
  void ReadRest(const char (&rest)[kSize], const char* failure, const char* failureAtEnd) {
    constexpr size_t kLength = kSize - 1;
    if (GetRemaining() < kLength) Fail(failureAtEnd);
    const bool isRest = std::memcmp(m_position, rest, kLength) == 0;
    m_position += kLength;
    if (!isRest) Fail(failure);
  }
  void TakeFractionDigit() {
    TakeDigit("Unexpected End of File. Expected a digit '0' to '9' at line %d, position %d.");
  }
  void TakeDigits() {
    while (IsJsonDigit(Self().Peek())) Self().Take();
  }
  void ReadExponent() {
    const int next = Self().Peek();
    if (next == kEnd) {
      Fail("Unexpected End of File. Expected '+', '-' or a number at line %d, position %d.");
    }
    if (next == '+' || next == '-') Self().Take();
    TakeFractionDigit();
    TakeDigits();
  }
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_CURSOR_INTERNAL_H_
