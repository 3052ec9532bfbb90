// The document element and everything in it.

#include <algorithm>

#include "qvxml/core/format.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/fastinfoset/fi_decoder_internal.h"
#include "qvxml/xml/dom_text_internal.h"
#include "qvxml/xml/repetition_limit_internal.h"
#include "qvxml/xml/xml_building_internal.h"

namespace QvXmlLib16::detail::fi {

namespace {

// An element gets room for as many attributes as the last one of its name had, but a name that once
// had many does not make every other one large.
constexpr uint32_t kMaxLikelyAttributes = 16;

// After whitespace more of it is likely to come behind the next child, and the whole may be a text
// that elements share.
bool MayBeWholeText(std::string_view text) {
  return !text.empty() && text.front() != ' ' && text.front() != '\n' && text.front() != '\t';
}

}  // namespace

CDecoder::CDecoder(CXmlDocument& document, const CFastInfosetContext& context)
    : m_document(document),
      m_context(context),
      m_arena(document.Arena()),
      m_convertsText(!IsLocaleTextUtf8()),
      m_keepsCData(!document.StripsCDATA()),
      m_input(document.m_input, document.m_inputLength,
              RepetitionLimit(document.m_inputLength, context.GetMaxAmplification())),
      m_strings(m_input),
      m_names(m_input, m_strings, m_arena, document.m_usesNamespaces, m_convertsText) {}

void CDecoder::Decode() {
  const size_t start = DeclarationLength(m_document.m_input, m_document.m_inputLength);
  if (start == kNoDocument) m_input.FailAt(0, "There is no Fast Infoset document");
  m_input.TakeOctets(start + sizeof kIdentification);
  try {
    ReadHeader();
    if (!ReadContent(ReadProlog())) ReadEpilog();
    if (!m_input.IsAtEnd()) {
      m_input.FailAt(m_input.GetOffset(), "There are octets after the Fast Infoset document");
    }
  } catch (...) {
    FlushPendingText();
    throw;
  }
}

// Returns whether the document has ended with its element.
bool CDecoder::ReadContent(unsigned char octet) {
  ReadElement(octet);
  while (GetDepth() != 0) {
    octet = m_input.Take();
    if (octet < 0x80) {
      ReadElement(octet);
    } else if (octet < 0xC0) {
      ReadChunk(octet);
    } else if (octet == kTerminator) {
      EndElement();
    } else if (octet == kTwoTerminators) {
      EndElement();
      if (GetDepth() == 0) return true;
      EndElement();
    } else if ((octet & 0xFC) == kEntityReference) {
      SkipEntityReference(octet);
    } else if (!SkipMisc(octet)) {
      m_input.FailOctet("the content of an element");
    }
  }
  return false;
}

inline void CDecoder::ReadElement(unsigned char octet) {
  const bool hasAttributes = (octet & kElementAttributes) != 0;
  const bool hasDeclarations = (octet & 0x3F) == kElementNamespaces;
  ++m_element;
  if (hasDeclarations) octet = ReadNamespaceAttributes();
  const size_t offset = m_input.GetOffset() - 1;
  CNames::CName& name = m_names.TakeElementName(octet);
  const CXmlName* xmlName = m_names.Use(name, offset);
  CXmlElement* element = m_document.m_documentElement == nullptr
                             ? m_document.AddDocElement(xmlName)
                             : m_document.AddChildElement(xmlName);
  if (hasDeclarations && !m_document.m_usesNamespaces) AddDeclarations(*element);
  if (hasAttributes && ReadAttributes(*element, name)) EndElement();
}

// Returns the octet that the name begins in.
unsigned char CDecoder::ReadNamespaceAttributes() {
  m_declarations.clear();
  for (;;) {
    const size_t offset = m_input.GetOffset();
    const unsigned char octet = m_input.Take();
    if (octet == kTerminator) break;
    if ((octet & 0xFC) != kNamespaceAttribute) m_input.FailOctet("a namespace attribute");
    const uint32_t prefix = (octet & kHasPrefix) != 0 ? m_names.TakePrefix() : 0;
    const uint32_t uri = (octet & kHasNamespace) != 0 ? m_names.TakeNamespace() : 0;
    if (m_document.m_usesNamespaces) {
      Declare(prefix, uri, offset);
    } else {
      m_declarations.push_back({prefix, uri, offset});
    }
  }
  const unsigned char octet = m_input.Take();
  if (octet > 0x3F || octet == kElementNamespaces) m_input.FailOctet("the name of an element");
  return octet;
}

void CDecoder::Declare(uint32_t prefix, uint32_t uri, size_t offset) {
  if (!m_names.Declare(prefix, uri, GetDepth() + 1, m_element, offset)) return;
  const std::string_view prefixText = m_names.PrefixText(prefix);
  const std::string_view uriText = m_names.NamespaceText(uri);
  m_input.ChargeRepetition(prefixText.size() + uriText.size());
  m_document.AddNamespacePrefix(std::string(ToInternalText(prefixText)).c_str(),
                                std::string(ToInternalText(uriText)).c_str());
}

void CDecoder::AddDeclarations(CXmlElement& element) {
  for (const CDeclaration& declaration : m_declarations) {
    const std::string_view uri = m_names.NamespaceText(declaration.namespaceUri);
    m_input.ChargeRepetition(uri.size());
    AddAttribute(element, m_names.DeclarationName(declaration.prefix), ToInternalText(uri),
                 static_cast<uint32_t>(m_declarations.size()), declaration.offset);
  }
}

// Returns whether the element has ended too.
bool CDecoder::ReadAttributes(CXmlElement& element, CNames::CName& name) {
  const uint32_t likelyCount = std::clamp(name.attributes, uint32_t{1}, kMaxLikelyAttributes);
  for (;;) {
    const size_t offset = m_input.GetOffset();
    const unsigned char octet = m_input.Take();
    if (octet >= kTerminator) {
      if (octet != kTerminator && octet != kTwoTerminators) m_input.FailOctet("an attribute");
      name.attributes = static_cast<uint32_t>(element.GetAttributes().size());
      return octet == kTwoTerminators;
    }
    const CXmlName* xmlName = m_names.Use(m_names.TakeAttributeName(octet), offset);
    AddAttribute(element, xmlName, ReadValue(), likelyCount, offset);
  }
}

inline void CDecoder::AddAttribute(CXmlElement& element, const CXmlName* name,
                                   std::string_view value, uint32_t likelyCount, size_t offset) {
  if (std::exchange(name->lastElement, m_element) == m_element) {
    m_input.FailAt(offset,
                   FormatString("The attribute [%s] occurs twice", name->localName.c_str()));
  }
  const CAttributeBlock* block = element.m_attributes;
  if (block == nullptr || block->size == block->capacity) {
    element.ReserveAttributes(m_arena, block == nullptr ? likelyCount : size_t{2} * block->size);
  }
  element.AppendAttribute(m_arena, name, value);
}

inline std::string_view CDecoder::ReadValue() {
  const unsigned char octet = m_input.Take();
  const size_t offset = m_input.GetOffset() - 1;
  if (octet == kEmptyString) return {};
  if (octet >= 0x80) {
    const unsigned index = m_input.TakeIndexOnSecondBit(octet);
    if (index > m_values.size()) m_input.FailIndex(index, m_values.size(), offset);
    const std::string_view value = m_values[index - 1];
    m_input.ChargeRepetition(value.size());
    return value;
  }
  const CCharacters value = m_strings.TakeOnThirdBit(octet);
  if (value.isCData) m_input.FailAt(offset, "An attribute value is a CDATA section");
  if ((octet & kAddToTableInValue) != 0) return AddValue(value);
  return value.isPlain ? value.text : ToInternalText(value.text);
}

// Returns the value as the tree holds it.
std::string_view CDecoder::AddValue(const CCharacters& value) {
  const std::string_view text = value.isPlain ? value.text : ToInternalText(value.text);
  if (m_values.size() == kMaxEntries) return text;
  return m_values.emplace_back(m_strings.Keep(text));
}

inline void CDecoder::ReadChunk(unsigned char octet) {
  if (octet >= kChunkIndex) {
    const size_t offset = m_input.GetOffset() - 1;
    const unsigned index = m_input.TakeIndexOnFourthBit(octet);
    if (index > m_chunks.size()) m_input.FailIndex(index, m_chunks.size(), offset);
    const CChunk& chunk = m_chunks[index - 1];
    m_input.ChargeRepetition(chunk.size);
    return AddChunkText(chunk);
  }
  const CCharacters chunk = m_strings.TakeOnFifthBit(octet);
  const bool isAdded = (octet & kAddToTableInChunk) != 0 && AddChunk(chunk);
  if (chunk.isCData && m_keepsCData) {
    AddSection(ToTreeText(chunk));
  } else if (isAdded) {
    AddChunkText(m_chunks.back());
  } else {
    AddText(ToTreeText(chunk));
  }
}

// Returns whether there was room.
bool CDecoder::AddChunk(const CCharacters& chunk) {
  if (m_chunks.size() == kMaxEntries) return false;
  const std::string_view text = ToTreeText(chunk);
  constexpr size_t kSizeBits = ~size_t{0} >> 1;
  m_chunks.push_back({m_arena.AddSharedText(text), text.size() & kSizeBits, MayBeWholeText(text)});
  return true;
}

inline std::string_view CDecoder::ToTreeText(const CCharacters& chunk) {
  if (chunk.isPlain) return chunk.text;
  const std::string_view text = ToInternalText(chunk.text);
  if (text.find('\r') == std::string_view::npos) return text;
  m_withoutCR.clear();
  AppendExcludingCR(m_withoutCR, text.data(), text.size());
  return m_withoutCR;
}

// Most elements have one text, which goes into them at once.
inline void CDecoder::AddText(std::string_view text) {
  if (text.empty()) return;
  CXmlElement& element = *m_document.m_openElements.back();
  if (HasText(element) || !MayBeWholeText(text)) return AppendPendingText(text);
  element.SetOwnText(m_arena, text);
}

// Does not look at the text itself, which may lie far away in memory.
inline void CDecoder::AddChunkText(const CChunk& chunk) {
  CXmlElement& element = *m_document.m_openElements.back();
  if (HasText(element) || !chunk.mayBeWhole) return AppendPendingText(*chunk.text);
  element.m_text = chunk.text;
}

// Of the innermost open element.
inline bool CDecoder::HasText(const CXmlElement& element) const {
  return element.m_text != m_arena.EmptyText() ||
         (!m_pending.empty() && m_pending.back().depth == GetDepth());
}

void CDecoder::AppendPendingText(std::string_view text) {
  if (m_pending.empty() || m_pending.back().depth != GetDepth()) {
    m_pending.push_back({GetDepth(), m_pendingText.size()});
  }
  m_pendingText.append(text);
}

void CDecoder::AddSection(std::string_view text) {
  AppendPendingText("<![CDATA[");
  AppendPendingText(text);
  AppendPendingText("]]>");
}

// Gives the innermost element with pending text that text.
void CDecoder::TakePendingText() {
  const CPendingText pending = m_pending.back();
  m_pending.pop_back();
  CXmlElement* element = m_document.m_openElements[pending.depth - 1];
  element->AppendWholeText(m_arena, std::string_view(m_pendingText).substr(pending.start));
  m_pendingText.resize(pending.start);
}

void CDecoder::FlushPendingText() {
  while (!m_pending.empty()) TakePendingText();
}

inline void CDecoder::EndElement() {
  const size_t depth = GetDepth();
  if (!m_pending.empty() && m_pending.back().depth == depth) TakePendingText();
  m_names.EndScope(depth);
  // The callback may look at the elements around the one that it is given.
  if (m_document.m_callback != nullptr) FlushPendingText();
  m_document.CloseElement();
}

std::string_view CDecoder::ToInternalText(std::string_view text) {
  if (!m_convertsText) return text;
  m_converted = Utf8ToLocalCodePage(text.data(), text.size());
  return m_converted;
}

}  // namespace QvXmlLib16::detail::fi
