// JSON in the library's own form as an output format.

#ifndef QVXML_JSON_JSON_TEXT_WRITER_H_
#define QVXML_JSON_JSON_TEXT_WRITER_H_

#include <string>
#include <string_view>

#include "qvxml/json/json_writer.h"
#include "qvxml/support/export.h"
#include "qvxml/xml/text_stream.h"

namespace QvXmlLib16 {

/// Writes JSON in the form that this library reads back and that other programs often do not; for
/// theirs see CWellFormedJsonWriter.
///
/// Documents in this form are about, so all of it stays as it is:
///
/// - In strings a line feed is the end of line, carriage returns are dropped, quotation mark,
///   backslash, tab, backspace and form feed are themselves, and other control characters are \u
///   and four digits. Text ends at its first zero byte. Values of numeric types and booleans are
///   written as they are, whatever they hold.
/// - An array is opened by the first item that has content of its own, and closed at the end of the
///   element that owns the collection: what is written between lands in the array, items of text
///   alone never open it, and a second collection in the same element leaves the first one open.
/// - An element without attributes, content and text is a name without a value, and so is a nil
/// one.
///
/// What a context's state means, see ContextState:
///
///   none --SetContextState--> 1 --first content of an item: "["--> 2
///   1, 2 --SetContextState--> 3 --end of the owner: "]"--> none
class QVXML_API CJsonTextWriter : public CJsonWriter {
 public:
  /// The stream is not owned and must outlive the writer.
  explicit CJsonTextWriter(CTextStream& stream);
  ~CJsonTextWriter() override;

  // The document: the start, one root element, the end.

  void WriteStartDocument();
  void WriteEndDocument();
  /// Writes a comment where it stands, and always ends the line.
  void WriteComment(const std::string& text) override;

  // Elements. Those that need an open element throw CQvException "An Element has not been opened.".
  // With JsonRoundTrip_Full a namespace that has no prefix throws CQvException "Unknown Namespace:
  // %s." with the local name of its element or attribute; only the root's own namespace gets one.

  void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override;
  void WriteString(const std::string& text, ItemType type, bool isDefaultValue) override;
  void WriteEndElement() override;
  /// In a class derived from this one, the three calls of CXmlWriter.
  void WriteTextElement(const std::string& localName, const std::string& namespaceUri,
                        std::string_view text, ItemType type, bool isDefaultValue) override;

  // Attributes, before content and text.

  void WriteAttributeString(const std::string& localName, const std::string& namespaceUri,
                            const std::string& value, ItemType type) override;
  /// In a class derived from this one, the call of CXmlWriter.
  void WriteTextAttribute(const std::string& localName, const std::string& namespaceUri,
                          std::string_view value, ItemType type) override;
  /// Does nothing unless JsonRoundTrip_Full is set; then the namespace of xsi:type needs a prefix.
  void WriteAttributeType(const std::string& typeNamespace, const std::string& typeName,
                          ItemType type) override;
  /// Writes nothing.
  void WriteAttributeNil() override;

 private:
  void AppendAttribute(const std::string& localName, const std::string& namespaceUri,
                       std::string_view value, ItemType type);
  void WriteElementName(CXmlWriterContext& context);
  void WriteRootNamespaces(CXmlWriterContext& root);
  // Writes a namespace declaration as the next member; the prefix is "" for the default namespace.
  void WriteDeclaration(CXmlWriterContext& context, std::string_view prefix,
                        const std::string& namespaceUri);
  // Comes before everything that is written inside the element.
  void WriteOpenBrackets(CXmlWriterContext& context);
  static void IncrementIndents(CXmlWriterContext* context);
  static void DecrementIndents(CXmlWriterContext* context);
  void WriteName(std::string_view mark, std::string_view prefix, std::string_view localName);
  void WriteValue(std::string_view text, ItemType type);
  void PadAndAppend(std::string_view text);

  // Whether the last name has no value yet.
  bool m_isValuePending = false;
  // The value of an xsi:type attribute.
  std::string m_typeValue;
};

}  // namespace QvXmlLib16

#endif  // QVXML_JSON_JSON_TEXT_WRITER_H_
