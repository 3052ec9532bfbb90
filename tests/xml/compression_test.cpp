#include "qvxml/xml/compression.h"

#include <random>
#include <string>

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>
#include <zlib.h>

using namespace QvXmlLib16;

namespace {

CBinaryData BytesOf(const std::string& text) {
  CBinaryData data;
  data.Append(text);
  return data;
}

std::string TextOf(const CBinaryData& data) {
  return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

// Compressible, and longer than several chunks and windows.
std::string LongText() {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "<item id=\"" + std::to_string(i * 7919 % 10007) + "\"/>";
  return text;
}

std::string RandomText(size_t length) {
  std::mt19937 random(5);
  std::string text(length, '\0');
  for (char& byte : text) byte = static_cast<char>(random());
  return text;
}

// What zlib's own one-call interface makes of the text.
std::string ZLibStream(const std::string& text, int level = 1) {
  uLongf length = compressBound(text.size());
  std::string stream(length, '\0');
  EXPECT_EQ(Z_OK, compress2(reinterpret_cast<Bytef*>(stream.data()), &length,
                            reinterpret_cast<const Bytef*>(text.data()), text.size(), level));
  stream.resize(length);
  return stream;
}

std::string LittleEndian(unsigned long value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift);
  return bytes;
}

// The member that RFC 1952 builds around the same deflate data: 04 tells of the fastest method, 03
// of Unix.
std::string GZipMember(const std::string& text) {
  const std::string stream = ZLibStream(text);
  return std::string("\x1F\x8B\x08\0\0\0\0\0\x04\x03", 10) + stream.substr(2, stream.size() - 6) +
         LittleEndian(crc32(0, reinterpret_cast<const Bytef*>(text.data()),
                            static_cast<uInt>(text.size()))) +
         LittleEndian(text.size());
}

std::string Compress(const std::string& text, CompressionType type) {
  CBinaryData data = BytesOf(text);
  CQvZip::CompressData(data, type);
  return TextOf(data);
}

std::string Decompress(const std::string& bytes) {
  return TextOf(CQvZip::Decompress(BytesOf(bytes)));
}

TEST(CQvZip, CompressesWithLevelOneInEitherWrapper) {
  for (const std::string& text : {LongText(), std::string(64, 'a'), std::string(5000000, ' ')}) {
    EXPECT_EQ(Compress(text, CompressionType_None), text);
    EXPECT_TRUE(Compress(text, CompressionType_GZip) == GZipMember(text));
    EXPECT_TRUE(Compress(text, CompressionType_ZLib) == ZLibStream(text));
    EXPECT_TRUE(Decompress(GZipMember(text)) == text);
    EXPECT_TRUE(Decompress(ZLibStream(text, 9)) == text);
  }
}

TEST(CQvZip, RefusesWhatDoesNotShrinkAndKeepsIt) {
  const std::pair<std::string, int> rows[] = {
      {"", -5}, {"a", -5}, {"hello world", 0}, {RandomText(1000), 0}, {RandomText(300000), 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.first.size());
    for (const CompressionType type : {CompressionType_GZip, CompressionType_ZLib}) {
      CBinaryData data = BytesOf(row.first);
      EXPECT_QV_THROW(CQvZip::CompressData(data, type), CQvException,
                      "Failed to compress data. [Error Code: " + std::to_string(row.second) + "]");
      EXPECT_TRUE(TextOf(data) == row.first);
    }
  }
}

TEST(CQvZip, RefusesUnknownTypes) {
  CBinaryData data("aaaa");
  EXPECT_QV_THROW(CQvZip::CompressData(data, static_cast<CompressionType>(3)), CQvException,
                  "Unknown Compression Type [3]");
  EXPECT_EQ(TextOf(data), "aaaa");
}

TEST(CQvZip, ReadsConcatenatedGZipMembers) {
  const std::string text = LongText();
  EXPECT_TRUE(Decompress(GZipMember(text) + GZipMember("") + GZipMember("end")) == text + "end");
  std::string many, expected;
  for (int i = 0; i < 3000; ++i) many += GZipMember("ab"), expected += "ab";
  EXPECT_TRUE(Decompress(many) == expected);
  EXPECT_EQ(Decompress(GZipMember("")), "");
  EXPECT_EQ(Decompress(ZLibStream("")), "");
}

TEST(CQvZip, RefusesWhatFollowsTheEnd) {
  const std::string gzip = GZipMember("text");
  const std::string zlib = ZLibStream("text");
  const std::string zeros(512, '\0');
  for (const std::string& bytes : {gzip + "x", gzip + zeros, gzip + "\x1F", gzip + zlib, zlib + "x",
                                   zlib + zlib, zlib + gzip}) {
    EXPECT_QV_THROW(Decompress(bytes), CQvException, "Failed to decompress data. [Error Code: -3]");
  }
  EXPECT_QV_THROW(Decompress(gzip + gzip.substr(0, 9)), CQvException,
                  "Failed to decompress data. [Error Code: -5]");
}

TEST(CQvZip, RefusesTruncatedData) {
  for (const std::string& bytes : {GZipMember(LongText()), ZLibStream("some text, some text")}) {
    const size_t step = bytes.size() > 1000 ? 997 : 1;
    for (size_t length = 0; length < bytes.size(); length += step) {
      SCOPED_TRACE(length);
      EXPECT_QV_THROW(Decompress(bytes.substr(0, length)), CQvException,
                      "Failed to decompress data. [Error Code: -5]");
    }
  }
}

TEST(CQvZip, RefusesDamagedData) {
  const std::string text = "some text, some text, some more text";
  const std::string zlib = ZLibStream(text);
  for (size_t i = 0; i < zlib.size(); ++i) {
    for (int bit = 0; bit < 8; ++bit) {
      std::string damaged = zlib;
      damaged[i] = static_cast<char>(damaged[i] ^ (1 << bit));
      EXPECT_THROW(Decompress(damaged), CQvException) << i << " " << bit;
    }
  }
  EXPECT_QV_THROW(Decompress("<plain/>"), CQvException,
                  "Failed to decompress data. [Error Code: -3]");
  // A preset dictionary that nobody has.
  EXPECT_QV_THROW(Decompress(std::string("\x78\xBB\x01\x02\x03\x04", 6)), CQvException,
                  "Failed to decompress data. [Error Code: 2]");
}

TEST(CQvZip, StopsAtTheMaximumSize) {
  EXPECT_EQ(CQvZip::GetMaxDecompressedSize(), 0u);
  const std::string text(3 * 65536, 'a');
  const std::string bytes = GZipMember(text);
  const auto tooLarge = [](unsigned long limit) {
    return "Failed to decompress data. The limit of " + std::to_string(limit) +
           " bytes was exceeded.";
  };
  CQvZip::SetMaxDecompressedSize(text.size());
  EXPECT_TRUE(Decompress(bytes) == text);
  EXPECT_QV_THROW(Decompress(bytes + GZipMember("b")), CQvException, tooLarge(text.size()));
  for (const unsigned long size : {1UL, 65535UL, 65536UL, text.size() - 1}) {
    SCOPED_TRACE(size);
    CQvZip::SetMaxDecompressedSize(size);
    EXPECT_QV_THROW(Decompress(bytes), CQvException, tooLarge(size));
    // The limit of a call stands above that of the process.
    EXPECT_TRUE(TextOf(CQvZip::Decompress(BytesOf(bytes), text.size())) == text);
    EXPECT_QV_THROW(CQvZip::Decompress(BytesOf(bytes), 9), CQvException, tooLarge(9));
  }
  CQvZip::SetMaxDecompressedSize(0);
  EXPECT_TRUE(Decompress(bytes) == text);
}

TEST(CQvZip, DetectsCompressionByTheFirstTwoBytes) {
  for (const std::string& bytes :
       {std::string("\x1F\x8B"), std::string("\x78\x01"), std::string("\x78\x5E"),
        std::string("\x78\x9C"), std::string("\x78\xDA"), ZLibStream("")}) {
    EXPECT_TRUE(CQvZip::IsCompressed(BytesOf(bytes))) << bytes;
  }
  for (const char* bytes : {"", "\x1F", "\x1F\x8C", "x", "\x78\x9D", "\x78\xBB", "\x78\x20", "80",
                            "\x58\x85", "<?xml", "{}", "\xEF\xBB"}) {
    EXPECT_FALSE(CQvZip::IsCompressed(BytesOf(bytes))) << bytes;
  }
  EXPECT_FALSE(CQvZip::IsCompressed(nullptr, 2));
}

}  // namespace
