#include "qvxml/xml/compression.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <memory>

#include <zlib.h>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"

namespace QvXmlLib16 {

namespace {

constexpr int kLevel = 1;
constexpr int kGZipWindowBits = 15 + 16;
constexpr int kZLibWindowBits = 15;
constexpr int kDetectWindowBits = 15 + 32;
constexpr int kMemLevel = 8;
constexpr unsigned long kChunkSize = 65536;

constinit std::atomic<unsigned long> g_maxDecompressedSize{0};

[[noreturn]] void ThrowCompressFailed(int result) {
  throw CQvException(FormatString("Failed to compress data. [Error Code: %d]", result));
}

[[noreturn]] void ThrowDecompressFailed(int result) {
  throw CQvException(FormatString("Failed to decompress data. [Error Code: %d]", result));
}

[[noreturn]] void ThrowTooLarge(unsigned long maxSize) {
  throw CQvException(
      FormatString("Failed to decompress data. The limit of %lu bytes was exceeded.", maxSize));
}

bool BeginsAsGZip(const unsigned char* bytes, unsigned long length) {
  return length >= 2 && bytes[0] == 0x1F && bytes[1] == 0x8B;
}

// The input of a z_stream, whose own counts have 32 bits only.
class CInputPieces {
 public:
  CInputPieces(z_stream& stream, const unsigned char* bytes, unsigned long length)
      : m_stream(stream), m_left(length) {
    m_stream.next_in = const_cast<unsigned char*>(bytes);
  }

  void Refill() {
    if (m_stream.avail_in != 0) return;
    m_stream.avail_in =
        static_cast<uInt>(std::min<unsigned long>(m_left, std::numeric_limits<uInt>::max()));
    m_left -= m_stream.avail_in;
  }
  unsigned long Left() const { return m_left + m_stream.avail_in; }

 private:
  z_stream& m_stream;
  unsigned long m_left;
};

// Compresses into one buffer, made as large as the input.
class CDeflater {
 public:
  CDeflater(const CBinaryData& data, int windowBits)
      : m_input(m_stream, data.GetData(), data.GetLength()),
        m_outputLeft(data.GetLength()),
        m_output(new unsigned char[data.GetLength()]) {
    m_stream.next_out = m_output.get();
    const int result =
        deflateInit2(&m_stream, kLevel, Z_DEFLATED, windowBits, kMemLevel, Z_DEFAULT_STRATEGY);
    if (result != Z_OK) ThrowCompressFailed(result);
  }
  ~CDeflater() { deflateEnd(&m_stream); }
  CDeflater(const CDeflater&) = delete;
  CDeflater& operator=(const CDeflater&) = delete;

  CBinaryData Compress() {
    int result = Deflate(Z_NO_FLUSH);
    if (result == Z_OK) result = Deflate(Z_FINISH);
    if (result != Z_STREAM_END) ThrowCompressFailed(result);
    const auto length = static_cast<unsigned long>(m_stream.next_out - m_output.get());
    return CBinaryData(m_output.release(), length, true);
  }

 private:
  // One call of deflate, more only where its 32-bit counts cut the input or the buffer.
  int Deflate(int flush) {
    int result = Z_OK;
    do {
      m_input.Refill();
      RefillOutput();
      result = deflate(&m_stream, flush);
    } while (result == Z_OK && m_outputLeft + m_stream.avail_out != 0 &&
             (flush == Z_FINISH || m_input.Left() != 0));
    return result;
  }

  void RefillOutput() {
    if (m_stream.avail_out != 0) return;
    m_stream.avail_out =
        static_cast<uInt>(std::min<unsigned long>(m_outputLeft, std::numeric_limits<uInt>::max()));
    m_outputLeft -= m_stream.avail_out;
  }

  z_stream m_stream{};
  CInputPieces m_input;
  unsigned long m_outputLeft;
  std::unique_ptr<unsigned char[]> m_output;
};

class CInflater {
 public:
  CInflater(const CBinaryData& data, unsigned long maxSize)
      : m_input(m_stream, data.GetData(), data.GetLength()),
        m_chunk(new unsigned char[kChunkSize]),
        m_maxSize(maxSize) {
    const int result = inflateInit2(&m_stream, kDetectWindowBits);
    if (result != Z_OK) ThrowDecompressFailed(result);
  }
  ~CInflater() { inflateEnd(&m_stream); }
  CInflater(const CInflater&) = delete;
  CInflater& operator=(const CInflater&) = delete;

  CBinaryData Decompress() {
    CBinaryData result;
    const bool isGZip = NextIsGZip();
    InflateStream(result);
    while (m_input.Left() != 0) {
      if (!isGZip || !NextIsGZip()) ThrowDecompressFailed(Z_DATA_ERROR);
      inflateReset(&m_stream);
      InflateStream(result);
    }
    return result;
  }

 private:
  bool NextIsGZip() const { return BeginsAsGZip(m_stream.next_in, m_input.Left()); }

  // Ends: inflate gives Z_BUF_ERROR when it can neither read nor write any more.
  void InflateStream(CBinaryData& result) {
    int state = Z_OK;
    while (state != Z_STREAM_END) {
      m_input.Refill();
      m_stream.next_out = m_chunk.get();
      m_stream.avail_out = kChunkSize;
      state = inflate(&m_stream, Z_NO_FLUSH);
      if (state != Z_OK && state != Z_STREAM_END) ThrowDecompressFailed(state);
      const unsigned long length = kChunkSize - m_stream.avail_out;
      if (m_maxSize != 0 && length > m_maxSize - result.GetLength()) ThrowTooLarge(m_maxSize);
      result.Append(m_chunk.get(), length);
    }
  }

  z_stream m_stream{};
  CInputPieces m_input;
  std::unique_ptr<unsigned char[]> m_chunk;
  unsigned long m_maxSize;
};

}  // namespace

void CQvZip::CompressData(CBinaryData& data, CompressionType type) {
  switch (type) {
    case CompressionType_None:
      return;
    case CompressionType_GZip:
      data = CDeflater(data, kGZipWindowBits).Compress();
      return;
    case CompressionType_ZLib:
      data = CDeflater(data, kZLibWindowBits).Compress();
      return;
  }
  throw CQvException(FormatString("Unknown Compression Type [%d]", static_cast<int>(type)));
}

CBinaryData CQvZip::Decompress(const CBinaryData& data) { return Decompress(data, 0); }

CBinaryData CQvZip::Decompress(const CBinaryData& data, unsigned long maxSize) {
  return CInflater(data, maxSize != 0 ? maxSize : GetMaxDecompressedSize()).Decompress();
}

bool CQvZip::IsCompressed(const CBinaryData& data) noexcept {
  return IsCompressed(data.GetData(), data.GetLength());
}

bool CQvZip::IsCompressed(const unsigned char* bytes, unsigned long length) noexcept {
  if (bytes == nullptr || length < 2) return false;
  if (BeginsAsGZip(bytes, length)) return true;
  // RFC 1950, 2.2: the two bytes are a multiple of 31; bit 5 of the second asks for a dictionary.
  // Other window sizes are not looked for: their first byte may be a digit that begins a JSON text.
  return bytes[0] == 0x78 && (bytes[0] * 256 + bytes[1]) % 31 == 0 && (bytes[1] & 0x20) == 0;
}

unsigned long CQvZip::GetMaxDecompressedSize() noexcept {
  return g_maxDecompressedSize.load(std::memory_order_relaxed);
}

void CQvZip::SetMaxDecompressedSize(unsigned long bytes) noexcept {
  g_maxDecompressedSize.store(bytes, std::memory_order_relaxed);
}

}  // namespace QvXmlLib16
