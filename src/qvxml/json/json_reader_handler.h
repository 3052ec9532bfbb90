// What a JSON reader reports.

#ifndef QVXML_JSON_JSON_READER_HANDLER_H_
#define QVXML_JSON_JSON_READER_HANDLER_H_

#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Receives the tokens of a JSON text in their order. The order of the virtual operations is fixed.
///
/// Text is given as it stands behind its escapes and is valid during the call. What an operation
/// throws ends the reading and reaches its caller.
class QVXML_API IJsonReaderHandler {
 public:
  virtual ~IJsonReaderHandler();

  virtual void ReadStartDocument() = 0;
  virtual void ReadEndDocument() = 0;
  /// The name of a member of the innermost object; its value follows.
  virtual void ReadName(const std::string& name) = 0;
  virtual void ReadString(const std::string& value) = 0;
  /// The number as it is written.
  virtual void ReadNumber(const std::string& value) = 0;
  virtual void ReadStartObject() = 0;
  virtual void ReadEndObject() = 0;
  virtual void ReadStartArray() = 0;
  virtual void ReadEndArray() = 0;
  virtual void ReadBool(bool value) = 0;
  virtual void ReadNull() = 0;
};

}  // namespace QvXmlLib16

#endif  // QVXML_JSON_JSON_READER_HANDLER_H_
