// Input: a document as a stream of bytes. The first byte chooses schema kind, CDATA and callback.

#include <string>

#include "fuzz/fuzz_target.h"

#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/exception.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/xml_document.h"

using namespace QvXmlLib16;

namespace {

constexpr unsigned long kMaxSize = 4 * 1024 * 1024;
constexpr uint8_t kLocalNames = 1, kKeepCDATA = 2, kCallback = 4;

bool RemoveLeaves(CXmlElement* element) { return element->GetFirstElement() == nullptr; }

// Touches every node; a few paths only, as each looks at all siblings.
void Walk(const CXmlElement* element) {
  size_t length = 0;
  for (; element != nullptr; element = element->GetFirstElement()) {
    length += element->GetText().size() + element->GetXPath().size();
    for (const CXmlAttribute* attribute : element->GetAttributes()) {
      if (element
              ->GetAttribute(attribute->GetLocalName().c_str(),
                             attribute->GetNamespaceURI().c_str())
              .size() > kMaxSize) {
        FuzzFailure("a value is longer than the input");
      }
      length += attribute->GetXPath().size();
    }
    if (element->GetText().find('\r') != std::string::npos) FuzzFailure("a carriage return");
    if (length > kMaxSize) return;
  }
}

void Load(uint8_t options, const uint8_t* data, size_t size) {
  CSerializationContext context;
  if ((options & kLocalNames) != 0) context.SetSchemaType(SchemaType_LocalNames);
  context.SetStripCDATA((options & kKeepCDATA) == 0);
  CXmlDocument document((options & kCallback) != 0 ? RemoveLeaves : nullptr, context);
  try {
    document.LoadXmlStream(data, size);
  } catch (const CQvException&) {
  }
  Walk(document.GetDocumentElement());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  CQvZip::SetMaxDecompressedSize(kMaxSize);
  Load(data[0], data + 1, size - 1);
  if (CInstanceMonitor::GetCount("CXmlElement") != 0) FuzzFailure("an element was left behind");
  return 0;
}
