#include <cerrno>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include "tests/support/qv_gtest.h"
#include "tests/support/test_locale.h"
#include <gtest/gtest.h>

#include "qvxml/core/value/conversions.h"

using namespace QvXmlLib16;
using C = CConversions;
using Rule = CWhitespaceUtils::WhitespaceRule;
constexpr Rule ws_none = CWhitespaceUtils::ws_none;
constexpr Rule ws_preserve = CWhitespaceUtils::ws_preserve;
constexpr Rule ws_replace = CWhitespaceUtils::ws_replace;
constexpr Rule ws_collapse = CWhitespaceUtils::ws_collapse;

namespace {

template <class TReal>
std::uint64_t BitsOf(TReal value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof value);
  return bits;
}

template <class TReal, class TBits>
TReal FromBits(TBits bits) {
  TReal value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

std::string Printed(const char* format, double value) {
  char text[32];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

// Values of every size, with few and with many digits.
std::vector<double> SampleReals() {
  // clang-format off
  std::vector<double> values = {
      0.0, -0.0, 0.1, 1.0 / 3, 0.1 + 0.2, 1e15, 1e16, 1e17, 1e7, 1e6, 9999999.5, 9999999, DBL_MAX,
      DBL_MIN, FLT_MAX, 5e-324, 1e-5, 0.0001, 1e22, 1e23, 123456, 9007199254740993.0, 0.5, 2.5};
  // clang-format on
  std::mt19937_64 random(1);
  for (int i = 0; i < 25000; ++i) {
    const double any = FromBits<double>(static_cast<std::uint64_t>(random()));
    if (std::isfinite(any)) values.push_back(any);
    const auto integer = static_cast<std::int64_t>(random()) >> (random() % 64);
    values.push_back(static_cast<double>(integer));
    values.push_back(static_cast<double>(integer) / 1000);
    values.push_back(static_cast<double>(integer) / 1024);
  }
  return values;
}

}  // namespace

// Either way between the limits of a kind and their texts.
template <class TValue>
void ExpectLimits(std::string (*write)(TValue), TValue (*read)(const std::string&, Rule),
                  const char* lowest, const char* highest) {
  for (const auto& [text, value] : {std::pair(lowest, std::numeric_limits<TValue>::min()),
                                    std::pair(highest, std::numeric_limits<TValue>::max())}) {
    EXPECT_EQ(write(value), text);
    EXPECT_EQ(read(text, ws_none), value);
  }
}

TEST(IntegerConversions, WriteAndReadTheWholeRange) {
  ExpectLimits(C::i1ToString, C::i1FromString, "-128", "127");
  ExpectLimits(C::i2ToString, C::i2FromString, "-32768", "32767");
  ExpectLimits(C::i4ToString, C::i4FromString, "-9223372036854775808", "9223372036854775807");
  ExpectLimits(C::i8ToString, C::i8FromString, "-9223372036854775808", "9223372036854775807");
  ExpectLimits(C::ui1ToString, C::ui1FromString, "0", "255");
  ExpectLimits(C::ui2ToString, C::ui2FromString, "0", "65535");
  ExpectLimits(C::ui4ToString, C::ui4FromString, "0", "18446744073709551615");
  ExpectLimits(C::ui8ToString, C::ui8FromString, "0", "18446744073709551615");
  EXPECT_EQ(C::ui8FromString("-1", ws_none), ULLONG_MAX);
  EXPECT_EQ(C::ui1FromString("-18446744073709551615", ws_none), 1);
}

// A kind as the messages name it.
using Kind = std::pair<const char*, std::function<void(const std::string&, Rule)>>;

TEST(IntegerConversions, RefuseWhatIsNoNumberOrTooLong) {
  // The narrow kinds are read as the wide ones, which the messages name.
  const auto kinds = {Kind("i4", C::i1FromString),   Kind("i4", C::i2FromString),
                      Kind("i4", C::i4FromString),   Kind("i8", C::i8FromString),
                      Kind("ui4", C::ui1FromString), Kind("ui4", C::ui2FromString),
                      Kind("ui4", C::ui4FromString), Kind("ui8", C::ui8FromString)};
  const char* const kNone = "can not be converted to a ";
  const char* const kTooLarge = "is to large to fit in a ";
  const std::string rows[][3] = {
      // clang-format off
      {"", "", kNone}, {" ", "", kNone}, {" 1 \t2 ", "1 2", kNone}, {"1234567a", "1234567a", kNone},
      {"12345678:", "12345678:", kNone}, {"1234/678", "1234/678", kNone},
      {"\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", kNone},
      {" 99999999999999999999\t", "99999999999999999999", kTooLarge},
      {"-99999999999999999999x", "-99999999999999999999x", kTooLarge},
      // clang-format on
  };
  for (const auto& row : rows) {
    const std::string message = "The value [" + row[1] + "] " + row[2];
    for (const Kind& kind : kinds) {
      EXPECT_QV_THROW(kind.second(row[0], ws_collapse), CQvInvalidValueException,
                      message + kind.first);
    }
  }
}

TEST(IntegerConversions, RefuseWhatIsOutOfRange) {
  const Kind i1("i1", C::i1FromString), i2("i2", C::i2FromString), ui1("ui1", C::ui1FromString),
      ui2("ui2", C::ui2FromString), i8("i8", C::i8FromString), ui8("ui8", C::ui8FromString);
  // Here the text is quoted as it stood before the rule.
  const std::pair<const Kind&, const char*> rows[] = {
      // clang-format off
      {i1, " 128\t"}, {i1, "-129"}, {i2, "32768"}, {i2, "-32769"}, {ui1, "256"}, {ui1, "-1"},
      {ui2, " 65536\t"}, {i8, "9223372036854775808"}, {i8, "-9223372036854775809x"}, {ui8, "18446744073709551616"},
      // clang-format on
  };
  for (const auto& row : rows) {
    const Kind& kind = row.first;
    EXPECT_QV_THROW(
        kind.second(row.second, ws_collapse), CQvInvalidValueException,
        "The value [" + std::string(row.second) + "] is to large to fit in a " + kind.first);
  }
  EXPECT_QV_THROW(C::i4FromString("1", static_cast<Rule>(4)), CQvException,
                  "Unknown WhitespaceRule");
}

TEST(IntegerConversions, AcceptWhatStrtolDoes) {
  std::mt19937 random(1);
  static constexpr char kBytes[] = " \t\n\v\f\r+-00123456789012345678x\xA0";
  const std::string alphabet(kBytes, sizeof kBytes);
  const auto matches = [](const std::string& text, auto convert, auto read) {
    errno = 0;
    char* end = nullptr;
    const auto expected = convert(text.c_str(), &end, 10);
    const bool isValid = !text.empty() && errno != ERANGE && *end == '\0';
    try {
      return read(text, ws_none) == expected && isValid;
    } catch (const CQvInvalidValueException&) {
      return !isValid;
    }
  };
  int accepted = 0;
  for (int i = 0; i < 100000; ++i) {
    std::string text(random() % 5, '\0');
    for (char& byte : text) byte = alphabet[random() % alphabet.size()];
    // Digits alone, so that most lengths and all limits are met.
    const size_t digits = random() % 24;
    for (size_t j = 0; j < digits; ++j) text += static_cast<char>('0' + random() % 10);
    if (random() % 4 == 0) text += alphabet[random() % alphabet.size()];
    ASSERT_TRUE(matches(text, std::strtoll, C::i8FromString)) << testing::PrintToString(text);
    ASSERT_TRUE(matches(text, std::strtol, C::i4FromString)) << testing::PrintToString(text);
    ASSERT_TRUE(matches(text, std::strtoull, C::ui8FromString)) << testing::PrintToString(text);
    const auto readCounted = [&accepted](const std::string& t, Rule rule) {
      const unsigned long value = C::ui4FromString(t, rule);
      ++accepted;
      return value;
    };
    ASSERT_TRUE(matches(text, std::strtoul, readCounted)) << testing::PrintToString(text);
  }
  EXPECT_GT(accepted, 20000);
}

TEST(IntegerConversions, ApplyTheRuleFirst) {
  EXPECT_EQ(C::i4FromString(" \r\n 42\t", ws_collapse), 42);
  EXPECT_EQ(C::i4FromString("\r\n42", ws_preserve), 42);
  EXPECT_EQ(C::i4FromString("\v\f+42", ws_replace), 42);
  EXPECT_QV_THROW(C::i4FromString("42\r\n", ws_preserve), CQvInvalidValueException,
                  "The value [42\n] can not be converted to a i4");
  EXPECT_EQ(C::i4FromString(std::string("42\0 x", 5), ws_collapse), 42);
  EXPECT_EQ(C::i4FromString(std::string("\0x", 2), ws_none), 0);
}

TEST(RealConversions, WriteSpecialValues) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(C::r8ToString(infinity), "INF");
  EXPECT_EQ(C::r8ToString(-infinity), "-INF");
  EXPECT_EQ(C::r8ToString(-std::nan("")), "NaN");
  EXPECT_EQ(C::r8ToString(infinity, "%.2f"), "INF");
  EXPECT_EQ(C::r4ToString(std::numeric_limits<float>::infinity()), "INF");
}

TEST(RealConversions, WriteAsPrintf) {
  const char* const formats[] = {
      "%f",  "%.0f",    "%.2f",   "%.3e",   "%e",   "%g",    "%.0g",    "%.17g", "%.e",    "%.30f",
      "%G",  "%E",      "%F",     "%a",     "%.3A", "%+.2f", "% g",     "%#.3g", "%08.3f", "%-12gx",
      "%lf", "%12.4lf", "<%.2f>", "%.1f%%", "%%%g", "%'.2f", "%100.2f", "%40f"};
  size_t row = 0;
  for (const double value : SampleReals()) {
    ASSERT_EQ(C::r8ToString(value), Printed("%.16g", value));
    const auto narrow = static_cast<float>(value);
    if (std::isfinite(narrow)) {
      ASSERT_EQ(C::r4ToString(narrow), Printed("%.7g", double{narrow}));
    }
    const char* const format = formats[row++ % std::size(formats)];
    ASSERT_EQ(C::r8ToString(value, format), Printed(format, value)) << format;
  }
}

TEST(RealConversions, RoundToEvenAndBesidePowersOfTen) {
  const auto expectPrinted = [](double value) {
    EXPECT_EQ(C::r8ToString(value), Printed("%.16g", value));
    const auto narrow = static_cast<float>(value);
    EXPECT_EQ(C::r4ToString(narrow), Printed("%.7g", double{narrow}));
  };
  for (int exponent = -5; exponent <= 15; ++exponent) {
    double above = std::pow(10.0, exponent);
    double below = above;
    float narrow = static_cast<float>(above);
    for (int step = 0; step < 6; ++step) {
      above = std::nextafter(above, HUGE_VAL);
      below = std::nextafter(below, 0);
      narrow = std::nextafter(narrow, 0.0f);
      expectPrinted(above);
      expectPrinted(-below);
      expectPrinted(double{narrow});
    }
  }
  // Of 17 digits, the last of them a 5.
  for (const double whole : {281474976710656.0, 562949953421311.0, 99999999999999.0}) {
    for (int eighths = 1; eighths < 8; ++eighths) expectPrinted(whole + eighths / 8.0);
  }
}

TEST(RealConversions, CutAt31Characters) {
  EXPECT_EQ(C::r8ToString(1.5, "%.40f"), "1.50000000000000000000000000000");
  EXPECT_EQ(C::r8ToString(DBL_MAX, "%f"), "1797693134862315708145274237317");
  EXPECT_EQ(C::r8ToString(-1e30, "%.0f"), "-100000000000000001988462483865");
  EXPECT_EQ(C::r8ToString(1e30, "%.0f"), "1000000000000000019884624838656");
  EXPECT_EQ(C::r4ToString(2.5f, "value, as it was measured: %.1f mm"),
            "value, as it was measured: 2.5 ");
}

TEST(RealConversions, WriteTheTextOfAFormatWithoutConversion) {
  const std::pair<const char*, const char*> rows[] = {
      {"abc", "abc"},
      {"%%", "%"},
      {"100%%", "100%"},
      {"%%f", "%f"},
      {" ", " "},
      {"a text of more than thirty-one characters", "a text of more than thirty-one "}};
  for (const auto& row : rows) {
    EXPECT_EQ(C::r8ToString(1.25, row.first), row.second);
    EXPECT_EQ(C::r4ToString(1.25f, row.first), row.second);
  }
  EXPECT_EQ(C::r8ToString(HUGE_VAL, "abc"), "INF");
}

TEST(RealConversions, UseTheDefaultForAnUnfitFormat) {
  for (const char* const format :
       {"", "%", "100%", "%%%", "%s", "%n", "%d", "%Lf", "%*f", "%.*f", "%f%n", "%f %f", "%f%s",
        "%1$f", "%hf", "%llf", "%.2147483647f", "%99999f", "%.f%"}) {
    EXPECT_EQ(C::r8ToString(1.25, format), "1.25") << format;
    EXPECT_EQ(C::r4ToString(1.25f, format), "1.25") << format;
  }
}

TEST(RealConversions, ReadSpecialSpellings) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const char* const text : {"NaN", "1.#QNAN", "-NAN", "nan", "NAN", "-nan", "nan(1)"}) {
    EXPECT_TRUE(std::isnan(C::r8FromString(text, ws_none))) << text;
    EXPECT_TRUE(std::isnan(C::r4FromString(text, ws_none))) << text;
  }
  const std::pair<std::string, double> rows[] = {
      // clang-format off
      {"INF", infinity}, {"-INF", -infinity}, {"inf", infinity}, {"+INF", infinity},
      {"-Infinity", -infinity}, {"1e999", infinity}, {"-1e999", -infinity}, {"1e-999", 0},
      {"0x1.8p1", 3}, {"-0X10", -16}, {"+1.5", 1.5}, {" \v1.5", 1.5}, {".5", 0.5}, {"5.", 5},
      {"-.5e1", -5}, {"4.9e-324", 5e-324}, {std::string("1.5\0x", 5), 1.5},
      {std::string("\0x", 2), 0}, {std::string("INF\0", 4), infinity},
      // clang-format on
  };
  for (const auto& row : rows) {
    EXPECT_EQ(C::r8FromString(row.first, ws_none), row.second) << row.first;
    EXPECT_EQ(C::r4FromString(row.first, ws_none), static_cast<float>(row.second)) << row.first;
  }
  EXPECT_EQ(C::r8FromString("\t1.5 \n", ws_collapse), 1.5);
  EXPECT_TRUE(std::signbit(C::r8FromString("-0", ws_none)));
}

TEST(RealConversions, RefuseWhatStrtodDoes) {
  for (const std::string text :
       {"", " ", "1.5 ", "1,5", "1.#INF", "-", ".", "1e", "--1", "1.2.3", "NaN ", "e5", "1e5f"}) {
    EXPECT_QV_THROW(C::r8FromString(text, ws_none), CQvInvalidValueException,
                    "The value [" + text + "] can not be converted to a r8");
    EXPECT_QV_THROW(C::r4FromString(text, ws_none), CQvInvalidValueException,
                    "The value [" + text + "] can not be converted to a r4");
  }
  EXPECT_QV_THROW(C::r8FromString(" 1\t 2 ", ws_collapse), CQvInvalidValueException,
                  "The value [1 2] can not be converted to a r8");
}

TEST(RealConversions, ReadAsStrtod) {
  for (const double value : SampleReals()) {
    for (const char* const format : {"%.17g", "%.16g", "%.7g", "%.9f", "%a", "%.3e", "%.30g"}) {
      char text[64];
      std::snprintf(text, sizeof text, format, value);
      const double expected = std::strtod(text, nullptr);
      ASSERT_EQ(BitsOf(C::r8FromString(text, ws_none)), BitsOf(expected)) << text;
      // Through the double on purpose, which strtof would not do.
      ASSERT_EQ(BitsOf(C::r4FromString(text, ws_none)), BitsOf(static_cast<float>(expected)))
          << text;
    }
  }
  // Beside the last integer up to which all are doubles, and the last exact power of ten.
  for (const char* const text : {"9007199254740991e22", "9007199254740993", "0.9007199254740993e-6",
                                 "9007199254740992e23", "0.000000000009007199254740991e3"}) {
    EXPECT_EQ(BitsOf(C::r8FromString(text, ws_none)), BitsOf(std::strtod(text, nullptr))) << text;
  }
  // Halfway between two floats but for a digit that a double has no room for.
  EXPECT_EQ(C::r4FromString("1.00000005960464477540", ws_none), 1.0f);
  EXPECT_EQ(C::r4FromString("1e39", ws_none), std::numeric_limits<float>::infinity());
  EXPECT_EQ(C::r8FromString("0." + std::string(100000, '0') + "1", ws_none), 0);
  EXPECT_EQ(C::r8FromString(std::string(100, '9') + "e-100", ws_none), 1);
}

TEST(NumberConversions, IgnoreTheLocale) {
  const qv_test::CTestLocale locale("de_DE", "ISO-8859-1");
  if (!locale.IsAvailable()) GTEST_SKIP() << "the locale sources are not installed";
  ASSERT_EQ(Printed("%.1f", 1.5), "1,5");
  EXPECT_EQ(C::r8ToString(1.5), "1.5");
  EXPECT_EQ(C::r8ToString(1234.5, "%'.2f"), "1234.50");
  EXPECT_EQ(C::r8FromString("1.5", ws_none), 1.5);
  EXPECT_EQ(C::r8FromString("0x1.8", ws_none), 1.5);
  EXPECT_THROW(C::r8FromString("1,5", ws_none), CQvInvalidValueException);
  EXPECT_THROW(C::i4FromString("\xA0", ws_none), CQvInvalidValueException);
}

TEST(BooleanConversions, ReadAnyCase) {
  EXPECT_EQ(C::booleanToString(true), "true");
  EXPECT_EQ(C::booleanToString(false), "false");
  for (const char* const text : {"true", "TRUE", "tRuE", "1", " True\t"}) {
    EXPECT_TRUE(C::booleanFromString(text, ws_collapse)) << text;
  }
  for (const char* const text : {"false", "FALSE", "0", "\r\nFalse "}) {
    EXPECT_FALSE(C::booleanFromString(text, ws_collapse)) << text;
  }
  EXPECT_TRUE(C::booleanFromString(std::string("true\0x", 6), ws_none));
  for (const std::string text : {"", "yes", "truex", "tru", " 1 1 ", "01", "\x14rue"}) {
    EXPECT_QV_THROW(C::booleanFromString(text, ws_collapse), CQvInvalidValueException,
                    "A Boolean Value read from an XML document was invalid [" + text +
                        "]. Valid values are 'true', 'false', '1', or '0'");
  }
  EXPECT_THROW(C::booleanFromString("true ", ws_none), CQvInvalidValueException);
}

TEST(CharConversions, TakeOneByte) {
  EXPECT_EQ(C::charToString('x'), "x");
  EXPECT_EQ(C::charToString('\0'), std::string(1, '\0'));
  EXPECT_EQ(C::charFromString(" x ", ws_collapse), 'x');
  EXPECT_EQ(C::charFromString("\r\n", ws_preserve), '\n');
  EXPECT_EQ(C::charFromString("\xE9", ws_none), '\xE9');
  for (const std::string text : {"", "ab", " a", "\xC3\xA9"}) {
    EXPECT_QV_THROW(C::charFromString(text, ws_none), CQvInvalidValueException,
                    "The value [" + text +
                        "] can not be a char as it is either empty of greater than 1 char long");
  }
}

TEST(StringConversions, ApplyTheRule) {
  const std::string text(" a\r\n\0 b ", 8);
  EXPECT_EQ(C::stringToString(text), text);
  EXPECT_EQ(C::stringFromString(text, ws_none), text);
  EXPECT_EQ(C::stringFromString(text, ws_preserve), std::string(" a\n\0 b ", 7));
  EXPECT_EQ(C::stringFromString(text, ws_collapse), std::string("a \0 b", 5));
}
