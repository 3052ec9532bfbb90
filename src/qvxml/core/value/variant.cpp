#include "qvxml/core/value/variant.h"

#include <cassert>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/value/item_text_internal.h"
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

}  // namespace

constinit CInstanceCounter QvVariant::s_instances("QvVariant");

QvVariant::QvVariant(const QvVariant& other) : TInstanceCounted<QvVariant>() { CopyValue(other); }

// NOLINTNEXTLINE(performance-noexcept-move-constructor): see the declaration.
QvVariant::QvVariant(QvVariant&& other) : TInstanceCounted<QvVariant>() { MoveValue(other); }

QvVariant& QvVariant::operator=(const QvVariant& other) {
  if (this == &other) return *this;
  // Copied before the old value goes, as memory may be short.
  QvVariant copy(other);
  return *this = std::move(copy);
}

// NOLINTNEXTLINE(performance-noexcept-move-constructor)
QvVariant& QvVariant::operator=(QvVariant&& other) {
  if (this == &other) return *this;
  Clear();
  MoveValue(other);
  return *this;
}

// Into a variant that holds nothing.
void QvVariant::CopyValue(const QvVariant& other) {
  assert(other.CheckInvariants());
  VisitItemType(
      other.m_type,
      [&](auto traits) {
        using Traits = decltype(traits);
        if constexpr (kIsOwned<Traits>) {
          using Carrier = typename Traits::Carrier;
          if (const Carrier* value = other.PeekOwned<Carrier>()) SetOwned(other.m_type, *value);
        } else {
          m_slot = other.m_slot;
        }
      },
      [&] {
        if (other.m_type != ItemType_none && !IsPointerType(other.m_type)) {
          throw CQvException("Unknown Type");
        }
        m_slot = other.m_slot;
      });
  m_isNil = other.m_isNil;
  m_type = other.m_type;
}

// Into a variant that holds nothing; the other one holds nothing afterwards. A value object that is
// only borrowed becomes an own one: whoever moves a variant keeps it for longer.
void QvVariant::MoveValue(QvVariant& other) {
  if (other.m_ownership == Ownership::Heap || other.m_slot == 0) {
    m_slot = std::exchange(other.m_slot, 0);
    m_ownership = std::exchange(other.m_ownership, Ownership::None);
  } else {
    VisitItemType(
        other.m_type,
        [&](auto traits) {
          using Traits = decltype(traits);
          if constexpr (kIsOwned<Traits>) {
            SetOwned(other.m_type, other.TakeOwned<typename Traits::Carrier>());
          } else {
            m_slot = other.m_slot;
          }
        },
        [&] { m_slot = other.m_slot; });
  }
  m_isNil = other.m_isNil;
  m_type = other.m_type;
  other.Clear();
}

void QvVariant::SetNil() {
  const ItemType type = m_type;
  Clear();
  m_type = type;
  m_isNil = true;
}

std::string QvVariant::GetType() const {
  return VisitItemType(
      m_type, [](auto traits) { return std::string(decltype(traits)::kName); },
      [this]() -> std::string { ThrowInvalidType(m_type); });
}

std::string QvVariant::ToString(const char* format) const {
  assert(CheckInvariants());
  std::string text;
  detail::AppendText(*this, format, text);
  return text;
}

void QvVariant::FromString(const std::string& text, ItemType type,
                           CWhitespaceUtils::WhitespaceRule rule) {
  VisitItemType(
      type,
      [&](auto traits) {
        using Traits = decltype(traits);
        if constexpr (kIsOwned<Traits>) {
          using Carrier = typename Traits::Carrier;
          MakeOwned<Carrier>(
              type, [&](Carrier& value) { detail::ParseInto<Traits::kType>(text, rule, value); });
        } else {
          typename Traits::Carrier value{};
          detail::ParseInto<Traits::kType>(text, rule, value);
          Traits::Set(*this, value);
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

template <class TObject>
void QvVariant::SetOwned(ItemType type, TObject&& value) {
  using Object = std::decay_t<TObject>;
  if constexpr (kFitsInPlace<Object>) {
    // Built before the old value goes: `value` may be part of it, and memory may be short.
    Object copy(std::forward<TObject>(value));
    if (m_ownership != Ownership::None) ReleaseValue();
    SetInline(type, static_cast<void*>(new (m_place) Object(std::move(copy))));
    m_ownership = Ownership::InPlace;
  } else {
    void* const copy = new Object(std::forward<TObject>(value));
    SetInline(type, copy);
    m_ownership = Ownership::Heap;
  }
}

template <class TObject, class TFill>
void QvVariant::MakeOwned(ItemType type, TFill fill) {
  if constexpr (kFitsInPlace<TObject>) {
    if (m_ownership == Ownership::None) return MakeInPlace<TObject>(type, fill);
  }
  TObject object;
  fill(object);
  SetOwned(type, std::move(object));
}

template <class TObject, class TFill>
void QvVariant::MakeInPlace(ItemType type, TFill fill) {
  auto* const object = new (m_place) TObject();
  try {
    fill(*object);
  } catch (...) {
    object->~TObject();
    throw;
  }
  SetInline(type, static_cast<void*>(object));
  m_ownership = Ownership::InPlace;
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
  return isHeld ? static_cast<const TObject*>(GetInline<const void*>()) : nullptr;
}

template <class TObject>
TObject QvVariant::GetOwned() const {
  if (const TObject* value = PeekOwned<TObject>()) return *value;
  if (m_isNil || m_type == ItemType_none) return TObject();
  ThrowInvalidType(m_type);
}

template <class TObject>
TObject QvVariant::TakeOwned() {
  const TObject* const value = PeekOwned<TObject>();
  if (value == nullptr || !MayTake()) return GetOwned<TObject>();
  return std::move(*const_cast<TObject*>(value));
}

template CBigInteger QvVariant::TakeOwned<CBigInteger>();
template CBinaryData QvVariant::TakeOwned<CBinaryData>();
template CDateTime QvVariant::TakeOwned<CDateTime>();
template CDateTimeSpan QvVariant::TakeOwned<CDateTimeSpan>();
template CDecimal QvVariant::TakeOwned<CDecimal>();
template std::string QvVariant::TakeOwned<std::string>();

void QvVariant::ReleaseValue() noexcept {
  assert(CheckInvariants());
  VisitItemType(
      m_type,
      [this](auto traits) {
        using Traits = decltype(traits);
        using Carrier = typename Traits::Carrier;
        if constexpr (kIsOwned<Traits>) {
          auto* const value = static_cast<Carrier*>(GetInline<void*>());
          if (m_ownership == Ownership::InPlace) {
            value->~Carrier();
          } else {
            delete value;
          }
        }
      },
      [] {});
  m_ownership = Ownership::None;
}

// A value is present exactly when there is a tag and no nil flag; the slot is null otherwise.
bool QvVariant::CheckInvariants() const {
  if (m_type < ItemType_none || m_type > ItemType_xmlCollection) return false;
  if (m_isNil || m_type == ItemType_none) return m_slot == 0 && m_ownership == Ownership::None;
  return VisitItemType(
      m_type,
      [this](auto traits) {
        return kIsOwned<decltype(traits)> ? m_slot != 0 : m_ownership == Ownership::None;
      },
      [this] { return m_ownership == Ownership::None; });
}

}  // namespace QvXmlLib16
