// Values, arithmetic and order; text and limits are in big_integer_text.cpp, the work on magnitudes
// in big_integer_multiply.cpp and big_integer_divide.cpp.

#include "qvxml/types/big_integer.h"

#include <algorithm>
#include <climits>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include "qvxml/core/exception.h"
#include "qvxml/types/big_integer_internal.h"

namespace QvXmlLib16 {

using detail::kLimbBase;
using detail::kLimbDigits;
using detail::kPowersOfTen;
using detail::Limb;
using detail::WideLimb;

constinit CInstanceCounter CBigInteger::s_instances("CBigInteger");

// Decimals and generated objects hold many of them.
static_assert(sizeof(CBigInteger) == 24);

namespace {

WideLimb GetInlineMagnitude(const Limb (&limbs)[2]) {
  return WideLimb{limbs[1]} * kLimbBase + limbs[0];
}

}  // namespace

CBigInteger::CBigInteger(long long value)
    : CBigInteger(value < 0 ? 0 - static_cast<unsigned long long>(value)
                            : static_cast<unsigned long long>(value)) {
  m_isNegative = value < 0;
}

CBigInteger::CBigInteger(unsigned long long value) {
  SetInline(value % kLimbBase, value / kLimbBase, false);
}

void CBigInteger::CopyHeapLimbs(const CBigInteger& other) {
  // Nothing here to release if there is no memory: this one is under construction.
  Limb* const limbs = new Limb[other.m_limbCount];
  std::copy(other.GetLimbs(), other.GetLimbs() + other.m_limbCount, limbs);
  m_storage.heap = {limbs, other.m_limbCount};
}

// The limbs may have leading zeros; they must not be this value's own.
void CBigInteger::AssignLimbs(const Limb* limbs, std::size_t count, bool isNegative) {
  CBigInteger value;
  value.Widen(count);
  std::copy(limbs, limbs + count, value.GetLimbs());
  value.m_isNegative = isNegative;
  value.Trim();
  *this = std::move(value);
}

// Gives the magnitude at least as many limbs, the new ones zero, to be filled and trimmed.
void CBigInteger::Widen(std::size_t limbCount) {
  if (limbCount <= m_limbCount) return;
  const std::size_t capacity = IsInline() ? kInlineLimbs : m_storage.heap.capacity;
  if (limbCount > capacity) {
    if (limbCount > std::numeric_limits<std::uint32_t>::max()) {
      throw std::length_error("CBigInteger");
    }
    const std::size_t newCapacity = IsInline() ? limbCount : std::max(limbCount, 2 * capacity);
    Limb* const limbs = new Limb[newCapacity];
    std::copy(GetLimbs(), GetLimbs() + m_limbCount, limbs);
    ReleaseLimbs();
    m_storage.heap = {limbs, newCapacity};
    std::fill(limbs + m_limbCount, limbs + limbCount, 0);
  } else if (limbCount > kInlineLimbs) {
    std::fill(m_storage.heap.limbs + m_limbCount, m_storage.heap.limbs + limbCount, 0);
  }
  m_limbCount = static_cast<std::uint32_t>(limbCount);
}

// Makes a value again of limbs that may have leading zeros.
void CBigInteger::Trim() noexcept {
  const Limb* const limbs = GetLimbs();
  std::size_t count = m_limbCount;
  while (count != 0 && limbs[count - 1] == 0) --count;
  if (count <= kInlineLimbs) {
    SetInline(count != 0 ? limbs[0] : 0, count > 1 ? limbs[1] : 0, m_isNegative);
  } else {
    m_limbCount = static_cast<std::uint32_t>(count);
  }
}

CBigInteger CBigInteger::GetAbs() const {
  CBigInteger magnitude(*this);
  magnitude.m_isNegative = false;
  return magnitude;
}

std::size_t CBigInteger::GetDigitCount() const noexcept {
  if (IsOneLimb()) return detail::CountDigits(GetLimb());
  return (m_limbCount - 1) * kLimbDigits + detail::CountDigits(GetLimbs()[m_limbCount - 1]);
}

std::size_t CBigInteger::GetTrailingZeroCount() const noexcept {
  if (IsZero()) return 0;
  const Limb* limbs = GetLimbs();
  std::size_t zeroLimbs = 0;
  while (limbs[zeroLimbs] == 0) ++zeroLimbs;
  std::size_t count = 0;
  for (Limb limb = limbs[zeroLimbs]; limb % 10 == 0; limb /= 10) ++count;
  return zeroLimbs * kLimbDigits + count;
}

int CBigInteger::CompareMagnitude(const CBigInteger& other) const noexcept {
  if (m_limbCount != other.m_limbCount) return m_limbCount < other.m_limbCount ? -1 : 1;
  return detail::CompareLimbs(GetLimbs(), other.GetLimbs(), m_limbCount);
}

int CBigInteger::Compare(const CBigInteger& other) const noexcept {
  if (m_isNegative != other.m_isNegative) return m_isNegative ? -1 : 1;
  const int order = CompareMagnitude(other);
  return m_isNegative ? -order : order;
}

bool CBigInteger::FitsLongLong() const noexcept {
  return IsInline() && GetInlineMagnitude(m_storage.limbs) <=
                           static_cast<WideLimb>(LLONG_MAX) + (m_isNegative ? 1 : 0);
}

long CBigInteger::ToLong() const {
  static_assert(sizeof(long) == sizeof(long long));
  if (!FitsLongLong()) {
    throw CQvOverFlowException("The Big Integer value if to large to fit into a LONG");
  }
  return static_cast<long>(ToLongLong());
}

long long CBigInteger::ToLongLong() const {
  if (!FitsLongLong()) {
    throw CQvOverFlowException("The Big Integer value if to large to fit into a LONGLONG");
  }
  const Limb magnitude = static_cast<Limb>(GetInlineMagnitude(m_storage.limbs));
  return static_cast<long long>(m_isNegative ? 0 - magnitude : magnitude);
}

CBigInteger& CBigInteger::Negate() noexcept {
  m_isNegative = !m_isNegative && !IsZero();
  return *this;
}

CBigInteger CBigInteger::operator-() const {
  CBigInteger negated(*this);
  negated.Negate();
  return negated;
}

CBigInteger CBigInteger::operator++(int) {
  CBigInteger before(*this);
  ++*this;
  return before;
}

CBigInteger CBigInteger::operator--(int) {
  CBigInteger before(*this);
  --*this;
  return before;
}

CBigInteger& CBigInteger::AddSigned(const CBigInteger& other, bool isOtherNegative) {
  if (other.IsZero()) return *this;
  if (IsZero()) {
    *this = other;
    m_isNegative = isOtherNegative;
  } else if (m_isNegative == isOtherNegative) {
    AddMagnitude(other);
  } else {
    SubtractMagnitude(other);
  }
  return *this;
}

void CBigInteger::AddMagnitude(const CBigInteger& other) {
  if (IsInline() && other.IsInline()) {
    const Limb low = m_storage.limbs[0] + other.m_storage.limbs[0];
    const Limb carry = low >= kLimbBase ? 1 : 0;
    const Limb high = m_storage.limbs[1] + other.m_storage.limbs[1] + carry;
    if (high < kLimbBase) return SetInline(low - carry * kLimbBase, high, m_isNegative);
  }
  const std::size_t otherCount = other.m_limbCount;
  const std::size_t count = std::max<std::size_t>(m_limbCount, otherCount);
  Limb topSum = 1;
  if (m_limbCount == count) topSum += GetLimbs()[count - 1];
  if (otherCount == count) topSum += other.GetLimbs()[count - 1];
  // Room for a carry only where there may be one: growing a full array copies it.
  Widen(topSum >= kLimbBase ? count + 1 : count);
  detail::AddLimbs(GetLimbs(), m_limbCount, other.GetLimbs(), otherCount);
  Trim();
}

void CBigInteger::SubtractMagnitude(const CBigInteger& other) {
  const int order = CompareMagnitude(other);
  if (order < 0) {
    CBigInteger difference(other);
    detail::SubtractLimbs(difference.GetLimbs(), difference.m_limbCount, GetLimbs(), m_limbCount);
    difference.m_isNegative = !m_isNegative;
    difference.Trim();
    *this = std::move(difference);
  } else {
    detail::SubtractLimbs(GetLimbs(), m_limbCount, other.GetLimbs(), other.m_limbCount);
    Trim();
  }
}

CBigInteger operator+(const CBigInteger& left, const CBigInteger& right) {
  CBigInteger sum(left);
  sum += right;
  return sum;
}

CBigInteger operator-(const CBigInteger& left, const CBigInteger& right) {
  CBigInteger difference(left);
  difference -= right;
  return difference;
}

CBigInteger operator*(const CBigInteger& left, const CBigInteger& right) {
  CBigInteger product;
  const bool isNegative = left.m_isNegative != right.m_isNegative;
  if (left.IsOneLimb() && right.IsOneLimb()) {
    Limb low = 0;
    const Limb high = detail::SplitLimb(WideLimb{left.GetLimb()} * right.GetLimb(), low);
    product.SetInline(low, high, isNegative);
  } else if (!left.IsZero() && !right.IsZero()) {
    product.Widen(std::size_t{left.m_limbCount} + right.m_limbCount);
    detail::MultiplyLimbs(product.GetLimbs(), left.GetLimbs(), left.m_limbCount, right.GetLimbs(),
                          right.m_limbCount);
    product.m_isNegative = isNegative;
    product.Trim();
  }
  return product;
}

CBigInteger operator/(const CBigInteger& left, const CBigInteger& right) {
  CBigInteger quotient;
  CBigInteger::Divide(left, right, &quotient, nullptr);
  return quotient;
}

CBigInteger operator%(const CBigInteger& left, const CBigInteger& right) {
  CBigInteger remainder;
  CBigInteger::Divide(left, right, nullptr, &remainder);
  return remainder;
}

CBigInteger& CBigInteger::operator*=(const CBigInteger& other) { return *this = *this * other; }

CBigInteger& CBigInteger::operator/=(const CBigInteger& other) {
  Divide(*this, other, this, nullptr);
  return *this;
}

CBigInteger& CBigInteger::operator%=(const CBigInteger& other) {
  Divide(*this, other, nullptr, this);
  return *this;
}

void CBigInteger::Divide(const CBigInteger& dividend, const CBigInteger& divisor,
                         CBigInteger* quotient, CBigInteger* remainder) {
  if (divisor.IsZero()) throw CQvInvalidValueException("Division by zero");
  // Built apart, because the results may be the operands.
  CBigInteger wholes;
  CBigInteger rest;
  if (dividend.CompareMagnitude(divisor) < 0) {
    rest = dividend;
  } else if (dividend.IsInline()) {
    DivideInline(dividend, divisor, wholes, rest);
  } else if (divisor.IsOneLimb()) {
    DivideByLimb(dividend, divisor.GetLimb(), wholes, rest);
  } else {
    DivideByLong(dividend, divisor, wholes, rest);
  }
  wholes.m_isNegative = dividend.m_isNegative != divisor.m_isNegative && !wholes.IsZero();
  rest.m_isNegative = dividend.m_isNegative && !rest.IsZero();
  if (quotient != nullptr) *quotient = std::move(wholes);
  if (remainder != nullptr) *remainder = std::move(rest);
}

void CBigInteger::DivideInline(const CBigInteger& dividend, const CBigInteger& divisor,
                               CBigInteger& quotient, CBigInteger& remainder) noexcept {
  if (dividend.IsOneLimb()) {
    quotient.SetInline(dividend.GetLimb() / divisor.GetLimb(), 0, false);
    remainder.SetInline(dividend.GetLimb() % divisor.GetLimb(), 0, false);
    return;
  }
  const WideLimb whole = GetInlineMagnitude(dividend.m_storage.limbs);
  const WideLimb part = GetInlineMagnitude(divisor.m_storage.limbs);
  const WideLimb result = whole / part;
  Limb low = 0;
  Limb high = detail::SplitLimb(result, low);
  quotient.SetInline(low, high, false);
  high = detail::SplitLimb(whole - result * part, low);
  remainder.SetInline(low, high, false);
}

void CBigInteger::DivideByLimb(const CBigInteger& dividend, Limb divisor, CBigInteger& quotient,
                               CBigInteger& remainder) {
  quotient = dividend;
  remainder.SetInline(detail::DivideByLimb(quotient.GetLimbs(), quotient.m_limbCount,
                                           detail::CLimbDivider(divisor)),
                      0, false);
  quotient.Trim();
}

void CBigInteger::DivideByLong(const CBigInteger& dividend, const CBigInteger& divisor,
                               CBigInteger& quotient, CBigInteger& remainder) {
  std::vector<Limb> rest;
  rest.reserve(std::size_t{dividend.m_limbCount} + 1);
  rest.assign(dividend.GetLimbs(), dividend.GetLimbs() + dividend.m_limbCount);
  std::vector<Limb> scaledDivisor(divisor.GetLimbs(), divisor.GetLimbs() + divisor.m_limbCount);
  const std::vector<Limb> wholes = detail::DivideLimbs(rest, scaledDivisor);
  quotient.AssignLimbs(wholes.data(), wholes.size(), false);
  remainder.AssignLimbs(rest.data(), rest.size(), false);
}

CBigInteger& CBigInteger::MultiplyByPow10(std::size_t exponent) {
  if (!IsZero()) detail::CheckPowerOfTen(exponent);
  return Shift(exponent);
}

// The same without a limit: the scales of decimals are limited where they come in.
CBigInteger& CBigInteger::Shift(std::size_t exponent) {
  if (IsZero() || exponent == 0) return *this;
  const std::size_t shift = exponent / kLimbDigits;
  const Limb factor = kPowersOfTen[exponent % kLimbDigits];
  if (IsOneLimb() && shift == 0) {
    Limb low = 0;
    const Limb high = detail::SplitLimb(WideLimb{GetLimb()} * factor, low);
    SetInline(low, high, m_isNegative);
    return *this;
  }
  const std::size_t count = m_limbCount;
  const bool mayCarry = WideLimb{GetLimbs()[count - 1] + 1} * factor > kLimbBase;
  CBigInteger scaled;
  scaled.Widen(count + shift + (mayCarry ? 1 : 0));
  Limb* const limbs = scaled.GetLimbs() + shift;
  std::copy(GetLimbs(), GetLimbs() + count, limbs);
  const Limb carry = detail::MultiplyByLimb(limbs, count, factor);
  if (mayCarry) limbs[count] = carry;
  scaled.m_isNegative = m_isNegative;
  scaled.Trim();
  return *this = std::move(scaled);
}

// The magnitude modulo 10^count, with the sign of the value.
CBigInteger CBigInteger::TakeLowDigits(std::size_t count) const {
  CBigInteger low;
  const std::size_t wholeLimbs = std::min<std::size_t>(count / kLimbDigits, m_limbCount);
  const Limb* const limbs = GetLimbs();
  Limb top = 0;
  if (wholeLimbs < m_limbCount) top = limbs[wholeLimbs] % kPowersOfTen[count % kLimbDigits];
  low.Widen(wholeLimbs + (top != 0 ? 1 : 0));
  std::copy(limbs, limbs + wholeLimbs, low.GetLimbs());
  if (top != 0) low.GetLimbs()[wholeLimbs] = top;
  low.m_isNegative = m_isNegative;
  low.Trim();
  return low;
}

CBigInteger& CBigInteger::DivideByPow10(std::size_t exponent, CBigInteger* remainder) {
  if (remainder != nullptr) *remainder = TakeLowDigits(exponent);
  const std::size_t shift = exponent / kLimbDigits;
  const Limb divisor = kPowersOfTen[exponent % kLimbDigits];
  if (shift >= m_limbCount) {
    SetInline(0, 0, false);
  } else if (IsOneLimb()) {
    SetInline(GetLimb() / divisor, 0, m_isNegative);
  } else {
    Limb* const limbs = GetLimbs();
    const std::size_t count = m_limbCount - shift;
    if (shift != 0) {
      std::copy(limbs + shift, limbs + m_limbCount, limbs);
      std::fill(limbs + count, limbs + m_limbCount, 0);
    }
    if (divisor != 1) detail::DivideByLimb(limbs, count, detail::CLimbDivider(divisor));
    Trim();
  }
  return *this;
}

}  // namespace QvXmlLib16
