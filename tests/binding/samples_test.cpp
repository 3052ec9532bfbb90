// The sample classes, which are written as a generator writes them, through XML text: what they
// write and read back, and where they say a fault is.

#include <string>
#include <utility>

#include "tests/samples/all_types_data.h"
#include "tests/samples/contact.h"
#include "tests/samples/envelope.h"
#include "tests/samples/measure.h"
#include "tests/samples/note.h"
#include "tests/samples/payment.h"
#include "tests/samples/sample_documents.h"
#include "tests/samples/settings.h"
#include "tests/samples/shapes.h"
#include "tests/samples/tree.h"
#include "tests/samples/typed_nillables.h"
#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/qvxml.h"

using namespace samples;

namespace {

// Every test gives back all that it made.
class Samples : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { MakeSampleMetaData(); }
  void SetUp() override { m_liveObjects = CInstanceMonitor::GetTotal(); }
  void TearDown() override {
    std::string dump;
    CInstanceMonitor::Dump(dump);
    EXPECT_EQ(CInstanceMonitor::GetTotal(), m_liveObjects) << dump;
  }

 private:
  long m_liveObjects = 0;
};

std::string Write(const CXmlObjectBase& object, bool isFormatted = false) {
  CSerializationContext ctx;
  ctx.SetDefaultNamespaceURI("urn:qvxml:samples");
  return object.ToXml(false, isFormatted, EOL_LF, ctx);
}

// Messages of the table below.
std::string InElement(const std::string& path, const std::string& cause) {
  return "Failed to process the element.\nPath: " + path + "\n| " + cause;
}
std::string Leftover(const std::string& element, const std::string& name, const std::string& path) {
  return "Failed read all the elements held within the element [" + element +
         "]. The unexpected element [" + name + "] remains un processed\nPath: " + path;
}
std::string NoChoice(const std::string& element) {
  return "No child elements within the element [" + element +
         "] were populated. The element represents a choice, so one and only one element should be "
         "populated. The element contained no sutable child elements\nPath: /" +
         element;
}
std::string Missing(const std::string& name, const std::string& path) {
  return "Failed to find the required child element [" + name + "].\nPath: " + path;
}

template <class TObject>
CSmartPtr<TObject> Read(const std::string& xml) {
  CSmartPtr<TObject> object(new TObject);
  object->FromXml(InNamespace(xml).c_str());
  return object;
}

#define XSI "http://www.w3.org/2001/XMLSchema-instance"
#define NIL " xmlns:AA=\"" XSI "\" AA:nil=\"true\""

// Expects that the object survives Fast Infoset, with values as text and in their own encodings.
void ExpectFastInfosetKeeps(const CXmlObjectBase& object, CSmartPtr<CXmlObjectBase> (*make)()) {
  for (const bool isSuggested : {false, true}) {
    for (const char* const defaultNamespace : {"", "urn:qvxml:samples"}) {
      CSerializationContext ctx;
      ctx.SetDefaultNamespaceURI(defaultNamespace);
      if (isSuggested) ctx.GetFIContext().SetSuggestedValues();
      const CBinaryData octets = object.ToFastInfosetStream(FInfoDecl_None, ctx);
      const CSmartPtr<CXmlObjectBase> readBack = make();
      readBack->FromXmlStream(octets, ctx);
      EXPECT_EQ(Write(*readBack), Write(object));
      EXPECT_TRUE(readBack->ToFastInfosetStream(FInfoDecl_None, ctx) == octets);
    }
  }
}

// What is read is written again to the byte.
TEST_F(Samples, WriteWhatTheyRead) {
  for (const SampleDocument& row : SampleDocuments()) {
    SCOPED_TRACE(row.xml);
    const CSmartPtr<CXmlObjectBase> object = row.make();
    try {
      object->FromXml(InNamespace(row.xml).c_str());
      EXPECT_EQ(Write(*object), InNamespace(row.xml));
      ExpectFastInfosetKeeps(*object, row.make);
    } catch (const CQvException& exception) {
      ADD_FAILURE() << exception.GetFullMessage();
    }
  }
}

// The messages of the chain that is thrown, with their paths and outermost first; "-" without one.
template <class TStatement>
std::string FailureOf(const TStatement& statement) {
  try {
    statement();
  } catch (const CQvException& failure) {
    std::string text = failure.GetMessage();
    for (const CQvException* link = failure.GetInnerException(); link != nullptr;
         link = link->GetInnerException()) {
      text += "\n| " + link->GetMessage();
    }
    return text;
  }
  return "-";
}

TEST_F(Samples, SayWhereADocumentIsWrong) {
  struct Row {
    CSmartPtr<CXmlObjectBase> (*make)();
    const char* xml;
    std::string failure;
  };
  const Row rows[] = {
      // clang-format off
      {Make<CNode>, "<node/>", InElement("/node", "Failed to find the required Attribute [id].")},
      {Make<CNode>, R"(<node id="1"><node id="2"/><node id="3"><node id="x"/></node></node>)", InElement("/node/node[2]/node", "The value [x] can not be converted to a i4")},
      {Make<CChain>, R"(<chain><chain><chain ID="1"/></chain></chain>)", "Unexpected Attribute found.\nPath: /chain/chain/chain/@ID"},
      {Make<CPayment>, "<payment><cheque/></payment>", NoChoice("payment")},
      {Make<CPayment>, "<payment><card/><card/></payment>", Leftover("payment", "card", "/payment/card[2]")},
      {Make<CPayment>, "<payment><account>gold</account></payment>", InElement("/payment", "Invalid Value for Account [gold].")},
      {Make<CPayment>, "<payment><coin>1</coin><coin>1</coin><coin>1</coin><coin>1</coin></payment>", InElement("/payment", "The Maximum number of [coin] elements allowed in this collection is 3")},
      {Make<CSettings>, "<settings><level>low</level><server><host/></server></settings>", InElement("/settings", "Failed to find the mandatory element [title].")},
      {Make<CSettings>, "<settings><server><host/></server><level>low</level><title/><title/></settings>", Leftover("settings", "title", "/settings/title[2]")},
      {Make<CNote>, R"(<note><due xmlns:i=")" XSI R"(" i:nil="yes"/></note>)", "Unexpected Value [yes] for 'nil' Attribute found.\nPath: /note/due/i:@nil"},
      {Make<CNote>, "<note><due>2024-02-30</due></note>", InElement("/note", "Invalid Day [30] (1 <= day <= days in month")},
      {Make<CMeasure>, R"(<measure><length unit="m"> 5m </length></measure>)", InElement("/measure/length", "The string representing a Decimal, contained an invalid char at position 2 [ 5m ].")},
      {Make<CMeasure>, R"(<measure><length unit="m">5</length><grade>AB</grade></measure>)",
       InElement("/measure/grade", "The value [AB] can not be a char as it is either empty of greater than 1 char long")},
      {Make<CDrawing>, "<drawing/>", "Failed to find a suitable substitution element for [label].\nPath: /drawing"},
      {Make<CDrawing>, "<drawing><label><text/></label></drawing>", "Failed to find a suitable substitution element for [label].\nPath: /drawing/label"},
      {Make<CDrawing>, R"(<drawing><caption><text/></caption><shape xmlns:i=")" XSI R"(" i:type="starType"/></drawing>)", Leftover("drawing", "shape", "/drawing/shape")},
      {Make<CContact>, "<contact><name/><remark/></contact>", NoChoice("contact")},
      {Make<CEnvelope>, "<envelope/>", Missing("header", "/envelope")},
      {Make<CEnvelope>, "<envelope><header/><subject/><x/></envelope>", Leftover("envelope", "x", "/envelope/x")},
      {Make<CTypedAttributes>, R"(<attributes count="1" color="pink"/>)", InElement("/attributes", "Invalid Value for Color [pink].")},
      {Make<CTypedLists>, "<lists><color>red</color><color>pink</color></lists>", InElement("/lists", "Invalid Value for color [pink].")},
      // clang-format on
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.xml);
    const CSmartPtr<CXmlObjectBase> object = row.make();
    EXPECT_EQ(FailureOf([&] { object->FromXml(InNamespace(row.xml).c_str()); }), row.failure);
  }
}

TEST_F(Samples, AllTypesSurviveText) {
  const CSmartPtr<CAllTypes> object(new CAllTypes);
  FillAllTypes(*object);
  for (const bool isFormatted : {false, true}) {
    const std::string text = Write(*object, isFormatted);
    const CSmartPtr<CAllTypes> readBack(new CAllTypes);
    // What an object held before it was read is gone.
    readBack->GetLists()->GetI4().Add(1);
    readBack->GetOptionals()->SetColor(EColor::e_red);
    readBack->FromXml(text.c_str());
    CheckAllTypes(*readBack);
    EXPECT_EQ(Write(*readBack, isFormatted), text);
  }
}

TEST_F(Samples, AllTypesSurviveFastInfoset) {
  const CSmartPtr<CAllTypes> object(new CAllTypes);
  FillAllTypes(*object);
  CSerializationContext ctx;
  for (const bool isSuggested : {false, true}) {
    if (isSuggested) ctx.GetFIContext().SetSuggestedValues();
    for (const int encoding : {0, 1}) {
      ctx.GetFIContext().SetDefaultStringEncoding(static_cast<unsigned char>(encoding));
      const CSmartPtr<CAllTypes> readBack(new CAllTypes);
      readBack->GetLists()->GetI4().Add(1);
      readBack->FromXmlStream(object->ToFastInfosetStream(FInfoDecl_Plain, ctx), ctx);
      CheckAllTypes(*readBack);
    }
  }
  ExpectFastInfosetKeeps(*object, Make<CAllTypes>);
}

TEST_F(Samples, EachTypeHasItsLexicalForm) {
  const CSmartPtr<CAllTypes> object(new CAllTypes);
  FillAllTypes(*object);
  EXPECT_EQ(
      Write(*object->GetMandatories()),
      InNamespace("<mandatories><hexBinary>007FFF</hexBinary><base64Binary>++++AA==</base64Binary>"
                  "<i1>-128</i1><i2>-32768</i2><i4>-9223372036854775808</i4>"
                  "<i8>-9223372036854775808</i8><ui1>255</ui1><ui2>65535</ui2>"
                  "<ui4>18446744073709551615</ui4><ui8>18446744073709551615</ui8>"
                  "<r4>3.40282347e+38</r4><r8>4.9406564584124654e-324</r8>"
                  "<duration>-P1Y2M3DT4H5M6.789S</duration><yearMonth>2024-02</yearMonth>"
                  "<monthDay>--02-29</monthDay><year>2024</year><month>--12</month><day>---31</day>"
                  "<date>2024-02-29</date><datetime>2024-02-29T23:59:59.123456789Z</datetime>"
                  "<time>23:59:59.5</time>"
                  "<string>\xC3\xA4 &lt;&amp;&gt; \"quoted\"  two blanks</string>"
                  "<boolean>true</boolean>"
                  "<decimal>-0.000000000000000000000000000000000001</decimal>"
                  "<integer>-123456789012345678901234567890</integer>"
                  "<color>red</color></mandatories>"));
}

TEST_F(Samples, EmptyElementsStandForTheirDefaults) {
  const std::string empty =
      "<defaults><hexBinary/><base64Binary/><i1/><i2/><i4/><i8/><ui1/><ui2/><ui4/><ui8/><r4/><r8/>"
      "<duration/><yearMonth/><monthDay/><year/><month/><day/><date/><datetime/><time/><string/>"
      "<boolean/><decimal/><integer/><color/></defaults>";
  const CSmartPtr<CTypedDefaults> object = Read<CTypedDefaults>(empty);
  EXPECT_EQ(Write(*object), InNamespace(empty));

  CSerializationContext ctx;
  ctx.SetDefaultNamespaceURI("urn:qvxml:samples");
  ctx.SetWriteDefaultElementValues(true);
  EXPECT_EQ(object->ToXml(false, false, EOL_LF, ctx),
            InNamespace(
                "<defaults><hexBinary>0AFF</hexBinary><base64Binary>AQID</base64Binary><i1>-8</i1>"
                "<i2>-300</i2><i4>-70000</i4><i8>-5000000000</i8><ui1>8</ui1><ui2>300</ui2>"
                "<ui4>70000</ui4><ui8>5000000000</ui8><r4>0.5</r4><r8>-2.25</r8>"
                "<duration>P1DT2H</duration><yearMonth>2024-02</yearMonth>"
                "<monthDay>--02-29</monthDay><year>2024</year><month>--02</month><day>---29</day>"
                "<date>2024-02-29</date><datetime>2024-02-29T12:30:00Z</datetime>"
                "<time>12:30:00</time><string>default text</string><boolean>true</boolean>"
                "<decimal>-12.75</decimal><integer>123456789012345678901234567890</integer>"
                "<color>green</color></defaults>"));
}

TEST_F(Samples, NilSurvivesWhereTheElementIsMandatory) {
  const CSmartPtr<CNote> note =
      Read<CNote>("<note><due" NIL "/><pages" NIL "/><remark><text/></remark></note>");
  EXPECT_TRUE(note->GetDue().IsNil());
  // Kept: reading nil stores nothing, so an optional property cannot tell it from an absent one.
  EXPECT_FALSE(note->GetPages().IsNil());
  EXPECT_EQ(Write(*note), InNamespace("<note><due" NIL "/><remark><text/></remark></note>"));
}

TEST_F(Samples, ChoicesHoldOneAlternative) {
  const CSmartPtr<CPayment> payment(new CPayment);
  payment->SetCard("1");
  EXPECT_EQ(payment->GetSelected(), "card");
  const char* const taken =
      "The Property [card] is already set. Only one element within this class bay be set at a time";
  EXPECT_QV_THROW(payment->SetAccount(EAccount::e_current), CQvInvalidStateException, taken);
  EXPECT_QV_THROW(payment->SetVoucher(new CVoucher), CQvInvalidStateException, taken);
  EXPECT_QV_THROW(payment->GetCoin().Add(1), CQvInvalidStateException, taken);
  EXPECT_EQ(payment->GetCoin().GetCount(), 0);
  // Taking away what is not there takes nothing away.
  payment->SetAccount(std::nullopt);
  payment->SetVoucher(nullptr);
  payment->GetCoin().Clear();
  EXPECT_EQ(payment->GetSelected(), "card");

  payment->SetCard(std::nullopt);
  EXPECT_EQ(payment->GetSelected(), "");
  payment->GetCoin().Add(2);
  EXPECT_EQ(payment->GetSelected(), "coin");
  payment->GetCoin().Remove(0);
  payment->SetVoucher(new CVoucher);
  EXPECT_EQ(payment->GetSelected(), "voucher");

  // Reading selects too, and reading anew drops the old selection.
  payment->FromXml(InNamespace("<payment><coin>5</coin></payment>").c_str());
  EXPECT_EQ(payment->GetSelected(), "coin");
  EXPECT_EQ(payment->GetVoucher(), nullptr);
  payment->FromXml(InNamespace("<payment><account>current</account></payment>").c_str());
  EXPECT_EQ(payment->GetSelected(), "account");
  EXPECT_EQ(payment->GetCoin().GetCount(), 0);
}

TEST_F(Samples, ACollectionOfAChoiceMayOutliveIt) {
  CSmartPtr<Ci4Col> coins;
  {
    const CSmartPtr<CPayment> payment(new CPayment);
    coins = &payment->GetCoin();
  }
  coins->Add(1);
  EXPECT_EQ(coins->GetCount(), 1);
}

TEST_F(Samples, SettersGuardChildren) {
  const CSmartPtr<CNote> note(new CNote);
  EXPECT_QV_THROW(note->SetRemark(nullptr), CQvInvalidParamException,
                  "The Property [remark] is mandatory, it may node be NULL");
  EXPECT_QV_THROW(note->SetReply(new CReply("answer")), CQvInvalidParamException,
                  "This property requires an element with the name reply the element being set has "
                  "the element name answer");
  note->SetReply(nullptr);
  const CSmartPtr<CNode> node(new CNode);
  EXPECT_QV_THROW(node->GetNode().Add(new CNode("leaf")), CQvInvalidParamException,
                  "This property requires an element with the name node the element being set has "
                  "the element name leaf");
  EXPECT_EQ(node->GetNode().GetCount(), 0);
}

// A child that the application took out of the object is not changed by reading the object anew.
TEST_F(Samples, ReadingLeavesSharedChildrenAlone) {
  const char* const xml = "<note><due" NIL "/><remark><text>%s</text></remark></note>";
  const CSmartPtr<CNote> note = Read<CNote>(FormatString(xml, "old"));
  const CSmartPtr<CRemark> remark = note->GetRemark();
  note->FromXml(InNamespace(FormatString(xml, "new")).c_str());
  EXPECT_EQ(remark->GetText(), "old");
  EXPECT_EQ(note->GetRemark()->GetText(), "new");
}

TEST_F(Samples, SayWhatCannotBeWritten) {
  const CSmartPtr<CTypedAttributes> attributes(new CTypedAttributes);
  attributes->SetCount(11);
  const CSmartPtr<CSettings> settings(new CSettings);
  settings->SetTitle("t");
  settings->SetLevel(static_cast<ELevel>(7));
  const CSmartPtr<CNode> tree(new CNode);
  tree->SetId(1);
  tree->GetNode().AddNew();
  const CSmartPtr<CContact> contact(new CContact);
  contact->SetName("n");
  const std::string element = "Failed to convert the element [";
  const std::string attribute = "\n| Failed to convert attributes to XML\n| ";
  const std::pair<CXmlObjectBase*, std::string> rows[] = {
      {attributes.Ptr(),
       element + "attributes] to XML" + attribute + "Invalid Value for count [11]"},
      {settings.Ptr(), element + "settings] to XML\n| Invalid Value for level [7]"},
      {tree.Ptr(), element + "node] to XML\n| " + element + "node] to XML" + attribute +
                       "Invalid Type 0 to convert to string"},
      {contact.Ptr(),
       element + "contact] to XML\n| " + element +
           "reach] to XML\n| This element is a choice, and as such must have at one (and only one) valid item, currently there are none set"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(FailureOf([&] { Write(*row.first); }), row.second);
  }
}

// Kept: a group that begins but does not end is taken quietly, and only writing reports it.
TEST_F(Samples, AGroupCutShortIsReportedWhenItIsWritten) {
  const CSmartPtr<CContact> contact =
      Read<CContact>("<contact><name/><phone/><key>k</key><remark/></contact>");
  ASSERT_EQ(contact->GetFact().GetCount(), 1);
  EXPECT_EQ(contact->GetFact().Item(0)->GetKey(), "k");
  EXPECT_QV_THROW(Write(*contact), CQvValidationException,
                  "Failed to convert the element [contact] to XML");
}

TEST_F(Samples, PropertiesRefuseWhatIsNotTheirs) {
  const CSmartPtr<CNode> node(new CNode);
  const CSmartPtr<CVoucher> voucher(new CVoucher);
  const CSmartPtr<CChain> chain(new CChain);
  QvVariant value;
  value.SetString("1");
  EXPECT_QV_THROW(node->AccessProperty(0, false, value), CQvException, "Invalid Type 23");
  value.SetXmlObject(voucher.Ptr());
  EXPECT_QV_THROW(chain->AccessProperty(1, false, value), CQvInvalidParamException,
                  "The object [voucher] is not of the class of the property");
  EXPECT_QV_THROW(node->AccessProperty(2, false, value), CQvInvalidStateException,
                  "A collection can not be replaced");
  value.SetI4(1);
  EXPECT_QV_THROW(chain->AccessProperty(1, false, value), CQvException, "Invalid Type 5");
  const CSmartPtr<CSettings> settings(new CSettings);
  value.SetI4(1L << 32);
  EXPECT_QV_THROW(settings->AccessProperty(2, false, value), CQvInvalidValueException,
                  "The number [4294967296] is not one of the enumeration");
}

TEST_F(Samples, PropertiesAndVariantsHaveTheirOwnValues) {
  const std::string text(300, 'x');
  const CSmartPtr<CTypedNillables> first(new CTypedNillables), second(new CTypedNillables);
  QvVariant value;
  value.SetString(text);
  for (const auto& object : {first, second}) {
    object->AccessProperty(ItemType_string, false, value);
    QvVariant got;
    object->AccessProperty(ItemType_string, true, got);
    object->AccessProperty(ItemType_string, false, got);
    QvVariant number;
    number.SetI4(1);
    EXPECT_QV_THROW(object->AccessProperty(ItemType_string, false, number), CQvException,
                    "Invalid Type 5");
    QvVariant nil;
    nil.SetNil();
    object->AccessProperty(ItemType_string, false, nil);
    EXPECT_EQ(got.GetString(), text);
    object->AccessProperty(ItemType_string, true, nil);
    EXPECT_TRUE(nil.IsNil());
  }
}

}  // namespace
