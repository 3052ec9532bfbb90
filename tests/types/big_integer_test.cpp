#include "qvxml/types/big_integer.h"

#include <climits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "qvxml/types/decimal.h"
#include "tests/support/expect_ordered.h"
#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

// The library may be installed without its header.
#if defined(QVXML_HAVE_GMP) && __has_include(<gmp.h>)
#include <gmp.h>
#else
#undef QVXML_HAVE_GMP
#endif

using QvXmlLib16::CBigInteger;
using QvXmlLib16::CDecimal;
using QvXmlLib16::CInstanceMonitor;

namespace {

std::string Nines(std::size_t count) { return std::string(count, '9'); }

std::string PowerOfTen(std::size_t exponent) { return "1" + std::string(exponent, '0'); }

std::string InvalidChar(std::size_t position, const std::string& text) {
  return "The string representing a Big Integer, contained an invalid char at position " +
         std::to_string(position) + " [" + text + "].";
}

}  // namespace

TEST(CBigInteger, ReadsAndWritesText) {
  const std::pair<std::string, std::string> rows[] = {
      // clang-format off
      {"-0", "0"}, {"+7", "7"}, {"-7", "-7"}, {" \t\r\n42 \t\r\n", "42"},
      {Nines(17), Nines(17)}, {Nines(18), Nines(18)}, {"-" + PowerOfTen(36), "-" + PowerOfTen(36)},
      {"123456789012345678000000000000000009", "123456789012345678000000000000000009"},
      {std::string(100, '0') + "5", "5"}, {std::string(100, '0'), "0"},
      // clang-format on
  };
  CBigInteger value(-7);
  for (const auto& [text, expected] : rows) {
    EXPECT_EQ(CBigInteger(text).ToString(), expected);
    value.Parse(text.c_str());
    EXPECT_EQ(value.ToString(), expected);
  }
  value.Parse("1234", 2);
  EXPECT_EQ(value.ToString(), "12");
}

TEST(CBigInteger, RefusesOtherTextAndKeepsItsValue) {
  const std::pair<std::string, std::size_t> rows[] = {
      // clang-format off
      {"", 0}, {"  ", 2}, {"-", 1}, {"+ ", 1}, {"- 5", 1}, {"--5", 1}, {"12 3", 3}, {"1.5", 1},
      {"1e5", 1}, {"12a", 2}, {"\v1", 0}, {"\xC2\xA0", 0}, {" 12-", 3}, {"/", 0}, {":", 0},
      // clang-format on
  };
  CBigInteger value(77);
  for (const auto& row : rows) {
    EXPECT_QV_THROW(value.Parse(row.first.c_str()), CQvInvalidValueException,
                    InvalidChar(row.second, row.first));
    EXPECT_EQ(value.ToString(), "77");
  }
  EXPECT_QV_THROW(value.Parse(nullptr), CQvInvalidValueException, InvalidChar(0, ""));
  // An embedded NUL is refused, not taken for the end.
  EXPECT_QV_THROW(CBigInteger(std::string("12\0x", 4)), CQvInvalidValueException,
                  InvalidChar(2, "12"));
}

static std::string TooManyDigits(std::size_t limit, std::size_t position) {
  return "The string representing a Big Integer has more digits than the limit of " +
         std::to_string(limit) + " allows, from position " + std::to_string(position) + " on.";
}

TEST(CBigInteger, LimitsDigitsAndExponents) {
  EXPECT_EQ(CBigInteger(Nines(1000000)).GetDigitCount(), 1000000u);
  EXPECT_QV_THROW(CBigInteger(Nines(1000001)), CQvInvalidValueException,
                  TooManyDigits(1000000, 1000000));
  EXPECT_EQ(CBigInteger::Pow10(1000000).GetTrailingZeroCount(), 1000000u);
  EXPECT_QV_THROW(CBigInteger::Pow10(UINT_MAX), CQvInvalidValueException,
                  "The power of ten [4294967295] exceeds the limit of 1000000.");

  // Until the limit is set, that of texts is another.
  EXPECT_THROW(CDecimal("1E1001"), QvXmlLib16::CQvInvalidValueException);

  CBigInteger::SetDigitLimit(3);
  CBigInteger::SetExponentLimit(2);
  EXPECT_EQ(CBigInteger(" 000999 ").ToString(), "999");
  EXPECT_QV_THROW(CBigInteger(" 0001234"), CQvInvalidValueException, TooManyDigits(3, 7));
  EXPECT_EQ(CBigInteger::Pow10(2).ToString(), "100");
  CBigInteger seven(7);
  EXPECT_QV_THROW(seven.MultiplyByPow10(3), CQvInvalidValueException,
                  "The power of ten [3] exceeds the limit of 2.");
  EXPECT_EQ(seven.MultiplyByPow10(2).ToString(), "700");
  // Arithmetic may go beyond.
  EXPECT_EQ((CBigInteger(999) * CBigInteger(999)).ToString(), "998001");
  CBigInteger::SetDigitLimit(SIZE_MAX);
  EXPECT_EQ(CBigInteger::GetDigitLimit(), 1000000000u);
  CBigInteger::SetDigitLimit(1000000);
  CBigInteger::SetExponentLimit(1000000);
}

TEST(CBigInteger, ConvertsFromAndToMachineTypes) {
  EXPECT_EQ(CBigInteger(0L).ToString(), "0");
  EXPECT_EQ(CBigInteger(INT_MIN).ToString(), "-2147483648");
  EXPECT_EQ(CBigInteger(UINT_MAX).ToString(), "4294967295");
  EXPECT_EQ(CBigInteger(LLONG_MIN).ToString(), "-9223372036854775808");
  EXPECT_EQ(CBigInteger(ULLONG_MAX).ToString(), "18446744073709551615");
  EXPECT_EQ(CBigInteger("-9223372036854775808").ToLongLong(), LLONG_MIN);
  EXPECT_EQ(CBigInteger("9223372036854775807").ToLong(), LONG_MAX);
  for (const char* text :
       {"9223372036854775808", "-9223372036854775809", "1000000000000000000000000000000000000"}) {
    EXPECT_QV_THROW(CBigInteger(text).ToLong(), CQvOverFlowException,
                    "The Big Integer value if to large to fit into a LONG");
    EXPECT_QV_THROW(CBigInteger(text).ToLongLong(), CQvOverFlowException,
                    "The Big Integer value if to large to fit into a LONGLONG");
  }
  EXPECT_EQ(CBigInteger("-9007199254740993").ToDouble(), -9007199254740992.0);
  EXPECT_EQ(CBigInteger::Pow10(308).ToDouble(), 1e308);
  EXPECT_QV_THROW(CBigInteger::Pow10(309).ToDouble(), CQvOverFlowException,
                  "The Big Integer value if to large to fit into a Double");
}

TEST(CBigInteger, OrdersBySignLengthAndDigits) {
  std::vector<CBigInteger> ascending;
  for (const std::string& text :
       {"-" + PowerOfTen(36), "-" + Nines(36), std::string("-1"), std::string("0"),
        std::string("1"), Nines(18), PowerOfTen(18), PowerOfTen(17) + "01", Nines(36)}) {
    ascending.emplace_back(text);
    EXPECT_EQ(ascending.back().GetDigitCount(), text.size() - (text[0] == '-'));
    const std::size_t zeros = text.size() - 1 - text.find_last_not_of('0');
    EXPECT_EQ(ascending.back().GetTrailingZeroCount(), text == "0" ? 0 : zeros);
  }
  qv_test::ExpectOrdered(ascending);
}

TEST(CBigInteger, ComputesAcrossSignsAndLimbs) {
  const std::string rows[][6] = {
      // clang-format off
      {"7", "2", "9", "5", "3", "1"}, {"-7", "2", "-5", "-9", "-3", "-1"},
      {"7", "-2", "5", "9", "-3", "1"}, {"-7", "-2", "-9", "-5", "3", "-1"},
      {"0", "-3", "-3", "3", "0", "0"}, {"-5", "5", "0", "-10", "-1", "0"},
      {Nines(18), "1", PowerOfTen(18), "999999999999999998", Nines(18), "0"},
      {"1", PowerOfTen(36), PowerOfTen(35) + "1", "-" + Nines(36), "0", "1"},
      // clang-format on
  };
  for (const auto& [left, right, sum, difference, quotient, remainder] : rows) {
    SCOPED_TRACE(left + " and " + right);
    const CBigInteger a(left), b(right);
    EXPECT_EQ((a + b).ToString(), sum);
    EXPECT_EQ((a - b).ToString(), difference);
    EXPECT_EQ((a / b).ToString(), quotient);
    EXPECT_EQ((a % b).ToString(), remainder);
  }
  // The estimate of the quotient's limb is one too large.
  EXPECT_EQ(
      (CBigInteger("25" + std::string(70, '0')) / CBigInteger("5" + std::string(52, '0') + "1"))
          .ToString(),
      "499999999999999999");
  CBigInteger value(5);
  EXPECT_QV_THROW(value / CBigInteger(), CQvInvalidValueException, "Division by zero");
  EXPECT_QV_THROW(value %= CBigInteger(), CQvInvalidValueException, "Division by zero");
  EXPECT_EQ(value.ToString(), "5");
}

TEST(CBigInteger, WorksOnItself) {
  CBigInteger value(Nines(36));
  // The reference keeps compilers from warning of what is tested here.
  const CBigInteger& same = value;
  value += same;
  EXPECT_EQ(value.ToString(), "1" + Nines(35) + "8");
  value /= CBigInteger(2);
  value *= same;
  EXPECT_EQ(value.ToString(), Nines(35) + "8" + std::string(35, '0') + "1");
  CBigInteger remainder = value;
  CBigInteger::Divide(remainder, CBigInteger(10), &value, &remainder);
  EXPECT_EQ(value.ToString() + " " + remainder.ToString(),
            Nines(35) + "8" + std::string(35, '0') + " 1");
  value /= same;
  EXPECT_EQ(value.ToString(), "1");
  value -= same;
  EXPECT_TRUE(value.IsZero());
  EXPECT_FALSE((-value).IsNegative());

  CBigInteger counter(-1);
  EXPECT_EQ((counter++).ToString(), "-1");
  EXPECT_EQ((++counter).ToString(), "1");
  EXPECT_EQ((counter--).ToString(), "1");
  EXPECT_EQ((--counter).ToString(), "-1");
  EXPECT_EQ(CBigInteger(-5).GetAbs().ToString() + CBigInteger(5).Negate().ToString(), "5-5");
}

// The sizes are those around the greatest that an object holds without memory of its own.
TEST(CBigInteger, CopiesMovesAndReplacesEverySize) {
  const std::string texts[] = {
      "0", "-7", Nines(18), PowerOfTen(18), Nines(36), "-" + Nines(36), PowerOfTen(36), Nines(99)};
  const long before = CInstanceMonitor::GetCount("CBigInteger");
  for (const std::string& from : texts) {
    for (const std::string& to : texts) {
      SCOPED_TRACE(to + " becomes " + from);
      const CBigInteger source(from);
      CBigInteger copied(to);
      copied = source;
      CBigInteger parsed(to);
      parsed.Parse(from.c_str());
      CBigInteger moved(to);
      moved = std::move(copied);
      EXPECT_EQ(copied.ToString(), "0");
      const CBigInteger& same = moved;
      moved = same;
      EXPECT_EQ(moved, parsed);
      EXPECT_EQ((moved += CBigInteger(to)) -= CBigInteger(to), source);
      const CBigInteger built(std::move(moved));
      EXPECT_EQ(built.ToString() + moved.ToString(), from + "0");
      EXPECT_EQ(CInstanceMonitor::GetCount("CBigInteger"), before + 5);
    }
  }
  EXPECT_EQ(CInstanceMonitor::GetCount("CBigInteger"), before);
}

TEST(CBigInteger, ScalesByPowersOfTen) {
  const std::string digits = "123456789012345678901234567890123456789";
  for (const std::size_t exponent : {0u, 1u, 17u, 18u, 19u, 36u, 38u, 39u, 40u, 100u}) {
    SCOPED_TRACE(exponent);
    CBigInteger value("-" + digits);
    CBigInteger rest(99);
    EXPECT_EQ(value.MultiplyByPow10(exponent).ToString(),
              "-" + digits + std::string(exponent, '0'));
    EXPECT_EQ(value.DivideByPow10(exponent, &rest).ToString(), "-" + digits);
    EXPECT_EQ(rest.ToString(), "0");

    const std::size_t kept = exponent < digits.size() ? digits.size() - exponent : 0;
    value.DivideByPow10(exponent, &rest);
    EXPECT_EQ(value, CBigInteger("-0" + digits.substr(0, kept)));
    EXPECT_EQ(rest, CBigInteger("-0" + digits.substr(kept)));
    EXPECT_FALSE(value.IsZero() && value.IsNegative());
  }
  EXPECT_EQ(CBigInteger(123).DivideByPow10(2).ToString(), "1");
  EXPECT_EQ(CBigInteger().MultiplyByPow10(SIZE_MAX).ToString(), "0");
}

#ifdef QVXML_HAVE_GMP

namespace {

class Gmp {
 public:
  explicit Gmp(const std::string& text) { mpz_init_set_str(m_value, text.c_str(), 10); }
  Gmp() { mpz_init(m_value); }
  ~Gmp() { mpz_clear(m_value); }
  Gmp(const Gmp&) = delete;
  Gmp& operator=(const Gmp&) = delete;
  mpz_ptr Get() { return m_value; }
  std::string ToString() {
    std::string text(mpz_sizeinbase(m_value, 10) + 2, '\0');
    mpz_get_str(text.data(), 10, m_value);
    return text.c_str();
  }

 private:
  mpz_t m_value;
};

// Runs of nines and zeros make carries and the corrections of estimates likely.
std::string RandomDigits(std::mt19937& random, std::size_t count) {
  std::string digits = random() % 2 == 0 ? "-" : "";
  digits += static_cast<char>('1' + random() % 9);
  while (digits.size() < count) {
    const std::size_t run = 1 + random() % 40;
    const unsigned int kind = random() % 4;
    for (std::size_t index = 0; index < run && digits.size() < count; ++index) {
      digits += kind == 0 ? '9' : kind == 1 ? '0' : static_cast<char>('0' + random() % 10);
    }
  }
  return digits;
}

void ExpectSameArithmetic(const std::string& left, const std::string& right) {
  const CBigInteger a(left);
  const CBigInteger b(right);
  Gmp x(left);
  Gmp y(right);
  Gmp result;
  ASSERT_EQ(a.ToString(), x.ToString());
  const CBigInteger product = a * b;
  const std::pair<CBigInteger, void (*)(mpz_ptr, mpz_srcptr, mpz_srcptr)> results[] = {
      {a + b, mpz_add},
      {a - b, mpz_sub},
      {product, mpz_mul},
      {a / b, mpz_tdiv_q},
      {a % b, mpz_tdiv_r}};
  for (const auto& [value, compute] : results) {
    compute(result.Get(), x.Get(), y.Get());
    ASSERT_EQ(value.ToString(), result.ToString());
  }
  // Just below and at an exact quotient.
  ASSERT_EQ(product / b, a);
  ASSERT_EQ(((product.GetAbs() - CBigInteger(1)) / b.GetAbs()), a.GetAbs() - CBigInteger(1));
}

}  // namespace

TEST(CBigInteger, AgreesWithGmpAroundTheEdgesOfLimbsAndAlgorithms) {
  std::mt19937 random(16);
  // In limbs: single, algorithm D, the recursive division, Karatsuba and twice that.
  const std::size_t limbs[] = {1, 2, 3, 8, 23, 24, 25, 47, 48, 49, 50, 97, 98, 150, 400};
  for (const std::size_t left : limbs) {
    for (const std::size_t right : limbs) {
      for (int round = 0; round < 6; ++round) {
        const std::string leftDigits = RandomDigits(random, left * 18 - random() % 18);
        const std::string rightDigits = RandomDigits(random, right * 18 - random() % 18);
        SCOPED_TRACE(leftDigits + " and " + rightDigits);
        ASSERT_NO_FATAL_FAILURE(ExpectSameArithmetic(leftDigits, rightDigits));
      }
    }
  }
  for (const std::size_t digits : {20000u, 60001u}) {
    SCOPED_TRACE(digits);
    ExpectSameArithmetic(RandomDigits(random, digits), RandomDigits(random, digits / 2));
    ExpectSameArithmetic(RandomDigits(random, digits), RandomDigits(random, digits / 5));
  }
}

#endif  // QVXML_HAVE_GMP
