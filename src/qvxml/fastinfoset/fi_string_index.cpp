#include <algorithm>

#include "qvxml/fastinfoset/fi_string_index_internal.h"

namespace QvXmlLib16::detail {

unsigned CFIStringIndex::Add(std::string_view text, std::uint64_t tag, std::uint32_t hash) {
  const unsigned number = GetCount() + 1;
  const bool isNew = Find(text, tag, hash) == 0;
  if (isNew && m_used * 2 >= m_slots.size()) Grow();
  m_entries.push_back({m_bytes.Add(text), text.size(), tag});
  m_longest = std::max(m_longest, text.size());
  if (isNew) Insert(hash, number);
  return number;
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
