#include "qvxml/json/json_reader_default_handler.h"

namespace QvXmlLib16 {

IJsonReaderHandler::~IJsonReaderHandler() = default;

constinit CInstanceCounter CJsonReaderDefaultHandler::s_instances("CJsonReaderDefaultHandler");

CJsonReaderDefaultHandler::CJsonReaderDefaultHandler() = default;

CJsonReaderDefaultHandler::~CJsonReaderDefaultHandler() = default;

void CJsonReaderDefaultHandler::ReadStartDocument() {
  m_depth = 0;
  if (m_innerHandler != nullptr) m_innerHandler->ReadStartDocument();
}

void CJsonReaderDefaultHandler::ReadEndDocument() {
  if (m_innerHandler != nullptr) m_innerHandler->ReadEndDocument();
}

void CJsonReaderDefaultHandler::ReadName(const std::string& name) {
  StackItem& item = Push();
  item.name = name;
  item.isIndex = false;
  if (m_innerHandler != nullptr) m_innerHandler->ReadName(name);
}

void CJsonReaderDefaultHandler::ReadString(const std::string& value) {
  if (m_innerHandler != nullptr) m_innerHandler->ReadString(value);
  EndValue();
}

void CJsonReaderDefaultHandler::ReadNumber(const std::string& value) {
  if (m_innerHandler != nullptr) m_innerHandler->ReadNumber(value);
  EndValue();
}

void CJsonReaderDefaultHandler::ReadStartObject() {
  if (m_innerHandler != nullptr) m_innerHandler->ReadStartObject();
}

void CJsonReaderDefaultHandler::ReadEndObject() {
  if (m_innerHandler != nullptr) m_innerHandler->ReadEndObject();
  EndValue();
}

void CJsonReaderDefaultHandler::ReadStartArray() {
  if (m_innerHandler != nullptr) m_innerHandler->ReadStartArray();
  StackItem& item = Push();
  item.index = 0;
  item.isIndex = true;
}

void CJsonReaderDefaultHandler::ReadEndArray() {
  if (m_depth != 0) --m_depth;
  if (m_innerHandler != nullptr) m_innerHandler->ReadEndArray();
  EndValue();
}

void CJsonReaderDefaultHandler::ReadBool(bool value) {
  if (m_innerHandler != nullptr) m_innerHandler->ReadBool(value);
  EndValue();
}

void CJsonReaderDefaultHandler::ReadNull() {
  if (m_innerHandler != nullptr) m_innerHandler->ReadNull();
  EndValue();
}

std::string CJsonReaderDefaultHandler::GetPath() {
  std::string path = "$";
  for (size_t i = 0; i < m_depth; ++i) {
    const StackItem& item = m_items[i];
    path += item.isIndex ? "[" + std::to_string(item.index) + "]" : "." + item.name;
  }
  return path;
}

CJsonReaderDefaultHandler::StackItem& CJsonReaderDefaultHandler::Push() {
  if (m_depth == m_items.size()) m_items.emplace_back();
  return m_items[m_depth++];
}

void CJsonReaderDefaultHandler::EndValue() noexcept {
  if (m_depth == 0) return;
  StackItem& item = m_items[m_depth - 1];
  if (item.isIndex) {
    ++item.index;
  } else {
    --m_depth;
  }
}

}  // namespace QvXmlLib16
