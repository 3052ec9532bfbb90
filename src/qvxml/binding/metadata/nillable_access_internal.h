// Finds the nillable side of an object without a cast per object.

#ifndef QVXML_BINDING_METADATA_NILLABLE_ACCESS_INTERNAL_H_
#define QVXML_BINDING_METADATA_NILLABLE_ACCESS_INTERNAL_H_

#include "qvxml/binding/metadata/parent_element_info.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/nillable.h"

namespace QvXmlLib16::detail {

/// The object as an INillable, or null when it is none.
INillable* FindNillable(CXmlGeneratedClass& object,
                        const QvXmlLib16Data::CParentElementInfo& classInfo);

inline const INillable* FindNillable(const CXmlGeneratedClass& object,
                                     const QvXmlLib16Data::CParentElementInfo& classInfo) {
  return FindNillable(const_cast<CXmlGeneratedClass&>(object), classInfo);
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_METADATA_NILLABLE_ACCESS_INTERNAL_H_
