// The conversions of built-in types; conversions.cpp has those of classes.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <type_traits>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/core/value/conversions_internal.h"
#include "qvxml/core/whitespace_internal.h"

namespace QvXmlLib16 {

using detail::CNormalisedText;
using detail::NumberBuffer;
using detail::ParseResult;
using detail::TrimWhiteSpace;

namespace {

// `text` may hold NUL bytes and lack one at its end; the message ends at the first.
[[noreturn, gnu::cold]] void ThrowInvalidValue(const char* message, std::string_view text) {
  throw CQvInvalidValueException(FormatString(message, std::string(text).c_str()));
}

// What is left to parse under `rule` unless whitespace or a fault is inside; nothing for an unknown
// rule. Spares the common case the look at every byte that the whole rule needs.
std::string_view PlainCandidate(CWhitespaceUtils::WhitespaceRule rule, std::string_view text) {
  if (rule == CWhitespaceUtils::ws_collapse) return TrimWhiteSpace(text);
  return rule >= CWhitespaceUtils::ws_none && rule < CWhitespaceUtils::ws_collapse
             ? text
             : std::string_view();
}

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
  if (ReadPlainInteger(PlainCandidate(rule, text), value)) return value;
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

// Floating point.

// The end of the floating conversion whose "%" lies before `position`; null when it is another one.
const char* SkipRealConversion(const char* position) {
  const auto skipNumber = [&position] {
    const size_t digits = std::strspn(position, "0123456789");
    position += digits;
    return digits <= 4;
  };
  position += std::strspn(position, "-+ #0'");
  if (!skipNumber()) return nullptr;
  if (*position == '.') {
    ++position;
    if (!skipNumber()) return nullptr;
  }
  if (*position == 'l') ++position;
  return *position != '\0' && std::strchr("eEfFgGaA", *position) != nullptr ? position + 1
                                                                            : nullptr;
}

// Formats come from metadata: printf must not be led to arguments that are not there.
bool HasOneRealConversion(const char* format) {
  int count = 0;
  while ((format = std::strchr(format, '%')) != nullptr) {
    if (format[1] == '%') {
      format += 2;
      continue;
    }
    format = SkipRealConversion(format + 1);
    if (format == nullptr || ++count > 1) return false;
  }
  return count == 1;
}

// Writes the value as "%.<precision><letter>"; an empty result says that it does not fit.
std::string_view WritePlainReal(double value, char letter, int precision, NumberBuffer& buffer) {
  const std::chars_format form = letter == 'f'   ? std::chars_format::fixed
                                 : letter == 'e' ? std::chars_format::scientific
                                                 : std::chars_format::general;
  const auto [end, error] =
      std::to_chars(buffer.text, buffer.text + sizeof buffer.text - 1, value, form, precision);
  if (error != std::errc()) return std::string_view();
  return std::string_view(buffer.text, static_cast<size_t>(end - buffer.text));
}

// Handles "%f", "%.3f" and the like, up to 99 digits; gives an empty result for all other formats.
std::string_view WriteBySimpleFormat(double value, const char* format, NumberBuffer& buffer) {
  if (*format++ != '%') return std::string_view();
  int precision = 6;
  if (*format == '.') {
    const size_t digits = std::strspn(++format, "0123456789");
    if (digits > 2) return std::string_view();
    precision = 0;
    for (const char* const end = format + digits; format != end; ++format) {
      precision = precision * 10 + (*format - '0');
    }
  }
  const char letter = *format;
  if ((letter != 'e' && letter != 'f' && letter != 'g') || format[1] != '\0') {
    return std::string_view();
  }
  return WritePlainReal(value, letter, precision, buffer);
}

std::string_view WriteByFormat(double value, const char* format, NumberBuffer& buffer) {
  const std::string_view text = WriteBySimpleFormat(value, format, buffer);
  if (!text.empty() || !HasOneRealConversion(format)) return text;
  const CInvariantLocaleScope locale;
  const int length = std::snprintf(buffer.text, sizeof buffer.text, format, value);
  if (length < 0) return std::string_view();
  return std::string_view(buffer.text,
                          std::min(static_cast<size_t>(length), sizeof buffer.text - 1));
}

template <class TReal>
constexpr int kDefaultPrecision = std::is_same_v<TReal, float> ? 7 : 16;

// Integers below this limit have no more digits than the default precision.
template <class TReal>
constexpr double kIntegerLimit = std::is_same_v<TReal, float> ? 1e7 : 1e15;

template <class TReal>
std::string_view WriteRealAs(TReal value, const std::string& format, NumberBuffer& buffer) {
  if (value != value) return "NaN";
  if (value < -std::numeric_limits<TReal>::max()) return "-INF";
  if (value > std::numeric_limits<TReal>::max()) return "INF";
  if (!format.empty()) {
    const std::string_view text = WriteByFormat(value, format.c_str(), buffer);
    if (!text.empty()) return text;
  }
  if (value > -kIntegerLimit<TReal> && value < kIntegerLimit<TReal> && value != 0) {
    const auto integer = static_cast<long long>(value);
    if (static_cast<TReal>(integer) == value) return detail::WriteInteger(integer, buffer);
  }
  return WritePlainReal(value, 'g', kDefaultPrecision<TReal>, buffer);
}

// Reads decimal numbers in range, for which from_chars and strtod agree on grammar and value.
bool ReadPlainReal(std::string_view text, double& value) {
  const size_t first = !text.empty() && text.front() == '-' ? 1 : 0;
  if (first == text.size()) return false;
  const bool startsNumber = (text[first] >= '0' && text[first] <= '9') || text[first] == '.';
  if (!startsNumber) return false;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return stop == end && error == std::errc();
}

bool ReadSpecialReal(std::string_view text, double& value) {
  if (text == "NaN" || text == "1.#QNAN" || text == "-NAN") {
    value = std::numeric_limits<double>::quiet_NaN();
  } else if (text == "-INF") {
    value = -std::numeric_limits<double>::infinity();
  } else if (text == "INF") {
    value = std::numeric_limits<double>::infinity();
  } else {
    return false;
  }
  return true;
}

double ReadLenientReal(const std::string& text, CWhitespaceUtils::WhitespaceRule rule,
                       const char* message) {
  const std::string normalised = CWhitespaceUtils::ApplyRule(rule, text);
  if (normalised.empty()) ThrowInvalidValue(message, normalised);
  double value;
  if (ReadSpecialReal(normalised, value)) return value;
  const CInvariantLocaleScope locale;
  char* stop = nullptr;
  value = std::strtod(normalised.c_str(), &stop);
  if (*stop != '\0') ThrowInvalidValue(message, normalised);
  return value;
}

double RealFromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule,
                      const char* message) {
  double value;
  if (ReadPlainReal(PlainCandidate(rule, text), value)) return value;
  return ReadLenientReal(text, rule, message);
}

bool IsSameIgnoringCase(std::string_view text, std::string_view lowerCase) {
  return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                    [](char left, char right) {
                      return left == right || (left >= 'A' && left <= 'Z' && left + 32 == right);
                    });
}

}  // namespace

namespace detail {

std::string_view WriteReal(float value, const std::string& format, NumberBuffer& buffer) {
  return WriteRealAs(value, format, buffer);
}

std::string_view WriteReal(double value, const std::string& format, NumberBuffer& buffer) {
  return WriteRealAs(value, format, buffer);
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

std::string CConversions::r4ToString(float value, const std::string& format) {
  NumberBuffer buffer;
  return std::string(detail::WriteReal(value, format, buffer));
}

std::string CConversions::r4ToString(float value) { return r4ToString(value, std::string()); }

std::string CConversions::r8ToString(double value, const std::string& format) {
  NumberBuffer buffer;
  return std::string(detail::WriteReal(value, format, buffer));
}

std::string CConversions::r8ToString(double value) { return r8ToString(value, std::string()); }

float CConversions::r4FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  // Kept: rounds twice, so the result may differ in its last bit from the float nearest the text.
  return static_cast<float>(
      RealFromString(text, rule, "The value [%s] can not be converted to a r4"));
}

double CConversions::r8FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  return RealFromString(text, rule, "The value [%s] can not be converted to a r8");
}

std::string CConversions::booleanToString(bool value) { return value ? "true" : "false"; }

bool CConversions::booleanFromString(const std::string& text,
                                     CWhitespaceUtils::WhitespaceRule rule) {
  const CNormalisedText normalised(rule, text);
  const std::string_view view = normalised.View().substr(0, normalised.View().find('\0'));
  if (IsSameIgnoringCase(view, "true") || view == "1") return true;
  if (IsSameIgnoringCase(view, "false") || view == "0") return false;
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
