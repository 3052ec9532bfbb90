// Ends recursion over nested objects before the stack does.

#ifndef QVXML_BINDING_DEPTH_GUARD_INTERNAL_H_
#define QVXML_BINDING_DEPTH_GUARD_INTERNAL_H_

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/support/thread_stack_internal.h"

namespace QvXmlLib16::detail {

/// Lives in each level of the recursion. Throws CQvException, naming the depth, when the calling
/// thread has no room for another level; no depth is refused while there is room.
class CDepthGuard {
 public:
  CDepthGuard() {
    CheckStack();
    ++t_depth;
  }
  ~CDepthGuard() { --t_depth; }
  CDepthGuard(const CDepthGuard&) = delete;
  CDepthGuard& operator=(const CDepthGuard&) = delete;

  /// The same for a step of the recursion that is no level of its own.
  static void CheckStack() {
    // Room for one level of user code and of ours, and for building and throwing the exception.
    constexpr size_t kReserve = size_t{48} * 1024;
    if (RemainingStackBytes() < kReserve) ThrowTooDeep();
  }

 private:
  [[noreturn]] static void ThrowTooDeep() {
    throw CQvException(FormatString(
        "The elements are nested too deeply for the stack of this thread, %ld levels were reached",
        t_depth));
  }

  // Of a model that does not call the loader.
  static inline constinit thread_local long t_depth __attribute__((tls_model("initial-exec"))) = 0;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_DEPTH_GUARD_INTERNAL_H_
