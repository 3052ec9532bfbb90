// The metadata of attributes, one at a time: what is written, what is taken, what is missing.

#include <memory>
#include <string>

#include "tests/binding/driven_class.h"
#include "tests/support/qv_gtest.h"
#include "tests/support/recording_writer.h"
#include "tests/support/slot_of.h"

#include "qvxml/binding/typed_collections.h"
#include "qvxml/xml/untyped/attribute_col.h"
#include "qvxml/xml/xml_attribute.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;
using qv_test::CDriven;
using qv_test::ChainOf;
using qv_test::ColourToText;
using qv_test::CSample;
using qv_test::DrivenSchema;
using qv_test::I4;
using qv_test::RecordingWriter;
using qv_test::TextToColour;

namespace {

constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;

QvVariant Text(const char* value) {
  QvVariant variant;
  variant.SetString(value);
  return variant;
}

// Facets: at most 100.
CAttributeInfoPrimitive Primitive(bool optional, const char* defaultValue = "", int index = 0) {
  return CAttributeInfoPrimitive("a", "urn:a", index, optional, ItemType_i4, "", kCollapse,
                                 CPrimitiveRestrictions("", -1, -1, "", "100"), defaultValue);
}

CAttributeInfoEnum Enumeration(bool optional, const char* defaultValue = "", int index = 0) {
  return CAttributeInfoEnum("a", "urn:a", index, optional, defaultValue, &ColourToText,
                            &TextToColour);
}

class AttributeInfos : public testing::Test {
 protected:
  AttributeInfos() : schema(XmlElementGroupType_Sequence, "r"), object(schema) {}

  // What is written, or the chain of what was thrown.
  std::string Write(const CAttributeInfo& info) {
    RecordingWriter writer;
    const std::string chain = ChainOf([&] { info.AttributeToXml(ctx, &object, &writer); });
    return writer.Take() + (chain == "-" ? "" : chain);
  }
  // "taken" and the properties, "not mine", or the chain of what was thrown.
  std::string Read(const CAttributeInfo& info, const std::string& attribute) {
    CXmlDocument document;
    document.LoadXml(("<r xmlns:n='urn:a' xmlns:o='urn:o' " + attribute + "/>").c_str());
    for (CXmlAttribute* candidate : document.GetDocumentElement()->GetAttributes()) {
      if (candidate->IsNamespaceAttribute()) continue;
      bool isTaken = false;
      const std::string chain =
          ChainOf([&] { isTaken = info.AttributeFromXml(ctx, &object, candidate); });
      if (chain != "-") return chain;
      return isTaken ? "taken " + object.Dump() : "not mine";
    }
    return "no attribute";
  }

  DrivenSchema schema;
  CDriven object;
  CSerializationContext ctx;
};

TEST_F(AttributeInfos, KeepTheirSlotOrder) {
  EXPECT_EQ(2u, qv_test::SlotOf(&CAttributeInfo::AttributeToXml));
  EXPECT_EQ(3u, qv_test::SlotOf(&CAttributeInfo::AttributeFromXml));
  EXPECT_EQ(4u, qv_test::SlotOf(&CAttributeInfo::Validate));
}

struct CWrittenRow {
  QvVariant value;
  bool optional;
  const char* defaultValue;
  bool leavesOutDefaults;
  const char* expected;
};

TEST_F(AttributeInfos, ArePrimitivesWrittenWithTheirFacets) {
  const char* const seven = "@{urn:a}a='7':5";
  const CWrittenRow rows[] = {
      // clang-format off
      {I4(7), false, "", false, seven}, {I4(101), false, "", false, "CQvException: Invalid Value for a [101]"},
      {QvVariant(), true, "7", false, ""},
      {QvVariant(), false, "", false, "CQvException: Invalid Type 0 to convert to string"},
      {I4(7), true, "7", false, seven}, {I4(7), true, "7", true, ""}, {I4(8), true, "7", true, "@{urn:a}a='8':5"},
      {I4(7), false, "7", true, seven},
      // A default that is left out may break a facet; defaults are compared as text.
      {I4(101), true, "101", true, ""}, {I4(7), true, "07", true, seven}, {Text("7"), true, "", false, seven},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    object.values[0] = row.value;
    ctx.SetNoOptionalAttributeDefaultOutput(row.leavesOutDefaults);
    EXPECT_EQ(row.expected, Write(Primitive(row.optional, row.defaultValue)));
  }
  object.values[0].SetR8(1.5);
  EXPECT_EQ("@a='1.500':12",
            Write(CAttributeInfoPrimitive("a", "", 0, true, ItemType_r8, "%.3f", kCollapse,
                                          CPrimitiveRestrictions(), "")));
}

TEST_F(AttributeInfos, AreEnumerationsWrittenByName) {
  const CWrittenRow rows[] = {
      // clang-format off
      {I4(1), false, "", false, "@{urn:a}a='green':23"}, {QvVariant(), true, "", false, ""},
      {QvVariant(), false, "", false, "CQvException: Invalid Type 0 to convert to string"},
      {I4(1), true, "green", false, "@{urn:a}a='green':23"}, {I4(1), true, "green", true, ""},
      {I4(3), true, "", false, "CQvException: Invalid Value for a [3]"},
      // Equal in its low bytes to one that is.
      {I4(0x100000001), true, "", false, "CQvException: Invalid Value for a [4294967297]"},
      {Text("2"), true, "", false, "@{urn:a}a='blue':23"},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    object.values[0] = row.value;
    ctx.SetNoOptionalAttributeDefaultOutput(row.leavesOutDefaults);
    EXPECT_EQ(row.expected, Write(Enumeration(row.optional, row.defaultValue)));
  }
  // The default may also come last.
  const CAttributeInfoEnum info("a", "urn:a", 0, true, &ColourToText, &TextToColour, "green");
  object.values[0] = I4(1);
  ctx.SetNoOptionalAttributeDefaultOutput(true);
  EXPECT_EQ("", Write(info));
}

TEST_F(AttributeInfos, AreReadByNameAndNamespace) {
  const struct {
    const char* attribute;
    bool ignoresNamespaces;
    const char *primitive, *enumeration;
  } rows[] = {
      // clang-format off
      {"n:a='1'", false, "taken 0=1", "CQvInvalidValueException: no colour: 1"},
      {"n:a=' green '", false,
       "CQvInvalidValueException: The value [green] can not be converted to a i4",
       "CQvInvalidValueException: no colour:  green "},
      {"n:a='blue'", false,
       "CQvInvalidValueException: The value [blue] can not be converted to a i4", "taken 0=2"},
      {"n:A='blue'", true, "not mine", "not mine"}, {"a='blue'", false, "not mine", "not mine"},
      // Kept: only enumerations follow the option.
      {"a='blue'", true, "not mine", "taken 0=2"}, {"o:a='blue'", true, "not mine", "taken 0=2"},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.attribute);
    ctx.SetIgnoreNamespaces(row.ignoresNamespaces);
    object.values.clear();
    EXPECT_EQ(row.primitive, Read(Primitive(false), row.attribute));
    object.values.clear();
    EXPECT_EQ(row.enumeration, Read(Enumeration(false), row.attribute));
  }
  // Facets are for writing.
  EXPECT_EQ("taken 0=101", Read(Primitive(false), "n:a='101'"));
  EXPECT_FALSE(Primitive(false).AttributeFromXml(ctx, &object, nullptr));
  EXPECT_FALSE(Enumeration(false).AttributeFromXml(ctx, &object, nullptr));
}

TEST_F(AttributeInfos, WrapFailuresOfTheProperty) {
  const char* const get =
      "CQvValidationException: Failed to get the property value for [a]. | CQvException: no get";
  EXPECT_EQ(get, Write(Primitive(true, "", CSample::kBroken)));
  EXPECT_EQ(get, Write(Enumeration(true, "", CSample::kBroken)));
  EXPECT_EQ(
      "CQvValidationException: Failed to set the property value [5].\nPath: /r/n:@a | "
      "CQvException: no set",
      Read(Primitive(true, "", CSample::kBroken), "n:a='5'"));
  EXPECT_EQ(
      "CQvValidationException: Failed to set the property value [red].\nPath: /r/n:@a | "
      "CQvException: no set",
      Read(Enumeration(true, "", CSample::kBroken), "n:a='red'"));
}

TEST_F(AttributeInfos, ReportWhatIsMandatoryAndMissing) {
  const char* const message = "Failed to find the required Attribute [a].";
  EXPECT_QV_THROW(Primitive(false).Validate(ctx, false), CQvValidationException, message);
  EXPECT_QV_THROW(Enumeration(false).Validate(ctx, false), CQvValidationException, message);
  EXPECT_NO_THROW(Primitive(false).Validate(ctx, true));
  EXPECT_NO_THROW(Primitive(true).Validate(ctx, false));
  EXPECT_NO_THROW(CAttributeInfoAny("a", "", 0, false, "", "##any", "").Validate(ctx, false));
}

TEST_F(AttributeInfos, AWildcardCollectsWhatItsListAdmits) {
  const CAttributeInfoAny other("a", "", 0, true, "", "##other", "urn:a");
  const CSmartPtr<CAttributeCol> collection(new CAttributeCol("", "##any", ""));
  object.HoldCollection(0, collection.Ptr());
  EXPECT_EQ("taken 0=1 items", Read(other, "o:x='1'"));
  EXPECT_EQ("not mine", Read(other, "n:x='1'"));
  // Kept: the option does not reach wildcards.
  ctx.SetIgnoreNamespaces(true);
  EXPECT_EQ("not mine", Read(other, "n:x='1'"));
  EXPECT_EQ("taken 0=2 items", Read(other, "x='2'"));
  EXPECT_EQ("@{urn:o}x='1':23 @x='2':23", Write(other));

  object.Hold(0, collection.Ptr());
  EXPECT_EQ("@{urn:o}x='1':23 @x='2':23", Write(other));
  object.values.clear();
  EXPECT_EQ("", Write(other));
}

TEST_F(AttributeInfos, AWildcardNeedsItsCollection) {
  const CAttributeInfoAny any("a", "", 0, true, "", "##any", "");
  const std::string refused =
      "CQvException: Serialization Data Error : The collection should be a CAttributeCol, it was "
      "not!";
  EXPECT_EQ(refused, Read(any, "x='1'"));
  object.values[0] = Text("x");
  EXPECT_EQ(refused, Read(any, "x='1'"));
  EXPECT_EQ("CQvException: Invalid Type 23", Write(any));
  object.HoldCollection(
      0, new Ci4Col("a", "", 0, Ci4Col::kUnbounded, CPrimitiveRestrictions(), kCollapse));
  EXPECT_EQ(refused, Read(any, "x='1'"));
  object.Hold(0, new CDriven(schema));
  EXPECT_EQ(refused, Read(any, "x='1'"));
}

TEST_F(AttributeInfos, TheFirstThatTakesAnAttributeWins) {
  schema.AddAttribute<CAttributeInfoAny>("", "", 1, true, "", "##any", "");
  schema.AddAttribute<CAttributeInfoPrimitive>("x", "", 0, false, ItemType_i4, "", kCollapse,
                                               CPrimitiveRestrictions(), "");
  schema.init = [](CSample& sample) {
    sample.HoldCollection(1, new CAttributeCol("", "##any", ""));
  };
  EXPECT_QV_THROW(object.FromXml("<r x='1'/>"), CQvValidationException,
                  "Failed to process the element.\nPath: /r", "/r");
}

}  // namespace
