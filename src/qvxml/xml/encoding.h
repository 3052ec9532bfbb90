// Encodings and line ends of written documents.

#ifndef QVXML_XML_ENCODING_H_
#define QVXML_XML_ENCODING_H_

namespace QvXmlLib16 {

/// How text becomes bytes. The numbers are fixed.
///
/// Use UTF-8. The two wide encodings write the platform's wchar_t array, which takes four bytes a
/// character although it is declared and marked as UTF-16; no XML parser reads it.
enum XmlEncoding : int {
  /// The declaration names no encoding; the text cannot be turned into bytes.
  Encoding_Unspecified = 0,
  Encoding_UTF8 = 1,
  /// Declared as UTF-16; files begin with the bytes FF FE.
  Encoding_UTF16 = 2,
  /// As Encoding_UTF16, but the declaration names no encoding.
  Encoding_UTF16_Unlabelled = 3,
};

/// What ends a line. The numbers are fixed.
enum EOLType : int {
  EOL_CRLF = 0,
  EOL_LF = 1,
};

}  // namespace QvXmlLib16

#endif  // QVXML_XML_ENCODING_H_
