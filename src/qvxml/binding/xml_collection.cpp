#include "qvxml/binding/xml_collection.h"

#include <algorithm>
#include <utility>

#include "qvxml/binding/depth_guard_internal.h"
#include "qvxml/binding/name_match_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CXmlCollection::s_instances("CXmlCollection");

CXmlCollection::CXmlCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                               unsigned int maxOccurs, XmlElementType elementType,
                               ClassFactory factory, int classId)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs),
      m_elementType(elementType),
      m_classFactory(factory),
      m_classId(classId) {}

CXmlCollection::CXmlCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                               unsigned int maxOccurs, XmlElementType elementType,
                               ElementFactory factory)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs),
      m_elementType(elementType),
      m_elementFactory(factory) {}

CXmlCollection::~CXmlCollection() = default;

void CXmlCollection::Add(CSmartPtr<CXmlObjectBase> item) {
  if (item && !HasListeners()) {
    m_items.push_back(std::move(item));
    return;
  }
  Insert(std::move(item), [this] { return m_items.size(); });
}

void CXmlCollection::AddAt(int index, CSmartPtr<CXmlObjectBase> item) {
  Insert(std::move(item), [this, index] {
    CheckIndex(index, GetCount() + 1);
    return static_cast<size_t>(index);
  });
}

template <class TCheckPosition>
void CXmlCollection::Insert(CSmartPtr<CXmlObjectBase> item, TCheckPosition checkPosition) {
  if (!item) {
    throw CQvInvalidParamException(FormatString(
        "The Property [%s] is mandatory, it may not be NULL", GetElementName().c_str()));
  }
  RaiseAdd(item.Ptr());
  const size_t position = checkPosition();
  const auto place = m_items.begin() + static_cast<std::ptrdiff_t>(position);
  if (!HasListeners()) {
    m_items.insert(place, std::move(item));
    return;
  }
  // One listener may remove the object before the next one hears of it.
  m_items.insert(place, item);
  RaiseAdded(item.Ptr());
}

CXmlObjectBase* CXmlCollection::Item(int index) const {
  CheckIndex(index, GetCount());
  return m_items[static_cast<size_t>(index)].Ptr();
}

int CXmlCollection::Find(const CXmlObjectBase* item) const {
  const auto found = std::find(m_items.begin(), m_items.end(), item);
  return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

long CXmlCollection::GetCount() const { return static_cast<long>(m_items.size()); }

// Objects that are removed live on until the listeners have heard of it.
void CXmlCollection::Clear() {
  RaiseRemove(-1);
  std::vector<CSmartPtr<CXmlObjectBase>> removed;
  removed.swap(m_items);
  RaiseRemoved(-1);
}

void CXmlCollection::Remove(int index) {
  RaiseRemove(index);
  CheckIndex(index, GetCount());
  TakeOut(index);
}

void CXmlCollection::TakeOut(int index) {
  const auto position = m_items.begin() + index;
  const CSmartPtr<CXmlObjectBase> removed = std::move(*position);
  m_items.erase(position);
  RaiseRemoved(index);
}

void CXmlCollection::Remove(const CXmlObjectBase* item) {
  const int index = RequireIndex(item);
  // Looked for again, as a listener may change the collection; held, so that it is the same object.
  const CSmartPtr<CXmlObjectBase> removed = m_items[static_cast<size_t>(index)];
  RaiseRemove(index);
  TakeOut(RequireIndex(item));
}

int CXmlCollection::RequireIndex(const CXmlObjectBase* item) const {
  const int index = Find(item);
  if (index < 0) throw CQvInvalidParamException("The object was not found in the collection");
  return index;
}

void CXmlCollection::ToXml_Int(CXmlWriter* writer, bool, const char*,
                               const CSerializationContext& ctx, bool) const {
  // An item may be a collection too, even this one.
  detail::CDepthGuard::CheckStack();
  ValidateCount(ctx);
  for (const CSmartPtr<CXmlObjectBase>& item : m_items) {
    item->ToXml_Int(writer, false, GetItemNamespace().c_str(), ctx, false);
  }
}

CXmlElement* CXmlCollection::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                         const CSerializationContext& ctx, bool) {
  CXmlElement* cursor = firstChild;
  if (!MayTake(ctx, cursor)) return cursor;
  if (m_items.empty()) m_items.reserve(detail::CountAlike(*cursor));
  const CXmlElement* taken = nullptr;
  do {
    taken = cursor;
    cursor = ReadItem(element, cursor, ctx);
    // An item that takes nothing would do so for ever.
  } while (cursor != taken && (detail::HasSameName(cursor, taken) || MayTake(ctx, cursor)));
  return cursor;
}

// Reads one item and returns the next unread element, which is `cursor` when there is no item.
CXmlElement* CXmlCollection::ReadItem(CXmlElement* parent, CXmlElement* cursor,
                                      const CSerializationContext& ctx) {
  CSmartPtr<CXmlObjectBase> item = CreateItem(cursor);
  if (!item) return cursor;
  CXmlElement* next = nullptr;
  if (m_elementType == XmlElementType_Element) {
    item->FromXml_Int(cursor, cursor->GetFirstElement(), ctx, false);
    next = cursor->GetNextSiblingElement();
  } else {
    next = item->FromXml_Int(parent, cursor, ctx, true);
    if (next == cursor) return cursor;
  }
  Add(std::move(item));
  return next;
}

// Whether it is worth while to make an item for the element: one of an abstract class may have any
// name, and a model group has none.
bool CXmlCollection::MayTake(const CSerializationContext& ctx, const CXmlElement* element) const {
  if (m_classFactory == nullptr || m_elementType != XmlElementType_Element) {
    return element != nullptr;
  }
  return IsItemElement(ctx, element);
}

CSmartPtr<CXmlObjectBase> CXmlCollection::CreateItem(CXmlElement* element) {
  if (m_classFactory != nullptr) return m_classFactory(m_classId, GetElementName().c_str());
  if (m_elementFactory != nullptr) return m_elementFactory(element);
  return nullptr;
}

}  // namespace QvXmlLib16
