// The kinds that hold untyped elements.

#include "qvxml/binding/metadata/element_kinds.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/namespace_constraint.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/untyped/element_col.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16Data::detail {

using QvXmlLib16::CElement;
using QvXmlLib16::CElementCol;
using QvXmlLib16::CQvValidationException;
using QvXmlLib16::CSerializationContext;
using QvXmlLib16::CSmartPtr;
using QvXmlLib16::CXmlElement;
using QvXmlLib16::CXmlGeneratedClass;
using QvXmlLib16::CXmlObjectBase;
using QvXmlLib16::FormatString;
using QvXmlLib16::IsNamespaceAdmitted;
using QvXmlLib16::QvVariant;

CUntpdMember::CUntpdMember(const char* name, const char* namespaceUri, int propertyIndex,
                           const char* namespaceList, const char* targetNamespace)
    : CObjectMember(name, namespaceUri, propertyIndex),
      m_namespaceList(namespaceList == nullptr ? "" : namespaceList),
      m_targetNamespace(targetNamespace == nullptr ? "" : targetNamespace) {}

void CUntpdMember::ThrowMissing(const CMemberReading& at) const {
  if (!IsAnyName()) ThrowMissingChild(at.parent);
  throw CQvValidationException(
      FormatString("Failed to find the required element from namespace [%s].",
                   m_namespaceList.c_str()),
      at.parent->GetXPath());
}

bool CUntpdMember::Read(const CMemberReading& at) const {
  CXmlElement* const element = *at.cursor;
  if (element == nullptr || !Admits(at.ctx, *element)) return false;
  std::string namespaceUri = element->GetNamespaceURI();
  const char* namespaceList = m_namespaceList.c_str();
  // What is read only because namespaces are ignored gets one that the list admits, or any list
  // where it is not known which one that would be.
  if (!IsNamespaceAdmitted(namespaceUri, m_namespaceList, m_targetNamespace)) {
    namespaceUri = GetAnyDefaultNamespace(m_namespaceList.c_str(), m_targetNamespace.c_str());
    if (!IsNamespaceAdmitted(namespaceUri, m_namespaceList, m_targetNamespace)) {
      namespaceList = "##any";
    }
  }
  const CSmartPtr<CXmlObjectBase> holder(new CElement(element->GetLocalName().c_str(),
                                                      namespaceUri.c_str(), namespaceList,
                                                      m_targetNamespace.c_str()));
  CXmlElement* const next = FromXml_Int(holder.Ptr(), at.parent, element, at.ctx, at.optional);
  if (next == element) return false;
  QvVariant value;
  value.SetXmlObject(holder.Ptr());
  InvokePropertySet(at.object, value, element);
  *at.cursor = next;
  return true;
}

bool CUntpdMember::IsAnyName() const { return m_name == "AnyElement"; }

bool CUntpdMember::Admits(const CSerializationContext& ctx, const CXmlElement& element) const {
  if (!IsAnyName() && element.GetLocalName() != m_name) return false;
  return ctx.GetIgnoreNamespaces() ||
         IsNamespaceAdmitted(element.GetNamespaceURI(), m_namespaceList, m_targetNamespace);
}

bool CUntpdMember::Claims(const CElementInfo& info, const CSerializationContext& ctx,
                          const CXmlGeneratedClass*, CXmlElement* element) {
  return static_cast<const CUntpdMember&>(info).Admits(ctx, *element);
}

bool CUntpdColMember::Claims(const CElementInfo& info, const CSerializationContext& ctx,
                             const CXmlGeneratedClass* object, CXmlElement* element) {
  const auto* const collection = dynamic_cast<const CElementCol*>(
      static_cast<const CUntpdColMember&>(info).ReadCollection(object));
  return collection != nullptr && collection->Admits(ctx, *element);
}

}  // namespace QvXmlLib16Data::detail
