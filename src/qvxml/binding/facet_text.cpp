#include "qvxml/binding/facet_text.h"

#include <memory>
#include <utility>

#include "qvxml/core/whitespace.h"

namespace QvXmlLib16::detail {

CFacetText::CFacetText(std::string text) noexcept : m_text(std::move(text)) {}

CFacetText& CFacetText::operator=(const CFacetText& other) {
  if (this == &other) return *this;
  m_text = other.m_text;
  delete m_value.exchange(nullptr, std::memory_order_acq_rel);
  return *this;
}

CFacetText::~CFacetText() { delete m_value.load(std::memory_order_acquire); }

const QvVariant& CFacetText::As(ItemType type, QvVariant& room) const {
  const QvVariant* held = m_value.load(std::memory_order_acquire);
  if (held != nullptr && held->GetItemType() == type) return *held;
  room.FromString(m_text, type, CWhitespaceUtils::ws_collapse);
  if (held != nullptr) return room;
  auto kept = std::make_unique<const QvVariant>(room);
  if (!m_value.compare_exchange_strong(held, kept.get(), std::memory_order_acq_rel)) return room;
  return *kept.release();
}

}  // namespace QvXmlLib16::detail
