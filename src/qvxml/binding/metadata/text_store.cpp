#include "qvxml/binding/metadata/text_store.h"

#include "qvxml/binding/metadata/property_value_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/item_text_internal.h"
#include "qvxml/core/whitespace_internal.h"

namespace QvXmlLib16::detail {

namespace {

// Whether the rule leaves the text as it is, which most often it does.
bool IsUnchanged(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
  if (rule == CWhitespaceUtils::ws_none) return true;
  if (rule == CWhitespaceUtils::ws_preserve) return text.find('\r') == std::string::npos;
  return IsRule(rule) && !HasSpaceOrControl(text);
}

}  // namespace

template <class TTraits>
void CTextStore::StoreValue(const CTextStore& store, CXmlGeneratedClass* object, CValueText text,
                            QvVariant& room, const CSetFailure& failure) {
  if constexpr (TTraits::kType == ItemType_string) {
    if (IsUnchanged(text.text, store.m_rule)) {
      if (text.isExpendable) {
        TTraits::Offer(room, const_cast<std::string&>(text.text));
      } else {
        TTraits::Lend(room, text.text);
      }
      SetProperty(object, store.m_propertyIndex, room, failure);
      return room.Clear();
    }
  }
  typename TTraits::Carrier value{};
  ParseInto<TTraits::kType>(text.text, store.m_rule, value);
  TTraits::Offer(room, value);
  SetProperty(object, store.m_propertyIndex, room, failure);
  if constexpr (TTraits::kHolding == ItemHolding::Owned) room.Clear();
}

void CTextStore::StoreEnum(const CTextStore& store, CXmlGeneratedClass* object, CValueText text,
                           QvVariant& room, const CSetFailure& failure) {
  if (store.m_textToEnum == nullptr) {
    throw CQvException(
        FormatString("Invalid Value for %s [%s].", store.m_name->c_str(), text.text.c_str()));
  }
  room.SetI4(store.m_textToEnum(text.text.c_str()));
  SetProperty(object, store.m_propertyIndex, room, failure);
}

void CTextStore::ThrowNotPrimitive(const CTextStore& store, CXmlGeneratedClass*, CValueText,
                                   QvVariant&, const CSetFailure&) {
  throw CQvException(
      FormatString("Invalid Type %d to convert from string", static_cast<int>(store.m_type)));
}

CTextStore::CTextStore(int propertyIndex, ItemType type, CWhitespaceUtils::WhitespaceRule rule)
    : m_store(VisitItemType(
          type, [](auto traits) -> StoreText { return &StoreValue<decltype(traits)>; },
          []() -> StoreText { return &ThrowNotPrimitive; })),
      m_propertyIndex(propertyIndex),
      m_type(type),
      m_rule(rule) {}

CTextStore::CTextStore(int propertyIndex, TextToEnum textToEnum, const std::string& name)
    : m_store(&StoreEnum),
      m_propertyIndex(propertyIndex),
      m_type(ItemType_i4),
      m_rule(CWhitespaceUtils::ws_none),
      m_textToEnum(textToEnum),
      m_name(&name) {}

}  // namespace QvXmlLib16::detail
