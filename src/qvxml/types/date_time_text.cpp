// Text of dates and times: parsing and writing.

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_internal.h"

namespace QvXmlLib16 {

using detail::IsDigit;
using detail::kMaxPaddedLength;
using detail::WriteFraction;
using detail::WritePadded;

namespace {

// "C" and "Y" stand for a digit of the year, "M" of the month, "D" of the day, "-" for itself.
struct DateForm {
  std::string_view pattern;
  CDateTime::DTType type;
};

// A text that starts with "--" can match only the first four, and no length occurs twice in them.
constexpr DateForm kDateForms[] = {
    {"--MM", CDateTime::dt_gMonth},    {"---DD", CDateTime::dt_gDay},
    {"--MM--", CDateTime::dt_gMonth},  {"--MM-DD", CDateTime::dt_gMonthDay},
    {"CCYY", CDateTime::dt_gYear},     {"CCYY-MM", CDateTime::dt_gYearMonth},
    {"CCYY-MM-DD", CDateTime::dt_date}};

constexpr size_t kZoneLength = 6;  // "+hh:mm"
constexpr size_t kTimeLength = 8;  // "hh:mm:ss"
constexpr int kMaxZoneHourText = 24;

constexpr std::string_view kNotSet = "Error: Date Not Set";
// Signs, separators and "Z" are at most ten characters beside the eleven numbers.
constexpr size_t kBufferSize = 11 * kMaxPaddedLength + 10;

// `message` has one "%s", for the text.
[[noreturn]] void ThrowInvalidText(const char* message, std::string_view text) {
  throw CQvInvalidValueException(FormatString(message, std::string(text).c_str()));
}

[[noreturn]] void ThrowInvalidDate(std::string_view text) {
  ThrowInvalidText("Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text);
}

// Both digits at `position`, or -1.
int ReadTwoDigits(std::string_view text, size_t position) {
  const char tens = text[position];
  const char ones = text[position + 1];
  return IsDigit(tens) && IsDigit(ones) ? (tens - '0') * 10 + (ones - '0') : -1;
}

struct DateNumbers {
  int year = 0;
  int month = 0;
  int day = 0;
};

bool MatchDateForm(std::string_view pattern, std::string_view body, DateNumbers& numbers) {
  for (size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == '-') {
      if (body[i] != '-') return false;
      continue;
    }
    if (!IsDigit(body[i])) return false;
    int& number = pattern[i] == 'M'   ? numbers.month
                  : pattern[i] == 'D' ? numbers.day
                                      : numbers.year;
    number = number * 10 + (body[i] - '0');
  }
  return true;
}

}  // namespace

namespace detail {

size_t ReadFraction(std::string_view text, unsigned short (&groups)[3]) {
  constexpr unsigned short kWeights[] = {100, 10, 1};
  size_t count = 0;
  for (; count < text.size() && IsDigit(text[count]); ++count) {
    if (count == 9) return 10;
    unsigned short& group = groups[count / 3];
    group = static_cast<unsigned short>(group + (text[count] - '0') * kWeights[count % 3]);
  }
  return count;
}

char* WriteFraction(char* out, unsigned milliSecond, unsigned microSecond, unsigned nanoSecond) {
  if (milliSecond == 0 && microSecond == 0 && nanoSecond == 0) return out;
  *out++ = '.';
  out = WritePadded<3>(out, milliSecond);
  if (microSecond != 0 || nanoSecond != 0) out = WritePadded<3>(out, microSecond);
  if (nanoSecond != 0) out = WritePadded<3>(out, nanoSecond);
  // The last group written is not zero, so this stops within it.
  while (out[-1] == '0') --out;
  return out;
}

}  // namespace detail

void CDateTime::ParseXSDDate(const char* text) {
  Clear();
  if (text == nullptr) throw CQvInvalidValueException("Invalid Date (Null String)");
  ParseXSDDate(text, std::strlen(text));
}

void CDateTime::ParseXSDDate(const char* text, size_t length) {
  Clear();
  SetXSDDate(std::string_view(text, length));
  Validate();
}

void CDateTime::SetXSDDate(std::string_view text) {
  if (text.empty()) throw CQvInvalidValueException("Invalid Date (Empty String)");
  if (text.find('T') != std::string_view::npos)
    throw CQvInvalidValueException("Invalid Date ('T' not allowed)");

  const bool hasColon = text.find(':') != std::string_view::npos;
  size_t zoneLength = 0;
  if (text.back() == 'Z') {
    if (hasColon) throw CQvInvalidValueException("Invalid Date (Bad Zone value)");
    zoneLength = 1;
  } else if (hasColon) {
    if (text.size() < kZoneLength) ThrowInvalidDate(text);
    zoneLength = kZoneLength;
  }

  const size_t bodyLength = text.size() - zoneLength;
  if (!SetDateForm(text.substr(0, bodyLength))) ThrowInvalidDate(text);
  if (zoneLength != 0) SetZoneText(text.substr(bodyLength));
}

// Stores the fields and the kind of a date text without zone; false when it has none of the forms.
bool CDateTime::SetDateForm(std::string_view body) {
  const bool hasNoYear = body.substr(0, 2) == "--";
  const bool isNegative = !hasNoYear && body.substr(0, 1) == "-";
  if (isNegative) body.remove_prefix(1);
  for (const DateForm& form : kDateForms) {
    const bool formHasNoYear = form.pattern[0] == '-';
    if (form.pattern.size() != body.size() || formHasNoYear != hasNoYear) continue;
    DateNumbers numbers;
    if (!MatchDateForm(form.pattern, body, numbers)) return false;
    m_type = form.type;
    m_year = static_cast<short>(isNegative ? -numbers.year : numbers.year);
    m_month = static_cast<unsigned char>(numbers.month);
    m_day = static_cast<unsigned char>(numbers.day);
    return true;
  }
  return false;
}

void CDateTime::SetZone(const char* text) {
  SetZoneText(text != nullptr ? std::string_view(text) : std::string_view());
}

void CDateTime::SetZoneText(std::string_view text) {
  if (text == "Z") {
    SetUTC();
    return;
  }
  const bool hasForm =
      text.size() == kZoneLength && (text[0] == '+' || text[0] == '-') && text[3] == ':';
  int hour = hasForm ? ReadTwoDigits(text, 1) : -1;
  const int minute = hasForm ? ReadTwoDigits(text, 4) : -1;
  if (hour < 0 || minute < 0) ThrowInvalidText("Invalid XSD Time Zone [%s].", text);
  if (hour == kMaxZoneHourText) hour = 0;
  // Kept: with hour 0 the sign is lost, "-00:30" becomes "+00:30".
  SetTimeZone(static_cast<short>(text[0] == '-' ? -hour : hour),
              static_cast<unsigned char>(minute));
}

void CDateTime::ParseXSDTime(const char* text) {
  Clear();
  if (text == nullptr) throw CQvInvalidValueException("Invalid Time (Null String)");
  ParseXSDTime(text, std::strlen(text));
}

void CDateTime::ParseXSDTime(const char* text, size_t length) {
  Clear();
  SetXSDTime(std::string_view(text, length));
  Validate();
}

void CDateTime::SetXSDTime(std::string_view text) {
  if (text.empty()) throw CQvInvalidValueException("Invalid XSD Time (Empty String)");
  const bool hasForm = text.size() >= kTimeLength && text[2] == ':' && text[5] == ':';
  const int hour = hasForm ? ReadTwoDigits(text, 0) : -1;
  const int minute = hasForm ? ReadTwoDigits(text, 3) : -1;
  const int second = hasForm ? ReadTwoDigits(text, 6) : -1;
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
    ThrowInvalidText("Invalid XSD Time [%s] expected hh:mm:ss[.ff]", text);

  std::string_view rest = text.substr(kTimeLength);
  unsigned short fraction[3] = {0, 0, 0};
  if (!rest.empty() && rest[0] == '.') {
    // Kept: a "." without digits is accepted.
    const size_t digits = detail::ReadFraction(rest.substr(1), fraction);
    if (digits > 9) ThrowInvalidText("Invalid XSD Time [%s] Fraction part too long", text);
    rest.remove_prefix(1 + digits);
  }
  if (!rest.empty()) SetZoneText(rest);

  m_type = dt_time;
  m_hour = static_cast<unsigned char>(hour);
  m_minute = static_cast<unsigned char>(minute);
  m_second = static_cast<unsigned char>(second);
  m_milliSecond = fraction[0];
  m_microSecond = fraction[1];
  m_nanoSecond = fraction[2];
}

void CDateTime::ParseXSDDateTime(const char* text) {
  Clear();
  if (text == nullptr) throw CQvInvalidValueException("Invalid DateTime (Null String)");
  ParseXSDDateTime(text, std::strlen(text));
}

void CDateTime::ParseXSDDateTime(const char* text, size_t length) {
  Clear();
  const std::string_view whole(text, length);
  const size_t separator = whole.find('T');
  if (separator == std::string_view::npos)
    ThrowInvalidText("Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", whole);
  SetXSDDate(whole.substr(0, separator));
  if (m_type != dt_date || m_isUTC) ThrowInvalidText("Invalid XSD DateTime [%s].", whole);
  SetXSDTime(whole.substr(separator + 1));
  m_type = dt_dateTime;
  Validate();
}

std::string CDateTime::ToString(const char* format) const {
  if (format != nullptr && std::string_view(format) == "s") {
    char buffer[kBufferSize];
    return std::string(WriteText(buffer));
  }
  if (!IsSet()) return std::string(kNotSet);
  if (format == nullptr || std::string_view(format) == "G") return std::string();
  return std::string("Unknown Format: ") + format;
}

void CDateTime::AppendTo(std::string& text) const {
  char buffer[kBufferSize];
  text += WriteText(buffer);
}

bool CDateTime::IsSet() const {
  const bool isAllZero = m_year == 0 && m_month == 0 && m_day == 0 && m_hour == 0 &&
                         m_minute == 0 && m_second == 0 && m_milliSecond == 0 &&
                         m_microSecond == 0 && m_nanoSecond == 0;
  return m_type == dt_time || (m_type != dt_unset && !isAllZero);
}

// The text, in `buffer` of kBufferSize or constant.
std::string_view CDateTime::WriteText(char* buffer) const {
  if (!IsSet()) return kNotSet;
  char* end = WriteDate(buffer);
  if (m_type == dt_dateTime) *end++ = 'T';
  if (Carries(detail::kTime)) end = WriteTime(end);
  end = WriteZone(end);
  return std::string_view(buffer, static_cast<size_t>(end - buffer));
}

char* CDateTime::WriteDate(char* out) const {
  const bool carriesMonth = Carries(detail::kMonth);
  const bool carriesDay = Carries(detail::kDay);
  if (Carries(detail::kYear)) {
    if (m_year < 0) *out++ = '-';
    out = WritePadded<4>(out, static_cast<unsigned>(std::abs(static_cast<int>(m_year))));
  } else if (carriesMonth || carriesDay) {
    *out++ = '-';
  }
  if (carriesMonth) {
    *out++ = '-';
    out = WritePadded<2>(out, m_month);
  }
  if (carriesDay) {
    if (!carriesMonth) *out++ = '-';
    *out++ = '-';
    out = WritePadded<2>(out, m_day);
  }
  return out;
}

char* CDateTime::WriteTime(char* out) const {
  out = WritePadded<2>(out, m_hour);
  *out++ = ':';
  out = WritePadded<2>(out, m_minute);
  *out++ = ':';
  out = WritePadded<2>(out, m_second);
  return WriteFraction(out, m_milliSecond, m_microSecond, m_nanoSecond);
}

char* CDateTime::WriteZone(char* out) const {
  if (!m_isUTC) return out;
  if (!m_hasTimeZone) {
    *out++ = 'Z';
    return out;
  }
  *out++ = m_zoneHour < 0 ? '-' : '+';
  out = WritePadded<2>(out, static_cast<unsigned>(std::abs(static_cast<int>(m_zoneHour))));
  *out++ = ':';
  return WritePadded<2>(out, m_zoneMinute);
}

}  // namespace QvXmlLib16
