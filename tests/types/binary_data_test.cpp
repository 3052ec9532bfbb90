#include "qvxml/types/binary_data.h"

#include <memory>
#include <random>
#include <thread>
#include <type_traits>
#include <vector>

#include "tests/support/qv_gtest.h"
#include <gtest/gtest.h>

#include "qvxml/types/base64.h"

using namespace QvXmlLib16;

namespace {

static_assert(std::is_nothrow_move_constructible_v<CBinaryData>);
static_assert(std::is_nothrow_move_assignable_v<CBinaryData>);

using Bytes = std::vector<unsigned char>;

CBinaryData Make(const Bytes& bytes) { return CBinaryData(bytes.data(), bytes.size()); }

Bytes BytesOf(const CBinaryData& data) {
  return Bytes(data.GetData(), data.GetData() + data.GetLength());
}

std::string TextOf(const CBinaryData& data) {
  return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

Bytes RandomBytes(size_t length, unsigned seed) {
  std::mt19937 random(seed);
  Bytes bytes(length);
  for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
  return bytes;
}

// One character at a time and straight from RFC 4648, to check the tables against.
std::string SlowBase64(const Bytes& bytes) {
  const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (size_t bit = 0; bit < bytes.size() * 8; bit += 6) {
    int value = 0;
    for (size_t i = bit; i < bit + 6; ++i) {
      value = value * 2 + (i / 8 < bytes.size() ? bytes[i / 8] >> (7 - i % 8) & 1 : 0);
    }
    text += alphabet[static_cast<size_t>(value)];
  }
  while (text.size() % 4 != 0) text += '=';
  return text;
}

TEST(CBinaryData, HasOneEmptyState) {
  unsigned char byte = 'x';
  std::vector<CBinaryData> empties(10);
  empties[1] = CBinaryData("");
  empties[2] = CBinaryData(static_cast<const char*>(nullptr));
  empties[3] = CBinaryData(&byte, 0, false);
  empties[4] = CBinaryData(nullptr, 5, false);
  empties[5] = CBinaryData(nullptr, 5, true);
  empties[6] = CBinaryData(new unsigned char[1], 0, true);
  for (CBinaryData& data : empties) {
    data.Append("");
    data.Append(std::string());
    data.Append(static_cast<const char*>(nullptr));
    data.Append(nullptr, 7);
    data.Append(CBinaryData());
    EXPECT_EQ(data.GetData(), nullptr);
    EXPECT_EQ(data.GetLength(), 0u);
    EXPECT_EQ(data, CBinaryData());
    EXPECT_NE(CBinaryData("x"), data);
    EXPECT_EQ(data.GetAsHexString() + data.GetAsBase64(), "");
    EXPECT_EQ(data.ReleaseData(), nullptr);
    EXPECT_QV_THROW(data[0], CQvException, "Index Out of range [0]");
    EXPECT_QV_THROW(std::as_const(data)[0], CQvException, "Index Out of range [0]");
    data.Append('x');
    data.SetBuffer(&byte, 0);
    EXPECT_EQ(data.GetData(), nullptr);
  }
}

TEST(CBinaryData, AppendsEveryForm) {
  const unsigned char bytes[] = {0, 0xFF, 'b'};
  CBinaryData data;
  data.Append(bytes, 3);
  data.Append('\xE9');
  data.Append(static_cast<unsigned char>(0));
  data.Append("c\0d");
  data.Append(std::string("e\0f", 3));
  data.Append(CBinaryData("g"));
  EXPECT_EQ(data.GetAsHexString(), "00FF62E9006365006667");
}

TEST(CBinaryData, ChangesOnlyTheCopyThatIsChanged) {
  const long values = CInstanceMonitor::GetCount("CBinaryData");
  const long holders = CInstanceMonitor::GetCount("CDataHolder");
  const CBinaryData original("abc");
  CBinaryData copy(original);
  EXPECT_EQ(CInstanceMonitor::GetCount("CBinaryData"), values + 2);
  EXPECT_EQ(CInstanceMonitor::GetCount("CDataHolder"), holders + 1);
  EXPECT_EQ(copy.GetData(), original.GetData());
  copy.Append("d");
  EXPECT_EQ(TextOf(copy), "abcd");

  copy = original;
  EXPECT_EQ(copy.GetData(), original.GetData());
  *copy[1] = 'X';
  EXPECT_EQ(TextOf(copy), "aXc");

  copy = original;
  std::unique_ptr<unsigned char[]> released(copy.ReleaseData());
  EXPECT_NE(released.get(), original.GetData());
  EXPECT_EQ(std::string(released.get(), released.get() + 3), "abc");
  EXPECT_EQ(copy, CBinaryData());

  EXPECT_EQ(TextOf(original), "abc");
  EXPECT_EQ(original, CBinaryData("abc"));
  EXPECT_NE(original, CBinaryData("ab"));
  EXPECT_NE(Make({'a', 0, 'b'}), Make({'a', 0, 'c'}));
}

TEST(CBinaryData, AssignsAndMoves) {
  CBinaryData data("abc");
  const unsigned char* block = data.GetData();
  CBinaryData& self = data;
  data = self;
  data = std::move(self);
  EXPECT_EQ(data.GetData(), block);

  auto* buffer = new unsigned char[1]{'a'};
  std::unique_ptr<unsigned char[]> released(CBinaryData(buffer, 1, true).ReleaseData());
  EXPECT_EQ(released.get(), buffer);

  CBinaryData moved(std::move(data));
  EXPECT_EQ(data, CBinaryData());
  data.Append("again");
  data = std::move(moved);
  EXPECT_EQ(data.GetData(), block);
  EXPECT_EQ(moved, CBinaryData());
}

TEST(CBinaryData, AppendsItsOwnBytes) {
  const Bytes start = RandomBytes(5000, 1);
  for (const bool isShared : {false, true}) {
    SCOPED_TRACE(isShared);
    CBinaryData data = Make(start);
    Bytes expected = start;
    for (int round = 0; round < 4; ++round) {
      CBinaryData other;
      if (isShared) other = data;
      data.Append(data);
      const Bytes once = expected;
      expected.insert(expected.end(), once.begin(), once.end());
      if (isShared) other = data;
      data.Append(data.GetData() + 1, 4000);
      expected.insert(expected.end(), once.begin() + 1, once.begin() + 4001);
      EXPECT_EQ(BytesOf(data), expected);
    }
    data.SetBuffer(data.GetData() + 2, 3);
    EXPECT_EQ(BytesOf(data), Bytes(start.begin() + 2, start.begin() + 5));
  }
}

TEST(CBinaryData, ChecksTheIndex) {
  CBinaryData data("abc");
  const CBinaryData& constData = data;
  EXPECT_EQ(*constData[2], 'c');
  EXPECT_EQ(constData[3], constData.GetData() + 3);
  EXPECT_EQ(data[3], data.GetData() + 3);
  EXPECT_QV_THROW(constData[4], CQvException, "Index Out of range [4]");
  EXPECT_QV_THROW(data[4], CQvException, "Index Out of range [4]");
  EXPECT_QV_THROW(data[5000000000], CQvException, "Index Out of range [5000000000]");
  EXPECT_QV_THROW(data[static_cast<unsigned long>(-1)], CQvException, "Index Out of range [-1]");
}

TEST(CBinaryData, ReadsAndWritesHex) {
  Bytes all;
  std::string digits;
  for (unsigned byte = 0; byte < 256; ++byte) {
    all.push_back(static_cast<unsigned char>(byte));
    char pair[3];
    std::snprintf(pair, sizeof pair, "%02X", byte);
    digits += pair;
  }
  CBinaryData data;
  data.SetAsHexString(digits.c_str());
  EXPECT_EQ(BytesOf(data), all);
  EXPECT_EQ(data.GetAsHexString(), digits);
  data.SetAsHexString("00ab");
  EXPECT_EQ(data, Make({0x00, 0xAB}));
  for (const char* empty : {static_cast<const char*>(nullptr), ""}) {
    data.SetAsHexString(empty);
    EXPECT_EQ(data, CBinaryData());
    data = CBinaryData("x");
  }
}

TEST(CBinaryData, RefusesBadHexAndKeepsItsBytes) {
  const std::string bad = "Invalid char in hex string [";
  const std::pair<const char*, std::string> rows[] = {
      // clang-format off
      {"ABC", "Invalid length in hex string"}, {"0G", bad + "G]"}, {"G0", bad + "G]"},
      {"00/0", bad + "/]"}, {"00:0", bad + ":]"}, {"00@0", bad + "@]"}, {"00`0", bad + "`]"},
      {"00g0", bad + "g]"}, {"0\xC3", bad + "\xC3]"},
      // clang-format on
  };
  for (const auto& row : rows) {
    CBinaryData data("kept");
    EXPECT_QV_THROW(data.SetAsHexString(row.first), CQvException, row.second);
    EXPECT_EQ(TextOf(data), "kept");
    unsigned char* out = data[0];
    EXPECT_THROW(CBinaryData::ConvertToHexData(row.first, &out), CQvException);
    EXPECT_EQ(out, nullptr);
  }
}

TEST(CBase64, AgreesWithASlowCodecAtEveryLength) {
  for (size_t length = 1; length < 200; ++length) {
    SCOPED_TRACE(length);
    const Bytes bytes = RandomBytes(length, static_cast<unsigned>(length));
    const std::string text = SlowBase64(bytes);
    ASSERT_EQ(CBase64::Encode(bytes.data(), length), text);
    std::string broken;
    for (size_t i = 0; i < text.size(); ++i) {
      if (i % (length % 11 + 1) == 0) broken += "\r\n";
      broken += text[i];
    }
    // Exactly sized, so that the sanitizer sees a byte too many.
    for (const std::string& form : {text, text.substr(0, text.find('=')), broken}) {
      std::unique_ptr<unsigned char[]> out(
          new unsigned char[CBase64::GetDecodedCapacity(form.size())]);
      ASSERT_EQ(CBase64::Decode(form.c_str(), out.get()), length);
      ASSERT_EQ(Bytes(out.get(), out.get() + length), bytes);
    }
  }
}

TEST(CBase64, IsLenientWithPaddingAndWhitespace) {
  EXPECT_EQ(CBase64::Encode(nullptr, 5), "");
  const std::pair<const char*, const char*> rows[] = {
      // clang-format off
      {"Zg", "f"}, {"Zg=", "f"}, {"Zg===", "f"}, {"Zm8", "fo"}, {"Zm9v=", "foo"},
      {" Z g = = ", "f"}, {"\tZm\r\n9v\n", "foo"}, {"Zm9vZg = =\n", "foof"}, {"Zh==", "f"},
      {"", ""}, {" \t\r\n", ""}, {"====", ""}, {"Z\nm9vZm9vZm9v\n", "foofoofoo"},
      // clang-format on
  };
  for (const auto& row : rows) {
    CBinaryData data("old");
    data.SetAsBase64(row.first);
    EXPECT_EQ(TextOf(data), row.second);
  }
  CBinaryData data("old");
  data.SetAsBase64(nullptr);
  EXPECT_EQ(data, CBinaryData());
}

TEST(CBase64, RefusesInvalidCharacters) {
  const std::string prefix = "Invalid char in base64 string [";
  const std::pair<std::string, std::string> rows[] = {
      // clang-format off
      {"Z", "Z"}, {"Zm9vQ", "Q"}, {"Zm9v Q==", "Q"}, {"Zm9-", "-"}, {"Zm9_Zm9v", "_"},
      {"Z*9vZm9v", "*"}, {"Zm9vZ\vm9v", "\v"}, {"Zm9v\x80m9v", "\x80"}, {"\xFFm9v", "\xFF"},
      {"Zg==Zg==", "Z"}, {"Zg=!", "!"}, {std::string("Zm9\0", 4), std::string(1, '\0')},
      // clang-format on
  };
  for (const auto& row : rows) {
    unsigned char out[8];
    EXPECT_QV_THROW(CBase64::Decode(row.first.data(), row.first.size(), out), CQvException,
                    prefix + row.second + "]");
  }
  CBinaryData data("kept");
  EXPECT_THROW(data.SetAsBase64("Zg=!"), CQvException);
  EXPECT_EQ(TextOf(data), "kept");
}

TEST(CDataHolder, KeepsTheCapacityRules) {
  using Holder = CBinaryData::CDataHolder;
  const Bytes bytes = RandomBytes(9000, 3);
  Holder* holder = new Holder(bytes.data(), 10);
  EXPECT_EQ(holder->GetCapacity(), 8192u);
  holder->Append(bytes.data(), 8182);
  EXPECT_EQ(holder->GetCapacity(), 8192u);
  holder->Append(bytes.data(), 1);
  EXPECT_EQ(holder->GetCapacity(), 2u * 8193);
  EXPECT_EQ(holder->GetLength(), 8193u);
  holder->Release(false);

  holder = new Holder(bytes.data(), 5000);
  EXPECT_EQ(holder->GetCapacity(), 10000u);
  holder->Release(false);

  holder = new Holder(new unsigned char[3]{1, 2, 3}, 3, true);
  EXPECT_EQ(holder->GetCapacity(), 3u);
  holder->Append(holder->GetData(), 2);
  EXPECT_EQ(holder->GetCapacity(), 10u);
  EXPECT_EQ(Bytes(holder->GetData(), holder->GetData() + 5), (Bytes{1, 2, 3, 1, 2}));
  holder->Release(false);
}

TEST(CDataHolder, ProtectsTheOtherReferences) {
  using Holder = CBinaryData::CDataHolder;
  const unsigned char bytes[] = {1, 2};
  const long before = CInstanceMonitor::GetCount("CDataHolder");
  Holder* holder = new Holder(bytes, 2);
  EXPECT_EQ(holder->GetExclusiveCopy(), holder);
  holder->AddRef();
  holder->AddRef();
  EXPECT_QV_THROW(holder->Append(bytes, 1), CQvException, "Failed to append. [RefCount=3]");
  EXPECT_QV_THROW(holder->Release(true), CQvException, "Failed to release data. [RefCount=2]");
  Holder* copy = holder->GetExclusiveCopy();
  EXPECT_NE(copy, holder);
  EXPECT_EQ(holder->GetRefCount(), 1);
  EXPECT_EQ(copy->GetCapacity(), 8192u);
  EXPECT_EQ(CInstanceMonitor::GetCount("CDataHolder"), before + 2);
  copy->Release(false);
  std::unique_ptr<unsigned char[]> kept(holder->GetData());
  holder->Release(true);
  EXPECT_EQ(kept[1], 2);
  EXPECT_EQ(CInstanceMonitor::GetCount("CDataHolder"), before);
}

TEST(CBinaryData, SharesABlockAcrossThreads) {
  const CBinaryData shared("start");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([copy = shared]() mutable {
      for (int round = 0; round < 2000; ++round) {
        CBinaryData mine(copy);
        mine.Append("x");
        *mine[0] = 'S';
        ASSERT_EQ(TextOf(mine), "Startx");
        CBinaryData other(std::move(copy));
        copy = other;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(TextOf(shared), "start");
}

}  // namespace
