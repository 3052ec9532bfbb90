// What nodes hold, for code that looks at many of them.

#ifndef QVXML_XML_NODE_ACCESS_INTERNAL_H_
#define QVXML_XML_NODE_ACCESS_INTERNAL_H_

#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/xml_attribute.h"
#include "qvxml/xml/xml_building_internal.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16::detail {

struct CNodeAccess {
  static const CXmlName& NameOf(const CXmlElement& element) noexcept { return *element.m_name; }
  static const CXmlName& NameOf(const CXmlAttribute& attribute) noexcept {
    return *attribute.m_name;
  }
  /// As CNodeArena::SetExpendable, for the document of the element.
  static void SetExpendable(const CXmlElement& element) noexcept {
    CNodeArena::Of(&element).SetExpendable();
  }
  /// Whether the element's text may be moved out.
  static bool IsTextExpendable(const CXmlElement& element) noexcept {
    const CNodeArena& arena = CNodeArena::Of(&element);
    return arena.IsExpendable() && !arena.IsSharedText(element.m_text);
  }
  static CXmlAttributeList AttributesOf(const CXmlElement& element) noexcept {
    CAttributeBlock* const block = element.m_attributes;
    return block != nullptr ? CXmlAttributeList(block->Items(), block->size)
                            : CXmlAttributeList(nullptr, 0);
  }
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_NODE_ACCESS_INTERNAL_H_
