// The options of one serialization or deserialization.

#ifndef QVXML_BINDING_SERIALIZATION_CONTEXT_H_
#define QVXML_BINDING_SERIALIZATION_CONTEXT_H_

#include <string>
#include <vector>

#include "qvxml/binding/lazy_object.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/namespace_alias_map.h"

namespace QvXmlLib16 {

class CAttributeCol;        // xml/untyped/attribute_col.h
class CFastInfosetContext;  // fastinfoset/fi_context.h
class CJsonContext;         // json/json_context.h

namespace detail {
class CIgnoreNamespacesScope;  // binding/ignore_namespaces_scope_internal.h
}  // namespace detail

/// The kind of schema that the classes were generated from. The numbers are fixed.
enum SchemaType : int {
  SchemaType_Default = 0,
  SchemaType_1 = 1,
  /// Elements are matched by their local names alone and namespaces are ignored. Documents are read
  /// without namespace processing: "p:name" and "xmlns:p" arrive as local names, and attributes
  /// such as xmlns and xsi:type count as unexpected unless unknown attributes are ignored.
  SchemaType_LocalNames = 2,
};

/// Tells readers what they may ignore and writers what they add to the document.
///
/// Getters never fail. A context may serve several serializations at once as long as nobody changes
/// it; reading JSON in another mode than JsonRoundTrip_Full does, so a context that it uses, the
/// default one included, must serve nothing else meanwhile. Null text given to a setter stands for
/// "".
class QVXML_API CSerializationContext : private TInstanceCounted<CSerializationContext> {
 public:
  /// What documents and objects use when they are given no context.
  static CSerializationContext m_defaultContext;

  CSerializationContext();
  CSerializationContext(const CSerializationContext& other);
  CSerializationContext& operator=(const CSerializationContext& other);
  virtual ~CSerializationContext();

  // What reading tolerates; all off at first.

  /// Attributes that the class does not know are skipped.
  bool GetIgnoreUnknownAttributes() const { return m_ignoreUnknownAttributes; }
  void SetIgnoreUnknownAttributes(bool value) { m_ignoreUnknownAttributes = value; }
  /// Elements that the class does not know are skipped, and **known ones behind them may be lost**.
  /// In a sequence an optional member or a collection only looks at the next element, so behind an
  /// unknown one it stays empty; a mandatory member skips on to its element, whatever comes before
  /// it. In an all-group the first unknown element ends the reading. docs/xml.md has an example.
  ///
  /// Excludes IgnoreMissingMandatoryElements:
  /// reading can find its place again after one or the other, not both. Setting it to true while
  /// the other is true throws CQvInvalidStateException "The parser can only ignore additional
  /// elements, or ignore the fact that some required ones are missing, you can not ignore both\nSet
  /// IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true".
  bool GetIgnoreUnknownElements() const { return m_ignoreUnknownElements; }
  void SetIgnoreUnknownElements(bool value);
  /// A missing mandatory member of a sequence counts as read. Setting it to true while
  /// IgnoreUnknownElements is true throws CQvInvalidStateException as above, with the two names
  /// exchanged in the second line.
  bool GetIgnoreMissingMandatoryElements() const { return m_ignoreMissingMandatoryElements; }
  void SetIgnoreMissingMandatoryElements(bool value);
  /// A choice may have no member, in reading and in writing.
  bool GetIgnoreMissingChoice() const { return m_ignoreMissingChoice; }
  void SetIgnoreMissingChoice(bool value) { m_ignoreMissingChoice = value; }
  /// Collections may hold fewer or more items than the schema allows.
  bool GetIgnoreInvalidCollectionCounts() const { return m_ignoreInvalidCollectionCounts; }
  void SetIgnoreInvalidCollectionCounts(bool value) { m_ignoreInvalidCollectionCounts = value; }
  /// Elements and attributes are matched by their local names. Also true, whatever was set, while
  /// the schema type is SchemaType_LocalNames.
  bool GetIgnoreNamespaces() const {
    return m_ignoreNamespaces || m_schemaType == SchemaType_LocalNames;
  }
  void SetIgnoreNamespaces(bool value) { m_ignoreNamespaces = value; }

  // How documents are read.

  /// SchemaType_Default at first. A document takes it when it is constructed.
  SchemaType GetSchemaType() const { return m_schemaType; }
  void SetSchemaType(SchemaType value) { m_schemaType = value; }
  /// Whether the text of an element holds the content of a CDATA section alone (true, at first), or
  /// with its "<![CDATA[" and "]]>" around it.
  bool GetStripCDATA() const { return m_stripCDATA; }
  void SetStripCDATA(bool value) { m_stripCDATA = value; }

  // What reading refuses. Each load takes the limits as they are then; docs/security.md has those
  // that stand elsewhere.

  /// Whether a document type declaration is refused, in XML text and in Fast Infoset: CQvException
  /// "The document type declaration is refused at line %lu", or "at byte %lu". False at first.
  bool GetRefuseDocumentType() const { return m_refuseDocumentType; }
  void SetRefuseDocumentType(bool value) { m_refuseDocumentType = value; }
  /// How many times the size of the XML text that which the text makes the parser repeat may add up
  /// to (entities, attribute defaults, namespace URIs), beyond 8 MiB that are always allowed; 100
  /// at first, 0 for no limit. CFastInfosetContext has its own.
  unsigned GetMaxAmplification() const { return m_maxAmplification; }
  void SetMaxAmplification(unsigned ratio) { m_maxAmplification = ratio; }
  /// Largest size in bytes that a compressed document, XML, JSON or Fast Infoset, may have once it
  /// is decompressed; 0, at first, stands for CQvZip::GetMaxDecompressedSize().
  unsigned long GetMaxDecompressedSize() const { return m_maxDecompressedSize; }
  void SetMaxDecompressedSize(unsigned long bytes) { m_maxDecompressedSize = bytes; }

  // What writing adds and leaves out.

  /// Whether a derived class written under another element's name gets an xsi:type attribute; true
  /// at first.
  bool GetWriteTypeAttribute() const { return m_writeTypeAttribute; }
  void SetWriteTypeAttribute(bool value) { m_writeTypeAttribute = value; }
  /// Whether optional attributes that hold their default are left out; false at first.
  bool GetNoOptionalAttributeDefaultOutput() const { return m_noOptionalAttributeDefaultOutput; }
  void SetNoOptionalAttributeDefaultOutput(bool value) {
    m_noOptionalAttributeDefaultOutput = value;
  }
  /// Whether elements that hold their default are written with it; false at first.
  bool GetWriteDefaultElementValues() const { return m_writeDefaultElementValues; }
  void SetWriteDefaultElementValues(bool value) { m_writeDefaultElementValues = value; }
  /// Whether text that begins with "<![CDATA[" is written to XML text as it is, which lets it hold
  /// any markup; true at first. Set to false, all text is escaped.
  bool GetWriteCDATA() const { return m_writeCDATA; }
  void SetWriteCDATA(bool value) { m_writeCDATA = value; }
  /// Default namespace declared on the root; "" (at first) declares none.
  std::string GetDefaultNamespaceURI() const { return m_defaultNamespaceUri; }
  void SetDefaultNamespaceURI(const char* value);
  /// Schema text written as it is inside the root; "" at first.
  std::string GetInLineSchema() const { return m_inLineSchema; }
  void SetInLineSchema(const char* value);
  /// Text of one level of indentation, one tab at first; "" means none. Throws
  /// CQvInvalidParamException "IndentChars can only contain Whitespace characters, i.e. \t or
  /// spaces", with a backslash and a t, for anything but spaces and tabs, and then keeps the old
  /// value.
  std::string GetIndentChars() const { return m_indentChars; }
  void SetIndentChars(const char* value);
  /// Prefixes that the root declares, for the caller to fill.
  CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }
  const CNamespaceAliasMap& GetNamespaceAliases() const { return m_namespaceAliases; }
  /// Attributes that the root gets before its own, for the caller to fill; never null. Made when it
  /// is first asked for, from any thread. A copy of the context shares it, if it was made by then,
  /// so what is added later shows in both. Defined in xml/untyped/attribute_col.cpp.
  CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;
  /// Whether they have been asked for.
  bool HasAdditionalRootAttributes() const { return m_additionalRootAttributes.Get() != nullptr; }
  /// Processing instructions written before the root, for the caller to fill.
  std::vector<std::string>& GetProcessingInstructions() { return m_processingInstructions; }
  const std::vector<std::string>& GetProcessingInstructions() const {
    return m_processingInstructions;
  }

  // The options of other formats.

  /// Those of JSON, for the caller to change. Made when they are first asked for, from any thread.
  /// A copy of the context shares them, if they were made by then.
  CJsonContext& GetJsonContext() const;
  /// Those of Fast Infoset, for the caller to change. Made when they are first asked for, from any
  /// thread. A copy of the context shares them, if they were made by then.
  CFastInfosetContext& GetFIContext() const;

 private:
  friend class detail::CIgnoreNamespacesScope;
  friend class TInstanceCounted<CSerializationContext>;
  static CInstanceCounter s_instances;

  detail::TLazyShared<CJsonContext> m_jsonContext;
  detail::TLazyShared<CFastInfosetContext> m_fiContext;
  std::string m_defaultNamespaceUri;
  bool m_writeTypeAttribute = true;
  CNamespaceAliasMap m_namespaceAliases;
  detail::CLazyObject m_additionalRootAttributes;
  std::vector<std::string> m_processingInstructions;
  std::string m_inLineSchema;
  bool m_ignoreInvalidCollectionCounts = false;
  bool m_ignoreMissingChoice = false;
  bool m_ignoreMissingMandatoryElements = false;
  bool m_ignoreUnknownElements = false;
  bool m_ignoreUnknownAttributes = false;
  // Reading JSON sets it for a while.
  mutable bool m_ignoreNamespaces = false;
  SchemaType m_schemaType = SchemaType_Default;
  bool m_noOptionalAttributeDefaultOutput = false;
  bool m_writeDefaultElementValues = false;
  bool m_stripCDATA = true;
  bool m_writeCDATA = true;
  bool m_refuseDocumentType = false;
  unsigned m_maxAmplification = 100;
  unsigned long m_maxDecompressedSize = 0;
  std::string m_indentChars = "\t";
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_SERIALIZATION_CONTEXT_H_
