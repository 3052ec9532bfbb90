#include "tests/trust/failing_allocator.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <new>

// What allocates in the end. Under the address sanitizer that is its own allocator, so that it goes
// on seeing every block. This file is built without sanitizers and without inline functions of
// others, as the first blocks are wanted before they are set up.
#ifdef QVXML_ADDRESS_SANITIZER
#define QVXML_REAL(name) __interceptor_##name
#else
#define QVXML_REAL(name) __libc_##name
#endif

extern "C" {
void* QVXML_REAL(malloc)(size_t size);
void* QVXML_REAL(calloc)(size_t count, size_t size);
void* QVXML_REAL(realloc)(void* block, size_t size);
void* QVXML_REAL(memalign)(size_t alignment, size_t size);
void QVXML_REAL(free)(void* block);
}

namespace {

constinit thread_local bool t_isArmed = false;
constinit thread_local bool t_hasFailed = false;
constinit thread_local bool t_failsForEver = false;
constinit thread_local long t_number = 0;
constinit thread_local long t_count = 0;
constinit long g_liveBlocks = 0;

bool IsShort() noexcept {
  if (!t_isArmed) return false;
  ++t_count;
  if (t_count != t_number && (!t_failsForEver || t_count < t_number)) return false;
  t_hasFailed = true;
  errno = ENOMEM;
  return true;
}

void* Count(void* block) noexcept {
  if (block != nullptr) __atomic_fetch_add(&g_liveBlocks, 1, __ATOMIC_RELAXED);
  return block;
}

}  // namespace

// The C family. The system's library and all others come here, as the program's symbols go first.
extern "C" {

void* malloc(size_t size) noexcept { return IsShort() ? nullptr : Count(QVXML_REAL(malloc)(size)); }

void* calloc(size_t count, size_t size) noexcept {
  return IsShort() ? nullptr : Count(QVXML_REAL(calloc)(count, size));
}

void free(void* block) noexcept {
  if (block == nullptr) return;
  __atomic_fetch_sub(&g_liveBlocks, 1, __ATOMIC_RELAXED);
  QVXML_REAL(free)(block);
}

void* realloc(void* block, size_t size) noexcept {
  if (block == nullptr) return malloc(size);
  if (size == 0) {
    free(block);
    return nullptr;
  }
  return IsShort() ? nullptr : QVXML_REAL(realloc)(block, size);
}

void* memalign(size_t alignment, size_t size) noexcept {
  return IsShort() ? nullptr : Count(QVXML_REAL(memalign)(alignment, size));
}

void* aligned_alloc(size_t alignment, size_t size) noexcept { return memalign(alignment, size); }

int posix_memalign(void** result, size_t alignment, size_t size) noexcept {
  void* const block = memalign(alignment, size);
  if (block == nullptr) return ENOMEM;
  *result = block;
  return 0;
}

}  // extern "C"

// The C++ family. No test sets a new handler.

void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return malloc(size != 0 ? size : 1);
}
void* operator new(size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return memalign(static_cast<size_t>(alignment), size != 0 ? size : 1);
}
void* operator new(size_t size) {
  void* const block = operator new(size, std::nothrow);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void* operator new(size_t size, std::align_val_t alignment) {
  void* const block = operator new(size, alignment, std::nothrow);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void* operator new[](size_t size) { return operator new(size); }
void* operator new[](size_t size, std::align_val_t alignment) {
  return operator new(size, alignment);
}
void* operator new[](size_t size, const std::nothrow_t& nothrow) noexcept {
  return operator new(size, nothrow);
}
void* operator new[](size_t size, std::align_val_t alignment,
                     const std::nothrow_t& nothrow) noexcept {
  return operator new(size, alignment, nothrow);
}

void operator delete(void* block) noexcept { free(block); }
void operator delete[](void* block) noexcept { free(block); }
void operator delete(void* block, size_t) noexcept { free(block); }
void operator delete[](void* block, size_t) noexcept { free(block); }
void operator delete(void* block, std::align_val_t) noexcept { free(block); }
void operator delete[](void* block, std::align_val_t) noexcept { free(block); }
void operator delete(void* block, size_t, std::align_val_t) noexcept { free(block); }
void operator delete[](void* block, size_t, std::align_val_t) noexcept { free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { free(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept { free(block); }
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  free(block);
}

namespace qv_test {

void FailingAllocator::Arm(long number, bool forEver) noexcept {
  t_number = number;
  t_failsForEver = forEver;
  t_count = 0;
  t_hasFailed = false;
  t_isArmed = true;
}

long FailingAllocator::Disarm() noexcept {
  t_isArmed = false;
  return t_count;
}

bool FailingAllocator::HasFailed() noexcept { return t_hasFailed; }

long FailingAllocator::CountLiveBlocks() noexcept {
#ifdef QVXML_ADDRESS_SANITIZER
  return 0;
#else
  return __atomic_load_n(&g_liveBlocks, __ATOMIC_RELAXED);
#endif
}

}  // namespace qv_test
