// Objects as JSON: the entry points, the sample classes and the untyped holders, in both forms.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/samples/all_types_data.h"
#include "tests/samples/contact.h"
#include "tests/samples/envelope.h"
#include "tests/samples/measure.h"
#include "tests/samples/note.h"
#include "tests/samples/payment.h"
#include "tests/samples/sample_documents.h"
#include "tests/samples/shapes.h"
#include "tests/samples/tree.h"
#include "tests/support/qv_gtest.h"
#include "tests/support/temporary_folder.h"

#include "qvxml/qvxml.h"

using namespace samples;

namespace {

std::string BytesOf(const CBinaryData& data) {
  return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

CSerializationContext WellFormed(JsonRoundTrip roundTrip = JsonRoundTrip_Full) {
  CSerializationContext ctx;
  ctx.SetDefaultNamespaceURI("urn:qvxml:samples");
  ctx.GetJsonContext().SetWellFormed(true);
  ctx.GetJsonContext().SetSupportRoundtrip(roundTrip);
  return ctx;
}

struct Sample {
  CSmartPtr<CXmlObjectBase> (*make)();
  const char* xml;
  const char* own;
  const char* wellFormed = nullptr;  // as the other one
};

#define NAMESPACE "xmlns=\"urn:qvxml:samples\""
#define XSI "http://www.w3.org/2001/XMLSchema-instance"
#define NIL " xmlns:AA=\"" XSI "\" AA:nil=\"true\""

// clang-format off
const Sample kSamples[] = {
    {Make<CNode>, "<node " NAMESPACE R"( id="1"><label>a</label><node id="2"/><node id="3"/></node>)",
     R"({"node": {"@xmlns": "urn:qvxml:samples","@id": 1,"label": "a","node": [{"@id": 2},{"@id": 3}]}})"},
    {Make<CPayment>, "<payment " NAMESPACE "><coin>1</coin><coin>2</coin></payment>",
     R"({"payment": {"@xmlns": "urn:qvxml:samples","coin": 1,"coin": 2]}})",
     R"({"payment": {"@xmlns": "urn:qvxml:samples","coin": [1,2]}})"},
    {Make<CPayment>, "<payment " NAMESPACE R"( payer="me"><shells xmlns="urn:sea">7</shells></payment>)",
     nullptr,
     R"({"payment": {"@xmlns": "urn:qvxml:samples","@payer": "me","AA:shells": {"@xmlns:AA": "urn:sea","#text": "7"}}})"},
    {Make<CNote>, "<note " NAMESPACE "><due>2024-02-29</due><pages>3</pages><remark author=\"a\"" NIL "/><reply" NIL "/></note>",
     R"({"note": {"@xmlns": "urn:qvxml:samples","due": "2024-02-29","pages": 3,"remark": {"@author": "a"},"reply": }})",
     R"({"note": {"@xmlns": "urn:qvxml:samples","due": "2024-02-29","pages": 3,"remark": {"@author": "a","#text": null},"reply": null}})"},
    {Make<CMeasure>, "<measure " NAMESPACE R"(><length unit="m">0</length><comment xml:lang="en">say "x"
</comment><grade>A</grade></measure>)",
     "{\"measure\": {\"@xmlns\": \"urn:qvxml:samples\",\"length\": {\"@unit\": \"m\",\"#text\": 0},\"comment\": {\"@xml:lang\": \"en\",\"#text\": \"say \"x\"\n\"},\"grade\": \"A\"}}",
     R"({"measure": {"@xmlns": "urn:qvxml:samples","length": {"@unit": "m","#text": 0},"comment": {"@xml:lang": "en","#text": "say \"x\"\n"},"grade": "A"}})"},
    {Make<CDrawing>, "<drawing " NAMESPACE "><caption><text>c</text></caption><best xmlns:AA=\"" XSI R"(" AA:type="squareType" id="s"><area>4</area><side>2</side></best></drawing>)",
     nullptr,
     R"({"drawing": {"@xmlns": "urn:qvxml:samples","caption": {"text": "c"},"best": {"@xmlns:AA": ")" XSI R"(","@AA:type": "squareType","@id": "s","area": 4,"side": 2}}})"},
    {Make<CContact>, "<contact " NAMESPACE "><name>n</name><email>e</email><key>a</key><value>1</value><key>b</key><value>2</value></contact>",
     R"({"contact": {"@xmlns": "urn:qvxml:samples","name": "n","email": "e","key": "a","value": "1","key": "b","value": "2"]}})",
     R"({"contact": {"@xmlns": "urn:qvxml:samples","name": "n","email": "e","key": ["a"],"value": ["1"],"key": ["b"],"value": ["2"]}})"},
    {Make<CEnvelope>, "<envelope " NAMESPACE R"( hop="1"><header a="1" xmlns=""><x/><x>2</x>h</header><subject>s</subject><y xmlns="urn:y"/></envelope>)",
     nullptr,
     R"({"envelope": {"@xmlns": "urn:qvxml:samples","@hop": "1","header": {"@xmlns": "","@a": "1","x": ["","2"],"#text": "h"},"subject": "s","AA:y": [{"@xmlns:AA": "urn:y","#text": ""}]}})"},
};
// clang-format on

TEST(ToJson, WritesTheSamples) {
  CSerializationContext own;
  own.SetDefaultNamespaceURI("urn:qvxml:samples");
  for (const Sample& sample : kSamples) {
    SCOPED_TRACE(sample.xml);
    const CSmartPtr<CXmlObjectBase> object = sample.make();
    object->FromXml(sample.xml);
    if (sample.own != nullptr) {
      EXPECT_EQ(object->ToJson(false, EOL_LF, own), sample.own);
    } else {
      // It has a namespace below the root that has no prefix.
      EXPECT_THROW(object->ToJson(false, EOL_LF, own), CQvException);
    }
    EXPECT_EQ(object->ToJson(false, EOL_LF, WellFormed()),
              sample.wellFormed == nullptr ? sample.own : sample.wellFormed);
  }
}

TEST(ToJson, WritesTextBytesAndFilesAlike) {
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("r.json");
  CNode node("r");
  node.SetId(5);
  node.SetLabel(std::string("\xC3\xA9"));
  CSerializationContext own;
  own.SetIndentChars(" ");
  own.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_Standard);
  const struct {
    bool format;
    EOLType eol;
    const CSerializationContext& ctx;
    const char* expected;
  } rows[] = {
      {true, EOL_LF, own, "{\n \"r\": {\n  \"@id\": 5,\n  \"label\": \"\xC3\xA9\"\n }\n}"},
      {true, EOL_CRLF, own,
       "{\r\n \"r\": {\r\n  \"@id\": 5,\r\n  \"label\": \"\xC3\xA9\"\r\n }\r\n}"},
      {false, EOL_LF, own, "{\"r\": {\"@id\": 5,\"label\": \"\xC3\xA9\"}}"},
      {false, EOL_LF, WellFormed(JsonRoundTrip_None),
       "{\"r\": {\"id\": 5,\"label\": \"\xC3\xA9\"}}"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.expected);
    EXPECT_EQ(node.ToJson(row.format, row.eol, row.ctx), row.expected);
    EXPECT_EQ(BytesOf(node.ToJsonStream(row.format, Encoding_UTF8, row.eol, row.ctx)),
              row.expected);
    for (const bool isAsync : {false, true}) {
      CXmlObjectBase::AsyncToXmlFile(isAsync);
      node.ToJsonFile(path.c_str(), row.format, Encoding_UTF8, row.eol, row.ctx);
      CXmlObjectBase::AsyncToXmlFile(false);
      EXPECT_EQ(qv_test::ReadFile(path), row.expected) << isAsync;
    }
  }
}

TEST(ToJson, CompressesAndRefusesAsXmlDoes) {
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("r.json");
  const CSmartPtr<CElement> element(new CElement("r"));
  element->SetText(std::string(1000, 'x').c_str());
  const CSerializationContext ctx;
  EXPECT_QV_THROW(
      element->ToJsonFile(path.c_str(), true, Encoding_UTF8, EOL_LF, ctx, CompressionType_ZLib),
      CQvException, "ZLIB Compression only available for To Stream methods.");
  EXPECT_EQ(folder.CountEntries(), 0);
  element->ToJsonFile(path.c_str(), true, Encoding_UTF8, EOL_LF, ctx, CompressionType_GZip);
  EXPECT_EQ(qv_test::ReadFile(path).substr(0, 2), "\x1F\x8B");
  EXPECT_EQ(BytesOf(element->ToJsonStream(true, Encoding_UTF8, EOL_LF, ctx, CompressionType_ZLib))
                .substr(0, 2),
            "\x78\x01");
}

TEST(ToJson, WritesUntypedHolders) {
  constexpr struct {
    const char *xml, *own, *wellFormed;
  } rows[] = {
      {"<a/>", R"({"a": ""})", R"({"a": ""})"},
      {"<a><b>1</b><b>2</b><c/><b>3</b></a>",
       R"({"a": {"b": "1","b": "2","c": "","b": "3","#text": ""}})",
       R"({"a": {"b": ["1","2"],"c": "","b": "3"}})"},
      {R"(<a xmlns="urn:a" xmlns:p="urn:p" p:x="1"><p:b/></a>)", nullptr,
       R"({"AA:a": {"@xmlns:AA": "urn:a","@xmlns:AB": "urn:p","@AB:x": "1","AB:b": ""}})"},
      {R"(<p:a xmlns:p="urn:p"><p:b/><b/></p:a>)",
       R"({"AA:a": {"@xmlns:AA": "urn:p","AA:b": "","b": "","#text": ""}})",
       R"({"AA:a": {"@xmlns:AA": "urn:p","AA:b": "","b": ""}})"},
  };
  CSerializationContext wellFormed;
  wellFormed.GetJsonContext().SetWellFormed(true);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.xml);
    const CSmartPtr<CElement> element(new CElement("x", "", "##any", ""));
    element->FromXml(row.xml);
    if (row.own != nullptr) {
      EXPECT_EQ(element->ToJson(false), row.own);
    } else {
      EXPECT_QV_THROW(element->ToJson(false), CQvException, "Unknown Namespace: x.");
    }
    EXPECT_EQ(element->ToJson(false, EOL_LF, wellFormed), row.wellFormed);
  }
}

// What another program makes of the well-formed text.
TEST(ToJson, IsAcceptedByPython) {
  if (std::system("python3 -c '' >/dev/null 2>&1") != 0) GTEST_SKIP() << "no python3";
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("r.json");
  const auto accepts = [&path] {
    return std::system(("python3 -m json.tool " + path + " >/dev/null 2>&1").c_str()) == 0;
  };
  CAllTypes allTypes;
  FillAllTypes(allTypes);
  // One text of all, each of them an item of an array.
  std::string texts = "[0";
  for (const JsonRoundTrip roundTrip :
       {JsonRoundTrip_None, JsonRoundTrip_Standard, JsonRoundTrip_Full}) {
    for (const bool isFormatted : {false, true}) {
      const CSerializationContext ctx = WellFormed(roundTrip);
      texts += "," + allTypes.ToJson(isFormatted, EOL_LF, ctx);
      for (const SampleDocument& document : SampleDocuments()) {
        const CSmartPtr<CXmlObjectBase> object = document.make();
        object->FromXml(InNamespace(document.xml).c_str());
        texts += "," + object->ToJson(isFormatted, EOL_CRLF, ctx);
      }
    }
  }
  qv_test::WriteFile(path, texts + "]");
  EXPECT_TRUE(accepts()) << texts;
  // The other form is not for it.
  qv_test::WriteFile(path, kSamples[1].own);
  EXPECT_FALSE(accepts());
}

}  // namespace
