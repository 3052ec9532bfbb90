// Many threads that begin at the same moment.

#ifndef TESTS_THREADS_AT_ONCE_H_
#define TESTS_THREADS_AT_ONCE_H_

#include <latch>
#include <thread>
#include <vector>

namespace thread_test {

/// Calls `work` with each number below `count` on a thread of its own, all at once, and waits.
template <class TWork>
void RunAtOnce(size_t count, const TWork& work) {
  std::latch start(static_cast<std::ptrdiff_t>(count));
  std::vector<std::jthread> threads;
  for (size_t number = 0; number < count; ++number) {
    threads.emplace_back([&start, &work, number] {
      start.arrive_and_wait();
      work(number);
    });
  }
}

}  // namespace thread_test

#endif  // TESTS_THREADS_AT_ONCE_H_
