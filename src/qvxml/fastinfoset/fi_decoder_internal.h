// Builds a document from the octets of Fast Infoset. The header and what stands around the document
// element are in fi_decoder_header.cpp, the element in fi_decoder.cpp.

#ifndef QVXML_FASTINFOSET_FI_DECODER_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_DECODER_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/fastinfoset/fi_input_internal.h"
#include "qvxml/fastinfoset/fi_names_internal.h"
#include "qvxml/fastinfoset/fi_strings_internal.h"
#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/xml_document.h"

namespace QvXmlLib16::detail::fi {

inline constexpr size_t kNoDocument = ~size_t{0};

/// Length of the XML declaration in front of a document, 0 when there is none, or kNoDocument when
/// the octets do not begin as Fast Infoset does.
size_t DeclarationLength(const unsigned char* octets, size_t length) noexcept;

class CDecoder {
 public:
  CDecoder(CXmlDocument& document, const CFastInfosetContext& context);
  CDecoder(const CDecoder&) = delete;
  CDecoder& operator=(const CDecoder&) = delete;

  void Decode();

 private:
  // Of an element, where namespaces are not processed.
  struct CDeclaration {
    uint32_t prefix;
    uint32_t namespaceUri;
    size_t offset;
  };
  // Elements share the text; attributes copy theirs.
  struct CChunk {
    const std::string* text;
    size_t size : 63;
    // As the only text of an element.
    size_t mayBeWhole : 1;
  };
  // Text of an open element that waits for its end.
  struct CPendingText {
    size_t depth;
    size_t start;
  };

  // Header.
  void ReadHeader();
  void SkipAdditionalData();
  void ReadInitialVocabulary();
  void ReadExternalVocabulary();
  template <class TRead>
  void ReadEntries(bool isPresent, const TRead& read);
  CCharacters TakeEntry();
  void SkipNotations();
  void SkipUnparsedEntities();

  // Around the document element.
  unsigned char ReadProlog();
  void ReadEpilog();
  bool SkipMisc(unsigned char octet);
  void SkipDocumentType(unsigned char octet);
  void SkipIdentifiers(unsigned octet);
  void SkipEntityReference(unsigned char octet);
  void SkipProcessingInstruction();
  std::string_view SkipName();
  void SkipUri();
  void SkipOtherString();
  void SkipIndex(unsigned char octet, size_t entries);

  // The document element.
  bool ReadContent(unsigned char octet);
  void ReadElement(unsigned char octet);
  void EndElement();
  unsigned char ReadNamespaceAttributes();
  void Declare(uint32_t prefix, uint32_t uri, size_t offset);
  void AddDeclarations(CXmlElement& element);
  bool ReadAttributes(CXmlElement& element, CNames::CName& name);
  void AddAttribute(CXmlElement& element, const CXmlName* name, std::string_view value,
                    uint32_t likelyCount, size_t offset);
  std::string_view ReadValue();
  std::string_view AddValue(const CCharacters& value);

  // Its text.
  void ReadChunk(unsigned char octet);
  bool AddChunk(const CCharacters& chunk);
  void AddText(std::string_view text);
  void AddChunkText(const CChunk& chunk);
  void AddSection(std::string_view text);
  bool HasText(const CXmlElement& element) const;
  void AppendPendingText(std::string_view text);
  void TakePendingText();
  void FlushPendingText();
  std::string_view ToTreeText(const CCharacters& chunk);
  std::string_view ToInternalText(std::string_view text);

  size_t GetDepth() const { return m_document.m_openElements.size(); }

  CXmlDocument& m_document;
  const CFastInfosetContext& m_context;
  CNodeArena& m_arena;
  bool m_convertsText;
  bool m_keepsCData;
  CInput m_input;
  CStrings m_strings;
  CNames m_names;
  std::vector<std::string_view> m_values;
  std::vector<CChunk> m_chunks;
  // Only their numbers of entries matter: nothing of them reaches the tree.
  size_t m_otherNames = 0;
  size_t m_otherUris = 0;
  size_t m_otherStrings = 0;
  // Number of elements so far.
  size_t m_element = 0;
  std::vector<CDeclaration> m_declarations;
  std::string m_pendingText;
  std::vector<CPendingText> m_pending;
  std::string m_converted;
  std::string m_withoutCR;
};

}  // namespace QvXmlLib16::detail::fi

#endif  // QVXML_FASTINFOSET_FI_DECODER_INTERNAL_H_
