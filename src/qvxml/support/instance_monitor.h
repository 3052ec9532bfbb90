// Counts the live objects of each class, so that tests and applications can see leaks.
//
// A class takes part with three lines:
//
//   class QVXML_API CThing : private TInstanceCounted<CThing> {
//     friend class TInstanceCounted<CThing>;
//     static CInstanceCounter s_instances;
//   };
//
// and one in its source: constinit CInstanceCounter CThing::s_instances("CThing");

#ifndef QVXML_SUPPORT_INSTANCE_MONITOR_H_
#define QVXML_SUPPORT_INSTANCE_MONITOR_H_

#include <atomic>
#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// The live count of one class. Constant-initialised and never destroyed, so objects may be made
/// and destroyed before main starts and after it ends.
///
/// Each thread counts in memory of its own, which costs about as much as a plain increment; whoever
/// reads a count adds up those of all threads.
class QVXML_API CInstanceCounter {
 public:
  /// `className` must outlive the process' last object; a string literal does.
  constexpr explicit CInstanceCounter(const char* className) noexcept : m_className(className) {}
  CInstanceCounter(const CInstanceCounter&) = delete;
  CInstanceCounter& operator=(const CInstanceCounter&) = delete;

  void Add() noexcept { Change(1); }
  void Remove(long count = 1) noexcept { Change(-count); }

 private:
  friend class CInstanceMonitor;

  void Change(long difference) noexcept {
    std::atomic<long>* const counts = s_threadCounts;
    const unsigned slot = m_slot.load(std::memory_order_relaxed);
    if (__builtin_expect(counts == nullptr || slot == 0, 0)) return ChangeWithoutSlot(difference);
    // Only this thread writes there, so that nothing can come between reading and writing.
    const long count = counts[slot].load(std::memory_order_relaxed);
    counts[slot].store(count + difference, std::memory_order_relaxed);
  }
  void ChangeWithoutSlot(long difference) noexcept;
  void List() noexcept;
  static void ConnectThread() noexcept;
  long Sum() const noexcept;

  // The calling thread's counts by slot; null before its first count and at its very end. Not
  // thread_local, which makes code that cannot see the definition call a function, nor of a model
  // that calls the loader.
  static __thread std::atomic<long>* s_threadCounts __attribute__((tls_model("initial-exec")));

  const char* m_className;
  // What is counted while there is no slot or no memory of the thread.
  std::atomic<long> m_count{0};
  // Where each thread counts; 0 for none.
  std::atomic<unsigned> m_slot{0};
  std::atomic<bool> m_isListed{false};
  CInstanceCounter* m_next = nullptr;
};

/// Registers every object of `TCounted` with its counter; a base class or a member of it.
/// Copies count as objects of their own; assignment changes nothing.
template <class TCounted>
class TInstanceCounted {
 public:
  TInstanceCounted() noexcept { TCounted::s_instances.Add(); }
  TInstanceCounted(const TInstanceCounted&) noexcept { TCounted::s_instances.Add(); }
  TInstanceCounted& operator=(const TInstanceCounted&) noexcept { return *this; }
  ~TInstanceCounted() { TCounted::s_instances.Remove(); }
};

/// Reads the live counts. Every operation is safe from any thread; while other threads create or
/// destroy objects the result is a snapshot.
class QVXML_API CInstanceMonitor {
 public:
  /// Live objects of the class of that name, for example "CXmlDocument"; 0 for null, for an unknown
  /// name and for a class that has had no object yet. An object counts under its own class and
  /// under each of its bases that takes part.
  static long GetCount(const char* className);
  /// Sum of the counts of all classes.
  static long GetTotal();
  /// The counter of that name, made when there is none yet. The name is copied; null is "".
  static CInstanceCounter& GetCounter(const char* className);
  /// Appends one line "name: count" and a line feed for each class with live objects, in order of
  /// their names.
  static void Dump(std::string& text);
};

/// Registers one object under a name given at run time: the member of a base class that lets its
/// subclasses name themselves. Copies count under the same name.
class QVXML_API CNamedInstance {
 public:
  explicit CNamedInstance(const char* className)
      : m_counter(CInstanceMonitor::GetCounter(className)) {
    m_counter.Add();
  }
  CNamedInstance(const CNamedInstance& other) noexcept : m_counter(other.m_counter) {
    m_counter.Add();
  }
  CNamedInstance& operator=(const CNamedInstance&) noexcept { return *this; }
  ~CNamedInstance() { m_counter.Remove(); }

 private:
  CInstanceCounter& m_counter;
};

}  // namespace QvXmlLib16

#endif  // QVXML_SUPPORT_INSTANCE_MONITOR_H_
