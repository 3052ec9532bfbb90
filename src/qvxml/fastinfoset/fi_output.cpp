#include <algorithm>

#include "qvxml/core/exception.h"
#include "qvxml/fastinfoset/fi_output_internal.h"
#include "qvxml/xml/binary_stream.h"

namespace QvXmlLib16::detail {

using namespace fi;

CFIOutput::CFIOutput() = default;
CFIOutput::~CFIOutput() = default;

void CFIOutput::FlushTo(CBinaryStream& stream, size_t kept) {
  const size_t count = m_length - kept;
  if (count == 0) return;
  stream.Append(m_bytes.get(), count);
  std::memmove(m_bytes.get(), m_bytes.get() + count, kept);
  m_length = kept;
}

void CFIOutput::Grow(size_t count) {
  constexpr size_t kFirstCapacity = 4096;
  const size_t capacity = std::max({kFirstCapacity, m_capacity * 2, m_length + count});
  // Not value-initialised: all of it is written before it is read.
  std::unique_ptr<unsigned char[]> bytes(new unsigned char[capacity]);
  if (m_length != 0) std::memcpy(bytes.get(), m_bytes.get(), m_length);
  m_bytes = std::move(bytes);
  m_capacity = capacity;
}

// The forms for larger indices differ only in where they begin in the first octet, and in the
// number of bits of each.

void CFIOutput::PutLongIndexOnSecondBit(unsigned context, unsigned index) {
  unsigned value = index - kIndexOnSecondBit[1];
  if (index < kIndexOnSecondBit[2]) {
    Put(context | 0x40 | value >> 8);
    Put(value & 0xFF);
    return;
  }
  value = index - kIndexOnSecondBit[2];
  Put(context | 0x60 | value >> 16);
  PutBigEndian(static_cast<std::uint16_t>(value));
}

namespace {

template <unsigned kShift>
void PutLongIndex(CFIOutput& output, unsigned context, unsigned index,
                  const unsigned (&bounds)[5]) {
  if (index < bounds[2]) {
    const unsigned value = index - bounds[1];
    output.Put(context | 0x20 >> kShift | value >> 8);
    output.Put(value & 0xFF);
  } else if (index < bounds[3]) {
    const unsigned value = index - bounds[2];
    output.Put(context | 0x28 >> kShift | value >> 16);
    output.PutBigEndian(static_cast<std::uint16_t>(value));
  } else {
    const unsigned value = index - bounds[3];
    output.Put(context | 0x30 >> kShift);
    output.Put(value >> 16);
    output.PutBigEndian(static_cast<std::uint16_t>(value));
  }
}

}  // namespace

void CFIOutput::PutLongIndexOnThirdBit(unsigned context, unsigned index) {
  PutLongIndex<0>(*this, context, index, kIndexOnThirdBit);
}

void CFIOutput::PutLongIndexOnFourthBit(unsigned context, unsigned index) {
  PutLongIndex<1>(*this, context, index, kIndexOnFourthBit);
}

void CFIOutput::PutOctetString(std::string_view octets) {
  const std::uint64_t length = octets.size();
  if (length > kMaxLength) {
    throw CQvException("A name is too long for a Fast Infoset document.");
  }
  if (length < kLengthOnSecondBit[1]) {
    Put(static_cast<unsigned>(length - 1));
  } else if (length < kLengthOnSecondBit[2]) {
    Put(0x40);
    Put(static_cast<unsigned>(length - kLengthOnSecondBit[1]));
  } else {
    Put(0x60);
    PutBigEndian(static_cast<std::uint32_t>(length - kLengthOnSecondBit[2]));
  }
  Put(octets);
}

}  // namespace QvXmlLib16::detail
