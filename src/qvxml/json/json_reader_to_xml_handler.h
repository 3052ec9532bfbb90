// Turns JSON of the default mode into XML text.

#ifndef QVXML_JSON_JSON_READER_TO_XML_HANDLER_H_
#define QVXML_JSON_JSON_READER_TO_XML_HANDLER_H_

#include <memory>
#include <string>

#include "qvxml/core/error_path_provider.h"
#include "qvxml/json/json_context.h"
#include "qvxml/json/json_reader_handler.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

class CXmlTextWriter;  // xml/xml_text_writer.h

/// Writes what it is told as XML: the inverse of what CJsonTextWriter writes without
/// CJsonContext::GetWellFormed(). docs/json.md shows the mapping.
///
/// Throws CQvValidationException "JSON item has an empty Name." and "JSON Array has no Name.", and
/// CQvInvalidStateException "Failed to convert name '%s' to Element name in XML.", "Failed to
/// convert value '%s' to Element string value in XML." and "Failed to convert value '%s' to
/// Attribute string value in XML.". Names that hold markup, blanks or control characters are
/// refused; whether the others are XML names is left to the XML parser.
class QVXML_API CJsonReaderToXmlHandler : public IJsonReaderHandler,
                                          private TInstanceCounted<CJsonReaderToXmlHandler> {
 public:
  /// Writer and path provider are not owned and must outlive the handler. The caller opens and
  /// closes the writer.
  CJsonReaderToXmlHandler(CXmlTextWriter& writer, JsonRoundTrip roundTrip,
                          IErrorPathProvider& paths);
  CJsonReaderToXmlHandler(const CJsonReaderToXmlHandler&) = delete;
  CJsonReaderToXmlHandler& operator=(const CJsonReaderToXmlHandler&) = delete;
  ~CJsonReaderToXmlHandler() override;

  /// Writes the XML declaration.
  void ReadStartDocument() override;
  void ReadEndDocument() override;
  void ReadName(const std::string& name) override;
  void ReadString(const std::string& value) override;
  void ReadNumber(const std::string& value) override;
  void ReadStartObject() override;
  void ReadEndObject() override;
  void ReadStartArray() override;
  void ReadEndArray() override;
  void ReadBool(bool value) override;
  void ReadNull() override;

 private:
  friend class TInstanceCounted<CJsonReaderToXmlHandler>;
  static CInstanceCounter s_instances;

  struct State;
  const std::unique_ptr<State> m_state;
};

}  // namespace QvXmlLib16

#endif  // QVXML_JSON_JSON_READER_TO_XML_HANDLER_H_
