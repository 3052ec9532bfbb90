// Holder of the metadata of one generated class.

#ifndef QVXML_BINDING_METADATA_CLASS_META_DATA_H_
#define QVXML_BINDING_METADATA_CLASS_META_DATA_H_

#include <initializer_list>

#include "qvxml/support/export.h"

namespace QvXmlLib16Data {

class CAttributeInfo;      // binding/metadata/attribute_info.h
class CElementInfo;        // binding/metadata/element_info.h
class CParentElementInfo;  // binding/metadata/parent_element_info.h

/// Owns the three parts that CXmlGeneratedClass asks for, and releases them with CleanMetaData. A
/// generated class keeps one as a local static of a function, so that it is made when it is first
/// needed, once, from whatever thread.
class QVXML_API CClassMetaData {
 public:
  /// Takes what was made with new. Members stand in schema order; both lists without the null
  /// pointer that ends the arrays.
  CClassMetaData(CParentElementInfo* classInfo, std::initializer_list<CElementInfo*> elements,
                 std::initializer_list<CAttributeInfo*> attributes);
  CClassMetaData(const CClassMetaData&) = delete;
  CClassMetaData& operator=(const CClassMetaData&) = delete;
  ~CClassMetaData();

  CParentElementInfo* GetClassInfo() const { return m_classInfo; }
  CElementInfo** GetElements() const { return m_elements; }
  CAttributeInfo** GetAttributes() const { return m_attributes; }

 private:
  CParentElementInfo* m_classInfo;
  CElementInfo** m_elements;
  CAttributeInfo** m_attributes;
};

}  // namespace QvXmlLib16Data

#endif  // QVXML_BINDING_METADATA_CLASS_META_DATA_H_
