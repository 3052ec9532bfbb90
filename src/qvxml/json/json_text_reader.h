// Reads JSON text.

#ifndef QVXML_JSON_JSON_TEXT_READER_H_
#define QVXML_JSON_JSON_TEXT_READER_H_

#include <string>

#include "qvxml/json/json_reader_default_handler.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/binary_data.h"

namespace QvXmlLib16 {

class CSerializationContext;  // binding/serialization_context.h

/// Takes a JSON text apart and reports its tokens.
///
/// At first it accepts what CJsonTextWriter writes in its default mode. Raw line feeds are dropped
/// wherever they stand, inside strings and numbers too; other control characters in strings are
/// taken as they are; "\uXXXX" gives one byte, the first digit of the code of its first character;
/// numbers may begin with zeros; what follows the first value is not looked at; an empty text
/// reports its start and end alone.
class QVXML_API CJsonTextReader : private TInstanceCounted<CJsonTextReader> {
 public:
  explicit CJsonTextReader(const std::string& json);
  CJsonTextReader(const CJsonTextReader&) = delete;
  CJsonTextReader& operator=(const CJsonTextReader&) = delete;
  ~CJsonTextReader();

  /// Who is told the tokens; not owned. Null, as at first, is nobody.
  void SetJsonReaderHandler(IJsonReaderHandler* handler) noexcept {
    m_handler.SetInnerHandler(handler);
  }
  /// Tells the path of the value that is being read.
  IErrorPathProvider& GetErrorPathProvider() noexcept { return m_handler; }

  // Options; those of CJsonContext, where they are described.

  const std::string& GetRootElementName() const noexcept { return m_rootElementName; }
  void SetRootElementName(const std::string& value) { m_rootElementName = value; }
  bool GetAllowComments() const noexcept { return m_allowsComments; }
  void SetAllowComments(bool value) noexcept { m_allowsComments = value; }
  /// With true the text must be UTF-8.
  bool GetWellFormed() const noexcept { return m_isWellFormed; }
  void SetWellFormed(bool value) noexcept { m_isWellFormed = value; }
  /// Of well-formed text; that of others is 100.
  int GetMaxDepth() const noexcept { return m_maxDepth; }
  void SetMaxDepth(int value) noexcept { m_maxDepth = value; }

  /// Reads the text from its beginning. Throws CQvValidationException, with the path, for malformed
  /// text; its message ends with "at line %d, position %d.", lines and bytes of the line counted
  /// from 1. What a handler throws passes. Writing XML (CJsonReaderToXmlHandler as the handler, and
  /// ConvertJsonToXml) repeats the name of an array for each item, and is refused where that is
  /// more than 100 times the text, past 8 MiB: "JSON exceeded size limit at line %d, position %d.".
  void Read();

  /// Converts JSON text to XML text in UTF-8 as the context's JSON options tell. The text is in the
  /// locale's encoding. Throws as Read() and CJsonReaderToXmlHandler do. Defined in
  /// binding/json_loading.cpp.
  static CBinaryData ConvertJsonToXml(const std::string& json, const CSerializationContext& ctx);

 private:
  friend class TInstanceCounted<CJsonTextReader>;
  static CInstanceCounter s_instances;

  CJsonReaderDefaultHandler m_handler;
  const std::string m_json;
  std::string m_rootElementName;
  bool m_allowsComments = true;
  bool m_isWellFormed = false;
  int m_maxDepth = 1000;
};

}  // namespace QvXmlLib16

#endif  // QVXML_JSON_JSON_TEXT_READER_H_
