// Every conversion pair of CConversions, each integer and floating row beside the C library's own
// function in the same run.
//
// Row names: <kind>/<direction>/<who>/<input>. Direction is ToText or FromText; who is "QvXml" or
// the C function; the input is told in Inputs() below. The time is that of one conversion, the
// counter "allocs" is heap allocations for one conversion, "values/s" conversions in a second.

#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "qvxml/core/value/conversions.h"
#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"

namespace {

std::atomic<unsigned long> g_allocations{0};

}  // namespace

// Not inlined, since the compiler then takes free for a mismatch of the new that it replaces.
[[gnu::noinline]] void* operator new(std::size_t size) {
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  if (void* const memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using namespace QvXmlLib16;
using C = CConversions;

constexpr size_t kInputs = 1024;
constexpr auto kRule = CWhitespaceUtils::ws_collapse;

template <class TInput, class TConvert>
void Run(benchmark::State& state, const std::vector<TInput>& inputs, const TConvert& convert) {
  size_t next = 0;
  const unsigned long before = g_allocations;
  for (auto _ : state) {
    benchmark::DoNotOptimize(convert(inputs[next]));
    if (++next == inputs.size()) next = 0;
  }
  const double allocations = static_cast<double>(g_allocations - before);
  state.counters["allocs"] = benchmark::Counter(allocations, benchmark::Counter::kAvgIterations);
  state.counters["values/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

template <class TInput, class TConvert>
void Register(const std::string& name, std::vector<TInput> inputs, TConvert convert) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [inputs = std::move(inputs), convert](benchmark::State& state) {
                                 Run(state, inputs, convert);
                               });
}

// One kind: the values and, as its ToText writes them, their texts.
template <class TValue, class TToText, class TFromText>
std::vector<std::string> RegisterPair(const std::string& kind, const std::string& input,
                                      const std::vector<TValue>& values, TToText toText,
                                      TFromText fromText) {
  std::vector<std::string> texts;
  for (const TValue& value : values) texts.push_back(toText(value));
  Register(kind + "/ToText/QvXml/" + input, values, toText);
  Register(kind + "/FromText/QvXml/" + input, texts, fromText);
  return texts;
}

template <class TValue, class TToText, class TFromText, class TReference>
void RegisterNumber(const std::string& kind, const std::string& input,
                    const std::vector<TValue>& values, TToText toText, TFromText fromText,
                    const char* format, const std::string& referenceName, TReference reference) {
  const auto texts = RegisterPair(kind, input, values, toText, fromText);
  // Into a text as well, since that is what the other row makes.
  Register(kind + "/ToText/snprintf/" + input, values, [format](TValue value) {
    char text[32];
    return std::string(text, static_cast<size_t>(std::snprintf(text, sizeof text, format, value)));
  });
  Register(kind + "/FromText/" + referenceName + "/" + input, texts, reference);
}

// Inputs: "small" integers have 1 to 3 digits, "wide" ones any number of digits that the kind has,
// each equally often; "cents" are reals with two digits behind the point, "whole" ones have none,
// "random" ones are any bits.

template <class TInteger>
std::vector<TInteger> Integers(bool isSmall) {
  std::mt19937_64 random(1);
  std::vector<TInteger> values(kInputs);
  for (TInteger& value : values) {
    value = static_cast<TInteger>(isSmall ? random() % 1000
                                          : random() >> (random() % (8 * sizeof(TInteger))));
  }
  return values;
}

std::vector<double> Reals(const std::string& input) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> exponents(-300, 300);
  std::uniform_real_distribution<double> mantissas(-10, 10);
  std::vector<double> values(kInputs);
  for (double& value : values) {
    const double whole = static_cast<double>(random() % 2000000) - 1000000;
    value = input == "whole"   ? whole
            : input == "cents" ? whole / 100
                               : mantissas(random) * std::pow(10, exponents(random));
  }
  return values;
}

template <class TValue, class TFromText>
std::vector<TValue> Values(TFromText fromText, std::initializer_list<const char*> texts) {
  std::vector<TValue> values;
  for (const char* const text : texts) values.push_back(fromText(text, kRule));
  return values;
}

#define QVXML_FROM(kind) [](const std::string& text) { return C::kind##FromString(text, kRule); }
#define QVXML_TO(kind) [](const auto& value) { return C::kind##ToString(value); }
#define QVXML_STRTO(function) \
  [](const std::string& text) { return function(text.c_str(), nullptr, 10); }

void RegisterIntegers() {
  for (const bool isSmall : {true, false}) {
    const char* const input = isSmall ? "small" : "wide";
    RegisterNumber("i1", input, Integers<char>(isSmall), QVXML_TO(i1), QVXML_FROM(i1), "%d",
                   "strtol", QVXML_STRTO(std::strtol));
    RegisterNumber("i2", input, Integers<short>(isSmall), QVXML_TO(i2), QVXML_FROM(i2), "%d",
                   "strtol", QVXML_STRTO(std::strtol));
    RegisterNumber("i4", input, Integers<long>(isSmall), QVXML_TO(i4), QVXML_FROM(i4), "%ld",
                   "strtol", QVXML_STRTO(std::strtol));
    RegisterNumber("i8", input, Integers<long long>(isSmall), QVXML_TO(i8), QVXML_FROM(i8), "%lld",
                   "strtoll", QVXML_STRTO(std::strtoll));
    RegisterNumber("ui1", input, Integers<unsigned char>(isSmall), QVXML_TO(ui1), QVXML_FROM(ui1),
                   "%u", "strtoul", QVXML_STRTO(std::strtoul));
    RegisterNumber("ui2", input, Integers<unsigned short>(isSmall), QVXML_TO(ui2), QVXML_FROM(ui2),
                   "%u", "strtoul", QVXML_STRTO(std::strtoul));
    RegisterNumber("ui4", input, Integers<unsigned long>(isSmall), QVXML_TO(ui4), QVXML_FROM(ui4),
                   "%lu", "strtoul", QVXML_STRTO(std::strtoul));
    RegisterNumber("ui8", input, Integers<unsigned long long>(isSmall), QVXML_TO(ui8),
                   QVXML_FROM(ui8), "%llu", "strtoull", QVXML_STRTO(std::strtoull));
  }
}

void RegisterReals() {
  const auto strtod = [](const std::string& text) { return std::strtod(text.c_str(), nullptr); };
  for (const char* const input : {"whole", "cents", "random"}) {
    const std::vector<double> reals = Reals(input);
    RegisterNumber("r8", input, reals, QVXML_TO(r8), QVXML_FROM(r8), "%.16g", "strtod", strtod);
    std::vector<float> narrow;
    // The eighth root brings the exponents into the range of a float.
    for (const double real : reals) {
      narrow.push_back(static_cast<float>(
          input == std::string("random") ? std::pow(std::abs(real), 1.0 / 8) : real));
    }
    RegisterNumber("r4", input, narrow, QVXML_TO(r4), QVXML_FROM(r4), "%.7g", "strtod", strtod);
  }
  const std::string format = "%.2f";
  Register("r8/ToText/QvXml/%.2f", Reals("cents"),
           [format](double value) { return C::r8ToString(value, format); });
  Register("r8/ToText/snprintf/%.2f", Reals("cents"), [](double value) {
    char text[32];
    return std::string(text, static_cast<size_t>(std::snprintf(text, sizeof text, "%.2f", value)));
  });
}

void RegisterTexts() {
  RegisterPair(
      "boolean", "both", std::vector<char>{1, 0},
      [](char value) { return C::booleanToString(value != 0); }, QVXML_FROM(boolean));
  RegisterPair("char", "letter", std::vector<char>{'a', 'z'}, QVXML_TO(char), QVXML_FROM(char));
  RegisterPair("string", "43 bytes",
               std::vector<std::string>{"The quick brown fox jumps over the lazy dog"},
               QVXML_TO(string), QVXML_FROM(string));
}

void RegisterClasses() {
  RegisterPair("decimal", "money", Values<CDecimal>(C::decimalFromString, {"1234.56", "-0.99"}),
               QVXML_TO(decimal), QVXML_FROM(decimal));
  RegisterPair("integer", "30 digits",
               Values<CBigInteger>(C::integerFromString, {"123456789012345678901234567890"}),
               QVXML_TO(integer), QVXML_FROM(integer));
  const std::string hex(128, 'A');
  RegisterPair("hexBinary", "64 bytes", Values<CBinaryData>(C::hexBinaryFromString, {hex.c_str()}),
               QVXML_TO(hexBinary), QVXML_FROM(hexBinary));
  RegisterPair("base64Binary", "64 bytes",
               Values<CBinaryData>(C::hexBinaryFromString, {hex.c_str()}), QVXML_TO(base64Binary),
               QVXML_FROM(base64Binary));
  RegisterPair("duration", "typical",
               Values<CDateTimeSpan>(C::durationFromString, {"P1Y2M3DT4H5M6.7S"}),
               QVXML_TO(duration), QVXML_FROM(duration));
  RegisterPair("datetime", "typical",
               Values<CDateTime>(C::datetimeFromString, {"2001-10-26T21:32:52.126Z"}),
               QVXML_TO(datetime), QVXML_FROM(datetime));
  RegisterPair("date", "typical", Values<CDateTime>(C::dateFromString, {"2001-10-26"}),
               QVXML_TO(date), QVXML_FROM(date));
  RegisterPair("time", "typical", Values<CDateTime>(C::timeFromString, {"21:32:52"}),
               QVXML_TO(time), QVXML_FROM(time));
  RegisterPair("yearMonth", "typical", Values<CDateTime>(C::yearMonthFromString, {"2001-10"}),
               QVXML_TO(yearMonth), QVXML_FROM(yearMonth));
  RegisterPair("monthDay", "typical", Values<CDateTime>(C::monthDayFromString, {"--10-26"}),
               QVXML_TO(monthDay), QVXML_FROM(monthDay));
  RegisterPair("year", "typical", std::vector<unsigned short>{2001}, QVXML_TO(year),
               QVXML_FROM(year));
  RegisterPair("month", "typical", std::vector<unsigned char>{10}, QVXML_TO(month),
               QVXML_FROM(month));
  RegisterPair("day", "typical", std::vector<unsigned char>{26}, QVXML_TO(day), QVXML_FROM(day));
}

// Static, since benchmark_main owns the entry point.
const bool kIsRegistered = [] {
  RegisterIntegers();
  RegisterReals();
  RegisterTexts();
  RegisterClasses();
  return true;
}();

}  // namespace
