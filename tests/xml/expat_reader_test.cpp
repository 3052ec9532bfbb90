// XML text into the tree: what is kept, what is refused, and what hostile input may cost.

#include <string>

#include "tests/support/qv_gtest.h"
#include "tests/support/small_stack.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_locale.h"
#include "tests/support/xml_dump.h"

#include "qvxml/binding/serialization_context.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using qv_test::Dump;

namespace {

std::string Repeat(const std::string& text, size_t count) {
  std::string result;
  result.reserve(text.size() * count);
  for (size_t i = 0; i < count; ++i) result += text;
  return result;
}

std::string Load(const std::string& xml, const CSerializationContext& context) {
  CXmlDocument document(context);
  document.LoadXmlStream(reinterpret_cast<const unsigned char*>(xml.data()), xml.size());
  return Dump(document.GetDocumentElement());
}

std::string Load(const std::string& xml) {
  return Load(xml, CSerializationContext::m_defaultContext);
}

class CExpatReaderTest : public testing::Test {
 protected:
  ~CExpatReaderTest() override {
    for (const char* name : {"CXmlDocument", "CXmlElement", "CXmlAttribute", "CExpatReader"}) {
      EXPECT_EQ(CInstanceMonitor::GetCount(name), 0) << name;
    }
  }
};

}  // namespace

TEST_F(CExpatReaderTest, KeepsNamesAttributesAndText) {
  const std::string longText = Repeat("0123456789", 20000);
  const struct {
    const char* name;
    std::string xml, tree;
  } rows[] = {
      {"text in several runs", "<a>x &amp; y&#233;<!-- c -->z<?p i?>!</a>", "a 'x & y\xC3\xA9z!'"},
      {"text around children", "<a> 1<b>2<c>3</c>4</b>5<b/>6 </a>",
       "a ' 156 ' [b '24' [c '3'], b]"},
      {"carriage returns", "<a>1\r\n2\r3&#13;&#10;4&#13;</a>", "a '1\n2\n3\n4'"},
      {"carriage return in an entity",
       "<!DOCTYPE a [<!ENTITY e 'in&#13;ner'>]><a>&e;<b>&e;</b></a>", "a 'inner' [b 'inner']"},
      {"carriage return in a value", "<a b='1&#13;2'/>", "a(b='1\r2')"},
      {"default namespace", "<a xmlns='urn:d' b='1'><c/></a>", "{urn:d}a(b='1') [{urn:d}c]"},
      {"no namespace again", "<a xmlns='urn:d'><c xmlns=''/></a>", "{urn:d}a [c]"},
      {"same local names", "<a xmlns:p='urn:p'><p:a/><a/><p:a/><a/></a>",
       "a [{urn:p}a, a, {urn:p}a, a]"},
      {"xml attributes", "<a xml:lang='de'/>",
       "a({http://www.w3.org/XML/1998/namespace}lang='de')"},
      {"declared default", "<!DOCTYPE a [<!ATTLIST a n CDATA 'd' m CDATA 'e'>]><a m='1'/>",
       "a(m='1')(n='d')"},
      {"entity", "<!DOCTYPE a [<!ENTITY e '<b>x</b>'>]><a>&e;&e;</a>", "a [b 'x', b 'x']"},
      {"long text", "<a>" + longText + "&lt;" + longText + "</a>",
       "a '" + longText + "<" + longText + "'"},
      {"UTF-8 with mark", "\xEF\xBB\xBF<a>\xE2\x82\xAC</a>", "a '\xE2\x82\xAC'"},
      {"Latin-1", "<?xml version='1.0' encoding='ISO-8859-1'?><\xE9 \xE8='\xE7'>\xDF</\xE9>",
       "\xC3\xA9(\xC3\xA8='\xC3\xA7') '\xC3\x9F'"},
      {"UTF-16", std::string("\xFF\xFE<\0a\0>\0\xAC\x20<\0/\0a\0>\0", 18), "a '\xE2\x82\xAC'"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Load(row.xml), row.tree);
  }
}

TEST_F(CExpatReaderTest, KeepsCDATAMarkersOnRequest) {
  const struct {
    const char *xml, *stripped, *kept;
  } rows[] = {
      {"<a><![CDATA[<x>&]]></a>", "a '<x>&'", "a '<![CDATA[<x>&]]>'"},
      {"<a><![CDATA[]]></a>", "a", "a '<![CDATA[]]>'"},
      {"<a>1<![CDATA[2]]>3<b><![CDATA[4]]></b><![CDATA[5]]></a>", "a '1235' [b '4']",
       "a '1<![CDATA[2]]>3<![CDATA[5]]>' [b '<![CDATA[4]]>']"},
  };
  CSerializationContext keeping;
  keeping.SetStripCDATA(false);
  for (const auto& row : rows) {
    EXPECT_EQ(Load(row.xml), row.stripped);
    EXPECT_EQ(Load(row.xml, keeping), row.kept);
  }
}

TEST_F(CExpatReaderTest, LeavesQualifiedNamesWholeForLocalNameSchemas) {
  CSerializationContext context;
  context.SetSchemaType(SchemaType_LocalNames);
  EXPECT_EQ(Load("<p:a xmlns:p='urn:p' p:b='1'><q:c/></p:a>", context),
            "p:a(xmlns:p='urn:p')(p:b='1') [q:c]");
  // The kind is the one of the document's construction; CDATA that of the load.
  CXmlDocument document(context);
  context.SetSchemaType(SchemaType_Default);
  context.SetStripCDATA(false);
  document.LoadXml("<p:a><![CDATA[x]]></p:a>");
  EXPECT_EQ(Dump(document.GetDocumentElement()), "p:a '<![CDATA[x]]>'");
  EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "");
}

TEST_F(CExpatReaderTest, ReportsBrokenInputAndKeepsTheTreeSoFar) {
  const struct {
    std::string xml;
    const char *message, *tree;
  } rows[] = {
      {" ", "no element found at line 1", "-"},
      {"x", "syntax error at line 1", "-"},
      {"<a>\n 1\n<b>2", "no element found at line 3", "a '\n 1\n' [b '2']"},
      {"<a>1<b>2<c>3</c>4</a>", "mismatched tag at line 1", "a '1' [b '24' [c '3']]"},
      {"<a>\n<p:b/></a>", "unbound prefix at line 2", "a '\n'"},
      {"<a b='1' b='2'/>", "duplicate attribute at line 1", "-"},
      {"<a/>\n\n<b/>", "junk after document element at line 3", "a"},
      {"<a>&e;</a>", "undefined entity at line 1", "a"},
      {"<a>\xC3</a>", "not well-formed (invalid token) at line 1", "a"},
      {std::string("<a>\0</a>", 8), "not well-formed (invalid token) at line 1", "a"},
      {"<?xml version='1.0' encoding='x-none'?><a/>", "unknown encoding at line 1", "-"},
      {"<a xmlns:p=''/>", "must not undeclare prefix at line 1", "-"},
  };
  CXmlDocument document;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.xml);
    const auto* bytes = reinterpret_cast<const unsigned char*>(row.xml.data());
    EXPECT_QV_THROW(document.LoadXmlStream(bytes, row.xml.size()), CQvException, row.message);
    EXPECT_EQ(Dump(document.GetDocumentElement()), row.tree);
  }
  document.LoadXml("<fine/>");
  EXPECT_EQ(Dump(document.GetDocumentElement()), "fine");
}

TEST_F(CExpatReaderTest, RefusesInputThatMultipliesItself) {
  const std::string limit = "limit on input amplification factor (from DTD and entities) breached";
  std::string entities = "<!DOCTYPE a [<!ENTITY e0 'ha'>";
  for (int i = 1; i < 20; ++i) {
    const std::string previous = "&e" + std::to_string(i - 1) + ";";
    entities += "<!ENTITY e" + std::to_string(i) + " '" + Repeat(previous, 10) + "'>";
  }
  const std::string longValue(200000, 'x');
  std::string manyDefaults = "<!DOCTYPE a [<!ATTLIST b";
  for (int i = 0; i < 2000; ++i) manyDefaults += " n" + std::to_string(i) + " CDATA ''";
  for (const std::string& xml :
       {entities + "]><a>&e19;</a>",
        "<!DOCTYPE a [<!ATTLIST b n CDATA '" + longValue + "'>]><a>" + Repeat("<b/>", 20000) +
            "</a>",
        manyDefaults + ">]><a>" + Repeat("<b/>", 20000) + "</a>",
        "<a xmlns='urn:" + longValue + "'>" + Repeat("<b/>", 200000) + "</a>"}) {
    SCOPED_TRACE(xml.substr(0, 40));
    EXPECT_QV_THROW(Load(xml), CQvException, limit + " at line 1");
  }
}

TEST_F(CExpatReaderTest, NeverFetchesExternalEntities) {
  const qv_test::TemporaryFolder folder;
  const std::string file = folder.PathOf("entity");
  qv_test::WriteFile(file, "<b>secret</b>");
  EXPECT_EQ(Load("<!DOCTYPE a SYSTEM '" + file + "'><a/>"), "a");
  EXPECT_EQ(Load("<!DOCTYPE a [<!ENTITY e SYSTEM '" + file + "'><!ENTITY % p SYSTEM 'p'>%p;]><a/>"),
            "a");
  // What they stand for would be missing without a word.
  EXPECT_QV_THROW(Load("<!DOCTYPE a [<!ENTITY e SYSTEM '" + file + "'>]>\n<a>1&e;2</a>"),
                  CQvException, "The entity [" + file + "] is not fetched at line 2");
  EXPECT_QV_THROW(Load("<!DOCTYPE a SYSTEM 'x'><a>1&e;2</a>"), CQvException,
                  "The entity [e] is not fetched at line 1");
}

TEST_F(CExpatReaderTest, LoadsAMillionLevelsOnASmallStack) {
  constexpr size_t kLevels = 1000000;
  const std::string opened = Repeat("<a>", kLevels);
  const std::string whole = opened + Repeat("</a>", kLevels);
  qv_test::RunOnSmallStack([&] {
    CXmlDocument document;
    document.LoadXml(whole.c_str());
    const CXmlElement* innermost = document.GetDocumentElement();
    while (innermost->GetFirstElement() != nullptr) innermost = innermost->GetFirstElement();
    EXPECT_EQ(innermost->GetXPath(), Repeat("/a", kLevels));
    EXPECT_QV_THROW(document.LoadXml(opened.c_str()), CQvException, "no element found at line 1");
    EXPECT_EQ(CInstanceMonitor::GetCount("CXmlElement"), static_cast<long>(kLevels));
  });
}

// Large enough to reach the parser in pieces, which cut characters, line ends and the long value.
TEST_F(CExpatReaderTest, ReadsLargeInputInPieces) {
  constexpr size_t kLines = 2500000;
  const std::string value(5000000, 'v');
  const std::string start = "<a n='" + value + "'>" + Repeat("0123456789\xC3\xA9\r\n", kLines);
  CXmlDocument document;
  document.LoadXml((start + "</a>").c_str());
  EXPECT_TRUE(document.GetDocumentElement()->GetText() == Repeat("0123456789\xC3\xA9\n", kLines));
  EXPECT_TRUE(document.GetDocumentElement()->GetAttribute("n", "") == value);
  EXPECT_QV_THROW(document.LoadXml((start + "</b>").c_str()), CQvException,
                  "mismatched tag at line 2500001");
}

TEST_F(CExpatReaderTest, ConvertsTextToTheLocale) {
  const qv_test::CTestLocale locale("de_DE", "ISO-8859-1");
  if (!locale.IsAvailable()) GTEST_SKIP() << "the locale sources are not installed";
  CXmlDocument document;
  document.LoadXml(
      "<p:\xC3\xA4 xmlns:p='urn:\xC3\xB6' \xC3\xBC='\xE2\x82\xAC\xC3\xA9'>"
      "gr\xC3\xBC\xC3\x9F <b/><b/></p:\xC3\xA4>");
  EXPECT_EQ(Dump(document.GetDocumentElement()),
            "{urn:\xF6}\xE4(\xFC='?\xE9') 'gr\xFC\xDF ' [b, b]");
  EXPECT_EQ(document.LookupAliasFromNamespace("urn:\xF6"), "p");
}
