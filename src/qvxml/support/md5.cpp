#include "qvxml/support/md5.h"

#include <cstring>

#include <md5.h>

namespace QvXmlLib16 {

namespace {

template <class TStorage>
MD5_CTX Load(const TStorage& storage) {
  static_assert(sizeof(MD5_CTX) <= sizeof(TStorage));
  MD5_CTX context;
  std::memcpy(&context, storage.data(), sizeof context);
  return context;
}

template <class TStorage>
void Store(const MD5_CTX& context, TStorage& storage) {
  std::memcpy(storage.data(), &context, sizeof context);
}

}  // namespace

constinit CInstanceCounter CMD5::s_instances("CMD5");

CMD5::CMD5() { Reset(); }

void CMD5::Update(const void* bytes, unsigned long length) {
  if (bytes == nullptr || length == 0) return;
  MD5_CTX context = Load(m_context);
  MD5Update(&context, static_cast<const unsigned char*>(bytes), length);
  Store(context, m_context);
}

void CMD5::Update(const std::string& bytes) { Update(bytes.data(), bytes.size()); }

void CMD5::Reset() {
  m_context.fill(0);
  MD5_CTX context;
  MD5Init(&context);
  // The library leaves its block buffer unset until bytes arrive.
  std::memset(context.buffer, 0, sizeof context.buffer);
  Store(context, m_context);
}

CMD5::Digest CMD5::GetDigest() const {
  MD5_CTX context = Load(m_context);
  Digest digest;
  MD5Final(digest.data(), &context);
  return digest;
}

std::string CMD5::GetHexDigest() const {
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (const unsigned char byte : GetDigest()) {
    text += digits[byte >> 4];
    text += digits[byte & 15];
  }
  return text;
}

std::string CMD5::GetHexDigest(const void* bytes, unsigned long length) {
  CMD5 digest;
  digest.Update(bytes, length);
  return digest.GetHexDigest();
}

std::string CMD5::GetHexDigest(const std::string& bytes) {
  return GetHexDigest(bytes.data(), bytes.size());
}

}  // namespace QvXmlLib16
