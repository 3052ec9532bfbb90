// Small text helpers of the document model and its reader.

#ifndef QVXML_XML_DOM_TEXT_INTERNAL_H_
#define QVXML_XML_DOM_TEXT_INTERNAL_H_

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "qvxml/core/locale_text.h"

namespace QvXmlLib16 {
namespace detail {

/// The text of a parameter, where null stands for "".
inline std::string_view ViewOf(const char* text) { return text != nullptr ? text : ""; }

/// What getters refer to when there is nothing.
inline const std::string& EmptyString() {
  static const std::string empty;
  return empty;
}

/// Appends the `length` bytes at `text` without their carriage returns.
inline void AppendExcludingCR(std::string& target, const char* text, size_t length) {
  const char* const end = text + length;
  while (const void* found = std::memchr(text, '\r', static_cast<size_t>(end - text))) {
    const char* const carriageReturn = static_cast<const char*>(found);
    target.append(text, static_cast<size_t>(carriageReturn - text));
    text = carriageReturn + 1;
  }
  target.append(text, static_cast<size_t>(end - text));
}

}  // namespace detail
}  // namespace QvXmlLib16

#endif  // QVXML_XML_DOM_TEXT_INTERNAL_H_
