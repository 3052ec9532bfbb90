// The exact decimal number of the XSD type decimal.

#ifndef QVXML_TYPES_DECIMAL_H_
#define QVXML_TYPES_DECIMAL_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/big_integer.h"

namespace QvXmlLib16 {

namespace detail {
struct DecimalDigits;  // types/decimal_text.cpp
}

/// An exact decimal of any length: an integer part and a fraction of `divider` decimal digits, the
/// scale. 1.05 is held as 1, 5 and 2.
///
/// A value: copies are independent, zero is never negative, a moved-from object is zero. Two values
/// are equal when they are the same number, whatever their scales. The results of arithmetic have
/// no trailing zeros in their fraction. Up to 18 digits on either side of the point take no heap
/// memory.
///
/// Operations whose result needs memory throw std::bad_alloc or std::length_error when there is not
/// enough, and leave their operands as they were. Text is limited by CBigInteger::SetDigitLimit,
/// and exponents and scales given as arguments by CBigInteger::SetExponentLimit. A scale out of
/// range throws CQvInvalidValueException "Invalid fractional divider [%d]", and one beyond the
/// limit "Invalid fractional divider [%d], the limit is %u".
class QVXML_API CDecimal : private TInstanceCounted<CDecimal> {
 public:
  // Construction.

  /// Zero.
  CDecimal() noexcept = default;
  CDecimal(int value) : CDecimal(CBigInteger(value)) {}
  CDecimal(long value) : CDecimal(CBigInteger(value)) {}
  CDecimal(long long value) : CDecimal(CBigInteger(value)) {}
  CDecimal(unsigned int value) : CDecimal(CBigInteger(value)) {}
  CDecimal(unsigned long value) : CDecimal(CBigInteger(value)) {}
  CDecimal(unsigned long long value) : CDecimal(CBigInteger(value)) {}
  /// The value that the 17 significant digits of "%.17g" name, so 0.1 is 0.10000000000000001. A NaN
  /// or an infinity throws as Parse does for its text ("nan", "inf", "-inf").
  CDecimal(double value);
  /// The value of `text`, as Parse reads it.
  CDecimal(const char* text);
  /// The value of the whole of `text`: an embedded NUL is an invalid character.
  explicit CDecimal(const std::string& text);
  CDecimal(const CBigInteger& value);
  CDecimal(CBigInteger&& value);
  /// integerPart + fractionPart * 10^-divider with the sign of `integerPart`; trailing zeros of the
  /// fraction are kept. For a value between -1 and 0, negate the positive one.
  ///
  /// A scale below 0, above the exponent limit, or less than the number of digits of `fractionPart`
  /// throws as said above, and so does a negative `fractionPart`.
  CDecimal(const CBigInteger& integerPart, const CBigInteger& fractionPart, int divider);
  CDecimal(const CDecimal& other)
      : TInstanceCounted<CDecimal>(),
        m_storage(other.m_storage),
        m_fractionalDivider(other.m_fractionalDivider),
        m_isNegative(other.m_isNegative),
        m_isLong(other.m_isLong) {
    if (m_isLong) CopyParts(other);
  }
  CDecimal(CDecimal&& other) noexcept
      : TInstanceCounted<CDecimal>(),
        m_storage(other.m_storage),
        m_fractionalDivider(other.m_fractionalDivider),
        m_isNegative(other.m_isNegative),
        m_isLong(other.m_isLong) {
    other.Forget();
  }
  CDecimal& operator=(const CDecimal& other) {
    if (m_isLong || other.m_isLong) return *this = CDecimal(other);
    Take(other);
    return *this;
  }
  CDecimal& operator=(CDecimal&& other) noexcept {
    if (this == &other) return *this;
    if (m_isLong) ReleaseParts();
    Take(other);
    other.Forget();
    return *this;
  }
  virtual ~CDecimal() {
    if (m_isLong) ReleaseParts();
  }

  // Text.

  /// Sets the value from text: optional whitespace, an optional "+" or "-", digits with an optional
  /// "." before, between or after them, an optional exponent ("e" or "E", an optional sign,
  /// digits), optional whitespace. Null is read as "". Trailing zeros of the fraction are dropped.
  ///
  /// Anything else throws CQvInvalidValueException "The string representing a Decimal, contained an
  /// invalid char at position %d [%s]." with the 0-based index of the character, or of the end when
  /// digits are missing, and the whole text. Beyond the limits it throws CQvInvalidValueException
  /// "The string representing a Decimal has more digits than the limit of %lu allows, from position
  /// %d on." or "The string representing a Decimal has an exponent beyond the limit of %u at
  /// position %d.", before any memory is taken: at the first digit too many (integer digits after
  /// leading zeros and fraction digits count), or at the "e" or "E" of an exponent that is out of
  /// range or makes a value whose text has too many digits. The value is then unchanged.
  void Parse(const char* text);
  /// Parse for `length` bytes; `text` may be null when it is 0.
  void Parse(const char* text, std::size_t length);
  /// Parse for a few digits, with a minus and a point or without. False for any other text, also
  /// one that Parse would take, and the value is unchanged then.
  bool ParseShort(std::string_view text) noexcept;
  /// The shortest text when the value is rationalised, without an exponent: "12", "-0.5", "1.05". A
  /// fraction other than zero is written with all digits of its scale.
  std::string ToString() const;
  /// Appends the same to `text`.
  void AppendTo(std::string& text) const;
  /// Exactly `fractionDigits` digits after the point, rounded half up on the magnitude; below 1,
  /// none and no point. A negative value that rounds to zero keeps its minus. A number of digits
  /// above the exponent limit and the scale throws as a scale out of range.
  std::string ToString(int fractionDigits) const;

  // Conversion. What does not fit is a CQvOverFlowException.

  /// The nearest double, ties to even; 0 or -0 when that is too small. Throws "The Decimal value if
  /// to large to fit into a Double" when it is infinite.
  double ToDouble() const;
  /// The integer part. Throws "The Decimal value if to large to fit into a LONG".
  long ToLong() const;
  /// The integer part. Throws "The Decimal value if to large to fit into a LONGLONG".
  long long ToLongLong() const;
  /// The integer part: truncates toward zero.
  CBigInteger ToBigInteger() const { return GetIntegerPart(); }

  // Inspection.

  /// True when the value is below zero.
  bool GetNegative() const noexcept { return m_isNegative; }
  bool IsZero() const noexcept {
    return !m_isLong && m_storage.small.integer == 0 && m_storage.small.fraction == 0;
  }
  /// The whole-number part, with the sign of the value; 0 for -0.5.
  CBigInteger GetIntegerPart() const;
  /// The fraction digits read as an integer, never negative.
  CBigInteger GetFractionPart() const;
  /// Number of decimal digits that the fraction part stands for, zeros in front included.
  int GetFractionalDivider() const noexcept { return m_fractionalDivider; }
  /// Digits before the point, the sign not counted: 0 when the integer part is zero and the
  /// fraction is not, else at least 1.
  std::size_t GetIntegerDigitCount() const noexcept;
  /// Digits after the point, without trailing zeros.
  std::size_t GetFractionDigitCount() const noexcept;
  /// Negative, 0 or positive as this is less than, equal to or greater than `other`.
  int Compare(const CDecimal& other) const;

  // Scale.

  /// Gives the fraction exactly `divider` digits: adds zeros, or drops digits without rounding.
  /// Throws, as said above, below 0 and above both the exponent limit and the present scale.
  void ChangeFractionalDivider(int divider);
  /// Gives both the greater of their scales; neither changes its value.
  static void Normalize(CDecimal& a, CDecimal& b);
  /// Removes trailing zeros from the fraction and lowers the scale by one for each.
  void Rationalise();

  // Arithmetic: exact, but for division, which keeps 34 fraction digits, rounded half up on the
  // magnitude. A divisor of zero throws CQvInvalidValueException "Division by zero". A product
  // whose scale would exceed an int throws as a scale out of range.

  /// Changes the sign of this value and returns it.
  CDecimal& Negate() noexcept;
  CDecimal& operator+=(const CDecimal& other) { return *this = *this + other; }
  CDecimal& operator-=(const CDecimal& other) { return *this = *this - other; }
  CDecimal& operator*=(const CDecimal& other) { return *this = *this * other; }
  CDecimal& operator/=(const CDecimal& other) { return *this = *this / other; }
  CDecimal& operator++() { return *this += CDecimal(1); }
  CDecimal& operator--() { return *this -= CDecimal(1); }
  CDecimal operator++(int);
  CDecimal operator--(int);
  CDecimal operator-() const;

  friend QVXML_API CDecimal operator+(const CDecimal& left, const CDecimal& right);
  friend QVXML_API CDecimal operator-(const CDecimal& left, const CDecimal& right);
  friend QVXML_API CDecimal operator*(const CDecimal& left, const CDecimal& right);
  friend QVXML_API CDecimal operator/(const CDecimal& left, const CDecimal& right);

  friend bool operator==(const CDecimal& left, const CDecimal& right) {
    return left.Compare(right) == 0;
  }
  friend bool operator!=(const CDecimal& left, const CDecimal& right) {
    return left.Compare(right) != 0;
  }
  friend bool operator<(const CDecimal& left, const CDecimal& right) {
    return left.Compare(right) < 0;
  }
  friend bool operator>(const CDecimal& left, const CDecimal& right) {
    return left.Compare(right) > 0;
  }
  friend bool operator<=(const CDecimal& left, const CDecimal& right) {
    return left.Compare(right) <= 0;
  }
  friend bool operator>=(const CDecimal& left, const CDecimal& right) {
    return left.Compare(right) >= 0;
  }

 private:
  friend class TInstanceCounted<CDecimal>;
  static CInstanceCounter s_instances;

  // The integer part has the sign of the value.
  struct Parts {
    CBigInteger integer;
    CBigInteger fraction;
  };
  // The magnitudes of parts that have up to 18 digits each; other parts are on the heap.
  struct SmallParts {
    std::uint64_t integer;
    std::uint64_t fraction;
  };
  union Storage {
    SmallParts small;
    Parts* parts;
  };

  // The parts, which are made in `room` when the value has none.
  const Parts& GetParts(Parts& room) const noexcept;
  void SetParts(Parts parts, int divider);
  void SetSmall(std::uint64_t integer, std::uint64_t fraction, int divider,
                bool isNegative) noexcept {
    if (m_isLong) ReleaseParts();
    m_storage.small = {integer, fraction};
    m_fractionalDivider = divider;
    m_isNegative = isNegative && (integer != 0 || fraction != 0);
    m_isLong = false;
  }
  void CopyParts(const CDecimal& other);
  // Afterwards the storage is to be set anew.
  void ReleaseParts() noexcept;
  // The other must not release what this one has then.
  void Take(const CDecimal& other) noexcept {
    m_storage = other.m_storage;
    m_fractionalDivider = other.m_fractionalDivider;
    m_isNegative = other.m_isNegative;
    m_isLong = other.m_isLong;
  }
  void Forget() noexcept {
    m_storage.small = {0, 0};
    m_fractionalDivider = 0;
    m_isNegative = false;
    m_isLong = false;
  }

  void Assign(const detail::DecimalDigits& digits);
  void AppendShortTo(std::string& text) const;
  std::size_t GetTextLength(const Parts& parts) const noexcept;
  void WriteText(const Parts& parts, char* target) const noexcept;

  static int CompareFractions(const CBigInteger& left, int leftDivider, const CBigInteger& right,
                              int rightDivider);
  static void Shift(CBigInteger& value, std::size_t digits) { value.Shift(digits); }
  void CheckDivider(int divider) const;
  void Rescale(int divider);
  bool RescaleSmall(int divider) noexcept;
  CBigInteger ToScaled(int divider) const;
  static CDecimal FromScaled(CBigInteger scaled, int divider);

  Storage m_storage = {{0, 0}};
  std::int32_t m_fractionalDivider = 0;
  // Below zero.
  bool m_isNegative = false;
  bool m_isLong = false;
};

}  // namespace QvXmlLib16

#endif  // QVXML_TYPES_DECIMAL_H_
