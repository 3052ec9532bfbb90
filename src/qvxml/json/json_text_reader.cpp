#include "qvxml/json/json_text_reader.h"

#include <algorithm>
#include <string_view>

#include "qvxml/json/json_lenient_lexer_internal.h"
#include "qvxml/json/json_parser_internal.h"
#include "qvxml/json/json_reader_to_xml_handler.h"
#include "qvxml/json/json_strict_lexer_internal.h"

namespace QvXmlLib16 {

namespace {

// The events of the parser as those of the interface.
class CHandlerEvents {
 public:
  explicit CHandlerEvents(CJsonReaderDefaultHandler& handler) : m_handler(handler) {}

  bool RepeatsArrayNames() const {
    return dynamic_cast<const CJsonReaderToXmlHandler*>(m_handler.GetInnerHandler()) != nullptr;
  }

  void StartDocument() { m_handler.ReadStartDocument(); }
  void EndDocument() { m_handler.ReadEndDocument(); }
  void Name(std::string_view name) { m_handler.ReadName(Text(name)); }
  void String(std::string_view value) { m_handler.ReadString(Text(value)); }
  void Number(std::string_view value) { m_handler.ReadNumber(Text(value)); }
  void StartObject() { m_handler.ReadStartObject(); }
  void EndObject() { m_handler.ReadEndObject(); }
  void StartArray() { m_handler.ReadStartArray(); }
  void EndArray() { m_handler.ReadEndArray(); }
  void Bool(bool value) { m_handler.ReadBool(value); }
  void Null() { m_handler.ReadNull(); }

 private:
  const std::string& Text(std::string_view text) { return m_text = text; }

  CJsonReaderDefaultHandler& m_handler;
  std::string m_text;
};

}  // namespace

constinit CInstanceCounter CJsonTextReader::s_instances("CJsonTextReader");

CJsonTextReader::CJsonTextReader(const std::string& json) : m_json(json) {}

CJsonTextReader::~CJsonTextReader() = default;

void CJsonTextReader::Read() {
  CHandlerEvents events(m_handler);
  if (m_isWellFormed) {
    const size_t maxDepth = static_cast<size_t>(std::max(m_maxDepth, 0));
    detail::TJsonParser<detail::CStrictLexer, CHandlerEvents>(m_json, &m_handler, m_rootElementName,
                                                              maxDepth)
        .Read(events);
  } else {
    detail::TJsonParser<detail::CLenientLexer, CHandlerEvents>(
        m_json, &m_handler, m_rootElementName, detail::kLenientMaxDepth, m_allowsComments)
        .Read(events);
  }
}

}  // namespace QvXmlLib16
