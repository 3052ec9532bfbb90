#include "qvxml/core/unicode.h"

#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <iconv.h>

#include "qvxml/core/locale_text.h"

namespace {

using Utf8 = std::basic_string<unsigned char>;
using Utf16 = std::basic_string<unsigned short>;
using Utf32 = std::basic_string<unsigned int>;

template <class TSource, class TTarget>
using Convert = size_t (*)(const TSource*, const TSource*, TTarget*, TTarget*);

// Measures, then writes into a target of exactly that size.
template <class TTarget, class TSource>
std::basic_string<TTarget> Converted(Convert<TSource, TTarget> convert,
                                     const std::basic_string<TSource>& source) {
  const TSource* const end = source.data() + source.size();
  std::basic_string<TTarget> target(convert(source.data(), end, nullptr, nullptr), TTarget());
  EXPECT_EQ(convert(source.data(), end, target.data(), target.data() + target.size()),
            target.size());
  return target;
}

template <class TUnit>
std::basic_string<TUnit> FromLibrary(const char* encoding, const Utf32& source) {
  const iconv_t converter = iconv_open(encoding, "UTF-32LE");
  std::basic_string<TUnit> target(source.size() * 4, TUnit());
  char* in = const_cast<char*>(reinterpret_cast<const char*>(source.data()));
  char* out = reinterpret_cast<char*>(target.data());
  size_t inLeft = source.size() * sizeof(unsigned int);
  size_t outLeft = target.size() * sizeof(TUnit);
  EXPECT_EQ(iconv(converter, &in, &inLeft, &out, &outLeft), 0u);
  iconv_close(converter);
  target.resize(target.size() - outLeft / sizeof(TUnit));
  return target;
}

Utf8 Bytes(const char* text) { return Utf8(text, text + std::strlen(text)); }

}  // namespace

TEST(Transcoders, ConvertEveryCharacter) {
  Utf32 all;
  for (unsigned int c = 0; c <= 0x10FFFF; ++c) {
    if (c < 0xD800 || c > 0xDFFF) all += c;
  }
  const Utf8 utf8 = FromLibrary<unsigned char>("UTF-8", all);
  const Utf16 utf16 = FromLibrary<unsigned short>("UTF-16LE", all);
  EXPECT_TRUE(Converted(&ConvertUTF32toUTF8, all) == utf8);
  EXPECT_TRUE(Converted(&ConvertUTF32toUTF16, all) == utf16);
  EXPECT_TRUE(Converted(&ConvertUTF8toUTF32, utf8) == all);
  EXPECT_TRUE(Converted(&ConvertUTF8toUTF16, utf8) == utf16);
  EXPECT_TRUE(Converted(&ConvertUTF16toUTF32, utf16) == all);
  EXPECT_TRUE(Converted(&ConvertUTF16toUTF8, utf16) == utf8);
}

TEST(Transcoders, JudgeEveryUtf8PrefixAsTheLibraryDoes) {
  const QvXmlLib16::CInvariantLocaleScope locale;
  const auto check = [](const unsigned char* bytes, size_t length) {
    std::mbstate_t state{};
    wchar_t expected = 0;
    const size_t used =
        std::mbrtowc(&expected, reinterpret_cast<const char*>(bytes), length, &state);
    const bool isValid = used <= length && expected <= 0x10FFFF;
    unsigned int character = 0;
    const size_t written = ConvertUTF8toUTF32(bytes, bytes + length, &character, &character + 1);
    ASSERT_EQ(written, isValid ? 1u : 0u) << std::hex << +bytes[0] << +bytes[1] << +bytes[2];
    ASSERT_EQ(character, isValid ? static_cast<unsigned int>(expected) : 0u);
    ASSERT_EQ(IsLegalUTF8Sequence(bytes, bytes + length), isValid);
  };
  unsigned char bytes[4] = {};
  for (unsigned int first = 0x80; first <= 0xFF; ++first) {
    bytes[0] = static_cast<unsigned char>(first);
    for (unsigned int rest = 0; rest <= 0xFFFF; ++rest) {
      bytes[1] = static_cast<unsigned char>(rest >> 8);
      bytes[2] = static_cast<unsigned char>(rest);
      check(bytes, 3);
      if (bytes[2] == 0) check(bytes, 2);
      if (first < 0xF0 || (bytes[2] != 0x7F && bytes[2] != 0x80 && bytes[2] != 0xBF)) continue;
      for (const int last : {0x7F, 0x80, 0xBF, 0xC0}) {
        bytes[3] = static_cast<unsigned char>(last);
        check(bytes, 4);
      }
    }
    check(bytes, 1);
  }
}

TEST(Transcoders, CountNothingForMalformedText) {
  const Utf16 utf16[] = {{0xDC00}, {0xD800}, {0xD800, 0x41}, {0xDC00, 0xD800}, {0xD800, 0xD800}};
  for (Utf16 text : utf16) {
    text.insert(0, 20, 'a');
    EXPECT_EQ(ConvertUTF16toUTF8(text.data(), text.data() + text.size(), nullptr, nullptr), 0u);
    EXPECT_EQ(ConvertUTF16toUTF32(text.data(), text.data() + text.size(), nullptr, nullptr), 0u);
  }
  for (const unsigned int bad : {0xD800u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
    const Utf32 text = {'a', bad, 'b'};
    EXPECT_EQ(ConvertUTF32toUTF8(text.data(), text.data() + 3, nullptr, nullptr), 0u);
    EXPECT_EQ(ConvertUTF32toUTF16(text.data(), text.data() + 3, nullptr, nullptr), 0u);
  }
  const Utf8 utf8 = Bytes("abc\xC3\xA9\xC3");
  EXPECT_EQ(ConvertUTF8toUTF16(utf8.data(), utf8.data() + utf8.size(), nullptr, nullptr), 0u);
  EXPECT_EQ(ConvertUTF8toUTF32(utf8.data(), utf8.data() + 5, nullptr, nullptr), 4u);
}

TEST(Transcoders, WriteUpToTheFaultOrTheEndOfTheTarget) {
  const Utf32 text = {'a', 0xE9, 0x20AC, 0x1D11E, 0xD800, 'b'};
  const unsigned char expected[] = "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E";
  // Written for each room: whole characters only.
  const size_t written[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10, 10};
  for (size_t room = 0; room < std::size(written); ++room) {
    std::vector<unsigned char> target(room);
    unsigned char none;
    unsigned char* const start = room == 0 ? &none : target.data();
    ASSERT_EQ(ConvertUTF32toUTF8(text.data(), text.data() + text.size(), start, start + room),
              written[room]);
    ASSERT_EQ(std::memcmp(start, expected, written[room]), 0);
  }
  unsigned short units[6] = {};
  EXPECT_EQ(ConvertUTF32toUTF16(text.data(), text.data() + text.size(), units, units + 4), 3u);
  EXPECT_EQ(ConvertUTF32toUTF16(text.data(), text.data() + text.size(), units, units + 6), 5u);
  EXPECT_EQ(units[3], 0xD834);
  EXPECT_EQ(units[4], 0xDD1E);
}

TEST(Transcoders, FindTheFirstWideCharacterAtEveryPlace) {
  for (size_t length = 0; length < 70; ++length) {
    for (size_t place = 0; place < length; ++place) {
      Utf32 text(length, 'x');
      text[place] = 0xE9;
      Utf8 utf8 = Converted(&ConvertUTF32toUTF8, text);
      ASSERT_EQ(utf8.size(), length + 1);
      ASSERT_TRUE(Converted(&ConvertUTF8toUTF32, utf8) == text);
      ASSERT_TRUE(DoesUTF8StrContainAnyCharsLargerThanOneByte(utf8.data(), utf8.size()));
      ASSERT_FALSE(DoesUTF8StrContainAnyCharsLargerThanOneByte(utf8.data(), place));
      utf8[place] = 0xFF;
      std::vector<unsigned int> target(length + 1);
      ASSERT_EQ(ConvertUTF8toUTF32(utf8.data(), utf8.data() + utf8.size(), target.data(),
                                   target.data() + target.size()),
                place);
    }
  }
}

TEST(Transcoders, ConvertWideStrings) {
  const std::wstring text = L"x\u20AC\U0001D11E";
  unsigned char utf8[8];
  EXPECT_EQ(UnicodeToUTF8(text.data(), text.size(), nullptr, 0), 8u);
  ASSERT_EQ(UnicodeToUTF8(text.data(), text.size(), utf8, sizeof utf8), 8u);
  wchar_t wide[3];
  EXPECT_EQ(UTF8ToUnicode(utf8, sizeof utf8, nullptr, 0), 3u);
  ASSERT_EQ(UTF8ToUnicode(utf8, sizeof utf8, wide, 3), 3u);
  EXPECT_EQ(std::wstring(wide, 3), text);

  // The target may lie at an odd address.
  unsigned char bytes[9];
  EXPECT_EQ(UnicodeToUTF16(text.data(), text.size(), nullptr, 0), 4u);
  ASSERT_EQ(UnicodeToUTF16(text.data(), text.size(), bytes + 1, 4), 4u);
  unsigned short units[4];
  std::memcpy(units, bytes + 1, sizeof units);
  EXPECT_EQ(Utf16(units, 4), Utf16({'x', 0x20AC, 0xD834, 0xDD1E}));
  ASSERT_EQ(UTF16ToUnicode(units, 4, wide, 3), 3u);
  EXPECT_EQ(std::wstring(wide, 3), text);

  EXPECT_TRUE(DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(text.data(), 2));
  EXPECT_FALSE(DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(L"\x7F", 1));
  EXPECT_TRUE(DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(L"\x80", 1));
}

TEST(IsLegalUTF8, ChecksTheGivenLength) {
  const struct {
    const char* bytes;
    int length;
    bool isLegal;
  } rows[] = {
      // clang-format off
      {"a", 1, true}, {"\x80", 1, false}, {"\xC1\xBF", 2, false}, {"\xC2\x80", 2, true},
      {"\xC2\xC0", 2, false}, {"\xE0\x9F\xBF", 3, false}, {"\xE0\xA0\x80", 3, true},
      {"\xED\xA0\x80", 3, false}, {"\xEF\xBF\xBF", 3, true}, {"\xF0\x8F\xBF\xBF", 4, false},
      {"\xF0\x90\x80\x80", 4, true}, {"\xF4\x90\x80\x80", 4, false}, {"\xF5\x80\x80\x80", 4, false},
      {"\xF8\x88\x80\x80\x80", 5, false}, {"a", 0, false}, {"a", -1, false},
      // clang-format on
  };
  for (const auto& row : rows) {
    EXPECT_EQ(IsLegalUTF8(Bytes(row.bytes).data(), row.length), row.isLegal) << row.length;
  }
  const Utf8 cut = Bytes("\xE2\x82");
  EXPECT_FALSE(IsLegalUTF8Sequence(cut.data(), cut.data() + 2));
  EXPECT_TRUE(IsLegalUTF8Sequence(cut.data(), cut.data()));
}
