// What both kinds of JSON writers share.

#ifndef QVXML_JSON_JSON_WRITER_H_
#define QVXML_JSON_JSON_WRITER_H_

#include <string>
#include <string_view>
#include <typeinfo>

#include "qvxml/json/json_context.h"
#include "qvxml/support/export.h"
#include "qvxml/xml/encoding.h"
#include "qvxml/xml/text_stream.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16 {

/// Base of CJsonTextWriter and CWellFormedJsonWriter: the options, and the marks that JSON is made
/// of.
///
/// A writer neither opens nor closes its stream. It flushes it whenever 4096 or more characters
/// wait in it after an element was started; failures of the stream pass through.
class QVXML_API CJsonWriter : public CXmlWriter {
 public:
  ~CJsonWriter() override;

  // Options, to be set before the first item is written.

  /// Whether each name and value stands on a line of its own, indented by its depth; initially
  /// true.
  bool GetFormat() const noexcept { return m_isFormatted; }
  void SetFormat(bool isFormatted) noexcept { m_isFormatted = isFormatted; }
  /// Initially EOL_LF.
  EOLType GetEOLType() const noexcept { return m_eolType; }
  /// Throws CQvException "Invalid EOL type." and then changes nothing.
  void SetEOLType(EOLType type);
  /// Initially JsonRoundTrip_Full.
  JsonRoundTrip GetSupportRoundtrip() const noexcept { return m_supportRoundtrip; }
  void SetSupportRoundtrip(JsonRoundTrip value) noexcept { m_supportRoundtrip = value; }
  /// What indents by one level; initially a tab.
  const std::string& GetIndentChars() const noexcept { return m_indentChars; }
  /// Null is "".
  void SetIndentChars(const char* indentChars);

  // JSON has no place for these: they do nothing.

  void WritePI(const std::string& text) override;
  void WriteInlineSchema(const std::string& schemaText) override;

 protected:
  /// The stream is not owned and must outlive the writer. `instanceName` as for CXmlWriter.
  CJsonWriter(CTextStream& stream, const char* instanceName);

  CTextStream& GetStream() const noexcept { return m_stream; }
  /// Whether nobody can tell several operations from one: no derived class hears of them, and the
  /// stream keeps what it gets. False until the root is known.
  bool IsPlain() const noexcept { return m_isPlain; }
  /// To be called for each root, with the class of the writer.
  void NoteRoot(const std::type_info& type) noexcept;
  const std::string& GetEOL() const noexcept { return m_eol; }
  /// Whether namespaces and types are written.
  bool IsFull() const noexcept { return m_supportRoundtrip == JsonRoundTrip_Full; }
  /// What marks the name of an attribute: "@", or nothing.
  std::string_view GetAttributeMark() const noexcept {
    return m_supportRoundtrip == JsonRoundTrip_None ? "" : "@";
  }
  /// The name of text that stands beside other members: "#text", or "".
  std::string_view GetTextName() const noexcept {
    return m_supportRoundtrip == JsonRoundTrip_None ? "" : "#text";
  }
  /// Whether values of the type are written without quotation marks.
  static constexpr bool IsBare(ItemType type) noexcept {
    return (type >= ItemType_i1 && type <= ItemType_r8) ||
           (type >= ItemType_boolean && type <= ItemType_integer);
  }

  /// The prefix of an element in the innermost one, "" for none, or null when it has none but needs
  /// one.
  const std::string* FindElementPrefix(const CXmlWriterContext& parent,
                                       const std::string& namespaceUri) const;

  /// Ends the line, if formatting.
  void WriteEOL() {
    if (m_isFormatted) m_stream.Append(m_eol);
  }
  /// Indents, if formatting.
  void WriteIndent(unsigned long depth) {
    if (m_isFormatted) m_stream.AppendTimes(m_indentChars, depth);
  }
  void FlushIfFull() {
    if (!m_isPlain && m_stream.GetLength() > kMaxWaiting) m_stream.Flush();
  }

 private:
  static constexpr unsigned long kMaxWaiting = 4095;

  std::string m_indentChars = "\t";
  std::string m_eol = "\n";
  EOLType m_eolType = EOL_LF;
  JsonRoundTrip m_supportRoundtrip = JsonRoundTrip_Full;
  bool m_isFormatted = true;
  bool m_isPlain = false;
  CTextStream& m_stream;
};

}  // namespace QvXmlLib16

#endif  // QVXML_JSON_JSON_WRITER_H_
