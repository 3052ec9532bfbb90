#include "qvxml/xml/xml_attribute.h"

#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/xml_document.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CXmlAttribute::s_instances("CXmlAttribute");

const std::string& CXmlAttribute::GetNamespaceURI() const noexcept { return *m_name->namespaceUri; }

const std::string& CXmlAttribute::GetLocalName() const noexcept { return m_name->localName; }

std::string CXmlAttribute::GetXPath() const {
  std::string path = m_element->GetXPath() + "/";
  const CXmlDocument* document = m_element->GetDocument();
  if (document != nullptr && !GetNamespaceURI().empty()) {
    const std::string& prefix = document->LookupAliasFromNamespace(GetNamespaceURI().c_str());
    if (!prefix.empty()) path += prefix + ":";
  }
  return path + "@" + GetLocalName();
}

bool CXmlAttribute::IsNamespaceAttribute() const noexcept { return m_name->isNamespaceAttribute; }

bool CXmlAttribute::IsNilAttribute() const noexcept { return m_name->isNilAttribute; }

}  // namespace QvXmlLib16
