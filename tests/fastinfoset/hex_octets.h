// Octets as text, for assertions.

#ifndef TESTS_FASTINFOSET_HEX_OCTETS_H_
#define TESTS_FASTINFOSET_HEX_OCTETS_H_

#include <string>

#include "qvxml/types/binary_data.h"

namespace qv_test {

/// Two upper-case digits for each octet, with blanks between.
inline std::string Hex(const QvXmlLib16::CBinaryData& data) {
  std::string text = data.GetAsHexString();
  for (size_t at = 2; at < text.size(); at += 3) text.insert(at, 1, ' ');
  return text;
}

}  // namespace qv_test

#endif  // TESTS_FASTINFOSET_HEX_OCTETS_H_
