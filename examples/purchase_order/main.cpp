// The first ten minutes with generated classes: fill an object, write it, read it back, and see
// what happens when a document or a value is wrong. purchase_order.h is what the generator makes
// of:
//
//   <purchaseOrder id="..." priority="express">
//     <orderDate/> <shipTo> name, street, city, postcode </shipTo>
//     <item sku="ABC-1234"> product, quantity, price, comment? </item>+
//   </purchaseOrder>

#include <iostream>

#include "purchase_order.h"
#include <qvxml/qvxml.h>

using namespace QvXmlLib16;

namespace {

CSmartPtr<po::CPurchaseOrder> MakeOrder() {
  // [fill]
  CSmartPtr<po::CPurchaseOrder> order(new po::CPurchaseOrder);
  order->SetId("2026-0042");
  order->SetPriority(po::EPriority::e_express);
  order->SetOrderDate(CDateTime(2026, 1, 31));

  po::CAddress& address = *order->GetShipTo();
  address.SetName("Ada Example");
  address.SetStreet("12 Long Road");
  address.SetCity("Utrecht");
  address.SetPostcode("35120");

  po::CItem& item = order->GetItem().AddNew();
  item.SetSku("TEA-0007");
  item.SetProduct("Tea & biscuits");
  item.SetQuantity(3);
  item.SetPrice(CDecimal("19.99"));
  // [fill]
  return order;
}

std::string Write(const po::CPurchaseOrder& order) {
  // [write]
  CSerializationContext ctx;
  ctx.SetDefaultNamespaceURI("urn:example:purchase-order");
  ctx.SetIndentChars("  ");
  return order.ToXml(true, true, EOL_LF, ctx);
  // [write]
}

std::string WriteJson(const po::CPurchaseOrder& order) {
  // [json]
  CSerializationContext ctx;
  ctx.SetIndentChars("  ");
  ctx.GetJsonContext().SetWellFormed(true);
  ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_Standard);
  return order.ToJson(true, EOL_LF, ctx);
  // [json]
}

CDecimal ReadTotal(const std::string& text) {
  // [read]
  const CSmartPtr<po::CPurchaseOrder> order(new po::CPurchaseOrder);
  order->FromXml(text.c_str());
  CDecimal total;
  for (const po::CItem& item : order->GetItem()) {
    total += *item.GetPrice() * CDecimal(*item.GetQuantity());
  }
  return total;
  // [read]
}

// [failures]
template <class TAction>
void Try(const char* what, TAction action) {
  try {
    action();
  } catch (const CQvException& exception) {
    std::cout << "\n" << what << ":\n" << exception.GetFullMessage() << "\n";
  }
}
// [failures]

}  // namespace

int main() {
  const CSmartPtr<po::CPurchaseOrder> order = MakeOrder();
  const std::string text = Write(*order);
  std::cout << text << "\n"
            << WriteJson(*order) << "\n\ntotal: " << ReadTotal(text).ToString() << "\n";

  Try("a value that is not of its type", [&] {
    std::string wrong = text;
    wrong.replace(wrong.find("<quantity>3"), 11, "<quantity>a few");
    ReadTotal(wrong);
  });
  Try("a value that breaks a facet", [&] {
    order->GetItem().Item(0)->SetSku("tea-7");
    Write(*order);
  });
  return 0;
}
