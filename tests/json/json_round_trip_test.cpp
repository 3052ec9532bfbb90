// Objects through JSON: what each mode carries, and every entry point that reads.

#include <string>

#include "tests/samples/all_types_data.h"
#include "tests/samples/payment.h"
#include "tests/samples/sample_documents.h"
#include "tests/samples/tree.h"
#include "tests/support/qv_gtest.h"
#include "tests/support/temporary_folder.h"
#include <gtest/gtest.h>

#include "qvxml/qvxml.h"

using namespace samples;

namespace {

constexpr char kNamespace[] = "urn:qvxml:samples";

class JsonRoundTripTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { MakeSampleMetaData(); }
  void SetUp() override {
    m_liveObjects = CInstanceMonitor::GetTotal();
    m_ctx = new CSerializationContext;
    m_ctx->SetDefaultNamespaceURI(kNamespace);
  }
  void TearDown() override {
    delete m_ctx;
    std::string dump;
    CInstanceMonitor::Dump(dump);
    EXPECT_EQ(CInstanceMonitor::GetTotal(), m_liveObjects) << dump;
  }

  CSerializationContext& Context(bool isWellFormed, JsonRoundTrip mode) {
    m_ctx->GetJsonContext().SetWellFormed(isWellFormed);
    m_ctx->GetJsonContext().SetSupportRoundtrip(mode);
    return *m_ctx;
  }
  std::string ToXml(const CXmlObjectBase& object) {
    return object.ToXml(false, false, EOL_LF, *m_ctx);
  }

  // '+' when the XML text survives, '-' when another one comes back, '!' for a failure.
  char Carry(const SampleDocument& document, bool isFormatted) {
    const std::string xml = InNamespace(document.xml);
    const CSmartPtr<CXmlObjectBase> object = document.make();
    object->FromXml(xml.c_str());
    try {
      const std::string json = object->ToJson(isFormatted, EOL_LF, *m_ctx);
      const CSmartPtr<CXmlObjectBase> copy = document.make();
      copy->FromJson(json.c_str(), *m_ctx);
      if (ToXml(*copy) != xml) return '-';
      EXPECT_EQ(json, copy->ToJson(isFormatted, EOL_LF, *m_ctx));
      return '+';
    } catch (const CQvException&) {
      return '!';
    }
  }

  CSerializationContext* m_ctx = nullptr;

 private:
  long m_liveObjects = 0;
};

TEST_F(JsonRoundTripTest, EachModeCarriesWhatItCan) {
  const struct {
    bool isWellFormed;
    JsonRoundTrip mode;
    const char* outcome;  // one character for each document
  } rows[] = {
      {true, JsonRoundTrip_Full, "++++++++++++++++++++"},
      // Lost: namespaces of wildcard content, types, the namespace of xml:lang and of heads.
      {true, JsonRoundTrip_Standard, "+++++++-+++++!!!+++-"},
      // Lost: attributes too.
      {true, JsonRoundTrip_None, "!!!+!!+!+++!!!!!+!!!"},
      // Lost: collections of primitives, nil, line ends, namespaces without an alias.
      {false, JsonRoundTrip_Full, "++++++!!+!!!+-+!+!-!"},
      {false, JsonRoundTrip_Standard, "++++++!-+!!!+!!!+!--"},
      {false, JsonRoundTrip_None, "!!!+!!!!+!!!!!!!+!!!"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(FormatString("well-formed %d, mode %d", row.isWellFormed, row.mode));
    Context(row.isWellFormed, row.mode);
    for (const bool isFormatted : {false, true}) {
      std::string outcome;
      for (const SampleDocument& document : SampleDocuments()) {
        outcome += Carry(document, isFormatted);
      }
      EXPECT_EQ(row.outcome, outcome);
    }
  }
}

TEST_F(JsonRoundTripTest, AllTypesSurviveTheStandardMode) {
  Context(true, JsonRoundTrip_Full);
  const CSmartPtr<CAllTypes> object(new CAllTypes);
  FillAllTypes(*object);
  for (const bool isFormatted : {false, true}) {
    const CSmartPtr<CAllTypes> copy(new CAllTypes);
    copy->FromJson(object->ToJson(isFormatted, EOL_LF, *m_ctx).c_str(), *m_ctx);
    CheckAllTypes(*copy);
    EXPECT_EQ(ToXml(*object), ToXml(*copy));
  }
}

TEST_F(JsonRoundTripTest, ValuesOfAnyTextSurviveTheStandardMode) {
  Context(true, JsonRoundTrip_Full);
  const std::string value = "<![CDATA[\"\\/\n\t]]></card>&\xC3\xA9\xF0\x9F\x98\x80\x7F{}[]:,// ";
  const CSmartPtr<CPayment> payment(new CPayment);
  payment->SetCard(value);
  payment->SetPayer(value);
  const CSmartPtr<CPayment> copy(new CPayment);
  copy->FromJson(payment->ToJson(false, EOL_LF, *m_ctx).c_str(), *m_ctx);
  EXPECT_EQ(value, *copy->GetCard());
  EXPECT_EQ(value, *copy->GetPayer());
  // What XML has no character for is refused.
  EXPECT_QV_THROW(copy->FromJson(R"({"payment": {"card": "\u0001"}})", *m_ctx), CQvException,
                  "Error converting JSON to XML:\n<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                  "<payment><card>\x01</card></payment>");
}

TEST_F(JsonRoundTripTest, UntypedHoldersAreReadInBothModes) {
  const std::string xml =
      R"(<e xmlns="urn:e" b="2" xmlns:AA="urn:a" AA:a="1"><f xmlns="">t</f><g xmlns="urn:g" c="">u</g></e>)";
  const CSmartPtr<CElement> element(new CElement("any"));
  element->FromXml(xml.c_str());
  const CSmartPtr<CElement> copy(new CElement("any"));
  copy->FromJson(element->ToJson(true, EOL_LF, Context(true, JsonRoundTrip_Full)).c_str(), *m_ctx);
  EXPECT_EQ(xml, copy->ToXml(false, false));
  // Kept: the other mode's line ends between elements become text.
  copy->FromJson(
      R"({"p:e": {"@xmlns:p": "urn:p","@b": 2,"@p:a": 1,"p:g": {"@c": "","#text": "u"}}})",
      Context(false, JsonRoundTrip_Full));
  EXPECT_EQ(
      "<e xmlns=\"urn:p\" b=\"2\" xmlns:AA=\"urn:p\" AA:a=\"1\">"
      "<g xmlns=\"urn:p\" c=\"\">u</g>\n\t\n</e>",
      copy->ToXml(false, false));
  // A collection is what the root holds.
  m_ctx->GetJsonContext().SetRootElementName("root");
  const CSmartPtr<CElementCol> elements(
      new CElementCol("", "##any", "", 0, CElementCol::kUnbounded));
  elements->FromJson(R"({"a": [1,2],"b": {"@x": 3}})", *m_ctx);
  EXPECT_EQ(3, elements->GetCount());
}

TEST_F(JsonRoundTripTest, EveryEntryPointReads) {
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("p.json");
  const std::string json = R"({"payment": {"@payer": "J\u00f6rg","card": "1"}})";
  Context(true, JsonRoundTrip_Standard);
  CSmartPtr<CPayment> payment(new CPayment);
  const auto expectRead = [&](const char* source) {
    EXPECT_EQ("payment J\xC3\xB6rg 1", payment->GetElementName() + " " +
                                           payment->GetPayer().value_or("") + " " +
                                           payment->GetCard().value_or(""))
        << source;
    payment = CSmartPtr<CPayment>(new CPayment);
  };
  CBinaryData data(json.c_str());
  payment->FromJson(json.c_str(), *m_ctx);
  expectRead("text");
  payment->FromJson(L"{\"payment\": {\"@payer\": \"J\xF6rg\",\"card\": \"1\"}}", *m_ctx);
  expectRead("wide text");
  payment->FromJsonStream(data, *m_ctx);
  expectRead("stream");
  payment->FromJsonStream(data[0], data.GetLength(), *m_ctx);
  expectRead("bytes");
  CBinaryData padded((json + std::string(100, ' ')).c_str());
  CQvZip::CompressData(padded, CompressionType_ZLib);
  payment->FromJsonStream(padded, *m_ctx);
  expectRead("compressed");
  qv_test::WriteFile(path, json);
  payment->FromJsonFile(path.c_str(), *m_ctx);
  expectRead("file");
  EXPECT_QV_THROW(payment->FromJsonFile("/no/such", *m_ctx), CQvException,
                  "Failed to open the file [/no/such].");
}

TEST_F(JsonRoundTripTest, FailuresTellJsonFromItsContent) {
  Context(false, JsonRoundTrip_Standard);
  const CSmartPtr<CPayment> payment(new CPayment);
  EXPECT_QV_THROW(
      payment->FromJson("{", *m_ctx), CQvValidationException,
      "Unexpected End of File. Expected Object terminator character '}' at line 1, position 1.\nPath: $",
      "$");
  const std::string start =
      "Error converting JSON to XML:\n<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  EXPECT_QV_THROW(payment->FromJson("", *m_ctx), CQvException, start);
  EXPECT_QV_THROW(payment->FromJson(R"({"a": 1,"b": 2})", *m_ctx), CQvException,
                  start + "<a>1</a>\n<b>2</b>\n");
  try {
    payment->FromJson(R"({"payment": {"coin": "x"}})", *m_ctx);
    ADD_FAILURE();
  } catch (const CQvException& failure) {
    EXPECT_EQ(start + "<payment>\n\t<coin>x</coin>\n</payment>\n", failure.GetMessage());
    EXPECT_EQ("Failed to process the element.\nPath: /payment",
              failure.GetInnerException()->GetMessage());
  }
}

// What the caller set comes back, after failures too, and not what the getter makes of it.
TEST_F(JsonRoundTripTest, NamespacesAreIgnoredWhileReading) {
  const char* const json = R"({"chain": {"@id": 1,"chain": {"@id": 2}}})";
  const CSmartPtr<CChain> chain(new CChain);
  Context(true, JsonRoundTrip_Standard).SetSchemaType(SchemaType_LocalNames);
  chain->FromJson(json, *m_ctx);
  m_ctx->SetSchemaType(SchemaType_Default);
  EXPECT_FALSE(m_ctx->GetIgnoreNamespaces());
  EXPECT_THROW(chain->FromJson(R"({"chain": {"link": 1}})", *m_ctx), CQvException);
  EXPECT_FALSE(m_ctx->GetIgnoreNamespaces());
  m_ctx->SetIgnoreNamespaces(true);
  chain->FromJson(json, *m_ctx);
  EXPECT_TRUE(m_ctx->GetIgnoreNamespaces());
  m_ctx->SetIgnoreNamespaces(false);
  EXPECT_THROW(chain->FromJson(json, Context(true, JsonRoundTrip_Full)), CQvException);
}

TEST_F(JsonRoundTripTest, DocumentsLoadJson) {
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("p.json");
  const std::string json = R"({"a": {"@x": 1,"b": [2,3]}})";
  const std::string xml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a x=\"1\">\n\t<b>2</b>\n\t<b>3</b>\n</a>\n";
  CXmlDocument document(Context(false, JsonRoundTrip_Full));
  const auto expectLoaded = [&](const CBinaryData& text, const char* source) {
    EXPECT_EQ(CBinaryData(xml.c_str()), text) << source;
    EXPECT_EQ("3",
              document.GetDocumentElement()->GetFirstElement()->GetNextSiblingElement()->GetText());
  };
  qv_test::WriteFile(path, json);
  const CBinaryData data(json.c_str());
  expectLoaded(document.LoadJson(json.c_str()), "text");
  expectLoaded(document.LoadJson(std::wstring(json.begin(), json.end()).c_str()), "wide text");
  expectLoaded(document.LoadJsonStream(data.GetData(), data.GetLength()), "stream");
  expectLoaded(document.LoadJsonFile(path.c_str()), "file");
  // The input may be text of the tree that goes.
  document.LoadXml("<a>{\"b\": 1}</a>");
  document.LoadJson(document.GetDocumentElement()->GetText().c_str());
  EXPECT_EQ("b", document.GetDocumentElement()->GetLocalName());
  EXPECT_QV_THROW(document.LoadJson("["), CQvValidationException,
                  "JSON Array has no Name.\nPath: $", "$");
  EXPECT_EQ(nullptr, document.GetDocumentElement());
  EXPECT_QV_THROW(document.LoadJson(""), CQvException, "no element found at line 2");
}

}  // namespace
