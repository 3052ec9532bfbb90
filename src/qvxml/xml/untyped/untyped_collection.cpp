#include "qvxml/xml/untyped/untyped_collection.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "qvxml/binding/namespace_constraint.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/untyped/attribute.h"
#include "qvxml/xml/untyped/element.h"

namespace QvXmlLib16 {

namespace {

const char* TextOf(const char* text) { return text == nullptr ? "" : text; }

}  // namespace

template <class TItem>
TUntypedCollection<TItem>::TUntypedCollection(const char* elementName, const char* namespaceUri,
                                              int minOccurs, unsigned int maxOccurs,
                                              const char* namespaceRestriction,
                                              const char* targetNamespace)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs),
      m_namespaceRestriction(TextOf(namespaceRestriction)),
      m_targetNamespace(TextOf(targetNamespace)) {}

template <class TItem>
TUntypedCollection<TItem>::~TUntypedCollection() = default;

template <class TItem>
void TUntypedCollection<TItem>::Add(CSmartPtr<TItem> item) {
  Insert(std::move(item), [this](const TItem& added) {
    RequireNamespaceAdmitted(added.GetNamespace(), m_namespaceRestriction, m_targetNamespace);
    return m_items.size();
  });
}

template <class TItem>
void TUntypedCollection<TItem>::AddAt(int index, CSmartPtr<TItem> item) {
  Insert(std::move(item), [this, index](const TItem& added) {
    CheckIndex(index, GetCount() + 1);
    RequireNamespaceAdmitted(added.GetNamespace(), m_namespaceRestriction, m_targetNamespace);
    return static_cast<size_t>(index);
  });
}

template <class TItem>
void TUntypedCollection<TItem>::AddTested(CSmartPtr<TItem> item) {
  Insert(std::move(item), [this](const TItem&) { return m_items.size(); });
}

// `check` tells the position, and comes after the event as that may change the collection.
template <class TItem>
template <class TCheck>
void TUntypedCollection<TItem>::Insert(CSmartPtr<TItem> item, TCheck check) {
  if (!item) {
    throw CQvInvalidParamException(FormatString(
        "The Property [%s] is mandatory, it may not be NULL", GetElementName().c_str()));
  }
  CXmlObjectBase* const object = item.Ptr();
  RaiseAdd(object);
  const auto position = static_cast<std::ptrdiff_t>(check(*item));
  m_items.insert(m_items.begin() + position, item);
  RaiseAdded(object);
}

template <class TItem>
TItem* TUntypedCollection<TItem>::Item(int index) const {
  CheckIndex(index, GetCount());
  return m_items[static_cast<size_t>(index)].Ptr();
}

template <class TItem>
int TUntypedCollection<TItem>::Find(const TItem* item) const {
  const auto found = std::find(m_items.begin(), m_items.end(), item);
  return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

template <class TItem>
long TUntypedCollection<TItem>::GetCount() const {
  return static_cast<long>(m_items.size());
}

// Items that are removed live on until the listeners have heard of it.
template <class TItem>
void TUntypedCollection<TItem>::Clear() {
  RaiseRemove(-1);
  std::vector<CSmartPtr<TItem>> removed;
  removed.swap(m_items);
  RaiseRemoved(-1);
}

template <class TItem>
void TUntypedCollection<TItem>::Remove(int index) {
  RaiseRemove(index);
  CheckIndex(index, GetCount());
  TakeOut(index);
}

template <class TItem>
void TUntypedCollection<TItem>::TakeOut(int index) {
  const auto position = m_items.begin() + index;
  const CSmartPtr<TItem> removed = std::move(*position);
  m_items.erase(position);
  RaiseRemoved(index);
}

template <class TItem>
void TUntypedCollection<TItem>::Remove(const TItem* item) {
  const int index = RequireIndex(item);
  // Looked for again, as a listener may change the collection; held, so that it is the same object.
  const CSmartPtr<TItem> removed = m_items[static_cast<size_t>(index)];
  RaiseRemove(index);
  TakeOut(RequireIndex(item));
}

template <class TItem>
int TUntypedCollection<TItem>::RequireIndex(const TItem* item) const {
  const int index = Find(item);
  if (index < 0) throw CQvInvalidParamException("The object was not found in the collection");
  return index;
}

template <class TItem>
bool TUntypedCollection<TItem>::IsAdmitted(const std::string& namespaceUri) const {
  return IsNamespaceAdmitted(namespaceUri, m_namespaceRestriction, m_targetNamespace);
}

template class TUntypedCollection<CAttribute>;
template class TUntypedCollection<CElement>;

}  // namespace QvXmlLib16
