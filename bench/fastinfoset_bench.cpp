// Writes and reads objects as Fast Infoset, as text and with the suggested encodings, and compares
// that with libexpat parsing the XML that the same objects give: a GPX track of 10 MB, made here,
// and the files on the command line, see binding_bench.cpp. Prints how large the documents are.
//
// MB/s is that of the XML text in every row.

#include <cstdio>
#include <string>
#include <vector>

#include "bench/documents/bound_document.h"
#include "bench/support/comparison.h"
#include "bench/support/expat_reference.h"
#include <qvxml/qvxml.h>

namespace {

using namespace QvXmlLib16;
using namespace bench;

constexpr std::size_t kGpxSize = 10'000'000;

// What the binding engine costs in front of every format.
class CNullWriter : public CXmlWriter {
 public:
  CNullWriter() : CXmlWriter("CNullWriter") {}
  void WriteComment(const std::string&) override {}
  void WritePI(const std::string&) override {}
  void WriteInlineSchema(const std::string&) override {}
  void WriteStartElement(const std::string&, const std::string&) override {}
  void WriteString(const std::string&, ItemType, bool) override {}
  void WriteEndElement() override {}
  void WriteAttributeString(const std::string&, const std::string&, const std::string&,
                            ItemType) override {}
  void WriteAttributeType(const std::string&, const std::string&, ItemType) override {}
  void WriteAttributeNil() override {}
};

void AddRows(const char* encodings, const CBoundDocument& document,
             const CSerializationContext& ctx, const CXmlObjectBase& object,
             std::vector<CProgram>& programs) {
  const CBinaryData octets = object.ToFastInfosetStream(FInfoDecl_None, ctx);
  std::printf("%s, %s: %lu bytes, %.3f of the XML\n", document.name.c_str(), encodings,
              octets.GetLength(),
              static_cast<double>(octets.GetLength()) / static_cast<double>(document.xml.size()));
  programs.push_back({std::string("ToFastInfosetStream, ") + encodings, [&object, &ctx] {
                        CBinaryData result;
                        return TimeOf(
                            [&] { result = object.ToFastInfosetStream(FInfoDecl_None, ctx); });
                      }});
  programs.push_back({std::string("FromXmlStream, ") + encodings, [&document, octets, &ctx] {
                        const CSmartPtr<CXmlObjectBase> result = document.makeObject();
                        return TimeOf([&] { result->FromXmlStream(octets, ctx); });
                      }});
  programs.push_back({std::string("load to a tree, ") + encodings, [octets, &ctx] {
                        CXmlDocument tree(ctx);
                        return TimeOf(
                            [&] { tree.LoadXmlStream(octets.GetData(), octets.GetLength()); });
                      }});
}

void Measure(CBoundDocument document) {
  // Copied before there are options of Fast Infoset to share.
  CSerializationContext suggested(document.ctx);
  suggested.GetFIContext().SetSuggestedValues();
  const CSmartPtr<CXmlObjectBase> object = document.Read();
  document.xml = object->ToXml(true, false, EOL_LF, document.ctx);

  std::vector<CProgram> programs;
  programs.push_back(ExpatReference(document.xml));
  programs.push_back(Timed("ToXml_Int, writing nothing", [&] {
    CNullWriter writer;
    object->ToXml_Int(&writer, true, object->GetTargetNamespace().c_str(), document.ctx, false);
  }));
  programs.push_back(Timed("ToXml", [&] { object->ToXml(true, false, EOL_LF, document.ctx); }));
  AddRows("text", document, document.ctx, *object, programs);
  AddRows("suggested encodings", document, suggested, *object, programs);
  Compare(document.Description(), programs);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Measure(MakeGpx("gpx_10m", kGpxSize));
    for (int index = 1; index < argc; ++index) Measure(ReadDocument(argv[index]));
    return 0;
  } catch (const CQvException& exception) {
    std::fprintf(stderr, "%s\n", exception.GetFullMessage().c_str());
    return 1;
  }
}
