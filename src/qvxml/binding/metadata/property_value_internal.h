// What the variant of a property means to attributes and members alike. Generated code fills the
// variant, so its type need not be the expected one.

#ifndef QVXML_BINDING_METADATA_PROPERTY_VALUE_INTERNAL_H_
#define QVXML_BINDING_METADATA_PROPERTY_VALUE_INTERNAL_H_

#include <string>

#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/binding/xml_object_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/core/whitespace.h"

namespace QvXmlLib16 {
class CXmlGeneratedClass;  // binding/metadata/xml_generated_class.h
class CXmlWriter;          // xml/xml_writer.h
}  // namespace QvXmlLib16

namespace QvXmlLib16::detail {

/// The object or collection that the property holds, or null when it is unset or nil; no reference
/// is added. Throws CQvException "Invalid Type %d" for a value of another type, which would vanish
/// otherwise.
CXmlObjectBase* ObjectIn(const QvVariant& value);
/// The same for a collection.
CXmlCollectionBase* CollectionIn(const QvVariant& value);

/// The text of a primitive value that is not nil, in the variant or in the room of the writer.
/// Throws what QvVariant::ToString throws.
const std::string& TextOf(const QvVariant& value, const std::string& format, CXmlWriter& writer);

/// The text of the enumeration's value that the property holds as a number, valid for good. Throws
/// CQvException when it holds none, and when the enumeration has no such value.
const char* EnumTextIn(const QvVariant& value, const char* (*enumToText)(int),
                       const std::string& name);
/// What a property that refuses its value is reported as.
class CSetFailure {
 public:
  virtual CQvValidationException Make() const = 0;

 protected:
  ~CSetFailure() = default;
};

/// Stores `value` in the property. An exception from there is put inside the one of `failure`.
void StoreValue(CXmlGeneratedClass* object, int propertyIndex, QvVariant& value,
                const CSetFailure& failure);
/// The same for the value that QvVariant::FromString makes of the text; what that throws passes as
/// it is.
void StoreText(CXmlGeneratedClass* object, int propertyIndex, const std::string& text,
               ItemType type, CWhitespaceUtils::WhitespaceRule rule, const CSetFailure& failure);

/// Makes `value` the number of the enumeration's value that `text` stands for.
void SetEnum(QvVariant& value, const std::string& text, int (*textToEnum)(const char*),
             const std::string& name);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_METADATA_PROPERTY_VALUE_INTERNAL_H_
