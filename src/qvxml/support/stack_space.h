// How much stack the calling thread has left.

#ifndef QVXML_SUPPORT_STACK_SPACE_H_
#define QVXML_SUPPORT_STACK_SPACE_H_

#include <cstddef>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Bytes between here and the end of the calling thread's stack, whatever its size; a very large
/// number where the system does not tell. Cheap after a thread's first call.
QVXML_API size_t GetRemainingStack();

}  // namespace QvXmlLib16

#endif  // QVXML_SUPPORT_STACK_SPACE_H_
