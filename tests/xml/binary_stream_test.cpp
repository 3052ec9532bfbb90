#include "qvxml/xml/binary_stream.h"

#include <cstdio>
#include <string>
#include <vector>

#include "tests/support/qv_gtest.h"
#include "tests/support/temporary_folder.h"
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace QvXmlLib16;
using qv_test::ReadFile;
using qv_test::TemporaryFolder;
using qv_test::WriteFile;

void ToFile(const std::string& path, const std::string& content,
            XmlEncoding encoding = Encoding_UTF8) {
  CFileBinaryStream(path.c_str(), encoding, CBinaryData(content.c_str())).ToFile();
}

std::string FailureOf(const std::string& path) {
  return "Failed to write data to the file [" + path + "].";
}

struct stat StatusOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(0, lstat(path.c_str(), &status)) << path;
  return status;
}

TEST(CBinaryStream, CollectsBytes) {
  const CBinaryData start("ab");
  CBinaryStream stream(start);
  stream.Append(static_cast<unsigned char>('c'));
  stream.Append(CBinaryData("de"));
  const unsigned char bytes[] = {0, 0xFF};
  stream.Append(bytes, 2);
  EXPECT_EQ("616263646500FF", stream.GetBinaryStream().GetAsHexString());
  EXPECT_EQ("6162", start.GetAsHexString());
  EXPECT_EQ(1, CInstanceMonitor::GetCount("CBinaryStream"));
  const CFileBinaryStream file(nullptr, Encoding_UTF8);
  EXPECT_EQ(1, CInstanceMonitor::GetCount("CFileBinaryStream"));
}

TEST(CFileBinaryStream, WritesMarkAndBytes) {
  const TemporaryFolder folder;
  const std::string marked = std::string("\xFF\xFE") + "abc";
  const std::pair<XmlEncoding, std::string> rows[] = {{Encoding_Unspecified, "abc"},
                                                      {Encoding_UTF8, "abc"},
                                                      {Encoding_UTF16, marked},
                                                      {Encoding_UTF16_Unlabelled, marked}};
  for (const auto& row : rows) {
    ToFile(folder.PathOf("x"), "abc", row.first);
    EXPECT_EQ(row.second, ReadFile(folder.PathOf("x")));
  }
  CFileBinaryStream(folder.PathOf("empty").c_str(), Encoding_UTF8).ToFile();
  EXPECT_EQ("", ReadFile(folder.PathOf("empty")));
  EXPECT_EQ(2, folder.CountEntries());
}

TEST(CFileBinaryStream, KeepsPermissions) {
  const TemporaryFolder folder;
  const mode_t before = umask(027);
  ToFile(folder.PathOf("new"), "x");
  umask(before);
  EXPECT_EQ(0640u, StatusOf(folder.PathOf("new")).st_mode & 07777);
  ASSERT_EQ(0, chmod(folder.PathOf("new").c_str(), 0604));
  ToFile(folder.PathOf("new"), "y");
  EXPECT_EQ(0604u, StatusOf(folder.PathOf("new")).st_mode & 07777);
}

TEST(CFileBinaryStream, FollowsSymbolicLinks) {
  const TemporaryFolder folder;
  ASSERT_EQ(0, mkdir(folder.PathOf("sub").c_str(), 0777));
  WriteFile(folder.PathOf("sub/file"), "old");
  const struct {
    const char* link;
    std::string destination;
    const char* file;
  } rows[] = {{"relative", "sub/file", "sub/file"},
              {"absolute", folder.PathOf("sub/file"), "sub/file"},
              {"chain", "relative", "sub/file"},
              {"dangling", "sub/new", "sub/new"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.link);
    ASSERT_EQ(0, symlink(row.destination.c_str(), folder.PathOf(row.link).c_str()));
    ToFile(folder.PathOf(row.link), row.link);
    EXPECT_TRUE(S_ISLNK(StatusOf(folder.PathOf(row.link)).st_mode));
    EXPECT_FALSE(S_ISLNK(StatusOf(folder.PathOf(row.file)).st_mode));
    EXPECT_EQ(row.link, ReadFile(folder.PathOf(row.file)));
  }
  ASSERT_EQ(0, symlink("loop", folder.PathOf("loop").c_str()));
  EXPECT_QV_THROW(ToFile(folder.PathOf("loop"), "x"), CQvException,
                  FailureOf(folder.PathOf("loop")));
  EXPECT_QV_THROW(CFileBinaryStream(nullptr, Encoding_UTF8).ToFile(), CQvException, FailureOf(""));
}

TEST(CFileBinaryStream, KeepsTheNamesOfAFileTogether) {
  const TemporaryFolder folder;
  WriteFile(folder.PathOf("one"), "longer than the new");
  ASSERT_EQ(0, link(folder.PathOf("one").c_str(), folder.PathOf("other").c_str()));
  ToFile(folder.PathOf("one"), "new");
  EXPECT_EQ("new", ReadFile(folder.PathOf("other")));
}

// The name of a temporary file makes the longest possible path too long.
TEST(CFileBinaryStream, WritesToTheLongestPath) {
  constexpr size_t kLongest = 4095;
  const TemporaryFolder folder;
  std::string path = folder.PathOf("");
  while (path.size() + 2 < kLongest) path += "./";
  path.append(kLongest - path.size(), 'x');
  for (const char* content : {"new", "replaced"}) {
    ToFile(path, content);
    EXPECT_EQ(content, ReadFile(path));
  }
  EXPECT_QV_THROW(ToFile(path + "x", "x"), CQvException, FailureOf(path + "x"));
  EXPECT_EQ(1, folder.CountEntries());
}

TEST(CFileBinaryStream, WritesIntoWhatIsNoRegularFile) {
  const TemporaryFolder folder;
  const std::string path = folder.PathOf("fifo");
  ASSERT_EQ(0, mkfifo(path.c_str(), 0666));
  const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  ToFile(path, "through");
  char text[16] = {};
  EXPECT_EQ(7, read(reader, text, sizeof text));
  EXPECT_STREQ("through", text);
  close(reader);
  EXPECT_TRUE(S_ISFIFO(StatusOf(path).st_mode));

  // What a descriptor stands for is not replaced under it.
  const int descriptor = open(folder.PathOf("held").c_str(), O_RDWR | O_CREAT, 0666);
  ASSERT_GE(descriptor, 0);
  ToFile("/proc/self/fd/" + std::to_string(descriptor), "held");
  EXPECT_EQ(4, pread(descriptor, text, sizeof text, 0));
  close(descriptor);
}

}  // namespace
