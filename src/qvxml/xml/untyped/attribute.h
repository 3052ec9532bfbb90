// An attribute that the schema allows without naming it.

#ifndef QVXML_XML_UNTYPED_ATTRIBUTE_H_
#define QVXML_XML_UNTYPED_ATTRIBUTE_H_

#include <string>

#include "qvxml/binding/xml_object_base.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

class CXmlAttribute;  // xml/xml_attribute.h

/// A local name, a namespace and a value.
///
/// Writers do not check names: one that is no XML name makes a document that parsers refuse, and so
/// do two attributes of the same name and namespace in one element.
class QVXML_API CAttribute final : public CXmlObjectBase, private TInstanceCounted<CAttribute> {
 public:
  /// Null namespaces and values are "". Throws CQvInvalidParamException for a name that is null or
  /// empty.
  explicit CAttribute(const char* name, const char* value = "", const char* namespaceUri = "");
  explicit CAttribute(const CXmlAttribute& attribute);
  CAttribute(const CAttribute&) = default;
  CAttribute& operator=(const CAttribute&) = default;
  ~CAttribute() override;

  const std::string& GetName() const { return GetElementName(); }
  /// Throws CQvInvalidParamException for null or "".
  void SetName(const char* name);
  std::string GetNamespace() const override;
  /// Null is "". The list of a collection that holds the attribute is not asked.
  void SetNamespace(const char* namespaceUri);
  const std::string& GetValue() const { return m_value; }
  /// Null is "".
  void SetValue(const char* value);
  /// A copy without references.
  CSmartPtr<CAttribute> Clone() const;

  /// The attribute itself.
  CXmlObjectBase* GetBase() override;
  /// "".
  std::string GetTargetNamespace() const override;
  /// Whether this is a declaration of the default namespace. Documents hold such attributes only
  /// when they were read without namespace processing.
  bool IsDefaultNamespaceDeclaration() const;

  /// Writes the attribute into the open start tag.
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                 const CSerializationContext& ctx, bool optional) const override;
  /// Throws CQvException: attributes are read by their collection.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                           const CSerializationContext& ctx, bool optional) override;

 private:
  friend class QvXmlLib16::TInstanceCounted<CAttribute>;
  static CInstanceCounter s_instances;

  std::string m_namespace;
  std::string m_value;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_UNTYPED_ATTRIBUTE_H_
