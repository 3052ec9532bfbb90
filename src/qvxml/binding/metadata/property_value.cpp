#include "qvxml/binding/metadata/property_value_internal.h"
#include "qvxml/binding/wrap_failure_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/conversions.h"
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

[[noreturn]] void ThrowInvalidType(const QvVariant& value) {
  throw CQvException(FormatString("Invalid Type %d", static_cast<int>(value.GetItemType())));
}

}  // namespace

void ThrowPropertyGetFailed(const std::string& name, CQvException& caught) {
  ThrowWrapping(
      CQvValidationException(
          FormatString("Failed to get the property value for [%s].", name.c_str()), std::string()),
      caught);
}

CXmlObjectBase* ObjectIn(const QvVariant& value) {
  if (value.GetItemType() == ItemType_xmlObject) return value.PeekXmlObject();
  if (value.GetItemType() == ItemType_xmlCollection) return value.PeekXmlCollection();
  if (!value.IsValid() || value.IsNil()) return nullptr;
  ThrowInvalidType(value);
}

CXmlCollectionBase* CollectionIn(const QvVariant& value) {
  if (value.GetItemType() == ItemType_xmlCollection) return value.PeekXmlCollection();
  CXmlObjectBase* const object = ObjectIn(value);
  auto* const collection = dynamic_cast<CXmlCollectionBase*>(object);
  if (object != nullptr && collection == nullptr) ThrowInvalidType(value);
  return collection;
}

const std::string& TextOf(const QvVariant& value, const std::string& format, CXmlWriter& writer) {
  if (const std::string* const text = value.PeekString()) return *text;
  std::string& room = writer.GetValueRoom();
  AppendText(value, format.c_str(), room);
  return room;
}

const char* EnumTextIn(const QvVariant& value, const char* (*enumToText)(int),
                       const std::string& name) {
  const long number =
      value.GetItemType() == ItemType_i4 && !value.IsNil()
          ? value.GetI4()
          : CConversions::i4FromString(value.ToString(), CWhitespaceUtils::ws_collapse);
  const int narrowed = static_cast<int>(number);
  const char* const text =
      enumToText == nullptr || narrowed != number ? nullptr : enumToText(narrowed);
  if (text == nullptr) {
    throw CQvException(FormatString("Invalid Value for %s [%ld]", name.c_str(), number));
  }
  return text;
}

namespace {

inline void Store(CXmlGeneratedClass* object, int propertyIndex, QvVariant& value,
                  const CSetFailure& failure) {
  try {
    object->AccessProperty(propertyIndex, false, value);
  } catch (CQvException& caught) {
    ThrowWrapping(failure.Make(), caught);
  }
}

}  // namespace

void StoreValue(CXmlGeneratedClass* object, int propertyIndex, QvVariant& value,
                const CSetFailure& failure) {
  Store(object, propertyIndex, value, failure);
}

void StoreText(CXmlGeneratedClass* object, int propertyIndex, const std::string& text,
               ItemType type, CWhitespaceUtils::WhitespaceRule rule, const CSetFailure& failure) {
  VisitItemType(
      type,
      [&](auto traits) {
        using Traits = decltype(traits);
        QvVariant variant;
        if constexpr (Traits::kType == ItemType_string) {
          if (IsUnchanged(text, rule)) {
            Traits::Lend(variant, text);
            return Store(object, propertyIndex, variant, failure);
          }
        }
        typename Traits::Carrier value{};
        ParseInto<Traits::kType>(text, rule, value);
        Traits::Offer(variant, value);
        Store(object, propertyIndex, variant, failure);
      },
      [&] {
        throw CQvException(
            FormatString("Invalid Type %d to convert from string", static_cast<int>(type)));
      });
}

void SetEnum(QvVariant& value, const std::string& text, int (*textToEnum)(const char*),
             const std::string& name) {
  if (textToEnum == nullptr) {
    throw CQvException(FormatString("Invalid Value for %s [%s].", name.c_str(), text.c_str()));
  }
  value.SetI4(textToEnum(text.c_str()));
}

}  // namespace QvXmlLib16::detail
