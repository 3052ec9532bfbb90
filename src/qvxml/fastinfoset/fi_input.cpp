// The longer forms of integers, and the failures.

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/fastinfoset/fi_input_internal.h"

namespace QvXmlLib16::detail::fi {

void CInput::FailAt(size_t offset, const std::string& what) const {
  throw CQvException(
      FormatString("%s at byte %lu", what.c_str(), static_cast<unsigned long>(offset)));
}

void CInput::FailAtEnd() const {
  FailAt(static_cast<size_t>(m_end - m_begin), "The Fast Infoset document ends too early");
}

void CInput::FailOctet(const char* place) const {
  FailAt(GetOffset() - 1,
         FormatString("Unexpected octet [%02X] for %s", static_cast<unsigned>(m_next[-1]), place));
}

void CInput::FailIndex(unsigned index, size_t entries, size_t offset) const {
  FailAt(offset, FormatString("The index [%u] exceeds the [%lu] entries of its table", index,
                              static_cast<unsigned long>(entries)));
}

void CInput::FailRepetition() const {
  FailAt(GetOffset(), "The limit on the amplification of the Fast Infoset document is exceeded");
}

// The number that begins with the bits `first` and goes on in `octets` octets.
unsigned CInput::TakeBits(unsigned first, int octets) {
  for (int i = 0; i < octets; ++i) first = first << 8 | Take();
  return first;
}

unsigned CInput::CheckIndex(unsigned index, size_t offset) const {
  if (index > kMaxEntries) FailAt(offset, FormatString("The index [%u] exceeds 1048576", index));
  return index;
}

unsigned CInput::TakeLongIndexOnSecondBit(unsigned char octet) {
  const size_t offset = GetOffset() - 1;
  const unsigned bits = octet & 0x7Fu;
  if (bits < 0x60) return kIndexOnSecondBit[1] + TakeBits(bits & 0x1F, 1);
  if (bits >= 0x70) FailOctet("an index");
  return CheckIndex(kIndexOnSecondBit[2] + TakeBits(bits & 0x0F, 2), offset);
}

unsigned CInput::TakeLongIndexOnThirdBit(unsigned char octet) {
  const size_t offset = GetOffset() - 1;
  const unsigned bits = octet & 0x3Fu;
  if (bits < 0x28) return kIndexOnThirdBit[1] + TakeBits(bits & 0x07, 1);
  if (bits < 0x30) return kIndexOnThirdBit[2] + TakeBits(bits & 0x07, 2);
  if (bits != 0x30) FailOctet("an index");
  return CheckIndex(kIndexOnThirdBit[3] + TakeTwentyBits(), offset);
}

unsigned CInput::TakeLongIndexOnFourthBit(unsigned char octet) {
  const size_t offset = GetOffset() - 1;
  const unsigned bits = octet & 0x1Fu;
  if (bits < 0x14) return kIndexOnFourthBit[1] + TakeBits(bits & 0x03, 1);
  if (bits < 0x18) return kIndexOnFourthBit[2] + TakeBits(bits & 0x03, 2);
  if (bits != 0x18) FailOctet("an index");
  return CheckIndex(kIndexOnFourthBit[3] + TakeTwentyBits(), offset);
}

unsigned CInput::TakeTwentyBits() {
  const unsigned char first = Take();
  if (first > 0x0F) FailOctet("an index");
  return TakeBits(first, 2);
}

unsigned CInput::TakeCount() {
  const size_t offset = GetOffset();
  const unsigned char octet = Take();
  if (octet < 0x80) return octet + kCountOnFirstBit[0];
  if (octet > 0x8F) FailOctet("a count");
  const unsigned count = kCountOnFirstBit[1] + TakeBits(octet & 0x0F, 2);
  if (count > kMaxEntries) FailAt(offset, FormatString("The count [%u] exceeds 1048576", count));
  return count;
}

size_t CInput::CheckLength(std::uint64_t length, size_t offset) const {
  if (length <= GetRemaining() && length <= kMaxLength) return static_cast<size_t>(length);
  FailAt(offset, FormatString("The length [%lu] exceeds the rest of the document",
                              static_cast<unsigned long>(length)));
}

size_t CInput::TakeLongLengthOnSecondBit(unsigned char octet) {
  const size_t offset = GetOffset() - 1;
  const unsigned bits = octet & 0x7Fu;
  if (bits < 0x40) return CheckLength(kLengthOnSecondBit[0] + bits, offset);
  if (bits == 0x40) return CheckLength(kLengthOnSecondBit[1] + Take(), offset);
  if (bits != 0x60) FailOctet("a length");
  return CheckLength(kLengthOnSecondBit[2] + TakeBits(0, 4), offset);
}

size_t CInput::TakeLongLengthOnFifthBit(unsigned char octet) {
  const size_t offset = GetOffset() - 1;
  const unsigned bits = octet & 0x0Fu;
  if (bits < 0x08) return CheckLength(kLengthOnFifthBit[0] + bits, offset);
  if (bits == 0x08) return CheckLength(kLengthOnFifthBit[1] + Take(), offset);
  if (bits != 0x0C) FailOctet("a length");
  return CheckLength(kLengthOnFifthBit[2] + TakeBits(0, 4), offset);
}

size_t CInput::TakeLongLengthOnSeventhBit(unsigned char octet) {
  const size_t offset = GetOffset() - 1;
  const unsigned bits = octet & 0x03u;
  if (bits < 0x02) return CheckLength(kLengthOnSeventhBit[0] + bits, offset);
  if (bits == 0x02) return CheckLength(kLengthOnSeventhBit[1] + Take(), offset);
  return CheckLength(kLengthOnSeventhBit[2] + TakeBits(0, 4), offset);
}

}  // namespace QvXmlLib16::detail::fi
