// The document, names and namespaces; values are in fi_encoder_values.cpp.

#include <algorithm>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/fastinfoset/fi_encoder_internal.h"
#include "qvxml/fastinfoset/fi_text_internal.h"

namespace QvXmlLib16::detail {

using namespace fi;

namespace {

bool IsFull(const CFIStringIndex& index) { return index.GetCount() >= kMaxEntries; }

}  // namespace

CFIEncoder::CFIEncoder(const CFastInfosetContext& context, CBinaryStream& stream)
    : m_stream(stream),
      m_isTextUtf8(IsLocaleTextUtf8()),
      m_isUtf16(context.GetDefaultStringEncoding() == kUtf16),
      m_usesVocabulary(context.GetUseGeneratedVocabulary()),
      m_vocabularyUri(context.GetExternalVocabularyURI()),
      m_prefixes(m_bytes),
      m_namespaces(m_bytes),
      m_localNames(m_bytes),
      m_elementNames(m_bytes),
      m_attributeNames(m_bytes),
      m_attributeValues(m_bytes, context.GetAttributeMaxAddLength()),
      m_chunks(m_bytes, context.GetElementMaxAddLength()),
      m_targets(m_bytes),
      m_otherStrings(m_bytes, context.GetElementMaxAddLength()) {
  for (size_t type = 0; type < kItemTypes; ++type) {
    const auto encoding = context.GetEncoding(static_cast<int>(type));
    if (encoding.index > kDouble) continue;
    m_encodings[type] = {static_cast<unsigned char>(encoding.kind),
                         static_cast<unsigned char>(encoding.index)};
  }
  if (m_usesVocabulary) {
    TakeVocabulary(context.GetVocabulary());
  } else {
    m_prefixes.Add(kXmlPrefix);
    m_namespaces.Add(kXmlNamespace);
  }
}

CFIEncoder::~CFIEncoder() = default;

void CFIEncoder::TakeVocabulary(const CFIVocabulary& vocabulary) {
  const auto take = [](CFIStringIndex& index, const CFIVocabulary::CFIStringTable& table) {
    for (const std::string& text : table) index.Add(text);
  };
  take(m_prefixes, vocabulary.GetPrefixNamesTable());
  take(m_namespaces, vocabulary.GetNamespaceNamesTable());
  take(m_localNames, vocabulary.GetLocalNamesTable());
  take(m_attributeValues.index, vocabulary.GetAttributeValuesTable());
  take(m_chunks.index, vocabulary.GetCharacterChunksTable());
  const auto takeNames = [&](CFIStringIndex& names, const CFIVocabulary::CFIQNameTable& table) {
    for (const CFIVocabulary::CQNameParts& name : table) {
      names.Add(name.localNameIndex != 0 ? m_localNames.GetText(name.localNameIndex) : "",
                TagOf(name.prefixIndex, name.namespaceIndex));
    }
  };
  takeNames(m_elementNames.index, vocabulary.GetElementNamesTable());
  takeNames(m_attributeNames.index, vocabulary.GetAttributeNamesTable());
}

void CFIEncoder::StartDocument(FInfoDecl declaration) {
  const Declaration& form = kDeclarations[declaration];
  m_output.Put(form.text);
  for (const unsigned char octet : kIdentification) m_output.Put(octet);
  for (const unsigned char octet : kVersion) m_output.Put(octet);
  unsigned components = 0;
  if (m_usesVocabulary) components |= kInitialVocabulary;
  if (form.standalone != 0) components |= kStandalone;
  if (!form.version.empty()) components |= kVersionComponent;
  m_output.Put(components);
  if (m_usesVocabulary) {
    m_output.Put(kExternalVocabulary);
    m_output.Put(0);
    m_output.PutOctetString(Utf8Of(m_vocabularyUri));
  }
  if (form.standalone != 0) m_output.Put(form.standalone == 'y' ? 1 : 0);
  if (!form.version.empty()) {
    m_output.Put(static_cast<unsigned>(form.version.size() - 1));
    m_output.Put(form.version);
  }
}

void CFIEncoder::ProcessingInstruction(const std::string& target, const std::string& content) {
  m_isLastHalf = false;
  m_output.Put(fi::kProcessingInstruction);
  PutIdentifying(m_targets, Utf8Of(target));
  PutOtherString(content);
}

void CFIEncoder::Comment(const std::string& text) {
  m_isLastHalf = false;
  m_output.Put(kComment);
  PutOtherString(text);
}

void CFIEncoder::Flush() { m_output.FlushTo(m_stream, 0); }

unsigned CFIEncoder::FindPrefix(const std::string& prefix) {
  return m_prefixes.Find(Utf8Of(prefix));
}

unsigned CFIEncoder::FindNamespace(const std::string& namespaceUri) {
  return m_namespaces.Find(Utf8Of(namespaceUri));
}

void CFIEncoder::Declare(const std::string& prefix, const std::string& namespaceUri) {
  const bool isFirst = m_output.GetPosition() == m_elementStart;
  if (isFirst) m_output.Put(kElementNamespaces);
  const size_t start = m_output.GetPosition();
  const bool isLate = !isFirst && (m_declarationsEnd == 0 || start != m_declarationsEnd + 1);
  m_output.Put(kNamespaceAttribute | (prefix.empty() ? 0u : kHasPrefix) |
               (namespaceUri.empty() ? 0u : kHasNamespace));
  if (!prefix.empty()) {
    CheckName(Utf8Of(prefix));
    PutDeclaration(m_prefixes, Utf8Of(prefix));
  }
  if (!namespaceUri.empty()) PutDeclaration(m_namespaces, Utf8Of(namespaceUri));

  const size_t end = m_output.GetPosition();
  if (isLate) {
    m_lateDeclarations.append(m_output.At(start), m_output.At(end));
    m_output.AdvanceTo(m_output.At(start));
    return;
  }
  // Behind the terminator of those before.
  if (isFirst) {
    m_output.Put(kTerminator);
  } else {
    std::rotate(m_output.At(m_declarationsEnd), m_output.At(start), m_output.At(end));
  }
  m_declarationsEnd = m_output.GetPosition() - 1;
}

void CFIEncoder::InsertLateDeclarations() {
  size_t place = m_declarationsEnd;
  if (place == 0) {
    // The bit moves to the octet in front of the declarations.
    *m_output.At(m_elementStart) &= ~kElementAttributes & 0xFF;
    m_lateDeclarations.insert(
        m_lateDeclarations.begin(),
        static_cast<char>(kElementNamespaces | (m_hasAttributes ? kElementAttributes : 0u)));
    m_lateDeclarations += static_cast<char>(kTerminator);
    place = m_elementStart;
  }
  const size_t end = m_output.GetPosition();
  m_output.Put(m_lateDeclarations);
  std::rotate(m_output.At(place), m_output.At(end), m_output.At(m_output.GetPosition()));
  m_lateDeclarations.clear();
}

unsigned CFIEncoder::FindOtherName(NameTable& names, const std::string& localName,
                                   std::uint64_t tag, unsigned& recent) {
  // Only what needs no conversion can be compared as it is.
  if (!m_isTextUtf8) return FindConvertedName(names.index, localName, tag);
  recent = names.index.Find(localName, tag);
  if (recent == 0) recent = FindConvertedName(names.index, localName, tag);
  return recent;
}

unsigned CFIEncoder::FindConvertedName(const CFIStringIndex& names, const std::string& localName,
                                       std::uint64_t tag) {
  const std::string_view utf8 = Utf8Of(localName);
  return utf8.data() != localName.data() || !m_isTextUtf8 ? names.Find(utf8, tag) : 0;
}

void CFIEncoder::PutLiteralName(CFIStringIndex& names, unsigned firstOctet,
                                const std::string& localName, std::uint64_t tag) {
  const auto prefix = static_cast<unsigned>(tag >> 32);
  const auto namespaceNumber = static_cast<unsigned>(tag);
  m_output.Put(firstOctet | (prefix != 0 ? kHasPrefix : 0u) |
               (namespaceNumber != 0 ? kHasNamespace : 0u));
  if (prefix != 0) PutDeclared(m_prefixes, prefix);
  if (namespaceNumber != 0) PutDeclared(m_namespaces, namespaceNumber);
  const std::string_view utf8 = Utf8Of(localName);
  PutIdentifying(m_localNames, utf8);
  if (!IsFull(names)) names.Add(utf8, tag);
}

void CFIEncoder::PutIdentifying(CFIStringIndex& index, std::string_view utf8) {
  if (const unsigned number = index.Find(utf8)) {
    m_output.PutIndexOnSecondBit(kIndexFollows, number);
  } else {
    CheckName(utf8);
    m_output.PutOctetString(utf8);
    if (!IsFull(index)) index.Add(utf8);
  }
}

void CFIEncoder::PutDeclared(const CFIStringIndex& index, unsigned number) {
  if (number <= kMaxEntries) {
    m_output.PutIndexOnSecondBit(kIndexFollows, number);
  } else {
    m_output.PutOctetString(index.GetText(number));
  }
}

void CFIEncoder::PutDeclaration(CFIStringIndex& index, std::string_view utf8) {
  if (const unsigned number = index.Find(utf8)) return PutDeclared(index, number);
  m_output.PutOctetString(utf8);
  index.Add(utf8);
}

std::string_view CFIEncoder::ConvertedOf(std::string_view text) {
  if (m_isTextUtf8 && IsXmlText(text)) return text;
  m_converted = LocalCodePageToUtf8(text.data(), text.size());
  if (!IsXmlText(m_converted)) {
    throw CQvException("Text holds a character that can not be written.");
  }
  return m_converted;
}

void CFIEncoder::CheckName(std::string_view utf8) {
  if (IsNCName(utf8)) return;
  throw CQvException(FormatString("The name [%s] can not be written.", std::string(utf8).c_str()));
}

}  // namespace QvXmlLib16::detail
