#include "qvxml/support/md5.h"

#include <algorithm>
#include <string>
#include <utility>

#include <gtest/gtest.h>

using QvXmlLib16::CMD5;

namespace {

TEST(CMD5, GivesTheDigestsOfRfc1321) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "d41d8cd98f00b204e9800998ecf8427e"},
      {"a", "0cc175b9c0f1b6a831c399e269772661"},
      {"abc", "900150983cd24fb0d6963f7d28e17f72"},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
       "d174ab98d277d9f5a5611c2c9f419d9f"},
      {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
       "57edf4a22be3c955ac49da2e2107b67a"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(CMD5::GetHexDigest(row.first), row.second);
  }
  EXPECT_EQ(CMD5::GetHexDigest(nullptr, 9), rows[0].second);
  EXPECT_EQ(CMD5::GetHexDigest("abcdef", 3), rows[2].second);
}

TEST(CMD5, TakesBytesInPieces) {
  // Across the block size of 64 bytes and its padding.
  for (const size_t pieceLength : {1u, 7u, 55u, 56u, 63u, 64u, 65u, 1000u}) {
    SCOPED_TRACE(pieceLength);
    CMD5 digest;
    for (size_t left = 1000; left > 0;) {
      const size_t length = std::min(pieceLength, left);
      digest.Update(std::string(length, 'a'));
      left -= length;
    }
    EXPECT_EQ(digest.GetHexDigest(), "cabe45dcc9ae5b66ba86600cca6b8ba8");
  }
}

TEST(CMD5, GoesOnAfterADigestWasTaken) {
  CMD5 digest;
  digest.Update("a");
  const CMD5 copy(digest);
  EXPECT_EQ(digest.GetDigest()[0], 0x0c);
  digest.Update("bc");
  EXPECT_EQ(digest.GetHexDigest(), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_EQ(copy.GetHexDigest(), "0cc175b9c0f1b6a831c399e269772661");
  digest.Reset();
  EXPECT_EQ(digest.GetHexDigest(), "d41d8cd98f00b204e9800998ecf8427e");
}

}  // namespace
