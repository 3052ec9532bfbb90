#include "qvxml/binding/metadata/class_meta_data.h"

#include <algorithm>

#include "qvxml/binding/metadata/attribute_info.h"
#include "qvxml/binding/metadata/element_info.h"
#include "qvxml/binding/metadata/parent_element_info.h"
#include "qvxml/binding/metadata/xml_generated_class.h"

namespace QvXmlLib16Data {

namespace {

// An array as CleanMetaData deletes it, ended by null.
template <class TInfo>
TInfo** MakeArray(std::initializer_list<TInfo*> infos) {
  TInfo** const array = new TInfo*[infos.size() + 1];
  *std::copy(infos.begin(), infos.end(), array) = nullptr;
  return array;
}

}  // namespace

CClassMetaData::CClassMetaData(CParentElementInfo* classInfo,
                               std::initializer_list<CElementInfo*> elements,
                               std::initializer_list<CAttributeInfo*> attributes)
    : m_classInfo(classInfo),
      m_elements(MakeArray(elements)),
      m_attributes(MakeArray(attributes)) {}

CClassMetaData::~CClassMetaData() {
  QvXmlLib16::CXmlGeneratedClass::CleanMetaData(m_classInfo, m_elements, m_attributes);
}

}  // namespace QvXmlLib16Data
