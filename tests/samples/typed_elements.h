#ifndef TESTS_SAMPLES_TYPED_ELEMENTS_H_
#define TESTS_SAMPLES_TYPED_ELEMENTS_H_

#include <optional>

#include "tests/samples/typed_members.h"

namespace samples {

/// An optional element of every type.
class CTypedOptionals : public TGeneratedClass<CTypedOptionals> {
 public:
  explicit CTypedOptionals(const char* elementName = "optionals");

  AllItemTypes::Properties<std::optional>& GetTyped() { return m_typed; }
  const std::optional<EColor>& GetColor() const { return m_color; }
  void SetColor(std::optional<EColor> value) { m_color = value; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  AllItemTypes::Properties<std::optional> m_typed;
  std::optional<EColor> m_color;
};

/// The same elements, mandatory.
class CTypedMandatories : public TGeneratedClass<CTypedMandatories, CTypedOptionals> {
 public:
  explicit CTypedMandatories(const char* name = "mandatories") : TGeneratedClass(name) {}
  static const CClassMetaData& GetMetaData();
};

/// The same elements, each with a default.
class CTypedDefaults : public TGeneratedClass<CTypedDefaults, CTypedOptionals> {
 public:
  explicit CTypedDefaults(const char* name = "defaults") : TGeneratedClass(name) {}
  static const CClassMetaData& GetMetaData();
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TYPED_ELEMENTS_H_
