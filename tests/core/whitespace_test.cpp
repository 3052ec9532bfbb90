#include "qvxml/core/whitespace.h"

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

using namespace QvXmlLib16;
using Rules = CWhitespaceUtils;

TEST(CWhitespaceUtils, AppliesEachRule) {
  const struct {
    std::string text, preserved, replaced, collapsed;
  } rows[] = {
      // clang-format off
      {"", "", "", ""}, {"abc", "abc", "abc", "abc"}, {"   ", "   ", "   ", ""},
      {"\r", "\n", " ", ""}, {"\r\n", "\n", " ", ""}, {"\n\r", "\n\n", "  ", ""},
      {"\r\r\n\n", "\n\n\n", "   ", ""}, {"a\r\nb\rc", "a\nb\nc", "a b c", "a b c"},
      {"a\tb\nc", "a\tb\nc", "a b c", "a b c"},
      {"  a \r\n\t b  ", "  a \n\t b  ", "  a    b  ", "a b"}, {" a b ", " a b ", " a b ", "a b"},
      {"a  b", "a  b", "a  b", "a b"}, {"a\r", "a\n", "a ", "a"},
      // Nothing else is whitespace, and other bytes pass.
      {"\v\f\xC2\xA0", "\v\f\xC2\xA0", "\v\f\xC2\xA0", "\v\f\xC2\xA0"},
      {std::string(" \0 \0\t", 5), std::string(" \0 \0\t", 5), std::string(" \0 \0 ", 5),
       std::string("\0 \0", 3)},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(Rules::Preserve(row.text.data(), static_cast<int>(row.text.size())), row.preserved);
    EXPECT_EQ(Rules::ApplyRule(Rules::ws_none, row.text), row.text);
    EXPECT_EQ(Rules::ApplyRule(Rules::ws_preserve, row.text), row.preserved);
    EXPECT_EQ(Rules::ApplyRule(Rules::ws_replace, row.text), row.replaced);
    EXPECT_EQ(Rules::ApplyRule(Rules::ws_collapse, row.text), row.collapsed);
  }
}

TEST(CWhitespaceUtils, PreservesOnlyTheGivenLength) {
  EXPECT_EQ(Rules::Preserve("a\r\nb", 2), "a\n");
  EXPECT_EQ(Rules::Preserve("abc", -1), "");
  EXPECT_EQ(Rules::Preserve(nullptr, 3), "");
}

TEST(CWhitespaceUtils, RefusesAnUnknownRule) {
  for (const int rule : {-1, 4}) {
    EXPECT_QV_THROW(Rules::ApplyRule(static_cast<Rules::WhitespaceRule>(rule), "a"), CQvException,
                    "Unknown WhitespaceRule");
  }
}

TEST(CWhitespaceUtils, KnowsFourCharacters) {
  std::string found;
  for (int c = -128; c < 128; ++c) {
    if (Rules::IsWhiteSpace(static_cast<char>(c))) found += static_cast<char>(c);
  }
  EXPECT_EQ(found, "\t\n\r ");
}
