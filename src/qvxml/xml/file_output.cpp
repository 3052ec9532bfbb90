#include <atomic>
#include <cerrno>
#include <cstdint>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "qvxml/xml/file_output_internal.h"

namespace QvXmlLib16::detail {

namespace {

// Where the document goes.
struct Target {
  // What the path names once symbolic links are followed.
  std::string path;
  // Whether a file is there, and which.
  bool exists = false;
  struct stat file = {};
  // Whether a temporary file may take its place.
  bool isReplaceable = false;
};

int OpenWithoutInterruption(const char* path, int flags, mode_t mode) noexcept {
  int descriptor = -1;
  do {
    descriptor = open(path, flags, mode);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

// The two operations of a stream over a descriptor. The C library's own takes a signal for a
// failure.

int DescriptorOf(void* cookie) noexcept {
  return static_cast<int>(reinterpret_cast<std::intptr_t>(cookie));
}

// Fewer bytes than `length` mean a failure.
ssize_t WriteToDescriptor(void* cookie, const char* bytes, size_t length) noexcept {
  size_t written = 0;
  while (written < length) {
    const ssize_t count = write(DescriptorOf(cookie), bytes + written, length - written);
    if (count > 0) {
      written += static_cast<size_t>(count);
    } else if (count == 0 || errno != EINTR) {
      break;
    }
  }
  return static_cast<ssize_t>(written);
}

int CloseDescriptor(void* cookie) noexcept { return close(DescriptorOf(cookie)); }

// Owns the descriptor, and closes it when it fails. Null, with the reason in errno, then.
std::FILE* StreamOver(int descriptor) noexcept {
  if (descriptor < 0) return nullptr;
  cookie_io_functions_t functions = {};
  functions.write = WriteToDescriptor;
  functions.close = CloseDescriptor;
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a number, which nobody follows.
  void* const cookie = reinterpret_cast<void*>(static_cast<std::intptr_t>(descriptor));
  std::FILE* const file = fopencookie(cookie, "w", functions);
  if (file == nullptr) {
    const int reason = errno;
    close(descriptor);
    errno = reason;
  }
  return file;
}

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);  // npos + 1 is 0
}

bool IsSameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool ReadLink(const std::string& path, std::string& result) {
  char text[4096];
  const ssize_t length = readlink(path.c_str(), text, sizeof text);
  if (length <= 0 || static_cast<size_t>(length) == sizeof text) return false;
  const std::string destination(text, static_cast<size_t>(length));
  result = destination.front() == '/' ? destination : FolderOf(path) + destination;
  return true;
}

// Links are followed by hand because the last one may name a file that is yet to be made.
Target Resolve(const std::string& path) {
  constexpr int kMaxLinks = 40;
  Target target;
  target.path = path;
  for (int links = 0; links <= kMaxLinks; ++links) {
    // What a descriptor stands for is not to be replaced under the process that holds it.
    if (target.path.compare(0, 6, "/proc/") == 0) return target;
    struct stat entry;
    if (lstat(target.path.c_str(), &entry) != 0) {
      target.isReplaceable = errno == ENOENT && !path.empty();
      return target;
    }
    if (!S_ISLNK(entry.st_mode)) {
      target.exists = stat(path.c_str(), &target.file) == 0;
      target.isReplaceable = target.exists && S_ISREG(entry.st_mode) && entry.st_nlink == 1 &&
                             IsSameFile(entry, target.file);
      return target;
    }
    if (!ReadLink(target.path, target.path)) return target;
  }
  return target;
}

// A file under a name of its own in the target's folder; removed unless it becomes the target.
class CTemporaryFile {
 public:
  explicit CTemporaryFile(const Target& target) : m_target(target) {}
  CTemporaryFile(const CTemporaryFile&) = delete;
  CTemporaryFile& operator=(const CTemporaryFile&) = delete;
  ~CTemporaryFile() {
    if (!m_path.empty()) unlink(m_path.c_str());
  }

  // The open file, to be closed by the caller; null, with the reason in errno, when it cannot be
  // made or cannot take over the target's attributes.
  std::FILE* Create() {
    const int descriptor = CreateUnused();
    if (descriptor >= 0 && !CopyAttributes(descriptor)) {
      const int reason = errno;
      close(descriptor);
      errno = reason;
      return nullptr;
    }
    return StreamOver(descriptor);
  }

  // False, with the reason in errno, when that fails.
  bool BecomeTarget() {
    if (std::rename(m_path.c_str(), m_target.path.c_str()) != 0) return false;
    m_path.clear();
    return true;
  }

 private:
  int CreateUnused() {
    constexpr int kMaxAttempts = 100;
    static std::atomic<unsigned> s_serial{0};
    // A new file gets the process' default bits. One that will replace another is at no time open
    // to more users than that.
    const mode_t mode = m_target.exists ? m_target.file.st_mode & 0600 : 0666;
    for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
      std::string path = FolderOf(m_target.path) + ".qvxml-" + std::to_string(getpid()) + "-" +
                         std::to_string(s_serial.fetch_add(1)) + ".tmp";
      const int descriptor = OpenWithoutInterruption(
          path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
      if (descriptor >= 0) {
        m_path = std::move(path);
        return descriptor;
      }
      if (errno != EEXIST) return -1;
    }
    return -1;
  }

  // Owner and group before the bits: changing them clears some.
  bool CopyAttributes(int descriptor) const {
    if (!m_target.exists) return true;
    struct stat created;
    if (fstat(descriptor, &created) != 0) return false;
    const bool isOwnerSame =
        created.st_uid == m_target.file.st_uid && created.st_gid == m_target.file.st_gid;
    if (!isOwnerSame && fchown(descriptor, m_target.file.st_uid, m_target.file.st_gid) != 0) {
      return false;
    }
    return fchmod(descriptor, m_target.file.st_mode & 07777) == 0;
  }

  const Target& m_target;
  std::string m_path;
};

// Whether the folder or the length of its path, rather than the state of the disk or of the
// process, is against replacing the file: then it can still be written in place. After anything
// else that would risk its content.
bool IsRefusal(int reason) {
  return reason == EACCES || reason == EPERM || reason == EROFS || reason == EBUSY ||
         reason == ENAMETOOLONG;
}

// Closes the file in every case.
bool WriteAndClose(std::FILE* file, XmlEncoding encoding, const CBinaryData& bytes) noexcept {
  const bool isWritten = WriteByteOrderMark(file, encoding) && WriteBytes(file, bytes);
  return std::fclose(file) == 0 && isWritten;
}

bool WriteDirectly(const std::string& path, XmlEncoding encoding, const CBinaryData& bytes) {
  std::FILE* const file = OpenForWriting(path.c_str());
  return file != nullptr && WriteAndClose(file, encoding, bytes);
}

}  // namespace

std::FILE* OpenForWriting(const char* path) noexcept {
  return StreamOver(OpenWithoutInterruption(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
}

bool WriteByteOrderMark(std::FILE* file, XmlEncoding encoding) noexcept {
  if (encoding != Encoding_UTF16 && encoding != Encoding_UTF16_Unlabelled) return true;
  return std::fwrite("\xFF\xFE", 1, 2, file) == 2;
}

bool WriteBytes(std::FILE* file, const CBinaryData& bytes) noexcept {
  const size_t length = bytes.GetLength();
  return length == 0 || std::fwrite(bytes.GetData(), 1, length, file) == length;
}

bool WriteWholeFile(const std::string& path, XmlEncoding encoding, const CBinaryData& bytes) {
  const Target target = Resolve(path);
  if (!target.isReplaceable) return WriteDirectly(path, encoding, bytes);
  // Renaming would also replace a file that must not be written.
  if (target.exists && faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0)
    return false;
  CTemporaryFile temporary(target);
  std::FILE* const file = temporary.Create();
  if (file != nullptr) {
    if (!WriteAndClose(file, encoding, bytes)) return false;
    if (temporary.BecomeTarget()) return true;
  }
  return IsRefusal(errno) && WriteDirectly(path, encoding, bytes);
}

}  // namespace QvXmlLib16::detail
