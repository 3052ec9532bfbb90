// Elements that hold text alone, in every place where that matters to a writer.

#ifndef TESTS_SUPPORT_TEXT_ELEMENTS_H_
#define TESTS_SUPPORT_TEXT_ELEMENTS_H_

#include <string>

#include "qvxml/xml/xml_writer.h"

namespace qv_test {

/// Writes one document with the operations that write text in one step.
///
/// A writer that does more in them than its base must write what a class derived from it writes,
/// which gets the operations that they stand for. With `isUnbound` some namespaces have no prefix.
inline void WriteTextElements(QvXmlLib16::CXmlWriter& writer, bool isUnbound) {
  using namespace QvXmlLib16;
  const std::string texts[] = {"",    "x",        "1.50", "a&b<c>\"d\"",   "one\r\ntwo\tthree",
                               "\\",  "\xC3\xA9", "]]>",  "<![CDATA[<]]>", std::string(5000, 'y'),
                               "true"};
  const ItemType types[] = {ItemType_string, ItemType_decimal, ItemType_boolean};
  const auto writeAll = [&](const std::string& namespaceUri) {
    size_t index = 0;
    for (const std::string& text : texts) {
      // In a string of its own each time, as a name is known by more than its place.
      const std::string name = index % 2 == 0 ? "name" : "aLongerName" + std::to_string(index);
      writer.WriteTextElement(name, namespaceUri, text, types[index++ % 3], false);
      writer.WriteTextElement("default", namespaceUri, text, ItemType_string, true);
    }
  };

  writer.AddNamespace("p", "urn:p");
  writer.SetDefaultNamespace("urn:default");
  writer.WriteStartElement("root", "urn:default");
  for (const std::string& text : texts) {
    writer.WriteTextAttribute("a" + std::to_string(text.size()), "", text, ItemType_string);
  }
  writer.WriteTextAttribute("b", "urn:p", "7", ItemType_i4);
  for (const char* const namespaceUri : {"urn:default", "urn:p", ""}) {
    writeAll(namespaceUri);
    writer.WriteStartElement("child", namespaceUri);
    writeAll("urn:default");
    writeAll("urn:p");
    writer.WriteEndElement();
    writer.SetContextState(ContextState_CollectionBegin);
    writeAll("urn:p");
    writer.WriteStartElement("item", "urn:p");
    writer.WriteTextAttribute("c", "", "d", ItemType_string);
    writeAll("");
    writer.WriteEndElement();
    writeAll("urn:default");
    writer.SetContextState(ContextState_CollectionEnd);
  }
  if (isUnbound) {
    writer.WriteStartElement("unbound", "urn:unbound");
    writer.WriteTextAttribute("e", "urn:other", "f", ItemType_string);
    writeAll("urn:unbound");
    writeAll("urn:other");
    writeAll("urn:third");
    writer.WriteEndElement();
    writer.WriteTextElement("last", "urn:unbound", "", ItemType_string, false);
  }
  writer.WriteEndElement();
}

}  // namespace qv_test

#endif  // TESTS_SUPPORT_TEXT_ELEMENTS_H_
