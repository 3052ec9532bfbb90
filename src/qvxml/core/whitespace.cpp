#include "qvxml/core/whitespace.h"

#include <algorithm>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/core/whitespace_internal.h"

namespace QvXmlLib16 {

namespace {

bool IsMappedByReplace(char character) {
  return character == '\t' || character == '\r' || character == '\n';
}

// Passes `text` on byte by byte, each CR LF pair as a single CR.
template <class TMap>
std::string MapBytes(std::string_view text, const TMap& map) {
  std::string result(text.size(), '\0');
  char* end = result.data();
  for (size_t i = 0; i < text.size(); ++i) {
    *end++ = map(text[i]);
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
  }
  result.resize(static_cast<size_t>(end - result.data()));
  return result;
}

std::string PreserveView(std::string_view text) {
  return MapBytes(text, [](char character) { return character == '\r' ? '\n' : character; });
}

std::string ReplaceView(std::string_view text) {
  return MapBytes(text,
                  [](char character) { return IsMappedByReplace(character) ? ' ' : character; });
}

std::string CollapseView(std::string_view text) {
  std::string result(text.size(), '\0');
  char* end = result.data();
  for (const char character : detail::TrimWhiteSpace(text)) {
    if (!CWhitespaceUtils::IsWhiteSpace(character)) {
      *end++ = character;
    } else if (end[-1] != ' ') {
      *end++ = ' ';
    }
  }
  result.resize(static_cast<size_t>(end - result.data()));
  return result;
}

bool IsCollapsedInside(std::string_view trimmed) {
  for (size_t i = 0; i < trimmed.size(); ++i) {
    const char character = trimmed[i];
    if (!CWhitespaceUtils::IsWhiteSpace(character)) continue;
    // The last character of trimmed text is not whitespace, so there is a next one.
    if (character != ' ' || CWhitespaceUtils::IsWhiteSpace(trimmed[i + 1])) return false;
  }
  return true;
}

}  // namespace

std::string CWhitespaceUtils::Preserve(const char* text, int length) {
  if (text == nullptr || length < 1) return std::string();
  return PreserveView(std::string_view(text, static_cast<size_t>(length)));
}

std::string CWhitespaceUtils::Preserve(const std::string& text) { return PreserveView(text); }

std::string CWhitespaceUtils::Replace(const std::string& text) { return ReplaceView(text); }

std::string CWhitespaceUtils::Collapse(const std::string& text) { return CollapseView(text); }

std::string CWhitespaceUtils::ApplyRule(WhitespaceRule rule, const std::string& text) {
  return detail::CNormalisedText(rule, text).TakeText();
}

namespace detail {

void CNormalisedText::Normalise(CWhitespaceUtils::WhitespaceRule rule) {
  m_isPlain = false;
  const std::string_view text = m_view;
  switch (rule) {
    case CWhitespaceUtils::ws_none:
      return;
    case CWhitespaceUtils::ws_preserve:
      if (text.find('\r') != text.npos) Keep(PreserveView(text));
      return;
    case CWhitespaceUtils::ws_replace:
      if (std::any_of(text.begin(), text.end(), IsMappedByReplace)) Keep(ReplaceView(text));
      return;
    case CWhitespaceUtils::ws_collapse:
      m_view = TrimWhiteSpace(text);
      if (!IsCollapsedInside(m_view)) Keep(CollapseView(m_view));
      return;
  }
  throw CQvException("Unknown WhitespaceRule");
}

void CNormalisedText::Keep(std::string&& copy) {
  m_copy = std::move(copy);
  m_view = m_copy;
  m_isCopy = true;
}

}  // namespace detail

}  // namespace QvXmlLib16
