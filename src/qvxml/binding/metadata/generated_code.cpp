#include "qvxml/binding/metadata/generated_code.h"

#include <cstring>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16 {

void AccessCollection(bool get, QvVariant& value, CXmlCollectionBase* property) {
  if (!get) throw CQvInvalidStateException("A collection can not be replaced");
  value.SetXmlCollection(property);
}

void SelectAlternative(CXmlObjectBase* owner, const char* name, bool hasValue,
                       std::string& selected) {
  // Any object stands for a value. Without one the guard would select an empty choice.
  if (hasValue) {
    CXmlObjectBase::Choice_SelectElement(name, owner, selected);
  } else if (selected == name) {
    CXmlObjectBase::Choice_SetElementValid(false, name, selected);
  }
}

void CollectionAlternative(const CXmlCollectionBase* collection, IEventSink::MsgType type,
                           const char* name, std::string& selected) {
  if (type == IEventSink::MsgType_Add) {
    // Whether the item will be added is not known yet.
    std::string probe = selected;
    CXmlObjectBase::Choice_CollectionChanged(name, collection->GetCount() + 1, probe);
  } else if (type == IEventSink::MsgType_Change) {
    CXmlObjectBase::Choice_CollectionChanged(name, collection->GetCount(), selected);
  }
}

namespace detail {

int FindEnumValue(const char* const* texts, std::size_t count, const char* typeName,
                  const char* text) {
  for (std::size_t i = 0; i < count; ++i) {
    if (std::strcmp(texts[i], text) == 0) return static_cast<int>(i);
  }
  throw CQvInvalidValueException(FormatString("Invalid Value for %s [%s].", typeName, text));
}

void ThrowInvalidType(ItemType type) {
  throw CQvException(FormatString("Invalid Type %d", static_cast<int>(type)));
}

void ThrowWrongClass(const CXmlObjectBase& object) {
  throw CQvInvalidParamException(FormatString("The object [%s] is not of the class of the property",
                                              object.GetElementName().c_str()));
}

void ThrowNoEnumValue(long number) {
  throw CQvInvalidValueException(
      FormatString("The number [%ld] is not one of the enumeration", number));
}

}  // namespace detail

}  // namespace QvXmlLib16
