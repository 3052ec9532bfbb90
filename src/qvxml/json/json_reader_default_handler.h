// Keeps the path of the value that is being read.

#ifndef QVXML_JSON_JSON_READER_DEFAULT_HANDLER_H_
#define QVXML_JSON_JSON_READER_DEFAULT_HANDLER_H_

#include <cstddef>
#include <string>
#include <vector>

#include "qvxml/core/error_path_provider.h"
#include "qvxml/json/json_reader_handler.h"
#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// Notes where the reader is and passes every event on.
class QVXML_API CJsonReaderDefaultHandler : public IJsonReaderHandler,
                                            public IErrorPathProvider,
                                            private TInstanceCounted<CJsonReaderDefaultHandler> {
 public:
  CJsonReaderDefaultHandler();
  ~CJsonReaderDefaultHandler() override;

  /// Where events go from here; not owned. Null, as at first, drops them.
  void SetInnerHandler(IJsonReaderHandler* handler) noexcept { m_innerHandler = handler; }
  IJsonReaderHandler* GetInnerHandler() const noexcept { return m_innerHandler; }

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

  /// "$", then ".name" for the member of each open object and "[index]", counted from 0, for each
  /// open array. A member or an index stands until its value ends.
  std::string GetPath() override;

 private:
  friend class TInstanceCounted<CJsonReaderDefaultHandler>;
  static CInstanceCounter s_instances;

  // A member of an object, or, with isIndex, the place in an array.
  struct StackItem {
    std::string name;
    size_t index = 0;
    bool isIndex = false;
  };

  StackItem& Push();
  void EndValue() noexcept;

  IJsonReaderHandler* m_innerHandler = nullptr;
  // Items behind the depth stay for reuse with the memory of their names.
  std::vector<StackItem> m_items;
  size_t m_depth = 0;
};

}  // namespace QvXmlLib16

#endif  // QVXML_JSON_JSON_READER_DEFAULT_HANDLER_H_
