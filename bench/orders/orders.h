// Generated from orders.xsd and common.xsd.

#ifndef BENCH_ORDERS_ORDERS_H_
#define BENCH_ORDERS_ORDERS_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace orders {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// AddressKind
enum class EAddressKind : int { e_billing, e_shipping };

/// Country
enum class ECountry : int { e_DE, e_FR, e_PL, e_BR, e_US, e_JP };

/// Status
enum class EStatus : int { e_pending, e_confirmed, e_shipped, e_delivered, e_cancelled };

/// Currency
enum class ECurrency : int { e_EUR, e_USD, e_JPY, e_GBP };

/// Address
class CAddress : public CXmlGeneratedClass {
 public:
  const std::optional<EAddressKind>& GetKind() const { return m_kind; }
  void SetKind(std::optional<EAddressKind> value) { m_kind = std::move(value); }
  const std::optional<std::string>& GetStreet() const { return m_street; }
  void SetStreet(std::optional<std::string> value) { m_street = std::move(value); }
  const std::optional<std::string>& GetCity() const { return m_city; }
  void SetCity(std::optional<std::string> value) { m_city = std::move(value); }
  const std::optional<std::string>& GetRegion() const { return m_region; }
  void SetRegion(std::optional<std::string> value) { m_region = std::move(value); }
  const std::optional<std::string>& GetPostalCode() const { return m_postalCode; }
  void SetPostalCode(std::optional<std::string> value) { m_postalCode = std::move(value); }
  const std::optional<ECountry>& GetCountry() const { return m_country; }
  void SetCountry(std::optional<ECountry> value) { m_country = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;

 protected:
  explicit CAddress(const char* elementName);

  /// The tables are the same for all elements of this type, the class info has their name.
  static CClassMetaData MakeMetaData(const char* elementName);

 private:
  enum Property : int { kKind, kStreet, kCity, kRegion, kPostalCode, kCountry };

  std::optional<EAddressKind> m_kind;
  std::optional<std::string> m_street;
  std::optional<std::string> m_city;
  std::optional<std::string> m_region;
  std::optional<std::string> m_postalCode;
  std::optional<ECountry> m_country;
};

class CBilling : public TGeneratedClass<CBilling, CAddress> {
 public:
  explicit CBilling(const char* elementName = "billing") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

class CShipping : public TGeneratedClass<CShipping, CAddress> {
 public:
  explicit CShipping(const char* elementName = "shipping") : TGeneratedClass(elementName) {}

  static const CClassMetaData& GetMetaData();
};

/// Customer
class CCustomer : public TGeneratedClass<CCustomer> {
 public:
  explicit CCustomer(const char* elementName = "customer");

  const std::optional<std::string>& GetRef() const { return m_ref; }
  void SetRef(std::optional<std::string> value) { m_ref = std::move(value); }
  const std::optional<bool>& GetVip() const { return m_vip; }
  void SetVip(std::optional<bool> value) { m_vip = std::move(value); }
  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  const std::optional<std::string>& GetEmail() const { return m_email; }
  void SetEmail(std::optional<std::string> value) { m_email = std::move(value); }
  CBilling* GetBilling() const { return m_billing.Ptr(); }
  void SetBilling(CSmartPtr<CBilling> value);
  CShipping* GetShipping() const { return m_shipping.Ptr(); }
  void SetShipping(CSmartPtr<CShipping> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kRef, kVip, kName, kEmail, kBilling, kShipping };

  std::optional<std::string> m_ref;
  std::optional<bool> m_vip;
  std::optional<std::string> m_name;
  std::optional<std::string> m_email;
  CSmartPtr<CBilling> m_billing;
  CSmartPtr<CShipping> m_shipping;
};

/// Item
class CItem : public TGeneratedClass<CItem> {
 public:
  explicit CItem(const char* elementName = "item");

  const std::optional<std::string>& GetSku() const { return m_sku; }
  void SetSku(std::optional<std::string> value) { m_sku = std::move(value); }
  const std::optional<long>& GetLine() const { return m_line; }
  void SetLine(std::optional<long> value) { m_line = std::move(value); }
  const std::optional<std::string>& GetDescription() const { return m_description; }
  void SetDescription(std::optional<std::string> value) { m_description = std::move(value); }
  const std::optional<long>& GetQuantity() const { return m_quantity; }
  void SetQuantity(std::optional<long> value) { m_quantity = std::move(value); }
  const std::optional<CDecimal>& GetUnitPrice() const { return m_unitPrice; }
  void SetUnitPrice(std::optional<CDecimal> value) { m_unitPrice = std::move(value); }
  const std::optional<double>& GetWeight() const { return m_weight; }
  void SetWeight(std::optional<double> value) { m_weight = std::move(value); }
  const std::optional<CDecimal>& GetTaxRate() const { return m_taxRate; }
  void SetTaxRate(std::optional<CDecimal> value) { m_taxRate = std::move(value); }
  const std::optional<bool>& GetBackordered() const { return m_backordered; }
  void SetBackordered(std::optional<bool> value) { m_backordered = std::move(value); }
  const std::optional<CDateTime>& GetShipDate() const { return m_shipDate; }
  void SetShipDate(std::optional<CDateTime> value) { m_shipDate = std::move(value); }
  const std::optional<std::string>& GetNote() const { return m_note; }
  void SetNote(std::optional<std::string> value) { m_note = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int {
    kSku,
    kLine,
    kDescription,
    kQuantity,
    kUnitPrice,
    kWeight,
    kTaxRate,
    kBackordered,
    kShipDate,
    kNote
  };

  std::optional<std::string> m_sku;
  std::optional<long> m_line;
  std::optional<std::string> m_description;
  std::optional<long> m_quantity;
  std::optional<CDecimal> m_unitPrice;
  std::optional<double> m_weight;
  std::optional<CDecimal> m_taxRate;
  std::optional<bool> m_backordered;
  std::optional<CDateTime> m_shipDate;
  std::optional<std::string> m_note;
};

/// Items
class CItems : public TGeneratedClass<CItems> {
 public:
  explicit CItems(const char* elementName = "items");

  TObjectCollection<CItem>& GetItem() const { return *m_item; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kItem };

  CSmartPtr<TObjectCollection<CItem>> m_item;
};

/// Tags
class CTags : public TGeneratedClass<CTags> {
 public:
  explicit CTags(const char* elementName = "tags");

  CstringCol& GetTag() const { return *m_tag; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kTag };

  CSmartPtr<CstringCol> m_tag;
};

/// Order
class COrder : public TGeneratedClass<COrder> {
 public:
  explicit COrder(const char* elementName = "order");

  const std::optional<long>& GetId() const { return m_id; }
  void SetId(std::optional<long> value) { m_id = std::move(value); }
  const std::optional<EStatus>& GetStatus() const { return m_status; }
  void SetStatus(std::optional<EStatus> value) { m_status = std::move(value); }
  const std::optional<bool>& GetPriority() const { return m_priority; }
  void SetPriority(std::optional<bool> value) { m_priority = std::move(value); }
  CCustomer* GetCustomer() const { return m_customer.Ptr(); }
  void SetCustomer(CSmartPtr<CCustomer> value);
  const std::optional<CDateTime>& GetPlaced() const { return m_placed; }
  void SetPlaced(std::optional<CDateTime> value) { m_placed = std::move(value); }
  const std::optional<CDateTime>& GetDue() const { return m_due; }
  void SetDue(std::optional<CDateTime> value) { m_due = std::move(value); }
  const std::optional<ECurrency>& GetCurrency() const { return m_currency; }
  void SetCurrency(std::optional<ECurrency> value) { m_currency = std::move(value); }
  const std::optional<double>& GetDiscount() const { return m_discount; }
  void SetDiscount(std::optional<double> value) { m_discount = std::move(value); }
  const std::optional<CDecimal>& GetTotal() const { return m_total; }
  void SetTotal(std::optional<CDecimal> value) { m_total = std::move(value); }
  const std::optional<std::string>& GetComment() const { return m_comment; }
  void SetComment(std::optional<std::string> value) { m_comment = std::move(value); }
  CTags* GetTags() const { return m_tags.Ptr(); }
  void SetTags(CSmartPtr<CTags> value);
  CItems* GetItems() const { return m_items.Ptr(); }
  void SetItems(CSmartPtr<CItems> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int {
    kId,
    kStatus,
    kPriority,
    kCustomer,
    kPlaced,
    kDue,
    kCurrency,
    kDiscount,
    kTotal,
    kComment,
    kTags,
    kItems
  };

  std::optional<long> m_id;
  std::optional<EStatus> m_status;
  std::optional<bool> m_priority;
  CSmartPtr<CCustomer> m_customer;
  std::optional<CDateTime> m_placed;
  std::optional<CDateTime> m_due;
  std::optional<ECurrency> m_currency;
  std::optional<double> m_discount;
  std::optional<CDecimal> m_total;
  std::optional<std::string> m_comment;
  CSmartPtr<CTags> m_tags;
  CSmartPtr<CItems> m_items;
};

/// Orders: the document.
class COrders : public TGeneratedClass<COrders> {
 public:
  explicit COrders(const char* elementName = "orders");

  const std::optional<CDecimal>& GetVersion() const { return m_version; }
  void SetVersion(std::optional<CDecimal> value) { m_version = std::move(value); }
  const std::optional<CDateTime>& GetGenerated() const { return m_generated; }
  void SetGenerated(std::optional<CDateTime> value) { m_generated = std::move(value); }
  const std::optional<std::string>& GetSource() const { return m_source; }
  void SetSource(std::optional<std::string> value) { m_source = std::move(value); }
  TObjectCollection<COrder>& GetOrder() const { return *m_order; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kVersion, kGenerated, kSource, kOrder };

  std::optional<CDecimal> m_version;
  std::optional<CDateTime> m_generated;
  std::optional<std::string> m_source;
  CSmartPtr<TObjectCollection<COrder>> m_order;
};

}  // namespace orders

#endif  // BENCH_ORDERS_ORDERS_H_
