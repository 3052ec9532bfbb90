// The prefixes that a caller wants for namespaces.

#ifndef QVXML_XML_NAMESPACE_ALIAS_MAP_H_
#define QVXML_XML_NAMESPACE_ALIAS_MAP_H_

#include <map>
#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// Namespace URIs, each with one alias, in ascending byte order of the URIs. Several namespaces may
/// have the same alias. A null pointer stands for "".
class QVXML_API CNamespaceAliasMap : private TInstanceCounted<CNamespaceAliasMap> {
 public:
  using const_iterator = std::map<std::string, std::string>::const_iterator;

  CNamespaceAliasMap() = default;
  CNamespaceAliasMap(const CNamespaceAliasMap&) = default;
  CNamespaceAliasMap& operator=(const CNamespaceAliasMap&) = default;
  virtual ~CNamespaceAliasMap();

  /// Sets the alias of the namespace, replacing an earlier one.
  void Add(const char* alias, const char* namespaceUri);
  /// Does nothing when the namespace is not in the map.
  void RemoveNamespace(const char* namespaceUri);

  /// The alias of the namespace. An unknown namespace is entered with the alias "", although the
  /// map is const: do not look one up while another thread uses the map. Valid until the namespace
  /// is removed or gets another alias.
  const std::string& GetAliasFromNamespace(const char* namespaceUri) const;
  /// The first namespace with that alias. Throws CQvException "Namespace alias [%s] not found".
  const std::string& GetNamespaceFromAlias(const char* alias) const;
  bool DoesNamespaceExist(const char* namespaceUri) const;
  bool DoesAliasExist(const char* alias) const;

  int GetNamespaceCount() const noexcept;
  /// The namespace at a 0-based position; walks to it, so iterate to visit all. Throws
  /// CQvInvalidParamException "Index %d is out of range, use 0 - %d".
  const std::string& GetNamespaceAt(int index) const;

  /// Pairs of namespace (first) and alias (second), in order.
  const_iterator begin() const noexcept { return m_aliases.begin(); }
  const_iterator end() const noexcept { return m_aliases.end(); }

 private:
  friend class TInstanceCounted<CNamespaceAliasMap>;
  static CInstanceCounter s_instances;

  const_iterator FindAlias(const char* alias) const;

  mutable std::map<std::string, std::string> m_aliases;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_NAMESPACE_ALIAS_MAP_H_
