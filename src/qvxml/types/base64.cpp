#include "qvxml/types/base64.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/whitespace.h"

namespace QvXmlLib16 {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Larger than any value a group of four valid characters can have.
constexpr uint32_t kInvalid = 0x80000000u;

struct CharPair {
  char first;
  char second;
};

// Both characters of each 12 bits, so that three bytes take two look-ups.
constexpr std::array<CharPair, 4096> MakePairs() {
  std::array<CharPair, 4096> pairs{};
  for (size_t bits = 0; bits < pairs.size(); ++bits) {
    pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
  }
  return pairs;
}

// The bits of each character shifted to its place within a group of four, so that a group is the
// union of four look-ups, one test for validity included.
struct GroupBits {
  std::array<uint32_t, 256> place[4];
};

constexpr GroupBits MakeGroupBits() {
  GroupBits bits{};
  for (size_t position = 0; position < 4; ++position) {
    bits.place[position].fill(kInvalid);
    for (uint32_t value = 0; value < 64; ++value) {
      bits.place[position][static_cast<unsigned char>(kAlphabet[value])] = value
                                                                           << (18 - 6 * position);
    }
  }
  return bits;
}

constexpr std::array<CharPair, 4096> kPairs = MakePairs();
constexpr GroupBits kGroupBits = MakeGroupBits();

inline uint32_t BitsAt(size_t position, char character) {
  return kGroupBits.place[position][static_cast<unsigned char>(character)];
}

[[noreturn]] void ThrowInvalidChar(char character) {
  throw CQvException(FormatString("Invalid char in base64 string [%c]", character));
}

// The part of a text that whole groups do not cover: whitespace, the end, padding, faults.
class CGroupReader {
 public:
  CGroupReader(const char* text, const char* end) : m_next(text), m_end(end) {}

  const char* Next() const { return m_next; }
  int Count() const { return m_count; }
  uint32_t Bits() const { return m_bits; }

  // Collects the characters of one group. False when the data ended before it was full.
  bool Read() {
    m_bits = 0;
    m_count = 0;
    char last = '\0';
    while (m_next != m_end) {
      const char character = *m_next++;
      if (CWhitespaceUtils::IsWhiteSpace(character)) continue;
      if (character == '=') {
        SkipPadding();
        break;
      }
      const uint32_t bits = BitsAt(static_cast<size_t>(m_count), character);
      if (bits == kInvalid) ThrowInvalidChar(character);
      last = character;
      m_bits |= bits;
      if (++m_count == 4) return true;
    }
    if (m_count == 1) ThrowInvalidChar(last);
    return false;
  }

 private:
  void SkipPadding() {
    for (; m_next != m_end; ++m_next) {
      if (*m_next != '=' && !CWhitespaceUtils::IsWhiteSpace(*m_next)) ThrowInvalidChar(*m_next);
    }
  }

  const char* m_next;
  const char* m_end;
  uint32_t m_bits = 0;
  int m_count = 0;
};

inline void WriteGroup(uint32_t bits, unsigned char* out) {
  out[0] = static_cast<unsigned char>(bits >> 16);
  out[1] = static_cast<unsigned char>(bits >> 8);
  out[2] = static_cast<unsigned char>(bits);
}

// Decodes groups of four alphabet characters; stops at the first that is anything else.
inline const char* DecodeWholeGroups(const char* text, const char* end, unsigned char*& out) {
  while (end - text >= 4) {
    const uint32_t bits =
        BitsAt(0, text[0]) | BitsAt(1, text[1]) | BitsAt(2, text[2]) | BitsAt(3, text[3]);
    if (bits >= kInvalid) break;
    WriteGroup(bits, out);
    out += 3;
    text += 4;
  }
  return text;
}

}  // namespace

constinit CInstanceCounter CBase64::s_instances("CBase64");

std::string CBase64::Encode(const unsigned char* bytes, unsigned long length) {
  std::string text;
  Encode(bytes, length, text);
  return text;
}

void CBase64::Encode(const unsigned char* bytes, unsigned long length, std::string& text) {
  if (bytes == nullptr || length == 0) return;
  const size_t before = text.size();
  text.resize(before + length / 3 * 4 + (length % 3 == 0 ? 0 : 4));
  char* out = text.data() + before;
  const unsigned char* const wholeEnd = bytes + length / 3 * 3;
  for (; bytes != wholeEnd; bytes += 3, out += 4) {
    const uint32_t bits = uint32_t{bytes[0]} << 16 | uint32_t{bytes[1]} << 8 | bytes[2];
    std::memcpy(out, &kPairs[bits >> 12], 2);
    std::memcpy(out + 2, &kPairs[bits & 0xFFF], 2);
  }
  const unsigned long rest = length % 3;
  if (rest == 0) return;
  const uint32_t bits = uint32_t{bytes[0]} << 16 | (rest == 2 ? uint32_t{bytes[1]} << 8 : 0);
  std::memcpy(out, &kPairs[bits >> 12], 2);
  out[2] = rest == 2 ? kPairs[bits & 0xFFF].first : '=';
  out[3] = '=';
}

unsigned long CBase64::Decode(const char* text, unsigned char* out) {
  return text == nullptr ? 0 : Decode(text, std::strlen(text), out);
}

unsigned long CBase64::Decode(const char* text, unsigned long textLength, unsigned char* out) {
  if (text == nullptr || textLength == 0) return 0;
  const unsigned char* const begin = out;
  const char* const end = text + textLength;
  for (;;) {
    text = DecodeWholeGroups(text, end, out);
    CGroupReader group(text, end);
    const bool isWhole = group.Read();
    if (group.Count() > 1) *out++ = static_cast<unsigned char>(group.Bits() >> 16);
    if (group.Count() > 2) *out++ = static_cast<unsigned char>(group.Bits() >> 8);
    if (!isWhole) return static_cast<unsigned long>(out - begin);
    *out++ = static_cast<unsigned char>(group.Bits());
    text = group.Next();
  }
}

}  // namespace QvXmlLib16
