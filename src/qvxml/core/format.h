// printf-style formatting into a string; every message of the library is built with it.

#ifndef QVXML_CORE_FORMAT_H_
#define QVXML_CORE_FORMAT_H_

#include <cstdarg>
#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Formats as `printf` does and returns the whole result, however long it is.
///
/// Numbers are written as in the C locale, whatever the process uses. A null "%s" argument is
/// written "(null)"; "%n" consumes its argument and writes nothing, neither text nor memory.
/// Formatting never fails: a format that the C library refuses gives the format itself.
/// Throws only std::bad_alloc.
QVXML_API std::string FormatString(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// FormatString for an argument list that the caller started and ends.
QVXML_API std::string FormatV(const char* format, va_list arguments)
    __attribute__((format(printf, 1, 0)));

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_FORMAT_H_
