#include "qvxml/support/instance_monitor.h"

#include <atomic>
#include <memory>
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

TEST(CInstanceMonitor, CountsObjectsThatPassFromThreadToThread) {
  std::vector<std::unique_ptr<CZebra>> zebras;
  std::thread([&zebras] {
    for (int i = 0; i < 100; ++i) zebras.push_back(std::make_unique<CZebra>());
  }).join();
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CZebra"), 100);
  std::thread([&zebras] { zebras.resize(60); }).join();
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CZebra"), 60);
}

TEST(CInstanceMonitor, CountsObjectsThatEndWithTheirThread) {
  std::thread([] {
    // Known to the thread before its first object, so destroyed when it counts no more on its own.
    static thread_local std::unique_ptr<CHorse> late;
    static thread_local const CHorse early;
    late = std::make_unique<CHorse>(early);
    EXPECT_EQ(CInstanceMonitor::GetCount("test.CHorse"), 2);
  }).join();
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CHorse"), 0);
}

TEST(CInstanceMonitor, IsReadWhileOtherThreadsCount) {
  std::atomic<bool> isOver{false};
  std::vector<std::thread> threads;
  for (int i = 0; i < 2; ++i) {
    threads.emplace_back([&isOver] {
      while (!isOver) {
        std::thread([] { const CZebra zebra; }).join();
      }
    });
  }
  for (int round = 0; round < 1000; ++round) {
    const long count = CInstanceMonitor::GetCount("test.CZebra");
    EXPECT_TRUE(count >= 0 && count <= 2) << count;
  }
  isOver = true;
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(CInstanceMonitor::GetCount("test.CZebra"), 0);
}

// Last, since the classes stay known.
TEST(CInstanceMonitor, CountsAnyNumberOfClasses) {
  constexpr int kClasses = 1000;
  const auto nameOf = [](int number) { return "test." + std::to_string(number); };
  const long total = CInstanceMonitor::GetTotal();
  {
    std::vector<CNamedInstance> instances;
    instances.reserve(2 * kClasses);
    for (int i = 0; i < kClasses; ++i) instances.emplace_back(nameOf(i).c_str());
    for (int i = 0; i < kClasses; ++i) instances.emplace_back(instances[static_cast<size_t>(i)]);
    EXPECT_EQ(CInstanceMonitor::GetTotal(), total + 2 * kClasses);
    for (const int number : {0, kClasses / 2, kClasses - 1}) {
      EXPECT_EQ(CInstanceMonitor::GetCount(nameOf(number).c_str()), 2);
    }
  }
  EXPECT_EQ(CInstanceMonitor::GetTotal(), total);
}

}  // namespace
