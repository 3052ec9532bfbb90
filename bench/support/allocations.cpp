#include "bench/support/allocations.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>

#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);
void __libc_free(void*);
}

namespace {

bool IsCounting = false;
bool AllowsFreeAdvice = true;
long Allocations = 0;
long LiveBytes = 0;
long PeakBytes = 0;

void Count(size_t bytes) {
  ++Allocations;
  LiveBytes += static_cast<long>(bytes);
  PeakBytes = std::max(PeakBytes, LiveBytes);
}

void* Counted(void* memory) {
  if (IsCounting && memory != nullptr) Count(malloc_usable_size(memory));
  return memory;
}

void Uncounted(void* memory) {
  if (IsCounting && memory != nullptr) LiveBytes -= static_cast<long>(malloc_usable_size(memory));
}

}  // namespace

extern "C" {
void* malloc(size_t size) { return Counted(__libc_malloc(size)); }
void* calloc(size_t count, size_t size) { return Counted(__libc_calloc(count, size)); }
void* realloc(void* memory, size_t size) {
  Uncounted(memory);
  return Counted(__libc_realloc(memory, size));
}
void* memalign(size_t alignment, size_t size) { return Counted(__libc_memalign(alignment, size)); }
void* aligned_alloc(size_t alignment, size_t size) { return memalign(alignment, size); }
int posix_memalign(void** memory, size_t alignment, size_t size) {
  *memory = memalign(alignment, size);
  return *memory != nullptr ? 0 : ENOMEM;
}
void free(void* memory) {
  Uncounted(memory);
  __libc_free(memory);
}
// What a library maps by itself is memory of its own too; the C library's own mappings, those of
// large blocks, do not come here.
void* mmap(void* place, size_t size, int protection, int flags, int file, off_t offset) noexcept {
  void* const memory =
      reinterpret_cast<void*>(syscall(SYS_mmap, place, size, protection, flags, file, offset));
  if (IsCounting && memory != MAP_FAILED && (flags & MAP_ANONYMOUS) != 0) Count(size);
  return memory;
}
int madvise(void* memory, size_t size, int advice) noexcept {
  if (advice == MADV_FREE && !AllowsFreeAdvice) {
    errno = EINVAL;
    return -1;
  }
  return static_cast<int>(syscall(SYS_madvise, memory, size, advice));
}
int munmap(void* memory, size_t size) noexcept {
  const int result = static_cast<int>(syscall(SYS_munmap, memory, size));
  if (IsCounting && result == 0) LiveBytes -= static_cast<long>(size);
  return result;
}
}

namespace bench {

CAllocationCount::CAllocationCount() {
  ::Allocations = ::LiveBytes = ::PeakBytes = 0;
  IsCounting = true;
}

CAllocationCount::~CAllocationCount() { IsCounting = false; }

long CAllocationCount::Allocations() const { return ::Allocations; }
long CAllocationCount::LiveBytes() const { return ::LiveBytes; }
long CAllocationCount::PeakBytes() const { return ::PeakBytes; }

void AllowFreeAdvice(bool allows) { AllowsFreeAdvice = allows; }

}  // namespace bench
