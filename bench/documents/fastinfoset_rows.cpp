#include <cstdio>

#include "bench/documents/binding_rows.h"

namespace bench {

using namespace QvXmlLib16;

namespace {

void AddEncoding(const std::string& encoding, const CBoundDocument& document, const CObject& object,
                 const CSerializationContext& ctx, std::vector<CProgram>& programs) {
  const CBinaryData octets = object->ToFastInfosetStream(FInfoDecl_None, ctx);
  const std::string compact = object->ToXml(true, false, EOL_LF, document.ctx);
  char size[60];
  std::snprintf(size, sizeof size, "%.2f of compact XML",
                static_cast<double>(octets.GetLength()) / static_cast<double>(compact.size()));
  programs.push_back({"Fast Infoset, " + encoding + ": size", {}, size});
  programs.push_back(Kept("ToFastInfosetStream, " + encoding, [object, ctx] {
    return object->ToFastInfosetStream(FInfoDecl_None, ctx);
  }));
  programs.push_back(
      Reading("FromXmlStream, " + encoding, document,
              [octets, ctx](CXmlObjectBase& read) { read.FromXmlStream(octets, ctx); }));
  programs.push_back(Kept("load to a tree, " + encoding, [octets, ctx] {
    auto tree = std::make_unique<CXmlDocument>(ctx);
    tree->LoadXmlStream(octets.GetData(), octets.GetLength());
    return tree;
  }));
}

}  // namespace

void AddFastInfosetRows(const CBoundDocument& document, const CObject& object,
                        std::vector<CProgram>& programs) {
  // Copied before there are options of Fast Infoset to share.
  CSerializationContext suggested(document.ctx);
  suggested.GetFIContext().SetSuggestedValues();
  AddEncoding("FI literal", document, object, document.ctx, programs);
  AddEncoding("FI suggested", document, object, suggested, programs);
}

}  // namespace bench
