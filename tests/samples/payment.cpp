// Generated from samples.xsd.

#include "tests/samples/payment.h"

namespace samples {

using namespace schema;

namespace {

constexpr const char* kAccountTexts[] = {"current", "savings"};
const char* AccountToText(int value) { return GetEnumText(kAccountTexts, value); }
int AccountFromText(const char* text) { return FindEnumValue(kAccountTexts, "Account", text); }

}  // namespace

CVoucher::CVoucher(const char* elementName) : TGeneratedClass(elementName) { CVoucher::Init(); }

void CVoucher::Init() { ResetProperties(m_code); }

void CVoucher::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kCode: return AccessValue<ItemType_string>(get, value, m_code);
  }
  // clang-format on
}

const CClassMetaData& CVoucher::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "voucher", kNamespace, true, false, -1, ItemType_none, "", false),
      {},
      {new CAttributeInfoPrimitive("code", "", kCode, false, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CPayment::CPayment(const char* elementName) : TGeneratedClass(elementName) {
  CPayment::Init();
  m_coin->AddEventListener(this);
}

CPayment::~CPayment() { m_coin->RemoveEventListener(this); }

void CPayment::SetCard(std::optional<std::string> value) {
  SelectAlternative(this, "card", value.has_value(), m_selected);
  m_card = std::move(value);
}

void CPayment::SetAccount(std::optional<EAccount> value) {
  SelectAlternative(this, "account", value.has_value(), m_selected);
  m_account = std::move(value);
}

void CPayment::SetVoucher(CSmartPtr<CVoucher> value) {
  Throw_IfElementNameDiffers(value.Ptr(), "voucher");
  SelectAlternative(this, "voucher", value != nullptr, m_selected);
  m_voucher = std::move(value);
}

void CPayment::Init() {
  ResetProperties(m_payer, m_card, m_account, m_voucher, m_foreign);
  ResetCollection(m_coin, "coin", kNamespace, 1, 3, NoFacets(), kCollapse, "");
  m_selected.clear();
}

void CPayment::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kPayer: return AccessValue<ItemType_string>(get, value, m_payer);
    case kCard: if (!get) m_selected = "card"; return AccessValue<ItemType_string>(get, value, m_card);
    case kAccount: if (!get) m_selected = "account"; return AccessEnum(get, value, m_account);
    case kVoucher: if (!get) m_selected = "voucher"; return AccessObject(get, value, m_voucher);
    case kCoin: return AccessCollection(get, value, m_coin.Ptr());
    case kForeign: if (!get) m_selected = "AnyElement"; return AccessObject(get, value, m_foreign);
  }
  // clang-format on
}

void CPayment::OnEvent(CXmlObjectBase* source, MsgType type, void*) {
  if (source == m_coin.Ptr()) CollectionAlternative(m_coin.Ptr(), type, "coin", m_selected);
}

const CClassMetaData& CPayment::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Element, "payment", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoChoicePrimOpt("card", kNamespace, kCard, false, ItemType_string, "", kPreserve, NoFacets(), ""),
       new CElementInfoChoiceEnumOpt("account", kNamespace, kAccount, false, AccountToText, AccountFromText, ""),
       new CElementInfoChoiceClsOpt("voucher", kNamespace, kVoucher, XmlElementType_Element, CreateObject<CVoucher>, 0),
       new CElementInfoChoicePrimCol("coin", kNamespace, kCoin),
       new CElementInfoChoiceUntpdOpt("AnyElement", kNamespace, kForeign, "##other", kNamespace)},
      {new CAttributeInfoPrimitive("payer", "", kPayer, true, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

}  // namespace samples
