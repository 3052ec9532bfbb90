// Input: a letter that chooses the class, a byte of context options, and a document as a stream of
// bytes, for which compressed ones and Fast Infoset count too.
//
// What an object was read from is its value: written in each format that keeps everything and read
// again, it must give the same XML text. So must an object that is read from a tree which stays,
// and keeps its texts, the first time and the second.

#include "fuzz/sample_objects.h"

using namespace QvXmlLib16;
using namespace sample_objects;

namespace {

constexpr unsigned long kMaxSize = 1024 * 1024;

void ExpectSameFromTree(const CBinaryData& input, uint8_t choice, const CSerializationContext& ctx,
                        const std::string& xml) {
  CXmlDocument document(ctx);
  document.LoadXmlStream(input.GetData(), input.GetLength());
  for (const char* time : {"first", "second"}) {
    const ObjectPtr object = Make(choice);
    object->FromXmlElement(document.GetDocumentElement(), ctx);
    if (ToXml(object, ctx) != xml) FuzzFailure(std::string("another object the time ") + time);
  }
}

void Run(uint8_t choice, uint8_t options, const CBinaryData& input) {
  CSerializationContext ctx;
  SetOptions(ctx, options);
  const ObjectPtr object = Make(choice);
  if (!FailureOf([&] { object->FromXmlStream(input, ctx); }).empty()) return;
  std::string xml;
  if (!IsWritten(options, [&] { xml = ToXml(object, ctx); })) return;
  ExpectSameFromTree(input, choice, ctx, xml);
  // Declarations are attributes to a reader that knows no namespaces.
  if (HasRawText(xml) || (options & kLocalNames) != 0) return;
  ExpectXmlReread(object, choice, ctx);
  ExpectFastInfosetReread(object, choice, ctx);
  ctx.GetJsonContext().SetWellFormed(true);
  ctx.GetJsonContext().SetMaxDepth(10000);
  ExpectJsonReread(object, choice, ctx);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  CQvZip::SetMaxDecompressedSize(kMaxSize);
  ExpectNothingLeft([&] { Run(data[0], data[1], CBinaryData(data + 2, size - 2)); });
  return 0;
}
