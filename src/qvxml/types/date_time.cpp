// Construction, kind, fields and zone; validation is in date_time_validation.cpp, text in
// date_time_text.cpp, order and arithmetic in date_time_order.cpp.

#include "qvxml/types/date_time.h"

#include <ctime>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/types/calendar.h"
#include "qvxml/types/calendar_internal.h"
#include "qvxml/types/date_time_internal.h"

namespace QvXmlLib16 {

using detail::CalendarDate;
using detail::CarriedFields;
using detail::DateOfDayNumber;
using detail::DayNumber;
using detail::FloorModulo;
using detail::FloorQuotient;
using detail::kDay;
using detail::kMonth;
using detail::kTime;
using detail::kUnixEpochDay;
using detail::kYear;
using detail::ThrowInvalidYear;
using detail::TimeField;
using detail::ValidateTimeField;

constinit CInstanceCounter CDateTime::s_instances("CDateTime");

// Variants and collections hold many of them.
static_assert(sizeof(CDateTime) == 32);

namespace {

constexpr int kSecondsInDay = 86400;

constexpr const char* kTypeNames[] = {"yearZero", "dateTime", "date",   "gYearMonth", "gYear",
                                      "time",     "gDay",     "gMonth", "gMonthDay"};

[[noreturn]] void ThrowCopyFailure(CDateTime::DTType type, CDateTime::DTType expected) {
  throw CQvInvalidStateException(FormatString(
      "Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.",
      CDateTime::GetTypeAsString(type).c_str(), CDateTime::GetTypeAsString(expected).c_str()));
}

}  // namespace

CDateTime::CDateTime(short year, unsigned char month, unsigned char day) {
  SetDate(year, month, day);
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second) {
  SetDateTime(year, month, day, hour, minute, second);
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second, unsigned short milliSecond,
                     unsigned short microSecond, unsigned short nanoSecond) {
  SetDateTime(year, month, day, hour, minute, second, milliSecond, microSecond, nanoSecond);
}

CDateTime::CDateTime(const long& t) { SetSecondsSinceEpoch(t); }

CDateTime::CDateTime(int t) { SetSecondsSinceEpoch(t); }

CDateTime::CDateTime(const char* text) { ParseXSDDateTime(text); }

CDateTime& CDateTime::operator=(const long& t) { return *this = CDateTime(t); }

CDateTime CDateTime::GetCurrentTime() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  CDateTime result(static_cast<long>(now.tv_sec));
  result.m_milliSecond = static_cast<unsigned short>(now.tv_nsec / 1000000);
  result.m_microSecond = static_cast<unsigned short>(now.tv_nsec / 1000 % 1000);
  result.m_nanoSecond = static_cast<unsigned short>(now.tv_nsec % 1000);
  return result;
}

void CDateTime::SetSecondsSinceEpoch(long seconds) {
  const auto day = static_cast<long>(FloorQuotient(seconds, kSecondsInDay));
  const int secondOfDay = FloorModulo(seconds, kSecondsInDay);
  const CalendarDate date = DateOfDayNumber(day + kUnixEpochDay);
  if (date.year < MIN_YEAR || date.year > MAX_YEAR) ThrowInvalidYear(date.year);
  SetDateTime(static_cast<short>(date.year), static_cast<unsigned char>(date.month),
              static_cast<unsigned char>(date.day), static_cast<unsigned char>(secondOfDay / 3600),
              static_cast<unsigned char>(secondOfDay / 60 % 60),
              static_cast<unsigned char>(secondOfDay % 60));
  SetUTC();
}

void CDateTime::Clear() {
  m_type = dt_unset;
  m_year = 0;
  m_month = m_day = 0;
  m_hour = m_minute = m_second = 0;
  m_milliSecond = m_microSecond = m_nanoSecond = 0;
  m_isUTC = m_hasTimeZone = false;
  m_zoneHour = 0;
  m_zoneMinute = 0;
  m_flag = 0;
}

std::string CDateTime::GetTypeAsString(DTType type) {
  return type <= dt_gMonthDay ? kTypeNames[type] : "";
}

bool CDateTime::CheckConversion(DTType from, DTType to) {
  const unsigned needed = CarriedFields(to);
  return needed != 0 && (CarriedFields(from) & needed) == needed;
}

bool CDateTime::Carries(unsigned field) const { return (CarriedFields(m_type) & field) == field; }

void CDateTime::RequireField(unsigned field, const char* message) const {
  if (Carries(field)) return;
  throw CQvInvalidStateException(FormatString(message, GetTypeAsString().c_str()));
}

short CDateTime::GetYear() const {
  RequireField(kYear, "Failed to GetYear. Invalid Date Type: %s.");
  return m_year;
}

unsigned char CDateTime::GetMonth() const {
  RequireField(kMonth, "Failed to GetMonth. Invalid Date Type: %s.");
  return m_month;
}

unsigned char CDateTime::GetDay() const {
  RequireField(kDay, "Failed to GetDay. Invalid Date Type: %s.");
  return m_day;
}

unsigned char CDateTime::GetHour() const {
  RequireField(kTime, "Failed to GetHour. Invalid Date Type: %s.");
  return m_hour;
}

unsigned char CDateTime::GetMinute() const {
  RequireField(kTime, "Failed to GetMinute. Invalid Date Type: %s.");
  return m_minute;
}

unsigned char CDateTime::GetSecond() const {
  RequireField(kTime, "Failed to GetSecond. Invalid Date Type: %s.");
  return m_second;
}

double CDateTime::GetRealSecond() const {
  RequireField(kTime, "Failed to GetRealSecond. Invalid Date Type: %s.");
  // One division of exact integers gives the double nearest to the decimal.
  const long long nanoSeconds =
      ((m_second * 1000LL + m_milliSecond) * 1000 + m_microSecond) * 1000 + m_nanoSecond;
  return static_cast<double>(nanoSeconds) / 1e9;
}

unsigned short CDateTime::GetMilliSecond() const {
  RequireField(kTime, "Failed to GetMilliSecond. Invalid Date Type: %s.");
  return m_milliSecond;
}

unsigned short CDateTime::GetMicroSecond() const {
  RequireField(kTime, "Failed to GetMicroSecond. Invalid Date Type: %s.");
  return m_microSecond;
}

unsigned short CDateTime::GetNanoSecond() const {
  RequireField(kTime, "Failed to GetNanoSecond. Invalid Date Type: %s.");
  return m_nanoSecond;
}

long long CDateTime::GetDayNumber(const char* message) const {
  RequireField(kYear | kMonth | kDay, message);
  Validate();
  return DayNumber(m_year, m_month, m_day);
}

int CDateTime::GetDayOfYear() const {
  const long long day = GetDayNumber("Failed to GetDayOfYear. Invalid Date Type: %s.");
  return static_cast<int>(day - DayNumber(m_year, 1, 1)) + 1;
}

int CDateTime::GetDayOfWeek() const {
  // Day 0 is a Monday.
  const long long day = GetDayNumber("Failed to GetDayOfWeek. Invalid Date Type: %s.");
  return FloorModulo(day + 1, 7);
}

long CDateTime::GetTime() const {
  const long long day = GetDayNumber("Failed to GetTime. Invalid Date Type: %s.") - kUnixEpochDay;
  return day * kSecondsInDay + (m_hour * 60 + m_minute - GetOffsetMinutes()) * 60LL + m_second;
}

// The setters change a copy, so that nothing is stored when it turns out invalid.
CDateTime CDateTime::CopyToSet(unsigned field, const char* message) const {
  CDateTime copy(*this);
  if (copy.m_type == dt_unset) copy.m_type = dt_dateTime;
  copy.RequireField(field, message);
  return copy;
}

void CDateTime::SetYear(short year) {
  CDateTime changed = CopyToSet(kYear, "Failed to SetYear. Invalid Date Type: %s.");
  changed.m_year = year;
  changed.ValidateYear();
  changed.ValidateStartedDay();
  *this = changed;
}

void CDateTime::SetMonth(unsigned char month) {
  CDateTime changed = CopyToSet(kMonth, "Failed to SetMonth. Invalid Date Type: %s.");
  changed.m_month = month;
  changed.ValidateMonth();
  changed.ValidateStartedDay();
  *this = changed;
}

void CDateTime::SetDay(unsigned char day) {
  CDateTime changed = CopyToSet(kDay, "Failed to SetDay. Invalid Date Type: %s.");
  changed.m_day = day;
  changed.ValidateDay();
  *this = changed;
}

template <class TNumber>
void CDateTime::SetTimeField(TimeField field, TNumber CDateTime::*member, TNumber value,
                             const char* message) {
  CDateTime changed = CopyToSet(kTime, message);
  ValidateTimeField(field, value);
  changed.*member = value;
  *this = changed;
}

void CDateTime::SetHour(unsigned char hour) {
  SetTimeField(TimeField::Hour, &CDateTime::m_hour, hour,
               "Failed to SetHour. Invalid Date Type: %s.");
}

void CDateTime::SetMinute(unsigned char minute) {
  SetTimeField(TimeField::Minute, &CDateTime::m_minute, minute,
               "Failed to SetMinute. Invalid Date Type: %s.");
}

void CDateTime::SetSecond(unsigned char second) {
  SetTimeField(TimeField::Second, &CDateTime::m_second, second,
               "Failed to SetSecond. Invalid Date Type: %s.");
}

void CDateTime::SetMilliSecond(unsigned short milliSecond) {
  SetTimeField(TimeField::MilliSecond, &CDateTime::m_milliSecond, milliSecond,
               "Failed to SetMilliSecond. Invalid Date Type: %s.");
}

void CDateTime::SetMicroSecond(unsigned short microSecond) {
  SetTimeField(TimeField::MicroSecond, &CDateTime::m_microSecond, microSecond,
               "Failed to SetMicroSecond. Invalid Date Type: %s.");
}

void CDateTime::SetNanoSecond(unsigned short nanoSecond) {
  SetTimeField(TimeField::NanoSecond, &CDateTime::m_nanoSecond, nanoSecond,
               "Failed to SetNanoSecond. Invalid Date Type: %s.");
}

void CDateTime::SetFracTime(unsigned short milliSecond, unsigned short microSecond,
                            unsigned short nanoSecond) {
  CDateTime changed = CopyToSet(kTime, "Failed to SetFracTime. Invalid Date Type: %s.");
  ValidateTimeField(TimeField::MilliSecond, milliSecond);
  ValidateTimeField(TimeField::MicroSecond, microSecond);
  ValidateTimeField(TimeField::NanoSecond, nanoSecond);
  changed.m_milliSecond = milliSecond;
  changed.m_microSecond = microSecond;
  changed.m_nanoSecond = nanoSecond;
  *this = changed;
}

void CDateTime::SetDateTime(DTType type, short year, unsigned char month, unsigned char day,
                            unsigned char hour, unsigned char minute, unsigned char second,
                            unsigned short milliSecond, unsigned short microSecond,
                            unsigned short nanoSecond) {
  if (m_type != dt_unset && m_type != type) ThrowCopyFailure(type, m_type);
  Clear();
  m_type = type;
  m_year = year;
  m_month = month;
  m_day = day;
  m_hour = hour;
  m_minute = minute;
  m_second = second;
  m_milliSecond = milliSecond;
  m_microSecond = microSecond;
  m_nanoSecond = nanoSecond;
  Validate();
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second) {
  SetDateTime(dt_dateTime, year, month, day, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second, unsigned short milliSecond,
                            unsigned short microSecond, unsigned short nanoSecond) {
  SetDateTime(dt_dateTime, year, month, day, hour, minute, second, milliSecond, microSecond,
              nanoSecond);
}

void CDateTime::SetDateTime(const CDateTime& source, DTType type) {
  if (!CheckConversion(source.m_type, type)) ThrowCopyFailure(source.m_type, type);
  if (m_type != dt_unset && m_type != type) ThrowCopyFailure(type, m_type);
  CDateTime taken(source);
  taken.m_type = type;
  if (!taken.Carries(kYear)) taken.m_year = 0;
  if (!taken.Carries(kMonth)) taken.m_month = 0;
  if (!taken.Carries(kDay)) taken.m_day = 0;
  if (!taken.Carries(kTime)) {
    taken.m_hour = taken.m_minute = taken.m_second = 0;
    taken.m_milliSecond = taken.m_microSecond = taken.m_nanoSecond = 0;
  }
  *this = taken;
  Validate();
}

void CDateTime::SetDate(short year, unsigned char month, unsigned char day) {
  SetDateTime(dt_date, year, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second) {
  SetDateTime(dt_time, 0, 0, 0, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second,
                        unsigned short milliSecond, unsigned short microSecond,
                        unsigned short nanoSecond) {
  SetDateTime(dt_time, 0, 0, 0, hour, minute, second, milliSecond, microSecond, nanoSecond);
}

void CDateTime::SetGYear(short year) { SetDateTime(dt_gYear, year, 0, 0, 0, 0, 0, 0, 0, 0); }

void CDateTime::SetGYearMonth(short year, unsigned char month) {
  SetDateTime(dt_gYearMonth, year, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonth(unsigned char month) {
  SetDateTime(dt_gMonth, 0, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonthDay(unsigned char month, unsigned char day) {
  SetDateTime(dt_gMonthDay, 0, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGDay(unsigned char day) { SetDateTime(dt_gDay, 0, 0, day, 0, 0, 0, 0, 0, 0); }

short CDateTime::GetZoneHour() const {
  RequireTimeZone();
  return m_zoneHour;
}

unsigned char CDateTime::GetZoneMinute() const {
  RequireTimeZone();
  return m_zoneMinute;
}

void CDateTime::RequireTimeZone() const {
  if (!m_hasTimeZone) throw CQvInvalidStateException("TimeZone is not been used");
}

void CDateTime::SetTimeZone(short hour, unsigned char minute) {
  if (hour < -23 || hour > 23 || minute > 59) {
    throw CQvInvalidValueException(
        FormatString("Invalid TimeZone [%d:%d]", static_cast<int>(hour), static_cast<int>(minute)));
  }
  m_isUTC = true;
  m_hasTimeZone = true;
  m_zoneHour = hour;
  m_zoneMinute = minute;
}

void CDateTime::SetUTC() {
  m_isUTC = true;
  m_hasTimeZone = false;
  m_zoneHour = 0;
  m_zoneMinute = 0;
}

}  // namespace QvXmlLib16
