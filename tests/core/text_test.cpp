#include "qvxml/core/text.h"

#include <climits>

#include <gtest/gtest.h>

using namespace QvXmlLib16;

TEST(PadZero, PadsAsPrintf) {
  const int values[] = {0, 7, -7, 12345, INT_MAX, INT_MIN};
  for (const int value : values) {
    for (int width = 0; width <= 255; ++width) {
      char expected[257];
      std::snprintf(expected, sizeof expected, "%0*d", width, value);
      ASSERT_EQ(PadZero(value, static_cast<unsigned char>(width)), expected) << width;
    }
  }
}

TEST(TrimTrainingZeros, KeepsTheFirstCharacter) {
  EXPECT_EQ(TrimTrainingZeros(""), "");
  EXPECT_EQ(TrimTrainingZeros("000"), "0");
  EXPECT_EQ(TrimTrainingZeros("0500"), "05");
  EXPECT_EQ(TrimTrainingZeros("005"), "005");
}

TEST(ToFracString, EndsWithTheLastPartThatIsNotZero) {
  const struct {
    unsigned short milli, micro, nano;
    const char* expected;
  } rows[] = {
      // clang-format off
      {0, 0, 0, ""}, {500, 0, 0, ".5"}, {1, 0, 0, ".001"}, {0, 40, 0, ".00004"},
      {1, 2, 3, ".001002003"}, {0, 0, 100, ".0000001"}, {10, 0, 10, ".01000001"},
      {65535, 0, 0, ".65535"},
      // clang-format on
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ToFracString(row.milli, row.micro, row.nano), row.expected);
  }
}

TEST(FindReplace, StartsAgainAtTheBeginning) {
  const std::string rows[][4] = {
      // clang-format off
      {"", "a", "b", ""}, {"abc", "", "x", "abc"}, {"abc", "d", "x", "abc"},
      {"abcabc", "b", "", "acac"}, {"abcabc", "abc", "X", "XX"}, {"aab", "ab", "b", "b"},
      {"aaabbb", "ab", "", ""}, {"a aab ab", "ab", "b", "a b b"}, {"aab", "ab", "bcc", "bcccc"},
      {"1    2", "  ", " ", "1 2"}, {"bbba", "ba", "ab", "abbb"}, {"aaa", "aa", "b", "ba"},
      // A replacement that holds the search text is not searched again.
      {"a.b.", ".", "\\.", "a\\.b\\."}, {"aaa", "aa", "aaa", "aaaa"}, {"aa", "a", "a", "aa"},
      // clang-format on
  };
  const auto widen = [](const std::string& text) { return std::wstring(text.begin(), text.end()); };
  for (const auto& [start, search, replacement, expected] : rows) {
    std::string text = start;
    FindReplace(text, search, replacement);
    EXPECT_EQ(text, expected) << start << "/" << search;
    std::wstring wide = widen(start);
    FindReplace(wide, widen(search), widen(replacement));
    EXPECT_EQ(wide, widen(expected));
  }
}

TEST(FindReplace, StaysLinear) {
  std::string text(2000000, ' ');
  FindReplace(text, " ", "0");
  EXPECT_EQ(text, std::string(2000000, '0'));
  FindReplace(text, "00", "0");
  EXPECT_EQ(text, "0");
}

TEST(StrUpr, ChangesAsciiLettersOnly) {
  char text[] = "az AZ `{ 09 \xC3\xA9";
  EXPECT_EQ(strupr(text), text);
  EXPECT_STREQ(text, "AZ AZ `{ 09 \xC3\xA9");
  EXPECT_EQ(strupr(nullptr), nullptr);
}

TEST(FileLength, KeepsThePosition) {
  FILE* const file = std::tmpfile();
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(_filelength(file), 0);
  std::fputs("0123456789", file);
  std::fseek(file, 4, SEEK_SET);
  EXPECT_EQ(_filelength(file), 10);
  EXPECT_EQ(std::fgetc(file), '4');
  std::fclose(file);
  FILE* const pipe = popen("true", "r");
  ASSERT_NE(pipe, nullptr);
  EXPECT_EQ(_filelength(pipe), -1);
  pclose(pipe);
  EXPECT_EQ(_filelength(nullptr), -1);
}
