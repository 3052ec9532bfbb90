// An element that the schema allows without naming it, with all that it holds.

#ifndef QVXML_XML_UNTYPED_ELEMENT_H_
#define QVXML_XML_UNTYPED_ELEMENT_H_

#include <string>

#include "qvxml/binding/lazy_object.h"
#include "qvxml/binding/root_reader.h"
#include "qvxml/binding/xml_object_base.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

class CAttributeCol;  // xml/untyped/attribute_col.h
class CElementCol;    // xml/untyped/element_col.h

namespace detail {
class CUntypedWriter;  // xml/untyped/untyped_writer_internal.h
}

/// A name, a namespace, text, attributes and child elements.
///
/// The namespace must be one that the restriction, the list of a wildcard, admits:
/// CXmlObjectBase::IsNamespaceValid tells the rules. Attributes and children may be in any.
///
/// Where the text stood between the children is not known: it is written after them. A formatted
/// document adds line ends and indentation to the text of elements that have text and children.
/// Text that begins with "<![CDATA[" is written as it is, so it may hold markup.
///
/// No operation recurses into the children, so they may be nested as deep as memory allows.
class QVXML_API CElement final : public CXmlObjectBase,
                                 public IRootReader,
                                 private TInstanceCounted<CElement> {
 public:
  // Construction. Without a restriction it is "##any", without a namespace or target namespace that
  // is "". Each throws CQvInvalidNamespaceException for a name or a restriction that is null or
  // empty, for a target namespace that is null, and for a namespace that is not admitted.

  explicit CElement(const char* name);
  CElement(const char* name, const char* namespaceUri);
  CElement(const char* name, const char* namespaceUri, const char* namespaceRestriction,
           const char* targetNamespace);
  /// For generated code; the parent is not used.
  CElement(CXmlObjectBase* parent, const char* name);
  CElement(const CElement&) = delete;
  CElement& operator=(const CElement&) = delete;
  /// Releases the children one after the other, however deep they are nested.
  ~CElement() override;

  // Content.

  const std::string& GetName() const { return GetElementName(); }
  /// Throws CQvInvalidNamespaceException for null or "".
  void SetName(const char* name);
  std::string GetNamespace() const override { return m_namespace; }
  /// Null is "". Throws CQvInvalidNamespaceException unless the restriction admits it.
  void SetNamespace(const char* namespaceUri);
  const std::string& GetText() const { return m_text; }
  /// Null is "".
  void SetText(const char* text);
  /// The attributes, never null. An attribute "xmlns" is not written while the element has a
  /// namespace, which is declared anyway.
  CSmartPtr<CAttributeCol> GetAttributes() const;
  /// The children, never null.
  CSmartPtr<CElementCol> GetElements() const;

  // The wildcard.

  std::string GetTargetNamespace() const override { return m_targetNamespace; }
  const std::string& GetNamespaceRestriction() const { return m_namespaceRestriction; }
  /// Throws as construction does, and then changes nothing.
  void SetNamespaceRestrictions(const char* namespaceRestriction, const char* targetNamespace);

  // Copying.

  /// A copy with copies of all that the element holds, and without listeners.
  CSmartPtr<CElement> Clone() const;
  /// Takes over name, namespace, text, attributes and children of a document's element in place of
  /// what it holds. The restriction is not asked. From a document that was read without namespace
  /// processing, the value of an attribute "xmlns" becomes the namespace. Throws
  /// CQvInvalidParamException for null.
  void CopyXmlElement(const CXmlElement* source);

  // Notifications, which do nothing.

  void FireOnChangeName() {}
  void FireOnChangeNamespace() {}
  void FireOnChangeText() {}

  // As a bindable object. The entry points read the root itself, and throw CQvValidationException
  // with its path when the restriction does not admit its namespace.

  /// The element itself.
  CXmlObjectBase* GetBase() override;
  /// Writes the element.
  ///
  /// In XML text an element in a namespace declares that as its default namespace, whatever is
  /// declared around it, and uses no other prefix than its own; formatted, it is indented as a
  /// document of its own, with tabs, and followed by an empty line. One in no namespace is written
  /// like any other, and takes back the default namespace around it where there is one. Other
  /// formats are handed the namespaces as they are.
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                 const CSerializationContext& ctx, bool optional) const override;
  /// Reads the element `current`, not its children, and returns its next sibling; returns `current`
  /// when the restriction does not admit its namespace, unless the context ignores namespaces.
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current,
                           const CSerializationContext& ctx, bool optional) override;
  void ReadRoot_Int(CXmlElement* root, const CSerializationContext& ctx) override;

 private:
  friend class detail::CUntypedWriter;
  friend class CElementCol;
  friend class QvXmlLib16::TInstanceCounted<CElement>;
  static CInstanceCounter s_instances;

  // Without a name yet.
  CElement(const std::string& namespaceRestriction, const std::string& targetNamespace);

  void Init(const char* name, const char* namespaceUri, const char* namespaceRestriction,
            const char* targetNamespace);
  void CopyOwnContent(const CXmlElement& source);
  CSmartPtr<CElement> CloneWithoutElements() const;
  // Null when there are none yet.
  const CAttributeCol* FindAttributes() const noexcept;
  const CElementCol* FindElements() const noexcept;
  [[noreturn]] static void ThrowInvalidElement(const CXmlElement& element);

  std::string m_namespace;
  std::string m_text;
  std::string m_namespaceRestriction;
  std::string m_targetNamespace;
  // Made when they are first asked for: most elements have neither.
  detail::CLazyObject m_attributes;
  detail::CLazyObject m_elements;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_UNTYPED_ELEMENT_H_
