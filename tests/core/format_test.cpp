#include "qvxml/core/format.h"

#include <cstdarg>
#include <cstdio>

#include "tests/support/test_locale.h"
#include <gtest/gtest.h>

using namespace QvXmlLib16;

namespace {

// FormatString without the compiler's look at the format.
std::string FormatUnchecked(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::string text = FormatV(format, arguments);
  va_end(arguments);
  return text;
}

}  // namespace

TEST(FormatString, WritesAsPrintf) {
  EXPECT_EQ(FormatString("plain"), "plain");
  EXPECT_EQ(FormatString("%s|%-5s|%5s|%.2s", "a", "b", "c", "def"), "a|b    |    c|de");
  EXPECT_EQ(FormatString("%d %5d %-5d| %05d %+d", -1, 42, 42, 42, 42), "-1    42 42   | 00042 +42");
  EXPECT_EQ(FormatString("%ld %lu %llx %#o %X", -9223372036854775807L - 1, 18446744073709551615UL,
                         0xFFFFFFFFFFFFFFFFULL, 8u, 255u),
            "-9223372036854775808 18446744073709551615 ffffffffffffffff 010 FF");
  EXPECT_EQ(FormatString("%*d|%.*f|%e|%g", 4, 7, 2, 1.005, 1e10, 0.0001),
            "   7|1.00|1.000000e+10|0.0001");
  EXPECT_EQ(FormatString("100%%"), "100%");
  EXPECT_EQ(FormatString("%ls", L"\u00E9\u20AC"), "\xC3\xA9\xE2\x82\xAC");
}

TEST(FormatString, KeepsWhatATextBufferWouldLose) {
  const char* null = nullptr;
  EXPECT_EQ(FormatUnchecked("[%s]", null), "[(null)]");
  EXPECT_EQ(FormatString("[%c]", '\0'), std::string("[\0]", 3));
  EXPECT_EQ(FormatString("[%c]", '\xE9'), "[\xE9]");
  EXPECT_EQ(FormatString("[%s]", "\xFF\xFE"), "[\xFF\xFE]");
  for (const size_t length : {510, 511, 512, 513, 100000}) {
    const std::string text(length, 'x');
    EXPECT_EQ(FormatString("%s", text.c_str()), text);
  }
  EXPECT_EQ(FormatString("%f", 1e300).size(), 308u);
}

TEST(FormatString, StoresNothing) {
  for (const char* const format :
       {"a%nb%d", "a%lnb%d", "a%Znb%d", "a%5nb%d", "a%hhnb%d", "a%1$nb%2$d"}) {
    SCOPED_TRACE(format);
    long target = 7;
    EXPECT_EQ(FormatUnchecked(format, &target, 5), "ab5");
    EXPECT_EQ(target, 7);
  }
  EXPECT_EQ(FormatUnchecked("%%n%d", 5), "%n5");
  EXPECT_EQ(FormatUnchecked(nullptr), "");
  // Refused by the C library.
  EXPECT_EQ(FormatUnchecked("%d%", 5), "%d%");
  EXPECT_EQ(FormatUnchecked("%2147483648d", 5), "%2147483648d");
}

TEST(FormatString, IgnoresTheLocale) {
  const qv_test::CTestLocale locale("de_DE", "ISO-8859-1");
  if (!locale.IsAvailable()) GTEST_SKIP() << "the locale sources are not installed";
  char text[16];
  std::snprintf(text, sizeof text, "%.1f", 1.5);
  ASSERT_STREQ(text, "1,5");
  EXPECT_EQ(FormatUnchecked("%.1f %'d", 1.5, 1000000), "1.5 1000000");
}
