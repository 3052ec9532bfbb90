// The conversions of value classes, which forward to them; conversions_numeric.cpp has the rest.

#include "qvxml/core/value/conversions.h"

#include <algorithm>
#include <limits>

#include "qvxml/core/text.h"
#include "qvxml/core/value/conversions_internal.h"
#include "qvxml/core/whitespace_internal.h"
#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"

namespace QvXmlLib16 {

namespace {

int FractionDigits(const std::string& format) {
  using Limits = std::numeric_limits<int>;
  long long digits;
  // Whatever follows the number is ignored.
  static_cast<void>(detail::ReadInteger(format, digits));
  return static_cast<int>(std::clamp<long long>(digits, Limits::min(), Limits::max()));
}

CDateTime ParseDateTime(CDateTime::DTType kind, void (CDateTime::*parse)(const char*),
                        const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  CDateTime value(kind);
  std::string storage;
  (value.*parse)(detail::ApplyRule(rule, text, storage).c_str());
  return value;
}

CDateTime ParseDate(CDateTime::DTType kind, const std::string& text,
                    CWhitespaceUtils::WhitespaceRule rule) {
  return ParseDateTime(kind, &CDateTime::ParseXSDDate, text, rule);
}

// Writes a month or day behind its dashes, padded to two digits.
std::string FieldToString(const char* dashes, unsigned char value) {
  return std::string(dashes).append(PadZero(value, 2));
}

}  // namespace

std::string CConversions::decimalToString(const CDecimal& value, const std::string& format) {
  return format.empty() ? value.ToString() : value.ToString(FractionDigits(format));
}

std::string CConversions::decimalToString(const CDecimal& value) {
  return decimalToString(value, std::string());
}

CDecimal CConversions::decimalFromString(const std::string& text,
                                         CWhitespaceUtils::WhitespaceRule rule) {
  std::string storage;
  return CDecimal(detail::ApplyRule(rule, text, storage));
}

std::string CConversions::integerToString(const CBigInteger& value) { return value.ToString(); }

CBigInteger CConversions::integerFromString(const std::string& text,
                                            CWhitespaceUtils::WhitespaceRule rule) {
  std::string storage;
  return CBigInteger(detail::ApplyRule(rule, text, storage));
}

std::string CConversions::hexBinaryToString(const CBinaryData& value) {
  return value.GetAsHexString();
}

CBinaryData CConversions::hexBinaryFromString(const std::string& text,
                                              CWhitespaceUtils::WhitespaceRule rule) {
  CBinaryData value;
  std::string storage;
  value.SetAsHexString(detail::ApplyRule(rule, text, storage).c_str());
  return value;
}

std::string CConversions::base64BinaryToString(const CBinaryData& value) {
  return value.GetAsBase64();
}

CBinaryData CConversions::base64BinaryFromString(const std::string& text,
                                                 CWhitespaceUtils::WhitespaceRule rule) {
  CBinaryData value;
  std::string storage;
  value.SetAsBase64(detail::ApplyRule(rule, text, storage).c_str());
  return value;
}

std::string CConversions::durationToString(const CDateTimeSpan& value) { return value.ToString(); }

CDateTimeSpan CConversions::durationFromString(const std::string& text,
                                               CWhitespaceUtils::WhitespaceRule rule) {
  CDateTimeSpan value;
  std::string storage;
  value.ParseXSDDuration(detail::ApplyRule(rule, text, storage).c_str());
  return value;
}

std::string CConversions::datetimeToString(const CDateTime& value) { return value.ToString("s"); }
std::string CConversions::dateToString(const CDateTime& value) { return datetimeToString(value); }
std::string CConversions::timeToString(const CDateTime& value) { return datetimeToString(value); }
std::string CConversions::yearMonthToString(const CDateTime& value) {
  return datetimeToString(value);
}
std::string CConversions::monthDayToString(const CDateTime& value) {
  return datetimeToString(value);
}

CDateTime CConversions::datetimeFromString(const std::string& text,
                                           CWhitespaceUtils::WhitespaceRule rule) {
  return ParseDateTime(CDateTime::dt_dateTime, &CDateTime::ParseXSDDateTime, text, rule);
}

CDateTime CConversions::dateFromString(const std::string& text,
                                       CWhitespaceUtils::WhitespaceRule rule) {
  return ParseDate(CDateTime::dt_date, text, rule);
}

CDateTime CConversions::timeFromString(const std::string& text,
                                       CWhitespaceUtils::WhitespaceRule rule) {
  return ParseDateTime(CDateTime::dt_time, &CDateTime::ParseXSDTime, text, rule);
}

CDateTime CConversions::yearMonthFromString(const std::string& text,
                                            CWhitespaceUtils::WhitespaceRule rule) {
  return ParseDate(CDateTime::dt_gYearMonth, text, rule);
}

CDateTime CConversions::monthDayFromString(const std::string& text,
                                           CWhitespaceUtils::WhitespaceRule rule) {
  return ParseDate(CDateTime::dt_gMonthDay, text, rule);
}

std::string CConversions::yearToString(unsigned short value) { return ui2ToString(value); }
std::string CConversions::monthToString(unsigned char value) { return FieldToString("--", value); }
std::string CConversions::dayToString(unsigned char value) { return FieldToString("---", value); }

unsigned short CConversions::yearFromString(const std::string& text,
                                            CWhitespaceUtils::WhitespaceRule rule) {
  return static_cast<unsigned short>(ParseDate(CDateTime::dt_gYear, text, rule).GetYear());
}

unsigned char CConversions::monthFromString(const std::string& text,
                                            CWhitespaceUtils::WhitespaceRule rule) {
  return static_cast<unsigned char>(ParseDate(CDateTime::dt_gMonth, text, rule).GetMonth());
}

unsigned char CConversions::dayFromString(const std::string& text,
                                          CWhitespaceUtils::WhitespaceRule rule) {
  return static_cast<unsigned char>(ParseDate(CDateTime::dt_gDay, text, rule).GetDay());
}

}  // namespace QvXmlLib16
