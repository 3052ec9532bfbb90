// Finds strings among those that a document has had.

#ifndef QVXML_FASTINFOSET_FI_STRING_INDEX_INTERNAL_H_
#define QVXML_FASTINFOSET_FI_STRING_INDEX_INTERNAL_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "qvxml/xml/short_copy.h"

namespace QvXmlLib16::detail {

/// The bytes of the strings of several indices, one after the other.
class CFIStringBytes {
 public:
  /// The text may be one of those that are here.
  size_t Add(std::string_view text) {
    if (m_capacity - m_length < text.size()) return AddWithMoreRoom(text);
    const size_t offset = m_length;
    CopyShort(m_bytes.get() + offset, text.data(), text.size());
    m_length += text.size();
    return offset;
  }
  const char* At(size_t offset) const noexcept { return m_bytes.get() + offset; }

 private:
  size_t AddWithMoreRoom(std::string_view text);

  std::unique_ptr<char[]> m_bytes;
  size_t m_length = 0;
  size_t m_capacity = 0;
};

/// A hash table from strings to their numbers, which begin at 1 and follow the order of addition.
/// Each string stands with a tag: strings are equal only with equal tags.
///
///   m_slots    open addressing, at most half full: hash and number
///   m_entries  by number: tag and place of the bytes
class CFIStringIndex {
 public:
  explicit CFIStringIndex(CFIStringBytes& bytes) noexcept : m_bytes(bytes) {}
  CFIStringIndex(const CFIStringIndex&) = delete;
  CFIStringIndex& operator=(const CFIStringIndex&) = delete;

  unsigned GetCount() const noexcept { return static_cast<unsigned>(m_entries.size()); }
  size_t GetLongest() const noexcept { return m_longest; }
  std::string_view GetText(unsigned number) const noexcept { return TextOf(m_entries[number - 1]); }

  /// The number of the string, or 0.
  unsigned Find(std::string_view text, std::uint64_t tag, std::uint32_t hash) const noexcept {
    if (m_slots.empty()) return 0;
    for (size_t at = hash & m_mask;; at = (at + 1) & m_mask) {
      const Slot& slot = m_slots[at];
      if (slot.number == 0) return 0;
      if (slot.hash == hash && IsEntry(m_entries[slot.number - 1], text, tag)) return slot.number;
    }
  }
  unsigned Find(std::string_view text, std::uint64_t tag = 0) const noexcept {
    return Find(text, tag, Hash(text, tag));
  }

  /// Whether the string has that number, which is taken.
  bool IsNumberOf(unsigned number, std::string_view text, std::uint64_t tag) const noexcept {
    return IsEntry(m_entries[number - 1], text, tag);
  }

  /// Adds a string that is not there, with the hash that Hash() gives; it takes the next number.
  void AddNew(std::string_view text, std::uint64_t tag, std::uint32_t hash);
  /// Adds a string. One that is there already takes a number too, but is found by its first one.
  void Add(std::string_view text, std::uint64_t tag = 0);

  std::uint32_t Hash(std::string_view text, std::uint64_t tag) const noexcept {
    const char* const bytes = text.data();
    const size_t length = text.size();
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (length >= 8) {
      first = HashBlocks(bytes, length);
      last = Load<std::uint64_t>(bytes + length - 8);
    } else if (length >= 4) {
      first = Load<std::uint32_t>(bytes);
      last = Load<std::uint32_t>(bytes + length - 4);
    } else if (length != 0) {
      first = static_cast<unsigned char>(bytes[0]);
      last = static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[length / 2])) << 8 |
             static_cast<unsigned char>(bytes[length - 1]);
    }
    return static_cast<std::uint32_t>(Mix(first ^ m_seed, last ^ Mix(tag + length, m_seed)));
  }

 private:
  struct Slot {
    std::uint32_t hash;
    unsigned number;
  };
  struct Entry {
    size_t offset;
    size_t length;
    std::uint64_t tag;
  };

  static constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15u;

  template <class TWord>
  static TWord Load(const char* bytes) noexcept {
    TWord word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
  }
  static std::uint64_t Mix(std::uint64_t left, std::uint64_t right) noexcept {
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(left) * right;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
  }
  // All whole blocks of 8 bytes but for one that ends the text.
  std::uint64_t HashBlocks(const char* bytes, size_t length) const noexcept {
    std::uint64_t hash = Load<std::uint64_t>(bytes);
    for (size_t at = 8; at + 8 < length; at += 8) {
      hash = Mix(hash ^ m_seed, Load<std::uint64_t>(bytes + at) ^ kOdd);
    }
    return hash;
  }
  bool IsEntry(const Entry& entry, std::string_view text, std::uint64_t tag) const noexcept {
    return entry.tag == tag && IsSameText(TextOf(entry), text);
  }
  std::string_view TextOf(const Entry& entry) const noexcept {
    return std::string_view(m_bytes.At(entry.offset), entry.length);
  }
  void Append(std::string_view text, std::uint64_t tag);
  void Grow();
  void Insert(std::uint32_t hash, unsigned number) noexcept;

  CFIStringBytes& m_bytes;
  std::vector<Slot> m_slots;
  size_t m_mask = 0;
  size_t m_used = 0;
  std::vector<Entry> m_entries;
  size_t m_longest = 0;
  // Differs from run to run, so that no document is made to fill one place of every table.
  const std::uint64_t m_seed = Mix(reinterpret_cast<std::uintptr_t>(this) + kOdd, kOdd);
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_FASTINFOSET_FI_STRING_INDEX_INTERNAL_H_
