// Input: a byte of options and a Fast Infoset document. Whatever is accepted must be an infoset:
// the tree, written as XML text here, must give libexpat the same tree. The mutator works on
// indices, lengths and whole items, which changes of single octets seldom hit.

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

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

// Of libFuzzer; the replay main does without.
extern "C" __attribute__((weak)) size_t LLVMFuzzerMutate(uint8_t* data, size_t size,
                                                         size_t maxSize);
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize,
                                          unsigned seed);

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

// Mutation.

class Mutator {
 public:
  Mutator(const uint8_t* data, size_t size, unsigned seed)
      : m_data(data, data + size), m_random(seed) {}

  std::vector<uint8_t> Run() {
    // Behind the header, as a rule.
    const size_t first = Below(16) == 0 ? 1 : std::min<size_t>(6, m_data.size());
    const size_t place = first + Below(m_data.size() - first + 1);
    switch (Below(6)) {
      case 0:
        Insert(place, Integer());
        break;
      case 1:
        Replace(place, Integer());
        break;
      case 2:
        Insert(place, Item());
        break;
      case 3:
        Insert(place, Part(place));
        break;
      case 4:
        Erase(place, 1 + Below(8));
        break;
      default:
        Resize(place);
    }
    return std::move(m_data);
  }

 private:
  using Octets = std::vector<uint8_t>;

  size_t Below(size_t limit) { return m_random() % limit; }

  void Insert(size_t place, const Octets& octets) {
    m_data.insert(m_data.begin() + static_cast<std::ptrdiff_t>(place), octets.begin(),
                  octets.end());
  }
  void Erase(size_t place, size_t count) {
    const size_t end = std::min(place + count, m_data.size());
    m_data.erase(m_data.begin() + static_cast<std::ptrdiff_t>(place),
                 m_data.begin() + static_cast<std::ptrdiff_t>(end));
  }
  void Replace(size_t place, const Octets& octets) {
    Erase(place, octets.size());
    Insert(place, octets);
  }
  Octets Part(size_t place) {
    const size_t end = std::min(place + 1 + Below(24), m_data.size());
    return Octets(m_data.begin() + static_cast<std::ptrdiff_t>(place),
                  m_data.begin() + static_cast<std::ptrdiff_t>(end));
  }
  // Takes the octet for a length, and changes it together with what follows.
  void Resize(size_t place) {
    if (place == m_data.size()) return;
    const bool grows = Below(2) != 0;
    m_data[place] = static_cast<uint8_t>(m_data[place] + (grows ? 1 : -1));
    if (grows) {
      Insert(place + 1, {static_cast<uint8_t>('a' + Below(4))});
    } else {
      Erase(place + 1, 1);
    }
  }

  // An index or a length of any place, at or next to a bound of its forms.
  Octets Integer() {
    static const std::vector<Octets> kBounds = {{0x00},
                                                {0x01},
                                                {0x1F},
                                                {0x20, 0x00},
                                                {0x27, 0xFF},
                                                {0x28, 0x00, 0x00},
                                                {0x3F},
                                                {0x40, 0x00},
                                                {0x5F, 0xFF},
                                                {0x80},
                                                {0x81},
                                                {0xBF},
                                                {0xC0, 0x00},
                                                {0xDF, 0xFF},
                                                {0xA0},
                                                {0xA1},
                                                {0xAF},
                                                {0xB0, 0x00},
                                                {0xB3, 0xFF},
                                                {0xFF},
                                                {0x08, 0x00},
                                                {0x82, 0x00},
                                                {0x40, 0xFF},
                                                {0x60, 0x00, 0x00},
                                                {0x6F, 0xDF, 0xBF},
                                                {0x6F, 0xDF, 0xC0},
                                                {0xE0, 0x00, 0x00},
                                                {0xEF, 0xDF, 0xBF},
                                                {0xB4, 0x00, 0x00},
                                                {0x30, 0x00, 0x00, 0x00},
                                                {0x30, 0x07, 0xF7, 0xDF},
                                                {0x30, 0x0F, 0xFF, 0xFF},
                                                {0xB8, 0x00, 0x00, 0x00},
                                                {0xB8, 0x0B, 0xFB, 0xEF},
                                                {0xB8, 0x0B, 0xFB, 0xF0},
                                                {0x60, 0xFF, 0xFF, 0xFE, 0xBF},
                                                {0x60, 0xFF, 0xFF, 0xFE, 0xC0},
                                                {0x0C, 0xFF, 0xFF, 0xFE, 0xF8},
                                                {0x83, 0xFF, 0xFF, 0xFE, 0xFE},
                                                {0x8F, 0xFF, 0x7F},
                                                {0x8F, 0xFF, 0x80}};
    Octets octets = kBounds[Below(kBounds.size())];
    if (Below(4) == 0)
      octets.back() = static_cast<uint8_t>(octets.back() + (Below(2) != 0 ? 1 : -1));
    return octets;
  }

  // Something whole, so that what follows it keeps its meaning.
  Octets Item() {
    static const std::vector<Octets> kItems = {
        {0xF0},
        {0xFF},
        {0x3C, 0x00, 'r', 0xF0},
        {0x00, 0xF0},
        {0x38, 0xCF, 0x00, 'p', 0x00, 'u', 0xF0, 0x3F, 0x81, 0x81, 0x00, 'q', 0xF0},
        {0x38, 0xCD, 0x81, 0xF0, 0x3D, 0x81, 0x80, 0xF0},
        {0x78, 0xCC, 0xF0, 0x3C, 0x80, 0x78, 0x00, 'a', 0x40, 'v', 0xFF},
        {0x78, 0x00, 'b', 0x80},
        {0x7B, 0x80, 0x80, 0x00, 'l', 0x01, 'e', 'n'},
        {0x90, 'x'},
        {0x82, 0x03, 'a', '\r', '\n', 'b', 'c', 'd'},
        {0x85, 0xD8, 0x3D},
        {0x96, 0x01, 0xD8, 0x3D, 0xDE, 0x00},
        {0x88, 0x01, 0x12, 0xC5},
        {0x9C, 0x0E, 0x01, 0x80, 0x00, 0x00, 0x00},
        {0x8C, 0x12, 0x05, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
        {0x8C, 0x14, 0x0B},
        {0x8C, 0x1A, 0x01, 0x7F, 0x7F, 0xFF, 0xFF},
        {0x8C, 0x1E, 0x05, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01},
        {0x8C, 0x26, 0x00, 'c', 'd', '<'},
        {0x8C, 0x05, 0x04, 'b', 'a', 's', 'e', '6', '4', 'b', 'a', 's'},
        {0xC8, 0x00, 'e'},
        {0xC4, 0xF0},
        {0xE1, 0x00, 'p', 0xFF},
        {0xE2, 0x40, 'c'},
        {0xE2, 0x80}};
    return kItems[Below(kItems.size())];
  }

  Octets m_data;
  std::minstd_rand m_random;
};

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize,
                                          unsigned seed) {
  if (size < 6 || seed % 3 == 0) return LLVMFuzzerMutate(data, size, maxSize);
  const std::vector<uint8_t> mutated = Mutator(data, size, seed).Run();
  const size_t kept = std::min(mutated.size(), maxSize);
  std::copy_n(mutated.begin(), kept, data);
  return kept;
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
