// Copies of texts that are mostly short.

#ifndef QVXML_XML_SHORT_COPY_H_
#define QVXML_XML_SHORT_COPY_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

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

/// CopyShort, and the end of the copy.
inline char* PutShort(char* target, std::string_view text) noexcept {
  CopyShort(target, text.data(), text.size());
  return target + text.size();
}

/// Whether the texts are equal, told without a call: most are the same namespace again.
inline bool IsSameText(std::string_view left, std::string_view right) noexcept {
  size_t length = left.size();
  if (length != right.size()) return false;
  const char* a = left.data();
  const char* b = right.data();
  const auto areSame = [](const char* one, const char* other, auto word) {
    auto otherWord = word;
    std::memcpy(&word, one, sizeof word);
    std::memcpy(&otherWord, other, sizeof word);
    return word == otherWord;
  };
  if (length >= 8) {
    // The last eight overlap with what is in front of them.
    if (!areSame(a + length - 8, b + length - 8, std::uint64_t{0})) return false;
    for (; length > 8; length -= std::min<size_t>(length, 8), a += 8, b += 8) {
      if (!areSame(a, b, std::uint64_t{0})) return false;
    }
    return true;
  }
  if (length >= 4) {
    return areSame(a, b, std::uint32_t{0}) &&
           areSame(a + length - 4, b + length - 4, std::uint32_t{0});
  }
  for (; length != 0; --length) {
    if (a[length - 1] != b[length - 1]) return false;
  }
  return true;
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_SHORT_COPY_H_
