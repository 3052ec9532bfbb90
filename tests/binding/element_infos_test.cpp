// The metadata of child elements: what each kind reads and writes, and what occurrence and group
// make of it.

#include <string>
#include <vector>

#include "tests/binding/sample_class.h"
#include "tests/support/qv_gtest.h"
#include "tests/support/recording_writer.h"

#include "qvxml/binding/typed_collections.h"
#include "qvxml/binding/xml_collection.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/untyped/element_col.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;
using qv_test::CSample;
using qv_test::RecordingWriter;
using qv_test::Schema;

namespace {

constexpr auto kElement = XmlElementType_Element;
constexpr auto kGroup = XmlElementType_Group;
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CSerializationContext IgnoringUnknown() {
  CSerializationContext ctx;
  ctx.SetIgnoreUnknownElements(true);
  return ctx;
}

CSerializationContext IgnoringMissing() {
  CSerializationContext ctx;
  ctx.SetIgnoreMissingMandatoryElements(true);
  return ctx;
}

// Lets `info` read from the first child of the root. The result is its answer, the cursor and the
// properties: "true b 0=5".
std::string Read(CElementInfo& info, CSample& object, const char* xml,
                 const CSerializationContext& ctx = CSerializationContext(),
                 XmlElementType parentElementType = kElement) {
  CXmlDocument document(ctx);
  document.LoadXml(xml);
  CXmlElement* const root = document.GetDocumentElement();
  CXmlElement* cursor = root->GetFirstElement();
  const bool result = info.ElementFromXml(ctx, &object, root, &cursor, "", parentElementType);
  const std::string dump = object.Dump();
  return std::string(result ? "true " : "false ") +
         (cursor == nullptr ? "end" : cursor->GetLocalName()) + (dump.empty() ? "" : " " + dump);
}

// What `info` writes inside an open element <r>, and "-" for its answer false.
std::string Write(const CElementInfo& info, const CSample& object,
                  const CSerializationContext& ctx = CSerializationContext()) {
  RecordingWriter writer;
  writer.WriteStartElement("r", "");
  writer.Take();
  const bool result = info.ElementToXml(ctx, &object, &writer);
  return writer.Take() + (result ? "" : "-");
}

// Reads a whole object with the driver.
std::string ReadWhole(CSample& object, const char* xml,
                      const CSerializationContext& ctx = CSerializationContext()) {
  object.FromXml(xml, ctx);
  return object.Dump();
}

QvVariant I4(long value) {
  QvVariant variant;
  variant.SetI4(value);
  return variant;
}

QvVariant Nil() {
  QvVariant variant;
  variant.SetNil();
  return variant;
}

// The members that most tests need: an i4 named "a" in property 0.

template <class TInfo>
TInfo MakePrim(const char* defaultValue = "", bool nillable = false, int index = 0,
               const char* name = "a", const char* namespaceUri = "") {
  return TInfo(name, namespaceUri, index, nillable, ItemType_i4, "", kCollapse,
               CPrimitiveRestrictions("", -1, -1, "", "100"), defaultValue);
}

const char* ColourToText(int value) {
  static constexpr const char* kNames[] = {"red", "green", "blue"};
  return value >= 0 && value < 3 ? kNames[value] : nullptr;
}

int TextToColour(const char* text) {
  for (int value = 0; value < 3; ++value) {
    if (std::string(text) == ColourToText(value)) return value;
  }
  throw CQvInvalidValueException(std::string("no colour: ") + text);
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

// --- The classes

TEST(ElementInfoClasses, EachIsWhatItsNameSays) {
  const CPrimitiveRestrictions none;
  std::vector<std::pair<std::string, std::unique_ptr<CElementInfo>>> infos;
  const auto prim = [&](auto* type, const char* name) {
    infos.emplace_back(name, new std::remove_pointer_t<decltype(type)>(
                                 "a", "", 0, false, ItemType_i4, "", kCollapse, none, ""));
  };
  const auto enumeration = [&](auto* type, const char* name) {
    infos.emplace_back(name, new std::remove_pointer_t<decltype(type)>(
                                 "a", "", 0, false, &ColourToText, &TextToColour, ""));
  };
  const auto untyped = [&](auto* type, const char* name) {
    infos.emplace_back(name, new std::remove_pointer_t<decltype(type)>("a", "", 0, "##any", ""));
  };
  const auto plain = [&](auto* type, const char* name) {
    infos.emplace_back(name, new std::remove_pointer_t<decltype(type)>("a", "", 0));
  };
  const auto classes = [&](auto* type, const char* name) {
    infos.emplace_back(name, new std::remove_pointer_t<decltype(type)>("a", "", 0, kElement));
  };
#define QVXML_MAKE(form, name) form(static_cast<name*>(nullptr), #name)
  QVXML_MAKE(prim, CElementInfoSeqPrimMnd);
  QVXML_MAKE(prim, CElementInfoAllPrimMnd);
  QVXML_MAKE(prim, CElementInfoSeqPrimOpt);
  QVXML_MAKE(prim, CElementInfoAllPrimOpt);
  QVXML_MAKE(prim, CElementInfoChoicePrimOpt);
  QVXML_MAKE(enumeration, CElementInfoSeqEnumMnd);
  QVXML_MAKE(enumeration, CElementInfoAllEnumMnd);
  QVXML_MAKE(enumeration, CElementInfoSeqEnumOpt);
  QVXML_MAKE(enumeration, CElementInfoAllEnumOpt);
  QVXML_MAKE(enumeration, CElementInfoChoiceEnumOpt);
  QVXML_MAKE(untyped, CElementInfoSeqUntpdMnd);
  QVXML_MAKE(untyped, CElementInfoAllUntpdMnd);
  QVXML_MAKE(untyped, CElementInfoSeqUntpdOpt);
  QVXML_MAKE(untyped, CElementInfoAllUntpdOpt);
  QVXML_MAKE(untyped, CElementInfoChoiceUntpdOpt);
  QVXML_MAKE(plain, CElementInfoSeqCol);
  QVXML_MAKE(plain, CElementInfoAllCol);
  QVXML_MAKE(plain, CElementInfoChoiceCol);
  QVXML_MAKE(plain, CElementInfoSeqPrimCol);
  QVXML_MAKE(plain, CElementInfoAllPrimCol);
  QVXML_MAKE(plain, CElementInfoChoicePrimCol);
  QVXML_MAKE(plain, CElementInfoSeqEnumCol);
  QVXML_MAKE(plain, CElementInfoAllEnumCol);
  QVXML_MAKE(plain, CElementInfoChoiceEnumCol);
  QVXML_MAKE(plain, CElementInfoSeqUntpdCol);
  QVXML_MAKE(plain, CElementInfoAllUntpdCol);
  QVXML_MAKE(plain, CElementInfoChoiceUntpdCol);
  QVXML_MAKE(classes, CElementInfoSeqClsCol);
  QVXML_MAKE(classes, CElementInfoAllClsCol);
  QVXML_MAKE(classes, CElementInfoChoiceClsCol);
  QVXML_MAKE(classes, CElementInfoSeqAbsClsCol);
  QVXML_MAKE(classes, CElementInfoAllAbsClsCol);
  QVXML_MAKE(classes, CElementInfoChoiceAbsClsCol);
#undef QVXML_MAKE
  const auto add = [&](const char* name, CElementInfo* info) { infos.emplace_back(name, info); };
  add("CElementInfoSeqClsMnd",
      new CElementInfoSeqClsMnd("a", "", 0, kElement, &MakeChild, 0, false));
  add("CElementInfoAllClsMnd",
      new CElementInfoAllClsMnd("a", "", 0, kElement, &MakeChild, 0, false));
  add("CElementInfoSeqClsOpt", new CElementInfoSeqClsOpt("a", "", 0, kElement, &MakeChild, 0));
  add("CElementInfoAllClsOpt", new CElementInfoAllClsOpt("a", "", 0, kElement, &MakeChild, 0));
  add("CElementInfoChoiceClsOpt",
      new CElementInfoChoiceClsOpt("a", "", 0, kElement, &MakeChild, 0));
  add("CElementInfoSeqAbsClsMnd",
      new CElementInfoSeqAbsClsMnd("a", "", 0, kElement, &MakeChildFor));
  add("CElementInfoAllAbsClsMnd",
      new CElementInfoAllAbsClsMnd("a", "", 0, kElement, &MakeChildFor, 7));
  add("CElementInfoSeqAbsClsOpt",
      new CElementInfoSeqAbsClsOpt("a", "", 0, kElement, &MakeChildFor));
  add("CElementInfoAllAbsClsOpt",
      new CElementInfoAllAbsClsOpt("a", "", 0, kElement, &MakeChildFor));
  add("CElementInfoChoiceAbsClsOpt",
      new CElementInfoChoiceAbsClsOpt("a", "", 0, kElement, &MakeChildFor));

  EXPECT_EQ(43u, infos.size());
  Schema schema(XmlElementGroupType_Sequence, "r");
  const CSample object(schema);
  for (const auto& row : infos) {
    const std::string& name = row.first;
    const CElementInfo* const info = row.second.get();
    SCOPED_TRACE(name);
    EXPECT_EQ(1, CInstanceMonitor::GetCount(name.c_str()));
    if (name.find("All") != std::string::npos) {
      EXPECT_NO_THROW(info->Validate(CSerializationContext(), &object, true, true));
    } else {
      EXPECT_QV_THROW(info->Validate(CSerializationContext(), &object, true, true), CQvException,
                      "Not implemented, should never be called");
    }
    if (name.find("Mnd") != std::string::npos) {
      EXPECT_QV_THROW(Write(*info, object), CQvInvalidParamException,
                      "The Property [a] is mandatory, it may not be NULL");
    } else {
      EXPECT_EQ("-", Write(*info, object));
    }
  }
}

// --- Primitive members

TEST_F(ElementInfos, AMemberOfASequenceIsFound) {
  auto mandatory = MakePrim<CElementInfoSeqPrimMnd>();
  auto optional = MakePrim<CElementInfoSeqPrimOpt>();
  const struct {
    const char* name;
    CElementInfo& info;
    const char* xml;
    CSerializationContext ctx;
    XmlElementType parentType;
    const char* result;
  } kRows[] = {
      {"found", mandatory, "<r><a>5</a><b/></r>", strict, kElement, "true b 0=5"},
      {"last", mandatory, "<r><a>5</a></r>", strict, kElement, "true end 0=5"},
      {"unknown skipped", mandatory, "<r><x/><y/><a>5</a><b/></r>", IgnoringUnknown(), kElement,
       "true b 0=5"},
      {"missing ignored", mandatory, "<r><b/></r>", IgnoringMissing(), kElement, "true b"},
      {"missing ignored at the end", mandatory, "<r/>", IgnoringMissing(), kElement, "true end"},
      {"missing in a group", mandatory, "<r><b/></r>", strict, kGroup, "false b"},
      {"missing in a group, option without effect", mandatory, "<r><b/></r>", IgnoringMissing(),
       kGroup, "false b"},
      {"skipped in a group", mandatory, "<r><x/><a>5</a></r>", IgnoringUnknown(), kGroup,
       "true end 0=5"},
      {"nothing left in a group", mandatory, "<r><x/></r>", IgnoringUnknown(), kGroup, "false end"},
      {"optional found", optional, "<r><a>5</a><b/></r>", strict, kElement, "true b 0=5"},
      {"optional absent", optional, "<r><b/></r>", strict, kElement, "true b"},
      {"optional at the end", optional, "<r/>", strict, kElement, "true end"},
      // An optional member never skips, so what follows the unknown element is lost.
      {"optional behind unknown", optional, "<r><x/><a>5</a></r>", IgnoringUnknown(), kElement,
       "true x"},
      {"optional absent in a group", optional, "<r><b/></r>", strict, kGroup, "true b"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    CSample target(schema);
    EXPECT_EQ(row.result, Read(row.info, target, row.xml, row.ctx, row.parentType));
  }
  const char* const fault = "Failed to find the required child element [a].\nPath: /p:r";
  EXPECT_QV_THROW(Read(mandatory, object, "<p:r xmlns:p='urn:p'><b/></p:r>"),
                  CQvValidationException, fault, "/p:r");
  EXPECT_QV_THROW(Read(mandatory, object, "<p:r xmlns:p='urn:p'/>"), CQvValidationException, fault,
                  "/p:r");
  EXPECT_QV_THROW(Read(mandatory, object, "<p:r xmlns:p='urn:p'><x/></p:r>", IgnoringUnknown()),
                  CQvValidationException, fault, "/p:r");
}

TEST_F(ElementInfos, NamesAreComparedExactly) {
  auto info = MakePrim<CElementInfoSeqPrimOpt>("", false, 0, "a", "urn:a");
  CSerializationContext ignoring;
  ignoring.SetIgnoreNamespaces(true);
  CSerializationContext localNames;
  localNames.SetSchemaType(SchemaType_LocalNames);
  EXPECT_EQ("true a", Read(info, object, "<r><a>5</a></r>"));
  EXPECT_EQ("true A", Read(info, object, "<r xmlns='urn:a'><A>5</A></r>"));
  EXPECT_EQ("true a", Read(info, object, "<r xmlns='urn:A'><a>5</a></r>"));
  EXPECT_EQ("true end 0=5", Read(info, object, "<r xmlns='urn:a'><a>5</a></r>"));
  EXPECT_EQ("true end 0=6", Read(info, object, "<r><a>6</a></r>", ignoring));
  EXPECT_EQ("true end 0=7", Read(info, object, "<r><a>7</a></r>", localNames));
}

TEST_F(ElementInfos, NilAndOtherAttributes) {
  auto nillable = MakePrim<CElementInfoSeqPrimMnd>("", true);
  auto plain = MakePrim<CElementInfoSeqPrimMnd>();
  auto colour = CElementInfoSeqEnumMnd("a", "", 0, false, &ColourToText, &TextToColour, "");
  CSerializationContext ignoring;
  ignoring.SetIgnoreUnknownAttributes(true);
  const std::string start =
      "<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:o='urn:o'><a ";
  const struct {
    CElementInfo& info;
    const char* attributes;
    const CSerializationContext& ctx;
    // The properties, or the message and what follows /r/a in the path.
    const char* result;
    const char* place;
  } kRows[] = {
      {nillable, "xsi:nil='true'", strict, "", nullptr},
      {nillable, "xsi:nil='TRUE'", strict, "", nullptr},
      {nillable, "xsi:nil='1'", strict, "", nullptr},
      {nillable, "xsi:nil='0'", strict, " 0=5", nullptr},
      {nillable, "xsi:nil='yes'", strict, "Unexpected Value [yes] for 'nil' Attribute found.",
       "/xsi:@nil"},
      {nillable, "xsi:nil=''", strict, "Unexpected Value [] for 'nil' Attribute found.",
       "/xsi:@nil"},
      {plain, "xsi:nil='FALSE'", strict, " 0=5", nullptr},
      {plain, "xsi:nil='0'", strict, " 0=5", nullptr},
      {plain, "xsi:nil='1'", strict, "Invalid use of 'nil' attribute in non-nillable element.", ""},
      {plain, "xsi:nil='yes'", ignoring, "Invalid use of 'nil' attribute in non-nillable element.",
       ""},
      {plain, "xsi:type='i'", strict, "Unexpected Attribute found.", "/xsi:@type"},
      {plain, "o:b='' xsi:nil='yes'", strict, "Unexpected Attribute found.", "/o:@b"},
      {plain, "b='' xsi:type='i'", ignoring, " 0=5", nullptr},
      {colour, "xsi:nil='1'", strict, "Invalid use of 'nil' attribute in non-nillable element.",
       ""},
      {colour, "nil='1'", strict, "Unexpected Attribute found.", "/@nil"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.attributes);
    CSample target(schema);
    const std::string xml = start + row.attributes + ">5</a></r>";
    if (row.place == nullptr) {
      EXPECT_EQ(std::string("true end") + row.result, Read(row.info, target, xml.c_str(), row.ctx));
    } else {
      const std::string path = std::string("/r/a") + row.place;
      EXPECT_QV_THROW(Read(row.info, target, xml.c_str(), row.ctx), CQvValidationException,
                      row.result + ("\nPath: " + path), path);
    }
  }
}

TEST_F(ElementInfos, TextBecomesTheValue) {
  auto withDefault = MakePrim<CElementInfoSeqPrimMnd>("7");
  auto without = MakePrim<CElementInfoSeqPrimMnd>();
  EXPECT_EQ("true end 0=7", Read(withDefault, object, "<r><a/></r>"));
  EXPECT_EQ("true end 0=8", Read(withDefault, object, "<r><a> 8\n</a></r>"));
  // Facets are for writing.
  EXPECT_EQ("true end 0=101", Read(without, object, "<r><a>101</a></r>"));
  EXPECT_QV_THROW(Read(withDefault, object, "<r><a> </a></r>"), CQvInvalidValueException,
                  "The value [] can not be converted to a i4");
  EXPECT_QV_THROW(Read(without, object, "<r><a/></r>"), CQvInvalidValueException,
                  "The value [] can not be converted to a i4");
}

TEST_F(ElementInfos, FailuresOfThePropertyAreWrapped) {
  auto broken = MakePrim<CElementInfoSeqPrimMnd>("", false, CSample::kBroken);
  const CElementInfoSeqCol collection("a", "", CSample::kBroken);
  EXPECT_QV_THROW(Read(broken, object, "<r><a>1</a><a>2</a></r>"), CQvValidationException,
                  "Failed to set the property value.\nPath: /r/a[1]", "/r/a[1]");
  EXPECT_QV_THROW(Write(broken, object), CQvValidationException,
                  "Failed to get the property value for [a].");
  EXPECT_QV_THROW(Write(collection, object), CQvValidationException,
                  "Failed to get the property value for [a].");
  try {
    Write(broken, object);
  } catch (const CQvException& fault) {
    ASSERT_NE(nullptr, fault.GetInnerException());
    EXPECT_EQ("no get", fault.GetInnerException()->GetMessage());
  }
}

TEST_F(ElementInfos, APropertyOfAnotherTypeDoesNotVanish) {
  const CElementInfoSeqClsOpt child("a", "", 0, kElement, &MakeChild, 0);
  const CElementInfoSeqCol collection("a", "", 0);
  object.values[0] = I4(1);
  EXPECT_QV_THROW(Write(child, object), CQvException, "Invalid Type 5");
  EXPECT_QV_THROW(Write(collection, object), CQvException, "Invalid Type 5");
  object.Hold(0, MakeChild(0, "a").Ptr());
  EXPECT_QV_THROW(Write(collection, object), CQvException, "Invalid Type 27");
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
  EXPECT_EQ("-", Write(optional, object));
  object.values[0] = I4(5);
  EXPECT_EQ("<{urn:a}a \"5\":5 >", Write(mandatory, object));
  object.values[0] = I4(7);
  EXPECT_EQ("<{urn:a}a \"7\":5= >", Write(mandatory, object));
  EXPECT_EQ("<a \"7\":5 >", Write(optional, object));
  object.values[0] = I4(101);
  EXPECT_QV_THROW(Write(mandatory, object), CQvException, "Invalid Value for a [101]");
  object.values[0] = Nil();
  EXPECT_EQ("<{urn:a}a @nil >", Write(mandatory, object));
  // The text is that of the value, the item type that of the metadata.
  object.values[0].SetString("12");
  EXPECT_EQ("<{urn:a}a \"12\":5 >", Write(mandatory, object));
  object.values[0].SetXmlObject(&object);
  EXPECT_QV_THROW(Write(optional, object), CQvException, "Invalid Type 27 to convert to string");
}

TEST_F(ElementInfos, DefaultsAreComparedAsText) {
  const CPrimitiveRestrictions atMostOne("", -1, -1, "", "1");
  const CElementInfoSeqPrimMnd real("a", "", 0, false, ItemType_r8, "%.1f",
                                    CWhitespaceUtils::ws_collapse, atMostOne, "7");
  object.values[0].SetR8(7);
  EXPECT_QV_THROW(Write(real, object), CQvException, "Invalid Value for a [7].");
  const CElementInfoSeqPrimMnd same("a", "", 0, false, ItemType_r8, "%.1f",
                                    CWhitespaceUtils::ws_collapse, atMostOne, "7.0");
  EXPECT_EQ("<a \"7.0\":12= >", Write(same, object));
  const CElementInfoSeqPrimMnd text("a", "", 0, false, ItemType_string, "",
                                    CWhitespaceUtils::ws_none, CPrimitiveRestrictions(), "d");
  object.values[0].SetString("");
  EXPECT_EQ("<a \"\":23 >", Write(text, object));
  object.values[0].SetString("d");
  EXPECT_EQ("<a \"d\":23= >", Write(text, object));
}

TEST_F(ElementInfos, Enumerations) {
  auto colour = CElementInfoSeqEnumMnd("a", "", 0, true, &ColourToText, &TextToColour, "green");
  EXPECT_EQ("true end 0=2", Read(colour, object, "<r><a>blue</a></r>"));
  EXPECT_EQ("<a \"blue\":23 >", Write(colour, object));
  EXPECT_EQ("true end 0=1", Read(colour, object, "<r><a/></r>"));
  EXPECT_EQ("<a \"green\":23= >", Write(colour, object));
  // No rule for whitespace applies.
  EXPECT_QV_THROW(Read(colour, object, "<r><a> red</a></r>"), CQvInvalidValueException,
                  "no colour:  red");
  object.values[0] = I4(3);
  EXPECT_QV_THROW(Write(colour, object), CQvException, "Invalid Value for a [3]");
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
  EXPECT_QV_THROW(Read(info, object, "<r><b/></r>"), CQvValidationException,
                  "Failed to find the required child element [c].\nPath: /r", "/r");
  EXPECT_QV_THROW(Read(info, object, "<r><c><z/></c></r>"), CQvValidationException,
                  "Failed read all the elements held within the element [c]. The unexpected "
                  "element [z] remains un processed\nPath: /r/c/z",
                  "/r/c/z");
  CSample empty(schema);
  EXPECT_QV_THROW(Read(info, empty, "<r><c/></r>"), CQvInvalidParamException,
                  "The Property [c] is mandatory, it may not be NULL");
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
  // A child that fails is not stored, and not leaked.
  const CSmartPtr<CXmlObjectBase> read = object.held[0];
  EXPECT_ANY_THROW(Read(info, object, "<r><c><z/></c></r>"));
  EXPECT_EQ(read.Ptr(), object.held[0].Ptr());
  auto without = CElementInfoSeqClsOpt("c", "", 0, kElement, &MakeChild, -1);
  EXPECT_QV_THROW(Read(without, object, "<r><c/></r>"), CQvInvalidParamException,
                  "The Property [c] is mandatory, it may not be NULL");
}

TEST_F(ElementInfos, AGroupReadsFromTheElementAroundIt) {
  auto mayBeEmpty = CElementInfoSeqClsMnd("g", "", 0, kGroup, &MakeChild, 1, false);
  auto mustConsume = CElementInfoSeqClsMnd("g", "", 0, kGroup, &MakeChild, 1, true);
  auto optional = CElementInfoSeqClsOpt("g", "", 0, kGroup, &MakeChild, 1);
  const char* const with = "<r><x>5</x><b/></r>";
  const char* const without = "<r><b/></r>";
  const struct {
    const char* name;
    CElementInfo& info;
    const char* xml;
    XmlElementType parentType;
    const char* result;
  } kRows[] = {
      {"may be empty, with", mayBeEmpty, with, kElement, "true b 0=(0=5)"},
      {"may be empty, without", mayBeEmpty, without, kElement, "true b 0=()"},
      {"may be empty, at the end", mayBeEmpty, "<r/>", kElement, "true end 0=()"},
      {"must consume, with", mustConsume, with, kElement, "true b 0=(0=5)"},
      {"must consume, in a group", mustConsume, without, kGroup, "false b 0=()"},
      {"must consume, in a group at the end", mustConsume, "<r/>", kGroup, "false end 0=()"},
      {"optional, with", optional, with, kElement, "true b 0=(0=5)"},
      {"optional, without", optional, without, kElement, "true b 0=()"},
      {"optional, at the end", optional, "<r/>", kElement, "true end 0=()"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    HoldChild(1);
    EXPECT_EQ(row.result, Read(row.info, object, row.xml, strict, row.parentType));
  }
  for (const char* xml : {without, "<r/>"}) {
    EXPECT_QV_THROW(Read(mustConsume, object, xml), CQvValidationException,
                    "Failed to find the required child element [g].\nPath: /r", "/r");
    EXPECT_NO_THROW(Read(mustConsume, object, xml, IgnoringMissing()));
  }
  // A choice is an error when nothing was chosen, unless it is optional.
  auto choice = CElementInfoSeqClsMnd("g", "", 0, kGroup, &MakeChild, 2, false);
  auto optionalChoice = CElementInfoSeqClsOpt("g", "", 0, kGroup, &MakeChild, 2);
  HoldChild(2);
  EXPECT_QV_THROW(Read(choice, object, without), CQvValidationException,
                  "No child elements within the element [r] were populated. The element represents "
                  "a choice, so one and only one element should be populated. The element "
                  "contained no sutable child elements\nPath: /r",
                  "/r");
  EXPECT_EQ("true b 0=()", Read(optionalChoice, object, without));
  EXPECT_EQ("true b 0=(0=5)", Read(optionalChoice, object, with));
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
  const char* const fault = "Failed to convert the element [c] to XML";
  EXPECT_QV_THROW(Write(mandatory, object), CQvValidationException, fault);
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
  EXPECT_EQ("true b 0=(0=5)", Read(mandatory, object, "<r><any><x>5</x></any><b/></r>"));
  EXPECT_EQ("any", object.held[0]->GetElementName());
  EXPECT_EQ("true end 0=(0=6)",
            Read(mandatory, object, "<r><other/><d><x>6</x></d></r>", IgnoringUnknown()));
  EXPECT_EQ("true other 0=(0=6)", Read(mandatory, object, "<r><other/></r>", IgnoringMissing()));
  EXPECT_EQ("false other 0=(0=6)", Read(mandatory, object, "<r><other/></r>", strict, kGroup));
  EXPECT_EQ("true other 0=(0=6)", Read(optional, object, "<r><other/></r>"));
  EXPECT_EQ("false other 0=(0=6)", Read(choice, object, "<r><other/></r>"));
  EXPECT_EQ("true end 0=(0=7)", Read(choice, object, "<r><d><x>7</x></d></r>"));
  EXPECT_EQ("true b 0=(0=7)", Read(group, object, "<r><b/></r>"));
  EXPECT_EQ("true b 0=(0=8)", Read(group, object, "<r><x>8</x><b/></r>"));
  const std::string fault = "Failed to find a suitable substitution element for [c].\nPath: ";
  EXPECT_QV_THROW(Read(mandatory, object, "<r><other/></r>"), CQvValidationException,
                  fault + "/r/other", "/r/other");
  EXPECT_QV_THROW(Read(mandatory, object, "<r/>"), CQvValidationException, fault + "/r", "/r");
  EXPECT_QV_THROW(Read(mandatory, object, "<r><other/></r>", IgnoringUnknown()),
                  CQvValidationException, fault + "/r", "/r");
}

// --- Untyped members

TEST_F(ElementInfos, WildcardsTakeWhatTheirNamespacesAdmit) {
  const char* const kAny = "AnyElement";
  CSerializationContext ignoring;
  ignoring.SetIgnoreNamespaces(true);
  const struct {
    const char* name;
    const char* list;
    const char* target;
    const char* element;
    const CSerializationContext& ctx;
    bool isTaken;
  } kRows[] = {
      {kAny, "##any", "", "<x/>", strict, true},
      {kAny, "##any", "urn:t", "<x xmlns='urn:o'/>", strict, true},
      {kAny, "##other", "urn:t", "<x xmlns='urn:o'/>", strict, true},
      {kAny, "##other", "urn:t", "<x xmlns='urn:t'/>", strict, false},
      {kAny, "##other", "urn:t", "<x/>", strict, true},
      {kAny, "##other", "", "<x/>", strict, false},
      {kAny, "##other", "", "<x xmlns='urn:o'/>", strict, true},
      {kAny, "##local", "urn:t", "<x/>", strict, true},
      {kAny, "##local", "urn:t", "<x xmlns='urn:t'/>", strict, false},
      {kAny, "##targetNamespace", "urn:t", "<x xmlns='urn:t'/>", strict, true},
      {kAny, "##targetNamespace", "urn:t", "<x/>", strict, false},
      {kAny, "##targetNamespace", "urn:t", "<x/>", ignoring, true},
      {kAny, "##other", "", "<x/>", ignoring, true},
      {kAny, "", "", "<x/>", ignoring, true},
      {kAny, "urn:a", "urn:t", "<x xmlns='urn:a'/>", strict, true},
      {kAny, "urn:a", "urn:t", "<x/>", strict, true},
      {kAny, "urn:a urn:b", "urn:t", "<x xmlns='urn:a'/>", strict, false},
      {"x", "##any", "", "<x/>", strict, true},
      {"y", "##any", "", "<x/>", strict, false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.list) + " " + row.element);
    CSample target(schema);
    auto info = CElementInfoSeqUntpdOpt(row.name, "", 0, row.list, row.target);
    auto choice = CElementInfoChoiceUntpdOpt(row.name, "", 0, row.list, row.target);
    const std::string xml = std::string("<r>") + row.element + "<b/></r>";
    EXPECT_EQ(row.isTaken ? "true b 0=x" : "true x", Read(info, target, xml.c_str(), row.ctx));
    EXPECT_EQ(row.isTaken, Read(choice, target, xml.c_str(), row.ctx).rfind("true b", 0) == 0);
  }
}

TEST_F(ElementInfos, AWildcardKeepsTheWholeElement) {
  auto info = CElementInfoSeqUntpdMnd("AnyElement", "", 0, "##any", "");
  EXPECT_EQ("true end 0=x", Read(info, object, "<r><x>t<y>u</y></x></r>"));
  EXPECT_EQ("<x <y \"u\":23 > \"t\":23 >", Write(info, object));
}

TEST_F(ElementInfos, AMissingWildcardIsNamedByItsNamespaces) {
  auto any = CElementInfoSeqUntpdMnd("AnyElement", "", 0, "##other", "urn:t");
  auto named = CElementInfoSeqUntpdMnd("x", "", 0, "##any", "");
  EXPECT_QV_THROW(Read(any, object, "<r><b xmlns='urn:t'/></r>"), CQvValidationException,
                  "Failed to find the required element from namespace [##other].\nPath: /r", "/r");
  EXPECT_QV_THROW(Read(named, object, "<r/>"), CQvValidationException,
                  "Failed to find the required child element [x].\nPath: /r", "/r");
  EXPECT_EQ("true end 0=b",
            Read(any, object, "<r><a xmlns='urn:t'/><b xmlns='urn:o'/></r>", IgnoringUnknown()));
  EXPECT_EQ("true end 0=b", Read(named, object, "<r/>", IgnoringMissing()));
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

TEST_F(CollectionMembers, AreWrittenAsOneArray) {
  EXPECT_EQ("-", Write(seq, object));
  HoldNumbers(0);
  EXPECT_EQ("-", Write(seq, object));
  numbers->Add(1);
  numbers->Add(2);
  EXPECT_EQ("#1 <v \"1\":5 > <v \"2\":5 > #3", Write(seq, object));
}

TEST_F(CollectionMembers, AnEmptyOneThatMustNotBeEmptyFailsUnlessItIsAnAlternative) {
  CSerializationContext ignoring;
  ignoring.SetIgnoreInvalidCollectionCounts(true);
  const char* const fault = "The Minimum number of [v] elements allowed in this collection is 1";
  HoldNumbers(1);
  EXPECT_QV_THROW(Write(seq, object), CQvValidationException, fault);
  EXPECT_QV_THROW(Write(all, object), CQvValidationException, fault);
  EXPECT_EQ("-", Write(choice, object));
  EXPECT_EQ("-", Write(seq, object, ignoring));
}

TEST_F(CollectionMembers, CheckTheirCountWhenTheyAreRead) {
  const char* const tooFew = "The Minimum number of [v] elements allowed in this collection is 2";
  const char* const tooMany = "The Maximum number of [v] elements allowed in this collection is 3";
  const char* const one = "<r><v>1</v><b/></r>";
  const char* const two = "<r><v>1</v><v>2</v><b/></r>";
  const char* const four = "<r><v>1</v><v>2</v><v>3</v><v>4</v></r>";
  const struct {
    const char* name;
    CElementInfo& info;
    const char* xml;
    XmlElementType parentType;
    const char* result;
    bool isFault;
  } kRows[] = {
      {"sequence", seq, two, kElement, "true b 0=2 items", false},
      {"sequence, few", seq, one, kElement, tooFew, true},
      {"sequence, none", seq, "<r/>", kElement, tooFew, true},
      {"sequence, many", seq, four, kElement, tooMany, true},
      {"group", seq, two, kGroup, "true b 0=2 items", false},
      {"group, few", seq, one, kGroup, "false b 0=1 items", false},
      {"choice", choice, two, kElement, "true b 0=2 items", false},
      {"choice, few", choice, one, kElement, tooFew, true},
      {"choice, none", choice, "<r><b/></r>", kElement, "false b 0=0 items", false},
      {"choice at the end", choice, "<r/>", kElement, "false end 0=0 items", false},
      {"all", all, one, kElement, "true b 0=1 items", false},
      {"all, none", all, "<r><b/></r>", kElement, "false b 0=0 items", false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    HoldNumbers(2, 3);
    if (row.isFault) {
      EXPECT_QV_THROW(Read(row.info, object, row.xml, strict, row.parentType),
                      CQvValidationException, row.result);
    } else {
      EXPECT_EQ(row.result, Read(row.info, object, row.xml, strict, row.parentType));
    }
  }
  HoldNumbers(2, 3);
  EXPECT_QV_THROW(all.Validate(strict, &object, false, true), CQvValidationException, tooFew);
  EXPECT_FALSE(all.Validate(strict, &object, false, false));
  numbers->Add(1);
  EXPECT_QV_THROW(all.Validate(strict, &object, true, false), CQvValidationException, tooFew);
  numbers->Add(2);
  EXPECT_TRUE(all.Validate(strict, &object, true, true));
  CSample empty(schema);
  EXPECT_QV_THROW(Read(seq, empty, two), CQvInvalidParamException,
                  "The Property [v] is mandatory, it may not be NULL");
}

// --- Groups

TEST(AllGroups, MembersComeInAnyOrder) {
  Schema schema(XmlElementGroupType_All, "r");
  schema.Add<CElementInfoAllPrimMnd>("a", "", 0, false, ItemType_i4, "", kCollapse,
                                     CPrimitiveRestrictions(), "");
  schema.Add<CElementInfoAllPrimOpt>("b", "", 1, false, ItemType_i4, "", kCollapse,
                                     CPrimitiveRestrictions(), "");
  schema.Add<CElementInfoAllClsOpt>("c", "", 2, kElement, &MakeChild, 0);
  // A group that need not be there has element type 2.
  schema.Add<CElementInfoAllClsMnd>("d", "", 3, static_cast<XmlElementType>(2), &MakeChild, 1,
                                    false);
  schema.Add<CElementInfoAllCol>("e", "", 4);
  schema.init = [](CSample& sample) {
    sample.Hold(3, MakeChild(1, "d").Ptr());
    sample.HoldCollection(4,
                          new Ci4Col("e", "", 1, kUnbounded, CPrimitiveRestrictions(), kCollapse));
  };
  CSample object(schema);
  EXPECT_EQ("0=1 1=2 2=(0=3) 3=(0=4) 4=2 items",
            ReadWhole(object, "<r><e>5</e><e>6</e><x>4</x><c><x>3</x></c><b>2</b><a>1</a></r>"));
  EXPECT_EQ("0=1 3=() 4=1 items", ReadWhole(object, "<r><a>1</a><e>5</e></r>"));

  const auto fault = [&](const char* xml) {
    try {
      ReadWhole(object, xml);
    } catch (const CQvException& exception) {
      return exception.GetFullMessage();
    }
    return std::string("none");
  };
  EXPECT_EQ("Failed to process the element.\nPath: /r\nFailed to find the mandatory element [a].",
            fault("<r><e>5</e></r>"));
  EXPECT_EQ(
      "Failed to process the element.\nPath: /r\nThe Minimum number of [e] elements allowed in "
      "this collection is 1",
      fault("<r><a>1</a></r>"));
  // A second one is left over, and that is told first.
  EXPECT_EQ(
      "Failed read all the elements held within the element [r]. The unexpected element [b] "
      "remains un processed\nPath: /r/b[2]",
      fault("<r><b>1</b><b>2</b></r>"));
  EXPECT_EQ("3=() 4=0 items", ReadWhole(object, "<r/>", IgnoringMissing()));
}

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

TEST(Choices, OneAlternativeIsTaken) {
  Schema schema(XmlElementGroupType_Choice, "r");
  schema.Add<CElementInfoChoicePrimOpt>("a", "", 0, false, ItemType_i4, "", kCollapse,
                                        CPrimitiveRestrictions(), "");
  schema.Add<CElementInfoChoicePrimCol>("v", "", 1);
  schema.Add<CElementInfoChoiceClsOpt>("g", "", 2, kGroup, &MakeChild, 1);
  schema.init = [](CSample& sample) {
    sample.HoldCollection(1, new Ci4Col("v", "", 1, 2, CPrimitiveRestrictions(), kCollapse));
  };
  CSample object(schema);
  EXPECT_EQ("0=1 1=0 items", ReadWhole(object, "<r><a>1</a></r>"));
  EXPECT_EQ("1=2 items", ReadWhole(object, "<r><v>1</v><v>2</v></r>"));
  EXPECT_EQ("1=0 items 2=(0=5)", ReadWhole(object, "<r><x>5</x></r>"));
  RecordingWriter writer;
  object.ToXml_Int(&writer, false, "", CSerializationContext(), false);
  EXPECT_EQ("<r <x \"5\":5 > >", writer.Take());
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
