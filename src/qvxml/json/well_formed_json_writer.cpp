#include "qvxml/json/well_formed_json_writer.h"

#include "qvxml/json/json_text_internal.h"

namespace QvXmlLib16 {

namespace {

using detail::HasEscaped;
using Escapes = detail::TJsonEscapes<true>;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// Moves behind the digits, of which there must be one.
bool SkipDigits(const char*& at, const char* end) {
  if (at == end || !IsDigit(*at)) return false;
  while (at != end && IsDigit(*at)) ++at;
  return true;
}

bool IsJsonNumber(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  if (at != end && *at == '-') ++at;
  const bool startsWithZero = at != end && *at == '0';
  const char* const integer = at;
  if (!SkipDigits(at, end) || (startsWithZero && at - integer > 1)) return false;
  if (at != end && *at == '.' && !SkipDigits(++at, end)) return false;
  if (at != end && (*at == 'e' || *at == 'E')) {
    ++at;
    if (at != end && (*at == '+' || *at == '-')) ++at;
    if (!SkipDigits(at, end)) return false;
  }
  return at == end;
}

bool IsJsonValue(std::string_view text, ItemType type) {
  return type == ItemType_boolean ? text == "true" || text == "false" : IsJsonNumber(text);
}

}  // namespace

CWellFormedJsonWriter::CWellFormedJsonWriter(CTextStream& stream)
    : CJsonWriter(stream, "CWellFormedJsonWriter"), m_levels(1) {
  GetLevel().Reset(0);
}

CWellFormedJsonWriter::~CWellFormedJsonWriter() = default;

// The document

void CWellFormedJsonWriter::WriteStartDocument() {
  OpenObject();
  FlushIfFull();
}

void CWellFormedJsonWriter::WriteEndDocument() {
  CloseObject();
  FlushIfFull();
}

void CWellFormedJsonWriter::WriteComment(const std::string&) {}

// Elements

void CWellFormedJsonWriter::WriteStartElement(const std::string& localName,
                                              const std::string& namespaceUri) {
  const CXmlWriterContext* const owner = GetContext();
  const bool isItem = owner != nullptr && IsCollection(*owner);
  if (owner == nullptr) NoteRoot(typeid(CWellFormedJsonWriter));
  const size_t ownerDepth = m_depth;
  CXmlWriterContext& context = PushContext(localName, namespaceUri, 0);
  try {
    bool isNewPrefix = false;
    std::string_view prefix;
    if (IsFull() && !context.IsUnprefixed(namespaceUri)) {
      // Bound before the name is written, which has it.
      isNewPrefix = BindIfUnbound(context, namespaceUri);
      prefix = context.GetNamespaceMapValue(namespaceUri);
    }
    StartMember(prefix, localName, isItem);
    PushLevel();
    if (isNewPrefix) WriteDeclaration(prefix, namespaceUri);
    if (IsFull() && namespaceUri.empty()) TakeBackDefaultNamespace(context);
    if (ownerDepth == 0 && IsFull()) WriteRootNamespaces();
    FlushIfFull();
  } catch (...) {
    m_depth = ownerDepth;
    PopContext();
    throw;
  }
}

void CWellFormedJsonWriter::StartMember(std::string_view prefix, const std::string& localName,
                                        bool isItem) {
  OpenObject();
  CLevel& owner = GetLevel();
  owner.hasChild = true;
  if (!isItem) return BeginMember({}, prefix, localName);
  if (owner.isArrayOpen && owner.itemName == localName && owner.itemPrefix == prefix) {
    GetStream().Append(',');
  } else {
    OpenArray(prefix, localName);
  }
  BeginLine();
}

bool CWellFormedJsonWriter::BindIfUnbound(CXmlWriterContext& context,
                                          const std::string& namespaceUri) {
  if (!context.GetNamespaceMapValue(namespaceUri).empty()) return false;
  context.SetNamespaceMapValue(namespaceUri, context.GetUniquePrefix());
  return true;
}

// An element in no namespace would come into the default one.
void CWellFormedJsonWriter::TakeBackDefaultNamespace(CXmlWriterContext& context) {
  if (context.GetParent() == nullptr || context.GetDefaultNamespace().empty()) return;
  context.SetDefaultNamespace(std::string());
  WriteDeclaration({}, std::string());
}

void CWellFormedJsonWriter::WriteRootNamespaces() {
  if (!GetRootDefaultNamespace().empty()) WriteDeclaration({}, GetRootDefaultNamespace());
  for (const auto& binding : GetRootNamespaceMap()) {
    if (IsDeclarable(binding)) WriteDeclaration(binding.second, binding.first);
  }
}

void CWellFormedJsonWriter::WriteDeclaration(std::string_view prefix,
                                             const std::string& namespaceUri) {
  OpenObject();
  BeginMember(prefix.empty() ? "@xmlns" : "@xmlns:", {}, prefix);
  WriteQuoted(namespaceUri);
}

void CWellFormedJsonWriter::WriteString(const std::string& text, ItemType type, bool) {
  GetOpenContext();
  CLevel& level = GetLevel();
  // Several parts are no number, whatever each of them is.
  level.textType = level.hasText ? ItemType_string : type;
  level.hasText = true;
  m_text += text;
}

void CWellFormedJsonWriter::WriteEndElement() {
  GetOpenContext();
  WriteText();
  if (GetLevel().isObjectOpen) CloseObject();
  m_text.resize(GetLevel().textBegin);
  --m_depth;
  PopContext();
  FlushIfFull();
}

void CWellFormedJsonWriter::WriteTextElement(const std::string& localName,
                                             const std::string& namespaceUri, std::string_view text,
                                             ItemType type, bool isDefaultValue) {
  const CXmlWriterContext* const owner = GetContext();
  const std::string* prefix = nullptr;
  if (owner != nullptr && IsPlain()) {
    // One that takes back the default namespace has a declaration, and so is an object.
    const bool isDeclaring =
        IsFull() && namespaceUri.empty() && !owner->GetDefaultNamespace().empty();
    if (!isDeclaring) prefix = FindElementPrefix(*owner, namespaceUri);
  }
  if (prefix == nullptr) {
    return CXmlWriter::WriteTextElement(localName, namespaceUri, text, type, isDefaultValue);
  }
  StartMember(*prefix, localName, IsCollection(*owner));
  WriteTextValue(text, type);
}

void CWellFormedJsonWriter::WriteTextValue(std::string_view text, ItemType type) {
  if (text.empty() && IsBare(type)) {
    detail::AppendLiteral(GetStream(), "null");
  } else {
    WriteValue(text, type);
  }
}

bool CWellFormedJsonWriter::IsCollection(const CXmlWriterContext& owner) noexcept {
  return owner.GetState() == ContextState_CollectionBegin ||
         owner.GetState() == ContextState_ArrayOpen;
}

void CWellFormedJsonWriter::WriteText() {
  const CLevel& level = GetLevel();
  const std::string_view text = std::string_view(m_text).substr(level.textBegin);
  // Whether text was given or not tells nothing beside children.
  const bool hasText = level.hasText && !(text.empty() && level.hasChild);
  if (!level.isObjectOpen && !hasText && !level.isNil) OpenObject();
  if (level.isObjectOpen && (hasText || level.isNil)) BeginMember(GetTextName(), {}, {});
  if (hasText) {
    WriteTextValue(text, level.textType);
  } else if (level.isNil) {
    detail::AppendLiteral(GetStream(), "null");
  }
}

// Attributes

void CWellFormedJsonWriter::WriteAttributeString(const std::string& localName,
                                                 const std::string& namespaceUri,
                                                 const std::string& value, ItemType type) {
  AppendAttribute(localName, namespaceUri, value, type);
}

void CWellFormedJsonWriter::WriteTextAttribute(const std::string& localName,
                                               const std::string& namespaceUri,
                                               std::string_view value, ItemType type) {
  if (!IsPlain()) return CXmlWriter::WriteTextAttribute(localName, namespaceUri, value, type);
  AppendAttribute(localName, namespaceUri, value, type);
}

void CWellFormedJsonWriter::AppendAttribute(const std::string& localName,
                                            const std::string& namespaceUri, std::string_view value,
                                            ItemType type) {
  CXmlWriterContext& context = GetOpenContext();
  std::string_view prefix;
  if (IsFull() && !namespaceUri.empty()) {
    const bool isNewPrefix = BindIfUnbound(context, namespaceUri);
    prefix = context.GetNamespaceMapValue(namespaceUri);
    if (isNewPrefix) WriteDeclaration(prefix, namespaceUri);
  }
  OpenObject();
  BeginMember(GetAttributeMark(), prefix, localName);
  WriteValue(value, type);
}

void CWellFormedJsonWriter::WriteAttributeType(const std::string& typeNamespace,
                                               const std::string& typeName, ItemType type) {
  CXmlWriterContext& context = GetOpenContext();
  if (!IsFull()) return;
  m_typeValue.clear();
  if (!context.IsUnprefixed(typeNamespace)) {
    const bool isNewPrefix = BindIfUnbound(context, typeNamespace);
    m_typeValue = context.GetNamespaceMapValue(typeNamespace);
    if (isNewPrefix) WriteDeclaration(m_typeValue, typeNamespace);
    m_typeValue += ':';
  }
  m_typeValue += typeName;
  WriteAttributeString("type", GetXsiNamespace(), m_typeValue, type);
}

void CWellFormedJsonWriter::WriteAttributeNil() {
  GetOpenContext();
  GetLevel().isNil = true;
}

// Levels

void CWellFormedJsonWriter::CLevel::Reset(size_t newTextBegin) {
  isObjectOpen = hasMember = hasChild = isNil = hasText = isArrayOpen = false;
  textType = ItemType_string;
  textBegin = newTextBegin;
}

void CWellFormedJsonWriter::PushLevel() {
  if (m_depth + 1 == m_levels.size()) m_levels.emplace_back();
  ++m_depth;
  GetLevel().Reset(m_text.size());
}

void CWellFormedJsonWriter::OpenObject() {
  CLevel& level = GetLevel();
  if (level.isObjectOpen) return;
  level.isObjectOpen = true;
  level.hasMember = false;
  ++m_indent;
  GetStream().Append('{');
}

void CWellFormedJsonWriter::CloseObject() {
  CloseArray();
  CLevel& level = GetLevel();
  level.isObjectOpen = false;
  --m_indent;
  if (level.hasMember) BeginLine();
  GetStream().Append('}');
}

void CWellFormedJsonWriter::OpenArray(std::string_view prefix, const std::string& localName) {
  BeginMember({}, prefix, localName);
  CLevel& level = GetLevel();
  level.isArrayOpen = true;
  level.itemPrefix = prefix;
  level.itemName = localName;
  ++m_indent;
  GetStream().Append('[');
}

void CWellFormedJsonWriter::CloseArray() {
  CLevel& level = GetLevel();
  if (!level.isArrayOpen) return;
  level.isArrayOpen = false;
  --m_indent;
  BeginLine();
  GetStream().Append(']');
}

void CWellFormedJsonWriter::BeginMember(std::string_view mark, std::string_view prefix,
                                        std::string_view localName) {
  CloseArray();
  CTextStream& stream = GetStream();
  CLevel& level = GetLevel();
  if (level.hasMember) stream.Append(',');
  level.hasMember = true;
  BeginLine();
  if ((prefix.empty() || !HasEscaped<Escapes>(prefix)) && !HasEscaped<Escapes>(localName) &&
      detail::AppendName(stream, mark, prefix, localName)) {
    return;
  }
  stream.Append('"');
  stream.Append(mark.data(), mark.size());
  if (!prefix.empty()) {
    AppendEscaped(prefix);
    stream.Append(':');
  }
  AppendEscaped(localName);
  detail::AppendLiteral(stream, "\": ");
}

void CWellFormedJsonWriter::BeginLine() {
  WriteEOL();
  WriteIndent(m_indent);
}

// Values

void CWellFormedJsonWriter::WriteValue(std::string_view text, ItemType type) {
  if (IsBare(type) && IsJsonValue(text, type)) {
    GetStream().Append(text.data(), text.size());
  } else {
    WriteQuoted(text);
  }
}

void CWellFormedJsonWriter::WriteQuoted(std::string_view text) {
  if (detail::AppendQuoted<Escapes>(GetStream(), text)) return;
  GetStream().Append('"');
  AppendEscaped(text);
  GetStream().Append('"');
}

void CWellFormedJsonWriter::AppendEscaped(std::string_view text) {
  CTextStream& stream = GetStream();
  const char* run = text.data();
  const char* const end = run + text.size();
  for (;;) {
    const char* const found = detail::FindEscaped<Escapes>(run, end);
    stream.Append(run, static_cast<size_t>(found - run));
    if (found == end) return;
    detail::AppendEscape(stream, *found);
    run = found + 1;
  }
}

}  // namespace QvXmlLib16
