#include "tests/trust/faulty_files.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constinit bool g_isFaulty = false;
constinit qv_test::FileFaults g_faults;
constinit bool g_wasInterrupted = false;

bool IsInterrupted() {
  if (!g_isFaulty || !g_faults.isInterrupted) return false;
  g_wasInterrupted = !g_wasInterrupted;
  if (g_wasInterrupted) errno = EINTR;
  return g_wasInterrupted;
}

int Fail(int reason) {
  errno = reason;
  return -1;
}

size_t PieceOf(size_t length) {
  return g_isFaulty && g_faults.maxPiece != 0 ? std::min<size_t>(length, g_faults.maxPiece)
                                              : length;
}

}  // namespace

// In place of the C library's, which the shared library finds first.
extern "C" {

int open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    mode = static_cast<mode_t>(va_arg(arguments, int));
    va_end(arguments);
  }
  if (IsInterrupted()) return -1;
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

ssize_t read(int descriptor, void* bytes, size_t length) {
  if (IsInterrupted()) return -1;
  if (g_isFaulty && g_faults.readError != 0) return Fail(g_faults.readError);
  return syscall(SYS_read, descriptor, bytes, PieceOf(length));
}

ssize_t write(int descriptor, const void* bytes, size_t length) {
  if (IsInterrupted()) return -1;
  size_t piece = PieceOf(length);
  if (g_isFaulty && g_faults.diskSpace >= 0) {
    if (g_faults.diskSpace == 0) return Fail(ENOSPC);
    piece = std::min(piece, static_cast<size_t>(g_faults.diskSpace));
    g_faults.diskSpace -= static_cast<long>(piece);
  }
  return syscall(SYS_write, descriptor, bytes, piece);
}

int close(int descriptor) {
  const int result = static_cast<int>(syscall(SYS_close, descriptor));
  return g_isFaulty && g_faults.closeError != 0 ? Fail(g_faults.closeError) : result;
}

int rename(const char* from, const char* to) noexcept {
  if (g_isFaulty && g_faults.renameError != 0) return Fail(g_faults.renameError);
  return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

}  // extern "C"

namespace qv_test {

FileFaultScope::FileFaultScope(const FileFaults& faults) {
  g_faults = faults;
  g_wasInterrupted = false;
  g_isFaulty = true;
}

FileFaultScope::~FileFaultScope() { g_isFaulty = false; }

}  // namespace qv_test
