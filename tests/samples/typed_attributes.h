#ifndef TESTS_SAMPLES_TYPED_ATTRIBUTES_H_
#define TESTS_SAMPLES_TYPED_ATTRIBUTES_H_

#include <optional>

#include "tests/samples/typed_members.h"

namespace samples {

/// An attribute of every type, a mandatory one with a facet, and a wildcard.
class CTypedAttributes : public TGeneratedClass<CTypedAttributes> {
 public:
  explicit CTypedAttributes(const char* elementName = "attributes");

  AllItemTypes::Properties<std::optional>& GetTyped() { return m_typed; }
  const std::optional<EColor>& GetColor() const { return m_color; }
  void SetColor(std::optional<EColor> value) { m_color = value; }
  const std::optional<long>& GetCount() const { return m_count; }
  void SetCount(std::optional<long> value) { m_count = value; }
  CAttributeCol& GetAnyAttribute() const { return *m_anyAttribute; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  AllItemTypes::Properties<std::optional> m_typed;
  std::optional<EColor> m_color;
  std::optional<long> m_count;
  CSmartPtr<CAttributeCol> m_anyAttribute;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TYPED_ATTRIBUTES_H_
