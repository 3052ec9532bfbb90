// Numbers to and from text without a std::string in between, for CConversions and for code that
// reads and writes many of them.

#ifndef QVXML_CORE_VALUE_CONVERSIONS_INTERNAL_H_
#define QVXML_CORE_VALUE_CONVERSIONS_INTERNAL_H_

#include <charconv>
#include <cstddef>
#include <string_view>

namespace QvXmlLib16::detail {

/// Room for the text of any one number, which is cut at kMostText characters, and for what is
/// copied behind it in passing.
struct NumberBuffer {
  static constexpr size_t kMostText = 31;
  char text[40];
};

/// The decimal text of `value`, written into `buffer`.
template <class TInteger>
std::string_view WriteInteger(TInteger value, NumberBuffer& buffer) {
  char* const end = std::to_chars(buffer.text, buffer.text + sizeof buffer.text, value).ptr;
  return std::string_view(buffer.text, static_cast<size_t>(end - buffer.text));
}

/// The text that CConversions::r4ToString and r8ToString return, written into `buffer` or constant.
/// A null `format` is "".
std::string_view WriteReal(float value, const char* format, NumberBuffer& buffer);
std::string_view WriteReal(double value, const char* format, NumberBuffer& buffer);

/// Reads a decimal number in range as the double nearest to it; false for all other text.
bool ReadDecimalReal(std::string_view text, double& value);

enum class ParseResult { Valid, NotANumber, OutOfRange };

/// What strtoll (strtoull for the unsigned type) makes of `text` in base 10 in the C locale, with
/// OutOfRange for ERANGE and NotANumber when it stops before the end of the text and before a NUL.
/// `value` is its result in every case. The text need not be terminated.
ParseResult ReadInteger(std::string_view text, long long& value);
ParseResult ReadInteger(std::string_view text, unsigned long long& value);

/// Throws CQvInvalidValueException; the one "%s" of `message` is `text` up to its first NUL.
[[noreturn, gnu::cold]] void ThrowInvalidValue(const char* message, std::string_view text);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_VALUE_CONVERSIONS_INTERNAL_H_
