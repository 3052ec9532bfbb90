#include "qvxml/json/json_writer.h"

namespace QvXmlLib16 {

CJsonWriter::CJsonWriter(CTextStream& stream, const char* instanceName)
    : CXmlWriter(instanceName), m_stream(stream) {}

CJsonWriter::~CJsonWriter() = default;

void CJsonWriter::SetEOLType(EOLType type) {
  m_eol = GetEOLText(type);
  m_eolType = type;
}

void CJsonWriter::SetIndentChars(const char* indentChars) {
  m_indentChars = indentChars != nullptr ? indentChars : "";
}

void CJsonWriter::WritePI(const std::string&) {}

void CJsonWriter::WriteInlineSchema(const std::string&) {}

}  // namespace QvXmlLib16
