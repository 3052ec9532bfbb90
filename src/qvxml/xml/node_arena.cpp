// The cold paths of the node arena; the hot ones are in its header.

#include <cstdlib>
#include <memory>
#include <new>

#include <sys/mman.h>

#include "qvxml/xml/node_arena_internal.h"

// Of the leak sanitizer, where the program has it: texts in regions own memory.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizer chose the names.
__attribute__((weak)) void __lsan_register_root_region(const void* begin, size_t size);
__attribute__((weak)) void __lsan_unregister_root_region(const void* begin, size_t size);
// NOLINTEND(bugprone-reserved-identifier)
}

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

char* Map(size_t size) noexcept {
  void* const memory =
      mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return memory != MAP_FAILED ? static_cast<char*>(memory) : nullptr;
}

// Memory aligned to its size, a power of two, or null.
char* MapRegion(size_t size) noexcept {
  const auto beyond = [size](const char* memory) {
    return reinterpret_cast<uintptr_t>(memory) & (size - 1);
  };
  char* region = Map(size);
  if (region != nullptr && beyond(region) != 0) {
    munmap(region, size);
    region = Map(2 * size);
    if (region == nullptr) return nullptr;
    const size_t unused = (size - beyond(region)) & (size - 1);
    if (unused != 0) munmap(region, unused);
    region += unused;
    munmap(region + size, size - unused);
  }
  // Only a wish: without it, or where it is refused, memory comes page by page.
  if (region != nullptr) madvise(region, size, MADV_HUGEPAGE);
  if (region != nullptr && __lsan_register_root_region != nullptr) {
    __lsan_register_root_region(region, size);
  }
  return region;
}

// Gives back what lies behind the first `used` bytes; false when the system does not take it.
bool ShrinkRegion(char* region, size_t size, size_t used) noexcept {
  if (munmap(region + used, size - used) != 0) return false;
  if (__lsan_unregister_root_region != nullptr) {
    __lsan_unregister_root_region(region, size);
    __lsan_register_root_region(region, used);
  }
  return true;
}

void UnmapRegion(char* region, size_t size) noexcept {
  if (__lsan_unregister_root_region != nullptr) __lsan_unregister_root_region(region, size);
  munmap(region, size);
}

}  // namespace

CNodeArena::CNodeArena(const CXmlDocument* document) : m_document(document) {}

CNodeArena::~CNodeArena() {
  while (m_chunks != nullptr) m_chunks = FreeChunk(m_chunks);
  while (m_textChunks != nullptr) {
    std::destroy_n(m_textChunks->Texts(), size_t{m_textChunks->sharedTexts});
    m_textChunks = FreeChunk(m_textChunks);
  }
  for (const CRegion& region : m_regions) {
    Unpoison(region.begin, region.size);
    UnmapRegion(region.begin, region.size);
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

void CNodeArena::DestroyAll() noexcept {
  for (CLongTexts* list = m_longTexts; list != nullptr; list = list->next) {
    for (size_t index = 0; index < list->count; ++index) std::destroy_at(list->texts[index]);
  }
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
    char* const region = MapRegion(kRegionSize);
    if (region == nullptr) return nullptr;
    m_regions.push_back({region, kRegionSize});
    m_regionNext = region;
    m_regionEnd = region + kRegionSize;
  }
  return std::exchange(m_regionNext, m_regionNext + kChunkSize);
}

void CNodeArena::ReleaseUnused() noexcept {
  if (m_regionNext == m_regionEnd) return;
  CRegion& region = m_regions.back();
  const size_t used = static_cast<size_t>(m_regionNext - region.begin);
  if (!ShrinkRegion(region.begin, region.size, used)) return;
  region.size = used;
  m_regionEnd = m_regionNext;
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

const std::string* CNodeArena::FindSharedText(std::string_view text) {
  constexpr std::string_view kWhitespace = " \n\t";
  const size_t size = text.size();
  if (size > kMaxSharedText || kWhitespace.find(text.front()) == std::string_view::npos) {
    return nullptr;
  }
  const size_t hash = size * 31 + static_cast<unsigned char>(text[size / 2]) +
                      size_t{7} * static_cast<unsigned char>(text[size / 3]);
  std::string& slot = m_sharedTexts[hash % (kSharedTexts - 1) + 1];
  // A taken slot is never given to another text: elements point to it.
  if (slot.empty() && text.find_first_not_of(kWhitespace) == std::string_view::npos) slot = text;
  return slot == text ? &slot : nullptr;
}

}  // namespace detail
}  // namespace QvXmlLib16
