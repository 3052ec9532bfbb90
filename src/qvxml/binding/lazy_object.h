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

/// The same for a `TObject` that counts no references; copies share it.
template <class TObject>
class TLazyShared {
 public:
  TLazyShared() noexcept = default;
  TLazyShared(const TLazyShared& other) noexcept : m_held(Share(other)) {}
  TLazyShared& operator=(const TLazyShared& other) noexcept {
    Held* const shared = Share(other);
    Drop(m_held.exchange(shared, std::memory_order_acq_rel));
    return *this;
  }
  ~TLazyShared() { Drop(m_held.load(std::memory_order_acquire)); }

  /// The object, made by its default constructor when there is none yet.
  TObject& GetOrMake() const {
    Held* held = m_held.load(std::memory_order_acquire);
    if (held != nullptr) return held->object;
    Held* const made = new Held();
    if (m_held.compare_exchange_strong(held, made, std::memory_order_acq_rel)) return made->object;
    delete made;
    return held->object;
  }

 private:
  struct Held {
    std::atomic<long> owners{1};
    TObject object;
  };

  static Held* Share(const TLazyShared& other) noexcept {
    Held* const held = other.m_held.load(std::memory_order_acquire);
    if (held != nullptr) held->owners.fetch_add(1, std::memory_order_relaxed);
    return held;
  }
  static void Drop(Held* held) noexcept {
    if (held != nullptr && held->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) delete held;
  }

  mutable std::atomic<Held*> m_held{nullptr};
};

}  // namespace detail
}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_LAZY_OBJECT_H_
