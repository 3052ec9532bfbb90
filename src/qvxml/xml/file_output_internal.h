// Files as the streams write them.

#ifndef QVXML_XML_FILE_OUTPUT_INTERNAL_H_
#define QVXML_XML_FILE_OUTPUT_INTERNAL_H_

#include <cstdio>
#include <string>

#include "qvxml/types/binary_data.h"
#include "qvxml/xml/encoding.h"

namespace QvXmlLib16::detail {

/// Creates or empties the file; null, with the reason in errno, when that fails. Signals that
/// arrive while it is opened or written disturb nothing.
std::FILE* OpenForWriting(const char* path) noexcept;

/// Writes FF FE for the two wide encodings, nothing for the others. False when that fails.
bool WriteByteOrderMark(std::FILE* file, XmlEncoding encoding) noexcept;

/// False when not all bytes could be written.
bool WriteBytes(std::FILE* file, const CBinaryData& bytes) noexcept;

/// Writes a file of the mark and the bytes in one piece: the file at `path` is either left as it
/// was or replaced by the whole new one.
///
/// The bytes go to a temporary file in the same folder, which is then renamed over the target and
/// takes over its permission bits. A symbolic link stays and the file that it names is replaced.
/// What is no regular file, for example a device or a FIFO, is written directly; so is a file that
/// has several names, which are to stay one file, or whose folder does not admit a new one. False
/// when anything fails; the temporary file is then removed.
bool WriteWholeFile(const std::string& path, XmlEncoding encoding, const CBinaryData& bytes);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_XML_FILE_OUTPUT_INTERNAL_H_
