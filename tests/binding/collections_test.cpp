// The collections: items and their checks, events, reading and writing.

#include <climits>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/qv_gtest.h"
#include "tests/support/recording_writer.h"

#include "qvxml/binding/typed_collections.h"
#include "qvxml/binding/xml_collection.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using qv_test::RecordingWriter;

namespace {

constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;

const CPrimitiveRestrictions& NoFacets() {
  static const CPrimitiveRestrictions none;
  return none;
}

CPrimitiveRestrictions MaxInclusive(const char* text) {
  return CPrimitiveRestrictions("", -1, -1, "", text);
}

// Writes the collection by itself, or says what was thrown.
std::string Written(const CXmlObjectBase& object,
                    const CSerializationContext& ctx = CSerializationContext()) {
  RecordingWriter writer;
  object.ToXml_Int(&writer, false, "urn:not-used", ctx, false);
  return writer.Take();
}

std::string NameOrEnd(const CXmlElement* element) {
  return element == nullptr ? "end" : element->GetLocalName();
}

// Reads all children of the root and returns the name of the first that was left.
std::string ReadAll(CXmlObjectBase& object, const char* xml,
                    const CSerializationContext& ctx = CSerializationContext()) {
  CXmlDocument document(ctx);
  document.LoadXml(xml);
  CXmlElement* const root = document.GetDocumentElement();
  return NameOrEnd(object.FromXml_Int(root, root->GetFirstElement(), ctx, false));
}

// Lists the events, with what `describe` makes of their data.
class CListener : public IEventSink {
 public:
  explicit CListener(std::function<std::string(void*)> describe)
      : m_describe(std::move(describe)) {}
  virtual ~CListener() = default;

  void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override {
    std::string text = std::to_string(type);
    if (type == MsgType_Add || type == MsgType_AddComplete) {
      text += ":" + m_describe(data);
    } else if (data != nullptr) {
      text += ":" + std::to_string(*static_cast<int*>(data));
    }
    if (!m_log.empty()) m_log += ' ';
    m_log += text;
    m_source = source;
    if (react) react(type, data);
  }
  std::string Take() { return std::exchange(m_log, std::string()); }
  CXmlObjectBase* GetSource() const { return m_source; }

  std::function<void(MsgType, void*)> react;

 private:
  std::function<std::string(void*)> m_describe;
  std::string m_log;
  CXmlObjectBase* m_source = nullptr;
};

std::string DescribeLong(void* data) { return std::to_string(*static_cast<long*>(data)); }

// --- Typed collections

// Reads two values beside foreign elements and writes them back: conversion, item type, name.
template <class TCollection>
void CheckType(const char* className, int itemType, const char* first, const char* second,
               const char* firstWritten = nullptr) {
  SCOPED_TRACE(className);
  const std::string xml = std::string("<r><v>") + first + "</v><v a='1'>" + second + "</v><w/></r>";
  TCollection collection("v", "", 0, kUnbounded, NoFacets(), kCollapse);
  EXPECT_EQ(1, CInstanceMonitor::GetCount(className));
  EXPECT_EQ("w", ReadAll(collection, xml.c_str()));
  const std::string type = "\":" + std::to_string(itemType) + " >";
  EXPECT_EQ(std::string("<v \"") + (firstWritten == nullptr ? first : firstWritten) + type +
                " <v \"" + second + type,
            Written(collection));
  collection.Add(collection.Item(0));
  EXPECT_EQ(3, collection.GetCount());
  EXPECT_EQ(3, collection.end() - collection.begin());
}

TEST(TypedCollections, EachTypeReadsAndWritesItsText) {
  CheckType<ChexBinaryCol>("ChexBinaryCol", 1, "00ff", "AB", "00FF");
  CheckType<Cbase64BinaryCol>("Cbase64BinaryCol", 2, "AP8=", "qw==");
  CheckType<Ci1Col>("Ci1Col", 3, "-128", "127");
  CheckType<Ci2Col>("Ci2Col", 4, "-32768", "32767");
  CheckType<Ci4Col>("Ci4Col", 5, " +7 ", "-9223372036854775808", "7");
  CheckType<Ci8Col>("Ci8Col", 6, "-1", "9223372036854775807");
  CheckType<Cui1Col>("Cui1Col", 7, "0", "255");
  CheckType<Cui2Col>("Cui2Col", 8, "0", "65535");
  CheckType<Cui4Col>("Cui4Col", 9, "0", "18446744073709551615");
  CheckType<Cui8Col>("Cui8Col", 10, "0", "18446744073709551615");
  CheckType<Cr4Col>("Cr4Col", 11, "0.5", "-INF");
  CheckType<Cr8Col>("Cr8Col", 12, "1e2", "NaN", "100");
  CheckType<CdurationCol>("CdurationCol", 13, "P1Y", "-PT0.5S");
  CheckType<CyearMonthCol>("CyearMonthCol", 14, "2001-02", "1999-12Z");
  CheckType<CmonthDayCol>("CmonthDayCol", 15, "--02-29", "--12-31Z");
  CheckType<CyearCol>("CyearCol", 16, "2001", "1999");
  CheckType<CmonthCol>("CmonthCol", 17, "--02", "--12");
  CheckType<CdayCol>("CdayCol", 18, "---02", "---31");
  CheckType<CdateCol>("CdateCol", 19, "2001-02-03", "1999-12-31Z");
  CheckType<CdatetimeCol>("CdatetimeCol", 20, "2001-02-03T04:05:06", "1999-12-31T23:59:59.5Z");
  CheckType<CtimeCol>("CtimeCol", 21, "04:05:06", "23:59:59.5Z");
  CheckType<CstringCol>("CstringCol", 23, " a  b ", "a text that is not short at all", "a b");
  CheckType<CbooleanCol>("CbooleanCol", 24, "1", "false", "true");
  CheckType<CdecimalCol>("CdecimalCol", 25, "+1.50", "-0.25", "1.5");
  CheckType<CintegerCol>("CintegerCol", 26, "123456789012345678901234567890", "-1");
}

TEST(TypedCollections, TheFormatServesTheTypesThatHaveOne) {
  const auto written = [](auto&& collection, const char* text) {
    collection.AddFromString(text);
    return Written(collection);
  };
  EXPECT_EQ("<v \"1.50\":11 >",
            written(Cr4Col("v", "", 0, 9, NoFacets(), kCollapse, "%.2f"), "1.5"));
  EXPECT_EQ("<v \"1.500e+00\":12 >",
            written(Cr8Col("v", "", 0, 9, NoFacets(), kCollapse, "%.3e"), "1.5"));
  EXPECT_EQ("<v \"1.01\":25 >",
            written(CdecimalCol("v", "", 0, 9, NoFacets(), kCollapse, "2"), "1.005"));
  EXPECT_EQ("<v \"1\":5 >", written(Ci4Col("v", "", 0, 9, NoFacets(), kCollapse, "%.2f"), "1"));
}

TEST(TypedCollections, TheRuleForWhitespaceIsTheCollections) {
  CstringCol strings("v", "", 0, kUnbounded, NoFacets(), CWhitespaceUtils::ws_replace);
  ReadAll(strings, "<r><v> a\n b</v></r>");
  EXPECT_EQ(" a  b", strings.Item(0));
  Ci4Col numbers("v", "", 0, kUnbounded, NoFacets(), CWhitespaceUtils::ws_none);
  EXPECT_QV_THROW(ReadAll(numbers, "<r><v>5 </v></r>"), CQvInvalidValueException,
                  "The value [5 ] can not be converted to a i4");
}

TEST(TypedCollections, FacetsGoInTheOrderOfTheirConstructor) {
  // pattern, minLength, maxLength, then bounds, length, totalDigits, fractionDigits.
  CstringCol strings("v", "", 0, kUnbounded, "[a-z]*", 1, 3, nullptr, "", "", "", -1, -1, -1,
                     CWhitespaceUtils::ws_none);
  for (const char* bad : {"", "abcd", "AB"}) {
    EXPECT_QV_THROW(strings.Add(bad), CQvException,
                    std::string("Invalid Value for v [") + bad + "].");
  }
  strings.Add("abc");
  CdecimalCol decimals("v", "", 0, kUnbounded, "", -1, -1, "1", "", "", "10", -1, 3, 1, kCollapse);
  for (const char* bad : {"0.9", "10", "1.25"}) {
    EXPECT_QV_THROW(decimals.AddFromString(bad), CQvException,
                    std::string("Invalid Value for v [") + bad + "].");
  }
  decimals.AddFromString("9.5");
  ChexBinaryCol bytes("v", "", 0, kUnbounded, "", -1, -1, "", "", "", "", 2, -1, -1, kCollapse);
  EXPECT_QV_THROW(bytes.AddFromString("AB"), CQvException, "Invalid Value for v [AB].");
  bytes.AddFromString("ABCD");
  CdateCol dates("v", "", 0, kUnbounded, "", -1, -1, "", "", "2001-01-01", "", -1, -1, -1,
                 kCollapse);
  EXPECT_QV_THROW(dates.AddFromString("2001-01-01"), CQvException,
                  "Invalid Value for v [2001-01-01].");
  EXPECT_EQ(1, strings.GetCount() * decimals.GetCount() * bytes.GetCount());
  EXPECT_EQ(0, dates.GetCount());
}

TEST(TypedCollections, AValueThatIsRefusedChangesNothing) {
  Ci4Col numbers("v", "", 0, kUnbounded, MaxInclusive("10"), kCollapse);
  numbers.Add(1);
  EXPECT_QV_THROW(numbers.AddAt(0, 11), CQvException, "Invalid Value for v [11]");
  EXPECT_QV_THROW(numbers.AddFromString("x"), CQvInvalidValueException,
                  "The value [x] can not be converted to a i4");
  EXPECT_QV_THROW(ReadAll(numbers, "<r><v>2</v><v>12</v></r>"), CQvException,
                  "Invalid Value for v [12]");
  EXPECT_EQ("<v \"1\":5 > <v \"2\":5 >", Written(numbers));
}

TEST(TypedCollections, DatesOfAnotherKindAreRefused) {
  const auto expectRefused = [](auto&& collection, const CDateTime& value, const char* kind) {
    EXPECT_QV_THROW(collection.Add(value), CQvInvalidParamException,
                    std::string("Dates added to this collection must be of type ") + kind);
  };
  const CDateTime date(2001, 2, 3);
  const CDateTime moment(2001, 2, 3, 4, 5, 6);
  expectRefused(CdateCol("v", "", 0, 9, NoFacets(), kCollapse), moment, "dt_date");
  expectRefused(CdatetimeCol("v", "", 0, 9, NoFacets(), kCollapse), date, "dt_dateTime");
  expectRefused(CdatetimeCol("v", "", 0, 9, NoFacets(), kCollapse), CDateTime(), "dt_dateTime");
  expectRefused(CtimeCol("v", "", 0, 9, NoFacets(), kCollapse), moment, "dt_time");
  expectRefused(CyearMonthCol("v", "", 0, 9, NoFacets(), kCollapse), date, "dt_gYearMonth");
  expectRefused(CmonthDayCol("v", "", 0, 9, NoFacets(), kCollapse), date, "dt_gMonthDay");
  CdateCol dates("v", "", 0, kUnbounded, NoFacets(), kCollapse);
  EXPECT_QV_THROW(dates.AddFromString("2001"), CQvInvalidParamException,
                  "Dates added to this collection must be of type dt_date");
  EXPECT_QV_THROW(CdatetimeBaseCol(ItemType_year, "v", "", 0, 1, NoFacets(), kCollapse),
                  CQvException, "Invalid Type 16");
}

TEST(TypedCollections, AnIndexOutOfRangeNamesTheCount) {
  Ci4Col numbers("v", "", 0, kUnbounded, NoFacets(), kCollapse);
  for (long value : {1, 2, 3}) numbers.Add(value);
  const struct {
    const char* name;
    std::function<void(int)> act;
    std::vector<int> bad;
  } kRows[] = {
      // clang-format off
      {"Item", [&](int index) { numbers.Item(index); }, {-1, 3, INT_MAX, INT_MIN}},
      {"Remove", [&](int index) { numbers.Remove(index); }, {-1, 3, INT_MAX, INT_MIN}},
      {"AddAt", [&](int index) { numbers.AddAt(index, 0); }, {-1, 4, INT_MAX, INT_MIN}},
      // clang-format on
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    for (const int index : row.bad) {
      EXPECT_QV_THROW(row.act(index), CQvInvalidParamException,
                      "Index " + std::to_string(index) + " is out of range, use 0 - 3");
    }
  }
  numbers.AddAt(3, 4);
  numbers.AddAt(0, 0);
  numbers.Remove(2);
  EXPECT_EQ((std::vector<long>{0, 1, 3, 4}), std::vector<long>(numbers.begin(), numbers.end()));
  EXPECT_EQ(4, numbers.Item(3));
}

TEST(TypedCollections, CountsAreCheckedOnWriting) {
  CSerializationContext ignoring;
  ignoring.SetIgnoreInvalidCollectionCounts(true);
  Ci4Col numbers("Item", "", 1, 2, NoFacets(), kCollapse);
  const char* const faults[] = {
      "The Minimum number of [Item] elements allowed in this collection is 1", nullptr, nullptr,
      "The Maximum number of [Item] elements allowed in this collection is 2"};
  for (const char* fault : faults) {
    SCOPED_TRACE(numbers.GetCount());
    EXPECT_EQ(fault == nullptr, numbers.IsValidCount(CSerializationContext()));
    EXPECT_TRUE(numbers.IsValidCount(ignoring));
    EXPECT_NO_THROW(Written(numbers, ignoring));
    if (fault == nullptr) {
      EXPECT_NO_THROW(Written(numbers));
    } else {
      EXPECT_QV_THROW(Written(numbers), CQvValidationException, fault);
    }
    // Reading does not check: that is the member's affair.
    EXPECT_EQ("end", ReadAll(numbers, "<r><Item>1</Item></r>"));
  }
  // A maximum below the minimum is tested first.
  Ci4Col impossible("Item", "", 5, 0, NoFacets(), kCollapse);
  impossible.Add(1);
  EXPECT_QV_THROW(impossible.ValidateCount(CSerializationContext()), CQvValidationException,
                  "The Maximum number of [Item] elements allowed in this collection is 0");
}

TEST(TypedCollections, ItemsAreToldByNameAndNamespace) {
  const char* const xml =
      "<r xmlns:a='urn:a' xmlns:b='urn:b'><a:v>1</a:v><a:v>2</a:v><b:v>3</b:v><a:w/></r>";
  CSerializationContext strict;
  CSerializationContext ignoring;
  ignoring.SetIgnoreNamespaces(true);
  Ci4Col numbers("v", "urn:a", 0, kUnbounded, NoFacets(), kCollapse);
  EXPECT_EQ("v", ReadAll(numbers, xml, strict));
  EXPECT_EQ(2, numbers.GetCount());
  EXPECT_EQ("w", ReadAll(numbers, xml, ignoring));
  EXPECT_EQ(5, numbers.GetCount());
  EXPECT_EQ("w", ReadAll(numbers, "<r><w/><v>1</v></r>", ignoring));
  EXPECT_EQ("end", ReadAll(numbers, "<r/>"));
  EXPECT_EQ(5, numbers.GetCount());
}

TEST(TypedCollections, ACollectionIsNoDocument) {
  const Ci4Col numbers("v", "urn:a", 0, kUnbounded, NoFacets(), kCollapse);
  EXPECT_EQ("v", numbers.GetElementName());
  EXPECT_EQ("urn:a", numbers.GetNamespace());
  EXPECT_QV_THROW(
      numbers.ToXml(), CQvException,
      "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program "
      "logic error)");
}

TEST(TypedCollections, NamespacesMayBeManyAndMissing) {
  const auto namespaceOf = [](const char* namespaceUri) {
    return Ci4Col("v", namespaceUri, 0, kUnbounded, NoFacets(), kCollapse).GetNamespace();
  };
  // More than are kept once.
  for (int i = 0; i < 10000; ++i) {
    const std::string uri = "urn:many:" + std::to_string(i);
    ASSERT_EQ(uri, namespaceOf(uri.c_str()));
  }
  EXPECT_EQ("", namespaceOf(nullptr));
}

// --- Events

TEST(CollectionEvents, TellWhatChangesAndInWhichOrder) {
  Ci4Col numbers("v", "", 0, kUnbounded, MaxInclusive("10"), kCollapse);
  CListener listener(DescribeLong);
  numbers.AddEventListener(&listener);
  numbers.Add(7);
  EXPECT_EQ("1:7 2:7 0", listener.Take());
  EXPECT_EQ(&numbers, listener.GetSource());
  numbers.AddFromString("8");
  EXPECT_EQ("1:8 2:8 0", listener.Take());
  // The first event comes even when the index or the value is bad.
  EXPECT_ANY_THROW(numbers.AddAt(9, 1));
  EXPECT_EQ("1:1", listener.Take());
  EXPECT_ANY_THROW(numbers.Add(11));
  EXPECT_EQ("1:11", listener.Take());
  numbers.Remove(1);
  EXPECT_EQ("3:1 4:1 0", listener.Take());
  EXPECT_ANY_THROW(numbers.Remove(1));
  EXPECT_EQ("3:1", listener.Take());
  numbers.Clear();
  EXPECT_EQ("3 4 0", listener.Take());
  numbers.RemoveEventListener(&listener);
  numbers.RemoveEventListener(&listener);
  numbers.Add(1);
  EXPECT_EQ("", listener.Take());
}

TEST(CollectionEvents, AListenerCanPreventAChange) {
  Ci4Col numbers("v", "", 0, kUnbounded, NoFacets(), kCollapse);
  numbers.Add(1);
  CListener listener(DescribeLong);
  numbers.AddEventListener(&listener);
  listener.react = [](IEventSink::MsgType type, void*) {
    if (type == IEventSink::MsgType_Add || type == IEventSink::MsgType_Remove) {
      throw CQvInvalidStateException("closed");
    }
  };
  EXPECT_QV_THROW(numbers.Add(2), CQvInvalidStateException, "closed");
  EXPECT_QV_THROW(numbers.Remove(0), CQvInvalidStateException, "closed");
  EXPECT_QV_THROW(numbers.Clear(), CQvInvalidStateException, "closed");
  EXPECT_EQ("<v \"1\":5 >", Written(numbers));
}

TEST(CollectionEvents, ListenersMayChangeTheListAndTheCollection) {
  Ci4Col numbers("v", "", 0, kUnbounded, MaxInclusive("10"), kCollapse);
  CListener first(DescribeLong);
  CListener second(DescribeLong);
  numbers.AddEventListener(&first);
  numbers.AddEventListener(&second);
  // What an event shows is a copy, and a listener that is removed hears nothing more.
  first.react = [&](IEventSink::MsgType type, void* data) {
    if (type != IEventSink::MsgType_Add) return;
    *static_cast<long*>(data) = 99;
    numbers.RemoveEventListener(&first);
    numbers.RemoveEventListener(&second);
    numbers.Add(1);
  };
  numbers.AddAt(0, 2);
  EXPECT_EQ("1:2", first.Take());
  EXPECT_EQ("", second.Take());
  EXPECT_EQ("<v \"2\":5 > <v \"1\":5 >", Written(numbers));
  EXPECT_QV_THROW(numbers.AddEventListener(nullptr), CQvInvalidParamException,
                  "The Property [listener] is mandatory, it may not be NULL");
}

// --- Objects

// Reads and writes its text, or fails to; as a group it takes elements named "g".
class CItem : public CXmlObjectBase, private TInstanceCounted<CItem> {
  friend class TInstanceCounted<CItem>;
  static CInstanceCounter s_instances;

 public:
  explicit CItem(const char* name, bool isGroup = false)
      : CXmlObjectBase(name), m_isGroup(isGroup) {}

  CXmlObjectBase* GetBase() override { return this; }
  std::string GetTargetNamespace() const override { return ""; }
  std::string GetNamespace() const override { return ""; }
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                 const CSerializationContext&, bool optional) const override {
    writer->WriteStartElement(GetElementName(), targetNamespace);
    writer->WriteString(text, ItemType_string, isRoot || optional);
    writer->WriteEndElement();
  }
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                           const CSerializationContext&, bool optional) override {
    if (m_isGroup) {
      EXPECT_TRUE(optional);
      for (; NameOrEnd(firstChild) == "g"; firstChild = firstChild->GetNextSiblingElement()) {
        text += firstChild->GetText();
        if (text.size() == 2) return firstChild->GetNextSiblingElement();
      }
      return firstChild;
    }
    EXPECT_EQ(element->GetFirstElement(), firstChild);
    text = element->GetText();
    if (text == "bad") throw CQvException("bad item");
    return nullptr;
  }

  std::string text;

 private:
  bool m_isGroup;
};
constinit CInstanceCounter CItem::s_instances("CItem");

CSmartPtr<CXmlObjectBase> MakeItem(int classId, const char* name) {
  if (classId == 0) return nullptr;
  return new CItem(name, classId == 2);
}

CSmartPtr<CXmlObjectBase> MakeItemFor(CXmlElement* element) {
  if (element->GetLocalName() == "other") return nullptr;
  return new CItem(element->GetLocalName().c_str());
}

CXmlCollection* NewItems(int classId = 1, int minOccurs = 0) {
  const auto type = classId == 2 ? XmlElementType_Group : XmlElementType_Element;
  return new CXmlCollection("v", "urn:a", minOccurs, kUnbounded, type, &MakeItem, classId);
}

std::string NamesOf(const CXmlCollection& items) {
  std::string names;
  for (const CSmartPtr<CXmlObjectBase>& item : items) names += item->GetElementName() + " ";
  return names;
}

class CXmlCollectionTest : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(0, CInstanceMonitor::GetCount("CItem"));
    EXPECT_EQ(0, CInstanceMonitor::GetCount("CXmlCollection"));
  }
};

TEST_F(CXmlCollectionTest, HoldsReferencesInOrder) {
  CSmartPtr<CXmlCollection> items = NewItems();
  const CSmartPtr<CItem> kept(new CItem("kept"));
  items->Add(kept);
  items->AddAt(0, new CItem("first"));
  items->AddAt(2, new CItem("last"));
  EXPECT_EQ(1, items->Find(kept.Ptr()));
  EXPECT_EQ(-1, items->Find(nullptr));
  EXPECT_EQ("first kept last ", NamesOf(*items));
  items->Remove(kept.Ptr());
  EXPECT_EQ(3, CInstanceMonitor::GetCount("CItem"));
  items->Remove(0);
  EXPECT_EQ("last ", NamesOf(*items));
  EXPECT_QV_THROW(items->Item(1), CQvInvalidParamException, "Index 1 is out of range, use 0 - 1");
  EXPECT_QV_THROW(items->Remove(-1), CQvInvalidParamException,
                  "Index -1 is out of range, use 0 - 1");
  items->Clear();
  EXPECT_EQ(1, CInstanceMonitor::GetCount("CItem"));
}

TEST_F(CXmlCollectionTest, RemovesTheObjectWhateverItsListenersDo) {
  const struct {
    std::function<void(CXmlCollection&)> change;
    const char *events, *left;
  } rows[] = {
      // clang-format off
      {[](CXmlCollection& items) { items.Remove(0); }, "3:1 4:0 0", "c "},
      {[](CXmlCollection& items) { items.AddAt(0, new CItem("d")); }, "3:1 4:2 0", "d a c "},
      {[](CXmlCollection& items) { items.Remove(1); }, "3:1", "a c "},
      {[](CXmlCollection& items) { items.Clear(); }, "3:1", ""},
      // clang-format on
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.events);
    const CSmartPtr<CXmlCollection> items = NewItems();
    for (const char* name : {"a", "b", "c"}) items->Add(new CItem(name));
    CListener listener(DescribeLong);
    items->AddEventListener(&listener);
    listener.react = [&](IEventSink::MsgType type, void*) {
      if (type != IEventSink::MsgType_Remove) return;
      items->RemoveEventListener(&listener);
      row.change(*items);
      items->AddEventListener(&listener);
    };
    const CXmlObjectBase* const removed = items->Item(1);
    if (std::string(row.events) == "3:1") {
      EXPECT_QV_THROW(items->Remove(removed), CQvInvalidParamException,
                      "The object was not found in the collection");
    } else {
      items->Remove(removed);
    }
    EXPECT_EQ(row.events, listener.Take());
    EXPECT_EQ(row.left, NamesOf(*items));
  }
}

TEST_F(CXmlCollectionTest, AnObjectThatIsRefusedIsNotLeaked) {
  const CSmartPtr<CXmlCollection> items = NewItems();
  EXPECT_QV_THROW(items->AddAt(1, new CItem("v")), CQvInvalidParamException,
                  "Index 1 is out of range, use 0 - 0");
  EXPECT_QV_THROW(items->Add(nullptr), CQvInvalidParamException,
                  "The Property [v] is mandatory, it may not be NULL");
  EXPECT_EQ(0, CInstanceMonitor::GetCount("CItem"));
}

TEST_F(CXmlCollectionTest, AnObjectLivesUntilTheLastEventIsOver) {
  const CSmartPtr<CXmlCollection> items = NewItems();
  CListener listener(DescribeLong);
  items->Add(new CItem("x"));
  items->AddEventListener(&listener);
  listener.react = [&](IEventSink::MsgType, void*) {
    EXPECT_EQ(1, CInstanceMonitor::GetCount("CItem"));
  };
  items->Remove(0);
  EXPECT_EQ("3:0 4:0 0", listener.Take());
}

TEST_F(CXmlCollectionTest, AnObjectOutlivesTheEventThatTellsOfIt) {
  const CSmartPtr<CXmlCollection> items = NewItems();
  CListener first([](void*) { return std::string(); });
  CListener second([](void* data) { return static_cast<CXmlObjectBase*>(data)->GetElementName(); });
  items->AddEventListener(&first);
  items->AddEventListener(&second);
  first.react = [&](IEventSink::MsgType type, void*) {
    if (type == IEventSink::MsgType_AddComplete) items->Clear();
  };
  items->Add(new CItem("x"));
  EXPECT_EQ("1:x 3 4 0 2:x 0", second.Take());
  EXPECT_EQ(0, items->GetCount());
}

TEST_F(CXmlCollectionTest, ACollectionInItselfIsNoEndlessRecursion) {
  const CSmartPtr<CXmlCollection> items = NewItems();
  items->Add(CSmartPtr<CXmlObjectBase>(items));
  EXPECT_QV_THROW(
      Written(*items), CQvException,
      "The elements are nested too deeply for the stack of this thread, 0 levels were reached");
  items->Clear();
}

TEST_F(CXmlCollectionTest, WritesItsItemsInItsNamespace) {
  const CSmartPtr<CXmlCollection> items = NewItems(1, 1);
  EXPECT_QV_THROW(Written(*items), CQvValidationException,
                  "The Minimum number of [v] elements allowed in this collection is 1");
  items->Add(new CItem("v"));
  items->Add(new CItem("w"));
  EXPECT_EQ("<{urn:a}v \"\":23 > <{urn:a}w \"\":23 >", Written(*items));
}

TEST_F(CXmlCollectionTest, ReadsItemsByName) {
  const CSmartPtr<CXmlCollection> items = NewItems();
  const char* const xml = "<r xmlns:a='urn:a'><a:v>1</a:v><a:v>2<x/></a:v><v/></r>";
  EXPECT_EQ("v", ReadAll(*items, xml));
  EXPECT_EQ("<{urn:a}v \"1\":23 > <{urn:a}v \"2\":23 >", Written(*items));
  EXPECT_QV_THROW(ReadAll(*items, "<r xmlns='urn:a'><v>3</v><v>bad</v><v>4</v></r>"), CQvException,
                  "bad item");
  EXPECT_EQ(3, items->GetCount());
  // Without an object for it, the element is left to whoever reports what is unread.
  const CSmartPtr<CXmlCollection> none = NewItems(0);
  EXPECT_EQ("v", ReadAll(*none, xml));
}

TEST_F(CXmlCollectionTest, ReadsGroupsUntilOneTakesNothing) {
  const CSmartPtr<CXmlCollection> items = NewItems(2);
  EXPECT_EQ("h", ReadAll(*items, "<r><g>1</g><g>2</g><g>3</g><h/><g>4</g></r>"));
  EXPECT_EQ("<{urn:a}v \"12\":23 > <{urn:a}v \"3\":23 >", Written(*items));
  EXPECT_EQ("end", ReadAll(*items, "<r/>"));
  EXPECT_EQ(2, items->GetCount());
}

TEST_F(CXmlCollectionTest, AbstractItemsAreChosenByTheFactory) {
  const CSmartPtr<CXmlCollection> items =
      new CXmlCollection("v", "urn:a", 0, kUnbounded, XmlElementType_Element, &MakeItemFor);
  EXPECT_EQ("other", ReadAll(*items, "<r><x>1</x><y>2</y><other/><z/></r>"));
  EXPECT_EQ("<{urn:a}x \"1\":23 > <{urn:a}y \"2\":23 >", Written(*items));
}

}  // namespace
