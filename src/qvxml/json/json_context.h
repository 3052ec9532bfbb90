// The options of JSON text.

#ifndef QVXML_JSON_JSON_CONTEXT_H_
#define QVXML_JSON_JSON_CONTEXT_H_

#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// How much of what XML tells is carried by JSON. The numbers are fixed.
enum JsonRoundTrip : int {
  /// Names and values alone: an attribute looks like an element, and text beside attributes has the
  /// name "". For writing; what has attributes cannot be read back.
  JsonRoundTrip_None = 0,
  /// Attributes are "@name", text beside them "#text". Without prefixes, namespace declarations and
  /// type attributes.
  JsonRoundTrip_Standard = 1,
  /// As Standard, and everything about namespaces and types.
  JsonRoundTrip_Full = 2,
};

/// Tells how JSON is written and read; docs/json.md shows what comes of each option.
///
/// A context may serve several documents at once as long as nobody changes it.
class QVXML_API CJsonContext : private TInstanceCounted<CJsonContext> {
 public:
  CJsonContext();
  CJsonContext(const CJsonContext& other);
  CJsonContext& operator=(const CJsonContext& other);
  virtual ~CJsonContext();

  /// JsonRoundTrip_Full at first. Writing and reading must agree on it.
  JsonRoundTrip GetSupportRoundtrip() const { return m_supportRoundtrip; }
  void SetSupportRoundtrip(JsonRoundTrip value) { m_supportRoundtrip = value; }

  /// Whether JSON is what RFC 8259 says, in writing and in reading; false at first. Writing and
  /// reading must agree on it.
  ///
  /// Without it JSON has a form of its own: strings hold quotation marks and line ends as they are,
  /// some arrays are not opened or not closed, some names have no value. With it every text is JSON
  /// that any other program reads: strings are escaped; an array holds the items of one collection
  /// and nothing else; a nil element is null, one without content {}, and one with empty text "";
  /// numbers that JSON does not know, INF and NaN among them, are strings. Comments and processing
  /// instructions are left out.
  bool GetWellFormed() const { return m_isWellFormed; }
  void SetWellFormed(bool value) { m_isWellFormed = value; }

  // Reading.

  /// Name of the element around what is read, for text that is the content of the root without its
  /// name; "" (at first) for text that names the root itself.
  std::string GetRootElementName() const { return m_rootElementName; }
  /// Null is "".
  void SetRootElementName(const char* value);
  /// Whether comments are skipped; true at first. Only without GetWellFormed(): JSON that is well
  /// formed has none.
  bool GetAllowComments() const { return m_allowComments; }
  /// Kept: the setter has the getter's name.
  void GetAllowComments(bool value) { m_allowComments = value; }
  /// Values inside each other that are read with GetWellFormed(), the outermost counted; 1000 at
  /// first. Without it, 100 are.
  int GetMaxDepth() const { return m_maxDepth; }
  /// Throws CQvInvalidParamException "MaxDepth must be from 1 to 10000." and then keeps the old
  /// value.
  void SetMaxDepth(int value);

 private:
  friend class TInstanceCounted<CJsonContext>;
  static CInstanceCounter s_instances;

  JsonRoundTrip m_supportRoundtrip = JsonRoundTrip_Full;
  std::string m_rootElementName;
  bool m_allowComments = true;
  bool m_isWellFormed = false;
  int m_maxDepth = 1000;
};

}  // namespace QvXmlLib16

#endif  // QVXML_JSON_JSON_CONTEXT_H_
