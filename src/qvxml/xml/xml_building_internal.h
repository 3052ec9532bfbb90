// The building steps of documents and elements that are taken for each node, to be inlined in
// readers.

#ifndef QVXML_XML_XML_BUILDING_INTERNAL_H_
#define QVXML_XML_XML_BUILDING_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>

#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/xml_document.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

namespace detail {

// Followed by room for `capacity` pointers.
struct CAttributeBlock {
  uint32_t size;
  uint32_t capacity;

  CXmlAttribute** Items() noexcept { return reinterpret_cast<CXmlAttribute**>(this + 1); }
  static size_t Bytes(size_t capacity) {
    // It is the pointers that are stored. NOLINTNEXTLINE(bugprone-sizeof-expression)
    return sizeof(CAttributeBlock) + capacity * sizeof(CXmlAttribute*);
  }
};

}  // namespace detail

inline CXmlElement* CXmlElement::Create(detail::CNodeArena& arena, CXmlElement* parent,
                                        const detail::CXmlName* name) {
  static_assert(sizeof(CXmlElement) == 64);
  return ::new (arena.AllocateElement(sizeof(CXmlElement)))
      CXmlElement(parent, name, arena.EmptyText());
}

inline CXmlElement* CXmlElement::AppendChild(detail::CNodeArena& arena,
                                             const detail::CXmlName* name) {
  CXmlElement* child = Create(arena, this, name);
  child->m_previousSibling = m_lastChild;
  (m_lastChild != nullptr ? m_lastChild->m_nextSibling : m_firstChild) = child;
  return m_lastChild = child;
}

// Makes the element the owner of a text of its own; an earlier one must not be.
inline std::string& CXmlElement::SetOwnText(detail::CNodeArena& arena, std::string_view text) {
  std::string* own = ::new (arena.Allocate(sizeof(std::string))) std::string(text);
  m_text = own;
  arena.NoteText(own);
  return *own;
}

// For text that changes.
inline std::string& CXmlElement::OwnText(detail::CNodeArena& arena) {
  arena.SetIrregular();
  if (arena.IsSharedText(m_text)) return SetOwnText(arena, *m_text);
  return const_cast<std::string&>(*m_text);
}

inline void CXmlElement::AppendWholeText(detail::CNodeArena& arena, std::string_view text) {
  if (text.empty()) return;
  if (m_text != arena.EmptyText()) {
    OwnText(arena).append(text);
  } else if (const std::string* shared = arena.FindSharedText(text); shared != nullptr) {
    m_text = shared;
  } else {
    SetOwnText(arena, text);
  }
}

// There must be room.
inline void CXmlElement::AppendAttribute(detail::CNodeArena& arena, const detail::CXmlName* name,
                                         std::string_view value) {
  void* memory = arena.Allocate(sizeof(CXmlAttribute));
  CXmlAttribute* attribute = ::new (memory) CXmlAttribute(this, name, value);
  m_attributes->Items()[m_attributes->size++] = attribute;
  arena.NoteAttribute();
  arena.NoteText(&attribute->m_value);
}

inline CXmlElement* CXmlDocument::AddChildElement(const detail::CXmlName* name) {
  if (m_openElements.empty()) ThrowNoOpenElement();
  CXmlElement* child = m_openElements.back()->AppendChild(*m_arena, name);
  m_openElements.push_back(child);
  return child;
}

// There must be an open element.
inline void CXmlDocument::CloseElement() {
  CXmlElement* element = m_openElements.back();
  m_openElements.pop_back();
  if (m_callback != nullptr) OfferElement(element);
}

}  // namespace QvXmlLib16

#endif  // QVXML_XML_XML_BUILDING_INTERNAL_H_
