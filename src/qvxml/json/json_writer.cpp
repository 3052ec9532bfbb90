#include "qvxml/json/json_writer.h"

namespace QvXmlLib16 {

CJsonWriter::CJsonWriter(CTextStream& stream, const char* instanceName)
    : CXmlWriter(instanceName), m_stream(stream) {}

CJsonWriter::~CJsonWriter() = default;

void CJsonWriter::NoteRoot(const std::type_info& type) noexcept {
  m_isPlain = typeid(*this) == type && typeid(m_stream) == typeid(CTextStream);
}

const std::string* CJsonWriter::FindElementPrefix(const CXmlWriterContext& parent,
                                                  const std::string& namespaceUri) const {
  static const std::string& s_none = *new std::string();
  if (!IsFull()) return &s_none;
  return parent.FindPrefixWithin(namespaceUri);
}

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
