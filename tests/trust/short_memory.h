// Runs a scenario again and again, each time short of memory at another allocation.

#ifndef TESTS_TRUST_SHORT_MEMORY_H_
#define TESTS_TRUST_SHORT_MEMORY_H_

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace qv_test {

/// What one run works on: made with enough memory, short of it while it acts.
class Subject {
 public:
  Subject() = default;
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;
  virtual ~Subject() = default;

  /// May be called again after a failure, and then does the same as it would have at first.
  virtual void Act() = 0;
  /// What came of it, asked for with enough memory.
  virtual std::string Result() const { return std::string(); }
  /// After an Act that failed: expects what must still be as it was.
  virtual void CheckAfterFailure() const {}
};

/// Calls a function whose result is text.
class CallSubject : public Subject {
 public:
  explicit CallSubject(std::function<std::string()> call) : m_call(std::move(call)) {}
  void Act() override { m_result = m_call(); }
  std::string Result() const override { return m_result; }

 private:
  const std::function<std::string()> m_call;
  std::string m_result;
};

struct Scenario {
  std::string name;
  std::function<std::unique_ptr<Subject>()> make;
};

/// Lets the allocations of the scenario fail, one at a time, and from one on for ever, and expects:
/// std::bad_alloc, the exception that the scenario ends in anyway, one that tells what a library
/// below says about memory, or the right result; that the subject then acts as if nothing had
/// happened; that it can be destroyed while memory is short; and that nothing is left.
///
/// QVXML_SHORT_MEMORY_POINTS in the environment is the number of allocations tried for each
/// scenario, spread evenly; 0 is every one. Without it, `defaultPoints` counts.
void RunShortOfMemory(const Scenario& scenario, long defaultPoints);

/// Allocations that failed in this process.
long CountInjections();

/// The messages of the exception that `act` ends in, outermost first, or "" for none.
std::string DescribeFailureOf(const std::function<void()>& act);

}  // namespace qv_test

#endif  // TESTS_TRUST_SHORT_MEMORY_H_
