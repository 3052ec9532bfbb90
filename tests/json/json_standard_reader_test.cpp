// The standard mode: which texts are JSON, and what XML they become.

#include <string>

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/qvxml.h"

using namespace QvXmlLib16;

namespace {

class JsonStandardReader : public ::testing::Test {
 protected:
  JsonStandardReader() { ctx.GetJsonContext().SetWellFormed(true); }

  // Without the declaration.
  std::string Convert(const std::string& json) {
    const CBinaryData xml = CJsonTextReader::ConvertJsonToXml(json, ctx);
    const std::string text(reinterpret_cast<const char*>(xml.GetData()), xml.GetLength());
    return text.substr(text.find('\n') + 1);
  }

  CSerializationContext ctx;
};

// Counts what it is told; takes every value.
class CCountingHandler : public IJsonReaderHandler {
 public:
  void ReadStartDocument() override {}
  void ReadEndDocument() override {}
  void ReadName(const std::string& name) override { text += name + ":"; }
  void ReadString(const std::string& value) override { text += "'" + value + "' "; }
  void ReadNumber(const std::string& value) override { text += value + " "; }
  void ReadStartObject() override { text += "{ "; }
  void ReadEndObject() override { text += "} "; }
  void ReadStartArray() override { text += "[ "; }
  void ReadEndArray() override { text += "] "; }
  void ReadBool(bool value) override { text += value ? "true " : "false "; }
  void ReadNull() override { text += "null "; }

  std::string text;
};

std::string TokensOf(const std::string& json, int maxDepth = 1000, bool isWellFormed = true) {
  CJsonTextReader reader(json);
  CCountingHandler handler;
  reader.SetJsonReaderHandler(&handler);
  reader.SetWellFormed(isWellFormed);
  reader.SetMaxDepth(maxDepth);
  reader.Read();
  return handler.text;
}

// Only XML repeats the name for each item.
TEST_F(JsonStandardReader, LimitsWhatXmlRepeatsAlone) {
  const std::string name(20'000, 'n');
  std::string items = "[ ";
  std::string json = "{\"" + name + "\":[0";
  for (int i = 1; i < 2000; ++i) json += ",0";
  json += "]}";
  for (int i = 0; i < 2000; ++i) items += "0 ";
  const std::string tokens = "{ " + name + ":" + items + "] } ";
  EXPECT_EQ(tokens, TokensOf(json));
  EXPECT_EQ(tokens, TokensOf(json, 100, false));
  EXPECT_QV_THROW(Convert(json), CQvValidationException,
                  "JSON exceeded size limit at line 1, position 20544.\nPath: $." + name + "[269]",
                  "$." + name + "[269]");
}

TEST_F(JsonStandardReader, AcceptsJson) {
  const std::pair<const char*, const char*> rows[] = {
      // clang-format off
      {"0", "0 "}, {"-0", "-0 "}, {" \t\r\n-120.0450E-007 ", "-120.0450E-007 "}, {"1e9", "1e9 "},
      {"[]", "[ ] "}, {"{}", "{ } "},
      {"[ [ ] , { } ,true , false,null]", "[ [ ] { } true false null ] "},
      {R"({"":{"a":1,"a":2}})", "{ :{ a:1 a:2 } } "}, {"\"\x7F\"", "'\x7F' "},
      {R"("\"\\\/\b\f\n\r\t")", "'\"\\/\b\f\n\r\t' "},
      {R"("\u0041\u00e9\u20AC\uFFFF")", "'A\xC3\xA9\xE2\x82\xAC\xEF\xBF\xBF' "},
      {R"("x\ud83d\ude00y")", "'x\xF0\x9F\x98\x80y' "}, {"\xEF\xBB\xBF\"mark\"", "'mark' "},
      {"\"\xF0\x9F\x98\x80 is longer than sixteen bytes\"",
       "'\xF0\x9F\x98\x80 is longer than sixteen bytes' "},
      // clang-format on
  };
  for (const auto& row : rows) EXPECT_EQ(row.second, TokensOf(row.first));
  EXPECT_EQ(std::string("'a\0b' ", 6), TokensOf(R"("a\u0000b")"));
}

TEST_F(JsonStandardReader, RefusesWhatIsNoJson) {
  struct Row {
    std::string json;
    const char* message;
    const char* path;
  };
  const Row rows[] = {
      {"", "Unexpected End of File. Expected a value at line 1, position 0.", "$"},
      {"\n ", "Unexpected End of File. Expected a value at line 2, position 1.", "$"},
      {"\xEF\xBB\xBF", "Unexpected End of File. Expected a value at line 1, position 0.", "$"},
      {"1 2", "Expected the end of the text, found '2' at line 1, position 3.", "$"},
      {"01", "A number must not begin with '0' at line 1, position 2.", "$"},
      {"[-00]", "A number must not begin with '0' at line 1, position 4.", "$[0]"},
      {"[1\n2]", "Expected Array separator character ',', found '2' at line 2, position 1.",
       "$[1]"},
      {"\"a\nb\"", "A string must not hold a control character as it is at line 2, position 0.",
       "$"},
      {"[\"sixteen bytes of text\x1F\"]",
       "A string must not hold a control character as it is at line 1, position 24.", "$[0]"},
      {R"("\'")", "Invalid Escape Character ''' at line 1, position 3.", "$"},
      {R"("\u00g0")", "Invalid hexadecimal digit 'g' at line 1, position 6.", "$"},
      {R"("\u12)",
       "Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line 1, position 3.",
       "$"},
      {R"({"a": "\ud83dx"})", "Unpaired surrogate in a string at line 1, position 13.", "$.a"},
      {R"("\ud83d\ud83d")", "Unpaired surrogate in a string at line 1, position 13.", "$"},
      {R"("\ude00")", "Unpaired surrogate in a string at line 1, position 7.", "$"},
      {"[\n\"\xC3\x28\"]", "Invalid UTF-8 at line 2, position 2.", "$"},
      {"\"\xED\xA0\x80\"", "Invalid UTF-8 at line 1, position 2.", "$"},
      {"[// c\n]",
       "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '/' at line 1, position 2.",
       "$[0]"},
      {"[[[[]]]]", "JSON exceeded depth limit at line 1, position 4.", "$[0][0][0]"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.json);
    EXPECT_QV_THROW(TokensOf(row.json, 3), CQvValidationException,
                    std::string(row.message) + "\nPath: " + row.path, row.path);
  }
  EXPECT_EQ("[ [ [ ] ] ] ", TokensOf("[[[]]]", 3));
}

TEST_F(JsonStandardReader, MakesXmlText) {
  struct Row {
    JsonRoundTrip mode;
    const char* json;
    const char* xml;
  };
  constexpr JsonRoundTrip kNone = JsonRoundTrip_None;
  constexpr JsonRoundTrip kFull = JsonRoundTrip_Full;
#define NIL(prefix) \
  " xmlns:" prefix "=\"http://www.w3.org/2001/XMLSchema-instance\" " prefix ":nil=\"true\""
  const Row rows[] = {
      {kFull, "{}", ""},
      {kFull, R"({"a":{"b":"","c":{},"d":[],"e":true,"f":-1}})",
       "<a><b/><c/><e>true</e><f>-1</f></a>"},
      {kFull, R"({"a":null})", "<a" NIL("xsi") "/>"},
      {kFull, R"({"xsi:a":{"@xmlns:xsi":"u","i":[null,""],"xsi:b":null}})",
       "<xsi:a xmlns:xsi=\"u\"><i" NIL("xsi") "/><i/><xsi:b" NIL("xsii") "/></xsi:a>"},
      {kFull, R"({"a":{"@x":"1","@y":null,"#text":null}})", "<a x=\"1\"" NIL("xsi") "/>"},
      {kFull, R"({"a":{"#text":null,"#text":null},"b":{"@xsi:iix":1,"#text":null}})",
       "<a" NIL("xsi") "/><b xsi:iix=\"1\"" NIL("xsiii") "/>"},
      // Text may stand anywhere, and what follows it is still inside.
      {kFull, R"({"a":{"#text":"t","b":{"c":1},"d":[2,{"#text":3}]}})",
       "<a>t<b><c>1</c></b><d>2</d><d>3</d></a>"},
      {kFull, R"({"a":{"k":1,"v":2,"k":3}})", "<a><k>1</k><v>2</v><k>3</k></a>"},
      {kFull, R"({"a":{"@x":"\t\r\n<&\"","#text":"\t\r\n<&\">"}})",
       "<a x=\"&#x9;&#xD;&#xA;&lt;&amp;&quot;\">\t&#xD;\n&lt;&amp;\"&gt;</a>"},
      {kFull, R"({"a":"<![CDATA[x]]>"})", "<a>&lt;![CDATA[x]]&gt;</a>"},
      {kNone, R"({"a":{"b":1,"":"t"}})", "<a><b>1</b>t</a>"},
      {kNone, R"({"a":{"#text":1}})", "<a><#text>1</#text></a>"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.json);
    ctx.GetJsonContext().SetSupportRoundtrip(row.mode);
    EXPECT_EQ(row.xml, Convert(row.json));
  }
  ctx.GetJsonContext().SetRootElementName("r");
  EXPECT_EQ("<r><a>1</a></r>", Convert(R"({"a":1})"));
}

TEST_F(JsonStandardReader, RefusesWhatIsNoXml) {
  const std::pair<const char*, const char*> rows[] = {
      // clang-format off
      {"5", "value '5' to Element string value"}, {"null", "value 'null' to Element string value"},
      {R"({"#text":1})", "value '1' to Element string value"},
      {R"({"#text":null})", "value 'null' to Element string value"},
      {R"({"@x":1})", "value '1' to Attribute string value"},
      {R"({"a":{"b":1,"@x":2}})", "value '2' to Attribute string value"},
      {R"({"a":{"b":1,"#text":null}})", "value 'null' to Element string value"},
      {R"({"a":{"@x":[1]}})", "name '@x' to Element name"},
      {R"({"a":{"#text":{}}})", "name '#text' to Element name"},
      {R"({"a><b":1})", "name 'a><b' to Element name"}, {R"({"a\u0000":1})", "name 'a' to Element name"},
      // clang-format on
  };
  for (const auto& row : rows) {
    EXPECT_QV_THROW(Convert(row.first), CQvInvalidStateException,
                    std::string("Failed to convert ") + row.second + " in XML.");
  }
  for (const char* json : {"[1]", R"({"a":[[]]})", R"({"":1})"}) {
    EXPECT_THROW(Convert(json), CQvValidationException) << json;
  }
}

// However often an element is made nil, and whatever prefixes it has.
TEST_F(JsonStandardReader, MakesNilInBoundedSpace) {
  std::string json = R"({"a":{"@x":1)";
  std::string prefix = "xsi";
  for (int i = 0; i < 300; ++i, prefix += 'i') json += ",\"@xmlns:" + prefix + "\":\"u\"";
  for (int i = 0; i < 300; ++i) json += ",\"#text\":null";
  json += "}}";
  const std::string xml = Convert(json);
  EXPECT_LT(xml.size(), json.size());
  EXPECT_EQ(" " + prefix + ":nil=\"true\"/>", xml.substr(xml.rfind(' ')));
}

TEST_F(JsonStandardReader, SurvivesTruncationAnywhere) {
  const std::string json =
      R"({"r": {"@x": "\u0041\ud83d\ude00\"","n": -1.5e+3,"l": [true,false,null,{"#text": "t"}]}})";
  for (size_t length = 0; length < json.size(); ++length) {
    try {
      Convert(json.substr(0, length));
      ADD_FAILURE() << length;
    } catch (const CQvValidationException&) {
    }
  }
  Convert(json);
}

}  // namespace
