// The document, elements and attributes; namespaces are in fi_writer_namespaces.cpp.

#include "qvxml/fastinfoset/fi_writer.h"

#include <typeinfo>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/fastinfoset/fi_encoder_internal.h"

namespace QvXmlLib16 {

namespace {

constexpr char kBlanks[] = " \t\r\n";

const std::string& XsiNamespace() {
  static const std::string& s_uri = *new std::string("http://www.w3.org/2001/XMLSchema-instance");
  return s_uri;
}

[[noreturn]] void ThrowInvalidInstruction(const std::string& text) {
  throw CQvException(FormatString("Invalid processing instruction [%s].", text.c_str()));
}

struct Instruction {
  std::string target;
  std::string content;
};

// Cuts the first instruction off the text.
Instruction TakeInstruction(const std::string& text, size_t& position) {
  const size_t end = text.find("?>", position);
  if (text.compare(position, 2, "<?") != 0 || end == std::string::npos || end < position + 2) {
    ThrowInvalidInstruction(text);
  }
  const std::string inner = text.substr(position + 2, end - position - 2);
  position = end + 2;
  Instruction instruction{inner.substr(0, inner.find_first_of(kBlanks)), std::string()};
  const size_t content = inner.find_first_not_of(kBlanks, instruction.target.size());
  if (content != std::string::npos) instruction.content = inner.substr(content);
  if (instruction.target.empty() || strcasecmp(instruction.target.c_str(), "xml") == 0) {
    ThrowInvalidInstruction(text);
  }
  return instruction;
}

}  // namespace

CFastInfosetWriter::CFastInfosetWriter(const CFastInfosetContext& context, CBinaryStream& stream)
    : CXmlWriter("CFastInfosetWriter"),
      m_encoder(std::make_unique<detail::CFIEncoder>(context, stream)),
      m_isVocabularyNameless(context.GetUseGeneratedVocabulary() &&
                             context.GetExternalVocabularyURI().empty()),
      m_bindings(1) {}

CFastInfosetWriter::~CFastInfosetWriter() = default;

void CFastInfosetWriter::BeginItem() {
  if (!m_isWhole) throw CQvException("The document can not be continued after a failure.");
  m_isWhole = false;
}

void CFastInfosetWriter::RequireDocument() const {
  if (m_place == Place::BeforeDocument || m_place == Place::AfterDocument) {
    throw CQvException("The item must stand within a document.");
  }
}

void CFastInfosetWriter::WriteStartDocument(FInfoDecl declaration) {
  if (m_place != Place::BeforeDocument) {
    throw CQvException("A document must be started only once.");
  }
  if (declaration < FInfoDecl_None || declaration > FInfoDecl_Version11StandaloneNo) {
    throw CQvException(
        FormatString("Invalid Fast Infoset declaration [%d].", static_cast<int>(declaration)));
  }
  if (m_isVocabularyNameless) {
    throw CQvException("A generated vocabulary must have an external vocabulary URI.");
  }
  BeginItem();
  m_encoder->StartDocument(declaration);
  m_place = Place::BeforeRoot;
  m_isWhole = true;
}

void CFastInfosetWriter::WriteEndDocument() {
  CXmlWriter::Close();
  if (m_place != Place::AfterRoot) throw CQvException("A document must have one element.");
  BeginItem();
  m_encoder->Terminate();
  m_place = Place::AfterDocument;
  m_isWhole = true;
}

void CFastInfosetWriter::Close() {
  m_encoder->Flush();
  CXmlWriter::Close();
}

void CFastInfosetWriter::WriteComment(const std::string& text) {
  RequireDocument();
  BeginItem();
  EndStartTag();
  m_encoder->Comment(text);
  m_isWhole = true;
}

void CFastInfosetWriter::WritePI(const std::string& text) {
  RequireDocument();
  BeginItem();
  EndStartTag();
  size_t position = text.find_first_not_of(kBlanks);
  if (position == std::string::npos) ThrowInvalidInstruction(text);
  do {
    const Instruction instruction = TakeInstruction(text, position);
    m_encoder->ProcessingInstruction(instruction.target, instruction.content);
    position = text.find_first_not_of(kBlanks, position);
  } while (position != std::string::npos);
  m_isWhole = true;
}

void CFastInfosetWriter::WriteInlineSchema(const std::string&) {}

void CFastInfosetWriter::EndStartTag() {
  CXmlWriterContext* const context = GetContext();
  if (context == nullptr || !context->IsStartTagOpen()) return;
  context->SetStartTagOpen(false);
  m_encoder->EndStartTag();
}

void CFastInfosetWriter::WriteStartElement(const std::string& localName,
                                           const std::string& namespaceUri) {
  RequireDocument();
  if (m_place == Place::AfterRoot) throw CQvException("A document must have one element.");
  BeginItem();
  EndStartTag();
  CXmlWriterContext& context = PushContext(1);
  context.SetStartTagOpen(true);
  m_usedPrefixes.clear();
  m_encoder->StartElement();
  if (m_place == Place::BeforeRoot) {
    m_place = Place::InRoot;
    m_isPlain = typeid(*this) == typeid(CFastInfosetWriter);
    DeclareRootNamespaces(namespaceUri);
  }
  const NamePrefix name = ResolveElement(context, namespaceUri);
  m_usedPrefixes.push_back(name.prefix);
  m_encoder->ElementName(localName, name.prefix, name.namespaceNumber);
  m_isWhole = true;
}

void CFastInfosetWriter::WriteString(const std::string& text, ItemType type, bool isDefaultValue) {
  if (text.empty() || (isDefaultValue && !m_writesDefaultElementValues)) return;
  GetOpenContext();
  BeginItem();
  EndStartTag();
  m_encoder->Characters(text, type);
  m_isWhole = true;
}

void CFastInfosetWriter::WriteEndElement() {
  const unsigned long depth = GetOpenContext().GetDepth();
  BeginItem();
  EndStartTag();
  m_encoder->Terminate();
  UndoDeclarations(depth);
  PopContext();
  if (depth == 1) m_place = Place::AfterRoot;
  m_isWhole = true;
}

void CFastInfosetWriter::WriteTextElement(const std::string& localName,
                                          const std::string& namespaceUri, std::string_view text,
                                          ItemType type, bool isDefaultValue) {
  const NamePrefix* const name =
      GetContext() != nullptr && m_isPlain ? FindElementPrefix(namespaceUri) : nullptr;
  if (name == nullptr) {
    return CXmlWriter::WriteTextElement(localName, namespaceUri, text, type, isDefaultValue);
  }
  BeginItem();
  EndStartTag();
  m_encoder->StartElement();
  m_encoder->ElementName(localName, name->prefix, name->namespaceNumber);
  if (!text.empty() && (!isDefaultValue || m_writesDefaultElementValues)) {
    m_encoder->Characters(text, type);
  }
  m_encoder->Terminate();
  m_isWhole = true;
}

CXmlWriter::CXmlWriterContext& CFastInfosetWriter::GetOpenStartTag() const {
  CXmlWriterContext* const context = GetContext();
  if (context == nullptr || !context->IsStartTagOpen()) {
    throw CQvException("Attributes must be added before elements");
  }
  return *context;
}

void CFastInfosetWriter::WriteAttributeString(const std::string& localName,
                                              const std::string& namespaceUri,
                                              const std::string& value, ItemType type) {
  CXmlWriterContext& context = GetOpenStartTag();
  BeginItem();
  if (IsDeclarationName(localName, namespaceUri)) {
    WriteDeclarationAttribute(context, localName, namespaceUri, value);
  } else {
    const NamePrefix name = ResolveAttribute(context, namespaceUri);
    m_encoder->Attribute(localName, name.prefix, name.namespaceNumber, value, type);
  }
  m_isWhole = true;
}

void CFastInfosetWriter::WriteTextAttribute(const std::string& localName,
                                            const std::string& namespaceUri, std::string_view value,
                                            ItemType type) {
  const CXmlWriterContext* const context = GetContext();
  const bool isQuick = namespaceUri.empty() && context != nullptr && context->IsStartTagOpen() &&
                       m_isPlain && !IsDeclarationName(localName, namespaceUri);
  if (!isQuick) return CXmlWriter::WriteTextAttribute(localName, namespaceUri, value, type);
  BeginItem();
  m_encoder->Attribute(localName, 0, 0, value, type);
  m_isWhole = true;
}

void CFastInfosetWriter::WriteAttributeType(const std::string& typeNamespace,
                                            const std::string& typeName, ItemType type) {
  CXmlWriterContext& context = GetOpenStartTag();
  BeginItem();
  m_typeValue.clear();
  NamePrefix numbers;
  if (!typeNamespace.empty()) {
    if (!IsDeclared(std::string(), typeNamespace, numbers)) {
      numbers = RequirePrefix(context, typeNamespace);
      m_typeValue = context.GetNamespaceMapValue(typeNamespace);
      m_typeValue += ':';
    }
    // The value would change its meaning with the declaration.
    m_usedPrefixes.push_back(numbers.prefix);
  }
  m_typeValue += typeName;
  m_isWhole = true;
  WriteAttributeString("type", XsiNamespace(), m_typeValue, type);
}

void CFastInfosetWriter::WriteAttributeNil() {
  GetOpenStartTag();
  WriteAttributeString("nil", XsiNamespace(), "true", ItemType_boolean);
}

}  // namespace QvXmlLib16
