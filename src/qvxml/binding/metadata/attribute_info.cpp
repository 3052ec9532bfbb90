#include "qvxml/binding/metadata/attribute_info.h"

#include "qvxml/binding/facet_checks.h"
#include "qvxml/binding/metadata/element_info.h"
#include "qvxml/binding/metadata/property_value_internal.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/name_match_internal.h"
#include "qvxml/binding/namespace_constraint.h"
#include "qvxml/binding/wrap_failure_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/xml/untyped/attribute_col.h"
#include "qvxml/xml/xml_attribute.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16Data {

using QvXmlLib16::CAttributeCol;
using QvXmlLib16::CQvException;
using QvXmlLib16::CQvValidationException;
using QvXmlLib16::CSerializationContext;
using QvXmlLib16::CWhitespaceUtils;
using QvXmlLib16::CXmlAttribute;
using QvXmlLib16::CXmlGeneratedClass;
using QvXmlLib16::CXmlObjectBase;
using QvXmlLib16::CXmlWriter;
using QvXmlLib16::FormatString;
using QvXmlLib16::QvVariant;
using QvXmlLib16::detail::WithProperty;

namespace {

const char* TextOrEmpty(const char* text) { return text == nullptr ? "" : text; }

class CAttributeSetFailure final : public QvXmlLib16::detail::CSetFailure {
 public:
  explicit CAttributeSetFailure(const CXmlAttribute& attribute) : m_attribute(attribute) {}

  CQvValidationException Make() const override {
    return CQvValidationException(
        FormatString("Failed to set the property value [%s].", m_attribute.GetValue().c_str()),
        m_attribute.GetXPath());
  }

 private:
  const CXmlAttribute& m_attribute;
};

CAttributeCol& RequireAttributeCol(const QvVariant& value) {
  // Through the two types that ObjectIn does not refuse, as this message is another.
  const QvXmlLib16::ItemType type = value.GetItemType();
  CXmlObjectBase* held = nullptr;
  if (type == QvXmlLib16::ItemType_xmlObject || type == QvXmlLib16::ItemType_xmlCollection) {
    held = QvXmlLib16::detail::ObjectIn(value);
  }
  auto* collection = dynamic_cast<CAttributeCol*>(held);
  if (collection == nullptr) {
    throw CQvException(
        "Serialization Data Error : The collection should be a CAttributeCol, it was not!");
  }
  return *collection;
}

}  // namespace

constinit QvXmlLib16::CInstanceCounter CAttributeInfo::s_instances("CAttributeInfo");

CAttributeInfo::CAttributeInfo(const char* name, const char* namespaceUri, int propertyIndex,
                               bool optional, const char* defaultValue)
    : m_name(TextOrEmpty(name)),
      m_namespace(TextOrEmpty(namespaceUri)),
      m_number(detail::NextMetaDataNumber()),
      m_propertyIndex(propertyIndex),
      m_isOptional(optional),
      m_defaultValue(TextOrEmpty(defaultValue)),
      m_store(propertyIndex, QvXmlLib16::ItemType_none, CWhitespaceUtils::ws_none) {}

CAttributeInfo::~CAttributeInfo() = default;

void CAttributeInfo::SetStore(const QvXmlLib16::detail::CTextStore& store) {
  m_store = store;
  m_valueNumber = m_number;
}

void CAttributeInfo::ReadValue(CXmlGeneratedClass* object, const CXmlAttribute& attribute,
                               QvVariant& room) const {
  m_store.Store(object, {attribute.GetValue(), false}, room, CAttributeSetFailure(attribute));
}

void CAttributeInfo::Validate(const CSerializationContext&, bool found) const {
  if (found || m_isOptional) return;
  throw CQvValidationException(
      FormatString("Failed to find the required Attribute [%s].", m_name.c_str()), std::string());
}

bool CAttributeInfo::HasName(const CXmlAttribute* attribute, bool ignoresNamespaces) const {
  if (attribute == nullptr) return false;
  const QvXmlLib16::detail::CXmlName& name = QvXmlLib16::detail::CNodeAccess::NameOf(*attribute);
  return QvXmlLib16::detail::DoesNameMatch(name, name.attributeMatch, m_number, m_name, m_namespace,
                                           ignoresNamespaces);
}

bool CAttributeInfo::IsThisAttribute(const CSerializationContext& ctx,
                                     const CXmlAttribute* attribute) const {
  return HasName(attribute, ctx.GetIgnoreNamespaces());
}

void CAttributeInfo::InvokePropertyGet(CXmlGeneratedClass* object, QvVariant& value) const {
  QvXmlLib16::detail::GetProperty(object, m_propertyIndex, m_name, value);
}

void CAttributeInfo::InvokePropertySet(CXmlGeneratedClass* object, QvVariant& value,
                                       const CXmlAttribute& attribute) const {
  QvXmlLib16::detail::SetProperty(object, m_propertyIndex, value, CAttributeSetFailure(attribute));
}

void CAttributeInfo::ReadProperty(const CXmlGeneratedClass* object, QvVariant& value) const {
  InvokePropertyGet(const_cast<CXmlGeneratedClass*>(object), value);
}

std::string CAttributeInfo::GetTargetNamespace(const CXmlGeneratedClass* object) const {
  return object->GetTargetNamespace();
}

bool CAttributeInfo::TestNamespace(const char* namespaceUri, const char* allowedList,
                                   const char* targetNamespace) {
  QvXmlLib16::RequireNamespaceAdmitted(TextOrEmpty(namespaceUri), TextOrEmpty(allowedList),
                                       TextOrEmpty(targetNamespace));
  return true;
}

bool CAttributeInfo::IsNamespaceValid(const char* namespaceUri, const char* allowedList,
                                      const char* targetNamespace) {
  return QvXmlLib16::IsNamespaceAdmitted(TextOrEmpty(namespaceUri), TextOrEmpty(allowedList),
                                         TextOrEmpty(targetNamespace));
}

bool CAttributeInfo::IsDefaultLeftOut(const CSerializationContext& ctx,
                                      std::string_view text) const {
  return m_isOptional && !m_defaultValue.empty() && ctx.GetNoOptionalAttributeDefaultOutput() &&
         text == m_defaultValue;
}

CAttributeInfoPrimitive::CAttributeInfoPrimitive(
    const char* name, const char* namespaceUri, int propertyIndex, bool optional,
    QvXmlLib16::ItemType itemType, const char* format,
    CWhitespaceUtils::WhitespaceRule whitespaceRule,
    const QvXmlLib16::CPrimitiveRestrictions& restrictions, const char* defaultValue)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional, defaultValue),
      m_itemType(itemType),
      m_format(TextOrEmpty(format)),
      m_restrictions(restrictions) {
  SetStore(QvXmlLib16::detail::CTextStore(propertyIndex, itemType, whitespaceRule));
  m_restrictions.ConvertBounds(itemType);
  m_isChecked = QvXmlLib16::CXmlObjectHelper::NeedsCheck(itemType, m_restrictions);
}

void CAttributeInfoPrimitive::AttributeToXml(const CSerializationContext& ctx,
                                             const CXmlGeneratedClass* object,
                                             CXmlWriter* writer) const {
  WithProperty(*writer, object, m_propertyIndex, m_name, [&](const QvVariant& value) {
    if (m_isOptional && !value.IsValid()) return false;
    const std::string_view text = QvXmlLib16::detail::TextOf(value, m_format, *writer);
    if (IsDefaultLeftOut(ctx, text)) return false;
    if (m_isChecked) {
      QvXmlLib16::CXmlObjectHelper::CheckRestriction(m_name.c_str(), value, m_itemType,
                                                     m_restrictions);
    }
    writer->WriteTextAttribute(m_name, m_namespace, text, m_itemType);
    return true;
  });
}

bool CAttributeInfoPrimitive::AttributeFromXml(const CSerializationContext&,
                                               CXmlGeneratedClass* object,
                                               CXmlAttribute* attribute) const {
  // Kept: the namespace counts even where the context ignores namespaces.
  if (!HasName(attribute, false)) return false;
  QvVariant room;
  ReadValue(object, *attribute, room);
  return true;
}

CAttributeInfoEnum::CAttributeInfoEnum(const char* name, const char* namespaceUri,
                                       int propertyIndex, bool optional, const char* defaultValue,
                                       EnumToText enumToText, TextToEnum textToEnum)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional, defaultValue),
      m_enumToText(enumToText) {
  SetStore(QvXmlLib16::detail::CTextStore(propertyIndex, textToEnum, m_name));
}

CAttributeInfoEnum::CAttributeInfoEnum(const char* name, const char* namespaceUri,
                                       int propertyIndex, bool optional, EnumToText enumToText,
                                       TextToEnum textToEnum, const char* defaultValue)
    : CAttributeInfoEnum(name, namespaceUri, propertyIndex, optional, defaultValue, enumToText,
                         textToEnum) {}

void CAttributeInfoEnum::AttributeToXml(const CSerializationContext& ctx,
                                        const CXmlGeneratedClass* object,
                                        CXmlWriter* writer) const {
  WithProperty(*writer, object, m_propertyIndex, m_name, [&](const QvVariant& value) {
    if (m_isOptional && !value.IsValid()) return false;
    const std::string_view text = QvXmlLib16::detail::EnumTextIn(value, m_enumToText, m_name);
    if (IsDefaultLeftOut(ctx, text)) return false;
    writer->WriteTextAttribute(m_name, m_namespace, text, QvXmlLib16::ItemType_string);
    return true;
  });
}

bool CAttributeInfoEnum::AttributeFromXml(const CSerializationContext& ctx,
                                          CXmlGeneratedClass* object,
                                          CXmlAttribute* attribute) const {
  if (!IsThisAttribute(ctx, attribute)) return false;
  QvVariant room;
  ReadValue(object, *attribute, room);
  return true;
}

CAttributeInfoAny::CAttributeInfoAny(const char* name, const char* namespaceUri, int propertyIndex,
                                     bool optional, const char* defaultValue,
                                     const char* namespaceList, const char* targetNamespace)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional, defaultValue),
      m_namespaceList(TextOrEmpty(namespaceList)),
      m_targetNamespace(TextOrEmpty(targetNamespace)) {}

void CAttributeInfoAny::AttributeToXml(const CSerializationContext& ctx,
                                       const CXmlGeneratedClass* object, CXmlWriter* writer) const {
  QvVariant value;
  ReadProperty(object, value);
  if (QvXmlLib16::detail::ObjectIn(value) == nullptr) return;
  RequireAttributeCol(value).ToXml_Int(writer, false, GetTargetNamespace(object).c_str(), ctx,
                                       false);
}

bool CAttributeInfoAny::AttributeFromXml(const CSerializationContext&, CXmlGeneratedClass* object,
                                         CXmlAttribute* attribute) const {
  if (attribute == nullptr ||
      !QvXmlLib16::IsNamespaceAdmitted(attribute->GetNamespaceURI(), m_namespaceList,
                                       m_targetNamespace)) {
    return false;
  }
  QvVariant value;
  InvokePropertyGet(object, value);
  RequireAttributeCol(value).Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                                 attribute->GetNamespaceURI().c_str());
  return true;
}

void CAttributeInfoAny::Validate(const CSerializationContext&, bool) const {}

}  // namespace QvXmlLib16Data
