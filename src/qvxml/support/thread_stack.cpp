#include <pthread.h>

#include "qvxml/support/thread_stack_internal.h"

namespace QvXmlLib16::detail {

__thread CStackBounds t_stackBounds = {0, 0};

namespace {

constexpr size_t kUnknownRemainder = size_t{128} * 1024;

CStackBounds ReadBounds() {
  // Not 0 and 0, which stand for bounds that nobody asked for.
  CStackBounds bounds = {1, 1};
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return bounds;
  void* lowest = nullptr;
  size_t size = 0;
  if (pthread_attr_getstack(&attributes, &lowest, &size) == 0) {
    bounds.lowest = reinterpret_cast<std::uintptr_t>(lowest);
    bounds.end = bounds.lowest + size;
  }
  pthread_attr_destroy(&attributes);
  return bounds;
}

}  // namespace

size_t FindRemainingStackBytes(std::uintptr_t here) {
  // Asking is a system call or, on the first thread, reading a file of /proc: once for a thread.
  if (t_stackBounds.end == 0) t_stackBounds = ReadBounds();
  const CStackBounds& bounds = t_stackBounds;
  if (here <= bounds.lowest || here >= bounds.end) return kUnknownRemainder;
  return here - bounds.lowest;
}

}  // namespace QvXmlLib16::detail
