// The cold paths of the node arena; the hot ones are in its header.

#include <cstdlib>
#include <memory>
#include <new>

#include "qvxml/xml/node_arena_internal.h"

namespace QvXmlLib16 {
namespace detail {

CNodeArena::CNodeArena(const CXmlDocument* document) : m_document(document) {}

CNodeArena::~CNodeArena() {
  while (m_chunks != nullptr) std::free(std::exchange(m_chunks, m_chunks->next));
  while (m_textChunks != nullptr) {
    std::destroy_n(m_textChunks->Texts(), m_textChunks->sharedTexts);
    std::free(std::exchange(m_textChunks, m_textChunks->next));
  }
}

void CNodeArena::Abandon() noexcept {
  m_document = nullptr;
  if (m_liveElements == 0) delete this;
}

void CNodeArena::FreeElement(void* memory, size_t size) noexcept {
  Free(memory, size);
  if (--m_liveElements == 0 && m_document == nullptr) delete this;
}

void* CNodeArena::AllocateChunk() {
  void* memory = nullptr;
  if (posix_memalign(&memory, kChunkSize, kUsableChunkSize) != 0) throw std::bad_alloc();
  return memory;
}

void CNodeArena::AddChunk() {
  void* memory = AllocateChunk();
  m_chunks = ::new (memory) CChunk{this, m_chunks, 0};
  m_chunkNext = static_cast<char*>(memory) + sizeof(CChunk);
  m_chunkEnd = static_cast<char*>(memory) + kUsableChunkSize;
}

const std::string* CNodeArena::AddSharedText(std::string_view text) {
  constexpr size_t kTextsInChunk = (kUsableChunkSize - sizeof(CChunk)) / sizeof(std::string);
  if (m_textChunks == nullptr || m_textChunks->sharedTexts == kTextsInChunk) {
    m_textChunks = ::new (AllocateChunk()) CChunk{this, m_textChunks, 0};
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
  return &*m_names
               .insert(CXmlName{std::string(key), namespaceLength, namespaceUri,
                                std::string(key.substr(localStart))})
               .first;
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
                      static_cast<unsigned char>(text[size / 3]) * 7u;
  std::string& slot = m_sharedTexts[hash % (kSharedTexts - 1) + 1];
  // A taken slot is never given to another text: elements point to it.
  if (slot.empty() && text.find_first_not_of(kWhitespace) == std::string_view::npos) slot = text;
  return slot == text ? &slot : nullptr;
}

}  // namespace detail
}  // namespace QvXmlLib16
