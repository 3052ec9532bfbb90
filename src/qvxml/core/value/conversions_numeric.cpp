// The conversions of integers, booleans, char and string; conversions_real.cpp has those of
// floating point, conversions.cpp those of classes.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/core/value/conversions_internal.h"
#include "qvxml/core/whitespace_internal.h"

namespace QvXmlLib16 {

using detail::CNormalisedText;
using detail::IsRule;
using detail::NumberBuffer;
using detail::ParseResult;
using detail::ThrowInvalidValue;

namespace {

// Integers.

// The two messages of a kind. Kept: "to large" also for values that are too small.
struct IntegerMessages {
  const char* notANumber;
  const char* outOfRange;
};

constexpr IntegerMessages kI4Messages = {"The value [%s] can not be converted to a i4",
                                         "The value [%s] is to large to fit in a i4"};
constexpr IntegerMessages kI8Messages = {"The value [%s] can not be converted to a i8",
                                         "The value [%s] is to large to fit in a i8"};
constexpr IntegerMessages kUI4Messages = {"The value [%s] can not be converted to a ui4",
                                          "The value [%s] is to large to fit in a ui4"};
constexpr IntegerMessages kUI8Messages = {"The value [%s] can not be converted to a ui8",
                                          "The value [%s] is to large to fit in a ui8"};

template <class TInteger>
std::string IntegerToString(TInteger value) {
  NumberBuffer buffer;
  return std::string(detail::WriteInteger(value, buffer));
}

constexpr std::uint64_t kEveryByte = 0x0101010101010101u;

// True when the eight bytes are digits: the high half of each is 3, also after adding 6.
bool AreDigits(std::uint64_t bytes) {
  return ((bytes | (bytes + 0x06 * kEveryByte)) & 0xF0 * kEveryByte) == 0x30 * kEveryByte &&
         (bytes & 0xF0 * kEveryByte) == 0x30 * kEveryByte;
}

// Value of eight digits, the first in the lowest byte: joins pairs, then fours, then all.
std::uint64_t DigitsValue(std::uint64_t bytes) {
  bytes -= 0x30 * kEveryByte;
  bytes = bytes * 10 + (bytes >> 8);
  const std::uint64_t highPairs = (bytes & 0x000000FF000000FFu) * (100 + (1000000ull << 32));
  const std::uint64_t lowPairs = ((bytes >> 16) & 0x000000FF000000FFu) * (1 + (10000ull << 32));
  return (highPairs + lowPairs) >> 32;
}

// Reads text that is nothing but an optional minus and digits that surely fit.
template <class TWide>
bool ReadPlainInteger(std::string_view text, TWide& value) {
  const bool isNegative = !text.empty() && text.front() == '-';
  if (isNegative) text.remove_prefix(1);
  if (text.empty() || text.size() > 18) return false;
  std::uint64_t magnitude = 0;
  for (; text.size() >= 8; text.remove_prefix(8)) {
    std::uint64_t bytes;
    std::memcpy(&bytes, text.data(), sizeof bytes);
    if (!AreDigits(bytes)) return false;
    magnitude = magnitude * 100000000 + DigitsValue(bytes);
  }
  for (const char character : text) {
    const unsigned digit = static_cast<unsigned char>(character) - unsigned{'0'};
    if (digit > 9) return false;
    magnitude = magnitude * 10 + digit;
  }
  value = static_cast<TWide>(isNegative ? 0 - magnitude : magnitude);
  return true;
}

template <class TWide>
TWide ReadLenientInteger(const std::string& text, CWhitespaceUtils::WhitespaceRule rule,
                         const IntegerMessages& messages) {
  const CNormalisedText normalised(rule, text);
  TWide value;
  const ParseResult result = detail::ReadInteger(normalised.View(), value);
  if (result == ParseResult::OutOfRange) ThrowInvalidValue(messages.outOfRange, normalised.View());
  if (result == ParseResult::NotANumber) ThrowInvalidValue(messages.notANumber, normalised.View());
  return value;
}

template <class TWide>
TWide IntegerFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule,
                        const IntegerMessages& messages) {
  TWide value;
  if (IsRule(rule) && ReadPlainInteger(text, value)) return value;
  return ReadLenientInteger<TWide>(text, rule, messages);
}

template <class TNarrow>
TNarrow NarrowFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule,
                         const char* outOfRange) {
  using Limits = std::numeric_limits<TNarrow>;
  using Wide = std::conditional_t<Limits::is_signed, long long, unsigned long long>;
  const auto& messages = Limits::is_signed ? kI4Messages : kUI4Messages;
  const Wide value = IntegerFromString<Wide>(text, rule, messages);
  // Kept: quotes the text before the whitespace rule, as the wide kinds do not.
  if (value < Limits::min() || value > Limits::max()) ThrowInvalidValue(outOfRange, text);
  return static_cast<TNarrow>(value);
}

template <class TWide>
ParseResult ReadIntegerAs(std::string_view text, TWide& value) {
  using Limits = std::numeric_limits<TWide>;
  const char* position = text.data();
  const char* const end = position + text.size();
  const auto isSpace = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
  while (position != end && isSpace(*position)) ++position;
  bool isNegative = false;
  if (position != end && (*position == '-' || *position == '+')) isNegative = *position++ == '-';

  value = 0;
  std::uint64_t magnitude = 0;
  const auto [stop, error] = std::from_chars(position, end, magnitude);
  if (stop == position) {
    // Nothing is read then, not even the whitespace: only a NUL in front counts as the end.
    return !text.empty() && text.front() == '\0' ? ParseResult::Valid : ParseResult::NotANumber;
  }
  const std::uint64_t limit =
      static_cast<std::uint64_t>(Limits::max()) + (Limits::is_signed && isNegative ? 1 : 0);
  if (error != std::errc() || magnitude > limit) {
    value = Limits::is_signed && isNegative ? Limits::min() : Limits::max();
    return ParseResult::OutOfRange;
  }
  value = static_cast<TWide>(isNegative ? 0 - magnitude : magnitude);
  return stop == end || *stop == '\0' ? ParseResult::Valid : ParseResult::NotANumber;
}

// Booleans.

bool IsSameIgnoringCase(std::string_view text, std::string_view lowerCase) {
  return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                    [](char left, char right) {
                      return left == right || (left >= 'A' && left <= 'Z' && left + 32 == right);
                    });
}

bool ReadBoolean(std::string_view text, bool& value) {
  value = text == "1" || IsSameIgnoringCase(text, "true");
  return value || text == "0" || IsSameIgnoringCase(text, "false");
}

}  // namespace

namespace detail {

void ThrowInvalidValue(const char* message, std::string_view text) {
  throw CQvInvalidValueException(FormatString(message, std::string(text).c_str()));
}

ParseResult ReadInteger(std::string_view text, long long& value) {
  return ReadIntegerAs(text, value);
}

ParseResult ReadInteger(std::string_view text, unsigned long long& value) {
  return ReadIntegerAs(text, value);
}

}  // namespace detail

std::string CConversions::i1ToString(char value) { return IntegerToString(int{value}); }
std::string CConversions::i2ToString(short value) { return IntegerToString(value); }
std::string CConversions::i4ToString(long value) { return IntegerToString(value); }
std::string CConversions::i8ToString(long long value) { return IntegerToString(value); }
std::string CConversions::ui1ToString(unsigned char value) { return IntegerToString(int{value}); }
std::string CConversions::ui2ToString(unsigned short value) { return IntegerToString(value); }
std::string CConversions::ui4ToString(unsigned long value) { return IntegerToString(value); }
std::string CConversions::ui8ToString(unsigned long long value) { return IntegerToString(value); }

char CConversions::i1FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  return NarrowFromString<char>(text, rule, "The value [%s] is to large to fit in a i1");
}

short CConversions::i2FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  return NarrowFromString<short>(text, rule, "The value [%s] is to large to fit in a i2");
}

long CConversions::i4FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  return IntegerFromString<long long>(text, rule, kI4Messages);
}

long long CConversions::i8FromString(const std::string& text,
                                     CWhitespaceUtils::WhitespaceRule rule) {
  return IntegerFromString<long long>(text, rule, kI8Messages);
}

unsigned char CConversions::ui1FromString(const std::string& text,
                                          CWhitespaceUtils::WhitespaceRule rule) {
  return NarrowFromString<unsigned char>(text, rule, "The value [%s] is to large to fit in a ui1");
}

unsigned short CConversions::ui2FromString(const std::string& text,
                                           CWhitespaceUtils::WhitespaceRule rule) {
  return NarrowFromString<unsigned short>(text, rule, "The value [%s] is to large to fit in a ui2");
}

unsigned long CConversions::ui4FromString(const std::string& text,
                                          CWhitespaceUtils::WhitespaceRule rule) {
  return IntegerFromString<unsigned long long>(text, rule, kUI4Messages);
}

unsigned long long CConversions::ui8FromString(const std::string& text,
                                               CWhitespaceUtils::WhitespaceRule rule) {
  return IntegerFromString<unsigned long long>(text, rule, kUI8Messages);
}

std::string CConversions::booleanToString(bool value) { return value ? "true" : "false"; }

bool CConversions::booleanFromString(const std::string& text,
                                     CWhitespaceUtils::WhitespaceRule rule) {
  bool value;
  if (IsRule(rule) && ReadBoolean(text, value)) return value;
  const CNormalisedText normalised(rule, text);
  if (ReadBoolean(normalised.View().substr(0, normalised.View().find('\0')), value)) return value;
  ThrowInvalidValue(
      "A Boolean Value read from an XML document was invalid [%s]. Valid values are 'true', 'false', '1', or '0'",
      text);
}

std::string CConversions::charToString(char value) { return std::string(1, value); }

char CConversions::charFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  const CNormalisedText normalised(rule, text);
  if (normalised.View().size() != 1) {
    ThrowInvalidValue(
        "The value [%s] can not be a char as it is either empty of greater than 1 char long",
        normalised.View());
  }
  return normalised.View().front();
}

std::string CConversions::stringToString(const std::string& value) { return value; }

std::string CConversions::stringFromString(const std::string& text,
                                           CWhitespaceUtils::WhitespaceRule rule) {
  return CWhitespaceUtils::ApplyRule(rule, text);
}

}  // namespace QvXmlLib16
