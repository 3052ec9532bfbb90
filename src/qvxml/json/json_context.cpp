#include "qvxml/json/json_context.h"

#include "qvxml/core/exception.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CJsonContext::s_instances("CJsonContext");

CJsonContext::CJsonContext() = default;
CJsonContext::CJsonContext(const CJsonContext& other) = default;
CJsonContext& CJsonContext::operator=(const CJsonContext& other) = default;
CJsonContext::~CJsonContext() = default;

void CJsonContext::SetRootElementName(const char* value) {
  m_rootElementName = value != nullptr ? value : "";
}

void CJsonContext::SetMaxDepth(int value) {
  if (value < 1 || value > 10000) {
    throw CQvInvalidParamException("MaxDepth must be from 1 to 10000.");
  }
  m_maxDepth = value;
}

}  // namespace QvXmlLib16
