#include "qvxml/binding/serialization_context.h"

#include <cstring>

#include "qvxml/core/exception.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/json/json_context.h"

namespace QvXmlLib16 {

namespace {

const char* TextOf(const char* value) { return value != nullptr ? value : ""; }

}  // namespace

constinit CInstanceCounter CSerializationContext::s_instances("CSerializationContext");
// Before the objects of programs that are linked with the static library, which may use it already.
// A process that has no memory for it may as well not start.
// NOLINTNEXTLINE(cert-err58-cpp)
__attribute__((init_priority(101))) CSerializationContext CSerializationContext::m_defaultContext;

CSerializationContext::CSerializationContext() = default;
CSerializationContext::CSerializationContext(const CSerializationContext& other) = default;
CSerializationContext& CSerializationContext::operator=(const CSerializationContext& other) =
    default;
CSerializationContext::~CSerializationContext() = default;

void CSerializationContext::SetIgnoreUnknownElements(bool value) {
  if (value && m_ignoreMissingMandatoryElements) {
    throw CQvInvalidStateException(
        "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
  }
  m_ignoreUnknownElements = value;
}

void CSerializationContext::SetIgnoreMissingMandatoryElements(bool value) {
  if (value && m_ignoreUnknownElements) {
    throw CQvInvalidStateException(
        "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, you can not ignore both\nSet IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
  }
  m_ignoreMissingMandatoryElements = value;
}

void CSerializationContext::SetDefaultNamespaceURI(const char* value) {
  m_defaultNamespaceUri = TextOf(value);
}

void CSerializationContext::SetInLineSchema(const char* value) { m_inLineSchema = TextOf(value); }

void CSerializationContext::SetIndentChars(const char* value) {
  const char* const text = TextOf(value);
  if (text[std::strspn(text, " \t")] != '\0') {
    throw CQvInvalidParamException(
        "IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
  }
  m_indentChars = text;
}

CJsonContext& CSerializationContext::GetJsonContext() const { return m_jsonContext.GetOrMake(); }
CFastInfosetContext& CSerializationContext::GetFIContext() const { return m_fiContext.GetOrMake(); }

}  // namespace QvXmlLib16
