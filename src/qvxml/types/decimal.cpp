// Values, scale, arithmetic and order; text and floating-point forms are in decimal_text.cpp.

#include "qvxml/types/decimal.h"

#include <algorithm>
#include <climits>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/types/big_integer_internal.h"

namespace QvXmlLib16 {

namespace {

using detail::Limb;
using detail::WideLimb;

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

constexpr int kLimbDigits = static_cast<int>(detail::kLimbDigits);

Limb PowerOfTen(int exponent) { return detail::kPowersOfTen[static_cast<std::size_t>(exponent)]; }

int Order(Limb left, Limb right) { return left < right ? -1 : left > right; }

// Drops the zeros at the end of a fraction, and as many digits from its scale.
void DropTrailingZeros(Limb& fraction, int& divider) {
  if (fraction == 0) divider = 0;
  for (; divider != 0 && fraction % 10 == 0; fraction /= 10) --divider;
}

}  // namespace

constinit CInstanceCounter CDecimal::s_instances("CDecimal");

// Generated objects hold many of them.
static_assert(sizeof(CDecimal) == 32);

CDecimal::CDecimal(const CBigInteger& value) : CDecimal(CBigInteger(value)) {}

CDecimal::CDecimal(CBigInteger&& value) {
  if (value.IsOneLimb()) {
    SetSmall(value.GetLimb(), 0, 0, value.IsNegative());
  } else {
    SetParts({std::move(value), CBigInteger()}, 0);
  }
}

CDecimal::CDecimal(const CBigInteger& integerPart, const CBigInteger& fractionPart, int divider) {
  CheckScaleLimit(divider);
  if (divider < 0 || fractionPart.IsNegative() ||
      CountFractionDigits(fractionPart) > static_cast<std::size_t>(divider)) {
    ThrowInvalidDivider(divider);
  }
  SetParts({integerPart, fractionPart}, divider);
}

const CDecimal::Parts& CDecimal::GetParts(Parts& room) const noexcept {
  if (m_isLong) return *m_storage.parts;
  room.integer.SetInline(m_storage.small.integer, 0, m_isNegative);
  room.fraction.SetInline(m_storage.small.fraction, 0, false);
  return room;
}

// The sign of a value between -1 and 1 is to be set afterwards.
void CDecimal::SetParts(Parts parts, int divider) {
  const bool isNegative = parts.integer.IsNegative();
  if (parts.integer.IsOneLimb() && parts.fraction.IsOneLimb()) {
    return SetSmall(parts.integer.GetLimb(), parts.fraction.GetLimb(), divider, isNegative);
  }
  if (m_isLong) {
    *m_storage.parts = std::move(parts);
  } else {
    m_storage.parts = new Parts(std::move(parts));
    m_isLong = true;
  }
  m_fractionalDivider = divider;
  m_isNegative = isNegative;
}

void CDecimal::CopyParts(const CDecimal& other) {
  m_storage.parts = new Parts(*other.m_storage.parts);
}

void CDecimal::ReleaseParts() noexcept { delete m_storage.parts; }

CBigInteger CDecimal::GetIntegerPart() const {
  Parts room;
  return GetParts(room).integer;
}

CBigInteger CDecimal::GetFractionPart() const {
  Parts room;
  return GetParts(room).fraction;
}

long CDecimal::ToLong() const {
  Parts room;
  const CBigInteger& integer = GetParts(room).integer;
  if (!integer.FitsLongLong()) {
    throw CQvOverFlowException("The Decimal value if to large to fit into a LONG");
  }
  return integer.ToLong();
}

long long CDecimal::ToLongLong() const {
  Parts room;
  const CBigInteger& integer = GetParts(room).integer;
  if (!integer.FitsLongLong()) {
    throw CQvOverFlowException("The Decimal value if to large to fit into a LONGLONG");
  }
  return integer.ToLongLong();
}

std::size_t CDecimal::GetIntegerDigitCount() const noexcept {
  if (!m_isLong) {
    const SmallParts& small = m_storage.small;
    return small.integer == 0 && small.fraction != 0 ? 0 : detail::CountDigits(small.integer);
  }
  const Parts& parts = *m_storage.parts;
  if (parts.integer.IsZero() && !parts.fraction.IsZero()) return 0;
  return parts.integer.GetDigitCount();
}

std::size_t CDecimal::GetFractionDigitCount() const noexcept {
  if (!m_isLong) {
    Limb fraction = m_storage.small.fraction;
    int divider = m_fractionalDivider;
    DropTrailingZeros(fraction, divider);
    return static_cast<std::size_t>(divider);
  }
  const CBigInteger& fraction = m_storage.parts->fraction;
  if (fraction.IsZero()) return 0;
  return static_cast<std::size_t>(m_fractionalDivider) - fraction.GetTrailingZeroCount();
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
  if (m_isNegative != other.m_isNegative) return m_isNegative ? -1 : 1;
  const int divider = std::max(m_fractionalDivider, other.m_fractionalDivider);
  if (!m_isLong && !other.m_isLong && divider <= kLimbDigits) {
    const SmallParts& left = m_storage.small;
    const SmallParts& right = other.m_storage.small;
    int order = Order(left.integer, right.integer);
    if (order == 0) {
      order = Order(left.fraction * PowerOfTen(divider - m_fractionalDivider),
                    right.fraction * PowerOfTen(divider - other.m_fractionalDivider));
    }
    return m_isNegative ? -order : order;
  }
  Parts room;
  Parts otherRoom;
  const Parts& parts = GetParts(room);
  const Parts& otherParts = other.GetParts(otherRoom);
  const int order = parts.integer.Compare(otherParts.integer);
  if (order != 0) return order;
  const int fractionOrder = CompareFractions(parts.fraction, m_fractionalDivider,
                                             otherParts.fraction, other.m_fractionalDivider);
  return m_isNegative ? -fractionOrder : fractionOrder;
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
  if (divider == m_fractionalDivider || (!m_isLong && RescaleSmall(divider))) return;
  Parts room;
  Parts parts = GetParts(room);
  if (divider > m_fractionalDivider) {
    parts.fraction.Shift(static_cast<std::size_t>(divider - m_fractionalDivider));
  } else {
    parts.fraction.DivideByPow10(static_cast<std::size_t>(m_fractionalDivider - divider));
  }
  const bool isNegative = m_isNegative;
  SetParts(std::move(parts), divider);
  m_isNegative = isNegative && !IsZero();
}

// False when the fraction becomes too long.
bool CDecimal::RescaleSmall(int divider) noexcept {
  SmallParts& parts = m_storage.small;
  if (parts.fraction != 0 && divider > m_fractionalDivider) {
    const int added = divider - m_fractionalDivider;
    if (added >= kLimbDigits || parts.fraction >= PowerOfTen(kLimbDigits - added)) return false;
    parts.fraction *= PowerOfTen(added);
  } else if (parts.fraction != 0) {
    const int dropped = m_fractionalDivider - divider;
    parts.fraction = dropped >= kLimbDigits ? 0 : parts.fraction / PowerOfTen(dropped);
  }
  m_fractionalDivider = divider;
  if (IsZero()) m_isNegative = false;
  return true;
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
  m_isNegative = !m_isNegative && !IsZero();
  if (m_isLong) m_storage.parts->integer.Negate();
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
  CBigInteger scaled;
  if (!m_isLong && m_fractionalDivider <= kLimbDigits) {
    const SmallParts& parts = m_storage.small;
    Limb low = 0;
    const Limb high = detail::SplitLimb(
        WideLimb{parts.integer} * PowerOfTen(m_fractionalDivider) + parts.fraction, low);
    scaled.SetInline(low, high, m_isNegative);
  } else {
    Parts room;
    const Parts& parts = GetParts(room);
    scaled = parts.integer;
    scaled.Shift(static_cast<std::size_t>(m_fractionalDivider));
    if (m_isNegative) {
      scaled -= parts.fraction;
    } else {
      scaled += parts.fraction;
    }
  }
  scaled.Shift(static_cast<std::size_t>(divider - m_fractionalDivider));
  return scaled;
}

// The inverse of ToScaled, without trailing zeros.
CDecimal CDecimal::FromScaled(CBigInteger scaled, int divider) {
  CDecimal result;
  const bool isNegative = scaled.IsNegative();
  if (scaled.IsOneLimb() && divider <= kLimbDigits) {
    const Limb power = PowerOfTen(divider);
    Limb fraction = scaled.GetLimb() % power;
    DropTrailingZeros(fraction, divider);
    result.SetSmall(scaled.GetLimb() / power, fraction, divider, isNegative);
    return result;
  }
  Parts parts;
  scaled.DivideByPow10(static_cast<std::size_t>(divider), &parts.fraction);
  if (parts.fraction.IsNegative()) parts.fraction.Negate();
  parts.integer = std::move(scaled);
  const std::size_t zeros = parts.fraction.IsZero() ? static_cast<std::size_t>(divider)
                                                    : parts.fraction.GetTrailingZeroCount();
  parts.fraction.DivideByPow10(zeros);
  result.SetParts(std::move(parts), divider - static_cast<int>(zeros));
  result.m_isNegative = isNegative;
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
