// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_PAYMENT_H_
#define TESTS_SAMPLES_PAYMENT_H_

#include "tests/samples/schema.h"

namespace samples {

/// accountType
enum class EAccount : int { e_current, e_savings };

/// voucherType
class CVoucher : public TGeneratedClass<CVoucher> {
 public:
  explicit CVoucher(const char* elementName = "voucher");

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kCode };

  std::optional<std::string> m_code;
};

/// A choice of a value, an enumeration, an object, a collection and a wildcard.
class CPayment : public TGeneratedClass<CPayment> {
 public:
  explicit CPayment(const char* elementName = "payment");
  ~CPayment() override;

  const std::optional<std::string>& GetPayer() const { return m_payer; }
  void SetPayer(std::optional<std::string> value) { m_payer = std::move(value); }
  const std::optional<std::string>& GetCard() const { return m_card; }
  void SetCard(std::optional<std::string> value);
  void SetAccount(std::optional<EAccount> value);
  CVoucher* GetVoucher() const { return m_voucher.Ptr(); }
  void SetVoucher(CSmartPtr<CVoucher> value);
  Ci4Col& GetCoin() const { return *m_coin; }
  /// Name of the element that is set, "" when none is.
  const std::string& GetSelected() const { return m_selected; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kPayer, kCard, kAccount, kVoucher, kCoin, kForeign };

  std::optional<std::string> m_payer;
  std::optional<std::string> m_card;
  std::optional<EAccount> m_account;
  CSmartPtr<CVoucher> m_voucher;
  CSmartPtr<Ci4Col> m_coin;
  CSmartPtr<CElement> m_foreign;
  std::string m_selected;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_PAYMENT_H_
