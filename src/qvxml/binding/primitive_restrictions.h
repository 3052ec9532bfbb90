// The facets that a schema places on one primitive type.

#ifndef QVXML_BINDING_PRIMITIVE_RESTRICTIONS_H_
#define QVXML_BINDING_PRIMITIVE_RESTRICTIONS_H_

#include <cstdint>
#include <string>
#include <vector>

#include "qvxml/binding/facet_text.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// Facets as generated code states them; CXmlObjectHelper (facet_checks.h) tells what each means
/// for a type.
class QVXML_API CPrimitiveRestrictions : private TInstanceCounted<CPrimitiveRestrictions> {
 public:
  /// No facet at all.
  CPrimitiveRestrictions() = default;
  /// A facet is absent when its text is "", its number is negative or its list is empty. Lengths
  /// count bytes. Bounds are XSD text, converted to the value's type when a value is checked, so
  /// that text which is not of that type throws then. `enumeration` lists the allowed values as XSD
  /// text.
  explicit CPrimitiveRestrictions(
      std::string pattern, std::int64_t minLength = -1, std::int64_t maxLength = -1,
      std::string minInclusive = std::string(), std::string maxInclusive = std::string(),
      std::string minExclusive = std::string(), std::string maxExclusive = std::string(),
      std::int64_t length = -1, std::int64_t totalDigits = -1, std::int64_t fractionDigits = -1,
      std::vector<std::string> enumeration = {});
  CPrimitiveRestrictions(const CPrimitiveRestrictions&) = default;
  CPrimitiveRestrictions& operator=(const CPrimitiveRestrictions&) = default;
  virtual ~CPrimitiveRestrictions();

  /// False when no facet is present.
  bool HasFacets() const { return m_hasFacets; }

  const std::string& GetPattern() const { return m_pattern; }
  std::int64_t GetMinLength() const { return m_minLength; }
  std::int64_t GetMaxLength() const { return m_maxLength; }
  const std::string& GetMinInclusive() const { return m_minInclusive.GetText(); }
  const std::string& GetMaxInclusive() const { return m_maxInclusive.GetText(); }
  const std::string& GetMinExclusive() const { return m_minExclusive.GetText(); }
  const std::string& GetMaxExclusive() const { return m_maxExclusive.GetText(); }
  std::int64_t GetLength() const { return m_length; }
  std::int64_t GetTotalDigits() const { return m_totalDigits; }
  std::int64_t GetFractionDigits() const { return m_fractionDigits; }
  const std::vector<std::string>& GetEnumeration() const { return m_enumeration; }

  // The bounds for the checks, which need values.

  /// Converts them ahead of the first check, but for text that is not of the type.
  void ConvertBounds(ItemType type) const;
  const detail::CFacetText& MinInclusive() const { return m_minInclusive; }
  const detail::CFacetText& MaxInclusive() const { return m_maxInclusive; }
  const detail::CFacetText& MinExclusive() const { return m_minExclusive; }
  const detail::CFacetText& MaxExclusive() const { return m_maxExclusive; }

 private:
  friend class TInstanceCounted<CPrimitiveRestrictions>;
  static CInstanceCounter s_instances;

  std::string m_pattern;
  std::int64_t m_minLength = -1;
  std::int64_t m_maxLength = -1;
  detail::CFacetText m_minInclusive;
  detail::CFacetText m_maxInclusive;
  detail::CFacetText m_minExclusive;
  detail::CFacetText m_maxExclusive;
  std::int64_t m_length = -1;
  std::int64_t m_totalDigits = -1;
  std::int64_t m_fractionDigits = -1;
  std::vector<std::string> m_enumeration;
  bool m_hasFacets = false;
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_PRIMITIVE_RESTRICTIONS_H_
