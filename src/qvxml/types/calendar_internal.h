// Day numbers and exact division, shared by dates and durations.
//
// Day 0 is 0001-01-01, a Monday. The days run on without a gap through -0001-12-31, which is day
// -1: there is no year 0, and a year BCE is a leap year when IsLeapYear says so of its number, so
// that every date that passes validation has a day of its own.

#ifndef QVXML_TYPES_CALENDAR_INTERNAL_H_
#define QVXML_TYPES_CALENDAR_INTERNAL_H_

namespace QvXmlLib16::detail {

// Holds every sum of duration components, which are up to 64 bits wide each.
__extension__ typedef __int128 Int128;

// Day number of 1970-01-01.
inline constexpr long long kUnixEpochDay = 719162;
// The days of 400 years, after which the calendar repeats.
inline constexpr int kDaysIn400Years = 146097;

struct CalendarDate {
  long long year;
  int month;
  int day;
};

// 28 to 31; `month` is 1 to 12.
int DaysInMonth(int year, int month);

// `year` is any but 0 within 32 bits, `month` 1 to 12; `day` may lie outside the month, and counts
// on.
long long DayNumber(int year, int month, int day);

// The date of a day number of up to 70 bits.
CalendarDate DateOfDayNumber(Int128 dayNumber);

// Years counted without the gap between -1 and 1: year 1 has index 1, year -1 has index 0.
constexpr long long YearToIndex(long long year) { return year > 0 ? year : year + 1; }
constexpr long long IndexToYear(long long index) { return index > 0 ? index : index - 1; }

// Division rounded towards minus infinity and its remainder, for a positive `b`: GetQuotient and
// GetModulo as far as they are exact, and exact beyond.
Int128 FloorQuotient(Int128 a, int b);
int FloorModulo(Int128 a, int b);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_TYPES_CALENDAR_INTERNAL_H_
