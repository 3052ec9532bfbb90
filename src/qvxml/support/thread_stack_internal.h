// How much of its stack the calling thread has left, for code whose recursion depends on input.

#ifndef QVXML_SUPPORT_THREAD_STACK_INTERNAL_H_
#define QVXML_SUPPORT_THREAD_STACK_INTERNAL_H_

#include <cstddef>

namespace QvXmlLib16::detail {

/// Bytes between the caller's frame and the end of its thread's stack. On a stack that is not the
/// thread's own, such as a coroutine's, a cautious guess.
size_t RemainingStackBytes();

}  // namespace QvXmlLib16::detail

#endif  // QVXML_SUPPORT_THREAD_STACK_INTERNAL_H_
