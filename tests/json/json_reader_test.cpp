// JSON text to XML text in the default mode: the mapping, and each message with its place. Every
// text goes both ways, through the handlers into a writer and straight to the result.

#include <string>

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/qvxml.h"

using namespace QvXmlLib16;

namespace {

std::string TextOf(const CBinaryData& data) {
  return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

std::string ThroughHandlers(const std::string& json, const CJsonContext& options) {
  CTextStream stream;
  CXmlTextWriter writer(stream);
  CJsonTextReader reader(json);
  CJsonReaderToXmlHandler handler(writer, options.GetSupportRoundtrip(),
                                  reader.GetErrorPathProvider());
  reader.SetJsonReaderHandler(&handler);
  reader.SetRootElementName(options.GetRootElementName());
  reader.SetAllowComments(options.GetAllowComments());
  writer.Open();
  reader.Read();
  writer.Close();
  return TextOf(stream.GetEncodedStream());
}

// The outcome, or the failure with its class.
template <class TConvert>
std::string OutcomeOf(const TConvert& convert) {
  try {
    return convert();
  } catch (const CQvException& failure) {
    return std::string(typeid(failure).name()) + failure.GetFullMessage();
  }
}

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

class JsonReader : public ::testing::Test {
 protected:
  std::string Convert(const std::string& json) {
    const std::string through =
        OutcomeOf([&] { return ThroughHandlers(json, ctx.GetJsonContext()); });
    EXPECT_EQ(OutcomeOf([&] { return TextOf(CJsonTextReader::ConvertJsonToXml(json, ctx)); }),
              through);
    return TextOf(CJsonTextReader::ConvertJsonToXml(json, ctx));
  }
  // Without the declaration.
  std::string ConvertBody(const std::string& json) {
    const std::string xml = Convert(json);
    EXPECT_EQ(kDeclaration, xml.substr(0, sizeof kDeclaration - 1));
    return xml.substr(sizeof kDeclaration - 1);
  }

  CSerializationContext ctx;
};

TEST_F(JsonReader, MakesXmlText) {
  struct Row {
    JsonRoundTrip mode;
    const char* json;
    const char* xml;
  };
  constexpr JsonRoundTrip kNone = JsonRoundTrip_None;
  constexpr JsonRoundTrip kFull = JsonRoundTrip_Full;
  const Row rows[] = {
      {kFull, "", ""},
      {kFull, " \t\r\n", ""},
      {kFull, "{}", ""},
      {kFull, "null", ""},
      {kFull, R"({"a": 5})", "<a>5</a>\n"},
      {kFull, R"({"a": 007})", "<a>007</a>\n"},
      {kFull, R"({"a": true,"b": false})", "<a>true</a>\n<b>false</b>\n"},
      {kFull, R"({"a": ""})", "<a/>\n"},
      {kFull, R"({"a": null})", "<a/>\n"},
      {kFull, R"({"a": []})", ""},
      {kFull, R"({"a": {"b": 1,"c": {"d": 2}}})",
       "<a>\n\t<b>1</b>\n\t<c>\n\t\t<d>2</d>\n\t</c>\n</a>\n"},
      {kFull, R"({"r": {"i": [1,"x",null,true,{"j": [2]}]}})",
       "<r>\n\t<i>1</i>\n\t<i>x</i>\n\t<i/>\n\t<i>true</i>\n\t<i>\n\t\t<j>2</j>\n\t</i>\n</r>\n"},
      {kFull, R"({"e": {"@x": 1,"#text": "t"}})", "<e x=\"1\">t</e>\n"},
      {kFull, R"({"e": {"@x": 1,"@y": null,"#text": null}})", "<e x=\"1\"/>\n"},
      {kFull, R"({"p:e": {"@xmlns:p": "urn:p","@xmlns": "urn:d","@p:x": true,"f": 1}})",
       "<p:e xmlns:p=\"urn:p\" xmlns=\"urn:d\" p:x=\"true\">\n\t<f>1</f>\n</p:e>\n"},
      {kNone, R"({"e": {"x": 1,"@y": 2,"#text": 3}})",
       "<e>\n\t<x>1</x>\n\t<@y>2</@y>\n\t<#text>3</#text>\n</e>\n"},
      // What follows the text lands in the element around.
      {kFull, R"({"r": {"e": {"#text": "t","x": 1},"y": 2}})",
       "<r>\n\t<e>t</e>\n\t<x>1</x>\n\t<y>2</y>\n</r>\n"},
      {kFull, R"({"r": {"e": {"#text": "t","x": {"y": 1}}}})",
       "<r>\n\t<e>t</e>\n\t<x>\n\t\t<y>1</y>\n\t</x>\n</r>\n"},
      {kFull, R"({"r": {"e": {"#text": {"b": 1}}}})", "<r>\n\t<e>\n\t\t<b>1</b>\n\t</e>\n</r>\n"},
      // Strings.
      {kFull, R"({"a": "\"\\\/\b\f\n\r\t"})", "<a>\"\\/\b\f\n\t</a>\n"},
      {kFull, R"({"a": "\u0041\u9999\uzzzz"})", "<a>337</a>\n"},
      {kFull, "{\"a\": \"x\ny\r\tz\x01\"}", "<a>xy\tz\x01</a>\n"},
      {kFull, "{\"a\n\": \"\\\nn\"}", "<a>\n</a>\n"},
      {kFull, "{\"a\": 1\n2\n}", "<a>12</a>\n"},
      {kFull, R"({"a": {"@x": "<&>\"\n","#text": "<&>\"\n"}})",
       "<a x=\"&lt;&amp;&gt;&quot;&#xA;\">&lt;&amp;&gt;\"\n</a>\n"},
      {kFull, "{\"a\": \"J\xC3\xB6rg \xFF\"}", "<a>J\xC3\xB6rg ?</a>\n"},
      {kFull, R"({"a": "a text that is longer than one block of sixteen, \"twice\""})",
       "<a>a text that is longer than one block of sixteen, \"twice\"</a>\n"},
      // A section is markup only when it is all there is.
      {kFull, R"({"a": "<![CDATA[<x>]]>"})", "<a><![CDATA[<x>]]></a>\n"},
      {kFull, R"({"a": "<![CDATA[]]></a><b>"})", "<a>&lt;![CDATA[]]&gt;&lt;/a&gt;&lt;b&gt;</a>\n"},
      {kFull, R"({"a": {"@x": "<![CDATA[]]>"}})", "<a x=\"&lt;![CDATA[]]&gt;\"/>\n"},
      // Comments, and what follows the value.
      {kFull, "// one\n{/* two */\"a\"/**/:/* * / */1/*\n*/}// end", "<a>1</a>\n"},
      {kFull, R"({"a": 1} } anything)", "<a>1</a>\n"},
      {kFull, "/* open", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.json);
    ctx.GetJsonContext().SetSupportRoundtrip(row.mode);
    EXPECT_EQ(row.xml, ConvertBody(row.json));
  }
}

TEST_F(JsonReader, PutsTheRootElementAround) {
  ctx.GetJsonContext().SetRootElementName("r");
  EXPECT_EQ("<r>\n\t<a>1</a>\n\t<b>2</b>\n</r>\n", ConvertBody(R"({"a": 1,"b": 2})"));
  EXPECT_EQ("<r x=\"1\">t</r>\n", ConvertBody(R"({"@x": 1,"#text": "t"})"));
  EXPECT_EQ("<r>5</r>\n", ConvertBody("5"));
  EXPECT_EQ("<r>1</r>\n<r>2</r>\n", ConvertBody("[1,2]"));
  EXPECT_EQ("", ConvertBody(""));
}

TEST_F(JsonReader, SaysWhatIsMalformedAndWhere) {
  const std::string value =
      "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '";
  const std::string end = "Unexpected End of File. Expected ";
  const std::string rows[][3] = {
      {"\n\n x", value + "x' at line 3, position 2.", "$"},
      {R"({"a": [1,]})", value + "]' at line 1, position 10.", "$.a[1]"},
      {"\xEF\xBB\xBF{}", value + "\xEF' at line 1, position 1.", "$"},
      {R"({"a": /x})", value + "/' at line 1, position 7.", "$.a"},
      {R"({"a": nuLL})", "Expected 'NULL' at line 1, position 10.", "$.a"},
      {R"({"a": nu)", end + "value 'NULL' at line 1, position 7.", "$.a"},
      {R"({"a": trUe})", "Expected 'true' at line 1, position 10.", "$.a"},
      {R"({"a": tru)", end + "value 'true' at line 1, position 7.", "$.a"},
      {R"({"a": [falsy]})", "Expected 'false' at line 1, position 12.", "$.a[0]"},
      {R"({"a": fals)", end + "value 'false' at line 1, position 7.", "$.a"},
      {R"({"a": -x})", "Expected a digit '0' to '9', found 'x' at line 1, position 8.", "$.a"},
      {R"({"a": 1.e})", "Expected a digit '0' to '9', found 'e' at line 1, position 9.", "$.a"},
      {R"({"a": 1ex})", "Expected a digit '0' to '9', found 'x' at line 1, position 9.", "$.a"},
      {R"({"a": -)", end + "a number at line 1, position 7.", "$.a"},
      {R"({"a": 1.)", end + "a digit '0' to '9' at line 1, position 8.", "$.a"},
      {R"({"a": 1e)", end + "'+', '-' or a number at line 1, position 8.", "$.a"},
      {R"({"a": 1e-)", end + "a digit '0' to '9' at line 1, position 9.", "$.a"},
      {R"({"a": "\x"})", "Invalid Escape Character 'x' at line 1, position 9.", "$.a"},
      {R"({"a": "\u00)", end + "4 hexadecimal digits'\\uxxxx' at line 1, position 9.", "$.a"},
      {"{\"a\": \"b\nc", end + "string value at line 2, position 1.", "$.a"},
      {R"({"a": "\)", end + "string value at line 1, position 8.", "$.a"},
      {R"({"a)", end + "string value at line 1, position 3.", "$"},
      {"{a: 1}",
       "Expected quotation mark character '\"' before Name, found 'a' at line 1, position 2.", "$"},
      {R"({"a": 1,})",
       "Expected quotation mark character '\"' before Name, found '}' at line 1, position 9.", "$"},
      {R"({"a" 1})",
       "Expected Object Name/Value separator character ':', found '1' at line 1, position 6.",
       "$.a"},
      {R"({"a" )", end + "Object Name/Value separator character ':' at line 1, position 5.", "$.a"},
      {R"({"a":)", end + "Object Value at line 1, position 5.", "$.a"},
      {R"({"a": 1 "b": 2})",
       "Expected Object separator character ',', found '\"' at line 1, position 9.", "$"},
      {"{", end + "Object terminator character '}' at line 1, position 1.", "$"},
      {R"({"a": 1)", end + "Object terminator character '}' at line 1, position 7.", "$"},
      {R"({"a": 1,)", end + "Object terminator character '}}' at line 1, position 8.", "$"},
      {R"({"a": {"b": [{"c": 1},{"d": [1 2]}]}})",
       "Expected Array separator character ',', found '2' at line 1, position 32.",
       "$.a.b[1].d[1]"},
      {R"({"a": [)", end + "Array terminator character ']' at line 1, position 7.", "$.a[0]"},
      {R"({"a": [1,)", end + "Array terminator character ']' at line 1, position 9.", "$.a[1]"},
      {R"({"a": {"": 1}})", "JSON item has an empty Name.", "$.a."},
      {"[1]", "JSON Array has no Name.", "$"},
      {R"({"a": [[1]]})", "JSON Array has no Name.", "$.a[0]"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row[0]);
    EXPECT_QV_THROW(Convert(row[0]), CQvValidationException, row[1] + "\nPath: " + row[2], row[2]);
  }
  // Bytes that text cannot hold are quoted as they are.
  const std::string nul(1, '\0'), place = "' at line 1, position 1.\nPath: $";
  EXPECT_QV_THROW(Convert(nul), CQvValidationException, value + nul + place, "$");
  ctx.GetJsonContext().GetAllowComments(false);
  EXPECT_QV_THROW(Convert("// c"), CQvValidationException, value + "/" + place, "$");
}

TEST_F(JsonReader, RefusesWhatIsNoXml) {
  const std::string start = "Failed to convert ";
  const std::pair<const char*, const char*> values[] = {
      {"5", "'5' to Element"},
      {"true", "'true' to Element"},
      {R"({"#text": "t"})", "'t' to Element"},
      {R"({"@x": 1})", "'1' to Attribute"},
      {R"({"a": {"b": 1,"@x": 2}})", "'2' to Attribute"}};
  for (const auto& row : values) {
    EXPECT_QV_THROW(Convert(row.first), CQvInvalidStateException,
                    start + "value " + row.second + " string value in XML.");
  }
  const std::pair<const char*, const char*> names[] = {
      // clang-format off
      {R"({"a": {"@x": {"b": 1}}})", "@x"}, {R"({"a": {"@x": [1]}})", "@x"}, {R"({"a": {"@": 1}})", "@"},
      {R"({"a><b": 1})", "a><b"}, {R"({"a/": 1})", "a/"}, {R"({"a x=": 1})", "a x="},
      {R"({"&a;": 1})", "&a;"}, {R"({"a\t": 1})", "a\t"}, {R"({"!DOCTYPE": 1})", "!DOCTYPE"},
      {R"({"?xml": 1})", "?xml"}, {R"({"a": {"@b='c'": 1}})", "@b='c'"},
      {"{\"a\": {\"@\xC3\": 1}}", "@\xC3"}, {R"({"a": {"@b\"": 1}})", "@b\""},
      // Would become "<?p x="1"/>", and hide what follows up to "</q?>".
      {"{\"r\": {\"\xFFp\": {\"@x\": 1},\"q\xFF\": {\"z\": 1,\"\xFFp\": {\"@x\": 2}}}}", "\xFFp"},
      // clang-format on
  };
  for (const auto& row : names) {
    EXPECT_QV_THROW(Convert(row.first), CQvInvalidStateException,
                    start + "name '" + row.second + "' to Element name in XML.");
  }
}

TEST_F(JsonReader, BoundsDepthAndSize) {
  const auto nested = [](int arrays) {
    std::string json;
    for (int i = 0; i < arrays; ++i) json += R"({"a": )";
    return json + "1" + std::string(static_cast<size_t>(arrays), '}');
  };
  Convert(nested(99));
  std::string path = "$";
  for (int i = 0; i < 100; ++i) path += ".a";
  EXPECT_QV_THROW(Convert(nested(100)), CQvValidationException,
                  "JSON exceeded depth limit at line 1, position 601.\nPath: " + path, path);
  EXPECT_QV_THROW(Convert(std::string(1'000'000, '[')), CQvValidationException,
                  "JSON Array has no Name.\nPath: $", "$");
  // Each item would repeat the name.
  const std::string name(100'000, 'n');
  std::string json = "{\"" + name + "\": [0";
  for (int i = 0; i < 1000; ++i) json += ",0";
  const std::string outcome =
      OutcomeOf([&] { return TextOf(CJsonTextReader::ConvertJsonToXml(json + "]}", ctx)); });
  EXPECT_EQ(outcome, OutcomeOf([&] { return ThroughHandlers(json + "]}", ctx.GetJsonContext()); }));
  EXPECT_NE(std::string::npos,
            outcome.find("JSON exceeded size limit at line 1, position 100191.\nPath: $.nnn"));
  EXPECT_EQ("nnn[92]", outcome.substr(outcome.size() - 7));
}

// Nothing is read beyond the end, and nothing but the family of exceptions comes out.
TEST_F(JsonReader, SurvivesTruncationAnywhere) {
  const std::string json =
      "{/* c */\"r\": {\"@x\": \"\\u0041\\\"\",\"n\": -1.5e+3,// d\n"
      "\"l\": [true,false,null,{\"#text\": \"t\"}],\"o\": {}}}";
  for (size_t length = 0; length < json.size(); ++length) {
    const std::string cut = json.substr(0, length);
    EXPECT_EQ(length == 0, OutcomeOf([&] { return Convert(cut); }) == kDeclaration) << cut;
  }
}

}  // namespace
