// The octets of items that the documents of the vectors do not have, and what is refused.

#include "qvxml/fastinfoset/fi_writer.h"

#include <functional>
#include <string>
#include <utility>

#include "tests/fastinfoset/hex_octets.h"
#include "tests/support/qv_gtest.h"
#include "tests/support/test_locale.h"
#include "tests/support/text_elements.h"
#include <gtest/gtest.h>

#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/fastinfoset/fi_string_index_internal.h"
#include "qvxml/xml/binary_stream.h"

using namespace QvXmlLib16;
using qv_test::Hex;

namespace {

using Options = std::function<void(CFastInfosetContext&)>;
using Calls = std::function<void(CFastInfosetWriter&)>;

void Default(CFastInfosetContext&) {}
void Suggested(CFastInfosetContext& context) { context.SetSuggestedValues(); }

template <class TWriter = CFastInfosetWriter>
std::string Write(const Options& options, const Calls& calls,
                  FInfoDecl declaration = FInfoDecl_None) {
  CFastInfosetContext context;
  options(context);
  CBinaryStream stream;
  TWriter writer(context, stream);
  writer.Open();
  writer.WriteStartDocument(declaration);
  calls(writer);
  writer.WriteEndDocument();
  writer.Close();
  return Hex(stream.GetBinaryStream());
}

void Start(CXmlWriter& w, const char* name, const char* uri = "") {
  w.WriteStartElement(name, uri);
}
void End(CXmlWriter& w) { w.WriteEndElement(); }
void Text(CXmlWriter& w, const std::string& text, ItemType type = ItemType_string) {
  w.WriteString(text, type, false);
}
void Attribute(CXmlWriter& w, const char* name, const std::string& value,
               ItemType type = ItemType_string, const char* uri = "") {
  w.WriteAttributeString(name, uri, value, type);
}
void Empty(CXmlWriter& w, const char* name, const char* uri = "") {
  Start(w, name, uri);
  End(w);
}
void Leaf(CXmlWriter& w, const char* name, const std::string& text,
          ItemType type = ItemType_string) {
  Start(w, name);
  Text(w, text, type);
  End(w);
}

// The octets between the head and the end of a document.
std::string Between(const std::string& head, const std::string& octets, size_t end) {
  EXPECT_EQ(octets.substr(0, head.size()), head);
  if (octets.size() <= head.size() + end) return std::string();
  return octets.substr(head.size(), octets.size() - head.size() - end);
}

// What the text of an element takes, and what the value of an attribute takes.
std::string TextOctets(const Options& options, const std::string& text,
                       ItemType type = ItemType_string) {
  return Between("E0 00 00 01 00 3C 00 65 ",
                 Write(options, [&](CXmlWriter& w) { Leaf(w, "e", text, type); }), 3);
}
std::string ValueOctets(const Options& options, const std::string& value,
                        ItemType type = ItemType_string) {
  const auto calls = [&](CXmlWriter& w) { Start(w, "e"), Attribute(w, "a", value, type), End(w); };
  return Between("E0 00 00 01 00 7C 00 65 78 00 61 ", Write(options, calls), 6);
}

// The URI of xsi:type with its length.
#define XSI                                                                                 \
  "28 68 74 74 70 3A 2F 2F 77 77 77 2E 77 33 2E 6F 72 67 2F 32 30 30 31 2F 58 4D 4C 53 63 " \
  "68 65 6D 61 2D 69 6E 73 74 61 6E 63 65 "

}  // namespace

TEST(CFastInfosetWriter, WritesItems) {
  // clang-format off
  const struct {
    Options options;
    Calls calls;
    const char* octets;
  } rows[] = {
      {Suggested,
       [](CXmlWriter& w) {
         Start(w, "n");
         Leaf(w, "i", "-1", ItemType_i4), Leaf(w, "b", "true", ItemType_boolean), Leaf(w, "h", "CAFE", ItemType_hexBinary);
         Leaf(w, "f", "1.5", ItemType_r4), Leaf(w, "d", "12.50", ItemType_decimal), Leaf(w, "d", "12.50", ItemType_decimal);
         Start(w, "k");
         Attribute(w, "i", "300", ItemType_i2), Attribute(w, "t", "10:30Z", ItemType_time), Attribute(w, "u", "10:30Z", ItemType_time);
         End(w), End(w);
       },
       "3C 00 6E 3C 00 69 8C 0E 01 FF FF FF FF F0 3C 00 62 8C 14 38 F0 "
       "3C 00 68 8C 01 CA FE F0 3C 00 66 8C 1A 01 3F C0 00 00 F0 3C 00 64 98 02 00 12 C5 0F F0 "
       "05 A0 F0 7C 00 6B 78 81 30 21 01 2C 78 00 74 60 12 10 B3 0D 78 00 75 80 FF FF"},
      {Default,
       [](CXmlWriter& w) {
         w.WritePI("<?style href=\"a.css\"?>\n<?empty?>"), w.WriteComment("head");
         Start(w, "r"), Attribute(w, "a", "v");
         w.WriteComment("head"), w.WriteInlineSchema("<xs:schema/>"), w.WritePI("<?empty ?>");
         End(w), w.WriteComment("");
       },
       "E1 04 73 74 79 6C 65 08 03 68 72 65 66 3D 22 61 2E 63 73 73 22 E1 04 65 6D 70 74 79 FF "
       "E2 43 68 65 61 64 7C 00 72 78 00 61 40 76 F0 E2 80 E1 81 FF F0 E2 FF F0"},
      // A prefix that is first needed by an attribute, and one by a type.
      {Default,
       [](CXmlWriter& w) {
         Start(w, "r"), Attribute(w, "a", "v");
         w.WriteAttributeNil(), w.WriteAttributeType("urn:t", "T", ItemType_string);
         End(w);
       },
       "78 CF 01 41 41 " XSI "CF 01 41 42 04 75 72 6E 3A 74 F0 3C 00 72 78 00 61 40 76 "
       "7B 81 81 02 6E 69 6C 43 74 72 75 65 7B 81 81 03 74 79 70 65 43 41 42 3A 54 FF F0"},
      // A prefix that a type needs can not be declared otherwise behind it.
      {Default,
       [](CXmlWriter& w) {
         Start(w, "r"), Attribute(w, "xmlns:p", "urn:a");
         Start(w, "c"), w.WriteAttributeType("urn:a", "T", ItemType_string), Attribute(w, "xmlns:p", "urn:b"), End(w);
         Start(w, "d"), Attribute(w, "xmlns:p", "urn:b"), w.WriteAttributeType("urn:b", "T", ItemType_string), End(w);
         End(w);
       },
       "38 CF 00 70 04 75 72 6E 3A 61 F0 3C 00 72 78 CF 01 41 41 " XSI "F0 3C 00 63 7B 82 82 "
       "03 74 79 70 65 42 70 3A 54 FF 78 CF 81 04 75 72 6E 3A 62 CF 82 82 F0 3C 00 64 00 80 FF FF"},
      // Defaults.
      {Default,
       [](CFastInfosetWriter& w) {
         Start(w, "r"), w.WriteString("x", ItemType_string, true);
         w.SetWriteDefaultElementValues(true), w.WriteString("x", ItemType_string, true);
         End(w);
       },
       "3C 00 72 90 78 FF"},
  };
  // clang-format on
  for (const auto& row : rows) {
    SCOPED_TRACE(row.octets);
    EXPECT_EQ(Write(row.options, row.calls), std::string("E0 00 00 01 00 ") + row.octets);
  }
}

TEST(CFastInfosetWriter, NamesAnExternalVocabulary) {
  const auto options = [](CFastInfosetContext& context) {
    context.SetUseGeneratedVocabulary(true);
    context.SetExternalVocabularyURI("urn:v");
    CFIVocabulary& vocabulary = context.GetVocabulary();
    vocabulary.AddElement("o", "urn:o", "order");
    vocabulary.AddAttribute("", "", "no");
    vocabulary.AddAttributeValue("closed for good");
    for (const char* value : {"bolt", "bolt", "nut"}) vocabulary.AddElementValue(value);
  };
  const auto calls = [](CXmlWriter& w) {
    w.AddNamespace("o", "urn:o");
    Start(w, "order", "urn:o");
    Attribute(w, "no", "closed for good");
    Text(w, "bolt"), Text(w, "nut");
    End(w);
  };
  EXPECT_EQ(Write(options, calls),
            "E0 00 00 01 20 10 00 04 75 72 6E 3A 76 78 CF 81 81 F0 00 00 80 F0 A0 A2 FF");
}

TEST(CFastInfosetWriter, WritesTheDeclarationAndWhatItTells) {
  const auto empty = [](CXmlWriter& w) { Empty(w, "r"); };
  const struct {
    FInfoDecl declaration;
    const char *version, *standalone, *octets;
  } rows[] = {
      // clang-format off
      {FInfoDecl_Plain, "", "", "00"}, {FInfoDecl_StandaloneYes, "", " standalone='yes'", "02 01"},
      {FInfoDecl_StandaloneNo, "", " standalone='no'", "02 00"},
      {FInfoDecl_Version10, "version='1.0' ", "", "01 02 31 2E 30"},
      {FInfoDecl_Version10StandaloneYes, "version='1.0' ", " standalone='yes'", "03 01 02 31 2E 30"},
      {FInfoDecl_Version10StandaloneNo, "version='1.0' ", " standalone='no'", "03 00 02 31 2E 30"},
      {FInfoDecl_Version11, "version='1.1' ", "", "01 02 31 2E 31"},
      {FInfoDecl_Version11StandaloneYes, "version='1.1' ", " standalone='yes'", "03 01 02 31 2E 31"},
      {FInfoDecl_Version11StandaloneNo, "version='1.1' ", " standalone='no'", "03 00 02 31 2E 31"},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.declaration);
    const std::string text =
        std::string("<?xml ") + row.version + "encoding='finf'" + row.standalone + "?>";
    EXPECT_EQ(Write(Default, empty, row.declaration),
              Hex(CBinaryData(text.c_str())) + " E0 00 00 01 " + row.octets + " 3C 00 72 FF");
  }
}

// The encodings of single values, and which values fall back to characters.
TEST(CFastInfosetWriter, EncodesValuesExactlyOrAsText) {
  const struct {
    ItemType type;
    const char *text, *chunk, *value;
  } rows[] = {
      // clang-format off
      {ItemType_i2, "-32768", "8C 09 80 00", "30 21 80 00"}, {ItemType_i1, "0", "8C 09 00 00", "30 21 00 00"},
      {ItemType_i4, "2147483647", "8C 0E 01 7F FF FF FF", "30 33 7F FF FF FF"},
      {ItemType_ui8, "9223372036854775807", "8C 12 05 7F FF FF FF FF FF FF FF", "30 47 7F FF FF FF FF FF FF FF"},
      {ItemType_i8, "-9223372036854775808", "8C 12 05 80 00 00 00 00 00 00 00", "30 47 80 00 00 00 00 00 00 00"},
      {ItemType_r4, "-0", "8C 1A 01 80 00 00 00", "30 63 80 00 00 00"},
      {ItemType_r4, "NaN", "8C 1A 01 7F C0 00 00", "30 63 7F C0 00 00"},
      {ItemType_r4, "1.234567e-05", "8C 1A 01 37 4F 20 40", "30 63 37 4F 20 40"},
      {ItemType_r8, "-INF", "8C 1E 05 FF F0 00 00 00 00 00 00", "30 77 FF F0 00 00 00 00 00 00"},
      {ItemType_r8, "0.1", "8C 1E 05 3F B9 99 99 99 99 99 9A", "30 77 3F B9 99 99 99 99 99 9A"},
      {ItemType_boolean, "false", "8C 14 30", "30 50 30"}, {ItemType_hexBinary, "0F", "8C 00 0F", "30 00 0F"},
      {ItemType_base64Binary, "AAEC/w==", "8C 06 01 00 01 02 FF", "30 13 00 01 02 FF"},
      {ItemType_decimal, "-12.5", "98 02 00 A1 2C 5F", "60 02 A1 2C 5F"},
      {ItemType_integer, "7", "98 00 7F", "60 00 7F"},
      {ItemType_time, "12:00Z", "98 06 00 12 B0 0D", "60 12 12 B0 0D"}, {ItemType_i4, "", "", "FF"},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.text) + " as " + std::to_string(row.type));
    EXPECT_EQ(TextOctets(Suggested, row.text, row.type), row.chunk);
    EXPECT_EQ(ValueOctets(Suggested, row.text, row.type), row.value);
  }
  const std::pair<ItemType, const char*> texts[] = {
      // clang-format off
      {ItemType_i2, "32768"}, {ItemType_i4, "-2147483649"}, {ItemType_ui8, "9223372036854775808"},
      {ItemType_i4, "007"}, {ItemType_i4, "-0"}, {ItemType_i4, "+1"}, {ItemType_i4, "-"},
      {ItemType_r4, "1.2345678"}, {ItemType_r4, "1e39"}, {ItemType_r8, "1e-400"}, {ItemType_r8, "-NAN"},
      {ItemType_r8, "1."}, {ItemType_boolean, "1"}, {ItemType_hexBinary, "0f"}, {ItemType_hexBinary, "0F0"},
      {ItemType_base64Binary, "/x=="}, {ItemType_base64Binary, "===="}, {ItemType_decimal, "1e5"},
      {ItemType_time, "12:00:00.5"}, {ItemType_date, "+2024"}, {ItemType_duration, "P1D"},
      {ItemType_xmlObject, "7"}, {static_cast<ItemType>(29), "7"},
      // clang-format on
  };
  for (const auto& [type, text] : texts) {
    SCOPED_TRACE(std::string(text) + " as " + std::to_string(type));
    EXPECT_EQ(TextOctets(Suggested, text, type), TextOctets(Suggested, text));
    EXPECT_EQ(ValueOctets(Suggested, text, type), ValueOctets(Suggested, text));
  }
  EXPECT_EQ(TextOctets(Suggested, "9223372036854775808"),
            "82 10 39 32 32 33 33 37 32 30 33 36 38 35 34 37 37 35 38 30 38");
  EXPECT_EQ(ValueOctets(Suggested, "9223372036854775808"),
            "08 0A 39 32 32 33 33 37 32 30 33 36 38 35 34 37 37 35 38 30 38");
}

TEST(CFastInfosetWriter, WritesUtf16WhereAsked) {
  const auto utf16 = [](CFastInfosetContext& context) { context.SetDefaultStringEncoding(1); };
  // U+E9, U+1F600.
  EXPECT_EQ(TextOctets(utf16, "\xC3\xA9\xF0\x9F\x98\x80"), "96 03 00 E9 D8 3D DE 00");
  EXPECT_EQ(ValueOctets(utf16, "ab"), "53 00 61 00 62");
}

TEST(CFastInfosetWriter, AddsUpToTheLimitInCharacters) {
  const struct {
    unsigned limit;
    const char* text;
    bool isAdded;
  } rows[] = {
      {6, "123456", true},           {6, "1234567", false},          {0, "1", false},
      {2, "\xC3\xA9\xC3\xA9", true}, {1, "\xC3\xA9\xC3\xA9", false}, {1, "\xF0\x9F\x98\x80", true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const auto options = [&](CFastInfosetContext& context) {
      context.SetElementMaxAddLength(row.limit);
      context.SetAttributeMaxAddLength(row.limit);
    };
    const std::string octets = Write(options, [&](CXmlWriter& w) {
      Start(w, "r");
      Attribute(w, "a", row.text);
      Attribute(w, "b", row.text);
      Text(w, row.text), Text(w, row.text);
      End(w);
    });
    EXPECT_EQ(octets.find("78 00 62 80 F0") != std::string::npos, row.isAdded) << octets;
    EXPECT_EQ(octets.substr(octets.size() - 5) == "A0 FF", row.isAdded) << octets;
  }
}

// The prefix that the caller wants is taken where it is free.
TEST(CFastInfosetWriter, DeclaresWhatNamesNeed) {
  // clang-format off
  const struct {
    Calls calls;
    const char* octets;
  } rows[] = {
      // Declared with its element only.
      {[](CXmlWriter& w) { Start(w, "r"), Empty(w, "s", "urn:a"), Empty(w, "s", "urn:a"), End(w); },
       "3C 00 72 38 CF 01 41 41 04 75 72 6E 3A 61 F0 3F 81 81 00 73 F0 38 CF 81 81 F0 01 FF F0"},
      // One prefix for two namespaces of the root.
      {[](CXmlWriter& w) {
         w.AddNamespace("p", "urn:a"), w.AddNamespace("p", "urn:b");
         Start(w, "r", "urn:b"), Empty(w, "s", "urn:b"), End(w);
       },
       "38 CF 00 70 04 75 72 6E 3A 61 CF 01 41 41 04 75 72 6E 3A 62 F0 3F 82 82 00 72 3F 82 82 00 73 FF F0"},
      // A root in no namespace beside a default namespace.
      {[](CXmlWriter& w) { w.SetDefaultNamespace("urn:d"), Start(w, "r"), Empty(w, "s", "urn:d"), End(w); },
       "3C 00 72 38 CD 04 75 72 6E 3A 64 F0 3D 81 00 73 FF F0"},
      // Declarations that contradict their element.
      {[](CXmlWriter& w) {
         Start(w, "r"), Attribute(w, "xmlns", "urn:d"), Attribute(w, "xmlns:xml", "urn:d");
         Attribute(w, "p", "urn:p", ItemType_string, "http://www.w3.org/2000/xmlns/");
         Empty(w, "s", "urn:p"), End(w);
       },
       "38 CF 00 70 04 75 72 6E 3A 70 F0 3C 00 72 3F 81 81 00 73 FF F0"},
      // A prefix that the start tag has used for another namespace.
      {[](CXmlWriter& w) {
         w.AddNamespace("p", "urn:a"), Start(w, "r", "urn:a"), Start(w, "s", "urn:a");
         w.AddNamespace("p", "urn:b"), Attribute(w, "k", "v", ItemType_string, "urn:b");
         Empty(w, "t", "urn:a"), End(w), End(w);
       },
       "38 CF 00 70 04 75 72 6E 3A 61 F0 3F 81 81 00 72 78 CF 01 41 41 04 75 72 6E 3A 62 F0 "
       "3F 81 81 00 73 7B 82 82 00 6B 40 76 F0 3F 81 81 00 74 FF FF"},
      // Reserved prefixes.
      {[](CXmlWriter& w) {
         w.AddNamespace("xml", "urn:a"), w.AddNamespace("x", CXmlWriter::XML_NAMESPACE);
         Start(w, "r", "urn:a"), Attribute(w, "id", "1", ItemType_string, CXmlWriter::XML_NAMESPACE), End(w);
       },
       "78 CF 01 41 41 04 75 72 6E 3A 61 F0 3F 81 81 00 72 7B 80 80 01 69 64 40 31 FF F0"},
      // A namespace that has its prefix for ever as the default one.
      {[](CXmlWriter& w) { w.SetDefaultNamespace(CXmlWriter::XML_NAMESPACE), Empty(w, "r", CXmlWriter::XML_NAMESPACE); },
       "3F 80 80 00 72 FF"},
  };
  // clang-format on
  for (const auto& row : rows) {
    SCOPED_TRACE(row.octets);
    EXPECT_EQ(Write(Default, row.calls), std::string("E0 00 00 01 00 ") + row.octets);
  }
}

// Hears of each operation, so it gets them all.
class CDerivedWriter : public CFastInfosetWriter {
 public:
  using CFastInfosetWriter::CFastInfosetWriter;
};

TEST(CFastInfosetWriter, WritesTextInOneStepAsInThree) {
  for (const bool writesDefaults : {false, true}) {
    const auto texts = [&](CFastInfosetWriter& writer) {
      writer.SetWriteDefaultElementValues(writesDefaults);
      qv_test::WriteTextElements(writer, true);
    };
    for (const Options& options : {Options(Default), Options(Suggested)}) {
      EXPECT_TRUE(Write(options, texts) == Write<CDerivedWriter>(options, texts));
    }
  }
}

TEST(CFastInfosetWriter, RefusesWhatMakesNoDocument) {
  const struct {
    Calls calls;
    const char* message;
  } rows[] = {
      // clang-format off
      {[](CXmlWriter&) {}, "A document must have one element."},
      {[](CXmlWriter& w) { Start(w, "r"); }, "An Element has not been closed."},
      {[](CXmlWriter& w) { Start(w, "r"), End(w), Start(w, "s"); }, "A document must have one element."},
      {[](CXmlWriter& w) { Text(w, "x"); }, "An Element has not been opened."},
      {[](CXmlWriter& w) { End(w); }, "An Element has not been opened."},
      {[](CXmlWriter& w) { Start(w, "r"), Text(w, "x"), Attribute(w, "a", "v"); }, "Attributes must be added before elements"},
      {[](CXmlWriter& w) { Start(w, "r"), Text(w, "x"), w.WriteAttributeNil(); }, "Attributes must be added before elements"},
      {[](CXmlWriter& w) { Start(w, ""); }, "The name [] can not be written."},
      {[](CXmlWriter& w) { Start(w, "r"), Attribute(w, "p:a", "v"); }, "The name [p:a] can not be written."},
      {[](CXmlWriter& w) { Start(w, "r", "http://www.w3.org/2000/xmlns/"); }, "The namespace [http://www.w3.org/2000/xmlns/] can not be declared."},
      {[](CXmlWriter& w) { Start(w, "r"), Text(w, "a\x01"); }, "Text holds a character that can not be written."},
      {[](CXmlWriter& w) { Start(w, "r"), Attribute(w, "a", std::string(1, '\0')); }, "Text holds a character that can not be written."},
      {[](CXmlWriter& w) { w.WritePI("xml-stylesheet"); }, "Invalid processing instruction [xml-stylesheet]."},
      {[](CXmlWriter& w) { w.WritePI("<?>"); }, "Invalid processing instruction [<?>]."},
      {[](CXmlWriter& w) { w.WritePI("<? a?>"); }, "Invalid processing instruction [<? a?>]."},
      {[](CXmlWriter& w) { w.WritePI("<?XML a?>"); }, "Invalid processing instruction [<?XML a?>]."},
      {[](CFastInfosetWriter& w) { w.WriteStartDocument(); }, "A document must be started only once."},
      {[](CFastInfosetWriter& w) { Start(w, "r"); EXPECT_QV_THROW(Start(w, "a b"), CQvException, "The name [a b] can not be written."); Start(w, "a"); }, "The document can not be continued after a failure."},
      {[](CFastInfosetWriter& w) { Start(w, "r"), End(w), w.WriteEndDocument(), w.WriteComment("c"); }, "The item must stand within a document."},
      // clang-format on
  };
  for (const auto& row : rows)
    EXPECT_QV_THROW(Write(Default, row.calls), CQvException, row.message);

  const auto empty = [](CXmlWriter& w) { Empty(w, "r"); };
  EXPECT_QV_THROW(Write(Default, empty, static_cast<FInfoDecl>(10)), CQvException,
                  "Invalid Fast Infoset declaration [10].");
  EXPECT_QV_THROW(
      Write([](CFastInfosetContext& context) { context.SetUseGeneratedVocabulary(true); }, empty),
      CQvException, "A generated vocabulary must have an external vocabulary URI.");
}

TEST(CFastInfosetWriter, ConvertsTextOfTheLocale) {
  EXPECT_EQ(TextOctets(Default, "a\xFFz\r\n"), "92 02 61 3F 7A 0D 0A");
  const qv_test::CTestLocale latin("de_DE", "ISO-8859-1");
  if (!latin.IsAvailable()) GTEST_SKIP() << "no such locale";
  EXPECT_EQ(Write(Default, [](CXmlWriter& w) { Leaf(w, "\xE9", "\xE9"); }),
            "E0 00 00 01 00 3C 01 C3 A9 91 C3 A9 FF");
}

// The end of the texts is what length and tag are mixed to when nothing secret comes in: a product
// with 0 would forget the rest of the text.
TEST(CFIStringIndex, HashesTextsApartWhateverTheyEndIn) {
  detail::CFIStringBytes bytes;
  const detail::CFIStringIndex index(bytes);
  EXPECT_NE(index.Hash("a0000000Ely23UTb", 8578), index.Hash("a0000001Ely23UTb", 8578));
}
