#include "qvxml/json/json_reader_to_xml_handler.h"

#include <cstddef>
#include <string_view>

#include "qvxml/json/json_to_xml_internal.h"
#include "qvxml/xml/xml_text_writer.h"

namespace QvXmlLib16 {

namespace {

// The writer as the conversion wants it.
class CWriterSink {
 public:
  explicit CWriterSink(CXmlTextWriter& writer) : m_writer(writer) {}

  void StartDocument() {
    m_depth = 0;
    m_writer.WriteStartDocument();
  }
  void EndDocument() {}
  void StartElement(std::string_view name) {
    m_name = name;
    m_writer.WriteStartElement(m_name, m_noNamespace);
    ++m_depth;
  }
  void Attribute(std::string_view name, std::string_view value) {
    m_name = name;
    m_value = value;
    m_writer.WriteAttributeString(m_name, m_noNamespace, m_value, ItemType_string);
  }
  // The writer takes what begins with "<![CDATA[" for markup, so the two parts go one by one.
  void Text(std::string_view text) {
    if (text.substr(0, 2) == "<!") {
      Section(text.substr(0, 1));
      text.remove_prefix(1);
    }
    Section(text);
  }
  void Section(std::string_view text) {
    m_value = text;
    m_writer.WriteString(m_value, ItemType_string, false);
  }
  void EndElement() {
    --m_depth;
    m_writer.WriteEndElement();
  }
  bool HasOpenElement() const noexcept { return m_depth != 0; }

 private:
  CXmlTextWriter& m_writer;
  const std::string m_noNamespace;
  // Of the elements begun here.
  size_t m_depth = 0;
  std::string m_name;
  std::string m_value;
};

}  // namespace

struct CJsonReaderToXmlHandler::State {
  State(CXmlTextWriter& writer, JsonRoundTrip roundTrip, IErrorPathProvider& paths)
      : sink(writer), toXml(sink, roundTrip, paths) {}

  CWriterSink sink;
  detail::TJsonToXml<CWriterSink> toXml;
  // What the conversion looks at until its value begins.
  std::string name;
};

constinit CInstanceCounter CJsonReaderToXmlHandler::s_instances("CJsonReaderToXmlHandler");

CJsonReaderToXmlHandler::CJsonReaderToXmlHandler(CXmlTextWriter& writer, JsonRoundTrip roundTrip,
                                                 IErrorPathProvider& paths)
    : m_state(std::make_unique<State>(writer, roundTrip, paths)) {}

CJsonReaderToXmlHandler::~CJsonReaderToXmlHandler() = default;

void CJsonReaderToXmlHandler::ReadStartDocument() { m_state->toXml.StartDocument(); }
void CJsonReaderToXmlHandler::ReadEndDocument() { m_state->toXml.EndDocument(); }
void CJsonReaderToXmlHandler::ReadName(const std::string& name) {
  m_state->name = name;
  m_state->toXml.Name(m_state->name);
}
void CJsonReaderToXmlHandler::ReadString(const std::string& value) { m_state->toXml.String(value); }
void CJsonReaderToXmlHandler::ReadNumber(const std::string& value) { m_state->toXml.Number(value); }
void CJsonReaderToXmlHandler::ReadStartObject() { m_state->toXml.StartObject(); }
void CJsonReaderToXmlHandler::ReadEndObject() { m_state->toXml.EndObject(); }
void CJsonReaderToXmlHandler::ReadStartArray() { m_state->toXml.StartArray(); }
void CJsonReaderToXmlHandler::ReadEndArray() { m_state->toXml.EndArray(); }
void CJsonReaderToXmlHandler::ReadBool(bool value) { m_state->toXml.Bool(value); }
void CJsonReaderToXmlHandler::ReadNull() { m_state->toXml.Null(); }

}  // namespace QvXmlLib16
