// What a member says about itself without being read: whether it may be absent, and whether an
// element is its own.

#include "qvxml/binding/depth_guard_internal.h"
#include "qvxml/binding/metadata/element_kinds.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/xml_collection.h"

namespace QvXmlLib16Data {

using QvXmlLib16::CSerializationContext;
using QvXmlLib16::CSmartPtr;
using QvXmlLib16::CXmlCollection;
using QvXmlLib16::CXmlCollectionBase;
using QvXmlLib16::CXmlElement;
using QvXmlLib16::CXmlGeneratedClass;
using QvXmlLib16::CXmlObjectBase;

namespace {

bool AreAllMembersOptional(const CXmlObjectBase* object) {
  const auto* group = dynamic_cast<const CXmlGeneratedClass*>(object);
  if (group == nullptr) return false;
  const QvXmlLib16::detail::CDepthGuard guard;
  for (CElementInfo** info = group->GetClassElementInfo(); info != nullptr && *info != nullptr;
       ++info) {
    if (!(*info)->IsOptional(group)) return false;
  }
  return true;
}

bool ClaimsByGroup(const CXmlObjectBase* object, const CSerializationContext& ctx,
                   CXmlElement* element) {
  const auto* group = dynamic_cast<const CXmlGeneratedClass*>(object);
  const QvXmlLib16::detail::CDepthGuard guard;
  return group != nullptr && group->IsElementInList(ctx, element);
}

}  // namespace

bool CElementInfo::IsOptional(const CXmlGeneratedClass* object) const {
  switch (m_descriptor.occurrence) {
    case ElementOccurrence::Mandatory:
      return false;
    case ElementOccurrence::Repeated: {
      const CXmlCollectionBase* const collection = ReadCollection(object);
      return collection != nullptr && collection->GetMinOccurs() <= 0;
    }
    case ElementOccurrence::Optional:
      break;
  }
  if (m_descriptor.group != QvXmlLib16::XmlElementGroupType_Choice) return true;
  // That an alternative is not chosen does not make the choice optional.
  return m_elementType != QvXmlLib16::XmlElementType_Element &&
         AreAllMembersOptional(ReadObject(object));
}

bool CElementInfo::ClaimsElement(const CSerializationContext& ctx, const CXmlGeneratedClass* object,
                                 CXmlElement* element) const {
  return element != nullptr && m_claims != nullptr && m_claims(*this, ctx, object, element);
}

namespace detail {

bool CPrimMember::Claims(const CElementInfo& info, const CSerializationContext& ctx,
                         const CXmlGeneratedClass*, CXmlElement* element) {
  return static_cast<const CPrimMember&>(info).IsThisElement(ctx, element);
}

bool CEnumMember::Claims(const CElementInfo& info, const CSerializationContext& ctx,
                         const CXmlGeneratedClass*, CXmlElement* element) {
  return static_cast<const CEnumMember&>(info).IsThisElement(ctx, element);
}

bool CClsMember::Claims(const CElementInfo& info, const CSerializationContext& ctx,
                        const CXmlGeneratedClass* object, CXmlElement* element) {
  const auto& member = static_cast<const CClsMember&>(info);
  if (!member.IsGroup()) return member.IsThisElement(ctx, element);
  CSmartPtr<CXmlObjectBase> group(member.ReadObject(object));
  if (!group) group = member.CreateChild();
  return ClaimsByGroup(group.Ptr(), ctx, element);
}

bool CAbsClsMember::Claims(const CElementInfo& info, const CSerializationContext& ctx,
                           const CXmlGeneratedClass*, CXmlElement* element) {
  const auto& member = static_cast<const CAbsClsMember&>(info);
  const CSmartPtr<CXmlObjectBase> child = member.CreateChild(element);
  return child && (!member.IsGroup() || ClaimsByGroup(child.Ptr(), ctx, element));
}

bool CColMember::Claims(const CElementInfo& info, const CSerializationContext& ctx,
                        const CXmlGeneratedClass* object, CXmlElement* element) {
  const auto& member = static_cast<const CColMember&>(info);
  auto* const collection = dynamic_cast<CXmlCollection*>(member.ReadCollection(object));
  if (collection == nullptr) return member.IsThisElement(ctx, element);
  if (!collection->MayTake(ctx, element)) return false;
  const CSmartPtr<CXmlObjectBase> item = collection->CreateItem(element);
  if (!item) return false;
  return collection->GetElementType() == QvXmlLib16::XmlElementType_Element ||
         ClaimsByGroup(item.Ptr(), ctx, element);
}

}  // namespace detail

}  // namespace QvXmlLib16Data
