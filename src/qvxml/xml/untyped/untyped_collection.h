// What the collections of untyped attributes and elements share.

#ifndef QVXML_XML_UNTYPED_UNTYPED_COLLECTION_H_
#define QVXML_XML_UNTYPED_UNTYPED_COLLECTION_H_

#include <string>
#include <vector>

#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/smart_ptr.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {

class CAttribute;  // xml/untyped/attribute.h
class CElement;    // xml/untyped/element.h

/// Holds one reference to each of its items, and takes only items whose namespace the list of its
/// wildcard admits; CXmlObjectBase::IsNamespaceValid tells the rules. What is done to an item later
/// is not tested again. One item may stand in several collections, and several times in one.
template <class TItem>
class QVXML_API TUntypedCollection : public CXmlCollectionBase {
 public:
  using const_iterator = typename std::vector<CSmartPtr<TItem>>::const_iterator;

  ~TUntypedCollection() override;

  /// AddAt the end.
  void Add(CSmartPtr<TItem> item);
  /// Inserts the item before the one at `index`, from 0; the count appends.
  ///
  /// Throws CQvInvalidParamException for null, and, after listeners have heard of it,
  /// CQvInvalidParamException for an index out of range and CQvInvalidNamespaceException for a
  /// namespace that is not admitted. A new item that is refused is destroyed when nobody else holds
  /// it.
  void AddAt(int index, CSmartPtr<TItem> item);
  /// The item, without a reference added. Throws CQvInvalidParamException when there is none at
  /// `index`.
  TItem* Item(int index) const;
  /// Index of the first occurrence of this very item, or -1.
  int Find(const TItem* item) const;
  const_iterator begin() const { return m_items.begin(); }
  const_iterator end() const { return m_items.end(); }

  long GetCount() const override;
  void Clear() override;
  void Remove(int index) override;
  /// Removes the first occurrence of the item. Throws CQvInvalidParamException when it is not
  /// there, or no longer once the listeners have heard of it.
  void Remove(const TItem* item);

  /// The namespaces that the wildcard admits.
  const std::string& GetNamespaceRestriction() const { return m_namespaceRestriction; }

 protected:
  /// Null text is "".
  TUntypedCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                     unsigned int maxOccurs, const char* namespaceRestriction,
                     const char* targetNamespace);

  bool IsAdmitted(const std::string& namespaceUri) const;
  /// The schema's namespace, which the list may refer to.
  const std::string& GetSchemaNamespace() const { return m_targetNamespace; }
  /// Add without the test of the namespace.
  void AddTested(CSmartPtr<TItem> item);

 private:
  template <class TCheck>
  void Insert(CSmartPtr<TItem> item, TCheck check);

  int RequireIndex(const TItem* item) const;
  void TakeOut(int index);

  std::string m_namespaceRestriction;
  std::string m_targetNamespace;
  std::vector<CSmartPtr<TItem>> m_items;
};

extern template class QVXML_API TUntypedCollection<CAttribute>;
extern template class QVXML_API TUntypedCollection<CElement>;

}  // namespace QvXmlLib16

#endif  // QVXML_XML_UNTYPED_UNTYPED_COLLECTION_H_
