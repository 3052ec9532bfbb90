#include "bench/documents/bound_document.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "bench/deep/deep.h"
#include "bench/numbers/numbers.h"
#include "bench/orders/orders.h"
#include "bench/support/expat_reference.h"
#include "bench/wide/wide.h"
#include "examples/gpx/gpx11.h"

namespace bench {

using namespace QvXmlLib16;

namespace {

template <class TObject>
CSmartPtr<CXmlObjectBase> Make() {
  return new TObject;
}

struct CDocumentClass {
  const char* rootElement;
  const char* namespaceUri;
  CSmartPtr<CXmlObjectBase> (*makeObject)();
};

constexpr CDocumentClass kClasses[] = {
    {"orders", "http://example.org/2024/orders", Make<orders::COrders>},
    {"numbers", "http://example.org/2024/numbers", Make<numbers::CNumbers>},
    {"wide", "http://example.org/2024/wide", Make<wide::CWide>},
    {"deep", "http://example.org/2024/deep", Make<deep::CDeep>},
    {"gpx", "http://www.topografix.com/GPX/1/1", Make<gpx11::CGpx>},
};

std::string ReadFile(const std::filesystem::path& path) {
  std::ostringstream text;
  std::ifstream file(path, std::ios::binary);
  if (!file || !(text << file.rdbuf())) {
    throw CQvException("Failed to read the file [" + path.string() + "]");
  }
  return text.str();
}

// The first start tag of the text, which is that of the root.
std::string RootElementOf(const std::string& xml) {
  std::size_t start = xml.find('<');
  while (start != std::string::npos && (xml[start + 1] == '?' || xml[start + 1] == '!')) {
    start = xml.find('<', start + 1);
  }
  if (start == std::string::npos) return "";
  return xml.substr(start + 1, xml.find_first_of(" \t\r\n>/", start + 1) - start - 1);
}

CBoundDocument Bind(const std::string& name, std::string xml) {
  const std::string rootElement = RootElementOf(xml);
  for (const CDocumentClass& documentClass : kClasses) {
    if (rootElement != documentClass.rootElement) continue;
    CBoundDocument document{name, std::move(xml), documentClass.makeObject};
    document.ctx.SetDefaultNamespaceURI(documentClass.namespaceUri);
    if (rootElement == "orders") {
      document.ctx.GetNamespaceAliases().Add("c", "http://example.org/2024/common");
    }
    document.elements = CountElements(document.xml);
    return document;
  }
  throw CQvException("There is no class for the root element [" + rootElement + "] of [" + name +
                     "]");
}

// A ride of one point every few seconds that turns slowly, with the digits that receivers write.
std::string TrackPoint(std::mt19937& random, int index) {
  const auto jitter = [&random] { return static_cast<int>(random() % 200) - 100; };
  const long milliseconds = index * 3000L + static_cast<long>(random() % 3000);
  const long seconds = milliseconds / 1000;
  char text[256];
  const int length =
      std::snprintf(text, sizeof text,
                    "            <trkpt lat=\"50.%06d\" lon=\"4.%06d\">\n"
                    "                <ele>%d.%d</ele>\n"
                    "                <time>2023-12-%02ldT%02ld:%02ld:%02ld.%03ldZ</time>\n"
                    "            </trkpt>\n",
                    790867 - index % 90000 + jitter(), 404968 + index % 80000 + jitter(),
                    100 + index / 7 % 60, static_cast<int>(random() % 10), 1 + seconds / 86400 % 31,
                    seconds / 3600 % 24, seconds / 60 % 60, seconds % 60, milliseconds % 1000);
  return std::string(text, static_cast<std::size_t>(length));
}

std::string WriteCompact(const CBoundDocument& document, const CXmlObjectBase& object) {
  return object.ToXml(true, false, EOL_LF, document.ctx);
}

}  // namespace

CSmartPtr<CXmlObjectBase> CBoundDocument::Read() const {
  CSmartPtr<CXmlObjectBase> object = makeObject();
  object->FromXml(xml.c_str(), ctx);
  return object;
}

CBoundDocument ReadDocument(const std::string& path) {
  const std::filesystem::path xmlPath(path);
  CBoundDocument document = Bind(xmlPath.stem().string(), ReadFile(xmlPath));
  const std::filesystem::path jsonPath = std::filesystem::path(path).replace_extension(".json");
  if (std::filesystem::exists(jsonPath)) document.json = ReadFile(jsonPath);
  return document;
}

CBoundDocument MakeGpx(const std::string& name, std::size_t bytes) {
  std::string xml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<gpx xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\n"
      "    xmlns=\"http://www.topografix.com/GPX/1/1\" "
      "xsi:schemaLocation=\"http://www.topografix.com/GPX/1/1 "
      "http://www.topografix.com/GPX/1/1/gpx.xsd\" version=\"1.1\" creator=\"binding_bench\">\n"
      "    <metadata>\n        <name>ride</name>\n    </metadata>\n"
      "    <trk>\n        <name>ride</name>\n        <type>Cycling</type>\n        <trkseg>\n";
  std::mt19937 random(7);
  for (int index = 0; xml.size() < bytes; ++index) xml += TrackPoint(random, index);
  xml += "        </trkseg>\n    </trk>\n</gpx>\n";
  return Bind(name, std::move(xml));
}

void CheckRoundTrip(const CBoundDocument& document) {
  const std::string first = WriteCompact(document, *document.Read().Ptr());
  if (CountElements(first) != document.elements) {
    throw CQvException("Elements of [" + document.name + "] got lost");
  }
  const CSmartPtr<CXmlObjectBase> readBack = document.makeObject();
  readBack->FromXml(first.c_str(), document.ctx);
  if (WriteCompact(document, *readBack.Ptr()) != first) {
    throw CQvException("The second writing of [" + document.name + "] differs from the first");
  }
}

}  // namespace bench
