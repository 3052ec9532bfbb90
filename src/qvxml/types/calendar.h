// Facts of the calendar behind dates: years, months, leap years, and the division of the XSD
// algorithm for adding durations to dates.

#ifndef QVXML_TYPES_CALENDAR_H_
#define QVXML_TYPES_CALENDAR_H_

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// The years that a date can have; negative years are BCE, and there is no year 0.
inline constexpr short MIN_YEAR = -9999;
inline constexpr short MAX_YEAR = 9999;

/// Days of each month, January first; February has 29.
inline constexpr unsigned char g_monthMax[12] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

/// Days before each month in a common year, January first; the last entry is the length of the
/// year.
inline constexpr unsigned short g_monthDayInYear[13] = {0,   31,  59,  90,  120, 151, 181,
                                                        212, 243, 273, 304, 334, 365};

/// True when `year` is divisible by 4, and not by 100 unless by 400. Years BCE count by their
/// number as written, so -4 is a leap year and -1 is not.
QVXML_API bool IsLeapYear(int year);

/// `a` / `b` rounded towards minus infinity, computed in single precision: exact for operands
/// within 2^24 of zero, an approximation beyond. A quotient that is no 32-bit integer, division by
/// zero included, gives INT_MIN.
QVXML_API int GetQuotient(long long a, int b);

/// `a` - `b` * GetQuotient(a, b): for operands within 2^24 of zero and a positive `b` from 0 to
/// `b` - 1. Beyond, it is off by what the quotient is off, and wraps at 64 bits.
QVXML_API long long GetModulo(long long a, int b);

}  // namespace QvXmlLib16

#endif  // QVXML_TYPES_CALENDAR_H_
