#include "qvxml/support/instance_monitor.h"

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

using namespace QvXmlLib16;

namespace {

class CZebra : private TInstanceCounted<CZebra> {
 private:
  friend class TInstanceCounted<CZebra>;
  static CInstanceCounter s_instances;
};
constinit CInstanceCounter CZebra::s_instances("test.CZebra");

class CAnimal : private TInstanceCounted<CAnimal> {
 private:
  friend class TInstanceCounted<CAnimal>;
  static CInstanceCounter s_instances;
};
constinit CInstanceCounter CAnimal::s_instances("test.CAnimal");

class CHorse : public CAnimal, private TInstanceCounted<CHorse> {
 private:
  friend class TInstanceCounted<CHorse>;
  static CInstanceCounter s_instances;
};
constinit CInstanceCounter CHorse::s_instances("test.CHorse");

TEST(CInstanceMonitor, CountsCopiesButNotAssignments) {
  const long total = CInstanceMonitor::GetTotal();
  {
    CZebra zebra;
    CZebra copy(zebra);
    const CZebra moved(std::move(zebra));
    copy = moved;
    EXPECT_EQ(CInstanceMonitor::GetCount("test.CZebra"), 3);
    EXPECT_EQ(CInstanceMonitor::GetTotal(), total + 3);
  }
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CZebra"), 0);
  EXPECT_EQ(CInstanceMonitor::GetTotal(), total);
}

TEST(CInstanceMonitor, CountsAnObjectUnderItsBasesToo) {
  const CHorse horse;
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CHorse"), 1);
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CAnimal"), 1);
}

TEST(CInstanceMonitor, KnowsNoOtherNames) {
  EXPECT_EQ(CInstanceMonitor::GetCount(nullptr), 0);
  EXPECT_EQ(CInstanceMonitor::GetCount(""), 0);
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CUnicorn"), 0);
}

TEST(CInstanceMonitor, DumpsLiveClassesInOrderOfNames) {
  { const CAnimal listedButGone; }
  const CZebra zebras[2];
  const CHorse horse;
  std::string text = "Live:\n";
  CInstanceMonitor::Dump(text);
  // The library's own default context lives all the time.
  EXPECT_EQ(text,
            "Live:\nCNamespaceAliasMap: 1\nCSerializationContext: 1\n"
            "test.CAnimal: 1\ntest.CHorse: 1\ntest.CZebra: 2\n");
}

TEST(CInstanceMonitor, CountsOnManyThreads) {
  const CZebra kept;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int round = 0; round < 10000; ++round) {
        const CZebra zebra;
        const CHorse horse;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CZebra"), 1);
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CHorse"), 0);
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CAnimal"), 0);
}

}  // namespace
