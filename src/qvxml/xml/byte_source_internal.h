// Input that is read in pieces.

#ifndef QVXML_XML_BYTE_SOURCE_INTERNAL_H_
#define QVXML_XML_BYTE_SOURCE_INTERNAL_H_

#include <cstddef>

namespace QvXmlLib16::detail {

class IByteSource {
 public:
  virtual ~IByteSource() = default;
  /// Stores the next bytes, `size` of them unless fewer are left, and returns their number.
  virtual size_t Read(void* target, size_t size) = 0;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_BYTE_SOURCE_INTERNAL_H_
