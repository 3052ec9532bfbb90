#include <cstring>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/json/xml_emitter_internal.h"
#include "qvxml/xml/escape_scan_internal.h"

namespace QvXmlLib16::detail {

CXmlEmitter::CXmlEmitter(size_t expectedSize, Style style)
    : m_isFormatted(style == Style::Formatted),
      m_bytes(new unsigned char[expectedSize]),
      m_cursor(m_bytes.get()),
      m_end(m_cursor + expectedSize) {}

void CXmlEmitter::StartDocument() { PutRaw("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"); }

void CXmlEmitter::EndDocument() const {
  if (HasOpenElement()) throw CQvException("An Element has not been closed.");
}

void CXmlEmitter::StartElement(std::string_view name) {
  const size_t depth = m_levels.size();
  EnsureRoom(name.size() + depth + 3);
  unsigned char* at = m_cursor;
  if (depth != 0) {
    m_levels.back().hasChildren = true;
    if (m_isStartTagOpen) at = PutEOL(Put(at, '>'));
  }
  at = Put(PutIndent(at, depth), '<');
  m_levels.push_back({static_cast<size_t>(at - m_bytes.get()), name.size(), false});
  m_cursor = Put(at, name);
  m_isStartTagOpen = true;
}

void CXmlEmitter::Attribute(std::string_view name, std::string_view value) {
  if (!m_isStartTagOpen) throw CQvException("Attributes must be added before elements");
  EnsureRoom(name.size() + 3);
  m_cursor = Put(Put(Put(m_cursor, ' '), name), "=\"");
  PutValue(value);
  PutRaw("\"");
}

void CXmlEmitter::PutValue(std::string_view value) {
  if (!m_isFormatted) {
    for (size_t tab; (tab = value.find('\t')) != std::string_view::npos;) {
      PutEscaped<true>(value.substr(0, tab));
      PutRaw("&#x9;");
      value.remove_prefix(tab + 1);
    }
  }
  PutEscaped<true>(value);
}

void CXmlEmitter::Text(std::string_view text) {
  if (text.empty()) return;
  OpenContent();
  PutEscaped<false>(text);
}

void CXmlEmitter::Section(std::string_view text) {
  if (text.empty()) return;
  OpenContent();
  PutRaw(text);
}

void CXmlEmitter::OpenContent() {
  if (!HasOpenElement()) throw CQvException("An Element has not been opened.");
  if (m_isStartTagOpen) PutRaw(">");
  m_isStartTagOpen = false;
}

void CXmlEmitter::EndElement() {
  const CLevel level = m_levels.back();
  m_levels.pop_back();
  EnsureRoom(level.nameLength + m_levels.size() + 4);
  unsigned char* at = m_cursor;
  if (m_isStartTagOpen) {
    at = Put(at, "/>");
  } else {
    if (level.hasChildren) at = PutIndent(at, m_levels.size());
    at = Put(at, "</");
    at = Put(at, {AsText(m_bytes.get()) + level.nameOffset, level.nameLength});
    at = Put(at, '>');
  }
  m_cursor = PutEOL(at);
  m_isStartTagOpen = false;
}

CBinaryData CXmlEmitter::TakeBytes() {
  const size_t length = GetLength();
  m_cursor = m_end = nullptr;
  m_levels.clear();
  m_isStartTagOpen = false;
  return CBinaryData(m_bytes.release(), length, true);
}

void CXmlEmitter::Grow(size_t length) {
  const size_t used = GetLength();
  const size_t capacity = 2 * (used + length) + 64;
  std::unique_ptr<unsigned char[]> bytes(new unsigned char[capacity]);
  if (used != 0) std::memcpy(bytes.get(), m_bytes.get(), used);
  m_bytes = std::move(bytes);
  m_cursor = m_bytes.get() + used;
  m_end = m_bytes.get() + capacity;
}

void CXmlEmitter::PutRaw(std::string_view text) {
  EnsureRoom(text.size());
  m_cursor = Put(m_cursor, text);
}

template <bool kInAttribute>
void CXmlEmitter::PutEscaped(std::string_view text) {
  constexpr size_t kLongestEscape = 6;
  const char* run = text.data();
  const char* const end = run + text.size();
  for (;;) {
    const char* const found = FindEscaped<TXmlEscapes<kInAttribute>>(run, end);
    const std::string_view plain(run, static_cast<size_t>(found - run));
    EnsureRoom(plain.size() + kLongestEscape);
    m_cursor = Put(m_cursor, plain);
    if (found == end) return;
    m_cursor = Put(m_cursor, GetEscape<kInAttribute>(*found));
    run = found + 1;
  }
}

template <bool kInAttribute>
std::string_view CXmlEmitter::GetEscape(char character) const noexcept {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\n':
      return kInAttribute ? "&#xA;" : "\n";
    default:
      // Kept: carriage returns are lost, as CXmlTextWriter loses them.
      return m_isFormatted ? "" : "&#xD;";
  }
}

}  // namespace QvXmlLib16::detail
