// Decimal digits to numbers, eight characters at a time, and back, two at a time.

#ifndef QVXML_CORE_DIGITS_INTERNAL_H_
#define QVXML_CORE_DIGITS_INTERNAL_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace QvXmlLib16::detail {

inline bool IsDigit(char character) { return character >= '0' && character <= '9'; }

inline constexpr std::uint64_t kEveryByte = 0x0101010101010101u;

/// True when the eight bytes are digits: the high half of each is 3, also after adding 6.
inline bool AreDigits(std::uint64_t bytes) {
  return ((bytes | (bytes + 0x06 * kEveryByte)) & 0xF0 * kEveryByte) == 0x30 * kEveryByte &&
         (bytes & 0xF0 * kEveryByte) == 0x30 * kEveryByte;
}

/// Value of eight digits, the first in the lowest byte: joins pairs, then fours, then all.
inline std::uint64_t DigitsValue(std::uint64_t bytes) {
  bytes -= 0x30 * kEveryByte;
  bytes = bytes * 10 + (bytes >> 8);
  const std::uint64_t highPairs = (bytes & 0x000000FF000000FFu) * (100 + (1000000ull << 32));
  const std::uint64_t lowPairs = ((bytes >> 16) & 0x000000FF000000FFu) * (1 + (10000ull << 32));
  return (highPairs + lowPairs) >> 32;
}

/// `count` characters, 1 to 8, behind as many "0" as make eight; the first in the lowest byte. Does
/// not depend on the count by more than one branch: the lengths of numbers are hard to predict.
inline std::uint64_t LoadDigits(const char* text, std::size_t count) {
  std::uint64_t bytes = 0;
  if (count >= 4) {
    std::uint32_t first;
    std::uint32_t last;
    std::memcpy(&first, text, sizeof first);
    std::memcpy(&last, text + count - 4, sizeof last);
    bytes = first | std::uint64_t{last} << 8 * (count - 4);
  } else {
    const auto byteAt = [text](std::size_t index) {
      return static_cast<std::uint64_t>(static_cast<unsigned char>(text[index])) << 8 * index;
    };
    bytes = byteAt(0) | byteAt(count / 2) | byteAt(count - 1);
  }
  return bytes << 8 * (8 - count) | (0x30 * kEveryByte & ~(~std::uint64_t{0} << 8 * (8 - count)));
}

inline constexpr std::size_t kMaxShortDigits = 18;

/// Reads text that is nothing but 1 to 18 digits.
inline bool ReadShortNumber(std::string_view text, std::uint64_t& number) {
  if (text.empty() || text.size() > kMaxShortDigits) return false;
  const char* position = text.data();
  std::size_t left = text.size();
  number = 0;
  for (std::size_t count = (left - 1) % 8 + 1; left != 0; count = 8) {
    const std::uint64_t bytes = LoadDigits(position, count);
    if (!AreDigits(bytes)) return false;
    number = number * 100000000 + DigitsValue(bytes);
    position += count;
    left -= count;
  }
  return true;
}

inline constexpr auto kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t number = 0; number < 100; ++number) {
    pairs[2 * number] = static_cast<char>('0' + number / 10);
    pairs[2 * number + 1] = static_cast<char>('0' + number % 10);
  }
  return pairs;
}();

/// Writes a number below 100 as two digits.
inline char* WriteTwoDigits(char* out, unsigned number) {
  std::memcpy(out, &kDigitPairs[std::size_t{2} * number], 2);
  return out + 2;
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_DIGITS_INTERNAL_H_
