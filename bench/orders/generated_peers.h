// Rows of other data-binding toolkits, with the classes that they generate from orders.xsd.

#ifndef BENCH_ORDERS_GENERATED_PEERS_H_
#define BENCH_ORDERS_GENERATED_PEERS_H_

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "bench/support/comparison.h"
#include "bench/support/expat_reference.h"

namespace bench {

/// Adds the rows of gSOAP; ends the process when it loses elements. `xml` outlives the rows.
void AddGsoapPeer(const std::string& xml, std::vector<CProgram>& programs);
/// The same of CodeSynthesis XSD, C++/Tree over Xerces-C++, without validation.
void AddCodeSynthesisPeer(const std::string& xml, std::vector<CProgram>& programs);

/// Lets a std::istream read a text in place.
class CTextInput : public std::streambuf {
 public:
  explicit CTextInput(const std::string& text) {
    char* const start = const_cast<char*>(text.data());
    setg(start, start, start + text.size());
  }
};

/// The two rows of a toolkit. `read` makes from the text what is taken down untimed, and `write`
/// the text from that.
template <class TRead, class TWrite>
void AddGeneratedPeer(const char* name, const std::string& xml, TRead read, TWrite write,
                      std::vector<CProgram>& programs) {
  const auto orders = std::make_shared<decltype(read(xml))>(read(xml));
  if (CountElements(write(*orders)) != CountElements(xml)) {
    std::fprintf(stderr, "%s loses elements\n", name);
    std::exit(1);
  }
  programs.push_back({std::string(name) + ", text to objects", [&xml, read] {
                        decltype(read(xml)) result;
                        return TimeOf([&] { result = read(xml); });
                      }});
  programs.push_back({std::string(name) + ", objects to text", [orders, write] {
                        std::string result;
                        return TimeOf([&] { result = write(*orders); });
                      }});
}

}  // namespace bench

#endif  // BENCH_ORDERS_GENERATED_PEERS_H_
