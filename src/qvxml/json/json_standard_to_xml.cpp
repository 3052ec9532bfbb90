#include <algorithm>
#include <cstddef>

#include "qvxml/core/exception.h"
#include "qvxml/json/json_conversion_failures_internal.h"
#include "qvxml/json/json_standard_to_xml_internal.h"

namespace QvXmlLib16::detail {

namespace {

// A prefix that the element and its attributes do not use for something else. One look at the tag
// is enough for it, however many prefixes there are.
std::string GetUnusedPrefix(std::string_view tag) {
  std::string prefix = "xsi";
  const auto has = [tag](const std::string& text) {
    return tag.find(text) != std::string_view::npos;
  };
  if (!has(prefix + ":") && !has(":" + prefix + "=")) return prefix;
  size_t longest = 0;
  size_t run = 0;
  for (const char character : tag) {
    run = character == 'i' ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  return prefix.append(longest, 'i');
}

}  // namespace

CStandardJsonToXml::CStandardJsonToXml(CXmlEmitter& emitter, JsonRoundTrip roundTrip,
                                       IErrorPathProvider& paths)
    : m_emitter(emitter),
      m_paths(paths),
      m_hasAttributes(roundTrip != JsonRoundTrip_None),
      m_textName(m_hasAttributes ? "#text" : "") {}

void CStandardJsonToXml::Name(std::string_view name) {
  m_name = name;
  if (name == m_textName) {
    m_kind = Kind::Text;
  } else if (name.empty()) {
    throw CQvValidationException("JSON item has an empty Name.", m_paths.GetPath());
  } else if (m_hasAttributes && name.front() == '@') {
    CheckXmlName(name.substr(1), name);
    m_kind = Kind::Attribute;
  } else {
    CheckXmlName(name, name);
    m_kind = Kind::Element;
  }
}

void CStandardJsonToXml::Value(std::string_view value) {
  switch (TakeKind()) {
    case Kind::Outermost:
      ThrowTextFailure(value);
    case Kind::Element:
      StartElement();
      m_emitter.Text(value);
      m_emitter.EndElement();
      break;
    case Kind::Attribute:
      if (m_emitter.GetOpenStartTag().empty()) ThrowAttributeFailure(value);
      m_emitter.Attribute(m_name.substr(1), value);
      break;
    case Kind::Text:
      if (!m_emitter.HasOpenElement()) ThrowTextFailure(value);
      m_emitter.Text(value);
      break;
  }
}

void CStandardJsonToXml::Null() {
  switch (TakeKind()) {
    case Kind::Outermost:
      ThrowTextFailure("null");
    case Kind::Element:
      StartElement();
      WriteNil();
      m_emitter.EndElement();
      break;
    case Kind::Attribute:
      break;
    case Kind::Text:
      WriteNil();
      break;
  }
}

void CStandardJsonToXml::StartObject() {
  const Kind kind = TakeKind();
  if (kind == Kind::Attribute || kind == Kind::Text) ThrowNameFailure(m_name);
  if (kind == Kind::Element) StartElement();
  m_levels.push_back(kind == Kind::Element ? Level::Element : Level::Outermost);
}

void CStandardJsonToXml::EndObject() {
  if (m_levels.back() == Level::Element) m_emitter.EndElement();
  m_levels.pop_back();
}

void CStandardJsonToXml::StartArray() {
  const bool isItem = IsInArray();
  const Kind kind = TakeKind();
  if (kind == Kind::Attribute || kind == Kind::Text) ThrowNameFailure(m_name);
  if (kind == Kind::Outermost || isItem) {
    throw CQvValidationException("JSON Array has no Name.", m_paths.GetPath());
  }
  m_levels.push_back(Level::Array);
  m_itemNames.emplace_back(m_name);
}

void CStandardJsonToXml::EndArray() {
  m_levels.pop_back();
  m_itemNames.pop_back();
}

// The kind that the last name told, or that of an item.
CStandardJsonToXml::Kind CStandardJsonToXml::TakeKind() {
  if (!IsInArray()) return m_kind;
  m_name = m_itemNames.back();
  return Kind::Element;
}

void CStandardJsonToXml::StartElement() { m_emitter.StartElement(m_name); }

// Twice for one element is once: a declaration and an attribute for each would grow without bound.
void CStandardJsonToXml::WriteNil() {
  const std::string_view tag = m_emitter.GetOpenStartTag();
  if (tag.empty()) ThrowTextFailure("null");
  const size_t tagOffset = static_cast<size_t>(tag.data() - m_emitter.GetText().data());
  if (tagOffset == m_nilTagOffset) return;
  m_nilTagOffset = tagOffset;
  const std::string prefix = GetUnusedPrefix(tag);
  m_emitter.Attribute("xmlns:" + prefix, "http://www.w3.org/2001/XMLSchema-instance");
  m_emitter.Attribute(prefix + ":nil", "true");
}

}  // namespace QvXmlLib16::detail
