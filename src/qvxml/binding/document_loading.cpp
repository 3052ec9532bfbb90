// CXmlDocument's constructors and loading: the members that need the serialization context, which
// the document's own layer does not know.

#include <cstring>
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
#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/xml_document.h"

namespace QvXmlLib16 {

namespace {

// Smaller files are parsed faster in one piece.
constexpr size_t kLargeFile = size_t{32} << 20;
// The longest of what may stand before a Fast Infoset document, and its first bytes.
constexpr size_t kFormatBytes = 256;

bool IsPlainText(const CBinaryData& start) {
  return !CQvZip::IsCompressed(start) &&
         !CFastInfosetReader::IsFastInfoset(start.GetData(), start.GetLength());
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

bool CXmlDocument::RefusesDocumentType() const {
  return m_refuseDocumentType || m_context->GetRefuseDocumentType();
}

unsigned CXmlDocument::GetMaxAmplification() const { return m_context->GetMaxAmplification(); }

void CXmlDocument::SetInput(CBinaryData&& input) {
  Cleanup();
  TakeInput(std::move(input));
}

void CXmlDocument::TakeInput(CBinaryData&& input) {
  m_ownInput = std::move(input);
  m_input = m_ownInput.GetData();
  m_inputLength = m_ownInput.GetLength();
}

// Without a copy, unless the source may be text of the tree, or of the prefixes, that go now.
void CXmlDocument::BorrowInput(const void* source, size_t length) {
  const auto* const bytes = static_cast<const unsigned char*>(source);
  if (bytes == nullptr || length == 0) return SetInput(CBinaryData());
  const bool mayBeOwn = m_documentElement != nullptr || !m_namespaceByPrefix.empty();
  if (mayBeOwn) return SetInput(CBinaryData(bytes, length));
  Cleanup();
  m_input = bytes;
  m_inputLength = length;
}

void CXmlDocument::LoadXml(const char* text) {
  BorrowInput(text, text != nullptr ? std::strlen(text) : 0);
  if (m_inputLength == 0) throw CQvException("XML String is empty!");
  ParseText();
}

void CXmlDocument::LoadXml(const wchar_t* text) {
  SetInput(text != nullptr ? CEncoder::UnicodeToUtf8Binary(text) : CBinaryData());
  if (m_inputLength == 0) throw CQvException("XML String is empty!");
  // The bytes are this function's own, so no declaration inside the text can be right about them.
  m_inputEncoding = "UTF-8";
  ParseText();
}

void CXmlDocument::LoadXmlStream(const unsigned char* data, unsigned long length) {
  BorrowInput(data, length);
  if (m_inputLength == 0) throw CQvException("XML Stream is empty!");
  Parse();
}

void CXmlDocument::Load(const char* path) {
  const std::string ownPath = path != nullptr ? path : "";
  Cleanup();
  detail::CInputFile file(ownPath);
  if (file.GetSize() > kLargeFile && IsPlainText(file.Peek(kFormatBytes))) return ParsePieces(file);
  TakeInput(file.ReadAll());
  Parse();
}

void CXmlDocument::Parse() {
  if (CQvZip::IsCompressed(m_input, m_inputLength)) {
    if (m_ownInput.GetLength() == 0) m_ownInput = CBinaryData(m_input, m_inputLength);
    TakeInput(CQvZip::Decompress(m_ownInput, m_context->GetMaxDecompressedSize()));
  }
  if (!ParseFastInfoset()) ParseText();
}

// Nothing needs the input or the open elements once parsing is over, however it ends.
class CXmlDocument::CEndOfParse {
 public:
  explicit CEndOfParse(CXmlDocument& document) : m_document(document) {}
  CEndOfParse(const CEndOfParse&) = delete;
  CEndOfParse& operator=(const CEndOfParse&) = delete;
  ~CEndOfParse() {
    m_document.ClearInput();
    m_document.m_openElements.clear();
    if (m_document.m_arena != nullptr) m_document.m_arena->ReleaseUnused();
  }

 private:
  CXmlDocument& m_document;
};

bool CXmlDocument::ParseFastInfoset() {
  if (!CFastInfosetReader::IsFastInfoset(m_input, m_inputLength)) return false;
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

void CXmlDocument::ParsePieces(detail::CInputFile& file) {
  const CEndOfParse endOfParse(*this);
  CExpatReader reader(*this);
  reader.CreateParser();
  reader.Parse(file);
}

}  // namespace QvXmlLib16
