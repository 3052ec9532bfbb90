#include <cerrno>
#include <memory>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "qvxml/binding/file_input_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16::detail {

namespace {

class CDescriptor {
 public:
  explicit CDescriptor(int descriptor) : m_descriptor(descriptor) {}
  ~CDescriptor() { close(m_descriptor); }
  CDescriptor(const CDescriptor&) = delete;
  CDescriptor& operator=(const CDescriptor&) = delete;
  int Get() const { return m_descriptor; }

 private:
  const int m_descriptor;
};

// Without blocking: a pipe that nobody writes would hold the caller.
int OpenFile(const std::string& path) {
  int descriptor = -1;
  do {
    descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) {
    throw CQvException(FormatString("Failed to open the file [%s].", path.c_str()));
  }
  return descriptor;
}

// Directories and devices have no size to read.
size_t SizeOf(int descriptor, const std::string& path) {
  struct stat status;
  if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    throw CQvException(
        FormatString("Failed to get the size of the file [%s] Error [%d]", path.c_str(), 0));
  }
  return static_cast<size_t>(status.st_size);
}

[[noreturn]] void ThrowUnreadable(const std::string& path, bool isError) {
  throw CQvException(FormatString("Failed to read the contents of the file [%s] Error [%d]",
                                  path.c_str(), isError ? 1 : 0));
}

// All of the bytes, however many pieces and signals it takes.
void ReadBytes(int descriptor, unsigned char* bytes, size_t size, const std::string& path) {
  for (size_t position = 0; position < size;) {
    const ssize_t count = read(descriptor, bytes + position, size - position);
    if (count > 0) {
      position += static_cast<size_t>(count);
    } else if (count == 0 || errno != EINTR) {
      ThrowUnreadable(path, count != 0);
    }
  }
}

}  // namespace

CBinaryData ReadFile(const std::string& path) {
  const CDescriptor file(OpenFile(path));
  const size_t size = SizeOf(file.Get(), path);
  if (size == 0) return CBinaryData();
  // A sparse file may claim more than there is memory for.
  std::unique_ptr<unsigned char[]> bytes(new (std::nothrow) unsigned char[size]);
  if (bytes == nullptr) ThrowUnreadable(path, false);
  ReadBytes(file.Get(), bytes.get(), size, path);
  return CBinaryData(bytes.release(), size, true);
}

}  // namespace QvXmlLib16::detail
