// The element, and how any object is read from one.

#include "qvxml/xml/untyped/element.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "qvxml/binding/namespace_constraint.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/licence/licence_check.h"
#include "qvxml/xml/untyped/attribute_col.h"
#include "qvxml/xml/untyped/element_col.h"
#include "qvxml/xml/untyped/loop_check_internal.h"
#include "qvxml/xml/untyped/untyped_writer_internal.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

namespace {

bool IsMissing(const char* text) { return text == nullptr || *text == '\0'; }

[[noreturn]] void ThrowMissingName() {
  throw CQvInvalidNamespaceException("Element Name must have a value", std::string());
}

void CheckRestriction(const std::string& namespaceUri, const char* namespaceRestriction,
                      const char* targetNamespace) {
  if (IsMissing(namespaceRestriction)) {
    throw CQvInvalidNamespaceException("Namespace Restriction must have a value", std::string());
  }
  if (targetNamespace == nullptr) {
    throw CQvInvalidNamespaceException("Target Namespace must have a value", std::string());
  }
  RequireNamespaceAdmitted(namespaceUri, namespaceRestriction, targetNamespace);
}

}  // namespace

constinit CInstanceCounter CElement::s_instances("CElement");

CElement::CElement(const char* name) { Init(name, "", "##any", ""); }

CElement::CElement(const char* name, const char* namespaceUri) {
  Init(name, namespaceUri, "##any", "");
}

CElement::CElement(const char* name, const char* namespaceUri, const char* namespaceRestriction,
                   const char* targetNamespace) {
  Init(name, namespaceUri, namespaceRestriction, targetNamespace);
}

CElement::CElement(CXmlObjectBase*, const char* name) { Init(name, "", "##any", ""); }

CElement::CElement(const std::string& namespaceRestriction, const std::string& targetNamespace)
    : m_namespaceRestriction(namespaceRestriction), m_targetNamespace(targetNamespace) {}

void CElement::Init(const char* name, const char* namespaceUri, const char* namespaceRestriction,
                    const char* targetNamespace) {
  if (IsMissing(name)) ThrowMissingName();
  m_namespace = namespaceUri == nullptr ? "" : namespaceUri;
  SetNamespaceRestrictions(namespaceRestriction, targetNamespace);
  SetElementName(name);
}

CElement::~CElement() {
  CSmartPtr<CXmlObjectBase> object = m_elements.Take();
  if (!object) return;
  CSmartPtr<CElementCol> elements(static_cast<CElementCol*>(object.Ptr()));
  // What is released in a loop must not be held here too.
  object.reset();
  CElementCol::ReleaseIteratively(std::move(elements));
}

void CElement::SetName(const char* name) {
  if (IsMissing(name)) ThrowMissingName();
  SetElementName(name);
  FireOnChangeName();
}

void CElement::SetNamespace(const char* namespaceUri) {
  std::string newNamespace = namespaceUri == nullptr ? "" : namespaceUri;
  RequireNamespaceAdmitted(newNamespace, m_namespaceRestriction, m_targetNamespace);
  m_namespace = std::move(newNamespace);
  FireOnChangeNamespace();
}

void CElement::SetText(const char* text) {
  m_text = text == nullptr ? "" : text;
  FireOnChangeText();
}

void CElement::SetNamespaceRestrictions(const char* namespaceRestriction,
                                        const char* targetNamespace) {
  CheckRestriction(m_namespace, namespaceRestriction, targetNamespace);
  std::string newRestriction = namespaceRestriction;
  m_targetNamespace = targetNamespace;
  m_namespaceRestriction = std::move(newRestriction);
}

CSmartPtr<CAttributeCol> CElement::GetAttributes() const {
  return m_attributes.GetOrMake<CAttributeCol>(
      [this] { return new CAttributeCol("", "##any", m_targetNamespace.c_str()); });
}

CSmartPtr<CElementCol> CElement::GetElements() const {
  return m_elements.GetOrMake<CElementCol>([this] {
    return new CElementCol("", "##any", m_targetNamespace.c_str(), 0, CElementCol::kUnbounded);
  });
}

const CAttributeCol* CElement::FindAttributes() const noexcept {
  return static_cast<const CAttributeCol*>(m_attributes.Get());
}

const CElementCol* CElement::FindElements() const noexcept {
  return static_cast<const CElementCol*>(m_elements.Get());
}

CSmartPtr<CElement> CElement::Clone() const {
  CSmartPtr<CElement> clone = CloneWithoutElements();
  struct CLevel {
    const CElement* element;
    CElement* copy;
    long nextChild;
  };
  std::vector<CLevel> levels{{this, clone.Ptr(), 0}};
  detail::CLoopCheck loopCheck;
  while (!levels.empty()) {
    loopCheck.Check(levels);
    CLevel& level = levels.back();
    const CElementCol* const children = level.element->FindElements();
    if (children == nullptr || level.nextChild == children->GetCount()) {
      levels.pop_back();
      continue;
    }
    const CElement* const child = children->begin()[level.nextChild++].Ptr();
    const CSmartPtr<CElement> copy = child->CloneWithoutElements();
    level.copy->GetElements()->AddTested(copy);
    levels.push_back({child, copy.Ptr(), 0});
  }
  return clone;
}

CSmartPtr<CElement> CElement::CloneWithoutElements() const {
  CSmartPtr<CElement> clone(new CElement(m_namespaceRestriction, m_targetNamespace));
  clone->SetElementName(GetName().c_str());
  clone->m_namespace = m_namespace;
  clone->m_text = m_text;
  if (const CAttributeCol* attributes = FindAttributes()) {
    const CSmartPtr<CAttributeCol> copies = clone->GetAttributes();
    for (const CSmartPtr<CAttribute>& attribute : *attributes) copies->Add(attribute->Clone());
  }
  return clone;
}

void CElement::CopyXmlElement(const CXmlElement* source) {
  if (source == nullptr) throw CQvInvalidParamException("The element to read may not be NULL");
  CopyOwnContent(*source);
  struct CLevel {
    const CXmlElement* nextChild;
    CElement* copy;
  };
  std::vector<CLevel> levels{{source->GetFirstElement(), this}};
  while (!levels.empty()) {
    CLevel& level = levels.back();
    const CXmlElement* const child = level.nextChild;
    if (child == nullptr) {
      levels.pop_back();
      continue;
    }
    level.nextChild = child->GetNextSiblingElement();
    const CSmartPtr<CElement> copy(new CElement("##any", m_targetNamespace));
    copy->CopyOwnContent(*child);
    level.copy->GetElements()->AddTested(copy);
    levels.push_back({child->GetFirstElement(), copy.Ptr()});
  }
}

void CElement::CopyOwnContent(const CXmlElement& source) {
  if (m_attributes.Get() != nullptr) GetAttributes()->Clear();
  if (m_elements.Get() != nullptr) GetElements()->Clear();
  SetElementName(source.GetLocalName().c_str());
  m_namespace = source.GetNamespaceURI();
  m_text = source.GetText();
  if (source.GetAttributes().empty()) return;
  const CSmartPtr<CAttributeCol> attributes = GetAttributes();
  for (const CXmlAttribute* const attribute : source.GetAttributes()) {
    const CSmartPtr<CAttribute> copy(new CAttribute(*attribute));
    attributes->Add(copy);
    if (m_namespace.empty() && copy->IsDefaultNamespaceDeclaration()) {
      m_namespace = copy->GetValue();
    }
  }
}

CXmlObjectBase* CElement::GetBase() { return this; }

void CElement::ToXml_Int(CXmlWriter* writer, bool isRoot, const char*,
                         const CSerializationContext& ctx, bool) const {
  detail::CUntypedWriter(*writer, isRoot, ctx).Write(*this);
}

CXmlElement* CElement::FromXml_Int(CXmlElement*, CXmlElement* current,
                                   const CSerializationContext& ctx, bool) {
  if (current == nullptr) return nullptr;
  if (!ctx.GetIgnoreNamespaces() &&
      !IsNamespaceAdmitted(current->GetNamespaceURI(), m_namespaceRestriction, m_targetNamespace)) {
    return current;
  }
  CopyXmlElement(current);
  return current->GetNextSiblingElement();
}

void CElement::ReadRoot_Int(CXmlElement* root, const CSerializationContext& ctx) {
  if (FromXml_Int(nullptr, root, ctx, false) == root) ThrowInvalidElement(*root);
}

void CElement::ThrowInvalidElement(const CXmlElement& element) {
  throw CQvValidationException(
      FormatString("Invalid Element [%s] found.", element.GetLocalName().c_str()),
      element.GetXPath());
}

// Through text, so that every object is read as from a document; always with the default context,
// as the caller's tells how to read.
void CXmlObjectBase::FromXmlElement(const CElement* element, const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  if (element == nullptr) throw CQvInvalidParamException("The element to read may not be NULL");
  const std::string text =
      element->ToXml(false, false, EOL_LF, CSerializationContext::m_defaultContext);
  FromXml(text.c_str(), ctx);
}

}  // namespace QvXmlLib16
