#include "qvxml/support/instance_monitor.h"

#include <cstring>
#include <map>
#include <memory>
#include <string_view>

namespace QvXmlLib16 {

namespace {

// Counters are only ever pushed, so walking the list needs no lock.
constinit std::atomic<CInstanceCounter*> g_counters{nullptr};

}  // namespace

void CInstanceCounter::List() noexcept {
  if (m_isListed.exchange(true)) return;
  m_next = g_counters.load(std::memory_order_relaxed);
  while (!g_counters.compare_exchange_weak(m_next, this, std::memory_order_release,
                                           std::memory_order_relaxed)) {
  }
}

long CInstanceMonitor::GetCount(const char* className) {
  long count = 0;
  if (className == nullptr) return count;
  for (const CInstanceCounter* counter = g_counters.load(std::memory_order_acquire);
       counter != nullptr; counter = counter->m_next) {
    if (std::strcmp(counter->m_className, className) == 0) {
      count += counter->m_count.load(std::memory_order_relaxed);
    }
  }
  return count;
}

long CInstanceMonitor::GetTotal() {
  long count = 0;
  for (const CInstanceCounter* counter = g_counters.load(std::memory_order_acquire);
       counter != nullptr; counter = counter->m_next) {
    count += counter->m_count.load(std::memory_order_relaxed);
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
    counts[counter->m_className] += counter->m_count.load(std::memory_order_relaxed);
  }
  for (const auto& [name, count] : counts) {
    if (count != 0) text += name + ": " + std::to_string(count) + "\n";
  }
}

}  // namespace QvXmlLib16
