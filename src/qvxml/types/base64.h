// Base64 text (RFC 4648, section 4) from bytes and back.

#ifndef QVXML_TYPES_BASE64_H_
#define QVXML_TYPES_BASE64_H_

#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// Has no state: an object is as good as the class, and both may be used from any thread.
class QVXML_API CBase64 : private TInstanceCounted<CBase64> {
 public:
  /// Four characters for each three bytes, padded with "=" to a multiple of four, no line breaks.
  /// "" for no bytes or null.
  static std::string Encode(const unsigned char* bytes, unsigned long length);
  /// Appends the same to `text`.
  static void Encode(const unsigned char* bytes, unsigned long length, std::string& text);

  /// Bytes that Decode may write for a text of `textLength` characters: three quarters, rounded up.
  static constexpr unsigned long GetDecodedCapacity(unsigned long textLength) noexcept {
    return textLength / 4 * 3 + (textLength % 4 * 3 + 3) / 4;
  }

  /// Writes the bytes that `text` stands for to `out` and returns how many they are. `out` must
  /// have room for GetDecodedCapacity of the text's length, and may be null when that is 0.
  ///
  /// Space, tab, carriage return and line feed are skipped anywhere. The first "=" ends the data,
  /// and only "=" and whitespace may follow it; the padding may be incomplete or missing, and bits
  /// left over in the last character are ignored. Null is "".
  ///
  /// Throws CQvException "Invalid char in base64 string [%c]" for any other character, and for a
  /// last character that stands alone in its group of four; part of `out` may have been written.
  static unsigned long Decode(const char* text, unsigned char* out);
  /// As above for a text of `textLength` characters, in which a NUL is an invalid one.
  static unsigned long Decode(const char* text, unsigned long textLength, unsigned char* out);

 private:
  friend class TInstanceCounted<CBase64>;
  static CInstanceCounter s_instances;
};

}  // namespace QvXmlLib16

#endif  // QVXML_TYPES_BASE64_H_
