#include <istream>
#include <sstream>

#include "bench/orders/generated_peers.h"
// The second has the table of namespaces; its name is the generator's, after a prefix of its own.
#include "soapH.h"
// clang-format off
#include "ns2.nsmap"
// clang-format on

namespace bench {

namespace {

struct CFreeSoap {
  void operator()(soap* context) const {
    soap_destroy(context);
    soap_end(context);
    soap_free(context);
  }
};

// The context owns all that is read with it.
struct CReadOrders {
  std::unique_ptr<soap, CFreeSoap> context;
  ns1__Orders orders;
};

CReadOrders Read(const std::string& xml) {
  CReadOrders result{std::unique_ptr<soap, CFreeSoap>(soap_new1(SOAP_C_UTFSTRING)), {}};
  CTextInput input(xml);
  std::istream stream(&input);
  result.context->is = &stream;
  if (soap_read__ns1__orders(result.context.get(), &result.orders) != SOAP_OK) {
    std::fprintf(stderr, "gSOAP cannot read the document\n");
    std::exit(1);
  }
  result.context->is = nullptr;
  return result;
}

std::string Write(const CReadOrders& orders) {
  const std::unique_ptr<soap, CFreeSoap> context(soap_new1(SOAP_C_UTFSTRING | SOAP_XML_TREE));
  std::ostringstream stream;
  context->os = &stream;
  if (soap_write__ns1__orders(context.get(), &orders.orders) != SOAP_OK) {
    std::fprintf(stderr, "gSOAP cannot write the document\n");
    std::exit(1);
  }
  context->os = nullptr;
  return std::move(stream).str();
}

}  // namespace

void AddGsoapPeer(const std::string& xml, std::vector<CProgram>& programs) {
  AddGeneratedPeer("gSOAP", xml, Read, Write, programs);
}

}  // namespace bench
