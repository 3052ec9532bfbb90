// The tree of a document and its building; loading is in binding/document_loading.cpp.

#include "qvxml/xml/xml_document.h"

#include <string_view>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/xml/dom_text_internal.h"
#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/xml_building_internal.h"

namespace QvXmlLib16 {

using detail::CNodeArena;
using detail::EmptyString;
using detail::ViewOf;

constinit CInstanceCounter CXmlDocument::s_instances("CXmlDocument");

CXmlDocument::~CXmlDocument() { Release(); }

void CXmlDocument::Cleanup() { Release(); }

void CXmlDocument::Release() noexcept {
  m_openElements.clear();
  if (m_arena != nullptr && m_arena->IsRegular()) {
    m_documentElement = nullptr;
    CXmlElement::DestroyRegularTree(*std::exchange(m_arena, nullptr));
  }
  delete std::exchange(m_documentElement, nullptr);
  if (m_arena != nullptr) std::exchange(m_arena, nullptr)->Abandon();
  m_namespaceByPrefix.clear();
  m_prefixesByNamespace.clear();
  ClearInput();
  m_inputEncoding = nullptr;
}

void CXmlDocument::ClearInput() noexcept {
  m_input = nullptr;
  m_inputLength = 0;
  m_ownInput.Clear();
}

const std::string& CXmlDocument::LookupNamespaceFromAlias(const char* prefix) const {
  const auto found = m_namespaceByPrefix.find(ViewOf(prefix));
  return found != m_namespaceByPrefix.end() ? found->second : EmptyString();
}

const std::string& CXmlDocument::LookupAliasFromNamespace(const char* namespaceUri) const {
  const auto found = m_prefixesByNamespace.find(ViewOf(namespaceUri));
  return found != m_prefixesByNamespace.end() ? *found->second.begin() : EmptyString();
}

CNodeArena& CXmlDocument::Arena() {
  if (m_arena == nullptr) m_arena = new CNodeArena(this);
  return *m_arena;
}

void CXmlDocument::ThrowNoOpenElement() {
  throw CQvInvalidStateException("There is no open element.");
}

CXmlElement* CXmlDocument::AddDocElement(const char* namespaceUri, const char* localName) {
  return AddDocElement(Arena().Intern(ViewOf(namespaceUri), ViewOf(localName)));
}

CXmlElement* CXmlDocument::AddDocElement(const detail::CXmlName* name) {
  m_openElements.clear();
  m_openElements.reserve(1);
  delete std::exchange(m_documentElement, CXmlElement::Create(Arena(), nullptr, name));
  m_openElements.push_back(m_documentElement);
  return m_documentElement;
}

CXmlElement* CXmlDocument::AddChildElement(const char* namespaceUri, const char* localName) {
  return AddChildElement(Arena().Intern(ViewOf(namespaceUri), ViewOf(localName)));
}

void CXmlDocument::AddElementAttribute(CXmlElement* element, const char* localName,
                                       const char* namespaceUri, const char* value) {
  if (element == nullptr) ThrowNoOpenElement();
  element->AddAttribute(localName, namespaceUri, value);
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, const char* text,
                                         unsigned long length) {
  if (element == nullptr) ThrowNoOpenElement();
  if (text == nullptr || length == 0) return;
  std::string& target = element->OwnText(Arena());
  detail::AppendExcludingCR(target, text, length);
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, const char* text) {
  AppendTextExcludingCR(element, text, ViewOf(text).size());
}

void CXmlDocument::EndElement() {
  if (!m_openElements.empty()) CloseElement();
}

void CXmlDocument::OfferElement(CXmlElement* element) {
  // Kept: the document element stays, whatever the callback says.
  if (!m_callback(element) || m_openElements.empty()) return;
  // Looked for, as the callback may have removed it already or put others behind it.
  CXmlElement* child = m_openElements.back()->m_lastChild;
  while (child != nullptr && child != element) child = child->m_previousSibling;
  if (child == nullptr) return;
  child->Unlink();
  delete child;
}

void CXmlDocument::AddNamespacePrefix(const char* prefix, const char* namespaceUri) {
  const std::string_view uri = ViewOf(namespaceUri);
  auto binding = m_namespaceByPrefix.find(ViewOf(prefix));
  if (binding == m_namespaceByPrefix.end()) {
    binding = m_namespaceByPrefix.emplace(ViewOf(prefix), std::string()).first;
  } else if (binding->second == uri) {
    return;
  } else {
    UnbindPrefix(binding->first, binding->second);
  }
  m_prefixesByNamespace[std::string(uri)].insert(binding->first);
  binding->second = uri;
}

void CXmlDocument::UnbindPrefix(const std::string& prefix, const std::string& namespaceUri) {
  const auto prefixes = m_prefixesByNamespace.find(namespaceUri);
  if (prefixes == m_prefixesByNamespace.end()) return;
  prefixes->second.erase(prefix);
  if (prefixes->second.empty()) m_prefixesByNamespace.erase(prefixes);
}

}  // namespace QvXmlLib16
