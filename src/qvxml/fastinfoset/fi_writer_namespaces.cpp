// Which prefix a name has, and where namespaces are declared.
//
// The base class knows what prefixes the caller wants. What counts here is which of them the
// document declares at this place: a name is written only with a prefix whose innermost declaration
// is for its namespace, and where there is none, one is added to the open start tag. A prefix that
// the start tag has used or declared for another namespace is not free there.

#include <algorithm>
#include <string_view>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/fastinfoset/fi_encoder_internal.h"
#include "qvxml/fastinfoset/fi_writer.h"
#include "qvxml/xml/short_copy.h"

namespace QvXmlLib16 {

namespace {

constexpr std::string_view kDeclarationNamespace = "http://www.w3.org/2000/xmlns/";
constexpr std::string_view kDeclarationName = "xmlns";
constexpr unsigned kNoPrefix = ~0u;

// Prefixes that no namespace may be given.
bool IsReserved(const std::string& prefix) { return prefix == "xml" || prefix == kDeclarationName; }

// Namespaces that no prefix may be given.
bool IsFixed(const std::string& namespaceUri) {
  return namespaceUri == CXmlWriter::XML_NAMESPACE || namespaceUri == kDeclarationNamespace;
}

}  // namespace

const CFastInfosetWriter::NamePrefix* CFastInfosetWriter::KnownPrefixes::Find(
    const std::string& namespaceUri) const noexcept {
  for (const Entry& entry : entries) {
    if (detail::IsSameText(entry.namespaceUri, namespaceUri)) return &entry.numbers;
  }
  return nullptr;
}

CFastInfosetWriter::NamePrefix CFastInfosetWriter::KnownPrefixes::Remember(
    const std::string& namespaceUri, NamePrefix numbers) {
  entries[next].namespaceUri = namespaceUri;
  entries[next].numbers = numbers;
  next = 1 - next;
  return numbers;
}

// No name that is looked for is in the namespace "".
void CFastInfosetWriter::KnownPrefixes::Forget() noexcept {
  for (Entry& entry : entries) entry.namespaceUri.clear();
}

void CFastInfosetWriter::SetDefaultNamespace(const std::string& namespaceUri) {
  CXmlWriter::SetDefaultNamespace(namespaceUri);
  NoteChange();
}

void CFastInfosetWriter::AddNamespace(const std::string& prefix, const std::string& namespaceUri) {
  CXmlWriter::AddNamespace(prefix, namespaceUri);
  NoteChange();
}

void CFastInfosetWriter::DeclareRootNamespaces(const std::string& namespaceUri) {
  const std::string& defaultNamespace = GetRootDefaultNamespace();
  // A root in no namespace keeps it out; elements that need it declare it themselves.
  const bool isDefaultDeclared =
      !namespaceUri.empty() && !defaultNamespace.empty() && !IsFixed(defaultNamespace);
  if (isDefaultDeclared) Declare(std::string(), defaultNamespace);
  for (const auto& binding : GetRootNamespaceMap()) {
    const bool isDeclared = IsDeclarable(binding) && !IsReserved(binding.second) &&
                            !binding.first.empty() && !IsFixed(binding.first) &&
                            IsFree(binding.second);
    if (isDeclared) Declare(binding.second, binding.first);
  }
}

const CFastInfosetWriter::NamePrefix* CFastInfosetWriter::FindElementPrefix(
    const std::string& namespaceUri) const noexcept {
  static constexpr NamePrefix kNone;
  if (!namespaceUri.empty()) return m_elementPrefixes.Find(namespaceUri);
  return m_bindings[0].namespaceNumber == 0 ? &kNone : nullptr;
}

CFastInfosetWriter::NamePrefix CFastInfosetWriter::ResolveElement(CXmlWriterContext& context,
                                                                  const std::string& namespaceUri) {
  if (namespaceUri.empty()) {
    if (m_bindings[0].namespaceNumber != 0) Declare(std::string(), namespaceUri);
    return {};
  }
  if (const NamePrefix* known = m_elementPrefixes.Find(namespaceUri)) return *known;
  NamePrefix numbers;
  if (!context.IsUnprefixed(namespaceUri) || IsFixed(namespaceUri)) {
    numbers = RequirePrefix(context, namespaceUri);
  } else if (!IsDeclared(std::string(), namespaceUri, numbers)) {
    numbers = Declare(std::string(), namespaceUri);
  }
  return m_elementPrefixes.Remember(namespaceUri, numbers);
}

CFastInfosetWriter::NamePrefix CFastInfosetWriter::ResolveAttribute(
    CXmlWriterContext& context, const std::string& namespaceUri) {
  if (namespaceUri.empty()) return {};
  const NamePrefix* const known = m_attributePrefixes.Find(namespaceUri);
  const NamePrefix numbers =
      known != nullptr
          ? *known
          : m_attributePrefixes.Remember(namespaceUri, RequirePrefix(context, namespaceUri));
  // One that the element itself declares is not free anyway.
  const bool isDeclaredHere =
      numbers.prefix < m_bindings.size() && m_bindings[numbers.prefix].depth == context.GetDepth();
  if (!isDeclaredHere) m_usedPrefixes.push_back(numbers.prefix);
  return numbers;
}

CFastInfosetWriter::NamePrefix CFastInfosetWriter::RequirePrefix(CXmlWriterContext& context,
                                                                 const std::string& namespaceUri) {
  if (namespaceUri == XML_NAMESPACE) {
    return {detail::CFIEncoder::kXmlNumber, detail::CFIEncoder::kXmlNumber};
  }
  if (IsFixed(namespaceUri)) {
    throw CQvException(
        FormatString("The namespace [%s] can not be declared.", namespaceUri.c_str()));
  }
  NamePrefix numbers;
  const std::string& bound = context.GetNamespaceMapValue(namespaceUri);
  if (!bound.empty() && !IsReserved(bound)) {
    if (IsDeclared(bound, namespaceUri, numbers)) return numbers;
    if (IsFree(bound)) return Declare(bound, namespaceUri);
  }
  const std::string prefix = MakePrefix(context);
  context.SetNamespaceMapValue(namespaceUri, prefix);
  return Declare(prefix, namespaceUri);
}

std::string CFastInfosetWriter::MakePrefix(const CXmlWriterContext& context) const {
  std::string prefix = context.GetUniquePrefix();
  // Declared on this element without being the one that its namespace has now.
  for (int number = 0; !IsFree(prefix); ++number) prefix = NsIntToString(number);
  return prefix;
}

bool CFastInfosetWriter::IsDeclarationName(const std::string& localName,
                                           const std::string& namespaceUri) noexcept {
  if (!namespaceUri.empty()) return namespaceUri == kDeclarationNamespace;
  constexpr size_t kLength = kDeclarationName.size();
  return localName.size() >= kLength && localName[0] == kDeclarationName[0] &&
         localName.compare(0, kLength, kDeclarationName) == 0 &&
         (localName.size() == kLength || localName[kLength] == ':');
}

void CFastInfosetWriter::WriteDeclarationAttribute(CXmlWriterContext& context,
                                                   const std::string& localName,
                                                   const std::string& namespaceUri,
                                                   const std::string& value) {
  std::string prefix = localName;
  if (namespaceUri.empty()) {
    prefix.erase(0, kDeclarationName.size() + 1);
  } else if (prefix == kDeclarationName) {
    prefix.clear();
  }
  if (IsReserved(prefix) || IsFixed(value) || (value.empty() && !prefix.empty())) return;
  NamePrefix numbers;
  const bool isDeclared = IsDeclared(prefix, value, numbers);
  if (!isDeclared && !IsFree(prefix)) return;
  // One that is in force already is still the caller's to repeat, but not on one element.
  const bool isHere = isDeclared && m_bindings[numbers.prefix].depth == context.GetDepth();
  if (!isHere) Declare(prefix, value);
  if (prefix.empty()) {
    context.SetDefaultNamespace(value);
  } else {
    context.SetNamespaceMapValue(value, prefix);
  }
  NoteChange();
}

bool CFastInfosetWriter::IsDeclared(const std::string& prefix, const std::string& namespaceUri,
                                    NamePrefix& numbers) const {
  numbers.prefix = prefix.empty() ? 0 : m_encoder->FindPrefix(prefix);
  numbers.namespaceNumber = namespaceUri.empty() ? 0 : m_encoder->FindNamespace(namespaceUri);
  // What has no number was never declared, but for the default namespace, which is "" at first.
  const bool isKnown = (prefix.empty() || numbers.prefix != 0) &&
                       (namespaceUri.empty() || numbers.namespaceNumber != 0);
  return isKnown && numbers.prefix < m_bindings.size() &&
         m_bindings[numbers.prefix].namespaceNumber == numbers.namespaceNumber;
}

bool CFastInfosetWriter::IsFree(const std::string& prefix) const {
  const unsigned number = prefix.empty() ? 0 : m_encoder->FindPrefix(prefix);
  if (number >= m_bindings.size()) return true;
  if (number == 0 && !prefix.empty()) return true;
  const bool isUsed =
      std::find(m_usedPrefixes.begin(), m_usedPrefixes.end(), number) != m_usedPrefixes.end();
  return !isUsed && m_bindings[number].depth != GetContext()->GetDepth();
}

CFastInfosetWriter::NamePrefix CFastInfosetWriter::Declare(const std::string& prefix,
                                                           const std::string& namespaceUri) {
  m_encoder->Declare(prefix, namespaceUri);
  const NamePrefix numbers{prefix.empty() ? 0 : m_encoder->FindPrefix(prefix),
                           namespaceUri.empty() ? 0 : m_encoder->FindNamespace(namespaceUri)};
  if (numbers.prefix >= m_bindings.size()) m_bindings.resize(numbers.prefix + 1);
  Binding& binding = m_bindings[numbers.prefix];
  const unsigned long depth = GetContext()->GetDepth();
  m_undos.push_back({numbers.prefix, binding, depth});
  binding = {numbers.namespaceNumber, depth};
  m_elementPrefixes.Forget();
  m_attributePrefixes.Forget();
  return numbers;
}

// What is known of prefixes is void now, and again when the element ends.
void CFastInfosetWriter::NoteChange() {
  m_elementPrefixes.Forget();
  m_attributePrefixes.Forget();
  if (GetContext() != nullptr) m_undos.push_back({kNoPrefix, {}, GetContext()->GetDepth()});
}

void CFastInfosetWriter::UndoDeclarations(unsigned long depth) noexcept {
  if (m_undos.empty() || m_undos.back().depth != depth) return;
  do {
    const Undo& undo = m_undos.back();
    if (undo.prefix != kNoPrefix) m_bindings[undo.prefix] = undo.earlier;
    m_undos.pop_back();
  } while (!m_undos.empty() && m_undos.back().depth == depth);
  m_elementPrefixes.Forget();
  m_attributePrefixes.Forget();
}

}  // namespace QvXmlLib16
