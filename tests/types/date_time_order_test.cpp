// Order, normalisation and arithmetic of CDateTime.

#include <cstring>
#include <random>
#include <string>

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/types/calendar.h"
#include "qvxml/types/date_time.h"

namespace QvXmlLib16 {
namespace {

CDateTime Read(const char* text) {
  CDateTime value;
  if (std::strchr(text, 'T') != nullptr) {
    value.ParseXSDDateTime(text);
  } else if (text[0] != '\0' && text[2] == ':') {
    value.ParseXSDTime(text);
  } else if (text[0] != '\0') {
    value.ParseXSDDate(text);
  }
  return value;
}

CDateTimeSpan ReadSpan(const std::string& text) {
  CDateTimeSpan span;
  span.ParseXSDDuration(text.c_str());
  return span;
}

struct Row {
  const char *a, *b;
  int order;
};

constexpr Row kOrders[] = {
    // clang-format off
    {"", "", 0}, {"", "2001", 3}, {"", "2001Z", 3},
    {"2001-01-01T00:00:00", "2001-01-01T00:00:00", 0},
    {"2001-01-01T00:00:00", "2001-01-01T00:00:00.000000001", 1},
    {"2001-12-01T00:00:00", "2002-01-01T00:00:00", 1}, {"12:00:00.001", "12:00:00.000999999", 2},
    {"-0044-01-01", "-0043-01-01", 1}, {"-0001-12-31", "0001-01-01", 3}, {"---01", "---02", 1},
    {"--02-29", "--03-01", 1},
    // Kinds with and without year; otherwise absent fields are the lowest.
    {"2001-01-01", "--01-01", 3}, {"2001", "12:00:00", 3}, {"-0044", "12:00:00", 1},
    {"2001", "2001-01-01T00:00:00", 0}, {"2001-02", "2001-02-02", 1},
    // Both sides with zone.
    {"2001-01-01T12:00:00+02:00", "2001-01-01T10:00:00Z", 0},
    {"2001-01-01T12:00:00-05:30", "2001-01-01T17:30:00Z", 0},
    {"2001-01-01T00:30:00+01:00", "2000-12-31T23:30:00Z", 0},
    {"2001-03-01+01:00", "2001-03-01Z", 1}, {"2001-03-01+01:00", "2001-02-28Z", 2},
    {"2001-03-01-01:00", "2001-03-01Z", 2}, {"2001+01:00", "2001Z", 1},
    {"2001-01-23:59", "2001-01Z", 2}, {"--01-01+01:00", "--01-01Z", 1},
    {"--03-01+01:00", "--02-29Z", 2},
    {"--03+01:00", "--03Z", 1}, {"---01+01:00", "---01Z", 1}, {"---45-01:00", "---45Z", 2},
    {"02:00:00+05:00", "21:00:00Z", 0}, {"23:00:00-05:00", "04:00:00Z", 0},
    {"0001-01-01T00:00:00+00:00", "0001-01-01T00:00:00Z", 0},
    {"0001-01-01T00:00:00+01:00", "0001-01-01T00:00:00Z", 3},
    {"0001-01-01T00:00:00+01:00", "-0001-12-31T23:00:00Z", 0},
    // A moment outside the years.
    {"9999-12-31T23:00:00-01:00", "2001-01-01T00:00:00Z", 3},
    {"-9999-01-01+01:00", "-9999-01-01Z", 3}, {"9999-12-31T23:00:00", "9999-12-31T20:00:00Z", 3},
    {"9999-12-31T23:00:00", "2001-01-01T00:00:00Z", 2},
    {"-9999-01-01T00:00:00", "2001-01-01T00:00:00Z", 3},
    // One side with zone: ordered when all of 14 hours either way agree.
    {"2000-01-15T00:00:00", "2000-01-15T14:00:00Z", 3},
    {"2000-01-15T00:00:00", "2000-01-15T14:00:00.000000001Z", 1},
    {"2000-01-15T14:00:00", "2000-01-15T00:00:00Z", 3},
    {"2000-01-15T14:00:01", "2000-01-15T02:00:00+02:00", 2}, {"2000-01-15", "2000-01-17Z", 1},
    // clang-format on
};

TEST(CDateTimeOrder, ComparesEveryPairBothWays) {
  for (const Row& row : kOrders) {
    SCOPED_TRACE(std::string(row.a) + " and " + row.b);
    const CDateTime a = Read(row.a);
    const CDateTime b = Read(row.b);
    const bool isLess = row.order == 1, isGreater = row.order == 2, isSame = row.order == 0;
    EXPECT_EQ(a.CompareTo(b), row.order);
    EXPECT_EQ(b.CompareTo(a), isLess ? 2 : isGreater ? 1 : row.order);
    EXPECT_TRUE((a == b) == isSame && (a != b) == !isSame);
    EXPECT_TRUE((a < b) == isLess && (a <= b) == (isLess || isSame));
    EXPECT_TRUE((a > b) == isGreater && (a >= b) == (isGreater || isSame));
  }
  // The function looks at no zone.
  EXPECT_EQ(Compare(Read("2001-01-01T12:00:00+05:00"), Read("2001-01-01T12:00:00Z")), 0);
  EXPECT_EQ(Compare(Read("2001-01-01T13:00:00+05:00"), Read("2001-01-01T12:00:00")), 2);
  EXPECT_EQ(Compare(Read("-0001"), Read("0001")), 3);
}

TEST(CDateTimeOrder, NormalizesEveryKind) {
  constexpr std::pair<const char*, const char*> kRows[] = {
      // clang-format off
      {"2001-01-01T00:00:00", "2001-01-01T00:00:00"}, {"2001-01-01Z", "2001-01-01Z"},
      {"2001-01-01T00:00:00.25+23:59", "2000-12-31T00:01:00.25Z"},
      {"2000-02-28T23:00:00-01:30", "2000-02-29T00:30:00Z"},
      {"-0001-12-31T23:00:00-01:00", "0001-01-01T00:00:00Z"},
      {"2001-01-01+05:00", "2000-12-31T19:00:00Z"}, {"2001-03-05:00", "2001-03-01T05:00:00Z"},
      {"2001+00:00", "2001-01-01T00:00:00Z"}, {"--03-01+01:00", "1972-02-29T23:00:00Z"},
      {"--01+01:00", "1971-12-31T23:00:00Z"}, {"---02-01:00", "1972-01-02T01:00:00Z"},
      {"01:00:00.5+02:30", "22:30:00.5Z"},
      // clang-format on
  };
  for (const auto& [value, normalized] : kRows) {
    EXPECT_EQ(Read(value).GetNormalized().ToString(), normalized);
  }
  EXPECT_QV_THROW(Read("9999-12-31T23:00:00-01:00").GetNormalized(), CQvInvalidValueException,
                  "Invalid Year [10000] (9999 <= year <= -9999 && year != 0)");
  CDateTime empty;
  empty.SetTimeZone(1, 0);
  EXPECT_QV_THROW(empty.GetNormalized(), CQvInvalidValueException, "Invalid Year Zero");
}

constexpr const char* kSums[][3] = {
    // The examples of the XSD appendix.
    // clang-format off
    {"2000-01-12T12:13:14Z", "P1Y3M5DT7H10M3.3S", "2001-04-17T19:23:17.3Z"},
    {"2000-01", "-P3M", "1999-10"}, {"2000-01-12", "PT33H", "2000-01-13"},
    // The day is clipped before days are added.
    {"2000-01-31T00:00:00", "P1M", "2000-02-29T00:00:00"},
    {"2001-01-31T00:00:00", "P1M1D", "2001-03-01T00:00:00"},
    {"2000-02-29T00:00:00", "-P1Y", "1999-02-28T00:00:00"},
    // Fractions carry through.
    {"2000-12-31T23:59:59.999999999Z", "PT0.000000001S", "2001-01-01T00:00:00Z"},
    {"2001-01-01T00:00:00+05:00", "-PT0.000000001S", "2000-12-31T23:59:59.999999999+05:00"},
    // No year 0.
    {"-0001-01-01", "P1Y", "0001-01-01"}, {"0001-06", "-P12M", "-0001-06"},
    {"0001-01-01T00:00:00", "-PT1S", "-0001-12-31T23:59:59"}, {"-9999", "P19997Y", "9999"},
    // Beyond single precision.
    {"2001-01-01T00:00:59", "PT119999999S", "2004-10-20T21:20:58"},
    {"0001-01-01T00:00:00", "P3652058DT86399S", "9999-12-31T23:59:59"},
    // Fields that the kind does not carry are counted from the lowest and dropped.
    {"2001", "P364D", "2001"}, {"2001", "P365D", "2002"}, {"2001-02", "P28D", "2001-03"},
    {"--12-31", "P1D", "--01-01"}, {"--02-28", "P1D", "--02-29"}, {"--02-29", "P1Y", "--02-28"},
    {"--11", "P65535Y18446744073709551615M", "--02"}, {"---31", "P1D", "---01"},
    {"---45", "P1D", "---01"}, {"23:00:00-01:00", "PT18446744073709551615H", "14:00:00-01:00"},
    {"12:00:00", "P18446744073709551615DT18446744073709551615S", "19:00:15"},
    // clang-format on
};

TEST(CDateTimeArithmetic, AddsSpans) {
  for (const auto& [value, span, sum] : kSums) {
    SCOPED_TRACE(std::string(value) + " + " + span);
    EXPECT_EQ((Read(value) + ReadSpan(span)).ToString(), sum);
    EXPECT_EQ((Read(value) - ReadSpan(span).GetAsNegative()).ToString(), sum);
  }
}

TEST(CDateTimeArithmetic, RefusesSumsOutsideTheYears) {
  constexpr const char* kRows[][3] = {
      {"9999-12-31", "P1D", "10000"},
      {"-9999", "-P1M", "-10000"},
      {"2001", "P65535Y", "67536"},
      {"2001", "-P65535Y18446744073709551615M", "-1537228672809192837"},
      {"0001-01-01", "P18446744073709551615D", "50505469855533110"},
  };
  for (const auto& row : kRows) {
    CDateTime value = Read(row[0]);
    EXPECT_QV_THROW(
        value += ReadSpan(row[1]), CQvInvalidValueException,
        std::string("Invalid Year [") + row[2] + "] (9999 <= year <= -9999 && year != 0)");
    EXPECT_EQ(value.ToString(), row[0]);
  }
  EXPECT_QV_THROW(CDateTime() + CDateTimeSpan(), CQvInvalidValueException, "Invalid Year Zero");
}

// The XSD algorithm as it is written, a step for each month.
struct NaiveDate {
  long year, month, day, secondOfDay;

  static long MonthLength(long year, long month) {
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && !isLeap ? 28 : g_monthMax[month - 1];
  }
  void StepMonth(long step) {
    month += step;
    if (month == 0 || month == 13) {
      month = month == 0 ? 12 : 1;
      year += step;
      if (year == 0) year += step;
    }
  }
  void Add(long months, long days, long seconds) {
    for (; months > 0; --months) StepMonth(1);
    for (; months < 0; ++months) StepMonth(-1);
    day = std::min(day, MonthLength(year, month));
    secondOfDay += seconds;
    for (; secondOfDay >= 86400; secondOfDay -= 86400) ++days;
    for (; secondOfDay < 0; secondOfDay += 86400) --days;
    day += days;
    while (day < 1) {
      StepMonth(-1);
      day += MonthLength(year, month);
    }
    while (day > MonthLength(year, month)) {
      day -= MonthLength(year, month);
      StepMonth(1);
    }
  }
};

TEST(CDateTimeArithmetic, AgreesWithTheStepwiseAlgorithm) {
  std::mt19937 random(2);
  const auto upTo = [&random](long highest) {
    return std::uniform_int_distribution<long>(0, highest)(random);
  };
  for (int i = 0; i < 20000; ++i) {
    // Half of the values near the change of the eras.
    long year = i % 2 == 0 ? upTo(60) - 30 : upTo(17000) - 8500;
    if (year == 0) year = 1;
    const long month = upTo(11) + 1;
    NaiveDate date{year, month, upTo(NaiveDate::MonthLength(year, month) - 1) + 1, upTo(86399)};
    const CDateTime start(static_cast<short>(date.year), static_cast<unsigned char>(date.month),
                          static_cast<unsigned char>(date.day),
                          static_cast<unsigned char>(date.secondOfDay / 3600),
                          static_cast<unsigned char>(date.secondOfDay / 60 % 60),
                          static_cast<unsigned char>(date.secondOfDay % 60));
    const long years = upTo(20), months = upTo(100), days = upTo(300000), seconds = upTo(9999999);
    CDateTimeSpan span(static_cast<unsigned short>(years), static_cast<unsigned long>(months),
                       static_cast<unsigned long>(days), 0, 0, static_cast<unsigned long>(seconds),
                       0, 0, 0);
    const long sign = i % 3 == 0 ? -1 : 1;
    if (sign < 0) span.Negate();
    const CDateTime sum = start + span;
    date.Add(sign * (years * 12 + months), sign * days, sign * seconds);
    ASSERT_EQ(sum.GetYear(), date.year) << start.ToString() << " + " << span.ToString();
    ASSERT_EQ(sum.GetMonth(), date.month) << start.ToString() << " + " << span.ToString();
    ASSERT_EQ(sum.GetDay(), date.day) << start.ToString() << " + " << span.ToString();
    ASSERT_EQ(sum.GetHour() * 3600 + sum.GetMinute() * 60 + sum.GetSecond(), date.secondOfDay);
    // The difference of two moments leads from one to the other.
    const CDateTimeSpan difference = sum - start;
    ASSERT_EQ((start + difference).ToString(), sum.ToString());
    ASSERT_EQ((sum - difference).ToString(), start.ToString());
  }
}

TEST(CDateTimeArithmetic, SubtractsMoments) {
  constexpr const char* kRows[][3] = {
      // clang-format off
      {"2001-01-01T00:00:00", "2001-01-01T00:00:00", "PT0S"},
      {"2001-01-01T00:00:00.1", "2000-12-31T23:59:59.2", "PT0.9S"},
      {"9999-12-31T23:59:59.999999999Z", "-9999-01-01T00:00:00Z", "P7304117DT23H59M59.999999999S"},
      {"0001-01-01", "-0001-12-31", "P1D"}, {"2001-01-01", "2001-01-01+01:30", "PT1H30M"},
      {"2001-01-01T00:00:00-02:00", "2001-01-01T00:00:00", "PT2H"},
      {"2001", "2000-12-31T12:00:00", "PT12H"}, {"--03-01", "--02-01", "P29D"},
      {"--01-01Z", "--01-01+05:00", "PT5H"}, {"13:00:00", "12:00:00.5", "PT59M59.5S"},
      // clang-format on
  };
  for (const auto& row : kRows) {
    const CDateTime later = Read(row[0]), earlier = Read(row[1]);
    EXPECT_EQ((later - earlier).ToString(), row[2]);
    EXPECT_EQ((earlier - later).ToString(), (later == earlier ? "" : "-") + std::string(row[2]));
  }
  EXPECT_QV_THROW(Read("2001") - Read("--01"), CQvInvalidStateException,
                  "Failed to Subtract. Invalid Date Type: gMonth.");
  EXPECT_THROW(Read("--01") - Read("12:00:00"), CQvInvalidStateException);
  EXPECT_THROW(CDateTime() - CDateTime(), CQvInvalidStateException);
  EXPECT_QV_THROW(Read("2001") - CDateTime(CDateTime::dt_date), CQvInvalidValueException,
                  "Invalid Month [0] (1 <= month <= 12)");
}

}  // namespace
}  // namespace QvXmlLib16
