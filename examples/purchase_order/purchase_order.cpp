// Generated from purchase_order.xsd.

#include "purchase_order.h"

namespace po {

namespace {

[[maybe_unused]] const bool kIsRegistered = [] {
  RegisterGeneratedCode(16, LicenceKind_Licensed);
  return true;
}();

constexpr char kNamespace[] = "urn:example:purchase-order";
constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }
constexpr const char* kPriorityTexts[] = {"normal", "express"};
const char* PriorityToText(int value) { return GetEnumText(kPriorityTexts, value); }
int PriorityFromText(const char* text) { return FindEnumValue(kPriorityTexts, "Priority", text); }

CPrimitiveRestrictions Postcode() { return CPrimitiveRestrictions("[0-9]{5}"); }
CPrimitiveRestrictions Sku() { return CPrimitiveRestrictions("[A-Z]{3}-[0-9]{4}"); }
CPrimitiveRestrictions AtLeastOne() { return CPrimitiveRestrictions("", -1, -1, "1"); }
CPrimitiveRestrictions Money() {
  return CPrimitiveRestrictions("", -1, -1, "0", "", "", "", -1, -1, 2);
}

}  // namespace

CAddress::CAddress(const char* elementName) : TGeneratedClass(elementName) { CAddress::Init(); }

void CAddress::Init() { ResetProperties(m_name, m_street, m_city, m_postcode); }

void CAddress::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kName: return AccessValue<ItemType_string>(get, value, m_name);
    case kStreet: return AccessValue<ItemType_string>(get, value, m_street);
    case kCity: return AccessValue<ItemType_string>(get, value, m_city);
    case kPostcode: return AccessValue<ItemType_string>(get, value, m_postcode);
  }
  // clang-format on
}

const CClassMetaData& CAddress::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "shipTo", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("name", kNamespace, kName, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("street", kNamespace, kStreet, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("city", kNamespace, kCity, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("postcode", kNamespace, kPostcode, false, ItemType_string, "", kPreserve, Postcode(), "")},
      {});
  // clang-format on
  return metaData;
}

CItem::CItem(const char* elementName) : TGeneratedClass(elementName) { CItem::Init(); }

void CItem::Init() { ResetProperties(m_sku, m_product, m_quantity, m_price, m_comment); }

void CItem::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kSku: return AccessValue<ItemType_string>(get, value, m_sku);
    case kProduct: return AccessValue<ItemType_string>(get, value, m_product);
    case kQuantity: return AccessValue<ItemType_i4>(get, value, m_quantity);
    case kPrice: return AccessValue<ItemType_decimal>(get, value, m_price);
    case kComment: return AccessValue<ItemType_string>(get, value, m_comment);
  }
  // clang-format on
}

const CClassMetaData& CItem::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "item", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("product", kNamespace, kProduct, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("quantity", kNamespace, kQuantity, false, ItemType_i4, "", kCollapse, AtLeastOne(), ""),
       new CElementInfoSeqPrimMnd("price", kNamespace, kPrice, false, ItemType_decimal, "", kCollapse, Money(), ""),
       new CElementInfoSeqPrimOpt("comment", kNamespace, kComment, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {new CAttributeInfoPrimitive("sku", "", kSku, false, ItemType_string, "", kPreserve, Sku(), "")});
  // clang-format on
  return metaData;
}

CPurchaseOrder::CPurchaseOrder(const char* elementName) : TGeneratedClass(elementName) {
  CPurchaseOrder::Init();
}

void CPurchaseOrder::SetShipTo(CSmartPtr<CAddress> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "shipTo");
  Throw_IfElementNameDiffers(value.Ptr(), "shipTo");
  m_shipTo = std::move(value);
}

void CPurchaseOrder::Init() {
  ResetProperties(m_id, m_priority, m_orderDate);
  ResetChild(m_shipTo, "shipTo");
  ResetCollection(m_item, "item", kNamespace, 1, kUnbounded);
}

void CPurchaseOrder::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_string>(get, value, m_id);
    case kPriority: return AccessEnum(get, value, m_priority);
    case kOrderDate: return AccessValue<ItemType_date>(get, value, m_orderDate);
    case kShipTo: return AccessObject(get, value, m_shipTo);
    case kItem: return AccessCollection(get, value, m_item.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CPurchaseOrder::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "purchaseOrder", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("orderDate", kNamespace, kOrderDate, false, ItemType_date, "", kCollapse, NoFacets(), ""),
       new CElementInfoSeqClsMnd("shipTo", kNamespace, kShipTo, XmlElementType_Element, CreateObject<CAddress>, 0, false),
       new CElementInfoSeqClsCol("item", kNamespace, kItem, XmlElementType_Element)},
      {new CAttributeInfoPrimitive("id", "", kId, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CAttributeInfoEnum("priority", "", kPriority, true, PriorityToText, PriorityFromText, "normal")});
  // clang-format on
  return metaData;
}

}  // namespace po
