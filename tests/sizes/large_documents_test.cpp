// Documents and values beyond 2 and 4 GB, where an int and an unsigned end, and 10 GB in little
// memory. The long form (QVXML_SIZES=full) needs up to 16 GB of memory and 10 GB of disk, and skips
// what there is no room for; the short form does the same with some megabytes.

#include <algorithm>
#include <string>
#include <vector>

#include "tests/samples/payment.h"
#include "tests/samples/sample_documents.h"
#include "tests/sizes/long_form.h"
#include "tests/support/qv_gtest.h"
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "qvxml/qvxml.h"

using namespace samples;
using size_test::HasFreeMemory;
using size_test::IsLongForm;

namespace {

constexpr size_t kMillion = 1000 * 1000;
constexpr size_t kBeyondInt = 2200 * kMillion;
constexpr size_t kBeyondUnsigned = 4400 * kMillion;

size_t Size(size_t longForm) { return IsLongForm() ? longForm : 40 * kMillion; }

#define SKIP_WITHOUT_MEMORY(bytes) \
  if (IsLongForm() && !HasFreeMemory(bytes)) GTEST_SKIP() << (bytes) / kMillion << " MB of memory"

// A file that has no name any more, so that nothing of it is left however the test ends.
class NamelessFile {
 public:
  NamelessFile() {
    const char* const folder = std::getenv("QVXML_SIZES_FOLDER");
    std::string name =
        (folder != nullptr ? folder + std::string("/") : testing::TempDir()) + "qvxml-large-XXXXXX";
    m_descriptor = mkstemp(name.data());
    if (m_descriptor == -1) ADD_FAILURE() << "no file " << name;
    unlink(name.c_str());
  }
  NamelessFile(const NamelessFile&) = delete;
  NamelessFile& operator=(const NamelessFile&) = delete;
  ~NamelessFile() { close(m_descriptor); }

  bool HasRoom(size_t bytes) const {
    struct statvfs disk;
    return fstatvfs(m_descriptor, &disk) == 0 && disk.f_bavail * disk.f_frsize > 2 * bytes;
  }
  void Append(const std::string& text) {
    for (size_t done = 0; done < text.size();) {
      const ssize_t count = write(m_descriptor, text.data() + done, text.size() - done);
      ASSERT_GT(count, 0);
      done += static_cast<size_t>(count);
    }
  }
  /// Appends the text until that many bytes have come together; returns how many times.
  size_t AppendUpTo(size_t bytes, const std::string& text) {
    std::string block;
    while (block.size() < kMillion) block += text;
    size_t written = 0;
    for (; written < bytes; written += block.size()) Append(block);
    return written / text.size();
  }
  std::string Path() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

 private:
  int m_descriptor = -1;
};

#define SKIP_WITHOUT_DISK(file, bytes) \
  if (!(file).HasRoom(bytes)) GTEST_SKIP() << (bytes) / kMillion << " MB of disk"

size_t Completed = 0;

bool CountAndRemove(CXmlElement* element) {
  Completed += element->GetText().size() == 100 && element->GetAttribute("n", "") == "value";
  return true;
}

TEST(LargeDocuments, AnyLengthPassesTheCallbackInLittleMemory) {
  const size_t size = Size(10000 * kMillion);
  NamelessFile file;
  SKIP_WITHOUT_DISK(file, size);
  file.Append("<items>");
  const size_t items = file.AppendUpTo(size, "<i n='value'>" + std::string(100, 't') + "</i>");
  file.Append("</items>");
  Completed = 0;
  const size_t before = size_test::ReadProcBytes("/proc/self/status", "VmHWM");
  CXmlDocument document(CountAndRemove);
  document.Load(file.Path().c_str());
  EXPECT_EQ(Completed, items);
  const size_t grown = size_test::ReadProcBytes("/proc/self/status", "VmHWM") - before;
  RecordProperty("peak_growth", std::to_string(grown));
  if (IsLongForm()) {
    EXPECT_LT(grown, 32 * kMillion);
  }
}

TEST(LargeDocuments, LinesAreCountedBeyondUnsigned) {
  const size_t lines = Size(kBeyondUnsigned);
  NamelessFile file;
  SKIP_WITHOUT_DISK(file, lines);
  file.Append("<a>");
  const std::string block = "<!--" + std::string(992, '\n') + "-->";
  const size_t counted = 992 * file.AppendUpTo(lines / 992 * block.size(), block);
  file.Append("</b>");
  CXmlDocument document;
  EXPECT_QV_THROW(document.Load(file.Path().c_str()), CQvException,
                  "mismatched tag at line " + std::to_string(counted + 1));
}

TEST(LargeDocuments, TextOfAnyLengthIsRead) {
  const size_t size = Size(kBeyondUnsigned);
  SKIP_WITHOUT_MEMORY(3 * size);
  NamelessFile file;
  SKIP_WITHOUT_DISK(file, size);
  file.Append("<a>");
  const size_t count = file.AppendUpTo(size, "0123456789");
  file.Append("end</a>");
  CXmlDocument document;
  document.Load(file.Path().c_str());
  const std::string& text = document.GetDocumentElement()->GetText();
  EXPECT_EQ(text.size(), 10 * count + 3);
  EXPECT_EQ(text.substr(text.size() - 5), "89end");
}

TEST(LargeDocuments, TokensBeyondTheParsersBufferAreRefused) {
  if (!IsLongForm()) GTEST_SKIP() << "needs a gigabyte";
  SKIP_WITHOUT_MEMORY(5000 * kMillion);
  const struct {
    const char* name;
    size_t size;
    const char* message;
  } rows[] = {
      {"just short enough", 960 * kMillion, ""},
      {"beyond int", kBeyondInt,
       "A tag, a comment or the like is longer than 1006632960 bytes at line 2"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    NamelessFile file;
    SKIP_WITHOUT_DISK(file, row.size);
    file.Append("<a>\n<b c='");
    const size_t count = file.AppendUpTo(row.size, "0123456789");
    file.Append("'/></a>");
    CXmlDocument document;
    if (*row.message != '\0') {
      EXPECT_QV_THROW(document.Load(file.Path().c_str()), CQvException, row.message);
      EXPECT_EQ(document.GetDocumentElement()->GetText(), "\n");
    } else {
      document.Load(file.Path().c_str());
      const CXmlElement* const element = document.GetDocumentElement()->GetFirstElement();
      EXPECT_EQ(element->GetAttribute("c", "").size(), 10 * count);
    }
  }
}

class NoDecompressedLimit {
 public:
  NoDecompressedLimit() { CQvZip::SetMaxDecompressedSize(0); }
  ~NoDecompressedLimit() { CQvZip::SetMaxDecompressedSize(m_limit); }
  NoDecompressedLimit(const NoDecompressedLimit&) = delete;
  NoDecompressedLimit& operator=(const NoDecompressedLimit&) = delete;

 private:
  const unsigned long m_limit = CQvZip::GetMaxDecompressedSize();
};

TEST(LargeDocuments, CompressionCountsBeyondUnsigned) {
  const size_t size = Size(kBeyondUnsigned);
  SKIP_WITHOUT_MEMORY(4 * size);
  const NoDecompressedLimit noLimit;
  for (const CompressionType type : {CompressionType_GZip, CompressionType_ZLib}) {
    SCOPED_TRACE(type);
    auto* const bytes = new unsigned char[size];
    for (size_t i = 0; i < size; ++i) bytes[i] = static_cast<unsigned char>(i >> 20);
    CBinaryData data(bytes, size, true);
    CQvZip::CompressData(data, type);
    const CBinaryData plain = CQvZip::Decompress(data);
    ASSERT_EQ(plain.GetLength(), size);
    size_t wrong = 0;
    for (size_t i = 0; i < size; ++i) {
      wrong += plain.GetData()[i] != static_cast<unsigned char>(i >> 20);
    }
    EXPECT_EQ(wrong, 0u);
  }
}

TEST(LargeDocuments, FastInfosetDocumentsCountBeyondUnsigned) {
  const size_t size = Size(kBeyondUnsigned);
  SKIP_WITHOUT_MEMORY(4 * size);
  constexpr size_t kTexts = 64;
  CBinaryData octets;
  {
    CBinaryStream stream;
    CFastInfosetWriter writer(CSerializationContext().GetFIContext(), stream);
    writer.Open();
    writer.WriteStartDocument();
    writer.WriteStartElement("items", "");
    const std::string text(size / kTexts, 't');
    for (size_t i = 0; i < kTexts; ++i) {
      writer.WriteStartElement("i", "");
      writer.WriteString(std::to_string(i) + text, ItemType_string, false);
      writer.WriteEndElement();
    }
    writer.WriteEndElement();
    writer.WriteEndDocument();
    writer.Close();
    octets = stream.GetBinaryStream();
  }
  EXPECT_GT(octets.GetLength(), size);
  static size_t seen;
  seen = 0;
  CXmlDocument document([](CXmlElement* element) {
    seen += element->GetText().compare(0, 3, std::to_string(seen) + "tt", 0, 3) == 0;
    return true;
  });
  document.LoadXmlStream(octets.GetData(), octets.GetLength());
  EXPECT_EQ(seen, kTexts);
  // Cut off, at an offset that only 64 bits hold.
  EXPECT_QV_THROW(
      document.LoadXmlStream(octets.GetData(), octets.GetLength() - 1), CQvException,
      "The Fast Infoset document ends too early at byte " + std::to_string(octets.GetLength() - 1));
}

// One value through every format: no conversion on the way may take its length for an int.
TEST(LargeDocuments, ValuesBeyondIntSurviveEveryFormat) {
  const size_t size = Size(kBeyondInt);
  SKIP_WITHOUT_MEMORY(7 * size);
  const NoDecompressedLimit noLimit;
  CSerializationContext ctx;
  ctx.GetJsonContext().SetWellFormed(true);
  const auto make = [&] {
    const CSmartPtr<CPayment> payment(new CPayment);
    payment->SetCard(std::string(size, 'c') + "<end>");
    return payment;
  };
  const auto check = [&](const CBinaryData& bytes, const char* format) {
    SCOPED_TRACE(format);
    const CSmartPtr<CPayment> copy(new CPayment);
    if (*format == 'J') {
      copy->FromJsonStream(bytes, ctx);
    } else {
      copy->FromXmlStream(bytes, ctx);
    }
    const std::string& card = *copy->GetCard();
    EXPECT_EQ(card.size(), size + 5);
    EXPECT_EQ(card.substr(size - 2), "cc<end>");
  };
  check(make()->ToXmlStream(true, true, Encoding_UTF8, EOL_LF, ctx), "XML");
  check(make()->ToXmlStream(true, true, Encoding_UTF8, EOL_LF, ctx, CompressionType_ZLib), "zlib");
  check(make()->ToFastInfosetStream(FInfoDecl_None, ctx), "Fast Infoset");
  check(make()->ToJsonStream(true, Encoding_UTF8, EOL_LF, ctx), "JSON");
}

// More items than an int counts; their text is what there was memory for.
TEST(LargeDocuments, CollectionsCountBeyondInt) {
  const size_t count = Size(kBeyondInt);
  SKIP_WITHOUT_MEMORY(3 * count);
  Cui1Col items("i", "", 0, CXmlCollectionBase::kUnbounded, CPrimitiveRestrictions(),
                CWhitespaceUtils::ws_collapse);
  for (size_t i = 0; i < count; ++i) items.Add(7);
  EXPECT_EQ(items.GetCount(), static_cast<long>(count));
  EXPECT_QV_THROW(items.Item(-1), CQvInvalidParamException,
                  "Index -1 is out of range, use 0 - " + std::to_string(count));
}

}  // namespace
