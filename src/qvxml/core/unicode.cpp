#include "qvxml/core/unicode.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>

#include "qvxml/core/unicode_internal.h"

namespace {

using QvXmlLib16::detail::IsScalarValue;

// A UTF-16 unit at an address that need not be even.
class CUnalignedUnit {
 public:
  explicit CUnalignedUnit(char32_t unit) {
    const auto value = static_cast<std::uint16_t>(unit);
    std::memcpy(m_bytes, &value, sizeof value);
  }

 private:
  unsigned char m_bytes[2];
};

// What is particular to an encoding, chosen by the width of its units: Read gives the number of
// units of the character at `source`, 0 when it is malformed; Length and Write take scalar values.
template <size_t kUnitSize>
struct TEncoding;

template <>
struct TEncoding<1> {
  static size_t Read(const unsigned char* source, const unsigned char* end, char32_t& character) {
    return QvXmlLib16::detail::ReadUtf8(reinterpret_cast<const char*>(source),
                                        reinterpret_cast<const char*>(end), character);
  }
  static size_t Length(char32_t character) { return QvXmlLib16::detail::Utf8Length(character); }
  static void Write(unsigned char* target, char32_t character) {
    QvXmlLib16::detail::WriteUtf8(target, character);
  }
};

template <>
struct TEncoding<2> {
  static size_t Read(const unsigned short* source, const unsigned short* end, char32_t& character) {
    character = source[0];
    if (IsScalarValue(character)) return 1;
    if (character > 0xDBFF || end - source < 2 || (source[1] & 0xFC00) != 0xDC00) return 0;
    character = 0x10000 + ((character - 0xD800) << 10) + (source[1] - 0xDC00u);
    return 2;
  }
  static size_t Length(char32_t character) { return character < 0x10000 ? 1 : 2; }
  template <class TUnit>
  static void Write(TUnit* target, char32_t character) {
    if (character < 0x10000) {
      *target = static_cast<TUnit>(character);
    } else {
      target[0] = static_cast<TUnit>(0xD800 + ((character - 0x10000) >> 10));
      target[1] = static_cast<TUnit>(0xDC00 + (character & 0x3FF));
    }
  }
};

template <>
struct TEncoding<4> {
  template <class TUnit>
  static size_t Read(const TUnit* source, const TUnit*, char32_t& character) {
    character = static_cast<char32_t>(*source);
    return IsScalarValue(character) ? 1 : 0;
  }
  static size_t Length(char32_t) { return 1; }
  template <class TUnit>
  static void Write(TUnit* target, char32_t character) {
    *target = static_cast<TUnit>(character);
  }
};

constexpr std::ptrdiff_t kBlock = 16;

template <class TSource>
bool IsAsciiBlock(const TSource* source) {
  std::make_unsigned_t<TSource> bits = 0;
  for (std::ptrdiff_t i = 0; i < kBlock; ++i) {
    bits = static_cast<decltype(bits)>(bits | static_cast<decltype(bits)>(source[i]));
  }
  return bits < 0x80;
}

// Moves over blocks of ASCII while they last and fit.
template <class TSource, class TTarget>
void SkipAsciiBlocks(const TSource*& source, const TSource* sourceEnd, TTarget* target,
                     size_t capacity, size_t& count) {
  while (sourceEnd - source >= kBlock && capacity - count >= kBlock && IsAsciiBlock(source)) {
    if (target != nullptr) {
      std::transform(source, source + kBlock, target + count, [](TSource unit) {
        return static_cast<TTarget>(static_cast<std::make_unsigned_t<TSource>>(unit));
      });
    }
    source += kBlock;
    count += kBlock;
  }
}

template <class TSource, class TTarget>
size_t Transcode(const TSource* source, const TSource* sourceEnd, TTarget* target,
                 size_t capacity) {
  using Target = TEncoding<sizeof(TTarget)>;
  const bool isCounting = target == nullptr;
  if (isCounting) capacity = static_cast<size_t>(-1);
  size_t count = 0;
  // After a block that was not all ASCII the next try waits until its characters are behind.
  const TSource* nextTry = source;
  while (source < sourceEnd) {
    if (source >= nextTry && sourceEnd - source >= kBlock) {
      SkipAsciiBlocks(source, sourceEnd, target, capacity, count);
      if (source == sourceEnd) break;
      nextTry = sourceEnd - source > kBlock ? source + kBlock : sourceEnd;
    }
    char32_t character;
    const size_t used = TEncoding<sizeof(TSource)>::Read(source, sourceEnd, character);
    if (used == 0) return isCounting ? 0 : count;
    const size_t length = Target::Length(character);
    if (length > capacity - count) return count;
    if (!isCounting) Target::Write(target + count, character);
    source += used;
    count += length;
  }
  return count;
}

template <class TUnit>
size_t Distance(const TUnit* start, const TUnit* end) {
  return start < end ? static_cast<size_t>(end - start) : 0;
}

}  // namespace

size_t ConvertUTF32toUTF16(const unsigned int* sourceStart, const unsigned int* sourceEnd,
                           unsigned short* targetStart, unsigned short* targetEnd) {
  return Transcode(sourceStart, sourceEnd, targetStart, Distance(targetStart, targetEnd));
}

size_t ConvertUTF16toUTF32(const unsigned short* sourceStart, const unsigned short* sourceEnd,
                           unsigned int* targetStart, unsigned int* targetEnd) {
  return Transcode(sourceStart, sourceEnd, targetStart, Distance(targetStart, targetEnd));
}

size_t ConvertUTF16toUTF8(const unsigned short* sourceStart, const unsigned short* sourceEnd,
                          unsigned char* targetStart, unsigned char* targetEnd) {
  return Transcode(sourceStart, sourceEnd, targetStart, Distance(targetStart, targetEnd));
}

size_t ConvertUTF32toUTF8(const unsigned int* sourceStart, const unsigned int* sourceEnd,
                          unsigned char* targetStart, unsigned char* targetEnd) {
  return Transcode(sourceStart, sourceEnd, targetStart, Distance(targetStart, targetEnd));
}

size_t ConvertUTF8toUTF16(const unsigned char* sourceStart, const unsigned char* sourceEnd,
                          unsigned short* targetStart, unsigned short* targetEnd) {
  return Transcode(sourceStart, sourceEnd, targetStart, Distance(targetStart, targetEnd));
}

size_t ConvertUTF8toUTF32(const unsigned char* sourceStart, const unsigned char* sourceEnd,
                          unsigned int* targetStart, unsigned int* targetEnd) {
  return Transcode(sourceStart, sourceEnd, targetStart, Distance(targetStart, targetEnd));
}

bool IsLegalUTF8(const unsigned char* p, int length) {
  if (p == nullptr || length < 1 || length > 4) return false;
  for (int i = 2; i < length; ++i) {
    if ((p[i] & 0xC0) != 0x80) return false;
  }
  if (length > 1) {
    const unsigned char lowest = p[0] == 0xE0 ? 0xA0 : p[0] == 0xF0 ? 0x90 : 0x80;
    const unsigned char highest = p[0] == 0xED ? 0x9F : p[0] == 0xF4 ? 0x8F : 0xBF;
    if (p[1] < lowest || p[1] > highest) return false;
  }
  // Kept: whether the length is the announced one is the caller's part; C3 of length 1 is legal.
  return p[0] < 0x80 || (p[0] >= 0xC2 && p[0] <= 0xF4);
}

bool IsLegalUTF8Sequence(const unsigned char* start, const unsigned char* end) {
  if (start >= end) return true;
  const int length = *start < 0xC0 ? 1 : *start < 0xE0 ? 2 : *start < 0xF0 ? 3 : 4;
  return end - start >= length && IsLegalUTF8(start, length);
}

size_t UnicodeToUTF8(const wchar_t* source, size_t sourceCount, unsigned char* target,
                     size_t targetCount) {
  return Transcode(source, source + sourceCount, target, targetCount);
}

size_t UTF8ToUnicode(const unsigned char* source, size_t sourceCount, wchar_t* target,
                     size_t targetCount) {
  return Transcode(source, source + sourceCount, target, targetCount);
}

size_t UnicodeToUTF16(const wchar_t* source, size_t sourceCount, unsigned char* target,
                      size_t targetCount) {
  return Transcode(source, source + sourceCount, reinterpret_cast<CUnalignedUnit*>(target),
                   targetCount);
}

size_t UTF16ToUnicode(const unsigned short* source, size_t sourceCount, wchar_t* target,
                      size_t targetCount) {
  return Transcode(source, source + sourceCount, target, targetCount);
}

bool DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(const wchar_t* text, int count) {
  for (int i = 0; i < count; ++i) {
    if (static_cast<unsigned int>(text[i]) > 127) return true;
  }
  return false;
}

bool DoesUTF8StrContainAnyCharsLargerThanOneByte(const unsigned char* text, size_t count) {
  return QvXmlLib16::detail::AsciiLength(reinterpret_cast<const char*>(text), count) != count;
}
