// A process in which the threads given by number do everything for the first time, all at once:
// metadata, registration, contexts, counters. Prints a digest of the results, which must not depend
// on how many threads there are; test_threads runs it many times.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/threads/at_once.h"
#include "tests/threads/sample_work.h"

#include "qvxml/support/md5.h"

using namespace QvXmlLib16;

int main(int argumentCount, char** arguments) {
  const size_t count = argumentCount > 1 ? std::strtoul(arguments[1], nullptr, 10) : 1;
  // Nothing of the library was used before, but for the contexts, which have to be shared.
  const thread_test::SharedContexts contexts;
  const size_t works = thread_test::CountWork();
  // Several threads do the same work, and each begins elsewhere, so that different classes are the
  // first of different threads.
  const size_t share = std::min(works, 4 * works / count + 1);
  std::vector<std::vector<std::string>> results(count);
  thread_test::RunAtOnce(count, [&](size_t thread) {
    RegisterGeneratedCode(16, LicenceKind_Evaluation);
    results[thread].resize(works);
    for (size_t i = 0; i < share; ++i) {
      const size_t work = (i + thread * works / count) % works;
      results[thread][work] = thread_test::DoWork(work, contexts);
    }
  });
  CMD5 digest;
  for (size_t work = 0; work < works; ++work) {
    const std::string* first = nullptr;
    for (const std::vector<std::string>& done : results) {
      if (done[work].empty()) continue;
      if (first == nullptr) first = &done[work];
      if (done[work] != *first) return std::puts("threads differ"), EXIT_FAILURE;
    }
    digest.Update(first != nullptr ? *first : std::string());
  }
  std::puts(digest.GetHexDigest().c_str());
  return EXIT_SUCCESS;
}
