// Addition, subtraction and quotients of magnitudes.
//
// Long division is Knuth's algorithm D for few quotient limbs. For many, the quotient is found in
// two halves from the upper part of the divisor, each then corrected by the lower part (Burnikel
// and Ziegler, "Fast Recursive Division"), which leaves nearly all work to the multiplication.

#include <algorithm>

#include "qvxml/types/big_integer_internal.h"

namespace QvXmlLib16::detail {

namespace {

// Measured: quotients of fewer limbs are faster one limb at a time.
constexpr std::size_t kRecursiveQuotientLimbs = 24;

// The base for 1 and 0 for 0, by a mask: carries are as good as random, and branches would stall.
Limb BaseIf(Limb carry) { return kLimbBase & (0 - carry); }

// Subtracts divisor * factor from as many limbs and returns what is still to be taken from the
// next. The products are split before carries are added, so that the processor can overlap them.
Limb SubtractProduct(Limb* target, const Limb* divisor, std::size_t count, Limb factor) {
  constexpr std::int64_t kBase = kLimbBase;
  Limb high = 0;
  std::int64_t borrow = 0;
  for (std::size_t index = 0; index < count; ++index) {
    Limb low = 0;
    const Limb nextHigh = SplitLimb(WideLimb{divisor[index]} * factor, low);
    // From -2 * kBase + 1 to kBase - 1.
    const std::int64_t difference = static_cast<std::int64_t>(target[index] - low - high) - borrow;
    borrow = static_cast<std::int64_t>(difference < 0) + (difference < -kBase);
    target[index] = static_cast<Limb>(difference + borrow * kBase);
    high = nextHigh;
  }
  return high + static_cast<Limb>(borrow);
}

// At most one too large: the top limb of the divisor is at least half the base.
Limb EstimateQuotientLimb(const Limb* dividend, const Limb* divisor, std::size_t count,
                          const CLimbDivider& topDivider) {
  const Limb top = divisor[count - 1];
  const WideLimb head = WideLimb{dividend[count]} * kLimbBase + dividend[count - 1];
  Limb rest = 0;
  Limb quotient = kLimbBase - 1;
  if (dividend[count] < top) {
    quotient = topDivider.Divide(head, rest);
  } else {
    rest = static_cast<Limb>(head - WideLimb{quotient} * top);
  }
  while (rest < kLimbBase && WideLimb{quotient} * divisor[count - 2] >
                                 WideLimb{rest} * kLimbBase + dividend[count - 2]) {
    --quotient;
    rest += top;
  }
  return quotient;
}

Limb TakeQuotientLimb(Limb* dividend, const Limb* divisor, std::size_t count,
                      const CLimbDivider& topDivider) {
  Limb quotient = EstimateQuotientLimb(dividend, divisor, count, topDivider);
  if (dividend[count] < SubtractProduct(dividend, divisor, count, quotient)) {
    --quotient;
    AddLimbs(dividend, count, divisor, count);
  }
  dividend[count] = 0;
  return quotient;
}

Limb SubtractIfNotLess(Limb* target, const Limb* subtrahend, std::size_t count) {
  if (CompareLimbs(target, subtrahend, count) < 0) return 0;
  SubtractLimbs(target, count, subtrahend, count);
  return 1;
}

// The divisions below share a contract. `dividend` has quotientCount + count limbs, `divisor` has
// `count`, at least two, the top one at least half the base. The remainder replaces the dividend,
// and the limb above the quotient, 0 or 1, is returned.

Limb DivideByLimbs(Limb* quotient, std::size_t quotientCount, Limb* dividend, const Limb* divisor,
                   std::size_t count) {
  const Limb above = SubtractIfNotLess(dividend + quotientCount, divisor, count);
  const CLimbDivider topDivider(divisor[count - 1]);
  for (std::size_t index = quotientCount; index-- > 0;) {
    quotient[index] = TakeQuotientLimb(dividend + index, divisor, count, topDivider);
  }
  return above;
}

Limb DivideRecursively(Limb* quotient, std::size_t quotientCount, Limb* dividend,
                       const Limb* divisor, std::size_t count);

// One half of the quotient: divides by the divisor without its `lowCount` lowest limbs, then takes
// into account what those would have subtracted. Here the limb above the quotient is always 0.
void DivideHalf(Limb* quotient, std::size_t quotientCount, Limb* dividend, const Limb* divisor,
                std::size_t count, std::size_t lowCount) {
  Limb above = DivideRecursively(quotient, quotientCount, dividend + lowCount, divisor + lowCount,
                                 count - lowCount);
  std::vector<Limb> product(quotientCount + lowCount);
  MultiplyLimbs(product.data(), quotient, quotientCount, divisor, lowCount);
  Limb borrow = SubtractLimbs(dividend, count, product.data(), product.size());
  if (above != 0) {
    borrow += SubtractLimbs(dividend + quotientCount, count - quotientCount, divisor, lowCount);
  }
  constexpr Limb kOne = 1;
  while (borrow != 0) {
    SubtractLimbs(quotient, quotientCount, &kOne, 1);
    borrow -= AddLimbs(dividend, count, divisor, count);
  }
}

// `quotientCount` is at most `count`.
Limb DivideRecursively(Limb* quotient, std::size_t quotientCount, Limb* dividend,
                       const Limb* divisor, std::size_t count) {
  if (quotientCount < kRecursiveQuotientLimbs) {
    return DivideByLimbs(quotient, quotientCount, dividend, divisor, count);
  }
  const Limb above = SubtractIfNotLess(dividend + quotientCount, divisor, count);
  const std::size_t low = quotientCount / 2;
  DivideHalf(quotient + low, quotientCount - low, dividend + low, divisor, count, low);
  DivideHalf(quotient, low, dividend, divisor, count, low);
  return above;
}

}  // namespace

int CompareLimbs(const Limb* left, const Limb* right, std::size_t count) {
  for (std::size_t index = count; index-- > 0;) {
    if (left[index] != right[index]) return left[index] < right[index] ? -1 : 1;
  }
  return 0;
}

Limb AddLimbs(Limb* target, std::size_t count, const Limb* addend, std::size_t addendCount) {
  Limb carry = 0;
  for (std::size_t index = 0; index < addendCount; ++index) {
    const Limb sum = target[index] + addend[index] + carry;
    carry = sum >= kLimbBase ? 1 : 0;
    target[index] = sum - BaseIf(carry);
  }
  for (std::size_t index = addendCount; carry != 0 && index < count; ++index) {
    carry = target[index] == kLimbBase - 1 ? 1 : 0;
    target[index] = carry != 0 ? 0 : target[index] + 1;
  }
  return carry;
}

Limb SubtractLimbs(Limb* target, std::size_t count, const Limb* subtrahend,
                   std::size_t subtrahendCount) {
  Limb borrow = 0;
  for (std::size_t index = 0; index < subtrahendCount; ++index) {
    const Limb taken = subtrahend[index] + borrow;
    const Limb left = target[index];
    borrow = left < taken ? 1 : 0;
    target[index] = left - taken + BaseIf(borrow);
  }
  for (std::size_t index = subtrahendCount; borrow != 0 && index < count; ++index) {
    borrow = target[index] == 0 ? 1 : 0;
    target[index] = borrow != 0 ? kLimbBase - 1 : target[index] - 1;
  }
  return borrow;
}

Limb MultiplyByLimb(Limb* limbs, std::size_t count, Limb factor) {
  Limb carry = 0;
  for (std::size_t index = 0; index < count; ++index) {
    carry = SplitLimb(WideLimb{limbs[index]} * factor + carry, limbs[index]);
  }
  return carry;
}

Limb DivideByLimb(Limb* limbs, std::size_t count, const CLimbDivider& divider) {
  Limb remainder = 0;
  for (std::size_t index = count; index-- > 0;) {
    limbs[index] = divider.Divide(WideLimb{remainder} * kLimbBase + limbs[index], remainder);
  }
  return remainder;
}

std::vector<Limb> DivideLimbs(std::vector<Limb>& dividend, std::vector<Limb>& divisor) {
  const std::size_t count = divisor.size();
  if (dividend.size() < count) return {};
  // Both are scaled until the top limb of the divisor is large enough for good estimates.
  const Limb scale = kLimbBase / (divisor.back() + 1);
  MultiplyByLimb(divisor.data(), count, scale);
  dividend.push_back(0);
  dividend.back() = MultiplyByLimb(dividend.data(), dividend.size() - 1, scale);

  std::vector<Limb> quotient(dividend.size() - count);
  // From the top in pieces as long as the divisor; the first piece takes what is left over.
  std::size_t done = quotient.size();
  std::size_t piece = done % count == 0 ? count : done % count;
  while (done != 0) {
    done -= piece;
    DivideRecursively(quotient.data() + done, piece, dividend.data() + done, divisor.data(), count);
    piece = count;
  }
  dividend.resize(count);
  DivideByLimb(dividend.data(), count, CLimbDivider(scale));
  return quotient;
}

}  // namespace QvXmlLib16::detail
