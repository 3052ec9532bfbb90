// The memory of large trees, which passes from one to the next.

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "qvxml/xml/memory_region_internal.h"

namespace {

using QvXmlLib16::detail::CMemoryRegion;

std::vector<CMemoryRegion> TakeAll(size_t count) {
  std::vector<CMemoryRegion> regions(count);
  for (CMemoryRegion& region : regions) {
    region = CMemoryRegion::Take();
    EXPECT_EQ(region.size, CMemoryRegion::kSize);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(region.begin) % CMemoryRegion::kSize, 0u);
  }
  return regions;
}

void ReleaseAll(std::vector<CMemoryRegion>& regions) {
  for (CMemoryRegion& region : regions) region.Release();
}

std::vector<char*> BeginsOf(const std::vector<CMemoryRegion>& regions) {
  std::vector<char*> begins;
  for (const CMemoryRegion& region : regions) begins.push_back(region.begin);
  std::sort(begins.begin(), begins.end());
  return begins;
}

TEST(CMemoryRegion, KeepsSomeForTheNextAndGivesBackTheRest) {
  std::vector<CMemoryRegion> first = TakeAll(CMemoryRegion::kMostKept + 3);
  const std::vector<char*> begins = BeginsOf(first);
  EXPECT_EQ(std::adjacent_find(begins.begin(), begins.end()), begins.end());
  ReleaseAll(first);

  std::vector<CMemoryRegion> second = TakeAll(CMemoryRegion::kMostKept);
  for (const CMemoryRegion& region : second) {
    EXPECT_TRUE(std::binary_search(begins.begin(), begins.end(), region.begin));
    std::memset(region.begin, 1, region.size);
  }
  ReleaseAll(second);
}

TEST(CMemoryRegion, KeepsNoneThatWasShortened) {
  std::vector<CMemoryRegion> all = TakeAll(CMemoryRegion::kMostKept);
  ASSERT_TRUE(all.back().Shrink(4096));
  EXPECT_EQ(all.back().size, 4096u);
  std::memset(all.back().begin, 1, 4096);
  ReleaseAll(all);
  all = TakeAll(CMemoryRegion::kMostKept);
  for (const CMemoryRegion& region : all) std::memset(region.begin, 1, region.size);
  ReleaseAll(all);
}

TEST(CMemoryRegion, IsNeverThatOfTwoThreads) {
  constexpr int kRounds = 2000;
  std::atomic<int> shared{0};
  const auto work = [&shared](char mark) {
    for (int round = 0; round < kRounds; ++round) {
      CMemoryRegion regions[] = {CMemoryRegion::Take(), CMemoryRegion::Take()};
      for (CMemoryRegion& region : regions) *region.begin = mark;
      std::this_thread::yield();
      for (CMemoryRegion& region : regions) {
        if (*region.begin != mark) ++shared;
        region.Release();
      }
    }
  };
  std::vector<std::thread> threads;
  for (const char mark : {'a', 'b', 'c', 'd'}) threads.emplace_back(work, mark);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(shared, 0);
}

}  // namespace
