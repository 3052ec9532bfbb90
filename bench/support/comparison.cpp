#include "bench/support/comparison.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <optional>
#include <utility>

#include "bench/support/allocations.h"

namespace bench {

namespace {

// Set while a run is counted, not timed.
CMemory* CountedMemory = nullptr;

double CpuMilliseconds() {
  timespec now;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

void RunAll(const std::vector<CProgram>& programs) {
  for (const CProgram& program : programs) {
    if (program.run) program.run();
  }
}

// The mean of several runs in a row.
double MeanTime(const CProgram& program, int runs) {
  double sum = 0;
  for (int run = 0; run < runs; ++run) sum += program.run();
  return sum / runs;
}

void Run(std::vector<CProgram>& programs, const CRepetitions& repetitions) {
  // What earlier runs left to be used again is used up first, so that all memory is counted.
  AllowFreeAdvice(false);
  RunAll(programs);
  for (CProgram& program : programs) {
    if (!program.run) continue;
    CountedMemory = &program.memory;
    program.run();
    CountedMemory = nullptr;
  }
  AllowFreeAdvice(true);
  RunAll(programs);
  for (int round = 0; round < repetitions.rounds; ++round) {
    for (CProgram& program : programs) {
      if (program.run) program.times.push_back(MeanTime(program, repetitions.runs));
    }
  }
}

void PrintRow(const CDocument& document, const CProgram& program, double reference) {
  if (!program.run) {
    std::printf("%-44s %s\n", program.name.c_str(), program.skipped.c_str());
    return;
  }
  const double bytes = static_cast<double>(document.bytes);
  const double median = program.Median();
  std::printf("%-44s %9.2f %8.0f %8.2f", program.name.c_str(), median, bytes / 1000.0 / median,
              median / reference);
  if (document.elements > 0) {
    std::printf(" %8.1f %8.3f %8.1f", median * 1e6 / document.elements,
                static_cast<double>(program.memory.allocations) / document.elements,
                static_cast<double>(program.memory.keptBytes) / document.elements);
  } else {
    std::printf(" %8s %8s %8s", "", "", "");
  }
  std::printf(" %8.2f\n", static_cast<double>(program.memory.peakBytes) / bytes);
}

void Print(const CDocument& document, const std::vector<CProgram>& programs,
           const CRepetitions& repetitions) {
  std::printf("%s: %zu bytes, %.0f elements, median of %d rounds, %d runs in each\n",
              document.name.c_str(), document.bytes, document.elements, repetitions.rounds,
              repetitions.runs);
  std::printf("%-44s %9s %8s %8s %8s %8s %8s %8s\n", "", "ms", "MB/s", "relative", "ns/el",
              "allocs/el", "bytes/el", "peak/text");
  for (const CProgram& program : programs) PrintRow(document, program, programs.front().Median());
  std::printf("\n");
  std::fflush(stdout);
}

void AppendResults(const char* path, const CDocument& document,
                   const std::vector<CProgram>& programs) {
  std::ofstream file(path, std::ios::app);
  for (const CProgram& program : programs) {
    file << document.name << '\t' << document.bytes << '\t'
         << static_cast<unsigned long>(document.elements) << '\t' << program.name << '\t';
    if (!program.run) {
      file << program.skipped << '\n';
      continue;
    }
    file << program.Median() << '\t' << program.Median() / programs.front().Median() << '\t'
         << program.memory.allocations << '\t' << program.memory.keptBytes << '\t'
         << program.memory.peakBytes << '\n';
  }
  if (!file.flush()) {
    std::fprintf(stderr, "%s cannot be written\n", path);
    std::exit(1);
  }
}

}  // namespace

double TimeOf(const std::function<void()>& work) {
  std::optional<CAllocationCount> count;
  if (CountedMemory != nullptr) count.emplace();
  const double start = CpuMilliseconds();
  work();
  const double time = CpuMilliseconds() - start;
  if (count) *CountedMemory = {count->Allocations(), count->LiveBytes(), count->PeakBytes()};
  return time;
}

double CProgram::Median() const {
  std::vector<double> sorted = times;
  std::sort(sorted.begin(), sorted.end());
  return sorted[sorted.size() / 2];
}

CProgram Timed(const char* name, std::function<void()> work) {
  return {name, [work = std::move(work)] { return TimeOf(work); }};
}

void Compare(const CDocument& document, std::vector<CProgram>& programs,
             const CRepetitions& repetitions) {
  Run(programs, repetitions);
  Print(document, programs, repetitions);
  if (const char* path = std::getenv("QVXML_BENCH_RESULTS")) {
    AppendResults(path, document, programs);
  }
}

}  // namespace bench
