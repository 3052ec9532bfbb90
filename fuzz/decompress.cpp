// Input: data said to be compressed.

#include "fuzz/fuzz_target.h"

#include "qvxml/core/exception.h"
#include "qvxml/xml/compression.h"

using namespace QvXmlLib16;

namespace {

constexpr unsigned long kMaxSize = 256 * 1024;

void CheckCompressedAgain(const CBinaryData& content, CompressionType type) {
  CBinaryData data(content);
  try {
    CQvZip::CompressData(data, type);
  } catch (const CQvException&) {
    if (data != content) FuzzFailure("a failed compression changed the data");
    return;
  }
  if (data.GetLength() > content.GetLength()) FuzzFailure("compressed data is larger");
  if (!CQvZip::IsCompressed(data)) FuzzFailure("compressed data is not recognised");
  if (CQvZip::Decompress(data) != content) FuzzFailure("the content changed");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  CQvZip::SetMaxDecompressedSize(kMaxSize);
  CBinaryData content;
  try {
    content = CQvZip::Decompress(CBinaryData(data, size));
  } catch (const CQvException&) {
    return 0;
  }
  if (content.GetLength() > kMaxSize) FuzzFailure("the maximum size was exceeded");
  CheckCompressedAgain(content, CompressionType_GZip);
  CheckCompressedAgain(content, CompressionType_ZLib);
  return 0;
}
