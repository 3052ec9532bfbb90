// Input: a letter that chooses the class, a byte of context options, a byte that chooses the JSON
// mode, the root element's name and formatting, and a JSON text.
//
// In the mode that keeps everything, what was read must come back when it is written and read
// again; all other modes lose something by design, and are to be survived.

#include "fuzz/sample_objects.h"

using namespace QvXmlLib16;
using namespace sample_objects;

namespace {

constexpr uint8_t kModes = 3, kOwnForm = 4, kRootName = 8, kPlain = 16;

void SetJsonOptions(CJsonContext& json, uint8_t options) {
  static constexpr JsonRoundTrip kRoundTrips[] = {JsonRoundTrip_Full, JsonRoundTrip_Standard,
                                                  JsonRoundTrip_None, JsonRoundTrip_Full};
  json.SetSupportRoundtrip(kRoundTrips[options & kModes]);
  json.SetWellFormed((options & kOwnForm) == 0);
  if ((options & kRootName) != 0) json.SetRootElementName("root");
}

void Survive(const ObjectPtr& object, uint8_t choice, bool isFormatted,
             const CSerializationContext& ctx) {
  FailureOf([&] {
    const CBinaryData json = object->ToJsonStream(isFormatted, Encoding_UTF8, EOL_LF, ctx);
    Make(choice)->FromJsonStream(json, ctx);
  });
}

void Run(uint8_t choice, uint8_t options, uint8_t jsonOptions, const CBinaryData& input) {
  CSerializationContext ctx;
  SetOptions(ctx, options);
  CJsonContext& json = ctx.GetJsonContext();
  SetJsonOptions(json, jsonOptions);
  const ObjectPtr object = Make(choice);
  if (!FailureOf([&] { object->FromJsonStream(input, ctx); }).empty()) return;
  std::string xml;
  const bool isWritten = IsWritten(options, [&] { xml = ToXml(object, ctx); });
  json.SetRootElementName("");
  json.SetMaxDepth(10000);
  Survive(object, choice, (jsonOptions & kPlain) == 0, ctx);
  if (!isWritten || HasRawText(xml) || (options & kLocalNames) != 0) return;
  ExpectXmlReread(object, choice, ctx);
  json.SetWellFormed(true);
  json.SetSupportRoundtrip(JsonRoundTrip_Full);
  ExpectJsonReread(object, choice, ctx);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 3) return 0;
  ExpectNothingLeft([&] { Run(data[0], data[1], data[2], CBinaryData(data + 3, size - 3)); });
  return 0;
}
