// Input: a letter that picks what is done with the value classes, and one or two texts with a line
// feed between them. What CConversions makes of single texts is in values.cpp.

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>

#include "fuzz/fuzz_target.h"

#include "qvxml/core/exception.h"
#include "qvxml/core/value/conversions.h"
#include "qvxml/core/value/variant.h"
#include "qvxml/types/base64.h"
#include "qvxml/types/big_integer.h"
#include "qvxml/types/binary_data.h"
#include "qvxml/types/date_time.h"
#include "qvxml/types/date_time_span.h"
#include "qvxml/types/decimal.h"

using namespace QvXmlLib16;

namespace {

// Products and quotients of more take too long for many runs.
constexpr size_t kMaxDigits = 2000;

void Expect(bool condition, const char* what) {
  if (!condition) FuzzFailure(what);
}

// A copy of exactly its size, without the NUL that a string has, so that a sanitizer sees reads
// beyond the end.
class ExactText {
 public:
  explicit ExactText(const std::string& text) : m_text(new char[text.size()]), m_size(text.size()) {
    std::copy(text.begin(), text.end(), m_text.get());
  }
  const char* data() const { return m_text.get(); }
  size_t size() const { return m_size; }

 private:
  const std::unique_ptr<char[]> m_text;
  const size_t m_size;
};

template <class TNumber>
TNumber Parsed(const std::string& string) {
  const ExactText text(string);
  TNumber number;
  number.Parse(text.data(), text.size());
  return number;
}

CDateTimeSpan SpanOf(const std::string& string) {
  const ExactText text(string);
  CDateTimeSpan span;
  span.ParseXSDDuration(text.data(), text.size());
  return span;
}

void Base64(const std::string& string, const std::string&) {
  const ExactText text(string);
  const size_t capacity = CBase64::GetDecodedCapacity(text.size());
  // Of exactly that size, so that a sanitizer sees writes beyond the end.
  const std::unique_ptr<unsigned char[]> bytes(new unsigned char[capacity]);
  const unsigned long length = CBase64::Decode(text.data(), text.size(), bytes.get());
  Expect(length <= capacity, "more bytes than the capacity");
  CBinaryData again;
  again.SetAsBase64(CBase64::Encode(bytes.get(), length).c_str());
  Expect(again == CBinaryData(bytes.get(), length), "base64 changed the bytes");
}

void Hexadecimal(const std::string& string, const std::string&) {
  const ExactText text(string);
  unsigned char* bytes = nullptr;
  const unsigned long length = CBinaryData::ConvertToHexData(text.data(), text.size(), &bytes);
  const CBinaryData data(bytes, length, true);
  CBinaryData again;
  again.SetAsHexString(data.GetAsHexString().c_str());
  Expect(again == data && length * 2 == text.size(), "hexadecimal text changed the bytes");
}

void RealFormat(const std::string& text, const std::string& format) {
  const double value = CConversions::r8FromString(text, CWhitespaceUtils::ws_collapse);
  Expect(CConversions::r8ToString(value, format).size() < 32, "a real of more characters");
  Expect(CConversions::r4ToString(static_cast<float>(value), format).size() < 32,
         "a real of more characters");
}

void DecimalDigits(const std::string& text, const std::string& digits) {
  const CDecimal value = Parsed<CDecimal>(text);
  const int count = static_cast<int>(digits.size());
  const CDecimal rounded(value.ToString(count));
  Expect(rounded.GetFractionDigitCount() <= digits.size(), "more fraction digits than asked for");
  CDecimal error = rounded - value;
  if (error < CDecimal()) error.Negate();
  const CDecimal half("0." + std::string(digits.size(), '0') + "5");
  Expect(error <= half, "rounded to another number");
  CDecimal scaled(value);
  scaled.ChangeFractionalDivider(static_cast<int>(value.GetFractionDigitCount()) + count);
  Expect(scaled == value, "the scale changed the value");
}

void Integers(const std::string& text, const std::string& other) {
  if (text.size() + other.size() > kMaxDigits) return;
  const auto a = Parsed<CBigInteger>(text), b = Parsed<CBigInteger>(other);
  Expect((a + b) - b == a && (a - b) + b == a, "a sum");
  if (b.IsZero()) return;
  Expect((a * b) / b == a && (a * b) % b == CBigInteger(), "a product");
  CBigInteger quotient, remainder;
  CBigInteger::Divide(a, b, &quotient, &remainder);
  Expect(quotient * b + remainder == a, "a quotient");
  Expect(remainder.GetAbs() < b.GetAbs(), "a remainder");
  Expect(a.ToString().size() == a.GetDigitCount() + (a.IsNegative() ? 1 : 0), "number of digits");
}

void Decimals(const std::string& text, const std::string& other) {
  if (text.size() + other.size() > kMaxDigits) return;
  const auto a = Parsed<CDecimal>(text), b = Parsed<CDecimal>(other);
  if (a.ToString().size() + b.ToString().size() > kMaxDigits) return;
  Expect((a + b) - b == a && (a - b) + b == a, "a sum");
  Expect(a * b == b * a, "a product");
  Expect((a < b) == (b > a) && (a == b) == ((a - b).IsZero()), "an order");
  if (b.IsZero()) return;
  CDecimal error = (a / b) * b - a;
  if (error < CDecimal()) error.Negate();
  CDecimal bound(b);
  if (bound < CDecimal()) bound.Negate();
  Expect(error <= bound * CDecimal("5E-35"), "a quotient");
}

CDateTime DateTimeOf(const std::string& string) {
  const ExactText text(string);
  CDateTime value;
  if (string.find('T') != std::string::npos) {
    value.ParseXSDDateTime(text.data(), text.size());
  } else if (string.size() > 2 && string[2] == ':') {
    value.ParseXSDTime(text.data(), text.size());
  } else {
    value.ParseXSDDate(text.data(), text.size());
  }
  return value;
}

void DateTimes(const std::string& text, const std::string& other) {
  const CDateTime a = DateTimeOf(text), b = DateTimeOf(other);
  Expect(DateTimeOf(a.ToString()).ToString() == a.ToString(), "the text of a date");
  // Earlier and later change places.
  const int order = a.CompareTo(b), reversed = b.CompareTo(a);
  Expect(order == (reversed == 1 || reversed == 2 ? 3 - reversed : reversed), "the order of dates");
  const CDateTime normalized = a.GetNormalized();
  Expect(a.HasTimeZone() || normalized.ToString() == a.ToString(), "a date became another");
  const CDateTimeSpan span = a - b;
  Expect(span.GetMonths() == 0 && span.GetYears() == 0, "months between dates");
}

void DateAndSpan(const std::string& text, const std::string& duration) {
  const CDateTimeSpan span = SpanOf(duration), again = SpanOf(span.ToString());
  Expect(again.ToString() == span.ToString() && again.CompareTo(span) != 1 &&
             again.CompareTo(span) != 2,
         "the text of a duration");
  const CDateTime sum = DateTimeOf(text) + span;
  Expect(DateTimeOf(sum.ToString()).ToString() == sum.ToString(), "the text of a sum");
}

void Spans(const std::string& text, const std::string& other) {
  const CDateTimeSpan a = SpanOf(text), b = SpanOf(other);
  const int order = a.CompareTo(b), reversed = b.CompareTo(a);
  Expect(order == (reversed == 1 || reversed == 2 ? 3 - reversed : reversed), "order of durations");
}

void Zone(const std::string& text, const std::string&) {
  CDateTime value(2000, 1, 1);
  value.SetZone(text.c_str());
  Expect(DateTimeOf(value.ToString()).ToString() == value.ToString(), "the text of a zone");
}

// A first character chooses the type, 0 for each that is none.
void Variant(const std::string& text, const std::string& typeText) {
  const int type = typeText.empty() ? 0 : typeText[0] % 32;
  QvVariant value;
  value.FromString(text, static_cast<ItemType>(type), CWhitespaceUtils::ws_collapse);
  const QvVariant copy(value);
  Expect(copy.GetItemType() == type && copy.ToString() == value.ToString(), "a copy differs");
  value.SetNil();
  Expect(value.ToString().empty() && copy.IsValid(), "a nil value has text");
}

using Operation = void (*)(const std::string& first, const std::string& second);

// By the letters from A on.
constexpr Operation kOperations[] = {Base64,   Hexadecimal, RealFormat, DecimalDigits,
                                     Integers, Decimals,    DateTimes,  DateAndSpan,
                                     Spans,    Zone,        Variant};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string input(reinterpret_cast<const char*>(data + 1), size - 1);
  const size_t end = std::min(input.find('\n'), input.size());
  const std::string second = end < input.size() ? input.substr(end + 1) : "";
  try {
    kOperations[(data[0] + 256u - 'A') % 256u % std::size(kOperations)](input.substr(0, end),
                                                                        second);
  } catch (const CQvException&) {
  }
  return 0;
}
