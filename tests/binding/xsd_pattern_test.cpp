#include "qvxml/binding/xsd_pattern.h"

#include <string>

#include "tests/support/qv_gtest.h"
#include "tests/support/small_stack.h"
#include <gtest/gtest.h>

using QvXmlLib16::CPatternLimits;
using QvXmlLib16::TestRegEx;

namespace {

std::string Repeat(const std::string& text, int count) {
  std::string result;
  while (count-- > 0) result += text;
  return result;
}

// "true", "false" or what was thrown.
std::string Outcome(const std::string& value, const std::string& pattern) {
  try {
    return TestRegEx(value, pattern) ? "true" : "false";
  } catch (const QvXmlLib16::CQvException& exception) {
    return exception.GetMessage();
  }
}

class CLimitsRestored {
 public:
  ~CLimitsRestored() {
    CPatternLimits::SetMaxSteps(CPatternLimits::kDefaultSteps);
    CPatternLimits::SetMaxMemory(CPatternLimits::kDefaultMemory);
    CPatternLimits::SetMaxWork(CPatternLimits::kDefaultWork);
  }
};

struct CMatchRow {
  const char *name, *pattern;
  std::string value;
  bool matches;
};

}  // namespace

TEST(TestRegEx, MatchesTheWholeValueAsXsdPatternsDo) {
  const CMatchRow rows[] = {
      // clang-format off
      {"whole value", "[a-z]+", "abc", true}, {"not a prefix", "[a-z]+", "abc1", false},
      {"not a suffix", "[a-z]+", "1abc", false},
      {"no line feed after the end", "[a-z]+", "abc\n", false},
      {"alternatives are anchored together", "a|bc", "bcd", false},
      {"empty pattern, empty value", "", "", true}, {"empty pattern, other value", "", "a", false},
      {"name", "\\i\\c*", "x:y-1", true}, {"name begins with a letter", "\\i\\c*", "1x", false},
      {"name begins with a letter beyond ASCII", "\\i\\c*", "\xC3\xA9t\xC3\xA9", true},
      {"a colon begins a name", "\\i", ":", true}, {"no name start: digit", "\\I", "7", true},
      {"no name start: letter", "\\I", "a", false}, {"name characters", "\\c+", "a.b-c:d_9", true},
      {"no name character", "\\C+", " /", true}, {"no name character: dash", "\\C", "-", false},
      {"escaped backslash before i", "\\\\i", "\\i", true},
      {"escaped backslash, then the escape", "\\\\\\i", "\\a", true},
      {"ASCII block", "\\p{IsBasicLatin}+", "aZ~\x7F", true},
      {"ASCII block and a Latin-1 letter", "\\p{IsBasicLatin}", "\xC3\xA9", false},
      {"Latin-1 block", "\\p{IsLatin-1Supplement}+", "\xC2\x80\xC3\xBF", true},
      {"Latin-1 block and a later letter", "\\p{IsLatin-1Supplement}", "\xC4\x80", false},
      {"Latin Extended-A", "\\p{IsLatinExtended-A}+", "\xC4\x80\xC5\xBF", true},
      {"Latin Extended-A and a later letter", "\\p{IsLatinExtended-A}", "\xC6\x80", false},
      {"category", "\\p{Lu}\\p{Ll}*", "\xC3\x89t\xC3\xA9", true},
      {"one character is not one byte", ".", "\xE2\x82\xAC", true},
      {"digits of every script", "\\d", "\xD9\xA3", true},
      {"the dot excludes CR", "a.b", "a\rb", false}, {"the dot excludes LF", "a.b", "a\nb", false},
      {"the dot takes a line separator", "a.b", "a\xE2\x80\xA8" "b", true},
      {"NUL in the value", "a.b", std::string("a\0b", 3), true},
      {"NUL does not end the value", "a", std::string("a\0b", 3), false},
      {"an anchor stays an anchor", "a^b", "a^b", false},
      {"several digits groups", "\\d{3}-\\d{2}", "123-45", true},
      {"too few digits", "\\d{3}-\\d{2}", "12-45", false},
      {"a long value that steps once", "[a-z]*", std::string(2000000, 'x'), true},
      {"a long value that does not match", "[a-z]*", std::string(2000000, 'x') + "1", false},
      {"longer than the quick trial", "\\i\\c*", std::string(5000, 'x') + " ", false},
      // clang-format on
  };
  for (const CMatchRow& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Outcome(row.value, row.pattern), row.matches ? "true" : "false");
  }
}

TEST(TestRegEx, ReportsAFaultyPatternAsPassed) {
  struct CRow {
    std::string pattern;
    const char* message;
  };
  const CRow rows[] = {
      {"[a-z",
       "Invalid Regular Expression: [a-z Error: 'missing terminating ] for character class'"},
      {"\\i(", "Invalid Regular Expression: \\i( Error: 'missing )'"},
      {"a**", "Invalid Regular Expression: a** Error: 'nothing to repeat'"},
      {"\\p{IsLatinExtended-B}",
       "Invalid Regular Expression: \\p{IsLatinExtended-B} Error: 'range out of order in character "
       "class'"},
      {"\\p{IsNowhere}",
       "Invalid Regular Expression: \\p{IsNowhere} Error: 'unknown property name after \\P or \\p'"},
      {"\xFF", "Invalid Regular Expression: \xFF Error: 'invalid UTF-8 string'"},
      // Were the NUL the end, this would match every text that begins with "a".
      {std::string("a)\0b", 4),
       "Invalid Regular Expression: a) Error: 'the pattern contains a NUL'"},
  };
  for (const CRow& row : rows)
    EXPECT_QV_THROW(TestRegEx("a", row.pattern), CQvException, row.message);
}

TEST(TestRegEx, RefusesAValueThatIsNotUtf8) {
  EXPECT_QV_THROW(TestRegEx("a\xFF", ".*"), CQvException,
                  "Invalid Regular Expression: .* Error: 'the value is not UTF-8'");
}

TEST(TestRegEx, EndsExponentialMatchingInAnException) {
  const std::string stepLimit =
      "Invalid Regular Expression: (a+)+ Error: 'match limit of 1000000 steps exceeded'";
  EXPECT_EQ(Outcome(Repeat("a", 30) + "b", "(a+)+"), stepLimit);
  for (int length : {30, 100, 1000, 30000, 1000000}) {
    SCOPED_TRACE(length);
    const std::string value = Repeat("a", length) + "b";
    const std::string outcome = Outcome(value, "(a+)+");
    EXPECT_EQ(outcome.rfind("Invalid Regular Expression: (a+)+ Error: 'match limit of ", 0), 0u)
        << outcome;
  }
  // Short enough to be decided.
  EXPECT_FALSE(TestRegEx(Repeat("a", 12) + "b", "(a+)+"));
}

TEST(TestRegEx, EndsQuadraticMatchingOnLongValues) {
  // Each turn of the group scans the rest of the value.
  const std::string letters(1000000, 'a');
  EXPECT_TRUE(TestRegEx(letters, "(\\w*z|\\w)*"));
  EXPECT_EQ(Outcome(letters + " ", "(\\w*z|\\w)*"),
            "Invalid Regular Expression: (\\w*z|\\w)* Error: 'match limit of 399 steps exceeded'");
  EXPECT_TRUE(TestRegEx(letters.substr(0, 3000), "(\\w*z|\\w)*"));
  EXPECT_FALSE(TestRegEx(letters.substr(0, 3000) + " ", "(\\w*z|\\w)*"));
}

TEST(TestRegEx, NeedsLittleStack) {
  qv_test::RunOnSmallStack([] {
    const std::string letters(10000000, 'a');
    EXPECT_EQ(Outcome(letters, "\\i\\c*"), "true");
    EXPECT_EQ(Outcome(letters + " ", "\\i\\c*"),
              "Invalid Regular Expression: \\i\\c* Error: 'match limit of 100 steps exceeded'");
    EXPECT_EQ(Outcome(letters.substr(0, 10000) + " ", "\\i\\c*"), "false");

    const std::string deep = Repeat("(", 100) + "a" + Repeat(")", 100);
    EXPECT_EQ(Outcome("a", deep), "true");
    const std::string tooDeep = Repeat("(", 248) + "a" + Repeat(")", 248);
    EXPECT_EQ(Outcome("a", tooDeep), "Invalid Regular Expression: " + tooDeep +
                                         " Error: 'the thread has too little stack left'");
    // No assertion, recursion or verb reaches the matcher that recurses without a limit.
    EXPECT_NE(Outcome(letters.substr(0, 100000) + "b", "(a(?2)?b)"), "true");
  });
  const std::string open = Repeat("(", 100000);
  EXPECT_EQ(Outcome("a", open),
            "Invalid Regular Expression: " + open + " Error: 'parentheses are too deeply nested'");
}

TEST(TestRegEx, RefusesAnOverlongPattern) {
  const std::string pattern = "[" + Repeat("ab", 600000) + "]";
  EXPECT_QV_THROW(TestRegEx("a", pattern), CQvException,
                  "Invalid Regular Expression: " + pattern + " Error: 'the pattern is too long'");
}

TEST(CPatternLimits, TakeEffectAtTheNextCall) {
  const CLimitsRestored restored;
  const std::string value = Repeat("a", 14) + "b";
  EXPECT_FALSE(TestRegEx(value, "(a+)+"));
  CPatternLimits::SetMaxSteps(500);
  EXPECT_EQ(Outcome(value, "(a+)+"),
            "Invalid Regular Expression: (a+)+ Error: 'match limit of 500 steps exceeded'");
  CPatternLimits::SetMaxSteps(CPatternLimits::kDefaultSteps);

  // The breadth-first matcher does not know back references.
  const std::string doubled = "\\i\\c*(b)\\4";
  EXPECT_TRUE(TestRegEx(Repeat("a", 8000) + "bb", doubled));
  CPatternLimits::SetMaxMemory(0);
  EXPECT_EQ(CPatternLimits::GetMaxMemory(), 32768u);
  EXPECT_EQ(
      Outcome(Repeat("a", 8000) + "bb", doubled),
      "Invalid Regular Expression: \\i\\c*(b)\\4 Error: 'match limit of 32768 bytes of memory "
      "exceeded'");
  CPatternLimits::SetMaxMemory(CPatternLimits::kDefaultMemory);

  // The breadth-first matcher, too, ends at the length that the work allows.
  const std::string letters(200000, 'a');
  CPatternLimits::SetMaxWork(25 * 200001);
  EXPECT_TRUE(TestRegEx(letters, "\\i\\c*"));
  CPatternLimits::SetMaxWork(25 * 200001 - 1);
  EXPECT_EQ(Outcome(letters, "\\i\\c*"),
            "Invalid Regular Expression: \\i\\c* Error: 'match limit of 100 steps exceeded'");

  CPatternLimits::SetMaxWork(0);
  EXPECT_EQ(Outcome(value, "(a+)+"),
            "Invalid Regular Expression: (a+)+ Error: 'match limit of 100 steps exceeded'");
}
