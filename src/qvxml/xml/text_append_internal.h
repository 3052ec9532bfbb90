// How character data reaches the text of elements.

#ifndef QVXML_XML_TEXT_APPEND_INTERNAL_H_
#define QVXML_XML_TEXT_APPEND_INTERNAL_H_

#include <cstddef>
#include <cstring>
#include <string>

namespace QvXmlLib16 {
namespace detail {

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

#endif  // QVXML_XML_TEXT_APPEND_INTERNAL_H_
