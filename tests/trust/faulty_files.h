// System calls on files that fail on command, for the program that links it.

#ifndef TESTS_TRUST_FAULTY_FILES_H_
#define TESTS_TRUST_FAULTY_FILES_H_

namespace qv_test {

/// What goes wrong. Only calls of the library and the test itself are concerned, not those that the
/// C library makes.
struct FileFaults {
  /// Every second call of open, read and write only says EINTR.
  bool isInterrupted = false;
  /// Most bytes that one read or write takes; 0 for any number.
  unsigned long maxPiece = 0;
  /// Bytes that fit on the disk: from then on write says ENOSPC. Below 0 for any number.
  long diskSpace = -1;
  /// What they say, after close has closed; 0 for nothing.
  int closeError = 0;
  int renameError = 0;
  int readError = 0;
};

/// While it lives, the faults of the process.
class FileFaultScope {
 public:
  explicit FileFaultScope(const FileFaults& faults);
  ~FileFaultScope();
  FileFaultScope(const FileFaultScope&) = delete;
  FileFaultScope& operator=(const FileFaultScope&) = delete;
};

}  // namespace qv_test

#endif  // TESTS_TRUST_FAULTY_FILES_H_
