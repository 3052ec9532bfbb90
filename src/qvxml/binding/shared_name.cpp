#include <array>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>

#include "qvxml/binding/shared_name_internal.h"

namespace QvXmlLib16::detail {

namespace {

constexpr size_t kMaxLength = 256;
constexpr size_t kSlots = 2048;
constexpr size_t kMaxProbes = 16;

using Slot = std::atomic<const std::string*>;

// Open addressing; entries are only ever added, so what was found stays.
constinit std::array<Slot, kSlots> g_names{};

// What was found for a text at an address: literals are where they were.
constexpr int kRecentBits = 9;
constinit std::array<Slot, size_t{1} << kRecentBits> g_recent{};

// The slot of the text, or a free one, or null when there is neither.
Slot* FindSlot(std::string_view text) {
  if (text.size() > kMaxLength) return nullptr;
  const size_t start = std::hash<std::string_view>()(text);
  for (size_t probe = 0; probe < kMaxProbes; ++probe) {
    Slot& slot = g_names[(start + probe) % kSlots];
    const std::string* const held = slot.load(std::memory_order_acquire);
    if (held == nullptr || *held == text) return &slot;
  }
  return nullptr;
}

const std::string* FindOrAdd(std::string_view text) {
  while (Slot* const slot = FindSlot(text)) {
    const std::string* held = slot->load(std::memory_order_acquire);
    if (held != nullptr) return held;
    auto added = std::make_unique<const std::string>(text);
    if (slot->compare_exchange_strong(held, added.get(), std::memory_order_acq_rel)) {
      return added.release();
    }
    // Another thread was faster, perhaps with another text.
  }
  return nullptr;
}

Slot& RecentOf(const char* text) {
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
  return g_recent[(reinterpret_cast<std::uintptr_t>(text) * kSpread) >> (64 - kRecentBits)];
}

}  // namespace

const std::string* FindSharedName(const char* text) {
  Slot& recent = RecentOf(text);
  const std::string* found = recent.load(std::memory_order_acquire);
  if (found != nullptr && (found->c_str() == text || std::strcmp(found->c_str(), text) == 0)) {
    return found;
  }
  found = FindOrAdd(text);
  if (found != nullptr) recent.store(found, std::memory_order_release);
  return found;
}

const std::string* FindKnownName(std::string_view text) {
  const Slot* const slot = FindSlot(text);
  return slot == nullptr ? nullptr : slot->load(std::memory_order_acquire);
}

}  // namespace QvXmlLib16::detail
