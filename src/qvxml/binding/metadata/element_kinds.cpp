// Writing and reading of each kind; what a kind claims without reading is in element_claims.cpp.

#include "qvxml/binding/metadata/element_kinds.h"

#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/name_match_internal.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16Data::detail {

using QvXmlLib16::CPrimitiveRestrictions;
using QvXmlLib16::CQvValidationException;
using QvXmlLib16::CSerializationContext;
using QvXmlLib16::CSmartPtr;
using QvXmlLib16::CWhitespaceUtils;
using QvXmlLib16::CXmlCollectionBase;
using QvXmlLib16::CXmlElement;
using QvXmlLib16::CXmlGeneratedClass;
using QvXmlLib16::CXmlObjectBase;
using QvXmlLib16::CXmlWriter;
using QvXmlLib16::FormatString;
using QvXmlLib16::ItemType;
using QvXmlLib16::QvVariant;
using QvXmlLib16::XmlElementType;
using QvXmlLib16::detail::DoesNameMatch;

void CMemberKind::ThrowMissing(const CMemberReading& at) const { ThrowMissingChild(at.parent); }

// Primitive

CPrimMember::CPrimMember(const char* name, const char* namespaceUri, int propertyIndex,
                         bool nillable, ItemType itemType, const char* format,
                         CWhitespaceUtils::WhitespaceRule whitespaceRule,
                         const CPrimitiveRestrictions& restrictions, const char* defaultValue)
    : CMemberKind(name, namespaceUri, propertyIndex, nillable, itemType, format, whitespaceRule,
                  restrictions, defaultValue) {}

bool CPrimMember::Write(const CSerializationContext& ctx, const CXmlGeneratedClass* object,
                        CXmlWriter* writer, bool) const {
  return ElementToXmlPrim(ctx, object, writer);
}

bool CPrimMember::Read(const CMemberReading& at) const {
  if (!DoesNameMatch(at.ctx, *at.cursor, m_number, m_name, m_namespace)) return false;
  ElementFromXmlPrim(at.ctx, at.object, at.cursor);
  return true;
}

// Enumeration

CEnumMember::CEnumMember(const char* name, const char* namespaceUri, int propertyIndex,
                         bool nillable, EnumToText enumToText, TextToEnum textToEnum,
                         const char* defaultValue)
    : CMemberKind(name, namespaceUri, propertyIndex, nillable, enumToText, textToEnum,
                  defaultValue) {}

bool CEnumMember::Write(const CSerializationContext& ctx, const CXmlGeneratedClass* object,
                        CXmlWriter* writer, bool) const {
  return ElementToXmlEnum(ctx, object, writer);
}

bool CEnumMember::Read(const CMemberReading& at) const {
  if (!DoesNameMatch(at.ctx, *at.cursor, m_number, m_name, m_namespace)) return false;
  ElementFromXmlEnum(at.ctx, at.object, at.cursor);
  return true;
}

// Objects

void CObjectMember::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                              const CXmlGeneratedClass* object,
                                              CXmlWriter* writer) const {
  // Kept: only element type 1, while the content of a group is that of every type but 0.
  if (m_elementType != QvXmlLib16::XmlElementType_Group) return;
  const CXmlObjectBase* const child = ReadObject(object);
  if (child != nullptr) AttributesToXml_Int(child, writer, ctx);
}

bool CObjectMember::Write(const CSerializationContext& ctx, const CXmlGeneratedClass* object,
                          CXmlWriter* writer, bool optional) const {
  return ElementToXmlCls(ctx, object, writer, optional);
}

bool CObjectMember::ReadIntoNew(const CMemberReading& at,
                                const CSmartPtr<CXmlObjectBase>& child) const {
  CXmlElement* const element = *at.cursor;
  CXmlElement* next = nullptr;
  if (IsGroup()) {
    next = FromXml_Int(child.Ptr(), at.parent, element, at.ctx, at.optional);
    if (next == element) return false;
  } else {
    FromXml_Int(child.Ptr(), element, element->GetFirstElement(), at.ctx, false);
    next = element->GetNextSiblingElement();
  }
  QvVariant value;
  value.SetXmlObject(child.Ptr());
  InvokePropertySet(at.object, value, element);
  *at.cursor = next;
  return true;
}

CClsMember::CClsMember(const char* name, const char* namespaceUri, int propertyIndex,
                       XmlElementType elementType, ClassFactory factory, int classId)
    : CObjectMember(name, namespaceUri, propertyIndex, elementType),
      m_factory(factory),
      m_classId(classId) {}

bool CClsMember::Read(const CMemberReading& at) const {
  const bool isCandidate = IsGroup() ? *at.cursor != nullptr : IsThisElement(at.ctx, *at.cursor);
  return isCandidate && ReadIntoNew(at, CreateChild());
}

CSmartPtr<CXmlObjectBase> CClsMember::CreateChild() const {
  CSmartPtr<CXmlObjectBase> child;
  if (m_factory != nullptr) child = m_factory(m_classId, m_name.c_str());
  if (!child) ThrowPropertyIsNull();
  return child;
}

CHeldClsMember::CHeldClsMember(const char* name, const char* namespaceUri, int propertyIndex,
                               XmlElementType elementType, ClassFactory factory, int classId,
                               bool mustConsume)
    : CClsMember(name, namespaceUri, propertyIndex, elementType, factory, classId),
      m_mustConsume(mustConsume) {}

bool CHeldClsMember::Read(const CMemberReading& at) const {
  CXmlElement* const element = *at.cursor;
  // A group that may be empty reads even then, as its own members may not be absent.
  if (IsGroup() ? element == nullptr && m_mustConsume : !IsThisElement(at.ctx, element)) {
    return false;
  }
  const CSmartPtr<CXmlObjectBase> child(ReadObject(at.object));
  if (!child) ThrowPropertyIsNull();
  if (IsGroup()) {
    *at.cursor = FromXml_Int(child.Ptr(), at.parent, element, at.ctx, at.optional);
    return *at.cursor != element;
  }
  FromXml_Int(child.Ptr(), element, element->GetFirstElement(), at.ctx, false);
  *at.cursor = element->GetNextSiblingElement();
  return true;
}

CAbsClsMember::CAbsClsMember(const char* name, const char* namespaceUri, int propertyIndex,
                             XmlElementType elementType, ElementFactory factory)
    : CObjectMember(name, namespaceUri, propertyIndex, elementType), m_factory(factory) {}

void CAbsClsMember::ThrowMissing(const CMemberReading& at) const {
  const CXmlElement* const place = *at.cursor != nullptr ? *at.cursor : at.parent;
  throw CQvValidationException(
      FormatString("Failed to find a suitable substitution element for [%s].", m_name.c_str()),
      place->GetXPath());
}

bool CAbsClsMember::Read(const CMemberReading& at) const {
  const CSmartPtr<CXmlObjectBase> child = CreateChild(*at.cursor);
  return child && ReadIntoNew(at, child);
}

CSmartPtr<CXmlObjectBase> CAbsClsMember::CreateChild(CXmlElement* element) const {
  if (element == nullptr || m_factory == nullptr) return nullptr;
  return m_factory(element);
}

CAbsClsIdMember::CAbsClsIdMember(const char* name, const char* namespaceUri, int propertyIndex,
                                 XmlElementType elementType, ElementFactory factory, int)
    : CAbsClsMember(name, namespaceUri, propertyIndex, elementType, factory) {}

// Collections

CColMember::CColMember(const char* name, const char* namespaceUri, int propertyIndex)
    : CMemberKind(name, namespaceUri, propertyIndex) {}

CSmartPtr<CXmlCollectionBase> CColMember::ReadItems(const CMemberReading& at) const {
  CSmartPtr<CXmlCollectionBase> collection(ReadCollection(at.object));
  if (!collection) ThrowPropertyIsNull();
  *at.cursor = FromXml_Int(collection.Ptr(), at.parent, *at.cursor, at.ctx, false);
  return collection;
}

CClsColMember::CClsColMember(const char* name, const char* namespaceUri, int propertyIndex,
                             XmlElementType elementType)
    : CColMember(name, namespaceUri, propertyIndex, elementType) {}

}  // namespace QvXmlLib16Data::detail
