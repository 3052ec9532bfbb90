#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "qvxml/core/exception.h"
#include "qvxml/core/value/item_text_internal.h"

using namespace QvXmlLib16;

namespace {

constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;

const struct Row {
  ItemType type;
  std::string_view valid;
  std::string_view other;
  std::string_view invalid;
} kRows[] = {
    {ItemType_hexBinary, "00FF", "AB", "0G"},
    {ItemType_base64Binary, "AP+r", "QQ==", "A"},
    {ItemType_i1, "-128", "7", "128"},
    {ItemType_i2, "-32768", "7", "32768"},
    {ItemType_i4, "-9223372036854775808", "7", "9223372036854775808"},
    {ItemType_i8, "9223372036854775807", "7", "x"},
    {ItemType_ui1, "255", "7", "256"},
    {ItemType_ui2, "65535", "7", "65536"},
    {ItemType_ui4, "18446744073709551615", "7", "x"},
    {ItemType_ui8, "18446744073709551615", "7", ""},
    {ItemType_r4, "1.5", "-INF", "1.5x"},
    {ItemType_r8, "0.1", "NaN", "x"},
    {ItemType_duration, "-P1DT0.5S", "PT0S", "P"},
    {ItemType_yearMonth, "2001-10", "-0001-02", "2001-13"},
    {ItemType_monthDay, "--02-29", "--12-31", "--02-30"},
    {ItemType_year, "2001", "1999", "201"},
    {ItemType_month, "--05", "--12", "--13"},
    {ItemType_day, "---09", "---31", "---00"},
    {ItemType_date, "2001-10-26+02:00", "2000-02-29", "2001-02-29"},
    {ItemType_datetime, "2001-10-26T21:32:52.12Z", "2000-02-29T00:00:00", "2000-02-29T24:00:00"},
    {ItemType_time, "21:32:52.000000001-01:30", "00:00:00", "00:00"},
    {ItemType_char, "a", "b", "ab"},
    {ItemType_string, "some text", "", ""},
    {ItemType_boolean, "true", "false", "yes"},
    {ItemType_decimal, "-123456789012345678901.5", "0.25", "1,5"},
    {ItemType_integer, "-123456789012345678901", "12", "1.5"},
};

template <class TTraits>
std::string TextOf(const typename TTraits::Carrier& value) {
  std::string text = "before ";
  detail::AppendText<TTraits::kType>(value, text);
  return text;
}

// The text is read out of the middle of another one.
template <class TTraits>
void Parse(std::string_view text, typename TTraits::Carrier& value) {
  const std::string around = "9\t" + std::string(text) + "\n9";
  const std::string_view view = std::string_view(around).substr(1, text.size() + 2);
  detail::ParseInto<TTraits::kType>(view, kCollapse, value);
}

}  // namespace

TEST(ItemText, IsReadInPlaceAndStaysAsItWasWhenItIsRefused) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.valid);
    VisitItemType(
        row.type,
        [&row](auto traits) {
          using Traits = decltype(traits);
          typename Traits::Carrier value{};
          Parse<Traits>(row.other, value);
          EXPECT_EQ(TextOf<Traits>(value), "before " + std::string(row.other));
          Parse<Traits>(row.valid, value);
          if (row.type != ItemType_string) {
            EXPECT_THROW(Parse<Traits>(row.invalid, value), CQvException);
          }
          EXPECT_EQ(TextOf<Traits>(value), "before " + std::string(row.valid));
        },
        [] { FAIL(); });
  }
}

TEST(ItemText, OfAVariantIsThatOfItsValue) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.valid);
    QvVariant variant;
    variant.FromString(std::string(row.valid), row.type, kCollapse);
    std::string text = "before ";
    detail::AppendText(variant, nullptr, text);
    EXPECT_EQ(text, "before " + std::string(row.valid));
    variant.SetNil();
    detail::AppendText(variant, nullptr, text);
    EXPECT_EQ(text, "before " + std::string(row.valid));
  }
  QvVariant number;
  number.SetR8(1.5);
  std::string text;
  detail::AppendText(number, "%.3f", text);
  number.SetDecimal(CDecimal("1.005"));
  detail::AppendText(number, "2", text);
  EXPECT_EQ(text, "1.5001.01");
}
