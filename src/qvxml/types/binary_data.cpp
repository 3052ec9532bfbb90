#include "qvxml/types/binary_data.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/types/base64.h"

namespace QvXmlLib16 {

namespace {

constexpr unsigned long kMinimumCapacity = 8192;
constexpr unsigned char kNotADigit = 0xFF;

struct DigitPair {
  char high;
  char low;
};

constexpr std::array<DigitPair, 256> MakeDigitPairs() {
  constexpr char digits[] = "0123456789ABCDEF";
  std::array<DigitPair, 256> pairs{};
  for (size_t byte = 0; byte < pairs.size(); ++byte) {
    pairs[byte] = {digits[byte >> 4], digits[byte & 15]};
  }
  return pairs;
}

constexpr std::array<unsigned char, 256> MakeDigitValues() {
  std::array<unsigned char, 256> values{};
  values.fill(kNotADigit);
  for (unsigned char value = 0; value < 10; ++value) values['0' + value] = value;
  for (unsigned char value = 10; value < 16; ++value) {
    values['A' + value - 10] = value;
    values['a' + value - 10] = value;
  }
  return values;
}

constexpr std::array<DigitPair, 256> kDigitPairs = MakeDigitPairs();
constexpr std::array<unsigned char, 256> kDigitValues = MakeDigitValues();

inline unsigned char DigitValue(char digit) {
  return kDigitValues[static_cast<unsigned char>(digit)];
}

// For a pair of which at least one is not a digit.
[[noreturn]] void ThrowInvalidDigit(const char* pair) {
  const char digit = DigitValue(pair[0]) == kNotADigit ? pair[0] : pair[1];
  throw CQvException(FormatString("Invalid char in hex string [%c]", digit));
}

unsigned long Twice(unsigned long length) {
  if (length > std::numeric_limits<unsigned long>::max() / 2) throw std::bad_array_new_length();
  return 2 * length;
}

unsigned long Sum(unsigned long left, unsigned long right) {
  if (left > std::numeric_limits<unsigned long>::max() - right) throw std::bad_array_new_length();
  return left + right;
}

unsigned long LengthOf(const char* text) { return text == nullptr ? 0 : std::strlen(text); }

void AppendHex(const unsigned char* bytes, unsigned long length, std::string& text) {
  if (bytes == nullptr) return;
  const size_t before = text.size();
  text.resize(Sum(before, Twice(length)));
  char* out = text.data() + before;
  for (unsigned long i = 0; i < length; ++i, out += 2) std::memcpy(out, &kDigitPairs[bytes[i]], 2);
}

}  // namespace

constinit CInstanceCounter CBinaryData::s_instances("CBinaryData");
constinit CInstanceCounter CBinaryData::CDataHolder::s_instances("CDataHolder");

CBinaryData::CBinaryData(unsigned char* bytes, unsigned long length, bool adopt) {
  std::unique_ptr<unsigned char[]> owner(adopt ? bytes : nullptr);
  if (bytes == nullptr || length == 0) return;
  m_holder = new CDataHolder(bytes, length, adopt);
  static_cast<void>(owner.release());
}

CBinaryData::CBinaryData(const unsigned char* bytes, unsigned long length) {
  Append(bytes, length);
}

CBinaryData::CBinaryData(const char* text) { Append(text); }

CBinaryData::CBinaryData(const CBinaryData& other)
    : TInstanceCounted<CBinaryData>(other), m_holder(other.m_holder) {
  if (m_holder != nullptr) m_holder->AddRef();
}

CBinaryData::CBinaryData(CBinaryData&& other) noexcept
    : TInstanceCounted<CBinaryData>(other), m_holder(std::exchange(other.m_holder, nullptr)) {}

CBinaryData& CBinaryData::operator=(const CBinaryData& other) {
  CBinaryData copy(other);
  std::swap(m_holder, copy.m_holder);
  return *this;
}

CBinaryData& CBinaryData::operator=(CBinaryData&& other) noexcept {
  CBinaryData moved(std::move(other));
  std::swap(m_holder, moved.m_holder);
  return *this;
}

CBinaryData::~CBinaryData() { Clear(); }

const unsigned char* CBinaryData::GetData() const noexcept {
  return m_holder == nullptr ? nullptr : m_holder->GetData();
}

unsigned long CBinaryData::GetLength() const noexcept {
  return m_holder == nullptr ? 0 : m_holder->GetLength();
}

bool CBinaryData::operator==(const CBinaryData& other) const noexcept {
  if (m_holder == other.m_holder) return true;
  if (m_holder == nullptr || other.m_holder == nullptr) return false;
  return GetLength() == other.GetLength() &&
         std::memcmp(GetData(), other.GetData(), GetLength()) == 0;
}

const unsigned char* CBinaryData::operator[](unsigned long index) const {
  CheckIndex(index);
  return m_holder->GetData() + index;
}

unsigned char* CBinaryData::operator[](unsigned long index) {
  CheckIndex(index);
  MakeExclusive();
  return m_holder->GetData() + index;
}

void CBinaryData::Append(const unsigned char* bytes, unsigned long length) {
  if (bytes == nullptr || length == 0) return;
  if (m_holder == nullptr) {
    m_holder = new CDataHolder(bytes, length);
  } else if (m_holder->HasOneReference()) {
    m_holder->AppendExclusive(bytes, length);
  } else {
    // Released only after the append: the bytes may lie in the block that is shared.
    CBinaryData exclusive(GetData(), GetLength());
    exclusive.m_holder->AppendExclusive(bytes, length);
    std::swap(m_holder, exclusive.m_holder);
  }
}

void CBinaryData::Append(unsigned char byte) { Append(&byte, 1); }

void CBinaryData::Append(char byte) { Append(static_cast<unsigned char>(byte)); }

void CBinaryData::Append(const char* text) {
  if (text != nullptr) Append(reinterpret_cast<const unsigned char*>(text), std::strlen(text));
}

void CBinaryData::Append(const std::string& text) {
  Append(reinterpret_cast<const unsigned char*>(text.data()), text.size());
}

void CBinaryData::Append(const CBinaryData& other) { Append(other.GetData(), other.GetLength()); }

void CBinaryData::SetBuffer(const unsigned char* bytes, unsigned long length) {
  *this = CBinaryData(bytes, length);
}

void CBinaryData::SetBuffer(const char* text) { *this = CBinaryData(text); }

void CBinaryData::Clear() noexcept {
  if (CDataHolder* holder = std::exchange(m_holder, nullptr)) holder->Release();
}

unsigned char* CBinaryData::ReleaseData() {
  if (m_holder == nullptr) return nullptr;
  MakeExclusive();
  unsigned char* data = m_holder->GetData();
  std::exchange(m_holder, nullptr)->Release(true);
  return data;
}

std::string CBinaryData::GetAsHexString() const { return GetAsHexString(GetData(), GetLength()); }

void CBinaryData::AppendHexTo(std::string& text) const { AppendHex(GetData(), GetLength(), text); }

void CBinaryData::SetAsHexString(const char* hex) { SetAsHexString(hex, LengthOf(hex)); }

void CBinaryData::SetAsHexString(const char* hex, unsigned long length) {
  unsigned char* bytes = nullptr;
  const unsigned long byteCount = ConvertToHexData(hex, length, &bytes);
  *this = CBinaryData(bytes, byteCount, true);
}

std::string CBinaryData::GetAsBase64() const { return CBase64::Encode(GetData(), GetLength()); }

void CBinaryData::AppendBase64To(std::string& text) const {
  CBase64::Encode(GetData(), GetLength(), text);
}

void CBinaryData::SetAsBase64(const char* base64) { SetAsBase64(base64, LengthOf(base64)); }

void CBinaryData::SetAsBase64(const char* base64, unsigned long length) {
  std::unique_ptr<unsigned char[]> bytes(new unsigned char[CBase64::GetDecodedCapacity(length)]);
  const unsigned long byteCount = CBase64::Decode(base64, length, bytes.get());
  *this = CBinaryData(bytes.release(), byteCount, true);
}

std::string CBinaryData::GetAsHexString(const unsigned char* bytes, unsigned long length) {
  std::string text;
  AppendHex(bytes, length, text);
  return text;
}

unsigned long CBinaryData::ConvertToHexData(const char* hex, unsigned char** out) {
  return ConvertToHexData(hex, LengthOf(hex), out);
}

unsigned long CBinaryData::ConvertToHexData(const char* hex, unsigned long textLength,
                                            unsigned char** out) {
  *out = nullptr;
  if (textLength % 2 != 0) throw CQvException("Invalid length in hex string");
  if (textLength == 0) return 0;
  const unsigned long length = textLength / 2;
  std::unique_ptr<unsigned char[]> bytes(new unsigned char[length]);
  for (unsigned long i = 0; i < length; ++i, hex += 2) {
    const unsigned char high = DigitValue(hex[0]);
    const unsigned char low = DigitValue(hex[1]);
    if ((high | low) == kNotADigit) ThrowInvalidDigit(hex);
    bytes[i] = static_cast<unsigned char>(high << 4 | low);
  }
  *out = bytes.release();
  return length;
}

void CBinaryData::MakeExclusive() {
  if (!m_holder->HasOneReference()) m_holder = m_holder->GetExclusiveCopy();
}

void CBinaryData::CheckIndex(unsigned long index) const {
  if (m_holder != nullptr && index <= GetLength()) return;
  throw CQvException(FormatString("Index Out of range [%ld]", static_cast<long>(index)));
}

CBinaryData::CDataHolder::CDataHolder(unsigned char* bytes, unsigned long length, bool adopt)
    : m_data(bytes), m_length(length), m_capacity(length) {
  if (adopt) return;
  m_capacity = std::max(kMinimumCapacity, Twice(length));
  m_data = new unsigned char[m_capacity];
  if (length != 0) std::memcpy(m_data, bytes, length);
}

CBinaryData::CDataHolder::CDataHolder(const unsigned char* bytes, unsigned long length)
    : CDataHolder(const_cast<unsigned char*>(bytes), length, false) {}

CBinaryData::CDataHolder::~CDataHolder() { delete[] m_data; }

void CBinaryData::CDataHolder::AddRef() {
  const CQVCriticalSectionGuard guard(m_section);
  m_refCount.fetch_add(1, std::memory_order_relaxed);
}

long CBinaryData::CDataHolder::DropReference() noexcept {
  const CQVCriticalSectionGuard guard(m_section);
  return m_refCount.fetch_sub(1, std::memory_order_release) - 1;
}

// Destroyed outside the lock, which must not be held then. Nobody else can come in: the last
// reference is gone.
void CBinaryData::CDataHolder::Release() noexcept {
  if (DropReference() <= 0) delete this;
}

void CBinaryData::CDataHolder::Release(bool keepData) {
  if (!keepData) return Release();
  if (const long remaining = DropReference(); remaining > 0) {
    throw CQvException(FormatString("Failed to release data. [RefCount=%ld]", remaining));
  }
  m_data = nullptr;
  delete this;
}

void CBinaryData::CDataHolder::Append(const unsigned char* bytes, unsigned long length) {
  const CQVCriticalSectionGuard guard(m_section);
  if (!HasOneReference()) {
    throw CQvException(FormatString("Failed to append. [RefCount=%ld]", GetRefCount()));
  }
  if (bytes != nullptr && length != 0) AppendExclusive(bytes, length);
}

CBinaryData::CDataHolder* CBinaryData::CDataHolder::GetExclusiveCopy() {
  const CQVCriticalSectionGuard guard(m_section);
  if (HasOneReference()) return this;
  CDataHolder* copy = new CDataHolder(m_data, m_length, false);
  m_refCount.fetch_sub(1, std::memory_order_release);
  return copy;
}

void CBinaryData::CDataHolder::AppendExclusive(const unsigned char* bytes, unsigned long length) {
  const unsigned long newLength = Sum(m_length, length);
  if (newLength > m_capacity) {
    const unsigned long newCapacity = Twice(newLength);
    unsigned char* larger = new unsigned char[newCapacity];
    std::memcpy(larger, m_data, m_length);
    // Before the old buffer goes: the bytes may lie in it.
    std::memcpy(larger + m_length, bytes, length);
    delete[] m_data;
    m_data = larger;
    m_capacity = newCapacity;
  } else {
    std::memcpy(m_data + m_length, bytes, length);
  }
  m_length = newLength;
}

}  // namespace QvXmlLib16
