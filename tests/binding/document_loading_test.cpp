// Where documents come from, and what the element-complete callback may do.

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/qv_gtest.h"
#include "tests/support/xml_dump.h"
#include <sys/stat.h>
#include <unistd.h>

#include "qvxml/binding/serialization_context.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;
using qv_test::Dump;

namespace {

// A file that is gone at the end of the scope.
class CTestFile {
 public:
  explicit CTestFile(const std::string& content)
      : m_path(testing::TempDir() + "qvxml_document_" + std::to_string(getpid()) + "_" +
               std::to_string(s_count++)) {
    std::FILE* file = std::fopen(m_path.c_str(), "wb");
    std::fwrite(content.data(), 1, content.size(), file);
    std::fclose(file);
  }
  ~CTestFile() { std::remove(m_path.c_str()); }
  CTestFile(const CTestFile&) = delete;
  CTestFile& operator=(const CTestFile&) = delete;

  const char* Path() const { return m_path.c_str(); }

 private:
  static inline int s_count = 0;
  std::string m_path;
};

// What the callbacks below saw, as "path text" of each element.
std::vector<std::string>& Seen() {
  static std::vector<std::string> seen;
  return seen;
}

bool Record(CXmlElement* element) {
  Seen().push_back(element->GetXPath() + " " + element->GetText());
  return false;
}

bool RecordAndRemove(CXmlElement* element) {
  Record(element);
  return true;
}

bool RemoveItems(CXmlElement* element) { return element->GetLocalName() == "i"; }

bool ThrowAtItem(CXmlElement* element) {
  if (element->GetLocalName() == "i") throw std::runtime_error("item");
  return false;
}

// The document whose callbacks change the children of its root.
CXmlDocument* Changed = nullptr;

bool DeleteItemAndRemove(CXmlElement* element) {
  if (!RemoveItems(element)) return false;
  delete Changed->GetDocumentElement()->RemoveLastChildElement();
  return true;
}

bool AddAfterItemAndRemove(CXmlElement* element) {
  if (!RemoveItems(element)) return false;
  Changed->GetDocumentElement()->CreateNewChildElement()->SetElementName("new");
  return true;
}

long MaxLiveElements = 0;

bool RemoveAndMeasure(CXmlElement*) {
  MaxLiveElements = std::max(MaxLiveElements, CInstanceMonitor::GetCount("CXmlElement"));
  return true;
}

class CDocumentLoadingTest : public testing::Test {
 protected:
  CDocumentLoadingTest() { Seen().clear(); }
  ~CDocumentLoadingTest() override {
    for (const char* name : {"CXmlDocument", "CXmlElement", "CXmlAttribute", "CExpatReader"}) {
      EXPECT_EQ(CInstanceMonitor::GetCount(name), 0) << name;
    }
  }
};

}  // namespace

TEST_F(CDocumentLoadingTest, RefusesEmptyInput) {
  CXmlDocument document;
  document.LoadXml("<a/>");
  EXPECT_QV_THROW(document.LoadXml(""), CQvException, "XML String is empty!");
  EXPECT_EQ(document.GetDocumentElement(), nullptr);
  EXPECT_QV_THROW(document.LoadXml(static_cast<const char*>(nullptr)), CQvException,
                  "XML String is empty!");
  EXPECT_QV_THROW(document.LoadXml(L""), CQvException, "XML String is empty!");
  EXPECT_QV_THROW(document.LoadXml(static_cast<const wchar_t*>(nullptr)), CQvException,
                  "XML String is empty!");
  const unsigned char byte = '<';
  EXPECT_QV_THROW(document.LoadXmlStream(&byte, 0), CQvException, "XML Stream is empty!");
  EXPECT_QV_THROW(document.LoadXmlStream(nullptr, 1), CQvException, "XML Stream is empty!");
}

TEST_F(CDocumentLoadingTest, LoadsWideTextWhateverItDeclares) {
  CXmlDocument document;
  for (const wchar_t* declaration : {L"", L"<?xml version='1.0' encoding='UTF-16'?>",
                                     L"<?xml version='1.0' encoding='ISO-8859-1'?>"}) {
    document.LoadXml((std::wstring(declaration) + L"<\u00E9>\u20AC\U0001D11E</\u00E9>").c_str());
    EXPECT_EQ(Dump(document.GetDocumentElement()), "\xC3\xA9 '\xE2\x82\xAC\xF0\x9D\x84\x9E'");
  }
  // The next input speaks for itself again.
  document.LoadXml("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>");
  EXPECT_EQ(Dump(document.GetDocumentElement()), "a '\xC3\xA9'");
}

TEST_F(CDocumentLoadingTest, LoadsItsOwnText) {
  CXmlDocument document;
  document.LoadXml("<a><![CDATA[<inner>a text too long for the element itself</inner>]]></a>");
  document.LoadXml(document.GetDocumentElement()->GetText().c_str());
  EXPECT_EQ(Dump(document.GetDocumentElement()), "inner 'a text too long for the element itself'");
  CXmlDocument prefixes;
  prefixes.AddNamespacePrefix("p", "<b>a text too long for the string itself</b>");
  prefixes.LoadXml(prefixes.LookupNamespaceFromAlias("p").c_str());
  EXPECT_EQ(Dump(prefixes.GetDocumentElement()), "b 'a text too long for the string itself'");
}

TEST_F(CDocumentLoadingTest, LoadsPlainAndCompressedFiles) {
  std::string xml = "<a>";
  for (int i = 0; i < 1000; ++i) xml += "<b/>\r\n";
  xml += "</a>";
  for (const CompressionType type :
       {CompressionType_None, CompressionType_GZip, CompressionType_ZLib}) {
    CBinaryData data(xml.c_str());
    CQvZip::CompressData(data, type);
    const CTestFile file(
        std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength()));
    CXmlDocument fromFile;
    fromFile.Load(file.Path());
    CXmlDocument fromStream;
    fromStream.LoadXmlStream(data.GetData(), data.GetLength());
    for (const CXmlDocument* document : {&fromFile, &fromStream}) {
      EXPECT_EQ(document->GetDocumentElement()->GetText(), std::string(1000, '\n'));
    }
    EXPECT_EQ(CInstanceMonitor::GetCount("CXmlElement"), 2002);
  }
}

TEST_F(CDocumentLoadingTest, ReportsDamagedCompression) {
  CBinaryData data(("<a>" + std::string(100000, ' ') + "</a>").c_str());
  CQvZip::CompressData(data, CompressionType_GZip);
  CXmlDocument document;
  EXPECT_QV_THROW(document.LoadXmlStream(data.GetData(), data.GetLength() - 9), CQvException,
                  "Failed to decompress data. [Error Code: -5]");
}

TEST_F(CDocumentLoadingTest, AFileThatCannotBeReadLeavesNoDocument) {
  const CTestFile empty("");
  CXmlDocument document;
  document.LoadXml("<before/>");
  EXPECT_QV_THROW(document.Load(empty.Path()), CQvException, "no element found at line 1");
  EXPECT_EQ(document.GetDocumentElement(), nullptr);
  document.LoadXml("<before/>");
  EXPECT_QV_THROW(document.Load(nullptr), CQvException, "Failed to open the file [].");
  EXPECT_EQ(document.GetDocumentElement(), nullptr);
}

// The kernel reports a size for this file that reading does not deliver.
TEST_F(CDocumentLoadingTest, TakesAShortReadForAFailure) {
  const std::string path = "/sys/kernel/mm/transparent_hugepage/enabled";
  struct stat status;
  if (stat(path.c_str(), &status) != 0 || status.st_size != 4096) GTEST_SKIP() << "no such file";
  CXmlDocument document;
  EXPECT_QV_THROW(document.Load(path.c_str()), CQvException,
                  "Failed to read the contents of the file [" + path + "] Error [0]");
}

// The one that a callback below cuts off.
const char* CutFile = nullptr;

bool CutFileAndRemove(CXmlElement*) {
  EXPECT_EQ(truncate(CutFile, 4096), 0);
  return true;
}

// Such files are never in memory as a whole.
TEST_F(CDocumentLoadingTest, ReadsLargeFilesAsTheyAreParsed) {
  constexpr size_t kLines = 3500000;
  std::string text = "<a n='" + std::string(3000000, 'v') + "'>";
  for (size_t i = 0; i < kLines; ++i) text += "01234567\xC3\xA9\r\n";
  const CTestFile file(text + "<i/></a>");
  CXmlDocument document;
  document.LoadXml((text + "<i/></a>").c_str());
  const std::string whole = Dump(document.GetDocumentElement());
  document.Load(file.Path());
  EXPECT_TRUE(Dump(document.GetDocumentElement()) == whole);

  const CTestFile damaged(text + "</b>");
  EXPECT_QV_THROW(document.Load(damaged.Path()), CQvException, "mismatched tag at line 3500001");
  EXPECT_EQ(document.GetDocumentElement()->GetText().size(), kLines * 11);

  CXmlDocument stopped(ThrowAtItem);
  EXPECT_THROW(stopped.Load(file.Path()), std::runtime_error);
  EXPECT_EQ(stopped.GetDocumentElement()->GetText().size(), kLines * 11);

  const CTestFile cut("<a><i/>" + std::string(size_t{40} << 20, ' ') + "</a>");
  CutFile = cut.Path();
  CXmlDocument partial(CutFileAndRemove);
  EXPECT_QV_THROW(
      partial.Load(cut.Path()), CQvException,
      "Failed to read the contents of the file [" + std::string(cut.Path()) + "] Error [0]");
  EXPECT_FALSE(partial.GetDocumentElement()->GetText().empty());
}

TEST_F(CDocumentLoadingTest, CallsBackAsElementsEnd) {
  CXmlDocument document(Record);
  document.LoadXml("<a>1<b>2<c>3</c>4</b>5<b/></a>");
  EXPECT_EQ(Seen(), (std::vector<std::string>{"/a/b/c 3", "/a/b 24", "/a/b[2] ", "/a 15"}));
  EXPECT_EQ(Dump(document.GetDocumentElement()), "a '15' [b '24' [c '3'], b]");
}

TEST_F(CDocumentLoadingTest, RemovesWhatTheCallbackHasConsumed) {
  CXmlDocument document(RecordAndRemove);
  document.LoadXml("<a>1<b>2<c>3</c>4</b>5<b/>6</a>");
  // Nothing remains to count siblings by, and the document element stays.
  EXPECT_EQ(Seen(), (std::vector<std::string>{"/a/b/c 3", "/a/b 24", "/a/b ", "/a 156"}));
  EXPECT_EQ(Dump(document.GetDocumentElement()), "a '156'");
  CSerializationContext keepsCDATA;
  keepsCDATA.SetStripCDATA(false);
  CXmlDocument items(RemoveItems, keepsCDATA);
  items.LoadXml("<a><k/><i/><i/><k><i/><![CDATA[x]]></k><i/></a>");
  EXPECT_EQ(Dump(items.GetDocumentElement()), "a [k, k '<![CDATA[x]]>']");
}

TEST_F(CDocumentLoadingTest, RemovesNoElementButTheCompletedOne) {
  const struct {
    CXmlDocument::ElementCompleteCallback callback;
    const char* tree;
  } rows[] = {{DeleteItemAndRemove, "a [b, c]"}, {AddAfterItemAndRemove, "a [b, new, c, new]"}};
  for (const auto& row : rows) {
    CXmlDocument document(row.callback);
    Changed = &document;
    document.LoadXml("<a><b/><i/><c/><i/></a>");
    EXPECT_EQ(Dump(document.GetDocumentElement()), row.tree);
  }
}

TEST_F(CDocumentLoadingTest, StreamsWithFewElementsAlive) {
  std::string xml = "<a>";
  for (int i = 0; i < 20000; ++i) xml += "<b n='1'><c>text</c><c/></b>";
  xml += "</a>";
  CXmlDocument document(RemoveAndMeasure);
  document.LoadXml(xml.c_str());
  EXPECT_EQ(MaxLiveElements, 3);
}

TEST_F(CDocumentLoadingTest, PassesOnWhatTheCallbackThrows) {
  CXmlDocument document(ThrowAtItem);
  for (const char* xml : {"<a>1<b>2</b><i x='1'>3</i>4</a>", "<a>1<b>2</b><i x='1'>3</i>"}) {
    try {
      document.LoadXml(xml);
      ADD_FAILURE() << "threw nothing";
    } catch (const std::runtime_error& error) {
      EXPECT_STREQ(error.what(), "item");
    }
    EXPECT_EQ(Dump(document.GetDocumentElement()), "a '1' [b '2', i(x='1') '3']");
  }
  document.LoadXml("<fine/>");
  EXPECT_EQ(Dump(document.GetDocumentElement()), "fine");
}
