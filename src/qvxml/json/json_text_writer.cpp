#include "qvxml/json/json_text_writer.h"

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/json/json_text_internal.h"

namespace QvXmlLib16 {

namespace {

[[noreturn]] void ThrowUnknownNamespace(const std::string& localName) {
  throw CQvException(FormatString("Unknown Namespace: %s.", localName.c_str()));
}

}  // namespace

CJsonTextWriter::CJsonTextWriter(CTextStream& stream) : CJsonWriter(stream, "CJsonTextWriter") {}

CJsonTextWriter::~CJsonTextWriter() = default;

void CJsonTextWriter::WriteStartDocument() {
  GetStream().Append('{');
  WriteEOL();
  FlushIfFull();
}

void CJsonTextWriter::WriteEndDocument() {
  WriteEOL();
  GetStream().Append('}');
}

void CJsonTextWriter::WriteComment(const std::string& text) {
  detail::AppendLiteral(GetStream(), "/* ");
  PadAndAppend(text);
  detail::AppendLiteral(GetStream(), " */");
  GetStream().Append(GetEOL());
  FlushIfFull();
}

void CJsonTextWriter::WriteStartElement(const std::string& localName,
                                        const std::string& namespaceUri) {
  CXmlWriterContext* const parent = GetContext();
  const bool hasName = parent == nullptr || parent->GetState() != ContextState_ArrayOpen;
  if (parent != nullptr) {
    WriteOpenBrackets(*parent);
  } else {
    NoteRoot(typeid(CJsonTextWriter));
  }
  CXmlWriterContext& context = PushContext(localName, namespaceUri, 1);
  try {
    WriteIndent(context.GetDepth());
    if (hasName) {
      WriteElementName(context);
    } else {
      m_isValuePending = true;
    }
    if (parent == nullptr && IsFull()) WriteRootNamespaces(context);
    FlushIfFull();
  } catch (...) {
    PopContext();
    throw;
  }
}

void CJsonTextWriter::WriteElementName(CXmlWriterContext& context) {
  const std::string& namespaceUri = context.GetNamespaceUri();
  bool isNewPrefix = false;
  std::string_view prefix;
  if (IsFull() && !context.IsUnprefixed(namespaceUri)) {
    prefix = context.GetNamespaceMapValue(namespaceUri);
    isNewPrefix = prefix.empty();
  }
  if (isNewPrefix) {
    if (context.GetParent() != nullptr) ThrowUnknownNamespace(context.GetLocalName());
    context.SetNamespaceMapValue(namespaceUri, context.GetUniquePrefix());
    prefix = context.GetNamespaceMapValue(namespaceUri);
  }
  WriteName({}, prefix, context.GetLocalName());
  m_isValuePending = true;
  if (isNewPrefix) WriteDeclaration(context, prefix, namespaceUri);
}

void CJsonTextWriter::WriteRootNamespaces(CXmlWriterContext& root) {
  if (!GetRootDefaultNamespace().empty()) WriteDeclaration(root, {}, GetRootDefaultNamespace());
  for (const auto& binding : GetRootNamespaceMap()) {
    if (IsDeclarable(binding)) WriteDeclaration(root, binding.second, binding.first);
  }
}

void CJsonTextWriter::WriteDeclaration(CXmlWriterContext& context, std::string_view prefix,
                                       const std::string& namespaceUri) {
  WriteOpenBrackets(context);
  WriteIndent(context.GetDepth() + 1);
  WriteName(prefix.empty() ? "@xmlns" : "@xmlns:", {}, prefix);
  // Kept: nothing is escaped.
  GetStream().Append('"');
  GetStream().Append(namespaceUri);
  GetStream().Append('"');
  m_isValuePending = false;
}

void CJsonTextWriter::WriteOpenBrackets(CXmlWriterContext& context) {
  if (m_isValuePending) {
    CXmlWriterContext* const parent = context.GetParent();
    if (parent != nullptr && parent->GetState() == ContextState_CollectionBegin) {
      parent->SetState(ContextState_ArrayOpen);
      GetStream().Append('[');
      if (GetFormat()) IncrementIndents(&context);
      WriteEOL();
      WriteIndent(context.GetDepth());
    }
    GetStream().Append('{');
  } else {
    GetStream().Append(',');
  }
  WriteEOL();
}

void CJsonTextWriter::IncrementIndents(CXmlWriterContext* context) {
  for (; context != nullptr; context = context->GetParent()) {
    context->SetDepth(context->GetDepth() + 1);
  }
}

void CJsonTextWriter::DecrementIndents(CXmlWriterContext* context) {
  for (; context != nullptr; context = context->GetParent()) {
    if (context->GetDepth() > 1) context->SetDepth(context->GetDepth() - 1);
  }
}

void CJsonTextWriter::WriteString(const std::string& text, ItemType type, bool) {
  CXmlWriterContext& context = GetOpenContext();
  if (!m_isValuePending) {
    GetStream().Append(',');
    WriteEOL();
    WriteIndent(context.GetDepth() + 1);
    WriteName(GetTextName(), {}, {});
  }
  WriteValue(text, type);
}

void CJsonTextWriter::WriteEndElement() {
  CXmlWriterContext& context = GetOpenContext();
  if (context.GetState() == ContextState_CollectionEnd) {
    context.SetState(ContextState_None);
    WriteEOL();
    WriteIndent(context.GetDepth());
    if (GetFormat()) DecrementIndents(&context);
    GetStream().Append(']');
  }
  if (!m_isValuePending) {
    WriteEOL();
    WriteIndent(context.GetDepth());
    GetStream().Append('}');
  }
  PopContext();
  m_isValuePending = false;
}

void CJsonTextWriter::WriteTextElement(const std::string& localName,
                                       const std::string& namespaceUri, std::string_view text,
                                       ItemType type, bool isDefaultValue) {
  CXmlWriterContext* const parent = GetContext();
  const std::string* prefix = nullptr;
  if (parent != nullptr && IsPlain()) {
    prefix = FindElementPrefix(*parent, namespaceUri);
  }
  if (prefix == nullptr) {
    return CXmlWriter::WriteTextElement(localName, namespaceUri, text, type, isDefaultValue);
  }
  const bool hasName = parent->GetState() != ContextState_ArrayOpen;
  WriteOpenBrackets(*parent);
  WriteIndent(parent->GetDepth() + 1);
  if (hasName) WriteName({}, *prefix, localName);
  WriteValue(text, type);
  m_isValuePending = false;
}

void CJsonTextWriter::WriteAttributeString(const std::string& localName,
                                           const std::string& namespaceUri,
                                           const std::string& value, ItemType type) {
  AppendAttribute(localName, namespaceUri, value, type);
}

void CJsonTextWriter::WriteTextAttribute(const std::string& localName,
                                         const std::string& namespaceUri, std::string_view value,
                                         ItemType type) {
  if (!IsPlain()) return CXmlWriter::WriteTextAttribute(localName, namespaceUri, value, type);
  AppendAttribute(localName, namespaceUri, value, type);
}

void CJsonTextWriter::AppendAttribute(const std::string& localName, const std::string& namespaceUri,
                                      std::string_view value, ItemType type) {
  CXmlWriterContext& context = GetOpenContext();
  WriteOpenBrackets(context);
  WriteIndent(context.GetDepth() + 1);
  std::string_view prefix;
  if (IsFull() && !namespaceUri.empty()) {
    prefix = context.GetNamespaceMapValue(namespaceUri);
    if (prefix.empty()) ThrowUnknownNamespace(localName);
  }
  WriteName(GetAttributeMark(), prefix, localName);
  WriteValue(value, type);
  m_isValuePending = false;
}

void CJsonTextWriter::WriteAttributeType(const std::string& typeNamespace,
                                         const std::string& typeName, ItemType type) {
  const CXmlWriterContext& context = GetOpenContext();
  if (!IsFull()) return;
  m_typeValue.clear();
  if (!context.IsUnprefixed(typeNamespace)) {
    m_typeValue = context.GetNamespaceMapValue(typeNamespace);
    if (m_typeValue.empty()) ThrowUnknownNamespace(typeName);
    m_typeValue += ':';
  }
  m_typeValue += typeName;
  WriteAttributeString("type", GetXsiNamespace(), m_typeValue, type);
}

void CJsonTextWriter::WriteAttributeNil() { GetOpenContext(); }

void CJsonTextWriter::WriteName(std::string_view mark, std::string_view prefix,
                                std::string_view localName) {
  CTextStream& stream = GetStream();
  if (detail::AppendName(stream, mark, prefix, localName)) return;
  stream.Append('"');
  stream.Append(mark.data(), mark.size());
  if (!prefix.empty()) {
    stream.Append(prefix.data(), prefix.size());
    stream.Append(':');
  }
  stream.Append(localName.data(), localName.size());
  detail::AppendLiteral(stream, "\": ");
}

void CJsonTextWriter::WriteValue(std::string_view text, ItemType type) {
  if (IsBare(type)) return GetStream().Append(text.data(), text.size());
  if (detail::AppendQuoted<detail::TJsonEscapes<false>>(GetStream(), text)) return;
  GetStream().Append('"');
  PadAndAppend(text);
  GetStream().Append('"');
}

void CJsonTextWriter::PadAndAppend(std::string_view text) {
  CTextStream& stream = GetStream();
  const char* run = text.data();
  const char* const end = run + text.size();
  for (const char* rest = run;;) {
    const char* const found = detail::FindEscaped<detail::TJsonEscapes<false>>(rest, end);
    rest = found + 1;
    // Kept: these are no escapes, so the run goes on.
    if (found != end && (*found == '\t' || *found == '\b' || *found == '\f')) continue;
    stream.Append(run, static_cast<size_t>(found - run));
    // Kept: the first zero byte ends the text.
    if (found == end || *found == '\0') return;
    // Kept: carriage returns are lost.
    if (*found == '\n') {
      stream.Append(GetEOL());
    } else if (*found != '\r') {
      detail::AppendUnicodeEscape(stream, *found);
    }
    run = rest;
  }
}

}  // namespace QvXmlLib16
