// The collection, and the context's attributes for the root, which are one.

#include "qvxml/xml/untyped/attribute_col.h"

#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/xml_attribute.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CAttributeCol::s_instances("CAttributeCol");

CAttributeCol::CAttributeCol(const char* elementName, const char* namespaceRestriction,
                             const char* targetNamespace)
    : TUntypedCollection(elementName, "", 0, kUnbounded, namespaceRestriction, targetNamespace) {}

CAttributeCol::~CAttributeCol() = default;

CAttribute* CAttributeCol::Add(const char* name, const char* value, const char* namespaceUri) {
  const CSmartPtr<CAttribute> attribute(new CAttribute(name, value, namespaceUri));
  Add(attribute);
  return attribute.Ptr();
}

CAttribute* CAttributeCol::Add(const char* name, const char* value) { return Add(name, value, ""); }

CAttribute* CAttributeCol::Add(const char* name) { return Add(name, "", ""); }

CSmartPtr<CAttributeCol> CAttributeCol::Clone() const {
  CSmartPtr<CAttributeCol> clone(new CAttributeCol(
      GetElementName().c_str(), GetNamespaceRestriction().c_str(), GetSchemaNamespace().c_str()));
  for (const CSmartPtr<CAttribute>& attribute : *this) clone->AddTested(attribute->Clone());
  return clone;
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool, const char* targetNamespace,
                              const CSerializationContext& ctx, bool) const {
  for (const CSmartPtr<CAttribute>& attribute : *this) {
    attribute->ToXml_Int(writer, false, targetNamespace, ctx, false);
  }
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                        const CSerializationContext&, bool) {
  if (element == nullptr) return firstChild;
  for (const CXmlAttribute* const attribute : element->GetAttributes()) {
    if (!IsAdmitted(attribute->GetNamespaceURI())) {
      throw CQvInvalidNamespaceException(
          FormatString("Invalid Attribute [%s]. The attributes namespace is Inappropriate.",
                       attribute->GetLocalName().c_str()),
          element->GetXPath());
    }
    AddTested(new CAttribute(*attribute));
  }
  return firstChild;
}

CSmartPtr<CAttributeCol> CSerializationContext::GetAdditionalRootAttributes() const {
  return m_additionalRootAttributes.GetOrMake<CAttributeCol>(
      [] { return new CAttributeCol("", "##any", ""); });
}

}  // namespace QvXmlLib16
