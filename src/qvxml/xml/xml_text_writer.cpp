#include "qvxml/xml/xml_text_writer.h"

#include <string_view>
#include <typeinfo>

#include "qvxml/core/exception.h"
#include "qvxml/xml/escape_scan_internal.h"
#include "qvxml/xml/short_copy.h"

namespace QvXmlLib16 {

namespace {

// Appends a literal without measuring it.
template <size_t kSize>
void Append(CTextStream& stream, const char (&literal)[kSize]) {
  stream.Append(literal, kSize - 1);
}

bool IsRawText(std::string_view text) {
  constexpr std::string_view kMarker = "<![CDATA[";
  return text.substr(0, kMarker.size()) == kMarker;
}

template <bool kInAttribute>
bool HasEscaped(std::string_view text) {
  const char* const end = text.data() + text.size();
  return detail::FindEscaped<detail::TXmlEscapes<kInAttribute>>(text.data(), end) != end;
}

// "prefix:localName", or the local name alone.
char* PutName(char* to, std::string_view prefix, std::string_view localName) {
  if (!prefix.empty()) {
    to = detail::PutShort(to, prefix);
    *to++ = ':';
  }
  return detail::PutShort(to, localName);
}

}  // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream& stream)
    : CXmlWriter("CXmlTextWriter"), m_stream(stream) {}

CXmlTextWriter::~CXmlTextWriter() = default;

void CXmlTextWriter::SetEOLType(EOLType type) {
  m_eol = GetEOLText(type);
  m_eolType = type;
}

void CXmlTextWriter::SetIndentChars(const char* indentChars) {
  m_indentChars = indentChars != nullptr ? indentChars : "";
}

void CXmlTextWriter::Open() {
  CXmlWriter::Open();
  m_stream.Open();
}

void CXmlTextWriter::Close() {
  m_stream.Close();
  CXmlWriter::Close();
}

void CXmlTextWriter::WriteStartDocument() {
  Append(m_stream, "<?xml version=\"1.0\"");
  if (m_stream.GetEncoding() == Encoding_UTF8) Append(m_stream, " encoding=\"UTF-8\"");
  if (m_stream.GetEncoding() == Encoding_UTF16) Append(m_stream, " encoding=\"UTF-16\"");
  Append(m_stream, "?>");
  WriteEOL();
  FlushIfFull();
}

void CXmlTextWriter::WriteHeaderDirective(const std::string& text) {
  if (GetContext() != nullptr) {
    throw CQvException("Headed directives must appear before an Element has been added.");
  }
  m_stream.Append(text);
  WriteEOL();
  FlushIfFull();
}

void CXmlTextWriter::WriteComment(const std::string& text) {
  Append(m_stream, "<!--");
  PadAndAppend<false>(text);
  Append(m_stream, "-->");
  WriteEOL();
  FlushIfFull();
}

void CXmlTextWriter::WritePI(const std::string& text) {
  m_stream.Append(text);
  WriteEOL();
  WriteEOL();
  FlushIfFull();
}

void CXmlTextWriter::WriteInlineSchema(const std::string& schemaText) {
  m_stream.Append(' ');
  WriteEOL();
  m_stream.Append(schemaText);
  WriteEOL();
  FlushIfFull();
}

void CXmlTextWriter::WriteStartElement(const std::string& localName,
                                       const std::string& namespaceUri) {
  CloseParentElm();
  CXmlWriterContext& context = PushContext(localName, namespaceUri, 0);
  try {
    WriteStartTag(context);
    FlushIfFull();
  } catch (...) {
    PopContext();
    throw;
  }
}

void CXmlTextWriter::CloseParentElm() {
  CXmlWriterContext* const parent = GetContext();
  if (parent == nullptr) return;
  parent->AddChild();
  if (!parent->IsStartTagOpen()) return;
  parent->SetStartTagOpen(false);
  m_stream.Append('>');
  if (m_isFormatted) WriteEOL();
}

void CXmlTextWriter::WriteStartTag(CXmlWriterContext& context) {
  context.SetStartTagOpen(true);
  if (m_isFormatted) WriteIndent(context.GetDepth());
  const bool isNewPrefix =
      context.GetPrefix().empty() && !context.IsUnprefixed(context.GetNamespaceUri());
  if (isNewPrefix) BindUniquePrefix(context, context.GetNamespaceUri());
  const std::string& prefix = context.GetPrefix();
  AppendTag("<", prefix.empty() ? nullptr : &prefix, context.GetLocalName());
  if (isNewPrefix) {
    m_stream.Append(' ');
    WriteDeclaration(prefix, context.GetNamespaceUri());
  }
  if (context.GetParent() == nullptr) {
    WriteRootNamespaces();
    m_isPlain = typeid(*this) == typeid(CXmlTextWriter) && typeid(m_stream) == typeid(CTextStream);
  }
}

void CXmlTextWriter::AppendTag(std::string_view mark, const std::string* prefix,
                               const std::string& localName) {
  const std::string_view prefixText = prefix != nullptr ? std::string_view(*prefix) : "";
  if (char* to = m_stream.FindRoom(mark.size() + prefixText.size() + 1 + localName.size())) {
    to = detail::PutShort(to, mark);
    to = detail::PutShort(to, prefixText);
    if (prefix != nullptr) *to++ = ':';
    m_stream.AdvanceTo(detail::PutShort(to, localName));
    return;
  }
  m_stream.Append(mark.data(), mark.size());
  if (prefix != nullptr) {
    m_stream.Append(*prefix);
    m_stream.Append(':');
  }
  m_stream.Append(localName);
}

const std::string& CXmlTextWriter::BindUniquePrefix(CXmlWriterContext& context,
                                                    const std::string& namespaceUri) {
  context.SetNamespaceMapValue(namespaceUri, context.GetUniquePrefix());
  return context.GetNamespaceMapValue(namespaceUri);
}

void CXmlTextWriter::WriteRootNamespaces() {
  if (!GetRootDefaultNamespace().empty()) {
    Append(m_stream, " xmlns=\"");
    PadAndAppend<true>(GetRootDefaultNamespace());
    m_stream.Append('"');
  }
  for (const auto& binding : GetRootNamespaceMap()) {
    if (!IsDeclarable(binding)) continue;
    m_stream.Append(' ');
    WriteDeclaration(binding.second, binding.first);
  }
}

void CXmlTextWriter::WriteDeclaration(const std::string& prefix, const std::string& namespaceUri) {
  Append(m_stream, "xmlns:");
  m_stream.Append(prefix);
  Append(m_stream, "=\"");
  PadAndAppend<true>(namespaceUri);
  m_stream.Append('"');
}

void CXmlTextWriter::WriteString(const std::string& text, ItemType, bool isDefaultValue) {
  if (text.empty() || (isDefaultValue && !m_writesDefaultElementValues)) return;
  CXmlWriterContext& context = GetOpenContext();
  if (context.IsStartTagOpen()) {
    m_stream.Append('>');
    context.SetStartTagOpen(false);
  }
  AppendText(text);
  FlushIfFull();
}

void CXmlTextWriter::WriteTextElement(const std::string& localName, const std::string& namespaceUri,
                                      std::string_view text, ItemType type, bool isDefaultValue) {
  CXmlWriterContext* const parent = GetContext();
  const std::string* const prefix =
      parent != nullptr && m_isPlain ? parent->FindPrefixWithin(namespaceUri) : nullptr;
  if (prefix == nullptr) {
    return CXmlWriter::WriteTextElement(localName, namespaceUri, text, type, isDefaultValue);
  }
  CloseParentElm();
  if (isDefaultValue && !m_writesDefaultElementValues) text = std::string_view();
  if (m_isFormatted) WriteIndent(parent->GetDepth() + 1);
  AppendTextElement(*prefix, localName, text);
  if (m_isFormatted) WriteEOL();
}

void CXmlTextWriter::AppendTextElement(const std::string& prefix, const std::string& localName,
                                       std::string_view text) {
  constexpr size_t kMarks = std::string_view("<:></:>").size();
  const size_t nameLength = prefix.size() + localName.size();
  char* to = m_stream.FindRoom(2 * nameLength + text.size() + kMarks);
  if (to == nullptr || HasEscaped<false>(text)) {
    return AppendLongTextElement(prefix.empty() ? nullptr : &prefix, localName, text);
  }
  *to++ = '<';
  const char* const name = to;
  to = PutName(to, prefix, localName);
  if (text.empty()) {
    *to++ = '/';
  } else {
    const std::string_view endName(name, static_cast<size_t>(to - name));
    *to++ = '>';
    to = detail::PutShort(to, text);
    *to++ = '<';
    *to++ = '/';
    to = detail::PutShort(to, endName);
  }
  *to++ = '>';
  m_stream.AdvanceTo(to);
}

void CXmlTextWriter::AppendText(std::string_view text) {
  if (m_writesCDATA && IsRawText(text)) {
    m_stream.Append(text.data(), text.size());
  } else {
    PadAndAppend<false>(text);
  }
}

void CXmlTextWriter::AppendLongTextElement(const std::string* prefix, const std::string& localName,
                                           std::string_view text) {
  AppendTag("<", prefix, localName);
  if (text.empty()) {
    m_stream.Append('/');
  } else {
    m_stream.Append('>');
    AppendText(text);
    AppendTag("</", prefix, localName);
  }
  m_stream.Append('>');
}

void CXmlTextWriter::WriteEndElement() {
  const CXmlWriterContext& context = GetOpenContext();
  const bool isEmpty = context.IsStartTagOpen();
  if (m_isFormatted && !isEmpty && context.GetChildCount() > 0) WriteIndent(context.GetDepth());
  WriteEndTag(context, isEmpty);
  FlushIfFull();
  PopContext();
}

void CXmlTextWriter::WriteEndTag(const CXmlWriterContext& context, bool isEmpty) {
  // Looked up anew, so a default namespace or prefix set since the start tag shows here.
  const std::string& prefix = context.GetPrefix();
  const bool isPrefixed = !prefix.empty() || !context.IsUnprefixed(context.GetNamespaceUri());
  if (isEmpty) {
    Append(m_stream, "/>");
  } else {
    AppendTag("</", isPrefixed ? &prefix : nullptr, context.GetLocalName());
    m_stream.Append('>');
  }
  if (m_isFormatted) WriteEOL();
}

void CXmlTextWriter::WriteRawElement(const std::string& text) {
  m_stream.Append(text);
  if (m_isFormatted) WriteEOL();
  FlushIfFull();
}

void CXmlTextWriter::WriteAttributeString(const std::string& localName,
                                          const std::string& namespaceUri, const std::string& value,
                                          ItemType) {
  CXmlWriterContext& context = GetOpenStartTag();
  const std::string* prefix = nullptr;
  if (!namespaceUri.empty()) {
    prefix = &context.GetNamespaceMapValue(namespaceUri);
    if (prefix->empty()) {
      prefix = &BindUniquePrefix(context, namespaceUri);
      m_stream.Append(' ');
      WriteDeclaration(*prefix, namespaceUri);
    }
  }
  AppendAttribute(prefix, localName, value);
  FlushIfFull();
}

void CXmlTextWriter::WriteTextAttribute(const std::string& localName,
                                        const std::string& namespaceUri, std::string_view value,
                                        ItemType type) {
  const CXmlWriterContext* const context = GetContext();
  if (!namespaceUri.empty() || context == nullptr || !context->IsStartTagOpen() || !m_isPlain) {
    return CXmlWriter::WriteTextAttribute(localName, namespaceUri, value, type);
  }
  AppendAttribute(nullptr, localName, value);
}

void CXmlTextWriter::AppendAttribute(const std::string* prefix, const std::string& localName,
                                     std::string_view value) {
  constexpr size_t kMarks = std::string_view(" :=\"\"").size();
  const size_t prefixLength = prefix != nullptr ? prefix->size() : 0;
  char* to = m_stream.FindRoom(prefixLength + localName.size() + value.size() + kMarks);
  if (to != nullptr && !HasEscaped<true>(value)) {
    *to++ = ' ';
    to = PutName(to, prefix != nullptr ? std::string_view(*prefix) : "", localName);
    *to++ = '=';
    *to++ = '"';
    to = detail::PutShort(to, value);
    *to++ = '"';
    m_stream.AdvanceTo(to);
    return;
  }
  m_stream.Append(' ');
  if (prefix != nullptr) {
    m_stream.Append(*prefix);
    m_stream.Append(':');
  }
  m_stream.Append(localName);
  Append(m_stream, "=\"");
  PadAndAppend<true>(value);
  m_stream.Append('"');
}

void CXmlTextWriter::WriteAttributeType(const std::string& typeNamespace,
                                        const std::string& typeName, ItemType type) {
  CXmlWriterContext& context = GetOpenStartTag();
  m_typeValue.clear();
  if (!context.IsUnprefixed(typeNamespace)) {
    m_typeValue = context.GetNamespaceMapValue(typeNamespace);
    if (m_typeValue.empty()) {
      m_typeValue = BindUniquePrefix(context, typeNamespace);
      m_stream.Append(' ');
      WriteDeclaration(m_typeValue, typeNamespace);
      // Kept: with the attribute's own blank this makes two.
      m_stream.Append(' ');
    }
    m_typeValue += ':';
  }
  m_typeValue += typeName;
  WriteAttributeString("type", GetXsiNamespace(), m_typeValue, type);
}

void CXmlTextWriter::WriteAttributeNil() {
  GetOpenStartTag();
  WriteAttributeString("nil", GetXsiNamespace(), "true", ItemType_boolean);
}

CXmlWriter::CXmlWriterContext& CXmlTextWriter::GetOpenStartTag() const {
  CXmlWriterContext* const context = GetContext();
  if (context == nullptr || !context->IsStartTagOpen()) {
    throw CQvException("Attributes must be added before elements");
  }
  return *context;
}

template <bool kInAttribute>
void CXmlTextWriter::PadAndAppend(std::string_view text) {
  const char* run = text.data();
  const char* const end = run + text.size();
  for (;;) {
    const char* const found = detail::FindEscaped<detail::TXmlEscapes<kInAttribute>>(run, end);
    m_stream.Append(run, static_cast<size_t>(found - run));
    if (found == end) return;
    switch (*found) {
      case '&':
        Append(m_stream, "&amp;");
        break;
      case '<':
        Append(m_stream, "&lt;");
        break;
      case '>':
        Append(m_stream, "&gt;");
        break;
      case '"':
        Append(m_stream, "&quot;");
        break;
      case '\n':
        if (kInAttribute) {
          Append(m_stream, "&#xA;");
        } else {
          WriteEOL();
        }
        break;
      default:
        // Kept: carriage returns are lost.
        break;
    }
    run = found + 1;
  }
}

}  // namespace QvXmlLib16
