#include <cstdio>
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

struct CFileCloser {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using CFile = std::unique_ptr<std::FILE, CFileCloser>;

// Without blocking: a pipe that nobody writes would hold the caller in fopen.
CFile OpenFile(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  CFile file(descriptor != -1 ? fdopen(descriptor, "rt") : nullptr);
  if (file == nullptr) {
    if (descriptor != -1) close(descriptor);
    throw CQvException(FormatString("Failed to open the file [%s].", path.c_str()));
  }
  return file;
}

// Directories and devices have no size to read.
size_t SizeOf(std::FILE* file, const std::string& path) {
  struct stat status;
  if (fstat(fileno(file), &status) != 0 || !S_ISREG(status.st_mode)) {
    throw CQvException(FormatString("Failed to get the size of the file [%s] Error [%d]",
                                    path.c_str(), std::ferror(file)));
  }
  return static_cast<size_t>(status.st_size);
}

}  // namespace

CBinaryData ReadFile(const std::string& path) {
  const CFile file = OpenFile(path);
  const size_t size = SizeOf(file.get(), path);
  if (size == 0) return CBinaryData();
  // A sparse file may claim more than there is memory for.
  std::unique_ptr<unsigned char[]> bytes(new (std::nothrow) unsigned char[size]);
  if (bytes == nullptr || std::fread(bytes.get(), 1, size, file.get()) != size) {
    throw CQvException(FormatString("Failed to read the contents of the file [%s] Error [%d]",
                                    path.c_str(), std::ferror(file.get())));
  }
  return CBinaryData(bytes.release(), size, true);
}

}  // namespace QvXmlLib16::detail
