// Where the text writers put their characters: memory, or a file.

#ifndef QVXML_XML_TEXT_STREAM_H_
#define QVXML_XML_TEXT_STREAM_H_

#include <cstdio>
#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/xml/encoding.h"
#include "qvxml/xml/string_buffer.h"

namespace QvXmlLib16 {

/// A text buffer with an encoding. As it is the text stays in memory, to be read with GetText() or
/// GetEncodedStream(); a subclass drains it in Flush(), which the writers call when 4096 or more
/// characters are waiting.
class QVXML_API CTextStream : public CStringBuffer {
 public:
  explicit CTextStream(XmlEncoding encoding = Encoding_UTF8);
  ~CTextStream() override;

  /// Empties the buffer.
  virtual void Open();
  /// Does nothing.
  virtual void Close();
  /// Does nothing.
  virtual void Flush();

  XmlEncoding GetEncoding() const noexcept { return m_encoding; }
  /// The text as bytes of the stream's encoding, without a byte-order mark. Throws CQvException
  /// "Unknown Encoding, select UTF-8 (contact our support team)" unless it is one of those that
  /// XmlEncoding describes as bytes.
  CBinaryData GetEncodedStream();

 protected:
  /// For subclasses: registers the object with the instance monitor under their own name.
  CTextStream(const char* instanceName, XmlEncoding encoding);

 private:
  CNamedInstance m_instance;
  const XmlEncoding m_encoding;
};

/// A stream into a file, written as the text comes in.
///
/// A document that fails halfway leaves a truncated file; CFileBinaryStream writes whole documents
/// safely. Characters are encoded at each flush, so one must not be split between two operations of
/// a writer.
class QVXML_API CFileTextStream : public CTextStream {
 public:
  /// Touches no file yet. A null path is "".
  explicit CFileTextStream(const char* path, XmlEncoding encoding = Encoding_UTF8);
  CFileTextStream(const CFileTextStream&) = delete;
  CFileTextStream& operator=(const CFileTextStream&) = delete;
  /// Closes the file if that was not done; what fails then goes unreported.
  ~CFileTextStream() override;

  /// Empties the buffer, creates or truncates the file and, for the two wide encodings, writes the
  /// mark FF FE. Throws CQvException "Failed to write data to the file [%s].".
  void Open() override;
  /// Writes what is left and closes the file. Throws as Flush(), and CQvException "Failed to write
  /// data to the file [%s]." when closing fails; the file is closed in every case.
  void Close() override;
  /// Writes the waiting text and empties the buffer. When not all of it could be written, or the
  /// file is not open, closes the file and throws CQvException "Failed to write data to the file",
  /// whose inner exception is the one of Open().
  /// Throws as GetEncodedStream() too.
  void Flush() override;

 private:
  // False when closing reports an error; true when no file is open.
  bool CloseFile() noexcept;
  [[noreturn]] void ThrowNamingTheFile() const;

  std::string m_path;
  std::FILE* m_file = nullptr;
  // The encoded form of the text being written.
  CBinaryData m_bytes;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_TEXT_STREAM_H_
