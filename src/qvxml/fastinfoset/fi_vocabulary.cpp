#include "qvxml/fastinfoset/fi_vocabulary.h"

#include <cstdint>

#include "qvxml/fastinfoset/fi_encoding_internal.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CFIVocabulary::s_instances("CFIVocabulary");

static_assert(detail::fi::kMaxEntries == 1048576, "the tables of the vocabulary end there too");

CFIVocabulary::CFIVocabulary() {
  AddPrefixName(std::string(detail::fi::kXmlPrefix));
  AddNamespaceName(std::string(detail::fi::kXmlNamespace));
}

CFIVocabulary::CFIVocabulary(const CFIVocabulary& other) = default;
CFIVocabulary& CFIVocabulary::operator=(const CFIVocabulary& other) = default;
CFIVocabulary::~CFIVocabulary() = default;

size_t CFIVocabulary::CQNameHash::operator()(const CQNameParts& name) const noexcept {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15u;
  std::uint64_t hash = name.localNameIndex;
  hash = (hash * kOdd) ^ name.namespaceIndex;
  hash = (hash * kOdd) ^ name.prefixIndex;
  return static_cast<size_t>((hash * kOdd) >> 20);
}

void CFIVocabulary::AddPrefixName(const std::string& prefix) { m_prefixNames.Add(prefix); }

void CFIVocabulary::AddNamespaceName(const std::string& namespaceUri) {
  m_namespaceNames.Add(namespaceUri);
}

void CFIVocabulary::AddLocalName(const std::string& localName) { m_localNames.Add(localName); }

void CFIVocabulary::AddAttributeValue(const std::string& value) { m_attributeValues.Add(value); }

void CFIVocabulary::AddElementValue(const std::string& text) { m_characterChunks.Add(text); }

void CFIVocabulary::AddElement(const std::string& prefix, const std::string& namespaceUri,
                               const std::string& localName) {
  AddQName(m_elementNames, prefix, namespaceUri, localName);
}

void CFIVocabulary::AddAttribute(const std::string& prefix, const std::string& namespaceUri,
                                 const std::string& localName) {
  AddQName(m_attributeNames, prefix, namespaceUri, localName);
}

void CFIVocabulary::AddQName(CFIQNameTable& table, const std::string& prefix,
                             const std::string& namespaceUri, const std::string& localName) {
  CQNameParts name;
  if (!FindOrAdd(m_prefixNames, prefix, name.prefixIndex) ||
      !FindOrAdd(m_namespaceNames, namespaceUri, name.namespaceIndex) ||
      !FindOrAdd(m_localNames, localName, name.localNameIndex)) {
    return;
  }
  unsigned present;
  if (!table.FindIndex(name, present)) table.Add(name);
}

bool CFIVocabulary::FindOrAdd(CFIStringTable& table, const std::string& text, unsigned& index) {
  index = 0;
  if (text.empty() || FindIndex(table, text, index)) return true;
  table.Add(text);
  return FindIndex(table, text, index);
}

bool CFIVocabulary::FindIndex(const CFIStringTable& table, const std::string& text,
                              unsigned& index) {
  return table.FindIndex(text, index);
}

bool CFIVocabulary::FindPrefixNameIndex(const std::string& prefix, unsigned& index) const {
  return FindIndex(m_prefixNames, prefix, index);
}

bool CFIVocabulary::FindNamespaceNameIndex(const std::string& namespaceUri, unsigned& index) const {
  return FindIndex(m_namespaceNames, namespaceUri, index);
}

bool CFIVocabulary::FindLocalNameIndex(const std::string& localName, unsigned& index) const {
  return FindIndex(m_localNames, localName, index);
}

}  // namespace QvXmlLib16
