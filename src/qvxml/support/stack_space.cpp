#include "qvxml/support/stack_space.h"

#include <cstdint>

#include <pthread.h>

namespace QvXmlLib16 {

namespace {

// Lowest usable address of the calling thread's stack; 0 where the system does not tell.
uintptr_t FindStackEnd() {
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return 0;
  void* lowest = nullptr;
  size_t size = 0;
  size_t guard = 0;
  const bool isKnown = pthread_attr_getstack(&attributes, &lowest, &size) == 0;
  if (pthread_attr_getguardsize(&attributes, &guard) != 0) guard = 0;
  pthread_attr_destroy(&attributes);
  return isKnown ? reinterpret_cast<uintptr_t>(lowest) + guard : 0;
}

}  // namespace

size_t GetRemainingStack() {
  thread_local const uintptr_t t_end = FindStackEnd();
  const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
  // A thread that runs on a stack of its own making, as coroutines do, lies outside.
  return t_end == 0 || here < t_end ? SIZE_MAX : here - t_end;
}

}  // namespace QvXmlLib16
