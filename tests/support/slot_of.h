// The place of virtual operations in their class' table, which is part of a contract.

#ifndef TESTS_SUPPORT_SLOT_OF_H_
#define TESTS_SUPPORT_SLOT_OF_H_

#include <cstdint>
#include <cstring>

namespace qv_test {

/// Position of a virtual operation in the table, from the member pointer's representation (Itanium
/// C++ ABI): 1 + its offset.
template <class TMember>
std::uintptr_t SlotOf(TMember member) {
  std::uintptr_t word;
  static_assert(sizeof member >= sizeof word);
  std::memcpy(&word, &member, sizeof word);
  return (word - 1) / sizeof(void*);
}

}  // namespace qv_test

#endif  // TESTS_SUPPORT_SLOT_OF_H_
