// Collections of one generated class.

#ifndef QVXML_BINDING_OBJECT_COLLECTION_H_
#define QVXML_BINDING_OBJECT_COLLECTION_H_

#include <cstddef>
#include <iterator>
#include <utility>

#include "qvxml/binding/xml_collection.h"
#include "qvxml/core/smart_ptr.h"

namespace QvXmlLib16 {

/// The class factory of a generated class that needs no number: makes a new `TObject`.
template <class TObject>
CSmartPtr<CXmlObjectBase> CreateObject(int /*classId*/, const char* elementName) {
  return CSmartPtr<CXmlObjectBase>(new TObject(elementName));
}

/// A CXmlCollection whose items are known to be `TItem` or classes derived from it.
template <class TItem>
class TObjectCollection : public CXmlCollection {
 public:
  /// Walks the items as `TItem&`; holds until the collection changes.
  class const_iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = TItem;
    using difference_type = std::ptrdiff_t;
    using pointer = TItem*;
    using reference = TItem&;

    const_iterator() = default;
    explicit const_iterator(CXmlCollection::const_iterator position) : m_position(position) {}

    TItem& operator*() const { return static_cast<TItem&>(**m_position); }
    TItem* operator->() const { return &**this; }
    const_iterator& operator++() {
      ++m_position;
      return *this;
    }
    const_iterator operator++(int) { return const_iterator(m_position++); }
    friend bool operator==(const const_iterator& left, const const_iterator& right) {
      return left.m_position == right.m_position;
    }
    friend bool operator!=(const const_iterator& left, const const_iterator& right) {
      return left.m_position != right.m_position;
    }

   private:
    CXmlCollection::const_iterator m_position;
  };

  /// Items of the class `TItem` itself, which all have that element name.
  TObjectCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                    unsigned int maxOccurs, XmlElementType elementType = XmlElementType_Element)
      : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs, elementType,
                       &CreateObject<TItem>, 0),
        m_hasFixedName(elementType == XmlElementType_Element) {}
  /// Items of classes derived from `TItem`, made by a generated factory.
  TObjectCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                    unsigned int maxOccurs, XmlElementType elementType, ElementFactory factory)
      : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs, elementType, factory),
        m_hasFixedName(false) {}

  /// As CXmlCollection::Add; throws CQvInvalidParamException too when the items of the collection
  /// have one name and the item has another.
  void Add(CSmartPtr<TItem> item) {
    CheckName(item.Ptr());
    CXmlCollection::Add(CSmartPtr<CXmlObjectBase>(item));
  }
  void AddAt(int index, CSmartPtr<TItem> item) {
    CheckName(item.Ptr());
    CXmlCollection::AddAt(index, CSmartPtr<CXmlObjectBase>(item));
  }
  /// Appends a new item and returns it; the collection owns it.
  TItem& AddNew() {
    const CSmartPtr<TItem> item(new TItem(GetElementName().c_str()));
    CXmlCollection::Add(CSmartPtr<CXmlObjectBase>(item));
    return *item;
  }
  /// As CXmlCollection::Item.
  TItem* Item(int index) const { return static_cast<TItem*>(CXmlCollection::Item(index)); }
  const_iterator begin() const { return const_iterator(CXmlCollection::begin()); }
  const_iterator end() const { return const_iterator(CXmlCollection::end()); }

 private:
  void CheckName(CXmlObjectBase* item) const {
    if (m_hasFixedName) Throw_IfElementNameDiffers(item, GetElementName().c_str());
  }

  bool m_hasFixedName;
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_OBJECT_COLLECTION_H_
