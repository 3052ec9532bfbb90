// The base of the metadata of child elements; element_infos.h has the classes that generated code
// constructs.

#ifndef QVXML_BINDING_METADATA_ELEMENT_INFO_H_
#define QVXML_BINDING_METADATA_ELEMENT_INFO_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "qvxml/binding/element_types.h"
#include "qvxml/binding/metadata/text_store.h"
#include "qvxml/binding/primitive_restrictions.h"
#include "qvxml/core/item_type.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/core/whitespace.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {
class CSerializationContext;  // binding/serialization_context.h
class CXmlCollectionBase;     // binding/xml_collection_base.h
class CXmlElement;            // xml/xml_element.h
class CXmlGeneratedClass;     // binding/metadata/xml_generated_class.h
class CXmlObjectBase;         // binding/xml_object_base.h
class CXmlWriter;             // xml/xml_writer.h
class QvVariant;              // core/value/variant.h
}  // namespace QvXmlLib16

namespace QvXmlLib16Data {

/// What a member holds; `Collection` is a typed collection of unknown items.
enum class QVXML_API ElementKind {
  Primitive,
  Enumeration,
  Class,
  AbstractClass,
  Untyped,
  Collection,
};

/// How often a member occurs.
enum class QVXML_API ElementOccurrence { Mandatory, Optional, Repeated };

/// What the name of a metadata class says.
struct CElementDescriptor {
  QvXmlLib16::XmlElementGroupType group = QvXmlLib16::XmlElementGroupType_Sequence;
  ElementKind kind = ElementKind::Primitive;
  ElementOccurrence occurrence = ElementOccurrence::Mandatory;
};

/// Makes the text of an enumeration's value, and back; the text must stay valid.
using EnumToText = const char* (*)(int value);
using TextToEnum = int (*)(const char* text);
/// Makes a new object of the class that generated code gave that number.
using ClassFactory = QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase> (*)(int classId,
                                                                           const char* elementName);
/// Makes a new object of the class that fits an element, or null when none does.
using ElementFactory =
    QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase> (*)(QvXmlLib16::CXmlElement* element);

class CElementInfo;

namespace detail {

/// Whether a member would read an element, which is not null.
using ClaimTest = bool (*)(const CElementInfo& info, const QvXmlLib16::CSerializationContext& ctx,
                           const QvXmlLib16::CXmlGeneratedClass* object,
                           QvXmlLib16::CXmlElement* element);

template <QvXmlLib16::XmlElementGroupType, ElementKind, ElementOccurrence>
class TElementMark;  // binding/metadata/element_occurrence.h

/// A number that no other metadata has, not 0.
QVXML_API std::uint64_t NextMetaDataNumber() noexcept;

}  // namespace detail

/// One child element that a class may hold. It holds no state of an object: one instance serves all
/// objects of its class, on any number of threads. Null text in a constructor is "".
class QVXML_API CElementInfo {
 public:
  CElementInfo(const CElementInfo&) = delete;
  CElementInfo& operator=(const CElementInfo&) = delete;
  virtual ~CElementInfo();

  /// Writes the member of `object`; returns whether it wrote something. Throws
  /// CQvInvalidParamException when a mandatory member has no value.
  virtual bool ElementToXml(const QvXmlLib16::CSerializationContext& ctx,
                            const QvXmlLib16::CXmlGeneratedClass* object,
                            QvXmlLib16::CXmlWriter* writer) const = 0;
  /// Reads the member from `*cursor`, the next child of `parent` not read yet (null after the
  /// last), and moves the cursor behind what it read.
  ///
  /// In a sequence the result tells whether the member is satisfied, in a choice and an all-group
  /// whether it was read. `parentElementType` tells whether `object` has an element of its own; in
  /// one that has, a mandatory member of a sequence that is missing throws CQvValidationException.
  virtual bool ElementFromXml(const QvXmlLib16::CSerializationContext& ctx,
                              QvXmlLib16::CXmlGeneratedClass* object,
                              QvXmlLib16::CXmlElement* parent, QvXmlLib16::CXmlElement** cursor,
                              const char* parentNamespace,
                              QvXmlLib16::XmlElementType parentElementType) = 0;
  /// For members of all-groups, after reading: throws CQvValidationException when `check` is set
  /// and a mandatory member was not `found`, or a collection has a wrong number of items. Throws
  /// CQvException for members of other groups.
  virtual bool Validate(const QvXmlLib16::CSerializationContext& ctx,
                        const QvXmlLib16::CXmlGeneratedClass* object, bool found, bool check) const;
  /// Writes the attributes of a child that is a model group into the open start tag.
  virtual void PseudoChildAttributeToXml(const QvXmlLib16::CSerializationContext& ctx,
                                         const QvXmlLib16::CXmlGeneratedClass* object,
                                         QvXmlLib16::CXmlWriter* writer) const;

  /// Whether an element of that local name, or null for none, is certainly not this member's, and
  /// the member is satisfied without one: then ElementFromXml, which would read nothing and return
  /// true, need not be asked.
  bool IsPassedOver(const std::string* localName) const {
    return m_isNamedOption && (localName == nullptr || *localName != m_name);
  }

  /// Whether this is the metadata of that number, and the member is one primitive or enumerated
  /// value. An element whose name was found to be that metadata's needs no ElementFromXml, which
  /// would return true: ReadValue will do.
  bool IsValueOf(std::uint64_t number) const { return m_valueNumber == number; }
  /// Reads the element into the property, unless it is nil; the value passes through `room`.
  void ReadValue(const QvXmlLib16::CSerializationContext& ctx,
                 QvXmlLib16::CXmlGeneratedClass* object, const QvXmlLib16::CXmlElement& element,
                 QvXmlLib16::QvVariant& room) const;

  // About the member.

  const std::string& GetName() const { return m_name; }
  const std::string& GetNamespace() const { return m_namespace; }
  const CElementDescriptor& GetDescriptor() const { return m_descriptor; }
  /// XmlElementType_Element for all but class members.
  QvXmlLib16::XmlElementType GetElementType() const { return m_elementType; }
  /// Whether the member may be absent from `object`. An alternative of a choice does not count as
  /// that, except a model group that `object` holds and whose members are all optional; a
  /// collection does when its minimum is 0.
  bool IsOptional(const QvXmlLib16::CXmlGeneratedClass* object) const;
  /// Whether the member would read `element`; false for null. Reads nothing, but asks the factory
  /// of an abstract member, or of a model group that `object` does not hold, for an object.
  bool ClaimsElement(const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlGeneratedClass* object,
                     QvXmlLib16::CXmlElement* element) const;

 protected:
  // One constructor for each form; element_kinds.h has those that generated code sees.

  CElementInfo(const char* name, const char* namespaceUri, int propertyIndex);
  CElementInfo(const char* name, const char* namespaceUri, int propertyIndex, bool nillable,
               QvXmlLib16::ItemType itemType, const char* format,
               QvXmlLib16::CWhitespaceUtils::WhitespaceRule whitespaceRule,
               const QvXmlLib16::CPrimitiveRestrictions& restrictions, const char* defaultValue);
  CElementInfo(const char* name, const char* namespaceUri, int propertyIndex, bool nillable,
               EnumToText enumToText, TextToEnum textToEnum, const char* defaultValue);
  CElementInfo(const char* name, const char* namespaceUri, int propertyIndex,
               QvXmlLib16::XmlElementType elementType);

  // What the kinds and occurrences share.

  bool IsThisElement(const QvXmlLib16::CSerializationContext& ctx,
                     const QvXmlLib16::CXmlElement* element) const;
  /// Throws CQvException when the value breaks a facet, or when the member is not primitive.
  void CheckRestriction(const QvXmlLib16::QvVariant& value) const;
  void InvokePropertyGet(QvXmlLib16::CXmlGeneratedClass* object,
                         QvXmlLib16::QvVariant& value) const;
  void InvokePropertySet(QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::QvVariant& value,
                         const QvXmlLib16::CXmlElement* element) const;
  /// InvokePropertyGet for an object that is only read.
  void ReadProperty(const QvXmlLib16::CXmlGeneratedClass* object,
                    QvXmlLib16::QvVariant& value) const;
  /// What the property holds, or null. No reference is added: hold one while code runs that may
  /// replace it.
  QvXmlLib16::CXmlObjectBase* ReadObject(const QvXmlLib16::CXmlGeneratedClass* object) const;
  QvXmlLib16::CXmlCollectionBase* ReadCollection(
      const QvXmlLib16::CXmlGeneratedClass* object) const;

  // Writing: each returns whether it wrote something.

  bool ElementToXmlPrim(const QvXmlLib16::CSerializationContext& ctx,
                        const QvXmlLib16::CXmlGeneratedClass* object,
                        QvXmlLib16::CXmlWriter* writer) const;
  bool ElementToXmlEnum(const QvXmlLib16::CSerializationContext& ctx,
                        const QvXmlLib16::CXmlGeneratedClass* object,
                        QvXmlLib16::CXmlWriter* writer) const;
  bool ElementToXmlCls(const QvXmlLib16::CSerializationContext& ctx,
                       const QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::CXmlWriter* writer,
                       bool optional) const;
  /// With `checkEmpty`, a collection without items that must have some throws.
  bool ElementToXmlCol(const QvXmlLib16::CSerializationContext& ctx,
                       const QvXmlLib16::CXmlGeneratedClass* object, QvXmlLib16::CXmlWriter* writer,
                       bool checkEmpty) const;
  // Reading: the element at the cursor must be this member's.

  void ElementFromXmlPrim(const QvXmlLib16::CSerializationContext& ctx,
                          QvXmlLib16::CXmlGeneratedClass* object,
                          QvXmlLib16::CXmlElement** cursor) const;
  void ElementFromXmlEnum(const QvXmlLib16::CSerializationContext& ctx,
                          QvXmlLib16::CXmlGeneratedClass* object,
                          QvXmlLib16::CXmlElement** cursor) const;
  /// The operations of a child object.
  static QvXmlLib16::CXmlElement* FromXml_Int(QvXmlLib16::CXmlObjectBase* child,
                                              QvXmlLib16::CXmlElement* element,
                                              QvXmlLib16::CXmlElement* firstChild,
                                              const QvXmlLib16::CSerializationContext& ctx,
                                              bool optional);
  static void AttributesToXml_Int(const QvXmlLib16::CXmlObjectBase* child,
                                  QvXmlLib16::CXmlWriter* writer,
                                  const QvXmlLib16::CSerializationContext& ctx);
  /// A namespace that a new untyped element may be given under the wildcard's list: the list
  /// itself when it is one URI, the target namespace for "##targetNamespace" and
  /// "DefaultNamespace", "" otherwise.
  static std::string GetAnyDefaultNamespace(const char* namespaceList, const char* targetNamespace);

  [[noreturn]] void ThrowPropertyIsNull() const;
  [[noreturn]] void ThrowMissingChild(const QvXmlLib16::CXmlElement* parent) const;

  std::string m_name;
  std::string m_namespace;
  /// By which names remember that they are this member's.
  const std::uint64_t m_number = detail::NextMetaDataNumber();
  int m_propertyIndex;
  QvXmlLib16::CPrimitiveRestrictions m_restrictions;
  QvXmlLib16::ItemType m_itemType = QvXmlLib16::ItemType_none;
  std::string m_format;
  QvXmlLib16::CWhitespaceUtils::WhitespaceRule m_whitespaceRule =
      QvXmlLib16::CWhitespaceUtils::ws_none;
  std::string m_defaultValue;
  bool m_isNillable = false;
  EnumToText m_enumToText = nullptr;
  TextToEnum m_textToEnum = nullptr;
  bool m_hasPrimitiveType = false;
  QvXmlLib16::XmlElementType m_elementType = QvXmlLib16::XmlElementType_Element;

 private:
  // No name remembers that, nor that it remembers none.
  static constexpr std::uint64_t kNoNumber = ~std::uint64_t{0};

  template <QvXmlLib16::XmlElementGroupType, ElementKind, ElementOccurrence>
  friend class detail::TElementMark;

  bool WriteNil(QvXmlLib16::CXmlWriter* writer) const;
  bool IsDefault(std::string_view text) const;
  const std::string& TextOrDefault(const std::string& text) const;

  // Set by the concrete class, so that what depends on its axes needs no further virtual operation.
  CElementDescriptor m_descriptor;
  detail::ClaimTest m_claims = nullptr;
  bool m_isNamedOption = false;
  std::uint64_t m_valueNumber = kNoNumber;
  QvXmlLib16::detail::CTextStore m_store;
  // Whether the restrictions can refuse a value.
  bool m_isChecked = false;
};

}  // namespace QvXmlLib16Data

#endif  // QVXML_BINDING_METADATA_ELEMENT_INFO_H_
