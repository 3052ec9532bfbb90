// Values, arithmetic and order; text and limits are in big_integer_text.cpp, the work on magnitudes
// in big_integer_multiply.cpp and big_integer_divide.cpp.

#include "qvxml/types/big_integer.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/types/big_integer_internal.h"

namespace QvXmlLib16 {

using detail::kLimbBase;
using detail::kLimbDigits;
using detail::kPowersOfTen;
using detail::Limb;
using detail::WideLimb;

constinit CInstanceCounter CBigInteger::s_instances("CBigInteger");

CBigInteger::CBigInteger(long long value)
    : CBigInteger(value < 0 ? 0 - static_cast<unsigned long long>(value)
                            : static_cast<unsigned long long>(value)) {
  m_isNegative = value < 0;
}

CBigInteger::CBigInteger(unsigned long long value) {
  if (value < kLimbBase) {
    m_limb = value;
  } else {
    m_limbs = {value % kLimbBase, value / kLimbBase};
  }
}

CBigInteger::CBigInteger(CBigInteger&& other) noexcept
    : TInstanceCounted<CBigInteger>(),
      m_limbs(std::move(other.m_limbs)),
      m_limb(std::exchange(other.m_limb, 0)),
      m_isNegative(std::exchange(other.m_isNegative, false)) {}

CBigInteger& CBigInteger::operator=(CBigInteger&& other) noexcept {
  if (this == &other) return *this;
  m_limbs = std::move(other.m_limbs);
  other.m_limbs.clear();
  m_limb = std::exchange(other.m_limb, 0);
  m_isNegative = std::exchange(other.m_isNegative, false);
  return *this;
}

void CBigInteger::SetSmall(Limb limb, bool isNegative) noexcept {
  m_limbs.clear();
  m_limb = limb;
  m_isNegative = isNegative && limb != 0;
}

// Brings the magnitude into m_limbs, with zeros above it up to `limbCount`.
void CBigInteger::Widen(std::size_t limbCount) {
  const bool wasSmall = m_limbs.empty();
  m_limbs.resize(limbCount);
  if (wasSmall && limbCount != 0) m_limbs[0] = std::exchange(m_limb, 0);
}

// Makes a value of m_limbs, whatever m_limb holds.
void CBigInteger::Trim() noexcept {
  while (!m_limbs.empty() && m_limbs.back() == 0) m_limbs.pop_back();
  m_limb = 0;
  if (m_limbs.size() <= 1) SetSmall(m_limbs.empty() ? 0 : m_limbs[0], m_isNegative);
}

CBigInteger CBigInteger::GetAbs() const {
  CBigInteger magnitude(*this);
  magnitude.m_isNegative = false;
  return magnitude;
}

std::size_t CBigInteger::GetDigitCount() const noexcept {
  if (IsSmall()) return detail::CountDigits(m_limb);
  return (m_limbs.size() - 1) * kLimbDigits + detail::CountDigits(m_limbs.back());
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
  const std::size_t count = GetLimbCount();
  if (count != other.GetLimbCount()) return count < other.GetLimbCount() ? -1 : 1;
  return detail::CompareLimbs(GetLimbs(), other.GetLimbs(), count);
}

int CBigInteger::Compare(const CBigInteger& other) const noexcept {
  if (m_isNegative != other.m_isNegative) return m_isNegative ? -1 : 1;
  const int order = CompareMagnitude(other);
  return m_isNegative ? -order : order;
}

bool CBigInteger::FitsLongLong() const noexcept {
  if (GetLimbCount() > 2) return false;
  if (IsSmall()) return true;
  const WideLimb magnitude = WideLimb{m_limbs[1]} * kLimbBase + m_limbs[0];
  return magnitude <= static_cast<WideLimb>(LLONG_MAX) + (m_isNegative ? 1 : 0);
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
  const Limb magnitude = IsSmall() ? m_limb : m_limbs[1] * kLimbBase + m_limbs[0];
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
  if (IsSmall() && other.IsSmall() && m_limb + other.m_limb < kLimbBase) {
    m_limb += other.m_limb;
    return;
  }
  const std::size_t otherCount = other.GetLimbCount();
  const std::size_t count = std::max(GetLimbCount(), otherCount);
  Limb topSum = 1;
  if (GetLimbCount() == count) topSum += GetLimbs()[count - 1];
  if (otherCount == count) topSum += other.GetLimbs()[count - 1];
  // Room for a carry only where there may be one: growing a full vector copies it.
  Widen(topSum >= kLimbBase ? count + 1 : count);
  detail::AddLimbs(m_limbs.data(), m_limbs.size(), other.GetLimbs(), otherCount);
  Trim();
}

void CBigInteger::SubtractMagnitude(const CBigInteger& other) {
  if (IsSmall() && other.IsSmall()) {
    const bool isLess = m_limb < other.m_limb;
    SetSmall(isLess ? other.m_limb - m_limb : m_limb - other.m_limb, m_isNegative != isLess);
    return;
  }
  if (CompareMagnitude(other) >= 0) {
    detail::SubtractLimbs(m_limbs.data(), m_limbs.size(), other.GetLimbs(), other.GetLimbCount());
  } else {
    std::vector<Limb> difference(other.m_limbs);
    detail::SubtractLimbs(difference.data(), difference.size(), GetLimbs(), GetLimbCount());
    m_limbs = std::move(difference);
    m_isNegative = !m_isNegative;
  }
  Trim();
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
  if (left.IsSmall() && right.IsSmall()) {
    Limb low = 0;
    const Limb high = detail::SplitLimb(WideLimb{left.m_limb} * right.m_limb, low);
    if (high != 0) {
      product.m_limbs = {low, high};
    } else {
      product.m_limb = low;
    }
  } else {
    product.m_limbs.resize(left.GetLimbCount() + right.GetLimbCount());
    detail::MultiplyLimbs(product.m_limbs.data(), left.GetLimbs(), left.GetLimbCount(),
                          right.GetLimbs(), right.GetLimbCount());
    product.Trim();
  }
  product.m_isNegative = left.m_isNegative != right.m_isNegative && !product.IsZero();
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
  } else if (divisor.IsSmall()) {
    DivideBySmall(dividend, divisor.m_limb, wholes, rest);
  } else {
    DivideByLong(dividend, divisor, wholes, rest);
  }
  wholes.m_isNegative = dividend.m_isNegative != divisor.m_isNegative && !wholes.IsZero();
  rest.m_isNegative = dividend.m_isNegative && !rest.IsZero();
  if (quotient != nullptr) *quotient = std::move(wholes);
  if (remainder != nullptr) *remainder = std::move(rest);
}

void CBigInteger::DivideBySmall(const CBigInteger& dividend, Limb divisor, CBigInteger& quotient,
                                CBigInteger& remainder) {
  if (dividend.IsSmall()) {
    quotient.m_limb = dividend.m_limb / divisor;
    remainder.m_limb = dividend.m_limb % divisor;
    return;
  }
  quotient.m_limbs = dividend.m_limbs;
  remainder.m_limb = detail::DivideByLimb(quotient.m_limbs.data(), quotient.m_limbs.size(),
                                          detail::CLimbDivider(divisor));
  quotient.Trim();
}

void CBigInteger::DivideByLong(const CBigInteger& dividend, const CBigInteger& divisor,
                               CBigInteger& quotient, CBigInteger& remainder) {
  remainder.m_limbs.reserve(dividend.m_limbs.size() + 1);
  remainder.m_limbs = dividend.m_limbs;
  std::vector<Limb> scaledDivisor(divisor.m_limbs);
  quotient.m_limbs = detail::DivideLimbs(remainder.m_limbs, scaledDivisor);
  quotient.Trim();
  remainder.Trim();
}

CBigInteger& CBigInteger::MultiplyByPow10(std::size_t exponent) {
  if (IsZero() || exponent == 0) return *this;
  const std::size_t shift = exponent / kLimbDigits;
  const Limb factor = kPowersOfTen[exponent % kLimbDigits];
  if (IsSmall() && shift == 0) {
    Limb low = 0;
    const Limb high = detail::SplitLimb(WideLimb{m_limb} * factor, low);
    if (high == 0) {
      m_limb = low;
      return *this;
    }
  }
  const std::size_t count = GetLimbCount();
  std::vector<Limb> scaled(count + shift + 1);
  std::copy(GetLimbs(), GetLimbs() + count, scaled.data() + shift);
  scaled[count + shift] = detail::MultiplyByLimb(scaled.data() + shift, count, factor);
  m_limbs = std::move(scaled);
  Trim();
  return *this;
}

// The magnitude modulo 10^count, with the sign of the value.
CBigInteger CBigInteger::TakeLowDigits(std::size_t count) const {
  CBigInteger low;
  const std::size_t wholeLimbs = std::min(count / kLimbDigits, GetLimbCount());
  const Limb* limbs = GetLimbs();
  Limb top = 0;
  if (wholeLimbs < GetLimbCount()) top = limbs[wholeLimbs] % kPowersOfTen[count % kLimbDigits];
  if (wholeLimbs == 0) {
    low.m_limb = top;
  } else {
    low.m_limbs.assign(limbs, limbs + wholeLimbs);
    low.m_limbs.push_back(top);
    low.Trim();
  }
  low.m_isNegative = m_isNegative && !low.IsZero();
  return low;
}

CBigInteger& CBigInteger::DivideByPow10(std::size_t exponent, CBigInteger* remainder) {
  if (remainder != nullptr) *remainder = TakeLowDigits(exponent);
  const std::size_t shift = exponent / kLimbDigits;
  const Limb divisor = kPowersOfTen[exponent % kLimbDigits];
  if (shift >= GetLimbCount()) {
    SetSmall(0, false);
  } else if (IsSmall()) {
    SetSmall(m_limb / divisor, m_isNegative);
  } else {
    m_limbs.erase(m_limbs.begin(), m_limbs.begin() + static_cast<std::ptrdiff_t>(shift));
    if (divisor != 1) {
      detail::DivideByLimb(m_limbs.data(), m_limbs.size(), detail::CLimbDivider(divisor));
    }
    Trim();
  }
  return *this;
}

}  // namespace QvXmlLib16
