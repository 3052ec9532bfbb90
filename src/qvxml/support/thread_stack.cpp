#include <cstdint>

#include <pthread.h>

#include "qvxml/support/thread_stack_internal.h"

namespace QvXmlLib16::detail {

namespace {

constexpr size_t kUnknownRemainder = 128 * 1024;

struct CStackBounds {
  uintptr_t lowest = 0;
  uintptr_t end = 0;
};

CStackBounds ReadBounds() {
  CStackBounds bounds;
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return bounds;
  void* lowest = nullptr;
  size_t size = 0;
  if (pthread_attr_getstack(&attributes, &lowest, &size) == 0) {
    bounds.lowest = reinterpret_cast<uintptr_t>(lowest);
    bounds.end = bounds.lowest + size;
  }
  pthread_attr_destroy(&attributes);
  return bounds;
}

}  // namespace

size_t RemainingStackBytes() {
  // Asking is a system call or, on the first thread, reading a file of /proc: once for a thread.
  thread_local const CStackBounds bounds = ReadBounds();
  const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
  if (here <= bounds.lowest || here >= bounds.end) return kUnknownRemainder;
  return here - bounds.lowest;
}

}  // namespace QvXmlLib16::detail
