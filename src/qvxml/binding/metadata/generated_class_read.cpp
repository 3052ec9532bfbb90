// How a generated class reads itself.

#include <string>

#include <strings.h>

#include "qvxml/binding/depth_guard_internal.h"
#include "qvxml/binding/metadata/attribute_info.h"
#include "qvxml/binding/metadata/element_info.h"
#include "qvxml/binding/metadata/flag_set_internal.h"
#include "qvxml/binding/metadata/nillable_access_internal.h"
#include "qvxml/binding/metadata/parent_element_info.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/wrap_failure_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/node_access_internal.h"

namespace QvXmlLib16 {

using QvXmlLib16Data::CAttributeInfo;
using QvXmlLib16Data::CElementInfo;
using QvXmlLib16Data::CParentElementInfo;

namespace {

bool IsOneOf(const std::string& value, const char* word, const char* digit) {
  return strcasecmp(value.c_str(), word) == 0 || value == digit;
}

const std::string* NameOf(const CXmlElement* element) {
  return element != nullptr ? &detail::CNodeAccess::NameOf(*element).localName : nullptr;
}

bool IsRepeated(const CElementInfo& info) {
  return info.GetDescriptor().occurrence == QvXmlLib16Data::ElementOccurrence::Repeated;
}

// What is left after the members of a class have been read: the caller's affair when the class
// shares its parent's element, a fault otherwise.
CXmlElement* EndOfMembers(const CSerializationContext& ctx, const CXmlElement* element,
                          CXmlElement* cursor, XmlElementType elementType) {
  if (elementType != XmlElementType_Element || cursor == nullptr) return cursor;
  if (ctx.GetIgnoreUnknownElements()) return nullptr;
  throw CQvValidationException(
      FormatString(
          "Failed read all the elements held within the element [%s]. The unexpected element [%s] remains un processed",
          element->GetLocalName().c_str(), cursor->GetLocalName().c_str()),
      cursor->GetXPath());
}

}  // namespace

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                             const CSerializationContext& ctx, bool optional) {
  if (element == nullptr) throw CQvInvalidParamException("The element to read may not be NULL");
  try {
    return ReadElement(element, firstChild, ctx, optional);
  } catch (CQvException& caught) {
    // The innermost element names the place, so what has a path already passes unchanged.
    if (!caught.GetPath().empty()) throw;
    detail::ThrowWrapping(
        CQvValidationException("Failed to process the element.", element->GetXPath()), caught);
  }
}

CXmlElement* CXmlGeneratedClass::ReadElement(CXmlElement* element, CXmlElement* cursor,
                                             const CSerializationContext& ctx, bool optional) {
  const detail::CDepthGuard guard;
  Init();
  const CParentElementInfo& classInfo = RequireClassInfo();
  if (classInfo.GetElementType() == XmlElementType_Element &&
      GetElementName() != element->GetLocalName()) {
    SetElementName(element->GetLocalName().c_str());
  }
  ProcessAttributesFromXml(classInfo, ctx, element);
  const INillable* nillable = detail::FindNillable(*this, classInfo);
  if (nillable != nullptr && nillable->IsNil()) return cursor;
  cursor = ReadMembers(classInfo, element, cursor, ctx, optional);
  if (classInfo.HasValue()) ReadValue(classInfo, element);
  return cursor;
}

CXmlElement* CXmlGeneratedClass::ReadMembers(const CParentElementInfo& classInfo,
                                             CXmlElement* element, CXmlElement* cursor,
                                             const CSerializationContext& ctx, bool optional) {
  switch (classInfo.GetGroupType()) {
    case XmlElementGroupType_Sequence:
      return ProcessElementSeqFromXml(classInfo, ctx, element, cursor);
    case XmlElementGroupType_Choice:
      return ProcessElementChoiceFromXml(classInfo, ctx, element, cursor, optional);
    case XmlElementGroupType_All:
      return ProcessElementAllFromXml(classInfo, ctx, element, cursor, optional);
  }
  throw CQvException("Unknown Group Type");
}

void CXmlGeneratedClass::ReadValue(const CParentElementInfo& classInfo, CXmlElement* element) {
  QvVariant value;
  if (classInfo.IsRawText()) {
    value.SetString(element->GetText());
  } else {
    value.FromString(element->GetText(), classInfo.GetValueItemType(), CWhitespaceUtils::ws_none);
  }
  AccessProperty(classInfo.GetValuePropertyIndex(), false, value);
}

void CXmlGeneratedClass::ProcessAttributesFromXml(const CParentElementInfo& classInfo,
                                                  const CSerializationContext& ctx,
                                                  CXmlElement* element) {
  CAttributeInfo** infos = GetClassAttributeInfo();
  const size_t count = detail::CountInfos(infos);
  detail::CFlagSet isFound(count);
  for (CXmlAttribute* attribute : detail::CNodeAccess::AttributesOf(*element)) {
    if (attribute->IsNamespaceAttribute()) continue;
    if (attribute->IsNilAttribute()) {
      ReadNilAttribute(classInfo, *attribute);
      continue;
    }
    size_t index = 0;
    while (index < count && !infos[index]->AttributeFromXml(ctx, this, attribute)) ++index;
    if (index < count) {
      isFound.Set(index, true);
    } else if (classInfo.GetReportUnknownAttributes() && !ctx.GetIgnoreUnknownAttributes()) {
      throw CQvValidationException("Unexpected Attribute found.", attribute->GetXPath());
    }
  }
  for (size_t index = 0; index < count; ++index) {
    infos[index]->Validate(ctx, isFound.Get(index));
  }
}

void CXmlGeneratedClass::ReadNilAttribute(const CParentElementInfo& classInfo,
                                          const CXmlAttribute& attribute) {
  // On a pseudo child's parent the attribute is the parent's affair.
  if (classInfo.GetElementType() != XmlElementType_Element) return;
  INillable* nillable = detail::FindNillable(*this, classInfo);
  if (nillable == nullptr) {
    throw CQvValidationException("Invalid use of 'nil' attribute in non-nillable element.",
                                 attribute.GetXPath());
  }
  if (IsOneOf(attribute.GetValue(), "true", "1")) {
    nillable->SetNil(true);
  } else if (IsOneOf(attribute.GetValue(), "false", "0")) {
    nillable->SetNil(false);
  } else {
    throw CQvValidationException(FormatString("Unexpected Value [%s] for 'nil' Attribute found.",
                                              attribute.GetValue().c_str()),
                                 attribute.GetXPath());
  }
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(const CParentElementInfo& classInfo,
                                                          const CSerializationContext& ctx,
                                                          CXmlElement* element,
                                                          CXmlElement* cursor) {
  CElementInfo** info = GetClassElementInfo();
  const XmlElementType elementType = classInfo.GetElementType();
  if (info == nullptr) return EndOfMembers(ctx, element, cursor, elementType);
  const char* const namespaceUri = classInfo.GetNamespace().c_str();
  const std::string* name = NameOf(cursor);
  CXmlElement* unread = cursor;
  while (*info != nullptr) {
    if ((*info)->IsPassedOver(name)) {
      ++info;
      continue;
    }
    const CXmlElement* const offered = cursor;
    if ((*info)->ElementFromXml(ctx, this, element, &cursor, namespaceUri, elementType)) {
      ++info;
      unread = cursor;
    } else {
      // A collection keeps what it took, though it wants more or fewer.
      if (cursor != offered && IsRepeated(**info)) unread = cursor;
      // Kept: the caller decides, nothing is reported here. What was skipped in vain is its own.
      if (!ctx.GetIgnoreUnknownElements() || cursor == nullptr) return unread;
      cursor = cursor->GetNextSiblingElement();
    }
    name = NameOf(cursor);
  }
  return EndOfMembers(ctx, element, cursor, elementType);
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(const CParentElementInfo& classInfo,
                                                             const CSerializationContext& ctx,
                                                             CXmlElement* element,
                                                             CXmlElement* cursor, bool optional) {
  const char* const namespaceUri = classInfo.GetNamespace().c_str();
  const XmlElementType elementType = classInfo.GetElementType();
  CElementInfo** infos = GetClassElementInfo();
  CXmlElement* const start = cursor;
  while (true) {
    for (CElementInfo** info = infos; info != nullptr && *info != nullptr; ++info) {
      if ((*info)->ElementFromXml(ctx, this, element, &cursor, namespaceUri, elementType)) {
        return EndOfMembers(ctx, element, cursor, elementType);
      }
    }
    if (!ctx.GetIgnoreUnknownElements() || cursor == nullptr) break;
    cursor = cursor->GetNextSiblingElement();
  }
  if (!optional && !DoesElementContainOptionalElements() && !ctx.GetIgnoreMissingChoice()) {
    throw CQvValidationException(
        FormatString(
            "No child elements within the element [%s] were populated. The element represents a choice, so one and only one element should be populated. The element contained no sutable child elements",
            element->GetLocalName().c_str()),
        element->GetXPath());
  }
  // What was skipped in vain belongs to whoever shares the element.
  return EndOfMembers(ctx, element, start, elementType);
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(const CParentElementInfo& classInfo,
                                                          const CSerializationContext& ctx,
                                                          CXmlElement* element, CXmlElement* cursor,
                                                          bool optional) {
  const char* const namespaceUri = classInfo.GetNamespace().c_str();
  const XmlElementType elementType = classInfo.GetElementType();
  CElementInfo** infos = GetClassElementInfo();
  const size_t count = detail::CountInfos(infos);
  detail::CFlagSet isRead(count);
  const CXmlElement* const start = cursor;
  const CXmlElement* passStart = nullptr;
  do {
    passStart = cursor;
    for (size_t index = 0; index < count; ++index) {
      if (isRead.Get(index)) continue;
      isRead.Set(index, infos[index]->ElementFromXml(ctx, this, element, &cursor, namespaceUri,
                                                     elementType));
    }
  } while (cursor != nullptr && cursor != passStart);
  // A group that was only tried, and took nothing, is not there: nothing of it is missing.
  if (optional && cursor == start && elementType != XmlElementType_Element) return cursor;

  CXmlElement* const next = EndOfMembers(ctx, element, cursor, elementType);
  const bool check = !ctx.GetIgnoreMissingMandatoryElements();
  for (size_t index = 0; index < count; ++index) {
    infos[index]->Validate(ctx, this, isRead.Get(index), check);
  }
  return next;
}

}  // namespace QvXmlLib16
