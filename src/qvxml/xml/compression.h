// Optional compression of encoded documents, over zlib.

#ifndef QVXML_XML_COMPRESSION_H_
#define QVXML_XML_COMPRESSION_H_

#include "qvxml/support/export.h"
#include "qvxml/types/binary_data.h"

namespace QvXmlLib16 {

/// How an encoded document is compressed. The numbers are fixed.
enum CompressionType : int {
  CompressionType_None = 0,
  CompressionType_GZip = 1,  ///< RFC 1952; as a file, a plain .gz file.
  CompressionType_ZLib = 2,  ///< RFC 1950.
};

/// Compresses and decompresses whole documents in memory. Safe from any thread.
class QVXML_API CQvZip {
 public:
  /// Replaces the bytes by their compressed form; type 0 leaves them as they are.
  ///
  /// Throws CQvException, and then leaves the bytes as they are: "Unknown Compression Type [%d]",
  /// or "Failed to compress data. [Error Code: %d]" with the result of zlib, which is 0 or
  /// Z_BUF_ERROR (-5) when the compressed form would be larger than the bytes themselves. No bytes
  /// always fail.
  static void CompressData(CBinaryData& data, CompressionType type);

  /// The bytes that gzip data, of one or more members, or a zlib stream stand for.
  ///
  /// Throws CQvException "Failed to decompress data. [Error Code: %d]" with Z_DATA_ERROR (-3) for
  /// damaged data and for anything that follows its end, Z_BUF_ERROR (-5) for truncated data and
  /// no data, or another result of zlib; "Failed to decompress data. The limit of %lu bytes was
  /// exceeded." for a result larger than GetMaxDecompressedSize(), of which no more is made.
  static CBinaryData Decompress(const CBinaryData& data);
  /// The same with a limit for this call; 0 stands for GetMaxDecompressedSize().
  static CBinaryData Decompress(const CBinaryData& data, unsigned long maxSize);

  /// Whether the bytes begin as gzip data do, or as a zlib stream with the usual window of 32 KiB
  /// and without a preset dictionary does. No XML, JSON or Fast Infoset document begins so.
  static bool IsCompressed(const CBinaryData& data) noexcept;
  static bool IsCompressed(const unsigned char* bytes, unsigned long length) noexcept;

  /// Largest result of Decompress in bytes, for the whole process; 0, at first, means no limit.
  /// Compressed data may stand for a thousand times its size: set it, or
  /// CSerializationContext::SetMaxDecompressedSize, where data comes from strangers.
  static unsigned long GetMaxDecompressedSize() noexcept;
  /// Sets the limit for calls of Decompress that begin later.
  static void SetMaxDecompressedSize(unsigned long bytes) noexcept;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_COMPRESSION_H_
