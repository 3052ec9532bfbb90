#include <utility>

#include "qvxml/core/format.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/fastinfoset/fi_names_internal.h"

namespace QvXmlLib16::detail::fi {

namespace {

constexpr std::string_view kXmlnsPrefix = "xmlns";
constexpr std::string_view kXmlnsNamespace = "http://www.w3.org/2000/xmlns/";

}  // namespace

CIdentityTable::CIdentityTable(std::string_view first) : m_texts{"", ""} { Add(first); }

uint32_t CIdentityTable::Add(std::string_view text) {
  const auto [found, isNew] = m_identities.emplace(text, static_cast<uint32_t>(m_texts.size()));
  if (isNew) m_texts.push_back(text);
  if (m_entries.size() < kMaxEntries) m_entries.push_back(found->second);
  return found->second;
}

CNames::CNames(CInput& input, CStrings& strings, CNodeArena& arena, bool usesNamespaces,
               bool convertsText)
    : m_input(input),
      m_strings(strings),
      m_arena(arena),
      m_usesNamespaces(usesNamespaces),
      m_convertsText(convertsText),
      m_prefixes(kXmlPrefix),
      m_namespaces(kXmlNamespace) {
  m_bindings.resize(kXml + 1);
  m_bindings[kDefaultNamespace].boundTo = kNoNamespace;
  m_bindings[kNoPrefix].boundTo = kNoNamespace;
  m_bindings[kXml].boundTo = m_namespaces[1];
}

uint32_t CNames::TakeIdentity(CIdentityTable& table, unsigned char octet) {
  const size_t offset = m_input.GetOffset() - 1;
  const unsigned index = m_input.TakeIndexOnSecondBit(octet);
  if (index > table.GetCount()) m_input.FailIndex(index, table.GetCount(), offset);
  return table[index];
}

uint32_t CNames::TakePrefix() {
  const unsigned char octet = m_input.Take();
  return octet < 0x80 ? AddPrefix(m_strings.TakeNCName(octet)) : TakeIdentity(m_prefixes, octet);
}

uint32_t CNames::AddPrefix(std::string_view text) {
  const uint32_t prefix = m_prefixes.Add(text);
  if (prefix == m_bindings.size()) m_bindings.emplace_back();
  return prefix;
}

uint32_t CNames::TakeNamespace() {
  const unsigned char octet = m_input.Take();
  if (octet >= 0x80) return TakeIdentity(m_namespaces, octet);
  return m_namespaces.Add(m_strings.TakeText(octet));
}

std::string_view CNames::TakeLocalName() {
  const unsigned char octet = m_input.Take();
  if (octet < 0x80) return AddLocalName(m_strings.TakeNCName(octet));
  const size_t offset = m_input.GetOffset() - 1;
  const unsigned index = m_input.TakeIndexOnSecondBit(octet);
  if (index > m_localNames.size()) m_input.FailIndex(index, m_localNames.size(), offset);
  return m_localNames[index - 1];
}

std::string_view CNames::AddLocalName(std::string_view text) {
  if (m_localNames.size() < kMaxEntries) m_localNames.push_back(text);
  return text;
}

CNames::CName& CNames::TakeLiteralName(CTable& table, unsigned bits, uint32_t withoutPrefix) {
  const bool hasPrefix = (bits & kHasPrefix) != 0;
  const bool hasNamespace = (bits & kHasNamespace) != 0;
  if (hasPrefix && !hasNamespace) m_input.FailOctet("a name");
  const size_t offset = m_input.GetOffset() - 1;
  CName name;
  name.prefix = hasPrefix ? TakePrefix() : withoutPrefix;
  name.namespaceUri = hasNamespace ? TakeNamespace() : kNoNamespace;
  Resolve(name, TakeLocalName(), offset);
  if (table.size() < kMaxEntries) return table.emplace_back(name);
  return m_unlisted = name;
}

// A vocabulary may hold names without a local name.
void CNames::ResolveListed(CName& name, size_t offset) {
  Resolve(name, name.localName != 0 ? m_localNames[name.localName - 1] : "", offset);
}

void CNames::Resolve(CName& name, std::string_view localName, size_t offset) {
  if (name.prefix == kNoPrefix && localName == kXmlnsPrefix) {
    m_input.FailAt(offset, "The attribute [xmlns] is no namespace attribute");
  }
  const std::string_view namespaceUri = m_namespaces.TextOf(name.namespaceUri);
  const std::string_view prefix = m_prefixes.TextOf(name.prefix);
  // The record holds copies of them.
  m_input.ChargeRepetition(namespaceUri.size() + prefix.size() + localName.size());
  if (m_usesNamespaces) {
    name.xmlName = Intern(namespaceUri, localName);
    return;
  }
  std::string qName(prefix);
  if (!prefix.empty()) qName += ':';
  name.xmlName = Intern("", qName.append(localName));
  // Bindings do not matter.
  name.prefix = kNoPrefix;
  name.namespaceUri = kNoNamespace;
}

const CXmlName* CNames::Intern(std::string_view namespaceUri, std::string_view localName) {
  if (!m_convertsText) return m_arena.Intern(namespaceUri, localName);
  return m_arena.Intern(Utf8ToLocalCodePage(namespaceUri.data(), namespaceUri.size()),
                        Utf8ToLocalCodePage(localName.data(), localName.size()));
}

const CXmlName* CNames::DeclarationName(uint32_t prefix) {
  std::string name(kXmlnsPrefix);
  if (prefix != kDefaultNamespace) name.append(":").append(m_prefixes.TextOf(prefix));
  m_input.ChargeRepetition(name.size());
  return Intern("", name);
}

void CNames::FailUnbound(const CName& name, size_t offset) const {
  const std::string prefix(m_prefixes.TextOf(name.prefix));
  const std::string namespaceUri(m_namespaces.TextOf(name.namespaceUri));
  m_input.FailAt(offset, FormatString("The prefix [%s] is not bound to the namespace [%s]",
                                      prefix.c_str(), namespaceUri.c_str()));
}

bool CNames::Declare(uint32_t prefix, uint32_t namespaceUri, size_t depth, size_t element,
                     size_t offset) {
  const bool isXml = prefix == kXml;
  const std::string_view prefixText = m_prefixes.TextOf(prefix);
  if (isXml != (namespaceUri == m_bindings[kXml].boundTo) || prefixText == kXmlnsPrefix ||
      m_namespaces.TextOf(namespaceUri) == kXmlnsNamespace) {
    m_input.FailAt(offset, "A prefix or namespace that XML reserves is declared");
  }
  CBinding& binding = m_bindings[prefix];
  if (std::exchange(binding.declaredBy, element) == element) {
    m_input.FailAt(
        offset, FormatString("The prefix [%s] is declared twice", std::string(prefixText).c_str()));
  }
  const bool isUndeclared = namespaceUri == kNoNamespace && prefix != kDefaultNamespace;
  m_rebound.push_back({depth, prefix, binding.boundTo});
  binding.boundTo = isUndeclared ? kUnbound : namespaceUri;
  return std::exchange(binding.toldTo, namespaceUri) != namespaceUri;
}

void CNames::Rebind() {
  const CRebound& last = m_rebound.back();
  m_bindings[last.prefix].boundTo = last.before;
  m_rebound.pop_back();
}

void CNames::AddVocabulary(const CFIVocabulary& vocabulary) {
  // Entry 1 of the two is there already.
  const auto& prefixes = vocabulary.GetPrefixNamesTable();
  for (auto prefix = prefixes.begin() + 1; prefix != prefixes.end(); ++prefix) AddPrefix(*prefix);
  const auto& namespaces = vocabulary.GetNamespaceNamesTable();
  for (auto uri = namespaces.begin() + 1; uri != namespaces.end(); ++uri) m_namespaces.Add(*uri);
  const auto& localNames = vocabulary.GetLocalNamesTable();
  m_localNames.assign(localNames.begin(), localNames.end());
  AddNames(m_elements, vocabulary.GetElementNamesTable(), kDefaultNamespace);
  AddNames(m_attributes, vocabulary.GetAttributeNamesTable(), kNoPrefix);
}

void CNames::AddNames(CTable& table, const CFIVocabulary::CFIQNameTable& names,
                      uint32_t withoutPrefix) {
  table.reserve(names.GetCount());
  for (const CFIVocabulary::CQNameParts& parts : names) {
    CName& name = table.emplace_back();
    name.prefix = parts.prefixIndex != 0 ? m_prefixes[parts.prefixIndex] : withoutPrefix;
    if (parts.namespaceIndex != 0) name.namespaceUri = m_namespaces[parts.namespaceIndex];
    name.localName = parts.localNameIndex;
  }
}

unsigned CNames::TakeSurrogatePart(size_t count) {
  const size_t offset = m_input.GetOffset();
  const unsigned char octet = m_input.Take();
  if (octet >= 0x80) m_input.FailOctet("an index");
  const unsigned index = m_input.TakeIndexOnSecondBit(octet);
  if (index > count) m_input.FailIndex(index, count, offset);
  return index;
}

void CNames::TakeSurrogate(CTable& table, uint32_t withoutPrefix) {
  const unsigned char parts = m_input.Take();
  const bool hasPrefix = (parts & kHasPrefix) != 0;
  const bool hasNamespace = (parts & kHasNamespace) != 0;
  if (parts > (kHasPrefix | kHasNamespace) || (hasPrefix && !hasNamespace)) {
    m_input.FailOctet("a name surrogate");
  }
  CName name;
  name.prefix = hasPrefix ? m_prefixes[TakeSurrogatePart(m_prefixes.GetCount())] : withoutPrefix;
  if (hasNamespace) name.namespaceUri = m_namespaces[TakeSurrogatePart(m_namespaces.GetCount())];
  name.localName = TakeSurrogatePart(m_localNames.size());
  if (table.size() < kMaxEntries) table.push_back(name);
}

}  // namespace QvXmlLib16::detail::fi
