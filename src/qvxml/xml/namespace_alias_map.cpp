#include "qvxml/xml/namespace_alias_map.h"

#include <algorithm>
#include <iterator>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CNamespaceAliasMap::s_instances("CNamespaceAliasMap");

namespace {

const char* TextOf(const char* text) { return text != nullptr ? text : ""; }

}  // namespace

CNamespaceAliasMap::~CNamespaceAliasMap() = default;

void CNamespaceAliasMap::Add(const char* alias, const char* namespaceUri) {
  m_aliases[TextOf(namespaceUri)] = TextOf(alias);
}

void CNamespaceAliasMap::RemoveNamespace(const char* namespaceUri) {
  m_aliases.erase(TextOf(namespaceUri));
}

const std::string& CNamespaceAliasMap::GetAliasFromNamespace(const char* namespaceUri) const {
  // Kept: a lookup enters what it does not find.
  return m_aliases[TextOf(namespaceUri)];
}

const std::string& CNamespaceAliasMap::GetNamespaceFromAlias(const char* alias) const {
  const auto entry = FindAlias(alias);
  if (entry == m_aliases.end()) {
    throw CQvException(FormatString("Namespace alias [%s] not found", TextOf(alias)));
  }
  return entry->first;
}

bool CNamespaceAliasMap::DoesNamespaceExist(const char* namespaceUri) const {
  return m_aliases.count(TextOf(namespaceUri)) != 0;
}

bool CNamespaceAliasMap::DoesAliasExist(const char* alias) const {
  return FindAlias(alias) != m_aliases.end();
}

int CNamespaceAliasMap::GetNamespaceCount() const noexcept {
  return static_cast<int>(m_aliases.size());
}

const std::string& CNamespaceAliasMap::GetNamespaceAt(int index) const {
  if (index < 0 || index >= GetNamespaceCount()) {
    throw CQvInvalidParamException(
        FormatString("Index %d is out of range, use 0 - %d", index, GetNamespaceCount() - 1));
  }
  return std::next(m_aliases.begin(), index)->first;
}

CNamespaceAliasMap::const_iterator CNamespaceAliasMap::FindAlias(const char* alias) const {
  return std::find_if(m_aliases.cbegin(), m_aliases.cend(),
                      [alias](const auto& entry) { return entry.second == TextOf(alias); });
}

}  // namespace QvXmlLib16
