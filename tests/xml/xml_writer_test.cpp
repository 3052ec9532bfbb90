#include "qvxml/xml/xml_writer.h"

#include <string>

#include "tests/support/qv_gtest.h"
#include "tests/support/slot_of.h"

namespace {

using namespace QvXmlLib16;
using qv_test::SlotOf;

// A format that writes nothing: shows what the base class keeps.
class CSilentWriter : public CXmlWriter {
 public:
  CSilentWriter() : CXmlWriter("CSilentWriter") {}
  void WriteComment(const std::string&) override {}
  void WritePI(const std::string&) override {}
  void WriteInlineSchema(const std::string&) override {}
  void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override {
    PushContext(localName, namespaceUri, 1);
  }
  void WriteString(const std::string&, ItemType, bool) override { GetOpenContext(); }
  void WriteEndElement() override { PopContext(); }
  void WriteAttributeString(const std::string&, const std::string&, const std::string&,
                            ItemType) override {}
  void WriteAttributeType(const std::string&, const std::string&, ItemType) override {}
  void WriteAttributeNil() override {}

  using CXmlWriter::GetContext;
  using CXmlWriter::GetEOLText;
};

TEST(CXmlWriter, KeepsItsSlotOrder) {
  // Slots 0 and 1 are the two destructors.
  const std::uintptr_t slots[] = {SlotOf(&CXmlWriter::Open),
                                  SlotOf(&CXmlWriter::Close),
                                  SlotOf(&CXmlWriter::SetDefaultNamespace),
                                  SlotOf(&CXmlWriter::AddNamespace),
                                  SlotOf(&CXmlWriter::WriteComment),
                                  SlotOf(&CXmlWriter::WritePI),
                                  SlotOf(&CXmlWriter::WriteInlineSchema),
                                  SlotOf(&CXmlWriter::WriteStartElement),
                                  SlotOf(&CXmlWriter::WriteString),
                                  SlotOf(&CXmlWriter::WriteEndElement),
                                  SlotOf(&CXmlWriter::WriteAttributeString),
                                  SlotOf(&CXmlWriter::WriteAttributeType),
                                  SlotOf(&CXmlWriter::WriteAttributeNil),
                                  SlotOf(&CXmlWriter::WriteTextElement)};
  for (size_t i = 0; i < std::size(slots); ++i) EXPECT_EQ(slots[i], i + 2);
}

TEST(CXmlWriter, NumbersPrefixes) {
  const std::pair<int, const char*> rows[] = {
      // clang-format off
      {0, "AA"}, {1, "AB"}, {25, "AZ"}, {26, "BA"}, {675, "ZZ"}, {676, "AAA"}, {702, "ABA"},
      {18251, "ZZZ"}, {18252, "AAAA"}, {-1, "AA"},
      // clang-format on
  };
  for (const auto& row : rows) EXPECT_EQ(row.second, CXmlWriter::NsIntToString(row.first));
  EXPECT_EQ("AA", CXmlWriter::GetUniquePrefix({}));
  EXPECT_EQ("AC", CXmlWriter::GetUniquePrefix({{"urn:1", "AB"}, {"urn:2", "AA"}, {"AC", "x"}}));
}

TEST(CXmlWriter, ScopesBindings) {
  CSilentWriter writer;
  writer.AddNamespace("a", "urn:a");
  writer.AddNamespace("p", "urn:p");
  writer.AddNamespace("q", "urn:p");
  writer.SetDefaultNamespace("urn:default");

  writer.WriteStartElement("root", "");
  EXPECT_EQ(1u, writer.GetContext()->GetDepth());
  EXPECT_EQ("q", writer.GetContext()->GetNamespaceMapValue("urn:p"));
  EXPECT_EQ("", writer.GetContext()->GetNamespaceMapValue("urn:none"));
  EXPECT_EQ("xml", writer.GetContext()->GetNamespaceMapValue(CXmlWriter::XML_NAMESPACE));
  EXPECT_EQ("AA", writer.GetContext()->GetUniquePrefix());

  writer.WriteStartElement("child", "urn:p");
  writer.AddNamespace("AA", "urn:p");
  writer.AddNamespace("AB", "urn:b");
  writer.AddNamespace("AC", "urn:b");
  writer.SetDefaultNamespace("urn:inner");
  CXmlWriter::CXmlWriterContext& child = *writer.GetContext();
  EXPECT_EQ("AA", child.GetNamespaceMapValue("urn:p"));
  EXPECT_EQ("AA", child.GetPrefix());
  EXPECT_EQ("AC", child.GetNamespaceMapValue("urn:b"));
  EXPECT_EQ("AB", child.GetUniquePrefix());
  EXPECT_EQ((CXmlWriter::NamespaceMap{{"urn:a", "a"}, {"urn:b", "AC"}, {"urn:p", "AA"}}),
            child.GetNamespaceMap());

  writer.WriteStartElement("grandchild", "urn:inner");
  EXPECT_EQ(3u, writer.GetContext()->GetDepth());
  EXPECT_EQ("AC", writer.GetContext()->GetNamespaceMapValue("urn:b"));
  EXPECT_TRUE(writer.GetContext()->IsUnprefixed("urn:inner"));
  writer.AddNamespace("z", "urn:p");
  writer.WriteEndElement();
  EXPECT_EQ("AA", writer.GetContext()->GetNamespaceMapValue("urn:p"));
  writer.WriteEndElement();

  EXPECT_EQ("q", writer.GetContext()->GetNamespaceMapValue("urn:p"));
  EXPECT_EQ("", writer.GetContext()->GetNamespaceMapValue("urn:b"));
  EXPECT_EQ("AA", writer.GetContext()->GetUniquePrefix());
  EXPECT_EQ("urn:default", writer.GetContext()->GetDefaultNamespace());
  writer.AddNamespace("late", "urn:late");
  writer.WriteEndElement();

  // The next root sees what was set before any element only.
  writer.WriteStartElement("root", "");
  EXPECT_EQ((CXmlWriter::NamespaceMap{{"urn:a", "a"}, {"urn:p", "q"}}),
            writer.GetContext()->GetNamespaceMap());
}

TEST(CXmlWriter, ReusesContextsWithFreshState) {
  CSilentWriter writer;
  writer.SetContextState(ContextState_ArrayOpen);
  writer.WriteStartElement("root", "");
  EXPECT_EQ(ContextState_None, writer.GetContext()->GetState());
  writer.WriteStartElement("child", "urn:x");
  writer.SetContextState(ContextState_CollectionEnd);
  writer.SetDefaultNamespace("urn:x");
  writer.GetContext()->AddChild();
  writer.GetContext()->SetStartTagOpen(true);
  writer.GetContext()->SetDepth(99);
  writer.WriteEndElement();
  writer.WriteStartElement("sibling", "urn:x");
  const CXmlWriter::CXmlWriterContext& sibling = *writer.GetContext();
  EXPECT_EQ("sibling", sibling.GetLocalName());
  EXPECT_EQ("root", sibling.GetParent()->GetLocalName());
  EXPECT_EQ(ContextState_None, sibling.GetState());
  EXPECT_EQ("", sibling.GetDefaultNamespace());
  EXPECT_EQ(0u, sibling.GetChildCount());
  EXPECT_FALSE(sibling.IsStartTagOpen());
  EXPECT_EQ(2u, sibling.GetDepth());
}

// Each level binds a namespace: a copy of the map at each would need memory by the square.
TEST(CXmlWriter, DeepElementsThatAllBindNamespaces) {
  constexpr int kDepth = 100000;
  {
    CSilentWriter writer;
    for (int level = 0; level < kDepth; ++level) {
      writer.WriteStartElement("e", "");
      writer.AddNamespace(writer.GetContext()->GetUniquePrefix(), "urn:" + std::to_string(level));
    }
    EXPECT_EQ(static_cast<size_t>(kDepth), writer.GetContext()->GetNamespaceMap().size());
    EXPECT_EQ(CXmlWriter::NsIntToString(kDepth), writer.GetContext()->GetUniquePrefix());
    for (int level = 1; level < kDepth; ++level) writer.WriteEndElement();
    EXPECT_EQ("AB", writer.GetContext()->GetUniquePrefix());
    EXPECT_EQ(1, CInstanceMonitor::GetCount("CSilentWriter"));
  }
  EXPECT_EQ(0, CInstanceMonitor::GetCount("CSilentWriter"));
  EXPECT_EQ(0, CInstanceMonitor::GetCount("CXmlWriterContext"));
}

TEST(CXmlWriter, RefusesWrongOrder) {
  CSilentWriter writer;
  EXPECT_QV_THROW(writer.WriteString("x", ItemType_string, false), CQvException,
                  "An Element has not been opened.");
  writer.WriteEndElement();
  writer.WriteStartElement("root", "");
  EXPECT_QV_THROW(writer.Close(), CQvException, "An Element has not been closed.");
  writer.WriteEndElement();
  writer.Close();
  EXPECT_QV_THROW(CSilentWriter::GetEOLText(static_cast<EOLType>(2)), CQvException,
                  "Invalid EOL type.");
}

}  // namespace
