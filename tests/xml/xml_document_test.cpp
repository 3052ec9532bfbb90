#include "qvxml/xml/xml_document.h"

#include <memory>
#include <vector>

#include "tests/support/qv_gtest.h"
#include "tests/support/slot_of.h"
#include "tests/support/xml_dump.h"

#include "qvxml/support/instance_monitor.h"

using namespace QvXmlLib16;
using qv_test::Dump;

namespace {

constexpr char kSchemaInstance[] = "http://www.w3.org/2001/XMLSchema-instance";
constexpr char kXmlns[] = "http://www.w3.org/2000/xmlns/";

// The element reached by taking the child at each 0-based position in turn.
const CXmlElement* At(const CXmlDocument& document, const std::vector<int>& positions) {
  const CXmlElement* element = document.GetDocumentElement();
  for (int position : positions) {
    element = element->GetFirstElement();
    while (position-- > 0) element = element->GetNextSiblingElement();
  }
  return element;
}

// No object of these classes may outlive a test.
class CXmlDocumentTest : public testing::Test {
 protected:
  ~CXmlDocumentTest() override {
    for (const char* name : {"CXmlDocument", "CXmlElement", "CXmlAttribute"}) {
      EXPECT_EQ(CInstanceMonitor::GetCount(name), 0) << name;
    }
  }
};

}  // namespace

TEST_F(CXmlDocumentTest, CleansUpThroughTheSlotBehindTheDestructors) {
  class CWatched : public CXmlDocument {
   public:
    void Cleanup() override {
      ++m_cleanups;
      CXmlDocument::Cleanup();
    }
    int m_cleanups = 0;
  };
  EXPECT_EQ(qv_test::SlotOf(&CXmlDocument::Cleanup), 2u);
  CWatched document;
  document.LoadXml("<a/>");
  document.LoadXml(L"<a/>");
  document.LoadXmlStream(reinterpret_cast<const unsigned char*>("<a/>"), 4);
  EXPECT_THROW(document.Load("/nowhere/file"), CQvException);
  EXPECT_EQ(document.m_cleanups, 4);
}

TEST_F(CXmlDocumentTest, NamesThePathOfEveryNode) {
  const struct {
    const char* xml;
    std::vector<int> element;
    const char* path;
  } rows[] = {
      // clang-format off
      {"<a/>", {}, "/a"}, {"<a><b/><b/><b/></a>", {0}, "/a/b[1]"}, {"<a><b/><c/><b/><x/></a>", {2}, "/a/b[2]"},
      {"<a><b/><c/><b/><x/></a>", {3}, "/a/x"},
      {"<a><b/><b><c/><c><d/></c></b></a>", {1, 1, 0}, "/a/b[2]/c[2]/d"},
      // The empty prefix is the first of all.
      {"<p:a xmlns:p='urn:d' xmlns='urn:d'><b/></p:a>", {0}, "/a/b"},
      {"<a xmlns:q='urn:p' xmlns:p='urn:p'><q:b/></a>", {0}, "/a/p:b"},
      // One QName, two namespaces: the positions count both.
      {"<a><b xmlns='urn:1'/><b/><b xmlns='urn:2'/></a>", {1}, "/a/b[2]"},
      {"<a><ab/><b/></a>", {1}, "/a/b"}, {"<a xmlns:p='urn:p'><p:b/><b/></a>", {1}, "/a/b"},
      // The last binding of a prefix is the one that counts.
      {"<a xmlns:p='urn:1'><p:b xmlns:p='urn:2'/><p:c/></a>", {0}, "/a/p:b"},
      {"<a xmlns:p='urn:1'><p:b xmlns:p='urn:2'/><p:c/></a>", {1}, "/a/c"},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.xml);
    CXmlDocument document;
    document.LoadXml(row.xml);
    EXPECT_EQ(At(document, row.element)->GetXPath(), row.path);
  }
}

TEST_F(CXmlDocumentTest, PutsThePrefixOfAnAttributeBeforeTheAt) {
  CXmlDocument document;
  document.LoadXml(
      "<r xmlns:p='urn:p' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'>"
      "<a n='1' p:n='2' xsi:nil='0'/></r>");
  const CXmlAttributeList attributes = At(document, {0})->GetAttributes();
  ASSERT_EQ(attributes.size(), 3u);
  EXPECT_EQ(attributes[0]->GetXPath(), "/r/a/@n");
  EXPECT_EQ(attributes[1]->GetXPath(), "/r/a/p:@n");
}

TEST_F(CXmlDocumentTest, TellsSteeringAttributesFromContent) {
  const struct {
    const char *localName, *namespaceUri;
    bool isNamespace, isNil;
  } rows[] = {
      // clang-format off
      {"type", kSchemaInstance, true, false}, {"type", kXmlns, true, false},
      {"xmlns", kXmlns, true, false}, {"schemaLocation", kSchemaInstance, true, false},
      {"noNamespaceSchemaLocation", kSchemaInstance, true, false},
      {"nil", kSchemaInstance, false, true}, {"nil", kXmlns, false, true},
      {"Type", kSchemaInstance, false, false}, {"type", "", false, false},
      {"xmlns", "", false, false}, {"nil", "urn:x", false, false},
      // clang-format on
  };
  CXmlDocument document;
  CXmlElement* element = document.AddDocElement("", "a");
  for (const auto& row : rows) {
    document.AddElementAttribute(element, row.localName, row.namespaceUri, "v");
  }
  size_t index = 0;
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.namespaceUri << " " << row.localName);
    const CXmlAttribute* attribute = element->GetAttributes()[index++];
    EXPECT_EQ(attribute->IsNamespaceAttribute(), row.isNamespace);
    EXPECT_EQ(attribute->IsNilAttribute(), row.isNil);
  }
}

TEST_F(CXmlDocumentTest, BuildsATreeForAnyReader) {
  CXmlDocument document;
  CXmlElement* root = document.AddDocElement("urn:r", "root");
  document.AppendTextExcludingCR(root, "one\r\ntwo\r", 9);
  CXmlElement* child = document.AddChildElement(nullptr, "child");
  child->AddAttribute("a", "urn:a", "1");
  child->AddAttribute("a", "", "2");
  child->AddAttribute("a", "", nullptr);
  document.AppendTextExcludingCR(child, "\r\r");
  EXPECT_EQ(child->GetText(), "");
  document.EndElement();
  document.AppendTextExcludingCR(root, "three");
  document.AddChildElement("", "second");
  EXPECT_EQ(Dump(document.GetDocumentElement()),
            "{urn:r}root 'one\ntwothree' [child({urn:a}a='1')(a='2')(a=''), second]");
  EXPECT_EQ(child->GetAttribute("a", ""), "2");
  EXPECT_EQ(child->GetAttribute("a", "urn:a"), "1");
  EXPECT_EQ(child->GetAttribute("a", "urn:b"), "");
  EXPECT_EQ(child->GetAttribute("A", nullptr), "");
  document.EndElement();
  document.EndElement();
  document.EndElement();
  EXPECT_QV_THROW(document.AddChildElement("", "x"), CQvInvalidStateException,
                  "There is no open element.");
  EXPECT_EQ(Dump(document.AddDocElement("", "new")), "new");
}

TEST_F(CXmlDocumentTest, RenamesAndExtendsElements) {
  CXmlDocument document;
  CXmlElement* root = document.AddDocElement("", "a");
  CXmlElement* child = root->CreateNewChildElement();
  child->SetNamespace("urn:n");
  child->SetElementName("b");
  child->AppendText("text of more than a few bytes", 4);
  child->AppendText(" x", -1);
  child->AppendText(nullptr);
  child->AppendText(child->GetText().c_str());
  EXPECT_EQ(Dump(root), "a [{urn:n}b 'texttext']");
  // A name holds whatever it is given, the internal separator included.
  root->SetElementName("x|y");
  root->SetNamespace("");
  EXPECT_EQ(root->GetLocalName(), "x|y");
  root->SetNamespace("x");
  root->SetElementName("y");
  EXPECT_EQ(Dump(root), "{x}y [{urn:n}b 'texttext']");
}

TEST_F(CXmlDocumentTest, RemovesTheLastChild) {
  CXmlDocument document;
  document.LoadXml("<a><b/><c/></a>");
  CXmlElement* root = document.GetDocumentElement();
  delete root->RemoveLastChildElement();
  root->CreateNewChildElement()->SetElementName("d");
  EXPECT_EQ(Dump(root), "a [b, d]");
  delete root->RemoveLastChildElement();
  delete root->RemoveLastChildElement();
  EXPECT_EQ(Dump(root), "a");
  EXPECT_EQ(root->RemoveLastChildElement(), nullptr);
}

TEST_F(CXmlDocumentTest, RemovedElementsOutliveTheDocument) {
  auto document = std::make_unique<CXmlDocument>();
  document->LoadXml(
      "<p:a xmlns:p='urn:p'><p:b n='1'>a text that needs memory of its own"
      "<p:c/></p:b><p:d/></p:a>");
  const std::unique_ptr<CXmlElement> second(
      document->GetDocumentElement()->RemoveLastChildElement());
  const std::unique_ptr<CXmlElement> first(
      document->GetDocumentElement()->RemoveLastChildElement());
  EXPECT_EQ(first->GetXPath(), "/p:b");
  EXPECT_EQ(first->GetDocument(), document.get());
  document->LoadXml("<other/>");
  EXPECT_EQ(first->GetDocument(), nullptr);
  document.reset();
  EXPECT_EQ(Dump(first.get()), "{urn:p}b(n='1') 'a text that needs memory of its own' [{urn:p}c]");
  EXPECT_EQ(first->GetXPath(), "/b");
  EXPECT_EQ(first->GetAttributes()[0]->GetXPath(), "/b/@n");
  delete first->RemoveLastChildElement();
}

// A tree of more than a megabyte that is only read goes without a visit to its nodes.
TEST_F(CXmlDocumentTest, ReleasesALargeTreeWhateverWasDoneToIt) {
  using Change = void (*)(CXmlElement & root);
  const Change changes[] = {
      [](CXmlElement&) {},
      [](CXmlElement& root) { root.GetFirstElement()->AppendText(" that grows behind its place"); },
      [](CXmlElement& root) { root.AddAttribute("n", "", "an attribute that is added later on"); },
      [](CXmlElement& root) { delete root.RemoveLastChildElement(); },
      // Into memory that is new, as what was left of the old was given back.
      [](CXmlElement& root) {
        for (int index = 0; index < 4000; ++index) {
          root.CreateNewChildElement()->AppendText("an element that is added later on");
        }
      },
  };
  constexpr int kItems = 12000;
  std::string xml = "<a>";
  for (int item = 0; item < kItems; ++item) {
    xml += "<b n='a value that needs memory of its own'>text</b><c>another such text, behind</c>";
  }
  xml += "</a>";
  const long elements = CInstanceMonitor::GetCount("CXmlElement");
  const long attributes = CInstanceMonitor::GetCount("CXmlAttribute");
  for (const Change change : changes) {
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    EXPECT_EQ(CInstanceMonitor::GetCount("CXmlElement"), elements + 2 * kItems + 1);
    change(*document.GetDocumentElement());
    document.Cleanup();
    EXPECT_EQ(CInstanceMonitor::GetCount("CXmlElement"), elements);
    EXPECT_EQ(CInstanceMonitor::GetCount("CXmlAttribute"), attributes);
  }
}

TEST_F(CXmlDocumentTest, KeepsThePrefixesOfTheWholeDocument) {
  CXmlDocument document;
  document.LoadXml(
      "<a xmlns='urn:d' xmlns:p='urn:1'><b xmlns:p='urn:2' xmlns:q='urn:2'/>"
      "<c xmlns=''/></a>");
  EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "urn:2");
  EXPECT_EQ(document.LookupNamespaceFromAlias(""), "");
  EXPECT_EQ(document.LookupNamespaceFromAlias("none"), "");
  EXPECT_EQ(document.LookupNamespaceFromAlias(nullptr), "");
  EXPECT_EQ(document.LookupAliasFromNamespace("urn:2"), "p");
  EXPECT_EQ(document.LookupAliasFromNamespace("urn:1"), "");
  EXPECT_EQ(document.LookupAliasFromNamespace("urn:d"), "");
  document.AddNamespacePrefix("p", "urn:3");
  EXPECT_EQ(document.LookupAliasFromNamespace("urn:2"), "q");
  document.Cleanup();
  EXPECT_EQ(document.LookupNamespaceFromAlias("q"), "");
  EXPECT_EQ(document.GetDocumentElement(), nullptr);
}

// The whitespace of alike records is shared, but no change of one may show in another.
TEST_F(CXmlDocumentTest, ChangesSharedTextForOneElementOnly) {
  CXmlDocument document;
  document.LoadXml("<a><b>\n  <c/>\n</b><b>\n  <c/>\n</b></a>");
  CXmlElement* first = document.GetDocumentElement()->GetFirstElement();
  CXmlElement* second = first->GetNextSiblingElement();
  EXPECT_EQ(&first->GetText(), &second->GetText());
  first->AppendText("x");
  EXPECT_EQ(Dump(document.GetDocumentElement()), "a [b '\n  \nx' [c], b '\n  \n' [c]]");
}
