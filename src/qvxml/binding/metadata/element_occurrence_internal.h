// The bodies of element_occurrence.h, for the one source that instantiates them.

#ifndef QVXML_BINDING_METADATA_ELEMENT_OCCURRENCE_INTERNAL_H_
#define QVXML_BINDING_METADATA_ELEMENT_OCCURRENCE_INTERNAL_H_

#include <algorithm>
#include <array>
#include <string_view>

#include "qvxml/binding/metadata/element_occurrence.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16Data::detail {

using QvXmlLib16::CSerializationContext;
using QvXmlLib16::CXmlElement;
using QvXmlLib16::CXmlGeneratedClass;
using QvXmlLib16::CXmlWriter;
using QvXmlLib16::XmlElementGroupType;
using QvXmlLib16::XmlElementType;

constexpr std::string_view GroupText(XmlElementGroupType group) {
  return group == Group::Seq ? "Seq" : group == Group::Choice ? "Choice" : "All";
}

constexpr std::string_view KindText(ElementKind kind) {
  constexpr std::string_view kTexts[] = {"Prim", "Enum", "Cls", "AbsCls", "Untpd", ""};
  return kTexts[static_cast<size_t>(kind)];
}

constexpr std::string_view OccurrenceText(ElementOccurrence occurrence) {
  constexpr std::string_view kTexts[] = {"Mnd", "Opt", "Col"};
  return kTexts[static_cast<size_t>(occurrence)];
}

/// "CElementInfo" and the three texts, ended by a NUL.
template <XmlElementGroupType kGroup, ElementKind kKind, ElementOccurrence kOccurrence>
inline constexpr auto kClassName = [] {
  std::array<char, 32> text{};
  auto end = text.begin();
  for (const std::string_view part : {std::string_view("CElementInfo"), GroupText(kGroup),
                                      KindText(kKind), OccurrenceText(kOccurrence)}) {
    end = std::copy(part.begin(), part.end(), end);
  }
  return text;
}();

template <XmlElementGroupType kGroup, ElementKind kKind, ElementOccurrence kOccurrence>
constinit inline QvXmlLib16::CInstanceCounter s_instances(
    kClassName<kGroup, kKind, kOccurrence>.data());

template <XmlElementGroupType kGroup, ElementKind kKind, ElementOccurrence kOccurrence>
TElementMark<kGroup, kKind, kOccurrence>::TElementMark(CElementInfo& info,
                                                       ClaimTest claims) noexcept {
  info.m_descriptor = CElementDescriptor{kGroup, kKind, kOccurrence};
  info.m_claims = claims;
  info.m_isNamedOption = kGroup == Group::Seq && kOccurrence == ElementOccurrence::Optional &&
                         (kKind == ElementKind::Primitive || kKind == ElementKind::Enumeration ||
                          kKind == ElementKind::Class) &&
                         info.m_elementType == QvXmlLib16::XmlElementType_Element;
  if ((kKind == ElementKind::Primitive || kKind == ElementKind::Enumeration) &&
      kOccurrence != ElementOccurrence::Repeated) {
    info.m_valueNumber = info.m_number;
  }
  s_instances<kGroup, kKind, kOccurrence>.Add();
}

template <XmlElementGroupType kGroup, ElementKind kKind, ElementOccurrence kOccurrence>
TElementMark<kGroup, kKind, kOccurrence>::~TElementMark() {
  s_instances<kGroup, kKind, kOccurrence>.Remove();
}

template <XmlElementGroupType kGroup, class TKind>
bool TMandatory<kGroup, TKind>::ElementToXml(const CSerializationContext& ctx,
                                             const CXmlGeneratedClass* object,
                                             CXmlWriter* writer) const {
  if (!this->Write(ctx, object, writer, false)) this->ThrowPropertyIsNull();
  return true;
}

template <XmlElementGroupType kGroup, class TKind>
bool TMandatory<kGroup, TKind>::ElementFromXml(const CSerializationContext& ctx,
                                               CXmlGeneratedClass* object, CXmlElement* parent,
                                               CXmlElement** cursor, const char*,
                                               XmlElementType parentElementType) {
  if constexpr (kGroup == Group::Seq) {
    const CMemberReading at{ctx, object, parent, cursor, false};
    return this->Read(at) ||
           ReadPastOthers(at, parentElementType == QvXmlLib16::XmlElementType_Element);
  } else {
    // The order is free, so the member is only tried: unknown elements may be its neighbours'.
    return *cursor != nullptr && this->Read({ctx, object, parent, cursor, true});
  }
}

template <XmlElementGroupType kGroup, class TKind>
bool TMandatory<kGroup, TKind>::ReadPastOthers(const CMemberReading& at,
                                               bool hasParentOwnElement) const {
  do {
    if (this->NeedsNoElement()) return true;
    if (hasParentOwnElement && at.ctx.GetIgnoreMissingMandatoryElements()) return true;
    if (!at.ctx.GetIgnoreUnknownElements() || *at.cursor == nullptr ||
        !this->SkipsUnknownElements()) {
      if (hasParentOwnElement) this->ThrowMissing(at);
      return false;
    }
    *at.cursor = (*at.cursor)->GetNextSiblingElement();
  } while (!this->Read(at));
  return true;
}

template <XmlElementGroupType kGroup, class TKind>
bool TMandatory<kGroup, TKind>::Validate(const CSerializationContext& ctx,
                                         const CXmlGeneratedClass* object, bool found,
                                         bool check) const {
  if constexpr (kGroup != Group::All) {
    return TKind::Validate(ctx, object, found, check);
  } else {
    if (found || !check) return found;
    if (this->IsAbsenceTolerated()) return true;
    throw QvXmlLib16::CQvValidationException(
        QvXmlLib16::FormatString("Failed to find the mandatory element [%s].",
                                 this->m_name.c_str()),
        std::string());
  }
}

template <XmlElementGroupType kGroup, class TKind>
bool TOptional<kGroup, TKind>::ElementToXml(const CSerializationContext& ctx,
                                            const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const {
  return this->Write(ctx, object, writer, true);
}

template <XmlElementGroupType kGroup, class TKind>
bool TOptional<kGroup, TKind>::ElementFromXml(const CSerializationContext& ctx,
                                              CXmlGeneratedClass* object, CXmlElement* parent,
                                              CXmlElement** cursor, const char*, XmlElementType) {
  const bool isRead = this->Read({ctx, object, parent, cursor, true});
  // A sequence goes on without the member; the other groups ask whether it was this one.
  return kGroup == Group::Seq || isRead;
}

template <XmlElementGroupType kGroup, class TKind>
bool TOptional<kGroup, TKind>::Validate(const CSerializationContext& ctx,
                                        const CXmlGeneratedClass* object, bool found,
                                        bool check) const {
  return kGroup == Group::All || TKind::Validate(ctx, object, found, check);
}

template <XmlElementGroupType kGroup, class TKind>
bool TRepeated<kGroup, TKind>::ElementToXml(const CSerializationContext& ctx,
                                            const CXmlGeneratedClass* object,
                                            CXmlWriter* writer) const {
  return this->ElementToXmlCol(ctx, object, writer, kGroup != Group::Choice);
}

template <XmlElementGroupType kGroup, class TKind>
bool TRepeated<kGroup, TKind>::ElementFromXml(const CSerializationContext& ctx,
                                              CXmlGeneratedClass* object, CXmlElement* parent,
                                              CXmlElement** cursor, const char*,
                                              XmlElementType parentElementType) {
  const CMemberReading at{ctx, object, parent, cursor, true};
  const CXmlElement* const start = *cursor;
  if constexpr (kGroup == Group::Seq) {
    const auto collection = this->ReadItems(at);
    if (parentElementType != QvXmlLib16::XmlElementType_Element) {
      return collection->IsValidCount(ctx);
    }
    collection->ValidateCount(ctx);
    return true;
  } else {
    if (start == nullptr) return false;
    const auto collection = this->ReadItems(at);
    if (*cursor == start) return false;
    if (kGroup == Group::Choice) collection->ValidateCount(ctx);
    return true;
  }
}

template <XmlElementGroupType kGroup, class TKind>
bool TRepeated<kGroup, TKind>::Validate(const CSerializationContext& ctx,
                                        const CXmlGeneratedClass* object, bool found,
                                        bool check) const {
  if constexpr (kGroup != Group::All) {
    return TKind::Validate(ctx, object, found, check);
  } else {
    if (!found && !check) return false;
    const QvXmlLib16::CXmlCollectionBase* const collection = this->ReadCollection(object);
    if (collection != nullptr) collection->ValidateCount(ctx);
    return true;
  }
}

}  // namespace QvXmlLib16Data::detail

#endif  // QVXML_BINDING_METADATA_ELEMENT_OCCURRENCE_INTERNAL_H_
