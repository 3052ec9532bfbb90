// Collections of generated objects.

#ifndef QVXML_BINDING_XML_COLLECTION_H_
#define QVXML_BINDING_XML_COLLECTION_H_

#include <vector>

#include "qvxml/binding/element_types.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// Holds one reference to each of its objects.
///
/// A generated collection derives from it and adds operations that take and return the class of its
/// items. One object may stand in the collection several times.
class QVXML_API CXmlCollection : public CXmlCollectionBase,
                                 private TInstanceCounted<CXmlCollection> {
 public:
  /// Makes a new object of the class that generated code gave that number.
  using ClassFactory = CSmartPtr<CXmlObjectBase> (*)(int classId, const char* elementName);
  /// Makes a new object of the class that fits an element, or null when none does.
  using ElementFactory = CSmartPtr<CXmlObjectBase> (*)(CXmlElement* element);
  using const_iterator = std::vector<CSmartPtr<CXmlObjectBase>>::const_iterator;

  /// Items of one class, which are read from elements of that name, or, when `elementType` says
  /// that they are model groups, straight from the element around the collection.
  CXmlCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                 unsigned int maxOccurs, XmlElementType elementType, ClassFactory factory,
                 int classId);
  /// Items of an abstract class: the factory, not the name, decides which elements are read. A
  /// class that derives from this one may pass null and override CreateItem instead.
  CXmlCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                 unsigned int maxOccurs, XmlElementType elementType, ElementFactory factory);
  ~CXmlCollection() override;

  /// AddAt the end.
  void Add(CSmartPtr<CXmlObjectBase> item);
  /// Inserts the object before the item at `index`, from 0; the count appends.
  ///
  /// Throws CQvInvalidParamException for null, and, after listeners have heard of it, for an index
  /// out of range. A new object that is refused is destroyed when nobody else holds it.
  void AddAt(int index, CSmartPtr<CXmlObjectBase> item);
  /// The object, without a reference added. Throws CQvInvalidParamException when there is no item
  /// at `index`.
  CXmlObjectBase* Item(int index) const;
  /// Index of the first item that is this very object, or -1.
  int Find(const CXmlObjectBase* item) const;
  const_iterator begin() const { return m_items.begin(); }
  const_iterator end() const { return m_items.end(); }

  long GetCount() const override;
  void Clear() override;
  void Remove(int index) override;
  /// Removes the object. Throws CQvInvalidParamException when it is not there, or no longer once
  /// the listeners have heard of it.
  void Remove(const CXmlObjectBase* item);

  /// Writes all items; throws what ValidateCount throws.
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                 const CSerializationContext& ctx, bool optional) const override;
  /// Appends the items that begin at `firstChild`. Items that are model groups are read until one
  /// takes nothing.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                           const CSerializationContext& ctx, bool optional) override;

  /// Whether `element` has the items' name, where they have one; false for null. Otherwise
  /// CreateItem tells more.
  bool MayTake(const CSerializationContext& ctx, const CXmlElement* element) const;
  /// A new item, not added yet, to be read from `element`; null when no class fits it.
  virtual CSmartPtr<CXmlObjectBase> CreateItem(CXmlElement* element);
  XmlElementType GetElementType() const { return m_elementType; }

 private:
  friend class TInstanceCounted<CXmlCollection>;
  static CInstanceCounter s_instances;

  template <class TCheckPosition>
  void Insert(CSmartPtr<CXmlObjectBase> item, TCheckPosition checkPosition);
  int RequireIndex(const CXmlObjectBase* item) const;
  void TakeOut(int index);
  CXmlElement* ReadItem(CXmlElement* parent, CXmlElement* cursor, const CSerializationContext& ctx);

  XmlElementType m_elementType;
  ClassFactory m_classFactory = nullptr;
  ElementFactory m_elementFactory = nullptr;
  int m_classId = 0;
  std::vector<CSmartPtr<CXmlObjectBase>> m_items;
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_XML_COLLECTION_H_
