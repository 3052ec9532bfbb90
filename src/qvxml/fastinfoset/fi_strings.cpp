#include "qvxml/core/format.h"
#include "qvxml/fastinfoset/fi_strings_internal.h"

namespace QvXmlLib16::detail::fi {

namespace {

constexpr unsigned kBuiltInAlphabets = 2;

}  // namespace

// The text was taken last.
void CStrings::FailText(std::string_view text) const {
  m_input.FailAt(m_input.GetOffset() - text.size(),
                 "The text is malformed or holds a character that XML forbids");
}

CCharacters CStrings::CheckText(std::string_view text) const {
  if (!IsXmlText(text)) FailText(text);
  return {text, false, false};
}

std::string_view CStrings::TakeText(unsigned char octet) {
  if (octet >= 0x80) m_input.FailOctet("a length");
  return TakeUtf8(m_input.TakeLengthOnSecondBit(octet)).text;
}

std::string_view CStrings::TakeNCName(unsigned char octet) {
  if (octet >= 0x80) m_input.FailOctet("a length");
  const std::string_view name = m_input.TakeOctets(m_input.TakeLengthOnSecondBit(octet));
  if (!IsNCName(name)) {
    m_input.FailAt(m_input.GetOffset() - name.size(), "The text is no name without a colon");
  }
  return name;
}

void CStrings::TakeAlphabet() {
  const std::string_view characters = TakeText(m_input.Take());
  const size_t offset = m_input.GetOffset() - characters.size();
  if (kFirstFreeAlphabet + m_alphabets.size() - kBuiltInAlphabets > kMaxAlphabets) {
    m_input.FailAt(offset, "There are more than 256 restricted alphabets");
  }
  const CAlphabet& alphabet = m_alphabets.emplace_back(characters);
  if (!alphabet.IsValid()) {
    m_input.FailAt(offset, "A restricted alphabet needs two characters or more, all different");
  }
}

void CStrings::TakeAlgorithm() {
  const std::string_view uri = TakeText(m_input.Take());
  if (kFirstFreeAlgorithm + m_algorithms++ > kMaxAlgorithms) {
    m_input.FailAt(m_input.GetOffset() - uri.size(), "There are more than 256 encoding algorithms");
  }
}

CCharacters CStrings::TakeEncodedOnThirdBit(unsigned form, unsigned char octet) {
  const size_t offset = m_input.GetOffset() - 1;
  if (form == kUtf16) return TakeEncoded(form, 0, m_input.TakeLengthOnFifthBit(octet), offset);
  const unsigned char next = m_input.Take();
  const unsigned index = ((octet & 0x0Fu) << 4 | next >> 4) + 1;
  return TakeEncoded(form, index, m_input.TakeLengthOnFifthBit(next), offset);
}

CCharacters CStrings::TakeEncodedOnFifthBit(unsigned form, unsigned char octet) {
  const size_t offset = m_input.GetOffset() - 1;
  if (form == kUtf16) return TakeEncoded(form, 0, m_input.TakeLengthOnSeventhBit(octet), offset);
  const unsigned char next = m_input.Take();
  const unsigned index = ((octet & 0x03u) << 6 | next >> 2) + 1;
  return TakeEncoded(form, index, m_input.TakeLengthOnSeventhBit(next), offset);
}

CCharacters CStrings::TakeEncoded(unsigned form, unsigned index, size_t length, size_t offset) {
  const std::string_view octets = m_input.TakeOctets(length);
  if (form == kRestrictedAlphabet) return TakeByAlphabet(index, octets, offset);
  if (form == kEncodingAlgorithm) return TakeByAlgorithm(index, octets, offset);
  if (!DecodeUtf16(octets, m_decoded) || !IsXmlText(m_decoded)) FailText(octets);
  return {m_decoded, false, false};
}

CCharacters CStrings::TakeByAlphabet(unsigned index, std::string_view octets, size_t offset) {
  const bool isDeclared = index >= kFirstFreeAlphabet;
  const unsigned position = isDeclared ? index - kFirstFreeAlphabet + kBuiltInAlphabets : index - 1;
  if ((!isDeclared && index > kBuiltInAlphabets) || position >= m_alphabets.size()) {
    m_input.FailAt(offset, FormatString("Unknown restricted alphabet [%u]", index));
  }
  if (!m_alphabets[position].Decode(octets, m_decoded)) {
    m_input.FailAt(m_input.GetOffset() - octets.size(),
                   FormatString("The octets are no text of the restricted alphabet [%u]", index));
  }
  ChargeExpansion(octets);
  return {m_decoded, !isDeclared, false};
}

// What the text of the octets has more than they have themselves: up to 48 times.
void CStrings::ChargeExpansion(std::string_view octets) {
  if (m_decoded.size() > octets.size()) {
    m_input.ChargeRepetition(m_decoded.size() - octets.size());
  }
}

CCharacters CStrings::TakeByAlgorithm(unsigned index, std::string_view octets, size_t offset) {
  if (index == kCData) {
    CCharacters characters = CheckText(octets);
    // It could not stand in a section of its own.
    if (octets.find("]]>") != std::string_view::npos) FailText(octets);
    characters.isCData = true;
    return characters;
  }
  if (index > kCData) {
    m_input.FailAt(offset, FormatString("Unknown encoding algorithm [%u]", index));
  }
  if (!DecodeAlgorithm(index, octets, m_decoded)) {
    m_input.FailAt(m_input.GetOffset() - octets.size(),
                   FormatString("The octets are no values of the encoding algorithm [%u]", index));
  }
  ChargeExpansion(octets);
  return {m_decoded, true, false};
}

}  // namespace QvXmlLib16::detail::fi
