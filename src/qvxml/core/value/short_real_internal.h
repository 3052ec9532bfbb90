// The digits of ordinary floating-point numbers.

#ifndef QVXML_CORE_VALUE_SHORT_REAL_INTERNAL_H_
#define QVXML_CORE_VALUE_SHORT_REAL_INTERNAL_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "qvxml/core/digits_internal.h"

namespace QvXmlLib16::detail {

/// Numbers from 1e-4 up with at least as many digits as stand in front of the point, at most 16:
/// they are found exactly with one multiplication, as the power of five that the value is
/// multiplied by has at most 45 bits.
///
///   value = mantissa * 2^exponent
///   digits = value * 10^shift
///          = mantissa * 5^shift * 2^(exponent + shift), with exponent + shift < 0
class CShortReal {
 public:
  /// `value` is above 0 and in that range.
  CShortReal(double value, int digits) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    m_mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | std::uint64_t{1} << 52;
    m_exponent = static_cast<int>(bits >> 52) - 1075;
    // The logarithm by that to base 2, perhaps one too high.
    m_point = ((m_exponent + 52) * 1233 >> 12) + 1;
    if (!TakeDigits(digits)) {
      --m_point;
      TakeDigits(digits);
    }
    m_count = digits;
    DropZeros();
  }

  /// Writes the text of "%g", which has no exponent here; returns its end.
  char* Write(char* out) const {
    char digits[kMostDigits];
    WriteDigits(digits);
    if (m_point < 0) {
      *out++ = '0';
      *out++ = '.';
      for (int zeros = m_point + 1; zeros != 0; ++zeros) *out++ = '0';
      return Put(out, digits, m_count);
    }
    const int whole = m_point + 1;
    if (m_count <= whole) {
      out = Put(out, digits, m_count);
      for (int zeros = whole - m_count; zeros != 0; --zeros) *out++ = '0';
      return out;
    }
    out = Put(out, digits, whole);
    *out++ = '.';
    return Put(out, digits + whole, m_count - whole);
  }

 private:
  static constexpr int kMostDigits = 16;
  static constexpr std::uint64_t kPowers[] = {1ull,
                                              10ull,
                                              100ull,
                                              1000ull,
                                              10000ull,
                                              100000ull,
                                              1000000ull,
                                              10000000ull,
                                              100000000ull,
                                              1000000000ull,
                                              10000000000ull,
                                              100000000000ull,
                                              1000000000000ull,
                                              10000000000000ull,
                                              100000000000000ull,
                                              1000000000000000ull,
                                              10000000000000000ull};

  // The value as that many digits of which the first is at 10^m_point, half to even; false when
  // there are fewer.
  bool TakeDigits(int digits) {
    static constexpr auto kPowersOfFive = [] {
      std::array<std::uint64_t, 21> powers{1};
      for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 5;
      return powers;
    }();
    __extension__ using Wide = unsigned __int128;
    const int shift = digits - 1 - m_point;
    const Wide product = static_cast<Wide>(m_mantissa) * kPowersOfFive[static_cast<size_t>(shift)];
    const int dropped = -(m_exponent + shift);
    m_digits = static_cast<std::uint64_t>(product >> dropped);
    if (m_digits < kPowers[digits - 1]) return false;
    const Wide rest = product & ((Wide{1} << dropped) - 1);
    const Wide half = Wide{1} << (dropped - 1);
    if (rest > half || (rest == half && m_digits % 2 != 0)) ++m_digits;
    // That may make another digit.
    if (m_digits == kPowers[digits]) {
      m_digits = kPowers[digits - 1];
      ++m_point;
    }
    return true;
  }

  void DropZeros() {
    for (const int zeros : {8, 4, 2, 1}) {
      const std::uint64_t power = kPowers[zeros];
      if (m_count <= zeros || m_digits % power != 0) continue;
      m_digits /= power;
      m_count -= zeros;
    }
  }

  void WriteDigits(char* out) const {
    std::uint64_t left = m_digits;
    int at = m_count;
    for (; at >= 2; left /= 100) {
      at -= 2;
      WriteTwoDigits(out + at, static_cast<unsigned>(left % 100));
    }
    if (at != 0) *out = static_cast<char>('0' + left);
  }

  static char* Put(char* out, const char* digits, int count) {
    std::memcpy(out, digits, static_cast<size_t>(count));
    return out + count;
  }

  std::uint64_t m_mantissa;
  int m_exponent;
  // The power of ten of the first digit.
  int m_point;
  std::uint64_t m_digits;
  int m_count;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_VALUE_SHORT_REAL_INTERNAL_H_
