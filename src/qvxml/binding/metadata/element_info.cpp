// Property access, and the writing and reading steps of each kind of value.

#include "qvxml/binding/metadata/element_info.h"

#include <atomic>
#include <string_view>

#include <strings.h>

#include "qvxml/binding/facet_checks.h"
#include "qvxml/binding/metadata/property_value_internal.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/name_match_internal.h"
#include "qvxml/binding/namespace_constraint.h"
#include "qvxml/binding/wrap_failure_internal.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/xml/xml_element.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16Data {

using QvXmlLib16::CPrimitiveRestrictions;
using QvXmlLib16::CQvException;
using QvXmlLib16::CQvInvalidParamException;
using QvXmlLib16::CQvValidationException;
using QvXmlLib16::CSerializationContext;
using QvXmlLib16::CWhitespaceUtils;
using QvXmlLib16::CXmlAttribute;
using QvXmlLib16::CXmlCollectionBase;
using QvXmlLib16::CXmlElement;
using QvXmlLib16::CXmlGeneratedClass;
using QvXmlLib16::CXmlObjectBase;
using QvXmlLib16::CXmlWriter;
using QvXmlLib16::FormatString;
using QvXmlLib16::ItemType;
using QvXmlLib16::QvVariant;
using QvXmlLib16::XmlElementType;
using QvXmlLib16::detail::WithProperty;

namespace {

const char* TextOrEmpty(const char* text) { return text == nullptr ? "" : text; }

bool EqualsIgnoringCase(const std::string& text, const char* word) {
  return strcasecmp(text.c_str(), word) == 0;
}

// Whether the attribute makes the element nil.
bool ReadNil(const CXmlAttribute& attribute, const CXmlElement& element, bool isNillable) {
  const std::string& value = attribute.GetValue();
  // Kept: tested first, so that xsi:nil="false" is accepted on any element.
  if (EqualsIgnoringCase(value, "false") || value == "0") return false;
  if (!isNillable) {
    throw CQvValidationException("Invalid use of 'nil' attribute in non-nillable element.",
                                 element.GetXPath());
  }
  if (EqualsIgnoringCase(value, "true") || value == "1") return true;
  throw CQvValidationException(
      FormatString("Unexpected Value [%s] for 'nil' Attribute found.", value.c_str()),
      attribute.GetXPath());
}

class CElementSetFailure final : public QvXmlLib16::detail::CSetFailure {
 public:
  explicit CElementSetFailure(const CXmlElement& element) : m_element(element) {}

  CQvValidationException Make() const override {
    return CQvValidationException("Failed to set the property value.", m_element.GetXPath());
  }

 private:
  const CXmlElement& m_element;
};

bool ReadAttributes(const CSerializationContext& ctx, const CXmlElement& element, bool isNillable) {
  bool isNil = false;
  for (const CXmlAttribute* attribute : QvXmlLib16::detail::CNodeAccess::AttributesOf(element)) {
    if (attribute->IsNilAttribute()) {
      isNil = ReadNil(*attribute, element, isNillable);
    } else if (!ctx.GetIgnoreUnknownAttributes()) {
      throw CQvValidationException("Unexpected Attribute found.", attribute->GetXPath());
    }
  }
  return isNil;
}

// Whether the element of a primitive or enumerated member is nil; it may have no other attribute.
inline bool HasNil(const CSerializationContext& ctx, const CXmlElement& element, bool isNillable) {
  return !QvXmlLib16::detail::CNodeAccess::AttributesOf(element).empty() &&
         ReadAttributes(ctx, element, isNillable);
}

}  // namespace

std::uint64_t detail::NextMetaDataNumber() noexcept {
  static constinit std::atomic<std::uint64_t> last{0};
  return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

CElementInfo::CElementInfo(const char* name, const char* namespaceUri, int propertyIndex)
    : m_name(TextOrEmpty(name)),
      m_namespace(TextOrEmpty(namespaceUri)),
      m_propertyIndex(propertyIndex),
      m_store(propertyIndex, m_itemType, m_whitespaceRule) {}

CElementInfo::CElementInfo(const char* name, const char* namespaceUri, int propertyIndex,
                           bool nillable, ItemType itemType, const char* format,
                           CWhitespaceUtils::WhitespaceRule whitespaceRule,
                           const CPrimitiveRestrictions& restrictions, const char* defaultValue)
    : m_name(TextOrEmpty(name)),
      m_namespace(TextOrEmpty(namespaceUri)),
      m_propertyIndex(propertyIndex),
      m_restrictions(restrictions),
      m_itemType(itemType),
      m_format(TextOrEmpty(format)),
      m_whitespaceRule(whitespaceRule),
      m_defaultValue(TextOrEmpty(defaultValue)),
      m_isNillable(nillable),
      m_hasPrimitiveType(true),
      m_store(propertyIndex, itemType, whitespaceRule) {
  m_restrictions.ConvertBounds(itemType);
  m_isChecked = QvXmlLib16::CXmlObjectHelper::NeedsCheck(itemType, m_restrictions);
}

CElementInfo::CElementInfo(const char* name, const char* namespaceUri, int propertyIndex,
                           bool nillable, EnumToText enumToText, TextToEnum textToEnum,
                           const char* defaultValue)
    : m_name(TextOrEmpty(name)),
      m_namespace(TextOrEmpty(namespaceUri)),
      m_propertyIndex(propertyIndex),
      m_defaultValue(TextOrEmpty(defaultValue)),
      m_isNillable(nillable),
      m_enumToText(enumToText),
      m_textToEnum(textToEnum),
      m_store(propertyIndex, textToEnum, m_name) {}

CElementInfo::CElementInfo(const char* name, const char* namespaceUri, int propertyIndex,
                           XmlElementType elementType)
    : m_name(TextOrEmpty(name)),
      m_namespace(TextOrEmpty(namespaceUri)),
      m_propertyIndex(propertyIndex),
      m_elementType(elementType),
      m_store(propertyIndex, m_itemType, m_whitespaceRule) {}

CElementInfo::~CElementInfo() = default;

bool CElementInfo::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool,
                            bool) const {
  throw CQvException("Not implemented, should never be called");
}

void CElementInfo::PseudoChildAttributeToXml(const CSerializationContext&,
                                             const CXmlGeneratedClass*, CXmlWriter*) const {}

bool CElementInfo::IsThisElement(const CSerializationContext& ctx,
                                 const CXmlElement* element) const {
  return QvXmlLib16::detail::DoesNameMatch(ctx, element, m_number, m_name, m_namespace);
}

void CElementInfo::CheckRestriction(const QvVariant& value) const {
  if (!m_hasPrimitiveType) {
    throw CQvException("Cannot CheckRestriction for type: " + value.GetType());
  }
  QvXmlLib16::CXmlObjectHelper::CheckRestriction(m_name.c_str(), value, m_itemType, m_restrictions);
}

void CElementInfo::InvokePropertyGet(CXmlGeneratedClass* object, QvVariant& value) const {
  QvXmlLib16::detail::GetProperty(object, m_propertyIndex, m_name, value);
}

void CElementInfo::InvokePropertySet(CXmlGeneratedClass* object, QvVariant& value,
                                     const CXmlElement* element) const {
  QvXmlLib16::detail::SetProperty(object, m_propertyIndex, value, CElementSetFailure(*element));
}

void CElementInfo::ReadProperty(const CXmlGeneratedClass* object, QvVariant& value) const {
  // Getting a property changes nothing, though the one accessor for both directions is not const.
  InvokePropertyGet(const_cast<CXmlGeneratedClass*>(object), value);
}

CXmlObjectBase* CElementInfo::ReadObject(const CXmlGeneratedClass* object) const {
  QvVariant value;
  ReadProperty(object, value);
  return QvXmlLib16::detail::ObjectIn(value);
}

CXmlCollectionBase* CElementInfo::ReadCollection(const CXmlGeneratedClass* object) const {
  QvVariant value;
  ReadProperty(object, value);
  return QvXmlLib16::detail::CollectionIn(value);
}

bool CElementInfo::ElementToXmlPrim(const CSerializationContext&, const CXmlGeneratedClass* object,
                                    CXmlWriter* writer) const {
  // Apart, so that passing over a member that is not set costs next to nothing.
  const auto write = [ this, writer ](const QvVariant& value) __attribute__((noinline)) {
    if (value.IsNil()) return WriteNil(writer);
    const std::string_view text = QvXmlLib16::detail::TextOf(value, m_format, *writer);
    const bool isDefault = !m_defaultValue.empty() && IsDefault(text);
    if (m_isChecked && !isDefault) CheckRestriction(value);
    writer->WriteTextElement(m_name, m_namespace, text, m_itemType, isDefault);
    return true;
  };
  return WithProperty(*writer, object, m_propertyIndex, m_name,
                      [&](const QvVariant& value) { return value.IsValid() && write(value); });
}

bool CElementInfo::ElementToXmlEnum(const CSerializationContext&, const CXmlGeneratedClass* object,
                                    CXmlWriter* writer) const {
  const auto write = [ this, writer ](const QvVariant& value) __attribute__((noinline)) {
    if (value.IsNil()) return WriteNil(writer);
    const std::string_view text = QvXmlLib16::detail::EnumTextIn(value, m_enumToText, m_name);
    writer->WriteTextElement(m_name, m_namespace, text, QvXmlLib16::ItemType_string,
                             IsDefault(text));
    return true;
  };
  return WithProperty(*writer, object, m_propertyIndex, m_name,
                      [&](const QvVariant& value) { return value.IsValid() && write(value); });
}

// A default of "" is none, so an empty text is never one.
bool CElementInfo::IsDefault(std::string_view text) const {
  return !m_defaultValue.empty() && text == m_defaultValue;
}

bool CElementInfo::WriteNil(CXmlWriter* writer) const {
  writer->WriteStartElement(m_name, m_namespace);
  writer->WriteAttributeNil();
  writer->WriteEndElement();
  return true;
}

bool CElementInfo::ElementToXmlCls(const CSerializationContext& ctx,
                                   const CXmlGeneratedClass* object, CXmlWriter* writer,
                                   bool optional) const {
  const CXmlObjectBase* child = nullptr;
  WithProperty(*writer, object, m_propertyIndex, m_name, [&](const QvVariant& value) {
    child = QvXmlLib16::detail::ObjectIn(value);
    return true;
  });
  if (child == nullptr) return false;
  child->ToXml_Int(writer, false, m_namespace.c_str(), ctx, optional);
  return true;
}

bool CElementInfo::ElementToXmlCol(const CSerializationContext& ctx,
                                   const CXmlGeneratedClass* object, CXmlWriter* writer,
                                   bool checkEmpty) const {
  CXmlCollectionBase* collection = nullptr;
  WithProperty(*writer, object, m_propertyIndex, m_name, [&](const QvVariant& value) {
    collection = QvXmlLib16::detail::CollectionIn(value);
    return true;
  });
  if (collection == nullptr) return false;
  if (collection->GetCount() == 0) {
    if (checkEmpty) collection->ValidateCount(ctx);
    return false;
  }
  writer->SetContextState(QvXmlLib16::ContextState_CollectionBegin);
  collection->GetBase()->ToXml_Int(writer, false, m_namespace.c_str(), ctx, false);
  writer->SetContextState(QvXmlLib16::ContextState_CollectionEnd);
  return true;
}

void CElementInfo::ReadValue(const CSerializationContext& ctx, CXmlGeneratedClass* object,
                             const CXmlElement& element, QvVariant& room) const {
  // Kept: nothing is stored for a nil element, so the property stays as Init() left it.
  if (HasNil(ctx, element, m_isNillable)) return;
  // A short text is copied as fast as it is moved.
  constexpr size_t kShort = 15;
  const std::string& text = element.GetText();
  const bool isExpendable =
      text.size() > kShort && QvXmlLib16::detail::CNodeAccess::IsTextExpendable(element);
  m_store.Store(object, {TextOrDefault(text), isExpendable}, room, CElementSetFailure(element));
}

void CElementInfo::ElementFromXmlPrim(const CSerializationContext& ctx, CXmlGeneratedClass* object,
                                      CXmlElement** cursor) const {
  QvVariant room;
  ReadValue(ctx, object, **cursor, room);
  *cursor = (*cursor)->GetNextSiblingElement();
}

void CElementInfo::ElementFromXmlEnum(const CSerializationContext& ctx, CXmlGeneratedClass* object,
                                      CXmlElement** cursor) const {
  ElementFromXmlPrim(ctx, object, cursor);
}

// The default stands for a text that is empty before whitespace is dealt with.
const std::string& CElementInfo::TextOrDefault(const std::string& text) const {
  return text.empty() ? m_defaultValue : text;
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* child, CXmlElement* element,
                                       CXmlElement* firstChild, const CSerializationContext& ctx,
                                       bool optional) {
  return child->FromXml_Int(element, firstChild, ctx, optional);
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* child, CXmlWriter* writer,
                                       const CSerializationContext& ctx) {
  child->AttributesToXml_Int(writer, ctx);
}

std::string CElementInfo::GetAnyDefaultNamespace(const char* namespaceList,
                                                 const char* targetNamespace) {
  return QvXmlLib16::GetAnyDefaultNamespace(TextOrEmpty(namespaceList),
                                            TextOrEmpty(targetNamespace));
}

void CElementInfo::ThrowPropertyIsNull() const {
  throw CQvInvalidParamException(
      FormatString("The Property [%s] is mandatory, it may not be NULL", m_name.c_str()));
}

void CElementInfo::ThrowMissingChild(const CXmlElement* parent) const {
  throw CQvValidationException(
      FormatString("Failed to find the required child element [%s].", m_name.c_str()),
      parent->GetXPath());
}

}  // namespace QvXmlLib16Data
