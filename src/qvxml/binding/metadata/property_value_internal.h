// What the variant of a property means to attributes and members alike. Generated code fills the
// variant, so its type need not be the expected one.

#ifndef QVXML_BINDING_METADATA_PROPERTY_VALUE_INTERNAL_H_
#define QVXML_BINDING_METADATA_PROPERTY_VALUE_INTERNAL_H_

#include <optional>
#include <string>

#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/binding/xml_object_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16::detail {

/// Lends the writer a variant for the properties that are read while it writes, so that there is
/// not a new one for each of them. Nothing is lent when the writer has one already.
class CPropertyRoomLoan {
 public:
  explicit CPropertyRoomLoan(CXmlWriter& writer)
      : m_writer(writer.GetPropertyRoom() == nullptr ? &writer : nullptr) {
    if (m_writer == nullptr) return;
    m_room.emplace().m_takesLoans = true;
    m_writer->SetPropertyRoom(&*m_room);
  }
  ~CPropertyRoomLoan() {
    if (m_writer != nullptr) m_writer->SetPropertyRoom(nullptr);
  }
  CPropertyRoomLoan(const CPropertyRoomLoan&) = delete;
  CPropertyRoomLoan& operator=(const CPropertyRoomLoan&) = delete;

 private:
  CXmlWriter* const m_writer;
  std::optional<QvVariant> m_room;
};

/// Throws that the property can not be read, with `caught` inside.
[[noreturn]] void ThrowPropertyGetFailed(const std::string& name, CQvException& caught);

/// Reads a property into `value`, which is invalid; a CQvException is put inside another one.
inline void GetProperty(CXmlGeneratedClass* object, int propertyIndex, const std::string& name,
                        QvVariant& value) {
  try {
    object->AccessProperty(propertyIndex, true, value);
  } catch (CQvException& caught) {
    ThrowPropertyGetFailed(name, caught);
  }
}

/// Reads the property and returns what `use` returns for it.
///
/// Reads into the variant that the writer was lent, which is taken away from it meanwhile, as `use`
/// may come back here. After a failure it stays away, and others take its place.
template <class TUse>
bool WithProperty(CXmlWriter& writer, const CXmlGeneratedClass* object, int propertyIndex,
                  const std::string& name, TUse use) {
  // Getting a property changes nothing, though the one accessor for both directions is not const.
  auto* const source = const_cast<CXmlGeneratedClass*>(object);
  QvVariant* const room = writer.GetPropertyRoom();
  if (__builtin_expect(room == nullptr, 0)) {
    QvVariant value;
    GetProperty(source, propertyIndex, name, value);
    return use(value);
  }
  writer.SetPropertyRoom(nullptr);
  GetProperty(source, propertyIndex, name, *room);
  const bool result = use(*room);
  if (room->IsValid()) room->Clear();
  writer.SetPropertyRoom(room);
  return result;
}

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

/// Throws the exception of `failure` with `caught` inside.
[[noreturn]] void ThrowPropertySetFailed(const CSetFailure& failure, CQvException& caught);

/// Stores `value` in the property; a CQvException from there is put inside the one of `failure`.
inline void SetProperty(CXmlGeneratedClass* object, int propertyIndex, QvVariant& value,
                        const CSetFailure& failure) {
  try {
    object->AccessProperty(propertyIndex, false, value);
  } catch (CQvException& caught) {
    ThrowPropertySetFailed(failure, caught);
  }
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_METADATA_PROPERTY_VALUE_INTERNAL_H_
