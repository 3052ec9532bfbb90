// The metadata of child elements: what each kind reads and writes, and what occurrence and group
// make of it.

#include <string>
#include <utility>
#include <vector>

#include "tests/binding/driven_class.h"
#include "tests/support/recording_writer.h"
#include <gtest/gtest.h>

#include "qvxml/binding/typed_collections.h"
#include "qvxml/binding/xml_collection.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/untyped/element_col.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;
using qv_test::ChainOf;
using qv_test::ColourToText;
using qv_test::Context;
using qv_test::CSample;
using qv_test::I4;
using qv_test::Nil;
using qv_test::RecordingWriter;
using qv_test::Schema;
using qv_test::TextToColour;

namespace {

constexpr auto kElement = XmlElementType_Element;
constexpr auto kGroup = XmlElementType_Group;
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

// Lets `info` read from the first child of the root, with the options of Context and G for a parent
// that is a group. The result is its answer, the cursor and the properties ("true b 0=5"), or the
// chain of what was thrown.
std::string Read(CElementInfo& info, CSample& object, const std::string& xml,
                 const std::string& options = "") {
  const CSerializationContext ctx = Context(options);
  const auto parentType = options.find('G') == std::string::npos ? kElement : kGroup;
  CXmlDocument document(ctx);
  document.LoadXml(xml.c_str());
  CXmlElement* const root = document.GetDocumentElement();
  CXmlElement* cursor = root->GetFirstElement();
  bool result = false;
  const std::string fault =
      ChainOf([&] { result = info.ElementFromXml(ctx, &object, root, &cursor, "", parentType); });
  if (fault != "-") return fault;
  const std::string dump = object.Dump();
  return std::string(result ? "true " : "false ") +
         (cursor == nullptr ? "end" : cursor->GetLocalName()) + (dump.empty() ? "" : " " + dump);
}

// What `info` writes inside an open element <r>, and "-" for its answer false, or the chain.
std::string Write(const CElementInfo& info, const CSample& object, const char* options = "") {
  RecordingWriter writer;
  writer.WriteStartElement("r", "");
  writer.Take();
  bool result = false;
  const std::string fault =
      ChainOf([&] { result = info.ElementToXml(Context(options), &object, &writer); });
  return fault != "-" ? fault : writer.Take() + (result ? "" : "-");
}

// The members that most tests need: an i4 named "a" in property 0.

template <class TInfo>
TInfo MakePrim(const char* defaultValue = "", bool nillable = false, int index = 0,
               const char* name = "a", const char* namespaceUri = "") {
  return TInfo(name, namespaceUri, index, nillable, ItemType_i4, "", kCollapse,
               CPrimitiveRestrictions("", -1, -1, "", "100"), defaultValue);
}

// Classes for children, by their class id: a sequence of an optional i4 "x", as an element, as a
// group, and as a choice that is a group.
Schema& ChildSchema(int classId) {
  static Schema* schemas[3] = {};
  Schema*& schema = schemas[classId];
  if (schema == nullptr) {
    const auto group = classId == 2 ? XmlElementGroupType_Choice : XmlElementGroupType_Sequence;
    schema = new Schema(group, "c", classId == 0 ? kElement : kGroup);
    if (classId == 2) {
      schema->Add<CElementInfoChoicePrimOpt>("x", "", 0, false, ItemType_i4, "", kCollapse,
                                             CPrimitiveRestrictions(), "");
    } else {
      schema->Add<CElementInfoSeqPrimOpt>("x", "", 0, false, ItemType_i4, "", kCollapse,
                                          CPrimitiveRestrictions(), "");
    }
  }
  return *schema;
}

CSmartPtr<CXmlObjectBase> MakeChild(int classId, const char* name) {
  if (classId < 0) return nullptr;
  CSmartPtr<CXmlObjectBase> child = new CSample(ChildSchema(classId));
  child->SetElementName(name);
  return child;
}

// Any element but "other".
CSmartPtr<CXmlObjectBase> MakeChildFor(CXmlElement* element) {
  if (element->GetLocalName() == "other") return nullptr;
  return new CSample(ChildSchema(0));
}

CSmartPtr<CXmlObjectBase> MakeGroupFor(CXmlElement*) { return new CSample(ChildSchema(1)); }

class ElementInfos : public testing::Test {
 protected:
  ElementInfos() : schema(XmlElementGroupType_Sequence, "r"), object(schema) {}

  void HoldChild(int classId) { object.Hold(0, MakeChild(classId, "c").Ptr()); }

  Schema schema;
  CSample object;
  const CSerializationContext strict;
};

const std::string kNoProperty =
    "CQvInvalidParamException: The Property [a] is mandatory, it may not be NULL";

// The fault of a class, and where it is.
std::string Validation(const std::string& message, const std::string& path) {
  return "CQvValidationException: " + message + "\nPath: " + path;
}

// --- The classes

template <class... TInfos>
struct TFamily {
  template <class... TArguments>
  static void Make(std::vector<std::unique_ptr<CElementInfo>>& infos, TArguments... arguments) {
    (infos.push_back(std::make_unique<TInfos>("a", "", 0, arguments...)), ...);
  }
};

// clang-format off
TEST(ElementInfoClasses, EachIsWhatItsNameSays) {
  std::vector<std::unique_ptr<CElementInfo>> all;
  TFamily<CElementInfoSeqPrimMnd, CElementInfoAllPrimMnd, CElementInfoSeqPrimOpt,
          CElementInfoAllPrimOpt, CElementInfoChoicePrimOpt>::Make(all, false, ItemType_i4, "", kCollapse, CPrimitiveRestrictions(), "");
  TFamily<CElementInfoSeqEnumMnd, CElementInfoAllEnumMnd, CElementInfoSeqEnumOpt,
          CElementInfoAllEnumOpt, CElementInfoChoiceEnumOpt>::Make(all, false, &ColourToText, &TextToColour, "");
  TFamily<CElementInfoSeqUntpdMnd, CElementInfoAllUntpdMnd, CElementInfoSeqUntpdOpt,
          CElementInfoAllUntpdOpt, CElementInfoChoiceUntpdOpt>::Make(all, "##any", "");
  TFamily<CElementInfoSeqCol, CElementInfoAllCol, CElementInfoChoiceCol,
          CElementInfoSeqPrimCol, CElementInfoAllPrimCol, CElementInfoChoicePrimCol,
          CElementInfoSeqEnumCol, CElementInfoAllEnumCol, CElementInfoChoiceEnumCol,
          CElementInfoSeqUntpdCol, CElementInfoAllUntpdCol, CElementInfoChoiceUntpdCol>::Make(all);
  TFamily<CElementInfoSeqClsCol, CElementInfoAllClsCol, CElementInfoChoiceClsCol,
          CElementInfoSeqAbsClsCol, CElementInfoAllAbsClsCol, CElementInfoChoiceAbsClsCol>::Make(all, kElement);
  TFamily<CElementInfoSeqClsMnd, CElementInfoAllClsMnd>::Make(all, kElement, &MakeChild, 0, false);
  TFamily<CElementInfoSeqClsOpt, CElementInfoAllClsOpt, CElementInfoChoiceClsOpt>::Make(all, kElement, &MakeChild, 0);
  TFamily<CElementInfoSeqAbsClsMnd, CElementInfoSeqAbsClsOpt, CElementInfoAllAbsClsOpt,
          CElementInfoChoiceAbsClsOpt>::Make(all, kElement, &MakeChildFor);
  TFamily<CElementInfoAllAbsClsMnd>::Make(all, kElement, &MakeChildFor, 7);
  // clang-format on
  EXPECT_EQ(43u, all.size());
  Schema schema(XmlElementGroupType_Sequence, "r");
  const CSample object(schema);
  for (const auto& info : all) {
    const std::string name = qv_test::ClassNameOf(*info, "QvXmlLib16Data::");
    SCOPED_TRACE(name);
    EXPECT_EQ(1, CInstanceMonitor::GetCount(name.c_str()));
    const auto validate = [&] { info->Validate(Context(""), &object, true, true); };
    EXPECT_EQ(name.find("All") != std::string::npos
                  ? "-"
                  : "CQvException: Not implemented, should never be called",
              ChainOf(validate));
    EXPECT_EQ(name.find("Mnd") == std::string::npos ? "-" : kNoProperty, Write(*info, object));
  }
}

// --- Primitive members

TEST_F(ElementInfos, AMemberOfASequenceIsFound) {
  auto mandatory = MakePrim<CElementInfoSeqPrimMnd>();
  auto optional = MakePrim<CElementInfoSeqPrimOpt>();
  auto qualified = MakePrim<CElementInfoSeqPrimOpt>("", false, 0, "a", "urn:a");
  const std::string missing = Validation("Failed to find the required child element [a].", "/p:r");
  const struct {
    CElementInfo& info;
    const char *xml, *options;
    std::string result;
  } kRows[] = {
      // clang-format off
      {mandatory, "<r><a>5</a><b/></r>", "", "true b 0=5"},
      {mandatory, "<r><x/><y/><a>5</a><b/></r>", "E", "true b 0=5"}, {mandatory, "<r><b/></r>", "M", "true b"},
      {mandatory, "<r/>", "M", "true end"}, {mandatory, "<r><b/></r>", "G", "false b"},
      {mandatory, "<r><b/></r>", "GM", "false b"}, {mandatory, "<r><x/><a>5</a></r>", "GE", "true end 0=5"},
      {mandatory, "<r><x/></r>", "GE", "false end"},
      {mandatory, "<p:r xmlns:p='urn:p'><b/></p:r>", "", missing},
      {mandatory, "<p:r xmlns:p='urn:p'/>", "", missing},
      {mandatory, "<p:r xmlns:p='urn:p'><x/></p:r>", "E", missing},
      {optional, "<r><a>5</a><b/></r>", "", "true b 0=5"}, {optional, "<r><b/></r>", "", "true b"},
      {optional, "<r/>", "", "true end"},
      // An optional member never skips, so what follows the unknown element is lost.
      {optional, "<r><x/><a>5</a></r>", "E", "true x"}, {optional, "<r><b/></r>", "G", "true b"},
      // Names are compared exactly.
      {qualified, "<r><a>5</a></r>", "", "true a"}, {qualified, "<r xmlns='urn:a'><A>5</A></r>", "", "true A"},
      {qualified, "<r xmlns='urn:A'><a>5</a></r>", "", "true a"},
      {qualified, "<r xmlns='urn:a'><a>5</a></r>", "", "true end 0=5"},
      {qualified, "<r><a>6</a></r>", "N", "true end 0=6"}, {qualified, "<r><a>7</a></r>", "L", "true end 0=7"},
      // clang-format on
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.xml) + row.options);
    CSample target(schema);
    EXPECT_EQ(row.result, Read(row.info, target, row.xml, row.options));
  }
}

TEST_F(ElementInfos, NilAndOtherAttributes) {
  auto nillable = MakePrim<CElementInfoSeqPrimMnd>("", true);
  auto plain = MakePrim<CElementInfoSeqPrimMnd>();
  auto colour = CElementInfoSeqEnumMnd("a", "", 0, false, &ColourToText, &TextToColour, "");
  const std::string notNillable =
      Validation("Invalid use of 'nil' attribute in non-nillable element.", "/r/a");
  const auto unexpected = [](const char* name) {
    return Validation("Unexpected Attribute found.", std::string("/r/a/") + name);
  };
  const auto badNil = [](const std::string& value) {
    return Validation("Unexpected Value [" + value + "] for 'nil' Attribute found.",
                      "/r/a/xsi:@nil");
  };
  const struct {
    CElementInfo& info;
    const char *attributes, *options;
    std::string result;
  } kRows[] = {
      // clang-format off
      {nillable, "xsi:nil='true'", "", "true end"}, {nillable, "xsi:nil='TRUE'", "", "true end"},
      {nillable, "xsi:nil='1'", "", "true end"}, {nillable, "xsi:nil='0'", "", "true end 0=5"},
      {nillable, "xsi:nil='yes'", "", badNil("yes")}, {nillable, "xsi:nil=''", "", badNil("")},
      {plain, "xsi:nil='FALSE'", "", "true end 0=5"}, {plain, "xsi:nil='0'", "", "true end 0=5"},
      {plain, "xsi:nil='1'", "", notNillable}, {plain, "xsi:nil='yes'", "A", notNillable},
      {plain, "xsi:type='i'", "", unexpected("xsi:@type")},
      {plain, "o:b='' xsi:nil='yes'", "", unexpected("o:@b")},
      {plain, "b='' xsi:type='i'", "A", "true end 0=5"}, {colour, "xsi:nil='1'", "", notNillable},
      {colour, "nil='1'", "", unexpected("@nil")},
      // clang-format on
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.attributes);
    CSample target(schema);
    const std::string xml =
        "<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:o='urn:o'><a ";
    EXPECT_EQ(row.result, Read(row.info, target, xml + row.attributes + ">5</a></r>", row.options));
  }
}

TEST_F(ElementInfos, TextBecomesTheValue) {
  auto withDefault = MakePrim<CElementInfoSeqPrimMnd>("7");
  auto without = MakePrim<CElementInfoSeqPrimMnd>();
  const std::string empty = "CQvInvalidValueException: The value [] can not be converted to a i4";
  EXPECT_EQ("true end 0=7", Read(withDefault, object, "<r><a/></r>"));
  EXPECT_EQ("true end 0=8", Read(withDefault, object, "<r><a> 8\n</a></r>"));
  // Facets are for writing.
  EXPECT_EQ("true end 0=101", Read(without, object, "<r><a>101</a></r>"));
  EXPECT_EQ(empty, Read(withDefault, object, "<r><a> </a></r>"));
  EXPECT_EQ(empty, Read(without, object, "<r><a/></r>"));
}

TEST_F(ElementInfos, FailuresOfThePropertyAreWrapped) {
  auto broken = MakePrim<CElementInfoSeqPrimMnd>("", false, CSample::kBroken);
  const CElementInfoSeqCol brokenCollection("a", "", CSample::kBroken);
  const std::string noGet =
      "CQvValidationException: Failed to get the property value for [a]. | CQvException: no get";
  EXPECT_EQ(Validation("Failed to set the property value.", "/r/a[1]") + " | CQvException: no set",
            Read(broken, object, "<r><a>1</a><a>2</a></r>"));
  EXPECT_EQ(noGet, Write(broken, object));
  EXPECT_EQ(noGet, Write(brokenCollection, object));
  // A property of another type does not vanish.
  const CElementInfoSeqClsOpt child("a", "", 0, kElement, &MakeChild, 0);
  const CElementInfoSeqCol collection("a", "", 0);
  object.values[0] = I4(1);
  EXPECT_EQ("CQvException: Invalid Type 5", Write(child, object));
  EXPECT_EQ("CQvException: Invalid Type 5", Write(collection, object));
  object.Hold(0, MakeChild(0, "a").Ptr());
  EXPECT_EQ("CQvException: Invalid Type 27", Write(collection, object));
  object.values[0] = Nil();
  EXPECT_EQ("-", Write(child, object));
  // A collection that travels as an object is one all the same.
  const CSmartPtr<Ci4Col> numbers(
      new Ci4Col("a", "", 0, kUnbounded, CPrimitiveRestrictions(), kCollapse));
  numbers->Add(1);
  object.Hold(0, numbers.Ptr());
  EXPECT_EQ("#1 <a \"1\":5 > #3", Write(collection, object));
}

TEST_F(ElementInfos, PrimitivesAreWritten) {
  const auto mandatory = MakePrim<CElementInfoSeqPrimMnd>("7", false, 0, "a", "urn:a");
  const auto optional = MakePrim<CElementInfoSeqPrimOpt>();
  const auto write = [&](const CElementInfo& info, const QvVariant& value) {
    object.values[0] = value;
    return Write(info, object);
  };
  const auto text = [](const char* value) {
    QvVariant variant;
    variant.SetString(value);
    return variant;
  };
  EXPECT_EQ("-", Write(optional, object));
  EXPECT_EQ("<{urn:a}a \"5\":5 >", write(mandatory, I4(5)));
  EXPECT_EQ("<{urn:a}a \"7\":5= >", write(mandatory, I4(7)));
  EXPECT_EQ("<a \"7\":5 >", write(optional, I4(7)));
  EXPECT_EQ("CQvException: Invalid Value for a [101]", write(mandatory, I4(101)));
  EXPECT_EQ("<{urn:a}a @nil >", write(mandatory, Nil()));
  // The text is that of the value, the item type that of the metadata.
  EXPECT_EQ("<{urn:a}a \"12\":5 >", write(mandatory, text("12")));
  object.values[0].SetXmlObject(&object);
  EXPECT_EQ("CQvException: Invalid Type 27 to convert to string", Write(optional, object));
  // Defaults are compared as text, before the facets.
  const auto real = [](const char* defaultValue) {
    return CElementInfoSeqPrimMnd("a", "", 0, false, ItemType_r8, "%.1f", kCollapse,
                                  CPrimitiveRestrictions("", -1, -1, "", "1"), defaultValue);
  };
  object.values[0].SetR8(7);
  EXPECT_EQ("CQvException: Invalid Value for a [7].", Write(real("7"), object));
  EXPECT_EQ("<a \"7.0\":12= >", Write(real("7.0"), object));
  const CElementInfoSeqPrimMnd string("a", "", 0, false, ItemType_string, "",
                                      CWhitespaceUtils::ws_none, CPrimitiveRestrictions(), "d");
  EXPECT_EQ("<a \"\":23 >", write(string, text("")));
  EXPECT_EQ("<a \"d\":23= >", write(string, text("d")));
}

TEST_F(ElementInfos, Enumerations) {
  auto colour = CElementInfoSeqEnumMnd("a", "", 0, true, &ColourToText, &TextToColour, "green");
  EXPECT_EQ("true end 0=2", Read(colour, object, "<r><a>blue</a></r>"));
  EXPECT_EQ("<a \"blue\":23 >", Write(colour, object));
  EXPECT_EQ("true end 0=1", Read(colour, object, "<r><a/></r>"));
  EXPECT_EQ("<a \"green\":23= >", Write(colour, object));
  // No rule for whitespace applies.
  EXPECT_EQ("CQvInvalidValueException: no colour:  red",
            Read(colour, object, "<r><a> red</a></r>"));
  object.values[0] = I4(3);
  EXPECT_EQ("CQvException: Invalid Value for a [3]", Write(colour, object));
  object.values[0].SetUI1(2);
  EXPECT_EQ("<a \"blue\":23 >", Write(colour, object));
  object.values[0] = Nil();
  EXPECT_EQ("<a @nil >", Write(colour, object));
}

// --- Class members

TEST_F(ElementInfos, AMandatoryChildReadsIntoTheObjectThatIsThere) {
  auto info = CElementInfoSeqClsMnd("c", "", 0, kElement, &MakeChild, 0, true);
  HoldChild(0);
  const CXmlObjectBase* const child = object.held[0].Ptr();
  EXPECT_EQ("true b 0=(0=5)", Read(info, object, "<r><c><x>5</x></c><b/></r>"));
  EXPECT_EQ(child, object.held[0].Ptr());
  EXPECT_EQ("<c <x \"5\":5 > >", Write(info, object));
  CSample empty(schema);
  EXPECT_EQ("CQvInvalidParamException: The Property [c] is mandatory, it may not be NULL",
            Read(info, empty, "<r><c/></r>"));
}

TEST_F(ElementInfos, AnOptionalChildIsMadeWhenItIsFound) {
  auto info = CElementInfoSeqClsOpt("c", "", 0, kElement, &MakeChild, 0);
  EXPECT_EQ("true b", Read(info, object, "<r><b/></r>"));
  HoldChild(0);
  const CSmartPtr<CXmlObjectBase> before = object.held[0];
  EXPECT_EQ("true b 0=()", Read(info, object, "<r><b/></r>"));
  EXPECT_EQ(before.Ptr(), object.held[0].Ptr());
  EXPECT_EQ("true b 0=(0=5)", Read(info, object, "<r><c><x>5</x></c><b/></r>"));
  EXPECT_NE(before.Ptr(), object.held[0].Ptr());
  // A child that fails is not stored.
  const CSmartPtr<CXmlObjectBase> read = object.held[0];
  EXPECT_EQ(Validation("Failed read all the elements held within the element [c]. The unexpected "
                       "element [z] remains un processed",
                       "/r/c/z"),
            Read(info, object, "<r><c><z/></c></r>"));
  EXPECT_EQ(read.Ptr(), object.held[0].Ptr());
  auto without = CElementInfoSeqClsOpt("c", "", 0, kElement, &MakeChild, -1);
  EXPECT_EQ("CQvInvalidParamException: The Property [c] is mandatory, it may not be NULL",
            Read(without, object, "<r><c/></r>"));
}

TEST_F(ElementInfos, AGroupReadsFromTheElementAroundIt) {
  auto mayBeEmpty = CElementInfoSeqClsMnd("g", "", 0, kGroup, &MakeChild, 1, false);
  auto mustConsume = CElementInfoSeqClsMnd("g", "", 0, kGroup, &MakeChild, 1, true);
  auto optional = CElementInfoSeqClsOpt("g", "", 0, kGroup, &MakeChild, 1);
  auto choice = CElementInfoSeqClsMnd("g", "", 0, kGroup, &MakeChild, 2, false);
  auto optionalChoice = CElementInfoSeqClsOpt("g", "", 0, kGroup, &MakeChild, 2);
  const char* const with = "<r><x>5</x><b/></r>";
  const char* const without = "<r><b/></r>";
  const std::string missing = Validation("Failed to find the required child element [g].", "/r");
  const struct {
    CElementInfo& info;
    int child;
    const char *xml, *options;
    std::string result;
  } kRows[] = {
      // clang-format off
      {mayBeEmpty, 1, with, "", "true b 0=(0=5)"}, {mayBeEmpty, 1, without, "", "true b 0=()"},
      {mayBeEmpty, 1, "<r/>", "", "true end 0=()"}, {mustConsume, 1, with, "", "true b 0=(0=5)"},
      {mustConsume, 1, without, "G", "false b 0=()"}, {mustConsume, 1, "<r/>", "G", "false end 0=()"},
      {mustConsume, 1, without, "", missing}, {mustConsume, 1, "<r/>", "", missing},
      {mustConsume, 1, without, "M", "true b 0=()"}, {mustConsume, 1, "<r/>", "M", "true end 0=()"},
      {optional, 1, with, "", "true b 0=(0=5)"}, {optional, 1, without, "", "true b 0=()"},
      {optional, 1, "<r/>", "", "true end 0=()"},
      // A choice is an error when nothing was chosen, unless it is optional.
      {choice, 2, without, "",
                Validation("No child elements within the element [r] were populated. The element "
                           "represents a choice, so one and only one element should be populated. "
                           "The element contained no sutable child elements",
                           "/r")},
      {optionalChoice, 2, without, "", "true b 0=()"}, {optionalChoice, 2, with, "", "true b 0=(0=5)"},
      // clang-format on
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.xml) + row.options);
    HoldChild(row.child);
    EXPECT_EQ(row.result, Read(row.info, object, row.xml, row.options));
  }
}

TEST_F(ElementInfos, AGroupWritesIntoTheElementAroundIt) {
  const CElementInfoSeqClsMnd mandatory("g", "", 0, kGroup, &MakeChild, 1, true);
  const CElementInfoSeqClsOpt optional("g", "", 0, kGroup, &MakeChild, 1);
  EXPECT_EQ("-", Write(optional, object));
  HoldChild(1);
  object.Child(0)->values[0] = I4(5);
  EXPECT_EQ("<x \"5\":5 >", Write(mandatory, object));
  // A choice without a value is a fault of a mandatory group only.
  HoldChild(2);
  EXPECT_EQ(0u, Write(mandatory, object).rfind("CQvValidationException: Failed to convert", 0));
  EXPECT_EQ("", Write(optional, object));
}

TEST_F(ElementInfos, OnlyElementTypeOneHasItsAttributesOnTheElementAround) {
  HoldChild(1);
  object.Child(0)->attribute = "m";
  const auto attributes = [&](int elementType) {
    const CElementInfoSeqClsOpt info("g", "", 0, static_cast<XmlElementType>(elementType),
                                     &MakeChild, 1);
    RecordingWriter writer;
    info.PseudoChildAttributeToXml(strict, &object, &writer);
    return writer.Take();
  };
  EXPECT_EQ("", attributes(0));
  EXPECT_EQ("@m='':23", attributes(1));
  EXPECT_EQ("", attributes(2));
  object.held.clear();
  object.values.clear();
  EXPECT_EQ("", attributes(1));
}

TEST_F(ElementInfos, AbstractMembersAskTheirFactory) {
  auto mandatory = CElementInfoSeqAbsClsMnd("c", "urn:c", 0, kElement, &MakeChildFor);
  auto optional = CElementInfoSeqAbsClsOpt("c", "urn:c", 0, kElement, &MakeChildFor);
  auto choice = CElementInfoChoiceAbsClsOpt("c", "urn:c", 0, kElement, &MakeChildFor);
  auto group = CElementInfoSeqAbsClsOpt("c", "urn:c", 0, kGroup, &MakeGroupFor);
  const std::string fault = "Failed to find a suitable substitution element for [c].";
  EXPECT_EQ("true b 0=(0=5)", Read(mandatory, object, "<r><any><x>5</x></any><b/></r>"));
  EXPECT_EQ("any", object.held[0]->GetElementName());
  const struct {
    CElementInfo& info;
    const char *xml, *options;
    std::string result;
  } kRows[] = {
      // clang-format off
      {mandatory, "<r><other/><d><x>6</x></d></r>", "E", "true end 0=(0=6)"},
      {mandatory, "<r><other/></r>", "M", "true other 0=(0=6)"},
      {mandatory, "<r><other/></r>", "G", "false other 0=(0=6)"},
      {mandatory, "<r><other/></r>", "", Validation(fault, "/r/other")},
      {mandatory, "<r/>", "", Validation(fault, "/r")},
      {mandatory, "<r><other/></r>", "E", Validation(fault, "/r")},
      {optional, "<r><other/></r>", "", "true other 0=(0=6)"},
      {choice, "<r><other/></r>", "", "false other 0=(0=6)"},
      {choice, "<r><d><x>7</x></d></r>", "", "true end 0=(0=7)"}, {group, "<r><b/></r>", "", "true b 0=(0=7)"},
      {group, "<r><x>8</x><b/></r>", "", "true b 0=(0=8)"},
      // clang-format on
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.xml) + row.options);
    EXPECT_EQ(row.result, Read(row.info, object, row.xml, row.options));
  }
}

// --- Untyped members

TEST_F(ElementInfos, WildcardsTakeWhatTheirNamespacesAdmit) {
  const char* const kAny = "AnyElement";
  const struct {
    const char *name, *list, *target, *element, *options;
    bool isTaken;
  } kRows[] = {
      // clang-format off
      {kAny, "##any", "", "<x/>", "", true}, {kAny, "##other", "urn:t", "<x xmlns='urn:t'/>", "", false},
      {kAny, "##other", "", "<x/>", "", false}, {kAny, "##targetNamespace", "urn:t", "<x/>", "", false},
      {kAny, "##targetNamespace", "urn:t", "<x/>", "N", true}, {kAny, "", "", "<x/>", "N", true},
      {kAny, "urn:a", "urn:t", "<x xmlns='urn:a'/>", "", true}, {"x", "##any", "", "<x/>", "", true},
      {"y", "##any", "", "<x/>", "", false},
      // clang-format on
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.list) + " " + row.element);
    CSample target(schema);
    auto info = CElementInfoSeqUntpdOpt(row.name, "", 0, row.list, row.target);
    auto choice = CElementInfoChoiceUntpdOpt(row.name, "", 0, row.list, row.target);
    const std::string xml = std::string("<r>") + row.element + "<b/></r>";
    EXPECT_EQ(row.isTaken ? "true b 0=x" : "true x", Read(info, target, xml, row.options));
    EXPECT_EQ(row.isTaken, Read(choice, target, xml, row.options).rfind("true b", 0) == 0);
  }
}

TEST_F(ElementInfos, AWildcardKeepsTheWholeElement) {
  auto any = CElementInfoSeqUntpdMnd("AnyElement", "", 0, "##other", "urn:t");
  auto named = CElementInfoSeqUntpdMnd("x", "", 0, "##any", "");
  EXPECT_EQ("true end 0=x", Read(named, object, "<r><x>t<y>u</y></x></r>"));
  EXPECT_EQ("<x <y \"u\":23 > \"t\":23 >", Write(named, object));
  // A missing one is named by its namespaces.
  EXPECT_EQ(Validation("Failed to find the required element from namespace [##other].", "/r"),
            Read(any, object, "<r><b xmlns='urn:t'/></r>"));
  EXPECT_EQ(Validation("Failed to find the required child element [x].", "/r"),
            Read(named, object, "<r/>"));
  EXPECT_EQ("true end 0=b", Read(any, object, "<r><a xmlns='urn:t'/><b xmlns='urn:o'/></r>", "E"));
  EXPECT_EQ("true end 0=b", Read(named, object, "<r/>", "M"));
}

// --- Collections

class CollectionMembers : public ElementInfos {
 protected:
  void HoldNumbers(int minOccurs, unsigned int maxOccurs = kUnbounded) {
    numbers = new Ci4Col("v", "", minOccurs, maxOccurs, CPrimitiveRestrictions(), kCollapse);
    object.HoldCollection(0, numbers.Ptr());
  }

  CElementInfoSeqPrimCol seq{"v", "", 0};
  CElementInfoChoicePrimCol choice{"v", "", 0};
  CElementInfoAllPrimCol all{"v", "", 0};
  CSmartPtr<Ci4Col> numbers;
};

const std::string kTooFew =
    "CQvValidationException: The Minimum number of [v] elements allowed in this collection is 2";

TEST_F(CollectionMembers, AreWrittenAsOneArray) {
  EXPECT_EQ("-", Write(seq, object));
  HoldNumbers(0);
  EXPECT_EQ("-", Write(seq, object));
  numbers->Add(1);
  numbers->Add(2);
  EXPECT_EQ("#1 <v \"1\":5 > <v \"2\":5 > #3", Write(seq, object));
  // An empty one that must not be empty fails unless it is an alternative.
  HoldNumbers(2);
  EXPECT_EQ(kTooFew, Write(seq, object));
  EXPECT_EQ(kTooFew, Write(all, object));
  EXPECT_EQ("-", Write(choice, object));
  EXPECT_EQ("-", Write(seq, object, "K"));
}

TEST_F(CollectionMembers, CheckTheirCountWhenTheyAreRead) {
  const char* const one = "<r><v>1</v><b/></r>";
  const char* const two = "<r><v>1</v><v>2</v><b/></r>";
  const struct {
    CElementInfo& info;
    const char *xml, *options;
    std::string result;
  } kRows[] = {
      // clang-format off
      {seq, two, "", "true b 0=2 items"}, {seq, one, "", kTooFew}, {seq, "<r/>", "", kTooFew},
      {seq, "<r><v>1</v><v>2</v><v>3</v><v>4</v></r>", "", "CQvValidationException: The Maximum number of [v] elements allowed in this collection is 3"},
      {seq, two, "G", "true b 0=2 items"}, {seq, one, "G", "false b 0=1 items"},
      {choice, two, "", "true b 0=2 items"}, {choice, one, "", kTooFew},
      {choice, "<r><b/></r>", "", "false b 0=0 items"}, {choice, "<r/>", "", "false end 0=0 items"},
      {all, one, "", "true b 0=1 items"}, {all, "<r><b/></r>", "", "false b 0=0 items"},
      // clang-format on
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.xml) + row.options);
    HoldNumbers(2, 3);
    EXPECT_EQ(row.result, Read(row.info, object, row.xml, row.options));
  }
  HoldNumbers(2, 3);
  const auto validate = [&](bool wasFound, bool atEnd) {
    return ChainOf([&] { all.Validate(strict, &object, wasFound, atEnd); });
  };
  EXPECT_EQ(kTooFew, validate(false, true));
  EXPECT_FALSE(all.Validate(strict, &object, false, false));
  numbers->Add(1);
  EXPECT_EQ(kTooFew, validate(true, false));
  numbers->Add(2);
  EXPECT_TRUE(all.Validate(strict, &object, true, true));
  CSample empty(schema);
  EXPECT_EQ("CQvInvalidParamException: The Property [v] is mandatory, it may not be NULL",
            Read(seq, empty, two));
}

// --- Groups

TEST(AllGroups, WhatIsMissing) {
  Schema schema(XmlElementGroupType_All, "r");
  const CSample object(schema);
  const CSerializationContext ctx;
  const auto validate = [&](const CElementInfo& info) -> std::string {
    EXPECT_TRUE(info.Validate(ctx, &object, true, true));
    EXPECT_EQ(info.GetDescriptor().occurrence == ElementOccurrence::Optional,
              info.Validate(ctx, &object, false, false));
    try {
      return info.Validate(ctx, &object, false, true) ? "accepted" : "refused";
    } catch (const CQvValidationException& fault) {
      return fault.GetMessage();
    }
  };
  const std::string missing = "Failed to find the mandatory element [a].";
  const auto cls = [](int elementType, bool mustConsume) {
    return CElementInfoAllClsMnd("a", "", 0, static_cast<XmlElementType>(elementType), &MakeChild,
                                 0, mustConsume);
  };
  EXPECT_EQ(missing, validate(MakePrim<CElementInfoAllPrimMnd>()));
  EXPECT_EQ("accepted", validate(MakePrim<CElementInfoAllPrimOpt>()));
  EXPECT_EQ("accepted", validate(cls(0, false)));
  EXPECT_EQ(missing, validate(cls(1, false)));
  EXPECT_EQ("accepted", validate(cls(2, false)));
  EXPECT_EQ(missing, validate(cls(0, true)));
  EXPECT_EQ(missing, validate(cls(2, true)));
  EXPECT_EQ(missing, validate(CElementInfoAllAbsClsMnd("a", "", 0, kElement, &MakeChildFor, 0)));
  EXPECT_EQ(missing, validate(CElementInfoAllUntpdMnd("a", "", 0, "##any", "")));
}

// --- What a member says about itself

TEST_F(ElementInfos, WhetherAMemberIsOptional) {
  EXPECT_FALSE(MakePrim<CElementInfoSeqPrimMnd>().IsOptional(&object));
  EXPECT_TRUE(MakePrim<CElementInfoSeqPrimOpt>().IsOptional(&object));
  EXPECT_TRUE(MakePrim<CElementInfoAllPrimOpt>().IsOptional(&object));
  EXPECT_FALSE(MakePrim<CElementInfoChoicePrimOpt>().IsOptional(&object));
  const CElementInfoChoiceClsOpt group("g", "", 0, kGroup, &MakeChild, 1);
  EXPECT_FALSE(group.IsOptional(&object));
  HoldChild(1);
  EXPECT_TRUE(group.IsOptional(&object));
  HoldChild(2);
  EXPECT_FALSE(group.IsOptional(&object));
  EXPECT_FALSE(CElementInfoChoiceClsOpt("c", "", 0, kElement, &MakeChild, 0).IsOptional(&object));
  const CElementInfoChoiceCol collection("v", "", 1);
  EXPECT_FALSE(collection.IsOptional(&object));
  for (const int minOccurs : {0, 1}) {
    object.HoldCollection(1,
                          new Ci4Col("v", "", minOccurs, 2, CPrimitiveRestrictions(), kCollapse));
    EXPECT_EQ(minOccurs == 0, collection.IsOptional(&object));
  }
}

// What one reading of a document finds out about its names holds for the next one, which may be
// stricter, and for other members of the same name.
TEST_F(ElementInfos, NamesAreComparedAsEachContextSays) {
  CXmlDocument document(strict);
  document.LoadXml("<r xmlns='urn:t'><a/></r>");
  CXmlElement* const element = document.GetDocumentElement()->GetFirstElement();
  CSerializationContext lenient;
  lenient.SetIgnoreNamespaces(true);
  const auto inNone = MakePrim<CElementInfoSeqPrimMnd>();
  const CElementInfoSeqClsOpt inTarget("a", "urn:t", 0, kElement, &MakeChild, 0);
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(inNone.ClaimsElement(lenient, &object, element));
    EXPECT_FALSE(inNone.ClaimsElement(strict, &object, element));
    EXPECT_TRUE(inTarget.ClaimsElement(strict, &object, element));
  }
}

TEST_F(ElementInfos, WhatAMemberClaims) {
  CXmlDocument document(strict);
  document.LoadXml("<r><a/><x/><other/></r>");
  CXmlElement* const first = document.GetDocumentElement()->GetFirstElement();
  const auto claims = [&](const CElementInfo& info) {
    EXPECT_FALSE(info.ClaimsElement(strict, &object, nullptr));
    std::string names;
    for (CXmlElement* element = first; element != nullptr;
         element = element->GetNextSiblingElement()) {
      if (info.ClaimsElement(strict, &object, element)) names += element->GetLocalName() + " ";
    }
    return names;
  };
  EXPECT_EQ("a ", claims(MakePrim<CElementInfoSeqPrimMnd>()));
  EXPECT_EQ("a ", claims(CElementInfoSeqEnumOpt("a", "", 0, false, nullptr, nullptr, "")));
  EXPECT_EQ("a ", claims(CElementInfoSeqClsOpt("a", "", 0, kElement, &MakeChild, 0)));
  EXPECT_EQ("x ", claims(CElementInfoSeqClsOpt("a", "", 0, kGroup, &MakeChild, 1)));
  HoldChild(1);
  EXPECT_EQ("x ", claims(CElementInfoSeqClsMnd("a", "", 0, kGroup, &MakeChild, -1, true)));
  EXPECT_EQ("a x ", claims(CElementInfoSeqAbsClsOpt("a", "", 0, kElement, &MakeChildFor)));
  EXPECT_EQ("x ", claims(CElementInfoSeqAbsClsOpt("a", "", 0, kGroup, &MakeGroupFor)));
  EXPECT_EQ("a x other ", claims(CElementInfoSeqUntpdOpt("AnyElement", "", 0, "##any", "")));
  EXPECT_EQ("x ", claims(CElementInfoSeqUntpdOpt("x", "", 0, "##local", "")));
  EXPECT_EQ("", claims(CElementInfoSeqUntpdOpt("AnyElement", "", 0, "##targetNamespace", "urn:t")));

  const CElementInfoSeqCol collection("x", "", 1);
  EXPECT_EQ("x ", claims(collection));
  object.HoldCollection(1, new Ci4Col("x", "", 0, 1, CPrimitiveRestrictions(), kCollapse));
  EXPECT_EQ("x ", claims(collection));
  object.HoldCollection(1, new CXmlCollection("a", "", 0, 1, kElement, &MakeChild, 0));
  EXPECT_EQ("a ", claims(collection));
  object.HoldCollection(1, new CXmlCollection("a", "", 0, 1, kGroup, &MakeChild, 1));
  EXPECT_EQ("x ", claims(collection));
  object.HoldCollection(1, new CXmlCollection("a", "", 0, 1, kElement, &MakeChildFor));
  EXPECT_EQ("a x ", claims(collection));
  const CElementInfoSeqUntpdCol elements("AnyElement", "", 1);
  object.HoldCollection(1, new CElementCol("AnyElement", "##any", "", 0, kUnbounded));
  EXPECT_EQ("a x other ", claims(elements));
  object.HoldCollection(1, new CElementCol("AnyElement", "##other", "", 0, kUnbounded));
  EXPECT_EQ("", claims(elements));
}

}  // namespace
