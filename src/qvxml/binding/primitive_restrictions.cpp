#include "qvxml/binding/primitive_restrictions.h"

#include <utility>

#include "qvxml/core/exception.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CPrimitiveRestrictions::s_instances("CPrimitiveRestrictions");

CPrimitiveRestrictions::CPrimitiveRestrictions(std::string pattern, std::int64_t minLength,
                                               std::int64_t maxLength, std::string minInclusive,
                                               std::string maxInclusive, std::string minExclusive,
                                               std::string maxExclusive, std::int64_t length,
                                               std::int64_t totalDigits,
                                               std::int64_t fractionDigits,
                                               std::vector<std::string> enumeration)
    : m_pattern(std::move(pattern)),
      m_minLength(minLength),
      m_maxLength(maxLength),
      m_minInclusive(std::move(minInclusive)),
      m_maxInclusive(std::move(maxInclusive)),
      m_minExclusive(std::move(minExclusive)),
      m_maxExclusive(std::move(maxExclusive)),
      m_length(length),
      m_totalDigits(totalDigits),
      m_fractionDigits(fractionDigits),
      m_enumeration(std::move(enumeration)),
      m_hasFacets(!m_pattern.empty() || m_minLength >= 0 || m_maxLength >= 0 ||
                  m_minInclusive.IsPresent() || m_maxInclusive.IsPresent() ||
                  m_minExclusive.IsPresent() || m_maxExclusive.IsPresent() || m_length >= 0 ||
                  m_totalDigits >= 0 || m_fractionDigits >= 0 || !m_enumeration.empty()) {}

CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;

void CPrimitiveRestrictions::ConvertBounds(ItemType type) const {
  for (const detail::CFacetText* bound :
       {&m_minInclusive, &m_maxInclusive, &m_minExclusive, &m_maxExclusive}) {
    if (!bound->IsPresent()) continue;
    try {
      QvVariant room;
      bound->As(type, room);
    } catch (const CQvException&) {
      // Reported by the checks, as long as there are values to check.
    }
  }
}

}  // namespace QvXmlLib16
