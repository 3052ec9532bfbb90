// What every fuzz target starts from.

#ifndef FUZZ_FUZZ_TARGET_H_
#define FUZZ_FUZZ_TARGET_H_

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// Defined by each target. Only exceptions of the library's family may be caught inside; whatever
/// else escapes is a finding.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// Reports a broken promise that neither crashes nor throws.
[[noreturn]] inline void FuzzFailure(const std::string& what) {
  std::fprintf(stderr, "FAILURE: %s\n", what.c_str());
  std::abort();
}

#endif  // FUZZ_FUZZ_TARGET_H_
