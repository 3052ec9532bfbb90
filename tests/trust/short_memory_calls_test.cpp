// Everything beside the formats while memory is short: values, documents, writers, failures,
// copies, events, and what is made when it is first used.

#include <functional>
#include <memory>
#include <new>
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
#include "tests/trust/failing_allocator.h"
#include "tests/trust/short_memory.h"
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "qvxml/qvxml.h"

using namespace samples;
using namespace qv_test;

namespace {

class ShortMemoryCalls : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    MakeSampleMetaData();
    FormatString("%d", 1);
  }
};

struct Call {
  const char* name;
  std::string (*call)();
};

template <size_t kCount>
void RunCalls(const Call (&calls)[kCount]) {
  for (const Call& call : calls) {
    RunShortOfMemory({call.name, [&] { return std::make_unique<CallSubject>(call.call); }}, 60);
  }
}

constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr char kLongDigits[] =
    "-12345678901234567890123456789012345678901234567890.0987654321098765";
constexpr char kTree[] =
    R"(<t:a xmlns:t="urn:t" xmlns="urn:d" t:x="1" y="a long value that needs a block">text<b>)"
    R"(<![CDATA[more]]> of it</b><b xmlns:u="urn:u" u:z="2"/><c>&lt;</c></t:a>)";

std::string Text(const CBinaryData& bytes) {
  return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
}

TEST_F(ShortMemoryCalls, Values) {
  const Call calls[] = {
      {"decimal arithmetic",
       [] {
         CDecimal value(kLongDigits);
         value *= CDecimal("3.5000000000000000000001");
         value += CDecimal(1) / CDecimal(7);
         CDecimal copy;
         copy = value;
         copy.ChangeFractionalDivider(40);
         return value.ToString() + " " + copy.ToString(3) + " " + (-copy).ToString();
       }},
      {"big integer arithmetic",
       [] {
         CBigInteger value = CBigInteger::Pow10(200);
         value *= CBigInteger("-98765432109876543210987654321098765432109876543210");
         CBigInteger quotient;
         CBigInteger remainder;
         CBigInteger::Divide(value, CBigInteger("123456789012345678901234567890123456789012345"),
                             &quotient, &remainder);
         value.DivideByPow10(30, &remainder);
         return quotient.ToString() + " " + remainder.ToString() + " " + value.GetAbs().ToString();
       }},
      {"binary data",
       [] {
         CBinaryData data("some text that is shared between copies");
         CBinaryData copy(data);
         copy.Append(std::string(20000, 'x'));
         *copy[3] = 'X';
         CBinaryData hex;
         hex.SetAsHexString(data.GetAsHexString().c_str());
         CBinaryData base64;
         base64.SetAsBase64(copy.GetAsBase64().c_str());
         return Text(hex) + std::to_string(base64.GetLength()) + Text(data);
       }},
      {"dates and durations",
       [] {
         const CDateTime date =
             CConversions::datetimeFromString("  2024-02-29T23:59:59.123456789-05:30  ", kCollapse);
         const CDateTimeSpan span =
             CConversions::durationFromString("-P1Y2M3DT4H5M6.789S", kCollapse);
         return CConversions::datetimeToString((date + span).GetNormalized()) + " " +
                CConversions::dateToString(date) + " " + CConversions::durationToString(span);
       }},
      {"conversions",
       [] {
         return CConversions::r8ToString(
                    CConversions::r8FromString(" -1.7976931348623157e308 ", kCollapse)) +
                CConversions::r8ToString(1.5, "a number of %10.3f in a long text") +
                CConversions::decimalToString(CDecimal(kLongDigits), "%80s") +
                CConversions::hexBinaryToString(CConversions::hexBinaryFromString(
                    "00112233445566778899AABBCCDDEEFF00112233445566778899AABBCCDDEEFF",
                    kCollapse)) +
                CConversions::stringFromString("  text   with    many   blanks in it  ", kCollapse);
       }},
      {"variants",
       [] {
         QvVariant variant;
         variant.FromString(kLongDigits, ItemType_decimal, kCollapse);
         QvVariant copy(variant);
         copy.SetString("a string that is longer than what fits in place");
         variant = copy;
         QvVariant bytes;
         bytes.FromString("00112233445566778899", ItemType_hexBinary, kCollapse);
         std::swap(bytes, copy);
         return variant.ToString() + bytes.ToString() + copy.ToString() + copy.GetType();
       }},
      {"patterns",
       [] {
         std::string results;
         for (const char* pattern : {"[a-z]+\\d{2,5}", "(a|b)*c", "\\i\\c*", "(a+)+"}) {
           results += TestRegEx("abc123", pattern) ? '+' : '-';
           results += TestRegEx(std::string(300, 'a'), pattern) ? '+' : '-';
         }
         return results;
       }},
      {"facets",
       [] {
         const CPrimitiveRestrictions facets("[0-9.+\\-]*", -1, -1, "-1e3", "99999999999999999999",
                                             "", "", -1, 60, 20, {"1", kLongDigits, "17.5"});
         CXmlObjectHelper::CheckRestrictionFordecimal("value", CDecimal("17.5"), facets);
         const CPrimitiveRestrictions copy(facets);
         CXmlObjectHelper::CheckRestrictionForstring("text", "a text of some length",
                                                     CPrimitiveRestrictions("[a-z ]*", 1, 50));
         return copy.GetMaxInclusive();
       }},
      {"encodings",
       [] {
         const CBinaryData wide = CEncoder::LocalCodePageToUnicodeBinary(kTree);
         const CBinaryData utf8 = CEncoder::UnicodeToUtf8Binary(L"wide text that becomes \x20AC");
         return std::to_string(wide.GetLength()) + Text(utf8) +
                CEncoder::Utf8ToLocalCodePage(kTree) +
                Text(CEncoder::LocalCodePageToUtf8Binary("a text in UTF-8 \xC3\xA4, or not \xC3"));
       }},
      {"compression",
       [] {
         std::string result;
         for (const CompressionType type : {CompressionType_GZip, CompressionType_ZLib}) {
           CBinaryData data(std::string(200000, 'x').c_str());
           CQvZip::CompressData(data, type);
           result += std::to_string(CQvZip::Decompress(data).GetLength()) + " ";
         }
         return result;
       }},
      {"messages",
       [] {
         std::string text = FormatString("%s %d.", std::string(2000, 'x').c_str(), 5);
         FindReplace(text, "x", "a longer text ");
         return text + UnicodeToMultiByte(L"wide text of some length") +
                ToFracString(123, 456, 789);
       }},
      {"vocabularies",
       [] {
         CFIVocabulary vocabulary;
         for (int i = 0; i < 40; ++i) {
           const std::string name = "a name that needs a block " + std::to_string(i % 30);
           vocabulary.AddElement("p", "urn:a-namespace", name);
           vocabulary.AddAttribute("", "", name);
           vocabulary.AddElementValue(name);
           vocabulary.AddAttributeValue(name);
         }
         CFIVocabulary copy(vocabulary);
         copy.AddLocalName("one more");
         unsigned index = 0;
         copy.FindLocalNameIndex("one more", index);
         return std::to_string(index) + " " +
                std::to_string(copy.GetElementNamesTable().GetCount()) + " " +
                std::to_string(copy.GetCharacterChunksTable().GetCount());
       }},
      {"instance names",
       [] {
         const CNamedInstance instance("a class of the test");
         std::string dump;
         CInstanceMonitor::Dump(dump);
         return std::string(dump.find("a class of the test") != dump.npos ? "found" : "missing");
       }},
  };
  RunCalls(calls);
}

bool TakesItems(CXmlElement* element) { return element->GetLocalName() == "b"; }

bool Throws(CXmlElement* element) {
  if (element->GetLocalName() == "c") throw CQvInvalidStateException("The callback has had enough");
  return false;
}

// A document is loaded by other means than an object's own.
std::string Summary(const CXmlDocument& document) {
  const CXmlElement* const root = document.GetDocumentElement();
  if (root == nullptr) return "nothing";
  const CSmartPtr<CElement> copy(new CElement("copy"));
  copy->CopyXmlElement(root);
  return copy->ToXml(false, true) + root->GetQName() + document.LookupAliasFromNamespace("urn:t");
}

TEST_F(ShortMemoryCalls, Documents) {
  const Call calls[] = {
      {"load and read paths",
       [] {
         CXmlDocument document;
         document.LoadXml(kTree);
         const CXmlElement* const second =
             document.GetDocumentElement()->GetFirstElement()->GetNextSiblingElement();
         return second->GetXPath() + second->GetNameWithPredicate() + Summary(document);
       }},
      {"load again",
       [] {
         CSerializationContext ctx;
         ctx.SetStripCDATA(false);
         ctx.SetSchemaType(SchemaType_LocalNames);
         CXmlDocument document(ctx);
         document.LoadXml(kTree);
         document.LoadXml(L"<other><one/></other>");
         return Summary(document);
       }},
      {"take elements as they end",
       [] {
         CXmlDocument document(TakesItems);
         document.LoadXml(kTree);
         return Summary(document);
       }},
      {"a callback that throws",
       [] {
         CXmlDocument document(Throws);
         document.LoadXml(kTree);
         return Summary(document);
       }},
      {"build",
       [] {
         CXmlDocument document;
         CXmlElement* const root = document.AddDocElement("urn:t", "root");
         document.AddNamespacePrefix("a-prefix-that-is-long", "urn:t");
         for (int i = 0; i < 30; ++i) {
           CXmlElement* const child = document.AddChildElement("", "child");
           document.AddElementAttribute(child, "attribute", "urn:a", "a value that needs a block");
           document.AppendTextExcludingCR(child, "text with\r\nline ends that go on and on");
           document.EndElement();
         }
         CXmlElement* const made = root->CreateNewChildElement();
         made->SetElementName("made-later");
         made->SetNamespace("urn:made");
         made->AppendText("with text of its own");
         return Summary(document);
       }},
      {"entities and attribute defaults",
       [] {
         CXmlDocument document;
         document.LoadXml(
             "<?xml version='1.0' encoding='ISO-8859-1'?><!DOCTYPE a [<!ENTITY e 'x<b/>y'>"
             "<!ATTLIST a d CDATA 'a default that needs a block'>]><a>&e;&e;\xE4</a>");
         return Summary(document);
       }},
      {"JSON to a document",
       [] {
         CSerializationContext ctx;
         ctx.GetJsonContext().SetWellFormed(true);
         ctx.GetJsonContext().SetRootElementName("root");
         CXmlDocument document(ctx);
         const CBinaryData xml = document.LoadJson(
             R"({"a": {"@b": "c", "d": [1, 2, {"e": null}], "f": "a string that needs a block"}})");
         return Text(xml) + Summary(document);
       }},
      {"lenient JSON to a document",
       [] {
         CSerializationContext ctx;
         CXmlDocument document(ctx);
         const CBinaryData xml = document.LoadJson(
             "// a comment\n{a: {'b': 'c', d: [1, 2], f: \"a string that needs a block\"}}");
         return Text(xml) + Summary(document);
       }},
      {"text writer",
       [] {
         CTextStream stream;
         CXmlTextWriter writer(stream);
         writer.Open();
         writer.WriteStartDocument();
         for (int i = 0; i < 20; ++i) {
           writer.WriteStartElement("element-of-level-" + std::to_string(i),
                                    "urn:level-" + std::to_string(i % 7));
           writer.WriteAttributeString("attribute", "urn:attributes", "a < value", ItemType_string);
         }
         writer.WriteString("text & more of it", ItemType_string, false);
         for (int i = 0; i < 20; ++i) writer.WriteEndElement();
         writer.Close();
         return std::string(stream.GetText(), stream.GetLength());
       }},
  };
  RunCalls(calls);
}

template <class TObject>
std::string ReadXml(const char* xml) {
  const CSmartPtr<TObject> object(new TObject);
  object->FromXml(InNamespace(xml).c_str());
  return "was read";
}

std::string ReadJson(const char* json, bool isWellFormed) {
  CSerializationContext ctx;
  ctx.GetJsonContext().SetWellFormed(isWellFormed);
  const CSmartPtr<CNode> object(new CNode);
  object->FromJson(json, ctx);
  return "was read";
}

std::string ReadBytes(const char* bytes, size_t length) {
  const CSmartPtr<CNode> object(new CNode);
  object->FromXmlStream(CBinaryData(reinterpret_cast<const unsigned char*>(bytes), length));
  return "was read";
}

// Every class of exceptions, from every layer that throws.
TEST_F(ShortMemoryCalls, Failures) {
  const Call calls[] = {
      {"malformed XML", [] { return ReadXml<CNode>("<node id=\"1\"><node></nod></node>"); }},
      {"missing attribute",
       [] { return ReadXml<CNode>(R"(<node id="1"><node id="2"/><node/></node>)"); }},
      {"value deep inside",
       [] { return ReadXml<CChain>(R"(<chain><chain><chain id="x"/></chain></chain>)"); }},
      {"unknown attribute", [] { return ReadXml<CChain>(R"(<chain><chain ID="1"/></chain>)"); }},
      {"unexpected element",
       [] { return ReadXml<CEnvelope>("<envelope><header/><subject/><x/></envelope>"); }},
      {"empty choice", [] { return ReadXml<CPayment>("<payment><cheque/></payment>"); }},
      {"enumeration",
       [] { return ReadXml<CPayment>("<payment><account>gold</account></payment>"); }},
      {"too many",
       [] {
         return ReadXml<CPayment>(
             "<payment><coin>1</coin><coin>1</coin><coin>1</coin><coin>1</coin></payment>");
       }},
      {"no such substitution", [] { return ReadXml<CDrawing>("<drawing><label/></drawing>"); }},
      {"a date that is none", [] { return ReadXml<CNote>("<note><due>2024-02-30</due></note>"); }},
      {"a decimal that is none",
       [] { return ReadXml<CMeasure>(R"(<measure><length unit="m">5m</length></measure>)"); }},
      {"mandatory element",
       [] { return ReadXml<CSettings>("<settings><level>low</level></settings>"); }},
      {"written without its mandatory elements",
       [] { return CSmartPtr<CSettings>(new CSettings)->ToXml(); }},
      {"written without its choice", [] { return CSmartPtr<CPayment>(new CPayment)->ToXml(); }},
      {"malformed JSON", [] { return ReadJson(R"({"node": {"@id": 1, "label": tru}})", true); }},
      {"malformed lenient JSON",
       [] { return ReadJson("{\"node\": {\"@id\": 1, \"label\": [}", false); }},
      {"JSON that is no object's", [] { return ReadJson(R"({"node": {"@id": "x"}})", true); }},
      {"damaged Fast Infoset", [] { return ReadBytes("\xE0\0\0\1\0\x3F\x80zzz", 10); }},
      {"damaged gzip", [] { return ReadBytes("\x1F\x8B\x08\0\0\0\0\0\0\0zzzzzzzz", 18); }},
      {"file to read",
       [] {
         CXmlDocument().Load("/no/such/file");
         return std::string();
       }},
      {"file to write",
       [] {
         CSmartPtr<CNote>(new CNote)->ToXmlFile("/no/such/folder/file");
         return std::string();
       }},
      {"invalid value",
       [] { return std::to_string(CConversions::i4FromString(std::string(600, '9'), kCollapse)); }},
      {"invalid namespace",
       [] {
         return CSmartPtr<CElement>(new CElement("name", "urn:a", "##local", "urn:t"))->ToXml();
       }},
      {"invalid state",
       [] {
         const CSmartPtr<CPayment> payment(new CPayment);
         payment->SetCard(std::string("1"));
         payment->SetVoucher(CSmartPtr<CVoucher>(new CVoucher));
         return std::string();
       }},
      {"invalid parameter",
       [] {
         const CSmartPtr<CPayment> payment(new CPayment);
         payment->GetCoin().Item(7);
         return std::string();
       }},
      {"overflow", [] { return std::to_string(CDecimal(kLongDigits).ToLong()); }},
      {"pattern", [] { return std::to_string(TestRegEx("a", "(((unclosed")); }},
      {"pattern without end",
       [] { return std::to_string(TestRegEx(std::string(40, 'a') + "!", "((a|aa)+)+")); }},
      {"facet",
       [] {
         CXmlObjectHelper::CheckRestrictionForstring("name", "text",
                                                     CPrimitiveRestrictions("[0-9]*"));
         return std::string();
       }},
      {"indentation",
       [] {
         CSerializationContext ctx;
         ctx.SetIndentChars("no blanks");
         return std::string();
       }},
  };
  RunCalls(calls);
  for (const Call& call : calls)
    EXPECT_NE(DescribeFailureOf([&] { call.call(); }), "") << call.name;
}

TEST_F(ShortMemoryCalls, Copies) {
  const Call calls[] = {
      {"untyped elements",
       [] {
         const CSmartPtr<CElement> element(new CElement("root", "urn:root"));
         element->GetAttributes()->Add("name", "a value that needs a block", "urn:a");
         CElement* child = element.Ptr();
         for (int i = 0; i < 10; ++i) {
           child = child->GetElements()->Add("child", "urn:child");
           child->SetText("a text that needs a block");
         }
         const CSmartPtr<CElement> copy = element->Clone();
         const CSmartPtr<CElementCol> children = copy->GetElements()->Clone();
         const CSmartPtr<CAttributeCol> attributes = copy->GetAttributes()->Clone();
         return copy->ToXml() + children->Item(0)->ToXml() + attributes->Item(0)->GetValue();
       }},
      {"exceptions",
       [] {
         const CQvValidationException inner("the innermost of all the messages", "/path/to/it");
         const CQvInvalidValueException middle("the message in the middle", inner);
         const CQvInvalidStateException outer("the message that is outside", middle);
         CQvException copy(outer);
         CQvInvalidStateException assigned;
         assigned = outer;
         copy = assigned;
         const std::unique_ptr<CQvException> clone(outer.Clone());
         CQvException wrapper("a wrapper around the others");
         CQvException::MoveInto(wrapper, copy);
         return wrapper.GetFullMessage() + clone->GetFullMessage() + assigned.GetFullMessage();
       }},
      {"exceptions thrown again",
       []() -> std::string {
         try {
           ReadXml<CChain>(R"(<chain><chain><chain id="x"/></chain></chain>)");
         } catch (const CQvException& caught) {
           throw CQvInvalidParamException("thrown again, with its cause", caught);
         }
         return "was read";
       }},
      {"contexts",
       [] {
         CSerializationContext ctx;
         ctx.SetDefaultNamespaceURI("urn:a-default-namespace");
         ctx.GetNamespaceAliases().Add("an-alias-that-is-long", "urn:an-aliased-namespace");
         ctx.GetProcessingInstructions().push_back("an instruction that needs a block");
         ctx.GetAdditionalRootAttributes()->Add("attribute", "a value that needs a block");
         ctx.GetFIContext().SetExternalVocabularyURI("urn:an-external-vocabulary");
         ctx.GetJsonContext().SetRootElementName("a root name that is long");
         CSerializationContext copy(ctx);
         CSerializationContext assigned;
         assigned = copy;
         const CFastInfosetContext infoset(assigned.GetFIContext());
         const CJsonContext json(assigned.GetJsonContext());
         const CSmartPtr<CElement> element(new CElement("root"));
         return element->ToXml(false, false, EOL_LF, assigned) + json.GetRootElementName() +
                infoset.GetExternalVocabularyURI();
       }},
      {"attributes and names",
       [] {
         const CAttribute attribute("a-name-that-needs-a-block", "and-a-value-that-does", "urn:x");
         CAttribute copy(attribute);
         copy = attribute;
         copy.SetName("another-name-that-needs-a-block");
         return copy.GetName() + copy.GetValue() + attribute.Clone()->GetNamespace();
       }},
  };
  RunCalls(calls);
}

// Counts what it hears and, for every second event, refuses.
class Listener : public CXmlObjectBase {
 public:
  explicit Listener(bool refuses) : CXmlObjectBase("listener"), m_refuses(refuses) {}
  void OnEvent(CXmlObjectBase*, MsgType, void*) override {
    ++m_count;
    if (m_refuses && m_count % 2 == 0) throw CQvInvalidStateException("The listener refuses that");
  }
  CXmlObjectBase* GetBase() override { return this; }
  std::string GetTargetNamespace() const override { return std::string(); }
  std::string GetNamespace() const override { return std::string(); }
  void ToXml_Int(CXmlWriter*, bool, const char*, const CSerializationContext&,
                 bool) const override {}
  CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* child, const CSerializationContext&,
                           bool) override {
    return child;
  }
  int GetCount() const { return m_count; }

 private:
  const bool m_refuses;
  int m_count = 0;
};

template <bool kRefuses>
std::string ChangeCollections() {
  Listener listener(kRefuses);
  // Before what it listens to is released, whatever happens.
  const CSmartPtr<CNode> node(new CNode);
  const CSmartPtr<CPayment> payment(new CPayment);
  node->GetNode().AddEventListener(&listener);
  payment->GetCoin().AddEventListener(&listener);
  for (long i = 0; i < 3; ++i) {
    node->GetNode().AddNew().SetId(i);
    payment->GetCoin().Add(i);
  }
  node->GetNode().AddAt(1, CSmartPtr<CNode>(new CNode));
  node->GetNode().Remove(0);
  payment->GetCoin().Clear();
  payment->SetCard(std::string("a card with a long number 1234567890"));
  return std::to_string(listener.GetCount()) + payment->GetSelected() +
         std::to_string(node->GetNode().GetCount());
}

TEST_F(ShortMemoryCalls, Events) {
  const Call calls[] = {{"heard", ChangeCollections<false>}, {"refused", ChangeCollections<true>}};
  RunCalls(calls);
}

// A collection that an addition fails on is what it was, and so is the choice around it.
TEST_F(ShortMemoryCalls, AdditionsHappenOrNot) {
  for (long number = 1;; ++number) {
    const CSmartPtr<CNode> node(new CNode);
    const CSmartPtr<CPayment> payment(new CPayment);
    long added = 0;
    FailingAllocator::Arm(number, true);
    try {
      for (; added < 20; ++added) node->GetNode().AddNew();
    } catch (const std::bad_alloc&) {
    }
    FailingAllocator::Disarm();
    EXPECT_EQ(node->GetNode().GetCount(), added);
    FailingAllocator::Arm(number, true);
    long coins = 0;
    try {
      for (; coins < 20; ++coins) payment->GetCoin().Add(coins);
    } catch (const std::bad_alloc&) {
    }
    FailingAllocator::Disarm();
    EXPECT_EQ(payment->GetCoin().GetCount(), coins);
    EXPECT_EQ(payment->GetSelected(), coins > 0 ? "coin" : "");
    if (added == 20 && coins == 20) break;
  }
}

// An entry that is not added leaves no trace: those that follow have the indices that a reader
// counts.
TEST_F(ShortMemoryCalls, VocabulariesKeepCount) {
  const std::string names[] = {"a first name that needs a block",
                               "a second name that needs a block",
                               "a third name that needs a block"};
  for (long number = 1; number < 40; ++number) {
    CFIVocabulary vocabulary;
    FailingAllocator::Arm(number, false);
    for (const std::string& name : names) {
      try {
        vocabulary.AddLocalName(name);
      } catch (const std::bad_alloc&) {
      }
    }
    FailingAllocator::Disarm();
    unsigned expected = 0;
    for (const std::string& added : vocabulary.GetLocalNamesTable()) {
      unsigned index = 0;
      EXPECT_TRUE(vocabulary.FindLocalNameIndex(added, index)) << "allocation " << number;
      EXPECT_EQ(index, ++expected) << "allocation " << number;
    }
  }
}

}  // namespace
