// Writes GPX tracks, as objects, as Fast Infoset and as XML, and compares that with libexpat
// parsing the XML. The rounds of all programs alternate, so that a change of the machine's speed
// meets them alike; the median counts.

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "examples/gpx/gpx11.h"
#include <expat.h>

using namespace QvXmlLib16;

namespace {

constexpr int kRounds = 21;
constexpr size_t kBytes = 4000000;

// Tracks of the file, again and again.
std::string MakeDocument(const std::string& path) {
  std::ifstream file(path);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  const size_t begin = text.find("<trk>");
  const size_t end = text.rfind("</trk>");
  if (end == std::string::npos) return std::string();
  const std::string track = text.substr(begin, end + 6 - begin);
  std::string document = text.substr(0, begin);
  for (size_t size = 0; size < kBytes; size += track.size()) document += track;
  return document + text.substr(end + 6);
}

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

void ParseWithExpat(const CBinaryData& document) {
  const XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
  XML_SetElementHandler(
      parser, [](void*, const char*, const char**) {}, [](void*, const char*) {});
  XML_SetCharacterDataHandler(parser, [](void*, const char*, int) {});
  if (XML_Parse(parser, reinterpret_cast<const char*>(document.GetData()),
                static_cast<int>(document.GetLength()), 1) != XML_STATUS_OK) {
    std::puts("libexpat refuses the document");
  }
  XML_ParserFree(parser);
}

struct Program {
  const char* name;
  size_t bytes;
  std::function<void()> run;
  std::vector<double> milliseconds = {};

  double Median() const {
    std::vector<double> sorted = milliseconds;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
  }
};

// Time of the processor, in milliseconds: unlike the wall clock it stands still while others run.
double Now() { return static_cast<double>(std::clock()) * 1000.0 / CLOCKS_PER_SEC; }

void Measure(std::vector<Program>& programs) {
  for (int round = 0; round < kRounds; ++round) {
    for (Program& program : programs) {
      const double start = Now();
      program.run();
      program.milliseconds.push_back(Now() - start);
    }
  }
}

// Speeds are of the XML's bytes, whatever the format, so that they compare.
void Print(const std::vector<Program>& programs) {
  const Program& reference = programs.front();
  std::printf("%-40s %10s %8s %8s %9s %9s\n", "", "bytes", "of XML", "ms", "MB/s", "of expat");
  for (const Program& program : programs) {
    const double median = program.Median();
    std::printf("%-40s %10zu %8.3f %8.2f %9.0f %9.2f\n", program.name, program.bytes,
                static_cast<double>(program.bytes) / static_cast<double>(reference.bytes), median,
                static_cast<double>(reference.bytes) / 1000.0 / median,
                median / reference.Median());
  }
}

void Run(const char* path) {
  const std::string document = MakeDocument(path);
  const CSmartPtr<gpx11::CGpx> gpx(new gpx11::CGpx);
  gpx->FromXml(document.c_str());

  CSerializationContext plain;
  plain.SetDefaultNamespaceURI("http://www.topografix.com/GPX/1/1");
  CSerializationContext suggested;
  suggested.SetDefaultNamespaceURI("http://www.topografix.com/GPX/1/1");
  suggested.GetFIContext().SetSuggestedValues();
  const auto writeXml = [&] { return gpx->ToXmlStream(true, false, Encoding_UTF8, EOL_LF, plain); };
  const CBinaryData xml = writeXml();
  const CBinaryData octets = gpx->ToFastInfosetStream(FInfoDecl_None, plain);
  const CBinaryData compact = gpx->ToFastInfosetStream(FInfoDecl_None, suggested);
  const CSmartPtr<gpx11::CGpx> target(new gpx11::CGpx);

  std::vector<Program> programs;
  programs.push_back(
      {"libexpat, namespaces, empty handlers", xml.GetLength(), [&] { ParseWithExpat(xml); }});
  programs.push_back({"writing nothing", 0, [&] {
                        CNullWriter writer;
                        gpx->ToXml_Int(&writer, true, gpx->GetTargetNamespace().c_str(), plain,
                                       false);
                      }});
  programs.push_back({"writing XML", xml.GetLength(), [&] { writeXml(); }});
  programs.push_back({"writing Fast Infoset", octets.GetLength(),
                      [&] { gpx->ToFastInfosetStream(FInfoDecl_None, plain); }});
  programs.push_back({"writing Fast Infoset, suggested encodings", compact.GetLength(),
                      [&] { gpx->ToFastInfosetStream(FInfoDecl_None, suggested); }});
  programs.push_back({"reading XML", xml.GetLength(), [&] { target->FromXmlStream(xml, plain); }});
  programs.push_back(
      {"reading Fast Infoset", octets.GetLength(), [&] { target->FromXmlStream(octets, plain); }});
  programs.push_back({"reading Fast Infoset, suggested encodings", compact.GetLength(),
                      [&] { target->FromXmlStream(compact, suggested); }});
  const auto load = [](const CBinaryData& data) {
    CXmlDocument().LoadXmlStream(data.GetData(), data.GetLength());
  };
  programs.push_back({"XML into the tree", xml.GetLength(), [&] { load(xml); }});
  programs.push_back({"Fast Infoset into the tree", octets.GetLength(), [&] { load(octets); }});
  programs.push_back(
      {"the same, suggested encodings", compact.GetLength(), [&] { load(compact); }});
  Measure(programs);
  std::printf("%s, median of %d rounds\n", path, kRounds);
  Print(programs);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    Run(QVXML_GPX_DATA "/with_time.gpx");
    Run(QVXML_GPX_DATA "/with_hr.gpx");
  }
  for (int i = 1; i < argc; ++i) Run(argv[i]);
  return 0;
}
