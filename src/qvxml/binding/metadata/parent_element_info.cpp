#include "qvxml/binding/metadata/parent_element_info.h"

namespace QvXmlLib16Data {

namespace {

const char* TextOrEmpty(const char* text) { return text == nullptr ? "" : text; }

}  // namespace

constinit QvXmlLib16::CInstanceCounter CParentElementInfo::s_instances("CParentElementInfo");

CParentElementInfo::CParentElementInfo(QvXmlLib16::XmlElementGroupType groupType,
                                       QvXmlLib16::XmlElementType elementType, const char* name,
                                       const char* namespaceUri, bool reportUnknownAttributes,
                                       bool secondFlag, int valuePropertyIndex,
                                       QvXmlLib16::ItemType valueItemType, const char* valueFormat,
                                       bool isRawText)
    : m_groupType(groupType),
      m_elementType(elementType),
      m_name(TextOrEmpty(name)),
      m_namespace(TextOrEmpty(namespaceUri)),
      m_reportUnknownAttributes(reportUnknownAttributes),
      m_secondFlag(secondFlag),
      m_valuePropertyIndex(valuePropertyIndex),
      m_valueItemType(valueItemType),
      m_valueFormat(TextOrEmpty(valueFormat)),
      m_isRawText(isRawText) {}

CParentElementInfo::~CParentElementInfo() = default;

}  // namespace QvXmlLib16Data
