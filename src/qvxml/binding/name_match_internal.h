// The name test behind every member that is matched by its element's name.

#ifndef QVXML_BINDING_NAME_MATCH_INTERNAL_H_
#define QVXML_BINDING_NAME_MATCH_INTERNAL_H_

#include <string>

#include "qvxml/binding/serialization_context.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16::detail {

/// CXmlObjectBase::DoesElementNameMatch for text whose length is known, and false for null.
inline bool DoesNameMatch(const CSerializationContext& ctx, const CXmlElement* element,
                          const std::string& localName, const std::string& namespaceUri) {
  return element != nullptr && element->GetLocalName() == localName &&
         (ctx.GetIgnoreNamespaces() || element->GetNamespaceURI() == namespaceUri);
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_NAME_MATCH_INTERNAL_H_
