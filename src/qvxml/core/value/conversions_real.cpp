// The conversions of floating point.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <type_traits>

#include "qvxml/core/digits_internal.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/core/value/conversions_internal.h"
#include "qvxml/core/value/item_text_internal.h"
#include "qvxml/core/value/short_real_internal.h"
#include "qvxml/core/whitespace_internal.h"

namespace QvXmlLib16 {

using detail::NumberBuffer;

namespace {

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

// Formats come from metadata: printf must not be led to arguments that are not there. Text without
// any conversion is a format, too.
bool ReadsAtMostOneReal(const char* format) {
  int count = 0;
  while ((format = std::strchr(format, '%')) != nullptr) {
    if (format[1] == '%') {
      format += 2;
      continue;
    }
    format = SkipRealConversion(format + 1);
    if (format == nullptr || ++count > 1) return false;
  }
  return true;
}

// Writes the value as "%.<precision><letter>"; an empty result says that it does not fit.
std::string_view WritePlainReal(double value, char letter, int precision, NumberBuffer& buffer) {
  const std::chars_format form = letter == 'f'   ? std::chars_format::fixed
                                 : letter == 'e' ? std::chars_format::scientific
                                                 : std::chars_format::general;
  const auto [end, error] =
      std::to_chars(buffer.text, buffer.text + NumberBuffer::kMostText, value, form, precision);
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
  if (!text.empty() || !ReadsAtMostOneReal(format)) return text;
  const CInvariantLocaleScope locale;
  const int length = std::snprintf(buffer.text, NumberBuffer::kMostText + 1, format, value);
  if (length < 0) return std::string_view();
  return std::string_view(buffer.text,
                          std::min(static_cast<size_t>(length), NumberBuffer::kMostText));
}

template <class TReal>
constexpr double kShortLimit = std::is_same_v<TReal, float> ? 1e6 : 1e15;

template <class TReal>
constexpr int kDefaultPrecision = std::is_same_v<TReal, float> ? 7 : 16;

// Writes the value as "%.<precision>g" if it lies below `limit`, 10^(precision - 1), and has no
// exponent; an empty result says that it does not.
std::string_view WriteShortReal(double value, int precision, double limit, NumberBuffer& buffer) {
  static_assert(sizeof buffer.text > detail::CShortReal::kRoom);
  const double magnitude = std::fabs(value);
  if (!(magnitude >= 1e-4 && magnitude < limit)) return std::string_view();
  char* out = buffer.text;
  if (value < 0) *out++ = '-';
  out = detail::CShortReal(magnitude, precision).Write(out);
  return std::string_view(buffer.text, static_cast<size_t>(out - buffer.text));
}

// Integers below this limit have no more digits than the default precision.
template <class TReal>
constexpr double kIntegerLimit = std::is_same_v<TReal, float> ? 1e7 : 1e15;

template <class TReal>
std::string_view WriteRealAs(TReal value, const char* format, NumberBuffer& buffer) {
  if (value != value) return "NaN";
  if (value < -std::numeric_limits<TReal>::max()) return "-INF";
  if (value > std::numeric_limits<TReal>::max()) return "INF";
  if (format != nullptr && *format != '\0') {
    const std::string_view text = WriteByFormat(value, format, buffer);
    if (!text.empty()) return text;
  }
  if (value > -kIntegerLimit<TReal> && value < kIntegerLimit<TReal> && value != 0) {
    const auto integer = static_cast<long long>(value);
    if (static_cast<TReal>(integer) == value) return detail::WriteInteger(integer, buffer);
  }
  const std::string_view text =
      WriteShortReal(value, kDefaultPrecision<TReal>, kShortLimit<TReal>, buffer);
  return !text.empty() ? text : WritePlainReal(value, 'g', kDefaultPrecision<TReal>, buffer);
}

// Appends the digits at `position` to `number`, which may wrap; returns where they end.
const char* ReadDigits(const char* position, const char* end, std::uint64_t& number) {
  for (std::uint64_t bytes; end - position >= 8; position += 8) {
    std::memcpy(&bytes, position, sizeof bytes);
    if (!detail::AreDigits(bytes)) break;
    number = number * 100000000 + detail::DigitsValue(bytes);
  }
  for (; position != end; ++position) {
    const unsigned digit = static_cast<unsigned char>(*position) - unsigned{'0'};
    if (digit > 9) break;
    number = number * 10 + digit;
  }
  return position;
}

// Adds an exponent of at most two digits that ends the text.
bool AddShortExponent(const char* position, const char* end, std::ptrdiff_t& exponent) {
  if (*position != 'e' && *position != 'E') return false;
  ++position;
  const bool isNegative = position != end && *position == '-';
  if (position != end && (*position == '-' || *position == '+')) ++position;
  if (position == end || end - position > 2) return false;
  std::uint64_t number = 0;
  if (ReadDigits(position, end, number) != end) return false;
  exponent +=
      isNegative ? -static_cast<std::ptrdiff_t>(number) : static_cast<std::ptrdiff_t>(number);
  return true;
}

// Reads a number whose digits, taken as an integer, and whose power of ten are exact doubles, so
// that one operation on them gives the nearest double.
bool ReadShortReal(std::string_view text, double& value) {
  static constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  constexpr auto kHighest = static_cast<std::ptrdiff_t>(std::size(kPowersOfTen)) - 1;
  constexpr std::uint64_t kHighestExact = std::uint64_t{1} << 53;
  // So many do not wrap.
  constexpr std::ptrdiff_t kMostDigits = 19;
  const bool isNegative = !text.empty() && text.front() == '-';
  if (isNegative) text.remove_prefix(1);
  if (text.size() > kMostDigits + std::string_view(".e-22").size()) return false;

  const char* const end = text.data() + text.size();
  std::uint64_t digits = 0;
  const char* position = ReadDigits(text.data(), end, digits);
  std::ptrdiff_t count = position - text.data();
  std::ptrdiff_t exponent = 0;
  if (position != end && *position == '.') {
    const char* const fraction = position + 1;
    position = ReadDigits(fraction, end, digits);
    exponent = fraction - position;
    count -= exponent;
  }
  if (count == 0 || count > kMostDigits || digits > kHighestExact) return false;
  if (position != end && !AddShortExponent(position, end, exponent)) return false;
  if (exponent < -kHighest || exponent > kHighest) return false;
  value = static_cast<double>(static_cast<std::int64_t>(digits));
  value = exponent < 0 ? value / kPowersOfTen[-exponent] : value * kPowersOfTen[exponent];
  if (isNegative) value = -value;
  return true;
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

// strtod in the C locale; false when it stops before the end and before a NUL.
bool ReadByLibrary(const std::string& text, double& value) {
  const CInvariantLocaleScope locale;
  char* stop = nullptr;
  value = std::strtod(text.c_str(), &stop);
  return !text.empty() && *stop == '\0';
}

double RealFromText(std::string_view text, CWhitespaceUtils::WhitespaceRule rule,
                    const char* message) {
  double value;
  if (detail::IsRule(rule) && detail::ReadDecimalReal(text, value)) return value;
  const detail::CNormalisedText normalised(rule, text);
  const std::string_view view = normalised.View();
  if (ReadSpecialReal(view, value) || detail::ReadDecimalReal(view, value) ||
      ReadByLibrary(std::string(view), value)) {
    return value;
  }
  detail::ThrowInvalidValue(message, view);
}

}  // namespace

namespace detail {

// from_chars and strtod agree on the grammar and value of such text.
bool ReadDecimalReal(std::string_view text, double& value) {
  if (ReadShortReal(text, value)) return true;
  const size_t first = !text.empty() && text.front() == '-' ? 1 : 0;
  if (first == text.size()) return false;
  const bool startsNumber = (text[first] >= '0' && text[first] <= '9') || text[first] == '.';
  if (!startsNumber) return false;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return stop == end && error == std::errc();
}

std::string_view WriteReal(float value, const char* format, NumberBuffer& buffer) {
  return WriteRealAs(value, format, buffer);
}

std::string_view WriteReal(double value, const char* format, NumberBuffer& buffer) {
  return WriteRealAs(value, format, buffer);
}

void AppendFormatted(float value, const char* format, std::string& text) {
  NumberBuffer buffer;
  text += WriteReal(value, format, buffer);
}

void AppendFormatted(double value, const char* format, std::string& text) {
  NumberBuffer buffer;
  text += WriteReal(value, format, buffer);
}

template <>
void AppendText<ItemType_r4>(const float& value, std::string& text) {
  AppendFormatted(value, nullptr, text);
}

template <>
void ParseInto<ItemType_r4>(std::string_view text, CWhitespaceUtils::WhitespaceRule rule,
                            float& value) {
  // Kept: rounds twice, so the result may differ in its last bit from the float nearest the text.
  value =
      static_cast<float>(RealFromText(text, rule, "The value [%s] can not be converted to a r4"));
}

template <>
void AppendText<ItemType_r8>(const double& value, std::string& text) {
  AppendFormatted(value, nullptr, text);
}

template <>
void ParseInto<ItemType_r8>(std::string_view text, CWhitespaceUtils::WhitespaceRule rule,
                            double& value) {
  value = RealFromText(text, rule, "The value [%s] can not be converted to a r8");
}

}  // namespace detail

std::string CConversions::r4ToString(float value, const std::string& format) {
  std::string text;
  detail::AppendFormatted(value, format.c_str(), text);
  return text;
}

std::string CConversions::r4ToString(float value) { return detail::ToText<ItemType_r4>(value); }

std::string CConversions::r8ToString(double value, const std::string& format) {
  std::string text;
  detail::AppendFormatted(value, format.c_str(), text);
  return text;
}

std::string CConversions::r8ToString(double value) { return detail::ToText<ItemType_r8>(value); }

float CConversions::r4FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  return detail::FromText<ItemType_r4>(text, rule);
}

double CConversions::r8FromString(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  return detail::FromText<ItemType_r8>(text, rule);
}

}  // namespace QvXmlLib16
