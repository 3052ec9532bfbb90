// Generated from orders.xsd and common.xsd.

#include "bench/orders/orders.h"

namespace orders {

namespace {

[[maybe_unused]] const bool kIsRegistered = [] {
  RegisterGeneratedCode(16, LicenceKind_Licensed);
  return true;
}();

constexpr char kNamespace[] = "http://example.org/2024/orders";
constexpr char kCommonNamespace[] = "http://example.org/2024/common";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }
// Left out of the classes that other rows use, so that those time no pattern matching.
#if defined(QVXML_BENCH_PATTERNS)
CPrimitiveRestrictions CustomerRef() { return CPrimitiveRestrictions("C[0-9]{5}"); }
CPrimitiveRestrictions Sku() { return CPrimitiveRestrictions("[A-F][K-P]-[0-9]{4}-[X-Z]"); }
#else
CPrimitiveRestrictions CustomerRef() { return CPrimitiveRestrictions(); }
CPrimitiveRestrictions Sku() { return CPrimitiveRestrictions(); }
#endif

constexpr const char* kAddressKindTexts[] = {"billing", "shipping"};
const char* AddressKindToText(int value) { return GetEnumText(kAddressKindTexts, value); }
int AddressKindFromText(const char* text) {
  return FindEnumValue(kAddressKindTexts, "AddressKind", text);
}

constexpr const char* kCountryTexts[] = {"DE", "FR", "PL", "BR", "US", "JP"};
const char* CountryToText(int value) { return GetEnumText(kCountryTexts, value); }
int CountryFromText(const char* text) { return FindEnumValue(kCountryTexts, "Country", text); }

constexpr const char* kStatusTexts[] = {"pending", "confirmed", "shipped", "delivered",
                                        "cancelled"};
const char* StatusToText(int value) { return GetEnumText(kStatusTexts, value); }
int StatusFromText(const char* text) { return FindEnumValue(kStatusTexts, "Status", text); }

constexpr const char* kCurrencyTexts[] = {"EUR", "USD", "JPY", "GBP"};
const char* CurrencyToText(int value) { return GetEnumText(kCurrencyTexts, value); }
int CurrencyFromText(const char* text) { return FindEnumValue(kCurrencyTexts, "Currency", text); }

}  // namespace

CAddress::CAddress(const char* elementName) : CXmlGeneratedClass(elementName) { CAddress::Init(); }

void CAddress::Init() {
  ResetProperties(m_kind, m_street, m_city, m_region, m_postalCode, m_country);
}

void CAddress::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kKind: return AccessEnum(get, value, m_kind);
    case kStreet: return AccessValue<ItemType_string>(get, value, m_street);
    case kCity: return AccessValue<ItemType_string>(get, value, m_city);
    case kRegion: return AccessValue<ItemType_string>(get, value, m_region);
    case kPostalCode: return AccessValue<ItemType_string>(get, value, m_postalCode);
    case kCountry: return AccessEnum(get, value, m_country);
  }
  // clang-format on
}

CClassMetaData CAddress::MakeMetaData(const char* elementName) {
  // clang-format off
  return CClassMetaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, elementName, kCommonNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("street", kCommonNamespace, kStreet, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("city", kCommonNamespace, kCity, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("region", kCommonNamespace, kRegion, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("postalCode", kCommonNamespace, kPostalCode, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqEnumMnd("country", kCommonNamespace, kCountry, false, CountryToText, CountryFromText, "")},
      {new CAttributeInfoEnum("kind", "", kKind, false, AddressKindToText, AddressKindFromText, "")});
  // clang-format on
}

const CClassMetaData& CBilling::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("billing");
  return metaData;
}

const CClassMetaData& CShipping::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData("shipping");
  return metaData;
}

CCustomer::CCustomer(const char* elementName) : TGeneratedClass(elementName) { CCustomer::Init(); }

void CCustomer::SetBilling(CSmartPtr<CBilling> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "billing");
  Throw_IfElementNameDiffers(value.Ptr(), "billing");
  m_billing = std::move(value);
}

void CCustomer::SetShipping(CSmartPtr<CShipping> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "shipping");
  m_shipping = std::move(value);
}

void CCustomer::Init() {
  ResetProperties(m_ref, m_vip, m_name, m_email, m_shipping);
  ResetChild(m_billing, "billing");
}

void CCustomer::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kRef: return AccessValue<ItemType_string>(get, value, m_ref);
    case kVip: return AccessValue<ItemType_boolean>(get, value, m_vip);
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kEmail: return AccessValue<ItemType_string>(get, value, m_email);
    case kBilling: return AccessObject(get, value, m_billing);
    case kShipping: return AccessObject(get, value, m_shipping);
  }
  // clang-format on
}

const CClassMetaData& CCustomer::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "customer", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("name", kCommonNamespace, kName, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("email", kCommonNamespace, kEmail, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsMnd("billing", kCommonNamespace, kBilling, XmlElementType_Element, CreateObject<CBilling>, 0, false),
       new CElementInfoSeqClsOpt("shipping", kCommonNamespace, kShipping, XmlElementType_Element, CreateObject<CShipping>, 0)},
      {new CAttributeInfoPrimitive("ref", "", kRef, false, ItemType_string, "", kPreserve, CustomerRef(), ""),
       new CAttributeInfoPrimitive("vip", "", kVip, true, ItemType_boolean, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CItem::CItem(const char* elementName) : TGeneratedClass(elementName) { CItem::Init(); }

void CItem::Init() {
  ResetProperties(m_sku, m_line, m_description, m_quantity, m_unitPrice, m_weight, m_taxRate,
                  m_backordered, m_shipDate, m_note);
}

void CItem::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kSku: return AccessValue<ItemType_string>(get, value, m_sku);
    case kLine: return AccessValue<ItemType_i4>(get, value, m_line);
    case kDescription: return AccessValue<ItemType_string>(get, value, m_description);
    case kQuantity: return AccessValue<ItemType_i4>(get, value, m_quantity);
    case kUnitPrice: return AccessValue<ItemType_decimal>(get, value, m_unitPrice);
    case kWeight: return AccessValue<ItemType_r8>(get, value, m_weight);
    case kTaxRate: return AccessValue<ItemType_decimal>(get, value, m_taxRate);
    case kBackordered: return AccessValue<ItemType_boolean>(get, value, m_backordered);
    case kShipDate: return AccessValue<ItemType_date>(get, value, m_shipDate);
    case kNote: return AccessValue<ItemType_string>(get, value, m_note);
  }
  // clang-format on
}

const CClassMetaData& CItem::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "item", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("description", kNamespace, kDescription, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("quantity", kNamespace, kQuantity, false, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("unitPrice", kNamespace, kUnitPrice, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("weight", kNamespace, kWeight, false, ItemType_r8, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("taxRate", kNamespace, kTaxRate, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("backordered", kNamespace, kBackordered, false, ItemType_boolean, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("shipDate", kNamespace, kShipDate, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("note", kNamespace, kNote, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {new CAttributeInfoPrimitive("sku", "", kSku, false, ItemType_string, "", kPreserve, Sku(), ""),
       new CAttributeInfoPrimitive("line", "", kLine, false, ItemType_i4, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CItems::CItems(const char* elementName) : TGeneratedClass(elementName) { CItems::Init(); }

void CItems::Init() { ResetCollection(m_item, "item", kNamespace, 1, kUnbounded); }

void CItems::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kItem: return AccessCollection(get, value, m_item.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CItems::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "items", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsCol("item", kNamespace, kItem, XmlElementType_Element)},
      {});
  // clang-format on
  return metaData;
}

CTags::CTags(const char* elementName) : TGeneratedClass(elementName) { CTags::Init(); }

void CTags::Init() {
  ResetCollection(m_tag, "tag", kNamespace, 1, kUnbounded, NoFacets(), kPreserve, "");
}

void CTags::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kTag: return AccessCollection(get, value, m_tag.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CTags::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "tags", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimCol("tag", kNamespace, kTag)},
      {});
  // clang-format on
  return metaData;
}

COrder::COrder(const char* elementName) : TGeneratedClass(elementName) { COrder::Init(); }

void COrder::SetCustomer(CSmartPtr<CCustomer> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "customer");
  Throw_IfElementNameDiffers(value.Ptr(), "customer");
  m_customer = std::move(value);
}

void COrder::SetTags(CSmartPtr<CTags> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "tags");
  m_tags = std::move(value);
}

void COrder::SetItems(CSmartPtr<CItems> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "items");
  Throw_IfElementNameDiffers(value.Ptr(), "items");
  m_items = std::move(value);
}

void COrder::Init() {
  ResetProperties(m_id, m_status, m_priority, m_placed, m_due, m_currency, m_discount, m_total,
                  m_comment, m_tags);
  ResetChild(m_customer, "customer");
  ResetChild(m_items, "items");
}

void COrder::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_i4>(get, value, m_id);
    case kStatus: return AccessEnum(get, value, m_status);
    case kPriority: return AccessValue<ItemType_boolean>(get, value, m_priority);
    case kCustomer: return AccessObject(get, value, m_customer);
    case kPlaced: return AccessValue<ItemType_datetime>(get, value, m_placed);
    case kDue: return AccessValue<ItemType_date>(get, value, m_due);
    case kCurrency: return AccessEnum(get, value, m_currency);
    case kDiscount: return AccessValue<ItemType_r8>(get, value, m_discount);
    case kTotal: return AccessValue<ItemType_decimal>(get, value, m_total);
    case kComment: return AccessValue<ItemType_string>(get, value, m_comment);
    case kTags: return AccessObject(get, value, m_tags);
    case kItems: return AccessObject(get, value, m_items);
  }
  // clang-format on
}

const CClassMetaData& COrder::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "order", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsMnd("customer", kNamespace, kCustomer, XmlElementType_Element, CreateObject<CCustomer>, 0, false),
       new CElementInfoSeqPrimMnd("placed", kNamespace, kPlaced, false, ItemType_datetime, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("due", kNamespace, kDue, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqEnumMnd("currency", kNamespace, kCurrency, false, CurrencyToText, CurrencyFromText, ""),
       new CElementInfoSeqPrimOpt("discount", kNamespace, kDiscount, false, ItemType_r8, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("total", kNamespace, kTotal, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimOpt("comment", kNamespace, kComment, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqClsOpt("tags", kNamespace, kTags, XmlElementType_Element, CreateObject<CTags>, 0),
       new CElementInfoSeqClsMnd("items", kNamespace, kItems, XmlElementType_Element, CreateObject<CItems>, 0, false)},
      {new CAttributeInfoPrimitive("id", "", kId, false, ItemType_i4, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoEnum("status", "", kStatus, false, StatusToText, StatusFromText, ""),
       new CAttributeInfoPrimitive("priority", "", kPriority, false, ItemType_boolean, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

COrders::COrders(const char* elementName) : TGeneratedClass(elementName) { COrders::Init(); }

void COrders::Init() {
  ResetProperties(m_version, m_generated, m_source);
  ResetCollection(m_order, "order", kNamespace, 0, kUnbounded);
}

void COrders::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kVersion: return AccessValue<ItemType_decimal>(get, value, m_version);
    case kGenerated: return AccessValue<ItemType_datetime>(get, value, m_generated);
    case kSource: return AccessValue<ItemType_string>(get, value, m_source);
    case kOrder: return AccessCollection(get, value, m_order.Ptr());
  }
  // clang-format on
}

const CClassMetaData& COrders::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "orders", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqClsCol("order", kNamespace, kOrder, XmlElementType_Element)},
      {new CAttributeInfoPrimitive("version", "", kVersion, false, ItemType_decimal, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("generated", "", kGenerated, false, ItemType_datetime, "", kCollapse, NoFacets(), ""),
       new CAttributeInfoPrimitive("source", "", kSource, false, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

}  // namespace orders
