#include "qvxml/binding/xsd_pattern.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <new>
#include <vector>

#include <pcre.h>

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/core/text.h"
#include "qvxml/support/thread_stack_internal.h"

namespace QvXmlLib16 {

namespace {

std::atomic<unsigned long> s_maxSteps{CPatternLimits::kDefaultSteps};
std::atomic<size_t> s_maxMemory{CPatternLimits::kDefaultMemory};
std::atomic<unsigned long> s_maxWork{CPatternLimits::kDefaultWork};

constexpr size_t kMinMemory = size_t{32} * 1024;
constexpr size_t kMaxMemory = size_t{1024} * 1024 * 1024;
// Longer values may be refused, rather than scanned for minutes.
constexpr size_t kOrdinaryLength = size_t{16} * 1024 * 1024;
constexpr size_t kMaxPatternLength = size_t{1024} * 1024;

// PCRE_ANCHORED changes nothing for a pattern that is one expression. It keeps one with unbalanced
// brackets, in which "^" is only part of an alternative, from being tried at every position.
constexpr int kCompileOptions =
    PCRE_UTF8 | PCRE_UCP | PCRE_DOLLAR_ENDONLY | PCRE_NEWLINE_ANYCRLF | PCRE_ANCHORED;
// The only compile error that is not about the pattern: "failed to get memory".
constexpr int kCompileNoMemory = 21;

struct CPatternFree {
  void operator()(pcre* compiled) const { pcre_free(compiled); }
};
struct CStudyFree {
  void operator()(pcre_extra* study) const { pcre_free_study(study); }
};
struct CJitStackFree {
  void operator()(pcre_jit_stack* stack) const { pcre_jit_stack_free(stack); }
};
using CPatternPtr = std::unique_ptr<pcre, CPatternFree>;
using CStudyPtr = std::unique_ptr<pcre_extra, CStudyFree>;
using CJitStackPtr = std::unique_ptr<pcre_jit_stack, CJitStackFree>;

[[noreturn]] void ThrowInvalid(const std::string& pattern, const std::string& reason) {
  throw CQvException(
      FormatString("Invalid Regular Expression: %s Error: '%s'", pattern.c_str(), reason.c_str()));
}

struct CTranslation {
  const char* xsd;
  const char* perl;
};

// In this order. The last range is out of order for libpcre: "\1117" is a "\111" and a "7".
constexpr CTranslation kTranslations[] = {
    {"\\i", "([^\\W\\d]|:)"},
    {"\\I", "([\\W\\d])"},
    {"\\c", "(\\w|\\.|-|:)"},
    {"\\C", "([^\\w\\.\\-\\:])"},
    {"\\p{IsBasicLatin}", "[\\000-\\177]"},
    {"\\p{IsLatin-1Supplement}", "[\\200-\\377]"},
    {"\\p{IsLatinExtended-A}", "[\\400-\\577]"},
    {"\\p{IsLatinExtended-B}", "[\\600-\\1117]"},
};

std::string TranslateToPerl(const std::string& pattern) {
  std::string perl = pattern;
  if (perl.find('\\') != perl.npos) {
    // An escaped backslash must not begin an escape of the table.
    FindReplace(perl, "\\\\", "\x01");
    for (const CTranslation& translation : kTranslations) {
      if (perl.find(translation.xsd) != perl.npos) {
        FindReplace(perl, translation.xsd, translation.perl);
      }
    }
  }
  if (perl.find('\x01') != perl.npos) FindReplace(perl, "\x01", "\\\\");
  return "^(" + perl + ")$";
}

// libpcre compiles and studies by recursion on the groups, up to 250 deep: measured, 800 bytes for
// each level and 24 KB besides. Machine code keeps the state of repeats in its own frame, up to
// 64 KB.
void CheckStack(const std::string& pattern, const std::string& perl) {
  const auto groups = static_cast<size_t>(std::count(perl.begin(), perl.end(), '('));
  const size_t needed = size_t{28} * 1024 + std::min<size_t>(groups, 252) * 900 +
                        std::min(perl.size() * 16, size_t{64} * 1024);
  if (detail::RemainingStackBytes() < needed) {
    ThrowInvalid(pattern, "the thread has too little stack left");
  }
}

CPatternPtr Compile(const std::string& pattern, const std::string& perl) {
  int code = 0;
  const char* error = nullptr;
  int errorOffset = 0;
  CPatternPtr compiled(
      pcre_compile2(perl.c_str(), kCompileOptions, &code, &error, &errorOffset, nullptr));
  if (compiled == nullptr && code == kCompileNoMemory) throw std::bad_alloc();
  if (compiled == nullptr) ThrowInvalid(pattern, error != nullptr ? error : "unknown error");
  return compiled;
}

bool HasAnyOf(const std::string& perl, std::initializer_list<const char*> marks) {
  return std::any_of(marks.begin(), marks.end(),
                     [&](const char* mark) { return perl.find(mark) != perl.npos; });
}

// True for a pattern in which pcre_dfa_exec finds the same matches as pcre_exec and needs no
// recursion: no assertion, atomic group, subroutine, verb, possessive repeat or back reference.
// Looks for their characters only, so some patterns that have none of these are called unsuitable.
// Back references are looked for in the pattern as passed: the translation of the blocks looks like
// them.
bool IsPlain(const std::string& pattern, const std::string& perl) {
  return !HasAnyOf(perl, {"(?", "(*", "*+", "++", "?+", "}+"}) &&
         !HasAnyOf(pattern, {"\\1", "\\2", "\\3", "\\4", "\\5", "\\6", "\\7", "\\8", "\\9", "\\g",
                             "\\k", "\x01"});
}

// True when a group is repeated, which is what lets matching explode; also for some other patterns.
bool RepeatsGroup(const std::string& perl) { return HasAnyOf(perl, {")*", ")+", "){"}); }

// One run of a compiled pattern over one value.
//
// The interpreter counts its steps truly and starts at once, but recurses: it is tried first, with
// few steps. Machine code is quick but costs more to make than most values take to match; it does
// not count each turn of a group, yet keeps some bytes for each, so that its memory bounds its work
// too. Where both stop at a limit, the breadth-first matcher, whose time and memory depend on the
// pattern and only in proportion on the value, can still show whether the value matches.
class CMatcher {
 public:
  CMatcher(const pcre* compiled, const std::string& value) : m_compiled(compiled), m_value(value) {
    int captures = 0;
    pcre_fullinfo(compiled, nullptr, PCRE_INFO_CAPTURECOUNT, &captures);
    m_offsets.resize((static_cast<size_t>(captures) + 1) * 3);
    // One step or turn may scan the whole value.
    m_maxTurns = s_maxWork.load(std::memory_order_relaxed) / (value.size() + 1);
    const unsigned long fewestSteps = value.size() <= kOrdinaryLength ? 100UL : 1UL;
    m_maxSteps =
        std::min(s_maxSteps.load(std::memory_order_relaxed), std::max(m_maxTurns, fewestSteps));
    m_maxMemory = std::clamp(std::min(m_maxTurns, kMaxMemory) * kBytesOfTurn, kMinMemory,
                             s_maxMemory.load(std::memory_order_relaxed));
  }

  // Result of pcre_exec: not negative for a match.
  int Run() {
    const int result = Interpret(std::min(m_maxSteps, kQuickSteps));
    // With the least memory that it works with, machine code could still make too many turns.
    if (!IsLimit(result) || m_maxTurns < kQuickSteps) return result;
    const char* error = nullptr;
    const CStudyPtr study(pcre_study(m_compiled, PCRE_STUDY_JIT_COMPILE, &error));
    int hasMachineCode = 0;
    if (study != nullptr) {
      pcre_fullinfo(m_compiled, study.get(), PCRE_INFO_JIT, &hasMachineCode);
    }
    // A step of the interpreter takes about ten times as long.
    return hasMachineCode != 0 ? RunMachineCode(*study) : Interpret(m_maxSteps / 8 + 1);
  }

  // Result of pcre_dfa_exec: not negative for a match.
  int RunBreadthFirst() {
    // Linear, but slow: without an end, a value of a gigabyte would take minutes.
    if (m_maxTurns < kBreadthFirstCost) return PCRE_ERROR_MATCHLIMIT;
    // Each character costs the square of the states that are possible there.
    const double states = std::sqrt(static_cast<double>(m_maxTurns));
    const auto maxStates = static_cast<size_t>(std::clamp(states, 32.0, 1000.0));
    // Two lists of blocks of three numbers each.
    std::vector<int> workspace(maxStates * 6);
    int offsets[2];
    return pcre_dfa_exec(m_compiled, nullptr, m_value.data(), Length(), 0, m_options, offsets, 2,
                         workspace.data(), static_cast<int>(workspace.size()));
  }

  static bool IsLimit(int result) {
    return result == PCRE_ERROR_MATCHLIMIT || result == PCRE_ERROR_RECURSIONLIMIT ||
           result == PCRE_ERROR_JIT_STACKLIMIT;
  }

  std::string DescribeFailure(int result) const {
    switch (result) {
      case PCRE_ERROR_MATCHLIMIT:
        return FormatString("match limit of %lu steps exceeded", m_usedSteps);
      case PCRE_ERROR_RECURSIONLIMIT:
        return FormatString("match limit of %lu bytes of stack exceeded", m_usedStack);
      case PCRE_ERROR_JIT_STACKLIMIT:
        return FormatString("match limit of %lu bytes of memory exceeded", m_maxMemory);
      case PCRE_ERROR_BADUTF8:
        return "the value is not UTF-8";
      default:
        return FormatString("matching failed with code %d", result);
    }
  }

 private:
  static constexpr unsigned long kQuickSteps = 1000;
  static constexpr unsigned long kBytesOfTurn = 16;
  // Of a character, in characters that a step scans.
  static constexpr unsigned long kBreadthFirstCost = 25;

  int Length() const { return static_cast<int>(m_value.size()); }

  int Execute(const pcre_extra& extra) {
    m_usedSteps = extra.match_limit;
    const int result = pcre_exec(m_compiled, &extra, m_value.data(), Length(), 0, m_options,
                                 m_offsets.data(), static_cast<int>(m_offsets.size()));
    if (result == PCRE_ERROR_NOMEMORY) throw std::bad_alloc();
    // A value that is not UTF-8 ends the first run, and is not run again.
    m_options = PCRE_NO_UTF8_CHECK;
    return result;
  }

  int Interpret(unsigned long maxSteps) {
    // This call only tells the size of the interpreter's frame, as a negative number.
    static const int frame = pcre_exec(nullptr, nullptr, nullptr, -999, -999, 0, nullptr, 0);
    m_usedStack = detail::RemainingStackBytes() / 4;
    pcre_extra limits{};
    limits.flags = PCRE_EXTRA_MATCH_LIMIT | PCRE_EXTRA_MATCH_LIMIT_RECURSION;
    limits.match_limit = maxSteps;
    limits.match_limit_recursion = m_usedStack / (static_cast<size_t>(std::abs(frame)) + 64);
    return Execute(limits);
  }

  int RunMachineCode(pcre_extra& study) {
    const CJitStackPtr stack(
        pcre_jit_stack_alloc(static_cast<int>(kMinMemory), static_cast<int>(m_maxMemory)));
    if (stack == nullptr) throw std::bad_alloc();
    pcre_assign_jit_stack(&study, nullptr, stack.get());
    study.flags |= PCRE_EXTRA_MATCH_LIMIT;
    study.match_limit = m_maxSteps;
    return Execute(study);
  }

  const pcre* m_compiled;
  const std::string& m_value;
  std::vector<int> m_offsets;
  int m_options = 0;
  unsigned long m_maxTurns;
  unsigned long m_maxSteps;
  size_t m_maxMemory;
  unsigned long m_usedSteps = 0;
  size_t m_usedStack = 0;
};

}  // namespace

unsigned long CPatternLimits::GetMaxSteps() { return s_maxSteps.load(std::memory_order_relaxed); }

void CPatternLimits::SetMaxSteps(unsigned long steps) {
  s_maxSteps.store(std::clamp<unsigned long>(steps, 1, UINT_MAX), std::memory_order_relaxed);
}

size_t CPatternLimits::GetMaxMemory() { return s_maxMemory.load(std::memory_order_relaxed); }

void CPatternLimits::SetMaxMemory(size_t bytes) {
  s_maxMemory.store(std::clamp(bytes, kMinMemory, kMaxMemory), std::memory_order_relaxed);
}

unsigned long CPatternLimits::GetMaxWork() { return s_maxWork.load(std::memory_order_relaxed); }

void CPatternLimits::SetMaxWork(unsigned long work) {
  s_maxWork.store(work, std::memory_order_relaxed);
}

bool TestRegEx(const std::string& value, const std::string& pattern) {
  if (pattern.size() > kMaxPatternLength) ThrowInvalid(pattern, "the pattern is too long");
  // libpcre would read the pattern up to it, and could then match with less than the whole.
  if (pattern.find('\0') != pattern.npos) ThrowInvalid(pattern, "the pattern contains a NUL");
  if (value.size() > INT_MAX) ThrowInvalid(pattern, "the value is longer than 2147483647 bytes");

  const std::string perl = TranslateToPerl(pattern);
  CheckStack(pattern, perl);
  const CPatternPtr compiled = Compile(pattern, perl);
  CMatcher matcher(compiled.get(), value);
  const int result = matcher.Run();
  if (result >= 0) return true;
  if (result == PCRE_ERROR_NOMATCH) return false;
  if (CMatcher::IsLimit(result) && IsPlain(pattern, perl)) {
    const int proof = matcher.RunBreadthFirst();
    if (proof >= 0) return true;
    // The limit then only says that the value is long. In any other case it must be reported: that
    // the pattern explodes on such values is for the caller to know.
    if (proof == PCRE_ERROR_NOMATCH && !RepeatsGroup(perl)) return false;
  }
  ThrowInvalid(pattern, matcher.DescribeFailure(result));
}

}  // namespace QvXmlLib16
