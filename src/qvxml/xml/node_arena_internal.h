// Memory of one document's nodes: a pool that recycles what is deleted, and the names and texts
// that nodes share.
//
//   chunk (aligned to its size)            free lists, one for each multiple of 16 bytes
//   +--------+-------+------+-------+      [16] -> block -> block
//   | header | node  | text | node  |      [32] -> text
//   +---|----+-------+------+-------+      [64] -> element -> element
//       +--> arena                         ...
//
// The chunks of a large document are cut from regions.
//
// A node finds its arena, and through it its document, by rounding its own address down to the
// chunk. So `delete element` needs no pointer in the element, and an element that was removed from
// the tree may outlive the document: the arena goes with the last of them.

#ifndef QVXML_XML_NODE_ARENA_INTERNAL_H_
#define QVXML_XML_NODE_ARENA_INTERNAL_H_

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <new>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvxml/xml/memory_region_internal.h"

#if defined(__SANITIZE_ADDRESS__)
#define QVXML_POISONS_FREE_NODES 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QVXML_POISONS_FREE_NODES 1
#endif
#endif
#ifdef QVXML_POISONS_FREE_NODES
#include <sanitizer/asan_interface.h>
#endif

namespace QvXmlLib16 {

class CXmlDocument;  // xml/xml_document.h

namespace detail {

/// Separates namespace URI and local name in what expat reports, and in the keys of names.
inline constexpr char kNameSeparator = '|';

/// The number of the class metadata that a name was last found to be that of, 0 for none: spares
/// comparing the texts again. Threads may read one document, and so race for it; each finds a
/// number that is right.
class CNameMatch {
 public:
  CNameMatch() = default;
  CNameMatch(const CNameMatch& other) : m_number(other.Get()) {}
  CNameMatch& operator=(const CNameMatch&) = delete;

  uint64_t Get() const { return m_number.load(std::memory_order_relaxed); }
  void Set(uint64_t number) const { m_number.store(number, std::memory_order_relaxed); }

 private:
  mutable std::atomic<uint64_t> m_number{0};
};

/// One pair of namespace URI and local name; every node of that name points to it.
struct CXmlName {
  /// URI, separator and local name; the local name alone without a namespace.
  std::string key;
  size_t namespaceLength;
  const std::string* namespaceUri;
  std::string localName;
  /// The names that came after this one most recently; documents repeat their sequences, so these
  /// usually answer what the next name is without a search.
  mutable std::array<const CXmlName*, 2> followers{};
  /// For readers: the element that last had an attribute of this name, in their own count.
  mutable size_t lastElement = 0;
  CNameMatch elementMatch{};
  CNameMatch attributeMatch{};
  /// As CXmlAttribute::IsNamespaceAttribute and IsNilAttribute say of an attribute of this name.
  bool isNamespaceAttribute = false;
  bool isNilAttribute = false;
};

class CNodeArena {
 public:
  explicit CNodeArena(const CXmlDocument* document);
  CNodeArena(const CNodeArena&) = delete;
  CNodeArena& operator=(const CNodeArena&) = delete;

  /// The arena that a node of at most kMaxPooledSize bytes came from.
  static CNodeArena& Of(const void* node) noexcept { return *ChunkOf(node)->arena; }

  /// Null once the document has let go of its nodes.
  const CXmlDocument* GetDocument() const noexcept { return m_document; }
  /// Gives memory back that only more nodes would need; called when there probably are no more.
  void ReleaseUnused() noexcept;
  /// Called by the document in place of deleting the arena, which lives on while elements do.
  void Abandon() noexcept;

  void* AllocateElement(size_t size) {
    void* memory = Allocate(size);
    ++m_liveElements;
    return memory;
  }
  /// May destroy the arena.
  void FreeElement(void* memory, size_t size) noexcept;

  // A document that is only read and then goes is regular: its nodes were never destroyed one by
  // one or taken from the tree, and texts that were noted are all that they own outside the arena.
  // So its nodes need not be visited when it goes.

  bool IsRegular() const noexcept { return m_isRegular; }
  void SetIrregular() noexcept { m_isRegular = false; }
  /// For a text of a node that has just been made.
  void NoteText(std::string* text) noexcept {
    if (text->size() > kMaxTextInPlace) NoteLongText(text);
  }
  void NoteAttribute() noexcept { ++m_attributes; }
  size_t GetLiveElements() const noexcept { return m_liveElements; }
  /// Counts while the arena is regular.
  size_t GetAttributes() const noexcept { return m_attributes; }
  /// For a document that is read once and then goes, and that only its reader sees: it may move the
  /// texts of the nodes out.
  void SetExpendable() noexcept { m_isExpendable = true; }
  bool IsExpendable() const noexcept { return m_isExpendable; }
  /// Destroys all nodes of a regular document, and the arena.
  void DestroyAll() noexcept;

  /// Memory aligned to 16 bytes; larger blocks than kMaxPooledSize come from the heap.
  void* Allocate(size_t size) {
    const size_t sizeClass = SizeClass(size);
    if (sizeClass >= kSizeClasses) {
      SetIrregular();
      return ::operator new(size);
    }
    if (void* memory = m_freeLists[sizeClass]; memory != nullptr) {
      Unpoison(memory, size);
      m_freeLists[sizeClass] = static_cast<CFreeBlock*>(memory)->next;
      return memory;
    }
    const size_t rounded = sizeClass * kGranularity;
    if (static_cast<size_t>(m_chunkEnd - m_chunkNext) < rounded) AddChunk();
    return std::exchange(m_chunkNext, m_chunkNext + rounded);
  }
  void Free(void* memory, size_t size) noexcept {
    const size_t sizeClass = SizeClass(size);
    if (sizeClass >= kSizeClasses) return ::operator delete(memory);
    m_freeLists[sizeClass] = ::new (memory) CFreeBlock{m_freeLists[sizeClass]};
    Poison(memory, size);
  }

  /// The one record of a name, where `key` is as in CXmlName.
  const CXmlName* Intern(std::string_view key, size_t namespaceLength);
  const CXmlName* Intern(std::string_view namespaceUri, std::string_view localName);

  const std::string* EmptyText() const noexcept { return m_sharedTexts.data(); }
  /// A string equal to `text`, which is not empty, that no node owns, or null when such a text is
  /// not worth sharing. Whitespace between elements is: every record of a formatted document has
  /// the same.
  const std::string* FindSharedText(std::string_view text) {
    // No other character that documents hold is below a blank, and few texts begin with one.
    const bool mayBeWhitespace = text.front() >= '\0' && text.front() <= ' ';
    return mayBeWhitespace && text.size() <= kMaxSharedText ? FindSharedWhitespace(text) : nullptr;
  }
  /// A copy of `text` that no node owns; it lives as long as the arena.
  const std::string* AddSharedText(std::string_view text);
  bool IsSharedText(const std::string* text) const noexcept {
    return (text >= m_sharedTexts.data() && text < m_sharedTexts.data() + m_sharedTexts.size()) ||
           ChunkOf(text)->sharedTexts != 0;
  }

 private:
  static constexpr size_t kChunkSize = 32768;
  // What malloc keeps beside a block, so that aligned chunks lie next to each other.
  static constexpr size_t kHeapOverhead = 16;
  static constexpr size_t kUsableChunkSize = kChunkSize - kHeapOverhead;
  // Documents below 1 MB have none, as the end of a region is taken from the system in vain.
  static constexpr size_t kChunksBeforeRegions = 32;
  static constexpr size_t kGranularity = 16;
  static constexpr size_t kMaxPooledSize = 1024;
  static constexpr size_t kSizeClasses = kMaxPooledSize / kGranularity + 1;
  static constexpr size_t kSharedTexts = 128;
  static constexpr size_t kMaxSharedText = 512;
  // What a string holds within itself.
  static constexpr size_t kMaxTextInPlace = 15;

  struct alignas(kGranularity) CChunk {
    CNodeArena* arena;
    CChunk* next;
    // How many strings it begins with; 0 for a chunk of nodes.
    size_t sharedTexts : 63;
    size_t isInRegion : 1;

    std::string* Texts() noexcept { return reinterpret_cast<std::string*>(this + 1); }
  };
  static constexpr size_t kLongTextsInList = 62;
  // In the arena, so that noting a text takes no more memory than a pointer.
  struct CLongTexts {
    CLongTexts* next;
    size_t count;
    std::array<std::string*, kLongTextsInList> texts;

    void DestroyTexts() noexcept;
  };
  struct CFreeBlock {
    CFreeBlock* next;
  };
  struct CNameOrder {
    using is_transparent = void;
    using Key = std::pair<std::string_view, size_t>;
    static Key KeyOf(const CXmlName& name) { return {name.key, name.namespaceLength}; }
    static Key KeyOf(const Key& key) { return key; }
    template <class T, class U>
    bool operator()(const T& left, const U& right) const {
      return KeyOf(left) < KeyOf(right);
    }
  };

  ~CNodeArena();

  static constexpr size_t SizeClass(size_t size) {
    return (size + kGranularity - 1) / kGranularity;
  }
  static void Poison([[maybe_unused]] void* memory, [[maybe_unused]] size_t size) noexcept {
#ifdef QVXML_POISONS_FREE_NODES
    ASAN_POISON_MEMORY_REGION(memory, size);
#endif
  }
  static void Unpoison([[maybe_unused]] void* memory, [[maybe_unused]] size_t size) noexcept {
#ifdef QVXML_POISONS_FREE_NODES
    ASAN_UNPOISON_MEMORY_REGION(memory, size);
#endif
  }

  static const CChunk* ChunkOf(const void* node) noexcept {
    const size_t offset = reinterpret_cast<uintptr_t>(node) & (kChunkSize - 1);
    return reinterpret_cast<const CChunk*>(static_cast<const char*>(node) - offset);
  }
  void NoteLongText(std::string* text) noexcept;
  const std::string* FindSharedWhitespace(std::string_view text);
  CChunk* MakeChunk(CChunk* next);
  void* TakeFromRegion();
  void AddChunk();
  // Returns the chunk after it.
  static CChunk* FreeChunk(CChunk* chunk) noexcept;

  const CXmlDocument* m_document;
  size_t m_liveElements = 0;
  size_t m_attributes = 0;
  bool m_isRegular = true;
  bool m_isExpendable = false;
  CLongTexts* m_longTexts = nullptr;
  char* m_chunkNext = nullptr;
  char* m_chunkEnd = nullptr;
  CChunk* m_chunks = nullptr;
  size_t m_heapChunks = 0;
  char* m_regionNext = nullptr;
  char* m_regionEnd = nullptr;
  std::vector<CMemoryRegion> m_regions;
  CChunk* m_textChunks = nullptr;
  std::array<CFreeBlock*, kSizeClasses> m_freeLists{};
  std::set<CXmlName, CNameOrder> m_names;
  std::set<std::string, std::less<>> m_namespaces;
  std::string m_key;
  // The first stays empty; another, once set, keeps its text.
  std::array<std::string, kSharedTexts> m_sharedTexts;
};

}  // namespace detail

}  // namespace QvXmlLib16

#endif  // QVXML_XML_NODE_ARENA_INTERNAL_H_
