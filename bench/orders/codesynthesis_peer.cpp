#include <istream>
#include <sstream>

#include "bench/orders/generated_peers.h"
#include "orders.hxx"
#include <xercesc/util/PlatformUtils.hpp>

namespace bench {

namespace {

using CRoot = std::unique_ptr<tree_orders::Orders>;

// Its library is set up once, not for each document.
const xml_schema::flags kReadFlags =
    xml_schema::flags::dont_validate | xml_schema::flags::dont_initialize;
const xml_schema::flags kWriteFlags =
    xml_schema::flags::dont_initialize | xml_schema::flags::dont_pretty_print;

CRoot Read(const std::string& xml) {
  CTextInput input(xml);
  std::istream stream(&input);
  return tree_orders::orders(stream, kReadFlags);
}

std::string Write(const CRoot& root) {
  xml_schema::namespace_infomap map;
  map[""].name = "http://example.org/2024/orders";
  map["c"].name = "http://example.org/2024/common";
  std::ostringstream stream;
  tree_orders::orders(stream, *root, map, "UTF-8", kWriteFlags);
  return std::move(stream).str();
}

}  // namespace

void AddCodeSynthesisPeer(const std::string& xml, std::vector<CProgram>& programs) {
  [[maybe_unused]] static const bool isSetUp = [] {
    xercesc::XMLPlatformUtils::Initialize();
    return true;
  }();
  AddGeneratedPeer("CodeSynthesis XSD", xml, Read, Write, programs);
}

}  // namespace bench
