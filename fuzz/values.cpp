// Input: a letter that picks the kind of value, upper case for text that is collapsed before it is
// read, lower case for text read as it is; then the text.
//
// A value that is read is written, read and written again: both texts must be the same.

#include <cmath>
#include <cstdlib>
#include <iterator>
#include <string>

#include "fuzz/fuzz_target.h"

#include "qvxml/core/exception.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"

using namespace QvXmlLib16;

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;

template <auto kFromString, auto kToString>
std::string Rewrite(const std::string& text, Rule rule) {
  return kToString(kFromString(text, rule));
}

constexpr std::string (*kR4ToString)(float) = &CConversions::r4ToString;
constexpr std::string (*kR8ToString)(double) = &CConversions::r8ToString;
constexpr std::string (*kDecimalToString)(const CDecimal&) = &CConversions::decimalToString;

// What may become of the text of a value when it is read and written again.
enum class Rereading {
  exact,
  // The default digits, 7 and 16, do not tell all values apart and round the largest to INF.
  roundedFloat,
  roundedDouble,
  mayBeRefused,  // Years are written without padding, and without the sign.
};

using C = CConversions;

using enum Rereading;

// clang-format off
const struct {
  const char* name;
  std::string (*rewrite)(const std::string& text, Rule rule);
  Rereading rereading;
} kKinds[] = {
  /* A */ {"i1", Rewrite<&C::i1FromString, &C::i1ToString>, exact},
  /* B */ {"i2", Rewrite<&C::i2FromString, &C::i2ToString>, exact},
  /* C */ {"i4", Rewrite<&C::i4FromString, &C::i4ToString>, exact},
  /* D */ {"i8", Rewrite<&C::i8FromString, &C::i8ToString>, exact},
  /* E */ {"ui1", Rewrite<&C::ui1FromString, &C::ui1ToString>, exact},
  /* F */ {"ui2", Rewrite<&C::ui2FromString, &C::ui2ToString>, exact},
  /* G */ {"ui4", Rewrite<&C::ui4FromString, &C::ui4ToString>, exact},
  /* H */ {"ui8", Rewrite<&C::ui8FromString, &C::ui8ToString>, exact},
  /* I */ {"r4", Rewrite<&C::r4FromString, kR4ToString>, roundedFloat},
  /* J */ {"r8", Rewrite<&C::r8FromString, kR8ToString>, roundedDouble},
  /* K */ {"boolean", Rewrite<&C::booleanFromString, &C::booleanToString>, exact},
  /* L */ {"char", Rewrite<&C::charFromString, &C::charToString>, exact},
  /* M */ {"string", Rewrite<&C::stringFromString, &C::stringToString>, exact},
  /* N */ {"decimal", Rewrite<&C::decimalFromString, kDecimalToString>, exact},
  /* O */ {"integer", Rewrite<&C::integerFromString, &C::integerToString>, exact},
  /* P */ {"hexBinary", Rewrite<&C::hexBinaryFromString, &C::hexBinaryToString>, exact},
  /* Q */ {"base64Binary", Rewrite<&C::base64BinaryFromString, &C::base64BinaryToString>, exact},
  /* R */ {"duration", Rewrite<&C::durationFromString, &C::durationToString>, exact},
  /* S */ {"datetime", Rewrite<&C::datetimeFromString, &C::datetimeToString>, exact},
  /* T */ {"date", Rewrite<&C::dateFromString, &C::dateToString>, exact},
  /* U */ {"time", Rewrite<&C::timeFromString, &C::timeToString>, exact},
  /* V */ {"yearMonth", Rewrite<&C::yearMonthFromString, &C::yearMonthToString>, exact},
  /* W */ {"monthDay", Rewrite<&C::monthDayFromString, &C::monthDayToString>, exact},
  /* X */ {"year", Rewrite<&C::yearFromString, &C::yearToString>, mayBeRefused},
  /* Y */ {"month", Rewrite<&C::monthFromString, &C::monthToString>, exact},
  /* Z */ {"day", Rewrite<&C::dayFromString, &C::dayToString>, exact},
};
// clang-format on
static_assert(std::size(kKinds) == 26);

std::string Shortened(const std::string& text) {
  return text.size() <= 200 ? text : text.substr(0, 200) + "...";
}

bool IsRounded(const std::string& text, const std::string& again, double lastDigit) {
  if (again == "INF" || again == "-INF") return true;
  const double value = std::strtod(text.c_str(), nullptr);
  return std::fabs(std::strtod(again.c_str(), nullptr) - value) <= std::fabs(value) * lastDigit;
}

void CheckRereading(size_t kind, Rule rule, const std::string& text) {
  const auto& row = kKinds[kind];
  std::string again;
  try {
    again = row.rewrite(text, rule);
  } catch (const CQvException& exception) {
    if (row.rereading == Rereading::mayBeRefused) return;
    FuzzFailure(std::string(row.name) + " [" + Shortened(text) +
                "] is not read: " + Shortened(exception.GetMessage()));
  }
  if (again == text) return;
  if (row.rereading == Rereading::roundedFloat && IsRounded(text, again, 1e-6)) return;
  if (row.rereading == Rereading::roundedDouble && IsRounded(text, again, 1e-15)) return;
  FuzzFailure(std::string(row.name) + " [" + Shortened(text) + "] becomes [" + Shortened(again) +
              "]");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const bool isLower = data[0] >= 'a' && data[0] <= 'z';
  const Rule rule = isLower ? CWhitespaceUtils::ws_none : CWhitespaceUtils::ws_collapse;
  // Other bytes than letters count on through the alphabet.
  const size_t kind = (26 * 5 + data[0] - static_cast<size_t>(isLower ? 'a' : 'A')) % 26;
  std::string text;
  try {
    text =
        kKinds[kind].rewrite(std::string(reinterpret_cast<const char*>(data + 1), size - 1), rule);
  } catch (const CQvException&) {
    return 0;
  }
  CheckRereading(kind, rule, text);
  return 0;
}
