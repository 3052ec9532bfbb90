// A member that most owners never need.

#ifndef QVXML_BINDING_LAZY_OBJECT_H_
#define QVXML_BINDING_LAZY_OBJECT_H_

#include <atomic>

#include "qvxml/core/smart_ptr.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {

class CXmlObjectBase;  // binding/xml_object_base.h

namespace detail {

/// Holds one reference to an object that is made when it is first asked for. Asking is safe from
/// any thread, everything else is not. A copy shares the object if there is one by then.
class QVXML_API CLazyObject {
 public:
  CLazyObject() noexcept = default;
  CLazyObject(const CLazyObject& other);
  CLazyObject& operator=(const CLazyObject& other);
  ~CLazyObject();

  /// The object, or null when there is none yet.
  CXmlObjectBase* Get() const noexcept { return m_object.load(std::memory_order_acquire); }
  /// The object, which is always a `TObject`; `make` returns a new one.
  template <class TObject, class TMake>
  TObject* GetOrMake(TMake make) const {
    CXmlObjectBase* object = Get();
    if (object == nullptr) object = Store(make());
    return static_cast<TObject*>(object);
  }
  /// Hands the reference over; there is none afterwards.
  CSmartPtr<CXmlObjectBase> Take();

 private:
  // Returns the object that is held afterwards: another thread may have been faster.
  CXmlObjectBase* Store(CXmlObjectBase* object) const;

  mutable std::atomic<CXmlObjectBase*> m_object{nullptr};
};

}  // namespace detail
}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_LAZY_OBJECT_H_
