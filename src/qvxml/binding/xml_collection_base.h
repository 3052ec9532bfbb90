// The base of the objects that hold a member which may occur more than once.

#ifndef QVXML_BINDING_XML_COLLECTION_BASE_H_
#define QVXML_BINDING_XML_COLLECTION_BASE_H_

#include <memory>
#include <string>
#include <vector>

#include "qvxml/binding/xml_object_base.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Writes and reads all occurrences of a member, and tells listeners what changes.
///
/// The element name of the object is the one of its items. A collection has an identity: it is not
/// copied, and it belongs to the object that it is a member of.
class QVXML_API CXmlCollectionBase : public CXmlObjectBase {
 public:
  /// Value of the maximum that stands for no limit.
  static constexpr unsigned int kUnbounded = 0xFFFFFFFF;

  CXmlCollectionBase(const CXmlCollectionBase&) = delete;
  CXmlCollectionBase& operator=(const CXmlCollectionBase&) = delete;
  ~CXmlCollectionBase() override;

  /// The collection itself.
  CXmlObjectBase* GetBase() override;
  /// Throws CQvException: the object that holds the collection knows it.
  std::string GetTargetNamespace() const override;
  /// Namespace of the items.
  std::string GetNamespace() const override;

  virtual long GetCount() const = 0;
  /// Removes all items. Listeners hear of a removal of index -1, also when there is no item.
  virtual void Clear() = 0;
  /// Removes the item at `index`, from 0. Throws CQvInvalidParamException when there is none.
  virtual void Remove(int index) = 0;
  /// Throws CQvValidationException, without a path, when there are more or fewer items than the
  /// schema allows, unless the context ignores that.
  virtual void ValidateCount(const CSerializationContext& ctx) const;
  /// Whether ValidateCount would return.
  virtual bool IsValidCount(const CSerializationContext& ctx) const;

  int GetMinOccurs() const { return m_minOccurs; }
  /// kUnbounded for no limit.
  unsigned int GetMaxOccurs() const { return m_maxOccurs; }

  // Listeners are not owned and must be removed before they are destroyed. They are called in the
  // order in which they were added, and may remove themselves or others meanwhile.

  /// Adds a listener, once more when it is there already. Throws CQvInvalidParamException for null.
  void AddEventListener(IEventSink* listener);
  /// Removes a listener once; does nothing when it is not there.
  void RemoveEventListener(IEventSink* listener);

 protected:
  /// Null text is "".
  CXmlCollectionBase(const char* elementName, const char* namespaceUri, int minOccurs,
                     unsigned int maxOccurs);

  // For collections. `item` is what IEventSink calls the data of the event.

  bool HasListeners() const { return !m_listeners.empty(); }
  void RaiseAdd(void* item);
  /// The two events that follow the insertion of an item.
  void RaiseAdded(void* item);
  /// -1 for all items.
  void RaiseRemove(int index);
  /// The two events that follow a removal.
  void RaiseRemoved(int index);

  /// Throws CQvInvalidParamException unless 0 <= index < limit.
  void CheckIndex(int index, long limit) const;
  /// Whether the element has the name of the items and, unless the context ignores namespaces,
  /// their namespace; false for null.
  bool IsItemElement(const CSerializationContext& ctx, const CXmlElement* element) const;
  const std::string& GetItemNamespace() const { return *m_namespace; }

 private:
  template <class TRaise>
  void ForEachListener(TRaise&& raise);
  void RaiseChange();
  bool HasTooMany() const;
  bool HasTooFew() const;

  // Collections are made with each object around them, so they share what they can.
  const std::string* m_namespace;
  std::unique_ptr<const std::string> m_ownNamespace;
  int m_minOccurs;
  unsigned int m_maxOccurs;
  std::vector<IEventSink*> m_listeners;
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_XML_COLLECTION_BASE_H_
