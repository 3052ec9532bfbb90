#include "tests/trust/short_memory.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iterator>
#include <new>
#include <string_view>
#include <typeinfo>

#include "tests/trust/failing_allocator.h"
#include <gtest/gtest.h>

#include "qvxml/qvxml.h"

namespace qv_test {

namespace {

using QvXmlLib16::CInstanceMonitor;
using QvXmlLib16::CQvException;

enum class Ending { Done, BadAlloc, Failed, Foreign };

struct Outcome {
  Ending ending = Ending::Done;
  // The result, or the messages of the exception.
  std::string text;
  std::string innermost;
};

// What the libraries below, and files, make of it.
constexpr std::string_view kReportsOfShortMemory[] = {
    "out of memory at line ",
    "Failed to compress data. [Error Code: -4]",
    "Failed to decompress data. [Error Code: -4]",
    "Failed to open the file [",
    "Failed to read the contents of the file [",
    "Failed to write data to the file",
};

bool ReportsShortMemory(const std::string& message) {
  // Without machine code a pattern's limit is met earlier.
  if (message.find("match limit of ") != message.npos) return true;
  return std::any_of(
      std::begin(kReportsOfShortMemory), std::end(kReportsOfShortMemory),
      [&](std::string_view text) { return message.compare(0, text.size(), text) == 0; });
}

std::string Describe(const CQvException& failure) {
  std::string text;
  for (const CQvException* link = &failure; link != nullptr; link = link->GetInnerException()) {
    text.append(typeid(*link).name()).append(": ").append(link->GetMessage()).append("\n");
  }
  return text;
}

Outcome DescribeOutcome(const CQvException& failure) {
  const CQvException* innermost = &failure;
  while (innermost->GetInnerException() != nullptr) innermost = innermost->GetInnerException();
  return {Ending::Failed, Describe(failure), innermost->GetMessage()};
}

// Everything that describes the outcome comes after memory is back.
Outcome Attempt(Subject& subject, long number = 0, bool forEver = false) {
  if (number != 0) FailingAllocator::Arm(number, forEver);
  try {
    subject.Act();
    FailingAllocator::Disarm();
    return {Ending::Done, subject.Result(), {}};
  } catch (const std::bad_alloc&) {
    FailingAllocator::Disarm();
    return {Ending::BadAlloc, {}, {}};
  } catch (const CQvException& failure) {
    FailingAllocator::Disarm();
    return DescribeOutcome(failure);
  } catch (const std::exception& failure) {
    FailingAllocator::Disarm();
    return {Ending::Foreign, failure.what(), {}};
  }
}

long CountDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

long g_injections = 0;

int CountFailures() {
  const auto* const result = ::testing::UnitTest::GetInstance()->current_test_info()->result();
  return result->total_part_count();
}

enum class Shortage { Once, ForEver, UntilDestroyed };

class Runner {
 public:
  explicit Runner(const Scenario& scenario) : m_scenario(scenario) {}

  // What is made once for all, such as metadata and names, is made here.
  long MeasureAllocations() {
    long count = 0;
    for (int i = 0; i < 3; ++i) {
      const std::unique_ptr<Subject> subject = m_scenario.make();
      m_expected = Attempt(*subject, LONG_MAX, false);
      count = FailingAllocator::Disarm();
      ExpectTheUsual(Attempt(*subject), "when it acts again");
    }
    return count;
  }

  void Run(long number, Shortage shortage) {
    const long liveBlocks = FailingAllocator::CountLiveBlocks();
    const long liveObjects = CInstanceMonitor::GetTotal();
    const int failures = CountFailures();
    RunOnce(number, shortage);
    // A failure that is reported keeps memory itself.
    if (CountFailures() != failures) return;
    EXPECT_EQ(FailingAllocator::CountLiveBlocks(), liveBlocks) << "blocks";
    if (CInstanceMonitor::GetTotal() != liveObjects) {
      std::string dump;
      CInstanceMonitor::Dump(dump);
      ADD_FAILURE() << "live objects: " << dump;
    }
  }

 private:
  static std::string Describe(const Outcome& outcome) {
    constexpr size_t kMaxLength = 1000;
    return std::to_string(static_cast<int>(outcome.ending)) + " " +
           outcome.text.substr(0, kMaxLength);
  }

  void RunOnce(long number, Shortage shortage) {
    std::unique_ptr<Subject> subject = m_scenario.make();
    const Outcome outcome = Attempt(*subject, number, shortage != Shortage::Once);
    if (FailingAllocator::HasFailed()) ++g_injections;
    ExpectAllowed(outcome);
    if (outcome.ending != Ending::Done) subject->CheckAfterFailure();
    if (shortage == Shortage::UntilDestroyed) {
      FailingAllocator::Arm(1, true);
      subject.reset();
      FailingAllocator::Disarm();
    } else {
      ExpectTheUsual(Attempt(*subject), "after the failure");
    }
  }

  void ExpectAllowed(const Outcome& outcome) const {
    if (outcome.ending == Ending::BadAlloc) return;
    if (outcome.ending == Ending::Failed && ReportsShortMemory(outcome.innermost)) return;
    ExpectTheUsual(outcome, "while memory is short");
  }

  void ExpectTheUsual(const Outcome& outcome, const char* when) const {
    if (outcome.ending == m_expected.ending && outcome.text == m_expected.text) return;
    ADD_FAILURE() << when << "\n  " << Describe(outcome) << "\ninstead of\n  "
                  << Describe(m_expected);
  }

  const Scenario& m_scenario;
  Outcome m_expected;
};

long GetPoints(long defaultPoints) {
  const char* const text = std::getenv("QVXML_SHORT_MEMORY_POINTS");
  return text != nullptr ? std::atol(text) : defaultPoints;
}

}  // namespace

void RunShortOfMemory(const Scenario& scenario, long defaultPoints) {
  SCOPED_TRACE(scenario.name);
  Runner runner(scenario);
  const long count = runner.MeasureAllocations();
  const long descriptors = CountDescriptors();
  const long points = GetPoints(defaultPoints);
  const long step = points > 0 ? std::max(count / points, 1L) : 1;
  // Each scenario begins elsewhere, so that many of a kind together try more.
  long number = 1 + static_cast<long>(std::hash<std::string>()(scenario.name) %
                                      static_cast<unsigned long>(step));
  const int failures = CountFailures();
  for (; number <= count && CountFailures() == failures; number += step) {
    for (const Shortage shortage : {Shortage::Once, Shortage::ForEver, Shortage::UntilDestroyed}) {
      SCOPED_TRACE("allocation " + std::to_string(number) + " of " + std::to_string(count) +
                   ", shortage " + std::to_string(static_cast<int>(shortage)));
      runner.Run(number, shortage);
    }
  }
  EXPECT_EQ(CountDescriptors(), descriptors);
}

long CountInjections() { return g_injections; }

std::string DescribeFailureOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const CQvException& failure) {
    return Describe(failure);
  }
  return std::string();
}

}  // namespace qv_test
