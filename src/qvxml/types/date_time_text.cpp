// Text of dates and times: parsing and writing.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/types/calendar_internal.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_internal.h"

namespace QvXmlLib16 {

using detail::IsDigit;
using detail::kMaxPaddedLength;
using detail::WriteFraction;
using detail::WritePadded;

namespace detail {

struct DateTimeFields {
  CDateTime::DTType type = CDateTime::dt_unset;
  short year = 0;
  unsigned char month = 0;
  unsigned char day = 0;
  unsigned char hour = 0;
  unsigned char minute = 0;
  unsigned char second = 0;
  unsigned short fraction[3] = {0, 0, 0};
  bool isUTC = false;
  bool hasTimeZone = false;
  short zoneHour = 0;
  unsigned char zoneMinute = 0;
};

}  // namespace detail

namespace {

using detail::DateTimeFields;

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

// Texts as they nearly always are, read at fixed places. Everything else, and whatever is not
// valid, is left to the general functions below, which also know what is wrong with it.
class CFieldReader {
 public:
  // "CCYY-MM-DD"
  bool ReadDate(std::string_view& text) {
    if (text.size() < 10 || text[4] != '-' || text[7] != '-') return false;
    m_fields.year = static_cast<short>(TakeTwo(text, 0) * 100 + TakeTwo(text, 2));
    m_fields.month = TakeTwo(text, 5);
    m_fields.day = TakeTwo(text, 8);
    text.remove_prefix(10);
    return m_areDigits && m_fields.year != 0 && m_fields.month - 1u < 12 && m_fields.day != 0 &&
           m_fields.day <= detail::DaysInMonth(m_fields.year, m_fields.month);
  }

  // "hh:mm:ss" and a fraction
  bool ReadTime(std::string_view& text) {
    if (text.size() < kTimeLength || text[2] != ':' || text[5] != ':') return false;
    m_fields.hour = TakeTwo(text, 0);
    m_fields.minute = TakeTwo(text, 3);
    m_fields.second = TakeTwo(text, 6);
    text.remove_prefix(kTimeLength);
    if (!m_areDigits || m_fields.hour > 23 || m_fields.minute > 59 || m_fields.second > 59)
      return false;
    if (text.empty() || text[0] != '.') return true;
    const size_t digits = detail::ReadFraction(text.substr(1), m_fields.fraction);
    text.remove_prefix(std::min(digits + 1, text.size()));
    return digits >= 1 && digits <= 9;
  }

  // No zone, "Z", or "+hh:mm" or "-hh:mm", up to the end
  bool ReadZone(std::string_view text) {
    if (text.empty()) return true;
    m_fields.isUTC = true;
    if (text[0] == 'Z') return text.size() == 1;
    if (text.size() != kZoneLength || (text[0] != '+' && text[0] != '-') || text[3] != ':')
      return false;
    m_fields.hasTimeZone = true;
    const short hour = TakeTwo(text, 1);
    m_fields.zoneHour = text[0] == '-' ? static_cast<short>(-hour) : hour;
    m_fields.zoneMinute = TakeTwo(text, 4);
    return m_areDigits && hour <= 23 && m_fields.zoneMinute <= 59;
  }

  const DateTimeFields& Fields(CDateTime::DTType type) {
    m_fields.type = type;
    return m_fields;
  }

 private:
  unsigned char TakeTwo(std::string_view text, size_t position) {
    const unsigned tens = static_cast<unsigned char>(text[position]) - unsigned{'0'};
    const unsigned ones = static_cast<unsigned char>(text[position + 1]) - unsigned{'0'};
    m_areDigits &= tens <= 9 && ones <= 9;
    return static_cast<unsigned char>(tens * 10 + ones);
  }

  DateTimeFields m_fields;
  bool m_areDigits = true;
};

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
  const std::string_view whole(text, length);
  std::string_view rest(whole);
  CFieldReader reader;
  if (reader.ReadDate(rest) && reader.ReadZone(rest)) return Store(reader.Fields(dt_date));
  ParseWhole(whole, &CDateTime::SetXSDDate);
}

void CDateTime::Store(const DateTimeFields& fields) {
  m_type = fields.type;
  m_year = fields.year;
  m_month = fields.month;
  m_day = fields.day;
  m_hour = fields.hour;
  m_minute = fields.minute;
  m_second = fields.second;
  m_milliSecond = fields.fraction[0];
  m_microSecond = fields.fraction[1];
  m_nanoSecond = fields.fraction[2];
  m_isUTC = fields.isUTC;
  m_hasTimeZone = fields.hasTimeZone;
  m_zoneHour = fields.zoneHour;
  m_zoneMinute = fields.zoneMinute;
  m_flag = 0;
}

void CDateTime::ParseWhole(std::string_view text, void (CDateTime::*set)(std::string_view)) {
  CDateTime parsed;
  (parsed.*set)(text);
  parsed.Validate();
  *this = parsed;
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
  const std::string_view whole(text, length);
  std::string_view rest(whole);
  CFieldReader reader;
  if (reader.ReadTime(rest) && reader.ReadZone(rest)) return Store(reader.Fields(dt_time));
  ParseWhole(whole, &CDateTime::SetXSDTime);
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
  const std::string_view whole(text, length);
  std::string_view rest(whole);
  CFieldReader reader;
  if (reader.ReadDate(rest) && !rest.empty() && rest[0] == 'T') {
    rest.remove_prefix(1);
    if (reader.ReadTime(rest) && reader.ReadZone(rest)) return Store(reader.Fields(dt_dateTime));
  }
  ParseWhole(whole, &CDateTime::SetXSDDateTime);
}

void CDateTime::SetXSDDateTime(std::string_view text) {
  const size_t separator = text.find('T');
  if (separator == std::string_view::npos)
    ThrowInvalidText("Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", text);
  SetXSDDate(text.substr(0, separator));
  if (m_type != dt_date || m_isUTC) ThrowInvalidText("Invalid XSD DateTime [%s].", text);
  SetXSDTime(text.substr(separator + 1));
  m_type = dt_dateTime;
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
  if (m_type == dt_unset || m_type == dt_time) return m_type == dt_time;
  return m_year != 0 || m_month != 0 || m_day != 0 || m_hour != 0 || m_minute != 0 ||
         m_second != 0 || m_milliSecond != 0 || m_microSecond != 0 || m_nanoSecond != 0;
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
