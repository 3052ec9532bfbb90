// The elements of an xs:any wildcard, or the children of an untyped element.

#ifndef QVXML_XML_UNTYPED_ELEMENT_COL_H_
#define QVXML_XML_UNTYPED_ELEMENT_COL_H_

#include <string>

#include "qvxml/core/smart_ptr.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/untyped/untyped_collection.h"

namespace QvXmlLib16 {

/// Elements in the order in which they were added.
///
/// An element must not be put, directly or further down, into its own children: the loop would
/// never be released, and writing or cloning it throws CQvException.
class QVXML_API CElementCol : public TUntypedCollection<CElement>,
                              private TInstanceCounted<CElementCol> {
 public:
  /// -1 and kUnbounded stand for no maximum. Null text is "".
  CElementCol(const char* elementName, const char* namespaceRestriction,
              const char* targetNamespace, int minOccurs, unsigned int maxOccurs);
  ~CElementCol() override;

  using TUntypedCollection<CElement>::Add;
  /// Appends a new element and returns it; the collection owns it. Throws as AddAt and as CElement
  /// do.
  CElement* Add(const char* name, const char* namespaceUri);
  /// The same in the namespace that the list stands for, which GetNamespace() returns. Throws
  /// CQvException when it stands for none or several: then the namespace must be given.
  CElement* Add(const char* name);
  /// A copy with copies of the elements and all that they hold, and without listeners.
  CSmartPtr<CElementCol> Clone() const;

  /// Writes the elements; throws what ValidateCount throws.
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* targetNamespace,
                 const CSerializationContext& ctx, bool optional) const override;
  /// Whether FromXml_Int would take the element.
  bool Admits(const CSerializationContext& ctx, const CXmlElement& element) const;
  /// Appends `firstChild` and the siblings behind it, up to the first whose namespace is not
  /// admitted, and returns that one, or null. Where the context ignores namespaces, all are
  /// admitted. Does not look at the counts.
  CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                           const CSerializationContext& ctx, bool optional) override;
  /// The same, up to the first element that has not this name and, unless the context ignores
  /// namespaces, this namespace. Throws CQvValidationException, with the element's path, for one
  /// that has them but is not admitted. Null text is "".
  CXmlElement* FromXmlLockElementName_Int(CXmlElement* element, CXmlElement* firstChild,
                                          const CSerializationContext& ctx, bool optional,
                                          const char* name, const char* namespaceUri);

 private:
  friend class CElement;
  friend class QvXmlLib16::TInstanceCounted<CElementCol>;
  static CInstanceCounter s_instances;

  void AddCopy(const CXmlElement* element);
  // Releases the collection, and what it alone holds, in a loop, not by recursion.
  static void ReleaseIteratively(CSmartPtr<CElementCol> elements) noexcept;

  // Where the collection waits to be released, the next one that waits.
  CSmartPtr<CElementCol> m_nextReleased;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_UNTYPED_ELEMENT_COL_H_
