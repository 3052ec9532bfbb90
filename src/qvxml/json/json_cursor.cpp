#include <algorithm>
#include <climits>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/json/json_cursor_internal.h"

namespace QvXmlLib16::detail {

namespace {

int AsInt(std::ptrdiff_t count) noexcept {
  return static_cast<int>(std::min<std::ptrdiff_t>(count, INT_MAX));
}

}  // namespace

// The formats are literals of the callers.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

void CJsonCursor::Fail(const char* format) const {
  throw CQvValidationException(FormatString(format, CountLine(), CountPosition()),
                               m_paths.GetPath());
}

void CJsonCursor::FailFound(const char* format) const {
  throw CQvValidationException(
      FormatString(format, static_cast<int>(m_current), CountLine(), CountPosition()),
      m_paths.GetPath());
}

#pragma GCC diagnostic pop

int CJsonCursor::CountLine() const noexcept {
  return AsInt(1 + std::count(m_begin, m_position, '\n'));
}

int CJsonCursor::CountPosition() const noexcept {
  const std::string_view text(m_begin, static_cast<size_t>(m_position - m_begin));
  const size_t lineEnd = text.rfind('\n');
  return AsInt(static_cast<std::ptrdiff_t>(
      lineEnd == std::string_view::npos ? text.size() : text.size() - lineEnd - 1));
}

}  // namespace QvXmlLib16::detail
