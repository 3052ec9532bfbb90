// What the octets of the built-in encoding algorithms stand for.

#include <charconv>
#include <cmath>
#include <cstring>

#include "qvxml/core/value/conversions_internal.h"
#include "qvxml/fastinfoset/fi_encoding_internal.h"
#include "qvxml/fastinfoset/fi_text_internal.h"
#include "qvxml/types/base64.h"

namespace QvXmlLib16::detail::fi {

namespace {

template <class TUnsigned>
TUnsigned LoadBigEndian(const char* octets) {
  TUnsigned value = 0;
  for (size_t i = 0; i < sizeof value; ++i) {
    value = static_cast<TUnsigned>(value << 8 | static_cast<unsigned char>(octets[i]));
  }
  return value;
}

template <class TNumber>
TNumber LoadAs(const char* octets) {
  if constexpr (sizeof(TNumber) == 2) {
    return static_cast<TNumber>(LoadBigEndian<std::uint16_t>(octets));
  } else {
    using TBits = std::conditional_t<sizeof(TNumber) == 4, std::uint32_t, std::uint64_t>;
    const TBits bits = LoadBigEndian<TBits>(octets);
    TNumber number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
  }
}

template <class TInteger>
std::string_view WriteNumber(TInteger value, NumberBuffer& buffer) {
  return WriteInteger(value, buffer);
}

bool IsReadAs(std::string_view text, float value) {
  float back = 0;
  return std::from_chars(text.data(), text.data() + text.size(), back).ec == std::errc() &&
         back == value;
}

bool IsReadAs(std::string_view text, double value) {
  double back = 0;
  return ReadDecimalReal(text, back) && back == value;
}

// The usual text has too few digits for some values.
template <class TReal>
std::string_view WriteExactReal(TReal value, NumberBuffer& buffer) {
  const std::string_view usual = WriteReal(value, nullptr, buffer);
  if (!std::isfinite(value)) return usual;
  if (IsReadAs(usual, value)) return usual;
  char* const end = std::to_chars(buffer.text, buffer.text + sizeof buffer.text, value).ptr;
  return std::string_view(buffer.text, static_cast<size_t>(end - buffer.text));
}

std::string_view WriteNumber(float value, NumberBuffer& buffer) {
  return WriteExactReal(value, buffer);
}

std::string_view WriteNumber(double value, NumberBuffer& buffer) {
  return WriteExactReal(value, buffer);
}

template <class TNumber>
bool DecodeNumbers(std::string_view octets, std::string& text) {
  if (octets.size() % sizeof(TNumber) != 0) return false;
  text.clear();
  for (size_t i = 0; i < octets.size(); i += sizeof(TNumber)) {
    if (i != 0) text += ' ';
    NumberBuffer buffer;
    text += WriteNumber(LoadAs<TNumber>(octets.data() + i), buffer);
  }
  return true;
}

bool DecodeBooleans(std::string_view octets, std::string& text) {
  const auto bitAt = [octets](size_t index) {
    return (static_cast<unsigned char>(octets[index / 8]) >> (7 - index % 8) & 1) != 0;
  };
  constexpr size_t kCountBits = 4;
  const size_t unused = static_cast<unsigned char>(octets[0]) >> kCountBits;
  const size_t end = octets.size() * 8 - unused;
  if (unused > 7 || end <= kCountBits) return false;
  text.clear();
  for (size_t i = kCountBits; i < end; ++i) {
    if (i != kCountBits) text += ' ';
    text += bitAt(i) ? "true" : "false";
  }
  for (size_t i = end; i < octets.size() * 8; ++i) {
    if (bitAt(i)) return false;
  }
  return true;
}

void AppendHex(std::string_view octets, const char* digits, std::string& text) {
  for (const char octet : octets) {
    const auto value = static_cast<unsigned char>(octet);
    text += digits[value >> 4];
    text += digits[value & 0x0F];
  }
}

bool DecodeHexadecimal(std::string_view octets, std::string& text) {
  text.clear();
  text.reserve(2 * octets.size());
  AppendHex(octets, "0123456789ABCDEF", text);
  return true;
}

bool DecodeUuids(std::string_view octets, std::string& text) {
  constexpr size_t kUuidSize = 16;
  constexpr size_t kGroups[] = {4, 2, 2, 2, 6};
  if (octets.size() % kUuidSize != 0) return false;
  text.clear();
  for (size_t i = 0; i < octets.size(); i += kUuidSize) {
    if (i != 0) text += ' ';
    size_t position = i;
    for (const size_t group : kGroups) {
      if (position != i) text += '-';
      AppendHex(octets.substr(position, group), "0123456789abcdef", text);
      position += group;
    }
  }
  return true;
}

}  // namespace

bool DecodeAlgorithm(unsigned algorithm, std::string_view octets, std::string& text) {
  switch (algorithm) {
    case kHexadecimal:
      return DecodeHexadecimal(octets, text);
    case kBase64:
      text = CBase64::Encode(reinterpret_cast<const unsigned char*>(octets.data()), octets.size());
      return true;
    case kShort:
      return DecodeNumbers<std::int16_t>(octets, text);
    case kInt:
      return DecodeNumbers<std::int32_t>(octets, text);
    case kLong:
      return DecodeNumbers<std::int64_t>(octets, text);
    case kBoolean:
      return DecodeBooleans(octets, text);
    case kFloat:
      return DecodeNumbers<float>(octets, text);
    case kDouble:
      return DecodeNumbers<double>(octets, text);
    case kUuid:
      return DecodeUuids(octets, text);
    default:
      return false;
  }
}

}  // namespace QvXmlLib16::detail::fi
