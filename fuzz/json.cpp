// Input: a JSON text. The first byte chooses the mode, comments, the root element's name and the
// depth.
//
// In the default mode the direct conversion must give what the handlers and the writer give, to the
// byte of the failure. In the standard mode what becomes XML must survive being an untyped element:
// its JSON reads back as the same element.

#include <string>

#include "fuzz/fuzz_target.h"

#include "qvxml/qvxml.h"

using namespace QvXmlLib16;

namespace {

constexpr uint8_t kModes = 3, kWellFormed = 4, kNoComments = 8, kRootName = 16, kShallow = 32;

std::string TextOf(const CBinaryData& data) {
  return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

template <class TConvert>
std::string OutcomeOf(const TConvert& convert) {
  try {
    return TextOf(convert());
  } catch (const CQvException& failure) {
    return "failure " + failure.GetFullMessage();
  }
}

CBinaryData ConvertThroughHandlers(const std::string& json, const CJsonContext& options) {
  CTextStream stream;
  CXmlTextWriter writer(stream);
  CJsonTextReader reader(json);
  CJsonReaderToXmlHandler handler(writer, options.GetSupportRoundtrip(),
                                  reader.GetErrorPathProvider());
  reader.SetJsonReaderHandler(&handler);
  reader.SetRootElementName(options.GetRootElementName());
  reader.SetAllowComments(options.GetAllowComments());
  reader.Read();
  writer.Close();
  return stream.GetEncodedStream();
}

// The element that a text becomes; null when it becomes none.
CSmartPtr<CElement> ReadElement(const std::string& json, const CSerializationContext& ctx) {
  CSmartPtr<CElement> element(new CElement("any"));
  try {
    element->FromJson(json.c_str(), ctx);
  } catch (const CQvException&) {
    return nullptr;
  }
  return element;
}

void ReadAgain(const CElement& element, CSerializationContext& ctx) {
  ctx.GetJsonContext().SetRootElementName("");
  ctx.GetJsonContext().SetMaxDepth(10000);
  std::string json;
  try {
    json = element.ToJson(false, EOL_LF, ctx);
  } catch (const CQvException& failure) {
    FuzzFailure("not written: " + failure.GetFullMessage());
  }
  const CSmartPtr<CElement> copy = ReadElement(json, ctx);
  if (!copy) FuzzFailure("not read back: " + json);
  if (copy->ToXml() != element.ToXml()) {
    FuzzFailure(element.ToXml() + " became " + copy->ToXml() + " by " + json);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const uint8_t options = data[0];
  const std::string json(reinterpret_cast<const char*>(data + 1), size - 1);
  {
    CSerializationContext ctx;
    CJsonContext& jsonOptions = ctx.GetJsonContext();
    jsonOptions.SetSupportRoundtrip(static_cast<JsonRoundTrip>((options & kModes) % 3));
    jsonOptions.SetWellFormed((options & kWellFormed) != 0);
    jsonOptions.GetAllowComments((options & kNoComments) == 0);
    if ((options & kRootName) != 0) jsonOptions.SetRootElementName("root");
    if ((options & kShallow) != 0) jsonOptions.SetMaxDepth(3);
    const std::string outcome =
        OutcomeOf([&] { return CJsonTextReader::ConvertJsonToXml(json, ctx); });
    if (!jsonOptions.GetWellFormed() &&
        outcome != OutcomeOf([&] { return ConvertThroughHandlers(json, jsonOptions); })) {
      FuzzFailure("the two ways differ");
    }
    const CSmartPtr<CElement> element = ReadElement(json, ctx);
    if (element && jsonOptions.GetWellFormed() &&
        jsonOptions.GetSupportRoundtrip() == JsonRoundTrip_Full) {
      ReadAgain(*element, ctx);
    }
  }
  for (const char* name : {"CXmlElement", "CElement", "CTextStream", "CJsonTextReader"}) {
    if (CInstanceMonitor::GetCount(name) != 0) FuzzFailure(std::string(name) + " left behind");
  }
  return 0;
}
