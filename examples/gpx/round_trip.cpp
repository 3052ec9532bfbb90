#include "round_trip.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <optional>
#include <vector>

#include "summary.h"

using namespace QvXmlLib16;
using gpx11::CGpx;

namespace {

// GPX as its default namespace keeps the document free of prefixes. The JSON is what every program
// reads, and carries namespaces too, which extensions need.
CSerializationContext MakeContext() {
  CSerializationContext ctx;
  ctx.SetDefaultNamespaceURI("http://www.topografix.com/GPX/1/1");
  ctx.GetJsonContext().SetWellFormed(true);
  ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_Full);
  return ctx;
}

// One row of the table. A new format is one more row.
struct Format {
  const char* name;
  const char* fileEnding;
  CBinaryData (*write)(const CGpx& gpx, const CSerializationContext& ctx);
  void (*read)(const CBinaryData& bytes, const CSerializationContext& ctx, CGpx& gpx);
};

// Not indented: the schema lets extensions mix text and elements, and there indentation is text.
template <CompressionType kCompression>
CBinaryData WriteXml(const CGpx& gpx, const CSerializationContext& ctx) {
  return gpx.ToXmlStream(true, false, Encoding_UTF8, EOL_LF, ctx, kCompression);
}

void ReadXml(const CBinaryData& bytes, const CSerializationContext& ctx, CGpx& gpx) {
  gpx.FromXmlStream(bytes, ctx);
}

template <CompressionType kCompression>
CBinaryData WriteJson(const CGpx& gpx, const CSerializationContext& ctx) {
  return gpx.ToJsonStream(false, Encoding_UTF8, EOL_LF, ctx, kCompression);
}

void ReadJson(const CBinaryData& bytes, const CSerializationContext& ctx, CGpx& gpx) {
  gpx.FromJsonStream(bytes, ctx);
}

// What is read as XML may as well be Fast Infoset.
template <CompressionType kCompression>
CBinaryData WriteFastInfoset(const CGpx& gpx, const CSerializationContext& ctx) {
  return gpx.ToFastInfosetStream(FInfoDecl_None, ctx, kCompression);
}

const Format kFormats[] = {
    {"XML", ".gpx", WriteXml<CompressionType_None>, ReadXml},
    {"XML, gzip", ".gpx.gz", WriteXml<CompressionType_GZip>, ReadXml},
    {"JSON", ".json", WriteJson<CompressionType_None>, ReadJson},
    {"JSON, gzip", ".json.gz", WriteJson<CompressionType_GZip>, ReadJson},
    {"Fast Infoset", ".finf", WriteFastInfoset<CompressionType_None>, ReadXml},
    {"Fast Infoset, gz", ".finf.gz", WriteFastInfoset<CompressionType_GZip>, ReadXml},
};

// Shortest of several runs, in milliseconds; at least one run, and up to 50 ms of them.
template <class TAction>
double Measure(TAction action) {
  using Clock = std::chrono::steady_clock;
  double best = 0;
  double total = 0;
  do {
    const Clock::time_point start = Clock::now();
    action();
    const double elapsed = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    best = total == 0 ? elapsed : std::min(best, elapsed);
    total += elapsed;
  } while (total < 50);
  return best;
}

void Save(const CBinaryData& bytes, const std::string& path) {
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.GetData()),
             static_cast<std::streamsize>(bytes.GetLength()));
  if (!file.flush()) throw CQvException("Failed to write the file [" + path + "]");
}

// Compression fails on purpose for data that it does not make smaller.
std::optional<CBinaryData> TryToWrite(const Format& format, const CGpx& gpx,
                                      const CSerializationContext& ctx) {
  try {
    return format.write(gpx, ctx);
  } catch (const CQvException& exception) {
    if (exception.GetMessage().rfind("Failed to compress data.", 0) != 0) throw;
    return std::nullopt;
  }
}

// What changed between the document and what was read from its bytes, or "".
std::string FindChange(const Format& format, const CGpx& gpx, const CBinaryData& bytes,
                       const CGpx& readBack, const CSerializationContext& ctx) {
  if (format.write(readBack, ctx) != bytes) return "the second writing differs from the first";
  if (readBack.ToXml(false, false, EOL_LF, ctx) != gpx.ToXml(false, false, EOL_LF, ctx)) {
    return "the XML of the two differs";
  }
  return FindDifference(gpx, readBack);
}

bool RunRoundTrip(const Format& format, const CGpx& gpx, const CSerializationContext& ctx,
                  const std::string& stem) {
  const std::optional<CBinaryData> bytes = TryToWrite(format, gpx, ctx);
  if (!bytes) {
    std::printf("%-16s %10s\n", format.name, "too small to compress");
    return true;
  }
  const CSmartPtr<CGpx> readBack(new CGpx);
  const double writeTime = Measure([&] { format.write(gpx, ctx); });
  const double readTime = Measure([&] { format.read(*bytes, ctx, *readBack); });
  const std::string change = FindChange(format, gpx, *bytes, *readBack, ctx);
  std::printf("%-16s %10lu %12.3f %12.3f   %s\n", format.name, bytes->GetLength(), writeTime,
              readTime, change.empty() ? "nothing changed" : change.c_str());
  if (!stem.empty()) Save(*bytes, stem + format.fileEnding);
  return change.empty();
}

}  // namespace

bool RunRoundTrips(const CGpx& gpx, const std::string& stem) {
  const CSerializationContext ctx = MakeContext();
  std::printf("\n%-16s %10s %12s %12s   %s\n", "format", "bytes", "write in ms", "read in ms",
              "written, read, written again");
  bool isAllSame = true;
  for (const Format& format : kFormats) isAllSame &= RunRoundTrip(format, gpx, ctx, stem);
  return isAllSame;
}
