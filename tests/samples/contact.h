// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_CONTACT_H_
#define TESTS_SAMPLES_CONTACT_H_

#include "tests/samples/schema.h"

namespace samples {

/// A choice inside a sequence, which has no element of its own.
class CReach : public TGeneratedClass<CReach> {
 public:
  explicit CReach(const char* elementName = "reach");

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
  const std::optional<std::string>& GetValue() const { return m_value; }

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

  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  TObjectCollection<CFact>& GetFact() const { return *m_fact; }

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
