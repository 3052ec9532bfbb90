// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_ENVELOPE_H_
#define TESTS_SAMPLES_ENVELOPE_H_

#include "tests/samples/schema.h"

namespace samples {

/// Wildcards for elements and attributes.
class CEnvelope : public TGeneratedClass<CEnvelope> {
 public:
  explicit CEnvelope(const char* elementName = "envelope");

  CAttributeCol& GetAnyAttribute() const { return *m_anyAttribute; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kId, kAnyAttribute, kHeader, kPayload, kSubject, kAnyElement };

  std::optional<std::string> m_id;
  CSmartPtr<CAttributeCol> m_anyAttribute;
  CSmartPtr<CElement> m_header;
  CSmartPtr<CElement> m_payload;
  std::optional<std::string> m_subject;
  CSmartPtr<CElementCol> m_anyElement;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_ENVELOPE_H_
