// Files as input.

#ifndef QVXML_BINDING_FILE_INPUT_INTERNAL_H_
#define QVXML_BINDING_FILE_INPUT_INTERNAL_H_

#include <string>

#include "qvxml/types/binary_data.h"
#include "qvxml/xml/byte_source_internal.h"

namespace QvXmlLib16::detail {

/// An open regular file. Everything throws as CXmlDocument::Load.
class CInputFile final : public IByteSource {
 public:
  explicit CInputFile(const std::string& path);

  /// Bytes that are left to read: all at first. A file that is cut off meanwhile fails to be read.
  size_t GetSize() const noexcept { return m_left; }
  size_t Read(void* target, size_t size) override;
  CBinaryData ReadAll();
  /// The bytes at the start, at most `size`; reading begins with them.
  CBinaryData Peek(size_t size);

 private:
  class CDescriptor {
   public:
    explicit CDescriptor(int descriptor) : m_descriptor(descriptor) {}
    ~CDescriptor();
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;
    operator int() const { return m_descriptor; }

   private:
    const int m_descriptor;
  };

  [[noreturn]] void ThrowUnreadable(bool isError) const;

  const std::string m_path;
  const CDescriptor m_descriptor;
  size_t m_left;
};

/// The bytes of a regular file.
inline CBinaryData ReadFile(const std::string& path) { return CInputFile(path).ReadAll(); }

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_FILE_INPUT_INTERNAL_H_
