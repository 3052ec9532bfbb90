// The comparison operators of a class, over every pair of some values.

#ifndef TESTS_SUPPORT_EXPECT_ORDERED_H_
#define TESTS_SUPPORT_EXPECT_ORDERED_H_

#include <vector>

#include <gtest/gtest.h>

namespace qv_test {

template <class TValue>
void ExpectOrdered(const std::vector<TValue>& ascending) {
  for (std::size_t a = 0; a < ascending.size(); ++a) {
    for (std::size_t b = 0; b < ascending.size(); ++b) {
      const TValue &x = ascending[a], &y = ascending[b];
      const std::vector<bool> expected = {a<b, a> b, a <= b, a >= b, a == b, a != b};
      EXPECT_EQ((std::vector<bool>{x<y, x> y, x <= y, x >= y, x == y, x != y}), expected)
          << "at " << a << " and " << b;
    }
  }
}

}  // namespace qv_test

#endif  // TESTS_SUPPORT_EXPECT_ORDERED_H_
