#include "qvxml/binding/lazy_object.h"

#include "qvxml/binding/xml_object_base.h"

namespace QvXmlLib16::detail {

CLazyObject::CLazyObject(const CLazyObject& other) {
  if (CXmlObjectBase* const object = other.Get()) Store(object);
}

CLazyObject& CLazyObject::operator=(const CLazyObject& other) {
  if (this == &other) return *this;
  // The object that goes may hold more than itself, so it goes when the member is up to date.
  const CSmartPtr<CXmlObjectBase> previous = Take();
  if (CXmlObjectBase* const object = other.Get()) Store(object);
  return *this;
}

CLazyObject::~CLazyObject() {
  if (CXmlObjectBase* const object = Get()) object->Release();
}

CSmartPtr<CXmlObjectBase> CLazyObject::Take() {
  CSmartPtr<CXmlObjectBase> object(m_object.exchange(nullptr, std::memory_order_acq_rel));
  if (object) object->Release();
  return object;
}

CXmlObjectBase* CLazyObject::Store(CXmlObjectBase* object) const {
  CSmartPtr<CXmlObjectBase> reference(object);
  CXmlObjectBase* held = nullptr;
  if (!m_object.compare_exchange_strong(held, object, std::memory_order_acq_rel)) return held;
  object->AddRef();
  return object;
}

}  // namespace QvXmlLib16::detail
