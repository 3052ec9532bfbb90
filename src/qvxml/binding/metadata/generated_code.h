// What generated classes are made of beside their metadata: the base that hands the metadata to the
// driver, the types of properties, and the steps of AccessProperty, Init and setters.

#ifndef QVXML_BINDING_METADATA_GENERATED_CODE_H_
#define QVXML_BINDING_METADATA_GENERATED_CODE_H_

#include <cstddef>
#include <optional>
#include <string>
#include <typeinfo>
#include <utility>

#include "qvxml/binding/metadata/class_meta_data.h"
#include "qvxml/binding/metadata/parent_element_info.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/nillable.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/item_type.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/core/value/item_traits.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Base of a generated class `TClass`, which offers `static const CClassMetaData& GetMetaData()`.
/// A class that extends another one names that as `TBase`.
template <class TClass, class TBase = CXmlGeneratedClass>
class TGeneratedClass : public TBase {
 public:
  using TBase::TBase;

  std::string GetTargetNamespace() const override { return GetClassInfo()->GetNamespace(); }
  std::string GetNamespace() const override { return GetClassInfo()->GetNamespace(); }
  QvXmlLib16Data::CParentElementInfo* GetClassInfo() const override {
    return TClass::GetMetaData().GetClassInfo();
  }
  QvXmlLib16Data::CElementInfo** GetClassElementInfo() const override {
    return TClass::GetMetaData().GetElements();
  }
  QvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() const override {
    return TClass::GetMetaData().GetAttributes();
  }
};

/// Second base of a generated class whose element may be nil.
class CNillableObject : public INillable {
 public:
  bool IsNil() const override { return m_isNil; }
  void SetNil(bool isNil) override { m_isNil = isNil; }

 protected:
  ~CNillableObject() = default;

 private:
  bool m_isNil = false;
};

/// A property whose element may be nil: no value, nil, or a value.
template <class TValue>
class TNillable : public std::optional<TValue> {
 public:
  using std::optional<TValue>::optional;
  static TNillable Nil() {
    TNillable nil;
    nil.m_isNil = true;
    return nil;
  }

  /// Nil, which is not the same as having no value: the element is written, with xsi:nil.
  bool IsNil() const { return m_isNil && !this->has_value(); }
  void reset() {
    std::optional<TValue>::reset();
    m_isNil = false;
  }

 private:
  bool m_isNil = false;
};

// Steps of AccessProperty: with `get` from the property into `value`, else back; values are copied.
// A `value` of another type than the property's throws CQvException "Invalid Type %d", and the
// property stays as it was.

/// An invalid or nil `value` resets the property.
template <ItemType kType, class TValue>
void AccessValue(bool get, QvVariant& value, std::optional<TValue>& property);
/// A nil `value` makes the property nil, and a nil property the `value`.
template <ItemType kType, class TValue>
void AccessValue(bool get, QvVariant& value, TNillable<TValue>& property);
/// The variant holds the enumeration's number as an i4. Throws CQvInvalidValueException for one
/// that is beyond the range of the enumeration's type.
template <class TEnum>
void AccessEnum(bool get, QvVariant& value, std::optional<TEnum>& property);
/// A null object and an invalid or nil `value` reset the property. Throws CQvInvalidParamException
/// for an object of another class.
template <class TObject>
void AccessObject(bool get, QvVariant& value, CSmartPtr<TObject>& property);
/// A collection is never replaced: throws CQvInvalidStateException unless `get`.
QVXML_API void AccessCollection(bool get, QvVariant& value, CXmlCollectionBase* property);

// Steps of Init.

template <class... TProperty>
void ResetProperties(TProperty&... properties) {
  (properties.reset(), ...);
}
/// For a mandatory child: it is new, or new again.
template <class TObject>
void ResetChild(CSmartPtr<TObject>& property, const char* elementName);
/// Makes the collection when there is none, with the arguments of its constructor; empties it
/// otherwise, so that whoever holds or watches it goes on doing so.
template <class TCollection, class... TArguments>
void ResetCollection(CSmartPtr<TCollection>& property, const TArguments&... arguments);

// Steps of setters and of OnEvent in a choice. `selected` is the name of the member that is set, ""
// when none is.

/// Before the member `name` gets a value, or loses it. Throws CQvInvalidStateException when it gets
/// one while another member has one.
QVXML_API void SelectAlternative(CXmlObjectBase* owner, const char* name, bool hasValue,
                                 std::string& selected);
/// On an event of the collection `name`. Throws the same before an item is added.
QVXML_API void CollectionAlternative(const CXmlCollectionBase* collection, IEventSink::MsgType type,
                                     const char* name, std::string& selected);

// The two conversions of an enumeration whose values are the indexes of its texts.

namespace detail {
QVXML_API int FindEnumValue(const char* const* texts, std::size_t count, const char* typeName,
                            const char* text);
}

/// Null for a number that is not one of the values.
template <std::size_t kCount>
const char* GetEnumText(const char* const (&texts)[kCount], int value) {
  return value >= 0 && static_cast<std::size_t>(value) < kCount ? texts[value] : nullptr;
}
/// Compares the whole text. Throws CQvInvalidValueException, quoting it, when it is none of them.
template <std::size_t kCount>
int FindEnumValue(const char* const (&texts)[kCount], const char* typeName, const char* text) {
  return detail::FindEnumValue(texts, kCount, typeName, text);
}

// Definitions.

namespace detail {

[[noreturn]] QVXML_API void ThrowInvalidType(ItemType type);
[[noreturn]] QVXML_API void ThrowWrongClass(const CXmlObjectBase& object);
[[noreturn]] QVXML_API void ThrowNoEnumValue(long number);

/// Throws CQvException "Invalid Type %d" unless the value has that type.
inline void RequireType(const QvVariant& value, ItemType type) {
  if (value.GetItemType() != type) ThrowInvalidType(value.GetItemType());
}

inline bool HasValue(const QvVariant& value) { return value.IsValid() && !value.IsNil(); }

}  // namespace detail

template <ItemType kType, class TValue>
void AccessValue(bool get, QvVariant& value, std::optional<TValue>& property) {
  if (get && property.has_value()) {
    ItemTraits<kType>::Give(value, *property);
  } else if (get) {
    value.SetInvalid();
  } else if (!detail::HasValue(value)) {
    property.reset();
  } else {
    detail::RequireType(value, kType);
    ItemTraits<kType>::TakeInto(value, property);
  }
}

template <ItemType kType, class TValue>
void AccessValue(bool get, QvVariant& value, TNillable<TValue>& property) {
  if (get && property.IsNil()) {
    value.SetNil();
  } else if (!get && value.IsNil()) {
    property = TNillable<TValue>::Nil();
  } else if (get || value.IsValid()) {
    AccessValue<kType>(get, value, static_cast<std::optional<TValue>&>(property));
  } else {
    property.reset();
  }
}

template <class TEnum>
void AccessEnum(bool get, QvVariant& value, std::optional<TEnum>& property) {
  if (get && property.has_value()) {
    value.SetI4(static_cast<long>(*property));
  } else if (get) {
    value.SetInvalid();
  } else if (!detail::HasValue(value)) {
    property.reset();
  } else {
    detail::RequireType(value, ItemType_i4);
    const long number = value.GetI4();
    const auto narrowed = static_cast<TEnum>(number);
    if (static_cast<long>(narrowed) != number) detail::ThrowNoEnumValue(number);
    property = narrowed;
  }
}

template <class TObject>
void AccessObject(bool get, QvVariant& value, CSmartPtr<TObject>& property) {
  if (get) {
    value.SetXmlObject(property.Ptr());
    return;
  }
  if (detail::HasValue(value)) detail::RequireType(value, ItemType_xmlObject);
  CXmlObjectBase* const object = value.PeekXmlObject();
  // Most often the object is of that very class, which is quicker to tell than whether it is of one
  // derived from it.
  TObject* const typed = object != nullptr && typeid(*object) == typeid(TObject)
                             ? static_cast<TObject*>(object)
                             : dynamic_cast<TObject*>(object);
  if (typed == nullptr && object != nullptr) detail::ThrowWrongClass(*object);
  property.reset(typed);
}

template <class TObject>
void ResetChild(CSmartPtr<TObject>& property, const char* elementName) {
  if (property == nullptr) {
    property = new TObject(elementName);
    return;
  }
  // One that somebody else holds is left to them.
  if (property->IsSoleReference()) {
    property->SetElementName(elementName);
    property->Init();
  } else {
    property = new TObject(elementName);
  }
}

template <class TCollection, class... TArguments>
void ResetCollection(CSmartPtr<TCollection>& property, const TArguments&... arguments) {
  if (property == nullptr) {
    property = new TCollection(arguments...);
  } else if (property->GetCount() != 0) {
    property->Clear();
  }
}

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_METADATA_GENERATED_CODE_H_
