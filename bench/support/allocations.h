// Counts heap allocations of the whole process, those of the libraries too: a program that links
// this has malloc and its family, and mmap and munmap, replaced by counting ones, and madvise.

#ifndef BENCH_SUPPORT_ALLOCATIONS_H_
#define BENCH_SUPPORT_ALLOCATIONS_H_

namespace bench {

/// Counts from its construction on, until it is destroyed; one at a time, on one thread.
class CAllocationCount {
 public:
  CAllocationCount();
  ~CAllocationCount();
  CAllocationCount(const CAllocationCount&) = delete;
  CAllocationCount& operator=(const CAllocationCount&) = delete;

  long Allocations() const;
  /// Bytes of the blocks made since the construction less those of all freed since.
  long LiveBytes() const;
  /// The most that LiveBytes has been.
  long PeakBytes() const;
};

/// Whether memory may be advised as free (MADV_FREE), which is then kept for later without being
/// counted again. At first it may.
void AllowFreeAdvice(bool allows);

}  // namespace bench

#endif  // BENCH_SUPPORT_ALLOCATIONS_H_
