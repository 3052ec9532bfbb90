// Loads generated documents of 10 MB (orders: namespaces, attributes, numbers, dates, short texts
// with entities and other letters than ASCII) and compares that with libexpat parsing them and with
// what other libraries need. The rounds of all programs alternate, so that a change of the
// machine's speed meets them alike; the median counts. Then streams a larger document through the
// element-complete callback; its megabytes are the argument.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <expat.h>
#include <malloc.h>

#include "qvxml/xml/xml_document.h"

#if defined(QVXML_BENCH_PUGIXML)
#include <pugixml.hpp>
#endif
#if defined(QVXML_BENCH_LIBXML2)
#include <libxml/parser.h>
#include <libxml/tree.h>
#endif

// Every allocation of the process passes here, those of the libraries too.
extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);
void __libc_free(void*);
}

namespace {

bool IsCounting = false;
long Allocations = 0;
long LiveBytes = 0;
long PeakBytes = 0;

void* Counted(void* memory) {
  if (IsCounting && memory != nullptr) {
    ++Allocations;
    LiveBytes += static_cast<long>(malloc_usable_size(memory));
    PeakBytes = std::max(PeakBytes, LiveBytes);
  }
  return memory;
}

void Uncounted(void* memory) {
  if (IsCounting && memory != nullptr) LiveBytes -= static_cast<long>(malloc_usable_size(memory));
}

}  // namespace

extern "C" {
void* malloc(size_t size) { return Counted(__libc_malloc(size)); }
void* calloc(size_t count, size_t size) { return Counted(__libc_calloc(count, size)); }
void* realloc(void* memory, size_t size) {
  Uncounted(memory);
  return Counted(__libc_realloc(memory, size));
}
int posix_memalign(void** memory, size_t alignment, size_t size) {
  *memory = Counted(__libc_memalign(alignment, size));
  return *memory != nullptr ? 0 : ENOMEM;
}
void free(void* memory) {
  Uncounted(memory);
  __libc_free(memory);
}
}

namespace {

using namespace QvXmlLib16;

constexpr int kRounds = 15;
constexpr size_t kDocumentSize = 10'000'000;
constexpr size_t kStreamedMegabytes = 300;

struct CAllocationCount {
  CAllocationCount() {
    Allocations = LiveBytes = PeakBytes = 0;
    IsCounting = true;
  }
  ~CAllocationCount() { IsCounting = false; }
};

struct CInput {
  std::string xml;
  double elements = 0;
};

// The generated documents.

class COrders {
 public:
  explicit COrders(bool isFormatted) : m_isFormatted(isFormatted) {}

  CInput Make(size_t size) {
    m_input.xml.reserve(size + 4096);
    m_input.xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    Start(
        "o:orders xmlns:o=\"http://www.example.com/schemas/2024/orders\" "
        "xmlns:c=\"http://www.example.com/schemas/2024/common\"");
    for (int id = 1; m_input.xml.size() < size; ++id) Order(id);
    End("o:orders");
    return std::move(m_input);
  }

 private:
  void Order(int id) {
    Start("o:order id=\"" + std::to_string(id) + "\" status=\"" + Pick(kStates) + "\"");
    Leaf("o:date", "2024-0" + Number(1, 9) + "-" + Number(10, 28));
    Start("c:customer type=\"business\"");
    Leaf("c:name", Pick(kNames));
    Leaf("c:city", Pick(kCities));
    End("c:customer");
    for (int line = 1; line <= 3; ++line) Item(line);
    if (id % 2 == 0) Leaf("o:note", Pick(kNotes));
    End("o:order");
  }
  void Item(int line) {
    Start("o:item line=\"" + std::to_string(line) + "\"");
    Leaf("o:sku", "AB-" + Number(10000, 99999));
    Leaf("o:quantity", Number(1, 99));
    Leaf("o:price currency=\"EUR\"", Number(1, 999) + "." + Number(10, 99));
    End("o:item");
  }

  void Start(const std::string& tag) {
    Indent();
    m_input.xml += "<" + tag + ">";
    ++m_input.elements;
    ++m_depth;
  }
  void End(const std::string& name) {
    --m_depth;
    Indent();
    m_input.xml += "</" + name + ">";
  }
  void Leaf(const std::string& tag, const std::string& text) {
    Indent();
    ++m_input.elements;
    m_input.xml += "<" + tag + ">" + text + "</" + tag.substr(0, tag.find(' ')) + ">";
  }
  void Indent() {
    if (m_isFormatted) m_input.xml.append("\n").append(static_cast<size_t>(m_depth) * 2, ' ');
  }
  std::string Number(int low, int high) {
    return std::to_string(std::uniform_int_distribution<int>(low, high)(m_random));
  }
  template <size_t n>
  const char* Pick(const char* const (&choices)[n]) {
    return choices[m_random() % n];
  }

  static constexpr const char* kStates[] = {"open", "paid", "shipped"};
  static constexpr const char* kNames[] = {"M\xC3\xBCller &amp; Sohn", "Smith &amp; Co", "Dupont",
                                           "Jos\xC3\xA9 Garc\303\255a", "Novak"};
  static constexpr const char* kCities[] = {"K\xC3\xB6ln", "London", "Orl\303\251ans", "Sevilla",
                                            "Praha"};
  static constexpr const char* kNotes[] = {
      "Deliver before noon, please; ring &quot;Office&quot; at the second door.",
      "Weight &lt; 20 kg, \xE2\x82\xAC 5 surcharge for the third floor."};

  CInput m_input;
  std::mt19937 m_random{7};
  bool m_isFormatted;
  int m_depth = 0;
};

void IgnoreStart(void*, const XML_Char*, const XML_Char**) {}
void IgnoreEnd(void*, const XML_Char*) {}
void IgnoreText(void*, const XML_Char*, int) {}
void IgnoreNamespace(void*, const XML_Char*, const XML_Char*) {}

void ParseWithExpat(const std::string& xml) {
  XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
  XML_SetElementHandler(parser, IgnoreStart, IgnoreEnd);
  XML_SetCharacterDataHandler(parser, IgnoreText);
  XML_SetNamespaceDeclHandler(parser, IgnoreNamespace, IgnoreEnd);
  if (XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1) != XML_STATUS_OK) std::abort();
  XML_ParserFree(parser);
}

double CpuMilliseconds() {
  timespec now;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double TimeOf(const std::function<void()>& action) {
  const double start = CpuMilliseconds();
  action();
  return CpuMilliseconds() - start;
}

// What is measured returns its time, so that taking down a tree can be left out.
struct CProgram {
  const char* name;
  std::function<double()> run;
  std::vector<double> times{};

  double Median() const {
    std::vector<double> sorted = times;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
  }
};

std::vector<CProgram> ProgramsFor(const std::string& xml) {
  std::vector<CProgram> programs;
  programs.push_back({"libexpat, namespaces, empty handlers",
                      [&xml] { return TimeOf([&xml] { ParseWithExpat(xml); }); }});
  programs.push_back({"load to a tree", [&xml] {
                        CXmlDocument document;
                        return TimeOf([&] { document.LoadXml(xml.c_str()); });
                      }});
  programs.push_back({"load to a tree and destroy it",
                      [&xml] { return TimeOf([&xml] { CXmlDocument().LoadXml(xml.c_str()); }); }});
#if defined(QVXML_BENCH_PUGIXML)
  programs.push_back({"pugixml, whitespace kept", [&xml] {
                        pugi::xml_document document;
                        return TimeOf([&] {
                          document.load_buffer(xml.data(), xml.size(),
                                               pugi::parse_default | pugi::parse_ws_pcdata);
                        });
                      }});
#endif
#if defined(QVXML_BENCH_LIBXML2)
  programs.push_back({"libxml2", [&xml] {
                        xmlDocPtr document = nullptr;
                        const double time = TimeOf([&] {
                          document = xmlReadMemory(xml.data(), static_cast<int>(xml.size()),
                                                   nullptr, nullptr, XML_PARSE_NONET);
                        });
                        xmlFreeDoc(document);
                        return time;
                      }});
#endif
  return programs;
}

void Compare(const char* title, const CInput& input) {
  std::vector<CProgram> programs = ProgramsFor(input.xml);
  for (int round = 0; round < kRounds; ++round) {
    for (CProgram& program : programs) program.times.push_back(program.run());
  }
  std::printf("%s: %zu bytes, %.0f elements, median of %d rounds\n", title, input.xml.size(),
              input.elements, kRounds);
  std::printf("%-44s %10s %10s %10s\n", "", "ms", "MB/s", "of expat");
  for (const CProgram& program : programs) {
    const double median = program.Median();
    std::printf("%-44s %10.2f %10.0f %10.2f\n", program.name, median,
                static_cast<double>(input.xml.size()) / 1000.0 / median,
                median / programs.front().Median());
  }
  const CAllocationCount count;
  CXmlDocument document;
  document.LoadXml(input.xml.c_str());
  std::printf("tree: %.3f heap allocations and %.1f bytes an element\n\n",
              static_cast<double>(Allocations) / input.elements,
              static_cast<double>(LiveBytes) / input.elements);
}

bool RemoveOrders(CXmlElement* element) { return element->GetLocalName() == "order"; }

// The text between the orders belongs to the root and stays: without formatting there is none.
void Stream(size_t megabytes) {
  const CInput input = COrders(false).Make(megabytes * 1'000'000);
  const CAllocationCount count;
  CXmlDocument document(RemoveOrders);
  const double time = TimeOf([&] { document.LoadXml(input.xml.c_str()); });
  std::printf("streamed %zu bytes, %.0f elements at %.0f MB/s; peak beside the input: %ld bytes\n",
              input.xml.size(), input.elements,
              static_cast<double>(input.xml.size()) / 1000.0 / time,
              PeakBytes - static_cast<long>(input.xml.size()));
}

}  // namespace

int main(int argc, char** argv) {
  Compare("compact", COrders(false).Make(kDocumentSize));
  Compare("formatted", COrders(true).Make(kDocumentSize));
  Stream(kDocumentSize / 1'000'000);
  Stream(argc > 1 ? std::strtoul(argv[1], nullptr, 10) : kStreamedMegabytes);
  return 0;
}
