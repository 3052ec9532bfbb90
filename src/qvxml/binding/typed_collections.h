// The collections of primitive values, one class for each XSD type.

#ifndef QVXML_BINDING_TYPED_COLLECTIONS_H_
#define QVXML_BINDING_TYPED_COLLECTIONS_H_

#include <string>
#include <type_traits>
#include <vector>

#include "qvxml/binding/xml_type_collection.h"
#include "qvxml/core/item_type.h"
#include "qvxml/core/value/item_traits.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {

namespace detail {

/// Registers a collection with the instance monitor under "C", the name of its type and "Col".
template <ItemType kType>
class QVXML_API TCollectionCount {
 public:
  TCollectionCount() noexcept;
  ~TCollectionCount();
  TCollectionCount(const TCollectionCount&) = delete;
  TCollectionCount& operator=(const TCollectionCount&) = delete;
};

/// The body of all of them: the items and their events. `TDerived` has the steps that depend on the
/// type: GetItemType, CheckItem, FromText and AppendText.
template <class TDerived, class TCarrier>
class QVXML_API TValueCollection : public CXmlTypeCollection {
 public:
  using Value = TCarrier;
  /// Scalars travel by value. A reference to an item holds until the collection changes.
  using ValueArgument =
      std::conditional_t<std::is_class<TCarrier>::value, const TCarrier&, TCarrier>;
  using const_iterator = typename std::vector<TCarrier>::const_iterator;

  using CXmlTypeCollection::CXmlTypeCollection;
  ~TValueCollection() override;

  /// AddAt the end.
  void Add(ValueArgument value);
  /// Inserts the value before the item at `index`, from 0; the count appends.
  ///
  /// Listeners hear of it first. Then CQvInvalidParamException is thrown for an index out of range,
  /// and what the facet checks throw for a value that breaks a facet; the collection is unchanged.
  void AddAt(int index, ValueArgument value);
  /// Throws CQvInvalidParamException when there is no item at `index`.
  ValueArgument Item(int index) const;
  const_iterator begin() const { return m_items.begin(); }
  const_iterator end() const { return m_items.end(); }

  long GetCount() const override;
  void Clear() override;
  void Remove(int index) override;
  void AddFromString(const std::string& text) override;

  /// Writes one element for each value; throws what ValidateCount throws.
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                 const CSerializationContext& ctx, bool optional) const override;

 protected:
  void Reserve(std::size_t count) override { m_items.reserve(count); }

 private:
  template <class TCheckPosition>
  void Insert(TCarrier value, TCheckPosition checkPosition);

  std::vector<TCarrier> m_items;
};

/// A collection whose steps are those of the item type.
template <ItemType kType>
class QVXML_API TTypedCollection
    : public TValueCollection<TTypedCollection<kType>, typename ItemTraits<kType>::Carrier> {
  using Base = TValueCollection<TTypedCollection<kType>, typename ItemTraits<kType>::Carrier>;

 public:
  using Base::Base;

 private:
  friend Base;
  using Carrier = typename ItemTraits<kType>::Carrier;

  ItemType GetItemType() const { return kType; }
  void CheckItem(const Carrier& value) const;
  Carrier FromText(const std::string& text) const;
  void AppendText(const Carrier& value, std::string& text) const;

  TCollectionCount<kType> m_counted;
};

}  // namespace detail

/// The body of the five date collections.
class QVXML_API CdatetimeBaseCol : public detail::TValueCollection<CdatetimeBaseCol, CDateTime> {
 public:
  /// `itemType` is ItemType_date, _datetime, _time, _yearMonth or _monthDay; any other throws
  /// CQvException. Adding a date of another kind throws CQvInvalidParamException.
  CdatetimeBaseCol(ItemType itemType, const char* elementName, const char* namespaceUri,
                   int minOccurs, unsigned int maxOccurs, const char* pattern,
                   std::int64_t minLength, std::int64_t maxLength, const char* minInclusive,
                   const char* maxInclusive, const char* minExclusive, const char* maxExclusive,
                   std::int64_t length, std::int64_t totalDigits, std::int64_t fractionDigits,
                   CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format = "");
  CdatetimeBaseCol(ItemType itemType, const char* elementName, const char* namespaceUri,
                   int minOccurs, unsigned int maxOccurs,
                   const CPrimitiveRestrictions& restrictions,
                   CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format = "");
  ~CdatetimeBaseCol() override;

 private:
  friend class detail::TValueCollection<CdatetimeBaseCol, CDateTime>;

  ItemType GetItemType() const { return m_itemType; }
  void CheckItem(const CDateTime& value) const;
  CDateTime FromText(const std::string& text) const;
  void AppendText(const CDateTime& value, std::string& text) const;

  ItemType m_itemType;
};

namespace detail {

template <ItemType kType>
class QVXML_API TDateCollection : public CdatetimeBaseCol {
 public:
  TDateCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                  unsigned int maxOccurs, const char* pattern, std::int64_t minLength,
                  std::int64_t maxLength, const char* minInclusive, const char* maxInclusive,
                  const char* minExclusive, const char* maxExclusive, std::int64_t length,
                  std::int64_t totalDigits, std::int64_t fractionDigits,
                  CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format = "")
      : CdatetimeBaseCol(kType, elementName, namespaceUri, minOccurs, maxOccurs, pattern, minLength,
                         maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive, length,
                         totalDigits, fractionDigits, whitespaceRule, format) {}
  TDateCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                  unsigned int maxOccurs, const CPrimitiveRestrictions& restrictions,
                  CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format = "")
      : CdatetimeBaseCol(kType, elementName, namespaceUri, minOccurs, maxOccurs, restrictions,
                         whitespaceRule, format) {}

 private:
  TCollectionCount<kType> m_counted;
};

}  // namespace detail

// clang-format off
class QVXML_API Cbase64BinaryCol : public detail::TTypedCollection<ItemType_base64Binary> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API CbooleanCol : public detail::TTypedCollection<ItemType_boolean> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API CdateCol : public detail::TDateCollection<ItemType_date> { public: using TDateCollection::TDateCollection; };
class QVXML_API CdatetimeCol : public detail::TDateCollection<ItemType_datetime> { public: using TDateCollection::TDateCollection; };
class QVXML_API CtimeCol : public detail::TDateCollection<ItemType_time> { public: using TDateCollection::TDateCollection; };
class QVXML_API CyearMonthCol : public detail::TDateCollection<ItemType_yearMonth> { public: using TDateCollection::TDateCollection; };
class QVXML_API CmonthDayCol : public detail::TDateCollection<ItemType_monthDay> { public: using TDateCollection::TDateCollection; };
class QVXML_API CdayCol : public detail::TTypedCollection<ItemType_day> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API CmonthCol : public detail::TTypedCollection<ItemType_month> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API CyearCol : public detail::TTypedCollection<ItemType_year> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API CdecimalCol : public detail::TTypedCollection<ItemType_decimal> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API CdurationCol : public detail::TTypedCollection<ItemType_duration> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API ChexBinaryCol : public detail::TTypedCollection<ItemType_hexBinary> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Ci1Col : public detail::TTypedCollection<ItemType_i1> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Ci2Col : public detail::TTypedCollection<ItemType_i2> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Ci4Col : public detail::TTypedCollection<ItemType_i4> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Ci8Col : public detail::TTypedCollection<ItemType_i8> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API CintegerCol : public detail::TTypedCollection<ItemType_integer> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Cr4Col : public detail::TTypedCollection<ItemType_r4> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Cr8Col : public detail::TTypedCollection<ItemType_r8> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API CstringCol : public detail::TTypedCollection<ItemType_string> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Cui1Col : public detail::TTypedCollection<ItemType_ui1> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Cui2Col : public detail::TTypedCollection<ItemType_ui2> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Cui4Col : public detail::TTypedCollection<ItemType_ui4> { public: using TTypedCollection::TTypedCollection; };
class QVXML_API Cui8Col : public detail::TTypedCollection<ItemType_ui8> { public: using TTypedCollection::TTypedCollection; };
// clang-format on

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_TYPED_COLLECTIONS_H_
