// Conversions between the library's text, which is the locale's multibyte form, and bytes.

#ifndef QVXML_XML_ENCODER_H_
#define QVXML_XML_ENCODER_H_

#include <cstddef>
#include <string>

#include "qvxml/support/export.h"
#include "qvxml/types/binary_data.h"

namespace QvXmlLib16 {

/// When set, LocalCodePageToUtf8Binary takes its text as it is. For the whole process and not
/// synchronised: set it before the first document is written.
extern QVXML_API bool ASCII_ONLY;

/// Encodes and decodes text. In a program that never called setlocale the multibyte form is UTF-8.
///
/// Lengths count bytes, null pointers stand for no text. Nothing here fails on malformed input;
/// only std::bad_alloc is thrown.
class QVXML_API CEncoder {
 public:
  CEncoder() = delete;

  // Encoding.

  /// UTF-8 of the text. A byte that begins no character becomes "?". With ASCII_ONLY set the bytes
  /// are taken unchanged.
  static CBinaryData LocalCodePageToUtf8Binary(const char* text);
  /// As above for text that may hold zero bytes.
  static CBinaryData LocalCodePageToUtf8Binary(const char* text, size_t length);
  /// The wchar_t array of the text: four bytes a character, little-endian, no mark and no
  /// terminator. A byte that begins no character becomes "?".
  static CBinaryData LocalCodePageToUnicodeBinary(const char* text);
  /// As above for text that may hold zero bytes.
  static CBinaryData LocalCodePageToUnicodeBinary(const char* text, size_t length);
  /// UTF-8 of wide characters. Those that UTF-8 cannot carry, surrogates included, become "?".
  static CBinaryData UnicodeToUtf8Binary(const wchar_t* text);

  // Decoding.

  /// Text of UTF-8 bytes. A character that the locale's encoding lacks and a byte that begins no
  /// character become "?".
  static std::string Utf8ToLocalCodePage(const unsigned char* bytes, size_t length);
  static std::string Utf8ToLocalCodePage(const char* text);
  /// The scratch buffers take no part: the conversion needs no wide copy. They are left as they
  /// are.
  static std::string Utf8ToLocalCodePage(const unsigned char* bytes, size_t length,
                                         std::wstring& wideScratch, std::string& narrowScratch);
  static std::string Utf8ToLocalCodePage(const char* text, std::wstring& wideScratch,
                                         std::string& narrowScratch);
  /// Always "": UTF-16 documents are decoded by the reader.
  static std::string Utf16ToLocalCodePage(const unsigned char* bytes, int length);
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_ENCODER_H_
