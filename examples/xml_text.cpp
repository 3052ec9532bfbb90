// XML text without generated classes: writing it, reading it, and reading it element by element.

#include <iostream>

#include <qvxml/qvxml.h>

using namespace QvXmlLib16;

namespace {

std::string WriteOrder() {
  // [write]
  CTextStream stream;  // UTF-8; CFileTextStream("order.xml") writes to a file instead
  CXmlTextWriter writer(stream);
  writer.SetIndentChars("  ");
  writer.SetDefaultNamespace("urn:orders");  // before the root: declared on it
  writer.AddNamespace("xsi", "http://www.w3.org/2001/XMLSchema-instance");
  writer.Open();
  writer.WriteStartDocument();
  writer.WriteStartElement("order", "urn:orders");
  writer.WriteAttributeString("id", "", "7", ItemType_i4);
  writer.WriteStartElement("note", "urn:orders");
  writer.WriteString("fish & chips", ItemType_string, false);
  writer.WriteEndElement();
  writer.WriteStartElement("price", "urn:money");  // no prefix known: AA is made up
  writer.WriteAttributeNil();
  writer.WriteEndElement();
  writer.WriteEndElement();
  writer.Close();  // throws when an element is still open, or when the file could not be written
  return stream.GetText();
  // [write]
}

void ReadOrder(const std::string& text) {
  // [read]
  CXmlDocument document;
  document.LoadXml(text.c_str());
  const CXmlElement* order = document.GetDocumentElement();
  std::cout << "order " << order->GetAttribute("id", "") << "\n";
  for (const CXmlElement* child = order->GetFirstElement(); child != nullptr;
       child = child->GetNextSiblingElement()) {
    std::cout << child->GetXPath() << " [" << child->GetText() << "]\n";
  }
  // [read]
}

// [stream]
// Called when an element ends; true frees it.
bool TakeItem(CXmlElement* element) {
  if (element->GetLocalName() != "item") return false;
  std::cout << "item " << element->GetText() << "\n";
  return true;
}

void StreamItems() {
  CXmlDocument document(TakeItem);
  document.LoadXml("<items><item>tea</item><item>milk</item></items>");
}
// [stream]

}  // namespace

int main() {
  try {
    const std::string text = WriteOrder();
    std::cout << text;
    ReadOrder(text);
    StreamItems();
  } catch (const CQvException& exception) {
    std::cerr << exception.GetFullMessage() << "\n";
    return 1;
  }
  return 0;
}
