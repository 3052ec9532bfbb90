// CXmlDocument's constructors and loading: the members that need the serialization context, which
// the document's own layer does not know.

#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "qvxml/binding/file_input_internal.h"
#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/exception.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/fastinfoset/fi_reader.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/encoder.h"
#include "qvxml/xml/expat_reader.h"
#include "qvxml/xml/xml_document.h"

namespace QvXmlLib16 {

namespace {

CBinaryData CopyOf(const void* source, size_t length) {
  if (source == nullptr || length == 0) return CBinaryData();
  std::unique_ptr<unsigned char[]> bytes(new unsigned char[length]);
  std::memcpy(bytes.get(), source, length);
  return CBinaryData(bytes.release(), length, true);
}

CBinaryData CopyOf(const char* text) {
  return CopyOf(text, text != nullptr ? std::strlen(text) : 0);
}

}  // namespace

CXmlDocument::CXmlDocument() { Init(nullptr, CSerializationContext::m_defaultContext); }

CXmlDocument::CXmlDocument(const CSerializationContext& context) { Init(nullptr, context); }

CXmlDocument::CXmlDocument(ElementCompleteCallback callback) {
  Init(callback, CSerializationContext::m_defaultContext);
}

CXmlDocument::CXmlDocument(ElementCompleteCallback callback, const CSerializationContext& context) {
  Init(callback, context);
}

// Kept: the schema kind is the one of this moment, whatever is later set in the context.
void CXmlDocument::Init(ElementCompleteCallback callback, const CSerializationContext& context) {
  m_callback = callback;
  m_context = &context;
  m_usesNamespaces = context.GetSchemaType() != SchemaType_LocalNames;
}

bool CXmlDocument::StripsCDATA() const { return m_context->GetStripCDATA(); }

// The copy was made before: the source may be text of the tree that goes now.
void CXmlDocument::SetInput(CBinaryData&& input) {
  Cleanup();
  m_input = std::move(input);
}

void CXmlDocument::LoadXml(const char* text) {
  SetInput(CopyOf(text));
  if (m_input.GetLength() == 0) throw CQvException("XML String is empty!");
  ParseText();
}

void CXmlDocument::LoadXml(const wchar_t* text) {
  SetInput(text != nullptr ? CEncoder::UnicodeToUtf8Binary(text) : CBinaryData());
  if (m_input.GetLength() == 0) throw CQvException("XML String is empty!");
  // The bytes are this function's own, so no declaration inside the text can be right about them.
  m_inputEncoding = "UTF-8";
  ParseText();
}

void CXmlDocument::LoadXmlStream(const unsigned char* data, unsigned long length) {
  SetInput(CopyOf(data, length));
  if (m_input.GetLength() == 0) throw CQvException("XML Stream is empty!");
  Parse();
}

void CXmlDocument::Load(const char* path) {
  const std::string ownPath = path != nullptr ? path : "";
  Cleanup();
  m_input = detail::ReadFile(ownPath);
  Parse();
}

void CXmlDocument::Parse() {
  if (CQvZip::IsCompressed(m_input)) m_input = CQvZip::Decompress(m_input);
  if (!ParseFastInfoset()) ParseText();
}

// Nothing needs the input or the open elements once parsing is over, however it ends.
class CXmlDocument::CEndOfParse {
 public:
  explicit CEndOfParse(CXmlDocument& document) : m_document(document) {}
  CEndOfParse(const CEndOfParse&) = delete;
  CEndOfParse& operator=(const CEndOfParse&) = delete;
  ~CEndOfParse() {
    m_document.m_input.Clear();
    m_document.m_openElements.clear();
  }

 private:
  CXmlDocument& m_document;
};

bool CXmlDocument::ParseFastInfoset() {
  if (!CFastInfosetReader::IsFastInfoset(m_input.GetData(), m_input.GetLength())) return false;
  const CEndOfParse endOfParse(*this);
  CFastInfosetReader(*this, m_context->GetFIContext()).Parse();
  return true;
}

void CXmlDocument::ParseText() {
  const CEndOfParse endOfParse(*this);
  CExpatReader reader(*this);
  reader.CreateParser();
  reader.Parse(true);
}

}  // namespace QvXmlLib16
