// The grammar of a Fast Infoset document: puts items into octets and keeps the tables.

#ifndef QVXML_FASTINFOSET_FI_ENCODER_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_ENCODER_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "qvxml/core/item_type.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/fastinfoset/fi_declaration.h"
#include "qvxml/fastinfoset/fi_output_internal.h"
#include "qvxml/fastinfoset/fi_string_index_internal.h"
#include "qvxml/fastinfoset/fi_text_internal.h"

namespace QvXmlLib16::detail {

/// Encodes one document. Items are to come in an order that makes one; only the writer in front
/// knows whether they do. Text is that of the process' locale.
///
/// Prefixes and namespaces have numbers: those of their tables, and beyond the end of a full table
/// further ones, which stand in the document as text.
///
/// A start tag is written as it comes. The first octet is changed when the first attribute comes,
/// and namespaces that turn out to be needed late are put in front of what is there when it ends:
///
///   [38 or 78, declarations, F0,] name, attributes
///   ^ m_elementStart         ^ m_declarationsEnd
class CFIEncoder {
 public:
  /// Copies what it needs of the context. The stream must outlive the encoder.
  CFIEncoder(const CFastInfosetContext& context, CBinaryStream& stream);
  CFIEncoder(const CFIEncoder&) = delete;
  CFIEncoder& operator=(const CFIEncoder&) = delete;
  ~CFIEncoder();

  // The document.

  void StartDocument(FInfoDecl declaration);
  void Comment(const std::string& text);
  void ProcessingInstruction(const std::string& target, const std::string& content);
  /// Hands all octets to the stream.
  void Flush();

  // Prefixes and namespaces.

  static constexpr unsigned kXmlNumber = 1;
  /// The number, or 0 for one that no declaration has had.
  unsigned FindPrefix(const std::string& prefix);
  unsigned FindNamespace(const std::string& namespaceUri);

  // Elements.

  /// Declarations may follow, then the name.
  void StartElement() {
    constexpr size_t kFlushAt = 32768;
    if (m_output.GetPosition() >= kFlushAt) m_output.FlushTo(m_stream, m_isLastHalf ? 1 : 0);
    m_isLastHalf = false;
    m_elementStart = m_output.GetPosition();
    m_declarationsEnd = 0;
    m_lateDeclarations.clear();
    m_hasAttributes = false;
  }
  /// `prefix` and `namespaceUri` may be "".
  void Declare(const std::string& prefix, const std::string& namespaceUri);
  /// Numbers of prefix and namespace, 0 for none.
  void ElementName(const std::string& localName, unsigned prefix, unsigned namespaceNumber) {
    const std::uint64_t tag = TagOf(prefix, namespaceNumber);
    if (const unsigned index = FindName(m_elementNames, localName, tag)) {
      m_output.PutIndexOnThirdBit(0, index);
    } else {
      PutLiteralName(m_elementNames.index, fi::kElementLiteralName, localName, tag);
    }
  }
  /// Declarations may stand between attributes too.
  void Attribute(const std::string& localName, unsigned prefix, unsigned namespaceNumber,
                 std::string_view value, ItemType type) {
    if (!m_hasAttributes) {
      m_hasAttributes = true;
      *m_output.At(m_elementStart) |= fi::kElementAttributes;
    }
    const std::uint64_t tag = TagOf(prefix, namespaceNumber);
    if (const unsigned index = FindName(m_attributeNames, localName, tag)) {
      m_output.PutIndexOnSecondBit(0, index);
    } else {
      PutLiteralName(m_attributeNames.index, fi::kAttributeLiteralName, localName, tag);
    }
    PutAttributeValue(value, type);
  }
  void EndStartTag() {
    if (!m_lateDeclarations.empty()) InsertLateDeclarations();
    if (m_hasAttributes) Terminate();
    m_hasAttributes = false;
  }
  /// Text that is not empty.
  void Characters(std::string_view text, ItemType type);
  /// Ends the innermost element, and behind the last one the document.
  void Terminate() {
    if (m_isLastHalf) {
      *m_output.At(m_output.GetPosition() - 1) = fi::kTwoTerminators;
    } else {
      m_output.Put(fi::kTerminator);
    }
    m_isLastHalf = !m_isLastHalf;
  }

 private:
  // A table of strings that are added up to a number of characters.
  struct StringTable {
    StringTable(CFIStringBytes& bytes, size_t maxAddLength) : index(bytes), limit(maxAddLength) {}
    CFIStringIndex index;
    const size_t limit;
  };
  // A table of names, and the numbers of those met last, by a few of their characters.
  struct NameTable {
    explicit NameTable(CFIStringBytes& bytes) : index(bytes) {}
    unsigned& RecentOf(const std::string& name) noexcept {
      const size_t length = name.size();
      const auto at = [&name](size_t place) -> size_t {
        return static_cast<unsigned char>(name[place]);
      };
      const size_t last = length != 0 ? length - 1 : 0;
      return recent[(length * 7 + at(0) + at(length / 2) * 5 + at(last) * 29) % kRecent];
    }
    static constexpr size_t kRecent = 128;
    CFIStringIndex index;
    unsigned recent[kRecent] = {};
  };
  struct Encoding {
    unsigned char kind = 0;
    unsigned char index = 0;
  };
  // Where an encoded character string stands: see the source.
  struct InValue;
  struct InChunk;

  static constexpr size_t kItemTypes = 29;

  void TakeVocabulary(const CFIVocabulary& vocabulary);
  void InsertLateDeclarations();

  static std::uint64_t TagOf(unsigned prefix, unsigned namespaceNumber) noexcept {
    return static_cast<std::uint64_t>(prefix) << 32 | namespaceNumber;
  }
  // The number of a name in its table, or 0.
  unsigned FindName(NameTable& names, const std::string& localName, std::uint64_t tag) {
    unsigned& recent = names.RecentOf(localName);
    // Names that a table has need no check, and most come from a table.
    if (recent != 0 && names.index.IsNumberOf(recent, localName, tag)) return recent;
    return FindOtherName(names, localName, tag, recent);
  }
  unsigned FindOtherName(NameTable& names, const std::string& localName, std::uint64_t tag,
                         unsigned& recent);
  unsigned FindConvertedName(const CFIStringIndex& names, const std::string& localName,
                             std::uint64_t tag);
  void PutLiteralName(CFIStringIndex& names, unsigned firstOctet, const std::string& localName,
                      std::uint64_t tag);
  void PutIdentifying(CFIStringIndex& index, std::string_view utf8);
  void PutDeclared(const CFIStringIndex& index, unsigned number);
  void PutDeclaration(CFIStringIndex& index, std::string_view utf8);

  Encoding EncodingOf(ItemType type) const noexcept {
    const auto number = static_cast<size_t>(type);
    return number < kItemTypes ? m_encodings[number] : Encoding();
  }
  void PutAttributeValue(std::string_view value, ItemType type);
  void PutOtherString(std::string_view text);
  template <class TPlace>
  bool PutIndex(const StringTable& table, std::string_view utf8, std::uint32_t& hash);
  template <class TPlace>
  void PutString(StringTable& table, std::string_view text, Encoding encoding);
  // An alphabet of 0 is none.
  template <class TPlace>
  void PutShortString(StringTable& table, std::string_view text, unsigned alphabet);
  template <class TPlace>
  bool PutByAlgorithm(std::string_view text, unsigned algorithm);
  template <class TPlace>
  bool PutInAlphabet(std::string_view text, unsigned alphabet, bool isAdded);
  template <class TPlace>
  void PutLiteral(std::string_view text, bool isAdded);
  template <class TPlace>
  void PutUtf16(std::string_view text, bool isAdded);
  // Returns the place behind the header.
  template <class TPlace>
  static unsigned char* PutStringHeader(unsigned char* to, fi::StringForm form, unsigned index,
                                        bool isAdded, std::uint64_t length);

  // The text in UTF-8: itself, or a copy that serves until the next call. Throws for characters
  // that no document may hold.
  std::string_view Utf8Of(std::string_view text) {
    return fi::IsPlain(text) ? text : ConvertedOf(text);
  }
  std::string_view ConvertedOf(std::string_view text);
  static void CheckName(std::string_view utf8);

  CBinaryStream& m_stream;
  CFIOutput m_output;
  // Whether the last octet is a terminator that the next one can share.
  bool m_isLastHalf = false;
  size_t m_elementStart = 0;
  // 0 while the element declares nothing.
  size_t m_declarationsEnd = 0;
  std::string m_lateDeclarations;
  bool m_hasAttributes = false;

  const bool m_isTextUtf8;
  const bool m_isUtf16;
  std::string m_converted;
  Encoding m_encodings[kItemTypes];
  const bool m_usesVocabulary;
  const std::string m_vocabularyUri;

  CFIStringBytes m_bytes;
  CFIStringIndex m_prefixes;
  CFIStringIndex m_namespaces;
  CFIStringIndex m_localNames;
  // Local names, with the numbers of prefix and namespace for a tag.
  NameTable m_elementNames;
  NameTable m_attributeNames;
  StringTable m_attributeValues;
  StringTable m_chunks;
  CFIStringIndex m_targets;
  StringTable m_otherStrings;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_FASTINFOSET_FI_ENCODER_INTERNAL_H_
