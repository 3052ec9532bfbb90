// The element name of an object.

#ifndef QVXML_BINDING_OBJECT_NAME_H_
#define QVXML_BINDING_OBJECT_NAME_H_

#include <string>
#include <utility>

#include "qvxml/support/export.h"

namespace QvXmlLib16::detail {

/// One of the few names that many objects have. They share one string; only a name that is not
/// shared is a string of its own.
class QVXML_API CObjectName {
 public:
  /// For a name that is known when the program is written: it may stay for good. Null is "".
  explicit CObjectName(const char* name);
  /// For a name from anywhere: it is shared only with one of the others.
  explicit CObjectName(const std::string& name);
  CObjectName(const CObjectName& other);
  CObjectName(CObjectName&& other) noexcept
      : m_name(other.m_name), m_isOwn(std::exchange(other.m_isOwn, false)) {}
  CObjectName& operator=(CObjectName other) noexcept {
    std::swap(m_name, other.m_name);
    std::swap(m_isOwn, other.m_isOwn);
    return *this;
  }
  ~CObjectName() {
    if (m_isOwn) delete m_name;
  }

  /// Valid until the object gets another name.
  const std::string& Get() const noexcept { return *m_name; }

 private:
  const std::string* m_name;
  bool m_isOwn;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_OBJECT_NAME_H_
