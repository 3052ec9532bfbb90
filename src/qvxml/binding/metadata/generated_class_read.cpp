// How a generated class reads itself.

#include <cstddef>
#include <cstdint>
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
#include "qvxml/core/value/item_traits.h"
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

// What the steps of reading one object share. Values pass through `room`, so that there is not a
// new one for each of them.
struct CXmlGeneratedClass::CReading {
  const CParentElementInfo& classInfo;
  const CSerializationContext& ctx;
  CXmlElement* element;
  bool optional;
  QvVariant room{};
};

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                             const CSerializationContext& ctx, bool optional) {
  if (element == nullptr) throw CQvInvalidParamException("The element to read may not be NULL");
  try {
    const detail::CDepthGuard guard;
    Init();
    CReading reading{RequireClassInfo(), ctx, element, optional};
    return ReadElement(reading, firstChild);
  } catch (CQvException& caught) {
    // The innermost element names the place, so what has a path already passes unchanged.
    if (!caught.GetPath().empty()) throw;
    detail::ThrowWrapping(
        CQvValidationException("Failed to process the element.", element->GetXPath()), caught);
  }
}

CXmlElement* CXmlGeneratedClass::ReadElement(CReading& reading, CXmlElement* cursor) {
  const CParentElementInfo& classInfo = reading.classInfo;
  const std::string& name = reading.element->GetLocalName();
  if (classInfo.GetElementType() == XmlElementType_Element && GetElementName() != name) {
    AdoptElementName(name);
  }
  ProcessAttributesFromXml(reading);
  const INillable* nillable = detail::FindNillable(*this, classInfo);
  if (nillable != nullptr && nillable->IsNil()) return cursor;
  cursor = ReadMembers(reading, cursor);
  if (classInfo.HasValue()) ReadValue(reading);
  return cursor;
}

CXmlElement* CXmlGeneratedClass::ReadMembers(CReading& reading, CXmlElement* cursor) {
  switch (reading.classInfo.GetGroupType()) {
    case XmlElementGroupType_Sequence:
      return ProcessElementSeqFromXml(reading, cursor);
    case XmlElementGroupType_Choice:
      return ProcessElementChoiceFromXml(reading, cursor);
    case XmlElementGroupType_All:
      return ProcessElementAllFromXml(reading, cursor);
  }
  throw CQvException("Unknown Group Type");
}

void CXmlGeneratedClass::ReadValue(CReading& reading) {
  const CParentElementInfo& classInfo = reading.classInfo;
  const std::string& text = reading.element->GetText();
  QvVariant& value = reading.room;
  if (classInfo.IsRawText()) {
    ItemTraits<ItemType_string>::Lend(value, text);
  } else {
    value.FromString(text, classInfo.GetValueItemType(), CWhitespaceUtils::ws_none);
  }
  AccessProperty(classInfo.GetValuePropertyIndex(), false, value);
}

void CXmlGeneratedClass::ProcessAttributesFromXml(CReading& reading) {
  const CSerializationContext& ctx = reading.ctx;
  const CParentElementInfo& classInfo = reading.classInfo;
  CAttributeInfo** infos = GetClassAttributeInfo();
  const size_t count = detail::CountInfos(infos);
  detail::CFlagSet isFound(count);
  size_t expected = 0;
  for (CXmlAttribute* attribute : detail::CNodeAccess::AttributesOf(*reading.element)) {
    const detail::CXmlName& name = detail::CNodeAccess::NameOf(*attribute);
    if (name.isNamespaceAttribute) continue;
    if (name.isNilAttribute) {
      ReadNilAttribute(classInfo, *attribute);
      continue;
    }
    const size_t index = ReadAttribute(reading, infos, count, expected, attribute);
    if (index < count) {
      isFound.Set(index, true);
      expected = index + 1;
    } else if (classInfo.GetReportUnknownAttributes() && !ctx.GetIgnoreUnknownAttributes()) {
      throw CQvValidationException("Unexpected Attribute found.", attribute->GetXPath());
    }
  }
  for (size_t index = 0; index < count; ++index) {
    if (!isFound.Get(index)) infos[index]->Validate(ctx, false);
  }
}

// Returns the index of the metadata that took the attribute, or `count`. Most often that is the
// expected one, behind that of the attribute before, or follows soon.
size_t CXmlGeneratedClass::ReadAttribute(CReading& reading, CAttributeInfo* const* infos,
                                         size_t count, size_t expected, CXmlAttribute* attribute) {
  const std::uint64_t number = detail::CNodeAccess::NameOf(*attribute).attributeMatch.Get();
  // Another one may come first for a context that ignores namespaces.
  size_t index = reading.ctx.GetIgnoreNamespaces() ? count : expected;
  while (index < count && !infos[index]->IsValueOf(number)) ++index;
  if (index < count) {
    infos[index]->ReadValue(this, *attribute, reading.room);
    return index;
  }
  index = 0;
  while (index < count && !infos[index]->AttributeFromXml(reading.ctx, this, attribute)) ++index;
  return index;
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

// Reads the element at the cursor when its name tells that it is the member's value.
bool CXmlGeneratedClass::ReadKnownValue(const CElementInfo& info, CReading& reading,
                                        CXmlElement*& cursor) {
  const CXmlElement* const element = cursor;
  if (element == nullptr ||
      !info.IsValueOf(detail::CNodeAccess::NameOf(*element).elementMatch.Get())) {
    return false;
  }
  info.ReadValue(reading.ctx, this, *element, reading.room);
  cursor = element->GetNextSiblingElement();
  return true;
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(CReading& reading, CXmlElement* cursor) {
  const CSerializationContext& ctx = reading.ctx;
  CXmlElement* const element = reading.element;
  const XmlElementType elementType = reading.classInfo.GetElementType();
  CElementInfo** info = GetClassElementInfo();
  if (info == nullptr) return EndOfMembers(ctx, element, cursor, elementType);
  const char* const namespaceUri = reading.classInfo.GetNamespace().c_str();
  CXmlElement* unread = cursor;
  while (*info != nullptr) {
    if (ReadKnownValue(**info, reading, cursor)) {
      ++info;
      unread = cursor;
      continue;
    }
    if ((*info)->IsPassedOver(NameOf(cursor))) {
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
  }
  return EndOfMembers(ctx, element, cursor, elementType);
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(CReading& reading,
                                                             CXmlElement* cursor) {
  const CSerializationContext& ctx = reading.ctx;
  CXmlElement* const element = reading.element;
  const char* const namespaceUri = reading.classInfo.GetNamespace().c_str();
  const XmlElementType elementType = reading.classInfo.GetElementType();
  CElementInfo** infos = GetClassElementInfo();
  CXmlElement* const start = cursor;
  while (true) {
    for (CElementInfo** info = infos; info != nullptr && *info != nullptr; ++info) {
      if (ReadKnownValue(**info, reading, cursor) ||
          (*info)->ElementFromXml(ctx, this, element, &cursor, namespaceUri, elementType)) {
        return EndOfMembers(ctx, element, cursor, elementType);
      }
    }
    if (!ctx.GetIgnoreUnknownElements() || cursor == nullptr) break;
    cursor = cursor->GetNextSiblingElement();
  }
  if (!reading.optional && !DoesElementContainOptionalElements() && !ctx.GetIgnoreMissingChoice()) {
    throw CQvValidationException(
        FormatString(
            "No child elements within the element [%s] were populated. The element represents a choice, so one and only one element should be populated. The element contained no sutable child elements",
            element->GetLocalName().c_str()),
        element->GetXPath());
  }
  // What was skipped in vain belongs to whoever shares the element.
  return EndOfMembers(ctx, element, start, elementType);
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(CReading& reading, CXmlElement* cursor) {
  const CSerializationContext& ctx = reading.ctx;
  CXmlElement* const element = reading.element;
  const char* const namespaceUri = reading.classInfo.GetNamespace().c_str();
  const XmlElementType elementType = reading.classInfo.GetElementType();
  CElementInfo** infos = GetClassElementInfo();
  const size_t count = detail::CountInfos(infos);
  detail::CFlagSet isRead(count);
  const CXmlElement* const start = cursor;
  const CXmlElement* passStart = nullptr;
  do {
    passStart = cursor;
    for (size_t index = 0; index < count; ++index) {
      if (isRead.Get(index)) continue;
      isRead.Set(index, ReadKnownValue(*infos[index], reading, cursor) ||
                            infos[index]->ElementFromXml(ctx, this, element, &cursor, namespaceUri,
                                                         elementType));
    }
  } while (cursor != nullptr && cursor != passStart);
  // A group that was only tried, and took nothing, is not there: nothing of it is missing.
  if (reading.optional && cursor == start && elementType != XmlElementType_Element) return cursor;

  CXmlElement* const next = EndOfMembers(ctx, element, cursor, elementType);
  const bool check = !ctx.GetIgnoreMissingMandatoryElements();
  for (size_t index = 0; index < count; ++index) {
    infos[index]->Validate(ctx, this, isRead.Get(index), check);
  }
  return next;
}

}  // namespace QvXmlLib16
