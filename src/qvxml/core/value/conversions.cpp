// The conversions of value classes, which forward to them; conversions_numeric.cpp has the rest.

#include "qvxml/core/value/conversions.h"

#include <algorithm>
#include <limits>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/conversions_internal.h"
#include "qvxml/core/value/item_text_internal.h"
#include "qvxml/core/whitespace_internal.h"

namespace QvXmlLib16 {

using Rule = CWhitespaceUtils::WhitespaceRule;
using detail::AppendText;
using detail::CNormalisedText;
using detail::FromText;
using detail::ToText;

namespace {

int FractionDigits(const char* format) {
  using Limits = std::numeric_limits<int>;
  long long digits;
  // Whatever follows the number is ignored.
  static_cast<void>(detail::ReadInteger(format, digits));
  return static_cast<int>(std::clamp<long long>(digits, Limits::min(), Limits::max()));
}

template <class TValue>
void ParseBy(void (TValue::*parse)(const char*, size_t), std::string_view text, Rule rule,
             TValue& value) {
  const CNormalisedText normalised(rule, text);
  const std::string_view view = normalised.ViewUpToNul();
  (value.*parse)(view.data(), view.size());
}

void ParseDate(std::string_view text, Rule rule, CDateTime& value) {
  ParseBy<CDateTime>(&CDateTime::ParseXSDDate, text, rule, value);
}

template <class TField>
TField ParseDateField(std::string_view text, Rule rule, TField (CDateTime::*get)() const) {
  CDateTime date;
  ParseDate(text, rule, date);
  return (date.*get)();
}

// Appends a month or day, of at most three digits, padded to two.
void AppendField(unsigned char value, std::string& text) {
  if (value < 10) text += '0';
  AppendText<ItemType_ui1>(value, text);
}

}  // namespace

namespace detail {

template <>
void AppendText<ItemType_decimal>(const CDecimal& value, std::string& text) {
  value.AppendTo(text);
}

void AppendFormatted(const CDecimal& value, const char* format, std::string& text) {
  if (format == nullptr || *format == '\0') return value.AppendTo(text);
  text += value.ToString(FractionDigits(format));
}

template <>
void ParseInto<ItemType_decimal>(std::string_view text, Rule rule, CDecimal& value) {
  // Without whitespace, which the rules are about.
  if (detail::IsRule(rule) && value.ParseShort(text)) return;
  const CNormalisedText normalised(rule, text);
  value.Parse(normalised.View().data(), normalised.View().size());
}

template <>
void AppendText<ItemType_integer>(const CBigInteger& value, std::string& text) {
  value.AppendTo(text);
}

template <>
void ParseInto<ItemType_integer>(std::string_view text, Rule rule, CBigInteger& value) {
  const CNormalisedText normalised(rule, text);
  value.Parse(normalised.View().data(), normalised.View().size());
}

template <>
void AppendText<ItemType_hexBinary>(const CBinaryData& value, std::string& text) {
  value.AppendHexTo(text);
}

template <>
void ParseInto<ItemType_hexBinary>(std::string_view text, Rule rule, CBinaryData& value) {
  ParseBy<CBinaryData>(&CBinaryData::SetAsHexString, text, rule, value);
}

template <>
void AppendText<ItemType_base64Binary>(const CBinaryData& value, std::string& text) {
  value.AppendBase64To(text);
}

template <>
void ParseInto<ItemType_base64Binary>(std::string_view text, Rule rule, CBinaryData& value) {
  ParseBy<CBinaryData>(&CBinaryData::SetAsBase64, text, rule, value);
}

template <>
void AppendText<ItemType_duration>(const CDateTimeSpan& value, std::string& text) {
  value.AppendTo(text);
}

template <>
void ParseInto<ItemType_duration>(std::string_view text, Rule rule, CDateTimeSpan& value) {
  ParseBy<CDateTimeSpan>(&CDateTimeSpan::ParseXSDDuration, text, rule, value);
}

template <>
void AppendText<ItemType_datetime>(const CDateTime& value, std::string& text) {
  value.AppendTo(text);
}

template <>
void ParseInto<ItemType_datetime>(std::string_view text, Rule rule, CDateTime& value) {
  ParseBy<CDateTime>(&CDateTime::ParseXSDDateTime, text, rule, value);
}

template <>
void AppendText<ItemType_date>(const CDateTime& value, std::string& text) {
  value.AppendTo(text);
}

template <>
void ParseInto<ItemType_date>(std::string_view text, Rule rule, CDateTime& value) {
  ParseDate(text, rule, value);
}

template <>
void AppendText<ItemType_time>(const CDateTime& value, std::string& text) {
  value.AppendTo(text);
}

template <>
void ParseInto<ItemType_time>(std::string_view text, Rule rule, CDateTime& value) {
  ParseBy<CDateTime>(&CDateTime::ParseXSDTime, text, rule, value);
}

template <>
void AppendText<ItemType_yearMonth>(const CDateTime& value, std::string& text) {
  value.AppendTo(text);
}

template <>
void ParseInto<ItemType_yearMonth>(std::string_view text, Rule rule, CDateTime& value) {
  ParseDate(text, rule, value);
}

template <>
void AppendText<ItemType_monthDay>(const CDateTime& value, std::string& text) {
  value.AppendTo(text);
}

template <>
void ParseInto<ItemType_monthDay>(std::string_view text, Rule rule, CDateTime& value) {
  ParseDate(text, rule, value);
}

template <>
void AppendText<ItemType_year>(const unsigned short& value, std::string& text) {
  AppendText<ItemType_ui2>(value, text);
}

template <>
void ParseInto<ItemType_year>(std::string_view text, Rule rule, unsigned short& value) {
  value = static_cast<unsigned short>(ParseDateField(text, rule, &CDateTime::GetYear));
}

template <>
void AppendText<ItemType_month>(const unsigned char& value, std::string& text) {
  AppendField(value, text += "--");
}

template <>
void ParseInto<ItemType_month>(std::string_view text, Rule rule, unsigned char& value) {
  value = ParseDateField(text, rule, &CDateTime::GetMonth);
}

template <>
void AppendText<ItemType_day>(const unsigned char& value, std::string& text) {
  AppendField(value, text += "---");
}

template <>
void ParseInto<ItemType_day>(std::string_view text, Rule rule, unsigned char& value) {
  value = ParseDateField(text, rule, &CDateTime::GetDay);
}

void AppendText(const QvVariant& value, const char* format, std::string& text) {
  const ItemType type = value.GetItemType();
  if (value.IsNil() && type != ItemType_none) return;
  if (const std::string* const held = value.PeekString()) {
    text += *held;
    return;
  }
  VisitItemType(
      type,
      [&](auto traits) {
        using Traits = decltype(traits);
        AppendText<Traits::kType>(Traits::View(value), format, text);
      },
      [type] {
        throw CQvException(
            FormatString("Invalid Type %d to convert to string", static_cast<int>(type)));
      });
}

}  // namespace detail

std::string CConversions::decimalToString(const CDecimal& value, const std::string& format) {
  std::string text;
  detail::AppendFormatted(value, format.c_str(), text);
  return text;
}

std::string CConversions::decimalToString(const CDecimal& value) {
  return ToText<ItemType_decimal>(value);
}

std::string CConversions::integerToString(const CBigInteger& value) {
  return ToText<ItemType_integer>(value);
}

std::string CConversions::hexBinaryToString(const CBinaryData& value) {
  return ToText<ItemType_hexBinary>(value);
}

std::string CConversions::base64BinaryToString(const CBinaryData& value) {
  return ToText<ItemType_base64Binary>(value);
}

std::string CConversions::durationToString(const CDateTimeSpan& value) {
  return ToText<ItemType_duration>(value);
}

std::string CConversions::datetimeToString(const CDateTime& value) {
  return ToText<ItemType_datetime>(value);
}

std::string CConversions::dateToString(const CDateTime& value) {
  return ToText<ItemType_date>(value);
}

std::string CConversions::timeToString(const CDateTime& value) {
  return ToText<ItemType_time>(value);
}

std::string CConversions::yearMonthToString(const CDateTime& value) {
  return ToText<ItemType_yearMonth>(value);
}

std::string CConversions::monthDayToString(const CDateTime& value) {
  return ToText<ItemType_monthDay>(value);
}

std::string CConversions::yearToString(unsigned short value) {
  return ToText<ItemType_year>(value);
}

std::string CConversions::monthToString(unsigned char value) {
  return ToText<ItemType_month>(value);
}

std::string CConversions::dayToString(unsigned char value) { return ToText<ItemType_day>(value); }

CDecimal CConversions::decimalFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_decimal>(text, rule);
}

CBigInteger CConversions::integerFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_integer>(text, rule);
}

CBinaryData CConversions::hexBinaryFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_hexBinary>(text, rule);
}

CBinaryData CConversions::base64BinaryFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_base64Binary>(text, rule);
}

CDateTimeSpan CConversions::durationFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_duration>(text, rule);
}

CDateTime CConversions::datetimeFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_datetime>(text, rule);
}

CDateTime CConversions::dateFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_date>(text, rule);
}

CDateTime CConversions::timeFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_time>(text, rule);
}

CDateTime CConversions::yearMonthFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_yearMonth>(text, rule);
}

CDateTime CConversions::monthDayFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_monthDay>(text, rule);
}

unsigned short CConversions::yearFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_year>(text, rule);
}

unsigned char CConversions::monthFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_month>(text, rule);
}

unsigned char CConversions::dayFromString(const std::string& text, Rule rule) {
  return FromText<ItemType_day>(text, rule);
}

}  // namespace QvXmlLib16
