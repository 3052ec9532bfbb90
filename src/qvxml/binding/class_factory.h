// What generated class factories need to find the class of an element.

#ifndef QVXML_BINDING_CLASS_FACTORY_H_
#define QVXML_BINDING_CLASS_FACTORY_H_

#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

class CXmlElement;  // xml/xml_element.h

/// Base of the class factory that generated code supplies.
class QVXML_API CClassfactoryBase {
 public:
  /// Local part of the element's xsi:type: what follows the first ':', the whole value when there
  /// is none, and "" without that attribute. Blanks count. Throws CQvInvalidParamException for
  /// null.
  static std::string GetElementType(CXmlElement* element);
  /// Namespace of the element's xsi:type: the one that its prefix was last bound to anywhere in the
  /// document. Without the attribute, without a prefix and for a prefix that the document does not
  /// bind, it is the namespace of the element itself. Throws CQvInvalidParamException for null.
  static std::string GetElementTypeNamespaceUri(CXmlElement* element);
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_CLASS_FACTORY_H_
