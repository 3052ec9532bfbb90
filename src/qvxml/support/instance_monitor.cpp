#include "qvxml/support/instance_monitor.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace QvXmlLib16 {

namespace {

// Classes beyond these count in one place for all threads, which is slower.
constexpr unsigned kSlotCount = 512;

// The counts of one thread, on cache lines of their own. They are never freed, and a new thread
// goes on counting where one that has ended stopped: so nothing needs to be moved or locked, and
// there are no more of them than there were threads at one time.
struct alignas(64) ThreadCounts {
  std::atomic<long> counts[kSlotCount] = {};
  std::atomic<bool> isTaken{true};
  ThreadCounts* next = nullptr;
};

// Both are only ever pushed, so walking them needs no lock.
constinit std::atomic<CInstanceCounter*> g_counters{nullptr};
constinit std::atomic<ThreadCounts*> g_threads{nullptr};

// Slot 0 stands for none.
constinit std::atomic<unsigned> g_nextSlot{1};

template <class TEntry>
void Push(std::atomic<TEntry*>& list, TEntry* entry, TEntry*& next) noexcept {
  next = list.load(std::memory_order_relaxed);
  while (!list.compare_exchange_weak(next, entry, std::memory_order_release,
                                     std::memory_order_relaxed)) {
  }
}

// Null when memory is short.
ThreadCounts* TakeThreadCounts() noexcept {
  for (ThreadCounts* thread = g_threads.load(std::memory_order_acquire); thread != nullptr;
       thread = thread->next) {
    if (!thread->isTaken.exchange(true, std::memory_order_acquire)) return thread;
  }
  auto* const thread = new (std::nothrow) ThreadCounts;
  if (thread != nullptr) Push(g_threads, thread, thread->next);
  return thread;
}

}  // namespace

__thread std::atomic<long>* CInstanceCounter::s_threadCounts = nullptr;

void CInstanceCounter::ChangeWithoutSlot(long difference) noexcept {
  if (!m_isListed.load(std::memory_order_relaxed)) List();
  if (s_threadCounts == nullptr) ConnectThread();
  const unsigned slot = m_slot.load(std::memory_order_relaxed);
  if (s_threadCounts != nullptr && slot != 0) return Change(difference);
  m_count.fetch_add(difference, std::memory_order_relaxed);
}

void CInstanceCounter::List() noexcept {
  if (m_isListed.exchange(true)) return;
  const unsigned slot = g_nextSlot.fetch_add(1, std::memory_order_relaxed);
  if (slot < kSlotCount) m_slot.store(slot, std::memory_order_relaxed);
  Push(g_counters, this, m_next);
}

void CInstanceCounter::ConnectThread() noexcept {
  // Once only: what a thread destroys after its counts were given back it counts without them.
  constinit static thread_local bool wasConnected = false;
  if (std::exchange(wasConnected, true)) return;
  struct Owner {
    ThreadCounts* thread = TakeThreadCounts();
    ~Owner() {
      s_threadCounts = nullptr;
      if (thread != nullptr) thread->isTaken.store(false, std::memory_order_release);
    }
  };
  static thread_local const Owner owner;
  if (owner.thread != nullptr) s_threadCounts = owner.thread->counts;
}

// Threads are read one after the other, so that an object which is passed on meanwhile may be
// missed where it was made and found where it was destroyed: the sum can be too low, even below
// zero.
long CInstanceCounter::Sum() const noexcept {
  long count = m_count.load(std::memory_order_relaxed);
  if (const unsigned slot = m_slot.load(std::memory_order_relaxed); slot != 0) {
    for (const ThreadCounts* thread = g_threads.load(std::memory_order_acquire); thread != nullptr;
         thread = thread->next) {
      count += thread->counts[slot].load(std::memory_order_relaxed);
    }
  }
  return std::max(count, 0L);
}

long CInstanceMonitor::GetCount(const char* className) {
  long count = 0;
  if (className == nullptr) return count;
  for (const CInstanceCounter* counter = g_counters.load(std::memory_order_acquire);
       counter != nullptr; counter = counter->m_next) {
    if (std::strcmp(counter->m_className, className) == 0) count += counter->Sum();
  }
  return count;
}

long CInstanceMonitor::GetTotal() {
  long count = 0;
  for (const CInstanceCounter* counter = g_counters.load(std::memory_order_acquire);
       counter != nullptr; counter = counter->m_next) {
    count += counter->Sum();
  }
  return count;
}

CInstanceCounter& CInstanceMonitor::GetCounter(const char* className) {
  const std::string_view name = className != nullptr ? className : "";
  for (CInstanceCounter* counter = g_counters.load(std::memory_order_acquire); counter != nullptr;
       counter = counter->m_next) {
    if (name == counter->m_className) return *counter;
  }
  // Both stay for the life of the process. Two threads may make one each; their counts are summed.
  std::unique_ptr<char[]> copy(new char[name.size() + 1]());
  name.copy(copy.get(), name.size());
  auto* const counter = new CInstanceCounter(copy.get());
  copy.release();
  counter->List();
  return *counter;
}

void CInstanceMonitor::Dump(std::string& text) {
  std::map<std::string, long> counts;
  for (const CInstanceCounter* counter = g_counters.load(std::memory_order_acquire);
       counter != nullptr; counter = counter->m_next) {
    counts[counter->m_className] += counter->Sum();
  }
  for (const auto& [name, count] : counts) {
    if (count != 0) text += name + ": " + std::to_string(count) + "\n";
  }
}

}  // namespace QvXmlLib16
