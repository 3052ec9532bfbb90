// For objects that stand for any element, and so read a document's root as a whole.

#ifndef QVXML_BINDING_ROOT_READER_H_
#define QVXML_BINDING_ROOT_READER_H_

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

class CSerializationContext;  // binding/serialization_context.h
class CXmlElement;            // xml/xml_element.h

/// What an object implements beside CXmlObjectBase so that the entry points hand it the root, where
/// others are handed the root's children.
class QVXML_API IRootReader {
 public:
  virtual void ReadRoot_Int(CXmlElement* root, const CSerializationContext& ctx) = 0;

 protected:
  ~IRootReader() = default;
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_ROOT_READER_H_
