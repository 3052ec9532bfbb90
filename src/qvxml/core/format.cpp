#include "qvxml/core/format.h"

#include <clocale>
#include <cstdio>
#include <cstring>

#include "qvxml/core/locale_text.h"

namespace QvXmlLib16 {

namespace {

// End of the conversion that starts at `percent`: the address of its letter, or of the final NUL.
const char* FindConversionLetter(const char* percent) {
  return percent + 1 + std::strspn(percent + 1, "#-+ 0123456789$.*'IhlLqjztZ");
}

bool StoresCount(const char* format) {
  for (const char* percent = std::strchr(format, '%'); percent != nullptr;) {
    const char* letter = FindConversionLetter(percent);
    if (*letter == 'n') return true;
    percent = *letter == '\0' ? nullptr : std::strchr(letter + 1, '%');
  }
  return false;
}

// "%n" stores through its argument. "%.0s" takes the same argument and reads and writes nothing,
// and so does "%1$.0s" for "%1$n".
std::string WithoutStores(const char* format) {
  std::string safe;
  while (*format != '\0') {
    const char* percent = std::strchr(format, '%');
    if (percent == nullptr) break;
    const char* letter = FindConversionLetter(percent);
    if (*letter == 'n') {
      const auto* const dollar = static_cast<const char*>(
          std::memchr(percent, '$', static_cast<size_t>(letter - percent)));
      safe.append(format, dollar != nullptr ? dollar + 1 : percent + 1).append(".0s");
      format = letter + 1;
    } else {
      const char* end = *letter == '\0' ? letter : letter + 1;
      safe.append(format, end);
      format = end;
    }
  }
  return safe.append(format);
}

std::string FormatSafely(const char* format, va_list arguments) {
  const CInvariantLocaleScope locale;
  char buffer[512];
  va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
  std::string text;
  if (length < 0) {
    text = format;
  } else if (static_cast<size_t>(length) < sizeof buffer) {
    text.assign(buffer, static_cast<size_t>(length));
  } else {
    try {
      text.resize(static_cast<size_t>(length));
      if (std::vsnprintf(text.data(), text.size() + 1, format, again) < 0) text = format;
    } catch (...) {
      va_end(again);
      throw;
    }
  }
  va_end(again);
  return text;
}

}  // namespace

std::string FormatString(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  try {
    std::string text = FormatV(format, arguments);
    va_end(arguments);
    return text;
  } catch (...) {
    va_end(arguments);
    throw;
  }
}

std::string FormatV(const char* format, va_list arguments) {
  if (format == nullptr) return std::string();
  if (StoresCount(format)) return FormatSafely(WithoutStores(format).c_str(), arguments);
  return FormatSafely(format, arguments);
}

}  // namespace QvXmlLib16
