// Lets a context ignore namespaces for a while.

#ifndef QVXML_BINDING_IGNORE_NAMESPACES_SCOPE_INTERNAL_H_
#define QVXML_BINDING_IGNORE_NAMESPACES_SCOPE_INTERNAL_H_

#include "qvxml/binding/serialization_context.h"

namespace QvXmlLib16::detail {

/// Sets the context's flag, unless `isWanted` is false, and gives it its own value back.
class CIgnoreNamespacesScope {
 public:
  CIgnoreNamespacesScope(const CSerializationContext& ctx, bool isWanted)
      : m_flag(ctx.m_ignoreNamespaces), m_isWanted(isWanted), m_previous(m_flag) {
    if (m_isWanted) m_flag = true;
  }
  ~CIgnoreNamespacesScope() {
    if (m_isWanted) m_flag = m_previous;
  }
  CIgnoreNamespacesScope(const CIgnoreNamespacesScope&) = delete;
  CIgnoreNamespacesScope& operator=(const CIgnoreNamespacesScope&) = delete;

 private:
  // The flag, not what GetIgnoreNamespaces() tells, which depends on the schema type too.
  bool& m_flag;
  const bool m_isWanted;
  const bool m_previous;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_IGNORE_NAMESPACES_SCOPE_INTERNAL_H_
