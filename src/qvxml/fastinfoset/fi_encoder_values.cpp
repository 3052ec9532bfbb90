// Attribute values, runs of text, comments.

#include <cstring>

#include "qvxml/core/exception.h"
#include "qvxml/core/unicode_internal.h"
#include "qvxml/fastinfoset/fi_algorithms_internal.h"
#include "qvxml/fastinfoset/fi_encoder_internal.h"
#include "qvxml/xml/short_copy.h"

namespace QvXmlLib16::detail {

using namespace fi;

// Where the two bits that tell the form stand, and how many bits of the octet then begin the
// length: the rest of the differences follows.

struct CFIEncoder::InValue {
  static constexpr unsigned kFirstOctet = 0;
  static constexpr unsigned kAddToTable = kAddToTableInValue;
  static constexpr unsigned kLengthBits = 4;
  static constexpr const auto& kLengths = kLengthOnFifthBit;
  static constexpr unsigned kMediumLength = 0x8;
  static constexpr unsigned kLongLength = 0xC;
  static void PutIndex(CFIOutput& output, unsigned index) {
    output.PutIndexOnSecondBit(kIndexFollows, index);
  }
  // A value is one string.
  static std::string_view FirstPart(std::string_view text, size_t most) {
    if (text.size() > most) throw CQvException("A value is too long for a Fast Infoset document.");
    return text;
  }
};

struct CFIEncoder::InChunk {
  static constexpr unsigned kFirstOctet = kChunkLiteral;
  static constexpr unsigned kAddToTable = kAddToTableInChunk;
  static constexpr unsigned kLengthBits = 2;
  static constexpr const auto& kLengths = kLengthOnSeventhBit;
  static constexpr unsigned kMediumLength = 0x2;
  static constexpr unsigned kLongLength = 0x3;
  static void PutIndex(CFIOutput& output, unsigned index) {
    output.PutIndexOnFourthBit(kChunkIndex, index);
  }
  // Text may come in several chunks, cut between characters.
  static std::string_view FirstPart(std::string_view text, size_t most) {
    if (text.size() <= most) return text;
    while ((text[most] & 0xC0) == 0x80) --most;
    return text.substr(0, most);
  }
};

namespace {

// Octets of the longest header of a character string.
constexpr size_t kMostHeader = 6;

// Whether a text has at most that many characters.
bool IsWithin(std::string_view utf8, size_t limit) {
  if (utf8.size() <= limit) return true;
  if (utf8.size() / 4 > limit || IsPlain(utf8)) return false;
  size_t characters = 0;
  for (const char octet : utf8) characters += (octet & 0xC0) != 0x80;
  return characters <= limit;
}

}  // namespace

void CFIEncoder::PutAttributeValue(std::string_view value, ItemType type) {
  if (value.empty()) return m_output.Put(kEmptyString);
  PutString<InValue>(m_attributeValues, value, EncodingOf(type));
}

void CFIEncoder::PutOtherString(std::string_view text) {
  if (text.empty()) return m_output.Put(kEmptyString);
  PutString<InValue>(m_otherStrings, text, Encoding());
}

void CFIEncoder::Characters(std::string_view text, ItemType type) {
  m_isLastHalf = false;
  PutString<InChunk>(m_chunks, text, EncodingOf(type));
}

template <class TPlace>
void CFIEncoder::PutString(StringTable& table, std::string_view text, Encoding encoding) {
  // What an algorithm carries is in no table: a reader may spell it otherwise.
  if (encoding.kind == CFastInfosetContext::EncodingKind_Algorithm &&
      PutByAlgorithm<TPlace>(text, encoding.index)) {
    return;
  }
  const bool isInAlphabet = encoding.kind == CFastInfosetContext::EncodingKind_RestrictedAlphabet;
  // ASCII that is too long for the table needs no look into it.
  if (text.size() > table.limit && text.size() > table.index.GetLongest()) {
    if (isInAlphabet) {
      if (PutInAlphabet<TPlace>(text, encoding.index, false)) return;
    } else if (IsPlain(text)) {
      return PutLiteral<TPlace>(text, false);
    }
  }
  PutShortString<TPlace>(table, text, isInAlphabet ? encoding.index : 0);
}

template <class TPlace>
void CFIEncoder::PutShortString(StringTable& table, std::string_view text, unsigned alphabet) {
  std::uint32_t hash = 0;
  // What a table has needs no check.
  if (m_isTextUtf8 && PutIndex<TPlace>(table, text, hash)) return;
  const std::string_view utf8 = Utf8Of(text);
  if ((utf8.data() != text.data() || !m_isTextUtf8) && PutIndex<TPlace>(table, utf8, hash)) return;
  const bool isAdded = IsWithin(utf8, table.limit) && table.index.GetCount() < kMaxEntries;
  if (alphabet == 0 || !PutInAlphabet<TPlace>(utf8, alphabet, isAdded)) {
    PutLiteral<TPlace>(utf8, isAdded);
  }
  if (isAdded) table.index.AddNew(utf8, 0, hash);
}

template <class TPlace>
bool CFIEncoder::PutIndex(const StringTable& table, std::string_view utf8, std::uint32_t& hash) {
  // No longer string is there, or comes to be there.
  if (utf8.size() / 4 > table.limit && utf8.size() > table.index.GetLongest()) return false;
  hash = table.index.Hash(utf8, 0);
  const unsigned index = table.index.Find(utf8, 0, hash);
  if (index != 0) TPlace::PutIndex(m_output, index);
  return index != 0;
}

template <class TPlace>
bool CFIEncoder::PutByAlgorithm(std::string_view text, unsigned algorithm) {
  const size_t length = GetAlgorithmLength(algorithm, text);
  if (length == 0 || length > kMaxLength) return false;
  unsigned char* const start = m_output.Reserve(kMostHeader + length);
  unsigned char* const payload =
      PutStringHeader<TPlace>(start, kEncodingAlgorithm, algorithm, false, length);
  if (!WriteByAlgorithm(algorithm, text, payload)) return false;
  m_output.AdvanceTo(payload + length);
  return true;
}

template <class TPlace>
bool CFIEncoder::PutInAlphabet(std::string_view text, unsigned alphabet, bool isAdded) {
  const size_t length = GetAlphabetLength(alphabet, text);
  if (length == 0 || length > kMaxLength) return false;
  unsigned char* const start = m_output.Reserve(kMostHeader + length);
  unsigned char* const payload =
      PutStringHeader<TPlace>(start, kRestrictedAlphabet, alphabet, isAdded, length);
  if (!WriteInAlphabet(alphabet, text, payload)) return false;
  m_output.AdvanceTo(payload + length);
  return true;
}

template <class TPlace>
void CFIEncoder::PutLiteral(std::string_view text, bool isAdded) {
  // In UTF-16 no character takes more than twice its octets.
  const size_t most = m_isUtf16 ? kMaxLength / 2 : kMaxLength;
  do {
    const std::string_view part = TPlace::FirstPart(text, most);
    if (m_isUtf16) {
      PutUtf16<TPlace>(part, isAdded);
    } else {
      unsigned char* const start = m_output.Reserve(kMostHeader + part.size());
      unsigned char* const payload = PutStringHeader<TPlace>(start, kUtf8, 0, isAdded, part.size());
      CopyShort(reinterpret_cast<char*>(payload), part.data(), part.size());
      m_output.AdvanceTo(payload + part.size());
    }
    text.remove_prefix(part.size());
  } while (!text.empty());
}

template <class TPlace>
void CFIEncoder::PutUtf16(std::string_view text, bool isAdded) {
  size_t units = 0;
  for (const char octet : text) {
    // Each character once, and twice those that take four octets.
    units += (octet & 0xC0) != 0x80;
    units += static_cast<unsigned char>(octet) >= 0xF0;
  }
  unsigned char* const start = m_output.Reserve(kMostHeader + 2 * units);
  m_output.AdvanceTo(PutStringHeader<TPlace>(start, kUtf16, 0, isAdded, 2 * units));
  const char* const end = text.data() + text.size();
  for (const char* position = text.data(); position != end;) {
    char32_t character = 0;
    position += ReadUtf8(position, end, character);
    if (character >= 0x10000) {
      m_output.PutBigEndian(static_cast<std::uint16_t>(0xD7C0 + (character >> 10)));
      character = 0xDC00 | (character & 0x3FF);
    }
    m_output.PutBigEndian(static_cast<std::uint16_t>(character));
  }
}

template <class TPlace>
unsigned char* CFIEncoder::PutStringHeader(unsigned char* to, StringForm form, unsigned index,
                                           bool isAdded, std::uint64_t length) {
  unsigned octet = TPlace::kFirstOctet | (isAdded ? TPlace::kAddToTable : 0u) |
                   static_cast<unsigned>(form) << TPlace::kLengthBits;
  if (form == kRestrictedAlphabet || form == kEncodingAlgorithm) {
    *to++ = static_cast<unsigned char>(octet | (index - 1) >> (8 - TPlace::kLengthBits));
    octet = (index - 1) << TPlace::kLengthBits;
  }
  if (length < TPlace::kLengths[1]) {
    *to++ = static_cast<unsigned char>(octet | static_cast<unsigned>(length - 1));
  } else if (length < TPlace::kLengths[2]) {
    *to++ = static_cast<unsigned char>(octet | TPlace::kMediumLength);
    *to++ = static_cast<unsigned char>(length - TPlace::kLengths[1]);
  } else {
    *to++ = static_cast<unsigned char>(octet | TPlace::kLongLength);
    StoreBigEndian(static_cast<std::uint32_t>(length - TPlace::kLengths[2]), to);
    to += 4;
  }
  return to;
}

}  // namespace QvXmlLib16::detail
