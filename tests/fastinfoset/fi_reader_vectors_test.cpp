// Documents of an independent implementation give the tree that the XML reader makes of the XML
// file beside them, and none of them can be cut off unnoticed.

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/qv_gtest.h"
#include "tests/support/xml_dump.h"

#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/format.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;

namespace {

constexpr size_t kVectors = 25;

std::string ReadFile(const std::string& name) {
  std::ifstream file(QVXML_VECTORS "/" + name, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

std::set<std::string> VectorNames() {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(QVXML_VECTORS)) {
    if (entry.path().extension() == ".finf") names.insert(entry.path().stem().string());
  }
  return names;
}

// The vocabulary file: fields separated by tabs.
void FillVocabulary(CFastInfosetContext& context, const std::string& file) {
  CFIVocabulary& vocabulary = context.GetVocabulary();
  std::istringstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    std::vector<std::string> fields;
    std::istringstream rest(line + "\t");
    for (std::string field; std::getline(rest, field, '\t');) fields.push_back(field);
    fields.resize(4);
    const std::string& kind = fields[0];
    if (kind == "uri") context.SetExternalVocabularyURI(fields[1].c_str());
    if (kind == "prefix") vocabulary.AddPrefixName(fields[1]);
    if (kind == "namespace") vocabulary.AddNamespaceName(fields[1]);
    if (kind == "local") vocabulary.AddLocalName(fields[1]);
    if (kind == "value") vocabulary.AddAttributeValue(fields[1]);
    if (kind == "chunk") vocabulary.AddElementValue(fields[1]);
    if (kind == "element") vocabulary.AddElement(fields[1], fields[2], fields[3]);
    if (kind == "attribute") vocabulary.AddAttribute(fields[1], fields[2], fields[3]);
  }
  context.SetUseGeneratedVocabulary(true);
}

class CFastInfosetVectors : public testing::Test {
 protected:
  CFastInfosetVectors() { FillVocabulary(m_context.GetFIContext(), ReadFile("extvocab.vocab")); }

  void Load(CXmlDocument& document, const std::string& content) {
    document.LoadXmlStream(reinterpret_cast<const unsigned char*>(content.data()), content.size());
  }

  CSerializationContext m_context;
};

// Reals are spelt in many ways. The least float has so few digits that only its own type tells that
// they mean the same.
std::string WithCanonicalReals(const std::string& tree) {
  std::string result;
  for (const char* position = tree.c_str(); *position != '\0';) {
    char* end = nullptr;
    const double number = std::strtod(position, &end);
    if (end == position || (position != tree.c_str() && std::isalpha(position[-1]) != 0)) {
      result += *position++;
      continue;
    }
    const float single = static_cast<float>(number);
    const bool isLeast = std::fpclassify(single) == FP_SUBNORMAL;
    result += FormatString("%a", isLeast ? static_cast<double>(single) : number);
    position = end;
  }
  return result;
}

void CollectPaths(const CXmlElement* element, std::string& paths) {
  paths += element->GetXPath() + "\n";
  for (const CXmlAttribute* attribute : element->GetAttributes()) {
    paths += attribute->GetXPath() + "\n";
  }
  for (const auto* child = element->GetFirstElement(); child != nullptr;
       child = child->GetNextSiblingElement()) {
    CollectPaths(child, paths);
  }
}

}  // namespace

TEST_F(CFastInfosetVectors, GiveTheTreesOfTheirXmlFiles) {
  const std::set<std::string> names = VectorNames();
  EXPECT_EQ(names.size(), kVectors);
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    CXmlDocument actual(m_context), expected(m_context);
    Load(actual, ReadFile(name + ".finf"));
    Load(expected, ReadFile(name + ".xml"));
    std::string actualTree = qv_test::Dump(actual.GetDocumentElement());
    std::string expectedTree = qv_test::Dump(expected.GetDocumentElement());
    if (name == "alg-floats") {
      actualTree = WithCanonicalReals(actualTree);
      expectedTree = WithCanonicalReals(expectedTree);
    }
    EXPECT_EQ(actualTree, expectedTree);
    if (actualTree.size() > 10000) continue;
    // The same prefixes stand for the same namespaces.
    std::string actualPaths, expectedPaths;
    CollectPaths(actual.GetDocumentElement(), actualPaths);
    CollectPaths(expected.GetDocumentElement(), expectedPaths);
    EXPECT_EQ(actualPaths, expectedPaths);
  }
}

TEST_F(CFastInfosetVectors, AreRefusedWhenTheyEndEarly) {
  // Long ones end in the same few ways again and again.
  constexpr size_t kEveryLength = 2000, kLengths = 100;
  for (const std::string& name : VectorNames()) {
    const std::string content = ReadFile(name + ".finf");
    const size_t step = content.size() < kEveryLength ? 1 : content.size() / kLengths;
    for (size_t length = 0; length < content.size(); length += step) {
      CXmlDocument document(m_context);
      const std::string start = content.substr(0, length);
      EXPECT_THROW(Load(document, start), CQvException) << name << " of " << length << " bytes";
    }
  }
}
