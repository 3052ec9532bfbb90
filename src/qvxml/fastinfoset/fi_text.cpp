// The checks of literal text, and restricted alphabets. Algorithms are in fi_algorithm_text.cpp.

#include <algorithm>
#include <iterator>

#include "qvxml/core/unicode_internal.h"
#include "qvxml/fastinfoset/fi_text_internal.h"

namespace QvXmlLib16::detail::fi {

namespace {

struct CRange {
  char32_t first, last;
};

// Those above ASCII, from the productions NameStartChar and NameChar of XML 1.0.
constexpr CRange kNameStarts[] = {{0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},
                                  {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},
                                  {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF},
                                  {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr CRange kFurtherNameCharacters[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <size_t n>
bool IsIn(const CRange (&ranges)[n], char32_t character) {
  return std::any_of(ranges, std::end(ranges), [character](const CRange& range) {
    return character >= range.first && character <= range.last;
  });
}

bool IsNameStart(char32_t character) {
  if (character >= 0x80) return IsIn(kNameStarts, character);
  const char32_t lower = character | 0x20;
  return (lower >= 'a' && lower <= 'z') || character == '_';
}

bool IsNameCharacter(char32_t character) {
  if (IsNameStart(character)) return true;
  if (character >= 0x80) return IsIn(kFurtherNameCharacters, character);
  return (character >= '0' && character <= '9') || character == '-' || character == '.';
}

bool IsXmlCharacter(char32_t character) {
  if (character >= 0x20) return character != 0xFFFE && character != 0xFFFF;
  return character == '\t' || character == '\n' || character == '\r';
}

// Bytes at `text` before the first one that is not plain, or up to seven of those less.
size_t PlainBlocks(const char* text, size_t length) {
  size_t count = 0;
  for (; length - count >= 8; count += 8) {
    if (HasSpecial(LoadBlock(text + count))) break;
  }
  return count;
}

}  // namespace

bool IsXmlText(std::string_view text) {
  const char* position = text.data();
  const char* const end = position + text.size();
  while (position != end) {
    char32_t character;
    const size_t used = ReadUtf8(position, end, character);
    if (used == 0 || !IsXmlCharacter(character)) return false;
    position += used;
    // Text of many bytes above ASCII would find no block.
    if (character >= 0x80) continue;
    position += PlainBlocks(position, static_cast<size_t>(end - position));
  }
  return true;
}

bool IsNCName(std::string_view text) {
  const char* const end = text.data() + text.size();
  for (const char* position = text.data(); position != end;) {
    char32_t character;
    const size_t used = ReadUtf8(position, end, character);
    const bool isFirst = position == text.data();
    if (used == 0 || !(isFirst ? IsNameStart(character) : IsNameCharacter(character))) {
      return false;
    }
    position += used;
  }
  return !text.empty();
}

bool DecodeUtf16(std::string_view octets, std::string& text) {
  text.clear();
  if (octets.size() % 2 != 0) return false;
  const auto unitAt = [octets](size_t index) {
    return static_cast<char32_t>(static_cast<unsigned char>(octets[index]) << 8 |
                                 static_cast<unsigned char>(octets[index + 1]));
  };
  for (size_t i = 0; i < octets.size(); i += 2) {
    char32_t character = unitAt(i);
    if (character >= 0xD800 && character <= 0xDBFF && i + 2 < octets.size()) {
      const char32_t low = unitAt(i + 2);
      if (low < 0xDC00 || low > 0xDFFF) return false;
      character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
      i += 2;
    }
    if (!IsScalarValue(character)) return false;
    AppendUtf8(text, character);
  }
  return true;
}

CAlphabet::CAlphabet(std::string_view characters) {
  const char* const end = characters.data() + characters.size();
  for (const char* position = characters.data(); position != end;) {
    char32_t character;
    const size_t used = ReadUtf8(position, end, character);
    if (used == 0) return;
    position += used;
    m_characters.push_back(character);
    m_isAscii = m_isAscii && character < 0x80;
  }
  while ((size_t{1} << m_width) <= m_characters.size()) ++m_width;
  m_takesHalves = m_width == 4 && m_isAscii;
  m_byHalf.fill(kNoCharacter);
  if (m_takesHalves) std::copy(m_characters.begin(), m_characters.end(), m_byHalf.begin());
  std::u32string sorted = m_characters;
  std::sort(sorted.begin(), sorted.end());
  m_isValid =
      sorted.size() >= 2 && std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
}

bool CAlphabet::Decode(std::string_view octets, std::string& text) const {
  if (m_takesHalves) return DecodeHalves(octets, text);
  text.clear();
  if (!m_isAscii) {
    return DecodeFields(octets, [&text](char32_t character) { AppendUtf8(text, character); });
  }
  text.resize(octets.size() * 8 / m_width);
  char* end = text.data();
  const bool isDecoded =
      DecodeFields(octets, [&end](char32_t character) { *end++ = static_cast<char>(character); });
  text.resize(static_cast<size_t>(end - text.data()));
  return isDecoded;
}

// The built-in alphabets, two characters an octet. The filling has no character.
bool CAlphabet::DecodeHalves(std::string_view octets, std::string& text) const {
  constexpr unsigned kFiller = 0xF;
  if (octets.empty()) return false;
  text.resize(2 * octets.size());
  char* to = text.data();
  unsigned seen = 0;
  const auto put = [&](unsigned half) {
    seen |= m_byHalf[half];
    *to++ = static_cast<char>(m_byHalf[half]);
  };
  const auto last = static_cast<unsigned char>(octets.back());
  octets.remove_suffix(1);
  for (const char octet : octets) {
    put(static_cast<unsigned char>(octet) >> 4);
    put(static_cast<unsigned char>(octet) & kFiller);
  }
  put(last >> 4);
  if ((last & kFiller) != kFiller) {
    put(last & kFiller);
  } else {
    text.pop_back();
  }
  return (seen & kNoCharacter) == 0;
}

template <class TAppend>
bool CAlphabet::DecodeFields(std::string_view octets, const TAppend& append) const {
  const std::uint64_t filler = (std::uint64_t{1} << m_width) - 1;
  std::uint64_t bits = 0;
  unsigned count = 0;
  bool isAny = false;
  for (const char& octet : octets) {
    bits = bits << 8 | static_cast<unsigned char>(octet);
    for (count += 8; count >= m_width; count -= m_width) {
      const std::uint64_t field = bits >> (count - m_width) & filler;
      if (field == filler) break;
      if (field >= m_characters.size()) return false;
      append(m_characters[field]);
      isAny = true;
    }
    // The filling is in the last octet only.
    if (count >= m_width && &octet != &octets.back()) return false;
  }
  const std::uint64_t rest = (std::uint64_t{1} << count) - 1;
  return isAny && count < 8 && (bits & rest) == rest;
}

}  // namespace QvXmlLib16::detail::fi
