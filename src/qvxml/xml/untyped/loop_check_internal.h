// Ends the walk through elements that are among their own children.

#ifndef QVXML_XML_UNTYPED_LOOP_CHECK_INTERNAL_H_
#define QVXML_XML_UNTYPED_LOOP_CHECK_INTERNAL_H_

#include <algorithm>
#include <cstddef>
#include <vector>

#include "qvxml/core/exception.h"

namespace QvXmlLib16 {

class CElement;  // xml/untyped/element.h

namespace detail {

/// Belongs to one walk down a tree. A loop makes the walk deeper without end, so it is looked for
/// only where the depth has doubled, and costs other trees next to nothing.
class CLoopCheck {
 public:
  /// `levels` are those above the next element, each with its `element`. Throws CQvException when
  /// one stands there twice.
  template <class TLevels>
  void Check(const TLevels& levels) {
    if (levels.size() < m_nextDepth) return;
    m_nextDepth = levels.size() * 2;
    std::vector<const CElement*> open;
    open.reserve(levels.size());
    for (const auto& level : levels) open.push_back(level.element);
    std::sort(open.begin(), open.end());
    if (std::adjacent_find(open.begin(), open.end()) != open.end()) {
      throw CQvException("An untyped element may not be among its own children");
    }
  }

 private:
  std::size_t m_nextDepth = 64;
};

}  // namespace detail
}  // namespace QvXmlLib16

#endif  // QVXML_XML_UNTYPED_LOOP_CHECK_INTERNAL_H_
