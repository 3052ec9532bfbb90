// The namespace lists of wildcards (XML Schema Part 1, section 3.10), as this library reads them.

#ifndef QVXML_BINDING_NAMESPACE_CONSTRAINT_H_
#define QVXML_BINDING_NAMESPACE_CONSTRAINT_H_

#include <string>
#include <string_view>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Whether the list admits the namespace; CXmlObjectBase::IsNamespaceValid tells the rules.
QVXML_API bool IsNamespaceAdmitted(std::string_view namespaceUri, std::string_view allowedList,
                                   std::string_view targetNamespace);

/// Throws CQvInvalidNamespaceException "Invalid namespace [%s]. The namespace must be one of [%s]
/// where the target namespace is [%s]." unless IsNamespaceAdmitted.
QVXML_API void RequireNamespaceAdmitted(std::string_view namespaceUri, std::string_view allowedList,
                                        std::string_view targetNamespace);

/// A namespace that a new element may be given under the list: the list itself when it is one URI,
/// the target namespace for "##targetNamespace" and "DefaultNamespace", "" otherwise.
QVXML_API std::string GetAnyDefaultNamespace(std::string_view allowedList,
                                             std::string_view targetNamespace);

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_NAMESPACE_CONSTRAINT_H_
