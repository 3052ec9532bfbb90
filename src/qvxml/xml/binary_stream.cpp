#include "qvxml/xml/binary_stream.h"

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/file_output_internal.h"

namespace QvXmlLib16 {

CBinaryStream::CBinaryStream() : CBinaryStream("CBinaryStream") {}

CBinaryStream::CBinaryStream(const CBinaryData& data) : CBinaryStream("CBinaryStream", data) {}

CBinaryStream::CBinaryStream(const char* instanceName, const CBinaryData& data)
    : m_instance(instanceName), m_data(data) {}

CBinaryStream::~CBinaryStream() = default;

CFileBinaryStream::CFileBinaryStream(const char* path, XmlEncoding encoding,
                                     const CBinaryData& data)
    : CBinaryStream("CFileBinaryStream", data),
      m_path(path != nullptr ? path : ""),
      m_encoding(encoding) {}

CFileBinaryStream::~CFileBinaryStream() = default;

void CFileBinaryStream::ToFile() const {
  if (!detail::WriteWholeFile(m_path, m_encoding, GetBinaryStream())) {
    throw CQvException(FormatString("Failed to write data to the file [%s].", m_path.c_str()));
  }
}

}  // namespace QvXmlLib16
