#include "qvxml/xml/untyped/attribute.h"

#include "qvxml/core/exception.h"
#include "qvxml/core/item_type.h"
#include "qvxml/xml/xml_attribute.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CAttribute::s_instances("CAttribute");

CAttribute::CAttribute(const char* name, const char* value, const char* namespaceUri) {
  SetName(name);
  SetValue(value);
  SetNamespace(namespaceUri);
}

CAttribute::CAttribute(const CXmlAttribute& attribute)
    : CXmlObjectBase(attribute.GetLocalName().c_str()),
      m_namespace(attribute.GetNamespaceURI()),
      m_value(attribute.GetValue()) {}

CAttribute::~CAttribute() = default;

void CAttribute::SetName(const char* name) {
  if (name == nullptr || *name == '\0') {
    throw CQvInvalidParamException("Attribute Name must have a value");
  }
  SetElementName(name);
}

std::string CAttribute::GetNamespace() const { return m_namespace; }

void CAttribute::SetNamespace(const char* namespaceUri) {
  m_namespace = namespaceUri == nullptr ? "" : namespaceUri;
}

void CAttribute::SetValue(const char* value) { m_value = value == nullptr ? "" : value; }

CSmartPtr<CAttribute> CAttribute::Clone() const { return new CAttribute(*this); }

bool CAttribute::IsDefaultNamespaceDeclaration() const {
  return GetName() == "xmlns" &&
         (m_namespace.empty() || m_namespace == "http://www.w3.org/2000/xmlns/");
}

CXmlObjectBase* CAttribute::GetBase() { return this; }

std::string CAttribute::GetTargetNamespace() const { return std::string(); }

void CAttribute::ToXml_Int(CXmlWriter* writer, bool, const char*, const CSerializationContext&,
                           bool) const {
  writer->WriteAttributeString(GetName(), m_namespace, m_value, ItemType_string);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement*, CXmlElement*, const CSerializationContext&,
                                     bool) {
  throw CQvException("This should be done by the collection");
}

}  // namespace QvXmlLib16
