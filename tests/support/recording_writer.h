// A writer that lists its calls, to test what is written without any format.

#ifndef TESTS_SUPPORT_RECORDING_WRITER_H_
#define TESTS_SUPPORT_RECORDING_WRITER_H_

#include <string>
#include <vector>

#include "tests/support/xml_dump.h"

#include "qvxml/xml/xml_writer.h"

namespace qv_test {

/// The calls so far, separated by blanks:
///
///   <{ns}name  >              start and end of an element; braces only with a namespace
///   "text":5  "text":5=       WriteString with its item type; "=" for a default value
///   @{ns}name='value':23      an attribute; @type='{ns}name' and @nil for the two special ones
///   #1                        the innermost open element has got that state
///   ?text  --text  schema(text)  prefix=ns
class RecordingWriter : public QvXmlLib16::CXmlWriter {
 public:
  RecordingWriter() : CXmlWriter("RecordingWriter") {}
  ~RecordingWriter() override {
    while (GetContext() != nullptr) PopContext();
  }

  /// Everything recorded since the last call.
  std::string Take() {
    NoteState();
    return std::exchange(m_log, std::string());
  }

  void SetDefaultNamespace(const std::string& namespaceUri) override {
    CXmlWriter::SetDefaultNamespace(namespaceUri);
    Note("=" + namespaceUri);
  }
  void AddNamespace(const std::string& prefix, const std::string& namespaceUri) override {
    CXmlWriter::AddNamespace(prefix, namespaceUri);
    Note(prefix + "=" + namespaceUri);
  }
  void WriteComment(const std::string& text) override { Note("--" + text); }
  void WritePI(const std::string& text) override { Note("?" + text); }
  void WriteInlineSchema(const std::string& text) override { Note("schema(" + text + ")"); }
  void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override {
    Note("<" + NameOf(namespaceUri, localName));
    PushContext(localName, namespaceUri, 0);
    m_states.push_back(QvXmlLib16::ContextState_None);
  }
  void WriteString(const std::string& text, QvXmlLib16::ItemType type,
                   bool isDefaultValue) override {
    Note('"' + text + "\":" + std::to_string(type) + (isDefaultValue ? "=" : ""));
  }
  void WriteEndElement() override {
    Note(">");
    PopContext();
    m_states.pop_back();
  }
  void WriteAttributeString(const std::string& localName, const std::string& namespaceUri,
                            const std::string& value, QvXmlLib16::ItemType type) override {
    Note("@" + NameOf(namespaceUri, localName) + "='" + value + "':" + std::to_string(type));
  }
  void WriteAttributeType(const std::string& typeNamespace, const std::string& typeName,
                          QvXmlLib16::ItemType type) override {
    Note("@type='" + NameOf(typeNamespace, typeName) + "':" + std::to_string(type));
  }
  void WriteAttributeNil() override { Note("@nil"); }

 private:
  void Note(const std::string& text) {
    NoteState();
    Append(text);
  }
  // SetContextState is not virtual, so the state is looked at before each call.
  void NoteState() {
    if (GetContext() == nullptr || GetContext()->GetState() == m_states.back()) return;
    m_states.back() = GetContext()->GetState();
    Append("#" + std::to_string(m_states.back()));
  }
  void Append(const std::string& text) {
    if (!m_log.empty()) m_log += ' ';
    m_log += text;
  }

  std::string m_log;
  std::vector<QvXmlLib16::ContextState> m_states;
};

}  // namespace qv_test

#endif  // TESTS_SUPPORT_RECORDING_WRITER_H_
