#include "qvxml/xml/text_stream.h"

#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/xml/encoder.h"
#include "qvxml/xml/file_output_internal.h"

namespace QvXmlLib16 {

namespace {

CQvException FailureOf(const std::string& path) {
  return CQvException(FormatString("Failed to write data to the file [%s].", path.c_str()));
}

}  // namespace

CTextStream::CTextStream(XmlEncoding encoding) : CTextStream("CTextStream", encoding) {}

CTextStream::CTextStream(const char* instanceName, XmlEncoding encoding)
    : m_instance(instanceName), m_encoding(encoding) {}

CTextStream::~CTextStream() = default;

void CTextStream::Open() { Empty(); }

void CTextStream::Close() {}

void CTextStream::Flush() {}

CBinaryData CTextStream::GetEncodedStream() {
  switch (m_encoding) {
    case Encoding_UTF8:
      return CEncoder::LocalCodePageToUtf8Binary(GetText(), GetLength());
    case Encoding_UTF16:
    case Encoding_UTF16_Unlabelled:
      return CEncoder::LocalCodePageToUnicodeBinary(GetText(), GetLength());
    default:
      throw CQvException("Unknown Encoding, select UTF-8 (contact our support team)");
  }
}

CFileTextStream::CFileTextStream(const char* path, XmlEncoding encoding)
    : CTextStream("CFileTextStream", encoding), m_path(path != nullptr ? path : "") {}

CFileTextStream::~CFileTextStream() {
  if (m_file == nullptr) return;
  try {
    CFileTextStream::Close();
  } catch (...) {
    // Close() has released the file.
  }
}

void CFileTextStream::Open() {
  CTextStream::Open();
  if (!CloseFile()) ThrowNamingTheFile();
  m_file = detail::OpenForWriting(m_path.c_str());
  if (m_file == nullptr || !detail::WriteByteOrderMark(m_file, GetEncoding())) {
    CloseFile();
    ThrowNamingTheFile();
  }
}

void CFileTextStream::Close() {
  try {
    Flush();
  } catch (...) {
    CloseFile();
    throw;
  }
  if (!CloseFile()) ThrowNamingTheFile();
}

void CFileTextStream::Flush() {
  if (GetLength() == 0) return;
  m_bytes = GetEncodedStream();
  if (m_file == nullptr || !detail::WriteBytes(m_file, m_bytes)) {
    CloseFile();
    throw CQvException("Failed to write data to the file", FailureOf(m_path));
  }
  Empty();
}

bool CFileTextStream::CloseFile() noexcept {
  std::FILE* const file = std::exchange(m_file, nullptr);
  return file == nullptr || std::fclose(file) == 0;
}

void CFileTextStream::ThrowNamingTheFile() const { throw FailureOf(m_path); }

}  // namespace QvXmlLib16
