// Arithmetic on magnitudes in base 10^18: arrays of limbs, the least significant one first.
//
// Ten to the eighteenth is the greatest power of ten that leaves room in 64 bits for the sums that
// occur here, and a decimal base makes text and powers of ten linear. Products are summed in 128
// bits, which hold 340 of them.

#ifndef QVXML_TYPES_BIG_INTEGER_INTERNAL_H_
#define QVXML_TYPES_BIG_INTEGER_INTERNAL_H_

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "qvxml/core/digits_internal.h"

namespace QvXmlLib16::detail {

using Limb = std::uint64_t;

/// Throws when the exponent exceeds the exponent limit.
void CheckPowerOfTen(std::size_t exponent);

/// Greatest exponent in the text of a decimal.
unsigned int TextExponentLimit() noexcept;
/// `position` is that of the first digit too many.
[[noreturn]] void ThrowTooManyDigits(const char* typeName, std::size_t limit, std::size_t position);

__extension__ typedef unsigned __int128 WideLimb;

inline constexpr std::size_t kLimbDigits = 18;
inline constexpr Limb kLimbBase = 1'000'000'000'000'000'000;

inline constexpr std::array<Limb, kLimbDigits + 1> kPowersOfTen = [] {
  std::array<Limb, kLimbDigits + 1> powers{};
  Limb power = 1;
  for (Limb& entry : powers) {
    entry = power;
    power *= 10;
  }
  return powers;
}();

/// Divides by one number many times, with a multiplication by its reciprocal instead of the
/// machine's slow division (Moeller and Granlund, "Improved division by invariant integers",
/// algorithm 4).
class CLimbDivider {
 public:
  /// `divisor` is from 1 to kLimbBase, so the shift is never 0.
  constexpr explicit CLimbDivider(Limb divisor)
      : m_shift(std::countl_zero(divisor)),
        m_divisor(divisor << m_shift),
        m_reciprocal(static_cast<Limb>(~WideLimb{0} / m_divisor)) {}

  /// The quotient of `dividend`, which is less than 2^64 times the divisor.
  constexpr Limb Divide(WideLimb dividend, Limb& remainder) const {
    const WideLimb shifted = dividend << m_shift;
    const Limb high = static_cast<Limb>(shifted >> 64);
    const Limb low = static_cast<Limb>(shifted);
    const WideLimb estimate = WideLimb{m_reciprocal} * high + shifted;
    Limb quotient = static_cast<Limb>(estimate >> 64) + 1;
    Limb rest = low - quotient * m_divisor;
    if (rest > static_cast<Limb>(estimate)) {
      --quotient;
      rest += m_divisor;
    }
    if (rest >= m_divisor) [[unlikely]] {
      ++quotient;
      rest -= m_divisor;
    }
    remainder = rest >> m_shift;
    return quotient;
  }

 private:
  int m_shift;
  Limb m_divisor;
  Limb m_reciprocal;
};

/// Stores the lowest limb of `value`, which is less than 2^64 * kLimbBase, and returns the rest.
inline Limb SplitLimb(WideLimb value, Limb& low) {
  constexpr CLimbDivider kDivider(kLimbBase);
  return kDivider.Divide(value, low);
}

/// Number of decimal digits of a limb; 1 for zero.
inline std::size_t CountDigits(Limb limb) {
  // The logarithm by that to base 2, one too low at the most: 1233 / 4096 is just above log10(2).
  const std::size_t bits = static_cast<std::size_t>(std::bit_width(limb | 1));
  const std::size_t count = bits * 1233 >> 12;
  return count + (limb >= kPowersOfTen[count] ? 1 : 0) + (limb == 0 ? 1 : 0);
}

/// Writes the lowest `count` digits of a limb in front of `end` and returns where they begin.
inline char* WriteLimb(char* end, Limb limb, std::size_t count) {
  for (; count >= 2; count -= 2) {
    end -= 2;
    WriteTwoDigits(end, static_cast<unsigned>(limb % 100));
    limb /= 100;
  }
  if (count != 0) *--end = static_cast<char>('0' + limb % 10);
  return end;
}

/// -1, 0 or 1 for two magnitudes of `count` limbs.
int CompareLimbs(const Limb* left, const Limb* right, std::size_t count);
/// Adds to `target` in place and returns the carry; `addendCount` is at most `count`.
Limb AddLimbs(Limb* target, std::size_t count, const Limb* addend, std::size_t addendCount);
/// Subtracts from `target` in place and returns the borrow; `count` as in AddLimbs.
Limb SubtractLimbs(Limb* target, std::size_t count, const Limb* subtrahend,
                   std::size_t subtrahendCount);
/// Multiplies in place by a factor below kLimbBase and returns the limb that is carried out.
Limb MultiplyByLimb(Limb* limbs, std::size_t count, Limb factor);
/// Divides in place and returns the remainder.
Limb DivideByLimb(Limb* limbs, std::size_t count, const CLimbDivider& divider);

/// Stores the product in leftCount + rightCount limbs, which overlap neither operand.
void MultiplyLimbs(Limb* product, const Limb* left, std::size_t leftCount, const Limb* right,
                   std::size_t rightCount);
/// Divides by a divisor of at least two limbs without leading zeros. `dividend` is left holding the
/// remainder; `divisor` is changed; the quotient is returned, perhaps with leading zeros.
std::vector<Limb> DivideLimbs(std::vector<Limb>& dividend, std::vector<Limb>& divisor);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_TYPES_BIG_INTEGER_INTERNAL_H_
