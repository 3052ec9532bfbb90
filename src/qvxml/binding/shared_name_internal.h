// Names that objects are made with again and again, kept once.

#ifndef QVXML_BINDING_SHARED_NAME_INTERNAL_H_
#define QVXML_BINDING_SHARED_NAME_INTERNAL_H_

#include <string>
#include <string_view>

namespace QvXmlLib16::detail {

/// The one string of that text, which lives as long as the process, or null for a text that is not
/// shared: a long one, or one for which there is no room after many others. Safe from any thread,
/// without a lock. Quickest for a literal, of which there are not many.
const std::string* FindSharedName(const char* text);
/// The same, but null also for a text that nobody has asked for yet.
const std::string* FindKnownName(std::string_view text);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_SHARED_NAME_INTERNAL_H_
