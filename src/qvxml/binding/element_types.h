// How the members of a generated class are grouped and whether it has an element of its own.

#ifndef QVXML_BINDING_ELEMENT_TYPES_H_
#define QVXML_BINDING_ELEMENT_TYPES_H_

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Compositor of a class's members. The numbers are fixed.
enum QVXML_API XmlElementGroupType : int {
  XmlElementGroupType_Sequence = 0,
  XmlElementGroupType_Choice = 1,
  XmlElementGroupType_All = 2,
};

/// Whether a class is an element or a model group. The numbers are fixed; 2 and above are treated
/// as a group whose attributes are its own affair.
enum QVXML_API XmlElementType : int {
  XmlElementType_Element = 0,  ///< Written as an element of its own.
  XmlElementType_Group = 1,    ///< A pseudo child: its attributes and members are written into the
                               ///< element of the class that holds it.
};

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_ELEMENT_TYPES_H_
