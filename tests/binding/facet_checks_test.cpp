#include "qvxml/binding/facet_checks.h"

#include <climits>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/binding/primitive_restrictions.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"

using namespace QvXmlLib16;

namespace {

struct CFacets {
  std::string pattern;
  long minLength = -1, maxLength = -1;
  std::string minInclusive, maxInclusive, minExclusive, maxExclusive;
  long length = -1, totalDigits = -1, fractionDigits = -1;
  std::vector<std::string> enumeration;

  operator CPrimitiveRestrictions() const {
    return CPrimitiveRestrictions(pattern, minLength, maxLength, minInclusive, maxInclusive,
                                  minExclusive, maxExclusive, length, totalDigits, fractionDigits,
                                  enumeration);
  }
};

// "" when the value passes, else the message.
std::string CheckVariant(const QvVariant& value, ItemType type,
                         const CPrimitiveRestrictions& facets) {
  try {
    CXmlObjectHelper::CheckRestriction("n", value, type, facets);
    return std::string();
  } catch (const CQvException& exception) {
    EXPECT_TRUE(typeid(exception) == typeid(CQvException) || exception.GetMessage()[0] == 'T');
    return exception.GetMessage();
  }
}

std::string Check(ItemType type, const std::string& text, const CPrimitiveRestrictions& facets) {
  QvVariant value;
  value.FromString(text, type, CWhitespaceUtils::ws_none);
  return CheckVariant(value, type, facets);
}

std::string Bad(const std::string& quoted) { return "Invalid Value for n [" + quoted + "]"; }

// Integers are quoted without what stands before them, and without a full stop behind.
const struct {
  ItemType type;
  const char *prefix, *below, *bound, *above, *stop;
} kBounded[] = {
    // clang-format off
    {ItemType_i1, "", "-128", "-127", "-126", ""}, {ItemType_i2, "", "32765", "32766", "32767", ""},
    {ItemType_i4, "", "9223372036854775805", "9223372036854775806", "9223372036854775807", ""},
    {ItemType_i8, "", "-9223372036854775808", "-9223372036854775807", "0", ""},
    {ItemType_ui1, "", "127", "128", "129", ""}, {ItemType_ui2, "", "32767", "32768", "65535", ""},
    {ItemType_ui4, "", "0", "9223372036854775808", "18446744073709551615", ""},
    {ItemType_ui8, "", "0", "18446744073709551614", "18446744073709551615", ""},
    {ItemType_year, "", "1999", "2000", "2001", ""}, {ItemType_month, "--", "10", "11", "12", ""},
    {ItemType_day, "---", "29", "30", "31", ""}, {ItemType_r4, "", "-INF", "1.5", "1.6", "."},
    {ItemType_r8, "", "0.1", "0.2", "INF", "."},
    {ItemType_decimal, "", "-0.6", "-0.5", "-0.4999999999999999999999999", "."},
    {ItemType_integer, "", "-100000000000000000000001", "-100000000000000000000000", "5", "."},
    {ItemType_duration, "", "P27D", "PT672H", "P2M", "."},
    {ItemType_date, "", "2000-02-28", "2000-02-29", "2000-03-01", "."},
    {ItemType_time, "", "11:59:59.999", "12:00:00", "12:00:00.001", "."},
    {ItemType_datetime, "", "2000-01-01T11:59:59Z", "2000-01-01T12:00:00Z", "2000-01-01T12:00:01Z", "."},
    {ItemType_yearMonth, "", "1999-12", "2000-01", "2000-02", "."},
    {ItemType_monthDay, "", "--02-28", "--02-29", "--03-01", "."},
    // clang-format on
};

}  // namespace

TEST(CheckRestriction, TestsEachBoundOfEveryOrderedKind) {
  for (const auto& row : kBounded) {
    SCOPED_TRACE(row.type);
    const std::string prefix = row.prefix;
    const std::string bound = prefix + row.bound;
    CFacets minInclusive, maxInclusive, minExclusive, maxExclusive, enumeration;
    // Bounds are collapsed before they are read.
    minInclusive.minInclusive = "\n " + bound + " ";
    maxInclusive.maxInclusive = minExclusive.minExclusive = maxExclusive.maxExclusive = bound;
    enumeration.enumeration = {prefix + row.above, bound};
    const struct {
      const CFacets& facets;
      bool below, bound, above;
    } expected[] = {{minInclusive, false, true, true},
                    {maxInclusive, true, true, false},
                    {minExclusive, false, false, true},
                    {maxExclusive, true, false, false},
                    {enumeration, false, true, true}};
    for (const auto& facet : expected) {
      const auto expect = [&](const char* text, bool isGood) {
        EXPECT_EQ(Check(row.type, prefix + text, facet.facets), isGood ? "" : Bad(text) + row.stop);
      };
      expect(row.below, facet.below);
      expect(row.bound, facet.bound);
      expect(row.above, facet.above);
    }
  }
}

TEST(CheckRestriction, LimitsDigits) {
  const struct {
    ItemType type;
    const char* text;
    long totalDigits, fractionDigits;
    const char* message;
  } rows[] = {
      // clang-format off
      {ItemType_i4, "999", 3, -1, ""}, {ItemType_i4, "-99", 3, -1, ""},
      {ItemType_i4, "-999", 3, -1, "[-999]"}, {ItemType_i4, "0", 0, -1, "[0]"},
      {ItemType_i4, "123", -1, 0, ""}, {ItemType_i1, "-5", 1, -1, "[-5]"},
      {ItemType_ui8, "18446744073709551615", 20, -1, ""},
      {ItemType_ui8, "18446744073709551615", 19, -1, "[18446744073709551615]"},
      {ItemType_month, "--05", 3, -1, "[5]"}, {ItemType_r8, "-1.5", 3, -1, "[-1.5]."},
      {ItemType_r8, "1.50", 3, -1, ""}, {ItemType_integer, "-99999999999999999999", 21, -1, ""},
      {ItemType_integer, "-99999999999999999999", 20, -1, "[-99999999999999999999]."},
      {ItemType_decimal, "-12.345", 5, 3, ""}, {ItemType_decimal, "-12.345", 4, 3, "[-12.345]."},
      {ItemType_decimal, "-12.345", 5, 2, "[-12.345]."}, {ItemType_decimal, "0.05", 2, 2, ""},
      {ItemType_decimal, "0.05", 1, -1, "[0.05]."}, {ItemType_decimal, "1.500", 2, 1, ""},
      {ItemType_decimal, "0", 1, 0, ""}, {ItemType_decimal, "0", 0, 0, "[0]."},
      {ItemType_decimal, "007", 1, 0, ""}, {ItemType_date, "2000-01-01", 1, 0, ""},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    CFacets facets;
    facets.totalDigits = row.totalDigits;
    facets.fractionDigits = row.fractionDigits;
    EXPECT_EQ(Check(row.type, row.text, facets),
              row.message[0] == '\0' ? "" : std::string("Invalid Value for n ") + row.message);
  }
}

TEST(CXmlObjectHelper, CountsTheDigitsOfADecimal) {
  const struct {
    const char* text;
    long long integerPart, fractionPart;
  } rows[] = {{"0", 1, 0},    {"-0.5", 0, 1}, {"0.050", 0, 2}, {"-120.00", 3, 0},
              {"1.05", 1, 2}, {"1E3", 4, 0},  {"1E-3", 0, 3}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(CXmlObjectHelper::GetDecimalIntegerPartLen(CDecimal(row.text)), row.integerPart);
    EXPECT_EQ(CXmlObjectHelper::GetDecimalFractionPartLen(CDecimal(row.text)), row.fractionPart);
  }
}

TEST(CheckRestriction, LimitsBytesOfTextAndBinaryData) {
  const struct {
    ItemType type;
    const char* text;
    long minLength, maxLength, length;
    const char* message;
  } rows[] = {
      // clang-format off
      {ItemType_string, "abc", 3, 3, 3, ""}, {ItemType_string, "ab", 3, -1, -1, "[ab]."},
      {ItemType_string, "abcd", -1, 3, -1, "[abcd]."},
      {ItemType_string, "abcde", 1, 9, 4, "[abcde]."}, {ItemType_string, "", -1, -1, 0, ""},
      {ItemType_string, "a", -1, 0, -1, "[a]."},
      {ItemType_string, "\xC3\xA9", -1, 1, -1, "[\xC3\xA9]."},
      {ItemType_hexBinary, "0A0B", 2, 2, 2, ""}, {ItemType_hexBinary, "0a0B", 3, -1, -1, "[0A0B]."},
      {ItemType_hexBinary, "", 1, -1, -1, "[]."}, {ItemType_base64Binary, "AQID", 3, 3, 3, ""},
      {ItemType_base64Binary, "AQID", -1, 2, -1, "[AQID]."},
      {ItemType_base64Binary, "AQID", -1, -1, 4, "[AQID]."},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    CFacets facets;
    facets.minLength = row.minLength;
    facets.maxLength = row.maxLength;
    facets.length = row.length;
    EXPECT_EQ(Check(row.type, row.text, facets),
              row.message[0] == '\0' ? "" : std::string("Invalid Value for n ") + row.message);
  }
}

TEST(CheckRestriction, TestsPatternAndEnumerationOfStrings) {
  const struct {
    const char *pattern, *text, *message;
    std::vector<std::string> enumeration;
  } rows[] = {
      {"[a-z]+", "abc", "", {}},
      {"[a-z]+", "abc1", "[abc1].", {}},
      {"[a-z",
       "abc",
       "Invalid Regular Expression: [a-z Error: 'missing terminating ] for character class'\n"
       "Invalid Value for n [abc].",
       {}},
      // A byte that is no text is matched as "?", and quoted as it is.
      // clang-format off
      {"\\?", "\xFF", "", {}}, {"x", "\xFF", "[\xFF].", {}}, {"", "red", "", {"green", "red"}},
      {"", "Red", "[Red].", {"green", "red"}}, {"", " red", "[ red].", {"red"}}, {"", "", "", {""}},
      {"r.*", "green", "[green].", {"green", "red"}},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    CFacets facets;
    facets.pattern = row.pattern;
    facets.enumeration = row.enumeration;
    EXPECT_EQ(
        Check(ItemType_string, row.text, facets),
        row.message[0] != '[' ? row.message : std::string("Invalid Value for n ") + row.message);
  }
}

TEST(CheckRestriction, TestsFacetsInTheirOrder) {
  CFacets facets;
  facets.minInclusive = "1";
  facets.maxInclusive = "x";
  facets.minExclusive = "y";
  facets.maxExclusive = "2.5";
  facets.totalDigits = 1;
  facets.enumeration = {"5", "z"};
  // Each row's facet is reached only because those before it are met; it is then read.
  EXPECT_EQ(Check(ItemType_i4, "0", facets), "Invalid Value for n [0]");
  EXPECT_EQ(Check(ItemType_i4, "5", facets), "The value [x] can not be converted to a i4");
  facets.maxInclusive = "99";
  EXPECT_EQ(Check(ItemType_i4, "5", facets), "The value [y] can not be converted to a i4");
  facets.minExclusive = "";
  EXPECT_EQ(Check(ItemType_i4, "5", facets), "The value [2.5] can not be converted to a i4");
  facets.maxExclusive = "100";
  EXPECT_EQ(Check(ItemType_i4, "12", facets), "Invalid Value for n [12]");
  EXPECT_EQ(Check(ItemType_i4, "5", facets), "");
  EXPECT_EQ(Check(ItemType_i4, "6", facets), "The value [z] can not be converted to a i4");
  facets.minInclusive = " ";
  EXPECT_EQ(Check(ItemType_i4, "6", facets), "The value [] can not be converted to a i4");
}

TEST(CheckRestriction, LetsPassWhatHasNoOrder) {
  CFacets facets;
  facets.minInclusive = facets.minExclusive = "P1M";
  EXPECT_EQ(Check(ItemType_duration, "P30D", facets), "");
  facets.minInclusive = facets.minExclusive = "2000-01-01T12:00:00";
  EXPECT_EQ(Check(ItemType_datetime, "2000-01-01T12:00:00Z", facets), "");
  EXPECT_EQ(Check(ItemType_datetime, "1999-12-30T12:00:00Z", facets),
            "Invalid Value for n [1999-12-30T12:00:00Z].");
  facets.minInclusive = facets.minExclusive = "1";
  EXPECT_EQ(Check(ItemType_r8, "NaN", facets), "");
  facets.minInclusive = facets.minExclusive = "NaN";
  EXPECT_EQ(Check(ItemType_r4, "0", facets), "");
  CFacets enumeration;
  enumeration.enumeration = {"1", "NaN"};
  EXPECT_EQ(Check(ItemType_r8, "NaN", enumeration), "");
  EXPECT_EQ(Check(ItemType_r8, "2", enumeration), "Invalid Value for n [2].");
}

TEST(CheckRestriction, ComparesEnumerationsByValue) {
  const struct {
    ItemType type;
    const char *allowed, *text;
  } rows[] = {{ItemType_i4, " +007 ", "7"},
              // clang-format off
              {ItemType_r8, "1.50", "15e-1"}, {ItemType_decimal, "1.50", "1.5"},
              {ItemType_hexBinary, "0a0b", "0A0B"}, {ItemType_base64Binary, "AQ ID", "AQID"},
              {ItemType_datetime, "2000-01-01T12:00:00+02:00", "2000-01-01T10:00:00Z"},
              // clang-format on
              {ItemType_duration, "PT60M", "PT1H"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.allowed);
    CFacets facets;
    facets.enumeration = {row.allowed};
    EXPECT_EQ(Check(row.type, row.text, facets), "");
  }
}

TEST(CheckRestriction, HasNothingToCheckForBooleansAndNil) {
  CFacets facets;
  facets.pattern = "x";
  facets.length = 7;
  facets.minInclusive = "bad";
  facets.enumeration = {"true"};
  EXPECT_EQ(Check(ItemType_boolean, "false", facets), "");
  QvVariant nil;
  nil.SetString("text");
  nil.SetNil();
  EXPECT_NO_THROW(CXmlObjectHelper::CheckRestriction("n", nil, ItemType_string, facets));
}

TEST(CheckRestriction, RefusesTypesWithoutACheck) {
  QvVariant value;
  value.SetChar('x');
  const struct {
    int type;
    const char* message;
  } rows[] = {{ItemType_char, "Cannot CheckRestriction for type: char"},
              {ItemType_none, "Cannot CheckRestriction for type: none"},
              {ItemType_xmlObject, "Cannot CheckRestriction for type: xmlObject"},
              {ItemType_xmlCollection, "Cannot CheckRestriction for type: xmlCollection"},
              {29, "Cannot CheckRestriction for type: 29"}};
  for (const auto& row : rows) {
    EXPECT_QV_THROW(CXmlObjectHelper::CheckRestriction("n", value, static_cast<ItemType>(row.type),
                                                       CPrimitiveRestrictions()),
                    CQvException, row.message);
  }
}

TEST(CheckRestriction, ConvertsAValueStoredUnderAnotherTag) {
  CFacets facets;
  facets.maxLength = 2;
  facets.maxInclusive = "99";
  QvVariant value;
  const auto check = [&](ItemType type) { return CheckVariant(value, type, facets); };
  value.SetI8(100);
  EXPECT_EQ(check(ItemType_string), "Invalid Value for n [100].");
  EXPECT_EQ(check(ItemType_i4), "Invalid Value for n [100]");
  value.SetString(" 5 ");
  EXPECT_EQ(check(ItemType_decimal), "");
  EXPECT_EQ(check(ItemType_string), "Invalid Value for n [ 5 ].");
  value.SetString("five");
  EXPECT_EQ(check(ItemType_i4), "The value [five] can not be converted to a i4");
  CBinaryData bytes;
  bytes.SetAsHexString("010203");
  value.SetHexBinary(bytes);
  EXPECT_EQ(check(ItemType_base64Binary), "Invalid Value for n [AQID].");
  value.SetXmlObject(nullptr);
  EXPECT_EQ(check(ItemType_string), "Invalid Type 27");
  value.SetInvalid();
  EXPECT_EQ(check(ItemType_decimal), "Invalid Type 0");
}

TEST(CheckRestriction, OfOneKindIsTheCheckOfItsName) {
  CFacets facets;
  facets.maxInclusive = "2000-01";
  CDateTime value(CDateTime::dt_gYearMonth);
  value.ParseXSDDate("2000-02");
  EXPECT_QV_THROW(CXmlObjectHelper::CheckRestrictionFormonthYear("n", value, facets), CQvException,
                  "Invalid Value for n [2000-02].");
  facets.maxInclusive = "4";
  EXPECT_QV_THROW(CXmlObjectHelper::CheckRestrictionFori1(nullptr, 5, facets), CQvException,
                  "Invalid Value for  [5]");
  EXPECT_QV_THROW(CXmlObjectHelper::CheckRestrictionForui8("n", ULLONG_MAX, facets), CQvException,
                  "Invalid Value for n [18446744073709551615]");
  EXPECT_QV_THROW(
      CXmlObjectHelper::CheckRestrictionForr4("n", std::numeric_limits<float>::infinity(), facets),
      CQvException, "Invalid Value for n [INF].");
  facets.maxInclusive = "--04";
  EXPECT_QV_THROW(CXmlObjectHelper::CheckRestrictionFormonth("n", 5, facets), CQvException,
                  "Invalid Value for n [5]");
}

template <class TArgument>
void ExpectBroken(void (*check)(const char*, TArgument, const CPrimitiveRestrictions&),
                  std::type_identity_t<TArgument> value, const CFacets& facets,
                  const char* message) {
  EXPECT_QV_THROW(check("n", value, facets), CQvException, message);
}

CFacets AtMost(const char* bound) {
  CFacets facets;
  facets.maxInclusive = bound;
  return facets;
}

// Each value is beyond the range of the next smaller type, and in the form of its own type only.
TEST(CheckRestriction, OfEachKindReadsBoundsAndWritesValuesOfItsOwn) {
  using C = CXmlObjectHelper;
  const auto moment = [](ItemType type, const char* text) {
    QvVariant value;
    value.FromString(text, type, CWhitespaceUtils::ws_none);
    return value.GetDate();
  };
  QvVariant duration;
  duration.FromString("P2M", ItemType_duration, CWhitespaceUtils::ws_none);
  // clang-format off
  ExpectBroken(&C::CheckRestrictionFori1, 127, AtMost("1"), "Invalid Value for n [127]");
  ExpectBroken(&C::CheckRestrictionFori2, SHRT_MAX, AtMost("1"), "Invalid Value for n [32767]");
  ExpectBroken(&C::CheckRestrictionFori4, LONG_MAX, AtMost("1"), "Invalid Value for n [9223372036854775807]");
  ExpectBroken(&C::CheckRestrictionFori8, LLONG_MAX, AtMost("1"), "Invalid Value for n [9223372036854775807]");
  ExpectBroken(&C::CheckRestrictionForui1, 255, AtMost("1"), "Invalid Value for n [255]");
  ExpectBroken(&C::CheckRestrictionForui2, USHRT_MAX, AtMost("1"), "Invalid Value for n [65535]");
  ExpectBroken(&C::CheckRestrictionForui4, ULONG_MAX, AtMost("1"), "Invalid Value for n [18446744073709551615]");
  ExpectBroken(&C::CheckRestrictionForyear, 2001, AtMost("2000"), "Invalid Value for n [2001]");
  ExpectBroken(&C::CheckRestrictionForday, 31, AtMost("---30"), "Invalid Value for n [31]");
  ExpectBroken(&C::CheckRestrictionForr4, 1.5F, AtMost("1.25"), "Invalid Value for n [1.5].");
  ExpectBroken(&C::CheckRestrictionForr8, 1e300, AtMost("1e299"), "Invalid Value for n [1e+300].");
  ExpectBroken(&C::CheckRestrictionForinteger, CBigInteger("36893488147419103232"), AtMost("36893488147419103231"), "Invalid Value for n [36893488147419103232].");
  ExpectBroken(&C::CheckRestrictionFordecimal, CDecimal("1.5"), AtMost("1.4"), "Invalid Value for n [1.5].");
  ExpectBroken(&C::CheckRestrictionForduration, duration.GetDuration(), AtMost("P1M"), "Invalid Value for n [P2M].");
  ExpectBroken(&C::CheckRestrictionFordate, moment(ItemType_date, "2001-02-04"), AtMost("2001-02-03"), "Invalid Value for n [2001-02-04].");
  ExpectBroken(&C::CheckRestrictionFortime, moment(ItemType_time, "04:05:06"), AtMost("04:05:05"), "Invalid Value for n [04:05:06].");
  ExpectBroken(&C::CheckRestrictionFordatetime, moment(ItemType_datetime, "2001-02-03T04:05:06"), AtMost("2001-02-03T04:05:05"), "Invalid Value for n [2001-02-03T04:05:06].");
  ExpectBroken(&C::CheckRestrictionForyearMonth, moment(ItemType_yearMonth, "2001-03"), AtMost("2001-02"), "Invalid Value for n [2001-03].");
  ExpectBroken(&C::CheckRestrictionFormonthDay, moment(ItemType_monthDay, "--02-29"), AtMost("--02-28"), "Invalid Value for n [--02-29].");
  CFacets oneByte;
  oneByte.maxLength = 1;
  const unsigned char bytes[] = {0, 0xAB};
  ExpectBroken(&C::CheckRestrictionForhexBinary, CBinaryData(bytes, 2), oneByte, "Invalid Value for n [00AB].");
  ExpectBroken(&C::CheckRestrictionForbase64Binary, CBinaryData(bytes, 2), oneByte, "Invalid Value for n [AKs=].");
  ExpectBroken(&C::CheckRestrictionForstring, std::string("ab"), oneByte, "Invalid Value for n [ab].");
  // clang-format on
  EXPECT_NO_THROW(C::CheckRestrictionForboolean("n", true, oneByte));
}

TEST(CPrimitiveRestrictions, AssignmentForgetsBoundsThatWereRead) {
  CPrimitiveRestrictions facets = AtMost("5");
  EXPECT_EQ(Check(ItemType_i4, "7", facets), Bad("7"));
  facets = AtMost("9");
  EXPECT_EQ(Check(ItemType_i4, "7", facets), "");
  EXPECT_EQ(Check(ItemType_i4, "10", facets), Bad("10"));
}

TEST(CPrimitiveRestrictions, TellsWhetherThereIsAFacet) {
  EXPECT_FALSE(CPrimitiveRestrictions().HasFacets());
  const CPrimitiveRestrictions onlyOne[] = {
      // clang-format off
      CPrimitiveRestrictions("x"), CPrimitiveRestrictions("", 0), CPrimitiveRestrictions("", -1, 0),
      CPrimitiveRestrictions("", -1, -1, "x"), CPrimitiveRestrictions("", -1, -1, "", "x"),
      CPrimitiveRestrictions("", -1, -1, "", "", "x"), CPrimitiveRestrictions("", -1, -1, "", "", "", "x"),
      CPrimitiveRestrictions("", -1, -1, "", "", "", "", 0),
      CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1, 0),
      CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1, -1, 0),
      CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1, -1, -1, {""}),
      // clang-format on
  };
  for (const CPrimitiveRestrictions& restrictions : onlyOne) EXPECT_TRUE(restrictions.HasFacets());
}
