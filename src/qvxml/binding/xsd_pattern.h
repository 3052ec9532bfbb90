// The pattern facet: regular expressions of XSD, matched by libpcre within limits.

#ifndef QVXML_BINDING_XSD_PATTERN_H_
#define QVXML_BINDING_XSD_PATTERN_H_

#include <cstddef>
#include <string>

#include "qvxml/support/export.h"

namespace QvXmlLib16 {

/// Limits of one TestRegEx call, for the whole process; may be changed at any time by any thread.
///
/// Values come from strangers, and some patterns take time or memory out of all proportion to the
/// value: without limits a few hundred bytes are enough to stop a program. A value that meets a
/// limit is refused with an exception, never reported as a mismatch.
class QVXML_API CPatternLimits {
 public:
  static constexpr unsigned long kDefaultSteps = 1'000'000;
  static constexpr size_t kDefaultMemory = size_t{32} * 1024 * 1024;
  static constexpr unsigned long kDefaultWork = 400'000'000;

  /// Steps that matching may take, backtracking included: at the default some 3 ms, more than ten
  /// times as much when groups are nested deeply.
  static unsigned long GetMaxSteps();
  /// 1 to 4294967295; 0 and larger numbers set the nearest of these.
  static void SetMaxSteps(unsigned long steps);

  /// Bytes of backtracking state kept beside the stack.
  static size_t GetMaxMemory();
  /// 32 KiB to 1 GiB; numbers outside set the nearest of these.
  static void SetMaxMemory(size_t bytes);

  /// Steps times the value's length: as one step may scan the whole value, long values are allowed
  /// fewer steps and less memory, so that the product stays near this number. At the default one
  /// match takes some seconds at worst. Values of more than 16 MB may be refused by this limit, and
  /// so may shorter ones that do not match when the pattern repeats a group.
  static unsigned long GetMaxWork();
  static void SetMaxWork(unsigned long work);
};

/// True when the whole of `value`, which is UTF-8, matches `pattern`, a regular expression of XSD.
///
/// The XSD escapes \i \I \c \C and the block names IsBasicLatin, IsLatin-1Supplement,
/// IsLatinExtended-A and IsLatinExtended-B are translated, the rest is read as Perl syntax: "^" and
/// "$" are anchors, and class subtraction is not known. \d, \w, \s follow Unicode; the dot excludes
/// carriage return and line feed. The pattern is compiled at each call.
///
/// Throws CQvException "Invalid Regular Expression: %s Error: '%s'", with the pattern as passed,
/// when it does not compile, when matching meets a limit (CPatternLimits, the stack left to the
/// thread, 2 GB of value, 1 MB of pattern), and when the value is not UTF-8; std::bad_alloc when
/// memory is short. Uses little of the stack (some tens of kilobytes and 1 KB for each group)
/// whatever the value.
QVXML_API bool TestRegEx(const std::string& value, const std::string& pattern);

}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_XSD_PATTERN_H_
