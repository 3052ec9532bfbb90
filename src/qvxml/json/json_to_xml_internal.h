// How the tokens of JSON of the default mode become XML, whoever takes it.

#ifndef QVXML_JSON_JSON_TO_XML_INTERNAL_H_
#define QVXML_JSON_JSON_TO_XML_INTERNAL_H_

#include <string>
#include <string_view>
#include <vector>

#include "qvxml/core/error_path_provider.h"
#include "qvxml/core/exception.h"
#include "qvxml/json/json_context.h"
#include "qvxml/json/json_conversion_failures_internal.h"

namespace QvXmlLib16::detail {

/// The inverse of what CJsonTextWriter writes in its default mode, for one document.
///
/// `TSink` has StartDocument, EndDocument, StartElement(name), Attribute(name, value), Text(text),
/// Section(text) for a CDATA section as it is, EndElement and HasOpenElement, and throws
/// CQvException for what does not fit its state.
///
/// What comes next is decided by the last name: an element is not begun before its value. A name
/// that was given must stay valid until then.
template <class TSink>
class TJsonToXml {
 public:
  TJsonToXml(TSink& sink, JsonRoundTrip roundTrip, IErrorPathProvider& paths)
      : m_sink(sink), m_paths(paths), m_hasMarkedNames(roundTrip != JsonRoundTrip_None) {}

  void StartDocument() {
    m_arrayNames.clear();
    m_pending = Pending::Nothing;
    m_hasTextMember = false;
    m_sink.StartDocument();
  }
  void EndDocument() { m_sink.EndDocument(); }

  static constexpr bool RepeatsArrayNames() noexcept { return true; }

  void Name(std::string_view name) {
    if (name.empty()) {
      throw CQvValidationException("JSON item has an empty Name.", m_paths.GetPath());
    }
    m_name = name;
    if (m_hasMarkedNames && name == "#text") {
      m_pending = Pending::Text;
      m_hasTextMember = true;
    } else if (m_hasMarkedNames && name.front() == '@') {
      CheckXmlName(name.substr(1), name);
      CheckLocaleName(name);
      m_pending = Pending::Attribute;
    } else {
      CheckXmlName(name, name);
      CheckLocaleName(name);
      m_pending = Pending::Element;
    }
  }

  void String(std::string_view value) { Value(value); }
  void Number(std::string_view value) { Value(value); }
  void Bool(bool value) { Value(value ? std::string_view("true") : std::string_view("false")); }

  /// Kept: an element without nil, and no attribute.
  void Null() {
    if (m_pending == Pending::Element || IsArrayItem()) BeginElement();
    EndItem();
  }

  void StartObject() {
    if (m_pending == Pending::Attribute) ThrowNameFailure(m_name);
    if (m_pending == Pending::Element || IsArrayItem()) BeginElement();
    m_pending = Pending::Nothing;
  }

  void EndObject() {
    m_pending = Pending::Nothing;
    if (m_hasTextMember) {
      // The text has ended the element.
      m_hasTextMember = false;
    } else {
      EndItem();
    }
  }

  void StartArray() {
    if (m_pending == Pending::Attribute) ThrowNameFailure(m_name);
    if (m_pending != Pending::Element) {
      throw CQvValidationException("JSON Array has no Name.", m_paths.GetPath());
    }
    m_arrayNames.emplace_back(m_name);
    m_pending = Pending::Nothing;
  }
  void EndArray() { m_arrayNames.pop_back(); }

 private:
  enum class Pending { Nothing, Element, Attribute, Text };

  // Between the values of an object there is always a name.
  bool IsArrayItem() const { return m_pending == Pending::Nothing && !m_arrayNames.empty(); }

  void Value(std::string_view value) {
    if (m_pending == Pending::Attribute) {
      Attribute(value);
    } else {
      if (m_pending == Pending::Element || IsArrayItem()) {
        BeginElement();
      } else if (m_pending != Pending::Text) {
        ThrowTextFailure(value);
      }
      Text(value);
    }
    EndItem();
  }

  void Attribute(std::string_view value) {
    try {
      m_sink.Attribute(m_name.substr(1), value);
    } catch (const CQvException& failure) {
      ThrowAttributeFailure(value, &failure);
    }
  }

  void Text(std::string_view value) {
    try {
      if (IsSection(value)) {
        m_sink.Section(value);
      } else {
        m_sink.Text(value);
      }
    } catch (const CQvException& failure) {
      ThrowTextFailure(value, &failure);
    }
  }

  void BeginElement() {
    const std::string_view name =
        m_pending == Pending::Element ? m_name : std::string_view(m_arrayNames.back());
    try {
      m_sink.StartElement(name);
    } catch (const CQvException& failure) {
      ThrowNameFailure(name, &failure);
    }
  }

  void EndItem() {
    const bool wasAttribute = m_pending == Pending::Attribute;
    m_pending = Pending::Nothing;
    if (!wasAttribute && m_sink.HasOpenElement()) m_sink.EndElement();
  }

  TSink& m_sink;
  IErrorPathProvider& m_paths;
  // Whether "@" and "#text" mean anything.
  const bool m_hasMarkedNames;
  Pending m_pending = Pending::Nothing;
  // Kept: one for all open objects, so what follows "#text" lands in the element around.
  bool m_hasTextMember = false;
  std::string_view m_name;
  std::vector<std::string> m_arrayNames;
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_TO_XML_INTERNAL_H_
