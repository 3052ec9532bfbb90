// How code that raises an error learns where in the input it is.

#ifndef QVXML_CORE_ERROR_PATH_PROVIDER_H_
#define QVXML_CORE_ERROR_PATH_PROVIDER_H_

#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Implemented by readers; not an owner, so it is never destroyed through this interface.
class QVXML_API IErrorPathProvider {
 public:
  /// Current position in the input being read, as a path from its root.
  virtual std::string GetPath() = 0;

 protected:
  ~IErrorPathProvider() = default;
};

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_ERROR_PATH_PROVIDER_H_
