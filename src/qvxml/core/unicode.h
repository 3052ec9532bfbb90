// Conversions between UTF-8, UTF-16 and UTF-32, outside any namespace.
//
// All six work alike. Source and target are given by their start and end; the result is a count of
// target units.
//
// - With a null target start nothing is written: the result is what the whole source needs, or 0
//   when the source is malformed anywhere.
// - Otherwise characters are written until the source ends, is malformed, or the next character
//   does not fit whole; the result is the number of units written. No replacement character is
//   ever written, and no terminator.
//
// Malformed are: surrogates that are not a high and a low one in this order (in UTF-16), any
// surrogate (in UTF-8 and UTF-32), values above 0x10FFFF, and UTF-8 that is overlong or incomplete.

#ifndef QVXML_CORE_UNICODE_H_
#define QVXML_CORE_UNICODE_H_

#include <cstddef>

#include "qvxml/support/export.h"

QVXML_API size_t ConvertUTF32toUTF16(const unsigned int* sourceStart, const unsigned int* sourceEnd,
                                     unsigned short* targetStart, unsigned short* targetEnd);
QVXML_API size_t ConvertUTF16toUTF32(const unsigned short* sourceStart,
                                     const unsigned short* sourceEnd, unsigned int* targetStart,
                                     unsigned int* targetEnd);
QVXML_API size_t ConvertUTF16toUTF8(const unsigned short* sourceStart,
                                    const unsigned short* sourceEnd, unsigned char* targetStart,
                                    unsigned char* targetEnd);
QVXML_API size_t ConvertUTF32toUTF8(const unsigned int* sourceStart, const unsigned int* sourceEnd,
                                    unsigned char* targetStart, unsigned char* targetEnd);
QVXML_API size_t ConvertUTF8toUTF16(const unsigned char* sourceStart,
                                    const unsigned char* sourceEnd, unsigned short* targetStart,
                                    unsigned short* targetEnd);
QVXML_API size_t ConvertUTF8toUTF32(const unsigned char* sourceStart,
                                    const unsigned char* sourceEnd, unsigned int* targetStart,
                                    unsigned int* targetEnd);

/// True when the `length` bytes at `p` are one legal UTF-8 sequence; `length` is the one that the
/// first byte announces. Never true for a length outside 1 to 4.
QVXML_API bool IsLegalUTF8(const unsigned char* p, int length);
/// True when a legal UTF-8 sequence begins at `start` and lies before `end`, or nothing is left.
QVXML_API bool IsLegalUTF8Sequence(const unsigned char* start, const unsigned char* end);

// The same over wide strings, which are UTF-32. Counts are characters of wide strings, bytes of
// UTF-8 and 16-bit units of UTF-16.

QVXML_API size_t UnicodeToUTF8(const wchar_t* source, size_t sourceCount, unsigned char* target,
                               size_t targetCount);
QVXML_API size_t UTF8ToUnicode(const unsigned char* source, size_t sourceCount, wchar_t* target,
                               size_t targetCount);
/// `target` needs no alignment and has room for 2 * `targetCount` bytes.
QVXML_API size_t UnicodeToUTF16(const wchar_t* source, size_t sourceCount, unsigned char* target,
                                size_t targetCount);
QVXML_API size_t UTF16ToUnicode(const unsigned short* source, size_t sourceCount, wchar_t* target,
                                size_t targetCount);

/// True as soon as one of the `count` characters is above 127.
QVXML_API bool DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(const wchar_t* text, int count);
/// True as soon as one of the `count` bytes is above 127.
QVXML_API bool DoesUTF8StrContainAnyCharsLargerThanOneByte(const unsigned char* text, size_t count);

#endif  // QVXML_CORE_UNICODE_H_
