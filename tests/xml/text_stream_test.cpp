#include "qvxml/xml/text_stream.h"

#include <string>

#include "tests/support/qv_gtest.h"
#include "tests/support/slot_of.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace QvXmlLib16;
using qv_test::ReadFile;
using qv_test::TemporaryFolder;

const std::string kWide("a\0\0\0\xE9\0\0\0", 8);
constexpr char kText[] = "a\xC3\xA9";

std::string BytesOf(const CBinaryData& data) {
  return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

TEST(CTextStream, KeepsItsSlotOrder) {
  // Slots 0 and 1 are the two destructors.
  EXPECT_EQ(2u, qv_test::SlotOf(&CTextStream::Open));
  EXPECT_EQ(3u, qv_test::SlotOf(&CTextStream::Close));
  EXPECT_EQ(4u, qv_test::SlotOf(&CTextStream::Flush));
}

TEST(CTextStream, EncodesItsText) {
  const std::pair<XmlEncoding, std::string> rows[] = {
      {Encoding_UTF8, kText}, {Encoding_UTF16, kWide}, {Encoding_UTF16_Unlabelled, kWide}};
  for (const auto& row : rows) {
    CTextStream stream(row.first);
    stream.Append(kText);
    stream.Flush();
    stream.Close();
    EXPECT_EQ(row.second, BytesOf(stream.GetEncodedStream()));
  }
  EXPECT_EQ(Encoding_UTF8, CTextStream().GetEncoding());
  for (int number : {0, 4}) {
    CTextStream stream(static_cast<XmlEncoding>(number));
    EXPECT_QV_THROW(stream.GetEncodedStream(), CQvException,
                    "Unknown Encoding, select UTF-8 (contact our support team)");
  }
}

TEST(CFileTextStream, WritesEncodedTextInPieces) {
  const TemporaryFolder folder;
  const std::string path = folder.PathOf("x");
  const std::string marked = "\xFF\xFE" + kWide + kWide;
  const std::pair<XmlEncoding, std::string> rows[] = {{Encoding_UTF8, std::string(kText) + kText},
                                                      {Encoding_UTF16, marked},
                                                      {Encoding_UTF16_Unlabelled, marked}};
  for (const auto& row : rows) {
    CFileTextStream stream(path.c_str(), row.first);
    stream.Append("dropped by Open");
    stream.Open();
    stream.Append(kText);
    stream.Flush();
    EXPECT_EQ(0u, stream.GetLength());
    stream.Flush();
    stream.Append(kText);
    stream.Close();
    stream.Close();
    EXPECT_EQ(row.second, ReadFile(path));
  }
}

TEST(CFileTextStream, KeepsWhatIsLeftWhenItIsNotClosed) {
  const TemporaryFolder folder;
  const std::string path = folder.PathOf("x");
  {
    CFileTextStream stream(path.c_str());
    stream.Open();
    stream.Append("rest");
  }
  EXPECT_EQ("rest", ReadFile(path));
}

TEST(CFileTextStream, ReportsEveryFailure) {
  const TemporaryFolder folder;
  const std::string missing = folder.PathOf("missing/file");
  CFileTextStream nowhere(missing.c_str());
  EXPECT_QV_THROW(nowhere.Open(), CQvException,
                  "Failed to write data to the file [" + missing + "].");
  EXPECT_QV_THROW(CFileTextStream(nullptr).Open(), CQvException,
                  "Failed to write data to the file [].");
  nowhere.Append("x");
  EXPECT_QV_THROW(nowhere.Flush(), CQvException, "Failed to write data to the file");

  const std::string path = folder.PathOf("unspecified");
  CFileTextStream unspecified(path.c_str(), Encoding_Unspecified);
  unspecified.Open();
  unspecified.Append("x");
  EXPECT_QV_THROW(unspecified.Close(), CQvException,
                  "Unknown Encoding, select UTF-8 (contact our support team)");
}

}  // namespace
