#include "qvxml/binding/metadata/property_value_internal.h"
#include "qvxml/binding/wrap_failure_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/core/value/item_text_internal.h"

namespace QvXmlLib16::detail {

namespace {

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

void ThrowPropertySetFailed(const CSetFailure& failure, CQvException& caught) {
  ThrowWrapping(failure.Make(), caught);
}

}  // namespace QvXmlLib16::detail
