// The MD5 message digest (RFC 1321): a checksum, not a protection against forgery.

#ifndef QVXML_SUPPORT_MD5_H_
#define QVXML_SUPPORT_MD5_H_

#include <array>
#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// Computes the digest of bytes that may arrive in pieces. Copies go on independently. An object
/// must not be used by two threads at the same time.
class QVXML_API CMD5 : private TInstanceCounted<CMD5> {
 public:
  using Digest = std::array<unsigned char, 16>;

  CMD5();

  /// Takes the next `length` bytes; null is no bytes.
  void Update(const void* bytes, unsigned long length);
  void Update(const std::string& bytes);
  /// Forgets all bytes taken so far.
  void Reset();

  /// The digest of all bytes taken so far; more may follow.
  Digest GetDigest() const;
  /// The digest as 32 lower-case hexadecimal digits.
  std::string GetHexDigest() const;

  /// The 32 lower-case hexadecimal digits for bytes that are at hand in one piece.
  static std::string GetHexDigest(const void* bytes, unsigned long length);
  static std::string GetHexDigest(const std::string& bytes);

 private:
  friend class TInstanceCounted<CMD5>;
  static CInstanceCounter s_instances;

  // Room for the context of the digest library, whose header users need not have.
  alignas(8) std::array<unsigned char, 96> m_context;
};

}  // namespace QvXmlLib16

#endif  // QVXML_SUPPORT_MD5_H_
