// How a generated class writes and reads itself: the order of what it writes, attributes and nil,
// the rules of the three groups as a whole, where a fault is said to be, and nesting without end.

#include <string>

#include "tests/binding/driven_class.h"
#include "tests/support/qv_gtest.h"
#include "tests/support/recording_writer.h"
#include "tests/support/slot_of.h"
#include "tests/support/small_stack.h"

#include "qvxml/binding/typed_collections.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/untyped/attribute_col.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;
using qv_test::CDriven;
using qv_test::ChainOf;
using qv_test::CNillableDriven;
using qv_test::Context;
using qv_test::CSample;
using qv_test::DrivenSchema;
using qv_test::I4;
using qv_test::RecordingWriter;

namespace {

constexpr auto kSequence = XmlElementGroupType_Sequence;
constexpr auto kChoice = XmlElementGroupType_Choice;
constexpr auto kAll = XmlElementGroupType_All;
constexpr auto kElement = XmlElementType_Element;
constexpr auto kGroup = XmlElementType_Group;
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kNoGroup = static_cast<XmlElementGroupType>(3);

std::string Write(const CXmlObjectBase& object, const CSerializationContext& ctx = Context(""),
                  bool isRoot = false, bool optional = false, const char* targetNamespace = "") {
  RecordingWriter writer;
  object.ToXml_Int(&writer, isRoot, targetNamespace, ctx, optional);
  return writer.Take();
}

// The properties afterwards, or the chain of what was thrown.
std::string Read(CSample& object, const std::string& xml,
                 const CSerializationContext& ctx = Context("")) {
  const std::string chain = ChainOf([&] { object.FromXml(xml.c_str(), ctx); });
  return chain == "-" ? object.Dump() : chain;
}

// Faults in <r>: wrapped with its path, of an element left over, of a member missing.
std::string InElement(const std::string& cause) {
  return "CQvValidationException: Failed to process the element.\nPath: /r | " + cause;
}
std::string Leftover(const std::string& name, const std::string& path) {
  return "CQvValidationException: Failed read all the elements held within the element [r]. The "
         "unexpected element [" +
         name + "] remains un processed\nPath: " + path;
}

template <class TInfo>
void AddI4(qv_test::Schema& schema, const char* name, int index) {
  schema.Add<TInfo>(name, "", index, false, ItemType_i4, "", kCollapse, CPrimitiveRestrictions(),
                    "");
}

void AddAttribute(DrivenSchema& schema, const char* name, int index, bool optional) {
  schema.AddAttribute<CAttributeInfoPrimitive>(name, "", index, optional, ItemType_i4, "",
                                               kCollapse, CPrimitiveRestrictions(), "");
}

// --- Writing

TEST(DriverWriting, TheRootCarriesWhatTheContextAdds) {
  DrivenSchema schema(kSequence, "base");
  schema.Describe(kSequence, kElement, "base", "urn:c", true, false, 2, ItemType_i4, "", false);
  AddAttribute(schema, "a", 0, true);
  AddI4<CElementInfoSeqPrimOpt>(schema, "m", 1);
  CDriven object(schema);
  object.SetElementName("r");
  for (int index = 0; index < 3; ++index) object.values[index] = I4(index);

  CSerializationContext ctx;
  ctx.GetProcessingInstructions() = {"<?one?>", "<?two?>"};
  ctx.GetNamespaceAliases().Add("p", "urn:p");
  ctx.GetNamespaceAliases().Add("q", "urn:q");
  // A lookup enters what it does not find, without an alias.
  ctx.GetNamespaceAliases().GetAliasFromNamespace("urn:unknown");
  ctx.SetDefaultNamespaceURI("urn:d");
  ctx.GetAdditionalRootAttributes()->Add("x", "1", "urn:p");
  ctx.SetInLineSchema("S");

  EXPECT_EQ(
      "?<?one?> ?<?two?> p=urn:p q=urn:q =urn:d <{urn:t}r @{urn:p}x='1':23 @type='{urn:c}base':23 "
      "@a='0':5 schema(S) <m \"1\":5 > \"2\":5 >",
      Write(object, ctx, true, false, "urn:t"));
  EXPECT_EQ("<{urn:c}r @type='{urn:c}base':23 @a='0':5 <m \"1\":5 > \"2\":5 >",
            Write(object, ctx, false, false, "urn:c"));
  // A group has no element for any of it.
  schema.Describe(kSequence, kGroup, "base", "urn:c", true, false, -1, ItemType_none, "", false);
  EXPECT_EQ("<m \"1\":5 >", Write(object, ctx, true, false, "urn:t"));
}

TEST(DriverWriting, NilLeavesOutTheContentOnly) {
  DrivenSchema schema(kSequence, "r");
  schema.Describe(kSequence, kElement, "r", "", true, false, 1, ItemType_i4, "", false);
  AddAttribute(schema, "a", 0, true);
  AddI4<CElementInfoSeqPrimMnd>(schema, "m", 2);
  CNillableDriven object(schema);
  object.values[0] = I4(1);
  object.SetNil(true);
  EXPECT_EQ("<r @a='1':5 @nil >", Write(object));
}

TEST(DriverWriting, SimpleContent) {
  DrivenSchema schema(kSequence, "r");
  schema.Describe(kSequence, kElement, "r", "", true, false, 0, ItemType_r8, "%.3f", false);
  CDriven object(schema);
  EXPECT_EQ(
      "CQvValidationException: Failed to convert the element [r] to XML | CQvException: Invalid "
      "Type 0 to convert to string",
      ChainOf([&] { Write(object); }));
  object.values[0].SetR8(1.5);
  EXPECT_EQ("<r \"1.500\":12 >", Write(object));
  object.values[0].SetNil();
  EXPECT_EQ("<r @nil >", Write(object));
  // Without a type or a property there is none.
  schema.Describe(kSequence, kElement, "r", "", true, false, 0, ItemType_none, "", false);
  EXPECT_EQ("<r >", Write(object));
  schema.Describe(kSequence, kElement, "r", "", true, false, -1, ItemType_r8, "", false);
  EXPECT_EQ("<r >", Write(object));
}

TEST(DriverWriting, AChoiceWritesTheFirstThatIsSet) {
  const char* const missing =
      "CQvValidationException: Failed to convert the element [r] to XML | CQvValidationException: "
      "This element is a choice, and as such must have at one (and only one) valid item, currently "
      "there are none set";
  const struct {
    std::string set;
    const char* options;
    bool optional;
    const char* expected;
  } rows[] = {
      // clang-format off
      {"1", "", false, "<r <b \"1\":5 > >"}, {"01", "", false, "<r <a \"0\":5 > >"}, {"", "", false, missing},
      {"", "M", false, missing}, {"", "C", false, "<r >"}, {"", "", true, "<r >"},
      // clang-format on
  };
  DrivenSchema schema(kChoice, "r");
  AddI4<CElementInfoChoicePrimOpt>(schema, "a", 0);
  AddI4<CElementInfoChoicePrimOpt>(schema, "b", 1);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.set + row.options);
    CDriven object(schema);
    for (const char index : row.set) object.values[index - '0'] = I4(index - '0');
    std::string written;
    const std::string chain =
        ChainOf([&] { written = Write(object, Context(row.options), false, row.optional); });
    EXPECT_EQ(row.expected, chain == "-" ? written : chain);
  }
}

TEST(Driver, RefusesAGroupThatIsNone) {
  DrivenSchema corrupt(kNoGroup, "r");
  CDriven broken(corrupt);
  EXPECT_EQ(
      "CQvValidationException: Failed to convert the element [r] to XML | CQvException: Unknown "
      "XML Group Type",
      ChainOf([&] { Write(broken); }));
  EXPECT_EQ(InElement("CQvException: Unknown Group Type"), Read(broken, "<r/>"));
}

// --- Reading

TEST(DriverReading, ReplacesWhatTheObjectHolds) {
  DrivenSchema schema(kSequence, "r");
  AddAttribute(schema, "a", 0, true);
  AddI4<CElementInfoSeqPrimOpt>(schema, "m", 1);
  CNillableDriven object(schema);
  object.values[1] = I4(7);
  object.SetNil(true);
  EXPECT_EQ("0=1", Read(object, "<any a='1'/>"));
  EXPECT_EQ("any", object.GetElementName());
  EXPECT_FALSE(object.IsNil());
  // A group keeps its name.
  schema.Describe(kSequence, kGroup, "r", "", true, false, -1, ItemType_none, "", false);
  EXPECT_EQ("", Read(object, "<other/>"));
  EXPECT_EQ("any", object.GetElementName());
  EXPECT_QV_THROW(object.FromXml_Int(nullptr, nullptr, Context(""), false),
                  CQvInvalidParamException, "The element to read may not be NULL");
}

TEST(DriverReading, Attributes) {
  const char* const xsi = "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'";
  const struct {
    std::string attributes;
    bool reportUnknown;
    const char* options;
    std::string expected;
  } rows[] = {
      // clang-format off
      {"b='2' a='1'", true, "", "0=1 1=2"},
      {"a='1' xmlns:q='urn:q' xmlns='urn:d' xsi:type='q:t' xsi:schemaLocation='x y'", true, "", "0=1"},
      {"a='1' z='3'", true, "", "CQvValidationException: Unexpected Attribute found.\nPath: /r/@z"},
      {"a='1' z='3'", true, "E", "CQvValidationException: Unexpected Attribute found.\nPath: /r/@z"},
      {"a='1' z='3'", true, "A", "0=1"}, {"a='1' z='3'", false, "", "0=1"},
      // What is missing is found out at the end, and its fault gets the path of the element.
      {"b='2'", true, "", InElement("CQvValidationException: Failed to find the required Attribute [a].")},
      {"z='3'", true, "", "CQvValidationException: Unexpected Attribute found.\nPath: /r/@z"},
      {"a='x'", true, "", InElement("CQvInvalidValueException: The value [x] can not be converted to a i4")},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.attributes + row.options);
    DrivenSchema schema(kSequence, "r");
    schema.Describe(kSequence, kElement, "r", "", row.reportUnknown, false, -1, ItemType_none, "",
                    false);
    AddAttribute(schema, "a", 0, false);
    AddAttribute(schema, "b", 1, true);
    CDriven object(schema);
    EXPECT_EQ(row.expected, Read(object, std::string("<r ") + xsi + " " + row.attributes + "/>",
                                 Context(row.options)));
  }
}

TEST(DriverReading, Nil) {
  const std::string unexpected = "CQvValidationException: Unexpected Value [";
  const std::string place = "] for 'nil' Attribute found.\nPath: /r/xsi:@nil";
  const struct {
    std::string value, expected;
  } rows[] = {
      // clang-format off
      {"true", "nil"}, {"TRUE", "nil"}, {"1", "nil"}, {"false", "0=5"}, {"False", "0=5"}, {"0", "0=5"},
      {"yes", unexpected + "yes" + place}, {"", unexpected + place}, {" true", unexpected + " true" + place},
      // clang-format on
  };
  DrivenSchema schema(kSequence, "r");
  AddI4<CElementInfoSeqPrimMnd>(schema, "m", 0);
  for (const auto& row : rows) {
    SCOPED_TRACE("[" + row.value + "]");
    // A nil object leaves the children alone, missing and unexpected ones alike.
    const std::string xml = "<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:nil='" +
                            row.value + "'><m>5</m></r>";
    CNillableDriven object(schema);
    const std::string result = Read(object, xml);
    EXPECT_EQ(row.expected, object.IsNil() ? "nil" + result : result);
    CDriven notNillable(schema);
    EXPECT_EQ(
        "CQvValidationException: Invalid use of 'nil' attribute in non-nillable element.\nPath: "
        "/r/xsi:@nil",
        Read(notNillable, xml));
  }
  // All attributes come first.
  AddAttribute(schema, "a", 1, false);
  CNillableDriven object(schema);
  EXPECT_EQ(InElement("CQvValidationException: Failed to find the required Attribute [a]."),
            Read(object, "<r xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:nil='1'/>"));
}

TEST(DriverReading, SimpleContent) {
  const struct {
    ItemType type;
    bool isRawText;
    const char* text;
    std::string expected;
  } rows[] = {
      // clang-format off
      {ItemType_i4, false, "5", "0=5"},
      {ItemType_i4, false, " 5 ", InElement("CQvInvalidValueException: The value [ 5 ] can not be converted to a i4")},
      {ItemType_i4, true, " 5 ", "0= 5 "}, {ItemType_none, true, "5", ""}, {ItemType_string, false, "", "0="},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.text) + (row.isRawText ? " raw" : ""));
    DrivenSchema schema(kSequence, "r");
    schema.Describe(kSequence, kElement, "r", "", true, false, 0, row.type, "", row.isRawText);
    CDriven object(schema);
    EXPECT_EQ(row.expected, Read(object, std::string("<r>") + row.text + "</r>"));
  }
}

struct CGroupRow {
  const char *children, *options;
  std::string expected;
};

// Reads the children of each row, with an attribute that must outlive all trying.
template <class TRows>
void ReadRows(DrivenSchema& schema, const TRows& rows) {
  AddAttribute(schema, "k", 9, false);
  for (const CGroupRow& row : rows) {
    SCOPED_TRACE(std::string(row.children) + row.options);
    CDriven object(schema);
    const std::string result =
        Read(object, std::string("<r k='7'>") + row.children + "</r>", Context(row.options));
    EXPECT_EQ(
        result[0] == 'C' ? row.expected : row.expected + (row.expected.empty() ? "9=7" : " 9=7"),
        result);
  }
}

TEST(DriverReading, Sequences) {
  const std::string missing =
      "CQvValidationException: Failed to find the required child element [b].\nPath: /r";
  const CGroupRow rows[] = {
      // clang-format off
      {"<a>1</a><b>2</b><c>3</c>", "", "0=1 1=2 2=3"}, {"<b>2</b>", "", "1=2"}, {"<a>1</a>", "", missing},
      {"<b>2</b><a>1</a>", "", Leftover("a", "/r/a")}, {"<b>2</b><b>3</b>", "", Leftover("b", "/r/b[2]")},
      {"<a>1</a><x/><b>2</b>", "", missing}, {"<a>1</a><x/><b>2</b><x/><y/>", "E", "0=1 1=2"},
      // Kept: nothing is skipped for an optional member, so the one behind is lost.
      {"<x/><a>1</a><b>2</b>", "E", "1=2"}, {"<a>1</a><x/>", "E", missing},
      {"<a>1</a><c>3</c>", "M", "0=1 2=3"}, {"<a>1</a><x/>", "M", Leftover("x", "/r/x")},
      // clang-format on
  };
  DrivenSchema schema(kSequence, "r");
  AddI4<CElementInfoSeqPrimOpt>(schema, "a", 0);
  AddI4<CElementInfoSeqPrimMnd>(schema, "b", 1);
  AddI4<CElementInfoSeqPrimOpt>(schema, "c", 2);
  ReadRows(schema, rows);
}

TEST(DriverReading, Choices) {
  const std::string missing =
      "CQvValidationException: No child elements within the element [r] were populated. The "
      "element represents a choice, so one and only one element should be populated. The element "
      "contained no sutable child elements\nPath: /r";
  const CGroupRow rows[] = {
      // clang-format off
      {"<a>1</a>", "", "0=1 2=0 items"}, {"<b>2</b>", "", "1=2 2=0 items"},
      {"<c>1</c><c>2</c>", "", "2=2 items"}, {"<a>1</a><b>2</b>", "", Leftover("b", "/r/b")},
      {"<a>1</a><b>2</b>", "E", "0=1 2=0 items"},
      {"<c>1</c>", "", InElement("CQvValidationException: The Minimum number of [c] elements allowed in this collection is 2")},
      {"", "", missing}, {"", "C", "2=0 items"}, {"", "M", missing}, {"<x/>", "", missing},
      {"<x/>", "E", missing}, {"<x/>", "C", Leftover("x", "/r/x")}, {"<x/><y/><b>2</b>", "E", "1=2 2=0 items"},
      // clang-format on
  };
  DrivenSchema schema(kChoice, "r");
  AddI4<CElementInfoChoicePrimOpt>(schema, "a", 0);
  AddI4<CElementInfoChoicePrimOpt>(schema, "b", 1);
  schema.Add<CElementInfoChoiceCol>("c", "", 2);
  schema.init = [](CSample& sample) {
    sample.HoldCollection(
        2, new Ci4Col("c", "", 2, Ci4Col::kUnbounded, CPrimitiveRestrictions(), kCollapse));
  };
  ReadRows(schema, rows);
}

// A class without an element of its own, for the members below.
DrivenSchema* g_groupSchema = nullptr;
CSmartPtr<CXmlObjectBase> MakeGroup(int, const char*) { return new CDriven(*g_groupSchema); }

struct GroupSchema : DrivenSchema {
  explicit GroupSchema(XmlElementGroupType type) : DrivenSchema(type, "g", kGroup) {
    Describe(type, kGroup, "g", "", false, false, -1, ItemType_none, "", false);
  }
};

TEST(DriverReading, AGroupTriedInVainLosesNothing) {
  GroupSchema sequence(kSequence);
  AddI4<CElementInfoSeqPrimMnd>(sequence, "a", 0);
  AddI4<CElementInfoSeqPrimMnd>(sequence, "b", 1);
  GroupSchema all(kAll);
  AddI4<CElementInfoAllPrimMnd>(all, "a", 0);
  AddI4<CElementInfoAllPrimMnd>(all, "b", 1);
  DrivenSchema choice(kChoice, "r");
  choice.Add<CElementInfoChoiceClsOpt>("g", "", 0, kGroup, &MakeGroup, 0);
  AddI4<CElementInfoChoicePrimOpt>(choice, "c", 1);
  DrivenSchema member(kSequence, "r");
  member.Add<CElementInfoSeqClsOpt>("g", "", 0, kGroup, &MakeGroup, 0);
  AddI4<CElementInfoSeqPrimOpt>(member, "c", 1);
  const std::string half =
      "CQvValidationException: Failed to process the element.\nPath: /r | CQvValidationException: "
      "Failed to find the mandatory element [b].";
  const struct {
    DrivenSchema& group;
    DrivenSchema& around;
    const char* children;
    const char* options;
    std::string expected;
  } rows[] = {
      // clang-format off
      {sequence, choice, "<c>1</c>", "E", "1=1"}, {sequence, choice, "<x/><c>1</c><x/>", "E", "1=1"},
      {sequence, choice, "<x/><a>1</a><x/><b>2</b>", "E", "0=(0=1 1=2)"},
      {sequence, choice, "<a>1</a><c>2</c>", "E", "0=(0=1)"}, {all, choice, "<c>1</c>", "", "1=1"},
      {sequence, member, "<c>1</c>", "E", "1=1"}, {sequence, member, "<a>1</a><c>2</c>", "E", "0=(0=1) 1=2"},
      {all, member, "<c>1</c>", "", "1=1"}, {all, member, "<b>1</b><a>2</a><c>3</c>", "", "0=(0=2 1=1) 1=3"},
      {all, member, "<a>1</a><c>2</c>", "", half},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.children) + row.options);
    g_groupSchema = &row.group;
    CDriven object(row.around);
    EXPECT_EQ(row.expected,
              Read(object, std::string("<r>") + row.children + "</r>", Context(row.options)));
  }
}

TEST(DriverReading, AGroupKeepsWhatItsCollectionTook) {
  const CGroupRow rows[] = {
      // clang-format off
      {"<a>1</a><a>2</a><b>3</b>", "", "0=(0=2 items) 1=3"}, {"<b>3</b>", "", "1=3"},
      // Kept: that there are not enough ends the group, and is not reported.
      {"<a>1</a><b>3</b>", "", "0=(0=1 items) 1=3"}, {"<a>1</a><b>3</b>", "E", "0=(0=1 items) 1=3"},
      {"<a>1</a><x/><a>2</a><x/><b>3</b>", "E", "0=(0=2 items) 1=3"},
      // clang-format on
  };
  GroupSchema group(kSequence);
  group.Add<CElementInfoSeqPrimCol>("a", "", 0);
  group.init = [](CSample& sample) {
    sample.HoldCollection(
        0, new Ci4Col("a", "", 2, Ci4Col::kUnbounded, CPrimitiveRestrictions(), kCollapse));
  };
  g_groupSchema = &group;
  DrivenSchema schema(kSequence, "r");
  schema.Add<CElementInfoSeqClsOpt>("g", "", 0, kGroup, &MakeGroup, 0);
  AddI4<CElementInfoSeqPrimMnd>(schema, "b", 1);
  ReadRows(schema, rows);
}

TEST(DriverReading, AllGroups) {
  const std::string missing =
      InElement("CQvValidationException: Failed to find the mandatory element [a].");
  const CGroupRow rows[] = {
      // clang-format off
      {"<c>3</c><b>2</b><a>1</a>", "", "0=1 1=2 2=3"}, {"<b>2</b><a>1</a><c>3</c>", "", "0=1 1=2 2=3"},
      {"<a>1</a>", "", "0=1"}, {"<c>3</c><b>2</b>", "", missing}, {"<c>3</c><b>2</b>", "M", "1=2 2=3"},
      {"", "", missing},
      // What is left over is reported first.
      {"<c>3</c><x/>", "", Leftover("x", "/r/x")}, {"<a>1</a><a>2</a>", "", Leftover("a", "/r/a[2]")},
      // Kept: behind an unknown element nothing is read any more.
      {"<a>1</a><x/><b>2</b>", "E", "0=1"}, {"<x/><a>1</a>", "E", missing},
      // clang-format on
  };
  DrivenSchema schema(kAll, "r");
  AddI4<CElementInfoAllPrimMnd>(schema, "a", 0);
  AddI4<CElementInfoAllPrimOpt>(schema, "b", 1);
  AddI4<CElementInfoAllPrimOpt>(schema, "c", 2);
  ReadRows(schema, rows);
}

TEST(DriverReading, ManyMembersInReverse) {
  constexpr int kMembers = 300;
  DrivenSchema schema(kAll, "r");
  std::string xml;
  for (int index = 0; index < kMembers; ++index) {
    const std::string name = "m" + std::to_string(index);
    AddI4<CElementInfoAllPrimMnd>(schema, name.c_str(), 1000 + index);
    AddAttribute(schema, name.c_str(), 2000 + index, false);
    xml = "<" + name + ">1</" + name + ">" + xml;
  }
  std::string start = "<r";
  for (int index = kMembers - 1; index >= 0; --index)
    start += " m" + std::to_string(index) + "='2'";
  CDriven object(schema);
  object.FromXml((start + ">" + xml + "</r>").c_str());
  EXPECT_EQ(2u * kMembers, object.values.size());
}

// Names remember whose they are, and texts are moved out of a tree that nobody else sees.
TEST(DriverReading, ATreeGivesTheSameAgain) {
  DrivenSchema schema(kSequence, "r");
  for (const int index : {0, 1}) {
    schema.AddAttribute<CAttributeInfoEnum>("x", index == 0 ? "urn:a" : "urn:b", index, true,
                                            qv_test::ColourToText, qv_test::TextToColour, "");
  }
  AddAttribute(schema, "y", 2, true);
  AddAttribute(schema, "z", 3, true);
  for (const int index : {4, 5}) {
    schema.Add<CElementInfoSeqPrimOpt>("s", index == 4 ? "urn:a" : "urn:b", index, false,
                                       ItemType_string, "", CWhitespaceUtils::ws_preserve,
                                       CPrimitiveRestrictions(), "");
  }
  AddI4<CElementInfoSeqPrimMnd>(schema, "i", 6);
  const std::string xml =
      "<r xmlns:b='urn:b' z='1' b:x='blue' y='7'><b:s>more than fits in place</b:s><i>3</i></r>";
  const std::string rest = " 2=7 3=1 5=more than fits in place 6=3";
  const std::string leniently = "0=2 2=7 3=1 4=more than fits in place 6=3";
  CXmlDocument document;
  document.LoadXml(xml.c_str());
  for (const char* options : {"", "N", "", "", "N", "N"}) {
    SCOPED_TRACE(options);
    const std::string expected = *options == 'N' ? leniently : "1=2" + rest;
    CDriven object(schema);
    object.FromXmlElement(document.GetDocumentElement(), Context(options));
    EXPECT_EQ(expected, object.Dump());
    EXPECT_EQ(expected, Read(object, xml, Context(options)));
    EXPECT_EQ(expected, Read(object, xml, Context(options)));
  }
}

TEST(Driver, KeepsAnyName) {
  DrivenSchema schema(kSequence, "r");
  for (const std::string& name : {std::string(), std::string("other"), std::string(300, 'n')}) {
    CDriven object(schema);
    object.SetElementName(name.c_str());
    object.SetElementName(object.GetElementName().c_str());
    if (!name.empty()) {
      CDriven reader(schema);
      reader.FromXml(("<" + name + "/>").c_str());
      EXPECT_EQ(name, reader.GetElementName());
      static_cast<CXmlObjectBase&>(object) = reader;
    }
    EXPECT_EQ(name, object.GetElementName());
    object.SetElementName(nullptr);
    EXPECT_EQ("", object.GetElementName());
  }
}

TEST(DriverReading, WhatIsNotOfTheFamilyPassesUnchanged) {
  struct CForeign {};
  class CThrowing : public CDriven {
   public:
    using CDriven::CDriven;
    void AccessProperty(int, bool, QvVariant&) override { throw CForeign(); }
  };
  DrivenSchema schema(kSequence, "r");
  AddI4<CElementInfoSeqPrimOpt>(schema, "a", 0);
  CThrowing object(schema);
  EXPECT_THROW(object.FromXml("<r><a>1</a></r>"), CForeign);
  EXPECT_THROW(Write(object), CForeign);
}

// --- The class and its metadata

TEST(Driver, KeepsItsSlotOrder) {
  using qv_test::SlotOf;
  const auto first = SlotOf(&CXmlGeneratedClass::AccessProperty);
  EXPECT_EQ(SlotOf(&CXmlObjectBase::FromXml_Int) + 1, first);
  EXPECT_EQ(first + 1, SlotOf(&CXmlGeneratedClass::GetClassInfo));
  EXPECT_EQ(first + 2, SlotOf(&CXmlGeneratedClass::GetClassElementInfo));
  EXPECT_EQ(first + 3, SlotOf(&CXmlGeneratedClass::GetClassAttributeInfo));
  EXPECT_EQ(first + 4, SlotOf(&CXmlGeneratedClass::Init));
  // Behind two slots of destructors.
  EXPECT_EQ(2u, SlotOf(&CElementInfo::ElementToXml));
  EXPECT_EQ(3u, SlotOf(&CElementInfo::ElementFromXml));
  EXPECT_EQ(4u, SlotOf(&CElementInfo::Validate));
  EXPECT_EQ(5u, SlotOf(&CElementInfo::PseudoChildAttributeToXml));
}

TEST(Driver, NeedsMetaData) {
  class CBare : public CDriven {
   public:
    using CDriven::CDriven;
    CParentElementInfo* GetClassInfo() const override { return nullptr; }
  };
  DrivenSchema schema(kSequence, "r");
  CBare object(schema);
  const std::string cause = "CQvException: The class has no metadata";
  EXPECT_EQ("CQvValidationException: Failed to convert the element [r] to XML | " + cause,
            ChainOf([&] { Write(object); }));
  EXPECT_EQ(InElement(cause), Read(object, "<r/>"));
}

TEST(Driver, AnswersQuestionsAboutItsMembers) {
  DrivenSchema schema(kSequence, "r");
  CDriven object(schema);
  CXmlDocument document;
  document.LoadXml("<b/>");
  AddI4<CElementInfoSeqPrimMnd>(schema, "a", 0);
  EXPECT_FALSE(object.DoesElementContainOptionalElements());
  EXPECT_FALSE(object.IsElementInList(Context(""), document.GetDocumentElement()));
  AddI4<CElementInfoSeqPrimOpt>(schema, "b", 1);
  EXPECT_TRUE(object.DoesElementContainOptionalElements());
  EXPECT_TRUE(object.IsElementInList(Context(""), document.GetDocumentElement()));
  EXPECT_FALSE(object.IsElementInList(Context(""), nullptr));
  EXPECT_EQ(2, object.GetClassElementInfoCount());
}

TEST(Driver, CleansUpItsMetaData) {
  const auto count = [] {
    return CInstanceMonitor::GetCount("CParentElementInfo") +
           CInstanceMonitor::GetCount("CElementInfoSeqCol") +
           CInstanceMonitor::GetCount("CAttributeInfo");
  };
  const auto before = count();
  auto* info = new CParentElementInfo(kSequence, kElement, nullptr, nullptr, true, true, -1,
                                      ItemType_none, nullptr, false);
  auto** elements = new CElementInfo* [3] {
    new CElementInfoSeqCol(nullptr, nullptr, 0), new CElementInfoSeqCol("a", "", 0), nullptr
  };
  auto** attributes = new CAttributeInfo* [2] {
    new CAttributeInfoAny(nullptr, nullptr, 0, true, nullptr, nullptr, nullptr), nullptr
  };
  EXPECT_TRUE(info->GetSecondFlag());
  EXPECT_EQ(before + 4, count());
  for (int round = 0; round < 2; ++round) {
    CXmlGeneratedClass::CleanMetaData(info, elements, attributes);
    EXPECT_TRUE(info == nullptr && elements == nullptr && attributes == nullptr);
    EXPECT_EQ(before, count());
  }
}

// --- Nesting without end

// As small as a generated class can be: an optional child of its own class, and the metadata that
// say whether that is an element or a group.
class CNode : public CXmlGeneratedClass {
 public:
  struct MetaData {
    CParentElementInfo infos[2] = {
        {kSequence, kElement, "n", "", true, false, -1, ItemType_none, "", false},
        {kSequence, kGroup, "n", "", false, false, -1, ItemType_none, "", false}};
    CElementInfoSeqClsOpt element{"n", "", 0, kElement, &CNode::Make, kElement};
    CElementInfoSeqClsOpt group{"n", "", 0, kGroup, &CNode::Make, kGroup};
    CElementInfo* elements[2][2] = {{&element, nullptr}, {&group, nullptr}};
  };
  /// There while a test runs.
  inline static MetaData* s_metaData = nullptr;

  explicit CNode(XmlElementType type) : CXmlGeneratedClass("n"), m_type(type) {}

  std::string GetTargetNamespace() const override { return ""; }
  std::string GetNamespace() const override { return ""; }
  void AccessProperty(int, bool get, QvVariant& value) override {
    if (get) {
      value.SetXmlObject(child.Ptr());
    } else {
      child = value.GetXmlObject();
    }
  }
  CParentElementInfo* GetClassInfo() const override { return &s_metaData->infos[m_type]; }
  CElementInfo** GetClassElementInfo() const override { return s_metaData->elements[m_type]; }
  CAttributeInfo** GetClassAttributeInfo() const override { return nullptr; }
  void Init() override { child.reset(); }

  static CSmartPtr<CXmlObjectBase> Make(int type, const char*) {
    return new CNode(static_cast<XmlElementType>(type));
  }

  CSmartPtr<CXmlObjectBase> child;

 private:
  XmlElementType m_type;
};

// Nodes inside each other.
class CNest {
 public:
  CNest(XmlElementType type, int depth) {
    for (int level = 0; level < depth; ++level) {
      const CSmartPtr<CXmlObjectBase> node = CNode::Make(type, "");
      static_cast<CNode*>(node.Ptr())->child = m_outermost;
      m_outermost = node;
    }
  }
  CXmlObjectBase& Get() { return *m_outermost; }
  void Destroy() { m_outermost.reset(); }

 private:
  CSmartPtr<CXmlObjectBase> m_outermost;
};

// The last message of the chain, without its number of levels.
template <class TStatement>
std::string CauseOf(const TStatement& statement) {
  try {
    statement();
  } catch (const CQvException& caught) {
    const CQvException* link = &caught;
    while (link->GetInnerException() != nullptr) link = link->GetInnerException();
    std::string text = link->GetMessage();
    const size_t digits = text.find_first_of("0123456789");
    if (digits == std::string::npos) return text;
    return text.replace(digits, text.find_first_not_of("0123456789", digits) - digits, "N");
  }
  return "-";
}

TEST(DriverDepth, EndsInAnExceptionHoweverSmallTheStack) {
  constexpr int kDepth = 1000000;
  const std::string cause =
      "The elements are nested too deeply for the stack of this thread, N levels were reached";
  std::string xml;
  for (int level = 0; level < kDepth; ++level) xml += "<n>";
  for (int level = 0; level < kDepth; ++level) xml += "</n>";
  CNode::MetaData metaData;
  CNode::s_metaData = &metaData;
  const long before = CInstanceMonitor::GetCount("CXmlObjectBase") + 1;
  CNest elements(kElement, kDepth);
  CNest groups(kGroup, kDepth);
  qv_test::RunOnSmallStack([&] {
    CNode reader(kElement);
    EXPECT_EQ(cause, CauseOf([&] { reader.FromXml(xml.c_str()); }));
    EXPECT_EQ(cause, CauseOf([&] { elements.Get().ToXml(); }));
    EXPECT_EQ(cause, CauseOf([&] { groups.Get().ToXml(); }));
    RecordingWriter writer;
    EXPECT_EQ(cause, CauseOf([&] { groups.Get().AttributesToXml_Int(&writer, Context("")); }));
    // What failed leaves nothing behind: the next object starts at the first level.
    reader.FromXml("<n><n/></n>");
    EXPECT_EQ("<n><n/></n>", reader.ToXml(false, false));
    elements.Destroy();
    groups.Destroy();
    reader.child.reset();
    EXPECT_EQ(before, CInstanceMonitor::GetCount("CXmlObjectBase"));
  });
}

}  // namespace
