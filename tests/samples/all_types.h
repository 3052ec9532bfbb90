// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_ALL_TYPES_H_
#define TESTS_SAMPLES_ALL_TYPES_H_

#include <optional>
#include <string>
#include <utility>

#include "tests/samples/typed_attributes.h"
#include "tests/samples/typed_elements.h"
#include "tests/samples/typed_lists.h"
#include "tests/samples/typed_nillables.h"
#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// Every type in every role.
class CAllTypes : public TGeneratedClass<CAllTypes> {
 public:
  explicit CAllTypes(const char* elementName = "allTypes");

  CTypedAttributes* GetAttributes() const { return m_attributes.Ptr(); }
  void SetAttributes(CSmartPtr<CTypedAttributes> value);
  CTypedMandatories* GetMandatories() const { return m_mandatories.Ptr(); }
  void SetMandatories(CSmartPtr<CTypedMandatories> value);
  CTypedOptionals* GetOptionals() const { return m_optionals.Ptr(); }
  void SetOptionals(CSmartPtr<CTypedOptionals> value);
  CTypedNillables* GetNillables() const { return m_nillables.Ptr(); }
  void SetNillables(CSmartPtr<CTypedNillables> value);
  CTypedDefaults* GetDefaults() const { return m_defaults.Ptr(); }
  void SetDefaults(CSmartPtr<CTypedDefaults> value);
  CTypedLists* GetLists() const { return m_lists.Ptr(); }
  void SetLists(CSmartPtr<CTypedLists> value);

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
