// Input: a document as a stream of bytes. The first byte chooses schema kind, CDATA and callback.
// The oracle is a tree built straight from what libexpat reports for the same bytes.

#include <map>
#include <string>

#include "fuzz/fuzz_target.h"
#include "fuzz/shadow_tree.h"
#include <expat.h>

#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/exception.h"
#include "qvxml/fastinfoset/fi_reader.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;

namespace {

constexpr unsigned long kMaxSize = 256 * 1024;
constexpr uint8_t kLocalNames = 1, kKeepCDATA = 2, kCallback = 4;

bool IsConsumed(const std::string& localName) { return localName.size() % 2 == 0; }

bool ConsumeElement(CXmlElement* element) { return IsConsumed(element->GetLocalName()); }

// What a load is to give.
struct Expectation {
  uint8_t options = 0;
  ShadowTree tree;
  std::map<std::string, std::string> namespaceByPrefix;
  XML_Parser parser = nullptr;
  // Of the failure; "" when there is none.
  std::string message;
};

std::pair<std::string, std::string> SplitName(const std::string& name) {
  const size_t separator = name.find('|');
  if (separator == std::string::npos) return {"", name};
  return {name.substr(0, separator), name.substr(separator + 1)};
}

void OnStart(void* userData, const char* name, const char** attributes) {
  ShadowTree& tree = static_cast<Expectation*>(userData)->tree;
  const auto [namespaceUri, localName] = SplitName(name);
  ShadowElement& element = tree.Open(namespaceUri, localName);
  for (; *attributes != nullptr; attributes += 2) {
    const auto [attributeNamespace, attributeName] = SplitName(attributes[0]);
    element.attributes.push_back({attributeNamespace, attributeName, attributes[1]});
  }
}

void OnEnd(void* userData, const char*) {
  const Expectation& expectation = *static_cast<Expectation*>(userData);
  ShadowTree& tree = static_cast<Expectation*>(userData)->tree;
  const std::string& localName = tree.GetOpen()->localName;
  tree.Close();
  if ((expectation.options & kCallback) != 0 && tree.GetDepth() != 0 && IsConsumed(localName)) {
    tree.RemoveLastChild();
  }
}

void OnText(void* userData, const char* text, int length) {
  static_cast<Expectation*>(userData)->tree.GetOpen()->text +=
      WithoutCharacters(std::string(text, static_cast<size_t>(length)), "\r");
}

void OnStartCDATA(void* userData) {
  static_cast<Expectation*>(userData)->tree.GetOpen()->text += "<![CDATA[";
}

void OnEndCDATA(void* userData) {
  static_cast<Expectation*>(userData)->tree.GetOpen()->text += "]]>";
}

void OnNamespace(void* userData, const char* prefix, const char* uri) {
  static_cast<Expectation*>(userData)->namespaceByPrefix[prefix != nullptr ? prefix : ""] =
      uri != nullptr ? uri : "";
}

void RefuseEntity(XML_Parser parser, const char* entity) {
  static_cast<Expectation*>(XML_GetUserData(parser))->message =
      "The entity [" + std::string(entity) + "] is not fetched at line " +
      std::to_string(XML_GetCurrentLineNumber(parser));
  XML_StopParser(parser, XML_FALSE);
}

void OnSkippedEntity(void* userData, const char* name, int isParameter) {
  if (isParameter == 0) RefuseEntity(static_cast<Expectation*>(userData)->parser, name);
}

int OnExternalEntity(XML_Parser parser, const char*, const char*, const char* systemId,
                     const char*) {
  RefuseEntity(parser, systemId);
  return XML_STATUS_ERROR;
}

void Expect(const CBinaryData& input, Expectation& expectation) {
  const bool usesNamespaces = (expectation.options & kLocalNames) == 0;
  XML_Parser parser = usesNamespaces ? XML_ParserCreateNS(nullptr, '|') : XML_ParserCreate(nullptr);
  expectation.parser = parser;
  XML_SetUserData(parser, &expectation);
  XML_SetElementHandler(parser, OnStart, OnEnd);
  XML_SetCharacterDataHandler(parser, OnText);
  XML_SetStartNamespaceDeclHandler(parser, OnNamespace);
  XML_SetSkippedEntityHandler(parser, OnSkippedEntity);
  XML_SetExternalEntityRefHandler(parser, OnExternalEntity);
  if ((expectation.options & kKeepCDATA) != 0) {
    XML_SetCdataSectionHandler(parser, OnStartCDATA, OnEndCDATA);
  }
  if (XML_Parse(parser, reinterpret_cast<const char*>(input.GetData()),
                static_cast<int>(input.GetLength()), XML_TRUE) != XML_STATUS_OK &&
      expectation.message.empty()) {
    expectation.message = std::string(XML_ErrorString(XML_GetErrorCode(parser))) + " at line " +
                          std::to_string(XML_GetCurrentLineNumber(parser));
  }
  XML_ParserFree(parser);
}

void ExpectSamePrefixes(const CXmlDocument& document, const Expectation& expectation) {
  std::map<std::string, std::string> firstPrefix;
  for (const auto& [prefix, uri] : expectation.namespaceByPrefix) {
    firstPrefix.emplace(uri, prefix);
    if (document.LookupNamespaceFromAlias(prefix.c_str()) != uri) FuzzFailure("prefix " + prefix);
  }
  for (const auto& [uri, prefix] : firstPrefix) {
    if (document.LookupAliasFromNamespace(uri.c_str()) != prefix) FuzzFailure("namespace " + uri);
  }
}

// Along the first children, as each path looks at all siblings.
void ExpectPaths(const CXmlDocument& document, const ShadowElement* shadow) {
  const auto qNameOf = [&](const ShadowElement& element) {
    const std::string& prefix =
        element.namespaceUri.empty()
            ? element.namespaceUri
            : document.LookupAliasFromNamespace(element.namespaceUri.c_str());
    return prefix.empty() ? element.localName : prefix + ":" + element.localName;
  };
  constexpr size_t kMaxPath = 10000;
  const CXmlElement* element = document.GetDocumentElement();
  std::string path = "/" + (shadow != nullptr ? qNameOf(*shadow) : "");
  while (element != nullptr && path.size() < kMaxPath) {
    if (element->GetXPath() != path) FuzzFailure(element->GetXPath() + " is not " + path);
    element = element->GetFirstElement();
    if (element == nullptr) return;
    const std::string name = qNameOf(*shadow->children.front());
    const bool isAlone =
        std::count_if(shadow->children.begin(), shadow->children.end(),
                      [&](const ShadowElement* child) { return qNameOf(*child) == name; }) == 1;
    path += "/" + name + (isAlone ? "" : "[1]");
    shadow = shadow->children.front();
  }
}

void Load(uint8_t options, const CBinaryData& input, const Expectation* expectation) {
  CSerializationContext context;
  if ((options & kLocalNames) != 0) context.SetSchemaType(SchemaType_LocalNames);
  context.SetStripCDATA((options & kKeepCDATA) == 0);
  CXmlDocument document((options & kCallback) != 0 ? ConsumeElement : nullptr, context);
  std::string message;
  try {
    document.LoadXmlStream(input.GetData(), input.GetLength());
  } catch (const CQvException& exception) {
    message = exception.GetMessage();
  }
  // The reader's own limit comes before those of libexpat.
  if (expectation == nullptr || message.find("amplification") != std::string::npos) return;
  if (message != expectation->message) {
    FuzzFailure("[" + message + "], not [" + expectation->message + "]");
  }
  ExpectSameTree(document.GetDocumentElement(), expectation->tree.GetRoot(), false);
  ExpectSamePrefixes(document, *expectation);
  ExpectPaths(document, expectation->tree.GetRoot());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  CQvZip::SetMaxDecompressedSize(kMaxSize);
  const uint8_t options = data[0];
  const CBinaryData input(data + 1, size - 1);
  try {
    Expectation expectation;
    expectation.options = options;
    const CBinaryData text = CQvZip::IsCompressed(input) ? CQvZip::Decompress(input) : input;
    // libexpat knows nothing of the other format that a document may be in.
    const bool isText = !CFastInfosetReader::IsFastInfoset(text.GetData(), text.GetLength());
    if (isText) Expect(text, expectation);
    Load(options, input, isText ? &expectation : nullptr);
  } catch (const CQvException&) {
    // Damaged compression: only to survive.
    Load(options, input, nullptr);
  }
  if (CInstanceMonitor::GetCount("CXmlElement") != 0) FuzzFailure("an element was left behind");
  return 0;
}
