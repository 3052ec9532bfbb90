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
  const char* pattern;
  std::string value;
  bool matches;
};

}  // namespace

TEST(TestRegEx, MatchesTheWholeValueAsXsdPatternsDo) {
  const CMatchRow rows[] = {
      // clang-format off
      {"[a-z]+", "abc", true}, {"[a-z]+", "abc1", false}, {"[a-z]+", "1abc", false}, {"[a-z]+", "abc\n", false},
      {"a|bc", "bcd", false}, {"", "", true}, {"", "a", false}, {"\\i\\c*", "x:y-1", true},
      {"\\i\\c*", "1x", false}, {"\\i\\c*", "\xC3\xA9t\xC3\xA9", true}, {"\\i", ":", true}, {"\\I", "7", true},
      {"\\I", "a", false}, {"\\c+", "a.b-c:d_9", true}, {"\\C+", " /", true}, {"\\C", "-", false},
      {"\\\\i", "\\i", true}, {"\\\\\\i", "\\a", true}, {"\\p{IsBasicLatin}+", "aZ~\x7F", true},
      {"\\p{IsBasicLatin}", "\xC3\xA9", false}, {"\\p{IsLatin-1Supplement}+", "\xC2\x80\xC3\xBF", true},
      {"\\p{IsLatin-1Supplement}", "\xC4\x80", false}, {"\\p{IsLatinExtended-A}+", "\xC4\x80\xC5\xBF", true},
      {"\\p{IsLatinExtended-A}", "\xC6\x80", false}, {"\\p{Lu}\\p{Ll}*", "\xC3\x89t\xC3\xA9", true},
      {".", "\xE2\x82\xAC", true}, {"\\d", "\xD9\xA3", true}, {"a.b", "a\rb", false}, {"a.b", "a\nb", false},
      {"a.b", "a\xE2\x80\xA8" "b", true}, {"a.b", std::string("a\0b", 3), true},
      {"a", std::string("a\0b", 3), false}, {"a^b", "a^b", false}, {"\\d{3}-\\d{2}", "123-45", true},
      {"\\d{3}-\\d{2}", "12-45", false}, {"[a-z]*", std::string(2000000, 'x'), true},
      {"[a-z]*", std::string(2000000, 'x') + "1", false}, {"\\i\\c*", std::string(5000, 'x') + " ", false},
      // clang-format on
  };
  for (const CMatchRow& row : rows) {
    SCOPED_TRACE(row.pattern);
    EXPECT_EQ(Outcome(row.value, row.pattern), row.matches ? "true" : "false");
  }
}

TEST(TestRegEx, ReportsAFaultyPatternAsPassed) {
  struct CRow {
    std::string pattern;
    const char* message;
  };
  const CRow rows[] = {
      // clang-format off
      {"[a-z", "Invalid Regular Expression: [a-z Error: 'missing terminating ] for character class'"},
      {"\\i(", "Invalid Regular Expression: \\i( Error: 'missing )'"},
      {"a**", "Invalid Regular Expression: a** Error: 'nothing to repeat'"},
      {"\\p{IsLatinExtended-B}", "Invalid Regular Expression: \\p{IsLatinExtended-B} Error: 'range out of order in character class'"},
      {"\\p{IsNowhere}", "Invalid Regular Expression: \\p{IsNowhere} Error: 'unknown property name after \\P or \\p'"},
      {"\xFF", "Invalid Regular Expression: \xFF Error: 'invalid UTF-8 string'"},
      // Were the NUL the end, this would match every text that begins with "a".
      {std::string("a)\0b", 4), "Invalid Regular Expression: a) Error: 'the pattern contains a NUL'"},
      // clang-format on
  };
  for (const CRow& row : rows)
    EXPECT_QV_THROW(TestRegEx("a", row.pattern), CQvException, row.message);
}

TEST(TestRegEx, RefusesAValueThatIsNotUtf8) {
  EXPECT_QV_THROW(TestRegEx("a\xFF", ".*"), CQvException,
                  "Invalid Regular Expression: .* Error: 'the value is not UTF-8'");
}

TEST(TestRegEx, EndsExponentialMatchingInAnException) {
  EXPECT_EQ(Outcome(Repeat("a", 30) + "b", "(a+)+"),
            "Invalid Regular Expression: (a+)+ Error: 'match limit of 1000000 steps exceeded'");
  for (int length : {100, 30000, 1000000}) {
    const std::string outcome = Outcome(Repeat("a", length) + "b", "(a+)+");
    EXPECT_NE(outcome.find("Error: 'match limit of "), std::string::npos) << length << outcome;
  }
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
