// What every bindable object has: entry points, references, guards for setters, events, and the
// tests of names and namespaces.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tests/binding/driven_class.h"
#include "tests/support/qv_gtest.h"
#include "tests/support/slot_of.h"
#include "tests/support/temporary_folder.h"

#include "qvxml/binding/typed_collections.h"
#include "qvxml/binding/xml_object_base.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;
using qv_test::CDriven;
using qv_test::CSample;
using qv_test::DrivenSchema;
using qv_test::ReadFile;

namespace {

constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;

// An element <r> with an optional i4 <a> and an optional string <s>.
class CXmlObjectBaseTest : public testing::Test {
 protected:
  CXmlObjectBaseTest() : schema(XmlElementGroupType_Sequence, "r"), object(schema) {
    schema.Add<CElementInfoSeqPrimOpt>("a", "", 0, false, ItemType_i4, "", kCollapse,
                                       CPrimitiveRestrictions("", -1, -1, "", "100"), "");
    schema.Add<CElementInfoSeqPrimOpt>("s", "", 1, false, ItemType_string, "",
                                       CWhitespaceUtils::ws_preserve, CPrimitiveRestrictions(), "");
  }
  void SetNumber(long value) { object.values[0].SetI4(value); }
  void SetText(const std::string& value) { object.values[1].SetString(value); }

  DrivenSchema schema;
  CDriven object;
  const CSerializationContext& ctx = CSerializationContext::m_defaultContext;
};

std::string BytesOf(const CBinaryData& data) {
  return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

// --- Slots

TEST_F(CXmlObjectBaseTest, KeepsItsSlotOrder) {
  using qv_test::SlotOf;
  using C = CXmlObjectBase;
  using Context = const CSerializationContext&;
  // clang-format off
  const std::vector<std::uintptr_t> slots = {
      SlotOf(&C::OnEvent), SlotOf(&C::GetBase), SlotOf(&C::ToXmlFile), SlotOf(&C::ToFastInfosetFile), SlotOf(&C::ToJsonFile),
      SlotOf(&C::ToXml), SlotOf(&C::ToJson), SlotOf(&C::ToXmlStream), SlotOf(&C::ToFastInfosetStream), SlotOf(&C::ToJsonStream),
      SlotOf(&C::FromXmlFile), SlotOf(&C::FromJsonFile),
      SlotOf<void (C::*)(const char*, Context)>(&C::FromXml), SlotOf<void (C::*)(const wchar_t*, Context)>(&C::FromXml),
      SlotOf<void (C::*)(const char*, Context)>(&C::FromJson), SlotOf<void (C::*)(const wchar_t*, Context)>(&C::FromJson),
      SlotOf<void (C::*)(unsigned char*, unsigned long, Context)>(&C::FromXmlStream), SlotOf<void (C::*)(const CBinaryData&, Context)>(&C::FromXmlStream),
      SlotOf<void (C::*)(unsigned char*, unsigned long, Context)>(&C::FromJsonStream), SlotOf<void (C::*)(const CBinaryData&, Context)>(&C::FromJsonStream),
      SlotOf<void (C::*)(const CXmlElement*, Context)>(&C::FromXmlElement), SlotOf<void (C::*)(const CElement*, Context)>(&C::FromXmlElement)};
  const std::uintptr_t behind[] = {
      SlotOf(&C::GetTargetNamespace), SlotOf(&C::GetNamespace), SlotOf(&C::AttributesToXml_Int), SlotOf(&C::ToXml_Int), SlotOf(&C::FromXml_Int),
      SlotOf(&CXmlCollectionBase::GetCount), SlotOf(&CXmlCollectionBase::Clear), SlotOf(&CXmlCollectionBase::Remove),
      SlotOf(&CXmlCollectionBase::ValidateCount), SlotOf(&CXmlCollectionBase::IsValidCount), SlotOf(&CXmlTypeCollection::AddFromString)};
  // clang-format on
  for (size_t index = 0; index < slots.size(); ++index) {
    // Only operations of other formats may stand between them.
    EXPECT_TRUE(index == 0 ? slots[index] == 0 : slots[index] > slots[index - 1]) << index;
  }
  // The two destructors stand in between.
  auto next = slots.back() + 3;
  for (const std::uintptr_t slot : behind) EXPECT_EQ(next++, slot);
  EXPECT_EQ(0u, SlotOf(&INillable::IsNil));
  EXPECT_EQ(1u, SlotOf(&INillable::SetNil));
}

// --- Entry points

TEST_F(CXmlObjectBaseTest, WritesTextBytesAndFilesAlike) {
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("r.xml");
  SetNumber(5);
  const struct {
    bool hasHeader, format;
    EOLType eol;
    const char* expected;
  } rows[] = {
      // clang-format off
      {true, true, EOL_LF, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r>\n\t<a>5</a>\n</r>\n"},
      {true, true, EOL_CRLF, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<r>\r\n\t<a>5</a>\r\n</r>\r\n"},
      {false, false, EOL_LF, "<r><a>5</a></r>"},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.expected);
    EXPECT_EQ(row.expected, object.ToXml(row.hasHeader, row.format, row.eol));
    EXPECT_EQ(row.expected,
              BytesOf(object.ToXmlStream(row.hasHeader, row.format, Encoding_UTF8, row.eol)));
    for (const bool isAsync : {false, true}) {
      CXmlObjectBase::AsyncToXmlFile(isAsync);
      object.ToXmlFile(path.c_str(), row.hasHeader, row.format, Encoding_UTF8, row.eol);
      CXmlObjectBase::AsyncToXmlFile(false);
      const std::string file = ReadFile(path);
      const std::string mark = "\xEF\xBB\xBF";
      EXPECT_EQ(row.expected, file.substr(0, 3) == mark ? file.substr(3) : file) << isAsync;
    }
  }
  EXPECT_EQ(rows[0].expected, object.ToXml());
}

TEST_F(CXmlObjectBaseTest, TheContextReachesTheWriter) {
  SetNumber(5);
  CSerializationContext options;
  options.SetIndentChars("  ");
  EXPECT_EQ("<r>\n  <a>5</a>\n</r>\n", object.ToXml(false, true, EOL_LF, options));
  schema.Add<CElementInfoSeqPrimOpt>("d", "", 2, false, ItemType_i4, "", kCollapse,
                                     CPrimitiveRestrictions(), "7");
  object.values[2].SetI4(7);
  EXPECT_EQ("<r><a>5</a><d/></r>", object.ToXml(false, false, EOL_LF, options));
  EXPECT_EQ("E0000001003C00723C00619035F03C0064FFF0",
            object.ToFastInfosetStream(FInfoDecl_None, options).GetAsHexString());
  options.SetWriteDefaultElementValues(true);
  EXPECT_EQ("<r><a>5</a><d>7</d></r>", object.ToXml(false, false, EOL_LF, options));
  EXPECT_EQ("E0000001003C00723C00619035F03C00649037FFF0",
            object.ToFastInfosetStream(FInfoDecl_None, options).GetAsHexString());
}

TEST_F(CXmlObjectBaseTest, CompressesWhatGetsSmaller) {
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("r.gz");
  SetText(std::string(1000, 'x'));
  const std::string plain = object.ToXml();
  for (const CompressionType type : {CompressionType_GZip, CompressionType_ZLib}) {
    const CBinaryData data = object.ToXmlStream(true, true, Encoding_UTF8, EOL_LF, ctx, type);
    EXPECT_EQ(type == CompressionType_GZip ? "\x1F\x8B" : "\x78\x01", BytesOf(data).substr(0, 2));
    CDriven copy(schema);
    copy.FromXmlStream(data);
    EXPECT_EQ(plain, copy.ToXml());
  }
  for (const bool isAsync : {false, true}) {
    CXmlObjectBase::AsyncToXmlFile(isAsync);
    object.ToXmlFile(path.c_str(), true, true, Encoding_UTF8, EOL_LF, ctx, CompressionType_GZip);
    CXmlObjectBase::AsyncToXmlFile(false);
    EXPECT_EQ("\x1F\x8B", ReadFile(path).substr(0, 2));
    CDriven copy(schema);
    copy.FromXmlFile(path.c_str());
    EXPECT_EQ(plain, copy.ToXml());
  }
  SetText("x");
  EXPECT_QV_THROW(
      object.ToXmlStream(false, false, Encoding_UTF8, EOL_LF, ctx, CompressionType_GZip),
      CQvException, "Failed to compress data. [Error Code: 0]");
}

TEST_F(CXmlObjectBaseTest, AFileIsTouchedOnlyWhenTheDocumentIsWhole) {
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("r.xml");
  EXPECT_QV_THROW(
      object.ToXmlFile(path.c_str(), true, true, Encoding_UTF8, EOL_LF, ctx, CompressionType_ZLib),
      CQvException, "ZLIB Compression only available for To Stream methods.");
  EXPECT_QV_THROW(object.ToFastInfosetFile(path.c_str(), FInfoDecl_None, ctx, CompressionType_ZLib),
                  CQvException, "ZLIB Compression only available for To Stream methods.");
  SetNumber(101);
  EXPECT_THROW(object.ToXmlFile(path.c_str()), CQvValidationException);
  EXPECT_THROW(object.ToFastInfosetFile(path.c_str()), CQvValidationException);
  EXPECT_EQ(0, folder.CountEntries());
  SetNumber(5);
  object.ToFastInfosetFile(path.c_str(), FInfoDecl_Plain);
  EXPECT_EQ("<?xml encoding='finf'?>\xE0", ReadFile(path).substr(0, 24));
  std::filesystem::remove(path);
  SetNumber(101);
  // Written as it goes, it stays cut off.
  CXmlObjectBase::AsyncToXmlFile(true);
  CXmlObjectBase::AsyncFromXmlFile(true);
  EXPECT_QV_THROW(object.ToXmlFile(path.c_str(), false, false), CQvValidationException,
                  "Failed to convert the element [r] to XML");
  CXmlObjectBase::AsyncToXmlFile(false);
  CXmlObjectBase::AsyncFromXmlFile(false);
  EXPECT_EQ(1, folder.CountEntries());
}

TEST_F(CXmlObjectBaseTest, ReadsFromEverySource) {
  const qv_test::TemporaryFolder folder;
  const std::string path = folder.PathOf("r.xml");
  const std::string text = "<q><a>5</a></q>";
  qv_test::WriteFile(path, text);
  const auto expectRead = [&](const char* source) {
    EXPECT_EQ("q 0=5", object.GetElementName() + " " + object.Dump()) << source;
    object.SetElementName("");
    object.Init();
  };
  object.FromXml(text.c_str());
  expectRead("text");
  object.FromXml(L"<q><a>5</a></q>");
  expectRead("wide text");
  object.FromXmlFile(path.c_str());
  expectRead("file");
  std::string bytes = text;
  object.FromXmlStream(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size());
  expectRead("bytes");
  object.FromXmlStream(CBinaryData(text.c_str()));
  expectRead("data");
  CXmlDocument document;
  document.LoadXml(text.c_str());
  object.FromXmlElement(document.GetDocumentElement());
  expectRead("element");
  const CSmartPtr<CElement> holder(new CElement("x"));
  holder->FromXml(text.c_str());
  object.FromXmlElement(holder.Ptr());
  expectRead("holder");
}

TEST_F(CXmlObjectBaseTest, RefusesWhatIsNoDocument) {
  EXPECT_QV_THROW(object.FromXmlElement(static_cast<const CXmlElement*>(nullptr)),
                  CQvInvalidParamException, "The element to read may not be NULL");
  EXPECT_QV_THROW(object.FromXmlStream(CBinaryData()), CQvException, "XML Stream is empty!");
  EXPECT_THROW(object.FromXml(static_cast<const wchar_t*>(nullptr)), CQvException);
  EXPECT_THROW(object.FromXmlFile(nullptr), CQvException);
  EXPECT_THROW(object.ToXmlFile(nullptr), CQvException);
}

// --- References

TEST_F(CXmlObjectBaseTest, LivesUntilItsLastReferenceGoes) {
  const auto before = CInstanceMonitor::GetCount("CXmlObjectBase");
  auto* first = new CDriven(schema);
  EXPECT_EQ(1, first->AddRef());
  EXPECT_EQ(2, first->AddRef());
  first->SetElementName("first");
  // An assignment leaves them alone.
  auto* second = new CDriven(schema);
  EXPECT_EQ(1, second->AddRef());
  first->SetElementName(nullptr);
  static_cast<CXmlObjectBase&>(*second) = *first;
  EXPECT_EQ("", second->GetElementName());
  EXPECT_EQ(before + 2, CInstanceMonitor::GetCount("CXmlObjectBase"));
  EXPECT_EQ(0, second->Release());
  EXPECT_EQ(1, first->Release());
  EXPECT_EQ(0, first->Release());
  EXPECT_EQ(before, CInstanceMonitor::GetCount("CXmlObjectBase"));
}

// --- Guards

// What they say is in samples_test.cpp.
TEST_F(CXmlObjectBaseTest, GuardsOfSetters) {
  EXPECT_NO_THROW(CXmlObjectBase::Throw_IfPropertyIsNull(&object, "P"));
  EXPECT_NO_THROW(CXmlObjectBase::Throw_IfElementNameDiffers(nullptr, "x"));
  // The name is the one of what a wrapper stands for.
  struct CWrapper : CDriven {
    CWrapper(DrivenSchema& schema, CXmlObjectBase& item) : CDriven(schema), m_item(item) {
      SetElementName("wrapper");
    }
    CXmlObjectBase* GetBase() override { return &m_item; }
    CXmlObjectBase& m_item;
  } wrapper(schema, object);
  EXPECT_NO_THROW(CXmlObjectBase::Throw_IfElementNameDiffers(&wrapper, "r"));
}

TEST_F(CXmlObjectBaseTest, GuardsOfChoices) {
  const std::string plain = "The Property ";
  const std::string rest =
      " is already set. Only one element within this class bay be set at a time";
  const auto setValid = [](bool isValid, const char* name) {
    return [=](std::string& selected) {
      CXmlObjectBase::Choice_SetElementValid(isValid, name, selected);
    };
  };
  const auto select = [&](const char* name, bool hasValue) {
    CXmlObjectBase* const value = hasValue ? &object : nullptr;
    return
        [=](std::string& selected) { CXmlObjectBase::Choice_SelectElement(name, value, selected); };
  };
  const auto changed = [](const char* name, long count) {
    return [=](std::string& selected) {
      CXmlObjectBase::Choice_CollectionChanged(name, count, selected);
    };
  };
  const struct {
    std::function<void(std::string&)> guard;
    const char *before, *after;
    std::string message;
  } rows[] = {
      // clang-format off
      {setValid(true, "a"), "a", "a", ""}, {setValid(true, "a"), "", "", plain + rest},
      {setValid(true, "a"), "b", "b", plain + "b" + rest}, {setValid(false, "a"), "a", "", ""},
      {setValid(false, "a"), "b", "", ""}, {select("a", true), "a", "a", ""}, {select("a", false), "a", "", ""},
      {select("a", true), "", "a", ""}, {select("a", false), "", "a", ""},
      {select("a", true), "b", "b", plain + "[b]" + rest}, {select("a", false), "b", "b", ""},
      {changed("a", 2), "a", "a", ""}, {changed("a", 0), "a", "", ""}, {changed("a", 2), "", "a", ""},
      {changed("a", 0), "", "", ""}, {changed("a", 2), "b", "b", plain + "[b]" + rest},
      {changed("a", 0), "b", "b", ""},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    std::string selected = row.before;
    if (row.message.empty()) {
      EXPECT_NO_THROW(row.guard(selected));
    } else {
      EXPECT_QV_THROW(row.guard(selected), CQvInvalidStateException, row.message);
    }
    EXPECT_EQ(row.after, selected);
  }
}

TEST_F(CXmlObjectBaseTest, ReadsTheCollectionOfAChoice) {
  Ci4Col collection("i", "", 0, Ci4Col::kUnbounded, CPrimitiveRestrictions(), kCollapse);
  collection.Add(1);
  CXmlDocument document;
  document.LoadXml("<r><i>2</i><i>3</i><j/></r>");
  CXmlElement* const root = document.GetDocumentElement();
  CXmlElement* cursor = root->GetFirstElement();
  long count = 10;
  CXmlObjectBase::Choice_Read_Collection(&collection, root, cursor, count, ctx);
  EXPECT_EQ("j", cursor->GetLocalName());
  EXPECT_EQ(12, count);
  EXPECT_EQ(3, collection.GetCount());
}

// --- Names and namespaces

// With the options it is tested through the members.
TEST_F(CXmlObjectBaseTest, MatchesNames) {
  CXmlDocument document;
  document.LoadXml("<p:n xmlns:p='urn:p'/>");
  const CXmlElement* const element = document.GetDocumentElement();
  EXPECT_TRUE(object.DoesElementNameMatch(ctx, element, "n", "urn:p"));
  EXPECT_FALSE(object.DoesElementNameMatch(ctx, element, "N", "urn:p"));
  EXPECT_FALSE(object.DoesElementNameMatch(ctx, element, "n", nullptr));
  EXPECT_FALSE(object.DoesElementNameMatch(qv_test::Context("N"), element, "x", "urn:p"));
  EXPECT_FALSE(object.DoesElementNameMatch(ctx, nullptr, "n", ""));
}

TEST_F(CXmlObjectBaseTest, TestsNamespacesAgainstAList) {
  const struct {
    const char *list, *target, *namespaceUri;
    bool expected;
  } rows[] = {
      // clang-format off
      {"##any", "urn:t", "urn:x", true}, {"##any", "urn:t", "", true}, {"##other", "urn:t", "urn:t", false},
      {"##other", "urn:t", "urn:x", true}, {"##other", "urn:t", "", true}, {"##other", "", "", false},
      {"##local", "urn:t", "", true}, {"##local", "urn:t", "urn:t", false},
      {"##targetNamespace", "urn:t", "urn:t", true}, {"##targetNamespace", "urn:t", "", false},
      {"##local ##targetNamespace", "urn:t", "urn:t", true}, {"##local ##targetNamespace", "urn:t", "", true},
      {"##local ##targetNamespace", "urn:t", "urn:x", false}, {"urn:a", "urn:t", "urn:a", true},
      {"urn:a", "urn:t", "urn:b", false}, {"urn:a", "urn:t", "", true},
      // Kept: the whole list is the URI.
      {"urn:a urn:b", "urn:t", "urn:a", false}, {"urn:a urn:b", "urn:t", "urn:b", false},
      {"urn:a urn:b", "urn:t", "urn:a urn:b", true}, {"urn:a urn:b", "urn:t", "", true},
      {"##targetNamespace urn:a", "urn:t", "urn:t", true}, {"##targetNamespace urn:a", "urn:t", "urn:a", false},
      {"##Any", "urn:t", "urn:x", false}, {"", "urn:t", "", false}, {"", "", "", false},
      {"  ", "urn:t", "", false}, {"  ##any ", "urn:t", "urn:x", true},
      {"##any##other", "urn:t", "urn:x", false},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE("[" + std::string(row.namespaceUri) + "] in [" + row.list + "]");
    EXPECT_EQ(row.expected, object.IsNamespaceValid(row.namespaceUri, row.list, row.target));
    if (row.expected) {
      EXPECT_TRUE(object.TestNamespace(row.namespaceUri, row.list, row.target));
    } else {
      EXPECT_QV_THROW(object.TestNamespace(row.namespaceUri, row.list, row.target),
                      CQvInvalidNamespaceException,
                      "Invalid namespace [" + std::string(row.namespaceUri) +
                          "]. The namespace must be one of [" + row.list +
                          "] where the target namespace is [" + row.target + "].");
    }
  }
  EXPECT_FALSE(object.IsNamespaceValid(nullptr, nullptr, nullptr));
}

}  // namespace
