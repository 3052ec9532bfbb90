// The name test behind every member that is matched by its element's name.

#ifndef QVXML_BINDING_NAME_MATCH_INTERNAL_H_
#define QVXML_BINDING_NAME_MATCH_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "qvxml/binding/serialization_context.h"
#include "qvxml/xml/node_access_internal.h"

namespace QvXmlLib16::detail {

/// Whether a node has that name. `match` is where the name remembers `number`, which is that of the
/// metadata with these two texts.
inline bool DoesNameMatch(const CXmlName& name, const CNameMatch& match, std::uint64_t number,
                          const std::string& localName, const std::string& namespaceUri,
                          bool ignoresNamespaces) {
  if (match.Get() == number) return true;
  if (name.localName != localName) return false;
  if (*name.namespaceUri != namespaceUri) return ignoresNamespaces;
  match.Set(number);
  return true;
}

/// CXmlObjectBase::DoesElementNameMatch for text whose length is known, and false for null.
inline bool DoesNameMatch(const CSerializationContext& ctx, const CXmlElement* element,
                          const std::string& localName, const std::string& namespaceUri) {
  if (element == nullptr) return false;
  const CXmlName& name = CNodeAccess::NameOf(*element);
  return name.localName == localName &&
         (ctx.GetIgnoreNamespaces() || *name.namespaceUri == namespaceUri);
}

/// The same for the metadata of that number.
inline bool DoesNameMatch(const CSerializationContext& ctx, const CXmlElement* element,
                          std::uint64_t number, const std::string& localName,
                          const std::string& namespaceUri) {
  if (element == nullptr) return false;
  const CXmlName& name = CNodeAccess::NameOf(*element);
  return DoesNameMatch(name, name.elementMatch, number, localName, namespaceUri,
                       ctx.GetIgnoreNamespaces());
}

/// Whether the two have one name, for elements of one document and null.
inline bool HasSameName(const CXmlElement* left, const CXmlElement* right) {
  return left != nullptr && right != nullptr &&
         &CNodeAccess::NameOf(*left) == &CNodeAccess::NameOf(*right);
}

/// How many elements from this one on have its name, up to a number from which on counting does not
/// save more than it costs.
inline std::size_t CountAlike(const CXmlElement& first) {
  constexpr std::size_t kEnough = 64;
  std::size_t count = 1;
  const CXmlElement* next = first.GetNextSiblingElement();
  while (count < kEnough && HasSameName(next, &first)) {
    ++count;
    next = next->GetNextSiblingElement();
  }
  return count;
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_NAME_MATCH_INTERNAL_H_
