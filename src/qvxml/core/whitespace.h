// The whitespace facet of XSD (XML Schema Part 2, section 4.3.6).

#ifndef QVXML_CORE_WHITESPACE_H_
#define QVXML_CORE_WHITESPACE_H_

#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Normalises text before it is read as a value. Whitespace is exactly space, tab, carriage return
/// and line feed; text is bytes, and every other byte passes unchanged.
class QVXML_API CWhitespaceUtils {
 public:
  enum WhitespaceRule : int {
    ws_none = 0,      ///< Text used exactly as given.
    ws_preserve = 1,  ///< Line ends normalised only.
    ws_replace = 2,   ///< Every whitespace character becomes a space.
    ws_collapse = 3,  ///< Replace, then runs collapsed and ends trimmed.
  };

  /// Turns each CR LF pair and each lone CR into LF. `length` counts bytes; below 1, or with a null
  /// text, the result is empty.
  static std::string Preserve(const char* text, int length);
  static std::string Preserve(const std::string& text);
  /// Turns each CR LF pair, and each other CR, tab and LF, into one space.
  static std::string Replace(const std::string& text);
  /// Turns each run of whitespace into one space and removes it at both ends.
  static std::string Collapse(const std::string& text);
  /// Applies `rule`; throws CQvException "Unknown WhitespaceRule" for a value outside 0 to 3.
  static std::string ApplyRule(WhitespaceRule rule, const std::string& text);

  static bool IsWhiteSpace(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
  }
};

}  // namespace QvXmlLib16

#endif  // QVXML_CORE_WHITESPACE_H_
