#include <algorithm>
#include <utility>

#include "qvxml/fastinfoset/fi_string_index_internal.h"

namespace QvXmlLib16::detail {

size_t CFIStringBytes::AddWithMoreRoom(std::string_view text) {
  constexpr size_t kFirstCapacity = 1024;
  const size_t capacity = std::max({kFirstCapacity, 2 * m_capacity, m_length + text.size()});
  // Not value-initialised: all of it is written before it is read.
  std::unique_ptr<char[]> bytes(new char[capacity]);
  if (m_length != 0) std::memcpy(bytes.get(), m_bytes.get(), m_length);
  // Until the text is copied, the bytes of before stay: it may be among them.
  m_bytes.swap(bytes);
  m_capacity = capacity;
  return Add(text);
}

void CFIStringIndex::AddNew(std::string_view text, std::uint64_t tag, std::uint32_t hash) {
  if (m_used * 2 >= m_slots.size()) Grow();
  Append(text, tag);
  Insert(hash, GetCount());
}

void CFIStringIndex::Add(std::string_view text, std::uint64_t tag) {
  const std::uint32_t hash = Hash(text, tag);
  if (Find(text, tag, hash) != 0) {
    Append(text, tag);
  } else {
    AddNew(text, tag, hash);
  }
}

void CFIStringIndex::Append(std::string_view text, std::uint64_t tag) {
  m_entries.push_back({m_bytes.Add(text), text.size(), tag});
  m_longest = std::max(m_longest, text.size());
}

void CFIStringIndex::Insert(std::uint32_t hash, unsigned number) noexcept {
  size_t at = hash & m_mask;
  while (m_slots[at].number != 0) at = (at + 1) & m_mask;
  m_slots[at] = {hash, number};
  ++m_used;
}

void CFIStringIndex::Grow() {
  constexpr size_t kFirstSize = 64;
  std::vector<Slot> slots(m_slots.empty() ? kFirstSize : m_slots.size() * 2);
  slots.swap(m_slots);
  m_mask = m_slots.size() - 1;
  m_used = 0;
  for (const Slot& slot : slots) {
    if (slot.number != 0) Insert(slot.hash, slot.number);
  }
}

}  // namespace QvXmlLib16::detail
