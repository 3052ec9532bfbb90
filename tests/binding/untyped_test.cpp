// Untyped attributes and elements, alone and in a generated class.

#include <string>
#include <vector>

#include "tests/support/qv_gtest.h"
#include "tests/support/recording_writer.h"
#include "tests/support/small_stack.h"

#include "qvxml/binding/metadata/attribute_info.h"
#include "qvxml/binding/metadata/element_infos.h"
#include "qvxml/binding/metadata/parent_element_info.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/xml/untyped/attribute_col.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/untyped/element_col.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

namespace {

using CElementPtr = CSmartPtr<CElement>;
using CElementColPtr = CSmartPtr<CElementCol>;
using CAttributeColPtr = CSmartPtr<CAttributeCol>;

CElementPtr Read(const std::string& text,
                 const CSerializationContext& ctx = CSerializationContext::m_defaultContext) {
  CElementPtr element(new CElement("unread"));
  element->FromXml(text.c_str(), ctx);
  return element;
}

std::string Write(const CElementPtr& element) { return element->ToXml(false, false); }

std::vector<std::string> NamesOf(const CElementColPtr& elements) {
  std::vector<std::string> names;
  for (const CElementPtr& element : *elements) names.push_back(element->GetName());
  return names;
}

// As the generator would write it: any attributes, one element of another namespace, any elements.
class CHolder : public CXmlGeneratedClass {
 public:
  CHolder() : CXmlGeneratedClass("holder") { CHolder::Init(); }
  std::string GetTargetNamespace() const override { return "urn:t"; }
  std::string GetNamespace() const override { return "urn:t"; }
  CParentElementInfo* GetClassInfo() const override {
    static CParentElementInfo s_info(XmlElementGroupType_Sequence, XmlElementType_Element, "Holder",
                                     "urn:t", true, false, -1, ItemType_none, "", false);
    return &s_info;
  }
  CElementInfo** GetClassElementInfo() const override {
    static CElementInfoSeqUntpdOpt s_other("AnyElement", "urn:t", 1, "##other", "urn:t");
    static CElementInfoSeqUntpdCol s_rest("AnyElement", "urn:t", 2);
    static CElementInfo* s_infos[] = {&s_other, &s_rest, nullptr};
    return s_infos;
  }
  CAttributeInfo** GetClassAttributeInfo() const override {
    static CAttributeInfoAny s_any("", "", 0, true, "", "##any", "urn:t");
    static CAttributeInfo* s_infos[] = {&s_any, nullptr};
    return s_infos;
  }
  void AccessProperty(int index, bool get, QvVariant& value) override {
    if (!get) {
      other = CElementPtr(static_cast<CElement*>(value.GetXmlObject().Ptr()));
    } else if (index == 0) {
      value.SetXmlCollection(attributes.Ptr());
    } else if (index == 2) {
      value.SetXmlCollection(rest.Ptr());
    } else if (other) {
      value.SetXmlObject(other.Ptr());
    }
  }
  void Init() override {
    attributes = CAttributeColPtr(new CAttributeCol("", "##any", "urn:t"));
    rest = CElementColPtr(new CElementCol("AnyElement", "##targetNamespace", "urn:t", 0, 2));
    other.reset();
  }

  static void MakeMetadata() {
    const CHolder holder;
    holder.GetClassInfo();
    holder.GetClassElementInfo();
    holder.GetClassAttributeInfo();
  }

  CAttributeColPtr attributes;
  CElementPtr other;
  CElementColPtr rest;
};

// Every test leaves as many objects as it found.
class CUntyped : public ::testing::Test {
 protected:
  void SetUp() override {
    // Metadata are made once and stay.
    CHolder::MakeMetadata();
    m_objects = CInstanceMonitor::GetTotal();
  }
  void TearDown() override {
    std::string live;
    CInstanceMonitor::Dump(live);
    EXPECT_EQ(CInstanceMonitor::GetTotal(), m_objects) << live;
  }

 private:
  long m_objects = 0;
};

std::string Nested(int levels, const std::string& start, const std::string& innermost,
                   const std::string& end) {
  std::string text;
  for (int i = 0; i < levels; ++i) text += start;
  text += innermost;
  for (int i = 0; i < levels; ++i) text += end;
  return text;
}

}  // namespace

// ---- Namespaces of holders

TEST_F(CUntyped, ElementsNeedANameAndAnAdmittedNamespace) {
  const char* const noName = "Element Name must have a value";
  const char* const noList = "Namespace Restriction must have a value";
  const struct {
    const char *name, *namespaceUri, *restriction, *target, *message;
  } rows[] = {
      // clang-format off
      {nullptr, "", "##any", "", noName}, {"", "", "##any", "", noName}, {"e", "", nullptr, "", noList},
      {"e", "", "", "", noList}, {"e", "", "##any", nullptr, "Target Namespace must have a value"},
      {"e", "urn:t", "##other", "urn:t", "Invalid namespace [urn:t]. The namespace must be one of [##other] where the target namespace is [urn:t]."},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.message);
    EXPECT_QV_THROW(
        CElementPtr(new CElement(row.name, row.namespaceUri, row.restriction, row.target)),
        CQvInvalidNamespaceException, row.message);
  }
  EXPECT_EQ(CElementPtr(new CElement("e", nullptr, "##any", ""))->GetNamespace(), "");
}

// clang-format off
TEST_F(CUntyped, OnlyRefusedChangesLeaveTheElementAsItWas) {
  const CElementPtr element(new CElement("e", "urn:x", "##other", "urn:t"));
  EXPECT_QV_THROW(element->SetNamespace("urn:t"), CQvInvalidNamespaceException,
                  "Invalid namespace [urn:t]. The namespace must be one of [##other] where the target namespace is [urn:t].");
  EXPECT_QV_THROW(element->SetNamespaceRestrictions("##local", "urn:n"), CQvInvalidNamespaceException,
                  "Invalid namespace [urn:x]. The namespace must be one of [##local] where the target namespace is [urn:n].");
  EXPECT_QV_THROW(element->SetName(""), CQvInvalidNamespaceException, "Element Name must have a value");
  // clang-format on
  EXPECT_EQ(element->GetName() + " " + element->GetNamespace() + " " +
                element->GetNamespaceRestriction() + " " + element->GetTargetNamespace(),
            "e urn:x ##other urn:t");
  element->SetName("f");
  element->SetNamespace("urn:y");
  EXPECT_EQ(element->GetName() + " " + element->GetNamespace(), "f urn:y");
}

// ---- Writing

static const struct {
  const char *name, *input, *plain, *formatted;
} kWritingRows[] = {
    // clang-format off
    {"empty", "<a/>", "<a/>", "<a/>\n"},
    {"no namespace", R"(<a x="1"><b><c/></b>t</a>)", R"(<a x="1"><b><c/></b>t</a>)", "<a x=\"1\">\n\t<b>\n\t\t<c/>\n\t</b>\nt</a>\n"},
    {"text goes behind the children", "<a>t<b/>u<c/>v</a>", "<a><b/><c/>tuv</a>", "<a>\n\t<b/>\n\t<c/>\ntuv</a>\n"},
    {"a prefix is replaced by the default namespace", R"(<p:a xmlns:p="urn:p"/>)", R"(<a xmlns="urn:p"/>)", "<a xmlns=\"urn:p\"/>\n\n"},
    {"each level declares its own namespace", R"(<a xmlns="urn:a"><b><c/>t</b></a>)",
     R"(<a xmlns="urn:a"><b xmlns="urn:a"><c xmlns="urn:a"/>t</b></a>)",
     "<a xmlns=\"urn:a\">\n<b xmlns=\"urn:a\">\n<c xmlns=\"urn:a\"/>\n\nt</b>\n\n</a>\n\n"},
    {"a namespace within none", R"(<a><p:b xmlns:p="urn:p"/></a>)", R"(<a><b xmlns="urn:p"/></a>)", "<a>\n<b xmlns=\"urn:p\"/>\n\n</a>\n"},
    {"none within a namespace", R"(<p:a xmlns:p="urn:p"><b><c/></b><p:d/></p:a>)",
     R"(<a xmlns="urn:p"><b xmlns=""><c/></b><d xmlns="urn:p"/></a>)",
     "<a xmlns=\"urn:p\">\n\t<b xmlns=\"\">\n\t\t<c/>\n\t</b>\n<d xmlns=\"urn:p\"/>\n\n</a>\n\n"},
    {"attributes get prefixes", R"(<p:a xmlns:p="urn:p" p:x="1" y="&lt;&quot;" xml:lang="en"/>)",
     R"(<a xmlns="urn:p" xmlns:AA="urn:p" AA:x="1" y="&lt;&quot;" xml:lang="en"/>)",
     "<a xmlns=\"urn:p\" xmlns:AA=\"urn:p\" AA:x=\"1\" y=\"&lt;&quot;\" xml:lang=\"en\"/>\n\n"},
    // clang-format on
};

TEST_F(CUntyped, ElementsAreWrittenAsTheyWereRead) {
  for (const auto& row : kWritingRows) {
    SCOPED_TRACE(row.name);
    const CElementPtr element = Read(row.input);
    EXPECT_EQ(Write(element), row.plain);
    EXPECT_EQ(element->ToXml(false, true), row.formatted);
    EXPECT_EQ(Write(element->Clone()), row.plain);
    // What is written reads as the same again.
    EXPECT_EQ(Write(Read(row.plain)), row.plain);
  }
}

TEST_F(CUntyped, EndOfLineAndIndentationReachTheElementsOfANamespace) {
  CSerializationContext ctx;
  ctx.SetIndentChars("  ");
  EXPECT_EQ(Read(R"(<a><b>x&#10;y</b><c xmlns="urn:c"><d xmlns="">x&#10;y</d></c></a>)")
                ->ToXml(true, true, EOL_CRLF, ctx),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a>\r\n  <b>x\r\ny</b>\r\n"
            "<c xmlns=\"urn:c\">\r\n\t<d xmlns=\"\">x\r\ny</d>\r\n</c>\r\n\r\n</a>\r\n");
}

TEST_F(CUntyped, OtherFormatsAreHandedTheNamespaces) {
  const CElementPtr element = Read(R"(<p:a xmlns:p="urn:p" x="1" p:y="2">t<b/><p:c>u</p:c></p:a>)");
  qv_test::RecordingWriter writer;
  element->ToXml_Int(&writer, false, "", CSerializationContext(), false);
  EXPECT_EQ(writer.Take(),
            R"(<{urn:p}a @x='1':23 @{urn:p}y='2':23 <b "":23 > <{urn:p}c "u":23 > "t":23 >)");
}

// ---- Reading

TEST_F(CUntyped, ReadingReplacesWhatAnElementHolds) {
  const CElementPtr element = Read(R"(<a x="1">t<b/></a>)");
  element->FromXml(R"(<c y="2"><d/></c>)");
  EXPECT_EQ(Write(element), R"(<c y="2"><d/></c>)");
  EXPECT_QV_THROW(element->CopyXmlElement(nullptr), CQvInvalidParamException,
                  "The element to read may not be NULL");
}

TEST_F(CUntyped, ARootThatIsNotAdmittedIsRefused) {
  const CElementPtr element(new CElement("e", "", "##other", "urn:t"));
  EXPECT_QV_THROW(element->FromXml(R"(<p:r xmlns:p="urn:t"/>)"), CQvValidationException,
                  "Invalid Element [r] found.\nPath: /p:r", "/p:r");
  EXPECT_EQ(element->GetName(), "e");
  CSerializationContext ctx;
  ctx.SetIgnoreNamespaces(true);
  element->FromXml(R"(<p:r xmlns:p="urn:t"/>)", ctx);
  EXPECT_EQ(element->GetName(), "r");
}

TEST_F(CUntyped, AnElementTakesTheCursorsElementOrLeavesIt) {
  CXmlDocument document;
  document.LoadXml(R"(<r xmlns:t="urn:t"><a/><t:b/></r>)");
  CXmlElement* const root = document.GetDocumentElement();
  CXmlElement* const first = root->GetFirstElement();
  const CElementPtr element(new CElement("e", "", "##other", "urn:t"));
  CXmlElement* const second =
      element->FromXml_Int(root, first, CSerializationContext::m_defaultContext, false);
  EXPECT_EQ(second, first->GetNextSiblingElement());
  EXPECT_EQ(element->GetName(), "a");
  EXPECT_EQ(element->FromXml_Int(root, second, CSerializationContext::m_defaultContext, false),
            second);
  EXPECT_EQ(element->GetName(), "a");
  EXPECT_EQ(element->FromXml_Int(root, nullptr, CSerializationContext::m_defaultContext, false),
            nullptr);
}

TEST_F(CUntyped, WithoutNamespaceProcessingDeclarationsAreAttributes) {
  CSerializationContext ctx;
  ctx.SetSchemaType(SchemaType_LocalNames);
  const char* const text =
      R"(<a xmlns="urn:a" xmlns:p="urn:p" p:k="v"><b/><p:c><d xmlns=""/></p:c></a>)";
  const CElementPtr element = Read(text, ctx);
  EXPECT_EQ(element->GetNamespace(), "urn:a");
  EXPECT_EQ(element->GetAttributes()->GetCount(), 3);
  EXPECT_EQ(element->GetElements()->Item(0)->GetNamespace(), "");
  EXPECT_EQ(Write(element), text);
  // An attribute of that name that is no declaration.
  EXPECT_EQ(Read(R"(<a xmlns:p="urn:p" p:xmlns="urn:x"/>)")->GetNamespace(), "");
}

TEST_F(CUntyped, OtherObjectsReadFromAnElement) {
  const CElementPtr element = Read(R"(<h:holder xmlns:h="urn:t" k="1"><o/><h:r/></h:holder>)");
  const CSmartPtr<CHolder> holder(new CHolder);
  holder->FromXmlElement(element.Ptr());
  EXPECT_EQ(NamesOf(holder->rest), std::vector<std::string>{"r"});
  const CElementPtr copy(new CElement("x"));
  copy->FromXmlElement(element.Ptr());
  EXPECT_EQ(Write(copy), Write(element));
  EXPECT_QV_THROW(holder->FromXmlElement(static_cast<const CElement*>(nullptr)),
                  CQvInvalidParamException, "The element to read may not be NULL");
}

// ---- Collections

TEST_F(CUntyped, ElementCollectionsReadUpToWhatTheyDoNotAdmit) {
  CXmlDocument document;
  document.LoadXml(R"(<r xmlns:t="urn:t"><a/><t:a/><b/><t:a/><t:b/></r>)");
  CXmlElement* const root = document.GetDocumentElement();
  CSerializationContext ctx;
  const CElementColPtr others(new CElementCol("AnyElement", "##other", "urn:t", 0, -1));
  CXmlElement* cursor = others->FromXml_Int(root, root->GetFirstElement(), ctx, false);
  EXPECT_EQ(NamesOf(others), std::vector<std::string>{"a"});
  ASSERT_NE(cursor, nullptr);
  EXPECT_EQ(cursor->GetXPath(), "/r/t:a[1]");

  EXPECT_EQ(others->FromXmlLockElementName_Int(root, cursor, ctx, false, "x", "urn:t"), cursor);
  EXPECT_QV_THROW(others->FromXmlLockElementName_Int(root, cursor, ctx, false, "a", "urn:t"),
                  CQvValidationException, "Invalid Element [a] found.\nPath: /r/t:a[1]",
                  "/r/t:a[1]");
  const CElementColPtr locked(new CElementCol("a", "##any", "urn:t", 0, -1));
  cursor = locked->FromXmlLockElementName_Int(root, cursor, ctx, false, "a", "urn:t");
  EXPECT_EQ(cursor->GetXPath(), "/r/b");
  EXPECT_EQ(NamesOf(locked), std::vector<std::string>{"a"});

  ctx.SetIgnoreNamespaces(true);
  EXPECT_EQ(others->FromXml_Int(root, cursor, ctx, false), nullptr);
  EXPECT_EQ(NamesOf(others), (std::vector<std::string>{"a", "b", "a", "b"}));
}

TEST_F(CUntyped, ElementCollectionsTakeOnlyAdmittedElements) {
  const CElementColPtr locals(new CElementCol("x", "##local", "urn:t", 1, 2));
  const std::string refused =
      "Invalid namespace [urn:t]. The namespace must be one of [##local] where the target namespace is [urn:t].";
  EXPECT_QV_THROW(locals->Add("e", "urn:t"), CQvInvalidNamespaceException, refused);
  EXPECT_QV_THROW(locals->Add(new CElement("e", "urn:t")), CQvInvalidNamespaceException, refused);
  EXPECT_QV_THROW(locals->Add("e"), CQvException,
                  "A Namespace has not been set for this Collection");
  EXPECT_QV_THROW(locals->Add(CElementPtr()), CQvInvalidParamException,
                  "The Property [x] is mandatory, it may not be NULL");
  EXPECT_QV_THROW(locals->ToXml_Int(nullptr, false, "", CSerializationContext(), false),
                  CQvValidationException,
                  "The Minimum number of [x] elements allowed in this collection is 1");
  EXPECT_EQ(locals->GetCount(), 0);
  const CElementColPtr targets(new CElementCol("", "##targetNamespace", "urn:t", 0, -1));
  EXPECT_EQ(targets->Add("e")->GetNamespace(), "urn:t");
  const CElementColPtr single(new CElementCol("", "urn:s", "urn:t", 0, -1));
  EXPECT_EQ(single->Add("e")->GetNamespace(), "urn:s");
}

// Through the writers of elements in namespaces too, and into other classes.
TEST_F(CUntyped, NoTextBecomesMarkupWhereCDATAIsNotWritten) {
  const CElementPtr element(new CElement("a", "urn:a"));
  element->SetText("<![CDATA[]]><x/>");
  element->GetElements()->Add("b", "urn:b")->SetText("<![CDATA[]]><y/>");
  EXPECT_EQ(element->ToXml(false, false),
            "<a xmlns=\"urn:a\"><b xmlns=\"urn:b\"><![CDATA[]]><y/></b><![CDATA[]]><x/></a>");
  CSerializationContext escapes;
  escapes.SetWriteCDATA(false);
  EXPECT_EQ(element->ToXml(false, false, EOL_LF, escapes),
            "<a xmlns=\"urn:a\"><b xmlns=\"urn:b\">&lt;![CDATA[]]&gt;&lt;y/&gt;</b>"
            "&lt;![CDATA[]]&gt;&lt;x/&gt;</a>");
}

TEST_F(CUntyped, CollectionsInsertFindAndRemove) {
  const CElementColPtr elements(new CElementCol("e", "##any", "", 0, -1));
  elements->Add("a", "");
  CElement* const b = elements->Add("b", "urn:b");
  elements->AddAt(0, new CElement("c"));
  elements->AddAt(3, b);
  EXPECT_EQ(NamesOf(elements), (std::vector<std::string>{"c", "a", "b", "b"}));
  EXPECT_EQ(elements->Find(b), 2);
  elements->Remove(b);
  EXPECT_EQ(elements->Find(b), 2);
  const CElementColPtr clone = elements->Clone();
  EXPECT_EQ(NamesOf(clone), (std::vector<std::string>{"c", "a", "b"}));
  EXPECT_EQ(clone->Find(b), -1);
  clone->Remove(1);
  EXPECT_EQ(NamesOf(clone), (std::vector<std::string>{"c", "b"}));
  EXPECT_QV_THROW(clone->Remove(2), CQvInvalidParamException, "Index 2 is out of range, use 0 - 2");
  EXPECT_QV_THROW(clone->Remove(b), CQvInvalidParamException,
                  "The object was not found in the collection");
  EXPECT_QV_THROW(elements->Item(3), CQvInvalidParamException,
                  "Index 3 is out of range, use 0 - 3");
  EXPECT_QV_THROW(elements->AddAt(4, new CElement("d")), CQvInvalidParamException,
                  "Index 4 is out of range, use 0 - 3");
}

TEST_F(CUntyped, AttributeCollectionsReadAllAttributesOrFail) {
  CXmlDocument document;
  document.LoadXml(R"(<r><e xmlns:t="urn:t" xmlns:o="urn:o" a="1" o:b="2" t:c="3" d="4"/></r>)");
  CXmlElement* const element = document.GetDocumentElement()->GetFirstElement();
  const CSerializationContext ctx;
  const CAttributeColPtr all(new CAttributeCol("", "##any", "urn:t"));
  EXPECT_EQ(all->FromXml_Int(element, element, ctx, false), element);
  qv_test::RecordingWriter writer;
  all->Clone()->ToXml_Int(&writer, false, "", ctx, false);
  EXPECT_EQ(writer.Take(), "@a='1':23 @{urn:o}b='2':23 @{urn:t}c='3':23 @d='4':23");

  const CAttributeColPtr others(new CAttributeCol("", "##other", "urn:t"));
  EXPECT_QV_THROW(others->FromXml_Int(element, nullptr, ctx, false), CQvInvalidNamespaceException,
                  "Invalid Attribute [c]. The attributes namespace is Inappropriate.\nPath: /r/e",
                  "/r/e");
  EXPECT_EQ(others->GetCount(), 2);
  EXPECT_QV_THROW(others->Item(0)->FromXml_Int(element, nullptr, ctx, false), CQvException,
                  "This should be done by the collection");
  EXPECT_QV_THROW(
      others->Add("e", "5", "urn:t"), CQvInvalidNamespaceException,
      "Invalid namespace [urn:t]. The namespace must be one of [##other] where the target namespace is [urn:t].");
  EXPECT_QV_THROW(others->Add(""), CQvInvalidParamException, "Attribute Name must have a value");
}

// ---- In generated classes

TEST_F(CUntyped, WildcardMembersKeepWhatTheyAdmit) {
  const CSmartPtr<CHolder> holder(new CHolder);
  holder->FromXml(R"(<h:root xmlns:h="urn:t" xmlns:o="urn:o" o:k="1"><o:x>t</o:x><h:y/></h:root>)");
  const std::string text =
      R"(<AA:root xmlns:AA="urn:t" xmlns:AB="urn:o" AB:k="1"><x xmlns="urn:o">t</x><y xmlns="urn:t"/></AA:root>)";
  CSerializationContext ctx;
  ctx.SetWriteTypeAttribute(false);
  EXPECT_EQ(holder->ToXml(false, false, EOL_LF, ctx), text);
  holder->FromXml(R"(<h:root xmlns:h="urn:t"><h:y/></h:root>)");
  EXPECT_FALSE(holder->other);
  EXPECT_EQ(NamesOf(holder->rest), std::vector<std::string>{"y"});
  EXPECT_QV_THROW(holder->FromXml(R"(<h:r xmlns:h="urn:t"><h:y/><h:y/><h:y/></h:r>)"),
                  CQvValidationException, "Failed to process the element.\nPath: /h:r", "/h:r");
}

// An element in no namespace must not be taken into the document's default namespace.
TEST_F(CUntyped, TheContextsDefaultNamespaceDoesNotReachElementsInNone) {
  CSerializationContext ctx;
  ctx.SetDefaultNamespaceURI("urn:t");
  ctx.SetWriteTypeAttribute(false);
  const CSmartPtr<CHolder> holder(new CHolder);
  holder->other = Read("<o><p/></o>");
  const std::string text = holder->ToXml(false, false, EOL_LF, ctx);
  EXPECT_EQ(text, R"(<holder xmlns="urn:t"><o xmlns=""><p/></o></holder>)");
  EXPECT_EQ(holder->other->ToXml(false, false, EOL_LF, ctx), "<o><p/></o>");
}

TEST_F(CUntyped, RootAttributesStandBeforeAllOthers) {
  CSerializationContext ctx;
  const CSmartPtr<CHolder> holder(new CHolder);
  holder->attributes->Add("own", "2");
  holder->ToXml(false, false, EOL_LF, ctx);
  EXPECT_FALSE(ctx.HasAdditionalRootAttributes());
  const CSerializationContext before = ctx;
  ctx.GetAdditionalRootAttributes()->Add("extra", "1", "urn:x");
  const CSerializationContext after = ctx;
  EXPECT_EQ(before.GetAdditionalRootAttributes()->GetCount(), 0);
  EXPECT_EQ(
      holder->ToXml(false, false, EOL_LF, after),
      R"(<AA:holder xmlns:AA="urn:t" xmlns:AB="urn:x" AB:extra="1")"
      R"( xmlns:AC="http://www.w3.org/2001/XMLSchema-instance" AC:type="AA:Holder" own="2"/>)");
  qv_test::RecordingWriter writer;
  holder->ToXml_Int(&writer, false, "urn:t", after, false);
  EXPECT_EQ(writer.Take(), "<{urn:t}holder @type='{urn:t}Holder':23 @own='2':23 >");
}

TEST_F(CUntyped, ALoopIsRefusedWhereItHasNoEnd) {
  for (const int length : {1, 2, 100}) {
    SCOPED_TRACE(length);
    const CElementPtr first(new CElement("first", "urn:a"));
    CElementPtr last = first;
    for (int i = 1; i < length; ++i) last = last->GetElements()->Add("more", "");
    last->GetElements()->Add("before", "");
    last->GetElements()->Add(first);
    const char* const fault = "An untyped element may not be among its own children";
    EXPECT_QV_THROW(Write(first), CQvException, fault);
    EXPECT_QV_THROW(first->Clone(), CQvException, fault);
    EXPECT_QV_THROW(last->GetElements()->Clone(), CQvException, fault);
    last->GetElements()->Clear();
  }
  // What only stands in several places is none.
  const CElementPtr shared(new CElement("b"));
  const CElementPtr parent(new CElement("a"));
  parent->GetElements()->Add("c", "")->GetElements()->Add(shared);
  parent->GetElements()->Add(shared);
  parent->GetElements()->Add(shared);
  EXPECT_EQ("<a><c><b/></c><b/><b/></a>", Write(parent->Clone()));
}

// ---- Depth

TEST_F(CUntyped, DepthIsLimitedByMemoryAlone) {
  static constexpr int kLevels = 250000;
  qv_test::RunOnSmallStack([] {
    const std::string text = Nested(kLevels - 1, "<a>", "<a/>", "</a>");
    CElementPtr element = Read(text);
    EXPECT_TRUE(Write(element) == text);
    const CElementPtr clone = element->Clone();
    element.reset();
    EXPECT_EQ(CInstanceMonitor::GetCount("CElement"), kLevels);
    // Half of the tree goes with its collection, half with the root.
    const CElement* middle = clone.Ptr();
    for (int i = 0; i < kLevels / 2; ++i) middle = middle->GetElements()->Item(0);
    middle->GetElements()->Clear();
    EXPECT_EQ(CInstanceMonitor::GetCount("CElement"), kLevels / 2 + 1);
  });
}

TEST_F(CUntyped, DepthOfNamespacesIsLimitedByMemoryAlone) {
  qv_test::RunOnSmallStack([] {
    const std::string start = "<a xmlns=\"urn:a\">";
    const std::string text = Nested(20000, start, "<a xmlns=\"urn:a\"/>", "</a>");
    EXPECT_TRUE(Write(Read(text)) == text);
  });
}
