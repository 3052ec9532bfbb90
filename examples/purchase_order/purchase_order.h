// Generated from purchase_order.xsd.
#ifndef EXAMPLES_PURCHASE_ORDER_PURCHASE_ORDER_H_
#define EXAMPLES_PURCHASE_ORDER_PURCHASE_ORDER_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace po {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// priorityType
enum class EPriority : int { e_normal, e_express };

/// addressType
class CAddress : public TGeneratedClass<CAddress> {
 public:
  explicit CAddress(const char* elementName = "shipTo");

  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  const std::optional<std::string>& GetStreet() const { return m_street; }
  void SetStreet(std::optional<std::string> value) { m_street = std::move(value); }
  const std::optional<std::string>& GetCity() const { return m_city; }
  void SetCity(std::optional<std::string> value) { m_city = std::move(value); }
  const std::optional<std::string>& GetPostcode() const { return m_postcode; }
  void SetPostcode(std::optional<std::string> value) { m_postcode = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kName, kStreet, kCity, kPostcode };

  std::optional<std::string> m_name;
  std::optional<std::string> m_street;
  std::optional<std::string> m_city;
  std::optional<std::string> m_postcode;
};

/// itemType
class CItem : public TGeneratedClass<CItem> {
 public:
  explicit CItem(const char* elementName = "item");

  const std::optional<std::string>& GetSku() const { return m_sku; }
  void SetSku(std::optional<std::string> value) { m_sku = std::move(value); }
  const std::optional<std::string>& GetProduct() const { return m_product; }
  void SetProduct(std::optional<std::string> value) { m_product = std::move(value); }
  const std::optional<long>& GetQuantity() const { return m_quantity; }
  void SetQuantity(std::optional<long> value) { m_quantity = std::move(value); }
  const std::optional<CDecimal>& GetPrice() const { return m_price; }
  void SetPrice(std::optional<CDecimal> value) { m_price = std::move(value); }
  const std::optional<std::string>& GetComment() const { return m_comment; }
  void SetComment(std::optional<std::string> value) { m_comment = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kSku, kProduct, kQuantity, kPrice, kComment };

  std::optional<std::string> m_sku;
  std::optional<std::string> m_product;
  std::optional<long> m_quantity;
  std::optional<CDecimal> m_price;
  std::optional<std::string> m_comment;
};

/// purchaseOrderType: the document.
class CPurchaseOrder : public TGeneratedClass<CPurchaseOrder> {
 public:
  explicit CPurchaseOrder(const char* elementName = "purchaseOrder");

  const std::optional<std::string>& GetId() const { return m_id; }
  void SetId(std::optional<std::string> value) { m_id = std::move(value); }
  const std::optional<EPriority>& GetPriority() const { return m_priority; }
  void SetPriority(std::optional<EPriority> value) { m_priority = std::move(value); }
  const std::optional<CDateTime>& GetOrderDate() const { return m_orderDate; }
  void SetOrderDate(std::optional<CDateTime> value) { m_orderDate = std::move(value); }
  CAddress* GetShipTo() const { return m_shipTo.Ptr(); }
  void SetShipTo(CSmartPtr<CAddress> value);
  TObjectCollection<CItem>& GetItem() const { return *m_item; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kId, kPriority, kOrderDate, kShipTo, kItem };

  std::optional<std::string> m_id;
  std::optional<EPriority> m_priority;
  std::optional<CDateTime> m_orderDate;
  CSmartPtr<CAddress> m_shipTo;
  CSmartPtr<TObjectCollection<CItem>> m_item;
};

}  // namespace po

#endif  // EXAMPLES_PURCHASE_ORDER_PURCHASE_ORDER_H_
