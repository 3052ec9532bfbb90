#include "qvxml/types/date_time_span.h"

#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/types/calendar_internal.h"
#include "qvxml/types/date_time_internal.h"

namespace QvXmlLib16 {

using detail::Int128;
using detail::Moment;
using detail::TimeField;
using detail::ValidateTimeField;

constinit CInstanceCounter CDateTimeSpan::s_instances("CDateTimeSpan");

namespace {

[[noreturn]] void ThrowInvalidDuration(std::string_view text) {
  throw CQvInvalidValueException(
      FormatString("Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]",
                   std::string(text).c_str()));
}

// Reads the digits at the start of `rest` and removes them; false when there are none, or more
// than 64 bits hold.
bool ReadNumber(std::string_view& rest, unsigned long long& number) {
  const char* const begin = rest.data();
  const auto [end, error] = std::from_chars(begin, begin + rest.size(), number);
  if (error != std::errc()) return false;
  rest.remove_prefix(static_cast<size_t>(end - begin));
  return true;
}

bool RemovePrefix(std::string_view& rest, char prefix) {
  if (rest.empty() || rest.front() != prefix) return false;
  rest.remove_prefix(1);
  return true;
}

// The components in the order of the text, as they are read.
struct SpanText {
  enum Component { Years, Months, Days, Hours, Minutes, Seconds, Count };

  unsigned long long numbers[Count] = {};
  unsigned short fraction[3] = {};
  bool hasLongFraction = false;

  // Reads the components of one half of the text, whose letters are `letters`, up to "T" or the
  // end; false when it is malformed or has none.
  bool ReadHalf(std::string_view& rest, std::string_view letters, unsigned long long* target) {
    size_t next = 0;
    do {
      unsigned long long number = 0;
      if (!ReadNumber(rest, number)) return false;
      const bool hasFraction = RemovePrefix(rest, '.');
      if (hasFraction && !ReadFractionDigits(rest)) return false;
      const size_t found = rest.empty() ? letters.npos : letters.find(rest.front(), next);
      if (found == letters.npos || (hasFraction && letters[found] != 'S')) return false;
      rest.remove_prefix(1);
      target[found] = number;
      next = found + 1;
    } while (!rest.empty() && rest.front() != 'T');
    return true;
  }

  bool ReadFractionDigits(std::string_view& rest) {
    const size_t digits = detail::ReadFraction(rest, fraction);
    if (digits == 0) return false;
    hasLongFraction = digits > 9;
    if (hasLongFraction) return false;
    rest.remove_prefix(digits);
    return true;
  }

  // What follows the "P".
  bool Read(std::string_view rest) {
    if (rest.empty()) return false;
    if (rest.front() != 'T' && !ReadHalf(rest, "YMD", numbers + Years)) return false;
    if (rest.empty()) return true;
    rest.remove_prefix(1);
    return ReadHalf(rest, "HMS", numbers + Hours) && rest.empty();
  }
};

Int128 TotalMonths(const CDateTimeSpan& span) {
  const Int128 months = static_cast<Int128>(span.GetYears()) * 12 + span.GetMonths();
  return span.IsNegative() ? -months : months;
}

Int128 TotalNanoSeconds(const CDateTimeSpan& span) {
  Int128 total = span.GetDays();
  total = total * 24 + span.GetHours();
  total = total * 60 + span.GetMinutes();
  total = total * 60 + span.GetSeconds();
  total = total * 1000 + span.GetMilliSeconds();
  total = total * 1000 + span.GetMicroSeconds();
  total = total * 1000 + span.GetNanoSeconds();
  return span.IsNegative() ? -total : total;
}

char* WriteNumber(char* out, unsigned long long number) {
  return std::to_chars(out, out + std::numeric_limits<unsigned long long>::digits10 + 1, number)
      .ptr;
}

char* WriteComponent(char* out, unsigned long long number, char letter) {
  if (number == 0) return out;
  out = WriteNumber(out, number);
  *out++ = letter;
  return out;
}

}  // namespace

CDateTimeSpan::CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                             unsigned long hours, unsigned long long minutes,
                             unsigned long long seconds, unsigned short milliSeconds,
                             unsigned short microSeconds, unsigned short nanoSeconds) {
  SetDateTimeSpan(years, months, days, hours, minutes, seconds, milliSeconds, microSeconds,
                  nanoSeconds);
}

CDateTimeSpan::CDateTimeSpan(unsigned long days, unsigned long long minutes,
                             unsigned long long seconds) {
  SetDateTimeSpan(days, minutes, seconds);
}

void CDateTimeSpan::SetMilliSeconds(unsigned short milliSeconds) {
  ValidateTimeField(TimeField::MilliSecond, milliSeconds);
  m_milliSeconds = milliSeconds;
}

void CDateTimeSpan::SetMicroSeconds(unsigned short microSeconds) {
  ValidateTimeField(TimeField::MicroSecond, microSeconds);
  m_microSeconds = microSeconds;
}

void CDateTimeSpan::SetNanoSeconds(unsigned short nanoSeconds) {
  ValidateTimeField(TimeField::NanoSecond, nanoSeconds);
  m_nanoSeconds = nanoSeconds;
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                                    unsigned long hours, unsigned long long minutes,
                                    unsigned long long seconds, unsigned short milliSeconds,
                                    unsigned short microSeconds, unsigned short nanoSeconds) {
  ValidateTimeField(TimeField::MilliSecond, milliSeconds);
  ValidateTimeField(TimeField::MicroSecond, microSeconds);
  ValidateTimeField(TimeField::NanoSecond, nanoSeconds);
  m_years = years;
  m_months = months;
  m_days = days;
  m_hours = hours;
  m_minutes = minutes;
  m_seconds = seconds;
  m_milliSeconds = milliSeconds;
  m_microSeconds = microSeconds;
  m_nanoSeconds = nanoSeconds;
  m_isNegative = false;
}

void CDateTimeSpan::SetDateTimeSpan(unsigned long days, unsigned long long minutes,
                                    unsigned long long seconds) {
  SetDateTimeSpan(0, 0, days, 0, minutes, seconds, 0, 0, 0);
}

void CDateTimeSpan::Clear() { *this = CDateTimeSpan(); }

CDateTimeSpan CDateTimeSpan::GetAsNegative() const {
  CDateTimeSpan span(*this);
  span.Negate();
  return span;
}

void CDateTimeSpan::ParseXSDDuration(const char* text) {
  Clear();
  if (text == nullptr) throw CQvInvalidValueException("Invalid XSD Duration (Null String)");
  ParseXSDDuration(text, std::strlen(text));
}

void CDateTimeSpan::ParseXSDDuration(const char* text, size_t length) {
  Clear();
  const std::string_view whole(text, length);
  std::string_view rest(whole);
  if (rest.empty()) throw CQvInvalidValueException("Invalid XSD Duration (Empty String)");
  const bool isNegative = RemovePrefix(rest, '-');
  SpanText read;
  const bool isWellFormed = RemovePrefix(rest, 'P') && read.Read(rest);
  if (read.hasLongFraction) {
    throw CQvInvalidValueException(FormatString("Invalid XSD Duration [%s] Fraction part too long",
                                                std::string(whole).c_str()));
  }
  if (!isWellFormed || read.numbers[SpanText::Years] > std::numeric_limits<unsigned short>::max()) {
    ThrowInvalidDuration(whole);
  }
  SetDateTimeSpan(
      static_cast<unsigned short>(read.numbers[SpanText::Years]), read.numbers[SpanText::Months],
      read.numbers[SpanText::Days], read.numbers[SpanText::Hours], read.numbers[SpanText::Minutes],
      read.numbers[SpanText::Seconds], read.fraction[0], read.fraction[1], read.fraction[2]);
  m_isNegative = isNegative;
}

std::string CDateTimeSpan::ToString() const {
  std::string text;
  AppendTo(text);
  return text;
}

void CDateTimeSpan::AppendTo(std::string& text) const {
  // Six numbers with their letters, the fraction, and "-PT".
  constexpr size_t kMaxNumberLength = std::numeric_limits<unsigned long long>::digits10 + 1;
  char buffer[6 * (kMaxNumberLength + 1) + 1 + 3 * detail::kMaxPaddedLength + 3];
  char* end = buffer;
  if (m_isNegative) *end++ = '-';
  *end++ = 'P';
  char* const firstComponent = end;
  end = WriteComponent(end, m_years, 'Y');
  end = WriteComponent(end, m_months, 'M');
  end = WriteComponent(end, m_days, 'D');
  char* const endOfDate = end;
  *end++ = 'T';
  end = WriteComponent(end, m_hours, 'H');
  end = WriteComponent(end, m_minutes, 'M');
  if (m_seconds != 0 || m_milliSeconds != 0 || m_microSeconds != 0 || m_nanoSeconds != 0 ||
      end == firstComponent + 1) {
    end = WriteNumber(end, m_seconds);
    end = detail::WriteFraction(end, m_milliSeconds, m_microSeconds, m_nanoSeconds);
    *end++ = 'S';
  }
  // "T" only when something follows it.
  text.append(buffer, end == endOfDate + 1 ? endOfDate : end);
}

int CDateTimeSpan::CompareTo(const CDateTimeSpan& other) const {
  if (TotalMonths(*this) == TotalMonths(other) &&
      TotalNanoSeconds(*this) == TotalNanoSeconds(other))
    return detail::kEqual;
  constexpr struct {
    int year;
    int month;
  } kReferenceMonths[] = {{1696, 9}, {1697, 2}, {1903, 3}, {1903, 7}};
  int result = detail::kIndeterminate;
  for (const auto& reference : kReferenceMonths) {
    Moment mine{.year = reference.year, .month = reference.month};
    Moment theirs = mine;
    if (!AddDuration(mine, *this, detail::YearRange::Limited) ||
        !AddDuration(theirs, other, detail::YearRange::Limited)) {
      return detail::kIndeterminate;
    }
    const auto order = mine <=> theirs;
    const int current = order < 0 ? detail::kEarlier : order > 0 ? detail::kLater : detail::kEqual;
    if (&reference != std::begin(kReferenceMonths) && current != result)
      return detail::kIndeterminate;
    result = current;
  }
  return result;
}

}  // namespace QvXmlLib16
