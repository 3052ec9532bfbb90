#include "qvxml/xml/namespace_alias_map.h"

#include "tests/support/qv_gtest.h"

namespace {

using namespace QvXmlLib16;

TEST(CNamespaceAliasMap, KeepsOneAliasForEachNamespaceInUriOrder) {
  CNamespaceAliasMap map;
  map.Add("z", "urn:z");
  map.Add("a", "urn:x");
  map.Add("b", "urn:x");
  map.Add("b", "urn:B");
  EXPECT_EQ(3, map.GetNamespaceCount());
  EXPECT_EQ("urn:B", map.GetNamespaceAt(0));
  EXPECT_EQ("urn:x", map.GetNamespaceAt(1));
  EXPECT_EQ("urn:z", map.GetNamespaceAt(2));
  EXPECT_EQ("b", map.GetAliasFromNamespace("urn:x"));
  EXPECT_EQ("urn:B", map.GetNamespaceFromAlias("b"));
  EXPECT_FALSE(map.DoesAliasExist("a"));
  map.RemoveNamespace("urn:B");
  map.RemoveNamespace("urn:unknown");
  EXPECT_EQ("urn:x", map.GetNamespaceFromAlias("b"));
  EXPECT_FALSE(map.DoesNamespaceExist("urn:B"));
}

TEST(CNamespaceAliasMap, EntersWhatALookupDoesNotFind) {
  const CNamespaceAliasMap map;
  EXPECT_EQ("", map.GetAliasFromNamespace("urn:x"));
  EXPECT_EQ(1, map.GetNamespaceCount());
  EXPECT_TRUE(map.DoesNamespaceExist("urn:x"));
  EXPECT_TRUE(map.DoesAliasExist(""));
}

TEST(CNamespaceAliasMap, RefusesWhatIsNotThere) {
  CNamespaceAliasMap map;
  EXPECT_QV_THROW(map.GetNamespaceFromAlias("p"), CQvException, "Namespace alias [p] not found");
  EXPECT_QV_THROW(map.GetNamespaceFromAlias(nullptr), CQvException, "Namespace alias [] not found");
  EXPECT_QV_THROW(map.GetNamespaceAt(0), CQvInvalidParamException,
                  "Index 0 is out of range, use 0 - -1");
  map.Add(nullptr, nullptr);
  EXPECT_EQ("", map.GetNamespaceAt(0));
  EXPECT_QV_THROW(map.GetNamespaceAt(1), CQvInvalidParamException,
                  "Index 1 is out of range, use 0 - 0");
  EXPECT_QV_THROW(map.GetNamespaceAt(-1), CQvInvalidParamException,
                  "Index -1 is out of range, use 0 - 0");
}

}  // namespace
