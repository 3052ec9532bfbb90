#include "qvxml/core/value/conversions.h"

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"

using namespace QvXmlLib16;
using C = CConversions;
constexpr auto ws_none = CWhitespaceUtils::ws_none;
constexpr auto ws_collapse = CWhitespaceUtils::ws_collapse;

TEST(ClassConversions, WriteWhatTheyRead) {
  using Rule = CWhitespaceUtils::WhitespaceRule;
  const struct {
    const char* kind;
    std::string (*convert)(const std::string& text, Rule rule);
    const char *text, *expected;
  } rows[] = {
#define QVXML_ROW(kind, text, expected)                                                       \
  {#kind,                                                                                     \
   [](const std::string& t, Rule r) { return C::kind##ToString(C::kind##FromString(t, r)); }, \
   text, expected}
      QVXML_ROW(decimal, "-001.50", "-1.5"),
      QVXML_ROW(integer, "-00123456789012345678901234567890", "-123456789012345678901234567890"),
      QVXML_ROW(hexBinary, "00ffAb", "00FFAB"),
      QVXML_ROW(base64Binary, "AP+r", "AP+r"),
      QVXML_ROW(duration, "-P1Y2M3DT4H5M6.70S", "-P1Y2M3DT4H5M6.7S"),
      QVXML_ROW(datetime, "2001-10-26T21:32:52.120Z", "2001-10-26T21:32:52.12Z"),
      QVXML_ROW(date, "2001-10-26+02:00", "2001-10-26+02:00"),
      // The form decides, not the kind asked for.
      QVXML_ROW(date, "2001", "2001"),
      QVXML_ROW(time, "21:32:52.500", "21:32:52.5"),
      QVXML_ROW(year, "0044Z", "44"),
      QVXML_ROW(year, "-0044", "65492"),
      QVXML_ROW(month, "--05Z", "--05"),
      QVXML_ROW(month, "2001-05-06", "--05"),
      QVXML_ROW(day, "---09", "---09"),
#undef QVXML_ROW
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.kind) + " " + row.text);
    EXPECT_EQ(row.convert(row.text, ws_none), row.expected);
    EXPECT_EQ(row.convert(" \t" + std::string(row.text) + "\r\n", ws_collapse), row.expected);
  }
}

TEST(ClassConversions, WriteADecimalWithAGivenNumberOfDigits) {
  const CDecimal value("-1234.5678");
  EXPECT_EQ(C::decimalToString(value, ""), "-1234.5678");
  EXPECT_EQ(C::decimalToString(value, "2"), "-1234.57");
  EXPECT_EQ(C::decimalToString(value, " +6 digits"), "-1234.567800");
  EXPECT_EQ(C::decimalToString(value, "0"), "-1235");
  EXPECT_EQ(C::decimalToString(value, "%.2f"), "-1235");
}

TEST(ClassConversions, PadMonthAndDay) {
  EXPECT_EQ(C::monthToString(0), "--00");
  EXPECT_EQ(C::monthToString(255), "--255");
  EXPECT_EQ(C::dayToString(7), "---07");
  EXPECT_EQ(C::dayToString(255), "---255");
  EXPECT_EQ(C::yearToString(65535), "65535");
}

TEST(ClassConversions, PassOnWhatTheClassThrows) {
  EXPECT_QV_THROW(
      C::decimalFromString(" 12,5 ", ws_collapse), CQvInvalidValueException,
      "The string representing a Decimal, contained an invalid char at position 2 [12,5].");
  EXPECT_THROW(C::hexBinaryFromString("ABC", ws_none), CQvException);
  EXPECT_THROW(C::base64BinaryFromString("A*==", ws_none), CQvException);
  EXPECT_THROW(C::dateFromString("2001-02-29", ws_none), CQvInvalidValueException);
  EXPECT_THROW(C::datetimeFromString("2001-02-28", ws_none), CQvInvalidValueException);
  EXPECT_THROW(C::integerFromString("1x", ws_none), CQvInvalidValueException);
  EXPECT_THROW(C::durationFromString("P", ws_none), CQvInvalidValueException);
  EXPECT_QV_THROW(C::dayFromString("1", static_cast<CWhitespaceUtils::WhitespaceRule>(4)),
                  CQvException, "Unknown WhitespaceRule");
}
