#include "qvxml/binding/serialization_context.h"

#include "tests/support/qv_gtest.h"

#include "qvxml/json/json_context.h"

using namespace QvXmlLib16;

TEST(CSerializationContext, IgnoresUnknownOrMissingElementsButNotBoth) {
  CSerializationContext context;
  context.SetIgnoreUnknownElements(true);
  EXPECT_QV_THROW(
      context.SetIgnoreMissingMandatoryElements(true), CQvInvalidStateException,
      "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, you can not ignore both\nSet IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
  EXPECT_FALSE(context.GetIgnoreMissingMandatoryElements());
  context.SetIgnoreMissingMandatoryElements(false);
  context.SetIgnoreUnknownElements(false);
  context.SetIgnoreMissingMandatoryElements(true);
  EXPECT_QV_THROW(
      context.SetIgnoreUnknownElements(true), CQvInvalidStateException,
      "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
  EXPECT_FALSE(context.GetIgnoreUnknownElements());
}

TEST(CSerializationContext, IgnoresNamespacesForLocalNameSchemas) {
  CSerializationContext context;
  context.SetSchemaType(SchemaType_LocalNames);
  EXPECT_TRUE(context.GetIgnoreNamespaces());
  context.SetSchemaType(SchemaType_1);
  EXPECT_FALSE(context.GetIgnoreNamespaces());
  context.SetIgnoreNamespaces(true);
  EXPECT_TRUE(context.GetIgnoreNamespaces());
}

TEST(CSerializationContext, IndentsWithSpacesAndTabsOnly) {
  CSerializationContext context;
  for (const char* accepted : {"", "  \t", "    "}) {
    context.SetIndentChars(accepted);
    EXPECT_EQ(context.GetIndentChars(), accepted);
  }
  context.SetIndentChars(" ");
  for (const char* refused : {"\n", " x", "\t\r", "\xC2\xA0"}) {
    EXPECT_QV_THROW(context.SetIndentChars(refused), CQvInvalidParamException,
                    "IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
    EXPECT_EQ(context.GetIndentChars(), " ");
  }
  context.SetIndentChars(nullptr);
  EXPECT_EQ(context.GetIndentChars(), "");
}

TEST(CSerializationContext, CopiesAreIndependent) {
  CSerializationContext context;
  context.SetDefaultNamespaceURI("urn:d");
  context.GetNamespaceAliases().Add("p", "urn:p");
  context.GetProcessingInstructions().push_back("<?a b?>");
  context.SetStripCDATA(false);
  const CSerializationContext copy = context;
  context.GetNamespaceAliases().RemoveNamespace("urn:p");
  context.GetProcessingInstructions().clear();
  context.SetDefaultNamespaceURI(nullptr);
  EXPECT_EQ(copy.GetDefaultNamespaceURI(), "urn:d");
  EXPECT_EQ(copy.GetNamespaceAliases().GetAliasFromNamespace("urn:p"), "p");
  EXPECT_EQ(copy.GetProcessingInstructions(), std::vector<std::string>{"<?a b?>"});
  EXPECT_FALSE(copy.GetStripCDATA());
}

TEST(CSerializationContext, CopiesShareTheOptionsOfFormatsOnceMade) {
  CSerializationContext source;
  const CSerializationContext before = source;
  CJsonContext& json = source.GetJsonContext();
  EXPECT_EQ(&source.GetJsonContext(), &json);
  CSerializationContext after = source;
  EXPECT_EQ(&after.GetJsonContext(), &json);
  EXPECT_NE(&before.GetJsonContext(), &json);
  {
    CSerializationContext last = after;
    source = CSerializationContext();
    after = before;
    EXPECT_EQ(&last.GetJsonContext(), &json);
    EXPECT_EQ(&after.GetJsonContext(), &before.GetJsonContext());
    EXPECT_EQ(CInstanceMonitor::GetCount("CJsonContext"), 2);
  }
  EXPECT_EQ(CInstanceMonitor::GetCount("CJsonContext"), 1);
}

TEST(CJsonContext, RefusesDepths) {
  CJsonContext json;
  EXPECT_EQ(json.GetMaxDepth(), 1000);
  json.SetMaxDepth(10000);
  for (const int refused : {0, -1, 10001}) {
    EXPECT_QV_THROW(json.SetMaxDepth(refused), CQvInvalidParamException,
                    "MaxDepth must be from 1 to 10000.");
  }
  EXPECT_EQ(json.GetMaxDepth(), 10000);
  json.SetRootElementName("r");
  json.SetRootElementName(nullptr);
  EXPECT_EQ(json.GetRootElementName(), "");
}
