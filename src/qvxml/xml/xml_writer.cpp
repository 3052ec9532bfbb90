#include "qvxml/xml/xml_writer.h"

#include <set>
#include <string_view>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/xml/namespace_scopes_internal.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CXmlWriter::CXmlWriterContext::s_instances("CXmlWriterContext");

namespace {

const std::string& NoPrefix() {
  static const std::string& s_none = *new std::string();
  return s_none;
}

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
  spare.m_localName = localName;
  spare.m_namespaceUri = namespaceUri;
  CXmlWriterContext& context = OpenSpareContext(rootDepth);
  // Most often the namespace is the one around it, and with it the prefix, once that was looked up.
  if (context.m_parent != nullptr && context.m_parent->m_namespaceUri == namespaceUri) {
    context.m_prefix = context.m_parent->m_prefix;
  }
  return context;
}

CXmlWriter::CXmlWriterContext& CXmlWriter::PushContext(unsigned long rootDepth) {
  if (m_spareContexts == nullptr) m_spareContexts = new CXmlWriterContext(*m_scopes);
  m_spareContexts->m_localName.clear();
  m_spareContexts->m_namespaceUri.clear();
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
  return prefix != nullptr ? *prefix : NoPrefix();
}

void CXmlWriter::CXmlWriterContext::SetNamespaceMapValue(const std::string& namespaceUri,
                                                         const std::string& prefix) {
  m_scopes.Bind(namespaceUri, prefix);
  m_prefix = nullptr;
}

std::string CXmlWriter::CXmlWriterContext::GetUniquePrefix() const {
  return m_scopes.MakeUniquePrefix();
}

const std::string* CXmlWriter::CXmlWriterContext::FindPrefix() const {
  return IsUnprefixed(m_namespaceUri) ? &NoPrefix() : &GetNamespaceMapValue(m_namespaceUri);
}

}  // namespace QvXmlLib16
