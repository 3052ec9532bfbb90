// A tour of the values: conversions, exact decimals, dates and durations, big integers, facets.

#include <iostream>

#include <qvxml/qvxml.h>

using namespace QvXmlLib16;

namespace {

void ShowConversions() {
  // [conversions]
  const long quantity = CConversions::i4FromString("  42 ", CWhitespaceUtils::ws_collapse);
  const std::string third = CConversions::r8ToString(1.0 / 3);
  // [conversions]
  std::cout << "i4 \"  42 \" is " << quantity << ", a third is " << third << "\n";
}

void ShowDecimals() {
  // [decimals]
  const CDecimal price("19.99");
  const CDecimal total = price * CDecimal(3) * CDecimal("1.19");
  std::cout << "3 x 19.99 with 19 % tax is " << total.ToString() << ", rounded "
            << total.ToString(2) << "\n";
  // [decimals]
}

void ShowDates() {
  // [dates]
  CDateTime departure;
  departure.ParseXSDDateTime("2026-01-31T22:30:00+01:00");
  CDateTimeSpan stay;
  stay.ParseXSDDuration("P1MT90M");
  std::cout << departure.ToString() << " plus " << stay.ToString() << " is "
            << (departure + stay).ToString() << ", in UTC "
            << (departure + stay).GetNormalized().ToString() << "\n";
  // [dates]
}

void ShowBigIntegers() {
  // [big integers]
  CBigInteger factorial(1);
  for (int i = 2; i <= 30; ++i) factorial *= CBigInteger(i);
  std::cout << "30! is " << factorial.ToString() << "\n";
  // [big integers]
}

void ShowFacets() {
  // [facets]
  const CPrimitiveRestrictions isbn("[0-9]{13}");
  QvVariant value;
  value.SetString("978-3161484100");
  try {
    CXmlObjectHelper::CheckRestriction("isbn", value, ItemType_string, isbn);
  } catch (const CQvException& exception) {
    std::cout << exception.GetFullMessage() << "\n";
  }
  // [facets]
}

}  // namespace

int main() {
  ShowConversions();
  ShowDecimals();
  ShowDates();
  ShowBigIntegers();
  ShowFacets();
  return 0;
}
