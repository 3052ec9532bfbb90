#include "qvxml/core/locale_text.h"

#include <atomic>
#include <cwchar>
#include <random>
#include <thread>

#include "tests/support/test_locale.h"
#include <gtest/gtest.h>

#include "qvxml/core/text.h"

using namespace QvXmlLib16;

namespace {

// One mbrtowc call after another in a UTF-8 locale, as LocalCodePageToUtf8 is described.
std::string DecodedByLibrary(const std::string& text) {
  const CInvariantLocaleScope locale;
  std::string result;
  for (size_t i = 0; i < text.size();) {
    std::mbstate_t state{};
    wchar_t character = 0;
    size_t used = std::mbrtowc(&character, text.data() + i, text.size() - i, &state);
    if (used > text.size() || character > 0x10FFFF) {
      result += '?';
      used = 1;
    } else {
      used = std::max<size_t>(used, 1);
      result.append(text, i, used);
    }
    i += used;
  }
  return result;
}

std::string ToUtf8(const std::string& text) {
  return LocalCodePageToUtf8(text.data(), text.size());
}
std::string FromUtf8(const std::string& text) {
  return Utf8ToLocalCodePage(text.data(), text.size());
}

}  // namespace

TEST(LocaleText, PassesUtf8AndMarksBadBytes) {
  const std::pair<std::string, std::string> rows[] = {
      // clang-format off
      {"", ""}, {"plain ASCII, longer than a block", "plain ASCII, longer than a block"},
      {"\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E", "\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E"},
      {std::string("a\0b", 3), std::string("a\0b", 3)}, {"a\xFF" "b", "a?b"}, {"\xE9t\xE9", "?t?"},
      {"\xC0\x80", "??"}, {"\xED\xA0\x80", "???"}, {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
      {"\xF4\x90\x80\x80", "????"}, {"x\xE2\x82", "x??"}, {"\xE2\x82x", "??x"},
      // clang-format on
  };
  for (const char* const locale : {"C", "C.UTF-8"}) {
    ASSERT_NE(std::setlocale(LC_ALL, locale), nullptr);
    for (const auto& row : rows) {
      EXPECT_EQ(ToUtf8(row.first), row.second);
      EXPECT_EQ(FromUtf8(row.first), row.second);
    }
    EXPECT_EQ(LocalCodePageToUtf8(nullptr, 0), "");
    EXPECT_EQ(Utf8ToLocalCodePage(nullptr, 0), "");
    std::setlocale(LC_ALL, "C");
  }
}

TEST(LocaleText, DecodesAsTheLibraryDoes) {
  std::mt19937 random(1);
  const std::string bytes("a\x7F\x80\x9F\xA0\xBF\xC1\xC2\xE0\xE2\xED\xEF\xF0\xF4\xF5\xFF\0", 17);
  for (int i = 0; i < 50000; ++i) {
    std::string text(random() % 12, '\0');
    for (char& byte : text) byte = bytes[random() % bytes.size()];
    ASSERT_EQ(ToUtf8(text), DecodedByLibrary(text)) << testing::PrintToString(text);
  }
}

TEST(LocaleText, EncodesWideStrings) {
  EXPECT_EQ(UnicodeToMultiByte(L""), "");
  EXPECT_EQ(UnicodeToMultiByte(nullptr), "");
  EXPECT_EQ(UnicodeToMultiByte(L"a\u00E9\u20AC\U0001D11E"),
            "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E");
  const wchar_t bad[] = {L'a', 0xD800, 0xDFFF, 0x110000, -1, L'b', 0};
  EXPECT_EQ(UnicodeToMultiByte(bad), "a????b");
}

TEST(LocaleText, ConvertsASingleByteLocale) {
  const qv_test::CTestLocale locale("de_DE", "ISO-8859-1");
  if (!locale.IsAvailable()) GTEST_SKIP() << "the locale sources are not installed";
  EXPECT_EQ(ToUtf8("gr\xFC\xDF!"), "gr\xC3\xBC\xC3\x9F!");
  EXPECT_EQ(ToUtf8(std::string("\0\xE9", 2)), std::string("\0\xC3\xA9", 3));
  EXPECT_EQ(FromUtf8("\xE2\x82\xAC\xC3\xA9\xFFx"), "?\xE9?x");
  EXPECT_EQ(UnicodeToMultiByte(L"\u00E9\u20ACx"), "\xE9?x");
}

TEST(LocaleText, ConvertsAMultiByteLocale) {
  const qv_test::CTestLocale locale("ja_JP", "EUC-JP");
  if (!locale.IsAvailable()) GTEST_SKIP() << "the locale sources are not installed";
  EXPECT_EQ(ToUtf8("\xC6\xFC\xCB\xDC"), "\xE6\x97\xA5\xE6\x9C\xAC");
  EXPECT_EQ(ToUtf8("\xC6\xFC\xCB"), "\xE6\x97\xA5?");
  EXPECT_EQ(ToUtf8("\xFF\xC6\xFC"), "?\xE6\x97\xA5");
  EXPECT_EQ(FromUtf8("\xE6\x97\xA5\xE6\x9C\xAC"), "\xC6\xFC\xCB\xDC");
}

TEST(LocaleText, LeavesTheLocaleAsItWas) {
  const locale_t before = uselocale(static_cast<locale_t>(nullptr));
  {
    const CInvariantLocaleScope outer;
    const CTextLocaleScope inner;
    EXPECT_NE(uselocale(static_cast<locale_t>(nullptr)), before);
  }
  EXPECT_EQ(uselocale(static_cast<locale_t>(nullptr)), before);
}

TEST(LocaleText, SurvivesAThreadThatSwitchesLocales) {
  const qv_test::CTestLocale locale("de_DE", "ISO-8859-1");
  if (!locale.IsAvailable()) GTEST_SKIP() << "the locale sources are not installed";
  const std::string name = std::setlocale(LC_ALL, nullptr);
  const std::string text = "\xC3\xA9";
  // Looks for C.UTF-8, once for the process, while LOCPATH does not hide it.
  { const CInvariantLocaleScope made; }
  setenv("LOCPATH", locale.GetFolder(), 1);
  std::atomic<bool> isDone{false};
  std::atomic<bool> hasSwitched{true};
  std::thread switcher([&] {
    while (!isDone) {
      std::setlocale(LC_CTYPE, "C");
      if (std::setlocale(LC_CTYPE, name.c_str()) == nullptr) hasSwitched = false;
    }
  });
  for (int i = 0; i < 20000; ++i) {
    const std::string converted = ToUtf8(text);
    // As UTF-8, or as two characters of Latin-1; never a mixture.
    if (converted != text && converted != "\xC3\x83\xC2\xA9") ADD_FAILURE() << converted;
  }
  isDone = true;
  switcher.join();
  unsetenv("LOCPATH");
  EXPECT_TRUE(hasSwitched);
}
