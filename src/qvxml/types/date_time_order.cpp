// Order and arithmetic of dates and times.

#include <algorithm>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/types/calendar.h"
#include "qvxml/types/calendar_internal.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_internal.h"

namespace QvXmlLib16 {

using detail::CalendarDate;
using detail::DateOfDayNumber;
using detail::DayNumber;
using detail::Int128;
using detail::Moment;

namespace {

constexpr int kMinutesInDay = 24 * 60;
constexpr long long kNanoSecondsInSecond = 1000000000;
constexpr int kMaxUnknownOffset = 14 * 60;

bool IsYearInRange(long long year) { return year >= MIN_YEAR && year <= MAX_YEAR; }

void SetDateOf(Moment& moment, Int128 dayNumber) {
  const CalendarDate date = DateOfDayNumber(dayNumber);
  moment.year = date.year;
  moment.month = date.month;
  moment.day = date.day;
}

// Steps a moment without year back by a day. Day 0 stands for the day before 1 January, and so
// before everything else.
void StepBackWithoutYear(Moment& moment) {
  if (moment.day == 1 && moment.month > 1) {
    --moment.month;
    moment.day = g_monthMax[moment.month - 1];
  } else {
    --moment.day;
  }
}

// Nanoseconds since 0001-01-01, of the reference year when the moment has none.
Int128 ToNanoSeconds(const Moment& moment, bool hasYear) {
  const int year = hasYear ? static_cast<int>(moment.year) : detail::kReferenceYear;
  // The day may be 0, see above.
  const Int128 days = DayNumber(year, moment.month, 1) + moment.day - 1;
  const Int128 seconds = ((days * 24 + moment.hour) * 60 + moment.minute) * 60 + moment.second;
  const long long fraction =
      (moment.milliSecond * 1000LL + moment.microSecond) * 1000 + moment.nanoSecond;
  return seconds * kNanoSecondsInSecond + fraction;
}

}  // namespace

namespace detail {

int CompareMoments(const Moment& a, const Moment& b) {
  // Kept: opposite signs are indeterminate, BCE against CE included.
  if ((a.year < 0) != (b.year < 0)) return kIndeterminate;
  const auto order = a <=> b;
  if (order == 0) return kEqual;
  return order < 0 ? kEarlier : kLater;
}

bool AddDuration(Moment& moment, const CDateTimeSpan& span, YearRange yearRange) {
  const Int128 sign = span.IsNegative() ? -1 : 1;

  const Int128 months = moment.month - 1 + sign * span.GetMonths();
  moment.month = FloorModulo(months, 12) + 1;
  const Int128 yearIndex =
      YearToIndex(moment.year) + sign * span.GetYears() + FloorQuotient(months, 12);
  if (yearRange == YearRange::Limited) {
    moment.year = IndexToYear(static_cast<long long>(yearIndex));
    if (!IsYearInRange(moment.year)) return false;
  } else {
    moment.year = kReferenceYear / 400 * 400 + FloorModulo(yearIndex, 400);
  }

  struct Step {
    int& field;
    Int128 amount;
    int limit;
  };
  const Step steps[] = {{moment.nanoSecond, span.GetNanoSeconds(), 1000},
                        {moment.microSecond, span.GetMicroSeconds(), 1000},
                        {moment.milliSecond, span.GetMilliSeconds(), 1000},
                        {moment.second, span.GetSeconds(), 60},
                        {moment.minute, span.GetMinutes(), 60},
                        {moment.hour, span.GetHours(), 24}};
  Int128 carry = 0;
  for (const Step& step : steps) {
    const Int128 sum = step.field + sign * step.amount + carry;
    step.field = FloorModulo(sum, step.limit);
    carry = FloorQuotient(sum, step.limit);
  }

  // One division instead of a step for each month that the days span.
  Int128 days = sign * span.GetDays() + carry;
  if (yearRange == YearRange::Cyclic) days = FloorModulo(days, kDaysIn400Years);
  const auto year = static_cast<int>(moment.year);
  const int day = std::min(moment.day, DaysInMonth(year, moment.month));
  SetDateOf(moment, DayNumber(year, moment.month, day) + days);
  return yearRange == YearRange::Cyclic || IsYearInRange(moment.year);
}

}  // namespace detail

int Compare(const CDateTime& a, const CDateTime& b) {
  return detail::CompareMoments(a.ToMoment(), b.ToMoment());
}

Moment CDateTime::ToMoment() const {
  Moment moment;
  if (Carries(detail::kYear)) moment.year = m_year;
  if (Carries(detail::kMonth)) moment.month = m_month;
  if (Carries(detail::kDay)) moment.day = m_day;
  if (Carries(detail::kTime)) {
    moment.hour = m_hour;
    moment.minute = m_minute;
    moment.second = m_second;
    moment.milliSecond = m_milliSecond;
    moment.microSecond = m_microSecond;
    moment.nanoSecond = m_nanoSecond;
  }
  return moment;
}

int CDateTime::GetOffsetMinutes() const {
  return m_zoneHour * 60 + (m_zoneHour < 0 ? -m_zoneMinute : m_zoneMinute);
}

Moment CDateTime::ToUtcMoment() const {
  return m_hasTimeZone ? ToUtcMoment(GetOffsetMinutes()) : ToMoment();
}

Moment CDateTime::ToUtcMoment(int offsetMinutes) const {
  Validate();
  Moment moment = ToMoment();
  const int minutes = moment.hour * 60 + moment.minute - offsetMinutes;
  const int minuteOfDay = detail::FloorModulo(minutes, kMinutesInDay);
  const int dayStep = (minutes - minuteOfDay) / kMinutesInDay;
  moment.hour = minuteOfDay / 60;
  moment.minute = minuteOfDay % 60;
  if (dayStep == 0 || m_type == dt_time) return moment;
  if (!Carries(detail::kYear)) {
    // Without year there is no hour either, so the first instant cannot move a day ahead.
    StepBackWithoutYear(moment);
    return moment;
  }
  SetDateOf(moment, DayNumber(m_year, moment.month, moment.day) + dayStep);
  if (!IsYearInRange(moment.year)) detail::ThrowInvalidYear(moment.year);
  return moment;
}

int CDateTime::CompareTo(const CDateTime& other) const {
  if (m_isUTC == other.m_isUTC && !m_hasTimeZone && !other.m_hasTimeZone)
    return Compare(*this, other);
  try {
    return CompareInUtc(other);
  } catch (const CQvInvalidValueException&) {
    return detail::kIndeterminate;
  }
}

int CDateTime::CompareInUtc(const CDateTime& other) const {
  const Moment mine = ToUtcMoment();
  const Moment theirs = other.ToUtcMoment();
  if (m_isUTC == other.m_isUTC) return detail::CompareMoments(mine, theirs);
  if (m_isUTC) {
    const Moment earliest = other.ToUtcMoment(kMaxUnknownOffset);
    if (detail::CompareMoments(mine, earliest) == detail::kEarlier) return detail::kEarlier;
    const Moment latest = other.ToUtcMoment(-kMaxUnknownOffset);
    if (detail::CompareMoments(mine, latest) == detail::kLater) return detail::kLater;
    return detail::kIndeterminate;
  }
  const Moment earliest = ToUtcMoment(kMaxUnknownOffset);
  if (detail::CompareMoments(earliest, theirs) == detail::kLater) return detail::kLater;
  const Moment latest = ToUtcMoment(-kMaxUnknownOffset);
  if (detail::CompareMoments(latest, theirs) == detail::kEarlier) return detail::kEarlier;
  return detail::kIndeterminate;
}

// Takes over the fields that the kind carries.
void CDateTime::StoreMoment(const Moment& moment) {
  if (Carries(detail::kYear)) m_year = static_cast<short>(moment.year);
  if (Carries(detail::kMonth)) m_month = static_cast<unsigned char>(moment.month);
  if (Carries(detail::kDay)) m_day = static_cast<unsigned char>(moment.day);
  if (Carries(detail::kTime)) {
    m_hour = static_cast<unsigned char>(moment.hour);
    m_minute = static_cast<unsigned char>(moment.minute);
    m_second = static_cast<unsigned char>(moment.second);
    m_milliSecond = static_cast<unsigned short>(moment.milliSecond);
    m_microSecond = static_cast<unsigned short>(moment.microSecond);
    m_nanoSecond = static_cast<unsigned short>(moment.nanoSecond);
  }
}

CDateTime CDateTime::GetNormalized() const {
  if (!m_hasTimeZone) return *this;
  Moment moment = ToUtcMoment();
  if (!Carries(detail::kYear)) {
    SetDateOf(moment, DayNumber(detail::kReferenceYear, moment.month, 1) + moment.day - 1);
  }
  CDateTime normalized(m_type == dt_time ? dt_time : dt_dateTime);
  normalized.StoreMoment(moment);
  normalized.SetUTC();
  return normalized;
}

CDateTime& CDateTime::AddDateTimeSpan(const CDateTimeSpan& span) {
  Validate();
  Moment moment = ToMoment();
  const bool hasYear = Carries(detail::kYear);
  if (!hasYear) moment.year = detail::kReferenceYear;
  const auto yearRange = hasYear ? detail::YearRange::Limited : detail::YearRange::Cyclic;
  if (!AddDuration(moment, span, yearRange)) detail::ThrowInvalidYear(moment.year);
  StoreMoment(moment);
  return *this;
}

CDateTimeSpan CDateTime::operator-(const CDateTime& other) const {
  const bool hasYear = Carries(detail::kYear);
  const bool isSameSort =
      hasYear == other.Carries(detail::kYear) && (m_type == dt_time) == (other.m_type == dt_time);
  if (!isSameSort || m_type == dt_unset || other.m_type == dt_unset) {
    throw CQvInvalidStateException(FormatString("Failed to Subtract. Invalid Date Type: %s.",
                                                other.GetTypeAsString().c_str()));
  }
  Validate();
  other.Validate();
  const Int128 difference =
      ToNanoSeconds(ToUtcMoment(), hasYear) - ToNanoSeconds(other.ToUtcMoment(), hasYear);
  const Int128 magnitude = difference < 0 ? -difference : difference;
  const auto seconds = static_cast<unsigned long>(magnitude / kNanoSecondsInSecond);
  const auto fraction = static_cast<unsigned>(magnitude % kNanoSecondsInSecond);
  CDateTimeSpan span(0, 0, seconds / 86400, seconds / 3600 % 24, seconds / 60 % 60, seconds % 60,
                     static_cast<unsigned short>(fraction / 1000000),
                     static_cast<unsigned short>(fraction / 1000 % 1000),
                     static_cast<unsigned short>(fraction % 1000));
  if (difference < 0) span.Negate();
  return span;
}

}  // namespace QvXmlLib16
