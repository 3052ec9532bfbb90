#include <chrono>
#include <thread>

#include "bench/documents/binding_rows.h"

namespace bench {

using namespace QvXmlLib16;

namespace {

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

CProgram Writing(const char* name, const CBoundDocument& document, const CObject& object,
                 bool isFormatted) {
  return Kept(name, [&document, object, isFormatted] {
    return object->ToXml(true, isFormatted, EOL_LF, document.ctx);
  });
}

// Milliseconds until as many threads each have read the document and written it again.
double WallTime(const CBoundDocument& document, int count, int repeats) {
  const auto start = std::chrono::steady_clock::now();
  std::vector<std::thread> threads;
  for (int index = 0; index < count; ++index) {
    threads.emplace_back([&document, repeats] {
      for (int repeat = 0; repeat < repeats; ++repeat) {
        document.Read()->ToXml(true, false, EOL_LF, document.ctx);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

}  // namespace

void AddXmlRows(const CBoundDocument& document, const CObject& object,
                std::vector<CProgram>& programs) {
  programs.push_back(Kept("load to a tree", [&document] {
    auto tree = std::make_unique<CXmlDocument>();
    tree->LoadXml(document.xml.c_str());
    return tree;
  }));
  programs.push_back(Kept("FromXml", [&document] { return document.Read(); }));
  programs.push_back({"ToXml_Int, into a writer that writes nothing", [&document, object] {
                        CNullWriter writer;
                        return TimeOf([&] {
                          object->ToXml_Int(&writer, true, object->GetTargetNamespace().c_str(),
                                            document.ctx, false);
                        });
                      }});
  programs.push_back(Writing("ToXml", document, object, false));
  if (document.name.rfind("deep", 0) == 0) {
    programs.push_back({"ToXml, formatted", {}, "mostly tabs"});
  } else {
    programs.push_back(Writing("ToXml, formatted", document, object, true));
  }
  programs.push_back(Kept("ToXmlStream, gzip", [&document, object] {
    return object->ToXmlStream(true, false, Encoding_UTF8, EOL_LF, document.ctx,
                               CompressionType_GZip);
  }));
}

void AddThreadsRow(const CBoundDocument& document, std::vector<CProgram>& programs) {
  constexpr char kName[] = "two threads, FromXml and ToXml";
  if (std::thread::hardware_concurrency() < 2) {
    programs.push_back({kName, {}, "one core"});
    return;
  }
  const int repeats = 1 + static_cast<int>(20'000'000 / document.xml.size());
  std::vector<double> ratios;
  for (int round = 0; round < 5; ++round) {
    const double one = WallTime(document, 1, repeats);
    ratios.push_back(2 * one / WallTime(document, 2, repeats));
  }
  CProgram sorted{kName, {}, "", ratios};
  char text[40];
  std::snprintf(text, sizeof text, "%.2f x one", sorted.Median());
  programs.push_back({kName, {}, text});
}

}  // namespace bench
