#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>

#include "qvxml/core/exception.h"
#include "qvxml/core/value/item_text_internal.h"
#include "qvxml/fastinfoset/fi_algorithms_internal.h"
#include "qvxml/fastinfoset/fi_encoding_internal.h"
#include "qvxml/fastinfoset/fi_output_internal.h"
#include "qvxml/types/base64.h"

namespace QvXmlLib16::detail {

using namespace fi;

namespace {

constexpr unsigned char kNone = 0xFF;
using ByteTable = std::array<unsigned char, 256>;

constexpr ByteTable PositionsIn(std::string_view characters, char unused) {
  ByteTable table{};
  table.fill(kNone);
  for (size_t i = 0; i < characters.size(); ++i) {
    if (characters[i] != unused) {
      table[static_cast<unsigned char>(characters[i])] = static_cast<unsigned char>(i);
    }
  }
  return table;
}

constexpr ByteTable kNumericValues = PositionsIn(kNumericCharacters, 'e');
constexpr ByteTable kDateAndTimeValues = PositionsIn(kDateAndTimeCharacters, '\0');
constexpr ByteTable kHexadecimalValues = PositionsIn("0123456789ABCDEF", '\0');
constexpr ByteTable kBase64Values =
    PositionsIn("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/", '\0');

// Two characters an octet; false when the table lacks one of them.
bool PackPairs(const ByteTable& values, const char* text, size_t pairs,
               unsigned char* to) noexcept {
  unsigned seen = 0;
  for (size_t i = 0; i < pairs; ++i) {
    const unsigned high = values[static_cast<unsigned char>(text[2 * i])];
    const unsigned low = values[static_cast<unsigned char>(text[2 * i + 1])];
    seen |= high | low;
    to[i] = static_cast<unsigned char>(high << 4 | low);
  }
  return seen < 16;
}

// Decimal text with no needless character.
template <class TInteger>
bool WriteInteger(std::string_view text, unsigned char* to) noexcept {
  constexpr size_t kMostDigits = 19;
  const bool isNegative = text.front() == '-';
  if (isNegative) text.remove_prefix(1);
  if (text.empty() || text.size() > kMostDigits) return false;
  if (text.front() == '0' && (isNegative || text.size() > 1)) return false;
  std::uint64_t magnitude = 0;
  for (const char character : text) {
    const unsigned digit = static_cast<unsigned char>(character) - unsigned{'0'};
    if (digit > 9) return false;
    magnitude = magnitude * 10 + digit;
  }
  const std::uint64_t limit =
      static_cast<std::uint64_t>(std::numeric_limits<TInteger>::max()) + (isNegative ? 1 : 0);
  if (magnitude > limit) return false;
  using Bits = std::make_unsigned_t<TInteger>;
  StoreBigEndian(static_cast<Bits>(isNegative ? 0 - magnitude : magnitude), to);
  return true;
}

size_t CountDigits(std::string_view text) noexcept {
  size_t count = 0;
  while (count < text.size() && text[count] >= '0' && text[count] <= '9') ++count;
  return count;
}

// Digits from the first to the last that is not 0.
size_t SignificantDigits(std::string_view whole, std::string_view fraction) noexcept {
  const size_t first = whole.find_first_not_of('0');
  const size_t lastOfFraction = fraction.find_last_not_of('0');
  if (first == std::string_view::npos) {
    if (lastOfFraction == std::string_view::npos) return 0;
    return lastOfFraction + 1 - fraction.find_first_not_of('0');
  }
  if (lastOfFraction != std::string_view::npos) return whole.size() - first + lastOfFraction + 1;
  return whole.find_last_not_of('0') + 1 - first;
}

// Whether the text is a decimal number; tells its significant digits.
bool IsReal(std::string_view text, size_t& digits) noexcept {
  if (!text.empty() && text.front() == '-') text.remove_prefix(1);
  const std::string_view whole = text.substr(0, CountDigits(text));
  text.remove_prefix(whole.size());
  std::string_view fraction;
  if (!text.empty() && text.front() == '.') {
    fraction = text.substr(1, CountDigits(text.substr(1)));
    if (fraction.empty()) return false;
    text.remove_prefix(1 + fraction.size());
  }
  digits = SignificantDigits(whole, fraction);
  if (whole.empty()) return false;
  if (text.empty()) return true;
  if (text.front() != 'e' && text.front() != 'E') return false;
  text.remove_prefix(1);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  return !text.empty() && CountDigits(text) == text.size();
}

template <class TReal>
struct RealTraits;

template <>
struct RealTraits<float> {
  using Bits = std::uint32_t;
  static constexpr Bits kNaN = kFloatNaN;
  // What a reader that writes that many digits brings back.
  static constexpr size_t kMostDigits = 7;
  static float FromText(std::string_view text) {
    return detail::FromText<ItemType_r4>(text, CWhitespaceUtils::ws_none);
  }
};

template <>
struct RealTraits<double> {
  using Bits = std::uint64_t;
  static constexpr Bits kNaN = kDoubleNaN;
  static constexpr size_t kMostDigits = 16;
  static double FromText(std::string_view text) {
    return detail::FromText<ItemType_r8>(text, CWhitespaceUtils::ws_none);
  }
};

template <class TReal>
bool WriteReal(std::string_view text, unsigned char* to) {
  using Traits = RealTraits<TReal>;
  typename Traits::Bits bits = Traits::kNaN;
  TReal value = std::numeric_limits<TReal>::infinity();
  size_t digits = 0;
  if (IsReal(text, digits)) {
    if (digits > Traits::kMostDigits) return false;
    value = Traits::FromText(text);
    // Out of range to either side.
    if (std::isinf(value) || (value == 0 && digits != 0)) return false;
  } else if (text == "-INF") {
    value = -value;
  } else if (text != "INF" && text != "NaN") {
    return false;
  }
  if (text != "NaN") std::memcpy(&bits, &value, sizeof bits);
  StoreBigEndian(bits, to);
  return true;
}

bool WriteBoolean(std::string_view text, unsigned char* to) noexcept {
  *to = text == "true" ? kOneTrue : kOneFalse;
  return text == "true" || text == "false";
}

size_t CountPadding(std::string_view text) noexcept {
  const size_t length = text.size();
  if (text[length - 1] != '=') return 0;
  return text[length - 2] == '=' ? 2 : 1;
}

// Only what an encoder writes: in particular the bits that the padding leaves over are 0.
bool WriteBase64(std::string_view text, unsigned char* to) {
  const size_t padding = CountPadding(text);
  const size_t characters = text.size() - padding;
  unsigned seen = 0;
  for (size_t i = 0; i < characters; ++i) {
    seen |= kBase64Values[static_cast<unsigned char>(text[i])];
  }
  const unsigned leftOver = padding == 0 ? 0 : padding == 1 ? 3 : 15;
  const unsigned last = kBase64Values[static_cast<unsigned char>(text[characters - 1])];
  if (seen > 63 || (last & leftOver) != 0) return false;
  CBase64::Decode(text.data(), text.size(), to);
  return true;
}

}  // namespace

size_t GetAlphabetLength(unsigned alphabet, std::string_view text) noexcept {
  return alphabet == kNumeric || alphabet == kDateAndTime ? (text.size() + 1) / 2 : 0;
}

bool WriteInAlphabet(unsigned alphabet, std::string_view text, unsigned char* to) noexcept {
  const ByteTable& values = alphabet == kNumeric ? kNumericValues : kDateAndTimeValues;
  const size_t pairs = text.size() / 2;
  if (!PackPairs(values, text.data(), pairs, to)) return false;
  if (text.size() % 2 == 0) return true;
  const unsigned last = values[static_cast<unsigned char>(text.back())];
  to[pairs] = static_cast<unsigned char>(last << 4 | kAlphabetFiller);
  return last < 16;
}

size_t GetAlgorithmLength(unsigned algorithm, std::string_view text) noexcept {
  switch (algorithm) {
    case kHexadecimal:
      return text.size() % 2 == 0 ? text.size() / 2 : 0;
    case kBase64:
      return text.size() % 4 == 0 ? text.size() / 4 * 3 - CountPadding(text) : 0;
    case kBoolean:
      return 1;
    case kShort:
      return 2;
    case kInt:
    case kFloat:
      return 4;
    case kLong:
    case kDouble:
      return 8;
    default:
      return 0;
  }
}

bool WriteByAlgorithm(unsigned algorithm, std::string_view text, unsigned char* to) {
  switch (algorithm) {
    case kHexadecimal:
      return PackPairs(kHexadecimalValues, text.data(), text.size() / 2, to);
    case kBase64:
      return WriteBase64(text, to);
    case kShort:
      return WriteInteger<std::int16_t>(text, to);
    case kInt:
      return WriteInteger<std::int32_t>(text, to);
    case kLong:
      return WriteInteger<std::int64_t>(text, to);
    case kBoolean:
      return WriteBoolean(text, to);
    case kFloat:
      return WriteReal<float>(text, to);
    case kDouble:
      return WriteReal<double>(text, to);
    default:
      return false;
  }
}

}  // namespace QvXmlLib16::detail
