// Large blocks of memory, for the trees of large documents.

#ifndef QVXML_XML_MEMORY_REGION_INTERNAL_H_
#define QVXML_XML_MEMORY_REGION_INTERNAL_H_

#include <cstddef>

namespace QvXmlLib16::detail {

/// Memory that is aligned to its size, that of a huge page of the system, and consists of one where
/// the system has them to give.
///
/// Touching memory for the first time costs more than all else that is done with it, so the process
/// keeps up to kMostKept regions for its next trees. They count as free memory of the system, which
/// takes them back when it is short of it.
struct CMemoryRegion {
  static constexpr size_t kSize = size_t{2} << 20;
  static constexpr size_t kMostKept = 16;

  /// A whole region, of any content; its `begin` is null when the system gives none.
  static CMemoryRegion Take() noexcept;
  /// Gives back what lies behind the first `used` bytes; false when the system does not take it.
  bool Shrink(size_t used) noexcept;
  /// Gives all of it back.
  void Release() noexcept;

  char* begin = nullptr;
  size_t size = 0;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_MEMORY_REGION_INTERNAL_H_
