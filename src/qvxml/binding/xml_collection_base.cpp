#include "qvxml/binding/xml_collection_base.h"

#include <algorithm>

#include "qvxml/binding/name_match_internal.h"
#include "qvxml/binding/shared_name_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16 {

namespace {

const char* OrEmpty(const char* text) { return text == nullptr ? "" : text; }

}  // namespace

CXmlCollectionBase::CXmlCollectionBase(const char* elementName, const char* namespaceUri,
                                       int minOccurs, unsigned int maxOccurs)
    : CXmlObjectBase(elementName),
      m_namespace(detail::FindSharedName(OrEmpty(namespaceUri))),
      m_minOccurs(minOccurs),
      m_maxOccurs(maxOccurs) {
  if (m_namespace != nullptr) return;
  m_ownNamespace = std::make_unique<const std::string>(OrEmpty(namespaceUri));
  m_namespace = m_ownNamespace.get();
}

CXmlCollectionBase::~CXmlCollectionBase() = default;

CXmlObjectBase* CXmlCollectionBase::GetBase() { return this; }

std::string CXmlCollectionBase::GetTargetNamespace() const {
  throw CQvException(
      "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program "
      "logic error)");
}

std::string CXmlCollectionBase::GetNamespace() const { return *m_namespace; }

void CXmlCollectionBase::ValidateCount(const CSerializationContext& ctx) const {
  if (ctx.GetIgnoreInvalidCollectionCounts()) return;
  if (HasTooMany()) {
    throw CQvValidationException(
        FormatString("The Maximum number of [%s] elements allowed in this collection is %d",
                     GetElementName().c_str(), static_cast<int>(m_maxOccurs)),
        std::string());
  }
  if (HasTooFew()) {
    throw CQvValidationException(
        FormatString("The Minimum number of [%s] elements allowed in this collection is %d",
                     GetElementName().c_str(), m_minOccurs),
        std::string());
  }
}

bool CXmlCollectionBase::IsValidCount(const CSerializationContext& ctx) const {
  return ctx.GetIgnoreInvalidCollectionCounts() || (!HasTooMany() && !HasTooFew());
}

bool CXmlCollectionBase::HasTooMany() const {
  return m_maxOccurs != kUnbounded && GetCount() > static_cast<long>(m_maxOccurs);
}

bool CXmlCollectionBase::HasTooFew() const { return GetCount() < m_minOccurs; }

void CXmlCollectionBase::AddEventListener(IEventSink* listener) {
  if (listener == nullptr) {
    throw CQvInvalidParamException("The Property [listener] is mandatory, it may not be NULL");
  }
  m_listeners.push_back(listener);
}

void CXmlCollectionBase::RemoveEventListener(IEventSink* listener) {
  const auto found = std::find(m_listeners.begin(), m_listeners.end(), listener);
  if (found != m_listeners.end()) m_listeners.erase(found);
}

// Over a copy, as a listener may change the list; one that is gone meanwhile may be destroyed. That
// of a few is no allocation, so that what has happened is told even when memory is short.
template <class TRaise>
void CXmlCollectionBase::ForEachListener(TRaise&& raise) {
  constexpr size_t kFew = 8;
  const size_t count = m_listeners.size();
  IEventSink* few[kFew];
  std::vector<IEventSink*> many;
  if (count > kFew) many = m_listeners;
  IEventSink** const listeners = count > kFew ? many.data() : few;
  if (count <= kFew) std::copy(m_listeners.begin(), m_listeners.end(), few);
  for (size_t i = 0; i < count; ++i) {
    IEventSink* const listener = listeners[i];
    if (std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end()) {
      raise(listener);
    }
  }
}

void CXmlCollectionBase::RaiseAdd(void* item) {
  ForEachListener([&](IEventSink* listener) { FireOnCollectionAddEvent(listener, this, item); });
}

void CXmlCollectionBase::RaiseAdded(void* item) {
  ForEachListener(
      [&](IEventSink* listener) { FireOnCollectionAddCompleteEvent(listener, this, item); });
  RaiseChange();
}

void CXmlCollectionBase::RaiseRemove(int index) {
  ForEachListener(
      [&](IEventSink* listener) { FireOnCollectionRemoveEvent(listener, this, index); });
}

void CXmlCollectionBase::RaiseRemoved(int index) {
  ForEachListener(
      [&](IEventSink* listener) { FireOnCollectionRemoveCompleteEvent(listener, this, index); });
  RaiseChange();
}

void CXmlCollectionBase::RaiseChange() {
  ForEachListener([&](IEventSink* listener) { FireOnCollectionChangeEvent(listener, this); });
}

void CXmlCollectionBase::CheckIndex(int index, long limit) const {
  if (index >= 0 && index < limit) return;
  // Kept: the upper figure is the number of items, also where the last index is one less.
  throw CQvInvalidParamException(
      FormatString("Index %d is out of range, use 0 - %ld", index, GetCount()));
}

bool CXmlCollectionBase::IsItemElement(const CSerializationContext& ctx,
                                       const CXmlElement* element) const {
  return detail::DoesNameMatch(ctx, element, GetElementName(), *m_namespace);
}

}  // namespace QvXmlLib16
