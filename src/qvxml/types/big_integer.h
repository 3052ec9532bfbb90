// The arbitrary-precision integer of the XSD type integer.

#ifndef QVXML_TYPES_BIG_INTEGER_H_
#define QVXML_TYPES_BIG_INTEGER_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// An exact signed integer of any length.
///
/// A value: copies are independent, zero is never negative, a moved-from object is zero. Magnitudes
/// below 10^36, and so all of 64 bits, take no heap memory. Text is read and written, and powers of
/// ten are applied, in time linear in the number of digits.
///
/// Operations whose result needs memory throw std::bad_alloc or std::length_error when there is not
/// enough, and leave their operands as they were. Text and exponents are limited (see
/// SetDigitLimit and SetExponentLimit); the results of arithmetic are not.
class QVXML_API CBigInteger : private TInstanceCounted<CBigInteger> {
 public:
  // Construction.

  /// Zero.
  CBigInteger() noexcept = default;
  CBigInteger(int value) : CBigInteger(static_cast<long long>(value)) {}
  CBigInteger(long value) : CBigInteger(static_cast<long long>(value)) {}
  CBigInteger(long long value);
  CBigInteger(unsigned int value) : CBigInteger(static_cast<unsigned long long>(value)) {}
  CBigInteger(unsigned long value) : CBigInteger(static_cast<unsigned long long>(value)) {}
  CBigInteger(unsigned long long value);
  /// The value of `text`, as Parse reads it.
  CBigInteger(const char* text);
  /// The value of the whole of `text`: an embedded NUL is an invalid character.
  explicit CBigInteger(const std::string& text);
  CBigInteger(const CBigInteger& other)
      : TInstanceCounted<CBigInteger>(),
        m_storage(other.m_storage),
        m_limbCount(other.m_limbCount),
        m_isNegative(other.m_isNegative) {
    if (!other.IsInline()) CopyHeapLimbs(other);
  }
  CBigInteger(CBigInteger&& other) noexcept
      : TInstanceCounted<CBigInteger>(),
        m_storage(other.m_storage),
        m_limbCount(other.m_limbCount),
        m_isNegative(other.m_isNegative) {
    other.ForgetLimbs();
  }
  CBigInteger& operator=(const CBigInteger& other) {
    if (IsInline() && other.IsInline()) {
      TakeLimbs(other);
    } else {
      *this = CBigInteger(other);
    }
    return *this;
  }
  CBigInteger& operator=(CBigInteger&& other) noexcept {
    if (this == &other) return *this;
    ReleaseLimbs();
    TakeLimbs(other);
    other.ForgetLimbs();
    return *this;
  }
  ~CBigInteger() { ReleaseLimbs(); }

  /// 10^exponent. An exponent above the exponent limit throws CQvInvalidValueException "The power
  /// of ten [%lu] exceeds the limit of %u.".
  static CBigInteger Pow10(unsigned int exponent);

  // Limits, for the whole process; any thread may read and set them.

  /// Digits that Parse accepts, leading zeros not counted: 1,000,000 unless set. CDecimal applies
  /// it to the digits on both sides of the point together.
  static std::size_t GetDigitLimit() noexcept;
  /// Values above 1,000,000,000 count as that.
  static void SetDigitLimit(std::size_t digits) noexcept;
  /// Greatest exponent of Pow10 and MultiplyByPow10 and greatest scale that a CDecimal takes as an
  /// argument, 1,000,000 unless set; and of exponents in the text of a CDecimal, 1,000 unless set.
  static unsigned int GetExponentLimit() noexcept;
  /// Values above 1,000,000,000 count as that.
  static void SetExponentLimit(unsigned int exponent) noexcept;

  // Text.

  /// Sets the value from decimal text: optional whitespace, an optional "+" or "-", one or more
  /// digits, optional whitespace. Null is read as "".
  ///
  /// Anything else throws CQvInvalidValueException "The string representing a Big Integer,
  /// contained an invalid char at position %d [%s]." with the 0-based index of the character, or of
  /// the end when digits are missing, and the whole text. Digits beyond the digit limit throw
  /// CQvInvalidValueException "The string representing a Big Integer has more digits than the limit
  /// of %lu allows, from position %d on." before any memory is taken. The value is then unchanged.
  void Parse(const char* text);
  /// Parse for `length` bytes; `text` may be null when it is 0.
  void Parse(const char* text, std::size_t length);
  /// The decimal digits without leading zeros, after "-" when negative; "0" for zero.
  std::string ToString() const;
  /// Appends the same to `text`.
  void AppendTo(std::string& text) const;

  // Inspection.

  bool IsZero() const noexcept { return m_limbCount == 0; }
  /// True when below zero.
  bool IsNegative() const noexcept { return m_isNegative; }
  /// True when below zero.
  bool GetNegative() const noexcept { return m_isNegative; }
  CBigInteger GetAbs() const;
  /// Number of decimal digits of the magnitude; 1 for zero.
  std::size_t GetDigitCount() const noexcept;
  /// Number of zeros at the end of the decimal text; 0 for zero.
  std::size_t GetTrailingZeroCount() const noexcept;
  /// Negative, 0 or positive as this is less than, equal to or greater than `other`.
  int Compare(const CBigInteger& other) const noexcept;

  // Conversion.

  /// Whether ToLong and ToLongLong have a result.
  bool FitsLongLong() const noexcept;
  /// Throws CQvOverFlowException "The Big Integer value if to large to fit into a LONG".
  long ToLong() const;
  /// Throws CQvOverFlowException "The Big Integer value if to large to fit into a LONGLONG".
  long long ToLongLong() const;
  /// The nearest double, ties to even. Throws CQvOverFlowException "The Big Integer value if to
  /// large to fit into a Double" when that is infinite.
  double ToDouble() const;

  // Arithmetic. Division truncates toward zero and a remainder has the sign of the dividend, as for
  // built-in integers. A divisor of zero throws CQvInvalidValueException "Division by zero".
  // Products take n^1.6 digit operations, quotients n^1.6 log n.

  /// Changes the sign of this value and returns it.
  CBigInteger& Negate() noexcept;
  CBigInteger& operator+=(const CBigInteger& other) { return AddSigned(other, other.m_isNegative); }
  CBigInteger& operator-=(const CBigInteger& other) {
    return AddSigned(other, !other.m_isNegative);
  }
  CBigInteger& operator*=(const CBigInteger& other);
  CBigInteger& operator/=(const CBigInteger& other);
  CBigInteger& operator%=(const CBigInteger& other);
  CBigInteger& operator++() { return *this += CBigInteger(1); }
  CBigInteger& operator--() { return *this -= CBigInteger(1); }
  CBigInteger operator++(int);
  CBigInteger operator--(int);
  CBigInteger operator-() const;

  /// Quotient and remainder in one division. The results may be the operands, but not one object;
  /// either may be null.
  static void Divide(const CBigInteger& dividend, const CBigInteger& divisor, CBigInteger* quotient,
                     CBigInteger* remainder);

  /// Multiplies by 10^exponent, which is limited as in Pow10 unless the value is zero.
  CBigInteger& MultiplyByPow10(std::size_t exponent);
  /// Divides by 10^exponent. `remainder`, when not null and another object, receives the rest.
  CBigInteger& DivideByPow10(std::size_t exponent, CBigInteger* remainder = nullptr);

  friend QVXML_API CBigInteger operator+(const CBigInteger& left, const CBigInteger& right);
  friend QVXML_API CBigInteger operator-(const CBigInteger& left, const CBigInteger& right);
  friend QVXML_API CBigInteger operator*(const CBigInteger& left, const CBigInteger& right);
  friend QVXML_API CBigInteger operator/(const CBigInteger& left, const CBigInteger& right);
  friend QVXML_API CBigInteger operator%(const CBigInteger& left, const CBigInteger& right);

  friend bool operator==(const CBigInteger& left, const CBigInteger& right) noexcept {
    return left.Compare(right) == 0;
  }
  friend bool operator!=(const CBigInteger& left, const CBigInteger& right) noexcept {
    return left.Compare(right) != 0;
  }
  friend bool operator<(const CBigInteger& left, const CBigInteger& right) noexcept {
    return left.Compare(right) < 0;
  }
  friend bool operator>(const CBigInteger& left, const CBigInteger& right) noexcept {
    return left.Compare(right) > 0;
  }
  friend bool operator<=(const CBigInteger& left, const CBigInteger& right) noexcept {
    return left.Compare(right) <= 0;
  }
  friend bool operator>=(const CBigInteger& left, const CBigInteger& right) noexcept {
    return left.Compare(right) >= 0;
  }

 private:
  friend class TInstanceCounted<CBigInteger>;
  friend class CDecimal;
  static CInstanceCounter s_instances;

  // The magnitude in base 10^18, least significant limb first and without leading zeros. Up to two
  // limbs are held in the object, zeros above them; only more are on the heap.
  static constexpr std::size_t kInlineLimbs = 2;
  struct HeapLimbs {
    std::uint64_t* limbs;
    std::size_t capacity;
  };
  union Storage {
    std::uint64_t limbs[kInlineLimbs];
    HeapLimbs heap;
  };

  bool IsInline() const noexcept { return m_limbCount <= kInlineLimbs; }
  bool IsOneLimb() const noexcept { return m_limbCount <= 1; }
  const std::uint64_t* GetLimbs() const noexcept {
    return IsInline() ? m_storage.limbs : m_storage.heap.limbs;
  }
  std::uint64_t* GetLimbs() noexcept { return IsInline() ? m_storage.limbs : m_storage.heap.limbs; }
  // The lowest limb of a magnitude of at most one.
  std::uint64_t GetLimb() const noexcept { return m_storage.limbs[0]; }
  void SetInline(std::uint64_t low, std::uint64_t high, bool isNegative) noexcept {
    ReleaseLimbs();
    m_storage.limbs[0] = low;
    m_storage.limbs[1] = high;
    m_limbCount = high != 0 ? 2 : static_cast<std::uint32_t>(low != 0);
    m_isNegative = isNegative && m_limbCount != 0;
  }
  void AssignLimbs(const std::uint64_t* limbs, std::size_t count, bool isNegative);
  void Widen(std::size_t limbCount);
  void Trim() noexcept;

  // Afterwards the storage is to be set anew.
  void ReleaseLimbs() noexcept {
    if (!IsInline()) delete[] m_storage.heap.limbs;
  }
  // The other must not release what this one has then.
  void TakeLimbs(const CBigInteger& other) noexcept {
    m_storage = other.m_storage;
    m_limbCount = other.m_limbCount;
    m_isNegative = other.m_isNegative;
  }
  void ForgetLimbs() noexcept {
    m_storage = Storage{{0, 0}};
    m_limbCount = 0;
    m_isNegative = false;
  }
  void CopyHeapLimbs(const CBigInteger& other);

  int CompareMagnitude(const CBigInteger& other) const noexcept;
  CBigInteger& AddSigned(const CBigInteger& other, bool isOtherNegative);
  void AddMagnitude(const CBigInteger& other);
  void SubtractMagnitude(const CBigInteger& other);
  static void DivideInline(const CBigInteger& dividend, const CBigInteger& divisor,
                           CBigInteger& quotient, CBigInteger& remainder) noexcept;
  static void DivideByLimb(const CBigInteger& dividend, std::uint64_t divisor,
                           CBigInteger& quotient, CBigInteger& remainder);
  static void DivideByLong(const CBigInteger& dividend, const CBigInteger& divisor,
                           CBigInteger& quotient, CBigInteger& remainder);
  CBigInteger& Shift(std::size_t exponent);
  CBigInteger TakeLowDigits(std::size_t count) const;

  bool ParseShort(const char* text, std::size_t length) noexcept;
  // Sets the value from `count` digits, which the caller has checked. Cannot fail for up to 36.
  void AssignDigits(const char* digits, std::size_t count, bool isNegative);
  // Writes the magnitude as exactly `width` digits, zeros in front; `width` holds all its digits.
  void WriteDigits(char* target, std::size_t width) const noexcept;

  Storage m_storage = {{0, 0}};
  std::uint32_t m_limbCount = 0;
  bool m_isNegative = false;
};

}  // namespace QvXmlLib16

#endif  // QVXML_TYPES_BIG_INTEGER_H_
