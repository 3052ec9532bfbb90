// Owner of one reference to an object that counts its own references.

#ifndef QVXML_CORE_SMART_PTR_H_
#define QVXML_CORE_SMART_PTR_H_

#include <cstddef>
#include <type_traits>
#include <utility>

namespace QvXmlLib16 {

/// Holds one reference to a `T`, which must offer AddRef() and Release(): taken when a pointer is
/// taken, dropped when the holder is destroyed, reset or given another pointer.
///
/// A bare pointer converts without a cast, so a factory may return `new CThing`, nullptr or NULL.
template <class T>
class CSmartPtr {
 public:
  CSmartPtr() noexcept = default;
  CSmartPtr(T* object) : m_object(object) {
    if (m_object != nullptr) m_object->AddRef();
  }
  CSmartPtr(const CSmartPtr& other) : CSmartPtr(other.m_object) {}
  CSmartPtr(CSmartPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  /// From a pointer to a derived class.
  template <class TDerived, class = std::enable_if_t<std::is_convertible<TDerived*, T*>::value>>
  CSmartPtr(const CSmartPtr<TDerived>& other) : CSmartPtr(static_cast<T*>(other.Ptr())) {}
  ~CSmartPtr() { reset(); }

  CSmartPtr& operator=(const CSmartPtr& other) {
    CSmartPtr(other).Swap(*this);
    return *this;
  }
  CSmartPtr& operator=(CSmartPtr&& other) noexcept {
    CSmartPtr(std::move(other)).Swap(*this);
    return *this;
  }

  T* operator->() const noexcept { return m_object; }
  T& operator*() const noexcept { return *m_object; }
  /// The pointer held, or null; no reference is added.
  T* Ptr() const noexcept { return m_object; }
  explicit operator bool() const noexcept { return m_object != nullptr; }

  /// Drops the reference held; the holder is null when Release() runs.
  void reset() {
    if (T* object = std::exchange(m_object, nullptr)) object->Release();
  }
  /// Takes a reference to `object`, then drops the one held.
  void reset(T* object) { CSmartPtr(object).Swap(*this); }

  void Swap(CSmartPtr& other) noexcept { std::swap(m_object, other.m_object); }

 private:
  T* m_object = nullptr;
};

template <class T, class U>
bool operator==(const CSmartPtr<T>& left, const CSmartPtr<U>& right) noexcept {
  return left.Ptr() == right.Ptr();
}
template <class T, class U>
bool operator!=(const CSmartPtr<T>& left, const CSmartPtr<U>& right) noexcept {
  return left.Ptr() != right.Ptr();
}
template <class T, class U>
bool operator==(const CSmartPtr<T>& left, const U* right) noexcept {
  return left.Ptr() == right;
}
template <class T, class U>
bool operator!=(const CSmartPtr<T>& left, const U* right) noexcept {
  return left.Ptr() != right;
}
template <class T>
bool operator==(const CSmartPtr<T>& left, std::nullptr_t) noexcept {
  return left.Ptr() == nullptr;
}
template <class T>
bool operator!=(const CSmartPtr<T>& left, std::nullptr_t) noexcept {
  return left.Ptr() != nullptr;
}

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_SMART_PTR_H_
