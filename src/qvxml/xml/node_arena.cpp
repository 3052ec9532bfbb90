// The cold paths of the node arena; the hot ones are in its header.

#include <cstdlib>
#include <memory>
#include <new>

#include "qvxml/xml/node_arena_internal.h"

namespace QvXmlLib16 {
namespace detail {

namespace {

constexpr std::string_view kSchemaInstanceNamespace = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::string_view kXmlnsNamespace = "http://www.w3.org/2000/xmlns/";

void NoteReadingAttribute(CXmlName& name) {
  if (*name.namespaceUri != kSchemaInstanceNamespace && *name.namespaceUri != kXmlnsNamespace) {
    return;
  }
  name.isNilAttribute = name.localName == "nil";
  name.isNamespaceAttribute = name.localName == "xmlns" || name.localName == "type" ||
                              name.localName == "schemaLocation" ||
                              name.localName == "noNamespaceSchemaLocation";
}

}  // namespace

CNodeArena::CNodeArena(const CXmlDocument* document) : m_document(document) {}

CNodeArena::~CNodeArena() {
  while (m_chunks != nullptr) m_chunks = FreeChunk(m_chunks);
  while (m_textChunks != nullptr) {
    std::destroy_n(m_textChunks->Texts(), size_t{m_textChunks->sharedTexts});
    m_textChunks = FreeChunk(m_textChunks);
  }
  for (CMemoryRegion& region : m_regions) {
    Unpoison(region.begin, region.size);
    region.Release();
  }
}

void CNodeArena::Abandon() noexcept {
  m_document = nullptr;
  if (m_liveElements == 0) delete this;
}

void CNodeArena::NoteLongText(std::string* text) noexcept {
  // They would add up while elements of a long document come and go.
  if (!m_isRegular) return;
  try {
    if (m_longTexts == nullptr || m_longTexts->count == kLongTextsInList) {
      m_longTexts = ::new (Allocate(sizeof(CLongTexts))) CLongTexts{m_longTexts, 0, {}};
    }
  } catch (const std::bad_alloc&) {
    return SetIrregular();
  }
  m_longTexts->texts[m_longTexts->count++] = text;
}

// The texts, and the memory of each, lie far from each other and are no longer in a cache: they are
// asked for some texts ahead.
void CNodeArena::CLongTexts::DestroyTexts() noexcept {
  constexpr size_t kAhead = 8;
  for (size_t index = 0; index < count + 2 * kAhead; ++index) {
    if (index < count) __builtin_prefetch(texts[index]);
    if (index >= kAhead && index - kAhead < count)
      __builtin_prefetch(texts[index - kAhead]->data());
    if (index >= 2 * kAhead) std::destroy_at(texts[index - 2 * kAhead]);
  }
}

void CNodeArena::DestroyAll() noexcept {
  for (CLongTexts* list = m_longTexts; list != nullptr; list = list->next) list->DestroyTexts();
  delete this;
}

void CNodeArena::FreeElement(void* memory, size_t size) noexcept {
  Free(memory, size);
  if (--m_liveElements == 0 && m_document == nullptr) delete this;
}

CNodeArena::CChunk* CNodeArena::MakeChunk(CChunk* next) {
  if (m_heapChunks >= kChunksBeforeRegions) {
    if (void* const memory = TakeFromRegion()) return ::new (memory) CChunk{this, next, 0, 1};
  }
  void* memory = nullptr;
  if (posix_memalign(&memory, kChunkSize, kUsableChunkSize) != 0) throw std::bad_alloc();
  ++m_heapChunks;
  return ::new (memory) CChunk{this, next, 0, 0};
}

// Null when the system gives none.
void* CNodeArena::TakeFromRegion() {
  if (m_regionNext == m_regionEnd) {
    m_regions.reserve(m_regions.size() + 1);
    const CMemoryRegion region = CMemoryRegion::Take();
    if (region.begin == nullptr) return nullptr;
    m_regions.push_back(region);
    m_regionNext = region.begin;
    m_regionEnd = region.begin + region.size;
  }
  return std::exchange(m_regionNext, m_regionNext + kChunkSize);
}

void CNodeArena::ReleaseUnused() noexcept {
  if (m_regionNext == m_regionEnd) return;
  CMemoryRegion& region = m_regions.back();
  if (region.Shrink(static_cast<size_t>(m_regionNext - region.begin))) m_regionEnd = m_regionNext;
}

CNodeArena::CChunk* CNodeArena::FreeChunk(CChunk* chunk) noexcept {
  CChunk* const next = chunk->next;
  if (!chunk->isInRegion) std::free(chunk);
  return next;
}

void CNodeArena::AddChunk() {
  m_chunks = MakeChunk(m_chunks);
  m_chunkNext = reinterpret_cast<char*>(m_chunks + 1);
  m_chunkEnd = reinterpret_cast<char*>(m_chunks) + kUsableChunkSize;
}

const std::string* CNodeArena::AddSharedText(std::string_view text) {
  constexpr size_t kTextsInChunk = (kUsableChunkSize - sizeof(CChunk)) / sizeof(std::string);
  if (m_textChunks == nullptr || m_textChunks->sharedTexts == kTextsInChunk) {
    m_textChunks = MakeChunk(m_textChunks);
  }
  std::string* added = ::new (m_textChunks->Texts() + m_textChunks->sharedTexts) std::string(text);
  ++m_textChunks->sharedTexts;
  return added;
}

const CXmlName* CNodeArena::Intern(std::string_view key, size_t namespaceLength) {
  if (const auto found = m_names.find(CNameOrder::Key(key, namespaceLength));
      found != m_names.end()) {
    return &*found;
  }
  const std::string* namespaceUri = &*m_namespaces.emplace(key.substr(0, namespaceLength)).first;
  const size_t localStart = namespaceLength == 0 ? 0 : namespaceLength + 1;
  CXmlName name{std::string(key), namespaceLength, namespaceUri,
                std::string(key.substr(localStart))};
  NoteReadingAttribute(name);
  return &*m_names.insert(std::move(name)).first;
}

const CXmlName* CNodeArena::Intern(std::string_view namespaceUri, std::string_view localName) {
  if (namespaceUri.empty()) return Intern(localName, 0);
  m_key.assign(namespaceUri).push_back(kNameSeparator);
  m_key.append(localName);
  return Intern(m_key, namespaceUri.size());
}

const std::string* CNodeArena::FindSharedWhitespace(std::string_view text) {
  const size_t size = text.size();
  const size_t hash = size * 31 + static_cast<unsigned char>(text[size / 2]) +
                      size_t{7} * static_cast<unsigned char>(text[size / 3]);
  std::string& slot = m_sharedTexts[hash % (kSharedTexts - 1) + 1];
  // A taken slot is never given to another text: elements point to it.
  if (slot.empty() && text.find_first_not_of(" \n\t") == std::string_view::npos) slot = text;
  return slot == text ? &slot : nullptr;
}

}  // namespace detail
}  // namespace QvXmlLib16
