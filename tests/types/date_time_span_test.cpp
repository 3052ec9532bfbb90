#include "qvxml/types/date_time_span.h"

#include <string>

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {
namespace {

CDateTimeSpan Read(const char* text) {
  CDateTimeSpan span;
  span.ParseXSDDuration(text);
  return span;
}

TEST(CDateTimeSpan, ReadsAndWritesDurations) {
  const std::string limits =
      "P65535Y18446744073709551615M18446744073709551615DT18446744073709551615H"
      "18446744073709551615M18446744073709551615.999999999S";
  const std::pair<std::string, std::string> rows[] = {
      // clang-format off
      {"P1Y2M3DT4H5M6.789S", "P1Y2M3DT4H5M6.789S"}, {"-P1Y", "-P1Y"}, {"P0Y0M1D", "P1D"},
      {"PT1M", "PT1M"}, {"P1DT0S", "P1D"}, {"P0D", "PT0S"},
      {"-PT0.000S", "-PT0S"}, {"PT0.5S", "PT0.5S"},
      {"PT000000000000000000000000000001.120000009S", "PT1.120000009S"},
      {limits, limits},
      // clang-format on
  };
  for (const auto& [text, written] : rows) {
    const CDateTimeSpan span = Read(text.c_str());
    EXPECT_EQ(CInstanceMonitor::GetCount("CDateTimeSpan"), 1);
    EXPECT_EQ(span.ToString(), written);
    EXPECT_TRUE(Read(written.c_str()) == span) << text;
  }
}

TEST(CDateTimeSpan, RefusesMalformedDurations) {
  constexpr const char* kTexts[] = {
      // clang-format off
      "P", "-", "-P", "PT", "P1", "1Y", "+P1Y", "P-1Y", "P1YT", "P1S", "PT1Y", "PT1D", "P1M1Y",
      "P1Y1Y", "PT1S1H", "PT1HT1M", "P1Y ", " P1Y", "P1.5Y", "PT1.5M", "PT.5S", "PT5.S", "PT1.5",
      "PT1,5S", "P1y", "PY", "--P1Y", "P65536Y", "P18446744073709551616M",
      "PT1M18446744073709551616S",
      // clang-format on
  };
  for (const char* text : kTexts) {
    CDateTimeSpan span(1, 2, 3);
    EXPECT_QV_THROW(span.ParseXSDDuration(text), CQvInvalidValueException,
                    std::string("Invalid XSD Duration [") + text +
                        "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    EXPECT_EQ(span.ToString(), "PT0S");
  }
  EXPECT_QV_THROW(Read(nullptr), CQvInvalidValueException, "Invalid XSD Duration (Null String)");
  EXPECT_QV_THROW(Read(""), CQvInvalidValueException, "Invalid XSD Duration (Empty String)");
  EXPECT_QV_THROW(Read("PT1.1234567890S"), CQvInvalidValueException,
                  "Invalid XSD Duration [PT1.1234567890S] Fraction part too long");
}

TEST(CDateTimeSpan, ComparesOnTheReferenceDates) {
  constexpr struct {
    const char *a, *b;
    int order;
  } kRows[] = {
      // clang-format off
      {"P1Y", "P12M", 0}, {"P1D", "PT24H", 0}, {"PT90M", "PT1H30M", 0}, {"PT0S", "-P0Y", 0},
      {"P1Y", "P364D", 2}, {"P1Y", "P365D", 3}, {"P1Y", "P366D", 3}, {"P1Y", "P367D", 1},
      {"P1M", "P27D", 2}, {"P1M", "P28D", 3}, {"P1M", "P30D", 3}, {"P1M", "P31D", 3},
      {"P1M", "P32D", 1}, {"P5M", "P149D", 2}, {"P5M", "P150D", 3}, {"P5M", "P153D", 3},
      {"P5M", "P154D", 1}, {"-P1M", "-P32D", 2}, {"-P1M", "P1M", 1}, {"PT1S", "PT1.000000001S", 1},
      // Outside the years, unless both are the same length of time.
      {"P10000Y", "P1Y", 3}, {"P10000Y", "P120000M", 0},
      {"P18446744073709551615D", "PT18446744073709551615S", 3},
      {"-PT18446744073709551615M", "-PT18446744073709551615M", 0},
      // clang-format on
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.a) + " and " + row.b);
    const CDateTimeSpan a = Read(row.a), b = Read(row.b);
    EXPECT_EQ(a.CompareTo(b), row.order);
    EXPECT_EQ(b.CompareTo(a), row.order == 1 ? 2 : row.order == 2 ? 1 : row.order);
    EXPECT_TRUE((a == b) == (row.order == 0) && (a != b) == (row.order != 0));
    EXPECT_TRUE((a < b) == (row.order == 1) && (a > b) == (row.order == 2));
  }
}

TEST(CDateTimeSpan, SettersReplaceTheWholeSpan) {
  CDateTimeSpan span(1, 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_EQ(span.ToString(), "P1Y2M3DT4H5M6.007008009S");
  span.Negate();
  EXPECT_EQ(span.GetAsNegative().ToString(), "P1Y2M3DT4H5M6.007008009S");
  EXPECT_QV_THROW(span.SetDateTimeSpan(0, 0, 0, 0, 0, 0, 0, 0, 1000), CQvInvalidValueException,
                  "Invalid Nano-Second [1000] (0 <= nano <= 999)");
  EXPECT_THROW(span.SetMilliSeconds(1000), CQvInvalidValueException);
  EXPECT_THROW(span.SetMicroSeconds(65535), CQvInvalidValueException);
  EXPECT_EQ(span.ToString(), "-P1Y2M3DT4H5M6.007008009S");
  span.SetMilliSeconds(999);
  span.SetMicroSeconds(10);
  span.SetNanoSeconds(0);
  EXPECT_EQ(span.ToString(), "-P1Y2M3DT4H5M6.99901S");
  span.SetDateTimeSpan(1, 90, 3);
  EXPECT_EQ(span.ToString(), "P1DT90M3S");
  EXPECT_FALSE(span.IsNegative());
}

}  // namespace
}  // namespace QvXmlLib16
