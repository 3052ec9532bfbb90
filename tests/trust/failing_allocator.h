// An allocator that runs out of memory on command, for the program that links it: every operator
// new, and malloc and its family, so that what the C libraries allocate counts too.

#ifndef TESTS_TRUST_FAILING_ALLOCATOR_H_
#define TESTS_TRUST_FAILING_ALLOCATOR_H_

namespace qv_test {

class FailingAllocator {
 public:
  FailingAllocator() = delete;

  /// From now on the allocation of the calling thread with that number, from 1, fails; `forEver`
  /// lets all that follow it fail too. A number that is never reached only counts.
  static void Arm(long number, bool forEver) noexcept;
  /// Ends that and returns how many allocations there were since.
  static long Disarm() noexcept;
  /// Whether an allocation has failed since the last Arm.
  static bool HasFailed() noexcept;
  /// Blocks of the process that were allocated and not freed. Always 0 under the address sanitizer,
  /// which has functions that allocate past this one, and looks for leaks itself.
  static long CountLiveBlocks() noexcept;
};

}  // namespace qv_test

#endif  // TESTS_TRUST_FAILING_ALLOCATOR_H_
