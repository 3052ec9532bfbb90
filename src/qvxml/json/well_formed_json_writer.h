// JSON as RFC 8259 defines it as an output format.

#ifndef QVXML_JSON_WELL_FORMED_JSON_WRITER_H_
#define QVXML_JSON_WELL_FORMED_JSON_WRITER_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/json/json_writer.h"
#include "qvxml/support/export.h"
#include "qvxml/xml/text_stream.h"

namespace QvXmlLib16 {

/// Writes JSON that every program reads, whatever is written in whatever order.
///
/// - An element is an object with its attributes, children and text, in this order; with text alone
///   it is the value itself. Without any of them it is {}, and null when it is nil.
/// - The items of a collection are an array. Where items have different names, each run of equal
///   names is an array of its own. An array ends before whatever is no item of the collection.
/// - Text of numeric types and booleans is written without quotation marks if JSON knows it as a
///   number or boolean, as a string otherwise (INF, NaN, 007), and is null if it is empty.
/// - A namespace that has no prefix gets one, which is declared where it is used. An element in no
///   namespace takes back the default one around it with "@xmlns": "".
/// - Comments are left out.
///
/// An object has a name twice only where the element has: two elements of one name that are not in
/// one collection and not next to each other in it, or, without JsonRoundTrip_Full, names that only
/// their namespaces tell apart.
///
///   m_levels:   document { "r": { "i": [ ... ] } }
///                  0          1         2          one for each open element, and one for the
///                                                  document; those behind are kept for their
///                                                  memory
class QVXML_API CWellFormedJsonWriter : public CJsonWriter {
 public:
  /// The stream is not owned and must outlive the writer.
  explicit CWellFormedJsonWriter(CTextStream& stream);
  ~CWellFormedJsonWriter() override;

  // The document: the start, any number of elements, the end.

  void WriteStartDocument();
  void WriteEndDocument();
  /// Does nothing.
  void WriteComment(const std::string& text) override;

  // Elements. Those that need an open element throw CQvException "An Element has not been opened.".

  void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override;
  /// Text that comes in several parts is one text; it is written when the element ends.
  void WriteString(const std::string& text, ItemType type, bool isDefaultValue) override;
  void WriteEndElement() override;
  /// In a class derived from this one, the three calls of CXmlWriter.
  void WriteTextElement(const std::string& localName, const std::string& namespaceUri,
                        std::string_view text, ItemType type, bool isDefaultValue) override;

  // Attributes.

  void WriteAttributeString(const std::string& localName, const std::string& namespaceUri,
                            const std::string& value, ItemType type) override;
  /// In a class derived from this one, the call of CXmlWriter.
  void WriteTextAttribute(const std::string& localName, const std::string& namespaceUri,
                          std::string_view value, ItemType type) override;
  /// Does nothing unless JsonRoundTrip_Full is set.
  void WriteAttributeType(const std::string& typeNamespace, const std::string& typeName,
                          ItemType type) override;
  void WriteAttributeNil() override;

 private:
  // An open element, or the document.
  struct CLevel {
    void Reset(size_t newTextBegin);

    bool isObjectOpen;
    bool hasMember;
    bool hasChild;
    bool isNil;
    bool hasText;
    ItemType textType;
    // Where its text begins in m_text.
    size_t textBegin;
    // The name of the items of the array that is open.
    bool isArrayOpen;
    std::string itemPrefix;
    std::string itemName;
  };

  CLevel& GetLevel() noexcept { return m_levels[m_depth]; }
  void PushLevel();
  // Writes all that comes before the value of an element.
  void StartMember(std::string_view prefix, const std::string& localName, bool isItem);
  // Binds a new prefix if the namespace has none; tells whether it had none.
  static bool BindIfUnbound(CXmlWriterContext& context, const std::string& namespaceUri);
  void WriteRootNamespaces();
  void TakeBackDefaultNamespace(CXmlWriterContext& context);
  // The prefix is "" for the default namespace.
  void WriteDeclaration(std::string_view prefix, const std::string& namespaceUri);

  void AppendAttribute(const std::string& localName, const std::string& namespaceUri,
                       std::string_view value, ItemType type);
  void OpenObject();
  void CloseObject();
  void OpenArray(std::string_view prefix, const std::string& localName);
  void CloseArray();
  void BeginMember(std::string_view mark, std::string_view prefix, std::string_view localName);
  void BeginLine();
  void WriteText();
  void WriteTextValue(std::string_view text, ItemType type);
  // Whether what is written next into the element is an item of a collection.
  static bool IsCollection(const CXmlWriterContext& owner) noexcept;
  void WriteValue(std::string_view text, ItemType type);
  void WriteQuoted(std::string_view text);
  void AppendEscaped(std::string_view text);

  std::vector<CLevel> m_levels;
  // The innermost open level.
  size_t m_depth = 0;
  // Brackets and braces that are open.
  unsigned long m_indent = 0;
  // The text of all open elements, one behind the other.
  std::string m_text;
  // The value of an xsi:type attribute.
  std::string m_typeValue;
};

}  // namespace QvXmlLib16

#endif  // QVXML_JSON_WELL_FORMED_JSON_WRITER_H_
