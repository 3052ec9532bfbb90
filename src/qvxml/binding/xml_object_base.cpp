// Identity, references, guards, events and name tests; output and input are in files of their own.

#include "qvxml/binding/xml_object_base.h"

#include <cstdint>
#include <string_view>

#include "qvxml/binding/namespace_constraint.h"
#include "qvxml/binding/object_flags_internal.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

namespace {

std::string_view View(const char* text) { return text == nullptr ? "" : text; }

[[noreturn]] void ThrowOtherChoiceSelected(const std::string& selected) {
  throw CQvInvalidStateException(FormatString(
      "The Property [%s] is already set. Only one element within this class bay be set at a time",
      selected.c_str()));
}

void* IndexOrAll(int& index) { return index == -1 ? nullptr : &index; }

}  // namespace

constinit CInstanceCounter CXmlObjectBase::s_instances("CXmlObjectBase");

CXmlObjectBase::CXmlObjectBase() : CXmlObjectBase(nullptr) {}

CXmlObjectBase::CXmlObjectBase(const char* elementName) : m_elementName(elementName) {}

CXmlObjectBase::CXmlObjectBase(const CXmlObjectBase& other)
    : IEventSink(other), TInstanceCounted(other), m_elementName(other.m_elementName) {}

CXmlObjectBase& CXmlObjectBase::operator=(const CXmlObjectBase& other) {
  m_elementName = other.m_elementName;
  return *this;
}

CXmlObjectBase::~CXmlObjectBase() = default;

void CXmlObjectBase::OnEvent(CXmlObjectBase*, MsgType, void*) {}

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter*, const CSerializationContext&) const {}

void CXmlObjectBase::SetElementName(const char* elementName) {
  m_elementName = detail::CObjectName(elementName);
}

void CXmlObjectBase::AdoptElementName(const std::string& elementName) {
  m_elementName = detail::CObjectName(elementName);
}

long long CXmlObjectBase::AddRef() noexcept {
  return m_references.fetch_add(1, std::memory_order_relaxed) + 1;
}

long long CXmlObjectBase::Release() {
  // Nobody else can add a reference to one that only the caller holds.
  const long long references =
      IsSoleReference() ? 0 : m_references.fetch_sub(1, std::memory_order_acq_rel) - 1;
  if (references == 0) Destroy(this);
  return references;
}

// An object destroys those that it holds, by recursion. From some depth on they wait until the
// outermost one is gone, in a list that needs no memory: a dead object's count is its next one.
void CXmlObjectBase::Destroy(CXmlObjectBase* object) {
  static_assert(sizeof(uintptr_t) <= sizeof(long long));
  constexpr int kMaxDepth = 200;
  struct CWaiting {
    int depth;
    CXmlObjectBase* first;
  };
  static constinit thread_local CWaiting t_waiting{0, nullptr};
  CWaiting& waiting = t_waiting;
  if (waiting.depth == kMaxDepth) {
    object->m_references.store(reinterpret_cast<long long>(waiting.first),
                               std::memory_order_relaxed);
    waiting.first = object;
    return;
  }
  ++waiting.depth;
  delete object;
  if (waiting.depth == 1) {
    while (waiting.first != nullptr) {
      CXmlObjectBase* const next = waiting.first;
      // NOLINTNEXTLINE(performance-no-int-to-ptr): what was a pointer when it was stored above.
      waiting.first = reinterpret_cast<CXmlObjectBase*>(
          next->m_references.exchange(1, std::memory_order_relaxed));
      delete next;
    }
  }
  --waiting.depth;
}

void CXmlObjectBase::AsyncToXmlFile(bool isAsync) { detail::g_isAsyncToFile = isAsync; }

void CXmlObjectBase::AsyncFromXmlFile(bool isAsync) { detail::g_isAsyncFromFile = isAsync; }

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* value, const char* propertyName) {
  if (value != nullptr) return;
  throw CQvInvalidParamException(FormatString("The Property [%s] is mandatory, it may node be NULL",
                                              std::string(View(propertyName)).c_str()));
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* value, const char* requiredName) {
  if (value == nullptr) return;
  const std::string& actualName = value->GetBase()->GetElementName();
  if (actualName == View(requiredName)) return;
  throw CQvInvalidParamException(FormatString(
      "This property requires an element with the name %s the element being set has the element name %s",
      std::string(View(requiredName)).c_str(), actualName.c_str()));
}

void CXmlObjectBase::Choice_SetElementValid(bool isValid, const char* name, std::string& selected) {
  if (!isValid) {
    selected.clear();
  } else if (selected != View(name)) {
    // Kept: nothing selected is refused too, and this message has no brackets.
    throw CQvInvalidStateException(FormatString(
        "The Property %s is already set. Only one element within this class bay be set at a time",
        selected.c_str()));
  }
}

void CXmlObjectBase::Choice_SelectElement(const char* name, CXmlObjectBase* newValue,
                                          std::string& selected) {
  if (selected == View(name)) {
    if (newValue == nullptr) selected.clear();
  } else if (selected.empty()) {
    // Kept: a null value selects too.
    selected = View(name);
  } else if (newValue != nullptr) {
    ThrowOtherChoiceSelected(selected);
  }
}

void CXmlObjectBase::Choice_CollectionChanged(const char* name, long count, std::string& selected) {
  if (selected == View(name)) {
    if (count == 0) selected.clear();
  } else if (selected.empty()) {
    if (count > 0) selected = View(name);
  } else if (count != 0) {
    ThrowOtherChoiceSelected(selected);
  }
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                            CXmlElement*& cursor, long& count,
                                            const CSerializationContext& ctx) {
  if (collection == nullptr) return;
  const long before = collection->GetCount();
  cursor = collection->FromXml_Int(parent, cursor, ctx, false);
  count += collection->GetCount() - before;
}

void CXmlObjectBase::FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection) {
  sink->OnEvent(collection->GetBase(), MsgType_Change, nullptr);
}

void CXmlObjectBase::FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                              void* item) {
  sink->OnEvent(collection->GetBase(), MsgType_Add, item);
}

void CXmlObjectBase::FireOnCollectionAddCompleteEvent(IEventSink* sink,
                                                      CXmlCollectionBase* collection, void* item) {
  sink->OnEvent(collection->GetBase(), MsgType_AddComplete, item);
}

void CXmlObjectBase::FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 int index) {
  sink->OnEvent(collection->GetBase(), MsgType_Remove, IndexOrAll(index));
}

void CXmlObjectBase::FireOnCollectionRemoveCompleteEvent(IEventSink* sink,
                                                         CXmlCollectionBase* collection,
                                                         int index) {
  sink->OnEvent(collection->GetBase(), MsgType_RemoveComplete, IndexOrAll(index));
}

bool CXmlObjectBase::DoesElementNameMatch(const CSerializationContext& ctx,
                                          const CXmlElement* element, const char* name,
                                          const char* namespaceUri) const {
  if (element == nullptr || element->GetLocalName() != View(name)) return false;
  return ctx.GetIgnoreNamespaces() || element->GetNamespaceURI() == View(namespaceUri);
}

bool CXmlObjectBase::IsNamespaceValid(const char* namespaceUri, const char* allowedList,
                                      const char* targetNamespace) const {
  return IsNamespaceAdmitted(View(namespaceUri), View(allowedList), View(targetNamespace));
}

bool CXmlObjectBase::TestNamespace(const char* namespaceUri, const char* allowedList,
                                   const char* targetNamespace) const {
  RequireNamespaceAdmitted(View(namespaceUri), View(allowedList), View(targetNamespace));
  return true;
}

}  // namespace QvXmlLib16
