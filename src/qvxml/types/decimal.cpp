// Values, scale, arithmetic and order; text and floating-point forms are in decimal_text.cpp.

#include "qvxml/types/decimal.h"

#include <algorithm>
#include <climits>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16 {

namespace {

constexpr int kQuotientDigits = 34;

[[noreturn]] void ThrowInvalidDivider(int divider) {
  throw CQvInvalidValueException(FormatString("Invalid fractional divider [%d]", divider));
}

// Of a scale that somebody gave as an argument.
void CheckScaleLimit(int divider) {
  const unsigned int limit = CBigInteger::GetExponentLimit();
  if (divider < 0 || static_cast<unsigned int>(divider) <= limit) return;
  throw CQvInvalidValueException(
      FormatString("Invalid fractional divider [%d], the limit is %u", divider, limit));
}

std::size_t CountFractionDigits(const CBigInteger& fraction) {
  return fraction.IsZero() ? 0 : fraction.GetDigitCount();
}

}  // namespace

constinit CInstanceCounter CDecimal::s_instances("CDecimal");

// Generated objects hold many of them.
static_assert(sizeof(CDecimal) == 64);

CDecimal::CDecimal(const CBigInteger& integerPart, const CBigInteger& fractionPart, int divider)
    : m_integerPart(integerPart), m_fractionPart(fractionPart), m_fractionalDivider(divider) {
  CheckScaleLimit(divider);
  if (divider < 0 || fractionPart.IsNegative() ||
      CountFractionDigits(fractionPart) > static_cast<std::size_t>(divider)) {
    ThrowInvalidDivider(divider);
  }
}

CDecimal::CDecimal(CDecimal&& other) noexcept
    : TInstanceCounted<CDecimal>(),
      m_integerPart(std::move(other.m_integerPart)),
      m_fractionPart(std::move(other.m_fractionPart)),
      m_fractionalDivider(std::exchange(other.m_fractionalDivider, 0)),
      m_isNegativeFraction(std::exchange(other.m_isNegativeFraction, false)) {}

CDecimal& CDecimal::operator=(CDecimal&& other) noexcept {
  if (this == &other) return *this;
  m_integerPart = std::move(other.m_integerPart);
  m_fractionPart = std::move(other.m_fractionPart);
  m_fractionalDivider = std::exchange(other.m_fractionalDivider, 0);
  m_isNegativeFraction = std::exchange(other.m_isNegativeFraction, false);
  return *this;
}

CDecimal& CDecimal::AssignCopy(const CDecimal& other) {
  // A copy first, so that running out of memory halfway leaves no mixed value.
  return *this = CDecimal(other);
}

long CDecimal::ToLong() const {
  if (!m_integerPart.FitsLongLong()) {
    throw CQvOverFlowException("The Decimal value if to large to fit into a LONG");
  }
  return m_integerPart.ToLong();
}

long long CDecimal::ToLongLong() const {
  if (!m_integerPart.FitsLongLong()) {
    throw CQvOverFlowException("The Decimal value if to large to fit into a LONGLONG");
  }
  return m_integerPart.ToLongLong();
}

std::size_t CDecimal::GetIntegerDigitCount() const noexcept {
  if (m_integerPart.IsZero() && !m_fractionPart.IsZero()) return 0;
  return m_integerPart.GetDigitCount();
}

std::size_t CDecimal::GetFractionDigitCount() const noexcept {
  if (m_fractionPart.IsZero()) return 0;
  return static_cast<std::size_t>(m_fractionalDivider) - m_fractionPart.GetTrailingZeroCount();
}

// Orders two fractions, each read with its own scale.
int CDecimal::CompareFractions(const CBigInteger& left, int leftDivider, const CBigInteger& right,
                               int rightDivider) {
  if (leftDivider == rightDivider || left.IsZero() || right.IsZero()) return left.Compare(right);
  const long long leftDigits = static_cast<long long>(left.GetDigitCount());
  const long long rightDigits = static_cast<long long>(right.GetDigitCount());
  const long long leftZeros = leftDivider - leftDigits;
  const long long rightZeros = rightDivider - rightDigits;
  if (leftZeros != rightZeros) return leftZeros < rightZeros ? 1 : -1;
  if (leftDigits == rightDigits) return left.Compare(right);
  const bool isLeftShorter = leftDigits < rightDigits;
  CBigInteger scaled(isLeftShorter ? left : right);
  scaled.Shift(static_cast<std::size_t>(isLeftShorter ? rightDigits - leftDigits
                                                      : leftDigits - rightDigits));
  return isLeftShorter ? scaled.Compare(right) : left.Compare(scaled);
}

int CDecimal::Compare(const CDecimal& other) const {
  const bool isNegative = GetNegative();
  if (isNegative != other.GetNegative()) return isNegative ? -1 : 1;
  const int order = m_integerPart.Compare(other.m_integerPart);
  if (order != 0) return order;
  const int fractionOrder = CompareFractions(m_fractionPart, m_fractionalDivider,
                                             other.m_fractionPart, other.m_fractionalDivider);
  return isNegative ? -fractionOrder : fractionOrder;
}

void CDecimal::ChangeFractionalDivider(int divider) {
  if (divider < 0) ThrowInvalidDivider(divider);
  CheckDivider(divider);
  Rescale(divider);
}

void CDecimal::CheckDivider(int divider) const {
  if (divider > m_fractionalDivider) CheckScaleLimit(divider);
}

void CDecimal::Rescale(int divider) {
  if (divider >= m_fractionalDivider) {
    m_fractionPart.Shift(static_cast<std::size_t>(divider - m_fractionalDivider));
  } else {
    m_fractionPart.DivideByPow10(static_cast<std::size_t>(m_fractionalDivider - divider));
    if (m_fractionPart.IsZero()) m_isNegativeFraction = false;
  }
  m_fractionalDivider = divider;
}

void CDecimal::Normalize(CDecimal& a, CDecimal& b) {
  if (a.m_fractionalDivider < b.m_fractionalDivider) {
    a.Rescale(b.m_fractionalDivider);
  } else {
    b.Rescale(a.m_fractionalDivider);
  }
}

void CDecimal::Rationalise() { Rescale(static_cast<int>(GetFractionDigitCount())); }

CDecimal& CDecimal::Negate() noexcept {
  if (m_integerPart.IsZero()) {
    m_isNegativeFraction = !m_isNegativeFraction && !m_fractionPart.IsZero();
  } else {
    m_integerPart.Negate();
  }
  return *this;
}

CDecimal CDecimal::operator-() const {
  CDecimal negated(*this);
  negated.Negate();
  return negated;
}

CDecimal CDecimal::operator++(int) {
  CDecimal before(*this);
  ++*this;
  return before;
}

CDecimal CDecimal::operator--(int) {
  CDecimal before(*this);
  --*this;
  return before;
}

// The value times 10^divider, which is at least the scale.
CBigInteger CDecimal::ToScaled(int divider) const {
  CBigInteger scaled(m_integerPart);
  scaled.Shift(static_cast<std::size_t>(m_fractionalDivider));
  if (GetNegative()) {
    scaled -= m_fractionPart;
  } else {
    scaled += m_fractionPart;
  }
  scaled.Shift(static_cast<std::size_t>(divider - m_fractionalDivider));
  return scaled;
}

// The inverse of ToScaled, without trailing zeros.
CDecimal CDecimal::FromScaled(CBigInteger scaled, int divider) {
  CDecimal result;
  const bool isNegative = scaled.IsNegative();
  scaled.DivideByPow10(static_cast<std::size_t>(divider), &result.m_fractionPart);
  if (result.m_fractionPart.IsNegative()) result.m_fractionPart.Negate();
  result.m_integerPart = std::move(scaled);
  result.m_fractionalDivider = divider;
  result.m_isNegativeFraction = isNegative && result.m_integerPart.IsZero();
  result.Rationalise();
  return result;
}

CDecimal operator+(const CDecimal& left, const CDecimal& right) {
  const int divider = std::max(left.m_fractionalDivider, right.m_fractionalDivider);
  CBigInteger sum = left.ToScaled(divider);
  sum += right.ToScaled(divider);
  return CDecimal::FromScaled(std::move(sum), divider);
}

CDecimal operator-(const CDecimal& left, const CDecimal& right) {
  const int divider = std::max(left.m_fractionalDivider, right.m_fractionalDivider);
  CBigInteger difference = left.ToScaled(divider);
  difference -= right.ToScaled(divider);
  return CDecimal::FromScaled(std::move(difference), divider);
}

CDecimal operator*(const CDecimal& left, const CDecimal& right) {
  if (left.m_fractionalDivider > INT_MAX - right.m_fractionalDivider) ThrowInvalidDivider(INT_MAX);
  return CDecimal::FromScaled(
      left.ToScaled(left.m_fractionalDivider) * right.ToScaled(right.m_fractionalDivider),
      left.m_fractionalDivider + right.m_fractionalDivider);
}

CDecimal operator/(const CDecimal& left, const CDecimal& right) {
  CBigInteger dividend = left.ToScaled(left.m_fractionalDivider);
  CBigInteger divisor = right.ToScaled(right.m_fractionalDivider);
  if (divisor.IsZero()) throw CQvInvalidValueException("Division by zero");
  const bool isNegative = dividend.IsNegative() != divisor.IsNegative();
  if (dividend.IsNegative()) dividend.Negate();
  if (divisor.IsNegative()) divisor.Negate();

  const long long shift = kQuotientDigits + static_cast<long long>(right.m_fractionalDivider) -
                          left.m_fractionalDivider;
  // Far below the last digit kept: spares the power of ten, which may be huge.
  if (static_cast<long long>(dividend.GetDigitCount()) + shift + 1 <
      static_cast<long long>(divisor.GetDigitCount())) {
    return CDecimal();
  }
  CDecimal::Shift(shift >= 0 ? dividend : divisor,
                  static_cast<std::size_t>(shift >= 0 ? shift : -shift));
  CBigInteger quotient;
  CBigInteger remainder;
  CBigInteger::Divide(dividend, divisor, &quotient, &remainder);
  remainder += remainder;
  if (remainder >= divisor) ++quotient;
  if (isNegative) quotient.Negate();
  return CDecimal::FromScaled(std::move(quotient), kQuotientDigits);
}

}  // namespace QvXmlLib16
