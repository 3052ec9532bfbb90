// The octets of a document and the integers of ITU-T X.891 in them, as the decoder takes them one
// after the other.

#ifndef QVXML_FASTINFOSET_FI_INPUT_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_INPUT_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "qvxml/fastinfoset/fi_encoding_internal.h"

namespace QvXmlLib16::detail::fi {

/// Where decoding stands. Everything that takes octets throws when the document ends before.
///
/// The functions that read the rest of an integer are given the octet that it begins in, and expect
/// that octet to be the last one taken.
class CInput {
 public:
  CInput(const unsigned char* octets, size_t length, size_t repetitionLimit)
      : m_begin(octets),
        m_next(octets),
        m_end(octets + length),
        m_repetitionLimit(repetitionLimit) {}

  bool IsAtEnd() const { return m_next == m_end; }
  /// Octets taken so far.
  size_t GetOffset() const { return static_cast<size_t>(m_next - m_begin); }
  size_t GetRemaining() const { return static_cast<size_t>(m_end - m_next); }
  /// Whether the text stands in the document, and so serves as long as it.
  bool Holds(std::string_view text) const {
    const auto* const begin = reinterpret_cast<const unsigned char*>(text.data());
    return begin >= m_begin && begin < m_end;
  }

  unsigned char Take() {
    if (m_next == m_end) FailAtEnd();
    return *m_next++;
  }
  /// `length` comes from the functions below, which have compared it with what is left.
  std::string_view TakeOctets(size_t length) {
    const std::string_view octets(reinterpret_cast<const char*>(m_next), length);
    m_next += length;
    return octets;
  }

  /// An index of 1 to 2^20 on the second bit; the octet's first bit is not looked at.
  unsigned TakeIndexOnSecondBit(unsigned char octet) {
    const unsigned bits = octet & 0x7Fu;
    return bits < 0x40 ? bits + kIndexOnSecondBit[0] : TakeLongIndexOnSecondBit(octet);
  }
  unsigned TakeIndexOnThirdBit(unsigned char octet) {
    const unsigned bits = octet & 0x3Fu;
    return bits < 0x20 ? bits + kIndexOnThirdBit[0] : TakeLongIndexOnThirdBit(octet);
  }
  unsigned TakeIndexOnFourthBit(unsigned char octet) {
    const unsigned bits = octet & 0x1Fu;
    return bits < 0x10 ? bits + kIndexOnFourthBit[0] : TakeLongIndexOnFourthBit(octet);
  }
  /// The count of a list: 1 to 2^20.
  unsigned TakeCount();

  /// The length of an octet string: at least 1, and no more than what is left.
  size_t TakeLengthOnSecondBit(unsigned char octet) {
    const unsigned bits = octet & 0x7Fu;
    if (bits < 0x40 && bits < GetRemaining()) return bits + 1;
    return TakeLongLengthOnSecondBit(octet);
  }
  size_t TakeLengthOnFifthBit(unsigned char octet) {
    const unsigned bits = octet & 0x0Fu;
    if (bits < 0x08 && bits < GetRemaining()) return bits + 1;
    return TakeLongLengthOnFifthBit(octet);
  }
  size_t TakeLengthOnSeventhBit(unsigned char octet) {
    const unsigned bits = octet & 0x03u;
    if (bits < 0x02 && bits < GetRemaining()) return bits + 1;
    if (bits == 0x02 && m_next != m_end && *m_next + size_t{3} < GetRemaining()) {
      return *m_next++ + size_t{3};
    }
    return TakeLongLengthOnSeventhBit(octet);
  }

  /// What repeating an entry of a table costs beside the octets that name it; throws when the
  /// document as a whole has cost more than it may.
  void ChargeRepetition(size_t bytes) {
    m_repeatedBytes += bytes;
    if (m_repeatedBytes > m_repetitionLimit) FailRepetition();
  }

  // Failures: CQvException "%s at byte %lu", the byte counted from 0 at the start of the input.

  [[noreturn, gnu::cold]] void FailAt(size_t offset, const std::string& what) const;
  [[noreturn, gnu::cold]] void FailAtEnd() const;
  [[noreturn, gnu::cold]] void FailIndex(unsigned index, size_t entries, size_t offset) const;
  /// The octet taken last stands for nothing where `place` is due.
  [[noreturn, gnu::cold]] void FailOctet(const char* place) const;

 private:
  [[noreturn, gnu::cold]] void FailRepetition() const;
  unsigned TakeBits(unsigned first, int octets);
  unsigned CheckIndex(unsigned index, size_t offset) const;
  unsigned TakeLongIndexOnSecondBit(unsigned char octet);
  unsigned TakeLongIndexOnThirdBit(unsigned char octet);
  unsigned TakeLongIndexOnFourthBit(unsigned char octet);
  unsigned TakeTwentyBits();
  size_t CheckLength(std::uint64_t length, size_t offset) const;
  size_t TakeLongLengthOnSecondBit(unsigned char octet);
  size_t TakeLongLengthOnFifthBit(unsigned char octet);
  size_t TakeLongLengthOnSeventhBit(unsigned char octet);

  const unsigned char* m_begin;
  const unsigned char* m_next;
  const unsigned char* m_end;
  size_t m_repeatedBytes = 0;
  size_t m_repetitionLimit;
};

}  // namespace QvXmlLib16::detail::fi

#endif  // QVXML_FASTINFOSET_FI_INPUT_INTERNAL_H_
