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
  /// Octets that Write touches at most, of which it means fewer.
  static constexpr size_t kRoom = 33;

  /// `value` is above 0 and in that range, and below 10^15.
  CShortReal(double value, int digits) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    m_mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | std::uint64_t{1} << 52;
    m_exponent = static_cast<int>(bits >> 52) - 1075;
    // The logarithm by that to base 2, perhaps one too low.
    m_point = (m_exponent + 52) * 1233 >> 12;
    if (value >= PowerOfTen(m_point + 1)) ++m_point;
    TakeDigits(digits);
  }

  /// Writes the text of "%g", which has no exponent here; returns its end.
  char* Write(char* out) const {
    // The second half is copied, but never kept: copies of one length need no call.
    char digits[2 * kMostDigits];
    WriteEightDigits(digits, static_cast<std::uint32_t>(m_digits / kPowers[8]));
    WriteEightDigits(digits + 8, static_cast<std::uint32_t>(m_digits % kPowers[8]));
    int count = kMostDigits;
    while (digits[count - 1] == '0') --count;
    if (m_point < 0) {
      static constexpr char kZeros[] = {'0', '.', '0', '0', '0', '0'};
      std::memcpy(out, kZeros, sizeof kZeros);
      out += 1 - m_point;
      std::memcpy(out, digits, kMostDigits);
      return out + count;
    }
    const int whole = m_point + 1;
    std::memcpy(out, digits, kMostDigits);
    if (count <= whole) return out + whole;
    out += whole;
    *out++ = '.';
    std::memcpy(out, digits + whole, kMostDigits);
    return out + count - whole;
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

  // From -4 to 15. The doubles nearest to the fractions are not below them, so that comparing with
  // a double is comparing with the power.
  static double PowerOfTen(int power) {
    static constexpr double kFrom[] = {1e-4, 1e-3, 1e-2, 1e-1, 1e0,  1e1,  1e2,  1e3,  1e4,  1e5,
                                       1e6,  1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    return kFrom[power + 4];
  }

  // Takes the value as that many digits, of which the first is at 10^m_point, half to even.
  void TakeDigits(int digits) {
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
    const Wide rest = product & ((Wide{1} << dropped) - 1);
    const Wide half = Wide{1} << (dropped - 1);
    if (rest > half || (rest == half && m_digits % 2 != 0)) ++m_digits;
    // That may make another digit.
    if (m_digits == kPowers[digits]) {
      m_digits = kPowers[digits - 1];
      ++m_point;
    }
    m_digits *= kPowers[kMostDigits - digits];
  }

  static void WriteEightDigits(char* out, std::uint32_t number) {
    const std::uint32_t high = number / 10000;
    const std::uint32_t low = number % 10000;
    WriteTwoDigits(out, high / 100);
    WriteTwoDigits(out + 2, high % 100);
    WriteTwoDigits(out + 4, low / 100);
    WriteTwoDigits(out + 6, low % 100);
  }

  std::uint64_t m_mantissa;
  int m_exponent;
  // The power of ten of the first digit.
  int m_point;
  // Filled up to kMostDigits digits.
  std::uint64_t m_digits;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_VALUE_SHORT_REAL_INTERNAL_H_
