// The octets of a document under construction, and the forms that integers and lengths take.

#ifndef QVXML_FASTINFOSET_FI_OUTPUT_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_OUTPUT_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "qvxml/fastinfoset/fi_encoding_internal.h"

namespace QvXmlLib16 {

class CBinaryStream;  // xml/binary_stream.h

namespace detail {

template <class TWord>
void StoreBigEndian(TWord word, unsigned char* to) noexcept {
  for (size_t i = 0; i < sizeof word; ++i) {
    to[i] = static_cast<unsigned char>(word >> (8 * (sizeof word - 1 - i)));
  }
}

/// A buffer in front of a stream. Positions count from the start of the buffer, so they serve until
/// the next FlushTo().
class CFIOutput {
 public:
  CFIOutput();
  CFIOutput(const CFIOutput&) = delete;
  CFIOutput& operator=(const CFIOutput&) = delete;
  ~CFIOutput();

  size_t GetPosition() const noexcept { return m_length; }
  unsigned char* At(size_t position) noexcept { return m_bytes.get() + position; }
  /// Appends all but the last `kept` octets to the stream.
  void FlushTo(CBinaryStream& stream, size_t kept);

  void Put(unsigned octet) {
    *Reserve(1) = static_cast<unsigned char>(octet);
    ++m_length;
  }
  void Put(std::string_view octets) {
    if (octets.empty()) return;
    std::memcpy(Reserve(octets.size()), octets.data(), octets.size());
    m_length += octets.size();
  }
  template <class TWord>
  void PutBigEndian(TWord word) {
    StoreBigEndian(word, Reserve(sizeof word));
    m_length += sizeof word;
  }
  /// Room for that many octets; AdvanceTo() the end of what was written.
  unsigned char* Reserve(size_t count) {
    if (m_capacity - m_length < count) Grow(count);
    return m_bytes.get() + m_length;
  }
  void AdvanceTo(const unsigned char* end) noexcept {
    m_length = static_cast<size_t>(end - m_bytes.get());
  }

  // Indices; `context` holds the bits of the first octet that are not theirs.

  void PutIndexOnSecondBit(unsigned context, unsigned index) {
    if (index >= fi::kIndexOnSecondBit[1]) return PutLongIndexOnSecondBit(context, index);
    Put(context | (index - 1));
  }
  void PutIndexOnThirdBit(unsigned context, unsigned index) {
    if (index >= fi::kIndexOnThirdBit[1]) return PutLongIndexOnThirdBit(context, index);
    Put(context | (index - 1));
  }
  void PutIndexOnFourthBit(unsigned context, unsigned index) {
    if (index >= fi::kIndexOnFourthBit[1]) return PutLongIndexOnFourthBit(context, index);
    Put(context | (index - 1));
  }

  /// Octets behind a bit '0', with their length on the second bit; at least one.
  void PutOctetString(std::string_view octets);

 private:
  void Grow(size_t count);
  void PutLongIndexOnSecondBit(unsigned context, unsigned index);
  void PutLongIndexOnThirdBit(unsigned context, unsigned index);
  void PutLongIndexOnFourthBit(unsigned context, unsigned index);

  std::unique_ptr<unsigned char[]> m_bytes;
  size_t m_length = 0;
  size_t m_capacity = 0;
};

}  // namespace detail
}  // namespace QvXmlLib16

#endif  // QVXML_FASTINFOSET_FI_OUTPUT_INTERNAL_H_
