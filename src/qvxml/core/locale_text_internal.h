// What code that handles much text needs to know of the locale.

#ifndef QVXML_CORE_LOCALE_TEXT_INTERNAL_H_
#define QVXML_CORE_LOCALE_TEXT_INTERNAL_H_

namespace QvXmlLib16::detail {

/// Whether LocalCodePageToUtf8 passes valid UTF-8 unchanged, by the locale in force now.
bool IsLocaleTextUtf8();

}  // namespace QvXmlLib16::detail

#endif  // QVXML_CORE_LOCALE_TEXT_INTERNAL_H_
