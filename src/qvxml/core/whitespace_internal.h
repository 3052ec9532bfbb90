// Normalised text without a copy where none is needed.

#ifndef QVXML_CORE_WHITESPACE_INTERNAL_H_
#define QVXML_CORE_WHITESPACE_INTERNAL_H_

#include <string>
#include <string_view>
#include <utility>

#include "qvxml/core/whitespace.h"

namespace QvXmlLib16::detail {

/// `text` without the whitespace at both ends.
inline std::string_view TrimWhiteSpace(std::string_view text) {
  while (!text.empty() && CWhitespaceUtils::IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && CWhitespaceUtils::IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// What CWhitespaceUtils::ApplyRule returns, as a view of the caller's text when the rule changes
/// nothing between the ends. Refers to that text, so it must not outlive it.
class CNormalisedText {
 public:
  /// Throws as CWhitespaceUtils::ApplyRule does.
  CNormalisedText(CWhitespaceUtils::WhitespaceRule rule, std::string_view text);
  CNormalisedText(const CNormalisedText&) = delete;
  CNormalisedText& operator=(const CNormalisedText&) = delete;

  /// The text; not terminated.
  std::string_view View() const { return m_view; }
  /// The text as a string of its own; the view is void afterwards.
  std::string TakeText() { return m_isCopy ? std::move(m_copy) : std::string(m_view); }

 private:
  void Keep(std::string&& copy);

  std::string m_copy;
  std::string_view m_view;
  bool m_isCopy = false;
};

/// What CWhitespaceUtils::ApplyRule returns: `text` itself when the rule leaves it as it is,
/// otherwise `storage`, into which the result is put. Throws as ApplyRule does.
const std::string& ApplyRule(CWhitespaceUtils::WhitespaceRule rule, const std::string& text,
                             std::string& storage);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_WHITESPACE_INTERNAL_H_
