// Files that cannot be written or read, wholly or at all, through every entry point that takes a
// path.

#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "tests/samples/tree.h"
#include "tests/support/qv_gtest.h"
#include "tests/support/temporary_folder.h"
#include "tests/trust/faulty_files.h"
#include "tests/trust/formats.h"
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include "qvxml/qvxml.h"

using namespace samples;
using namespace qv_test;

namespace {

// Fails unless all descriptors are given back.
class Files : public ::testing::Test {
 protected:
  void SetUp() override {
    // About 200 KB, so that no buffer holds it, and 20 KB compressed.
    for (long i = 0; i < 3000; ++i) {
      CNode& node = m_tree->GetNode().AddNew();
      node.SetId(i * 7919 % 10007);
      node.SetLabel("label " + std::to_string(i * 104729 % 1000003));
    }
    m_tree->SetId(0);
    m_expected = m_tree->ToXml();
    m_descriptors = CountDescriptors();
  }
  void TearDown() override { EXPECT_EQ(CountDescriptors(), m_descriptors); }

  static long CountDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                         std::filesystem::directory_iterator());
  }

  void Write(const Format& format, const std::string& path) const {
    CSerializationContext ctx;
    format.prepare(ctx);
    CBinaryData none;
    format.write(*m_tree, ctx, path, none);
  }
  std::string Read(const Format& format, const std::string& path) const {
    CSerializationContext ctx;
    format.prepare(ctx);
    const CSmartPtr<CNode> copy(new CNode);
    format.read(*copy, ctx, path, CBinaryData());
    return copy->ToXml();
  }

  const CSmartPtr<CNode> m_tree{new CNode};
  std::string m_expected;

 private:
  long m_descriptors = 0;
};

std::vector<Format> FileFormats() {
  std::vector<Format> formats;
  for (const Format& format : AllFormats()) {
    if (format.isFile) formats.push_back(format);
  }
  return formats;
}

std::string WriteFailureOf(const std::string& path) {
  return "Failed to write data to the file [" + path + "].";
}

constexpr char kNothing[] = "nothing was thrown";

// The messages below the outermost one. In the middle of a document a stream fails inside of the
// object that is written.
std::string DescribeCausesOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const CQvException& failure) {
    std::string text;
    for (const CQvException* link = failure.GetInnerException(); link != nullptr;
         link = link->GetInnerException()) {
      text += link->GetMessage() + "\n";
    }
    return text;
  }
  return kNothing;
}

std::string CausesOfStreamFailure(const std::string& path) {
  return "Failed to convert the element [node] to XML\nFailed to write data to the file\n" +
         WriteFailureOf(path) + "\n";
}

FileFaults DiskOf(long space) {
  FileFaults faults;
  faults.diskSpace = space;
  return faults;
}

FileFaults FailingClose(int reason) {
  FileFaults faults;
  faults.closeError = reason;
  return faults;
}

FileFaults FailingRename(int reason) {
  FileFaults faults;
  faults.renameError = reason;
  return faults;
}

TEST_F(Files, TheOldOneStaysWhenWritingFails) {
  const struct {
    const char* name;
    FileFaults faults;
    // By the outermost exception, also where the document is streamed into the file.
    bool isNamed;
  } rows[] = {
      {"no space at all", DiskOf(0), false},
      {"space for the beginning", DiskOf(5000), false},
      {"no space when it is closed", FailingClose(ENOSPC), true},
      {"no quota when it is closed", FailingClose(EDQUOT), true},
      {"an error when it is closed", FailingClose(EIO), true},
      {"no space for the new name", FailingRename(ENOSPC), true},
      {"an error when it is renamed", FailingRename(EIO), true},
  };
  for (const Format& format : FileFormats()) {
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(format.name) + ", " + row.name);
      if (!format.isWholeFile && row.faults.renameError != 0) continue;
      const TemporaryFolder folder;
      const std::string old = folder.PathOf("old");
      WriteFile(old, "as it was");
      for (const std::string& path : {old, folder.PathOf("new")}) {
        const FileFaultScope scope(row.faults);
        if (format.isWholeFile || row.isNamed) {
          EXPECT_QV_THROW(Write(format, path), CQvException, WriteFailureOf(path));
        } else {
          EXPECT_EQ(DescribeCausesOf([&] { Write(format, path); }), CausesOfStreamFailure(path));
        }
      }
      if (!format.isWholeFile) continue;
      EXPECT_EQ(ReadFile(old), "as it was");
      EXPECT_EQ(folder.CountEntries(), 1);
    }
  }
}

TEST_F(Files, SignalsAndSmallPiecesDoNotMatter) {
  FileFaults interrupted;
  interrupted.isInterrupted = true;
  FileFaults inPieces;
  inPieces.maxPiece = 1000;
  FileFaults both = interrupted;
  both.maxPiece = 777;
  for (const Format& format : FileFormats()) {
    for (const FileFaults& faults : {interrupted, inPieces, both}) {
      SCOPED_TRACE(format.name);
      const TemporaryFolder folder;
      const std::string path = folder.PathOf("file");
      const FileFaultScope scope(faults);
      Write(format, path);
      EXPECT_EQ(Read(format, path), m_expected);
      EXPECT_EQ(folder.CountEntries(), 1);
    }
  }
}

// A limit of the file size that acts as a full disk does.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &m_before), 0);
    const rlimit limited = {bytes, m_before.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limited), 0);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*const m_handler)(int);
  rlimit m_before = {};
};

TEST_F(Files, WhatTheSystemRefusesIsReported) {
  const TemporaryFolder folder;
  WriteFile(folder.PathOf("file"), "as it was");
  std::filesystem::create_directory(folder.PathOf("folder"));
  WriteFile(folder.PathOf("folder/inside"), "as it was");
  for (const Format& format : FileFormats()) {
    SCOPED_TRACE(format.name);
    for (const std::string& path :
         {std::string(), folder.PathOf("missing/file"), folder.PathOf("file/file"),
          folder.PathOf("folder"), folder.PathOf("folder/"), folder.PathOf(std::string(256, 'n')),
          folder.PathOf(std::string(5000, 'n')), std::string("/proc/self/file")}) {
      EXPECT_QV_THROW(Write(format, path), CQvException, WriteFailureOf(path));
    }
    const FileSizeLimit limit(4096);
    if (!format.isWholeFile) {
      for (const std::string& path : {std::string("/dev/full"), folder.PathOf("folder/cut")}) {
        EXPECT_EQ(DescribeCausesOf([&] { Write(format, path); }), CausesOfStreamFailure(path));
      }
      continue;
    }
    for (const std::string& path :
         {std::string("/dev/full"), folder.PathOf("file"), folder.PathOf("new")}) {
      EXPECT_QV_THROW(Write(format, path), CQvException, WriteFailureOf(path));
    }
  }
  EXPECT_EQ(ReadFile(folder.PathOf("file")), "as it was");
  EXPECT_EQ(ReadFile(folder.PathOf("folder/inside")), "as it was");
  EXPECT_EQ(folder.CountEntries(), 2);
}

TEST_F(Files, WhatCannotBeReadIsReported) {
  const TemporaryFolder folder;
  WriteFile(folder.PathOf("file"), "<a/>");
  ASSERT_EQ(mkfifo(folder.PathOf("fifo").c_str(), 0600), 0);
  const auto missing = [](const std::string& path) {
    return "Failed to open the file [" + path + "].";
  };
  const auto noSize = [](const std::string& path) {
    return "Failed to get the size of the file [" + path + "] Error [0]";
  };
  const struct {
    std::string path;
    std::function<std::string(const std::string&)> failure;
  } rows[] = {
      {"", missing},
      {folder.PathOf("missing/file"), missing},
      {folder.PathOf("file/file"), missing},
      {folder.PathOf(std::string(5000, 'n')), missing},
      {folder.PathOf(""), noSize},
      {folder.PathOf("fifo"), noSize},
      {"/dev/full", noSize},
  };
  FileFaults broken;
  broken.readError = EIO;
  const std::string file = folder.PathOf("file");
  for (const Format& format : FileFormats()) {
    SCOPED_TRACE(format.name);
    for (const auto& row : rows) {
      EXPECT_QV_THROW(Read(format, row.path), CQvException, row.failure(row.path));
    }
    const FileFaultScope scope(broken);
    EXPECT_QV_THROW(Read(format, file), CQvException,
                    "Failed to read the contents of the file [" + file + "] Error [1]");
  }
}

TEST_F(Files, RunningOutOfDescriptorsIsReported) {
#ifdef QVXML_ADDRESS_SANITIZER
  GTEST_SKIP() << "the sanitizer opens pipes to see whether memory can be read";
#endif
  const TemporaryFolder folder;
  const std::string path = folder.PathOf("file");
  WriteFile(path, "as it was");
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  for (const Format& format : FileFormats()) {
    SCOPED_TRACE(format.name);
    const rlimit none = {0, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    EXPECT_QV_THROW(Write(format, path), CQvException, WriteFailureOf(path));
    EXPECT_QV_THROW(Read(format, path), CQvException, "Failed to open the file [" + path + "].");
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(ReadFile(path), "as it was");
  }
}

// Sends this thread signals whose handler lets system calls end early.
class SignalStorm {
 public:
  SignalStorm() {
    struct sigaction action = {};
    action.sa_handler = [](int) { s_count.fetch_add(1); };
    sigaction(SIGALRM, &action, &m_before);
    const itimerval often = {{0, 200}, {0, 200}};
    setitimer(ITIMER_REAL, &often, nullptr);
  }
  ~SignalStorm() {
    const itimerval never = {};
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &m_before, nullptr);
  }
  SignalStorm(const SignalStorm&) = delete;
  SignalStorm& operator=(const SignalStorm&) = delete;

  static int GetCount() { return s_count.load(); }

 private:
  static inline std::atomic<int> s_count{0};
  struct sigaction m_before;
};

// The reader comes late and is slow, so that opening and writing wait.
TEST_F(Files, SignalsDoNotBreakADocumentInAPipe) {
  const TemporaryFolder folder;
  const std::string path = folder.PathOf("fifo");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  for (const Format& format : FileFormats()) {
    SCOPED_TRACE(format.name);
    const std::string copy = folder.PathOf("copy");
    Write(format, copy);
    std::string received;
    std::atomic<bool> isOpen{false};
    sigset_t alarm;
    sigset_t before;
    sigemptyset(&alarm);
    sigaddset(&alarm, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &alarm, &before);
    std::thread reader([&] {
      usleep(2000);
      const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
      isOpen = true;
      char bytes[30000];
      for (ssize_t count = 1; count > 0; usleep(1000)) {
        count = read(descriptor, bytes, sizeof bytes);
        if (count > 0) received.append(bytes, static_cast<size_t>(count));
      }
      close(descriptor);
    });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    {
      const SignalStorm storm;
      EXPECT_EQ(DescribeCausesOf([&] { Write(format, path); }), kNothing);
    }
    // A reader must not wait for a writer that has failed.
    const int writer = open(path.c_str(), O_RDWR | O_CLOEXEC);
    while (!isOpen) usleep(100);
    close(writer);
    reader.join();
    EXPECT_EQ(received, ReadFile(copy));
  }
  EXPECT_GT(SignalStorm::GetCount(), 10);
}

// As a user to whom permissions apply: everything is done in a child, which tells the first step
// that went wrong.
TEST_F(Files, PermissionsAreRespected) {
  const TemporaryFolder folder;
  const std::string path = folder.PathOf("folder/file");
  std::filesystem::create_directory(folder.PathOf("folder"));
  WriteFile(path, "as it was");
  if (geteuid() == 0) {
    ASSERT_EQ(chmod(folder.PathOf("").c_str(), 0755), 0);
    ASSERT_EQ(chown(folder.PathOf("folder").c_str(), 65534, 65534), 0);
    ASSERT_EQ(chown(path.c_str(), 65534, 65534), 0);
  }
  const auto throws = [](const std::function<void()>& act, const std::string& message) {
    return static_cast<bool>(Throws<CQvException>(act, message));
  };
  const auto check = [&](const Format& format) {
    const std::string other = folder.PathOf("folder/other");
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return 1;
    chmod(path.c_str(), 0444);
    if (!throws([&] { Write(format, path); }, WriteFailureOf(path))) return 2;
    chmod(path.c_str(), 0222);
    if (!throws([&] { Read(format, path); }, "Failed to open the file [" + path + "].")) return 3;
    // No other file may be made here, but the one that is there may be written.
    chmod(path.c_str(), 0644);
    chmod(folder.PathOf("folder").c_str(), 0555);
    if (!throws([&] { Write(format, other); }, WriteFailureOf(other))) return 4;
    if (ReadFile(path) != "as it was") return 5;
    Write(format, path);
    if (Read(format, path) != m_expected) return 6;
    chmod(folder.PathOf("folder").c_str(), 0755);
    WriteFile(path, "as it was");
    return 0;
  };
  for (const Format& format : FileFormats()) {
    SCOPED_TRACE(format.name);
    const pid_t child = fork();
    if (child == 0) {
      int step = -1;
      try {
        step = check(format);
      } catch (...) {
        step = 99;
      }
      _exit(step);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "step";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.PathOf("folder")),
                            std::filesystem::directory_iterator()),
              1);
  }
}

}  // namespace
