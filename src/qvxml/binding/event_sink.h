// Who is told when a collection changes.

#ifndef QVXML_BINDING_EVENT_SINK_H_
#define QVXML_BINDING_EVENT_SINK_H_

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

class CXmlObjectBase;  // binding/xml_object_base.h

/// Receives the events of collections; every bindable object is one. Never destroyed through this
/// interface.
class QVXML_API IEventSink {
 public:
  /// What happened to the collection. The numbers are fixed.
  enum MsgType : int {
    MsgType_Change = 0,          ///< The content has changed; data is null.
    MsgType_Add = 1,             ///< An item is about to be added; data is the item.
    MsgType_AddComplete = 2,     ///< An item has been added; data is the item.
    MsgType_Remove = 3,          ///< About to be removed; data is the address of the index as an
                                 ///< int, or null for all items.
    MsgType_RemoveComplete = 4,  ///< Has been removed; data as for MsgType_Remove.
  };

  /// `source` is the collection; `data` is valid during the call only. An item is a
  /// `CXmlObjectBase*` for collections of objects, else the address of a value of the collection's
  /// item type. An exception thrown before the change is made (Add, Remove) prevents it.
  virtual void OnEvent(CXmlObjectBase* source, MsgType type, void* data) = 0;

 protected:
  ~IEventSink() = default;
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_EVENT_SINK_H_
