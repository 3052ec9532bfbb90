// Loading XML text: the parser alone, with namespaces and empty handlers, is the reference of the
// same run. Counters: ns and heap allocations for each element of the document, bytes kept for each,
// and for the streaming runs the growth of live memory during the load.

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>

#include <benchmark/benchmark.h>
#include <expat.h>
#include <malloc.h>

#include "qvxml/xml/xml_document.h"

#ifdef QVXML_BENCH_PUGIXML
#include <pugixml.hpp>
#endif
#ifdef QVXML_BENCH_LIBXML2
#include <libxml/parser.h>
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

using QvXmlLib16::CXmlDocument;
using QvXmlLib16::CXmlElement;

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
    Start("o:orders xmlns:o=\"http://www.example.com/schemas/2024/orders\" "
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
                                           "Jos\xC3\xA9 Garc\xC3\xAD"
                                           "a",
                                           "Novak"};
  static constexpr const char* kCities[] = {"K\xC3\xB6ln", "London", "Orl\xC3\xA9"
                                            "ans",
                                            "Sevilla", "Praha"};
  static constexpr const char* kNotes[] = {
      "Deliver before noon, please; ring &quot;Office&quot; at the second door.",
      "Weight &lt; 20 kg, \xE2\x82\xAC 5 surcharge for the third floor."};

  CInput m_input;
  std::mt19937 m_random{7};
  bool m_isFormatted;
  int m_depth = 0;
};

constexpr size_t kTenMegabytes = 10'000'000;

const CInput& Orders(bool isFormatted) {
  static const CInput compact = COrders(false).Make(kTenMegabytes);
  static const CInput formatted = COrders(true).Make(kTenMegabytes);
  return isFormatted ? formatted : compact;
}

void SetRates(benchmark::State& state, const CInput& input) {
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(input.xml.size()));
  state.counters["s/element"] =
      benchmark::Counter(input.elements * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// The reference.

void IgnoreStart(void*, const XML_Char*, const XML_Char**) {}
void IgnoreEnd(void*, const XML_Char*) {}
void IgnoreText(void*, const XML_Char*, int) {}
void IgnoreNamespace(void*, const XML_Char*, const XML_Char*) {}

void BM_Expat(benchmark::State& state) {
  const CInput& input = Orders(state.range(0) != 0);
  for (auto _ : state) {
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetElementHandler(parser, IgnoreStart, IgnoreEnd);
    XML_SetCharacterDataHandler(parser, IgnoreText);
    XML_SetNamespaceDeclHandler(parser, IgnoreNamespace, IgnoreEnd);
    if (XML_Parse(parser, input.xml.data(), static_cast<int>(input.xml.size()), 1) !=
        XML_STATUS_OK) {
      state.SkipWithError("not parsed");
    }
    XML_ParserFree(parser);
  }
  SetRates(state, input);
}

// Loading to a tree; the tree's destruction is measured apart.

void BM_Load(benchmark::State& state) {
  const CInput& input = Orders(state.range(0) != 0);
  for (auto _ : state) {
    auto document = std::make_unique<CXmlDocument>();
    document->LoadXml(input.xml.c_str());
    state.PauseTiming();
    document.reset();
    state.ResumeTiming();
  }
  SetRates(state, input);
  const CAllocationCount count;
  CXmlDocument document;
  document.LoadXml(input.xml.c_str());
  state.counters["allocs/element"] = static_cast<double>(Allocations) / input.elements;
  state.counters["bytes/element"] = static_cast<double>(LiveBytes) / input.elements;
}

void BM_LoadAndDestroy(benchmark::State& state) {
  const CInput& input = Orders(state.range(0) != 0);
  for (auto _ : state) {
    CXmlDocument document;
    document.LoadXml(input.xml.c_str());
    benchmark::DoNotOptimize(document.GetDocumentElement());
  }
  SetRates(state, input);
}

bool RemoveOrders(CXmlElement* element) { return element->GetLocalName() == "order"; }

// Megabytes of input; what the load needs beside its private copy must not grow with them.
void BM_Stream(benchmark::State& state) {
  CInput input = COrders(true).Make(static_cast<size_t>(state.range(0)) * 1'000'000);
  for (auto _ : state) {
    const CAllocationCount count;
    CXmlDocument document(RemoveOrders);
    document.LoadXml(input.xml.c_str());
    state.counters["extra_bytes"] =
        static_cast<double>(PeakBytes) - static_cast<double>(input.xml.size());
  }
  SetRates(state, input);
}

#ifdef QVXML_BENCH_PUGIXML
void BM_Pugixml(benchmark::State& state) {
  const CInput& input = Orders(state.range(0) != 0);
  for (auto _ : state) {
    auto document = std::make_unique<pugi::xml_document>();
    document->load_buffer(input.xml.data(), input.xml.size(),
                          pugi::parse_default | pugi::parse_ws_pcdata);
    state.PauseTiming();
    document.reset();
    state.ResumeTiming();
  }
  SetRates(state, input);
}
BENCHMARK(BM_Pugixml)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
#endif

#ifdef QVXML_BENCH_LIBXML2
void BM_Libxml2(benchmark::State& state) {
  const CInput& input = Orders(state.range(0) != 0);
  for (auto _ : state) {
    xmlDocPtr document =
        xmlReadMemory(input.xml.data(), static_cast<int>(input.xml.size()), nullptr, nullptr,
                      XML_PARSE_NONET | XML_PARSE_HUGE);
    state.PauseTiming();
    xmlFreeDoc(document);
    state.ResumeTiming();
  }
  SetRates(state, input);
}
BENCHMARK(BM_Libxml2)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
#endif

BENCHMARK(BM_Expat)->ArgName("formatted")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Load)->ArgName("formatted")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadAndDestroy)->ArgName("formatted")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Stream)->ArgName("MB")->Arg(10)->Arg(300)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
