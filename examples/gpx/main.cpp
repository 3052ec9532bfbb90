// gpx FILE [STEM]: reads a GPX 1.1 file, plain or compressed, prints what it holds, and writes it
// in every format and back. With STEM the results are kept as STEM.gpx and so on.
//
// Exits with 0 when nothing was lost, 1 when something failed, 2 when called wrongly.

#include <cstdio>

#include "gpx11.h"
#include "report.h"
#include "round_trip.h"
#include "summary.h"
#include <qvxml/qvxml.h>

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: gpx FILE [STEM]\n");
    return 2;
  }
  try {
    // [read]
    const QvXmlLib16::CSmartPtr<gpx11::CGpx> gpx(new gpx11::CGpx);
    gpx->FromXmlFile(argv[1]);
    // [read]
    std::printf("%s, made by %s\n", argv[1], gpx->GetCreator()->c_str());
    Print(Summarise(*gpx));
    return RunRoundTrips(*gpx, argc == 3 ? argv[2] : "") ? 0 : 1;
  } catch (const QvXmlLib16::CQvException& failure) {
    PrintFailure(argv[1], failure);
    return 1;
  }
}
