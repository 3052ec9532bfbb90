// A tree in one line, for whole-tree assertions.

#ifndef TESTS_SUPPORT_XML_DUMP_H_
#define TESTS_SUPPORT_XML_DUMP_H_

#include <string>

#include "qvxml/xml/xml_document.h"

namespace qv_test {

inline std::string NameOf(const std::string& namespaceUri, const std::string& localName) {
  return namespaceUri.empty() ? localName : "{" + namespaceUri + "}" + localName;
}

/// "name(attribute='value') 'text' [children]"; namespaces stand in braces. Recursive.
inline std::string Dump(const QvXmlLib16::CXmlElement* element) {
  if (element == nullptr) return "-";
  std::string text = NameOf(element->GetNamespaceURI(), element->GetLocalName());
  for (const QvXmlLib16::CXmlAttribute* attribute : element->GetAttributes()) {
    text += "(" + NameOf(attribute->GetNamespaceURI(), attribute->GetLocalName()) + "='" +
            attribute->GetValue() + "')";
  }
  if (!element->GetText().empty()) text += " '" + element->GetText() + "'";
  if (element->GetFirstElement() == nullptr) return text;
  text += " [";
  for (const auto* child = element->GetFirstElement(); child != nullptr;
       child = child->GetNextSiblingElement()) {
    if (child != element->GetFirstElement()) text += ", ";
    text += Dump(child);
  }
  return text + "]";
}

}  // namespace qv_test

#endif  // TESTS_SUPPORT_XML_DUMP_H_
