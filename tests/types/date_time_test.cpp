// Fields, zones, validation and text of CDateTime, and the calendar helpers.

#include "qvxml/types/date_time.h"

#include <chrono>
#include <climits>
#include <random>
#include <string>
#include <utility>

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/calendar.h"

namespace QvXmlLib16 {
namespace {

using Parse = void (CDateTime::*)(const char*);

constexpr Parse kDate = &CDateTime::ParseXSDDate;
constexpr Parse kTime = &CDateTime::ParseXSDTime;
constexpr Parse kDateTime = &CDateTime::ParseXSDDateTime;

using enum CDateTime::DTType;
constexpr struct {
  Parse parse;
  const char* text;
  CDateTime::DTType type;
  const char* written = nullptr;  // as the text
} kAcceptedTexts[] = {
    // clang-format off
    {kDate, "2001-12-31", dt_date}, {kDate, "-0044-03-15", dt_date},
    {kDate, "2000-02-29", dt_date}, {kDate, "2001-01-01+24:00", dt_date, "2001-01-01+00:00"},
    {kDate, "2001-01-01-24:30", dt_date, "2001-01-01+00:30"},
    {kDate, "2001-01-01-00:30", dt_date, "2001-01-01+00:30"}, {kDate, "2001-01-01-05:30", dt_date},
    {kDate, "2001-01-01+23:59", dt_date}, {kDate, "2001-05", dt_gYearMonth},
    {kDate, "-0001-05-23:59", dt_gYearMonth}, {kDate, "0001", dt_gYear},
    {kDate, "-0444Z", dt_gYear}, {kDate, "2001+00:00", dt_gYear}, {kDate, "--02-29", dt_gMonthDay},
    {kDate, "--12-31+01:00", dt_gMonthDay}, {kDate, "--05", dt_gMonth}, {kDate, "--05Z", dt_gMonth},
    {kDate, "--05--", dt_gMonth, "--05"}, {kDate, "--05---01:00", dt_gMonth, "--05-01:00"},
    {kDate, "---01", dt_gDay}, {kDate, "---45", dt_gDay}, {kDate, "---31-14:00", dt_gDay},
    {kTime, "00:00:00", dt_time}, {kTime, "23:59:59.999999999", dt_time},
    {kTime, "12:00:00.500", dt_time, "12:00:00.5"}, {kTime, "12:00:00.00004Z", dt_time},
    {kTime, "12:00:00.001000-08:00", dt_time, "12:00:00.001-08:00"},
    {kTime, "12:00:00.", dt_time, "12:00:00"},
    {kTime, "12:00:00.Z", dt_time, "12:00:00Z"},
    {kTime, "12:00:00.+01:30", dt_time, "12:00:00+01:30"}, {kTime, "12:00:00+00:00", dt_time},
    {kDateTime, "2001-02-03T04:05:06", dt_dateTime},
    {kDateTime, "-0001-12-31T23:59:59.5Z", dt_dateTime},
    {kDateTime, "2001-02-03T04:05:06.070-11:15", dt_dateTime, "2001-02-03T04:05:06.07-11:15"},
    // clang-format on
};

TEST(CDateTime, ReadsAndWritesEveryKind) {
  for (const auto& row : kAcceptedTexts) {
    SCOPED_TRACE(row.text);
    CDateTime value(1999, 1, 1, 1, 1, 1);  // parses replace whatever was there
    value.SetTimeZone(3, 3);
    (value.*row.parse)(row.text);
    EXPECT_EQ(value.GetType(), row.type);
    const char* const written = row.written == nullptr ? row.text : row.written;
    EXPECT_EQ(value.ToString(), written);
    EXPECT_EQ(CInstanceMonitor::GetCount("CDateTime"), 1);
  }
}

// Quoted whole, with the form that was expected.
constexpr const char* kNoDates[] = {
    // clang-format off
    ":", "01:00", "+01:00", "Z", "-", "--", "---1", "--01-1", "--2001-01", "12345-01-01",
    "+2001-01-01", "2001-1-001", "2001/01/01", " 2001-01-01", "20a1Z", "2001-01-01z",
    // clang-format on
};
constexpr const char* kNoTimes[] = {"12:00",    "24:00:00", "12:60:00",
                                    "12:00:60", "-1:00:00", "12.00:00"};
constexpr const char* kNoDateTimes[] = {"", "2001-01-01"};

constexpr struct {
  Parse parse;
  const char *text, *message;
} kRefusedTexts[] = {
    {kDate, nullptr, "Invalid Date (Null String)"},
    {kDate, "", "Invalid Date (Empty String)"},
    {kDate, "2001-01-01T00:00:00", "Invalid Date ('T' not allowed)"},
    {kDate, "2001-01-01+01:00Z", "Invalid Date (Bad Zone value)"},
    {kDate, ":Z", "Invalid Date (Bad Zone value)"},
    {kDate, "2001-01-0:", "Invalid XSD Time Zone [-01-0:]."},
    {kDate, "2001-01-01 01:00", "Invalid XSD Time Zone [ 01:00]."},
    {kDate, "2001-01-01+1:000", "Invalid XSD Time Zone [+1:000]."},
    {kDate, "2001-01-01+0a:00", "Invalid XSD Time Zone [+0a:00]."},
    {kDate, "2001-01-01+25:00", "Invalid TimeZone [25:0]"},
    {kDate, "2001-01-01-23:60", "Invalid TimeZone [-23:60]"},
    {kDate, "0000-01-01", "Invalid Year [0] (9999 <= year <= -9999 && year != 0)"},
    {kDate, "0000-13", "Invalid Month [13] (1 <= month <= 12)"},
    {kDate, "--00", "Invalid Month [0] (1 <= month <= 12)"},
    {kDate, "2001-02-29", "Invalid Day [29] (1 <= day <= days in month"},
    {kDate, "1900-02-29", "Invalid Day [29] (1 <= day <= days in month"},
    {kDate, "2001-04-00", "Invalid Day [0] (1 <= day <= days in month"},
    {kDate, "--02-30", "Invalid Day [30] (1 <= day <= days in month)"},
    {kDate, "---00", "Invalid Day [0] (1 <= day <= 31)"},
    {kTime, nullptr, "Invalid Time (Null String)"},
    {kTime, "", "Invalid XSD Time (Empty String)"},
    {kTime, "12:00:00.1234567890", "Invalid XSD Time [12:00:00.1234567890] Fraction part too long"},
    {kTime, "12:00:00..5", "Invalid XSD Time Zone [.5]."},
    {kTime, "12:00:00ZZ", "Invalid XSD Time Zone [ZZ]."},
    {kTime, "12:00:00+01:000", "Invalid XSD Time Zone [+01:000]."},
    {kDateTime, nullptr, "Invalid DateTime (Null String)"},
    {kDateTime, "T00:00:00", "Invalid Date (Empty String)"},
    {kDateTime, "2001-01T00:00:00", "Invalid XSD DateTime [2001-01T00:00:00]."},
    {kDateTime, "2001-01-01ZT00:00:00", "Invalid XSD DateTime [2001-01-01ZT00:00:00]."},
    {kDateTime, "2001-02-30T00:00:00", "Invalid Day [30] (1 <= day <= days in month"},
};

TEST(CDateTime, RefusesMalformedTexts) {
  for (const auto& row : kRefusedTexts) {
    SCOPED_TRACE(row.text != nullptr ? row.text : "null");
    CDateTime value;
    EXPECT_QV_THROW((value.*row.parse)(row.text), CQvInvalidValueException, row.message);
  }
  const auto expectRefused = [](const auto& texts, Parse parse, const std::string& kind,
                                const std::string& form) {
    for (const std::string text : texts) {
      EXPECT_QV_THROW((CDateTime().*parse)(text.c_str()), CQvInvalidValueException,
                      "Invalid XSD " + kind + " [" + text + "] expected " + form);
    }
  };
  expectRefused(kNoDates, kDate, "Date", "CCYY-MM-DD[Z|[+|-]hh:mm]");
  expectRefused(kNoTimes, kTime, "Time", "hh:mm:ss[.ff]");
  expectRefused(kNoDateTimes, kDateTime, "DateTime", "CCYY-MM-DDThh:mm:ss[.ff]");
  EXPECT_QV_THROW(CDateTime(nullptr), CQvInvalidValueException, "Invalid DateTime (Null String)");
  CDateTime value;
  EXPECT_QV_THROW(value.SetZone(nullptr), CQvInvalidValueException, "Invalid XSD Time Zone [].");
}

TEST(CDateTime, RefusesHugeTextsWithTheWholeText) {
  const std::string digits(10'000'000, '1');
  CDateTime value;
  EXPECT_QV_THROW(value.ParseXSDDate(digits.c_str()), CQvInvalidValueException,
                  "Invalid XSD Date [" + digits + "] expected CCYY-MM-DD[Z|[+|-]hh:mm]");
  const std::string separators(10'000'000, 'T');
  EXPECT_THROW(value.ParseXSDDateTime(separators.c_str()), CQvInvalidValueException);
}

constexpr struct {
  CDateTime::DTType type;
  int year, month, day, hour, minute, second, milli, micro, nano;
  const char* message;
} kRefusedFields[] = {
    {dt_unset, 2001, 1, 1, 0, 0, 0, 0, 0, 0, "Invalid Year Zero"},
    // Month, year, day, time: the first that is wrong is told.
    {dt_dateTime, 0, 0, 0, 24, 60, 0, 0, 0, 0, "Invalid Month [0] (1 <= month <= 12)"},
    {dt_dateTime, 10000, 1, 0, 24, 60, 0, 0, 0, 0,
     "Invalid Year [10000] (9999 <= year <= -9999 && year != 0)"},
    {dt_dateTime, 1, 1, 32, 24, 60, 0, 0, 0, 0, "Invalid Day [32] (1 <= day <= days in month"},
    {dt_dateTime, 1, 1, 1, 24, 60, 60, 1000, 1000, 1000, "Invalid Hour [24] (0 <= hour <= 23)"},
    {dt_time, 0, 0, 0, 23, 60, 60, 1000, 1000, 1000, "Invalid Minute [60] (0 <= minute <= 59)"},
    {dt_time, 0, 0, 0, 23, 59, 60, 1000, 1000, 1000, "Invalid Second [60] (0 <= second <= 59)"},
    {dt_time, 0, 0, 0, 23, 59, 59, 1000, 1000, 1000,
     "Invalid Milli-Second [1000] (0 <= milli <= 999)"},
    {dt_time, 0, 0, 0, 23, 59, 59, 999, 1000, 1000,
     "Invalid Micro-Second [1000] (0 <= micro <= 999)"},
    {dt_time, 0, 0, 0, 23, 59, 59, 999, 999, 1000, "Invalid Nano-Second [1000] (0 <= nano <= 999)"},
    {dt_time, 0, 5, 0, 0, 0, 0, 0, 0, 0, "Invalid Month [5] for type time"},
    {dt_gDay, 2001, 0, 1, 0, 0, 0, 0, 0, 0, "Invalid Year [2001] for type gDay"},
    {dt_gYearMonth, 1, 1, 7, 0, 0, 0, 0, 0, 0, "Invalid Day [7] for type gYearMonth"},
    {dt_date, 1, 1, 1, 1, 2, 3, 4, 5, 6, "Invalid Hour [1] for type date"},
    {dt_gYear, 1, 0, 0, 0, 2, 3, 4, 5, 6, "Invalid Minute [2] for type gYear"},
    {dt_gMonth, 0, 1, 0, 0, 0, 3, 4, 5, 6, "Invalid Second [3] for type gMonth"},
    {dt_gDay, 0, 0, 1, 0, 0, 0, 4, 5, 6, "Invalid Milli-Second [4] for type gDay"},
    {dt_date, 1, 1, 1, 0, 0, 0, 0, 5, 6, "Invalid Micro-Second [5] for type date"},
    {dt_gMonthDay, 0, 1, 1, 0, 0, 0, 0, 0, 6, "Invalid Nano-Second [6] for type gMonthDay"},
    {static_cast<CDateTime::DTType>(9), 0, 1, 0, 0, 0, 0, 0, 0, 0, "Invalid Month [1] for type "},
};

TEST(CDateTime, ValidatesFieldsInOrder) {
  for (const auto& row : kRefusedFields) {
    SCOPED_TRACE(row.message);
    CDateTime value;
    const auto byte = [](int number) { return static_cast<unsigned char>(number); };
    const auto word = [](int number) { return static_cast<unsigned short>(number); };
    EXPECT_QV_THROW(
        value.SetDateTime(row.type, static_cast<short>(row.year), byte(row.month), byte(row.day),
                          byte(row.hour), byte(row.minute), byte(row.second), word(row.milli),
                          word(row.micro), word(row.nano)),
        CQvInvalidValueException, row.message);
  }
}

TEST(CDateTime, WholeValueSettersKeepTheKind) {
  CDateTime value(2001, 2, 3);
  value.SetUTC();
  EXPECT_QV_THROW(value.SetTime(1, 2, 3), CQvInvalidStateException,
                  "Failed to copy CDateTime. Invalid Date Type: time, expected: date.");
  EXPECT_EQ(value.ToString(), "2001-02-03Z");
  value.SetDate(2002, 3, 4);
  EXPECT_EQ(value.ToString(), "2002-03-04");  // the zone goes with the old value

  const std::pair<const char*, void (*)(CDateTime&)> setters[] = {
      {"2001-02-03T04:05:06.007008009",
       [](CDateTime& v) { v.SetDateTime(2001, 2, 3, 4, 5, 6, 7, 8, 9); }},
      {"04:05:06.0000008", [](CDateTime& v) { v.SetTime(4, 5, 6, 0, 0, 800); }},
      {"-0044", [](CDateTime& v) { v.SetGYear(-44); }},
      {"0044-12", [](CDateTime& v) { v.SetGYearMonth(44, 12); }},
      {"--12", [](CDateTime& v) { v.SetGMonth(12); }},
      {"--02-29", [](CDateTime& v) { v.SetGMonthDay(2, 29); }},
      {"---255", [](CDateTime& v) { v.SetGDay(255); }},
  };
  for (const auto& [written, set] : setters) {
    value.Clear();
    set(value);
    EXPECT_EQ(value.ToString(), written);
  }
}

TEST(CDateTime, CopiesThePartsOfAnotherKind) {
  CDateTime source(2001, 2, 3, 4, 5, 6, 7, 8, 9);
  source.SetTimeZone(-5, 30);
  const std::pair<CDateTime::DTType, const char*> parts[] = {
      // clang-format off
      {dt_dateTime, "2001-02-03T04:05:06.007008009-05:30"}, {dt_date, "2001-02-03-05:30"},
      {dt_gYearMonth, "2001-02-05:30"}, {dt_gYear, "2001-05:30"},
      {dt_time, "04:05:06.007008009-05:30"}, {dt_gDay, "---03-05:30"}, {dt_gMonth, "--02-05:30"},
      {dt_gMonthDay, "--02-03-05:30"},
      // clang-format on
  };
  for (const auto& [type, written] : parts) {
    CDateTime value;
    value.SetDateTime(source, type);
    EXPECT_EQ(value.ToString(), written);
    EXPECT_TRUE(CDateTime::CheckConversion(type, type));
    EXPECT_FALSE(CDateTime::CheckConversion(type, dt_unset));
  }
  source.SetDateTime(source, dt_dateTime);
  EXPECT_EQ(source.ToString(), parts[0].second);
  EXPECT_FALSE(CDateTime::CheckConversion(dt_time, dt_dateTime));
  CDateTime month, value;
  month.SetGYearMonth(2001, 2);
  EXPECT_QV_THROW(value.SetDateTime(month, dt_date), CQvInvalidStateException,
                  "Failed to copy CDateTime. Invalid Date Type: gYearMonth, expected: date.");
  value.SetDate(2002, 1, 1);
  EXPECT_QV_THROW(value.SetDateTime(month, dt_gYear), CQvInvalidStateException,
                  "Failed to copy CDateTime. Invalid Date Type: gYear, expected: date.");
}

TEST(CDateTime, RefusesFieldsThatTheKindDoesNotCarry) {
  // clang-format off
#define CALL(name, ...) {#name, [](CDateTime& v) { v.name(__VA_ARGS__); }}
  const std::pair<const char*, void (*)(CDateTime&)> yearCalls[] = {
      CALL(GetMonth), CALL(GetDay), CALL(GetHour), CALL(GetMinute), CALL(GetSecond),
      CALL(GetRealSecond), CALL(GetMilliSecond), CALL(GetMicroSecond), CALL(GetNanoSecond),
      CALL(GetDayOfYear), CALL(GetDayOfWeek), CALL(GetTime), CALL(SetMonth, 1), CALL(SetDay, 1),
      CALL(SetHour, 1), CALL(SetMinute, 1), CALL(SetSecond, 1), CALL(SetMilliSecond, 1),
      CALL(SetMicroSecond, 1), CALL(SetNanoSecond, 1), CALL(SetFracTime, 1, 1, 1),
  };
#undef CALL
  // clang-format on
  CDateTime year;
  year.SetGYear(2001);
  for (const auto& row : yearCalls) {
    EXPECT_QV_THROW(row.second(year), CQvInvalidStateException,
                    std::string("Failed to ") + row.first + ". Invalid Date Type: gYear.");
  }
  CDateTime time(CDateTime::dt_time);
  EXPECT_QV_THROW(time.SetYear(1), CQvInvalidStateException,
                  "Failed to SetYear. Invalid Date Type: time.");
  EXPECT_QV_THROW(CDateTime().GetYear(), CQvInvalidStateException,
                  "Failed to GetYear. Invalid Date Type: yearZero.");
  EXPECT_QV_THROW(CDateTime(dt_date).GetDayOfYear(), CQvInvalidValueException,
                  "Invalid Month [0] (1 <= month <= 12)");
}

TEST(CDateTime, FieldSettersRefuseWhatValidationRefuses) {
  CDateTime value(2000, 2, 29, 12, 0, 0);
  void (*const calls[])(CDateTime&) = {
      // clang-format off
      [](CDateTime& v) { v.SetYear(0); }, [](CDateTime& v) { v.SetYear(2001); },
      [](CDateTime& v) { v.SetMonth(13); }, [](CDateTime& v) { v.SetDay(30); },
      [](CDateTime& v) { v.SetHour(24); }, [](CDateTime& v) { v.SetMinute(60); },
      [](CDateTime& v) { v.SetSecond(60); }, [](CDateTime& v) { v.SetFracTime(999, 1000, 999); },
      // clang-format on
  };
  for (const auto& call : calls) {
    EXPECT_THROW(call(value), CQvInvalidValueException);
    EXPECT_EQ(value.ToString(), "2000-02-29T12:00:00");
  }
}

TEST(CDateTime, FieldSettersFillAnEmptyValue) {
  CDateTime value;
  EXPECT_QV_THROW(value.SetMonth(13), CQvInvalidValueException,
                  "Invalid Month [13] (1 <= month <= 12)");
  EXPECT_EQ(value.GetType(), dt_unset);
  value.SetDay(29);
  EXPECT_EQ(value.GetType(), dt_dateTime);
  value.SetMonth(2);
  value.SetYear(-4);
  value.SetFracTime(1, 2, 3);
  value.SetSecond(59);
  EXPECT_EQ(value.ToString(), "-0004-02-29T00:00:59.001002003");
  EXPECT_EQ(value.GetRealSecond(), 59.001002003);

  // A failed setter leaves fields behind that later calls must survive.
  CDateTime broken;
  EXPECT_QV_THROW(broken.SetDate(2001, 200, 1), CQvInvalidValueException,
                  "Invalid Month [200] (1 <= month <= 12)");
  broken.SetDay(31);
  EXPECT_EQ(broken.ToString(), "2001-200-31");
  EXPECT_QV_THROW(broken.GetDayOfWeek(), CQvInvalidValueException,
                  "Invalid Month [200] (1 <= month <= 12)");
}

TEST(CDateTime, KeepsZonesApartFromFields) {
  CDateTime value(2001, 1, 1);
  EXPECT_FALSE(value.IsUTC());
  EXPECT_QV_THROW(value.GetZoneHour(), CQvInvalidStateException, "TimeZone is not been used");
  value.SetTimeZone(-23, 59);
  EXPECT_TRUE(value.IsUTC() && value.HasTimeZone());
  EXPECT_EQ(value.GetZoneHour() * 100 + value.GetZoneMinute(), -2241);
  EXPECT_QV_THROW(value.SetTimeZone(-24, 0), CQvInvalidValueException, "Invalid TimeZone [-24:0]");
  value.SetUTC();
  EXPECT_TRUE(value.IsUTC());
  EXPECT_QV_THROW(value.GetZoneMinute(), CQvInvalidStateException, "TimeZone is not been used");
  EXPECT_EQ(value.ToString(), "2001-01-01Z");
}

TEST(CDateTime, ReturnsTextsForWhatCannotBeFormatted) {
  EXPECT_EQ(CDateTime().ToString("x"), "Error: Date Not Set");
  EXPECT_EQ(CDateTime(dt_time).ToString(), "00:00:00");
  const CDateTime value(2001, 1, 1);
  EXPECT_EQ(value.ToString(nullptr), "");
  EXPECT_EQ(value.ToString("G"), "");
  EXPECT_EQ(value.ToString("S"), "Unknown Format: S");
  EXPECT_EQ(value.ToString(""), "Unknown Format: ");
  EXPECT_EQ(CDateTime::GetTypeAsString(dt_gMonthDay), "gMonthDay");
  EXPECT_EQ(CDateTime::GetTypeAsString(static_cast<CDateTime::DTType>(9)), "");
}

TEST(CDateTime, ConvertsSecondsSince1970) {
  EXPECT_EQ(CDateTime(0).ToString(), "1970-01-01T00:00:00Z");
  EXPECT_EQ(CDateTime(-1L).ToString(), "1969-12-31T23:59:59Z");
  EXPECT_EQ(CDateTime(253402300799L).ToString(), "9999-12-31T23:59:59Z");
  EXPECT_EQ(CDateTime(-62135596801L).ToString(), "-0001-12-31T23:59:59Z");
  EXPECT_QV_THROW(CDateTime(LONG_MAX), CQvInvalidValueException,
                  "Invalid Year [292277026596] (9999 <= year <= -9999 && year != 0)");
  EXPECT_THROW(CDateTime(LONG_MIN), CQvInvalidValueException);
  CDateTime value("2001-01-01T02:00:00.9+02:30");
  EXPECT_EQ(value.GetTime(), 978305400L);
  value = 86400L;
  EXPECT_EQ(value.ToString(), "1970-01-02T00:00:00Z");
  CDateTime date(1970, 1, 2);
  date.SetTimeZone(-1, 30);
  EXPECT_EQ(date.GetTime(), 86400L + 5400L);
  const CDateTime now = CDateTime::GetCurrentTime();
  EXPECT_TRUE(now.IsUTC());
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(
      std::chrono::system_clock::now().time_since_epoch());
  EXPECT_LT(std::abs(now.GetTime() - seconds.count()), 3600);
}

TEST(CDateTime, AgreesWithTheStandardCalendar) {
  using namespace std::chrono;
  std::mt19937_64 random(1);
  std::uniform_int_distribution<long> anySecond(-62135596800L, 253402300799L);
  for (int i = 0; i < 100000; ++i) {
    const long t = anySecond(random);
    const CDateTime value(t);
    const auto day = floor<days>(sys_seconds{seconds(t)});
    const year_month_day date(day);
    const long second = t - seconds(day.time_since_epoch()).count();
    ASSERT_EQ(value.GetYear(), static_cast<int>(date.year()));
    ASSERT_EQ(value.GetMonth(), static_cast<unsigned>(date.month()));
    ASSERT_EQ(value.GetDay(), static_cast<unsigned>(date.day()));
    ASSERT_EQ(value.GetHour() * 3600 + value.GetMinute() * 60 + value.GetSecond(), second);
    ASSERT_EQ(static_cast<unsigned>(value.GetDayOfWeek()), weekday(day).c_encoding());
    ASSERT_EQ(value.GetDayOfYear(), (day - sys_days(date.year() / 1 / 1)).count() + 1);
    ASSERT_EQ(value.GetTime(), t);
  }
}

TEST(CDateTime, GivesEveryDayBeforeTheCommonEraItsOwnNumber) {
  // Walks back from 0001-01-01, a Monday, without a day counted twice or left out.
  long expected = CDateTime(1, 1, 1).GetTime();
  int weekday = 1;
  for (short year = -1; year >= -801; --year) {
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    int dayOfYear = isLeap ? 366 : 365;
    for (unsigned char month = 12; month >= 1; --month) {
      unsigned char day = g_monthMax[month - 1];
      if (month == 2 && !isLeap) --day;
      for (; day >= 1; --day, --dayOfYear) {
        const CDateTime date(year, month, day);
        expected -= 86400;
        weekday = (weekday + 6) % 7;
        ASSERT_EQ(date.GetTime(), expected) << date.ToString();
        ASSERT_EQ(date.GetDayOfWeek(), weekday);
        ASSERT_EQ(date.GetDayOfYear(), dayOfYear);
        ASSERT_EQ(CDateTime(expected).ToString(), date.ToString() + "T00:00:00Z");
      }
    }
  }
}

TEST(Calendar, KeepsTheSinglePrecisionDivision) {
  EXPECT_EQ(GetQuotient(-1, 12), -1);
  EXPECT_EQ(GetModulo(-1, 12), 11);
  EXPECT_EQ(GetQuotient(119999999, 60), 2000000);
  EXPECT_EQ(GetModulo(119999999, 60), -1);
  EXPECT_EQ(GetQuotient(LLONG_MAX, 1), INT_MIN);
  EXPECT_EQ(GetQuotient(1, 0), INT_MIN);
  EXPECT_EQ(GetQuotient(0, 0), INT_MIN);
  EXPECT_TRUE(IsLeapYear(2000));
  EXPECT_FALSE(IsLeapYear(1900));
  EXPECT_TRUE(IsLeapYear(-4));
}

}  // namespace
}  // namespace QvXmlLib16
