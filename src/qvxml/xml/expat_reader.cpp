#include "qvxml/xml/expat_reader.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

// The header shows the limits on entities to those who say that the parser knows entities.
#ifndef XML_DTD
#define XML_DTD 1
#endif
#ifndef XML_GE
#define XML_GE 1
#endif
#include <expat.h>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/locale_text.h"
#include "qvxml/xml/byte_source_internal.h"
#include "qvxml/xml/dom_text_internal.h"
#include "qvxml/xml/node_arena_internal.h"
#include "qvxml/xml/repetition_limit_internal.h"
#include "qvxml/xml/short_copy.h"
#include "qvxml/xml/xml_building_internal.h"
#include "qvxml/xml/xml_document.h"

namespace QvXmlLib16 {

// Earlier versions expand nested entities without bound.
static_assert(XML_MAJOR_VERSION * 10000 + XML_MINOR_VERSION * 100 + XML_MICRO_VERSION >= 20400);
static_assert(std::is_same_v<XML_Char, char>);

using detail::CXmlName;

namespace {

// The parser copies what it is given at once, but in pieces it counts lines as it goes, which costs
// a tenth of the time: large inputs come in pieces.
constexpr size_t kLargeInput = size_t{32} << 20;
constexpr size_t kFirstPiece = size_t{1} << 20;
// What the parser has not finished with is kept, with some context, in a buffer that it doubles up
// to this.
constexpr size_t kMaxBuffer = size_t{1} << 30;
constexpr size_t kMaxContext = 4096;
// So much of that must be free for going on.
constexpr size_t kMaxToken = kMaxBuffer - (size_t{64} << 20);

constexpr size_t kFirstOpenText = 1024;
// What is copied without a call.
constexpr size_t kShortText = 16;

// The parser does not report every allocation that fails: it may say that a prefix is unbound, or
// nothing. So it allocates through functions that take note, each thread for itself.
constinit thread_local bool t_isMemoryShort = false;

void* TakeNote(void* block) noexcept {
  if (block == nullptr) t_isMemoryShort = true;
  return block;
}

// The note of one parse, beside that of a parse around it.
class CShortMemoryNote {
 public:
  CShortMemoryNote() : m_before(std::exchange(t_isMemoryShort, false)) {}
  ~CShortMemoryNote() { t_isMemoryShort = m_before; }
  CShortMemoryNote(const CShortMemoryNote&) = delete;
  CShortMemoryNote& operator=(const CShortMemoryNote&) = delete;
  bool IsTaken() const { return t_isMemoryShort; }

 private:
  const bool m_before;
};

constexpr XML_Memory_Handling_Suite kMemory = {
    [](size_t size) { return TakeNote(std::malloc(size)); },
    [](void* block, size_t size) { return TakeNote(std::realloc(block, size)); },
    [](void* block) { std::free(block); }};

[[noreturn]] void ThrowEntityMissing(XML_Parser parser, const std::string& entity) {
  throw CQvException(FormatString("The entity [%s] is not fetched at line %lu", entity.c_str(),
                                  static_cast<unsigned long>(XML_GetCurrentLineNumber(parser))));
}

}  // namespace

constinit CInstanceCounter CExpatReader::s_instances("CExpatReader");

CExpatReader::CExpatReader(CXmlDocument& document)
    : m_document(document), m_convertsText(!IsLocaleTextUtf8()) {}

CExpatReader::~CExpatReader() { Cleanup(); }

void CExpatReader::Cleanup() noexcept {
  if (m_parser != nullptr) XML_ParserFree(std::exchange(m_parser, nullptr));
}

void CExpatReader::CreateParser() {
  Cleanup();
  const char* encoding = m_document.m_inputEncoding;
  const char separator[] = {detail::kNameSeparator, '\0'};
  m_parser =
      XML_ParserCreate_MM(encoding, &kMemory, m_document.m_usesNamespaces ? separator : nullptr);
  if (m_parser == nullptr) throw std::bad_alloc();
  m_arena = &m_document.Arena();
  XML_SetUserData(m_parser, this);
  XML_SetElementHandler(m_parser, FnStartElement, FnEndElement);
  XML_SetNamespaceDeclHandler(m_parser, FnStartNamespace, FnEndNamespace);
  XML_SetCharacterDataHandler(m_parser, FnText);
  if (!m_document.StripsCDATA()) {
    XML_SetCdataSectionHandler(m_parser, FnStartCDATA, FnEndCDATA);
  }
  m_hasDocumentType = false;
  XML_SetStartDoctypeDeclHandler(m_parser, FnStartDocumentType);
  // What an entity that is not fetched stands for would be missing from the text. Parameter
  // entities stand in document types, which have none.
  XML_SetSkippedEntityHandler(m_parser, [](void* userData, const char* name, int isParameter) {
    if (isParameter != 0) return;
    Guard(userData, [name](CExpatReader& reader) {
      ThrowEntityMissing(reader.m_parser, reader.ToInternalText(name));
    });
  });
  XML_SetExternalEntityRefHandler(
      m_parser, [](XML_Parser parser, const char*, const char*, const char* systemId, const char*) {
        Guard(XML_GetUserData(parser), [systemId](CExpatReader& reader) {
          ThrowEntityMissing(reader.m_parser, reader.ToInternalText(systemId));
        });
        return int{XML_STATUS_ERROR};
      });
  SetEntityLimit();
}

// The parser's own limit, on what entities expand to, is past the same 8 MiB.
void CExpatReader::SetEntityLimit() {
  const unsigned ratio = m_document.GetMaxAmplification();
  XML_SetBillionLaughsAttackProtectionMaximumAmplification(
      m_parser, ratio != 0 ? static_cast<float>(ratio) : std::numeric_limits<float>::max());
}

template <class TFeed>
void CExpatReader::NoteShortMemory(TFeed feed) {
  // A callback may parse another document meanwhile.
  const CShortMemoryNote note;
  const bool isParsed = feed();
  if (isParsed && !note.IsTaken()) return;
  FlushOpenText();
  if (m_failure != nullptr) std::rethrow_exception(m_failure);
  const XML_Error code = XML_GetErrorCode(m_parser);
  if (note.IsTaken() && code != XML_ERROR_NO_MEMORY) throw std::bad_alloc();
  ThrowParseError(code);
}

void CExpatReader::Parse(bool isFinal) {
  m_repetitionLimit =
      detail::RepetitionLimit(m_document.m_inputLength, m_document.GetMaxAmplification());
  NoteShortMemory([&] { return Feed(isFinal); });
  if (isFinal) Cleanup();
}

void CExpatReader::Parse(detail::IByteSource& input) {
  NoteShortMemory([&] { return Feed(input); });
  Cleanup();
}

bool CExpatReader::Feed(bool isFinal) {
  const char* const data = reinterpret_cast<const char*>(m_document.m_input);
  const size_t length = m_document.m_inputLength;
  const size_t firstPiece = length <= kLargeInput ? kLargeInput : kFirstPiece;
  size_t piece = firstPiece;
  for (size_t position = 0;;) {
    const size_t count = std::min(length - position, piece);
    const bool isLast = isFinal && position + count == length;
    if (XML_Parse(m_parser, data + position, static_cast<int>(count), isLast) != XML_STATUS_OK) {
      return false;
    }
    position += count;
    if (position == length) return true;
    piece = NextPiece(piece, firstPiece, position);
  }
}

bool CExpatReader::Feed(detail::IByteSource& input) {
  size_t piece = kFirstPiece;
  for (size_t position = 0;;) {
    void* const room = XML_GetBuffer(m_parser, static_cast<int>(piece));
    if (room == nullptr) return false;
    size_t count = 0;
    try {
      count = input.Read(room, piece);
    } catch (...) {
      m_failure = std::current_exception();
      return false;
    }
    position += count;
    m_repetitionLimit = detail::RepetitionLimit(position, m_document.GetMaxAmplification());
    const bool isLast = count < piece;
    if (XML_ParseBuffer(m_parser, static_cast<int>(count), isLast) != XML_STATUS_OK) return false;
    if (isLast) return true;
    piece = NextPiece(piece, kFirstPiece, position);
  }
}

// A token that did not fit is read again from its start, so pieces grow with it.
size_t CExpatReader::NextPiece(size_t piece, size_t smallest, size_t fed) {
  const size_t unparsed = fed - static_cast<size_t>(XML_GetCurrentByteIndex(m_parser));
  if (unparsed <= piece / 2) return smallest;
  if (unparsed > kMaxToken) ThrowTokenTooLong();
  return std::min(2 * piece, kMaxBuffer - kMaxContext - unparsed);
}

void CExpatReader::ThrowTokenTooLong() {
  FlushOpenText();
  throw CQvException(
      FormatString("A tag, a comment or the like is longer than %lu bytes at line %lu",
                   static_cast<unsigned long>(kMaxToken),
                   static_cast<unsigned long>(XML_GetCurrentLineNumber(m_parser))));
}

void CExpatReader::ThrowParseError(int code) const {
  throw CQvException(FormatString("%s at line %lu", XML_ErrorString(static_cast<XML_Error>(code)),
                                  static_cast<unsigned long>(XML_GetCurrentLineNumber(m_parser))));
}

void CExpatReader::ThrowDocumentTypeRefused() const {
  throw CQvException(FormatString("The document type declaration is refused at line %lu",
                                  static_cast<unsigned long>(XML_GetCurrentLineNumber(m_parser))));
}

inline void CExpatReader::StartElement(const char* name, const char** atts) {
  const CXmlName* elementName = ReadName(name);
  CXmlElement* element = m_document.m_documentElement == nullptr
                             ? m_document.AddDocElement(elementName)
                             : m_document.AddChildElement(elementName);
  m_openTextStarts.push_back(m_openTextSize);
  if (*atts != nullptr) AddAttributes(element, atts);
}

inline void CExpatReader::AddAttributes(CXmlElement* element, const char** atts) {
  size_t count = 0;
  while (atts[2 * count] != nullptr) ++count;
  const size_t specified = static_cast<size_t>(XML_GetSpecifiedAttributeCount(m_parser)) / 2;
  element->ReserveAttributes(*m_arena, count);
  for (size_t i = 0; i < count; ++i) {
    const CXmlName* name = ReadName(atts[2 * i]);
    const char* value = atts[2 * i + 1];
    if (m_convertsText) value = (m_converted = ToInternalText(value)).c_str();
    const std::string_view text = value;
    // Attributes that the document type adds cost the input nothing.
    if (i >= specified) ChargeRepetition(sizeof(CXmlAttribute) + text.size());
    element->AppendAttribute(*m_arena, name, text);
  }
}

// Gives an element the text from `start` on.
inline void CExpatReader::TakeOpenText(CXmlElement& element, size_t start) {
  if (m_openTextSize == start) return;
  std::string_view text(m_openText.data() + start, m_openTextSize - start);
  if (m_hasReturn) text = WithoutReturns(text);
  element.AppendWholeText(*m_arena, text);
  m_openTextSize = start;
  if (start == 0) m_hasReturn = false;
}

std::string_view CExpatReader::WithoutReturns(std::string_view text) {
  m_converted.clear();
  detail::AppendExcludingCR(m_converted, text.data(), text.size());
  return m_converted;
}

inline void CExpatReader::EndElement() {
  const size_t start = m_openTextStarts.back();
  m_openTextStarts.pop_back();
  TakeOpenText(*m_document.m_openElements.back(), start);
  // The callback may look at the elements around the one that it is given.
  if (m_document.m_callback != nullptr) FlushOpenText();
  m_document.CloseElement();
}

// The parser turns line ends into line feeds; only a character reference makes a carriage return.
// It is reported by itself, or within the text of an entity.
inline void CExpatReader::NoteReturn(const char* text, size_t length) {
  const bool isReturn =
      length == 1 ? *text == '\r' : m_hasDocumentType && std::memchr(text, '\r', length) != nullptr;
  if (isReturn) m_hasReturn = true;
}

inline void CExpatReader::AppendText(const char* text, size_t length) {
  NoteReturn(text, length);
  if (m_convertsText) {
    AppendOpenText(Utf8ToLocalCodePage(text, length));
  } else {
    AppendOpenText({text, length});
  }
}

inline void CExpatReader::AppendOpenText(std::string_view text) {
  if (m_openText.size() - m_openTextSize < text.size()) WidenOpenText(text.size());
  detail::CopyShort(m_openText.data() + m_openTextSize, text.data(), text.size());
  m_openTextSize += text.size();
}

void CExpatReader::WidenOpenText(size_t length) {
  m_openText.resize(std::max(2 * m_openText.size(), m_openTextSize + length + kFirstOpenText));
}

void CExpatReader::StartNamespace(const char* prefix, const char* uri) {
  const auto toInternal = [this](const char* text) {
    return text != nullptr ? ToInternalText(text) : std::string();
  };
  m_document.AddNamespacePrefix(toInternal(prefix).c_str(), toInternal(uri).c_str());
}

// Gives the open elements their text so far, innermost first.
void CExpatReader::FlushOpenText() {
  for (size_t i = m_openTextStarts.size(); i-- > 0 && m_openTextSize != 0;) {
    TakeOpenText(*m_document.m_openElements[i], std::exchange(m_openTextStarts[i], 0));
  }
}

inline const CXmlName* CExpatReader::ReadName(const char* name) {
  if (m_lastName != nullptr && !m_convertsText) {
    auto& followers = m_lastName->followers;
    for (const CXmlName* follower : followers) {
      if (follower == nullptr || std::strcmp(follower->key.c_str(), name) != 0) continue;
      ChargeRepetition(follower->key.size() / detail::kRepeatedNameShare);
      return m_lastName = follower;
    }
  }
  const CXmlName* found = FindName(name);
  if (m_lastName != nullptr) {
    m_lastName->followers = {found, m_lastName->followers.front()};
  }
  return m_lastName = found;
}

// Split before converting: in some encodings the separator is also the second byte of a character.
const CXmlName* CExpatReader::FindName(const char* name) {
  const std::string_view key = name;
  ChargeRepetition(key.size());
  const size_t separator = key.find(detail::kNameSeparator);
  const size_t namespaceLength = separator == std::string_view::npos ? 0 : separator;
  if (!m_convertsText) return m_arena->Intern(key, namespaceLength);
  const size_t localStart = namespaceLength == 0 ? 0 : namespaceLength + 1;
  return m_arena->Intern(ToInternalText(key.substr(0, namespaceLength)),
                         ToInternalText(key.substr(localStart)));
}

std::string CExpatReader::ToInternalText(std::string_view text) const {
  return m_convertsText ? Utf8ToLocalCodePage(text.data(), text.size()) : std::string(text);
}

inline void CExpatReader::ChargeRepetition(size_t bytes) {
  m_repeatedBytes += bytes;
  if (m_repeatedBytes > m_repetitionLimit) ThrowParseError(XML_ERROR_AMPLIFICATION_LIMIT_BREACH);
}

template <class TAction>
void CExpatReader::Guard(void* userData, const TAction& action) noexcept {
  CExpatReader& reader = *static_cast<CExpatReader*>(userData);
  // A stopped parser still reports the ends of what it has begun.
  if (reader.m_failure != nullptr) return;
  try {
    action(reader);
  } catch (...) {
    reader.m_failure = std::current_exception();
    XML_StopParser(reader.m_parser, XML_FALSE);
  }
}

void CExpatReader::FnStartElement(void* userData, const char* name, const char** atts) {
  Guard(userData, [&](CExpatReader& reader) { reader.StartElement(name, atts); });
}

void CExpatReader::FnEndElement(void* userData, const char*) {
  Guard(userData, [](CExpatReader& reader) { reader.EndElement(); });
}

// Called several times for an element, mostly with a few characters that there is room for: those
// are copied with nothing to save and restore.
void CExpatReader::FnText(void* userData, const char* text, int length) {
  CExpatReader& reader = *static_cast<CExpatReader*>(userData);
  const size_t size = static_cast<size_t>(length);
  if (size > kShortText || size > reader.m_openText.size() - reader.m_openTextSize ||
      reader.m_convertsText || reader.m_failure != nullptr) {
    return FnOtherText(userData, text, length);
  }
  reader.NoteReturn(text, size);
  detail::CopyShort(reader.m_openText.data() + reader.m_openTextSize, text, size);
  reader.m_openTextSize += size;
}

void CExpatReader::FnOtherText(void* userData, const char* text, int length) {
  Guard(userData, [&](CExpatReader& self) { self.AppendText(text, static_cast<size_t>(length)); });
}

void CExpatReader::FnStartCDATA(void* userData) {
  Guard(userData, [](CExpatReader& reader) { reader.AppendOpenText("<![CDATA["); });
}

void CExpatReader::FnEndCDATA(void* userData) {
  Guard(userData, [](CExpatReader& reader) { reader.AppendOpenText("]]>"); });
}

void CExpatReader::FnStartDocumentType(void* userData, const char*, const char*, const char*, int) {
  Guard(userData, [](CExpatReader& reader) {
    if (reader.m_document.RefusesDocumentType()) reader.ThrowDocumentTypeRefused();
    reader.m_hasDocumentType = true;
  });
}

void CExpatReader::FnStartNamespace(void* userData, const char* prefix, const char* uri) {
  Guard(userData, [&](CExpatReader& reader) { reader.StartNamespace(prefix, uri); });
}

// Kept: bindings outlive their scope, so paths can name the prefix of any element.
void CExpatReader::FnEndNamespace(void*, const char*) {}

}  // namespace QvXmlLib16
