// Whether tests run in their full length, and what that takes.

#ifndef TESTS_SIZES_LONG_FORM_H_
#define TESTS_SIZES_LONG_FORM_H_

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

namespace size_test {

/// The environment variable QVXML_SIZES=full asks for it.
inline bool IsLongForm() {
  const char* const form = std::getenv("QVXML_SIZES");
  return form != nullptr && std::strcmp(form, "full") == 0;
}

/// Bytes in the given line of /proc/meminfo or /proc/self/status; 0 when there is none.
inline size_t ReadProcBytes(const char* path, const std::string& name) {
  std::ifstream lines(path);
  for (std::string word; lines >> word;) {
    size_t kilobytes = 0;
    if (word == name + ":" && lines >> kilobytes) return kilobytes * 1024;
  }
  return 0;
}

inline bool HasFreeMemory(size_t bytes) {
  return ReadProcBytes("/proc/meminfo", "MemAvailable") > bytes;
}

}  // namespace size_test

#endif  // TESTS_SIZES_LONG_FORM_H_
