// Input: a byte of options and a Fast Infoset document. Whatever is accepted must be an infoset:
// the tree, written as XML text here, must give libexpat the same tree.

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/fi_mutator.h"
#include "fuzz/fuzz_target.h"
#include "fuzz/shadow_tree.h"

#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/exception.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/fastinfoset/fi_reader.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;

namespace {

constexpr uint8_t kLocalNames = 1, kKeepCDATA = 2, kCallback = 4, kVocabulary = 8;

bool ConsumeElement(CXmlElement* element) { return element->GetLocalName().size() % 2 == 0; }

void SetOptions(CSerializationContext& context, uint8_t options) {
  if ((options & kLocalNames) != 0) context.SetSchemaType(SchemaType_LocalNames);
  context.SetStripCDATA((options & kKeepCDATA) == 0);
  if ((options & kVocabulary) == 0) return;
  CFastInfosetContext& fastInfoset = context.GetFIContext();
  fastInfoset.SetUseGeneratedVocabulary(true);
  fastInfoset.SetExternalVocabularyURI("u");
  fastInfoset.GetVocabulary().AddElement("p", "n", "e");
  fastInfoset.GetVocabulary().AddElement("", "", "f");
  fastInfoset.GetVocabulary().AddAttribute("p", "n", "a");
  fastInfoset.GetVocabulary().AddAttributeValue("v");
  fastInfoset.GetVocabulary().AddElementValue("t");
}

// The tree as XML text.

bool IsAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<uint8_t>(c) < 128; });
}

std::string Escaped(const std::string& text) {
  std::string result;
  for (const char character : text) {
    if (std::strchr("<>&\"\r\n\t", character) != nullptr) {
      result += "&#" + std::to_string(static_cast<int>(character)) + ";";
    } else {
      result += character;
    }
  }
  return result;
}

class XmlText {
 public:
  // "" for a tree that libexpat would refuse for other reasons: it knows the names of an older
  // edition of XML, and reserves some characters in namespaces.
  static std::string Of(const CXmlElement* root) {
    XmlText text;
    text.Write(root);
    return text.m_isWritable ? text.m_text : "";
  }

 private:
  struct Step {
    const CXmlElement* element;
    std::string end;
  };

  void Write(const CXmlElement* root) {
    std::vector<Step> pending{{root, ""}};
    while (!pending.empty() && m_isWritable) {
      const Step step = std::move(pending.back());
      pending.pop_back();
      m_text += step.end;
      if (step.element == nullptr) continue;
      pending.push_back({step.element->GetNextSiblingElement(), ""});
      pending.push_back({nullptr, Start(*step.element)});
      pending.push_back({step.element->GetFirstElement(), ""});
    }
  }

  // Returns the end tag.
  std::string Start(const CXmlElement& element) {
    const std::string name = Declare(element.GetNamespaceURI(), 0) + element.GetLocalName();
    CheckName(element.GetLocalName());
    std::string attributes;
    size_t count = 0;
    for (const CXmlAttribute* attribute : element.GetAttributes()) {
      CheckName(attribute->GetLocalName());
      attributes += " " + Declare(attribute->GetNamespaceURI(), ++count) +
                    attribute->GetLocalName() + "=\"" + Escaped(attribute->GetValue()) + "\"";
    }
    m_text += "<" + name + attributes + m_declarations + ">" + Escaped(element.GetText());
    m_declarations.clear();
    return "</" + name + ">";
  }

  std::string Declare(const std::string& namespaceUri, size_t number) {
    if (namespaceUri.empty()) return "";
    if (namespaceUri == "http://www.w3.org/XML/1998/namespace") return "xml:";
    if (namespaceUri.find_first_of("|&<>\"\r\n\t ") != std::string::npos ||
        !IsAscii(namespaceUri)) {
      m_isWritable = false;
    }
    const std::string prefix = "n" + std::to_string(number);
    m_declarations += " xmlns:" + prefix + "=\"" + namespaceUri + "\"";
    return prefix + ":";
  }

  void CheckName(const std::string& name) { m_isWritable = m_isWritable && IsAscii(name); }

  std::string m_text, m_declarations;
  bool m_isWritable = true;
};

void CopyTree(const CXmlElement* root, ShadowTree& shadow) {
  std::vector<const CXmlElement*> pending{root};
  while (!pending.empty()) {
    const CXmlElement* element = pending.back();
    pending.pop_back();
    if (element == nullptr) {
      shadow.Close();
      continue;
    }
    ShadowElement& copy = shadow.Open(element->GetNamespaceURI(), element->GetLocalName());
    copy.text = element->GetText();
    for (const CXmlAttribute* attribute : element->GetAttributes()) {
      copy.attributes.push_back(
          {attribute->GetNamespaceURI(), attribute->GetLocalName(), attribute->GetValue()});
    }
    pending.push_back(nullptr);
    const size_t first = pending.size();
    for (const auto* child = element->GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement()) {
      pending.push_back(child);
    }
    std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end());
  }
}

void ExpectInfoset(const CXmlElement* root) {
  constexpr size_t kMaxXml = 1 << 20;
  const std::string xml = XmlText::Of(root);
  if (xml.empty() || xml.size() > kMaxXml) return;
  ShadowTree expected;
  CopyTree(root, expected);
  CXmlDocument document;
  try {
    document.LoadXml(xml.c_str());
  } catch (const CQvException& exception) {
    FuzzFailure("no infoset: " + exception.GetMessage() + " " + xml);
  }
  ExpectSameTree(document.GetDocumentElement(), expected.GetRoot(), false);
}

// "" when the document was read.
std::string Load(CXmlDocument& document, const uint8_t* data, size_t size) {
  try {
    document.LoadXmlStream(data, size);
  } catch (const CQvException& exception) {
    return exception.GetMessage();
  }
  return "";
}

void ExpectPlace(const std::string& message, size_t size) {
  const size_t place = message.rfind(" at byte ");
  if (place == std::string::npos) FuzzFailure("no place: " + message);
  if (std::stoul(message.substr(place + 9)) > size) FuzzFailure("beyond the end: " + message);
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize,
                                          unsigned seed) {
  return MutateFastInfoset(data, size, maxSize, 1, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2 || !CFastInfosetReader::IsFastInfoset(data + 1, size - 1)) return 0;
  const uint8_t options = *data++;
  --size;
  CSerializationContext context;
  SetOptions(context, options);
  {
    CXmlDocument document((options & kCallback) != 0 ? ConsumeElement : nullptr, context);
    const std::string message = Load(document, data, size);
    if (!message.empty()) {
      ExpectPlace(message, size);
    } else {
      if ((options & (kCallback | kLocalNames)) == 0) ExpectInfoset(document.GetDocumentElement());
      CXmlDocument cutOff(context);
      if (Load(cutOff, data, size - 1).empty()) FuzzFailure("read without its end");
    }
  }
  if (CInstanceMonitor::GetCount("CXmlElement") != 0) FuzzFailure("an element was left behind");
  return 0;
}
