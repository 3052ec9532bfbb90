// What a context or a document refuses to read, and that it reads the same below the limit.

#include <functional>
#include <string>

#include "tests/support/qv_gtest.h"
#include "tests/support/xml_dump.h"

#include "qvxml/binding/serialization_context.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;

namespace {

std::string Repeat(const std::string& text, size_t count) {
  std::string result;
  while (count-- > 0) result += text;
  return result;
}

CBinaryData BytesOf(const std::string& text) {
  return CBinaryData(reinterpret_cast<const unsigned char*>(text.data()), text.size());
}

CBinaryData Compressed(const std::string& text, CompressionType type) {
  CBinaryData data = BytesOf(text);
  CQvZip::CompressData(data, type);
  return data;
}

// "read", or what was thrown; the innermost of it, as JSON wraps.
std::string Outcome(const std::function<void()>& load) {
  try {
    load();
    return "read";
  } catch (const CQvException& exception) {
    return exception.GetMessage();
  }
}

std::string Load(const CBinaryData& data, const CSerializationContext& context) {
  return Outcome([&] {
    CXmlDocument document(context);
    document.LoadXmlStream(data.GetData(), data.GetLength());
  });
}

std::string Load(const std::string& text, const CSerializationContext& context) {
  return Load(BytesOf(text), context);
}

const std::string kFastInfosetWithType("\xE0\x00\x00\x01\x00\xC4\xF0\x3C\x00r\xFF", 11);

}  // namespace

TEST(ReadingLimits, RefuseADocumentTypeWhereAsked) {
  const struct {
    const char* name;
    std::string bytes, message;
  } rows[] = {
      {"internal subset", "<?xml version='1.0'?>\n\n<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>",
       "The document type declaration is refused at line 3"},
      {"external subset", "<!DOCTYPE a SYSTEM 'x'><a/>",
       "The document type declaration is refused at line 1"},
      {"name alone", "<!-- c -->\n<!DOCTYPE a><a/>",
       "The document type declaration is refused at line 2"},
      // Before anything in it is looked at.
      {"entities without end", "<!DOCTYPE a [<!ENTITY % p '%p;'> %p; ]><a/>",
       "The document type declaration is refused at line 1"},
      {"UTF-16", std::string("\xFF\xFE<\0!\0D\0O\0C\0T\0Y\0P\0E\0 \0a\0>\0<\0a\0/\0>\0", 34),
       "The document type declaration is refused at line 1"},
      {"Fast Infoset", kFastInfosetWithType, "The document type declaration is refused at byte 5"},
      {"no document type", "<a>&lt;!DOCTYPE a&gt;<![CDATA[<!DOCTYPE a>]]></a>", "read"},
      {"no Fast Infoset type", std::string("\xE0\x00\x00\x01\x00\x3C\x00r\xFF", 9), "read"},
  };
  CSerializationContext refuses;
  EXPECT_FALSE(refuses.GetRefuseDocumentType());
  refuses.SetRefuseDocumentType(true);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Load(row.bytes, refuses), row.message);
    CXmlDocument document;
    const CBinaryData data = BytesOf(row.bytes);
    const auto load = [&] { document.LoadXmlStream(data.GetData(), data.GetLength()); };
    document.SetRefuseDocumentType(true);
    EXPECT_EQ(Outcome(load), row.message);
    document.SetRefuseDocumentType(false);
    if (std::string(row.name) == "entities without end") continue;
    EXPECT_EQ(Outcome(load), "read");
  }
  // The entry points of objects take the context's word, copies of it too.
  const CSerializationContext copy(refuses);
  CElement element("e");
  EXPECT_QV_THROW(element.FromXml("<!DOCTYPE a><a/>", copy), CQvException,
                  "The document type declaration is refused at line 1");
}

TEST(ReadingLimits, BoundDecompressionAtEveryEntryPoint) {
  const std::string xml = "<a>" + std::string(100000, ' ') + "</a>";
  const std::string json = "{\"a\":\"" + std::string(100000, ' ') + "\"}";
  const std::string fastInfoset =
      std::string("\xE0\x00\x00\x01\x00\x3C\x00r\x83\x00\x01\x85\x9F", 13) +
      std::string(100002, ' ') + "\xFF";
  const std::string refused = "Failed to decompress data. The limit of 50000 bytes was exceeded.";
  CSerializationContext context;
  EXPECT_EQ(context.GetMaxDecompressedSize(), 0u);
  for (const unsigned long limit : {50000UL, 200000UL}) {
    context.SetMaxDecompressedSize(limit);
    const std::string expected = limit == 50000 ? refused : "read";
    for (const CompressionType type : {CompressionType_GZip, CompressionType_ZLib}) {
      SCOPED_TRACE(testing::Message() << limit << " " << type);
      EXPECT_EQ(Load(Compressed(xml, type), context), expected);
      EXPECT_EQ(Load(Compressed(fastInfoset, type), context), expected);
      CXmlDocument document(context);
      const CBinaryData data = Compressed(json, type);
      EXPECT_EQ(Outcome([&] { document.LoadJsonStream(data.GetData(), data.GetLength()); }),
                expected);
      CElement element("e");
      EXPECT_EQ(Outcome([&] { element.FromXmlStream(Compressed(xml, type), context); }), expected);
      EXPECT_EQ(Outcome([&] { element.FromJsonStream(data, context); }), expected);
      const std::string file = testing::TempDir() + "qvxml_limits";
      std::FILE* stream = std::fopen(file.c_str(), "wb");
      std::fwrite(data.GetData(), 1, data.GetLength(), stream);
      std::fclose(stream);
      EXPECT_EQ(Outcome([&] { element.FromJsonFile(file.c_str(), context); }), expected);
      std::remove(file.c_str());
    }
  }
  // What is not compressed has no size to be limited.
  context.SetMaxDecompressedSize(1);
  EXPECT_EQ(Load(xml, context), "read");
}

TEST(ReadingLimits, BoundAmplification) {
  // 1000 times 20,000 bytes from some 25,000 of input.
  const std::string entity = "<!DOCTYPE a [<!ENTITY e '" + std::string(20000, 'x') + "'>]><a>" +
                             Repeat("&e;", 1000) + "</a>";
  const std::string defaults = "<!DOCTYPE a [<!ATTLIST b n CDATA '" + std::string(20000, 'x') +
                               "'>]><a>" + Repeat("<b/>", 1000) + "</a>";
  // 16 MB of "true" and "false" from 340,000 bytes of bits.
  const std::string booleans =
      std::string("\xE0\x00\x00\x01\x00\x3C\x00r\x8C\x17\x00\x05\x1B\xC0", 14) +
      std::string(335043, '\0') + "\xFF";
  const std::string xmlLimit =
      "limit on input amplification factor (from DTD and entities) breached at line 1";
  const struct {
    unsigned ratio;
    bool isEntityRefused, isDefaultRefused;
  } rows[] = {{100, true, true}, {1, true, true}, {2000, false, false}, {0, false, false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.ratio);
    CSerializationContext context;
    EXPECT_EQ(context.GetMaxAmplification(), 100u);
    context.SetMaxAmplification(row.ratio);
    EXPECT_EQ(Load(entity, context), row.isEntityRefused ? xmlLimit : "read");
    EXPECT_EQ(Load(defaults, context), row.isDefaultRefused ? xmlLimit : "read");
    context.GetFIContext().SetMaxAmplification(row.ratio);
    const std::string outcome = Load(booleans, context);
    EXPECT_EQ(outcome.substr(0, outcome.find(" at byte")),
              row.ratio == 1
                  ? "The limit on the amplification of the Fast Infoset document is exceeded"
                  : "read");
  }
}
