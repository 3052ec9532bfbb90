// Where the binary output format puts its bytes, and how a whole document becomes a file.

#ifndef QVXML_XML_BINARY_STREAM_H_
#define QVXML_XML_BINARY_STREAM_H_

#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/xml/encoding.h"

namespace QvXmlLib16 {

/// Bytes that grow at the end.
class QVXML_API CBinaryStream {
 public:
  CBinaryStream();
  /// Starts with a copy of `data`.
  explicit CBinaryStream(const CBinaryData& data);
  CBinaryStream(const CBinaryStream&) = delete;
  CBinaryStream& operator=(const CBinaryStream&) = delete;
  virtual ~CBinaryStream();

  void Append(unsigned char byte) { m_data.Append(byte); }
  void Append(const CBinaryData& data) { m_data.Append(data); }
  void Append(const unsigned char* bytes, unsigned long length) { m_data.Append(bytes, length); }

  /// All bytes so far.
  const CBinaryData& GetBinaryStream() const noexcept { return m_data; }

 protected:
  /// For subclasses: registers the object with the instance monitor under their own name.
  explicit CBinaryStream(const char* instanceName, const CBinaryData& data = CBinaryData());

 private:
  CNamedInstance m_instance;
  CBinaryData m_data;
};

/// Bytes to be written to a file in one piece.
class QVXML_API CFileBinaryStream : public CBinaryStream {
 public:
  /// `encoding` says which mark precedes the bytes in the file; pass Encoding_Unspecified for bytes
  /// that are not text, such as compressed ones. A null path is "".
  CFileBinaryStream(const char* path, XmlEncoding encoding,
                    const CBinaryData& data = CBinaryData());
  ~CFileBinaryStream() override;

  /// Writes the file: FF FE for the two wide encodings, then all bytes.
  ///
  /// A new or regular file is written under a temporary name in its folder and then renamed, so a
  /// failure leaves no half document, and what was there before stays; owner, group and permission
  /// bits are kept, symbolic links followed; access lists and extended attributes are not kept.
  /// Anything else, and a file with several names (hard links), is written directly. Throws
  /// CQvException "Failed to write data to the file [%s].".
  void ToFile() const;

 private:
  std::string m_path;
  XmlEncoding m_encoding;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_BINARY_STREAM_H_
