// Normalised text without a copy where none is needed.

#ifndef QVXML_CORE_WHITESPACE_INTERNAL_H_
#define QVXML_CORE_WHITESPACE_INTERNAL_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "qvxml/core/digits_internal.h"
#include "qvxml/core/whitespace.h"

namespace QvXmlLib16::detail {

/// Whether the number is that of a rule.
inline bool IsRule(CWhitespaceUtils::WhitespaceRule rule) {
  return rule >= CWhitespaceUtils::ws_none && rule <= CWhitespaceUtils::ws_collapse;
}

/// `text` without the whitespace at both ends.
inline std::string_view TrimWhiteSpace(std::string_view text) {
  while (!text.empty() && CWhitespaceUtils::IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && CWhitespaceUtils::IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// Whether one of the eight bytes is a space, a control character or a NUL.
inline bool HasSpaceOrControl(const char* eightBytes) {
  std::uint64_t bytes;
  __builtin_memcpy(&bytes, eightBytes, sizeof bytes);
  // Sets the highest bit of each byte below 0x21, and perhaps of one behind such a byte.
  return ((bytes - 0x21 * kEveryByte) & ~bytes & 0x80 * kEveryByte) != 0;
}

/// The same for all bytes of `text`. Text without, as most values have, stays as it is under every
/// rule.
inline bool HasSpaceOrControl(std::string_view text) {
  const char* position = text.data();
  const char* const end = position + text.size();
  if (text.size() >= 8) {
    for (; end - position > 8; position += 8) {
      if (HasSpaceOrControl(position)) return true;
    }
    return HasSpaceOrControl(end - 8);
  }
  for (; position != end; ++position) {
    if (static_cast<unsigned char>(*position) < 0x21) return true;
  }
  return false;
}

/// What CWhitespaceUtils::ApplyRule returns, as a view of the caller's text when the rule changes
/// nothing between the ends. Refers to that text, so it must not outlive it.
class CNormalisedText {
 public:
  /// Throws as CWhitespaceUtils::ApplyRule does.
  CNormalisedText(CWhitespaceUtils::WhitespaceRule rule, std::string_view text) : m_view(text) {
    if (!IsRule(rule) || HasSpaceOrControl(text)) Normalise(rule);
  }
  CNormalisedText(const CNormalisedText&) = delete;
  CNormalisedText& operator=(const CNormalisedText&) = delete;

  /// The text; not terminated.
  std::string_view View() const { return m_view; }
  /// The text before its first NUL.
  std::string_view ViewUpToNul() const {
    return m_isPlain ? m_view : m_view.substr(0, m_view.find('\0'));
  }
  /// The text as a string of its own; the view is void afterwards.
  std::string TakeText() { return m_isCopy ? std::move(m_copy) : std::string(m_view); }

 private:
  void Normalise(CWhitespaceUtils::WhitespaceRule rule);
  void Keep(std::string&& copy);

  std::string_view m_view;
  std::string m_copy;
  bool m_isCopy = false;
  // Without any space or control character.
  bool m_isPlain = true;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_WHITESPACE_INTERNAL_H_
