// An element of a document that was read.

#ifndef QVXML_XML_XML_ELEMENT_H_
#define QVXML_XML_XML_ELEMENT_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/xml_attribute.h"

namespace QvXmlLib16 {

class CXmlDocument;  // xml/xml_document.h

namespace detail {
class CNodeArena;        // xml/node_arena_internal.h
struct CAttributeBlock;  // xml/xml_building_internal.h
struct CNodeAccess;      // xml/node_access_internal.h
namespace fi {
class CDecoder;  // fastinfoset/fi_decoder_internal.h
}
}  // namespace detail

/// A name, attributes, text and child elements. Comments and processing instructions are not kept,
/// nor where the text stood between the children.
///
/// Made by its document or its parent, which owns it. One that was removed from its parent belongs
/// to the caller, who deletes it, before or after the document is gone.
class QVXML_API CXmlElement : private TInstanceCounted<CXmlElement> {
 public:
  CXmlElement(const CXmlElement&) = delete;
  CXmlElement& operator=(const CXmlElement&) = delete;
  /// Destroys the children and attributes too, without recursion however deep they are nested. The
  /// element must not be part of a tree any more.
  ~CXmlElement();
  static void* operator new(size_t) = delete;
  // NOLINTNEXTLINE(misc-new-delete-overloads): the deleted one above is its counterpart.
  static void operator delete(void* element) noexcept;

  // Reading.

  /// Null for an element that outlived its document.
  const CXmlDocument* GetDocument() const noexcept;
  /// The first child, or null when there is none.
  CXmlElement* GetFirstElement() const noexcept { return m_firstChild; }
  /// The next child of the parent, or null after the last.
  CXmlElement* GetNextSiblingElement() const noexcept { return m_nextSibling; }
  const std::string& GetNamespaceURI() const noexcept;
  const std::string& GetLocalName() const noexcept;
  /// All character data of the element itself, concatenated, without carriage returns.
  const std::string& GetText() const noexcept { return *m_text; }
  CXmlAttributeList GetAttributes() const noexcept;
  /// Value of the first attribute of that name and namespace, or "" when there is none.
  const std::string& GetAttribute(const char* localName, const char* namespaceUri) const noexcept;

  // Names and paths for messages; they look at the siblings, so keep them for when one is needed.

  /// Prefix, ":" and local name; the local name alone when the document binds no prefix to the
  /// namespace, or the empty one.
  std::string GetQName() const;
  /// The QName and, when the parent has several children of that QName, the element's position
  /// among them, counted from 1, as "[2]".
  std::string GetNameWithPredicate() const;
  /// "/" and the name with predicate of each element from the document element down to this one.
  std::string GetXPath() const;

  // Building. Null text stands for "".

  /// Appends a child without name and text.
  CXmlElement* CreateNewChildElement();
  void SetElementName(const char* localName);
  void SetNamespace(const char* namespaceUri);
  /// `length` counts bytes; nothing is appended when it is below 1.
  void AppendText(const char* text, int length);
  void AppendText(const char* text);
  /// Appends an attribute, also when there is one of that name.
  void AddAttribute(const char* localName, const char* namespaceUri, const char* value);
  /// Unlinks the last child and hands it to the caller, who deletes it; null when there is none.
  CXmlElement* RemoveLastChildElement() noexcept;

 private:
  friend class CExpatReader;
  friend class CXmlDocument;
  friend struct detail::CNodeAccess;
  friend class detail::fi::CDecoder;
  friend class TInstanceCounted<CXmlElement>;
  static CInstanceCounter s_instances;

  CXmlElement(CXmlElement* parent, const detail::CXmlName* name, const std::string* text) noexcept
      : m_parent(parent), m_text(text), m_name(name) {}

  static CXmlElement* Create(detail::CNodeArena& arena, CXmlElement* parent,
                             const detail::CXmlName* name);
  CXmlElement* AppendChild(detail::CNodeArena& arena, const detail::CXmlName* name);
  static void DestroyRegularTree(detail::CNodeArena& arena) noexcept;
  void Unlink() noexcept;
  void DeleteChildren() noexcept;
  void DeleteAttributes(detail::CNodeArena& arena) noexcept;
  void ReserveAttributes(detail::CNodeArena& arena, size_t count);
  void AppendAttribute(detail::CNodeArena& arena, const detail::CXmlName* name,
                       std::string_view value);
  // For text that is complete in one piece, as whitespace between children then is shared.
  void AppendWholeText(detail::CNodeArena& arena, std::string_view text);
  std::string& SetOwnText(detail::CNodeArena& arena, std::string_view text);
  std::string& OwnText(detail::CNodeArena& arena);
  bool HasQName(std::string_view qName, const detail::CXmlName* name) const;
  const std::string& GetAlias() const;

  CXmlElement* m_parent;
  CXmlElement* m_previousSibling = nullptr;
  CXmlElement* m_nextSibling = nullptr;
  CXmlElement* m_firstChild = nullptr;
  CXmlElement* m_lastChild = nullptr;
  detail::CAttributeBlock* m_attributes = nullptr;
  // Either the element's own, in the arena, or one that the arena shares.
  const std::string* m_text;
  const detail::CXmlName* m_name;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_XML_ELEMENT_H_
