// Compares programs that do the same work: their rounds alternate, so that a change of the
// machine's speed meets them alike, and the median counts. Time is that of the processor, which
// stands still while others run.

#ifndef BENCH_SUPPORT_COMPARISON_H_
#define BENCH_SUPPORT_COMPARISON_H_

#include <functional>
#include <string>
#include <vector>

namespace bench {

/// What heap memory a piece of work needed.
struct CMemory {
  long allocations = 0;
  /// What its result keeps.
  long keptBytes = 0;
  long peakBytes = 0;
};

/// Runs `work` and returns its time in milliseconds.
double TimeOf(const std::function<void()>& work);

/// One row of a table.
struct CProgram {
  std::string name;
  /// Returns the result of TimeOf, called once inside: what happens before and after, such as
  /// taking down a tree, is neither timed nor counted. Empty when the program is skipped.
  std::function<double()> run;
  /// Why it is skipped, such as "not installed".
  std::string skipped{};

  // Filled by Compare.
  std::vector<double> times{};
  CMemory memory{};

  double Median() const;
};

/// A row of which all of `work` is timed.
CProgram Timed(const char* name, std::function<void()> work);

/// What the rows work on.
struct CDocument {
  std::string name;
  /// Size that MB/s stands for: that of the text, for every row.
  size_t bytes = 0;
  /// For the columns "an element"; 0 leaves them out.
  double elements = 0;
};

struct CRepetitions {
  int rounds = 15;
  /// Runs in a row whose mean is one time. A short one alone would be timed with what the rows
  /// before it left in the caches, not as in a program that handles one small document after
  /// another.
  int runs = 1;
};

/// Runs `programs` once counting allocations and then in turn, and prints a table of the medians of
/// the rounds; the first is the reference of the column "relative".
///
/// When the environment variable QVXML_BENCH_RESULTS names a file, the rows are added to it too, as
/// fields between tabs: document, bytes, elements, row, milliseconds, relative, allocations, bytes
/// kept, peak bytes; a skipped row has its word in place of the milliseconds and no more.
void Compare(const CDocument& document, std::vector<CProgram>& programs,
             const CRepetitions& repetitions = {});

}  // namespace bench

#endif  // BENCH_SUPPORT_COMPARISON_H_
