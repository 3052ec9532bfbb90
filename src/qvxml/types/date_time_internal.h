// What the sources of dates and durations share: the fields of a kind, moments and the adding of
// durations to them, and the writing of digits.

#ifndef QVXML_TYPES_DATE_TIME_INTERNAL_H_
#define QVXML_TYPES_DATE_TIME_INTERNAL_H_

#include <charconv>
#include <compare>
#include <cstddef>
#include <string_view>

#include "qvxml/core/digits_internal.h"
#include "qvxml/types/date_time.h"

namespace QvXmlLib16::detail {

// Fields of a value, as bits; the hour to the fraction go together.
enum DateTimeField : unsigned { kYear = 1, kMonth = 2, kDay = 4, kTime = 8 };

// The fields that a kind carries; none for a number that is no kind.
constexpr unsigned CarriedFields(CDateTime::DTType type) {
  switch (type) {
    case CDateTime::dt_dateTime:
      return kYear | kMonth | kDay | kTime;
    case CDateTime::dt_date:
      return kYear | kMonth | kDay;
    case CDateTime::dt_gYearMonth:
      return kYear | kMonth;
    case CDateTime::dt_gYear:
      return kYear;
    case CDateTime::dt_time:
      return kTime;
    case CDateTime::dt_gDay:
      return kDay;
    case CDateTime::dt_gMonth:
      return kMonth;
    case CDateTime::dt_gMonthDay:
      return kMonth | kDay;
    case CDateTime::dt_unset:
      break;
  }
  return 0;
}

enum class TimeField : int { Hour, Minute, Second, MilliSecond, MicroSecond, NanoSecond };

// Throws the message of that field when `value` is above its highest value.
void ValidateTimeField(TimeField field, int value);

// `year` in full: it may be far outside the years of a date.
[[noreturn]] void ThrowInvalidYear(long long year);

// Stands in where a calculation needs the year of a kind that has none; a leap year, so that every
// gMonthDay exists in it.
inline constexpr int kReferenceYear = 1972;
// The year of such a kind when it is compared.
inline constexpr int kNoYear = -1;

// All fields of a point in time, in the order in which they are compared.
struct Moment {
  long long year = kNoYear;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int milliSecond = 0;
  int microSecond = 0;
  int nanoSecond = 0;

  auto operator<=>(const Moment&) const = default;
};

// Results of the comparisons, part of the interface.
inline constexpr int kEqual = 0;
inline constexpr int kEarlier = 1;
inline constexpr int kLater = 2;
inline constexpr int kIndeterminate = 3;

int CompareMoments(const Moment& a, const Moment& b);

enum class YearRange { Limited, Cyclic };

// Adds a duration as the XSD appendix tells, in a time that does not depend on its size.
//
// A limited year skips 0, and the result is false when it would leave MIN_YEAR to MAX_YEAR; the
// moment then holds only that year. A cyclic year ends up any year with the same calendar.
bool AddDuration(Moment& moment, const CDateTimeSpan& span, YearRange yearRange);

// The digits of the largest field, 16 bits wide.
inline constexpr size_t kMaxPaddedLength = 5;

// Writes `value` with leading zeros to at least `kWidth` digits; returns the end.
template <int kWidth>
char* WritePadded(char* out, unsigned value) {
  unsigned rest = value;
  for (int i = kWidth - 1; i >= 0; --i, rest /= 10) out[i] = static_cast<char>('0' + rest % 10);
  if (rest == 0) return out + kWidth;
  return std::to_chars(out, out + kMaxPaddedLength, value).ptr;
}
// Writes "." and the fraction without trailing zeros, or nothing for 0; returns the end.
char* WriteFraction(char* out, unsigned milliSecond, unsigned microSecond, unsigned nanoSecond);

// Reads fraction digits from the start of `text`, at most nine, into three groups, and returns
// their number; ten means that there are more.
size_t ReadFraction(std::string_view text, unsigned short (&groups)[3]);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_TYPES_DATE_TIME_INTERNAL_H_
