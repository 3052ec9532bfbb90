// The base of every object that can be written and read: generated classes, collections, untyped
// holders. Entry points, reference count, guards for property setters, events, name tests.

#ifndef QVXML_BINDING_XML_OBJECT_BASE_H_
#define QVXML_BINDING_XML_OBJECT_BASE_H_

#include <atomic>
#include <string>

#include "qvxml/binding/event_sink.h"
#include "qvxml/binding/object_name.h"
#include "qvxml/binding/serialization_context.h"
#include "qvxml/fastinfoset/fi_declaration.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/encoding.h"

namespace QvXmlLib16 {

class CElement;            // xml/untyped/element.h
class CXmlCollectionBase;  // binding/xml_collection_base.h
class CXmlElement;         // xml/xml_element.h
class CXmlWriter;          // xml/xml_writer.h

/// A bindable object.
///
/// Objects are counted: a new one has no reference, and is destroyed when its last reference is
/// released, so it is made with `new` and held in a CSmartPtr. An object on the stack must never be
/// given to one.
///
/// Every entry point throws the CQvException family and begins with the check of the generated
/// code's version, see licence/licence_check.h. Reading replaces what the object holds; after a
/// failure it holds what was read so far.
class QVXML_API CXmlObjectBase : public IEventSink, private TInstanceCounted<CXmlObjectBase> {
 public:
  CXmlObjectBase();
  explicit CXmlObjectBase(const char* elementName);
  /// Copies the element name; the copy has no references.
  CXmlObjectBase(const CXmlObjectBase& other);
  /// Copies the element name; the references stay those of the target.
  CXmlObjectBase& operator=(const CXmlObjectBase& other);

  /// Called when a collection that this object listens to changes. Does nothing here.
  void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override;

  /// The object that carries the element name: the object itself, or what a wrapper stands for.
  virtual CXmlObjectBase* GetBase() = 0;

  // Writing.
  //
  // `format` asks for line ends and indentation, with the context's indent characters. Files appear
  // whole or not at all, unless AsyncToXmlFile is set. Text in an encoding other than UTF-8 is the
  // platform's wide characters, which few programs read.

  /// Writes an XML file. Compression may be none or gzip; zlib throws CQvException before the file
  /// is touched.
  virtual void ToXmlFile(const char* path, bool includeDocHeader = true, bool format = true,
                         XmlEncoding encoding = Encoding_UTF8, EOLType eol = EOL_LF,
                         const CSerializationContext& ctx = CSerializationContext::m_defaultContext,
                         CompressionType compression = CompressionType_None) const;
  /// Writes a Fast Infoset file, whole or not at all. Compression as above.
  virtual void ToFastInfosetFile(
      const char* path, FInfoDecl declaration = FInfoDecl_None,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext,
      CompressionType compression = CompressionType_None) const;
  /// Writes a file of JSON, with the options of ctx.GetJsonContext(); as ToXmlFile otherwise.
  virtual void ToJsonFile(
      const char* path, bool format = true, XmlEncoding encoding = Encoding_UTF8,
      EOLType eol = EOL_LF,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext,
      CompressionType compression = CompressionType_None) const;
  /// Returns the document as text of the process' locale, see Encoding; `includeDocHeader` adds the
  /// XML declaration.
  virtual std::string ToXml(
      bool includeDocHeader = true, bool format = true, EOLType eol = EOL_LF,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext) const;
  /// Returns the document as JSON, as text of the process' locale.
  virtual std::string ToJson(
      bool format = true, EOLType eol = EOL_LF,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext) const;
  /// Returns the document as bytes.
  virtual CBinaryData ToXmlStream(
      bool includeDocHeader = true, bool format = true, XmlEncoding encoding = Encoding_UTF8,
      EOLType eol = EOL_LF,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext,
      CompressionType compression = CompressionType_None) const;
  /// Returns the Fast Infoset document, written as the context's GetFIContext() says.
  virtual CBinaryData ToFastInfosetStream(
      FInfoDecl declaration = FInfoDecl_None,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext,
      CompressionType compression = CompressionType_None) const;

  /// Returns the document as bytes of JSON.
  virtual CBinaryData ToJsonStream(
      bool format = true, XmlEncoding encoding = Encoding_UTF8, EOLType eol = EOL_LF,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext,
      CompressionType compression = CompressionType_None) const;

  // Reading. The root element's name is not compared with anything: the object adopts it.

  /// Reads a file of XML, plain or compressed with gzip or zlib.
  virtual void FromXmlFile(
      const char* path, const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  /// Reads a file of JSON, plain or compressed with gzip or zlib.
  ///
  /// JSON is turned into XML text as the context's JSON options tell. JSON that cannot be, throws
  /// as CJsonTextReader::ConvertJsonToXml. When the XML text then cannot be read, CQvException
  /// "Error converting JSON to XML:\n%s" quotes it and holds the reason. Unless the JSON is
  /// JsonRoundTrip_Full, namespaces are ignored: `ctx` is set so while the object is read, and must
  /// not be in use by another thread; that goes for the default context too.
  virtual void FromJsonFile(
      const char* path, const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  /// Reads XML text; null is empty, which throws.
  virtual void FromXml(const char* text,
                       const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  virtual void FromXml(const wchar_t* text,
                       const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  /// Reads JSON text of the locale, as FromJsonFile; null is empty, which throws.
  virtual void FromJson(const char* text,
                        const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  virtual void FromJson(const wchar_t* text,
                        const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  /// Reads `length` bytes of XML, plain or compressed; they are copied.
  virtual void FromXmlStream(
      unsigned char* bytes, unsigned long length,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  virtual void FromXmlStream(const CBinaryData& data, const CSerializationContext& ctx =
                                                          CSerializationContext::m_defaultContext);
  /// Reads `length` bytes of JSON in UTF-8, plain or compressed, as FromJsonFile.
  virtual void FromJsonStream(
      unsigned char* bytes, unsigned long length,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  virtual void FromJsonStream(const CBinaryData& data, const CSerializationContext& ctx =
                                                           CSerializationContext::m_defaultContext);
  /// Reads an element of a loaded document.
  virtual void FromXmlElement(
      const CXmlElement* element,
      const CSerializationContext& ctx = CSerializationContext::m_defaultContext);
  /// Reads what an untyped holder holds.
  virtual void FromXmlElement(const CElement* element, const CSerializationContext& ctx =
                                                           CSerializationContext::m_defaultContext);

  virtual ~CXmlObjectBase();

  /// Namespace that the object's own element is written in.
  virtual std::string GetTargetNamespace() const = 0;
  /// Namespace of the class.
  virtual std::string GetNamespace() const = 0;

  // The two operations behind every entry point, for the library and generated code.

  /// Writes the attributes into the open start tag. Writes nothing here.
  virtual void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& ctx) const;
  /// Writes the object. `isRoot` adds what the context wants at the document element; `optional`
  /// lets a choice be empty.
  virtual void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                         const CSerializationContext& ctx, bool optional) const = 0;
  /// Reads the object from `element`, whose first child not read yet is `firstChild`; returns the
  /// first child that it did not take, or null.
  virtual CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                   const CSerializationContext& ctx, bool optional) = 0;

  // Element name and references.

  const std::string& GetElementName() const { return m_elementName.Get(); }
  /// Null is "".
  void SetElementName(const char* elementName);
  /// Adds a reference; returns the new count. From any thread.
  long long AddRef() noexcept;
  /// Drops a reference and destroys the object with the last one; returns the new count. From any
  /// thread. However long the chain of objects that hold each other is, destroying it takes little
  /// stack: those more than 200 deep are destroyed after the ones around them.
  long long Release();
  /// Whether exactly one reference is held: then it is the caller's own.
  bool IsSoleReference() const noexcept {
    return m_references.load(std::memory_order_acquire) == 1;
  }

  // Process-wide switches; not locked, so set them before other threads write.

  /// Lets ToXmlFile and ToJsonFile without compression write straight into the file as they go, in
  /// little memory: a failure then leaves the file cut off.
  static void AsyncToXmlFile(bool isAsync);
  /// Kept for the interface; reading always loads the whole file first.
  static void AsyncFromXmlFile(bool isAsync);

  // Guards for generated property setters.

  /// Throws CQvInvalidParamException when `value` is null.
  static void Throw_IfPropertyIsNull(CXmlObjectBase* value, const char* propertyName);
  /// Throws CQvInvalidParamException when the element name of `value` is not `requiredName`; null
  /// passes.
  static void Throw_IfElementNameDiffers(CXmlObjectBase* value, const char* requiredName);
  /// Marks the choice's member `name`, selected before, as having a value, or clears the selection
  /// when `isValid` is false. Throws CQvInvalidStateException when another member, or none, is
  /// selected.
  static void Choice_SetElementValid(bool isValid, const char* name, std::string& selected);
  /// Selects the choice's member `name` for `newValue`, or gives the selection up when that is
  /// null. Throws CQvInvalidStateException when another member is selected.
  static void Choice_SelectElement(const char* name, CXmlObjectBase* newValue,
                                   std::string& selected);
  /// The same for a collection that now holds `count` items.
  static void Choice_CollectionChanged(const char* name, long count, std::string& selected);
  /// Reads a collection of a choice from `cursor` on, moves the cursor behind what it took and adds
  /// the number of items to `count`.
  static void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                     CXmlElement*& cursor, long& count,
                                     const CSerializationContext& ctx);

  // Events. The sink must not be null.

  static void FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection);
  static void FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                       void* item);
  static void FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                               void* item);
  /// An index of -1 means all items.
  static void FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                          int index);
  static void FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                  int index);

  // Name and namespace tests.

  /// Whether `element` has that name, and, unless the context ignores namespaces, that namespace.
  bool DoesElementNameMatch(const CSerializationContext& ctx, const CXmlElement* element,
                            const char* name, const char* namespaceUri) const;
  /// Whether a wildcard's list admits `namespaceUri`.
  ///
  /// The list is split at blanks: "##any" admits everything, "##other" what differs from the target
  /// namespace, "##local" the empty namespace, "##targetNamespace" the target. Any other token
  /// admits the empty namespace, and the namespace that equals the whole list: so a list of two
  /// URIs admits neither of them. An empty list admits nothing.
  bool IsNamespaceValid(const char* namespaceUri, const char* allowedList,
                        const char* targetNamespace) const;
  /// True when IsNamespaceValid is; throws CQvInvalidNamespaceException otherwise.
  bool TestNamespace(const char* namespaceUri, const char* allowedList,
                     const char* targetNamespace) const;

 protected:
  /// SetElementName for a name that an input gives.
  void AdoptElementName(const std::string& elementName);

 private:
  friend class TInstanceCounted<CXmlObjectBase>;
  static CInstanceCounter s_instances;

  // Reads the XML text that JSON has become.
  void FromJson_Int(const CBinaryData& xml, const CSerializationContext& ctx);

  static void Destroy(CXmlObjectBase* object);

  detail::CObjectName m_elementName;
  std::atomic<long long> m_references{0};
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_XML_OBJECT_BASE_H_
