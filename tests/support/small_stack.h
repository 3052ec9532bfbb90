// A thread with little stack, where recursion without end shows early.

#ifndef TESTS_SUPPORT_SMALL_STACK_H_
#define TESTS_SUPPORT_SMALL_STACK_H_

#include <functional>

#include <gtest/gtest.h>
#include <pthread.h>

namespace qv_test {

/// Runs `work` on a stack of 256 KiB.
inline void RunOnSmallStack(std::function<void()> work) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace qv_test

#endif  // TESTS_SUPPORT_SMALL_STACK_H_
