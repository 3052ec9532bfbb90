#include "qvxml/types/decimal.h"

#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/expect_ordered.h"
#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

using QvXmlLib16::CBigInteger;
using QvXmlLib16::CDecimal;
using QvXmlLib16::CInstanceMonitor;

namespace {

std::string Zeros(std::size_t count) { return std::string(count, '0'); }

std::string InvalidChar(std::size_t position, const std::string& text) {
  return "The string representing a Decimal, contained an invalid char at position " +
         std::to_string(position) + " [" + text + "].";
}

std::string Parts(const CDecimal& value) {
  return value.GetIntegerPart().ToString() + "|" + value.GetFractionPart().ToString() + "|" +
         std::to_string(value.GetFractionalDivider());
}

}  // namespace

TEST(CDecimal, ReadsTextIntoItsParts) {
  const struct {
    std::string text, parts, expected;
  } rows[] = {
      // clang-format off
      {"0", "0|0|0", "0"}, {"1.050", "1|5|2", "1.05"}, {"1.000", "1|0|0", "1"},
      {"0.001", "0|1|3", "0.001"}, {" \t\r\n12.5 \t\r\n", "12|5|1", "12.5"},
      {"+.5", "0|5|1", "0.5"}, {"-5.", "-5|0|0", "-5"}, {"-0.5", "0|5|1", "-0.5"},
      {"-12.5", "-12|5|1", "-12.5"}, {"-0", "0|0|0", "0"}, {"-0.000", "0|0|0", "0"},
      {"999999999999999999.999999999999999999", "999999999999999999|999999999999999999|18",
       "999999999999999999.999999999999999999"},
      {"-0.000000000000000001", "0|1|18", "-0.000000000000000001"},
      {"-1000000000000000000.0000000000000000001", "-1000000000000000000|1|19",
       "-1000000000000000000.0000000000000000001"},
      {"123456789012345678901234567890.000000000000000000001",
       "123456789012345678901234567890|1|21",
       "123456789012345678901234567890.000000000000000000001"},
      {"0." + Zeros(2000) + "1", "0|1|2001", "0." + Zeros(2000) + "1"},
      // Exponents.
      {"1.5E2", "150|0|0", "150"}, {"01.5e+1", "15|0|0", "15"}, {"-1.5E-3", "0|15|4", "-0.0015"},
      {"123.456E1", "1234|56|2", "1234.56"}, {"123.456E-2", "1|23456|5", "1.23456"},
      {"120E-1", "12|0|0", "12"}, {"1200E-3", "1|2|1", "1.2"}, {"0.0012E3", "1|2|1", "1.2"},
      {"0.0012E2", "0|12|2", "0.12"}, {".5E0", "0|5|1", "0.5"}, {"0E-999", "0|0|0", "0"},
      {"1E0000000000000000000001", "10|0|0", "10"},
      {"1E20", "100000000000000000000|0|0", "100000000000000000000"},
      {"1E-20", "0|1|20", "0.00000000000000000001"},
      // clang-format on
  };
  CDecimal value("-7.7");
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    value.Parse(row.text.c_str());
    EXPECT_EQ(Parts(value), row.parts);
    EXPECT_EQ(value.ToString(), row.expected);
    EXPECT_EQ(value.GetNegative(), row.expected[0] == '-');
  }
}

TEST(CDecimal, RefusesOtherTextAndKeepsItsValue) {
  const std::pair<std::string, std::size_t> rows[] = {
      // clang-format off
      {"", 0}, {"  ", 2}, {"+", 1}, {".", 1}, {"-.", 2}, {".E5", 1}, {"E5", 0}, {"12,5", 2},
      {"1.2.3", 3}, {"1-", 1}, {"--1", 1}, {"- 1", 1}, {"1 E5", 2}, {"1E", 2}, {"1E+", 3},
      {"1E 5", 2}, {"1E5.0", 3}, {"1E5E5", 3}, {"nan", 0}, {"0x1", 1}, {" 1.5 x", 5}, {"1.5\v", 3},
      // clang-format on
  };
  CDecimal value("-0.25");
  for (const auto& row : rows) {
    EXPECT_QV_THROW(value.Parse(row.first.c_str()), CQvInvalidValueException,
                    InvalidChar(row.second, row.first));
    EXPECT_EQ(value.ToString(), "-0.25");
  }
  EXPECT_QV_THROW(value.Parse(nullptr), CQvInvalidValueException, InvalidChar(0, ""));
  EXPECT_QV_THROW(CDecimal(std::string("1\0x", 3)), CQvInvalidValueException, InvalidChar(1, "1"));
}

static std::string TooManyDigits(std::size_t limit, std::size_t position) {
  return "The string representing a Decimal has more digits than the limit of " +
         std::to_string(limit) + " allows, from position " + std::to_string(position) + " on.";
}

TEST(CDecimal, LimitsDigitsExponentsAndScales) {
  CBigInteger::SetExponentLimit(1000);
  for (const char* exponent : {"1001", "2000000000", "-1001", "99999999999999999999999"}) {
    const std::string text = std::string(" -0.1E") + exponent;
    EXPECT_QV_THROW(CDecimal(text.c_str()), CQvInvalidValueException,
                    "The string representing a Decimal has an exponent beyond the limit of 1000 "
                    "at position 5.");
  }
  EXPECT_EQ(CDecimal("1E1000").GetIntegerDigitCount(), 1001u);
  CBigInteger::SetExponentLimit(1000000);
  EXPECT_EQ(CDecimal("0.1E1000000").GetIntegerDigitCount(), 1000000u);
  EXPECT_EQ(CDecimal("1E-1000000").GetFractionalDivider(), 1000000);
  EXPECT_QV_THROW(CDecimal("888888883E1000000"), CQvInvalidValueException,
                  TooManyDigits(1000000, 9));

  CBigInteger::SetDigitLimit(4);
  // What is read can be written and read again.
  const struct {
    const char* text;
    const char* written;  // nullptr: refused at the exponent
  } exponents[] = {
      {"1E3", "1000"},    {"1E4", nullptr},    {"9.9E3", "9900"},  {"9.9E4", nullptr},
      {"0.01E5", "1000"}, {"0.01E6", nullptr}, {"1E-5", nullptr},  {"10E-5", "0.0001"},
      {"11E-5", nullptr}, {"0.1E-4", nullptr}, {"1200E-1", "120"}, {"0E99", "0"},
      {"-0.00E-99", "0"},
  };
  for (const auto& row : exponents) {
    SCOPED_TRACE(row.text);
    if (row.written != nullptr) {
      EXPECT_EQ(CDecimal(CDecimal(row.text).ToString()).ToString(), row.written);
    } else {
      EXPECT_QV_THROW(CDecimal(row.text), CQvInvalidValueException,
                      TooManyDigits(4, std::string(row.text).find('E')));
    }
  }
  EXPECT_EQ(CDecimal("0012.34").ToString(), "12.34");
  EXPECT_QV_THROW(CDecimal("0012.345"), CQvInvalidValueException, TooManyDigits(4, 7));
  EXPECT_QV_THROW(CDecimal(".00000"), CQvInvalidValueException, TooManyDigits(4, 5));
  CBigInteger::SetDigitLimit(1000000);

  CDecimal value("1.5");
  for (const int divider : {-1, INT_MIN, 1000001, INT_MAX}) {
    const std::string message = "Invalid fractional divider [" + std::to_string(divider) + "]" +
                                (divider > 0 ? ", the limit is 1000000" : "");
    EXPECT_QV_THROW(value.ChangeFractionalDivider(divider), CQvInvalidValueException, message);
    EXPECT_QV_THROW(CDecimal(1, 1, divider), CQvInvalidValueException, message);
    if (divider > 0) {
      EXPECT_QV_THROW(value.ToString(divider), CQvInvalidValueException, message);
    }
  }
  for (const int fraction : {-5, 500}) {
    EXPECT_QV_THROW(CDecimal(1, fraction, 2), CQvInvalidValueException,
                    "Invalid fractional divider [2]");
  }
  EXPECT_EQ(value.ToString(), "1.5");

  // A scale that doubles with each square ends with an exception, not with a wrapped number.
  CDecimal tiny("1E-1000000");
  for (int square = 0; square < 11; ++square) tiny *= CDecimal(tiny);
  EXPECT_EQ(tiny.GetFractionalDivider(), 2048000000);
  EXPECT_QV_THROW(tiny *= CDecimal(tiny), CQvInvalidValueException,
                  "Invalid fractional divider [2147483647]");
  EXPECT_LT(tiny, CDecimal("0.1"));
  EXPECT_EQ(tiny.ToDouble(), 0);
  EXPECT_TRUE((tiny / CDecimal(3)).IsZero());
}

TEST(CDecimal, RoundsHalfUpOnTheMagnitude) {
  const struct {
    const char* text;
    int digits;
    std::string expected;
  } rows[] = {
      // clang-format off
      {"1.005", 2, "1.01"}, {"-1.005", 2, "-1.01"}, {"1.00499999999999999999", 2, "1.00"},
      {"1.5", 0, "2"}, {"-0.5", 0, "-1"}, {"0.49", 0, "0"}, {"-0.49", 0, "-0"},
      {"-0.001", 2, "-0.00"}, {"0", 2, "0.00"}, {"-0", 2, "0.00"}, {"9.995", 2, "10.00"},
      {"-999.5", 0, "-1000"}, {"0.99", 1, "1.0"}, {"12", 3, "12.000"}, {"1.05", 5, "1.05000"},
      {"1.05", 2, "1.05"}, {"7.5", -1, "8"}, {"7.5", INT_MIN, "8"},
      {"999999999999999999.9", 0, "1000000000000000000"},
      {"0.1", 40, "0.1000000000000000000000000000000000000000"},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.text) + " to " + std::to_string(row.digits));
    EXPECT_EQ(CDecimal(row.text).ToString(row.digits), row.expected);
  }
}

TEST(CDecimal, IsBuiltFromMachineTypes) {
  EXPECT_EQ(CDecimal().ToString(), "0");
  EXPECT_EQ(CDecimal(LLONG_MIN).ToString(), "-9223372036854775808");
  EXPECT_EQ(CDecimal(ULONG_MAX).ToString(), "18446744073709551615");
  EXPECT_EQ(CDecimal(CBigInteger(-7)).ToString(), "-7");
  EXPECT_EQ(CDecimal(-1, 50, 3).ToString(), "-1.050");
  EXPECT_EQ(CDecimal(3, 0, 2).ToString(), "3");

  const std::pair<double, const char*> rows[] = {
      // clang-format off
      {0.5, "0.5"}, {-0.0, "0"}, {0.1, "0.10000000000000001"}, {-1e22, "-10000000000000000000000"},
      {1.5e-7, "0.00000014999999999999999"}, {123456.75, "123456.75"},
      // clang-format on
  };
  for (const auto& row : rows) EXPECT_EQ(CDecimal(row.first).ToString(), row.second);
  EXPECT_EQ(CDecimal(DBL_MAX).ToString(), "17976931348623157" + Zeros(292));
  EXPECT_QV_THROW(CDecimal(std::nan("")), CQvInvalidValueException, InvalidChar(0, "nan"));
  EXPECT_QV_THROW(CDecimal(+HUGE_VAL), CQvInvalidValueException, InvalidChar(0, "inf"));
  EXPECT_QV_THROW(CDecimal(-HUGE_VAL), CQvInvalidValueException, InvalidChar(1, "-inf"));
}

TEST(CDecimal, ConvertsToIntegersTowardZero) {
  EXPECT_EQ(CDecimal("-1.999").ToLong(), -1);
  EXPECT_EQ(CDecimal("9223372036854775807.9").ToLongLong(), LLONG_MAX);
  EXPECT_EQ(CDecimal("-9223372036854775808.9").ToLong(), LONG_MIN);
  EXPECT_EQ(CDecimal("-123456789012345678901.5").ToBigInteger().ToString(),
            "-123456789012345678901");
  for (const char* text : {"9223372036854775808", "-9223372036854775809", "1E30"}) {
    EXPECT_QV_THROW(CDecimal(text).ToLong(), CQvOverFlowException,
                    "The Decimal value if to large to fit into a LONG");
    EXPECT_QV_THROW(CDecimal(text).ToLongLong(), CQvOverFlowException,
                    "The Decimal value if to large to fit into a LONGLONG");
  }
}

TEST(CDecimal, ConvertsToTheNearestDouble) {
  // clang-format off
  const std::string rows[] = {
      "0", "-0.1", "123.456", "9007199254740993", "9007199254740993.0000000000000000000001",
      "1.7976931348623157e308", "-179769313486231580793728971405301e276", "4.9e-324", "2.5e-324",
      "2.4e-324", "-1e-400", "1e-1000", "0." + Zeros(400) + "5", "2.2250738585072011e-308",
      "1." + Zeros(300) + "1"};
  // clang-format on
  for (const std::string& text : rows) {
    SCOPED_TRACE(text);
    const double expected = std::strtod(text.c_str(), nullptr);
    EXPECT_EQ(CDecimal(text).ToDouble(), expected);
    EXPECT_EQ(std::signbit(CDecimal(text).ToDouble()), std::signbit(expected));
  }
  for (const char* text : {"1.8e308", "-1e309", "1e310", "1e999"}) {
    EXPECT_QV_THROW(CDecimal(text).ToDouble(), CQvOverFlowException,
                    "The Decimal value if to large to fit into a Double");
  }
  std::mt19937_64 random(42);
  for (int round = 0; round < 2000; ++round) {
    const std::uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value)) {
      EXPECT_EQ(CDecimal(value).ToDouble(), value);
    }
  }
}

TEST(CDecimal, ChangesItsScale) {
  CDecimal value("-1.05");
  value.ChangeFractionalDivider(4);
  EXPECT_EQ(Parts(value), "-1|500|4");
  EXPECT_EQ(value.ToString(), "-1.0500");
  EXPECT_EQ(value.GetFractionDigitCount(), 2u);
  value.Rationalise();
  EXPECT_EQ(Parts(value), "-1|5|2");
  value.ChangeFractionalDivider(1);
  EXPECT_EQ(Parts(value), "-1|0|1");
  value.Rationalise();
  EXPECT_EQ(Parts(value), "-1|0|0");

  CDecimal half("-0.59");
  half.ChangeFractionalDivider(1);
  EXPECT_EQ(half.ToString(), "-0.5");
  half.ChangeFractionalDivider(0);
  EXPECT_EQ(half.ToString(), "0");
  EXPECT_FALSE(half.GetNegative());

  CDecimal longer("0.001");
  CDecimal shorter("2.5");
  CDecimal::Normalize(longer, shorter);
  EXPECT_EQ(Parts(longer) + " " + Parts(shorter), "0|1|3 2|500|3");
  CDecimal::Normalize(shorter, shorter);
  EXPECT_EQ(Parts(shorter), "2|500|3");

  CDecimal manyZeros(1, CBigInteger("5" + Zeros(100000)), 100003);
  manyZeros.Rationalise();
  EXPECT_EQ(Parts(manyZeros), "1|5|3");
}

TEST(CDecimal, CountsDigitsOnBothSides) {
  const struct {
    const char* text;
    std::size_t integerDigits, fractionDigits;
  } rows[] = {{"0", 1, 0},     {"0.5", 0, 1},    {"-0.050", 0, 2},
              {"-123", 3, 0},  {"10.01", 2, 2},  {"1E-30", 0, 30},
              {"1E30", 31, 0}, {"100.00", 3, 0}, {"-1234567890123456789012.5", 22, 1}};
  for (const auto& row : rows) {
    EXPECT_EQ(CDecimal(row.text).GetIntegerDigitCount(), row.integerDigits);
    EXPECT_EQ(CDecimal(row.text).GetFractionDigitCount(), row.fractionDigits);
  }
}

TEST(CDecimal, AddsSubtractsAndMultiplies) {
  const char* const rows[][5] = {
      // clang-format off
      {"0.1", "0.2", "0.3", "-0.1", "0.02"},       {"-0.5", "-0.5", "-1", "0", "0.25"},
      {"0.3", "-1", "-0.7", "1.3", "-0.3"}, {"-1", "0.999", "-0.001", "-1.999", "-0.999"},
      {"0", "-0.5", "-0.5", "0.5", "0"},
      {"999999999999999999.999999999999999999", "0.000000000000000001", "1000000000000000000",
       "999999999999999999.999999999999999998", "0.999999999999999999999999999999999999"},
      {"1E20", "1E-20", "100000000000000000000.00000000000000000001",
       "99999999999999999999.99999999999999999999", "1"},
      // The sum takes a long number from a short one and is then cut back to a short one.
      {"-54E-31", "0.5", "0.4999999999999999999999999999946", "-0.5000000000000000000000000000054",
       "-0.0000000000000000000000000000027"},
      // clang-format on
  };
  for (const auto& [a, b, sum, difference, product] : rows) {
    SCOPED_TRACE(std::string(a) + " and " + b);
    const CDecimal left(a), right(b);
    EXPECT_EQ((left + right).ToString(), sum);
    EXPECT_EQ((left - right).ToString(), difference);
    EXPECT_EQ((left * right).ToString(), product);
    CDecimal changed(left);
    changed += right;
    changed -= left;
    EXPECT_EQ(changed, right);
  }

  CDecimal value("-0.5");
  EXPECT_EQ((value++).ToString(), "-0.5");
  EXPECT_EQ((++value).ToString(), "1.5");
  EXPECT_EQ((value--).ToString(), "1.5");
  EXPECT_EQ((--value).ToString(), "-0.5");
  EXPECT_EQ((-value).ToString(), "0.5");
  EXPECT_EQ((value *= CDecimal(value)).ToString(), "0.25");
  EXPECT_EQ(CDecimal(0).Negate().ToString(2), "0.00");
}

TEST(CDecimal, DividesToThirtyFourDigits) {
  const char* const rows[][3] = {
      // clang-format off
      {"1", "3", "0.3333333333333333333333333333333333"},
      {"2", "3", "0.6666666666666666666666666666666667"},
      {"-2", "3", "-0.6666666666666666666666666666666667"},
      {"1", "-7", "-0.1428571428571428571428571428571429"}, {"1", "8", "0.125"},
      {"1E30", "3", "333333333333333333333333333333.3333333333333333333333333333333333"},
      {"5E-35", "1", "0.0000000000000000000000000000000001"},
      {"-5E-35", "1", "-0.0000000000000000000000000000000001"}, {"4.9E-35", "1", "0"},
      {"1", "2E34", "0.0000000000000000000000000000000001"}, {"1", "2.1E34", "0"},
      {"-1", "2.1E34", "0"},
      {"4E-44", "5E-44", "0.8"},
      {"1", "1E-40", "10000000000000000000000000000000000000000"},
      // clang-format on
  };
  for (const auto& [dividend, divisor, quotient] : rows) {
    EXPECT_EQ((CDecimal(dividend) / CDecimal(divisor)).ToString(), quotient);
  }
  CDecimal value("1.5");
  EXPECT_QV_THROW(value /= CDecimal("0.00"), CQvInvalidValueException, "Division by zero");
  EXPECT_EQ(value.ToString(), "1.5");
}

TEST(CDecimal, OrdersByValueWhateverTheScale) {
  const std::vector<CDecimal> ascending = {
      CDecimal("-1E30"), CDecimal("-2.1"),     CDecimal("-2.05"), CDecimal("-1"),
      CDecimal("-0.5"),  CDecimal("-0.0001"),  CDecimal(0),       CDecimal("1E-1000"),
      CDecimal("1E-30"), CDecimal("0.000999"), CDecimal("0.001"), CDecimal("0.0010001"),
      CDecimal("0.5"),   CDecimal("2.05"),     CDecimal("2.1"),   CDecimal("1E30")};
  qv_test::ExpectOrdered(ascending);
  const CDecimal scaled(-1, 500, 3);
  EXPECT_EQ(scaled, CDecimal("-1.5"));
  EXPECT_EQ(scaled, -1.5);
  EXPECT_EQ(CDecimal(3, 0, 5), 3);
  EXPECT_EQ(scaled.GetFractionalDivider(), 3);
}

// Up to 18 digits on either side of the point are held otherwise than more.
TEST(CDecimal, GoesBetweenFewAndManyDigits) {
  CDecimal value("-0.123456789012345678");
  value.ChangeFractionalDivider(19);
  EXPECT_EQ(Parts(value), "0|1234567890123456780|19");
  EXPECT_EQ(value.ToString(), "-0.1234567890123456780");
  EXPECT_EQ(value, CDecimal("-0.123456789012345678"));
  EXPECT_EQ(value.Negate().ToString(), "0.1234567890123456780");
  EXPECT_EQ(value.Negate().ToString(1), "-0.1");
  value.Rationalise();
  EXPECT_EQ(Parts(value), "0|123456789012345678|18");
  value.ChangeFractionalDivider(40);
  value.ChangeFractionalDivider(0);
  EXPECT_EQ(Parts(value) + value.ToString(), "0|0|00");

  value = CDecimal("999999999999999999.999999999999999999");
  value += CDecimal("0.000000000000000001");
  EXPECT_EQ(Parts(value), "1000000000000000000|0|0");
  EXPECT_LT(CDecimal("999999999999999999"), value);
  EXPECT_EQ(Parts(-value), "-1000000000000000000|0|0");
  --value;
  EXPECT_EQ(Parts(value), "999999999999999999|0|0");

  const char* const texts[] = {"0",
                               "-0.5",
                               "-999999999999999999.25",
                               "-1000000000000000000",
                               "0.1234567890123456789",
                               "-12345678901234567890.5"};
  for (const char* before : texts) {
    for (const char* after : texts) {
      SCOPED_TRACE(std::string(before) + " " + after);
      CDecimal source(after);
      CDecimal copied(before);
      copied = source;
      copied = *&copied;
      CDecimal moved(before);
      moved = std::move(source);
      source = CDecimal(before);
      CDecimal parsed(before);
      parsed.Parse(after);
      EXPECT_EQ(copied.ToString() + " " + moved.ToString() + " " + parsed.ToString(),
                std::string(after) + " " + after + " " + after);
      EXPECT_EQ(source.ToString(), before);
      EXPECT_EQ(CDecimal(source).GetNegative(), before[0] == '-');
    }
  }
}

TEST(CDecimal, LeavesZeroWhenMovedFrom) {
  const long before = CInstanceMonitor::GetCount("CDecimal");
  {
    CDecimal source("-0.5");
    CDecimal target(std::move(source));
    EXPECT_EQ(target.ToString() + " " + source.ToString(1), "-0.5 0.0");
    source = std::move(target);
    EXPECT_EQ(source.ToString() + " " + target.ToString(1), "-0.5 0.0");
    EXPECT_EQ(CInstanceMonitor::GetCount("CDecimal"), before + 2);
  }
  EXPECT_EQ(CInstanceMonitor::GetCount("CDecimal"), before);
}
