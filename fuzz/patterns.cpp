// Input: a value, a line feed or a NUL, and a pattern of XSD. Behind a NUL the value is matched as
// a long one too, made of itself.
//
// The limits may only turn an answer into an exception that names one of them, and a pattern that
// needs no translation must be answered as libpcre's interpreter answers it.

#include <optional>

#include "fuzz/fuzz_target.h"
#include <pcre.h>

#include "qvxml/binding/xsd_pattern.h"
#include "qvxml/core/exception.h"

using namespace QvXmlLib16;

namespace {

// A limit stands for every answer.
enum class Outcome { mismatch, match, refused, limit };

struct Limits {
  unsigned long steps;
  size_t memory;
  unsigned long work;
};
constexpr Limits kDefaults = {CPatternLimits::kDefaultSteps, CPatternLimits::kDefaultMemory,
                              CPatternLimits::kDefaultWork};
constexpr Limits kTight = {2000, 32 * 1024, 200 * 1000};

Outcome Match(const std::string& value, const std::string& pattern, const Limits& limits) {
  CPatternLimits::SetMaxSteps(limits.steps);
  CPatternLimits::SetMaxMemory(limits.memory);
  CPatternLimits::SetMaxWork(limits.work);
  try {
    return TestRegEx(value, pattern) ? Outcome::match : Outcome::mismatch;
  } catch (const CQvException& exception) {
    const std::string& message = exception.GetMessage();
    const std::string start =
        "Invalid Regular Expression: " + std::string(pattern.c_str()) + " Error: '";
    if (message.compare(0, start.size(), start) != 0) FuzzFailure(message);
    const bool isLimit = message.compare(start.size(), 11, "match limit") == 0;
    return isLimit ? Outcome::limit : Outcome::refused;
  }
}

// Nothing when libpcre meets a limit of its own.
std::optional<Outcome> Expected(const std::string& value, const std::string& pattern) {
  const char* error = nullptr;
  int offset = 0;
  pcre* const compiled = pcre_compile(
      ("^(" + pattern + ")$").c_str(),
      PCRE_UTF8 | PCRE_UCP | PCRE_DOLLAR_ENDONLY | PCRE_NEWLINE_ANYCRLF | PCRE_ANCHORED, &error,
      &offset, nullptr);
  if (compiled == nullptr) return Outcome::refused;
  pcre_extra limits{};
  limits.flags = PCRE_EXTRA_MATCH_LIMIT | PCRE_EXTRA_MATCH_LIMIT_RECURSION;
  limits.match_limit = 20000;
  limits.match_limit_recursion = 1000;
  const int result =
      pcre_exec(compiled, &limits, value.data(), static_cast<int>(value.size()), 0, 0, nullptr, 0);
  pcre_free(compiled);
  if (result >= 0) return Outcome::match;
  if (result == PCRE_ERROR_NOMATCH) return Outcome::mismatch;
  if (result == PCRE_ERROR_BADUTF8) return Outcome::refused;
  return std::nullopt;
}

void ExpectSame(const char* what, Outcome actual, Outcome expected) {
  if (actual == expected || actual == Outcome::limit || expected == Outcome::limit) return;
  FuzzFailure(std::string(what) + ": " + std::to_string(static_cast<int>(actual)) + ", not " +
              std::to_string(static_cast<int>(expected)));
}

void Check(const std::string& value, const std::string& pattern) {
  const Outcome outcome = Match(value, pattern, kDefaults);
  ExpectSame("with tight limits", Match(value, pattern, kTight), outcome);
  if (pattern.find_first_of(std::string("\\\x01\0", 3)) != std::string::npos) return;
  const std::optional<Outcome> expected = Expected(value, pattern);
  if (expected) ExpectSame("as libpcre", outcome, *expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kLongValue = 64 * 1024;
  const std::string input(reinterpret_cast<const char*>(data), size);
  const size_t valueLength = input.find_first_of(std::string("\0\n", 2));
  if (valueLength == std::string::npos) return 0;
  const std::string value = input.substr(0, valueLength);
  const std::string pattern = input.substr(valueLength + 1);
  Check(value, pattern);
  if (input[valueLength] != '\0' || value.empty()) return 0;
  std::string longValue;
  while (longValue.size() < kLongValue) longValue += value;
  Check(longValue, pattern);
  return 0;
}
