// Reads and writes documents through generated classes and compares that with libexpat parsing
// them: a GPX track of 10 MB, made here, and the files on the command line, which
// documents/gen.py makes (see scripts/bench).
//
// Doubles have the format "", 16 digits, which is what the documents hold; so what is written has
// the length of what was read.
//
// On orders the peers do the same typed work, to and from plain structs; MB/s is that of the XML
// text in every row.

#include <cstdio>
#include <string>
#include <vector>

#include "bench/documents/bound_document.h"
#include "bench/orders/orders_with_patterns.h"
#include "bench/orders/peers.h"
#include "bench/support/comparison.h"
#include "bench/support/expat_reference.h"
#include <qvxml/qvxml.h>

namespace {

using namespace QvXmlLib16;
using namespace bench;

constexpr std::size_t kGpxSize = 10'000'000;

using CObject = CSmartPtr<CXmlObjectBase>;

// The result lives until the time is taken, as it would in a program.
template <class TWork>
CProgram Kept(const char* name, TWork work) {
  return {name, [work] {
            decltype(work()) result;
            return TimeOf([&] { result = work(); });
          }};
}

CProgram ToXmlProgram(const char* name, const CSerializationContext& ctx, const CObject& object,
                      bool isFormatted) {
  return Kept(
      name, [&ctx, object, isFormatted] { return object->ToXml(true, isFormatted, EOL_LF, ctx); });
}

std::vector<CProgram> ProgramsFor(const CBoundDocument& document, const CObject& object) {
  std::vector<CProgram> programs;
  programs.push_back(ExpatReference(document.xml));
  programs.push_back({"load to a tree", [&document] {
                        CXmlDocument tree;
                        return TimeOf([&] { tree.LoadXml(document.xml.c_str()); });
                      }});
  programs.push_back(Kept("FromXml", [&document] { return document.Read(); }));
  programs.push_back(ToXmlProgram("ToXml", document.ctx, object, false));
  if (document.name.rfind("deep", 0) == 0) {
    programs.push_back({"ToXml, formatted", {}, "mostly tabs"});
  } else {
    programs.push_back(ToXmlProgram("ToXml, formatted", document.ctx, object, true));
  }
  programs.push_back(Kept("ToXmlStream, gzip", [&document, object] {
    return object->ToXmlStream(true, false, Encoding_UTF8, EOL_LF, document.ctx,
                               CompressionType_GZip);
  }));
  return programs;
}

// Facets of members are checked when they are written.
void AddPatternRow(const CBoundDocument& document, std::vector<CProgram>& programs) {
  const CObject object = MakeOrdersWithPatterns();
  object->FromXml(document.xml.c_str(), document.ctx);
  programs.push_back(ToXmlProgram("ToXml, with pattern facets", document.ctx, object, false));
}

// A short run says little, a long one takes long.
int RoundsFor(std::size_t bytes) {
  if (bytes < 100'000) return 301;
  return bytes > 50'000'000 ? 5 : kRounds;
}

void Measure(const CBoundDocument& document) {
  CheckRoundTrip(document);
  std::vector<CProgram> programs = ProgramsFor(document, document.Read());
  if (document.name.rfind("orders", 0) == 0) {
    AddPatternRow(document, programs);
    AddXmlPeers(document.xml, programs);
    if (!document.json.empty()) AddJsonPeers(document.json, programs);
  }
  Compare(document.Description(), programs, RoundsFor(document.xml.size()));
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
