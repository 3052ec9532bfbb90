// Reads and writes documents through generated classes, as XML, JSON and Fast Infoset, and compares
// that with libexpat parsing them: a GPX track of 10 MB, made here, and the files on the command
// line, which documents/gen.py makes (see scripts/bench).
//
// Doubles have the format "", 16 digits, which is what the documents hold; so what is written has
// the length of what was read.
//
// On orders the peers do the same typed work; MB/s is that of the XML text in every row.

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include "bench/documents/binding_rows.h"
#include "bench/orders/generated_peers.h"
#include "bench/orders/orders_with_patterns.h"
#include "bench/orders/peers.h"
#include "bench/support/comparison.h"
#include "bench/support/expat_reference.h"
#include <qvxml/qvxml.h>

namespace {

using namespace QvXmlLib16;
using namespace bench;

constexpr std::size_t kGpxSize = 10'000'000;
// Smaller documents are run several times in a row.
constexpr std::size_t kBytesInRow = 5'000'000;

// Facets of members are checked when they are written.
void AddPatternRow(const CBoundDocument& document, std::vector<CProgram>& programs) {
  const CObject object = MakeOrdersWithPatterns();
  object->FromXml(document.xml.c_str(), document.ctx);
  programs.push_back(Kept("ToXml, with pattern facets", [&document, object] {
    return object->ToXml(true, false, EOL_LF, document.ctx);
  }));
}

// A short run says little, a long one takes long.
CRepetitions RepetitionsFor(std::size_t bytes) {
  CRepetitions repetitions;
  if (bytes > 50'000'000) repetitions.rounds = 5;
  repetitions.runs = static_cast<int>(std::max<std::size_t>(kBytesInRow / bytes, 1));
  return repetitions;
}

void AddPeers(const CBoundDocument& document, std::vector<CProgram>& programs) {
  AddXmlPeers(document.xml, programs);
#if defined(QVXML_BENCH_GSOAP)
  AddGsoapPeer(document.xml, programs);
#else
  programs.push_back({"gSOAP", {}, "not installed"});
#endif
#if defined(QVXML_BENCH_CODESYNTHESIS)
  AddCodeSynthesisPeer(document.xml, programs);
#else
  programs.push_back({"CodeSynthesis XSD", {}, "not installed"});
#endif
  if (!document.json.empty()) AddJsonPeers(document.json, programs);
}

void Measure(const CBoundDocument& document) {
  CheckRoundTrip(document);
  const CObject object = document.Read();
  std::vector<CProgram> programs;
  programs.push_back(ExpatReference(document.xml));
  AddXmlRows(document, object, programs);
  AddJsonRows(document, object, programs);
  AddFastInfosetRows(document, object, programs);
  AddThreadsRow(document, programs);
  if (document.name.rfind("orders", 0) == 0) {
    AddPatternRow(document, programs);
    AddPeers(document, programs);
  }
  Compare(document.Description(), programs, RepetitionsFor(document.xml.size()));
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
