// Products of magnitudes: by columns for short operands, Karatsuba's recursion for long ones.

#include <algorithm>
#include <utility>

#include "qvxml/types/big_integer_internal.h"

namespace QvXmlLib16::detail {

namespace {

// Measured: from about here on, a level of recursion costs less than the quarter it saves. At most
// 256, or a column's sum could leave 128 bits.
constexpr std::size_t kKaratsubaLimbs = 48;
static_assert(kKaratsubaLimbs <= 256);

// Sums each column of the product before it is reduced to a limb, so there is one division for each
// limb of the result instead of one for each pair of limbs.
void MultiplyByColumns(Limb* product, const Limb* left, std::size_t leftCount, const Limb* right,
                       std::size_t rightCount) {
  WideLimb sum = 0;
  for (std::size_t column = 0; column + 1 < leftCount + rightCount; ++column) {
    const std::size_t first = column < rightCount ? 0 : column - rightCount + 1;
    const std::size_t end = std::min(column + 1, leftCount);
    for (std::size_t index = first; index < end; ++index) {
      sum += WideLimb{left[index]} * right[column - index];
    }
    const Limb high = static_cast<Limb>(sum >> 64);
    const WideLimb rest = (WideLimb{high % kLimbBase} << 64) | static_cast<Limb>(sum);
    const WideLimb carry = WideLimb{high / kLimbBase} << 64;
    sum = carry + SplitLimb(rest, product[column]);
  }
  product[leftCount + rightCount - 1] = static_cast<Limb>(sum);
}

// Stores |left - right| in `leftCount` limbs and returns whether the difference is negative.
// `right` has as many limbs or fewer.
bool StoreDifference(Limb* target, const Limb* left, std::size_t leftCount, const Limb* right,
                     std::size_t rightCount) {
  std::size_t top = leftCount;
  while (top > rightCount && left[top - 1] == 0) --top;
  if (top > rightCount || CompareLimbs(left, right, rightCount) >= 0) {
    std::copy(left, left + leftCount, target);
    SubtractLimbs(target, leftCount, right, rightCount);
    return false;
  }
  std::copy(right, right + rightCount, target);
  std::fill(target + rightCount, target + leftCount, 0);
  SubtractLimbs(target, rightCount, left, rightCount);
  return true;
}

std::size_t GetScratchCount(std::size_t count) {
  std::size_t scratch = 0;
  while (count > kKaratsubaLimbs) {
    count = (count + 1) / 2;
    scratch += 2 * count + 1;
  }
  return scratch;
}

// Turns `middle`, which holds the product of the differences in 2 * half limbs, into the sum of the
// two cross products, one limb longer.
void FinishMiddle(Limb* middle, std::size_t half, const Limb* low, const Limb* high,
                  std::size_t highCount, bool isSubtracted) {
  constexpr std::int64_t kBase = kLimbBase;
  std::int64_t carry = 0;
  for (std::size_t index = 0; index < 2 * half; ++index) {
    const std::int64_t difference = static_cast<std::int64_t>(middle[index]);
    std::int64_t sum = static_cast<std::int64_t>(low[index]) + carry;
    if (index < highCount) sum += static_cast<std::int64_t>(high[index]);
    sum += isSubtracted ? -difference : difference;
    // From -kBase to 3 * kBase - 1; as good as random, so branches would stall.
    carry = static_cast<std::int64_t>(sum >= 0) + (sum >= kBase) + (sum >= 2 * kBase) - 1;
    sum -= carry * kBase;
    middle[index] = static_cast<Limb>(sum);
  }
  middle[2 * half] = static_cast<Limb>(carry);
}

// Both operands have `count` limbs. Each is split into a low half, rounded up, and a high one;
// three products of halves make up the four that the schoolbook needs.
void MultiplyBalanced(Limb* product, const Limb* left, const Limb* right, std::size_t count,
                      Limb* scratch) {
  if (count <= kKaratsubaLimbs) return MultiplyByColumns(product, left, count, right, count);
  const std::size_t half = (count + 1) / 2;
  const std::size_t rest = count - half;
  Limb* const middle = scratch;
  Limb* const deeper = scratch + 2 * half + 1;

  // The place of the low product is free until the product of the differences has been taken.
  const bool isLeftNegative = StoreDifference(product, left, half, left + half, rest);
  const bool isRightNegative = StoreDifference(product + half, right, half, right + half, rest);
  MultiplyBalanced(middle, product, product + half, half, deeper);

  MultiplyBalanced(product, left, right, half, deeper);
  MultiplyBalanced(product + 2 * half, left + half, right + half, rest, deeper);
  FinishMiddle(middle, half, product, product + 2 * half, 2 * rest,
               isLeftNegative == isRightNegative);
  AddLimbs(product + half, 2 * count - half, middle, 2 * half + 1);
}

}  // namespace

void MultiplyLimbs(Limb* product, const Limb* left, std::size_t leftCount, const Limb* right,
                   std::size_t rightCount) {
  if (leftCount < rightCount) {
    std::swap(left, right);
    std::swap(leftCount, rightCount);
  }
  if (rightCount == 0) {
    std::fill(product, product + leftCount, 0);
    return;
  }
  if (rightCount <= kKaratsubaLimbs) {
    return MultiplyByColumns(product, left, leftCount, right, rightCount);
  }

  // The longer operand is taken in pieces as long as the shorter one. The piece left over swaps the
  // roles, so the depth of this recursion is that of Euclid's algorithm.
  std::vector<Limb> memory(GetScratchCount(rightCount) + 2 * rightCount);
  Limb* const piece = memory.data();
  Limb* const scratch = piece + 2 * rightCount;
  std::fill(product, product + leftCount + rightCount, 0);
  std::size_t offset = 0;
  for (; offset + rightCount <= leftCount; offset += rightCount) {
    MultiplyBalanced(piece, left + offset, right, rightCount, scratch);
    AddLimbs(product + offset, leftCount + rightCount - offset, piece, 2 * rightCount);
  }
  if (offset < leftCount) {
    const std::size_t restCount = leftCount - offset;
    MultiplyLimbs(piece, right, rightCount, left + offset, restCount);
    AddLimbs(product + offset, restCount + rightCount, piece, restCount + rightCount);
  }
}

}  // namespace QvXmlLib16::detail
