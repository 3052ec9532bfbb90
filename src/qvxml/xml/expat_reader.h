// Parses XML text into a document, with libexpat as the tokenizer.

#ifndef QVXML_XML_EXPAT_READER_H_
#define QVXML_XML_EXPAT_READER_H_

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

struct XML_ParserStruct;  // expat.h

namespace QvXmlLib16 {

class CXmlDocument;  // xml/xml_document.h
class CXmlElement;   // xml/xml_element.h

namespace detail {
class IByteSource;  // xml/byte_source_internal.h
class CNodeArena;   // xml/node_arena_internal.h
struct CXmlName;    // xml/node_arena_internal.h
}  // namespace detail

/// Reads the input of one document, once. Documents make their own; it lives on the stack for the
/// length of a parse.
///
/// Input that makes the parser repeat itself (nested entities, long attribute defaults, long
/// namespace URIs) is refused once the result exceeds 8 MiB and as many times the input as the
/// context allows, a hundred at first. External entities are never fetched.
///
/// Documents and texts may be of any length. Tags, comments, processing instructions and literals
/// of a document type declaration may be 960 MiB long.
class QVXML_API CExpatReader : private TInstanceCounted<CExpatReader> {
 public:
  explicit CExpatReader(CXmlDocument& document);
  ~CExpatReader();
  CExpatReader(const CExpatReader&) = delete;
  CExpatReader& operator=(const CExpatReader&) = delete;

  /// Makes the parser: without namespace processing when the document's schema kind asks for it,
  /// reporting CDATA sections unless the context strips them.
  void CreateParser();
  /// Parses the whole input of the document; `isFinal` tells that no more follows.
  ///
  /// Throws CQvException "%s at line %d", the parser's text and the line counted from 1, and what
  /// the document's callback threw. The document then keeps what was read before.
  void Parse(bool isFinal);
  /// The same for input that is not the document's: parses it to its end, piece by piece. Throws
  /// what reading it throws, too.
  void Parse(detail::IByteSource& input);

 private:
  friend class TInstanceCounted<CExpatReader>;
  static CInstanceCounter s_instances;

  static void FnStartElement(void* userData, const char* name, const char** atts);
  static void FnEndElement(void* userData, const char* name);
  static void FnText(void* userData, const char* text, int length);
  __attribute__((noinline)) static void FnOtherText(void* userData, const char* text, int length);
  static void FnStartCDATA(void* userData);
  static void FnEndCDATA(void* userData);
  static void FnStartDocumentType(void* userData, const char* name, const char* systemId,
                                  const char* publicId, int hasInternalSubset);
  static void FnStartNamespace(void* userData, const char* prefix, const char* uri);
  static void FnEndNamespace(void* userData, const char* prefix);
  template <class TAction>
  static void Guard(void* userData, const TAction& action) noexcept;

  bool Feed(bool isFinal);
  bool Feed(detail::IByteSource& input);
  size_t NextPiece(size_t piece, size_t smallest, size_t fed);
  template <class TFeed>
  void NoteShortMemory(TFeed feed);
  [[noreturn]] void ThrowTokenTooLong();
  [[noreturn]] void ThrowParseError(int code) const;
  void Cleanup() noexcept;

  void StartElement(const char* name, const char** atts);
  void AddAttributes(CXmlElement* element, const char** atts);
  void EndElement();
  void NoteReturn(const char* text, size_t length);
  void AppendText(const char* text, size_t length);
  void StartNamespace(const char* prefix, const char* uri);

  const detail::CXmlName* ReadName(const char* name);
  const detail::CXmlName* FindName(const char* name);
  std::string ToInternalText(std::string_view text) const;
  void TakeOpenText(CXmlElement& element, size_t start);
  std::string_view WithoutReturns(std::string_view text);
  void AppendOpenText(std::string_view text);
  void WidenOpenText(size_t length);
  void FlushOpenText();
  void ChargeRepetition(size_t bytes);
  void SetEntityLimit();
  [[noreturn]] void ThrowDocumentTypeRefused() const;

  CXmlDocument& m_document;
  detail::CNodeArena* m_arena = nullptr;
  XML_ParserStruct* m_parser = nullptr;
  // Whether text has to leave UTF-8 for the encoding of the process' locale.
  bool m_convertsText;
  // Text of the open elements, outermost first, and where that of each begins: it is complete, and
  // at the end, when its element ends. The vector is as long as its memory, of which m_openTextSize
  // bytes are in use.
  std::vector<char> m_openText;
  size_t m_openTextSize = 0;
  // Whether there may be a carriage return in it.
  bool m_hasReturn = false;
  bool m_hasDocumentType = false;
  std::vector<size_t> m_openTextStarts;
  // A text that had to be changed, until the next one.
  std::string m_converted;
  const detail::CXmlName* m_lastName = nullptr;
  size_t m_repeatedBytes = 0;
  size_t m_repetitionLimit = 0;
  // What a callback threw; it must not pass through the parser's frames.
  std::exception_ptr m_failure;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_EXPAT_READER_H_
