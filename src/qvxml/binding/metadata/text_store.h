// How metadata stores the text of a value in its property.

#ifndef QVXML_BINDING_METADATA_TEXT_STORE_H_
#define QVXML_BINDING_METADATA_TEXT_STORE_H_

#include <string>

#include "qvxml/core/item_type.h"
#include "qvxml/core/whitespace.h"

namespace QvXmlLib16 {

class CXmlGeneratedClass;  // binding/metadata/xml_generated_class.h
class QvVariant;           // core/value/variant.h

namespace detail {

class CSetFailure;  // binding/metadata/property_value_internal.h

/// The text of a value, and whether it may be moved out of its string.
struct CValueText {
  const std::string& text;
  bool isExpendable;
};

/// One property, and how text becomes its value, which is found out once for all objects.
class CTextStore {
 public:
  using TextToEnum = int (*)(const char* text);

  /// For a property that holds a value of that type; with one that is not primitive, storing throws
  /// CQvException "Invalid Type %d to convert from string".
  CTextStore(int propertyIndex, ItemType type, CWhitespaceUtils::WhitespaceRule rule);
  /// For one that holds the number of an enumeration's value. `name`, which is kept, is that of the
  /// member.
  CTextStore(int propertyIndex, TextToEnum textToEnum, const std::string& name);

  /// Stores the value of the text. What its conversion throws passes as it is; an exception of the
  /// property is put inside the one of `failure`. The value passes through `room`.
  void Store(CXmlGeneratedClass* object, CValueText text, QvVariant& room,
             const CSetFailure& failure) const {
    m_store(*this, object, text, room, failure);
  }

 private:
  using StoreText = void (*)(const CTextStore& store, CXmlGeneratedClass* object, CValueText text,
                             QvVariant& room, const CSetFailure& failure);

  template <class TTraits>
  static void StoreValue(const CTextStore& store, CXmlGeneratedClass* object, CValueText text,
                         QvVariant& room, const CSetFailure& failure);
  static void StoreEnum(const CTextStore& store, CXmlGeneratedClass* object, CValueText text,
                        QvVariant& room, const CSetFailure& failure);
  static void ThrowNotPrimitive(const CTextStore& store, CXmlGeneratedClass* object,
                                CValueText text, QvVariant& room, const CSetFailure& failure);

  StoreText m_store;
  int m_propertyIndex;
  ItemType m_type;
  CWhitespaceUtils::WhitespaceRule m_rule;
  TextToEnum m_textToEnum = nullptr;
  const std::string* m_name = nullptr;
};

}  // namespace detail

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_METADATA_TEXT_STORE_H_
