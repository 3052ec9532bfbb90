#include "qvxml/fastinfoset/fi_vocabulary.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

using namespace QvXmlLib16;

namespace {

std::vector<std::string> TextsOf(const CFIVocabulary::CFIStringTable& table) {
  return std::vector<std::string>(table.begin(), table.end());
}

unsigned PrefixIndex(const CFIVocabulary& vocabulary, const std::string& prefix) {
  unsigned index = 99;
  return vocabulary.FindPrefixNameIndex(prefix, index) ? index : 0;
}

}  // namespace

TEST(CFIVocabulary, NumbersPrefixesByTheFirstOfEqualOnes) {
  CFIVocabulary vocabulary;
  unsigned index = 0;
  EXPECT_TRUE(vocabulary.FindNamespaceNameIndex("http://www.w3.org/XML/1998/namespace", index));
  EXPECT_EQ(index, 1u);
  for (const char* prefix : {"a", "a", "b"}) vocabulary.AddPrefixName(prefix);
  EXPECT_EQ(PrefixIndex(vocabulary, "xml"), 1u);
  EXPECT_EQ(PrefixIndex(vocabulary, "a"), 2u);
  // One less than the place of its entry.
  EXPECT_EQ(PrefixIndex(vocabulary, "b"), 3u);
  EXPECT_EQ(TextsOf(vocabulary.GetPrefixNamesTable()),
            (std::vector<std::string>{"xml", "a", "a", "b"}));
  // Copies are independent.
  CFIVocabulary copy(vocabulary);
  vocabulary.AddPrefixName("c");
  EXPECT_EQ(PrefixIndex(copy, "b") * 10 + PrefixIndex(copy, "c"), 30u);
  copy = vocabulary;
  EXPECT_EQ(PrefixIndex(copy, "c"), 4u);
}

TEST(CFIVocabulary, AddsNamesWithTheirParts) {
  CFIVocabulary vocabulary;
  vocabulary.AddElement("o", "urn:o", "order");
  vocabulary.AddElement("", "", "line");
  vocabulary.AddElement("o", "urn:o", "order");
  vocabulary.AddAttribute("o", "urn:o", "line");
  EXPECT_EQ(TextsOf(vocabulary.GetPrefixNamesTable()), (std::vector<std::string>{"xml", "o"}));
  EXPECT_EQ(TextsOf(vocabulary.GetLocalNamesTable()), (std::vector<std::string>{"order", "line"}));
  using Names = std::vector<CFIVocabulary::CQNameParts>;
  const auto& elements = vocabulary.GetElementNamesTable();
  const auto& attributes = vocabulary.GetAttributeNamesTable();
  EXPECT_EQ(Names(elements.begin(), elements.end()), (Names{{2, 2, 1}, {0, 0, 2}}));
  EXPECT_EQ(Names(attributes.begin(), attributes.end()), (Names{{2, 2, 2}}));
}

TEST(CFIVocabulary, StopsAtTheLastIndex) {
  constexpr unsigned kMost = 1048576;
  CFIVocabulary vocabulary;
  for (unsigned i = 1; i < kMost; ++i) vocabulary.AddLocalName(std::to_string(i));
  vocabulary.AddElement("", "", "last");
  vocabulary.AddElement("", "", "none");
  unsigned index = 0;
  EXPECT_TRUE(vocabulary.FindLocalNameIndex("last", index));
  EXPECT_EQ(index, kMost);
  EXPECT_FALSE(vocabulary.FindLocalNameIndex("none", index));
  EXPECT_EQ(vocabulary.GetElementNamesTable().GetCount(), 1u);
}
