// The mutex behind reference counts and shared buffers.

#ifndef QVXML_SUPPORT_CRITICAL_SECTION_H_
#define QVXML_SUPPORT_CRITICAL_SECTION_H_

#include <mutex>

namespace QvXmlLib16 {

/// A plain, non-recursive mutex: a thread must not enter it twice, and leaves only what it entered.
class CQVCriticalSection {
 public:
  CQVCriticalSection() = default;
  CQVCriticalSection(const CQVCriticalSection&) = delete;
  CQVCriticalSection& operator=(const CQVCriticalSection&) = delete;

  /// Waits until no other thread is inside, then enters.
  void Enter() { m_mutex.lock(); }
  /// Leaves; the calling thread must be inside.
  void Leave() { m_mutex.unlock(); }

 private:
  std::mutex m_mutex;
};

/// Enters a critical section for the length of a scope.
class CQVCriticalSectionGuard {
 public:
  explicit CQVCriticalSectionGuard(CQVCriticalSection& section) : m_section(section) {
    m_section.Enter();
  }
  ~CQVCriticalSectionGuard() { m_section.Leave(); }
  CQVCriticalSectionGuard(const CQVCriticalSectionGuard&) = delete;
  CQVCriticalSectionGuard& operator=(const CQVCriticalSectionGuard&) = delete;

 private:
  CQVCriticalSection& m_section;
};

}  // namespace QvXmlLib16

#endif  // QVXML_SUPPORT_CRITICAL_SECTION_H_
