#include "qvxml/core/value/variant.h"

#include <limits>

#include "tests/support/qv_gtest.h"

#include "qvxml/core/value/item_traits.h"

namespace QvXmlLib16 {

// Stands in for a counted object: the variant only ever moves its address and its count.
class CXmlObjectBase {
 public:
  long AddRef() { return ++m_references; }
  long Release() { return --m_references; }
  long GetReferences() const { return m_references; }

 private:
  long m_references = 0;
};

}  // namespace QvXmlLib16

namespace {

using namespace QvXmlLib16;

const struct {
  const char *name, *text, *format = "", *expected = nullptr;  // as the text
} kTexts[] = {
    // In the order of the types' numbers.
    // clang-format off
    {"hexBinary", " 00ab ", "", "00AB"}, {"base64Binary", "AAEC"}, {"i1", "-128"},
    {"i2", "-32768"}, {"i4", "-9223372036854775808"}, {"i8", "9223372036854775807"},
    {"ui1", "255"}, {"ui2", "65535"}, {"ui4", "18446744073709551615"},
    {"ui8", "18446744073709551615"}, {"r4", "0.1"}, {"r8", "1.5", "%.3f", "1.500"},
    {"duration", "P1Y2M"}, {"yearMonth", "2001-02"}, {"monthDay", "--02-29"}, {"year", "2001"},
    {"month", "--05"}, {"day", "---31"}, {"date", "2001-02-03Z"},
    {"datetime", "2001-02-03T04:05:06.7"}, {"time", "04:05:06+01:00"}, {"char", "x"},
    {"string", " a\tb ", "", "a b"}, {"boolean", "1", "", "true"}, {"decimal", "1.005", "2", "1.01"},
    {"integer", "-123456789012345678901234567890"},
    // clang-format on
};

TEST(QvVariant, EveryTypeConvertsCopiesMovesAndTurnsNil) {
  const long before = CInstanceMonitor::GetTotal();
  int number = 0;
  for (const auto& row : kTexts) {
    SCOPED_TRACE(row.name);
    const char* const expected = row.expected == nullptr ? row.text : row.expected;
    QvVariant value;
    value.FromString(row.text, static_cast<ItemType>(++number), CWhitespaceUtils::ws_collapse);
    EXPECT_EQ(value.GetType(), row.name);
    EXPECT_EQ(value.ToString(row.format), expected);

    QvVariant copy(value);
    value.Clear();
    EXPECT_FALSE(value.IsValid());
    EXPECT_EQ(copy.ToString(row.format), expected);
    copy = *&copy;
    const QvVariant moved(std::move(copy));
    EXPECT_EQ(moved.ToString(row.format), expected);

    QvVariant nil(moved);
    nil.SetNil();
    const QvVariant nilCopy(nil);
    EXPECT_TRUE(nilCopy.IsNil() && nilCopy.IsValid());
    EXPECT_EQ(nilCopy.GetType(), row.name);
    EXPECT_EQ(nilCopy.ToString(), "");
  }
  EXPECT_EQ(number, 26);
  EXPECT_EQ(CInstanceMonitor::GetTotal(), before);
}

TEST(QvVariant, BadTextLeavesTheValueAsItWas) {
  QvVariant value;
  value.SetString("kept");
  EXPECT_QV_THROW(value.FromString("x", ItemType_i4, CWhitespaceUtils::ws_none),
                  CQvInvalidValueException, "The value [x] can not be converted to a i4");
  for (int type : {0, 27, 28, 29, -1}) {
    EXPECT_QV_THROW(value.FromString("1", static_cast<ItemType>(type), CWhitespaceUtils::ws_none),
                    CQvException,
                    "Invalid Type " + std::to_string(type) + " to convert from string");
  }
  EXPECT_EQ(value.ToString(), "kept");
}

TEST(QvVariant, WithoutATypeThereIsNoText) {
  QvVariant value;
  EXPECT_FALSE(value.IsValid());
  EXPECT_QV_THROW(value.GetType(), CQvException, "Invalid Type 0");
  value.SetNil();
  EXPECT_TRUE(value.IsValid());
  EXPECT_QV_THROW(value.ToString(), CQvException, "Invalid Type 0 to convert to string");
  value.SetXmlCollection(nullptr);
  EXPECT_QV_THROW(value.GetType(), CQvException, "Invalid Type 28");
  EXPECT_QV_THROW(value.ToString(), CQvException, "Invalid Type 28 to convert to string");
}

TEST(QvVariant, SettersReplaceWhateverIsHeld) {
  QvVariant value;
  value.SetString("text");
  value.SetString(*value.PeekString() + "s");
  EXPECT_EQ(value.GetString(), "texts");
  value.SetNil();
  value.SetI4(-1);
  EXPECT_FALSE(value.IsNil());
  value.SetUI1(7);
  EXPECT_EQ(value.GetI8(), 7) << "the slot keeps nothing of the wider value before";
  EXPECT_EQ(value.GetType(), "ui1");
}

// What is taken from a value of the type and set again is of the type, and the same.
template <class TArgument, class TValue>
void ExpectKept(ItemType type, const char* text, void (QvVariant::*set)(TArgument),
                TValue (QvVariant::*get)() const) {
  SCOPED_TRACE(text);
  QvVariant source;
  source.FromString(text, type, CWhitespaceUtils::ws_none);
  QvVariant value;
  (value.*set)((source.*get)());
  EXPECT_EQ(value.GetItemType(), type);
  EXPECT_EQ(value.ToString(), text);
}

TEST(QvVariant, SettersAndGettersAreOfTheSameType) {
  using V = QvVariant;
  // clang-format off
  ExpectKept(ItemType_hexBinary, "00AB", &V::SetHexBinary, &V::GetHexBinary);
  ExpectKept(ItemType_base64Binary, "AAEC", &V::SetBase64Binary, &V::GetBase64Binary);
  ExpectKept(ItemType_i1, "-128", &V::SetI1, &V::GetI1);
  ExpectKept(ItemType_i2, "-32768", &V::SetI2, &V::GetI2);
  ExpectKept(ItemType_i4, "-9223372036854775808", &V::SetI4, &V::GetI4);
  ExpectKept(ItemType_i8, "-9223372036854775808", &V::SetI8, &V::GetI8);
  ExpectKept(ItemType_ui1, "255", &V::SetUI1, &V::GetUI1);
  ExpectKept(ItemType_ui2, "65535", &V::SetUI2, &V::GetUI2);
  ExpectKept(ItemType_ui4, "18446744073709551615", &V::SetUI4, &V::GetUI4);
  ExpectKept(ItemType_ui8, "18446744073709551615", &V::SetUI8, &V::GetUI8);
  ExpectKept(ItemType_r4, "0.1", &V::SetR4, &V::GetR4);
  ExpectKept(ItemType_r8, "0.1", &V::SetR8, &V::GetR8);
  ExpectKept(ItemType_duration, "-P1Y2M", &V::SetDuration, &V::GetDuration);
  ExpectKept(ItemType_yearMonth, "2001-02", &V::SetYearMonth, &V::GetYearMonth);
  ExpectKept(ItemType_monthDay, "--02-29", &V::SetMonthDay, &V::GetMonthDay);
  ExpectKept(ItemType_year, "2001", &V::SetYear, &V::GetYear);
  ExpectKept(ItemType_month, "--05", &V::SetMonth, &V::GetMonth);
  ExpectKept(ItemType_day, "---31", &V::SetDay, &V::GetDay);
  ExpectKept(ItemType_date, "2001-02-03Z", &V::SetDate, &V::GetDate);
  ExpectKept(ItemType_datetime, "2001-02-03T04:05:06.7", &V::SetDateTime, &V::GetDateTime);
  ExpectKept(ItemType_time, "04:05:06+01:00", &V::SetTime, &V::GetTime);
  ExpectKept(ItemType_char, "x", &V::SetChar, &V::GetChar);
  ExpectKept(ItemType_boolean, "true", &V::SetBoolean, &V::GetBoolean);
  ExpectKept(ItemType_decimal, "-1.005", &V::SetDecimal, &V::GetDecimal);
  ExpectKept(ItemType_integer, "-123456789012345678901234567890", &V::SetInteger, &V::GetInteger);
  // clang-format on
}

TEST(QvVariant, ObjectGettersSurviveAnotherType) {
  QvVariant value;
  EXPECT_EQ(value.GetString(), "");
  value.SetI4(std::numeric_limits<long>::max());
  EXPECT_QV_THROW(value.GetString(), CQvException, "Invalid Type 5");
  EXPECT_EQ(value.PeekString(), nullptr);
  value.SetString("text");
  EXPECT_QV_THROW(value.GetDecimal(), CQvException, "Invalid Type 23");
  value.SetNil();
  EXPECT_EQ(value.GetString(), "");
  value.SetDate(CDateTime(static_cast<short>(2001), 2, 3));
  EXPECT_EQ(value.GetTime().ToString(), "2001-02-03") << "one class serves all date kinds";
}

TEST(QvVariant, ObjectsAreNeverOwned) {
  CXmlObjectBase object;
  {
    QvVariant value;
    value.SetXmlObject(&object);
    QvVariant copy(value);
    EXPECT_EQ(object.GetReferences(), 0);
    {
      const CSmartPtr<CXmlObjectBase> held = copy.GetXmlObject();
      EXPECT_EQ(held.Ptr(), &object);
      EXPECT_EQ(object.GetReferences(), 1);
    }
    value.SetNil();
    EXPECT_EQ(value.GetXmlObject(), nullptr);
    EXPECT_QV_THROW(value.GetType(), CQvException, "Invalid Type 27");
  }
  EXPECT_EQ(object.GetReferences(), 0);
}

}  // namespace
