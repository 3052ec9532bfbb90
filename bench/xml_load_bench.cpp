// Loads generated documents of 10 MB (orders: namespaces, attributes, numbers, dates, short texts
// with entities and other letters than ASCII) and compares that with libexpat parsing them and with
// what other libraries need. Then streams a larger document through the element-complete callback;
// its megabytes are the argument.

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "bench/support/allocations.h"
#include "bench/support/comparison.h"
#include "bench/support/expat_reference.h"

#include "qvxml/xml/xml_document.h"

#if defined(QVXML_BENCH_PUGIXML)
#include <pugixml.hpp>
#endif
#if defined(QVXML_BENCH_LIBXML2)
#include <libxml/parser.h>
#include <libxml/tree.h>
#endif

namespace {

using namespace QvXmlLib16;
using namespace bench;

constexpr size_t kDocumentSize = 10'000'000;
constexpr size_t kStreamedMegabytes = 300;

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

std::vector<CProgram> ProgramsFor(const std::string& xml) {
  std::vector<CProgram> programs;
  programs.push_back(ExpatReference(xml));
  programs.push_back({"load to a tree", [&xml] {
                        CXmlDocument document;
                        return TimeOf([&] { document.LoadXml(xml.c_str()); });
                      }});
  programs.push_back(
      Timed("load to a tree and destroy it", [&xml] { CXmlDocument().LoadXml(xml.c_str()); }));
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

void CompareLoading(const char* title, const CInput& input) {
  std::vector<CProgram> programs = ProgramsFor(input.xml);
  Compare({title, input.xml.size(), input.elements}, programs);
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
              count.PeakBytes() - static_cast<long>(input.xml.size()));
}

}  // namespace

int main(int argc, char** argv) {
  CompareLoading("compact", COrders(false).Make(kDocumentSize));
  CompareLoading("formatted", COrders(true).Make(kDocumentSize));
  Stream(kDocumentSize / 1'000'000);
  Stream(argc > 1 ? std::strtoul(argv[1], nullptr, 10) : kStreamedMegabytes);
  return 0;
}
