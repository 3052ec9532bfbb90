#include <utility>

#include "qvxml/xml/namespace_scopes_internal.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16::detail {

void CNamespaceScopes::Reset(const Map& bindings) {
  ForgetRecent();
  m_changes.clear();
  m_prefixUses.clear();
  m_firstCandidate = 0;
  m_map = bindings;
  for (const auto& binding : m_map) ++m_prefixUses[binding.second];
}

const std::string* CNamespaceScopes::FindInMap(const std::string& namespaceUri) {
  static const std::string& s_xmlPrefix = *new std::string("xml");
  const auto binding = m_map.find(namespaceUri);
  if (binding == m_map.end()) {
    return namespaceUri == CXmlWriter::XML_NAMESPACE ? &s_xmlPrefix : nullptr;
  }
  if (binding->second.empty()) return nullptr;
  m_recent[1] = std::exchange(m_recent[0], &*binding);
  return &binding->second;
}

const std::string* CNamespaceScopes::Bind(const std::string& namespaceUri,
                                          const std::string& prefix) {
  size_t& uses = m_prefixUses[prefix];
  auto binding = m_map.find(namespaceUri);
  if (binding == m_map.end()) {
    // Entered first, so that a failure of Insert leaves at most a change without effect.
    m_changes.push_back(Change{m_map.end(), true, m_firstCandidate, std::string()});
    binding = Insert(namespaceUri, prefix);
    m_changes.back().binding = binding;
    ++uses;
  } else if (binding->second != prefix) {
    std::string newPrefix = prefix;
    m_changes.push_back(Change{binding, false, m_firstCandidate, binding->second});
    --m_prefixUses[binding->second];
    binding->second.swap(newPrefix);
    ++uses;
    m_firstCandidate = 0;
    ForgetRecent();
  }
  return &binding->second;
}

std::string CNamespaceScopes::MakeUniquePrefix() {
  for (;; ++m_firstCandidate) {
    std::string prefix = GeneratedPrefix(m_firstCandidate);
    const auto uses = m_prefixUses.find(prefix);
    if (uses == m_prefixUses.end() || uses->second == 0) return prefix;
  }
}

CNamespaceScopes::Map::iterator CNamespaceScopes::Insert(const std::string& namespaceUri,
                                                         const std::string& prefix) {
  constexpr size_t kMaxSpareNodes = 16;
  if (m_spareNodes.empty()) {
    m_spareNodes.reserve(kMaxSpareNodes);
    return m_map.emplace(namespaceUri, prefix).first;
  }
  Map::node_type node = std::move(m_spareNodes.back());
  m_spareNodes.pop_back();
  node.key() = namespaceUri;
  node.mapped() = prefix;
  return m_map.insert(std::move(node)).position;
}

void CNamespaceScopes::UndoLast() noexcept {
  Change& change = m_changes.back();
  if (change.binding != m_map.end()) {
    // Every prefix ever bound has an entry, so nothing is allocated here.
    --m_prefixUses.find(change.binding->second)->second;
    ForgetRecent();
    if (!change.isNew) {
      ++m_prefixUses.find(change.earlierPrefix)->second;
      change.binding->second.swap(change.earlierPrefix);
    } else if (m_spareNodes.size() < m_spareNodes.capacity()) {
      m_spareNodes.push_back(m_map.extract(change.binding));
    } else {
      m_map.erase(change.binding);
    }
  }
  m_firstCandidate = change.firstCandidate;
  m_changes.pop_back();
}

std::string GeneratedPrefix(size_t number) {
  constexpr size_t kLetters = 26;
  size_t length = 2;
  for (size_t count = kLetters * kLetters; number >= count; count *= kLetters, ++length) {
    number -= count;
  }
  std::string prefix(length, 'A');
  for (size_t i = length; number != 0; number /= kLetters) {
    prefix[--i] = static_cast<char>('A' + number % kLetters);
  }
  return prefix;
}

}  // namespace QvXmlLib16::detail
