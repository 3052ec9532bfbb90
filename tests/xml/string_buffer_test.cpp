#include "qvxml/xml/string_buffer.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace QvXmlLib16;

std::string TextOf(CStringBuffer& buffer) {
  return std::string(buffer.GetText(), buffer.GetLength());
}

// Every part size against every block size, so that each way of meeting a block's end occurs.
TEST(CStringBuffer, KeepsTextAcrossBlocks) {
  for (unsigned long size : {0ul, 1ul, 2ul, 3ul, 8ul, 17ul, 64ul}) {
    for (size_t partLength = 0; partLength <= 40; ++partLength) {
      SCOPED_TRACE(std::to_string(size) + " " + std::to_string(partLength));
      CStringBuffer buffer(size);
      std::string expected;
      for (char letter = 'a'; letter <= 'f'; ++letter) {
        const std::string part(partLength, letter);
        buffer.Append(part);
        buffer.Append('|');
        expected += part + "|";
        EXPECT_EQ(expected.size(), buffer.GetLength());
      }
      EXPECT_EQ(expected, buffer.GetString());
      EXPECT_EQ(expected, TextOf(buffer));
      EXPECT_EQ('\0', buffer.GetText()[expected.size()]);
      buffer.Append("tail");
      EXPECT_EQ(expected + "tail", TextOf(buffer));
    }
  }
}

TEST(CStringBuffer, DoesNotMoveTextWhileAppending) {
  CStringBuffer buffer;
  buffer.Append(std::string(4095, 'x'));
  const char* const text = buffer.GetText();
  buffer.Append(std::string(100000, 'y'));
  EXPECT_EQ(4095, std::count(text, text + 4095, 'x'));
  EXPECT_EQ('\0', text[4095]);
}

TEST(CStringBuffer, IsTerminatedAfterEachAppend) {
  CStringBuffer buffer;
  EXPECT_STREQ("", buffer.GetText());
  buffer.Append("abcdef");
  const char* const text = buffer.GetText();
  buffer.Empty();
  buffer.Append("xy");
  EXPECT_EQ(text, buffer.GetText()) << "a single block is kept";
  EXPECT_STREQ("xy", text);
}

TEST(CStringBuffer, ReplacesText) {
  CStringBuffer buffer(4);
  buffer.SetText("one two three");
  buffer.SetText(buffer.GetText() + 4);
  EXPECT_EQ("two three", TextOf(buffer));
  buffer.SetText(static_cast<const char*>(nullptr));
  buffer.Append(static_cast<const char*>(nullptr));
  EXPECT_EQ(0u, buffer.GetLength());
  EXPECT_EQ(1, CInstanceMonitor::GetCount("CStringBuffer"));
  buffer.Append(std::string("a\0b\0c\0", 6));
  EXPECT_EQ(std::string("a\0b\0c\0", 6), TextOf(buffer));
}

}  // namespace
