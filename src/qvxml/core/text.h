// Small helpers on text, shared by messages, numbers and dates.

#ifndef QVXML_CORE_TEXT_H_
#define QVXML_CORE_TEXT_H_

#include <cstdio>
#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// The decimal value, padded on the left with zeros to at least `width` characters; a minus sign
/// comes first and counts as one of them.
QVXML_API std::string PadZero(int value, unsigned char width);

/// Removes '0' characters at the end, but never the first character: "500" gives "5", "000" "0".
QVXML_API std::string TrimTrainingZeros(std::string text);

/// The fraction of a second in dates and durations, as ".5" for 500 milliseconds: a point and three
/// digits for each of the parts down to the last one that is not 0, without the zeros at the end;
/// "" when all are 0.
QVXML_API std::string ToFracString(unsigned short milli, unsigned short micro, unsigned short nano);

/// Replaces every occurrence of `search` in place, starting again at the beginning of the text
/// after each replacement, so that occurrences which a replacement completes are found too: "aab"
/// with "ab" by "b" becomes "b".
///
/// An empty `search` changes nothing. A `replacement` that contains `search` is not searched again.
/// Otherwise the caller must not pass a pair that makes new occurrences without end.
QVXML_API void FindReplace(std::string& text, const std::string& search,
                           const std::string& replacement);
QVXML_API void FindReplace(std::wstring& text, const std::wstring& search,
                           const std::wstring& replacement);

/// Turns a to z into upper case in place, in every locale; returns `text`, which may be null.
QVXML_API char* strupr(char* text);

/// Converts a wide string, null being "", to the multibyte encoding of the locale (UTF-8 in a
/// program that never called setlocale). Each character that it lacks becomes "?".
QVXML_API std::string UnicodeToMultiByte(const wchar_t* text);

/// Size of an open file in bytes, or -1 when it cannot be told. Keeps the position.
QVXML_API long _filelength(FILE* file);

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_TEXT_H_
