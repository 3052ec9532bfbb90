// Text of the process' locale: how it becomes Unicode and back, and how code keeps clear of it.

#ifndef QVXML_CORE_LOCALE_TEXT_H_
#define QVXML_CORE_LOCALE_TEXT_H_

#include <clocale>
#include <cstddef>
#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// For the length of a scope, makes the C library's formatting and number parsing on this thread
/// independent of the process' locale: decimal point ".", no grouping, UTF-8 for wide characters.
class QVXML_API CInvariantLocaleScope {
 public:
  CInvariantLocaleScope();
  ~CInvariantLocaleScope();
  CInvariantLocaleScope(const CInvariantLocaleScope&) = delete;
  CInvariantLocaleScope& operator=(const CInvariantLocaleScope&) = delete;

 private:
  locale_t m_previous;
};

/// For the length of a scope, makes mbrtowc and wcrtomb on this thread usable for text: a program
/// that never called setlocale has LC_CTYPE "C", in which every byte from 0x80 on is refused, so
/// UTF-8 takes its place. Any other locale stays in force, and a setlocale on another thread does
/// not reach into the scope.
class QVXML_API CTextLocaleScope {
 public:
  CTextLocaleScope();
  ~CTextLocaleScope();
  CTextLocaleScope(const CTextLocaleScope&) = delete;
  CTextLocaleScope& operator=(const CTextLocaleScope&) = delete;

 private:
  locale_t m_previous;
  locale_t m_snapshot;
};

/// Whether text of the locale is UTF-8, as it is in a program that never called setlocale.
QVXML_API bool IsLocaleTextUtf8();

/// Converts text of the locale's multibyte encoding to UTF-8. `length` counts bytes; null is empty.
///
/// A byte that begins no character becomes "?" and reading resumes at the next byte; so do an
/// incomplete character at the end and a character above U+10FFFF. Valid UTF-8 passes unchanged in
/// a UTF-8 locale and in a program that never called setlocale.
QVXML_API std::string LocalCodePageToUtf8(const char* text, size_t length);

/// Converts UTF-8 to text of the locale's multibyte encoding. `length` counts bytes; null is empty.
///
/// A character that the encoding lacks becomes "?", and so does each byte that begins no valid
/// UTF-8 sequence. ASCII passes unchanged in every locale.
QVXML_API std::string Utf8ToLocalCodePage(const char* text, size_t length);

/// Converts wide characters to text of the locale's multibyte encoding. `length` counts
/// characters; null is empty. A surrogate, a value above 0x10FFFF and a character that the
/// encoding lacks become "?".
QVXML_API std::string UnicodeToLocalCodePage(const wchar_t* text, size_t length);

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_LOCALE_TEXT_H_
