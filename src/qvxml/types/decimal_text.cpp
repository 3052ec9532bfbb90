// Text and floating-point forms of CDecimal.

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>

#include "qvxml/core/digits_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/whitespace.h"
#include "qvxml/types/big_integer_internal.h"
#include "qvxml/types/decimal.h"

namespace QvXmlLib16 {

namespace detail {

// What a text says: the digits on both sides of the point, and the zeros that an exponent puts
// between them and the point.
struct DecimalDigits {
  bool isNegative = false;
  std::string_view integer;
  std::size_t integerZeros = 0;
  std::string_view fraction;
  std::size_t fractionZeros = 0;
  long exponent = 0;
};

}  // namespace detail

namespace {

using detail::DecimalDigits;
using detail::IsDigit;
using detail::kLimbDigits;
using detail::Limb;

bool IsZeroDigit(char character) { return character == '0'; }

void DropTrailingZeros(std::string_view& fraction) {
  const std::size_t last = fraction.find_last_not_of('0');
  fraction = fraction.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

// The digits that count towards the limit in the text without an exponent: a value that is read is
// one whose text can be read again.
std::size_t CountWrittenDigits(const DecimalDigits& digits) {
  const std::string_view integer = digits.integer;
  const std::string_view fraction = digits.fraction;
  if (integer.empty() && fraction.empty()) return 0;
  // Where the digits other than outer zeros lie, counted from the point of the text to the right.
  const long integerSize = static_cast<long>(integer.size());
  const long begin =
      integer.empty() ? static_cast<long>(fraction.find_first_not_of('0')) : -integerSize;
  const long end = fraction.empty()
                       ? static_cast<long>(integer.find_last_not_of('0')) + 1 - integerSize
                       : static_cast<long>(fraction.size());
  const long point = digits.exponent;
  return static_cast<std::size_t>(std::max(end, point) - std::min(begin, point));
}

class CDecimalScanner {
 public:
  explicit CDecimalScanner(std::string_view text) : m_text(text) {}

  DecimalDigits Scan() {
    DecimalDigits digits;
    TakeWhile(CWhitespaceUtils::IsWhiteSpace);
    digits.isNegative = TakeSign();
    const std::size_t zeros = TakeWhile(IsZeroDigit).size();
    digits.integer = TakeWhile(IsDigit);
    if (Take('.')) digits.fraction = TakeWhile(IsDigit);
    if (zeros + digits.integer.size() + digits.fraction.size() == 0) Fail(m_position);
    CheckDigitLimit(digits);
    DropTrailingZeros(digits.fraction);
    const std::size_t exponent = m_position;
    if (Take('e') || Take('E')) {
      digits.exponent = ScanExponent(exponent);
      const std::size_t limit = CBigInteger::GetDigitLimit();
      if (CountWrittenDigits(digits) > limit) FailDigits(limit, exponent);
    }
    TakeWhile(CWhitespaceUtils::IsWhiteSpace);
    if (m_position != m_text.size()) Fail(m_position);
    return digits;
  }

 private:
  template <class TPredicate>
  std::string_view TakeWhile(TPredicate isTaken) {
    const std::size_t start = m_position;
    while (m_position < m_text.size() && isTaken(m_text[m_position])) ++m_position;
    return m_text.substr(start, m_position - start);
  }

  bool Take(char character) {
    if (m_position == m_text.size() || m_text[m_position] != character) return false;
    ++m_position;
    return true;
  }

  // Whether the sign was a minus.
  bool TakeSign() { return Take('-') || (Take('+') && false); }

  long ScanExponent(std::size_t position) {
    const bool isNegative = TakeSign();
    const std::string_view digits = TakeWhile(IsDigit);
    if (digits.empty()) Fail(m_position);
    const unsigned int limit = detail::TextExponentLimit();
    long exponent = 0;
    for (const char digit : digits) {
      exponent = exponent * 10 + (digit - '0');
      if (exponent > static_cast<long>(limit)) FailExponent(limit, position);
    }
    return isNegative ? -exponent : exponent;
  }

  void CheckDigitLimit(const DecimalDigits& digits) const {
    const std::size_t limit = CBigInteger::GetDigitLimit();
    if (digits.integer.size() + digits.fraction.size() <= limit) return;
    const std::string_view side = digits.integer.size() > limit ? digits.integer : digits.fraction;
    const std::size_t before = digits.integer.size() > limit ? 0 : digits.integer.size();
    FailDigits(limit, static_cast<std::size_t>(side.data() - m_text.data()) + limit - before);
  }

  [[noreturn]] static void FailDigits(std::size_t limit, std::size_t position) {
    detail::ThrowTooManyDigits("Decimal", limit, position);
  }

  [[noreturn]] static void FailExponent(unsigned int limit, std::size_t position) {
    throw CQvInvalidValueException(FormatString(
        "The string representing a Decimal has an exponent beyond the limit of %u at position %d.",
        limit, static_cast<int>(std::min<std::size_t>(position, INT_MAX))));
  }

  [[noreturn]] void Fail(std::size_t position) const {
    throw CQvInvalidValueException(FormatString(
        "The string representing a Decimal, contained an invalid char at position %d [%s].",
        static_cast<int>(std::min<std::size_t>(position, INT_MAX)), std::string(m_text).c_str()));
  }

  std::string_view m_text;
  std::size_t m_position = 0;
};

// Reads the digits from `position` on as a number, which is right when they are few; returns their
// end. For few digits this is faster than reading eight at a time.
const char* ReadDigits(const char* position, const char* end, Limb& number) {
  for (; position != end && IsDigit(*position); ++position) {
    number = number * 10 + static_cast<Limb>(*position - '0');
  }
  return position;
}

// Whether the text is nothing but digits, few enough for a limb.
bool ReadFraction(std::string_view text, Limb& number) {
  constexpr std::size_t kFewDigits = 4;
  if (text.size() >= kFewDigits) return detail::ReadShortNumber(text, number);
  const char* const end = text.data() + text.size();
  return ReadDigits(text.data(), end, number) == end;
}

// Moves the point by the exponent; `memory` holds the digits of both sides afterwards.
void ApplyExponent(DecimalDigits& digits, std::string& memory) {
  memory.assign(digits.integer).append(digits.fraction);
  const std::string_view all = memory;
  const long count = static_cast<long>(all.size());
  const long point = static_cast<long>(digits.integer.size()) + digits.exponent;
  const std::size_t split = static_cast<std::size_t>(std::clamp(point, 0L, count));
  digits.integer = all.substr(0, split);
  digits.fraction = all.substr(split);
  digits.integerZeros = static_cast<std::size_t>(std::max(point - count, 0L));
  digits.fractionZeros = static_cast<std::size_t>(std::max(-point, 0L));
  DropTrailingZeros(digits.fraction);
}

}  // namespace

CDecimal::CDecimal(double value) {
  char text[32];
  const std::to_chars_result result =
      std::to_chars(text, text + sizeof text, value, std::chars_format::general, 17);
  Parse(text, static_cast<std::size_t>(result.ptr - text));
}

CDecimal::CDecimal(const char* text) { Parse(text); }

CDecimal::CDecimal(const std::string& text) { Parse(text.data(), text.size()); }

void CDecimal::Parse(const char* text) { Parse(text, text == nullptr ? 0 : std::strlen(text)); }

// Reads a sign, a few digits and a point in one pass; false for everything else.
bool CDecimal::ParseShort(std::string_view text) noexcept {
  constexpr std::size_t kMaxLength = 2 * kLimbDigits + 2;
  if (text.size() > kMaxLength) return false;
  const char* position = text.data();
  const char* const end = position + text.size();
  const bool isNegative = position != end && *position == '-';
  if (isNegative) ++position;
  Limb integer = 0;
  Limb fraction = 0;
  const char* const integerBegin = position;
  position = ReadDigits(position, end, integer);
  const char* const integerEnd = position;
  std::size_t fractionDigits = 0;
  if (position != end) {
    if (*position != '.') return false;
    ++position;
    fractionDigits = static_cast<std::size_t>(end - position);
    if (!ReadFraction(std::string_view(position, fractionDigits), fraction)) return false;
  }
  const std::size_t integerDigits = static_cast<std::size_t>(integerEnd - integerBegin);
  if (integerDigits > kLimbDigits) return false;
  // Also when there are no digits.
  if (integerDigits + fractionDigits - 1 >= CBigInteger::GetDigitLimit()) return false;

  std::size_t zeros = 0;
  if (fraction != 0) {
    while (end[-1 - static_cast<std::ptrdiff_t>(zeros)] == '0') ++zeros;
    if (zeros != 0) fraction /= detail::kPowersOfTen[zeros];
  }
  SetSmall(integer, fraction, fraction == 0 ? 0 : static_cast<int>(fractionDigits - zeros),
           isNegative);
  return true;
}

void CDecimal::Parse(const char* text, std::size_t length) {
  if (ParseShort(std::string_view(text, length))) return;
  DecimalDigits digits = CDecimalScanner(std::string_view(text, length)).Scan();
  std::string memory;
  if (digits.exponent != 0) ApplyExponent(digits, memory);
  Assign(digits);
}

void CDecimal::Assign(const DecimalDigits& digits) {
  Parts parts;
  parts.integer.AssignDigits(digits.integer.data(), digits.integer.size(), digits.isNegative);
  parts.integer.Shift(digits.integerZeros);
  parts.fraction.AssignDigits(digits.fraction.data(), digits.fraction.size(), false);
  const int divider =
      parts.fraction.IsZero() ? 0 : static_cast<int>(digits.fraction.size() + digits.fractionZeros);
  SetParts(std::move(parts), divider);
  m_isNegative = digits.isNegative && !IsZero();
}

std::size_t CDecimal::GetTextLength(const Parts& parts) const noexcept {
  const std::size_t fraction =
      parts.fraction.IsZero() ? 0 : static_cast<std::size_t>(m_fractionalDivider) + 1;
  return (m_isNegative ? 1 : 0) + parts.integer.GetDigitCount() + fraction;
}

void CDecimal::WriteText(const Parts& parts, char* target) const noexcept {
  if (m_isNegative) *target++ = '-';
  const std::size_t integerDigits = parts.integer.GetDigitCount();
  parts.integer.WriteDigits(target, integerDigits);
  if (parts.fraction.IsZero()) return;
  target += integerDigits;
  *target++ = '.';
  parts.fraction.WriteDigits(target, static_cast<std::size_t>(m_fractionalDivider));
}

std::string CDecimal::ToString() const {
  std::string text;
  AppendTo(text);
  return text;
}

void CDecimal::AppendTo(std::string& text) const {
  if (!m_isLong && m_fractionalDivider <= static_cast<int>(kLimbDigits)) return AppendShortTo(text);
  Parts room;
  const Parts& parts = GetParts(room);
  const std::size_t length = GetTextLength(parts);
  const std::size_t before = text.size();
  text.resize(before + length);
  WriteText(parts, text.data() + before);
}

// From the end to the front, so that no digits need to be counted before.
void CDecimal::AppendShortTo(std::string& text) const {
  char buffer[2 * kLimbDigits + 2];
  char* const end = buffer + sizeof buffer;
  char* begin = end;
  if (m_storage.small.fraction != 0) {
    begin = detail::WriteLimb(begin, m_storage.small.fraction,
                              static_cast<std::size_t>(m_fractionalDivider));
    *--begin = '.';
  }
  const Limb integer = m_storage.small.integer;
  begin = detail::WriteLimb(begin, integer, detail::CountDigits(integer));
  if (GetNegative()) *--begin = '-';
  text.append(begin, end);
}

std::string CDecimal::ToString(int fractionDigits) const {
  CheckDivider(fractionDigits);
  Parts room;
  const Parts& parts = GetParts(room);
  const std::size_t wanted = static_cast<std::size_t>(std::max(fractionDigits, 0));
  const std::size_t available = static_cast<std::size_t>(m_fractionalDivider);
  const std::size_t sign = GetNegative() ? 1 : 0;
  const std::size_t integerDigits = parts.integer.GetDigitCount();

  // One zero before the digits takes the carry of "9.99".
  const std::size_t point = sign + 1 + integerDigits;
  std::string text(point + 1 + std::max(wanted, available), '0');
  if (sign != 0) text[0] = '-';
  parts.integer.WriteDigits(&text[sign + 1], integerDigits);
  text[point] = '.';
  parts.fraction.WriteDigits(&text[point + 1], available);

  const bool isRoundedUp = wanted < available && text[point + 1 + wanted] >= '5';
  text.resize(wanted == 0 ? point : point + 1 + wanted);
  if (isRoundedUp) {
    std::size_t digit = text.size() - 1;
    for (; text[digit] == '9' || text[digit] == '.'; --digit) {
      if (text[digit] == '9') text[digit] = '0';
    }
    ++text[digit];
  }
  if (text[sign] == '0') text.erase(sign, 1);
  return text;
}

double CDecimal::ToDouble() const {
  constexpr std::size_t kGreatestDoubleDigits = 309;
  Parts room;
  const Parts& parts = GetParts(room);
  const bool isBelowOne = parts.integer.IsZero();
  double value = 0;
  const auto read = [&](const char* text, std::size_t length) {
    if (std::from_chars(text, text + length, value).ec != std::errc()) {
      value = isBelowOne ? 0 : HUGE_VAL;
    }
  };
  char shortText[64];
  const std::size_t length = GetTextLength(parts);
  const std::size_t sign = GetNegative() ? 1 : 0;
  if (length <= sizeof shortText) {
    WriteText(parts, shortText);
    read(shortText + sign, length - sign);
  } else if (isBelowOne) {
    const std::string text = parts.fraction.ToString() + "e-" + std::to_string(m_fractionalDivider);
    read(text.data(), text.size());
  } else if (parts.integer.GetDigitCount() <= kGreatestDoubleDigits) {
    const std::string text = ToString();
    read(text.data() + sign, text.size() - sign);
  } else {
    value = HUGE_VAL;
  }
  if (std::isinf(value)) {
    throw CQvOverFlowException("The Decimal value if to large to fit into a Double");
  }
  return sign != 0 ? -value : value;
}

}  // namespace QvXmlLib16
