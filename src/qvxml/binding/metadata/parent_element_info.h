// What a generated class says about itself as a whole.

#ifndef QVXML_BINDING_METADATA_PARENT_ELEMENT_INFO_H_
#define QVXML_BINDING_METADATA_PARENT_ELEMENT_INFO_H_

#include <atomic>
#include <string>
#include <typeinfo>

#include "qvxml/binding/element_types.h"
#include "qvxml/core/item_type.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16Data {

class CElementInfo;  // binding/metadata/element_info.h

/// The class's compositor, element name, and simple content. One for each generated class, made
/// once, never changed, and released by CXmlGeneratedClass::CleanMetaData.
class QVXML_API CParentElementInfo : private QvXmlLib16::TInstanceCounted<CParentElementInfo> {
 public:
  /// `reportUnknownAttributes` makes an attribute that no metadata claims a fault.
  /// `valuePropertyIndex` is the property that holds the element's simple content, -1 for none;
  /// `valueItemType` its type, ItemType_none for none, and `valueFormat` what QvVariant::ToString
  /// is given when it is written. `isRawText` stores the text of the element unchanged; otherwise
  /// it is converted. Null text is "".
  CParentElementInfo(QvXmlLib16::XmlElementGroupType groupType,
                     QvXmlLib16::XmlElementType elementType, const char* name,
                     const char* namespaceUri, bool reportUnknownAttributes, bool secondFlag,
                     int valuePropertyIndex, QvXmlLib16::ItemType valueItemType,
                     const char* valueFormat, bool isRawText);
  CParentElementInfo(const CParentElementInfo&) = delete;
  CParentElementInfo& operator=(const CParentElementInfo&) = delete;
  ~CParentElementInfo();

  QvXmlLib16::XmlElementGroupType GetGroupType() const { return m_groupType; }
  QvXmlLib16::XmlElementType GetElementType() const { return m_elementType; }
  const std::string& GetName() const { return m_name; }
  const std::string& GetNamespace() const { return m_namespace; }
  bool GetReportUnknownAttributes() const { return m_reportUnknownAttributes; }
  /// Kept with the metadata; nothing in the library depends on it.
  bool GetSecondFlag() const { return m_secondFlag; }
  int GetValuePropertyIndex() const { return m_valuePropertyIndex; }
  QvXmlLib16::ItemType GetValueItemType() const { return m_valueItemType; }
  const std::string& GetValueFormat() const { return m_valueFormat; }
  bool IsRawText() const { return m_isRawText; }
  /// Whether the element has simple content.
  bool HasValue() const {
    return m_valuePropertyIndex != -1 && m_valueItemType != QvXmlLib16::ItemType_none;
  }

  // Whether objects of that type are known not to be nillable. Asking the object is a search
  // through its bases, so the answer is kept for the type that asked last.
  bool IsKnownNotNillable(const std::type_info& type) const {
    return m_notNillable.load(std::memory_order_relaxed) == &type;
  }
  void RememberNotNillable(const std::type_info& type) const {
    m_notNillable.store(&type, std::memory_order_relaxed);
  }

  // Whether that array of members is known to hold no model group; kept for the last such array.
  bool IsKnownWithoutGroups(const CElementInfo* const* members) const {
    return m_withoutGroups.load(std::memory_order_relaxed) == members;
  }
  void RememberWithoutGroups(const CElementInfo* const* members) const {
    m_withoutGroups.store(members, std::memory_order_relaxed);
  }

 private:
  friend class QvXmlLib16::TInstanceCounted<CParentElementInfo>;
  static QvXmlLib16::CInstanceCounter s_instances;

  QvXmlLib16::XmlElementGroupType m_groupType;
  QvXmlLib16::XmlElementType m_elementType;
  std::string m_name;
  std::string m_namespace;
  bool m_reportUnknownAttributes;
  bool m_secondFlag;
  int m_valuePropertyIndex;
  QvXmlLib16::ItemType m_valueItemType;
  std::string m_valueFormat;
  bool m_isRawText;
  mutable std::atomic<const std::type_info*> m_notNillable{nullptr};
  mutable std::atomic<const CElementInfo* const*> m_withoutGroups{nullptr};
};

}  // namespace QvXmlLib16Data

#endif  // QVXML_BINDING_METADATA_PARENT_ELEMENT_INFO_H_
