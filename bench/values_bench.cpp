// What objects that hold value classes as members pay for them: making, copying and destroying.
//
// Row names: <class>/<operation>. The time is that of one value. Rows with "/threads:2" do the same
// on two threads at once.

#include <cstdint>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>

#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"

namespace {

using namespace QvXmlLib16;

template <class TValue>
void Make(benchmark::State& state) {
  for (auto _ : state) {
    TValue value;
    benchmark::DoNotOptimize(value);
  }
}

template <class TValue>
void Copy(benchmark::State& state, const TValue& source) {
  for (auto _ : state) {
    TValue value(source);
    benchmark::DoNotOptimize(value);
  }
}

template <class TValue>
void Assign(benchmark::State& state, const TValue& source) {
  TValue value;
  for (auto _ : state) {
    value = source;
    benchmark::DoNotOptimize(value);
  }
}

template <class TValue>
void Register(const std::string& name, const TValue& source) {
  for (const int threads : {1, 2}) {
    benchmark::RegisterBenchmark((name + "/Make").c_str(), Make<TValue>)->Threads(threads);
    benchmark::RegisterBenchmark((name + "/Copy").c_str(), [source](benchmark::State& state) {
      Copy(state, source);
    })->Threads(threads);
  }
  benchmark::RegisterBenchmark((name + "/Assign").c_str(),
                               [source](benchmark::State& state) { Assign(state, source); });
}

// Static, since benchmark_main owns the entry point.
const bool kIsRegistered = [] {
  Register("CBigInteger(9 digits)", CBigInteger(123456789));
  Register("CBigInteger(19 digits)", CBigInteger(INT64_MAX));
  Register("CDecimal", CDecimal("1234.56"));
  Register("CDateTime", CDateTime("2013-07-11T10:12:31Z"));
  Register("CDateTimeSpan", CDateTimeSpan(1, 2, 3));
  Register("CBinaryData", CBinaryData("sixteen bytes of"));
  return true;
}();

}  // namespace
