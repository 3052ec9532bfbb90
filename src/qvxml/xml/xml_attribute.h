// An attribute of an element that was read.

#ifndef QVXML_XML_XML_ATTRIBUTE_H_
#define QVXML_XML_XML_ATTRIBUTE_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

class CXmlElement;  // xml/xml_element.h

namespace detail {
struct CNodeAccess;  // xml/node_access_internal.h
struct CXmlName;     // xml/node_arena_internal.h
}  // namespace detail

/// A name and a value; owned by its element and destroyed with it.
class QVXML_API CXmlAttribute : private TInstanceCounted<CXmlAttribute> {
 public:
  CXmlAttribute(const CXmlAttribute&) = delete;
  CXmlAttribute& operator=(const CXmlAttribute&) = delete;

  /// "" for an attribute without a prefix, even where a default namespace is in force.
  const std::string& GetNamespaceURI() const noexcept;
  const std::string& GetLocalName() const noexcept;
  const std::string& GetValue() const noexcept { return m_value; }

  /// Path of the element, "/", the prefix and ":" when the document binds one to the namespace,
  /// "@" and the local name; the prefix stands before the "@", as in "/a/p:@name".
  std::string GetXPath() const;

  /// Whether the attribute steers reading and is no content: "xmlns", "type", "schemaLocation" or
  /// "noNamespaceSchemaLocation" in the XML Schema instance namespace or in that of xmlns.
  bool IsNamespaceAttribute() const noexcept;
  /// Whether it is "nil" in one of these two namespaces.
  bool IsNilAttribute() const noexcept;

 private:
  friend class CXmlElement;
  friend struct detail::CNodeAccess;
  friend class TInstanceCounted<CXmlAttribute>;
  static CInstanceCounter s_instances;

  CXmlAttribute(const CXmlElement* element, const detail::CXmlName* name, std::string_view value)
      : m_element(element), m_name(name), m_value(value) {}
  ~CXmlAttribute() = default;

  const CXmlElement* m_element;
  const detail::CXmlName* m_name;
  std::string m_value;
};

/// The attributes of one element in document order. A view: valid until the element gets another
/// attribute or is destroyed.
class CXmlAttributeList {
 public:
  using value_type = CXmlAttribute*;
  using const_iterator = CXmlAttribute* const*;

  CXmlAttributeList(const_iterator first, size_t count) noexcept : m_first(first), m_count(count) {}

  const_iterator begin() const noexcept { return m_first; }
  const_iterator end() const noexcept { return m_first + m_count; }
  size_t size() const noexcept { return m_count; }
  bool empty() const noexcept { return m_count == 0; }
  /// `index` counts from 0 and must be below size().
  CXmlAttribute* operator[](size_t index) const noexcept { return m_first[index]; }

  /// For code that keeps the pointers in a vector of its own.
  operator std::vector<CXmlAttribute*>() const { return {begin(), end()}; }

 private:
  const_iterator m_first;
  size_t m_count;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_XML_ATTRIBUTE_H_
