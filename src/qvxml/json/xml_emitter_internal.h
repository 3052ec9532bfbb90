// XML text of the shape that CXmlTextWriter gives to what JSON becomes, written straight into the
// bytes that are handed out. Names carry their prefixes and declarations are attributes, so no
// namespace is ever looked up.

#ifndef QVXML_JSON_XML_EMITTER_INTERNAL_H_
#define QVXML_JSON_XML_EMITTER_INTERNAL_H_

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "qvxml/types/binary_data.h"
#include "qvxml/xml/short_copy.h"

namespace QvXmlLib16::detail {

/// Writes one document. Names are not checked.
class CXmlEmitter {
 public:
  enum class Style {
    /// As CXmlTextWriter: elements on lines of their own, indented with tabs; carriage returns are
    /// dropped, and parsers take tabs in attribute values for blanks.
    Formatted,
    /// Nothing between elements, and every character of a value reaches the parser.
    Exact,
  };

  /// `expectedSize` counts bytes; more are made room for.
  CXmlEmitter(size_t expectedSize, Style style);

  void StartDocument();
  /// Throws CQvException when an element is open.
  void EndDocument() const;
  void StartElement(std::string_view name);
  /// Throws CQvException unless the start tag of the innermost element is open.
  void Attribute(std::string_view name, std::string_view value);
  // Throw CQvException unless an element is open, except for "".

  void Text(std::string_view text);
  /// Writes the text as it is.
  void Section(std::string_view text);
  void EndElement();
  bool HasOpenElement() const noexcept { return !m_levels.empty(); }

  /// The start tag of the innermost element so far, from its name on; "" when it is closed.
  std::string_view GetOpenStartTag() const noexcept {
    return m_isStartTagOpen ? GetText().substr(m_levels.back().nameOffset) : std::string_view();
  }

  std::string_view GetText() const noexcept { return {AsText(m_bytes.get()), GetLength()}; }
  /// Hands out the text and leaves none.
  CBinaryData TakeBytes();

 private:
  struct CLevel {
    // Where the start tag has the name: it may have moved when the end tag is written.
    size_t nameOffset;
    size_t nameLength;
    bool hasChildren;
  };

  static char* AsText(unsigned char* bytes) noexcept { return reinterpret_cast<char*>(bytes); }
  size_t GetLength() const noexcept { return static_cast<size_t>(m_cursor - m_bytes.get()); }

  void EnsureRoom(size_t length) {
    if (static_cast<size_t>(m_end - m_cursor) < length) Grow(length);
  }
  void Grow(size_t length);
  // The following need room that was made before, and return the place behind what they wrote. The
  // cursor is kept in a local, as bytes that are written could be the member's for all the compiler
  // knows.
  static unsigned char* Put(unsigned char* at, char character) noexcept {
    *at = static_cast<unsigned char>(character);
    return at + 1;
  }
  static unsigned char* Put(unsigned char* at, std::string_view text) noexcept {
    CopyShort(AsText(at), text.data(), text.size());
    return at + text.size();
  }
  unsigned char* PutEOL(unsigned char* at) const noexcept {
    return m_isFormatted ? Put(at, '\n') : at;
  }
  unsigned char* PutIndent(unsigned char* at, size_t depth) const noexcept {
    if (!m_isFormatted) return at;
    // Mostly few: a call costs more.
    for (; depth != 0; --depth) at = Put(at, '\t');
    return at;
  }
  void OpenContent();
  void PutRaw(std::string_view text);
  void PutValue(std::string_view value);
  template <bool kInAttribute>
  void PutEscaped(std::string_view text);
  template <bool kInAttribute>
  std::string_view GetEscape(char character) const noexcept;

  const bool m_isFormatted;
  bool m_isStartTagOpen = false;
  std::vector<CLevel> m_levels;
  std::unique_ptr<unsigned char[]> m_bytes;
  unsigned char* m_cursor;
  unsigned char* m_end;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_XML_EMITTER_INTERNAL_H_
