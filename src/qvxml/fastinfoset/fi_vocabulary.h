// The tables of strings and names that a Fast Infoset document refers to by index.

#ifndef QVXML_FASTINFOSET_FI_VOCABULARY_H_
#define QVXML_FASTINFOSET_FI_VOCABULARY_H_

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

class CFIVocabulary;

namespace detail {

/// One table: its entries in order, and where each was added first.
template <class TEntry, class THash>
class TFITable {
 public:
  using const_iterator = typename std::vector<TEntry>::const_iterator;

  /// Entry n stands at begin()[n - 1].
  const_iterator begin() const noexcept { return m_entries.begin(); }
  const_iterator end() const noexcept { return m_entries.end(); }
  size_t GetCount() const noexcept { return m_entries.size(); }

 private:
  friend class QvXmlLib16::CFIVocabulary;

  static constexpr size_t kMaxEntries = 1048576;

  // To both or, when memory is short, to none: a count that differs would shift all later indices.
  void Add(const TEntry& entry) {
    const size_t count = m_entries.size();
    AddValueToVector(entry);
    try {
      AddValueToMap(entry);
    } catch (...) {
      if (m_entries.size() != count) m_entries.pop_back();
      throw;
    }
  }
  // An entry that is there keeps its index.
  void AddValueToMap(const TEntry& entry) {
    if (m_indices.size() >= kMaxEntries) return;
    m_indices.try_emplace(entry, static_cast<unsigned>(m_indices.size() + 1));
  }
  void AddValueToVector(const TEntry& entry) {
    if (m_entries.size() < kMaxEntries) m_entries.push_back(entry);
  }
  bool FindIndex(const TEntry& entry, unsigned& index) const {
    const auto found = m_indices.find(entry);
    if (found == m_indices.end()) return false;
    index = found->second;
    return true;
  }

  std::unordered_map<TEntry, unsigned, THash> m_indices;
  std::vector<TEntry> m_entries;
};

}  // namespace detail

/// The tables of ITU-T X.891 that writer and reader of a document keep in step.
///
/// Strings are UTF-8. Indices begin at 1 and follow the order of addition; 0 stands for an absent
/// part of a name. Every vocabulary has prefix 1, "xml", and namespace name 1,
/// "http://www.w3.org/XML/1998/namespace". A table holds up to 1,048,576 entries; what is added to
/// a full one is ignored. Copies are independent.
class QVXML_API CFIVocabulary : private TInstanceCounted<CFIVocabulary> {
 public:
  /// A qualified name, as indices in the prefix, the namespace name and the local name table.
  struct CQNameParts {
    unsigned prefixIndex = 0;
    unsigned namespaceIndex = 0;
    unsigned localNameIndex = 0;

    bool operator==(const CQNameParts& other) const noexcept {
      return prefixIndex == other.prefixIndex && namespaceIndex == other.namespaceIndex &&
             localNameIndex == other.localNameIndex;
    }
    bool operator!=(const CQNameParts& other) const noexcept { return !(*this == other); }
  };
  struct CQNameHash {
    size_t operator()(const CQNameParts& name) const noexcept;
  };

  using CFIStringTable = detail::TFITable<std::string, std::hash<std::string>>;
  using CFIQNameTable = detail::TFITable<CQNameParts, CQNameHash>;

  CFIVocabulary();
  CFIVocabulary(const CFIVocabulary& other);
  CFIVocabulary& operator=(const CFIVocabulary& other);
  ~CFIVocabulary();

  // Strings. These append without looking: a string added twice has two entries, of which only the
  // first is found, and the indices found of those that follow fall behind their entries.

  void AddPrefixName(const std::string& prefix);
  void AddNamespaceName(const std::string& namespaceUri);
  void AddLocalName(const std::string& localName);
  void AddAttributeValue(const std::string& value);
  /// A run of element text.
  void AddElementValue(const std::string& text);

  // Names. The parts that their tables lack are added first. A name that is there already is not
  // added again, and neither is one with a part that no longer fits into its table.

  void AddElement(const std::string& prefix, const std::string& namespaceUri,
                  const std::string& localName);
  void AddAttribute(const std::string& prefix, const std::string& namespaceUri,
                    const std::string& localName);

  // Look-up. `index` is set only when the string is found.

  bool FindPrefixNameIndex(const std::string& prefix, unsigned& index) const;
  bool FindNamespaceNameIndex(const std::string& namespaceUri, unsigned& index) const;
  bool FindLocalNameIndex(const std::string& localName, unsigned& index) const;

  // The tables. Iteration follows the indices; the reference serves as long as the vocabulary.

  const CFIStringTable& GetPrefixNamesTable() const noexcept { return m_prefixNames; }
  const CFIStringTable& GetNamespaceNamesTable() const noexcept { return m_namespaceNames; }
  const CFIStringTable& GetLocalNamesTable() const noexcept { return m_localNames; }
  const CFIQNameTable& GetElementNamesTable() const noexcept { return m_elementNames; }
  const CFIQNameTable& GetAttributeNamesTable() const noexcept { return m_attributeNames; }
  const CFIStringTable& GetAttributeValuesTable() const noexcept { return m_attributeValues; }
  const CFIStringTable& GetCharacterChunksTable() const noexcept { return m_characterChunks; }

 private:
  friend class TInstanceCounted<CFIVocabulary>;
  static CInstanceCounter s_instances;

  static bool FindIndex(const CFIStringTable& table, const std::string& text, unsigned& index);
  // The index of a part of a name, 0 for "". False when the part does not fit into its table.
  static bool FindOrAdd(CFIStringTable& table, const std::string& text, unsigned& index);
  void AddQName(CFIQNameTable& table, const std::string& prefix, const std::string& namespaceUri,
                const std::string& localName);

  CFIStringTable m_prefixNames;
  CFIStringTable m_namespaceNames;
  CFIStringTable m_localNames;
  CFIQNameTable m_elementNames;
  CFIQNameTable m_attributeNames;
  CFIStringTable m_attributeValues;
  CFIStringTable m_characterChunks;
};

}  // namespace QvXmlLib16

#endif  // QVXML_FASTINFOSET_FI_VOCABULARY_H_
