// The text of every item type, appended and read in place: what CConversions does without a value
// or text of its own in between, for code that handles many.

#ifndef QVXML_CORE_VALUE_ITEM_TEXT_INTERNAL_H_
#define QVXML_CORE_VALUE_ITEM_TEXT_INTERNAL_H_

#include <string>
#include <string_view>

#include "qvxml/core/value/item_traits.h"

namespace QvXmlLib16::detail {

/// Appends what ItemTraits<kType>::ToText returns.
template <ItemType kType>
void AppendText(const typename ItemTraits<kType>::Carrier& value, std::string& text);

/// Reads what ItemTraits<kType>::FromText returns from the same text, which needs no NUL behind it,
/// and throws what that does; `value` is unchanged then.
template <ItemType kType>
void ParseInto(std::string_view text, CWhitespaceUtils::WhitespaceRule rule,
               typename ItemTraits<kType>::Carrier& value);

// The rows tell the types, the definitions are where CConversions' are.
#define QVXML_ITEM_TYPE(name, number, accessor, carrier, held, facets, fastInfoset)             \
  template <>                                                                                   \
  void AppendText<ItemType_##name>(const carrier& value, std::string& text);                    \
  template <>                                                                                   \
  void ParseInto<ItemType_##name>(std::string_view text, CWhitespaceUtils::WhitespaceRule rule, \
                                  carrier & value);
#include "qvxml/core/value/item_types.def"

// A null or empty format is the default; the text is that of CConversions::r8ToString and so on.
void AppendFormatted(float value, const char* format, std::string& text);
void AppendFormatted(double value, const char* format, std::string& text);
void AppendFormatted(const CDecimal& value, const char* format, std::string& text);

/// Appends the value with the format that the metadata gives, null or "" being none: that of r4, r8
/// and decimal, which the other types ignore.
template <ItemType kType>
void AppendText(const typename ItemTraits<kType>::Carrier& value, const char* format,
                std::string& text) {
  if constexpr (kType == ItemType_r4 || kType == ItemType_r8 || kType == ItemType_decimal) {
    AppendFormatted(value, format, text);
  } else {
    AppendText<kType>(value, text);
  }
}

/// Appends what `value.ToString(format)` returns and throws what that does.
void AppendText(const QvVariant& value, const char* format, std::string& text);

/// The text of a value as a string of its own.
template <ItemType kType>
std::string ToText(const typename ItemTraits<kType>::Carrier& value) {
  std::string text;
  AppendText<kType>(value, text);
  return text;
}

/// The value of a text as an object of its own.
template <ItemType kType>
typename ItemTraits<kType>::Carrier FromText(std::string_view text,
                                             CWhitespaceUtils::WhitespaceRule rule) {
  typename ItemTraits<kType>::Carrier value{};
  ParseInto<kType>(text, rule, value);
  return value;
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_VALUE_ITEM_TEXT_INTERNAL_H_
