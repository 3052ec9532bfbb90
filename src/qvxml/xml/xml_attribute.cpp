#include "qvxml/xml/xml_attribute.h"

#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/xml_document.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

namespace {

constexpr std::string_view kSchemaInstanceNamespace = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::string_view kXmlnsNamespace = "http://www.w3.org/2000/xmlns/";

bool IsReadingNamespace(const std::string& namespaceUri) {
  return namespaceUri == kSchemaInstanceNamespace || namespaceUri == kXmlnsNamespace;
}

}  // namespace

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

bool CXmlAttribute::IsNamespaceAttribute() const noexcept {
  const std::string& name = GetLocalName();
  return IsReadingNamespace(GetNamespaceURI()) &&
         (name == "xmlns" || name == "type" || name == "schemaLocation" ||
          name == "noNamespaceSchemaLocation");
}

bool CXmlAttribute::IsNilAttribute() const noexcept {
  return IsReadingNamespace(GetNamespaceURI()) && GetLocalName() == "nil";
}

}  // namespace QvXmlLib16
