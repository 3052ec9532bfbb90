// Validation of dates and times, field by field, with the message of each field.

#include <cstddef>
#include <iterator>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/types/calendar.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_internal.h"

namespace QvXmlLib16 {

using detail::kDay;
using detail::kMonth;
using detail::kTime;
using detail::kYear;
using detail::ThrowInvalidYear;

namespace {

// In the order of TimeField.
struct TimeFieldRule {
  int highest;
  const char* rangeMessage;
  const char* absentMessage;
};
// clang-format off
constexpr TimeFieldRule kTimeFieldRules[] = {
    {23, "Invalid Hour [%d] (0 <= hour <= 23)", "Invalid Hour [%d] for type %s"},
    {59, "Invalid Minute [%d] (0 <= minute <= 59)", "Invalid Minute [%d] for type %s"},
    {59, "Invalid Second [%d] (0 <= second <= 59)", "Invalid Second [%d] for type %s"},
    {999, "Invalid Milli-Second [%d] (0 <= milli <= 999)", "Invalid Milli-Second [%d] for type %s"},
    {999, "Invalid Micro-Second [%d] (0 <= micro <= 999)", "Invalid Micro-Second [%d] for type %s"},
    {999, "Invalid Nano-Second [%d] (0 <= nano <= 999)", "Invalid Nano-Second [%d] for type %s"},
};
// clang-format on

[[noreturn]] void ThrowInvalidField(const char* message, int value) {
  throw CQvInvalidValueException(FormatString(message, value));
}

[[noreturn]] void ThrowAbsentField(const char* message, int value, CDateTime::DTType type) {
  throw CQvInvalidValueException(
      FormatString(message, value, CDateTime::GetTypeAsString(type).c_str()));
}

}  // namespace

namespace detail {

void ValidateTimeField(TimeField field, int value) {
  const TimeFieldRule& rule = kTimeFieldRules[static_cast<size_t>(field)];
  if (value > rule.highest) ThrowInvalidField(rule.rangeMessage, value);
}

void ThrowInvalidYear(long long year) {
  // Kept: the higher bound comes first.
  throw CQvInvalidValueException(FormatString("Invalid Year [%lld] (%d <= year <= %d && year != 0)",
                                              year, static_cast<int>(MAX_YEAR),
                                              static_cast<int>(MIN_YEAR)));
}

}  // namespace detail

void CDateTime::Validate() const {
  if (m_type == dt_unset) throw CQvInvalidValueException("Invalid Year Zero");
  ValidateMonth();
  ValidateYear();
  ValidateDay();
  ValidateTime();
}

void CDateTime::ValidateMonth() const {
  if (Carries(kMonth)) {
    if (m_month < 1 || m_month > 12)
      ThrowInvalidField("Invalid Month [%d] (1 <= month <= 12)", m_month);
  } else if (m_month != 0) {
    ThrowAbsentField("Invalid Month [%d] for type %s", m_month, m_type);
  }
}

void CDateTime::ValidateYear() const {
  if (Carries(kYear)) {
    if (m_year == 0 || m_year < MIN_YEAR || m_year > MAX_YEAR) ThrowInvalidYear(m_year);
  } else if (m_year != 0) {
    ThrowAbsentField("Invalid Year [%d] for type %s", m_year, m_type);
  }
}

// A month or year that is not set yet, or that a failed setter left behind, limits nothing.
void CDateTime::ValidateDay() const {
  if (!Carries(kDay)) {
    if (m_day != 0) ThrowAbsentField("Invalid Day [%d] for type %s", m_day, m_type);
    return;
  }
  if (m_type == dt_gDay) {
    // Kept: the upper bound is tested on the month, which is 0, so every day but 0 passes.
    if (m_day == 0 || m_month > 31) ThrowInvalidField("Invalid Day [%d] (1 <= day <= 31)", m_day);
    return;
  }
  const int highest = m_month >= 1 && m_month <= 12 ? g_monthMax[m_month - 1] : 31;
  if (m_type == dt_gMonthDay) {
    if (m_day < 1 || m_day > highest)
      ThrowInvalidField("Invalid Day [%d] (1 <= day <= days in month)", m_day);
    return;
  }
  const bool isMissingLeapDay = m_month == 2 && m_day == 29 && m_year != 0 && !IsLeapYear(m_year);
  // Kept: no closing parenthesis.
  if (m_day < 1 || m_day > highest || isMissingLeapDay)
    ThrowInvalidField("Invalid Day [%d] (1 <= day <= days in month", m_day);
}

void CDateTime::ValidateStartedDay() const {
  if (m_day != 0) ValidateDay();
}

void CDateTime::ValidateTime() const {
  const int values[] = {m_hour, m_minute, m_second, m_milliSecond, m_microSecond, m_nanoSecond};
  const bool carriesTime = Carries(kTime);
  for (size_t i = 0; i < std::size(values); ++i) {
    const TimeFieldRule& rule = kTimeFieldRules[i];
    if (values[i] <= (carriesTime ? rule.highest : 0)) continue;
    if (carriesTime) ThrowInvalidField(rule.rangeMessage, values[i]);
    ThrowAbsentField(rule.absentMessage, values[i], m_type);
  }
}

}  // namespace QvXmlLib16
