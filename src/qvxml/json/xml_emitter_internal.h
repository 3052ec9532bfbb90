// XML text of the shape that CXmlTextWriter gives to what JSON becomes, written straight into the
// bytes that are handed out. Names carry their prefixes and declarations are attributes, so no
// namespace is ever looked up.

#ifndef QVXML_JSON_XML_EMITTER_INTERNAL_H_
#define QVXML_JSON_XML_EMITTER_INTERNAL_H_

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "qvxml/types/binary_data.h"

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

  static const char* AsText(const unsigned char* bytes) noexcept {
    return reinterpret_cast<const char*>(bytes);
  }
  size_t GetLength() const noexcept { return static_cast<size_t>(m_cursor - m_bytes.get()); }

  void EnsureRoom(size_t length) {
    if (static_cast<size_t>(m_end - m_cursor) < length) Grow(length);
  }
  void Grow(size_t length);
  // The following need room that was made before.
  void Put(char character) noexcept { *m_cursor++ = static_cast<unsigned char>(character); }
  void Put(std::string_view text) noexcept {
    std::memcpy(m_cursor, text.data(), text.size());
    m_cursor += text.size();
  }
  void PutEOL() noexcept {
    if (m_isFormatted) Put('\n');
  }
  void PutIndent(size_t depth) noexcept {
    if (!m_isFormatted) return;
    std::memset(m_cursor, '\t', depth);
    m_cursor += depth;
  }
  void CloseStartTag();
  void OpenContent();
  void PutRaw(std::string_view text);
  void PutValue(std::string_view value);
  template <bool kInAttribute>
  void PutEscaped(std::string_view text);

  const bool m_isFormatted;
  bool m_isStartTagOpen = false;
  std::vector<CLevel> m_levels;
  std::unique_ptr<unsigned char[]> m_bytes;
  unsigned char* m_cursor;
  unsigned char* m_end;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_XML_EMITTER_INTERNAL_H_
