#include <array>
#include <atomic>
#include <cstdint>

#include <sys/mman.h>

#include "qvxml/xml/memory_region_internal.h"

// Of the leak sanitizer, where the program has it: texts in regions own memory.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizer chose the names.
__attribute__((weak)) void __lsan_register_root_region(const void* begin, size_t size);
__attribute__((weak)) void __lsan_unregister_root_region(const void* begin, size_t size);
// NOLINTEND(bugprone-reserved-identifier)
}

namespace QvXmlLib16::detail {

namespace {

// Null where there is none. Never destroyed, as trees may be destroyed after main ends.
constinit std::array<std::atomic<char*>, CMemoryRegion::kMostKept> s_kept{};

char* TakeKept() noexcept {
  for (std::atomic<char*>& place : s_kept) {
    // Looked at first, as a look leaves the place in the caches of other threads.
    if (place.load(std::memory_order_relaxed) == nullptr) continue;
    if (char* const region = place.exchange(nullptr, std::memory_order_acquire)) return region;
  }
  return nullptr;
}

// Returns whether there was a place.
bool Keep(char* region) noexcept {
  for (std::atomic<char*>& place : s_kept) {
    if (place.load(std::memory_order_relaxed) != nullptr) continue;
    char* none = nullptr;
    if (place.compare_exchange_strong(none, region, std::memory_order_release)) return true;
  }
  return false;
}

char* Map(size_t size) noexcept {
  void* const memory =
      mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return memory != MAP_FAILED ? static_cast<char*>(memory) : nullptr;
}

// Memory aligned to its size, a power of two, or null.
char* MapAligned(size_t size) noexcept {
  const auto beyond = [size](const char* memory) {
    return reinterpret_cast<std::uintptr_t>(memory) & (size - 1);
  };
  char* region = Map(size);
  if (region != nullptr && beyond(region) != 0) {
    munmap(region, size);
    region = Map(2 * size);
    if (region == nullptr) return nullptr;
    const size_t unused = (size - beyond(region)) & (size - 1);
    if (unused != 0) munmap(region, unused);
    region += unused;
    munmap(region + size, size - unused);
  }
  // Only a wish: without it, or where it is refused, memory comes page by page.
  if (region != nullptr) madvise(region, size, MADV_HUGEPAGE);
  return region;
}

void NoteForLeaks(const CMemoryRegion& region) noexcept {
  if (__lsan_register_root_region != nullptr) {
    __lsan_register_root_region(region.begin, region.size);
  }
}

void ForgetForLeaks(const CMemoryRegion& region) noexcept {
  if (__lsan_unregister_root_region != nullptr) {
    __lsan_unregister_root_region(region.begin, region.size);
  }
}

}  // namespace

CMemoryRegion CMemoryRegion::Take() noexcept {
  char* begin = TakeKept();
  if (begin == nullptr) begin = MapAligned(kSize);
  if (begin == nullptr) return {};
  const CMemoryRegion region{begin, kSize};
  NoteForLeaks(region);
  return region;
}

bool CMemoryRegion::Shrink(size_t used) noexcept {
  if (munmap(begin + used, size - used) != 0) return false;
  ForgetForLeaks(*this);
  size = used;
  NoteForLeaks(*this);
  return true;
}

void CMemoryRegion::Release() noexcept {
  ForgetForLeaks(*this);
  // Advised before another thread may take and fill it. A system that cannot take it back when it
  // is short of memory gets it now.
  if (size == kSize && madvise(begin, size, MADV_FREE) == 0 && Keep(begin)) return;
  munmap(begin, size);
}

}  // namespace QvXmlLib16::detail
