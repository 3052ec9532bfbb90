#include "qvxml/xml/xml_element.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>
#include <vector>

#include "qvxml/core/exception.h"
#include "qvxml/xml/dom_text_internal.h"
#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/xml_building_internal.h"
#include "qvxml/xml/xml_document.h"

namespace QvXmlLib16 {

using detail::CAttributeBlock;
using detail::CNodeArena;
using detail::EmptyString;
using detail::ViewOf;

constinit CInstanceCounter CXmlElement::s_instances("CXmlElement");

CXmlElement::~CXmlElement() {
  CNodeArena& arena = CNodeArena::Of(this);
  arena.SetIrregular();
  DeleteChildren();
  DeleteAttributes(arena);
  if (!arena.IsSharedText(m_text)) {
    std::destroy_at(m_text);
    arena.Free(const_cast<std::string*>(m_text), sizeof(std::string));
  }
}

// NOLINTNEXTLINE(misc-new-delete-overloads): as in the header.
void CXmlElement::operator delete(void* element) noexcept {
  CNodeArena::Of(element).FreeElement(element, sizeof(CXmlElement));
}

// The children of each element come to stand in the element's place in one list, so the depth of
// the tree costs no stack.
void CXmlElement::DeleteChildren() noexcept {
  CXmlElement* list = std::exchange(m_firstChild, nullptr);
  m_lastChild = nullptr;
  while (list != nullptr) {
    CXmlElement* element = list;
    list = element->m_nextSibling;
    if (element->m_firstChild != nullptr) {
      element->m_lastChild->m_nextSibling = list;
      list = std::exchange(element->m_firstChild, nullptr);
    }
    delete element;
  }
}

void CXmlElement::DeleteAttributes(CNodeArena& arena) noexcept {
  if (m_attributes == nullptr) return;
  for (CXmlAttribute* attribute : GetAttributes()) {
    attribute->~CXmlAttribute();
    arena.Free(attribute, sizeof(CXmlAttribute));
  }
  arena.Free(m_attributes, CAttributeBlock::Bytes(m_attributes->capacity));
}

const CXmlDocument* CXmlElement::GetDocument() const noexcept {
  return CNodeArena::Of(this).GetDocument();
}

const std::string& CXmlElement::GetNamespaceURI() const noexcept { return *m_name->namespaceUri; }

const std::string& CXmlElement::GetLocalName() const noexcept { return m_name->localName; }

CXmlAttributeList CXmlElement::GetAttributes() const noexcept {
  if (m_attributes == nullptr) return {nullptr, 0};
  return {m_attributes->Items(), m_attributes->size};
}

const std::string& CXmlElement::GetAttribute(const char* localName,
                                             const char* namespaceUri) const noexcept {
  for (const CXmlAttribute* attribute : GetAttributes()) {
    if (attribute->GetLocalName() == ViewOf(localName) &&
        attribute->GetNamespaceURI() == ViewOf(namespaceUri)) {
      return attribute->GetValue();
    }
  }
  return EmptyString();
}

const std::string& CXmlElement::GetAlias() const {
  const CXmlDocument* document = GetDocument();
  if (document == nullptr || GetNamespaceURI().empty()) return EmptyString();
  return document->LookupAliasFromNamespace(GetNamespaceURI().c_str());
}

std::string CXmlElement::GetQName() const {
  const std::string& alias = GetAlias();
  return alias.empty() ? GetLocalName() : alias + ":" + GetLocalName();
}

bool CXmlElement::HasQName(std::string_view qName, const detail::CXmlName* name) const {
  if (m_name == name) return true;
  // Most siblings of another name are told apart without looking for their prefix.
  const std::string_view localName = GetLocalName();
  return qName.size() >= localName.size() &&
         qName.substr(qName.size() - localName.size()) == localName && GetQName() == qName;
}

std::string CXmlElement::GetNameWithPredicate() const {
  std::string name = GetQName();
  if (m_parent == nullptr) return name;
  size_t position = 0;
  size_t count = 0;
  for (const CXmlElement* sibling = m_parent->m_firstChild; sibling != nullptr;
       sibling = sibling->m_nextSibling) {
    if (sibling->HasQName(name, m_name)) ++count;
    if (sibling == this) position = count;
    // One after this element is enough to know that there are several.
    if (position != 0 && count > 1) break;
  }
  if (count > 1) name += "[" + std::to_string(position) + "]";
  return name;
}

std::string CXmlElement::GetXPath() const {
  std::vector<const CXmlElement*> ancestors;
  for (const CXmlElement* element = this; element != nullptr; element = element->m_parent) {
    ancestors.push_back(element);
  }
  std::string path;
  for (auto element = ancestors.rbegin(); element != ancestors.rend(); ++element) {
    path += "/" + (*element)->GetNameWithPredicate();
  }
  return path;
}

CXmlElement* CXmlElement::CreateNewChildElement() {
  CNodeArena& arena = CNodeArena::Of(this);
  return AppendChild(arena, arena.Intern("", ""));
}

void CXmlElement::SetElementName(const char* localName) {
  m_name = CNodeArena::Of(this).Intern(GetNamespaceURI(), ViewOf(localName));
}

void CXmlElement::SetNamespace(const char* namespaceUri) {
  m_name = CNodeArena::Of(this).Intern(ViewOf(namespaceUri), GetLocalName());
}

void CXmlElement::AppendText(const char* text, int length) {
  if (text == nullptr || length < 1) return;
  OwnText(CNodeArena::Of(this)).append(text, static_cast<size_t>(length));
}

void CXmlElement::AppendText(const char* text) {
  if (text == nullptr || *text == '\0') return;
  OwnText(CNodeArena::Of(this)).append(text);
}

void CXmlElement::ReserveAttributes(CNodeArena& arena, size_t count) {
  if (m_attributes != nullptr && count <= m_attributes->capacity) return;
  if (count > std::numeric_limits<uint32_t>::max()) {
    throw CQvException("An element has too many attributes.");
  }
  auto* block = ::new (arena.Allocate(CAttributeBlock::Bytes(count)))
      CAttributeBlock{0, static_cast<uint32_t>(count)};
  if (m_attributes != nullptr) {
    std::copy_n(m_attributes->Items(), m_attributes->size, block->Items());
    block->size = m_attributes->size;
    arena.Free(m_attributes, CAttributeBlock::Bytes(m_attributes->capacity));
  }
  m_attributes = block;
}

void CXmlElement::AddAttribute(const char* localName, const char* namespaceUri, const char* value) {
  CNodeArena& arena = CNodeArena::Of(this);
  const detail::CXmlName* name = arena.Intern(ViewOf(namespaceUri), ViewOf(localName));
  if (const size_t size = GetAttributes().size();
      m_attributes == nullptr || size == m_attributes->capacity) {
    ReserveAttributes(arena, 2 * size + 1);
  }
  AppendAttribute(arena, name, ViewOf(value));
}

void CXmlElement::DestroyRegularTree(CNodeArena& arena) noexcept {
  s_instances.Remove(static_cast<long>(arena.GetLiveElements()));
  CXmlAttribute::s_instances.Remove(static_cast<long>(arena.GetAttributes()));
  arena.DestroyAll();
}

void CXmlElement::Unlink() noexcept {
  CNodeArena::Of(this).SetIrregular();
  (m_previousSibling != nullptr ? m_previousSibling->m_nextSibling : m_parent->m_firstChild) =
      m_nextSibling;
  (m_nextSibling != nullptr ? m_nextSibling->m_previousSibling : m_parent->m_lastChild) =
      m_previousSibling;
  m_parent = m_previousSibling = m_nextSibling = nullptr;
}

CXmlElement* CXmlElement::RemoveLastChildElement() noexcept {
  CXmlElement* child = m_lastChild;
  if (child != nullptr) child->Unlink();
  return child;
}

}  // namespace QvXmlLib16
