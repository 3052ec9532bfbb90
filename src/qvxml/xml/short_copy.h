// Copies of texts that are mostly short.

#ifndef QVXML_XML_SHORT_COPY_H_
#define QVXML_XML_SHORT_COPY_H_

#include <cstddef>
#include <cstring>

namespace QvXmlLib16::detail {

template <size_t kPart>
void CopyEnds(char* target, const char* text, size_t length) noexcept {
  char first[kPart];
  char last[kPart];
  std::memcpy(first, text, kPart);
  std::memcpy(last, text + length - kPart, kPart);
  std::memcpy(target, first, kPart);
  std::memcpy(target + length - kPart, last, kPart);
}

/// As memcpy. Most of what is written is short: names, prefixes, marks. Those are copied without a
/// call, as two parts that may overlap.
inline void CopyShort(char* target, const char* text, size_t length) noexcept {
  if (length > 16) {
    std::memcpy(target, text, length);
  } else if (length >= 8) {
    CopyEnds<8>(target, text, length);
  } else if (length >= 4) {
    CopyEnds<4>(target, text, length);
  } else if (length >= 2) {
    CopyEnds<2>(target, text, length);
  } else if (length == 1) {
    *target = *text;
  }
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_SHORT_COPY_H_
