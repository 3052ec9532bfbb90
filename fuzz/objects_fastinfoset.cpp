// Input: a letter that chooses the class, a byte of context options, a byte of Fast Infoset options
// and a Fast Infoset document.
//
// An object that was read must come back, to the last octet, when it is written with any encoding
// and vocabulary and read again.

#include "fuzz/fi_mutator.h"
#include "fuzz/sample_objects.h"

#include "qvxml/fastinfoset/fi_reader.h"

using namespace QvXmlLib16;
using namespace sample_objects;

namespace {

constexpr uint8_t kUtf16 = 1, kSuggested = 2, kAllIndexed = 4, kNoneIndexed = 8, kAlgorithm = 16,
                  kVocabulary = 32;

void SetFastInfosetOptions(CFastInfosetContext& fastInfoset, uint8_t options) {
  const auto has = [options](uint8_t option) { return (options & option) != 0; };
  if (has(kUtf16)) fastInfoset.SetDefaultStringEncoding(1);
  if (has(kSuggested)) fastInfoset.SetSuggestedValues();
  if (has(kAllIndexed) || has(kNoneIndexed)) {
    fastInfoset.SetAttributeMaxAddLength(has(kAllIndexed) ? 1000 : 0);
    fastInfoset.SetElementMaxAddLength(has(kNoneIndexed) ? 0 : 1000);
  }
  // One that few values of the types are for.
  if (has(kAlgorithm)) {
    for (int type = ItemType_hexBinary; type <= ItemType_integer; ++type) {
      const int index = 1 + (type + options / 64) % 8;
      fastInfoset.SetEncoding(
          type, {CFastInfosetContext::EncodingKind_Algorithm, static_cast<unsigned>(index)});
    }
  }
  if (!has(kVocabulary)) return;
  fastInfoset.SetUseGeneratedVocabulary(true);
  fastInfoset.SetExternalVocabularyURI("u");
  CFIVocabulary& vocabulary = fastInfoset.GetVocabulary();
  vocabulary.AddElement("", "urn:qvxml:samples", "payment");
  vocabulary.AddElement("s", "urn:qvxml:samples", "card");
  vocabulary.AddAttribute("", "", "payer");
  vocabulary.AddAttribute("p", "urn:o", "hop");
  vocabulary.AddAttributeValue("me");
  vocabulary.AddElementValue("1");
}

void Run(uint8_t choice, uint8_t options, uint8_t writeOptions, const CBinaryData& input) {
  CSerializationContext ctx;
  SetOptions(ctx, options);
  SetFastInfosetOptions(ctx.GetFIContext(), writeOptions);
  const ObjectPtr object = Make(choice);
  if (!FailureOf([&] { object->FromXmlStream(input, ctx); }).empty()) return;
  if (!IsWritten(options, [&] { object->ToFastInfosetStream(FInfoDecl_None, ctx); })) return;
  if ((options & kLocalNames) != 0) return;
  ExpectFastInfosetReread(object, choice, ctx);
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize,
                                          unsigned seed) {
  return MutateFastInfoset(data, size, maxSize, 3, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 4 || !CFastInfosetReader::IsFastInfoset(data + 3, size - 3)) return 0;
  ExpectNothingLeft([&] { Run(data[0], data[1], data[2], CBinaryData(data + 3, size - 3)); });
  return 0;
}
