// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_ENVELOPE_H_
#define TESTS_SAMPLES_ENVELOPE_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// Wildcards for elements and attributes.
class CEnvelope : public TGeneratedClass<CEnvelope> {
 public:
  explicit CEnvelope(const char* elementName = "envelope");

  const std::optional<std::string>& GetId() const { return m_id; }
  void SetId(std::optional<std::string> value) { m_id = std::move(value); }
  CAttributeCol& GetAnyAttribute() const { return *m_anyAttribute; }
  CElement* GetHeader() const { return m_header.Ptr(); }
  void SetHeader(CSmartPtr<CElement> value);
  CElement* GetPayload() const { return m_payload.Ptr(); }
  void SetPayload(CSmartPtr<CElement> value);
  const std::optional<std::string>& GetSubject() const { return m_subject; }
  void SetSubject(std::optional<std::string> value) { m_subject = std::move(value); }
  CElementCol& GetAnyElement() const { return *m_anyElement; }

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
