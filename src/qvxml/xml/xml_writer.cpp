#include "qvxml/xml/xml_writer.h"

#include <set>
#include <string_view>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/xml/namespace_scopes_internal.h"
#include "qvxml/xml/short_copy.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CXmlWriter::CXmlWriterContext::s_instances("CXmlWriterContext");

namespace {

// What stands for no prefix: because none is needed, and because none is bound.
struct EmptyPrefixes {
  std::string notNeeded;
  std::string unknown;
};
const EmptyPrefixes& GetEmptyPrefixes() {
  static const EmptyPrefixes& s_prefixes = *new EmptyPrefixes();
  return s_prefixes;
}
const std::string& NoPrefix() { return GetEmptyPrefixes().notNeeded; }
const std::string& UnknownPrefix() { return GetEmptyPrefixes().unknown; }

}  // namespace

CXmlWriter::CXmlWriter(const char* instanceName)
    : m_scopes(std::make_unique<detail::CNamespaceScopes>()), m_instance(instanceName) {}

CXmlWriter::~CXmlWriter() {
  while (m_context != nullptr) PopContext();
  while (m_spareContexts != nullptr) {
    delete std::exchange(m_spareContexts, m_spareContexts->m_parent);
  }
}

void CXmlWriter::Open() {}

void CXmlWriter::Close() {
  if (m_context != nullptr) throw CQvException("An Element has not been closed.");
}

void CXmlWriter::SetDefaultNamespace(const std::string& namespaceUri) {
  if (m_context != nullptr) {
    m_context->SetDefaultNamespace(namespaceUri);
  } else {
    m_defaultNamespace = namespaceUri;
  }
}

void CXmlWriter::AddNamespace(const std::string& prefix, const std::string& namespaceUri) {
  if (m_context != nullptr) {
    m_context->SetNamespaceMapValue(namespaceUri, prefix);
  } else {
    m_namespaceMap[namespaceUri] = prefix;
  }
}

void CXmlWriter::SetContextState(ContextState state) {
  if (m_context != nullptr) m_context->SetState(state);
}

void CXmlWriter::WriteTextElement(const std::string& localName, const std::string& namespaceUri,
                                  std::string_view text, ItemType type, bool isDefaultValue) {
  // Taken while it is in use, as a format's operations may come back here.
  std::string room = std::move(m_textRoom);
  room.assign(text);
  WriteStartElement(localName, namespaceUri);
  WriteString(room, type, isDefaultValue);
  WriteEndElement();
  m_textRoom = std::move(room);
}

void CXmlWriter::WriteTextAttribute(const std::string& localName, const std::string& namespaceUri,
                                    std::string_view value, ItemType type) {
  std::string room = std::move(m_textRoom);
  room.assign(value);
  WriteAttributeString(localName, namespaceUri, room, type);
  m_textRoom = std::move(room);
}

std::string CXmlWriter::GetUniquePrefix(const NamespaceMap& namespaces) {
  std::set<std::string_view> used;
  for (const auto& binding : namespaces) used.insert(binding.second);
  for (size_t number = 0;; ++number) {
    std::string prefix = detail::GeneratedPrefix(number);
    if (used.count(prefix) == 0) return prefix;
  }
}

std::string CXmlWriter::NsIntToString(int number) {
  return detail::GeneratedPrefix(number > 0 ? static_cast<size_t>(number) : 0);
}

CXmlWriter::CXmlWriterContext& CXmlWriter::GetOpenContext() const {
  if (m_context == nullptr) throw CQvException("An Element has not been opened.");
  return *m_context;
}

CXmlWriter::CXmlWriterContext& CXmlWriter::PushContext(const std::string& localName,
                                                       const std::string& namespaceUri,
                                                       unsigned long rootDepth) {
  if (m_spareContexts == nullptr) m_spareContexts = new CXmlWriterContext(*m_scopes);
  CXmlWriterContext& spare = *m_spareContexts;
  // Elements at the same depth often have the same name.
  if (!detail::IsSameText(spare.m_localName, localName)) spare.m_localName = localName;
  if (m_context != nullptr && detail::IsSameText(*m_context->m_namespaceUri, namespaceUri)) {
    spare.m_namespaceUri = m_context->m_namespaceUri;
    // With the namespace the prefix is the same, once that was looked up.
    const std::string* const prefix = m_context->m_prefix;
    CXmlWriterContext& context = OpenSpareContext(rootDepth);
    context.m_prefix = prefix;
    return context;
  }
  if (!detail::IsSameText(spare.m_ownNamespaceUri, namespaceUri)) {
    spare.m_ownNamespaceUri = namespaceUri;
  }
  spare.m_namespaceUri = &spare.m_ownNamespaceUri;
  return OpenSpareContext(rootDepth);
}

CXmlWriter::CXmlWriterContext& CXmlWriter::PushContext(unsigned long rootDepth) {
  if (m_spareContexts == nullptr) m_spareContexts = new CXmlWriterContext(*m_scopes);
  m_spareContexts->m_localName.clear();
  m_spareContexts->m_ownNamespaceUri.clear();
  m_spareContexts->m_namespaceUri = &m_spareContexts->m_ownNamespaceUri;
  return OpenSpareContext(rootDepth);
}

CXmlWriter::CXmlWriterContext& CXmlWriter::OpenSpareContext(unsigned long rootDepth) {
  CXmlWriterContext& context = *m_spareContexts;
  if (m_context != nullptr) {
    context.m_depth = m_context->m_depth + 1;
    context.m_defaultNamespace = m_context->m_defaultNamespace;
  } else {
    m_scopes->Reset(m_namespaceMap);
    context.SetDefaultNamespace(m_defaultNamespace);
    context.m_depth = rootDepth;
  }
  context.m_prefix = nullptr;
  context.m_childCount = 0;
  context.m_isStartTagOpen = false;
  context.m_state = ContextState_None;
  context.m_scopeMark = m_scopes->GetMark();
  m_spareContexts = std::exchange(context.m_parent, m_context);
  m_context = &context;
  return context;
}

void CXmlWriter::PopContext() noexcept {
  if (m_context == nullptr) return;
  CXmlWriterContext& context = *m_context;
  m_scopes->ReturnTo(context.m_scopeMark);
  m_context = std::exchange(context.m_parent, m_spareContexts);
  m_spareContexts = &context;
}

bool CXmlWriter::IsDeclarable(const NamespaceMap::value_type& binding) noexcept {
  constexpr std::string_view kXmlNamespace = XML_NAMESPACE;
  return !binding.second.empty() &&
         binding.first.compare(0, kXmlNamespace.size(), kXmlNamespace) != 0;
}

const std::string& CXmlWriter::GetXsiNamespace() {
  static const std::string& s_uri = *new std::string("http://www.w3.org/2001/XMLSchema-instance");
  return s_uri;
}

const char* CXmlWriter::GetEOLText(EOLType type) {
  switch (type) {
    case EOL_CRLF:
      return "\r\n";
    case EOL_LF:
      return "\n";
  }
  throw CQvException("Invalid EOL type.");
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(const std::string& namespaceUri) {
  m_ownDefaultNamespace = namespaceUri;
  m_defaultNamespace = &m_ownDefaultNamespace;
  m_prefix = nullptr;
}

const CXmlWriter::NamespaceMap& CXmlWriter::CXmlWriterContext::GetNamespaceMap() const noexcept {
  return m_scopes.GetMap();
}

const std::string& CXmlWriter::CXmlWriterContext::GetNamespaceMapValue(
    const std::string& namespaceUri) const {
  const std::string* const prefix = m_scopes.Find(namespaceUri);
  return prefix != nullptr ? *prefix : UnknownPrefix();
}

void CXmlWriter::CXmlWriterContext::SetNamespaceMapValue(const std::string& namespaceUri,
                                                         const std::string& prefix) {
  m_scopes.Bind(namespaceUri, prefix);
  m_prefix = nullptr;
}

std::string CXmlWriter::CXmlWriterContext::GetUniquePrefix() const {
  return m_scopes.MakeUniquePrefix();
}

const std::string* CXmlWriter::CXmlWriterContext::FindPrefixWithin(
    const std::string& namespaceUri) const {
  // Most often the namespace is that of this element.
  const std::string* const prefix = detail::IsSameText(namespaceUri, *m_namespaceUri) ? &GetPrefix()
                                    : IsUnprefixed(namespaceUri)
                                        ? &NoPrefix()
                                        : &GetNamespaceMapValue(namespaceUri);
  return prefix == &UnknownPrefix() ? nullptr : prefix;
}

const std::string* CXmlWriter::CXmlWriterContext::FindPrefix() const {
  return IsUnprefixed(*m_namespaceUri) ? &NoPrefix() : &GetNamespaceMapValue(*m_namespaceUri);
}

}  // namespace QvXmlLib16
