#ifndef TESTS_SAMPLES_TYPED_NILLABLES_H_
#define TESTS_SAMPLES_TYPED_NILLABLES_H_

#include "tests/samples/typed_members.h"

namespace samples {

/// A nillable element of every type; those before the duration are mandatory.
class CTypedNillables : public TGeneratedClass<CTypedNillables> {
 public:
  explicit CTypedNillables(const char* elementName = "nillables");

  AllItemTypes::Properties<TNillable>& GetTyped() { return m_typed; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  AllItemTypes::Properties<TNillable> m_typed;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TYPED_NILLABLES_H_
