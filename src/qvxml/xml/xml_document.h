// The tree that every reader builds from its input and the binding engine walks.

#ifndef QVXML_XML_XML_DOCUMENT_H_
#define QVXML_XML_XML_DOCUMENT_H_

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

class CSerializationContext;  // binding/serialization_context.h

namespace detail {
class CInputFile;  // binding/file_input_internal.h
}

namespace detail::fi {
class CDecoder;  // fastinfoset/fi_decoder_internal.h
}

/// Loads a document and owns its elements.
///
/// The constructors and everything that loads are defined in binding/document_loading.cpp and
/// binding/json_loading.cpp, where the context is known.
///
/// A document may be loaded again and again. After a failed load it keeps the elements read so far.
/// While nothing changes it, it may be read on several threads.
class QVXML_API CXmlDocument : private TInstanceCounted<CXmlDocument> {
 public:
  /// Called with each element when its end tag has been read. When it returns true the element is
  /// removed from the tree and destroyed, so that a long document needs no more memory than its
  /// open elements; for the document element the answer counts for nothing. What it throws ends
  /// the load and reaches the caller of the load. It must not load or clean up the document, nor
  /// delete elements that are still open.
  using ElementCompleteCallback = bool (*)(CXmlElement* element);

  // Construction. The context must outlive the document; without one
  // CSerializationContext::m_defaultContext serves. The schema kind is taken from it at once,
  // StripCDATA and the limits at each load. A null callback is none.

  CXmlDocument();
  explicit CXmlDocument(const CSerializationContext& context);
  explicit CXmlDocument(ElementCompleteCallback callback);
  CXmlDocument(ElementCompleteCallback callback, const CSerializationContext& context);
  CXmlDocument(const CXmlDocument&) = delete;
  CXmlDocument& operator=(const CXmlDocument&) = delete;
  virtual ~CXmlDocument();

  /// Destroys the elements and forgets the prefixes; every load begins with it.
  virtual void Cleanup();

  /// Whether loads of this document refuse a document type declaration, whatever its context says;
  /// see CSerializationContext::SetRefuseDocumentType. False at first.
  bool GetRefuseDocumentType() const noexcept { return m_refuseDocumentType; }
  void SetRefuseDocumentType(bool value) noexcept { m_refuseDocumentType = value; }

  // Loading. Throws CQvException "%s at line %d", the parser's text and the line counted from 1,
  // for malformed XML. The input's own byte-order mark or declaration tells its encoding. It may be
  // text of the tree that is replaced, and must not change until the call returns.

  /// Parses XML text. Throws CQvException "XML String is empty!" for null and "".
  void LoadXml(const char* text);
  /// As above; an encoding that wide text declares is ignored.
  void LoadXml(const wchar_t* text);
  /// Parses `length` bytes of XML, plain or compressed with gzip or zlib. Throws CQvException
  /// "XML Stream is empty!" for no bytes; fails as CQvZip::Decompress does.
  void LoadXmlStream(const unsigned char* data, unsigned long length);
  /// Parses a file of what LoadXmlStream takes. Throws CQvException "Failed to open the file
  /// [%s].", "Failed to get the size of the file [%s] Error [%n]" when it is no regular file, or
  /// "Failed to read the contents of the file [%s] Error [%n]"; the error stands for the stream's
  /// error indicator.
  ///
  /// Large files of plain XML are read as they are parsed, so that with the callback a file of any
  /// size needs little memory. The text between elements that it removes stays with their parent.
  void Load(const char* path);

  // Loading JSON, which is turned into XML text as the context's JSON options tell: the tree is the
  // one of that text, and so is what the four return. Throws as CJsonTextReader::ConvertJsonToXml,
  // and as the above for text that becomes no document; "" becomes none. Namespaces are not ignored
  // on the way.

  /// Null is "".
  CBinaryData LoadJson(const char* text);
  CBinaryData LoadJson(const wchar_t* text);
  /// UTF-8, plain or compressed.
  CBinaryData LoadJsonStream(const unsigned char* data, unsigned long length);
  CBinaryData LoadJsonFile(const char* path);

  // Content.

  /// Null until the root has been read.
  CXmlElement* GetDocumentElement() const noexcept { return m_documentElement; }
  /// The namespace that the prefix was last bound to anywhere in the document, or "". The empty
  /// prefix stands for the default namespace.
  const std::string& LookupNamespaceFromAlias(const char* prefix) const;
  /// The first prefix, in byte order, that is bound to the namespace, or "". The empty prefix comes
  /// first.
  const std::string& LookupAliasFromNamespace(const char* namespaceUri) const;

  // Building, for readers of any format. Null text stands for "".

  /// Makes the document element, in place of an earlier one, and the only open element.
  CXmlElement* AddDocElement(const char* namespaceUri, const char* localName);
  /// Appends a child to the innermost open element and opens it. Throws CQvInvalidStateException
  /// "There is no open element." when there is none.
  CXmlElement* AddChildElement(const char* namespaceUri, const char* localName);
  void AddElementAttribute(CXmlElement* element, const char* localName, const char* namespaceUri,
                           const char* value);
  /// Appends text without its carriage returns. `length` counts bytes.
  void AppendTextExcludingCR(CXmlElement* element, const char* text, unsigned long length);
  void AppendTextExcludingCR(CXmlElement* element, const char* text);
  /// Closes the innermost open element and calls the callback with it. Nothing happens when none is
  /// open.
  void EndElement();
  /// Binds a prefix, in place of an earlier binding.
  void AddNamespacePrefix(const char* prefix, const char* namespaceUri);

 private:
  friend class CExpatReader;
  friend class CFastInfosetReader;
  friend class detail::fi::CDecoder;
  friend class TInstanceCounted<CXmlDocument>;
  static CInstanceCounter s_instances;

  // Defined in binding/document_loading.cpp.
  void Init(ElementCompleteCallback callback, const CSerializationContext& context);
  bool StripsCDATA() const;
  bool RefusesDocumentType() const;
  unsigned GetMaxAmplification() const;
  void SetInput(CBinaryData&& input);
  void TakeInput(CBinaryData&& input);
  void BorrowInput(const void* source, size_t length);
  void Parse();
  class CEndOfParse;
  bool ParseFastInfoset();
  void ParseText();
  void ParsePieces(detail::CInputFile& file);
  // Defined in binding/json_loading.cpp.
  template <class TConvert>
  CBinaryData ParseJson(const TConvert& convert);
  void ParseJsonText(const CBinaryData& xml);

  detail::CNodeArena& Arena();
  CXmlElement* AddDocElement(const detail::CXmlName* name);
  CXmlElement* AddChildElement(const detail::CXmlName* name);
  void CloseElement();
  void OfferElement(CXmlElement* element);
  [[noreturn]] static void ThrowNoOpenElement();
  void Release() noexcept;
  void ClearInput() noexcept;
  void UnbindPrefix(const std::string& prefix, const std::string& namespaceUri);

  CXmlElement* m_documentElement = nullptr;
  std::vector<CXmlElement*> m_openElements;
  std::map<std::string, std::string, std::less<>> m_namespaceByPrefix;
  std::map<std::string, std::set<std::string>, std::less<>> m_prefixesByNamespace;
  // What is being parsed: the caller's bytes, or those of m_ownInput.
  const unsigned char* m_input = nullptr;
  size_t m_inputLength = 0;
  CBinaryData m_ownInput;
  // Null when the input tells its encoding itself.
  const char* m_inputEncoding = nullptr;
  ElementCompleteCallback m_callback = nullptr;
  const CSerializationContext* m_context = nullptr;
  bool m_usesNamespaces = true;
  bool m_refuseDocumentType = false;
  detail::CNodeArena* m_arena = nullptr;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_XML_DOCUMENT_H_
