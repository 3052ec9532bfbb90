// The interface through which every output format is written, and what the formats share: the open
// elements and the namespaces in scope.

#ifndef QVXML_XML_XML_WRITER_H_
#define QVXML_XML_XML_WRITER_H_

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "qvxml/core/item_type.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/encoding.h"

namespace QvXmlLib16 {

class QvVariant;  // core/value/variant.h

namespace detail {
class CNamespaceScopes;  // xml/namespace_scopes_internal.h
}  // namespace detail

/// What a format notes about an open element that holds a collection. The numbers are fixed; the
/// names tell what they mean to JSON.
enum ContextState : int {
  ContextState_None = 0,
  /// The children that follow are the items of a collection; its array is not open yet.
  ContextState_CollectionBegin = 1,
  ContextState_ArrayOpen = 2,
  /// The collection has ended; the array is closed with the element.
  ContextState_CollectionEnd = 3,
};

/// Writes a document as a sequence of infoset items. The order of the virtual operations is fixed.
///
/// A writer serves one document at a time, on one thread. A call that does not fit the state throws
/// CQvException and changes nothing; output written before a failure stays written.
class QVXML_API CXmlWriter {
 public:
  class CXmlWriterContext;
  /// Namespace URI to prefix.
  using NamespaceMap = std::map<std::string, std::string>;

  static constexpr char XML_NAMESPACE[] = "http://www.w3.org/XML/1998/namespace";

  virtual ~CXmlWriter();

  // The document.

  /// Does nothing.
  virtual void Open();
  /// Throws CQvException "An Element has not been closed." when one is still open.
  virtual void Close();

  // Namespaces. With an element open these bind within it and declare nothing, so the caller writes
  // the declaration; before the root is opened they are declared on it.

  /// Sets the namespace that needs no prefix, "" for none.
  virtual void SetDefaultNamespace(const std::string& namespaceUri);
  /// Binds the namespace to the prefix, replacing an earlier one. An empty prefix counts as none.
  virtual void AddNamespace(const std::string& prefix, const std::string& namespaceUri);

  // Content. `isDefaultValue` tells that the text is the default of the element in its schema.

  virtual void WriteComment(const std::string& text) = 0;
  /// `text` is the whole instruction as it is to appear.
  virtual void WritePI(const std::string& text) = 0;
  virtual void WriteInlineSchema(const std::string& schemaText) = 0;
  virtual void WriteStartElement(const std::string& localName, const std::string& namespaceUri) = 0;
  virtual void WriteString(const std::string& text, ItemType type, bool isDefaultValue) = 0;
  virtual void WriteEndElement() = 0;
  /// Only between the start of an element and its content.
  virtual void WriteAttributeString(const std::string& localName, const std::string& namespaceUri,
                                    const std::string& value, ItemType type) = 0;
  /// Writes xsi:type, as an attribute. Namespace first, name second.
  virtual void WriteAttributeType(const std::string& typeNamespace, const std::string& typeName,
                                  ItemType type) = 0;
  /// Writes xsi:nil with the value true, as an attribute.
  virtual void WriteAttributeNil() = 0;
  /// Writes an element that holds nothing but text: WriteStartElement, WriteString and
  /// WriteEndElement, which are called here one after the other. Formats that can do the same in
  /// one step override it.
  virtual void WriteTextElement(const std::string& localName, const std::string& namespaceUri,
                                std::string_view text, ItemType type, bool isDefaultValue);
  /// WriteAttributeString, which is called here, for text that is no string.
  virtual void WriteTextAttribute(const std::string& localName, const std::string& namespaceUri,
                                  std::string_view value, ItemType type);

  /// Sets the state of the innermost open element; does nothing when none is open.
  void SetContextState(ContextState state);
  /// Room for the text of a value on its way to the writer, emptied; for one value at a time. The
  /// writers leave it alone.
  std::string& GetValueRoom() noexcept {
    m_valueRoom.clear();
    return m_valueRoom;
  }

  /// A variant for the properties of the objects that are being written, or null; lent by the
  /// driver of generated classes, for which alone it is.
  QvVariant* GetPropertyRoom() const noexcept { return m_propertyRoom; }
  void SetPropertyRoom(QvVariant* room) noexcept { m_propertyRoom = room; }

  // Prefixes.

  /// The first of NsIntToString(0), NsIntToString(1), ... that is no prefix in the map.
  static std::string GetUniquePrefix(const NamespaceMap& namespaces);
  /// Two letters, AA for 0 to ZZ for 675, and three and more letters from there on: AAA for 676. A
  /// number below 0 counts as 0.
  static std::string NsIntToString(int number);

 protected:
  /// `instanceName` is the name of the concrete class for the instance monitor.
  explicit CXmlWriter(const char* instanceName);
  CXmlWriter(const CXmlWriter&) = delete;
  CXmlWriter& operator=(const CXmlWriter&) = delete;

  // For the formats.

  /// The innermost open element, or null.
  CXmlWriterContext* GetContext() const noexcept { return m_context; }
  /// The innermost open element. Throws CQvException "An Element has not been opened.".
  CXmlWriterContext& GetOpenContext() const;
  /// Opens an element within the innermost one. The root gets the depth `rootDepth` and the
  /// writer's default namespace and bindings; others one more than their parent's depth and what is
  /// in force there. The context belongs to the writer and serves until PopContext().
  CXmlWriterContext& PushContext(const std::string& localName, const std::string& namespaceUri,
                                 unsigned long rootDepth);
  /// The same for a format that needs no name of open elements: local name and namespace are "".
  CXmlWriterContext& PushContext(unsigned long rootDepth);
  /// Ends the innermost open element, and with it the bindings made within it.
  void PopContext() noexcept;
  /// The default namespace for the root.
  const std::string& GetRootDefaultNamespace() const noexcept { return m_defaultNamespace; }
  /// The bindings to declare on the root. Skip those that IsDeclarable refuses.
  const NamespaceMap& GetRootNamespaceMap() const noexcept { return m_namespaceMap; }
  /// Whether a binding may be declared: not those of the XML namespace and of namespaces that begin
  /// with its URI, and not those to an empty prefix.
  static bool IsDeclarable(const NamespaceMap::value_type& binding) noexcept;
  /// The namespace of the attributes type and nil.
  static const std::string& GetXsiNamespace();
  /// "\r\n" or "\n". Throws CQvException "Invalid EOL type.".
  static const char* GetEOLText(EOLType type);

 private:
  CXmlWriterContext& OpenSpareContext(unsigned long rootDepth);

  std::string m_defaultNamespace;
  CXmlWriterContext* m_context = nullptr;
  NamespaceMap m_namespaceMap;
  // Contexts of ended elements, linked by their parents, for reuse with the memory of their
  // strings.
  CXmlWriterContext* m_spareContexts = nullptr;
  std::unique_ptr<detail::CNamespaceScopes> m_scopes;
  std::string m_valueRoom;
  // Likewise, for WriteTextElement and WriteTextAttribute.
  std::string m_textRoom;
  QvVariant* m_propertyRoom = nullptr;
  CNamedInstance m_instance;
};

/// An open element. Owned by its writer; see CXmlWriter::PushContext.
class QVXML_API CXmlWriter::CXmlWriterContext : private TInstanceCounted<CXmlWriterContext> {
 public:
  CXmlWriterContext(const CXmlWriterContext&) = delete;
  CXmlWriterContext& operator=(const CXmlWriterContext&) = delete;

  // The element.

  const std::string& GetLocalName() const noexcept { return m_localName; }
  const std::string& GetNamespaceUri() const noexcept { return *m_namespaceUri; }
  /// The element around it; null for the root.
  CXmlWriterContext* GetParent() const noexcept { return m_parent; }
  unsigned long GetDepth() const noexcept { return m_depth; }
  void SetDepth(unsigned long depth) noexcept { m_depth = depth; }

  // What its format has written of it.

  /// Children started so far.
  unsigned long GetChildCount() const noexcept { return m_childCount; }
  void AddChild() noexcept { ++m_childCount; }
  bool IsStartTagOpen() const noexcept { return m_isStartTagOpen; }
  void SetStartTagOpen(bool isOpen) noexcept { m_isStartTagOpen = isOpen; }
  ContextState GetState() const noexcept { return m_state; }
  void SetState(ContextState state) noexcept { m_state = state; }

  // Namespaces. Bindings are those of the innermost open element, whichever context is asked, and
  // those made go with it.

  const std::string& GetDefaultNamespace() const noexcept { return *m_defaultNamespace; }
  /// Sets it for this element and what is opened within it from now on.
  void SetDefaultNamespace(const std::string& namespaceUri);
  /// The prefix of the element itself: "" when its namespace needs or has none.
  const std::string& GetPrefix() const {
    if (m_prefix == nullptr) m_prefix = FindPrefix();
    return *m_prefix;
  }
  /// Whether the namespace needs no prefix on an element: it is "" or the default one.
  bool IsUnprefixed(const std::string& namespaceUri) const noexcept {
    return namespaceUri.empty() || namespaceUri == *m_defaultNamespace;
  }
  /// The prefix of an element within this one, which is the innermost: "" when its namespace needs
  /// none, null when it needs one and has none.
  const std::string* FindPrefixWithin(const std::string& namespaceUri) const;
  /// The bindings in force.
  const NamespaceMap& GetNamespaceMap() const noexcept;
  /// The prefix of a namespace, or "" when it has none. The XML namespace has xml unless another is
  /// bound. Valid while the binding is in force.
  const std::string& GetNamespaceMapValue(const std::string& namespaceUri) const;
  void SetNamespaceMapValue(const std::string& namespaceUri, const std::string& prefix);
  /// As CXmlWriter::GetUniquePrefix for the bindings in force, but without a search through them.
  std::string GetUniquePrefix() const;

 private:
  friend class CXmlWriter;
  friend class TInstanceCounted<CXmlWriterContext>;
  static CInstanceCounter s_instances;

  explicit CXmlWriterContext(detail::CNamespaceScopes& scopes) noexcept : m_scopes(scopes) {}
  ~CXmlWriterContext() = default;

  const std::string* FindPrefix() const;

  unsigned long m_childCount = 0;
  bool m_isStartTagOpen = false;
  unsigned long m_depth = 0;
  // Its own one, or that of the element around it, which is mostly the same.
  const std::string* m_namespaceUri = nullptr;
  std::string m_ownNamespaceUri;
  std::string m_localName;
  CXmlWriterContext* m_parent = nullptr;
  // Its own one, or the one of the nearest element around that has its own: the root always has.
  const std::string* m_defaultNamespace = nullptr;
  std::string m_ownDefaultNamespace;
  ContextState m_state = ContextState_None;
  detail::CNamespaceScopes& m_scopes;
  // What was bound before the element began.
  size_t m_scopeMark = 0;
  // Found by GetPrefix(); null when that is to be done anew. A binding that is replaced keeps its
  // address.
  mutable const std::string* m_prefix = nullptr;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_XML_WRITER_H_
