// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_ALL_TYPES_H_
#define TESTS_SAMPLES_ALL_TYPES_H_

#include "tests/samples/typed_attributes.h"
#include "tests/samples/typed_elements.h"
#include "tests/samples/typed_lists.h"
#include "tests/samples/typed_nillables.h"

namespace samples {

/// Every type in every role.
class CAllTypes : public TGeneratedClass<CAllTypes> {
 public:
  explicit CAllTypes(const char* elementName = "allTypes");

  CTypedAttributes* GetAttributes() const { return m_attributes.Ptr(); }
  CTypedMandatories* GetMandatories() const { return m_mandatories.Ptr(); }
  CTypedOptionals* GetOptionals() const { return m_optionals.Ptr(); }
  CTypedNillables* GetNillables() const { return m_nillables.Ptr(); }
  CTypedDefaults* GetDefaults() const { return m_defaults.Ptr(); }
  CTypedLists* GetLists() const { return m_lists.Ptr(); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kAttributes, kMandatories, kOptionals, kNillables, kDefaults, kLists };

  CSmartPtr<CTypedAttributes> m_attributes;
  CSmartPtr<CTypedMandatories> m_mandatories;
  CSmartPtr<CTypedOptionals> m_optionals;
  CSmartPtr<CTypedNillables> m_nillables;
  CSmartPtr<CTypedDefaults> m_defaults;
  CSmartPtr<CTypedLists> m_lists;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_ALL_TYPES_H_
