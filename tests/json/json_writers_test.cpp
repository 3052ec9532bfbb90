// Both JSON writers, side by side: the same calls, and what each of them makes of these.

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "tests/support/qv_gtest.h"
#include "tests/support/text_elements.h"

#include "qvxml/json/json_text_writer.h"
#include "qvxml/json/well_formed_json_writer.h"

namespace {

using namespace QvXmlLib16;
using Writer = CJsonWriter;

constexpr ItemType kString = ItemType_string;
constexpr char kXsi[] = "http://www.w3.org/2001/XMLSchema-instance";
constexpr char kXml[] = "http://www.w3.org/XML/1998/namespace";

void Start(Writer& writer, const char* localName, const char* namespaceUri = "") {
  writer.WriteStartElement(localName, namespaceUri);
}

void End(Writer& writer) { writer.WriteEndElement(); }

void Text(Writer& writer, const std::string& text, ItemType type = kString) {
  writer.WriteString(text, type, false);
}

void Element(Writer& writer, const char* localName, const std::string& text,
             ItemType type = kString) {
  Start(writer, localName);
  Text(writer, text, type);
  End(writer);
}

void Attribute(Writer& writer, const char* localName, const char* value,
               const char* namespaceUri = "") {
  writer.WriteAttributeString(localName, namespaceUri, value, kString);
}

// An element with content of its own.
void Item(Writer& writer, const char* localName, const char* value) {
  Start(writer, localName);
  Attribute(writer, "x", value);
  End(writer);
}

void Begin(Writer& writer) { writer.SetContextState(ContextState_CollectionBegin); }
void Finish(Writer& writer) { writer.SetContextState(ContextState_CollectionEnd); }

struct Options {
  bool format = false;
  JsonRoundTrip roundTrip = JsonRoundTrip_Full;
  EOLType eol = EOL_LF;
  const char* indentChars = "\t";
};

template <class TWriter>
std::string Write(void (*write)(Writer&), const Options& options = {}) {
  CTextStream stream;
  TWriter writer(stream);
  writer.Open();
  writer.SetFormat(options.format);
  writer.SetSupportRoundtrip(options.roundTrip);
  writer.SetEOLType(options.eol);
  writer.SetIndentChars(options.indentChars);
  writer.WriteStartDocument();
  write(writer);
  writer.WriteEndDocument();
  writer.Close();
  return stream.GetString();
}

std::string WriteOwn(void (*write)(Writer&), const Options& options = {}) {
  return Write<CJsonTextWriter>(write, options);
}

std::string WriteWellFormed(void (*write)(Writer&), const Options& options = {}) {
  return Write<CWellFormedJsonWriter>(write, options);
}

// Lays out what was written without formatting, which has a blank behind each colon only.
std::string Formatted(const std::string& json) {
  std::string text;
  int depth = 0;
  const auto breakLine = [&] { text += "\n" + std::string(static_cast<size_t>(depth), '\t'); };
  for (size_t i = 0; i < json.size(); ++i) {
    const bool isInText = std::count(text.begin(), text.end(), '"') % 2 != 0;
    const bool isEmpty = json[i] == '{' && json[i + 1] == '}';
    if (!isInText && (json[i] == '}' || json[i] == ']') && json[i - 1] != '{') --depth, breakLine();
    text += json[i];
    if (isInText || isEmpty || std::strchr("{[,", json[i]) == nullptr) continue;
    if (json[i] != ',') ++depth;
    breakLine();
  }
  return text;
}

struct Row {
  const char* name;
  void (*write)(Writer& writer);
  const char* own;                   // nullptr: not written
  const char* wellFormed = nullptr;  // as the other one
};

template <size_t kRows>
void ExpectTexts(const Row (&rows)[kRows]) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    if (row.own != nullptr) {
      EXPECT_EQ(WriteOwn(row.write), row.own);
    }
    const std::string wellFormed = row.wellFormed == nullptr ? row.own : row.wellFormed;
    EXPECT_EQ(WriteWellFormed(row.write), wellFormed);
    if (wellFormed.find("\\\"") == std::string::npos) {
      EXPECT_EQ(WriteWellFormed(row.write, {true}), Formatted(wellFormed));
    }
  }
}

// clang-format off

TEST(JsonWriters, WriteElementsTextAndAttributes) {
  constexpr Row rows[] = {
      {"text alone", [](Writer& w) { Element(w, "a", "5", ItemType_i4); },
       R"({"a": 5})"},
      {"attribute and text",
       [](Writer& w) { Start(w, "e"); Attribute(w, "x", "1"); Text(w, "t"); End(w); },
       R"({"e": {"@x": "1","#text": "t"}})"},
      {"typed attributes",
       [](Writer& w) { Start(w, "e"); w.WriteAttributeString("x", "", "1", ItemType_ui1);
         w.WriteAttributeString("y", "", "", ItemType_ui1); Attribute(w, "z", ""); End(w); },
       R"({"e": {"@x": 1,"@y": ,"@z": ""}})", R"({"e": {"@x": 1,"@y": "","@z": ""}})"},
      {"children",
       [](Writer& w) { Start(w, "r"); Element(w, "a", "1"); Start(w, "b"); Element(w, "c", "2");
         End(w); Element(w, "d", "3"); End(w); },
       R"({"r": {"a": "1","b": {"c": "2"},"d": "3"}})"},
      {"nothing at all", [](Writer& w) { Start(w, "r"); End(w); },
       R"({"r": })", R"({"r": {}})"},
      {"empty texts",
       [](Writer& w) { Start(w, "r"); Element(w, "s", ""); Element(w, "n", "", ItemType_i4);
         End(w); },
       R"({"r": {"s": "","n": }})", R"({"r": {"s": "","n": null}})"},
      {"nil, alone and with an attribute",
       [](Writer& w) { Start(w, "r"); Start(w, "a"); w.WriteAttributeNil(); End(w); Start(w, "b");
         Attribute(w, "x", "1"); w.WriteAttributeNil(); End(w); End(w); },
       R"({"r": {"a": ,"b": {"@x": "1"}}})", R"({"r": {"a": null,"b": {"@x": "1","#text": null}}})"},
      {"text before a child",
       [](Writer& w) { Start(w, "r"); Text(w, "t"); Element(w, "c", "1"); Text(w, "u"); End(w); },
       R"({"r": "t"{"c": "1","#text": "u"}})", R"({"r": {"c": "1","#text": "tu"}})"},
      {"empty text beside a child",
       [](Writer& w) { Start(w, "r"); Element(w, "c", "1"); Text(w, ""); End(w); },
       R"({"r": {"c": "1","#text": ""}})", R"({"r": {"c": "1"}})"},
      {"numbers in parts are one text",
       [](Writer& w) { Start(w, "r"); Text(w, "1", ItemType_i4); Text(w, "2", ItemType_i4);
         End(w); },
       R"({"r": 12})", R"({"r": "12"})"},
      {"attribute after a child",
       [](Writer& w) { Start(w, "r"); Begin(w); Item(w, "i", "1"); Attribute(w, "x", "2"); End(w); },
       R"({"r": {"i": [{"@x": "1"},"@x": "2"}})", R"({"r": {"i": [{"@x": "1"}],"@x": "2"}})"},
      {"what JSON has no place for",
       [](Writer& w) { w.WritePI("<?p?>"); Start(w, "r"); w.WriteInlineSchema("<s/>");
         Text(w, "1"); End(w); },
       R"({"r": "1"})"},
      {"comments",
       [](Writer& w) { w.WriteComment("a\nb"); Element(w, "r", "1"); w.WriteComment(""); },
       "{/* a\nb */\n\"r\": \"1\"/*  */\n}", R"({"r": "1"})"},
      {"names with marks",
       [](Writer& w) { Start(w, "a\"b\\"); Attribute(w, "\n", "1"); End(w); },
       "{\"a\"b\\\": {\"@\n\": \"1\"}}", R"({"a\"b\\": {"@\n": "1"}})"},
      {"nothing", [](Writer&) {}, "{}", "{}"},
      {"several roots",
       [](Writer& w) { Element(w, "a", "1"); Element(w, "b", "2"); },
       R"({"a": "1""b": "2"})", R"({"a": "1","b": "2"})"},
  };
  ExpectTexts(rows);
}

TEST(JsonWriters, WriteCollections) {
  constexpr Row rows[] = {
      {"objects",
       [](Writer& w) { Start(w, "l"); Begin(w); Item(w, "i", "1"); Item(w, "i", "2"); Finish(w);
         End(w); },
       R"({"l": {"i": [{"@x": "1"},{"@x": "2"}]}})"},
      {"text alone",
       [](Writer& w) { Start(w, "r"); Begin(w); Element(w, "i", "5", ItemType_i4);
         Element(w, "i", "6", ItemType_i4); Finish(w); End(w); },
       R"({"r": {"i": 5,"i": 6]}})", R"({"r": {"i": [5,6]}})"},
      {"one item", [](Writer& w) { Start(w, "r"); Begin(w); Element(w, "i", ""); Finish(w); End(w); },
       R"({"r": {"i": ""]}})", R"({"r": {"i": [""]}})"},
      {"empty and nil items",
       [](Writer& w) { Start(w, "r"); Begin(w); Item(w, "i", "1"); Start(w, "i"); End(w);
         Start(w, "i"); w.WriteAttributeNil(); End(w); Finish(w); End(w); },
       R"({"r": {"i": [{"@x": "1"},,]}})", R"({"r": {"i": [{"@x": "1"},{},null]}})"},
      {"a member behind one",
       [](Writer& w) { Start(w, "l"); Begin(w); Item(w, "i", "1"); Finish(w);
         Element(w, "after", "5"); End(w); },
       R"({"l": {"i": [{"@x": "1"},"after": "5"]}})", R"({"l": {"i": [{"@x": "1"}],"after": "5"}})"},
      {"two side by side",
       [](Writer& w) { Start(w, "r"); Begin(w); Item(w, "a", "1"); Finish(w); Begin(w);
         Item(w, "b", "2"); Item(w, "b", "3"); Finish(w); End(w); },
       R"({"r": {"a": [{"@x": "1"},"b": [{"@x": "2"},{"@x": "3"}]}})",
       R"({"r": {"a": [{"@x": "1"}],"b": [{"@x": "2"},{"@x": "3"}]}})"},
      {"one inside the other",
       [](Writer& w) { Start(w, "r"); Begin(w); Start(w, "i"); Begin(w); Item(w, "j", "1"); Finish(w);
         End(w); Start(w, "i"); Begin(w); Item(w, "j", "2"); Item(w, "j", "3"); Finish(w); End(w);
         Finish(w); End(w); },
       R"({"r": {"i": [{"j": [{"@x": "1"}]},{"j": [{"@x": "2"},{"@x": "3"}]}]}})"},
      {"items of several names",
       [](Writer& w) { Start(w, "r"); Begin(w); Item(w, "a", "1"); Item(w, "b", "2");
         Item(w, "b", "3"); Item(w, "a", "4"); Finish(w); End(w); },
       R"({"r": {"a": [{"@x": "1"},{"@x": "2"},{"@x": "3"},{"@x": "4"}]}})",
       R"({"r": {"a": [{"@x": "1"}],"b": [{"@x": "2"},{"@x": "3"}],"a": [{"@x": "4"}]}})"},
      {"text behind one",
       [](Writer& w) { Start(w, "r"); Begin(w); Item(w, "i", "1"); Finish(w); Text(w, "t"); End(w); },
       R"({"r": {"i": [{"@x": "1"},"#text": "t"]}})", R"({"r": {"i": [{"@x": "1"}],"#text": "t"}})"},
  };
  ExpectTexts(rows);
}

TEST(JsonWriters, WriteNamespaces) {
  constexpr Row rows[] = {
      {"root declares its own, the default one, and the others in the order of the URIs",
       [](Writer& w) { w.SetDefaultNamespace("urn:d"); w.AddNamespace("z", "urn:1");
         w.AddNamespace("a", "urn:2"); w.AddNamespace("x", kXml); w.AddNamespace("", "urn:0");
         Start(w, "r", "urn:r"); End(w); },
       R"({"AA:r": {"@xmlns:AA": "urn:r","@xmlns": "urn:d","@xmlns:z": "urn:1","@xmlns:a": "urn:2"}})"},
      {"only elements are in the default namespace",
       [](Writer& w) { w.SetDefaultNamespace("urn:d"); w.AddNamespace("p", "urn:d");
         Start(w, "r", "urn:d"); Attribute(w, "x", "1", "urn:d"); Attribute(w, "lang", "en", kXml);
         Start(w, "a"); End(w); End(w); },
       R"({"r": {"@xmlns": "urn:d","@xmlns:p": "urn:d","@p:x": "1","@xml:lang": "en","a": }})",
       R"({"r": {"@xmlns": "urn:d","@xmlns:p": "urn:d","@p:x": "1","@xml:lang": "en","a": {"@xmlns": ""}}})"},
      {"type with and without a prefix",
       [](Writer& w) { w.AddNamespace("xsi", kXsi); w.AddNamespace("p", "urn:p"); Start(w, "r");
         w.WriteAttributeType("urn:p", "T", kString); Start(w, "a");
         w.WriteAttributeType("", "U", kString); End(w); End(w); },
       R"({"r": {"@xmlns:xsi": "http://www.w3.org/2001/XMLSchema-instance","@xmlns:p": "urn:p","@xsi:type": "p:T","a": {"@xsi:type": "U"}}})"},
      {"URI with marks",
       [](Writer& w) { Start(w, "r", "urn:\"\\\n"); End(w); },
       "{\"AA:r\": {\"@xmlns:AA\": \"urn:\"\\\n\"}}", R"({"AA:r": {"@xmlns:AA": "urn:\"\\\n"}})"},
  };
  ExpectTexts(rows);
}

TEST(CWellFormedJsonWriter, DeclaresNamespacesWhereTheyAreUsed) {
  constexpr Row rows[] = {
      {"text becomes a member", [](Writer& w) { Start(w, "r"); Start(w, "a", "urn:a"); Text(w, "t");
         End(w); Start(w, "b", "urn:b"); End(w); End(w); },
       nullptr, R"({"r": {"AA:a": {"@xmlns:AA": "urn:a","#text": "t"},"AA:b": {"@xmlns:AA": "urn:b"}}})"},
      {"each item of an array has its own",
       [](Writer& w) { Start(w, "r"); Begin(w); Start(w, "i", "urn:i"); Start(w, "j", "urn:i"); End(w);
         End(w); Start(w, "i", "urn:i"); End(w); Start(w, "i", "urn:k"); End(w); Start(w, "i"); End(w);
         Finish(w); End(w); },
       nullptr, R"({"r": {"AA:i": [{"@xmlns:AA": "urn:i","AA:j": {}},{"@xmlns:AA": "urn:i"},{"@xmlns:AA": "urn:k"}],"i": [{}]}})"},
      {"attributes", [](Writer& w) { Start(w, "r"); Attribute(w, "x", "1", "urn:a");
         Attribute(w, "y", "2", "urn:a"); Attribute(w, "z", "3", "urn:b"); End(w); },
       nullptr, R"({"r": {"@xmlns:AA": "urn:a","@AA:x": "1","@AA:y": "2","@xmlns:AB": "urn:b","@AB:z": "3"}})"},
      {"the default one is taken back once, and then needs a prefix",
       [](Writer& w) { w.SetDefaultNamespace("urn:d"); Start(w, "r", "urn:d"); Start(w, "a");
         Start(w, "b"); Text(w, "t"); End(w); Start(w, "c", "urn:d"); End(w); End(w);
         Start(w, "e", "urn:d"); End(w); End(w); },
       nullptr, R"({"r": {"@xmlns": "urn:d","a": {"@xmlns": "","b": "t","AA:c": {"@xmlns:AA": "urn:d"}},"e": {}}})"},
      {"type", [](Writer& w) { Start(w, "r"); w.WriteAttributeType("urn:t", "T", kString); End(w); },
       nullptr, R"({"r": {"@xmlns:AA": "urn:t","@xmlns:AB": "http://www.w3.org/2001/XMLSchema-instance","@AB:type": "AA:T"}})"},
  };
  ExpectTexts(rows);
}

TEST(JsonWriters, CarryLessInOtherModes) {
  constexpr auto write = [](Writer& w) {
    w.SetDefaultNamespace("urn:d"); w.AddNamespace("p", "urn:p"); Start(w, "r", "urn:r");
    w.WriteAttributeType("urn:t", "T", kString); Attribute(w, "x", "1", "urn:u");
    Start(w, "e", "urn:e"); Attribute(w, "y", "2"); Text(w, "t"); End(w); End(w); };
  for (const auto& [roundTrip, text] :
       {std::pair(JsonRoundTrip_None, R"({"r": {"x": "1","e": {"y": "2","": "t"}}})"),
        std::pair(JsonRoundTrip_Standard, R"({"r": {"@x": "1","e": {"@y": "2","#text": "t"}}})")}) {
    EXPECT_EQ(WriteOwn(write, {false, roundTrip}), text);
    EXPECT_EQ(WriteWellFormed(write, {false, roundTrip}), text);
  }
}

// The own form, which is no JSON where the depth has not shifted.
TEST(JsonWriters, Format) {
  const std::pair<void (*)(Writer&), const char*> rows[] = {
      {[](Writer& w) { Start(w, "e"); Attribute(w, "x", "1"); Start(w, "a"); End(w); Text(w, "t");
         End(w); },
       "{\n\t\"e\": {\n\t\t\"@x\": \"1\",\n\t\t\"a\": ,\n\t\t\"#text\": \"t\"\n\t}\n}"},
      {[](Writer& w) { Start(w, "r"); Begin(w); Start(w, "i"); Begin(w); Item(w, "j", "1"); Finish(w);
         End(w); Item(w, "i", "2"); Finish(w); End(w); },
       "{\n\t\"r\": {\n\t\t\"i\": [\n\t\t\t{\n\t\t\t\t\"j\": [\n\t\t\t\t\t{\n\t\t\t\t\t\t\"@x\": \"1\"\n\t\t\t\t\t}\n"
       "\t\t\t\t]\n\t\t\t},\n\t\t\t{\n\t\t\t\t\"@x\": \"2\"\n\t\t\t}\n\t\t]\n\t}\n}"},
      // An array that was never opened: nothing has shifted the depth.
      {[](Writer& w) { Start(w, "r"); Begin(w); Element(w, "i", "5"); Element(w, "i", "6");
         Finish(w); End(w); },
       "{\n\t\"r\": {\n\t\t\"i\": \"5\",\n\t\t\"i\": \"6\"\n\t]\n\t}\n}"},
      {[](Writer& w) { w.SetDefaultNamespace("urn:d"); Start(w, "r", "urn:r"); End(w); },
       "{\n\t\"AA:r\": {\n\t\t\"@xmlns:AA\": \"urn:r\",\n\t\t\"@xmlns\": \"urn:d\"\n\t}\n}"},
      {[](Writer& w) { Start(w, "r"); Text(w, "t"); Element(w, "c", "1"); End(w); },
       "{\n\t\"r\": \"t\"{\n\t\t\"c\": \"1\"\n\t}\n}"},
      {[](Writer&) {}, "{\n\n}"},
  };
  for (const auto& [write, text] : rows) EXPECT_EQ(WriteOwn(write, {true}), text);
  const auto write = [](Writer& w) { Start(w, "r"); Element(w, "a", "x\n"); End(w); };
  const Options options{true, JsonRoundTrip_Full, EOL_CRLF, "  "};
  EXPECT_EQ(WriteOwn(write, options), "{\r\n  \"r\": {\r\n    \"a\": \"x\r\n\"\r\n  }\r\n}");
  EXPECT_EQ(WriteWellFormed(write, options), "{\r\n  \"r\": {\r\n    \"a\": \"x\\n\"\r\n  }\r\n}");
}

// clang-format on

// Each text alone, and behind enough others that it stands in any place of a block of a scan.
TEST(JsonWriters, EscapeText) {
  using std::string_literals::operator""s;
  const std::string rows[][3] = {
      {"plain \x7F\xC3\xA9\xFF/", "plain \x7F\xC3\xA9\xFF/", "plain \x7F\xC3\xA9\xFF/"},
      {"\"\\", "\"\\", "\\\"\\\\"},
      {"\t\b\f", "\t\b\f", "\\t\\b\\f"},
      {"a\r\nb", "a\nb", "a\\r\\nb"},
      {"\x01\x0B\x1F ", "\\u0001\\u000B\\u001F ", "\\u0001\\u000B\\u001F "},
      {"a\0b"s, "a", "a\\u0000b"},
  };
  static std::string s_text;
  for (const auto& [text, own, wellFormed] : rows) {
    for (size_t length = 0; length < 40; ++length) {
      const std::string before(length, '-');
      s_text = before + text;
      const auto write = [](Writer& w) { Element(w, "r", s_text); };
      EXPECT_EQ(WriteOwn(write), "{\"r\": \"" + before + own + "\"}");
      EXPECT_EQ(WriteWellFormed(write), "{\"r\": \"" + before + wellFormed + "\"}");
    }
  }
}

TEST(JsonWriters, QuoteWhatIsNoNumber) {
  static ItemType s_type;
  static const char* s_text;
  const auto write = [](Writer& w) { Element(w, "r", s_text, s_type); };
  // By type, whatever the text is.
  s_text = "INF";
  for (int type = 0; type <= 28; ++type) {
    SCOPED_TRACE(type);
    s_type = static_cast<ItemType>(type);
    const bool isBare = (type >= 3 && type <= 12) || (type >= 24 && type <= 26);
    EXPECT_EQ(WriteOwn(write), isBare ? R"({"r": INF})" : R"({"r": "INF"})");
    EXPECT_EQ(WriteWellFormed(write), R"({"r": "INF"})");
  }
  // By the text too.
  const struct {
    ItemType type;
    std::vector<const char*> bare, quoted;
  } rows[] = {
      {ItemType_i4, {"0", "-12"}, {"+1", "007", "-", " 1", "1 ", "true"}},
      {ItemType_integer, {"123456789012345678901234567890"}, {}},
      {ItemType_r8, {"1.5E-7", "0e+1"}, {"1E", "1e-", "-INF", "NaN"}},
      {ItemType_decimal, {"0.5"}, {"1.", ".5", "-00.5"}},
      {ItemType_boolean, {"true", "false"}, {"1", "TRUE"}},
      {ItemType_year, {}, {"2024"}},
  };
  for (const auto& row : rows) {
    s_type = row.type;
    for (const char* text : row.bare) {
      s_text = text;
      EXPECT_EQ(WriteWellFormed(write), std::string("{\"r\": ") + text + "}");
    }
    for (const char* text : row.quoted) {
      s_text = text;
      EXPECT_EQ(WriteWellFormed(write), std::string("{\"r\": \"") + text + "\"}");
    }
  }
}

// Hears of each operation, so it gets them all.
template <class TWriter>
class TDerivedWriter : public TWriter {
 public:
  using TWriter::TWriter;
};

TEST(JsonWriters, WriteTextInOneStepAsInThree) {
  for (const JsonRoundTrip roundTrip :
       {JsonRoundTrip_None, JsonRoundTrip_Standard, JsonRoundTrip_Full}) {
    for (const bool isFormatted : {false, true}) {
      const Options options{isFormatted, roundTrip, isFormatted ? EOL_CRLF : EOL_LF, "  "};
      const auto write = [](Writer& writer) { qv_test::WriteTextElements(writer, false); };
      const std::string own = WriteOwn(write, options),
                        wellFormed = WriteWellFormed(write, options);
      EXPECT_TRUE(own == Write<TDerivedWriter<CJsonTextWriter>>(write, options));
      EXPECT_TRUE(wellFormed == Write<TDerivedWriter<CWellFormedJsonWriter>>(write, options));
      EXPECT_NE(std::string::npos, wellFormed.find("\"one\\r\\ntwo\\tthree\""));
    }
  }
}

TEST(CJsonTextWriter, RefusesUnknownNamespacesBelowTheRoot) {
  constexpr void (*rows[])(Writer&) = {
      [](Writer& w) { Start(w, "local", "urn:unknown"); },
      [](Writer& w) { Attribute(w, "local", "", "urn:unknown"); },
      [](Writer& w) { w.WriteAttributeType("urn:unknown", "local", kString); },
  };
  for (const auto& fail : rows) {
    CTextStream stream;
    CJsonTextWriter writer(stream);
    writer.SetFormat(false);
    Start(writer, "r");
    Element(writer, "a", "1");
    EXPECT_QV_THROW(fail(writer), CQvException, "Unknown Namespace: local.");
    // The element of the failure is not open.
    End(writer);
    writer.Close();
  }
  CTextStream stream;
  CJsonTextWriter writer(stream);
  Start(writer, "r");
  EXPECT_QV_THROW(writer.WriteAttributeType("", "T", kString), CQvException,
                  "Unknown Namespace: type.");
}

template <class TWriter>
class OneJsonWriter : public ::testing::Test {};
using BothWriters = ::testing::Types<CJsonTextWriter, CWellFormedJsonWriter>;
TYPED_TEST_SUITE(OneJsonWriter, BothWriters);

TYPED_TEST(OneJsonWriter, RefusesCallsWithoutAnElement) {
  constexpr void (*rows[])(Writer&) = {
      // clang-format off
      [](Writer& w) { Text(w, "t"); }, End, [](Writer& w) { Attribute(w, "x", "1"); },
      [](Writer& w) { w.WriteAttributeType("", "T", kString); },
      [](Writer& w) { w.WriteAttributeNil(); },
      // clang-format on
  };
  CTextStream stream;
  TypeParam writer(stream);
  writer.WriteStartDocument();
  writer.SetContextState(ContextState_CollectionBegin);
  const std::string before = stream.GetString();
  for (const auto& fail : rows) {
    EXPECT_QV_THROW(fail(writer), CQvException, "An Element has not been opened.");
  }
  EXPECT_EQ(stream.GetString(), before);
  Start(writer, "r");
  EXPECT_QV_THROW(writer.Close(), CQvException, "An Element has not been closed.");
  EXPECT_QV_THROW(writer.SetEOLType(static_cast<EOLType>(2)), CQvException, "Invalid EOL type.");
}

// Fails in one of its flushes.
class FailingStream : public CTextStream {
 public:
  void Flush() override {
    if (++flushes == 3) throw CQvException("full");
    Empty();
  }

  int flushes = 0;
};

TYPED_TEST(OneJsonWriter, FlushesWhenMuchIsWaiting) {
  FailingStream stream;
  TypeParam writer(stream);
  writer.WriteStartDocument();
  Start(writer, "r");
  const std::string text(5000, 'x');
  Element(writer, "a", text);
  Element(writer, "b", text);
  Start(writer, "c");
  EXPECT_EQ(stream.flushes, 2);
  Attribute(writer, "x", text.c_str());
  EXPECT_QV_THROW(Start(writer, "d"), CQvException, "full");
  // The element of the failure is not open.
  End(writer);
  End(writer);
  writer.Close();
  writer.WriteEndDocument();
}

}  // namespace
