// How the tokens of JSON of the standard mode become XML.

#ifndef QVXML_JSON_JSON_STANDARD_TO_XML_INTERNAL_H_
#define QVXML_JSON_JSON_STANDARD_TO_XML_INTERNAL_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/core/error_path_provider.h"
#include "qvxml/json/json_context.h"
#include "qvxml/json/xml_emitter_internal.h"

namespace QvXmlLib16::detail {

/// The inverse of what is written with CJsonContext::GetWellFormed(), for one document.
///
/// Each object but the outermost is an element, its members are attributes, children and text, and
/// an array is one child for each of its items. A value that is no object is a child with text, or
/// nil. A name that was given must stay valid until its value begins.
class CStandardJsonToXml {
 public:
  CStandardJsonToXml(CXmlEmitter& emitter, JsonRoundTrip roundTrip, IErrorPathProvider& paths);

  static constexpr bool RepeatsArrayNames() noexcept { return true; }

  void StartDocument() { m_emitter.StartDocument(); }
  void EndDocument() { m_emitter.EndDocument(); }
  void Name(std::string_view name);
  void String(std::string_view value) { Value(value); }
  void Number(std::string_view value) { Value(value); }
  void Bool(bool value) { Value(value ? std::string_view("true") : std::string_view("false")); }
  void Null();
  void StartObject();
  void EndObject();
  void StartArray();
  void EndArray();

 private:
  // What the value that comes is to its object, or to its array.
  enum class Kind { Outermost, Element, Attribute, Text };

  enum class Level : unsigned char { Outermost, Element, Array };

  bool IsInArray() const noexcept { return !m_levels.empty() && m_levels.back() == Level::Array; }
  Kind TakeKind();
  void Value(std::string_view value);
  void StartElement();
  void WriteNil();

  CXmlEmitter& m_emitter;
  IErrorPathProvider& m_paths;
  // Whether "@" begins the name of an attribute.
  const bool m_hasAttributes;
  const std::string_view m_textName;
  Kind m_kind = Kind::Outermost;
  std::string_view m_name;
  std::vector<Level> m_levels;
  // One for each array.
  std::vector<std::string> m_itemNames;
  // Where the start tag begins that was made nil last; 0 is in the declaration.
  size_t m_nilTagOffset = 0;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_STANDARD_TO_XML_INTERNAL_H_
