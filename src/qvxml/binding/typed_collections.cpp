#include "qvxml/binding/typed_collections.h"

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>
#include <utility>

#include "qvxml/binding/facet_checks.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/item_text_internal.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16 {

namespace detail {

namespace {

// "C", the name of the type, "Col" and a NUL.
template <ItemType kType>
constexpr auto kCollectionName = [] {
  constexpr std::string_view name = ItemTraits<kType>::kName;
  std::array<char, name.size() + 5> text{};
  text[0] = 'C';
  std::copy(name.begin(), name.end(), text.begin() + 1);
  constexpr std::string_view ending = "Col";
  std::copy(ending.begin(), ending.end(), text.begin() + 1 + name.size());
  return text;
}();

template <ItemType kType>
constinit CInstanceCounter s_instances(kCollectionName<kType>.data());

}  // namespace

template <ItemType kType>
TCollectionCount<kType>::TCollectionCount() noexcept {
  s_instances<kType>.Add();
}

template <ItemType kType>
TCollectionCount<kType>::~TCollectionCount() {
  s_instances<kType>.Remove();
}

template <class TDerived, class TCarrier>
TValueCollection<TDerived, TCarrier>::~TValueCollection() = default;

template <class TDerived, class TCarrier>
void TValueCollection<TDerived, TCarrier>::Add(ValueArgument value) {
  Insert(value, [this] { return m_items.size(); });
}

template <class TDerived, class TCarrier>
void TValueCollection<TDerived, TCarrier>::AddAt(int index, ValueArgument value) {
  Insert(value, [this, index] {
    this->CheckIndex(index, GetCount() + 1);
    return static_cast<size_t>(index);
  });
}

// `checkPosition` runs after the first event, whose listeners may change the collection, as does
// everything that may refuse the value.
template <class TDerived, class TCarrier>
template <class TCheckPosition>
void TValueCollection<TDerived, TCarrier>::Insert(TCarrier value, TCheckPosition checkPosition) {
  // Listeners get the address of a copy, so that they cannot change what is stored.
  if (this->HasListeners()) {
    TCarrier copy = value;
    this->RaiseAdd(&copy);
  }
  const size_t position = checkPosition();
  static_cast<const TDerived*>(this)->CheckItem(value);
  m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(position), std::move(value));
  if (this->HasListeners()) {
    TCarrier copy = m_items[position];
    this->RaiseAdded(&copy);
  }
}

template <class TDerived, class TCarrier>
typename TValueCollection<TDerived, TCarrier>::ValueArgument
TValueCollection<TDerived, TCarrier>::Item(int index) const {
  this->CheckIndex(index, GetCount());
  return m_items[static_cast<size_t>(index)];
}

template <class TDerived, class TCarrier>
long TValueCollection<TDerived, TCarrier>::GetCount() const {
  return static_cast<long>(m_items.size());
}

template <class TDerived, class TCarrier>
void TValueCollection<TDerived, TCarrier>::Clear() {
  this->RaiseRemove(-1);
  m_items.clear();
  this->RaiseRemoved(-1);
}

template <class TDerived, class TCarrier>
void TValueCollection<TDerived, TCarrier>::Remove(int index) {
  this->RaiseRemove(index);
  this->CheckIndex(index, GetCount());
  m_items.erase(m_items.begin() + index);
  this->RaiseRemoved(index);
}

template <class TDerived, class TCarrier>
void TValueCollection<TDerived, TCarrier>::AddFromString(const std::string& text) {
  Insert(static_cast<const TDerived*>(this)->FromText(text), [this] { return m_items.size(); });
}

template <class TDerived, class TCarrier>
void TValueCollection<TDerived, TCarrier>::ToXml_Int(CXmlWriter* writer, bool, const char*,
                                                     const CSerializationContext& ctx, bool) const {
  this->ValidateCount(ctx);
  const auto* derived = static_cast<const TDerived*>(this);
  for (const TCarrier& value : m_items) {
    const auto write = [&](const std::string& text) {
      writer->WriteTextElement(this->GetElementName(), this->GetItemNamespace(), text,
                               derived->GetItemType(), false);
    };
    if constexpr (std::is_same_v<TCarrier, std::string>) {
      write(value);
    } else {
      std::string& room = writer->GetValueRoom();
      derived->AppendText(value, room);
      write(room);
    }
  }
}

template <ItemType kType>
typename TTypedCollection<kType>::Carrier TTypedCollection<kType>::FromText(
    const std::string& text) const {
  return detail::FromText<kType>(text, this->GetWhitespaceRule());
}

template <ItemType kType>
void TTypedCollection<kType>::AppendText(const Carrier& value, std::string& text) const {
  detail::AppendText<kType>(value, this->GetFormat().c_str(), text);
}

// Defines the one step that is named by its type, and the members of the class.
#define QVXML_TYPED_COLLECTION(name)                                                       \
  template <>                                                                              \
  void TTypedCollection<ItemType_##name>::CheckItem(const Carrier& value) const {          \
    const CPrimitiveRestrictions* const facets = GetRestrictions();                        \
    if (facets == nullptr) return;                                                         \
    CXmlObjectHelper::CheckRestrictionFor##name(GetElementName().c_str(), value, *facets); \
  }                                                                                        \
  template class TCollectionCount<ItemType_##name>;                                        \
  template class TTypedCollection<ItemType_##name>;                                        \
  template class TValueCollection<TTypedCollection<ItemType_##name>,                       \
                                  ItemTraits<ItemType_##name>::Carrier>;

QVXML_TYPED_COLLECTION(hexBinary)
QVXML_TYPED_COLLECTION(base64Binary)
QVXML_TYPED_COLLECTION(i1)
QVXML_TYPED_COLLECTION(i2)
QVXML_TYPED_COLLECTION(i4)
QVXML_TYPED_COLLECTION(i8)
QVXML_TYPED_COLLECTION(ui1)
QVXML_TYPED_COLLECTION(ui2)
QVXML_TYPED_COLLECTION(ui4)
QVXML_TYPED_COLLECTION(ui8)
QVXML_TYPED_COLLECTION(r4)
QVXML_TYPED_COLLECTION(r8)
QVXML_TYPED_COLLECTION(duration)
QVXML_TYPED_COLLECTION(year)
QVXML_TYPED_COLLECTION(month)
QVXML_TYPED_COLLECTION(day)
QVXML_TYPED_COLLECTION(string)
QVXML_TYPED_COLLECTION(boolean)
QVXML_TYPED_COLLECTION(decimal)
QVXML_TYPED_COLLECTION(integer)

#undef QVXML_TYPED_COLLECTION

template class TCollectionCount<ItemType_date>;
template class TCollectionCount<ItemType_datetime>;
template class TCollectionCount<ItemType_time>;
template class TCollectionCount<ItemType_yearMonth>;
template class TCollectionCount<ItemType_monthDay>;
template class TValueCollection<CdatetimeBaseCol, CDateTime>;

}  // namespace detail

namespace {

struct DateKind {
  ItemType itemType;
  CDateTime::DTType kind;
  CDateTime (*fromText)(const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
  void (*checkFacets)(const char* name, const CDateTime& value,
                      const CPrimitiveRestrictions& restrictions);
  const char* refusal;
};

constexpr DateKind kDateKinds[] = {
    {ItemType_date, CDateTime::dt_date, &CConversions::dateFromString,
     &CXmlObjectHelper::CheckRestrictionFordate,
     "Dates added to this collection must be of type dt_date"},
    {ItemType_datetime, CDateTime::dt_dateTime, &CConversions::datetimeFromString,
     &CXmlObjectHelper::CheckRestrictionFordatetime,
     "Dates added to this collection must be of type dt_dateTime"},
    {ItemType_time, CDateTime::dt_time, &CConversions::timeFromString,
     &CXmlObjectHelper::CheckRestrictionFortime,
     "Dates added to this collection must be of type dt_time"},
    {ItemType_yearMonth, CDateTime::dt_gYearMonth, &CConversions::yearMonthFromString,
     &CXmlObjectHelper::CheckRestrictionForyearMonth,
     "Dates added to this collection must be of type dt_gYearMonth"},
    {ItemType_monthDay, CDateTime::dt_gMonthDay, &CConversions::monthDayFromString,
     &CXmlObjectHelper::CheckRestrictionFormonthDay,
     "Dates added to this collection must be of type dt_gMonthDay"},
};

const DateKind& FindDateKind(ItemType itemType) {
  for (const DateKind& row : kDateKinds) {
    if (row.itemType == itemType) return row;
  }
  throw CQvException(FormatString("Invalid Type %d", static_cast<int>(itemType)));
}

}  // namespace

CdatetimeBaseCol::CdatetimeBaseCol(ItemType itemType, const char* elementName,
                                   const char* namespaceUri, int minOccurs, unsigned int maxOccurs,
                                   const char* pattern, std::int64_t minLength,
                                   std::int64_t maxLength, const char* minInclusive,
                                   const char* maxInclusive, const char* minExclusive,
                                   const char* maxExclusive, std::int64_t length,
                                   std::int64_t totalDigits, std::int64_t fractionDigits,
                                   CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                   const char* format)
    : TValueCollection(elementName, namespaceUri, minOccurs, maxOccurs, pattern, minLength,
                       maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive, length,
                       totalDigits, fractionDigits, whitespaceRule, format),
      m_itemType(FindDateKind(itemType).itemType) {}

CdatetimeBaseCol::CdatetimeBaseCol(ItemType itemType, const char* elementName,
                                   const char* namespaceUri, int minOccurs, unsigned int maxOccurs,
                                   const CPrimitiveRestrictions& restrictions,
                                   CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                   const char* format)
    : TValueCollection(elementName, namespaceUri, minOccurs, maxOccurs, restrictions,
                       whitespaceRule, format),
      m_itemType(FindDateKind(itemType).itemType) {}

CdatetimeBaseCol::~CdatetimeBaseCol() = default;

void CdatetimeBaseCol::CheckItem(const CDateTime& value) const {
  const DateKind& row = FindDateKind(m_itemType);
  if (value.GetType() != row.kind) throw CQvInvalidParamException(row.refusal);
  if (GetRestrictions() == nullptr) return;
  row.checkFacets(GetElementName().c_str(), value, *GetRestrictions());
}

CDateTime CdatetimeBaseCol::FromText(const std::string& text) const {
  return FindDateKind(m_itemType).fromText(text, GetWhitespaceRule());
}

// The kind of the value decides the form of all five.
void CdatetimeBaseCol::AppendText(const CDateTime& value, std::string& text) const {
  detail::AppendText<ItemType_datetime>(value, text);
}

}  // namespace QvXmlLib16
