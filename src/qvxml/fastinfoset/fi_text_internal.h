// What octets stand for as text: the checks of literal text, restricted alphabets and encoding
// algorithms.

#ifndef QVXML_FASTINFOSET_FI_TEXT_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_TEXT_INTERNAL_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace QvXmlLib16::detail::fi {

inline std::uint64_t LoadBlock(const char* bytes) {
  std::uint64_t block;
  std::memcpy(&block, bytes, sizeof block);
  return block;
}

/// Whether the eight bytes hold one below 0x20 or above 0x7F.
inline bool HasSpecial(std::uint64_t bytes) {
  return ((bytes | (bytes - 0x2020202020202020u)) & 0x8080808080808080u) != 0;
}

/// Whether the text is ASCII without control characters, and so needs no further look.
///
/// More bytes than the text, up to `readable`, may be looked at, which is faster.
inline bool IsPlain(std::string_view text, size_t readable = 0) {
  constexpr std::uint64_t kSpaces = 0x2020202020202020u;
  if (text.empty()) return true;
  const char* position = text.data();
  size_t rest = text.size();
  for (; rest > 8; rest -= 8, position += 8) {
    if (HasSpecial(LoadBlock(position))) return false;
  }
  if (text.size() >= 8) return !HasSpecial(LoadBlock(position + rest - 8));
  if (readable < 8) {
    char copy[8] = {};
    std::memcpy(copy, position, rest);
    return IsPlain({copy, rest}, sizeof copy);
  }
  // Blanks in place of what comes after the text; without a loop, which short texts of all lengths
  // would make hard to predict.
  const std::uint64_t others = ~std::uint64_t{0} << 8 * rest;
  return !HasSpecial((LoadBlock(position) & ~others) | (kSpaces & others));
}

/// Whether the text is UTF-8 and of characters that XML 1.0 allows.
bool IsXmlText(std::string_view text);
/// Whether UTF-8 text is a name without a colon.
bool IsNCName(std::string_view text);

/// Replaces `text` by what UTF-16 with the high octet first stands for; false when it is malformed.
/// Does not look which characters they are.
bool DecodeUtf16(std::string_view octets, std::string& text);

/// The characters of a restricted alphabet.
class CAlphabet {
 public:
  /// Characters in the order of their values, UTF-8. Throws nothing; IsValid tells whether it can
  /// serve.
  explicit CAlphabet(std::string_view characters);

  /// Whether there are at least two characters, all different.
  bool IsValid() const { return m_isValid; }
  /// Replaces `text` by what the octets stand for. False when one stands for no character, the
  /// filling is not as it must be, or there is no character at all.
  bool Decode(std::string_view octets, std::string& text) const;

 private:
  bool DecodeHalves(std::string_view octets, std::string& text) const;
  template <class TAppend>
  bool DecodeFields(std::string_view octets, const TAppend& append) const;

  static constexpr unsigned char kNoCharacter = 0x80;

  std::u32string m_characters;
  // Where each is ASCII and takes half an octet: that of each half, or kNoCharacter.
  bool m_takesHalves = false;
  std::array<unsigned char, 16> m_byHalf{};
  unsigned m_width = 1;
  bool m_isAscii = true;
  bool m_isValid = false;
};

/// Replaces `text` by what the octets, at least one, stand for in one of the algorithms 1 to 9.
/// False when they are not a whole number of values. Numbers read as CConversions writes them; a
/// real that would lose digits so, as the shortest text of its value.
bool DecodeAlgorithm(unsigned algorithm, std::string_view octets, std::string& text);

}  // namespace QvXmlLib16::detail::fi

#endif  // QVXML_FASTINFOSET_FI_TEXT_INTERNAL_H_
