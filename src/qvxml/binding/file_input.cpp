#include <algorithm>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "qvxml/binding/file_input_internal.h"
#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16::detail {

namespace {

// Without blocking: a pipe that nobody writes would hold the caller in fopen.
std::FILE* OpenFile(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  std::FILE* const file = descriptor != -1 ? fdopen(descriptor, "rt") : nullptr;
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

CInputFile::CInputFile(const std::string& path)
    : m_path(path), m_file(OpenFile(path)), m_left(SizeOf(m_file.get(), path)) {}

size_t CInputFile::Read(void* target, size_t size) {
  const size_t count = std::min(size, m_left);
  if (std::fread(target, 1, count, m_file.get()) != count) ThrowUnreadable();
  m_left -= count;
  return count;
}

CBinaryData CInputFile::ReadAll() {
  const size_t size = m_left;
  if (size == 0) return CBinaryData();
  // A sparse file may claim more than there is memory for.
  std::unique_ptr<unsigned char[]> bytes(new (std::nothrow) unsigned char[size]);
  if (bytes == nullptr) ThrowUnreadable();
  Read(bytes.get(), size);
  CBinaryData data(bytes.get(), size, true);
  bytes.release();
  return data;
}

CBinaryData CInputFile::Peek(size_t size) {
  const size_t all = m_left;
  std::unique_ptr<unsigned char[]> bytes(new unsigned char[size]);
  const CBinaryData start(bytes.get(), Read(bytes.get(), size));
  std::rewind(m_file.get());
  m_left = all;
  return start;
}

void CInputFile::ThrowUnreadable() const {
  throw CQvException(FormatString("Failed to read the contents of the file [%s] Error [%d]",
                                  m_path.c_str(), std::ferror(m_file.get())));
}

}  // namespace QvXmlLib16::detail
