#include <algorithm>
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

}  // namespace

CInputFile::CDescriptor::~CDescriptor() { close(m_descriptor); }

CInputFile::CInputFile(const std::string& path)
    : m_path(path), m_descriptor(OpenFile(path)), m_left(SizeOf(m_descriptor, path)) {}

// However many pieces and signals it takes.
size_t CInputFile::Read(void* target, size_t size) {
  const size_t wanted = std::min(size, m_left);
  for (size_t position = 0; position < wanted;) {
    const ssize_t count =
        read(m_descriptor, static_cast<unsigned char*>(target) + position, wanted - position);
    if (count > 0) {
      position += static_cast<size_t>(count);
    } else if (count == 0 || errno != EINTR) {
      ThrowUnreadable(count != 0);
    }
  }
  m_left -= wanted;
  return wanted;
}

CBinaryData CInputFile::ReadAll() {
  const size_t size = m_left;
  if (size == 0) return CBinaryData();
  // A sparse file may claim more than there is memory for.
  std::unique_ptr<unsigned char[]> bytes(new (std::nothrow) unsigned char[size]);
  if (bytes == nullptr) ThrowUnreadable(false);
  Read(bytes.get(), size);
  return CBinaryData(bytes.release(), size, true);
}

CBinaryData CInputFile::Peek(size_t size) {
  const size_t all = m_left;
  const std::unique_ptr<unsigned char[]> bytes(new unsigned char[size]);
  CBinaryData start(bytes.get(), Read(bytes.get(), size));
  if (lseek(m_descriptor, 0, SEEK_SET) != 0) ThrowUnreadable(true);
  m_left = all;
  return start;
}

void CInputFile::ThrowUnreadable(bool isError) const {
  throw CQvException(FormatString("Failed to read the contents of the file [%s] Error [%d]",
                                  m_path.c_str(), isError ? 1 : 0));
}

}  // namespace QvXmlLib16::detail
