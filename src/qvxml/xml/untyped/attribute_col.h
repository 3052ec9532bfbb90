// The attributes of an xs:anyAttribute wildcard, of an untyped element, or of a context.

#ifndef QVXML_XML_UNTYPED_ATTRIBUTE_COL_H_
#define QVXML_XML_UNTYPED_ATTRIBUTE_COL_H_

#include <string>

#include "qvxml/core/smart_ptr.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/untyped/attribute.h"
#include "qvxml/xml/untyped/untyped_collection.h"

namespace QvXmlLib16 {

/// Attributes in the order in which they were added. Names may occur twice, see CAttribute.
class QVXML_API CAttributeCol : public TUntypedCollection<CAttribute>,
                                private TInstanceCounted<CAttributeCol> {
 public:
  /// Null text is "".
  CAttributeCol(const char* elementName, const char* namespaceRestriction,
                const char* targetNamespace);
  ~CAttributeCol() override;

  using TUntypedCollection<CAttribute>::Add;
  /// Appends a new attribute and returns it; the collection owns it. Throws as AddAt and as
  /// CAttribute do. Without a namespace the attribute is in none.
  CAttribute* Add(const char* name, const char* value, const char* namespaceUri);
  CAttribute* Add(const char* name, const char* value);
  CAttribute* Add(const char* name);
  /// A copy with copies of the attributes, and without listeners.
  CSmartPtr<CAttributeCol> Clone() const;

  /// Writes the attributes into the open start tag.
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                 const CSerializationContext& ctx, bool optional) const override;
  /// Appends all attributes of `element`, those that steer reading included, and returns
  /// `firstChild`. Throws CQvInvalidNamespaceException, with the element's path, for one whose
  /// namespace is not admitted; those before it stay added.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                           const CSerializationContext& ctx, bool optional) override;

 private:
  friend class QvXmlLib16::TInstanceCounted<CAttributeCol>;
  static CInstanceCounter s_instances;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_UNTYPED_ATTRIBUTE_COL_H_
