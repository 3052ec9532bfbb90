#include "qvxml/xml/xml_text_writer.h"

#include <algorithm>
#include <string>

#include "tests/support/qv_gtest.h"
#include "tests/support/text_elements.h"

namespace {

using namespace QvXmlLib16;
using Writer = CXmlTextWriter;

constexpr ItemType kString = ItemType_string;

struct Row {
  const char* name;
  void (*write)(Writer& writer);
  const char* text;
};

void Start(Writer& writer, const char* localName, const char* namespaceUri = "") {
  writer.WriteStartElement(localName, namespaceUri);
}

void End(Writer& writer) { writer.WriteEndElement(); }

void Attribute(Writer& writer, const char* localName, const char* namespaceUri, const char* value) {
  writer.WriteAttributeString(localName, namespaceUri, value, kString);
}

void Text(Writer& writer, const std::string& text, bool isDefaultValue = false) {
  writer.WriteString(text, ItemType_string, isDefaultValue);
}

void Element(Writer& writer, const char* localName, const std::string& text) {
  Start(writer, localName);
  Text(writer, text);
  End(writer);
}

template <size_t kRows>
void ExpectTexts(const Row (&rows)[kRows], bool isFormatted) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    CTextStream stream;
    Writer writer(stream);
    writer.Open();
    writer.SetFormat(isFormatted);
    row.write(writer);
    EXPECT_EQ(row.text, stream.GetString());
  }
}

TEST(CXmlTextWriter, WritesNamespaces) {
  // clang-format off
  constexpr Row rows[] = {
      {"no namespace stays bare under a default one",
       [](Writer& w) { w.SetDefaultNamespace("urn:d"); Start(w, "a", "urn:d"); Start(w, "b");
         End(w); End(w); },
       R"(<a xmlns="urn:d"><b/></a>)"},
      {"root declares in the order of the URIs",
       [](Writer& w) { w.AddNamespace("z", "urn:1"); w.AddNamespace("a", "urn:2");
         w.AddNamespace("b", "urn:2");
         w.AddNamespace("xml", "http://www.w3.org/XML/1998/namespace");
         w.AddNamespace("n", "http://www.w3.org/XML/1998/namespace/more");
         w.AddNamespace("", "urn:0"); Start(w, "r", "urn:1"); End(w); },
       R"(<z:r xmlns:z="urn:1" xmlns:b="urn:2"/>)"},
      {"generated prefix of the root precedes the others",
       [](Writer& w) { w.SetDefaultNamespace("urn:d"); w.AddNamespace("AA", "urn:1");
         Start(w, "r", "urn:2"); End(w); },
       R"(<AB:r xmlns:AB="urn:2" xmlns="urn:d" xmlns:AA="urn:1"/>)"},
      {"generated prefixes end with their element",
       [](Writer& w) { Start(w, "r"); Start(w, "a", "urn:1"); Start(w, "b", "urn:2"); End(w);
         End(w); Start(w, "c", "urn:2"); Start(w, "d", "urn:2"); End(w); End(w); End(w); },
       R"(<r><AA:a xmlns:AA="urn:1"><AB:b xmlns:AB="urn:2"/></AA:a>)"
       R"(<AA:c xmlns:AA="urn:2"><AA:d/></AA:c></r>)"},
      {"attribute in the default namespace has a prefix",
       [](Writer& w) { w.SetDefaultNamespace("urn:d"); Start(w, "a", "urn:d");
         Attribute(w, "x", "urn:d", "1"); Attribute(w, "y", "urn:d", "2");
         Attribute(w, "z", "", "3"); End(w); },
       R"(<a xmlns="urn:d" xmlns:AA="urn:d" AA:x="1" AA:y="2" z="3"/>)"},
      {"attribute in the XML namespace",
       [](Writer& w) { Start(w, "a");
         Attribute(w, "lang", "http://www.w3.org/XML/1998/namespace", "en"); End(w); },
       R"(<a xml:lang="en"/>)"},
      {"namespace with characters to escape",
       [](Writer& w) { Start(w, "a", "urn:?x=1&y=\"<"); Attribute(w, "b", "urn:&", ""); End(w); },
       R"(<AA:a xmlns:AA="urn:?x=1&amp;y=&quot;&lt;" xmlns:AB="urn:&amp;" AB:b=""/>)"},
      {"type without a namespace, nil",
       [](Writer& w) { Start(w, "a"); w.WriteAttributeType("", "t", kString);
         w.WriteAttributeNil(); End(w); },
       R"(<a xmlns:AA="http://www.w3.org/2001/XMLSchema-instance" AA:type="t" AA:nil="true"/>)"},
      {"type of the default namespace, bound xsi",
       [](Writer& w) { w.SetDefaultNamespace("urn:d");
         w.AddNamespace("xsi", "http://www.w3.org/2001/XMLSchema-instance");
         Start(w, "a", "urn:d"); w.WriteAttributeType("urn:d", "t", kString); End(w); },
       R"(<a xmlns="urn:d" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:type="t"/>)"},
      {"type of a new namespace, two blanks",
       [](Writer& w) { w.AddNamespace("xsi", "http://www.w3.org/2001/XMLSchema-instance");
         Start(w, "a"); w.WriteAttributeType("urn:t", "t", kString); End(w); },
       R"(<a xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:AA="urn:t"  xsi:type="AA:t"/>)"},
      {"namespaces set within an element bind and declare nothing",
       [](Writer& w) { w.SetDefaultNamespace("urn:d"); Start(w, "a", "urn:d");
         w.AddNamespace("p", "urn:p"); w.AddNamespace("d", "urn:d");
         Attribute(w, "x", "urn:p", ""); w.SetDefaultNamespace("urn:p"); Start(w, "b", "urn:p");
         End(w); End(w); },
       R"(<a xmlns="urn:d" p:x=""><b/></d:a>)"},
  };
  // clang-format on
  ExpectTexts(rows, false);
}

TEST(CXmlTextWriter, GeneratesPrefixesBeyondTheAlphabet) {
  CTextStream stream;
  Writer writer(stream);
  writer.AddNamespace("AB", "urn:used");
  Start(writer, "a");
  for (int i = 0; i < 700; ++i) Attribute(writer, "x", ("urn:" + std::to_string(i)).c_str(), "");
  End(writer);
  const std::string text = stream.GetString();
  for (const char* declared : {R"( xmlns:AA="urn:0" AA:x="")", R"( xmlns:AC="urn:1" AC:x="")",
                               R"( xmlns:BA="urn:25" )", R"( xmlns:ZZ="urn:674" )",
                               R"( xmlns:AAA="urn:675" AAA:x="")", R"( xmlns:AAY="urn:699" )"}) {
    EXPECT_NE(std::string::npos, text.find(declared)) << declared;
  }
}

TEST(CXmlTextWriter, FormatsElements) {
  // clang-format off
  constexpr Row rows[] = {
      {"nested",
       [](Writer& w) { w.WriteStartDocument(); Start(w, "a"); Start(w, "b"); Start(w, "c"); End(w);
         Element(w, "d", "text"); End(w); End(w); },
       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\n\t<b>\n\t\t<c/>\n\t\t<d>text</d>\n\t</b>\n"
       "</a>\n"},
      {"indent characters and line ends",
       [](Writer& w) { w.SetIndentChars("ab"); w.SetEOLType(EOL_CRLF); Start(w, "a");
         Start(w, "b"); Element(w, "c", "1\r\n2\n"); End(w); End(w); },
       "<a>\r\nab<b>\r\nabab<c>1\r\n2\r\n</c>\r\nab</b>\r\n</a>\r\n"},
      {"no indent characters",
       [](Writer& w) { Start(w, "a"); w.SetIndentChars(nullptr); Element(w, "b", ""); End(w); },
       "<a>\n<b/>\n</a>\n"},
      {"mixed content",
       [](Writer& w) { Start(w, "a"); Text(w, "text"); Element(w, "b", ""); End(w); },
       "<a>text\t<b/>\n</a>\n"},
      {"items around elements",
       [](Writer& w) { w.WriteHeaderDirective("<!DOCTYPE a>"); w.WritePI("<?p i & j?>");
         w.WriteComment("1 < 2\n3"); Start(w, "a"); w.WriteInlineSchema("<s/>");
         w.WriteRawElement("<raw a='&'>"); End(w); },
       "<!DOCTYPE a>\n<?p i & j?>\n\n<!--1 &lt; 2\n3-->\n<a \n<s/>\n<raw a='&'>\n/>\n"},
      {"default values",
       [](Writer& w) { Start(w, "a"); Text(w, "dropped", true); End(w);
         w.SetWriteDefaultElementValues(true); Start(w, "b"); Text(w, "kept", true); End(w); },
       "<a/>\n<b>kept</b>\n"},
  };
  // clang-format on
  ExpectTexts(rows, true);
}

TEST(CXmlTextWriter, DeclaresTheEncoding) {
  const std::pair<XmlEncoding, const char*> rows[] = {
      {Encoding_Unspecified, "<?xml version=\"1.0\"?>\n"},
      {Encoding_UTF16, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"},
      {Encoding_UTF16_Unlabelled, "<?xml version=\"1.0\"?>\n"}};
  for (const auto& row : rows) {
    CTextStream stream(row.first);
    Writer(stream).WriteStartDocument();
    EXPECT_EQ(row.second, stream.GetString());
  }
}

TEST(CXmlTextWriter, WritesRawTextAndTheLineEndsOfTheProlog) {
  // clang-format off
  constexpr Row rows[] = {
      {"line ends without formatting",
       [](Writer& w) { w.SetEOLType(EOL_CRLF); w.WriteStartDocument(); w.WriteHeaderDirective("d");
         w.WritePI("p"); w.WriteComment("c"); w.WriteRawElement("r"); },
       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\nd\r\np\r\n\r\n<!--c-->\r\nr"},
      {"CDATA", [](Writer& w) { Element(w, "a", "<![CDATA[1 < 2]]><b>\r"); },
       "<a><![CDATA[1 < 2]]><b>\r</a>"},
      {"marker elsewhere", [](Writer& w) { Element(w, "a", " <![CDATA[x]]>"); },
       "<a> &lt;![CDATA[x]]&gt;</a>"},
      {"marker, where it is not to be written",
       [](Writer& w) { w.SetWriteCDATA(false); Element(w, "a", "<![CDATA[]]><b>"); },
       "<a>&lt;![CDATA[]]&gt;&lt;b&gt;</a>"},
  };
  // clang-format on
  ExpectTexts(rows, false);
}

// The rules one character at a time, against the scan in blocks.
std::string Escaped(const std::string& text, bool inAttribute) {
  std::string escaped;
  for (char c : text) {
    escaped += c == '&'                   ? "&amp;"
               : c == '<'                 ? "&lt;"
               : c == '>'                 ? "&gt;"
               : c == '"' && inAttribute  ? "&quot;"
               : c == '\n' && inAttribute ? "&#xA;"
               : c == '\n'                ? "\r\n"
               : c == '\r'                ? ""
                                          : std::string(1, c);
  }
  return escaped;
}

void ExpectEscaped(const std::string& value) {
  CTextStream stream;
  Writer writer(stream);
  writer.SetFormat(false);
  writer.SetEOLType(EOL_CRLF);
  Start(writer, "a");
  writer.WriteAttributeString("b", "", value, kString);
  writer.WriteString(value, ItemType_string, false);
  End(writer);
  const std::string text = Escaped(value, false);
  EXPECT_EQ("<a b=\"" + Escaped(value, true) + "\"" + (value.empty() ? "/>" : ">" + text + "</a>"),
            stream.GetString());
}

TEST(CXmlTextWriter, EscapesAtEveryPosition) {
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) everyByte += static_cast<char>(byte);
  ExpectEscaped(everyByte);
  for (size_t length = 0; length <= 40; ++length) {
    ExpectEscaped(std::string(length, 'x'));
    for (size_t position = 0; position < length; ++position) {
      for (char special : std::string("&<>\"\n\r\t\v'=\0", 11)) {
        std::string value(length, '-');
        value[position] = special;
        ExpectEscaped(value);
      }
    }
    ExpectEscaped(std::string(length, '&'));
  }
}

// Counts flushes and keeps what each of them drained.
class CDrainedStream : public CTextStream {
 public:
  CDrainedStream() : CTextStream("CDrainedStream", Encoding_UTF8) {}
  void Flush() override {
    if (m_isBroken) throw CQvException("broken");
    m_longest = std::max(m_longest, GetLength());
    m_text += GetString();
    Empty();
    ++m_flushes;
  }
  void Close() override { Flush(); }

  std::string m_text;
  unsigned long m_longest = 0;
  int m_flushes = 0;
  bool m_isBroken = false;
};

TEST(CXmlTextWriter, FlushesAtFourKilobytes) {
  CDrainedStream stream;
  Writer writer(stream);
  writer.SetFormat(false);
  Start(writer, "a");
  Text(writer, std::string(4092, 'x'));
  EXPECT_EQ(0, stream.m_flushes) << "4095 characters wait";
  Text(writer, "x");
  EXPECT_EQ(1, stream.m_flushes);
  for (int i = 0; i < 10000; ++i) Element(writer, "b", "text");
  End(writer);
  writer.Close();
  EXPECT_LT(stream.m_longest, 4200u);
  EXPECT_EQ(3 + 4093 + 10000 * 11 + 4u, stream.m_text.size());
}

TEST(CXmlTextWriter, StaysUsableAfterAFailedFlush) {
  CDrainedStream stream;
  Writer writer(stream);
  Start(writer, "a");
  stream.m_isBroken = true;
  EXPECT_QV_THROW(Start(writer, std::string(5000, 'b').c_str(), "urn:b"), CQvException, "broken");
  stream.m_isBroken = false;
  End(writer);
  writer.Close();
}

// Hears of each operation, so it gets them all.
class CDerivedWriter : public CXmlTextWriter {
 public:
  using CXmlTextWriter::CXmlTextWriter;
};

template <class TWriter>
std::string WriteTexts(bool isFormatted, EOLType eol, bool writesMore) {
  CTextStream stream;
  TWriter writer(stream);
  writer.Open();
  writer.SetFormat(isFormatted);
  writer.SetEOLType(eol);
  writer.SetWriteDefaultElementValues(writesMore);
  writer.SetWriteCDATA(writesMore);
  qv_test::WriteTextElements(writer, true);
  writer.Close();
  return stream.GetString();
}

TEST(CXmlTextWriter, WritesTextInOneStepAsInThree) {
  for (const bool isFormatted : {false, true}) {
    for (const EOLType eol : {EOL_LF, EOL_CRLF}) {
      const std::string text = WriteTexts<CXmlTextWriter>(isFormatted, eol, isFormatted);
      EXPECT_TRUE(text == WriteTexts<CDerivedWriter>(isFormatted, eol, isFormatted));
      EXPECT_NE(std::string::npos, text.find("<p:aLongerName3>a&amp;b&lt;c&gt;"));
      EXPECT_EQ(isFormatted, text.find("<![CDATA[<]]>") != std::string::npos);
    }
  }
}

TEST(CXmlTextWriter, RefusesWrongOrder) {
  CTextStream stream;
  Writer writer(stream);
  writer.SetFormat(false);
  const auto expectNoAttributes = [&] {
    const char* const message = "Attributes must be added before elements";
    EXPECT_QV_THROW(Attribute(writer, "a", "", ""), CQvException, message);
    EXPECT_QV_THROW(writer.WriteAttributeType("", "t", kString), CQvException, message);
    EXPECT_QV_THROW(writer.WriteAttributeNil(), CQvException, message);
  };
  expectNoAttributes();
  EXPECT_QV_THROW(Text(writer, "x"), CQvException, "An Element has not been opened.");
  EXPECT_QV_THROW(End(writer), CQvException, "An Element has not been opened.");
  Start(writer, "a");
  EXPECT_QV_THROW(writer.WriteHeaderDirective("x"), CQvException,
                  "Headed directives must appear before an Element has been added.");
  EXPECT_QV_THROW(writer.Close(), CQvException, "An Element has not been closed.");
  Element(writer, "b", "");
  expectNoAttributes();
  EXPECT_QV_THROW(writer.SetEOLType(static_cast<EOLType>(2)), CQvException, "Invalid EOL type.");
  EXPECT_EQ(EOL_LF, writer.GetEOLType());
  End(writer);
  writer.Close();
  EXPECT_EQ("<a><b/></a>", stream.GetString());
}

TEST(CXmlTextWriter, WritesAndForgetsAMillionLevels) {
  constexpr int kDepth = 1000000;
  CTextStream stream;
  {
    Writer writer(stream);
    writer.SetFormat(false);
    for (int level = 0; level < kDepth; ++level) Start(writer, "e");
    for (int level = 0; level < kDepth / 2; ++level) End(writer);
  }
  EXPECT_EQ(kDepth * 3ul + 1 + (kDepth / 2 - 1) * 4ul, stream.GetLength());
}

}  // namespace
