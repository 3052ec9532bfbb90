// The base of the collections of primitive values; typed_collections.h has one for each type.

#ifndef QVXML_BINDING_XML_TYPE_COLLECTION_H_
#define QVXML_BINDING_XML_TYPE_COLLECTION_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "qvxml/binding/primitive_restrictions.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/whitespace.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Reads the elements that hold the values; attributes of these elements are ignored.
class QVXML_API CXmlTypeCollection : public CXmlCollectionBase {
 public:
  /// The facets are those of CPrimitiveRestrictions, in its order; text on reading has
  /// `whitespaceRule` applied. `format` is what collections of r4, r8 and decimal give the
  /// conversion on writing. Null text is "".
  CXmlTypeCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                     unsigned int maxOccurs, const char* pattern, std::int64_t minLength,
                     std::int64_t maxLength, const char* minInclusive, const char* maxInclusive,
                     const char* minExclusive, const char* maxExclusive, std::int64_t length,
                     std::int64_t totalDigits, std::int64_t fractionDigits,
                     CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format = "");
  CXmlTypeCollection(const char* elementName, const char* namespaceUri, int minOccurs,
                     unsigned int maxOccurs, const CPrimitiveRestrictions& restrictions,
                     CWhitespaceUtils::WhitespaceRule whitespaceRule, const char* format = "");
  ~CXmlTypeCollection() override;

  /// Converts the text and appends the value. Throws the conversion's exception for text that is
  /// not of the type, and what adding throws.
  virtual void AddFromString(const std::string& text) = 0;

  /// Appends the values of the elements from `firstChild` on that have the name of the items.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                           const CSerializationContext& ctx, bool optional) override;

 protected:
  /// Room for that many values, before they are added.
  virtual void Reserve(std::size_t) {}

  /// Null when there is no facet.
  const CPrimitiveRestrictions* GetRestrictions() const { return m_restrictions.get(); }
  CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }
  const std::string& GetFormat() const { return m_format; }

 private:
  // Most collections have no facets, and each object has its own collections.
  std::unique_ptr<const CPrimitiveRestrictions> m_restrictions;
  CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
  std::string m_format;
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_XML_TYPE_COLLECTION_H_
