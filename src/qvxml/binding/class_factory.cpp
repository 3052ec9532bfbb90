#include "qvxml/binding/class_factory.h"

#include "qvxml/core/exception.h"
#include "qvxml/xml/xml_document.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

namespace {

const std::string& TypeAttribute(const CXmlElement* element) {
  if (element == nullptr) throw CQvInvalidParamException("The element may not be NULL");
  return element->GetAttribute("type", "http://www.w3.org/2001/XMLSchema-instance");
}

}  // namespace

std::string CClassfactoryBase::GetElementType(CXmlElement* element) {
  const std::string& type = TypeAttribute(element);
  const size_t colon = type.find(':');
  return colon == std::string::npos ? type : type.substr(colon + 1);
}

std::string CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element) {
  const std::string& type = TypeAttribute(element);
  const size_t colon = type.find(':');
  const CXmlDocument* const document = element->GetDocument();
  if (colon != std::string::npos && document != nullptr) {
    const std::string& found = document->LookupNamespaceFromAlias(type.substr(0, colon).c_str());
    if (!found.empty()) return found;
  }
  return element->GetNamespaceURI();
}

}  // namespace QvXmlLib16
