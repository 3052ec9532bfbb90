#include "qvxml/types/calendar.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "qvxml/types/calendar_internal.h"

namespace QvXmlLib16 {

bool IsLeapYear(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int GetQuotient(long long a, int b) {
  // Kept: single precision, so operands beyond 2^24 lose digits.
  const float quotient = std::floor(static_cast<float>(a) / static_cast<float>(b));
  const bool fitsInt = quotient >= -2147483648.0F && quotient < 2147483648.0F;
  return fitsInt ? static_cast<int>(quotient) : INT_MIN;
}

long long GetModulo(long long a, int b) {
  const long long multiple = static_cast<long long>(b) * GetQuotient(a, b);
  return static_cast<long long>(static_cast<unsigned long long>(a) -
                                static_cast<unsigned long long>(multiple));
}

namespace detail {

namespace {

constexpr int kDaysIn100Years = 36524;
constexpr int kDaysIn4Years = 1461;
constexpr int kDaysInYear = 365;
// IsLeapYear would make the missing year 0 a leap year; the years before it are numbered as if it
// were there, and their days moved up by its length.
constexpr int kDaysInYearZero = 366;
constexpr long long kExactInFloat = 1LL << 24;

bool IsExactInFloat(Int128 value) { return value >= -kExactInFloat && value <= kExactInFloat; }

template <class TInteger>
TInteger ExactFloorQuotient(TInteger a, int b) {
  const TInteger quotient = a / b;
  return quotient * b > a ? quotient - 1 : quotient;
}

long long DaysBeforeYear(int year) {
  const auto years = static_cast<long long>(year) - 1;
  return years * kDaysInYear + ExactFloorQuotient(years, 4) - ExactFloorQuotient(years, 100) +
         ExactFloorQuotient(years, 400);
}

int DaysBeforeMonth(int year, int month) {
  return g_monthDayInYear[month - 1] + (month > 2 && IsLeapYear(year) ? 1 : 0);
}

// The number of whole cycles of 400 years.
Int128 CyclesOf(Int128 dayNumber) {
  const auto narrow = static_cast<long long>(dayNumber);
  if (narrow == dayNumber) return ExactFloorQuotient(narrow, kDaysIn400Years);
  return ExactFloorQuotient(dayNumber, kDaysIn400Years);
}

}  // namespace

int DaysInMonth(int year, int month) {
  return month == 2 && !IsLeapYear(year) ? 28 : g_monthMax[month - 1];
}

long long DayNumber(int year, int month, int day) {
  const int gap = year < 0 ? kDaysInYearZero : 0;
  return DaysBeforeYear(year) + gap + DaysBeforeMonth(year, month) + day - 1;
}

CalendarDate DateOfDayNumber(Int128 dayNumber) {
  if (dayNumber < 0) dayNumber -= kDaysInYearZero;
  const Int128 cycle = CyclesOf(dayNumber);
  int day = static_cast<int>(dayNumber - cycle * kDaysIn400Years);
  // The last century of a cycle and the last year of four are a day longer than the others.
  const int century = std::min(day / kDaysIn100Years, 3);
  day -= century * kDaysIn100Years;
  const int fourYears = day / kDaysIn4Years;
  day -= fourYears * kDaysIn4Years;
  const int singleYear = std::min(day / kDaysInYear, 3);
  day -= singleYear * kDaysInYear;

  const int yearInCycle = century * 100 + fourYears * 4 + singleYear + 1;
  const auto year = static_cast<long long>(cycle * 400) + yearInCycle;
  // No month is longer than 31 days, so the first guess is right or a month too low.
  int month = day / 31 + 1;
  if (month < 12 && day >= DaysBeforeMonth(yearInCycle, month + 1)) ++month;
  return {year, month, day - DaysBeforeMonth(yearInCycle, month) + 1};
}

Int128 FloorQuotient(Int128 a, int b) {
  if (a >= 0 && a < b) return 0;
  if (IsExactInFloat(a)) return GetQuotient(static_cast<long long>(a), b);
  return ExactFloorQuotient(a, b);
}

int FloorModulo(Int128 a, int b) {
  if (a >= 0 && a < b) return static_cast<int>(a);
  if (IsExactInFloat(a)) return static_cast<int>(GetModulo(static_cast<long long>(a), b));
  return static_cast<int>(a - ExactFloorQuotient(a, b) * b);
}

}  // namespace detail

}  // namespace QvXmlLib16
