// What cannot become XML.

#ifndef QVXML_JSON_JSON_CONVERSION_FAILURES_INTERNAL_H_
#define QVXML_JSON_JSON_CONVERSION_FAILURES_INTERNAL_H_

#include <string_view>

#include "qvxml/core/exception.h"

namespace QvXmlLib16::detail {

// Each throws CQvInvalidStateException.

/// `cause` is null when no other failure is behind it.
[[noreturn]] void ThrowNameFailure(std::string_view name, const CQvException* cause = nullptr);
[[noreturn]] void ThrowTextFailure(std::string_view value, const CQvException* cause = nullptr);
[[noreturn]] void ThrowAttributeFailure(std::string_view value,
                                        const CQvException* cause = nullptr);
/// For names that would be markup, or end a tag: `jsonName` is what the failure quotes. Whether
/// the rest is a name is left to the XML parser.
void CheckXmlName(std::string_view name, std::string_view jsonName);
/// For names that hold bytes that are no character of the locale: these would become "?", and "<?"
/// begins a processing instruction, which hides all that follows.
void CheckLocaleName(std::string_view name);

/// Whether the text is one CDATA section and nothing else.
bool IsSection(std::string_view text) noexcept;

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_CONVERSION_FAILURES_INTERNAL_H_
