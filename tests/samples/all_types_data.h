// Values of every type in every role, for the round trips of every format.

#ifndef TESTS_SAMPLES_ALL_TYPES_DATA_H_
#define TESTS_SAMPLES_ALL_TYPES_DATA_H_

#include "tests/samples/all_types.h"

namespace samples {

/// Sets every property of the object, mostly to the ends of its type's range.
void FillAllTypes(CAllTypes& object);
/// Expects, with GoogleTest, that the object holds what FillAllTypes set.
void CheckAllTypes(const CAllTypes& object);

}  // namespace samples

#endif  // TESTS_SAMPLES_ALL_TYPES_DATA_H_
