// Octets as text, for assertions.

#ifndef TESTS_FASTINFOSET_HEX_OCTETS_H_
#define TESTS_FASTINFOSET_HEX_OCTETS_H_

#include <string>

#include "qvxml/types/binary_data.h"

namespace qv_test {

/// Two upper-case digits for each octet, with blanks between.
inline std::string Hex(const QvXmlLib16::CBinaryData& data) {
  const std::string digits = data.GetAsHexString();
  std::string text;
  for (size_t at = 0; at < digits.size(); at += 2) {
    if (at != 0) text += ' ';
    text.append(digits, at, 2);
  }
  return text;
}

}  // namespace qv_test

#endif  // TESTS_FASTINFOSET_HEX_OCTETS_H_
