// How a generated class writes itself.

#include <string>

#include "qvxml/binding/depth_guard_internal.h"
#include "qvxml/binding/metadata/attribute_info.h"
#include "qvxml/binding/metadata/element_info.h"
#include "qvxml/binding/metadata/nillable_access_internal.h"
#include "qvxml/binding/metadata/parent_element_info.h"
#include "qvxml/binding/metadata/property_value_internal.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/wrap_failure_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/untyped/attribute_col.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16 {

using QvXmlLib16Data::CAttributeInfo;
using QvXmlLib16Data::CElementInfo;
using QvXmlLib16Data::CParentElementInfo;

namespace {

// Starts the element; most often its namespace is the one of its class, which is a string already.
void StartElement(CXmlWriter* writer, const std::string& localName, const char* targetNamespace,
                  const CParentElementInfo& classInfo) {
  const char* namespaceUri = targetNamespace == nullptr ? "" : targetNamespace;
  if (classInfo.GetNamespace() == namespaceUri) {
    writer->WriteStartElement(localName, classInfo.GetNamespace());
  } else {
    writer->WriteStartElement(localName, namespaceUri);
  }
}

}  // namespace

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                                   const CSerializationContext& ctx, bool optional) const {
  const detail::CPropertyRoomLoan loan(*writer);
  detail::WrapFailure(
      [&] { WriteElement(writer, isRoot, targetNamespace, ctx, optional); },
      [this] {
        return CQvValidationException(
            FormatString("Failed to convert the element [%s] to XML", GetElementName().c_str()),
            std::string());
      });
}

void CXmlGeneratedClass::WriteElement(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                                      const CSerializationContext& ctx, bool optional) const {
  const detail::CDepthGuard guard;
  const CParentElementInfo& classInfo = RequireClassInfo();
  const bool hasElement = classInfo.GetElementType() == XmlElementType_Element;
  if (hasElement) {
    if (isRoot) WriteRootDeclarations(writer, ctx);
    StartElement(writer, GetElementName(), targetNamespace, classInfo);
    // Not asked for where there are none: that would make them.
    if (isRoot && ctx.HasAdditionalRootAttributes()) {
      ctx.GetAdditionalRootAttributes()->ToXml_Int(writer, false, targetNamespace, ctx, false);
    }
    AttributesToXml_Int(writer, ctx);
    if (isRoot) {
      const std::string schema = ctx.GetInLineSchema();
      if (!schema.empty()) writer->WriteInlineSchema(schema);
    }
  }
  const INillable* nillable = detail::FindNillable(*this, classInfo);
  if (nillable != nullptr && nillable->IsNil()) {
    writer->WriteAttributeNil();
  } else {
    WriteMembers(classInfo, writer, ctx, optional);
    if (classInfo.HasValue()) WriteValue(classInfo, writer);
  }
  if (hasElement) writer->WriteEndElement();
}

void CXmlGeneratedClass::WriteRootDeclarations(CXmlWriter* writer,
                                               const CSerializationContext& ctx) const {
  for (const std::string& instruction : ctx.GetProcessingInstructions()) {
    writer->WritePI(instruction);
  }
  for (const auto& [namespaceUri, alias] : ctx.GetNamespaceAliases()) {
    // A lookup of an unknown namespace enters it without an alias; nothing can be declared for it.
    if (!alias.empty()) writer->AddNamespace(alias, namespaceUri);
  }
  const std::string defaultNamespace = ctx.GetDefaultNamespaceURI();
  if (!defaultNamespace.empty()) writer->SetDefaultNamespace(defaultNamespace);
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer,
                                             const CSerializationContext& ctx) const {
  detail::WrapFailure(
      [&] {
        // Pseudo children inside each other come here without their content being written.
        const detail::CDepthGuard guard;
        const CParentElementInfo& classInfo = RequireClassInfo();
        // A pseudo child's attributes stand in its parent's start tag, which has a type of its own.
        if (ctx.GetWriteTypeAttribute() && classInfo.GetName() != GetElementName() &&
            classInfo.GetElementType() == XmlElementType_Element) {
          writer->WriteAttributeType(classInfo.GetNamespace(), classInfo.GetName(),
                                     ItemType_string);
        }
        ProcessAttributesToXml(classInfo, ctx, writer);
      },
      [] { return CQvException("Failed to convert attributes to XML"); });
}

void CXmlGeneratedClass::ProcessAttributesToXml(const CParentElementInfo& classInfo,
                                                const CSerializationContext& ctx,
                                                CXmlWriter* writer) const {
  if (CAttributeInfo** info = GetClassAttributeInfo()) {
    for (; *info != nullptr; ++info) (*info)->AttributeToXml(ctx, this, writer);
  }
  CElementInfo** const members = GetClassElementInfo();
  if (members == nullptr || classInfo.IsKnownWithoutGroups(members)) return;
  bool hasGroups = false;
  for (CElementInfo** info = members; *info != nullptr; ++info) {
    // Only model groups have any.
    if ((*info)->GetElementType() != XmlElementType_Group) continue;
    hasGroups = true;
    (*info)->PseudoChildAttributeToXml(ctx, this, writer);
  }
  if (!hasGroups) classInfo.RememberWithoutGroups(members);
}

void CXmlGeneratedClass::WriteMembers(const CParentElementInfo& classInfo, CXmlWriter* writer,
                                      const CSerializationContext& ctx, bool optional) const {
  switch (classInfo.GetGroupType()) {
    case XmlElementGroupType_Sequence:
      return ProcessElementSeqToXml(ctx, writer);
    case XmlElementGroupType_Choice:
      return ProcessElementChoiceToXml(ctx, writer, optional);
    case XmlElementGroupType_All:
      return ProcessElementAllToXml(ctx, writer);
  }
  throw CQvException("Unknown XML Group Type");
}

void CXmlGeneratedClass::ProcessElementSeqToXml(const CSerializationContext& ctx,
                                                CXmlWriter* writer) const {
  CElementInfo** info = GetClassElementInfo();
  if (info == nullptr) return;
  for (; *info != nullptr; ++info) (*info)->ElementToXml(ctx, this, writer);
}

// The order of an all-group is free, so the one of the metadata serves.
void CXmlGeneratedClass::ProcessElementAllToXml(const CSerializationContext& ctx,
                                                CXmlWriter* writer) const {
  ProcessElementSeqToXml(ctx, writer);
}

void CXmlGeneratedClass::ProcessElementChoiceToXml(const CSerializationContext& ctx,
                                                   CXmlWriter* writer, bool optional) const {
  if (CElementInfo** info = GetClassElementInfo()) {
    for (; *info != nullptr; ++info) {
      if ((*info)->ElementToXml(ctx, this, writer)) return;
    }
  }
  if (optional || DoesElementContainOptionalElements() || ctx.GetIgnoreMissingChoice()) return;
  throw CQvValidationException(
      "This element is a choice, and as such must have at one (and only one) valid item, currently there are none set",
      std::string());
}

void CXmlGeneratedClass::WriteValue(const CParentElementInfo& classInfo, CXmlWriter* writer) const {
  QvVariant value;
  ReadProperty(classInfo.GetValuePropertyIndex(), value);
  if (value.IsNil()) {
    writer->WriteAttributeNil();
    return;
  }
  writer->WriteString(detail::TextOf(value, classInfo.GetValueFormat(), *writer),
                      classInfo.GetValueItemType(), false);
}

}  // namespace QvXmlLib16
