// How much of its stack the calling thread has left, for code whose recursion depends on input.

#ifndef QVXML_SUPPORT_THREAD_STACK_INTERNAL_H_
#define QVXML_SUPPORT_THREAD_STACK_INTERNAL_H_

#include <cstddef>
#include <cstdint>

namespace QvXmlLib16::detail {

/// Where the calling thread's stack lies; found when it is first asked for.
struct CStackBounds {
  std::uintptr_t lowest;
  std::uintptr_t end;
};

/// Of a model that does not call the loader, as this is asked for on each level of a recursion.
extern __thread CStackBounds t_stackBounds __attribute__((tls_model("initial-exec")));

/// RemainingStackBytes for a thread whose bounds are not known, or for a frame outside them.
size_t FindRemainingStackBytes(std::uintptr_t here);

/// Bytes between the caller's frame and the end of its thread's stack. On a stack that is not the
/// thread's own, such as a coroutine's, a cautious guess.
inline size_t RemainingStackBytes() {
  const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  const CStackBounds& bounds = t_stackBounds;
  if (here <= bounds.lowest || here >= bounds.end) return FindRemainingStackBytes(here);
  return here - bounds.lowest;
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_SUPPORT_THREAD_STACK_INTERNAL_H_
