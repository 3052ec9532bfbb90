// Text, multiplication and division of CBigInteger, each beside GMP where that is installed, and
// the text of short decimals. Sizes are numbers of decimal digits; times are for one operation.

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include <benchmark/benchmark.h>

#include "qvxml/types/big_integer.h"
#include "qvxml/types/decimal.h"

// The library may be installed without its header.
#if defined(QVXML_HAVE_GMP) && __has_include(<gmp.h>)
#include <gmp.h>
#else
#undef QVXML_HAVE_GMP
#endif

using QvXmlLib16::CBigInteger;
using QvXmlLib16::CDecimal;

namespace {

std::string MakeDigits(std::size_t count) {
  std::mt19937 random(static_cast<unsigned int>(count));
  std::string digits(1, '7');
  while (digits.size() < count) digits += static_cast<char>('0' + random() % 10);
  return digits;
}

std::size_t Size(const benchmark::State& state) { return static_cast<std::size_t>(state.range(0)); }

void TextSizes(benchmark::internal::Benchmark* benchmark) {
  for (const long digits : {9, 18, 100, 10000, 1000000}) benchmark->Arg(digits);
}

void ArithmeticSizes(benchmark::internal::Benchmark* benchmark) {
  for (const long digits : {9, 18, 100, 500, 1000, 2000, 10000, 100000, 1000000}) {
    benchmark->Arg(digits);
  }
}

void BigIntegerParse(benchmark::State& state) {
  const std::string digits = MakeDigits(Size(state));
  CBigInteger value;
  for (auto _ : state) {
    value.Parse(digits.data(), digits.size());
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(BigIntegerParse)->Apply(TextSizes);

void BigIntegerPrint(benchmark::State& state) {
  const CBigInteger value(MakeDigits(Size(state)));
  for (auto _ : state) benchmark::DoNotOptimize(value.ToString());
}
BENCHMARK(BigIntegerPrint)->Apply(TextSizes);

void BigIntegerMultiply(benchmark::State& state) {
  const CBigInteger left(MakeDigits(Size(state)));
  const CBigInteger right(MakeDigits(Size(state)));
  for (auto _ : state) benchmark::DoNotOptimize(left * right);
}
BENCHMARK(BigIntegerMultiply)->Apply(ArithmeticSizes);

// The dividend has as many digits as stated, the divisor half of them.
void BigIntegerDivide(benchmark::State& state) {
  const CBigInteger dividend(MakeDigits(Size(state)));
  const CBigInteger divisor(MakeDigits(Size(state) / 2));
  for (auto _ : state) benchmark::DoNotOptimize(dividend / divisor);
}
BENCHMARK(BigIntegerDivide)->Apply(ArithmeticSizes);

#ifdef QVXML_HAVE_GMP

class Gmp {
 public:
  Gmp() { mpz_init(m_value); }
  explicit Gmp(const std::string& digits) { mpz_init_set_str(m_value, digits.c_str(), 10); }
  ~Gmp() { mpz_clear(m_value); }
  Gmp(const Gmp&) = delete;
  Gmp& operator=(const Gmp&) = delete;
  mpz_ptr Get() { return m_value; }

 private:
  mpz_t m_value;
};

void GmpParse(benchmark::State& state) {
  const std::string digits = MakeDigits(Size(state));
  Gmp value;
  for (auto _ : state) benchmark::DoNotOptimize(mpz_set_str(value.Get(), digits.c_str(), 10));
}
BENCHMARK(GmpParse)->Apply(TextSizes);

void GmpPrint(benchmark::State& state) {
  Gmp value(MakeDigits(Size(state)));
  for (auto _ : state) {
    std::string text(Size(state) + 2, '\0');
    benchmark::DoNotOptimize(mpz_get_str(text.data(), 10, value.Get()));
  }
}
BENCHMARK(GmpPrint)->Apply(TextSizes);

void GmpMultiply(benchmark::State& state) {
  Gmp left(MakeDigits(Size(state)));
  Gmp right(MakeDigits(Size(state)));
  for (auto _ : state) {
    Gmp product;
    mpz_mul(product.Get(), left.Get(), right.Get());
    benchmark::DoNotOptimize(product);
  }
}
BENCHMARK(GmpMultiply)->Apply(ArithmeticSizes);

void GmpDivide(benchmark::State& state) {
  Gmp dividend(MakeDigits(Size(state)));
  Gmp divisor(MakeDigits(Size(state) / 2));
  for (auto _ : state) {
    Gmp quotient;
    mpz_tdiv_q(quotient.Get(), dividend.Get(), divisor.Get());
    benchmark::DoNotOptimize(quotient);
  }
}
BENCHMARK(GmpDivide)->Apply(ArithmeticSizes);

#endif  // QVXML_HAVE_GMP

void DecimalParse(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CDecimal("123.45"));
}
BENCHMARK(DecimalParse);

void DecimalPrint(benchmark::State& state) {
  const CDecimal value("123.45");
  for (auto _ : state) benchmark::DoNotOptimize(value.ToString());
}
BENCHMARK(DecimalPrint);

void DecimalPrintRounded(benchmark::State& state) {
  const CDecimal value("123.456");
  for (auto _ : state) benchmark::DoNotOptimize(value.ToString(2));
}
BENCHMARK(DecimalPrintRounded);

void DecimalToDouble(benchmark::State& state) {
  const CDecimal value("123.45");
  for (auto _ : state) benchmark::DoNotOptimize(value.ToDouble());
}
BENCHMARK(DecimalToDouble);

void DecimalAdd(benchmark::State& state) {
  const CDecimal left("123.45");
  const CDecimal right("-0.987");
  for (auto _ : state) benchmark::DoNotOptimize(left + right);
}
BENCHMARK(DecimalAdd);

void DecimalCompare(benchmark::State& state) {
  const CDecimal left("123.45");
  const CDecimal right("123.456");
  for (auto _ : state) benchmark::DoNotOptimize(left < right);
}
BENCHMARK(DecimalCompare);

void StrtodOfTheSameText(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(std::strtod("123.45", nullptr));
}
BENCHMARK(StrtodOfTheSameText);

void SnprintfOfTheSameValue(benchmark::State& state) {
  char text[32];
  for (auto _ : state) benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%.2f", 123.45));
}
BENCHMARK(SnprintfOfTheSameValue);

}  // namespace
