// The namespace bindings in force while a document is written.

#ifndef QVXML_XML_NAMESPACE_SCOPES_INTERNAL_H_
#define QVXML_XML_NAMESPACE_SCOPES_INTERNAL_H_

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace QvXmlLib16::detail {

/// One map from namespace URI to prefix, and the list of changes that takes it back to what was in
/// force outside an element. No element copies the map, however many bind something, so that memory
/// is linear in what is bound.
class CNamespaceScopes {
 public:
  using Map = std::map<std::string, std::string>;

  CNamespaceScopes() = default;
  CNamespaceScopes(const CNamespaceScopes&) = delete;
  CNamespaceScopes& operator=(const CNamespaceScopes&) = delete;

  /// Begins a document with these bindings; forgets all others.
  void Reset(const Map& bindings);

  /// A point to return to.
  size_t GetMark() const noexcept { return m_changes.size(); }
  /// Undoes every Bind() since the mark was taken.
  void ReturnTo(size_t mark) noexcept {
    while (m_changes.size() > mark) UndoLast();
  }

  /// The prefix of the namespace, or null when none, or an empty one, is bound. The XML namespace
  /// has the prefix xml unless another is bound. The address serves while the binding is in force.
  const std::string* Find(const std::string& namespaceUri) {
    for (const Map::value_type* recent : m_recent) {
      if (recent != nullptr && recent->first == namespaceUri) return &recent->second;
    }
    return FindInMap(namespaceUri);
  }
  /// Binds the namespace to the prefix, replacing an earlier one, and returns the prefix's address.
  const std::string* Bind(const std::string& namespaceUri, const std::string& prefix);

  const Map& GetMap() const noexcept { return m_map; }
  /// The first generated prefix that no namespace is bound to.
  std::string MakeUniquePrefix();

 private:
  struct Change {
    Map::iterator binding;
    bool isNew;
    size_t firstCandidate;
    std::string earlierPrefix;
  };

  const std::string* FindInMap(const std::string& namespaceUri);
  Map::iterator Insert(const std::string& namespaceUri, const std::string& prefix);
  void UndoLast() noexcept;
  void ForgetRecent() noexcept { m_recent[0] = m_recent[1] = nullptr; }

  Map m_map;
  std::vector<Change> m_changes;
  // Nodes of undone bindings, for reuse with the memory of their strings.
  std::vector<Map::node_type> m_spareNodes;
  // The bindings found last: the namespaces of elements and of their attributes alternate.
  const Map::value_type* m_recent[2] = {nullptr, nullptr};
  // How many namespaces are bound to each prefix, and a number below which every generated prefix
  // is bound. Entries stay when their count falls to 0.
  std::unordered_map<std::string, size_t> m_prefixUses;
  size_t m_firstCandidate = 0;
};

/// The prefix generated for a number: AA to ZZ, from 676 on AAA to ZZZ, and so on.
std::string GeneratedPrefix(size_t number);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_NAMESPACE_SCOPES_INTERNAL_H_
