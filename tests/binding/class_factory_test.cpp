#include "qvxml/binding/class_factory.h"

#include "tests/support/qv_gtest.h"

#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;

namespace {

struct CTypeRow {
  const char* name;
  // Attributes of the element "e" in the namespace urn:e.
  const char *attributes, *type, *namespaceUri;
};

const CTypeRow kTypeRows[] = {
    // clang-format off
    {"no attribute", "", "", "urn:e"}, {"no prefix", R"(i:type="T")", "T", "urn:e"},
    {"empty", R"(i:type="")", "", "urn:e"}, {"prefix", R"(i:type="p:T")", "T", "urn:p"},
    {"unknown prefix", R"(i:type="q:T")", "T", "urn:e"},
    {"two colons", R"(i:type="p:T:U")", "T:U", "urn:p"},
    {"nothing before the colon stands for the default namespace", R"(i:type=":T")", "T", "urn:d"},
    {"nothing behind the colon", R"(i:type="p:")", "", "urn:p"},
    {"blanks are not taken off", R"(i:type=" p:T ")", "T ", "urn:e"},
    {"type in no namespace", R"(type="p:T")", "", "urn:e"},
    {"type in another namespace", R"(p:type="p:T")", "", "urn:e"},
    {"the prefix's last binding, not the one in scope", R"(i:type="r:T")", "T", "urn:r2"},
    // clang-format on
};

}  // namespace

TEST(CClassfactoryBase, ReadsTheTypeAndItsNamespace) {
  for (const CTypeRow& row : kTypeRows) {
    SCOPED_TRACE(row.name);
    CXmlDocument document;
    const std::string text =
        std::string(R"(<doc xmlns="urn:d" xmlns:p="urn:p" xmlns:x="urn:e" xmlns:r="urn:r1")") +
        R"( xmlns:i="http://www.w3.org/2001/XMLSchema-instance"><x:e )" + row.attributes +
        R"(/><other xmlns:r="urn:r2"/></doc>)";
    document.LoadXml(text.c_str());
    CXmlElement* const element = document.GetDocumentElement()->GetFirstElement();
    EXPECT_EQ(CClassfactoryBase::GetElementType(element), row.type);
    EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(element), row.namespaceUri);
  }
}

TEST(CClassfactoryBase, NeedsAnElement) {
  EXPECT_QV_THROW(CClassfactoryBase::GetElementType(nullptr), CQvInvalidParamException,
                  "The element may not be NULL");
  EXPECT_QV_THROW(CClassfactoryBase::GetElementTypeNamespaceUri(nullptr), CQvInvalidParamException,
                  "The element may not be NULL");
}
