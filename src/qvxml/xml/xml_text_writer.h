// XML text as an output format.

#ifndef QVXML_XML_XML_TEXT_WRITER_H_
#define QVXML_XML_XML_TEXT_WRITER_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "qvxml/support/export.h"
#include "qvxml/xml/encoding.h"
#include "qvxml/xml/text_stream.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16 {

/// Writes XML text to a stream.
///
/// In text and attribute values "&", "<" and ">" become entities, carriage returns are dropped, and
/// a line feed becomes the end of line in text and "&#xA;" in attribute values; in attribute values
/// the double quotation mark becomes an entity too. Everything else passes as it is, so other
/// control characters make a document that parsers refuse. Names and prefixes are not checked.
///
/// A namespace without a prefix gets a generated one, declared where it is first used. An element
/// in no namespace is written bare even where a default namespace is in force, which takes it into
/// that namespace when it is read.
///
/// A writer flushes its stream whenever 4096 or more characters wait in it; failures of the stream
/// pass through.
class QVXML_API CXmlTextWriter : public CXmlWriter {
 public:
  /// The stream is not owned and must outlive the writer.
  explicit CXmlTextWriter(CTextStream& stream);
  ~CXmlTextWriter() override;

  // Options, to be set before the first item is written.

  /// Whether elements stand on lines of their own, indented by their depth; initially true.
  bool GetFormat() const noexcept { return m_isFormatted; }
  void SetFormat(bool isFormatted) noexcept { m_isFormatted = isFormatted; }
  /// Initially EOL_LF.
  EOLType GetEOLType() const noexcept { return m_eolType; }
  /// Throws CQvException "Invalid EOL type." and then changes nothing.
  void SetEOLType(EOLType type);
  /// What indents by one level; initially a tab.
  const std::string& GetIndentChars() const noexcept { return m_indentChars; }
  /// Null is "".
  void SetIndentChars(const char* indentChars);
  /// Whether text is written that is the default value of its element; initially false.
  bool GetWriteDefaultElementValues() const noexcept { return m_writesDefaultElementValues; }
  void SetWriteDefaultElementValues(bool write) noexcept { m_writesDefaultElementValues = write; }
  /// Whether text that begins with "<![CDATA[" is written as it is; initially true. Without it all
  /// text is escaped, so that none can become markup.
  bool GetWriteCDATA() const noexcept { return m_writesCDATA; }
  void SetWriteCDATA(bool write) noexcept { m_writesCDATA = write; }

  // The document.

  /// Opens the stream.
  void Open() override;
  /// Closes the stream, then throws as CXmlWriter::Close() when an element is still open.
  void Close() override;
  /// Writes the XML declaration, which names the stream's encoding, and an end of line.
  void WriteStartDocument();
  /// Writes the text as it is and an end of line. Throws CQvException "Headed directives must
  /// appear before an Element has been added." with an element open.
  void WriteHeaderDirective(const std::string& text);
  /// Writes the text, escaped as element text is, and an end of line. Does not close an open start
  /// tag: for use before the root and between elements.
  void WriteComment(const std::string& text) override;
  /// Writes the text as it is and two ends of line.
  void WritePI(const std::string& text) override;
  /// Writes a blank, an end of line, the text as it is and an end of line.
  void WriteInlineSchema(const std::string& schemaText) override;

  // Elements. Those that need an open element throw CQvException "An Element has not been opened.".

  void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override;
  /// Writes the text of the innermost element; "" writes nothing, and neither does a default value
  /// unless they are to be written.
  ///
  /// Text that begins with "<![CDATA[" is written as it is, whatever follows, so it can hold any
  /// markup: SetWriteCDATA(false) where text comes from a source that is not trusted.
  void WriteString(const std::string& text, ItemType type, bool isDefaultValue) override;
  void WriteEndElement() override;
  /// In a class derived from this one, the three calls of CXmlWriter.
  void WriteTextElement(const std::string& localName, const std::string& namespaceUri,
                        std::string_view text, ItemType type, bool isDefaultValue) override;
  /// Writes text as it is, with an end of line when formatting. It must be well-formed content; an
  /// open start tag is not closed.
  void WriteRawElement(const std::string& text);
  /// Counts a child of the innermost element, if one is open, and closes its start tag: to be
  /// called before an element is written as raw text.
  void CloseParentElm();
  /// Where the characters go, for a writer of its own that writes an element into this document.
  CTextStream& GetStream() const noexcept { return m_stream; }

  // Attributes. These throw CQvException "Attributes must be added before elements" unless the
  // start tag of the innermost element is open.

  /// An attribute in a namespace always has a prefix, even for the default namespace.
  void WriteAttributeString(const std::string& localName, const std::string& namespaceUri,
                            const std::string& value, ItemType type) override;
  /// In a class derived from this one, the call of CXmlWriter.
  void WriteTextAttribute(const std::string& localName, const std::string& namespaceUri,
                          std::string_view value, ItemType type) override;
  void WriteAttributeType(const std::string& typeNamespace, const std::string& typeName,
                          ItemType type) override;
  void WriteAttributeNil() override;

 private:
  void AppendTextElement(const std::string& prefix, const std::string& localName,
                         std::string_view text);
  // The same where it takes more than one step; a prefix of null is none.
  void AppendLongTextElement(const std::string* prefix, const std::string& localName,
                             std::string_view text);
  // The text of an element.
  void AppendText(std::string_view text);
  void AppendAttribute(const std::string* prefix, const std::string& localName,
                       std::string_view value);
  void WriteStartTag(CXmlWriterContext& context);
  // The mark, and the name with its prefix, null for none.
  void AppendTag(std::string_view mark, const std::string* prefix, const std::string& localName);
  void WriteEndTag(const CXmlWriterContext& context, bool isEmpty);
  // Binds a generated prefix, which the caller declares.
  static const std::string& BindUniquePrefix(CXmlWriterContext& context,
                                             const std::string& namespaceUri);
  void WriteRootNamespaces();
  void WriteDeclaration(const std::string& prefix, const std::string& namespaceUri);
  void WriteIndent(unsigned long depth) { m_stream.AppendTimes(m_indentChars, depth); }
  void WriteEOL() { m_stream.Append(m_eol); }
  // The innermost element, whose start tag is open.
  CXmlWriterContext& GetOpenStartTag() const;
  template <bool kInAttribute>
  void PadAndAppend(std::string_view text);
  void FlushIfFull() {
    if (!m_isPlain && m_stream.GetLength() > kMaxWaiting) m_stream.Flush();
  }

  static constexpr unsigned long kMaxWaiting = 4095;

  bool m_writesDefaultElementValues = false;
  std::string m_indentChars = "\t";
  std::string m_eol = "\n";
  EOLType m_eolType = EOL_LF;
  bool m_isFormatted = true;
  bool m_writesCDATA = true;
  CTextStream& m_stream;
  // Whether nobody can tell several operations from one: no derived class hears of them, and the
  // stream keeps what it gets. Known from the root on.
  bool m_isPlain = false;
  // The value of an xsi:type attribute.
  std::string m_typeValue;
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_XML_TEXT_WRITER_H_
