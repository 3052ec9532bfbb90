// The header of a document, and what stands before and after the document element.

#include <algorithm>
#include <cstring>

#include "qvxml/core/format.h"
#include "qvxml/fastinfoset/fi_decoder_internal.h"

namespace QvXmlLib16::detail::fi {

namespace {

constexpr unsigned char kHasSystem = 0x02;
constexpr unsigned char kHasPublic = 0x01;
constexpr unsigned char kNotation = 0xC0;
constexpr unsigned char kUnparsedEntity = 0xD0;

bool IsXmlName(std::string_view name) {
  const auto equals = [](char left, char right) { return (left | 0x20) == right; };
  return std::equal(name.begin(), name.end(), kXmlPrefix.begin(), kXmlPrefix.end(), equals);
}

}  // namespace

size_t DeclarationLength(const unsigned char* octets, size_t length) noexcept {
  if (length == 0) return kNoDocument;
  const std::string_view start(reinterpret_cast<const char*>(octets), length);
  const std::string_view identification(reinterpret_cast<const char*>(kIdentification),
                                        sizeof kIdentification);
  for (const Declaration& declaration : kDeclarations) {
    const size_t size = declaration.text.size();
    if (start.substr(0, size) == declaration.text &&
        start.substr(size, identification.size()) == identification) {
      return size;
    }
  }
  return kNoDocument;
}

void CDecoder::ReadHeader() {
  for (const unsigned char octet : kVersion) {
    if (m_input.Take() != octet) m_input.FailOctet("the version of a Fast Infoset document");
  }
  const unsigned char components = m_input.Take();
  if (components >= 0x80) m_input.FailOctet("the components of a Fast Infoset document");
  if ((components & kAdditionalData) != 0) SkipAdditionalData();
  if ((components & kInitialVocabulary) != 0) ReadInitialVocabulary();
  if ((components & kNotations) != 0) SkipNotations();
  if ((components & kUnparsedEntities) != 0) SkipUnparsedEntities();
  if ((components & kCharacterEncodingScheme) != 0) m_strings.TakeText(m_input.Take());
  if ((components & kStandalone) != 0 && m_input.Take() > 1) m_input.FailOctet("standalone");
  if ((components & kVersionComponent) != 0) SkipOtherString();
}

void CDecoder::SkipAdditionalData() {
  for (unsigned count = m_input.TakeCount(); count != 0; --count) {
    m_strings.TakeText(m_input.Take());
    const unsigned char octet = m_input.Take();
    if (octet >= 0x80) m_input.FailOctet("a length");
    m_input.TakeOctets(m_input.TakeLengthOnSecondBit(octet));
  }
}

template <class TRead>
void CDecoder::ReadEntries(bool isPresent, const TRead& read) {
  if (!isPresent) return;
  for (unsigned count = m_input.TakeCount(); count != 0; --count) read();
}

void CDecoder::ReadInitialVocabulary() {
  const unsigned char first = m_input.Take();
  if (first > 0x1F) m_input.FailOctet("an initial vocabulary");
  const unsigned char second = m_input.Take();
  if (first == 0 && second == 0) m_input.FailOctet("an initial vocabulary");
  if ((first & kExternalVocabulary) != 0) ReadExternalVocabulary();
  ReadEntries((first & 0x08) != 0, [this] { m_strings.TakeAlphabet(); });
  ReadEntries((first & 0x04) != 0, [this] { m_strings.TakeAlgorithm(); });
  ReadEntries((first & 0x02) != 0, [this] { m_names.TakePrefixEntry(); });
  ReadEntries((first & 0x01) != 0, [this] { m_names.TakeNamespaceEntry(); });
  ReadEntries((second & 0x80) != 0, [this] { m_names.TakeLocalNameEntry(); });
  const auto count = [](size_t& entries) { entries += entries < kMaxEntries ? 1 : 0; };
  ReadEntries((second & 0x40) != 0, [this, count] {
    m_strings.TakeNCName(m_input.Take());
    count(m_otherNames);
  });
  ReadEntries((second & 0x20) != 0, [this, count] {
    m_strings.TakeText(m_input.Take());
    count(m_otherUris);
  });
  ReadEntries((second & 0x10) != 0, [this] { AddValue(TakeEntry()); });
  ReadEntries((second & 0x08) != 0, [this] { AddChunk(TakeEntry()); });
  ReadEntries((second & 0x04) != 0, [this, count] {
    TakeEntry();
    count(m_otherStrings);
  });
  ReadEntries((second & 0x02) != 0, [this] { m_names.TakeElementSurrogate(); });
  ReadEntries((second & 0x01) != 0, [this] { m_names.TakeAttributeSurrogate(); });
}

CCharacters CDecoder::TakeEntry() {
  const unsigned char octet = m_input.Take();
  if (octet > 0x3F) m_input.FailOctet("an entry of a table");
  return m_strings.TakeOnThirdBit(octet);
}

void CDecoder::ReadExternalVocabulary() {
  const std::string_view uri = m_strings.TakeText(m_input.Take());
  if (!m_context.GetUseGeneratedVocabulary() || uri != m_context.GetExternalVocabularyURI()) {
    m_input.FailAt(m_input.GetOffset() - uri.size(),
                   FormatString("The external vocabulary [%s] is not the one of the context",
                                std::string(uri).c_str()));
  }
  const CFIVocabulary& vocabulary = m_context.GetVocabulary();
  m_names.AddVocabulary(vocabulary);
  for (const std::string& value : vocabulary.GetAttributeValuesTable()) {
    AddValue({value, false, false});
  }
  for (const std::string& chunk : vocabulary.GetCharacterChunksTable()) {
    AddChunk({chunk, false, false});
  }
}

void CDecoder::SkipNotations() {
  unsigned char octet = m_input.Take();
  do {
    if ((octet & ~(kHasSystem | kHasPublic)) != kNotation) m_input.FailOctet("a notation");
    SkipName();
    SkipIdentifiers(octet);
    octet = m_input.Take();
  } while (octet != kTerminator);
}

void CDecoder::SkipUnparsedEntities() {
  unsigned char octet = m_input.Take();
  do {
    if ((octet & ~kHasPublic) != kUnparsedEntity) m_input.FailOctet("an unparsed entity");
    SkipName();
    SkipIdentifiers(octet | kHasSystem);
    SkipName();
    octet = m_input.Take();
  } while (octet != kTerminator);
}

void CDecoder::SkipIdentifiers(unsigned octet) {
  if ((octet & kHasSystem) != 0) SkipUri();
  if ((octet & kHasPublic) != 0) SkipUri();
}

// Returns the octet that the document element begins in.
unsigned char CDecoder::ReadProlog() {
  bool isTypeKnown = false;
  for (;;) {
    const unsigned char octet = m_input.Take();
    if (octet < 0x80) return octet;
    const bool isType = (octet & ~(kHasSystem | kHasPublic)) == kDocumentTypeDeclaration;
    if (isType && !isTypeKnown) {
      isTypeKnown = true;
      SkipDocumentType(octet);
    } else if (!SkipMisc(octet)) {
      m_input.FailOctet("the start of the document element");
    }
  }
}

void CDecoder::ReadEpilog() {
  for (;;) {
    const unsigned char octet = m_input.Take();
    if (octet == kTerminator) return;
    if (!SkipMisc(octet)) m_input.FailOctet("the end of the document");
  }
}

void CDecoder::SkipDocumentType(unsigned char octet) {
  if (m_document.RefusesDocumentType()) {
    m_input.FailAt(m_input.GetOffset() - 1, "The document type declaration is refused");
  }
  SkipIdentifiers(octet);
  for (;;) {
    const unsigned char next = m_input.Take();
    if (next == kTerminator) return;
    if (next != kProcessingInstruction) m_input.FailOctet("a document type declaration");
    SkipProcessingInstruction();
  }
}

bool CDecoder::SkipMisc(unsigned char octet) {
  if (octet == kComment) {
    SkipOtherString();
  } else if (octet == kProcessingInstruction) {
    SkipProcessingInstruction();
  } else {
    return false;
  }
  return true;
}

void CDecoder::SkipProcessingInstruction() {
  const size_t offset = m_input.GetOffset();
  if (IsXmlName(SkipName())) m_input.FailAt(offset, "A processing instruction is named xml");
  SkipOtherString();
}

void CDecoder::SkipEntityReference(unsigned char octet) {
  SkipName();
  SkipIdentifiers(octet);
}

// Returns a literal name, and "" for one that its table holds.
std::string_view CDecoder::SkipName() {
  const unsigned char octet = m_input.Take();
  if (octet >= 0x80) {
    SkipIndex(octet, m_otherNames);
    return "";
  }
  m_otherNames += m_otherNames < kMaxEntries ? 1 : 0;
  return m_strings.TakeNCName(octet);
}

void CDecoder::SkipUri() {
  const unsigned char octet = m_input.Take();
  if (octet >= 0x80) return SkipIndex(octet, m_otherUris);
  m_otherUris += m_otherUris < kMaxEntries ? 1 : 0;
  m_strings.TakeText(octet);
}

void CDecoder::SkipOtherString() {
  const unsigned char octet = m_input.Take();
  if (octet == kEmptyString) return;
  if (octet >= 0x80) return SkipIndex(octet, m_otherStrings);
  m_strings.TakeOnThirdBit(octet);
  const bool isAdded = (octet & kAddToTableInValue) != 0;
  m_otherStrings += isAdded && m_otherStrings < kMaxEntries ? 1 : 0;
}

void CDecoder::SkipIndex(unsigned char octet, size_t entries) {
  const size_t offset = m_input.GetOffset() - 1;
  const unsigned index = m_input.TakeIndexOnSecondBit(octet);
  if (index > entries) m_input.FailIndex(index, entries, offset);
}

}  // namespace QvXmlLib16::detail::fi
