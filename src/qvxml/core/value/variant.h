// The tagged value through which every property value passes.

#ifndef QVXML_CORE_VALUE_VARIANT_H_
#define QVXML_CORE_VALUE_VARIANT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include "qvxml/core/item_type.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/core/whitespace.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

class CBigInteger;         // types/big_integer.h
class CBinaryData;         // types/binary_data.h
class CDateTime;           // types/date_time.h
class CDateTimeSpan;       // types/date_time_span.h
class CDecimal;            // types/decimal.h
class CXmlCollectionBase;  // binding/xml_collection_base.h
class CXmlObjectBase;      // binding/xml_object_base.h

namespace detail {
class CPropertyRoomLoan;  // binding/metadata/property_value_internal.h
}

/// A value with its ItemType, or none, or nil.
///
/// Scalars and value objects are copied and owned, nearly all of them within the variant; generated
/// objects and collections are bare pointers that are never owned or counted.
class QVXML_API QvVariant : private TInstanceCounted<QvVariant> {
 public:
  /// Invalid and not nil.
  QvVariant() noexcept {}  // Not "= default": m_place is left as it is.
  QvVariant(const QvVariant& other);
  /// Leaves `other` invalid. Allocates nothing, except where a property setter moves the value that
  /// it was handed: that may still be the document's own, and is copied then.
  QvVariant(QvVariant&& other);  // NOLINT(performance-noexcept-move-constructor): see above.
  virtual ~QvVariant() {
    if (m_ownership != Ownership::None) ReleaseValue();
  }

  /// Copies the nil flag, the tag and the owned value.
  QvVariant& operator=(const QvVariant& other);
  QvVariant& operator=(QvVariant&& other);  // NOLINT(performance-noexcept-move-constructor)

  // State

  /// True when there is a tag or the nil flag is set.
  bool IsValid() const { return m_type != ItemType_none || m_isNil; }
  /// Releases the value; neither tag nor nil flag remain.
  void SetInvalid() { Clear(); }
  bool IsNil() const { return m_isNil; }
  /// Releases the value and sets the nil flag; the tag stays, so a nil value still knows its type.
  void SetNil();
  /// Releases the value and resets the nil flag and the tag.
  void Clear() {
    if (m_ownership != Ownership::None) ReleaseValue();
    m_slot = 0;
    m_isNil = false;
    m_isOffered = false;
    m_type = ItemType_none;
  }
  /// The tag; ItemType_none when invalid.
  ItemType GetItemType() const { return m_type; }
  /// Name of the tag, for example "datetime"; throws CQvException "Invalid Type %d" for an invalid
  /// variant and for object and collection pointers.
  std::string GetType() const;

  // Text

  /// Lexical form of the value. `format` (null is "") goes to the conversions of r4, r8 and
  /// decimal, the others ignore it. A nil value with a tag gives "". Throws CQvException "Invalid
  /// Type %d to convert to string" without a tag and for object and collection pointers.
  std::string ToString(const char* format = "") const;
  /// Applies `rule` to `text`, converts it as `type` and stores it. Throws the conversion's
  /// exception for bad text and CQvException "Invalid Type %d to convert from string" for a type
  /// that is not primitive; the variant is unchanged then.
  void FromString(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

  // Values
  //
  // A setter replaces whatever is held, the nil flag included. A getter does not compare the tag:
  // asking for another type than was stored is the caller's error. It is harmless, though: a scalar
  // getter returns the low bytes of what is in the slot (0 for nil), and an object getter copies
  // when a value of its class is held, returns a default-built object when there is none (nil,
  // invalid), and throws CQvException "Invalid Type %d" otherwise.

  void SetHexBinary(const CBinaryData& value);
  CBinaryData GetHexBinary() const;
  void SetBase64Binary(const CBinaryData& value);
  CBinaryData GetBase64Binary() const;
  void SetI1(char value) { SetInline(ItemType_i1, value); }
  char GetI1() const { return GetInline<char>(); }
  void SetI2(short value) { SetInline(ItemType_i2, value); }
  short GetI2() const { return GetInline<short>(); }
  void SetI4(long value) { SetInline(ItemType_i4, value); }
  long GetI4() const { return GetInline<long>(); }
  void SetI8(long long value) { SetInline(ItemType_i8, value); }
  long long GetI8() const { return GetInline<long long>(); }
  void SetUI1(unsigned char value) { SetInline(ItemType_ui1, value); }
  unsigned char GetUI1() const { return GetInline<unsigned char>(); }
  void SetUI2(unsigned short value) { SetInline(ItemType_ui2, value); }
  unsigned short GetUI2() const { return GetInline<unsigned short>(); }
  void SetUI4(unsigned long value) { SetInline(ItemType_ui4, value); }
  unsigned long GetUI4() const { return GetInline<unsigned long>(); }
  void SetUI8(unsigned long long value) { SetInline(ItemType_ui8, value); }
  unsigned long long GetUI8() const { return GetInline<unsigned long long>(); }
  void SetR4(float value) { SetInline(ItemType_r4, value); }
  float GetR4() const { return GetInline<float>(); }
  void SetR8(double value) { SetInline(ItemType_r8, value); }
  double GetR8() const { return GetInline<double>(); }
  void SetDuration(const CDateTimeSpan& value);
  CDateTimeSpan GetDuration() const;
  void SetYearMonth(const CDateTime& value);
  CDateTime GetYearMonth() const;
  void SetMonthDay(const CDateTime& value);
  CDateTime GetMonthDay() const;
  void SetYear(unsigned short value) { SetInline(ItemType_year, value); }
  unsigned short GetYear() const { return GetInline<unsigned short>(); }
  void SetMonth(unsigned char value) { SetInline(ItemType_month, value); }
  unsigned char GetMonth() const { return GetInline<unsigned char>(); }
  void SetDay(unsigned char value) { SetInline(ItemType_day, value); }
  unsigned char GetDay() const { return GetInline<unsigned char>(); }
  void SetDate(const CDateTime& value);
  CDateTime GetDate() const;
  void SetDateTime(const CDateTime& value);
  CDateTime GetDateTime() const;
  void SetTime(const CDateTime& value);
  CDateTime GetTime() const;
  void SetChar(char value) { SetInline(ItemType_char, value); }
  char GetChar() const { return GetInline<char>(); }
  void SetString(const std::string& value);
  void SetString(std::string&& value);
  std::string GetString() const;
  void SetBoolean(bool value) { SetInline(ItemType_boolean, static_cast<unsigned char>(value)); }
  bool GetBoolean() const { return GetInline<unsigned char>() != 0; }
  void SetDecimal(const CDecimal& value);
  CDecimal GetDecimal() const;
  void SetInteger(const CBigInteger& value);
  CBigInteger GetInteger() const;

  /// Stores the pointer alone; no reference is added, so the object must outlive the variant's use
  /// of it. Null is allowed.
  void SetXmlObject(CXmlObjectBase* object) {
    SetInline(ItemType_xmlObject, static_cast<void*>(object));
  }
  /// The object with a reference of its own, or null. A template only so that the call, not this
  /// header, needs the class complete.
  template <class TObject = CXmlObjectBase>
  CSmartPtr<TObject> GetXmlObject() const {
    return CSmartPtr<TObject>(static_cast<TObject*>(GetPointer(ItemType_xmlObject)));
  }
  /// As for objects.
  void SetXmlCollection(CXmlCollectionBase* collection) {
    SetInline(ItemType_xmlCollection, static_cast<void*>(collection));
  }
  template <class TCollection = CXmlCollectionBase>
  CSmartPtr<TCollection> GetXmlCollection() const {
    return CSmartPtr<TCollection>(static_cast<TCollection*>(GetPointer(ItemType_xmlCollection)));
  }

  /// The string held, without a copy, or null when the variant holds none; valid until the variant
  /// changes.
  const std::string* PeekString() const noexcept {
    return m_type == ItemType_string ? static_cast<const std::string*>(GetInline<const void*>())
                                     : nullptr;
  }
  /// The object or collection held, without a reference of its own, or null.
  CXmlObjectBase* PeekXmlObject() const noexcept {
    return static_cast<CXmlObjectBase*>(GetPointer(ItemType_xmlObject));
  }
  CXmlCollectionBase* PeekXmlCollection() const noexcept {
    return static_cast<CXmlCollectionBase*>(GetPointer(ItemType_xmlCollection));
  }

 private:
  friend class TInstanceCounted<QvVariant>;
  template <ItemType>
  friend struct ItemTraits;
  friend class detail::CPropertyRoomLoan;
  static CInstanceCounter s_instances;

  // Who releases the value object that the slot points at.
  enum class Ownership : unsigned char {
    None,     // There is none, or it is only borrowed.
    InPlace,  // It stands in m_place.
    Heap,
  };
  // Room for the value objects but for rare ones, so that a value that passes through needs no
  // heap.
  static constexpr size_t kPlaceBytes = 64;
  template <class TObject>
  static constexpr bool kFitsInPlace =
      sizeof(TObject) <= kPlaceBytes&& std::is_nothrow_move_constructible<TObject>::value;

  template <class TScalar>
  void SetInline(ItemType type, TScalar value) noexcept {
    static_assert(sizeof(TScalar) <= sizeof m_slot, "a scalar fits the slot");
    if (m_ownership != Ownership::None) ReleaseValue();
    m_slot = 0;
    __builtin_memcpy(&m_slot, &value, sizeof value);
    m_isNil = false;
    m_isOffered = false;
    m_type = type;
  }
  template <class TScalar>
  TScalar GetInline() const noexcept {
    TScalar value;
    __builtin_memcpy(&value, &m_slot, sizeof value);
    return value;
  }
  void* GetPointer(ItemType type) const noexcept {
    return m_type == type ? GetInline<void*>() : nullptr;
  }

  template <class TObject>
  void SetOwned(ItemType type, TObject&& value);
  // The same for an object that `fill` makes of a new one; nothing changes when it throws.
  template <class TObject, class TFill>
  void MakeOwned(ItemType type, TFill fill);
  template <class TObject, class TFill>
  void MakeInPlace(ItemType type, TFill fill);
  template <class TObject>
  const TObject* PeekOwned() const;
  template <class TObject>
  TObject GetOwned() const;
  // The value object, moved out where the variant owns it: a variant that is not needed any more.
  template <class TObject>
  TObject TakeOwned();
  void CopyValue(const QvVariant& other);
  void MoveValue(QvVariant& other);

  void ReleaseValue() noexcept;
  bool CheckInvariants() const;

  // Whether the value object is free to be moved out.
  bool MayTake() const noexcept { return m_isOffered || m_ownership != Ownership::None; }

  bool m_isNil = false;
  // The value object is borrowed, but its owner does not need it any more.
  bool m_isOffered = false;
  // The library reads properties into this one, and is done with each before it may change.
  bool m_takesLoans = false;
  Ownership m_ownership = Ownership::None;
  ItemType m_type = ItemType_none;
  uint64_t m_slot = 0;
  alignas(8) unsigned char m_place[kPlaceBytes];
};

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_VALUE_VARIANT_H_
