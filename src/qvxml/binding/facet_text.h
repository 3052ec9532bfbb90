// The text of a facet that is compared with values.

#ifndef QVXML_BINDING_FACET_TEXT_H_
#define QVXML_BINDING_FACET_TEXT_H_

#include <atomic>
#include <string>

#include "qvxml/core/item_type.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/support/export.h"

namespace QvXmlLib16::detail {

/// XSD text that is converted to the type of the values it is compared with, for the first type
/// only once: metadata has its facets for good, and checks one type. Converting is safe from any
/// thread.
class QVXML_API CFacetText {
 public:
  CFacetText() noexcept = default;
  explicit CFacetText(std::string text) noexcept;
  CFacetText(const CFacetText& other) : CFacetText(other.m_text) {}
  CFacetText& operator=(const CFacetText& other);
  ~CFacetText();

  const std::string& GetText() const { return m_text; }
  bool IsPresent() const { return !m_text.empty(); }
  /// The text as a value of `type`, which stands in `room` when it is not kept. Throws the
  /// conversion's exception, each time.
  const QvVariant& As(ItemType type, QvVariant& room) const;
  /// The value that As() would return, if it is kept, or null.
  const QvVariant* FindKept(ItemType type) const {
    const QvVariant* const held = m_value.load(std::memory_order_acquire);
    return held != nullptr && held->GetItemType() == type ? held : nullptr;
  }

 private:
  std::string m_text;
  mutable std::atomic<const QvVariant*> m_value{nullptr};
};

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_FACET_TEXT_H_
