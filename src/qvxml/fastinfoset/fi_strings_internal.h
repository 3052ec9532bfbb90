// Character strings of a document, whatever encodes them, as UTF-8.

#ifndef QVXML_FASTINFOSET_FI_STRINGS_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_STRINGS_INTERNAL_H_

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/fastinfoset/fi_encoding_internal.h"
#include "qvxml/fastinfoset/fi_input_internal.h"
#include "qvxml/fastinfoset/fi_text_internal.h"

namespace QvXmlLib16::detail::fi {

/// Text of a document, checked: well-formed, and of characters that XML allows.
struct CCharacters {
  std::string_view text;
  /// Whether it is ASCII without control characters.
  bool isPlain = false;
  bool isCData = false;
};

/// Takes strings from the input. What it returns serves until it is next called, and longer where
/// the input holds it or Keep() was asked to.
class CStrings {
 public:
  explicit CStrings(CInput& input) : m_input(input) {}

  /// The rest of an encoded character string on the third bit of `octet`, or on the fifth bit.
  CCharacters TakeOnThirdBit(unsigned char octet) {
    const unsigned form = octet >> 4 & 3u;
    if (form == kUtf8) return TakeUtf8(m_input.TakeLengthOnFifthBit(octet));
    return TakeEncodedOnThirdBit(form, octet);
  }
  CCharacters TakeOnFifthBit(unsigned char octet) {
    const unsigned form = octet >> 2 & 3u;
    if (form == kUtf8) return TakeUtf8(m_input.TakeLengthOnSeventhBit(octet));
    return TakeEncodedOnFifthBit(form, octet);
  }

  /// The octet string on the second bit that begins in `octet`: any text, or a name.
  std::string_view TakeText(unsigned char octet);
  std::string_view TakeNCName(unsigned char octet);

  /// Entries of the initial vocabulary; an octet string on the second bit follows.
  void TakeAlphabet();
  void TakeAlgorithm();

  /// The same text for as long as this object lives.
  std::string_view Keep(std::string_view text) {
    return m_input.Holds(text) ? text : m_kept.emplace_back(text);
  }

 private:
  CCharacters TakeUtf8(size_t length) {
    const std::string_view text = m_input.TakeOctets(length);
    if (IsPlain(text, length + m_input.GetRemaining())) return {text, true, false};
    return CheckText(text);
  }
  CCharacters CheckText(std::string_view text) const;
  CCharacters TakeEncodedOnThirdBit(unsigned form, unsigned char octet);
  CCharacters TakeEncodedOnFifthBit(unsigned form, unsigned char octet);
  CCharacters TakeEncoded(unsigned form, unsigned index, size_t length, size_t offset);
  CCharacters TakeByAlphabet(unsigned index, std::string_view octets, size_t offset);
  CCharacters TakeByAlgorithm(unsigned index, std::string_view octets, size_t offset);
  void ChargeExpansion(std::string_view octets);
  [[noreturn]] void FailText(std::string_view text) const;

  CInput& m_input;
  std::vector<CAlphabet> m_alphabets{CAlphabet(kNumericCharacters),
                                     CAlphabet(kDateAndTimeCharacters)};
  unsigned m_algorithms = 0;
  std::string m_decoded;
  std::deque<std::string> m_kept;
};

}  // namespace QvXmlLib16::detail::fi

#endif  // QVXML_FASTINFOSET_FI_STRINGS_INTERNAL_H_
