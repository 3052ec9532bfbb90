// Metadata of the attributes of a generated class.

#ifndef QVXML_BINDING_METADATA_ATTRIBUTE_INFO_H_
#define QVXML_BINDING_METADATA_ATTRIBUTE_INFO_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "qvxml/binding/metadata/text_store.h"
#include "qvxml/binding/primitive_restrictions.h"
#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/item_type.h"
#include "qvxml/core/whitespace.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {
class CXmlAttribute;       // xml/xml_attribute.h
class CXmlGeneratedClass;  // binding/metadata/xml_generated_class.h
class CXmlWriter;          // xml/xml_writer.h
class QvVariant;           // core/value/variant.h
}  // namespace QvXmlLib16

namespace QvXmlLib16Data {

/// One attribute. Holds no state of an object: one instance serves all objects of its class, on
/// any number of threads. Null text in a constructor is "".
class QVXML_API CAttributeInfo : private QvXmlLib16::TInstanceCounted<CAttributeInfo> {
 public:
  CAttributeInfo(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                 const char* defaultValue);
  CAttributeInfo(const CAttributeInfo&) = delete;
  CAttributeInfo& operator=(const CAttributeInfo&) = delete;
  virtual ~CAttributeInfo();

  /// Writes the attribute of `object` into the open start tag.
  virtual void AttributeToXml(const QvXmlLib16::CSerializationContext& ctx,
                              const QvXmlLib16::CXmlGeneratedClass* object,
                              QvXmlLib16::CXmlWriter* writer) const = 0;
  /// Stores `attribute` into `object` when it is this one; false when it is not.
  virtual bool AttributeFromXml(const QvXmlLib16::CSerializationContext& ctx,
                                QvXmlLib16::CXmlGeneratedClass* object,
                                QvXmlLib16::CXmlAttribute* attribute) const = 0;
  /// Called at the end of reading; throws CQvValidationException when the attribute is mandatory
  /// and was not found. A missing optional attribute keeps what Init() set.
  virtual void Validate(const QvXmlLib16::CSerializationContext& ctx, bool found) const;

  /// Whether this is the metadata of that number, and the attribute is one primitive or enumerated
  /// value. One whose name was found to be that metadata's needs no AttributeFromXml, which would
  /// return true: ReadValue will do.
  bool IsValueOf(std::uint64_t number) const { return m_valueNumber == number; }
  /// Reads the attribute into the property; the value passes through `room`.
  void ReadValue(QvXmlLib16::CXmlGeneratedClass* object, const QvXmlLib16::CXmlAttribute& attribute,
                 QvXmlLib16::QvVariant& room) const;

  const std::string& GetName() const { return m_name; }
  const std::string& GetNamespace() const { return m_namespace; }

 protected:
  /// Name and, unless the context ignores namespaces, namespace are this one's; false for null.
  bool IsThisAttribute(const QvXmlLib16::CSerializationContext& ctx,
                       const QvXmlLib16::CXmlAttribute* attribute) const;
  void InvokePropertyGet(QvXmlLib16::CXmlGeneratedClass* object,
                         QvXmlLib16::QvVariant& value) const;
  void InvokePropertySet(QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::QvVariant& value,
                         const QvXmlLib16::CXmlAttribute& attribute) const;
  void ReadProperty(const QvXmlLib16::CXmlGeneratedClass* object,
                    QvXmlLib16::QvVariant& value) const;
  std::string GetTargetNamespace(const QvXmlLib16::CXmlGeneratedClass* object) const;
  static bool TestNamespace(const char* namespaceUri, const char* allowedList,
                            const char* targetNamespace);
  static bool IsNamespaceValid(const char* namespaceUri, const char* allowedList,
                               const char* targetNamespace);
  /// Whether `text` is left out because it is the optional attribute's default.
  bool IsDefaultLeftOut(const QvXmlLib16::CSerializationContext& ctx, std::string_view text) const;
  /// For an attribute that is one value.
  void SetStore(const QvXmlLib16::detail::CTextStore& store);

  std::string m_name;
  std::string m_namespace;
  /// By which names remember that they are this attribute's.
  const std::uint64_t m_number;
  int m_propertyIndex;
  bool m_isOptional;
  std::string m_defaultValue;

 private:
  friend class QvXmlLib16::TInstanceCounted<CAttributeInfo>;
  friend class CAttributeInfoPrimitive;

  // No name remembers that, nor that it remembers none.
  static constexpr std::uint64_t kNoNumber = ~std::uint64_t{0};

  bool HasName(const QvXmlLib16::CXmlAttribute* attribute, bool ignoresNamespaces) const;

  static QvXmlLib16::CInstanceCounter s_instances;

  std::uint64_t m_valueNumber = kNoNumber;
  QvXmlLib16::detail::CTextStore m_store;
};

/// An attribute of a primitive type. Facets are checked when it is written, not when it is read.
class QVXML_API CAttributeInfoPrimitive : public CAttributeInfo {
 public:
  /// `format` is what QvVariant::ToString is given.
  CAttributeInfoPrimitive(const char* name, const char* namespaceUri, int propertyIndex,
                          bool optional, QvXmlLib16::ItemType itemType, const char* format,
                          QvXmlLib16::CWhitespaceUtils::WhitespaceRule whitespaceRule,
                          const QvXmlLib16::CPrimitiveRestrictions& restrictions,
                          const char* defaultValue);

  void AttributeToXml(const QvXmlLib16::CSerializationContext& ctx,
                      const QvXmlLib16::CXmlGeneratedClass* object,
                      QvXmlLib16::CXmlWriter* writer) const override;
  /// Compares the namespace even when the context ignores namespaces.
  bool AttributeFromXml(const QvXmlLib16::CSerializationContext& ctx,
                        QvXmlLib16::CXmlGeneratedClass* object,
                        QvXmlLib16::CXmlAttribute* attribute) const override;

 private:
  QvXmlLib16::ItemType m_itemType;
  std::string m_format;
  QvXmlLib16::CPrimitiveRestrictions m_restrictions;
  // Whether they can refuse a value.
  bool m_isChecked;
};

/// An attribute whose property holds an enumeration as a number (ItemType_i4 in the variant).
class QVXML_API CAttributeInfoEnum : public CAttributeInfo {
 public:
  using EnumToText = const char* (*)(int);
  using TextToEnum = int (*)(const char*);

  CAttributeInfoEnum(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                     const char* defaultValue, EnumToText enumToText, TextToEnum textToEnum);
  CAttributeInfoEnum(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                     EnumToText enumToText, TextToEnum textToEnum, const char* defaultValue);

  void AttributeToXml(const QvXmlLib16::CSerializationContext& ctx,
                      const QvXmlLib16::CXmlGeneratedClass* object,
                      QvXmlLib16::CXmlWriter* writer) const override;
  bool AttributeFromXml(const QvXmlLib16::CSerializationContext& ctx,
                        QvXmlLib16::CXmlGeneratedClass* object,
                        QvXmlLib16::CXmlAttribute* attribute) const override;

 private:
  EnumToText m_enumToText;
};

/// A wildcard: any number of attributes in the namespaces that the list admits, collected in a
/// CAttributeCol. Takes all that it admits, so it stands last in the array.
class QVXML_API CAttributeInfoAny : public CAttributeInfo {
 public:
  /// `namespaceList` as in CXmlObjectBase::IsNamespaceValid.
  CAttributeInfoAny(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                    const char* defaultValue, const char* namespaceList,
                    const char* targetNamespace);

  void AttributeToXml(const QvXmlLib16::CSerializationContext& ctx,
                      const QvXmlLib16::CXmlGeneratedClass* object,
                      QvXmlLib16::CXmlWriter* writer) const override;
  bool AttributeFromXml(const QvXmlLib16::CSerializationContext& ctx,
                        QvXmlLib16::CXmlGeneratedClass* object,
                        QvXmlLib16::CXmlAttribute* attribute) const override;
  void Validate(const QvXmlLib16::CSerializationContext& ctx, bool found) const override;

 private:
  std::string m_namespaceList;
  std::string m_targetNamespace;
};

}  // namespace QvXmlLib16Data

#endif  // QVXML_BINDING_METADATA_ATTRIBUTE_INFO_H_
