#include "qvxml/xml/encoder.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace QvXmlLib16;

std::string BytesOf(const CBinaryData& data) {
  return data.GetLength() == 0
             ? std::string()
             : std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

std::string Wide(const std::u32string& text) {
  return std::string(reinterpret_cast<const char*>(text.data()), text.size() * 4);
}

// No test calls setlocale, so the multibyte form is UTF-8.
TEST(CEncoder, EncodesText) {
  const struct {
    const char* name;
    std::string text, utf8;
    std::u32string wide;
  } rows[] = {
      {"empty", "", "", U""},
      {"ASCII", "abc", "abc", U"abc"},
      {"two, three and four bytes", "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80",
       "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", U"\u00E9 \u20AC \U0001F600"},
      {"no character begins with a trail byte", "a\x80z", "a?z", U"a?z"},
      {"reading resumes one byte later", "\xE2\x82z", "??z", U"??z"},
      {"incomplete at the end", "ab\xC3", "ab?", U"ab?"},
      {"beyond the last character", "\xF4\x90\x80\x80", "????", U"????"},
      {"zero byte", std::string("a\0\xC3\xA9", 4), std::string("a\0\xC3\xA9", 4),
       std::u32string(U"a\0\u00E9", 3)},
      {"longer than one round of decoding", std::string(3000, 'x') + "\xC3\xA9",
       std::string(3000, 'x') + "\xC3\xA9", std::u32string(3000, U'x') + U"\u00E9"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const char* const text = row.text.data();
    EXPECT_EQ(row.utf8, BytesOf(CEncoder::LocalCodePageToUtf8Binary(text, row.text.size())));
    EXPECT_EQ(Wide(row.wide),
              BytesOf(CEncoder::LocalCodePageToUnicodeBinary(text, row.text.size())));
  }
  EXPECT_EQ("a", BytesOf(CEncoder::LocalCodePageToUtf8Binary("a\0b")));
  EXPECT_EQ(0u, CEncoder::LocalCodePageToUtf8Binary(nullptr).GetLength());
  EXPECT_EQ(0u, CEncoder::LocalCodePageToUnicodeBinary(nullptr).GetLength());
}

TEST(CEncoder, TakesBytesAsTheyAreWithAsciiOnly) {
  ASCII_ONLY = true;
  const CBinaryData data = CEncoder::LocalCodePageToUtf8Binary("a\x80\xFF");
  ASCII_ONLY = false;
  EXPECT_EQ("a\x80\xFF", BytesOf(data));
}

TEST(CEncoder, EncodesWideText) {
  EXPECT_EQ("", BytesOf(CEncoder::UnicodeToUtf8Binary(L"")));
  EXPECT_EQ("", BytesOf(CEncoder::UnicodeToUtf8Binary(nullptr)));
  EXPECT_EQ("a\xC3\xA9\xF0\x9F\x98\x80",
            BytesOf(CEncoder::UnicodeToUtf8Binary(L"a\u00E9\U0001F600")));
  const wchar_t malformed[] = {L'a', 0xD800, 0x110000, L'z', 0};
  EXPECT_EQ("a??z", BytesOf(CEncoder::UnicodeToUtf8Binary(malformed)));
}

TEST(CEncoder, DecodesUtf8) {
  const unsigned char bytes[] = {'a', 0, 0xC3, 0xA9};
  std::wstring wide;
  std::string narrow;
  EXPECT_EQ(std::string("a\0\xC3\xA9", 4), CEncoder::Utf8ToLocalCodePage(bytes, 4));
  EXPECT_EQ(std::string("a\0\xC3\xA9", 4), CEncoder::Utf8ToLocalCodePage(bytes, 4, wide, narrow));
  EXPECT_EQ("\xC3\xA9", CEncoder::Utf8ToLocalCodePage("\xC3\xA9"));
  EXPECT_EQ("x", CEncoder::Utf8ToLocalCodePage("x", wide, narrow));
  EXPECT_EQ("", CEncoder::Utf8ToLocalCodePage(nullptr));
  EXPECT_EQ("", CEncoder::Utf16ToLocalCodePage(bytes, 4));
}

}  // namespace
