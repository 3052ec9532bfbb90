#include "qvxml/binding/namespace_constraint.h"

#include <algorithm>
#include <string>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16 {

namespace {

bool IsAdmittedByToken(std::string_view token, std::string_view namespaceUri,
                       std::string_view allowedList, std::string_view targetNamespace) {
  if (token == "##any") return true;
  if (token == "##other") return namespaceUri != targetNamespace;
  if (token == "##local") return namespaceUri.empty();
  if (token == "##targetNamespace") return namespaceUri == targetNamespace;
  // Kept: the whole list is compared, not the token, so a URI is admitted only when it stands
  // alone.
  return namespaceUri.empty() || namespaceUri == allowedList;
}

}  // namespace

bool IsNamespaceAdmitted(std::string_view namespaceUri, std::string_view allowedList,
                         std::string_view targetNamespace) {
  std::string_view rest = allowedList;
  while (!rest.empty()) {
    const size_t length = std::min(rest.find(' '), rest.size());
    const std::string_view token = rest.substr(0, length);
    if (!token.empty() && IsAdmittedByToken(token, namespaceUri, allowedList, targetNamespace)) {
      return true;
    }
    rest.remove_prefix(std::min(length + 1, rest.size()));
  }
  return false;
}

void RequireNamespaceAdmitted(std::string_view namespaceUri, std::string_view allowedList,
                              std::string_view targetNamespace) {
  if (IsNamespaceAdmitted(namespaceUri, allowedList, targetNamespace)) return;
  throw CQvInvalidNamespaceException(
      FormatString(
          "Invalid namespace [%s]. The namespace must be one of [%s] where the target namespace is [%s].",
          std::string(namespaceUri).c_str(), std::string(allowedList).c_str(),
          std::string(targetNamespace).c_str()),
      std::string());
}

std::string GetAnyDefaultNamespace(std::string_view allowedList, std::string_view targetNamespace) {
  if (allowedList == "##targetNamespace" || allowedList == "DefaultNamespace") {
    return std::string(targetNamespace);
  }
  if (allowedList.substr(0, 2) == "##" || allowedList.find(' ') != std::string_view::npos) {
    return std::string();
  }
  return std::string(allowedList);
}

}  // namespace QvXmlLib16
