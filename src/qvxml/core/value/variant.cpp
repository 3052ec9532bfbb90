#include "qvxml/core/value/variant.h"

#include <cassert>
#include <type_traits>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/item_traits.h"

namespace QvXmlLib16 {

namespace {

[[noreturn]] void ThrowInvalidType(ItemType type) {
  throw CQvException(FormatString("Invalid Type %d", static_cast<int>(type)));
}

constexpr bool IsPointerType(ItemType type) {
  return type == ItemType_xmlObject || type == ItemType_xmlCollection;
}

template <class TTraits>
constexpr bool kIsOwned = TTraits::kHolding == ItemHolding::Owned;

template <class TTraits>
std::string FormatValue(const typename TTraits::Carrier& value, const char* format) {
  if constexpr (TTraits::kType == ItemType_r4) {
    return CConversions::r4ToString(value, format);
  } else if constexpr (TTraits::kType == ItemType_r8) {
    return CConversions::r8ToString(value, format);
  } else if constexpr (TTraits::kType == ItemType_decimal) {
    return CConversions::decimalToString(value, format);
  } else {
    return TTraits::ToText(value);
  }
}

}  // namespace

constinit CInstanceCounter QvVariant::s_instances("QvVariant");

QvVariant::QvVariant() = default;

QvVariant::QvVariant(const QvVariant& other) : TInstanceCounted<QvVariant>() { *this = other; }

QvVariant::QvVariant(QvVariant&& other) noexcept : TInstanceCounted<QvVariant>() {
  *this = std::move(other);
}

QvVariant::~QvVariant() { ReleaseValue(); }

QvVariant& QvVariant::operator=(const QvVariant& other) {
  if (this == &other) return *this;
  assert(other.CheckInvariants());
  const uint64_t slot = VisitItemType(
      other.m_type,
      [&](auto traits) {
        using Traits = decltype(traits);
        if constexpr (kIsOwned<Traits>) {
          const auto* value = static_cast<typename Traits::Carrier*>(other.GetInline<void*>());
          void* copy = value == nullptr ? nullptr : new typename Traits::Carrier(*value);
          return reinterpret_cast<uint64_t>(copy);
        } else {
          return other.m_slot;
        }
      },
      [&]() -> uint64_t {
        if (other.m_type != ItemType_none && !IsPointerType(other.m_type)) {
          throw CQvException("Unknown Type");
        }
        return other.m_slot;
      });
  ReleaseValue();
  m_isNil = other.m_isNil;
  m_type = other.m_type;
  m_slot = slot;
  return *this;
}

QvVariant& QvVariant::operator=(QvVariant&& other) noexcept {
  if (this == &other) return *this;
  ReleaseValue();
  m_isNil = std::exchange(other.m_isNil, false);
  m_type = std::exchange(other.m_type, ItemType_none);
  m_slot = std::exchange(other.m_slot, 0);
  return *this;
}

void QvVariant::SetInvalid() { Clear(); }

void QvVariant::SetNil() {
  const ItemType type = m_type;
  Clear();
  m_type = type;
  m_isNil = true;
}

void QvVariant::Clear() {
  ReleaseValue();
  m_slot = 0;
  m_isNil = false;
  m_type = ItemType_none;
}

std::string QvVariant::GetType() const {
  return VisitItemType(
      m_type, [](auto traits) { return std::string(decltype(traits)::kName); },
      [this]() -> std::string { ThrowInvalidType(m_type); });
}

std::string QvVariant::ToString(const char* format) const {
  assert(CheckInvariants());
  if (m_isNil && m_type != ItemType_none) return std::string();
  return VisitItemType(
      m_type,
      [&](auto traits) {
        using Traits = decltype(traits);
        using Carrier = typename Traits::Carrier;
        if constexpr (kIsOwned<Traits>) {
          return FormatValue<Traits>(*PeekOwned<Carrier>(), format == nullptr ? "" : format);
        } else {
          return FormatValue<Traits>(Traits::Get(*this), format == nullptr ? "" : format);
        }
      },
      [this]() -> std::string {
        throw CQvException(
            FormatString("Invalid Type %d to convert to string", static_cast<int>(m_type)));
      });
}

void QvVariant::FromString(const std::string& text, ItemType type,
                           CWhitespaceUtils::WhitespaceRule rule) {
  VisitItemType(
      type,
      [&](auto traits) {
        using Traits = decltype(traits);
        if constexpr (kIsOwned<Traits>) {
          SetOwned(type, Traits::FromText(text, rule));
        } else {
          Traits::Set(*this, Traits::FromText(text, rule));
        }
      },
      [&] {
        throw CQvException(
            FormatString("Invalid Type %d to convert from string", static_cast<int>(type)));
      });
}

void QvVariant::SetHexBinary(const CBinaryData& value) { SetOwned(ItemType_hexBinary, value); }
CBinaryData QvVariant::GetHexBinary() const { return GetOwned<CBinaryData>(); }
void QvVariant::SetBase64Binary(const CBinaryData& value) {
  SetOwned(ItemType_base64Binary, value);
}
CBinaryData QvVariant::GetBase64Binary() const { return GetOwned<CBinaryData>(); }
void QvVariant::SetDuration(const CDateTimeSpan& value) { SetOwned(ItemType_duration, value); }
CDateTimeSpan QvVariant::GetDuration() const { return GetOwned<CDateTimeSpan>(); }
void QvVariant::SetYearMonth(const CDateTime& value) { SetOwned(ItemType_yearMonth, value); }
CDateTime QvVariant::GetYearMonth() const { return GetOwned<CDateTime>(); }
void QvVariant::SetMonthDay(const CDateTime& value) { SetOwned(ItemType_monthDay, value); }
CDateTime QvVariant::GetMonthDay() const { return GetOwned<CDateTime>(); }
void QvVariant::SetDate(const CDateTime& value) { SetOwned(ItemType_date, value); }
CDateTime QvVariant::GetDate() const { return GetOwned<CDateTime>(); }
void QvVariant::SetDateTime(const CDateTime& value) { SetOwned(ItemType_datetime, value); }
CDateTime QvVariant::GetDateTime() const { return GetOwned<CDateTime>(); }
void QvVariant::SetTime(const CDateTime& value) { SetOwned(ItemType_time, value); }
CDateTime QvVariant::GetTime() const { return GetOwned<CDateTime>(); }
void QvVariant::SetString(const std::string& value) { SetOwned(ItemType_string, value); }
void QvVariant::SetString(std::string&& value) { SetOwned(ItemType_string, std::move(value)); }
std::string QvVariant::GetString() const { return GetOwned<std::string>(); }
void QvVariant::SetDecimal(const CDecimal& value) { SetOwned(ItemType_decimal, value); }
CDecimal QvVariant::GetDecimal() const { return GetOwned<CDecimal>(); }
void QvVariant::SetInteger(const CBigInteger& value) { SetOwned(ItemType_integer, value); }
CBigInteger QvVariant::GetInteger() const { return GetOwned<CBigInteger>(); }

const std::string* QvVariant::PeekString() const {
  return m_type == ItemType_string ? PeekOwned<std::string>() : nullptr;
}

template <class TObject>
void QvVariant::SetOwned(ItemType type, TObject&& value) {
  // Built before the old value goes: `value` may be part of it, and memory may be short.
  void* copy = new std::decay_t<TObject>(std::forward<TObject>(value));
  SetInline(type, copy);
}

template <class TObject>
const TObject* QvVariant::PeekOwned() const {
  const bool isHeld = VisitItemType(
      m_type,
      [](auto traits) {
        using Traits = decltype(traits);
        return kIsOwned<Traits> && std::is_same_v<typename Traits::Carrier, TObject>;
      },
      [] { return false; });
  return isHeld ? static_cast<const TObject*>(GetInline<void*>()) : nullptr;
}

template <class TObject>
TObject QvVariant::GetOwned() const {
  if (const TObject* value = PeekOwned<TObject>()) return *value;
  if (m_isNil || m_type == ItemType_none) return TObject();
  ThrowInvalidType(m_type);
}

void QvVariant::ReleaseValue() noexcept {
  assert(CheckInvariants());
  VisitItemType(
      m_type,
      [this](auto traits) {
        using Traits = decltype(traits);
        if constexpr (kIsOwned<Traits>) {
          delete static_cast<typename Traits::Carrier*>(GetInline<void*>());
        }
      },
      [] {});
}

// A value is present exactly when there is a tag and no nil flag; the slot is null otherwise.
bool QvVariant::CheckInvariants() const {
  if (m_type < ItemType_none || m_type > ItemType_xmlCollection) return false;
  if (m_isNil || m_type == ItemType_none) return m_slot == 0;
  return VisitItemType(
      m_type, [this](auto traits) { return !kIsOwned<decltype(traits)> || m_slot != 0; },
      [] { return true; });
}

}  // namespace QvXmlLib16
