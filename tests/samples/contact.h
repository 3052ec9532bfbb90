// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_CONTACT_H_
#define TESTS_SAMPLES_CONTACT_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// A choice inside a sequence, which has no element of its own.
class CReach : public TGeneratedClass<CReach> {
 public:
  explicit CReach(const char* elementName = "reach");

  const std::optional<std::string>& GetEmail() const { return m_email; }
  void SetEmail(std::optional<std::string> value);
  const std::optional<std::string>& GetPhone() const { return m_phone; }
  void SetPhone(std::optional<std::string> value);
  /// Name of the element that is set, "" when none is.
  const std::string& GetSelected() const { return m_selected; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kEmail, kPhone };

  std::optional<std::string> m_email;
  std::optional<std::string> m_phone;
  std::string m_selected;
};

/// A model group.
class CPlace : public TGeneratedClass<CPlace> {
 public:
  explicit CPlace(const char* elementName = "place");

  const std::optional<std::string>& GetStreet() const { return m_street; }
  void SetStreet(std::optional<std::string> value) { m_street = std::move(value); }
  const std::optional<std::string>& GetCity() const { return m_city; }
  void SetCity(std::optional<std::string> value) { m_city = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kStreet, kCity };

  std::optional<std::string> m_street;
  std::optional<std::string> m_city;
};

/// A repeated sequence inside a sequence.
class CFact : public TGeneratedClass<CFact> {
 public:
  explicit CFact(const char* elementName = "fact");

  const std::optional<std::string>& GetKey() const { return m_key; }
  void SetKey(std::optional<std::string> value) { m_key = std::move(value); }
  const std::optional<std::string>& GetValue() const { return m_value; }
  void SetValue(std::optional<std::string> value) { m_value = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kKey, kValue };

  std::optional<std::string> m_key;
  std::optional<std::string> m_value;
};

/// An element with three model groups between its own members.
class CContact : public TGeneratedClass<CContact> {
 public:
  explicit CContact(const char* elementName = "contact");

  const std::optional<std::string>& GetId() const { return m_id; }
  void SetId(std::optional<std::string> value) { m_id = std::move(value); }
  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  CReach* GetReach() const { return m_reach.Ptr(); }
  void SetReach(CSmartPtr<CReach> value);
  CPlace* GetPlace() const { return m_place.Ptr(); }
  void SetPlace(CSmartPtr<CPlace> value);
  TObjectCollection<CFact>& GetFact() const { return *m_fact; }
  const std::optional<std::string>& GetRemark() const { return m_remark; }
  void SetRemark(std::optional<std::string> value) { m_remark = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kId, kName, kReach, kPlace, kFact, kRemark };

  std::optional<std::string> m_id;
  std::optional<std::string> m_name;
  CSmartPtr<CReach> m_reach;
  CSmartPtr<CPlace> m_place;
  CSmartPtr<TObjectCollection<CFact>> m_fact;
  std::optional<std::string> m_remark;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_CONTACT_H_
