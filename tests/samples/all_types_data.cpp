#include "tests/samples/all_types_data.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace samples {

namespace {

CBinaryData Bytes(const char* bytes, unsigned long length) {
  return CBinaryData(reinterpret_cast<const unsigned char*>(bytes), length);
}

template <class TValue>
TValue Parse(void (TValue::*parse)(const char*), const char* text) {
  TValue value;
  (value.*parse)(text);
  return value;
}
CDateTime Date(const char* text) { return Parse(&CDateTime::ParseXSDDate, text); }
CDateTime Time(const char* text) { return Parse(&CDateTime::ParseXSDTime, text); }
CDateTime DateTime(const char* text) { return Parse(&CDateTime::ParseXSDDateTime, text); }
CDateTimeSpan Duration(const char* text) { return Parse(&CDateTimeSpan::ParseXSDDuration, text); }

template <class TNumber>
using Limits = std::numeric_limits<TNumber>;

// clang-format off
AllItemTypes::Values Extremes() {
  return {
      Bytes("\x00\x7F\xFF", 3), Bytes("\xFB\xEF\xBE\x00", 4), char{-128}, short{-32768},
      Limits<long>::min(), Limits<long long>::min(), 255, 65535, Limits<unsigned long>::max(),
      Limits<unsigned long long>::max(), Limits<float>::max(), Limits<double>::denorm_min(),
      Duration("-P1Y2M3DT4H5M6.789S"), Date("2024-02"), Date("--02-29"), 2024, 12, 31,
      Date("2024-02-29"), DateTime("2024-02-29T23:59:59.123456789Z"), Time("23:59:59.5"),
      "\xC3\xA4 <&> \"quoted\"  two blanks", true,
      CDecimal("-0.000000000000000000000000000000000001"),
      CBigInteger("-123456789012345678901234567890")};
}

AllItemTypes::Values OtherExtremes() {
  return {
      Bytes("", 0), Bytes("a", 1), char{127}, short{32767}, Limits<long>::max(),
      Limits<long long>::max(), 0, 0, 0, 0, -0.1F, -Limits<double>::infinity(), Duration("PT0S"),
      Date("0001-12Z"), Date("--12-31+14:00"), 9999, 1, 1, Date("1999-12-31-05:30"),
      DateTime("0001-01-01T00:00:00"), Time("00:00:00+01:00"), "", false,
      CDecimal("123456789012345678901234567890.5"), CBigInteger(0)};
}
// clang-format on

// Dates that are equal may still differ in their zones.
template <class TValue>
void ExpectSame(const TValue& value, const TValue& expected) {
  if constexpr (std::is_same_v<TValue, CDateTime> || std::is_same_v<TValue, CDateTimeSpan>) {
    EXPECT_EQ(value.ToString(), expected.ToString());
  } else {
    EXPECT_TRUE(value == expected);
  }
}

// All but a nil i4, which is the caller's to expect.
template <class TPart>
void CheckValues(TPart& part) {
  const auto check = [](auto traits, const auto& value, const auto& expected) {
    SCOPED_TRACE(traits.kName);
    if (value.has_value()) return ExpectSame(*value, expected);
    EXPECT_TRUE(traits.kType == ItemType_i4 && (std::is_same_v<TPart, CTypedNillables>));
  };
  AllItemTypes::ForEach(check, part.GetTyped(), Extremes());
}

}  // namespace

void FillAllTypes(CAllTypes& object) {
  CTypedAttributes& attributes = *object.GetAttributes();
  attributes.GetTyped() = Extremes();
  attributes.SetColor(EColor::e_blue);
  attributes.SetCount(10);
  attributes.GetAnyAttribute().Add("extra", "1 < 2", "urn:other");
  object.GetMandatories()->GetTyped() = Extremes();
  object.GetMandatories()->SetColor(EColor::e_red);
  object.GetOptionals()->GetTyped() = Extremes();
  object.GetDefaults()->GetTyped() = Extremes();
  object.GetDefaults()->SetColor(EColor::e_blue);
  object.GetNillables()->GetTyped() = Extremes();
  std::get<TNillable<long>>(object.GetNillables()->GetTyped()) = TNillable<long>::Nil();
  const auto fill = [](auto, const auto& list, const auto& first, const auto& second) {
    list->Add(first);
    list->Add(second);
  };
  AllItemTypes::ForEach(fill, object.GetLists()->GetTyped(), Extremes(), OtherExtremes());
  object.GetLists()->GetColor().AddFromString("red");
  object.GetLists()->GetColor().AddFromString("blue");
}

void CheckAllTypes(const CAllTypes& object) {
  CTypedAttributes& attributes = *object.GetAttributes();
  CheckValues(attributes);
  EXPECT_EQ(attributes.GetColor(), EColor::e_blue);
  EXPECT_EQ(attributes.GetCount(), 10);
  ASSERT_EQ(attributes.GetAnyAttribute().GetCount(), 1);
  EXPECT_EQ(attributes.GetAnyAttribute().Item(0)->GetValue(), "1 < 2");
  EXPECT_EQ(attributes.GetAnyAttribute().Item(0)->GetNamespace(), "urn:other");
  CheckValues(*object.GetMandatories());
  EXPECT_EQ(object.GetMandatories()->GetColor(), EColor::e_red);
  CheckValues(*object.GetOptionals());
  EXPECT_EQ(object.GetOptionals()->GetColor(), std::nullopt);
  CheckValues(*object.GetDefaults());
  EXPECT_EQ(object.GetDefaults()->GetColor(), EColor::e_blue);
  CheckValues(*object.GetNillables());
  EXPECT_TRUE(std::get<TNillable<long>>(object.GetNillables()->GetTyped()).IsNil());
  const auto check = [](auto traits, const auto& list, const auto& first, const auto& second) {
    SCOPED_TRACE(traits.kName);
    ASSERT_EQ(list->GetCount(), 2);
    ExpectSame(first, list->Item(0));
    ExpectSame(second, list->Item(1));
  };
  AllItemTypes::ForEach(check, object.GetLists()->GetTyped(), Extremes(), OtherExtremes());
  const CstringCol& colors = object.GetLists()->GetColor();
  ASSERT_EQ(colors.GetCount(), 2);
  EXPECT_EQ(colors.Item(0) + colors.Item(1), "redblue");
}

}  // namespace samples
