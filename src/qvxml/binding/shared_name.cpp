#include <array>
#include <atomic>
#include <functional>
#include <memory>

#include "qvxml/binding/shared_name_internal.h"

namespace QvXmlLib16::detail {

namespace {

constexpr size_t kMaxLength = 256;
constexpr size_t kSlots = 2048;
constexpr size_t kMaxProbes = 16;

// Open addressing; entries are only ever added, so what was found stays.
constinit std::array<std::atomic<const std::string*>, kSlots> g_names{};

}  // namespace

const std::string* FindSharedName(std::string_view text) {
  if (text.size() > kMaxLength) return nullptr;
  const size_t start = std::hash<std::string_view>()(text);
  for (size_t probe = 0; probe < kMaxProbes; ++probe) {
    std::atomic<const std::string*>& slot = g_names[(start + probe) % kSlots];
    const std::string* held = slot.load(std::memory_order_acquire);
    if (held == nullptr) {
      auto added = std::make_unique<const std::string>(text);
      if (slot.compare_exchange_strong(held, added.get(), std::memory_order_acq_rel)) {
        return added.release();
      }
    }
    if (*held == text) return held;
  }
  return nullptr;
}

}  // namespace QvXmlLib16::detail
