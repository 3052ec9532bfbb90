// Names of a document: the tables of their parts, the tables of whole names, and which prefix is
// bound to which namespace at the place that is being read.
//
// Prefixes and namespace names are compared as numbers: each text has one identity, however many
// entries of its table hold it. A prefix is bound to the identity of a namespace name.

#ifndef QVXML_FASTINFOSET_FI_NAMES_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_NAMES_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/fastinfoset/fi_encoding_internal.h"
#include "qvxml/fastinfoset/fi_input_internal.h"
#include "qvxml/fastinfoset/fi_strings_internal.h"
#include "qvxml/fastinfoset/fi_vocabulary.h"
#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/repetition_limit_internal.h"

namespace QvXmlLib16::detail::fi {

/// A table of prefixes or namespace names.
class CIdentityTable {
 public:
  /// Identities 0 and 1 are the empty text; the table begins with `first`, which is identity 2.
  explicit CIdentityTable(std::string_view first);

  size_t GetCount() const { return m_entries.size(); }
  /// Entry `index`, counted from 1.
  uint32_t operator[](size_t index) const { return m_entries[index - 1]; }
  std::string_view TextOf(uint32_t identity) const { return m_texts[identity]; }
  /// The text must last as long as the table. Returns its identity.
  uint32_t Add(std::string_view text);

 private:
  std::vector<uint32_t> m_entries;
  std::vector<std::string_view> m_texts;
  // Ordered: no choice of texts makes it slow.
  std::map<std::string_view, uint32_t> m_identities;
};

class CNames {
 public:
  /// One entry of the element or attribute name table.
  struct CName {
    /// Null until the name is first used.
    const CXmlName* xmlName = nullptr;
    uint32_t prefix = 0;
    uint32_t namespaceUri = 0;
    // Entry of the local name table; only for names that are not used yet.
    uint32_t localName = 0;
    /// How many attributes an element of that name had last.
    uint32_t attributes = 0;
  };
  using CTable = std::vector<CName>;

  CNames(CInput& input, CStrings& strings, CNodeArena& arena, bool usesNamespaces,
         bool convertsText);

  /// Identifying strings; the results are identities.
  uint32_t TakePrefix();
  uint32_t TakeNamespace();

  /// The name on the third bit of `octet`. The result serves until the next element name is taken.
  CName& TakeElementName(unsigned char octet) {
    const unsigned bits = octet & 0x3Fu;
    if (bits >= kElementLiteralName) return TakeLiteralName(m_elements, bits, kDefaultNamespace);
    const size_t offset = m_input.GetOffset() - 1;
    return EntryOf(m_elements, m_input.TakeIndexOnThirdBit(octet), offset);
  }
  /// The name on the second bit of `octet`, which is no terminator.
  CName& TakeAttributeName(unsigned char octet) {
    if (octet < kAttributeLiteralName) {
      const size_t offset = m_input.GetOffset() - 1;
      return EntryOf(m_attributes, m_input.TakeIndexOnSecondBit(octet), offset);
    }
    if ((octet & ~(kHasPrefix | kHasNamespace)) != kAttributeLiteralName) {
      m_input.FailOctet("an attribute");
    }
    return TakeLiteralName(m_attributes, octet, kNoPrefix);
  }
  /// The shared record of a name that is used here. Throws when its prefix is not bound to its
  /// namespace; `offset` tells where it is used.
  const CXmlName* Use(CName& name, size_t offset) {
    if (name.xmlName == nullptr) ResolveListed(name, offset);
    if (m_bindings[name.prefix].boundTo != name.namespaceUri) FailUnbound(name, offset);
    m_input.ChargeRepetition(name.xmlName->key.size() / kRepeatedNameShare);
    return name.xmlName;
  }

  /// Binds a prefix for the element of that depth, whose number among the elements is `element`.
  /// Returns whether the document has bound it elsewhere, or not at all, before.
  bool Declare(uint32_t prefix, uint32_t namespaceUri, size_t depth, size_t element, size_t offset);
  /// Called at the end of each element.
  void EndScope(size_t depth) {
    while (!m_rebound.empty() && m_rebound.back().depth == depth) Rebind();
  }

  std::string_view PrefixText(uint32_t prefix) const { return m_prefixes.TextOf(prefix); }
  std::string_view NamespaceText(uint32_t namespaceUri) const {
    return m_namespaces.TextOf(namespaceUri);
  }
  /// The attribute that stands for a namespace declaration where namespaces are not processed.
  const CXmlName* DeclarationName(uint32_t prefix);

  /// Fills the tables from a vocabulary that outlives this object.
  void AddVocabulary(const CFIVocabulary& vocabulary);
  /// Entries of the initial vocabulary.
  void TakePrefixEntry() { AddPrefix(m_strings.TakeNCName(m_input.Take())); }
  void TakeNamespaceEntry() { m_namespaces.Add(m_strings.TakeText(m_input.Take())); }
  void TakeLocalNameEntry() { AddLocalName(m_strings.TakeNCName(m_input.Take())); }
  void TakeElementSurrogate() { TakeSurrogate(m_elements, kDefaultNamespace); }
  void TakeAttributeSurrogate() { TakeSurrogate(m_attributes, kNoPrefix); }

 private:
  struct CBinding {
    uint32_t boundTo = kUnbound;
    // What the document was last told.
    uint32_t toldTo = kUnbound;
    // Number of the element that declared it last.
    size_t declaredBy = 0;
  };
  struct CRebound {
    size_t depth;
    uint32_t prefix;
    uint32_t before;
  };
  static constexpr uint32_t kUnbound = ~uint32_t{0};
  static constexpr uint32_t kNoNamespace = 0;
  static constexpr uint32_t kDefaultNamespace = 0;
  // Of names of attributes, which the default namespace does not reach.
  static constexpr uint32_t kNoPrefix = 1;
  static constexpr uint32_t kXml = 2;

  CName& EntryOf(CTable& table, unsigned index, size_t offset) {
    if (index > table.size()) m_input.FailIndex(index, table.size(), offset);
    return table[index - 1];
  }
  std::string_view TakeLocalName();
  std::string_view AddLocalName(std::string_view text);
  uint32_t TakeIdentity(CIdentityTable& table, unsigned char octet);
  // `withoutPrefix` stands for the prefix of a name that has none.
  CName& TakeLiteralName(CTable& table, unsigned bits, uint32_t withoutPrefix);
  void TakeSurrogate(CTable& table, uint32_t withoutPrefix);
  void AddNames(CTable& table, const CFIVocabulary::CFIQNameTable& names, uint32_t withoutPrefix);
  unsigned TakeSurrogatePart(size_t count);
  void ResolveListed(CName& name, size_t offset);
  void Resolve(CName& name, std::string_view localName, size_t offset);
  const CXmlName* Intern(std::string_view namespaceUri, std::string_view localName);
  uint32_t AddPrefix(std::string_view text);
  void Rebind();
  [[noreturn, gnu::cold]] void FailUnbound(const CName& name, size_t offset) const;

  CInput& m_input;
  CStrings& m_strings;
  CNodeArena& m_arena;
  bool m_usesNamespaces;
  bool m_convertsText;
  CIdentityTable m_prefixes;
  CIdentityTable m_namespaces;
  std::vector<std::string_view> m_localNames;
  CTable m_elements;
  CTable m_attributes;
  // Holds a name that its table has no room for.
  CName m_unlisted;
  // By prefix.
  std::vector<CBinding> m_bindings;
  std::vector<CRebound> m_rebound;
};

}  // namespace QvXmlLib16::detail::fi

#endif  // QVXML_FASTINFOSET_FI_NAMES_INTERNAL_H_
