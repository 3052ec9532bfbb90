// What writing and reading share; they are in generated_class_write.cpp and
// generated_class_read.cpp.

#include "qvxml/binding/metadata/xml_generated_class.h"

#include <typeinfo>

#include "qvxml/binding/metadata/attribute_info.h"
#include "qvxml/binding/metadata/element_info.h"
#include "qvxml/binding/metadata/flag_set_internal.h"
#include "qvxml/binding/metadata/nillable_access_internal.h"
#include "qvxml/binding/metadata/parent_element_info.h"
#include "qvxml/core/exception.h"

namespace QvXmlLib16 {

using QvXmlLib16Data::CAttributeInfo;
using QvXmlLib16Data::CElementInfo;
using QvXmlLib16Data::CParentElementInfo;

namespace {

template <class TInfo>
void DeleteInfos(TInfo**& infos) {
  for (TInfo** info = infos; info != nullptr && *info != nullptr; ++info) delete *info;
  delete[] infos;
  infos = nullptr;
}

}  // namespace

namespace detail {

INillable* FindNillable(CXmlGeneratedClass& object, const CParentElementInfo& classInfo) {
  const std::type_info& type = typeid(object);
  if (classInfo.IsKnownNotNillable(type)) return nullptr;
  auto* nillable = dynamic_cast<INillable*>(&object);
  if (nillable == nullptr) classInfo.RememberNotNillable(type);
  return nillable;
}

}  // namespace detail

CXmlGeneratedClass::CXmlGeneratedClass() = default;

CXmlGeneratedClass::CXmlGeneratedClass(const char* elementName) : CXmlObjectBase(elementName) {}

CXmlGeneratedClass::~CXmlGeneratedClass() = default;

CXmlObjectBase* CXmlGeneratedClass::GetBase() { return this; }

void CXmlGeneratedClass::ThrowNoClassInfo() { throw CQvException("The class has no metadata"); }

// Reading a property changes nothing, though the one operation for both directions is not const.
void CXmlGeneratedClass::ReadProperty(int index, QvVariant& value) const {
  const_cast<CXmlGeneratedClass*>(this)->AccessProperty(index, true, value);
}

int CXmlGeneratedClass::GetClassElementInfoCount() const {
  return static_cast<int>(detail::CountInfos(GetClassElementInfo()));
}

bool CXmlGeneratedClass::IsElementInList(const CSerializationContext& ctx,
                                         CXmlElement* element) const {
  if (element == nullptr) return false;
  CElementInfo** info = GetClassElementInfo();
  for (; info != nullptr && *info != nullptr; ++info) {
    if ((*info)->ClaimsElement(ctx, this, element)) return true;
  }
  return false;
}

bool CXmlGeneratedClass::DoesElementContainOptionalElements() const {
  CElementInfo** info = GetClassElementInfo();
  for (; info != nullptr && *info != nullptr; ++info) {
    if ((*info)->IsOptional(this)) return true;
  }
  return false;
}

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& classInfo, CElementInfo**& elements,
                                       CAttributeInfo**& attributes) {
  delete classInfo;
  classInfo = nullptr;
  DeleteInfos(elements);
  DeleteInfos(attributes);
}

}  // namespace QvXmlLib16
