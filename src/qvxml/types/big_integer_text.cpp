// Text and floating-point forms of CBigInteger, and the limits on them.

#include <algorithm>
#include <atomic>
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
#include "qvxml/types/big_integer.h"
#include "qvxml/types/big_integer_internal.h"

namespace QvXmlLib16 {

using detail::IsDigit;
using detail::kLimbDigits;
using detail::Limb;

namespace {

constexpr unsigned int kDefaultLimit = 1'000'000;
// The sum of both limits must stay a valid scale of a decimal, an int.
constexpr unsigned int kGreatestLimit = 1'000'000'000;

constinit std::atomic<std::size_t> g_digitLimit{kDefaultLimit};
// Each digit of a text's exponent asks for ten times the memory, and no honest text has one.
constexpr unsigned int kDefaultTextExponent = 1'000;
constexpr unsigned int kUnset = ~0u;
constinit std::atomic<unsigned int> g_exponentLimit{kUnset};

unsigned int ExponentLimit(unsigned int byDefault) {
  const unsigned int limit = g_exponentLimit.load(std::memory_order_relaxed);
  return limit == kUnset ? byDefault : limit;
}

[[noreturn]] void ThrowInvalidChar(const char* text, std::size_t length, std::size_t position) {
  throw CQvInvalidValueException(FormatString(
      "The string representing a Big Integer, contained an invalid char at position %d [%s].",
      static_cast<int>(std::min<std::size_t>(position, INT_MAX)),
      length == 0 ? "" : std::string(text, length).c_str()));
}

// Reads at most 18 digits.
Limb ReadLimb(const char* digits, std::size_t count) {
  Limb limb = 0;
  static_cast<void>(detail::ReadShortNumber(std::string_view(digits, count), limb));
  return limb;
}

}  // namespace

std::size_t CBigInteger::GetDigitLimit() noexcept {
  return g_digitLimit.load(std::memory_order_relaxed);
}

void CBigInteger::SetDigitLimit(std::size_t digits) noexcept {
  g_digitLimit.store(std::min<std::size_t>(digits, kGreatestLimit), std::memory_order_relaxed);
}

unsigned int CBigInteger::GetExponentLimit() noexcept { return ExponentLimit(kDefaultLimit); }

unsigned int detail::TextExponentLimit() noexcept { return ExponentLimit(kDefaultTextExponent); }

void CBigInteger::SetExponentLimit(unsigned int exponent) noexcept {
  g_exponentLimit.store(std::min(exponent, kGreatestLimit), std::memory_order_relaxed);
}

CBigInteger::CBigInteger(const char* text) { Parse(text); }

CBigInteger::CBigInteger(const std::string& text) { Parse(text.data(), text.size()); }

void detail::CheckPowerOfTen(std::size_t exponent) {
  const unsigned int limit = CBigInteger::GetExponentLimit();
  if (exponent <= limit) return;
  throw CQvInvalidValueException(
      FormatString("The power of ten [%lu] exceeds the limit of %u.", exponent, limit));
}

void detail::ThrowTooManyDigits(const char* typeName, std::size_t limit, std::size_t position) {
  throw CQvInvalidValueException(FormatString(
      "The string representing a %s has more digits than the limit of %lu allows, from position %d on.",
      typeName, limit, static_cast<int>(std::min<std::size_t>(position, INT_MAX))));
}

CBigInteger CBigInteger::Pow10(unsigned int exponent) {
  return CBigInteger(1).MultiplyByPow10(exponent);
}

void CBigInteger::Parse(const char* text) { Parse(text, text == nullptr ? 0 : std::strlen(text)); }

// Reads an optional minus and a few digits; false for everything else.
bool CBigInteger::ParseShort(const char* text, std::size_t length) noexcept {
  const bool isNegative = length != 0 && *text == '-';
  const std::string_view digits(text + (isNegative ? 1 : 0), length - (isNegative ? 1 : 0));
  Limb limb = 0;
  if (!detail::ReadShortNumber(digits, limb) || digits.size() > GetDigitLimit()) return false;
  SetInline(limb, 0, isNegative);
  return true;
}

void CBigInteger::Parse(const char* text, std::size_t length) {
  if (ParseShort(text, length)) return;
  const auto skip = [&](std::size_t from, auto isSkipped) {
    while (from < length && isSkipped(text[from])) ++from;
    return from;
  };
  const std::size_t start = skip(0, CWhitespaceUtils::IsWhiteSpace);
  const bool hasSign = start < length && (text[start] == '-' || text[start] == '+');
  const std::size_t first = start + (hasSign ? 1 : 0);
  const std::size_t significant = skip(first, [](char character) { return character == '0'; });
  const std::size_t end = skip(significant, IsDigit);
  const std::size_t limit = GetDigitLimit();
  if (end - significant > limit) {
    detail::ThrowTooManyDigits("Big Integer", limit, significant + limit);
  }
  if (end == first) ThrowInvalidChar(text, length, end);
  const std::size_t last = skip(end, CWhitespaceUtils::IsWhiteSpace);
  if (last != length) ThrowInvalidChar(text, length, last);

  AssignDigits(text + significant, end - significant, hasSign && text[start] == '-');
}

void CBigInteger::AssignDigits(const char* digits, std::size_t count, bool isNegative) {
  if (count <= kLimbDigits) return SetInline(ReadLimb(digits, count), 0, isNegative);
  const std::size_t limbCount = (count + kLimbDigits - 1) / kLimbDigits;
  const std::size_t topCount = count - (limbCount - 1) * kLimbDigits;
  CBigInteger value;
  value.Widen(limbCount);
  Limb* const limbs = value.GetLimbs();
  limbs[limbCount - 1] = ReadLimb(digits, topCount);
  digits += topCount;
  for (std::size_t index = limbCount - 1; index-- > 0; digits += kLimbDigits) {
    limbs[index] = ReadLimb(digits, kLimbDigits);
  }
  value.m_isNegative = isNegative;
  value.Trim();
  *this = std::move(value);
}

void CBigInteger::WriteDigits(char* target, std::size_t width) const noexcept {
  char* end = target + width;
  const Limb* limbs = GetLimbs();
  for (std::size_t left = m_limbCount; left != 0; --left, ++limbs) {
    end = detail::WriteLimb(end, *limbs,
                            std::min(kLimbDigits, static_cast<std::size_t>(end - target)));
  }
  std::fill(target, end, '0');
}

std::string CBigInteger::ToString() const {
  std::string text;
  AppendTo(text);
  return text;
}

void CBigInteger::AppendTo(std::string& text) const {
  if (IsOneLimb()) {
    char buffer[24];  // More than a limb needs, which the compiler cannot know.
    char* const bufferEnd = buffer + sizeof buffer;
    char* begin = detail::WriteLimb(bufferEnd, GetLimb(), detail::CountDigits(GetLimb()));
    if (m_isNegative) *--begin = '-';
    text.append(begin, bufferEnd);
    return;
  }
  const std::size_t digits = GetDigitCount();
  const std::size_t end = text.size() + (m_isNegative ? 1 : 0) + digits;
  text.resize(end, '-');
  WriteDigits(text.data() + end - digits, digits);
}

double CBigInteger::ToDouble() const {
  constexpr std::size_t kGreatestDoubleDigits = 309;
  double value = HUGE_VAL;
  if (GetDigitCount() <= kGreatestDoubleDigits) {
    char text[kGreatestDoubleDigits];
    const std::size_t digits = GetDigitCount();
    WriteDigits(text, digits);
    if (std::from_chars(text, text + digits, value).ec != std::errc()) value = HUGE_VAL;
  }
  if (std::isinf(value)) {
    throw CQvOverFlowException("The Big Integer value if to large to fit into a Double");
  }
  return m_isNegative ? -value : value;
}

}  // namespace QvXmlLib16
