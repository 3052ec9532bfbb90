#include "qvxml/xml/untyped/element_col.h"

#include <utility>

#include "qvxml/binding/namespace_constraint.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/untyped/untyped_writer_internal.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

namespace {

const char* TextOf(const char* text) { return text == nullptr ? "" : text; }

// The collections that the innermost ReleaseIteratively of this thread has still to release.
thread_local CSmartPtr<CElementCol>* t_waiting = nullptr;

}  // namespace

constinit CInstanceCounter CElementCol::s_instances("CElementCol");

CElementCol::CElementCol(const char* elementName, const char* namespaceRestriction,
                         const char* targetNamespace, int minOccurs, unsigned int maxOccurs)
    : TUntypedCollection(
          elementName,
          GetAnyDefaultNamespace(TextOf(namespaceRestriction), TextOf(targetNamespace)).c_str(),
          minOccurs, maxOccurs, namespaceRestriction, targetNamespace) {}

CElementCol::~CElementCol() = default;

CElement* CElementCol::Add(const char* name, const char* namespaceUri) {
  const CSmartPtr<CElement> element(new CElement(
      name, namespaceUri, GetNamespaceRestriction().c_str(), GetSchemaNamespace().c_str()));
  Add(element);
  return element.Ptr();
}

CElement* CElementCol::Add(const char* name) {
  if (GetItemNamespace().empty()) {
    throw CQvException("A Namespace has not been set for this Collection");
  }
  return Add(name, GetItemNamespace().c_str());
}

CSmartPtr<CElementCol> CElementCol::Clone() const {
  CSmartPtr<CElementCol> clone(
      new CElementCol(GetElementName().c_str(), GetNamespaceRestriction().c_str(),
                      GetSchemaNamespace().c_str(), GetMinOccurs(), GetMaxOccurs()));
  for (const CSmartPtr<CElement>& element : *this) clone->AddTested(element->Clone());
  return clone;
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool isRoot, const char*,
                            const CSerializationContext& ctx, bool) const {
  ValidateCount(ctx);
  detail::CUntypedWriter untypedWriter(*writer, isRoot, ctx);
  for (const CSmartPtr<CElement>& element : *this) untypedWriter.Write(*element);
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement*, CXmlElement* firstChild,
                                      const CSerializationContext& ctx, bool) {
  CXmlElement* cursor = firstChild;
  while (cursor != nullptr && Admits(ctx, *cursor)) {
    AddCopy(cursor);
    cursor = cursor->GetNextSiblingElement();
  }
  return cursor;
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(CXmlElement*, CXmlElement* firstChild,
                                                     const CSerializationContext& ctx, bool,
                                                     const char* name, const char* namespaceUri) {
  CXmlElement* cursor = firstChild;
  while (DoesElementNameMatch(ctx, cursor, name, namespaceUri)) {
    if (!Admits(ctx, *cursor)) CElement::ThrowInvalidElement(*cursor);
    AddCopy(cursor);
    cursor = cursor->GetNextSiblingElement();
  }
  return cursor;
}

bool CElementCol::Admits(const CSerializationContext& ctx, const CXmlElement& element) const {
  return ctx.GetIgnoreNamespaces() || IsAdmitted(element.GetNamespaceURI());
}

void CElementCol::AddCopy(const CXmlElement* element) {
  const CSmartPtr<CElement> copy(new CElement(GetNamespaceRestriction(), GetSchemaNamespace()));
  copy->CopyXmlElement(element);
  AddTested(copy);
}

// An element hands its children over when it is destroyed. The first one down the tree does the
// work; those that are destroyed meanwhile only put theirs on the list, which needs no memory.
void CElementCol::ReleaseIteratively(CSmartPtr<CElementCol> elements) noexcept {
  if (t_waiting != nullptr) {
    elements->m_nextReleased = std::move(*t_waiting);
    *t_waiting = std::move(elements);
    return;
  }
  CSmartPtr<CElementCol> waiting = std::move(elements);
  t_waiting = &waiting;
  while (waiting) {
    CSmartPtr<CElementCol> released = std::move(waiting);
    waiting = std::move(released->m_nextReleased);
    released.reset();
  }
  t_waiting = nullptr;
}

}  // namespace QvXmlLib16
