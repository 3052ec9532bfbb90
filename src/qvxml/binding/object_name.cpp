#include "qvxml/binding/object_name.h"

#include "qvxml/binding/shared_name_internal.h"

namespace QvXmlLib16::detail {

CObjectName::CObjectName(const char* name)
    : m_name(FindSharedName(name == nullptr ? "" : name)), m_isOwn(m_name == nullptr) {
  if (m_isOwn) m_name = new const std::string(name);
}

CObjectName::CObjectName(const std::string& name)
    : m_name(FindKnownName(name)), m_isOwn(m_name == nullptr) {
  if (m_isOwn) m_name = new const std::string(name);
}

CObjectName::CObjectName(const CObjectName& other)
    : m_name(other.m_isOwn ? new const std::string(*other.m_name) : other.m_name),
      m_isOwn(other.m_isOwn) {}

}  // namespace QvXmlLib16::detail
