#include <cstdio>

#include "bench/documents/binding_rows.h"

namespace bench {

using namespace QvXmlLib16;

namespace {

bool IsReadBack(const CBoundDocument& document, const std::string& json,
                const CSerializationContext& ctx) {
  try {
    document.makeObject()->FromJson(json.c_str(), ctx);
    return true;
  } catch (const CQvException&) {
    return false;
  }
}

void AddForm(const std::string& form, const CBoundDocument& document, const CObject& object,
             const CSerializationContext& ctx, std::vector<CProgram>& programs) {
  const std::string json = object->ToJson(false, EOL_LF, ctx);
  programs.push_back(
      Kept("ToJson" + form, [object, ctx] { return object->ToJson(false, EOL_LF, ctx); }));
  if (!IsReadBack(document, json, ctx)) {
    programs.push_back({"FromJson" + form, {}, "what is written is not read back"});
    return;
  }
  programs.push_back(Reading("FromJson" + form, document, [json, ctx](CXmlObjectBase& read) {
    read.FromJson(json.c_str(), ctx);
  }));
  programs.push_back(Kept("JSON to XML text" + form,
                          [json, ctx] { return CJsonTextReader::ConvertJsonToXml(json, ctx); }));
}

}  // namespace

void AddJsonRows(const CBoundDocument& document, const CObject& object,
                 std::vector<CProgram>& programs) {
  // Copied before there are options of JSON to share.
  CSerializationContext wellFormed(document.ctx);
  wellFormed.GetJsonContext().SetWellFormed(true);
  AddForm("", document, object, document.ctx, programs);
  AddForm(", well-formed", document, object, wellFormed, programs);
}

}  // namespace bench
