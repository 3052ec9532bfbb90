#include "qvxml/binding/xml_type_collection.h"

#include "qvxml/binding/name_match_internal.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

namespace {

const char* OrEmpty(const char* text) { return text == nullptr ? "" : text; }

bool IsPresent(const char* facet) { return facet != nullptr && *facet != '\0'; }
bool IsPresent(std::int64_t facet) { return facet >= 0; }

template <class... TFacet>
std::unique_ptr<const CPrimitiveRestrictions> MakeRestrictions(TFacet... facets) {
  if (!(IsPresent(facets) || ...)) return nullptr;
  const auto orEmpty = [](auto facet) {
    if constexpr (std::is_same_v<decltype(facet), const char*>) {
      return OrEmpty(facet);
    } else {
      return facet;
    }
  };
  return std::make_unique<const CPrimitiveRestrictions>(orEmpty(facets)...);
}

}  // namespace

CXmlTypeCollection::CXmlTypeCollection(
    const char* elementName, const char* namespaceUri, int minOccurs, unsigned int maxOccurs,
    const char* pattern, std::int64_t minLength, std::int64_t maxLength, const char* minInclusive,
    const char* maxInclusive, const char* minExclusive, const char* maxExclusive,
    std::int64_t length, std::int64_t totalDigits, std::int64_t fractionDigits,
    CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs),
      m_restrictions(MakeRestrictions(pattern, minLength, maxLength, minInclusive, maxInclusive,
                                      minExclusive, maxExclusive, length, totalDigits,
                                      fractionDigits)),
      m_whitespaceRule(whitespaceRule),
      m_format(OrEmpty(format)) {}

CXmlTypeCollection::CXmlTypeCollection(const char* elementName, const char* namespaceUri,
                                       int minOccurs, unsigned int maxOccurs,
                                       const CPrimitiveRestrictions& restrictions,
                                       CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                       const char* format)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs),
      m_restrictions(restrictions.HasFacets()
                         ? std::make_unique<const CPrimitiveRestrictions>(restrictions)
                         : nullptr),
      m_whitespaceRule(whitespaceRule),
      m_format(OrEmpty(format)) {}

CXmlTypeCollection::~CXmlTypeCollection() = default;

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement*, CXmlElement* firstChild,
                                             const CSerializationContext& ctx, bool) {
  CXmlElement* cursor = firstChild;
  if (!IsItemElement(ctx, cursor)) return cursor;
  if (GetCount() == 0) Reserve(detail::CountAlike(*cursor));
  const CXmlElement* taken = nullptr;
  do {
    taken = cursor;
    AddFromString(cursor->GetText());
    cursor = cursor->GetNextSiblingElement();
  } while (detail::HasSameName(cursor, taken) || IsItemElement(ctx, cursor));
  return cursor;
}

}  // namespace QvXmlLib16
