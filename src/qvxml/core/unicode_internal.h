// Single steps over UTF-8, shared by the transcoders and the conversion of locale text.

#ifndef QVXML_CORE_UNICODE_INTERNAL_H_
#define QVXML_CORE_UNICODE_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace QvXmlLib16::detail {

/// True for what UTF-8 can carry: up to U+10FFFF, surrogates excluded.
constexpr bool IsScalarValue(char32_t character) {
  return character < 0xD800 || (character > 0xDFFF && character <= 0x10FFFF);
}

/// Bytes at `text`, up to `length`, before the first one above 127.
inline size_t AsciiLength(const char* text, size_t length) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080u;
  size_t count = 0;
  for (; length - count >= 16; count += 16) {
    std::uint64_t block[2];
    std::memcpy(block, text + count, sizeof block);
    if (((block[0] | block[1]) & kHighBits) != 0) break;
  }
  while (count < length && static_cast<unsigned char>(text[count]) < 0x80) ++count;
  return count;
}

/// Reads the character at `text`, which lies before `end`. Returns its length in bytes, or 0 when
/// no valid sequence (RFC 3629) begins there.
inline size_t ReadUtf8(const char* text, const char* end, char32_t& character) {
  const auto byte = [text](int index) { return static_cast<unsigned char>(text[index]); };
  const auto isTrail = [byte](int index) { return (byte(index) & 0xC0) == 0x80; };
  const unsigned char first = byte(0);
  if (first < 0x80) {
    character = first;
    return 1;
  }
  const auto available = end - text;
  if (first < 0xE0) {
    if (first < 0xC2 || available < 2 || !isTrail(1)) return 0;
    character = static_cast<char32_t>((first & 0x1F) << 6 | (byte(1) & 0x3F));
    return 2;
  }
  if (first < 0xF0) {
    if (available < 3 || !isTrail(1) || !isTrail(2)) return 0;
    character =
        static_cast<char32_t>((first & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F));
    return character >= 0x800 && IsScalarValue(character) ? 3 : 0;
  }
  if (first > 0xF4 || available < 4 || !isTrail(1) || !isTrail(2) || !isTrail(3)) return 0;
  character = static_cast<char32_t>((first & 0x07) << 18 | (byte(1) & 0x3F) << 12 |
                                    (byte(2) & 0x3F) << 6 | (byte(3) & 0x3F));
  return character >= 0x10000 && IsScalarValue(character) ? 4 : 0;
}

/// Bytes from the start of `text` that are valid UTF-8; less than `length` when it is malformed or
/// incomplete.
inline size_t ValidUtf8Length(const char* text, size_t length) {
  const char* const end = text + length;
  const char* position = text;
  while (position != end) {
    if (static_cast<unsigned char>(*position) < 0x80) {
      position += AsciiLength(position, static_cast<size_t>(end - position));
      continue;
    }
    char32_t character;
    const size_t used = ReadUtf8(position, end, character);
    if (used == 0) break;
    position += used;
  }
  return static_cast<size_t>(position - text);
}

/// Bytes of a scalar value in UTF-8.
constexpr size_t Utf8Length(char32_t character) {
  return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

/// Writes the Utf8Length(character) bytes of a scalar value.
template <class TByte>
void WriteUtf8(TByte* target, char32_t character) {
  constexpr unsigned char kFirstByteMark[] = {0, 0x00, 0xC0, 0xE0, 0xF0};
  const size_t length = Utf8Length(character);
  for (size_t i = length - 1; i > 0; --i, character >>= 6) {
    target[i] = static_cast<TByte>(0x80 | (character & 0x3F));
  }
  target[0] = static_cast<TByte>(kFirstByteMark[length] | character);
}

/// Appends a scalar value.
inline void AppendUtf8(std::string& text, char32_t character) {
  char bytes[4];
  WriteUtf8(bytes, character);
  text.append(bytes, Utf8Length(character));
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_UNICODE_INTERNAL_H_
