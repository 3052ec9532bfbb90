// The conversions of integers, booleans, char and string; conversions_real.cpp has those of
// floating point, conversions.cpp those of classes.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "qvxml/core/digits_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/core/value/conversions_internal.h"
#include "qvxml/core/value/item_text_internal.h"
#include "qvxml/core/whitespace_internal.h"

namespace QvXmlLib16 {

using Rule = CWhitespaceUtils::WhitespaceRule;
using detail::CNormalisedText;
using detail::FromText;
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

// Made at once: appending to an empty text takes longer.
template <class TInteger>
std::string IntegerToString(TInteger value) {
  NumberBuffer buffer;
  return std::string(detail::WriteInteger(value, buffer));
}

template <class TInteger>
void AppendInteger(TInteger value, std::string& text) {
  NumberBuffer buffer;
  text += detail::WriteInteger(value, buffer);
}

// Reads text that is nothing but an optional minus and digits that surely fit.
template <class TWide>
bool ReadPlainInteger(std::string_view text, TWide& value) {
  const bool isNegative = !text.empty() && text.front() == '-';
  if (isNegative) text.remove_prefix(1);
  std::uint64_t magnitude = 0;
  if (!detail::ReadShortNumber(text, magnitude)) return false;
  value = static_cast<TWide>(isNegative ? 0 - magnitude : magnitude);
  return true;
}

template <class TWide>
TWide ReadLenientInteger(std::string_view text, Rule rule, const IntegerMessages& messages) {
  const CNormalisedText normalised(rule, text);
  TWide value;
  const ParseResult result = detail::ReadInteger(normalised.View(), value);
  if (result == ParseResult::OutOfRange) ThrowInvalidValue(messages.outOfRange, normalised.View());
  if (result == ParseResult::NotANumber) ThrowInvalidValue(messages.notANumber, normalised.View());
  return value;
}

template <class TWide>
TWide IntegerFromText(std::string_view text, Rule rule, const IntegerMessages& messages) {
  TWide value;
  if (IsRule(rule) && ReadPlainInteger(text, value)) return value;
  return ReadLenientInteger<TWide>(text, rule, messages);
}

template <class TNarrow>
TNarrow NarrowFromText(std::string_view text, Rule rule, const char* outOfRange) {
  using Limits = std::numeric_limits<TNarrow>;
  using Wide = std::conditional_t<Limits::is_signed, long long, unsigned long long>;
  const auto& messages = Limits::is_signed ? kI4Messages : kUI4Messages;
  const Wide value = IntegerFromText<Wide>(text, rule, messages);
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
  const bool isTrue = text == "1" || IsSameIgnoringCase(text, "true");
  if (!isTrue && text != "0" && !IsSameIgnoringCase(text, "false")) return false;
  value = isTrue;
  return true;
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

template <>
void AppendText<ItemType_i1>(const char& value, std::string& text) {
  AppendInteger(int{value}, text);
}

template <>
void ParseInto<ItemType_i1>(std::string_view text, Rule rule, char& value) {
  value = NarrowFromText<char>(text, rule, "The value [%s] is to large to fit in a i1");
}

template <>
void AppendText<ItemType_i2>(const short& value, std::string& text) {
  AppendInteger(value, text);
}

template <>
void ParseInto<ItemType_i2>(std::string_view text, Rule rule, short& value) {
  value = NarrowFromText<short>(text, rule, "The value [%s] is to large to fit in a i2");
}

template <>
void AppendText<ItemType_i4>(const long& value, std::string& text) {
  AppendInteger(value, text);
}

template <>
void ParseInto<ItemType_i4>(std::string_view text, Rule rule, long& value) {
  value = IntegerFromText<long long>(text, rule, kI4Messages);
}

template <>
void AppendText<ItemType_i8>(const long long& value, std::string& text) {
  AppendInteger(value, text);
}

template <>
void ParseInto<ItemType_i8>(std::string_view text, Rule rule, long long& value) {
  value = IntegerFromText<long long>(text, rule, kI8Messages);
}

template <>
void AppendText<ItemType_ui1>(const unsigned char& value, std::string& text) {
  AppendInteger(int{value}, text);
}

template <>
void ParseInto<ItemType_ui1>(std::string_view text, Rule rule, unsigned char& value) {
  value = NarrowFromText<unsigned char>(text, rule, "The value [%s] is to large to fit in a ui1");
}

template <>
void AppendText<ItemType_ui2>(const unsigned short& value, std::string& text) {
  AppendInteger(value, text);
}

template <>
void ParseInto<ItemType_ui2>(std::string_view text, Rule rule, unsigned short& value) {
  value = NarrowFromText<unsigned short>(text, rule, "The value [%s] is to large to fit in a ui2");
}

template <>
void AppendText<ItemType_ui4>(const unsigned long& value, std::string& text) {
  AppendInteger(value, text);
}

template <>
void ParseInto<ItemType_ui4>(std::string_view text, Rule rule, unsigned long& value) {
  value = IntegerFromText<unsigned long long>(text, rule, kUI4Messages);
}

template <>
void AppendText<ItemType_ui8>(const unsigned long long& value, std::string& text) {
  AppendInteger(value, text);
}

template <>
void ParseInto<ItemType_ui8>(std::string_view text, Rule rule, unsigned long long& value) {
  value = IntegerFromText<unsigned long long>(text, rule, kUI8Messages);
}

template <>
void AppendText<ItemType_boolean>(const bool& value, std::string& text) {
  text += value ? "true" : "false";
}

template <>
void ParseInto<ItemType_boolean>(std::string_view text, Rule rule, bool& value) {
  if (IsRule(rule) && ReadBoolean(text, value)) return;
  const CNormalisedText normalised(rule, text);
  if (ReadBoolean(normalised.ViewUpToNul(), value)) return;
  ThrowInvalidValue(
      "A Boolean Value read from an XML document was invalid [%s]. Valid values are 'true', 'false', '1', or '0'",
      text);
}

template <>
void AppendText<ItemType_char>(const char& value, std::string& text) {
  text += value;
}

template <>
void ParseInto<ItemType_char>(std::string_view text, Rule rule, char& value) {
  const CNormalisedText normalised(rule, text);
  if (normalised.View().size() != 1) {
    ThrowInvalidValue(
        "The value [%s] can not be a char as it is either empty of greater than 1 char long",
        normalised.View());
  }
  value = normalised.View().front();
}

template <>
void AppendText<ItemType_string>(const std::string& value, std::string& text) {
  text += value;
}

template <>
void ParseInto<ItemType_string>(std::string_view text, Rule rule, std::string& value) {
  value = CNormalisedText(rule, text).View();
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
std::string CConversions::booleanToString(bool value) { return value ? "true" : "false"; }
std::string CConversions::charToString(char value) { return std::string(1, value); }
std::string CConversions::stringToString(const std::string& value) { return value; }

char CConversions::i1FromString(const std::string& text, Rule rule) {
  return FromText<ItemType_i1>(text, rule);
}

short CConversions::i2FromString(const std::string& text, Rule rule) {
  return FromText<ItemType_i2>(text, rule);
}

long CConversions::i4FromString(const std::string& text, Rule rule) {
  return FromText<ItemType_i4>(text, rule);
}

long long CConversions::i8FromString(const std::string& text, Rule rule) {
  return FromText<ItemType_i8>(text, rule);
}

unsigned char CConversions::ui1FromString(const std::string& text, Rule rule) {
  return FromText<ItemType_ui1>(text, rule);
}

unsigned short CConversions::ui2FromString(const std::string& text, Rule rule) {
  return FromText<ItemType_ui2>(text, rule);
}

unsigned long CConversions::ui4FromString(const std::string& text, Rule rule) {
  return FromText<ItemType_ui4>(text, rule);
}

unsigned long long CConversions::ui8FromString(const std::string& text, Rule rule) {
  return FromText<ItemType_ui8>(text, rule);
}

bool CConversions::booleanFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_boolean>(text, rule);
}

char CConversions::charFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_char>(text, rule);
}

std::string CConversions::stringFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_string>(text, rule);
}

}  // namespace QvXmlLib16
