// Facet checks as the metadata makes them before a value is written. The pattern rows stand beside
// libpcre alone, compiling and matching the translated pattern once.

#include <string>

#include <benchmark/benchmark.h>
#include <pcre.h>

#include "qvxml/binding/facet_checks.h"
#include "qvxml/binding/primitive_restrictions.h"
#include "qvxml/binding/xsd_pattern.h"
#include "qvxml/core/value/variant.h"

using namespace QvXmlLib16;

namespace {

void Check(benchmark::State& state, const QvVariant& value, const CPrimitiveRestrictions& facets) {
  for (auto _ : state) {
    CXmlObjectHelper::CheckRestriction("name", value, value.GetItemType(), facets);
  }
  state.SetItemsProcessed(state.iterations());
}

QvVariant MakeValue(ItemType type, const char* text) {
  QvVariant value;
  value.FromString(text, type, CWhitespaceUtils::ws_none);
  return value;
}

CPrimitiveRestrictions MakeBounds(const char* lower, const char* upper) {
  return CPrimitiveRestrictions("", -1, -1, lower, upper);
}

void BM_NoFacets(benchmark::State& state) {
  Check(state, MakeValue(ItemType_i4, "12345"), CPrimitiveRestrictions());
}
BENCHMARK(BM_NoFacets);

void BM_IntegerBounds(benchmark::State& state) {
  Check(state, MakeValue(ItemType_i4, "12345"), MakeBounds("0", "100000"));
}
BENCHMARK(BM_IntegerBounds);

void BM_DecimalBounds(benchmark::State& state) {
  Check(state, MakeValue(ItemType_decimal, "123.45"), MakeBounds("0", "1000.00"));
}
BENCHMARK(BM_DecimalBounds);

void BM_DateTimeBounds(benchmark::State& state) {
  Check(state, MakeValue(ItemType_datetime, "2001-02-03T04:05:06Z"),
        MakeBounds("2000-01-01T00:00:00Z", "2010-01-01T00:00:00Z"));
}
BENCHMARK(BM_DateTimeBounds);

void BM_StringLength(benchmark::State& state) {
  Check(state, MakeValue(ItemType_string, "twenty characters ab"),
        CPrimitiveRestrictions("", 1, 100));
}
BENCHMARK(BM_StringLength);

struct CPatternRow {
  const char* xsd;
  const char* perl;
  std::string value;
};

const CPatternRow& GetPatternRow(benchmark::State& state) {
  static const CPatternRow kRows[] = {
      {"[A-Z]{2}\\d{6}", "^([A-Z]{2}\\d{6})$", "AB123456"},
      {"\\i\\c*", "^(([^\\W\\d]|:)(\\w|\\.|-|:)*)$", "x:y-1"},
      {"\\i\\c*", "^(([^\\W\\d]|:)(\\w|\\.|-|:)*)$", std::string(200, 'a')},
  };
  const CPatternRow& row = kRows[state.range(0)];
  state.SetLabel(row.xsd + std::string(", ") + std::to_string(row.value.size()) + " bytes");
  return row;
}

void BM_Pattern(benchmark::State& state) {
  const CPatternRow& row = GetPatternRow(state);
  Check(state, MakeValue(ItemType_string, row.value.c_str()), CPrimitiveRestrictions(row.xsd));
}
BENCHMARK(BM_Pattern)->DenseRange(0, 2);

void BM_PatternPcreAlone(benchmark::State& state) {
  const CPatternRow& row = GetPatternRow(state);
  for (auto _ : state) {
    const char* error = nullptr;
    int errorOffset = 0;
    pcre* const compiled =
        pcre_compile(row.perl, PCRE_UTF8 | PCRE_UCP | PCRE_DOLLAR_ENDONLY | PCRE_NEWLINE_ANYCRLF,
                     &error, &errorOffset, nullptr);
    int offsets[30];
    benchmark::DoNotOptimize(pcre_exec(compiled, nullptr, row.value.data(),
                                       static_cast<int>(row.value.size()), 0, 0, offsets, 30));
    pcre_free(compiled);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_PatternPcreAlone)->DenseRange(0, 2);

// Bytes of value per second.
void BM_PatternOnLongValue(benchmark::State& state) {
  const std::string value(static_cast<size_t>(state.range(0)), 'a');
  for (auto _ : state) benchmark::DoNotOptimize(TestRegEx(value, "\\i\\c*"));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_PatternOnLongValue)->RangeMultiplier(10)->Range(1000, 10000000);

}  // namespace
