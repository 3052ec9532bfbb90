// Writes the objects of a GPX document of 5 MB as JSON, in both forms, and reads them back, and
// compares that with libexpat parsing the XML of the same objects and with what other libraries
// need to write and to read a tree of the same JSON. Then the same without other libraries for the
// files on the command line, see binding_bench.cpp; there libexpat parses the file as it is.

#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "bench/documents/bound_document.h"
#include "bench/support/comparison.h"
#include "bench/support/expat_reference.h"
#include "examples/gpx/gpx11.h"
#include <qvxml/qvxml.h>

#if defined(QVXML_BENCH_RAPIDJSON)
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#endif
#if defined(QVXML_BENCH_NLOHMANN)
#include <nlohmann/json.hpp>
#endif

namespace {

using namespace QvXmlLib16;

constexpr size_t kBytes = 5000000;

std::string MakeGpx() {
  std::string xml =
      "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" creator=\"json_bench\">"
      "<trk><name>ride</name><trkseg>";
  char point[200];
  for (int index = 0; xml.size() < kBytes; ++index) {
    std::snprintf(point, sizeof point,
                  "<trkpt lat=\"52.%06d\" lon=\"13.%06d\"><ele>%d.%d</ele>"
                  "<time>2024-03-%02dT%02d:%02d:%02dZ</time></trkpt>",
                  (index * 7919) % 1000000, (index * 104729) % 1000000, 30 + index % 90,
                  1 + index % 9, 1 + index % 28, index / 3600 % 24, index / 60 % 60, index % 60);
    xml += point;
  }
  return xml + "</trkseg></trk></gpx>";
}

// What a writer is told, for telling it again without the objects in front of it.
class CRecorder : public CXmlWriter {
 public:
  CRecorder() : CXmlWriter("CRecorder") {}

  void WriteComment(const std::string&) override {}
  void WritePI(const std::string&) override {}
  void WriteInlineSchema(const std::string&) override {}
  void WriteStartElement(const std::string& localName, const std::string& uri) override {
    Note({kStart, localName, uri, "", ItemType_none, ContextState_None});
    PushContext(localName, uri, 0);
  }
  void WriteString(const std::string& text, ItemType type, bool) override {
    Note({kText, "", "", text, type, ContextState_None});
  }
  void WriteEndElement() override {
    Note({kEnd, "", "", "", ItemType_none, ContextState_None});
    PopContext();
  }
  void WriteAttributeString(const std::string& localName, const std::string& uri,
                            const std::string& value, ItemType type) override {
    Note({kAttribute, localName, uri, value, type, ContextState_None});
  }
  void WriteAttributeType(const std::string&, const std::string&, ItemType) override {}
  void WriteAttributeNil() override {}

  void Repeat(CXmlWriter& writer) const {
    for (const CCall& call : m_calls) {
      if (call.state != ContextState_None) writer.SetContextState(call.state);
      switch (call.kind) {
        case kStart:
          writer.WriteStartElement(call.name, call.uri);
          break;
        case kText:
          writer.WriteString(call.value, call.type, false);
          break;
        case kAttribute:
          writer.WriteAttributeString(call.name, call.uri, call.value, call.type);
          break;
        case kEnd:
          writer.WriteEndElement();
          break;
      }
    }
  }

 private:
  enum CKind { kStart, kText, kAttribute, kEnd };
  struct CCall {
    CKind kind;
    std::string name, uri, value;
    ItemType type;
    // What was set since the call before.
    ContextState state;
  };

  void Note(CCall call) {
    if (GetContext() != nullptr) {
      call.state = GetContext()->GetState();
      SetContextState(ContextState_None);
    }
    m_calls.push_back(std::move(call));
  }

  std::vector<CCall> m_calls;
};

template <class TWriter>
void WriteAgain(const CRecorder& recorder) {
  CTextStream stream;
  TWriter writer(stream);
  writer.SetFormat(false);
  writer.SetDefaultNamespace("http://www.topografix.com/GPX/1/1");
  writer.WriteStartDocument();
  recorder.Repeat(writer);
  writer.WriteEndDocument();
}

void AddWriters([[maybe_unused]] const std::string& json, std::vector<bench::CProgram>& programs) {
#if defined(QVXML_BENCH_RAPIDJSON)
  programs.push_back({"RapidJSON, text of a ready tree", [&json] {
                        rapidjson::Document tree;
                        // Numbers as they stand, which is less work than the library's.
                        tree.Parse<rapidjson::kParseNumbersAsStringsFlag>(json.data(), json.size());
                        rapidjson::StringBuffer text;
                        return bench::TimeOf([&] {
                          rapidjson::Writer<rapidjson::StringBuffer> writer(text);
                          tree.Accept(writer);
                        });
                      }});
#else
  programs.push_back({"RapidJSON", {}, "not installed"});
#endif
#if defined(QVXML_BENCH_NLOHMANN)
  programs.push_back({"nlohmann-json, text of a ready tree", [&json] {
                        const nlohmann::json tree = nlohmann::json::parse(json);
                        std::string text;
                        return bench::TimeOf([&] { text = tree.dump(); });
                      }});
#else
  programs.push_back({"nlohmann-json", {}, "not installed"});
#endif
}

// Reads new objects; taking them down is not timed.
bench::CProgram Reading(const std::string& name, std::function<void(gpx11::CGpx&)> read) {
  return {name, [read] {
            const CSmartPtr<gpx11::CGpx> gpx(new gpx11::CGpx);
            return bench::TimeOf([&] { read(*gpx); });
          }};
}

void AddReading(const std::string& form, const std::string& json, const CSerializationContext& ctx,
                std::vector<bench::CProgram>& programs) {
  programs.push_back(bench::Timed(("JSON to XML text" + form).c_str(),
                                  [&] { CJsonTextReader::ConvertJsonToXml(json, ctx); }));
  programs.push_back(
      Reading("FromJson" + form, [&](gpx11::CGpx& gpx) { gpx.FromJson(json.c_str(), ctx); }));
}

void AddReaders([[maybe_unused]] const std::string& json, std::vector<bench::CProgram>& programs) {
#if defined(QVXML_BENCH_RAPIDJSON)
  programs.push_back(bench::Timed("RapidJSON, to a tree", [&json] {
    rapidjson::Document tree;
    tree.Parse(json.data(), json.size());
  }));
#else
  programs.push_back({"RapidJSON", {}, "not installed"});
#endif
#if defined(QVXML_BENCH_NLOHMANN)
  programs.push_back(bench::Timed("nlohmann-json, to a tree", [&json] {
    const nlohmann::json tree = nlohmann::json::parse(json);
  }));
#else
  programs.push_back({"nlohmann-json", {}, "not installed"});
#endif
}

void Measure(const bench::CBoundDocument& document) {
  const CSerializationContext own(document.ctx);
  const CSerializationContext wellFormed(document.ctx);
  wellFormed.GetJsonContext().SetWellFormed(true);
  const CSmartPtr<CXmlObjectBase> object = document.Read();
  std::vector<bench::CProgram> programs;
  programs.push_back(bench::ExpatReference(document.xml));
  for (const auto& [form, ctx] : {std::pair("", &own), std::pair(", well-formed", &wellFormed)}) {
    programs.push_back(bench::Timed((std::string("ToJson") + form).c_str(),
                                    [&object, ctx = ctx] { object->ToJson(false, EOL_LF, *ctx); }));
  }
  // The other form is not made to be read back: it may leave an array of texts open.
  const std::string json = object->ToJson(false, EOL_LF, wellFormed);
  programs.push_back({"FromJson, well-formed", [&document, &wellFormed, &json] {
                        const CSmartPtr<CXmlObjectBase> result = document.makeObject();
                        return bench::TimeOf([&] { result->FromJson(json.c_str(), wellFormed); });
                      }});
  bench::Compare(document.Description(), programs);
}

void MeasureGpx() {
  const std::string xml = MakeGpx();
  CSmartPtr<gpx11::CGpx> gpx(new gpx11::CGpx);
  gpx->FromXml(xml.c_str());
  CSerializationContext own;
  own.SetDefaultNamespaceURI("http://www.topografix.com/GPX/1/1");
  CSerializationContext wellFormed;
  wellFormed.SetDefaultNamespaceURI("http://www.topografix.com/GPX/1/1");
  wellFormed.GetJsonContext().SetWellFormed(true);
  CRecorder recorder;
  gpx->ToXml_Int(&recorder, true, gpx->GetTargetNamespace().c_str(), own, false);
  const std::string ownJson = gpx->ToJson(false, EOL_LF, own);
  const std::string json = gpx->ToJson(false, EOL_LF, wellFormed);

  std::vector<bench::CProgram> programs;
  programs.push_back(bench::ExpatReference(xml));
  programs.push_back(bench::Timed("ToXml", [&] { gpx->ToXml(false, false, EOL_LF, own); }));
  programs.push_back(bench::Timed("ToJson", [&] { gpx->ToJson(false, EOL_LF, own); }));
  programs.push_back(bench::Timed("ToJson, formatted", [&] { gpx->ToJson(true, EOL_LF, own); }));
  programs.push_back(
      bench::Timed("ToJson, well-formed", [&] { gpx->ToJson(false, EOL_LF, wellFormed); }));
  programs.push_back(bench::Timed("ToJson, well-formed, formatted",
                                  [&] { gpx->ToJson(true, EOL_LF, wellFormed); }));
  programs.push_back(bench::Timed("writer alone", [&] { WriteAgain<CJsonTextWriter>(recorder); }));
  programs.push_back(bench::Timed("writer alone, well-formed",
                                  [&] { WriteAgain<CWellFormedJsonWriter>(recorder); }));
  AddWriters(json, programs);
  programs.push_back(Reading("FromXml", [&](gpx11::CGpx& read) { read.FromXml(xml.c_str()); }));
  AddReading("", ownJson, own, programs);
  AddReading(", well-formed", json, wellFormed, programs);
  AddReaders(json, programs);
  bench::Compare({"gpx", xml.size(), bench::CountElements(xml)}, programs);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    MeasureGpx();
    for (int index = 1; index < argc; ++index) Measure(bench::ReadDocument(argv[index]));
    return 0;
  } catch (const CQvException& exception) {
    std::fprintf(stderr, "%s\n", exception.GetFullMessage().c_str());
    return 1;
  }
}
