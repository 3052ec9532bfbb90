#include "tests/samples/all_types_data.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace samples {

namespace {

CBinaryData Bytes(const char* bytes, unsigned long length) {
  return CBinaryData(reinterpret_cast<const unsigned char*>(bytes), length);
}

CDateTime Date(const char* text) {
  CDateTime value;
  value.ParseXSDDate(text);
  return value;
}

CDateTime Time(const char* text) {
  CDateTime value;
  value.ParseXSDTime(text);
  return value;
}

CDateTime DateTime(const char* text) {
  CDateTime value;
  value.ParseXSDDateTime(text);
  return value;
}

CDateTimeSpan Duration(const char* text) {
  CDateTimeSpan value;
  value.ParseXSDDuration(text);
  return value;
}

// The accessors of all parts have the same names.
template <class TPart>
void SetValues(TPart& part) {
  part.SetHexBinary(Bytes("\x00\x7F\xFF", 3));
  part.SetBase64Binary(Bytes("\xFB\xEF\xBE\x00", 4));
  part.SetI1(char{-128});
  part.SetI2(short{-32768});
  part.SetI4(std::numeric_limits<long>::min());
  part.SetI8(std::numeric_limits<long long>::min());
  part.SetUi1(static_cast<unsigned char>(255));
  part.SetUi2(static_cast<unsigned short>(65535));
  part.SetUi4(std::numeric_limits<unsigned long>::max());
  part.SetUi8(std::numeric_limits<unsigned long long>::max());
  part.SetR4(std::numeric_limits<float>::max());
  part.SetR8(std::numeric_limits<double>::denorm_min());
  part.SetDuration(Duration("-P1Y2M3DT4H5M6.789S"));
  part.SetYearMonth(Date("2024-02"));
  part.SetMonthDay(Date("--02-29"));
  part.SetYear(static_cast<unsigned short>(2024));
  part.SetMonth(static_cast<unsigned char>(12));
  part.SetDay(static_cast<unsigned char>(31));
  part.SetDate(Date("2024-02-29"));
  part.SetDatetime(DateTime("2024-02-29T23:59:59.123456789Z"));
  part.SetTime(Time("23:59:59.5"));
  part.SetString(std::string("\xC3\xA4 <&> \"quoted\"  two blanks"));
  part.SetBoolean(true);
  part.SetDecimal(CDecimal("-0.000000000000000000000000000000000001"));
  part.SetInteger(CBigInteger("-123456789012345678901234567890"));
}

// All but the i4, which one part has as nil.
template <class TPart>
void CheckValues(const TPart& part) {
  EXPECT_TRUE(part.GetHexBinary() == Bytes("\x00\x7F\xFF", 3));
  EXPECT_TRUE(part.GetBase64Binary() == Bytes("\xFB\xEF\xBE\x00", 4));
  EXPECT_TRUE(part.GetI1() == char{-128});
  EXPECT_TRUE(part.GetI2() == short{-32768});
  EXPECT_TRUE(part.GetI8() == std::numeric_limits<long long>::min());
  EXPECT_TRUE(part.GetUi1() == static_cast<unsigned char>(255));
  EXPECT_TRUE(part.GetUi2() == static_cast<unsigned short>(65535));
  EXPECT_TRUE(part.GetUi4() == std::numeric_limits<unsigned long>::max());
  EXPECT_TRUE(part.GetUi8() == std::numeric_limits<unsigned long long>::max());
  EXPECT_TRUE(part.GetR4() == std::numeric_limits<float>::max());
  EXPECT_TRUE(part.GetR8() == std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(part.GetDuration()->ToString(), (Duration("-P1Y2M3DT4H5M6.789S")).ToString());
  EXPECT_EQ(part.GetYearMonth()->ToString(), (Date("2024-02")).ToString());
  EXPECT_EQ(part.GetMonthDay()->ToString(), (Date("--02-29")).ToString());
  EXPECT_TRUE(part.GetYear() == static_cast<unsigned short>(2024));
  EXPECT_TRUE(part.GetMonth() == static_cast<unsigned char>(12));
  EXPECT_TRUE(part.GetDay() == static_cast<unsigned char>(31));
  EXPECT_EQ(part.GetDate()->ToString(), (Date("2024-02-29")).ToString());
  EXPECT_EQ(part.GetDatetime()->ToString(),
            (DateTime("2024-02-29T23:59:59.123456789Z")).ToString());
  EXPECT_EQ(part.GetTime()->ToString(), (Time("23:59:59.5")).ToString());
  EXPECT_TRUE(part.GetString() == std::string("\xC3\xA4 <&> \"quoted\"  two blanks"));
  EXPECT_TRUE(part.GetBoolean() == true);
  EXPECT_TRUE(part.GetDecimal() == CDecimal("-0.000000000000000000000000000000000001"));
  EXPECT_TRUE(part.GetInteger() == CBigInteger("-123456789012345678901234567890"));
}

void SetLists(CTypedLists& lists) {
  lists.GetHexBinary().Add(Bytes("\x00\x7F\xFF", 3));
  lists.GetHexBinary().Add(Bytes("", 0));
  lists.GetBase64Binary().Add(Bytes("\xFB\xEF\xBE\x00", 4));
  lists.GetBase64Binary().Add(Bytes("a", 1));
  lists.GetI1().Add(char{-128});
  lists.GetI1().Add(char{127});
  lists.GetI2().Add(short{-32768});
  lists.GetI2().Add(short{32767});
  lists.GetI4().Add(std::numeric_limits<long>::min());
  lists.GetI4().Add(std::numeric_limits<long>::max());
  lists.GetI8().Add(std::numeric_limits<long long>::min());
  lists.GetI8().Add(std::numeric_limits<long long>::max());
  lists.GetUi1().Add(static_cast<unsigned char>(255));
  lists.GetUi1().Add(static_cast<unsigned char>(0));
  lists.GetUi2().Add(static_cast<unsigned short>(65535));
  lists.GetUi2().Add(static_cast<unsigned short>(0));
  lists.GetUi4().Add(std::numeric_limits<unsigned long>::max());
  lists.GetUi4().Add(0UL);
  lists.GetUi8().Add(std::numeric_limits<unsigned long long>::max());
  lists.GetUi8().Add(0ULL);
  lists.GetR4().Add(std::numeric_limits<float>::max());
  lists.GetR4().Add(-0.1F);
  lists.GetR8().Add(std::numeric_limits<double>::denorm_min());
  lists.GetR8().Add(-std::numeric_limits<double>::infinity());
  lists.GetDuration().Add(Duration("-P1Y2M3DT4H5M6.789S"));
  lists.GetDuration().Add(Duration("PT0S"));
  lists.GetYearMonth().Add(Date("2024-02"));
  lists.GetYearMonth().Add(Date("0001-12Z"));
  lists.GetMonthDay().Add(Date("--02-29"));
  lists.GetMonthDay().Add(Date("--12-31+14:00"));
  lists.GetYear().Add(static_cast<unsigned short>(2024));
  lists.GetYear().Add(static_cast<unsigned short>(9999));
  lists.GetMonth().Add(static_cast<unsigned char>(12));
  lists.GetMonth().Add(static_cast<unsigned char>(1));
  lists.GetDay().Add(static_cast<unsigned char>(31));
  lists.GetDay().Add(static_cast<unsigned char>(1));
  lists.GetDate().Add(Date("2024-02-29"));
  lists.GetDate().Add(Date("1999-12-31-05:30"));
  lists.GetDatetime().Add(DateTime("2024-02-29T23:59:59.123456789Z"));
  lists.GetDatetime().Add(DateTime("0001-01-01T00:00:00"));
  lists.GetTime().Add(Time("23:59:59.5"));
  lists.GetTime().Add(Time("00:00:00+01:00"));
  lists.GetString().Add(std::string("\xC3\xA4 <&> \"quoted\"  two blanks"));
  lists.GetString().Add(std::string());
  lists.GetBoolean().Add(true);
  lists.GetBoolean().Add(false);
  lists.GetDecimal().Add(CDecimal("-0.000000000000000000000000000000000001"));
  lists.GetDecimal().Add(CDecimal("123456789012345678901234567890.5"));
  lists.GetInteger().Add(CBigInteger("-123456789012345678901234567890"));
  lists.GetInteger().Add(CBigInteger(0));
  lists.GetColor().Add("red");
  lists.GetColor().Add("blue");
}

template <class TCollection, class TValue>
void ExpectItems(const TCollection& collection, const TValue& first, const TValue& second) {
  SCOPED_TRACE(collection.GetElementName());
  ASSERT_EQ(collection.GetCount(), 2);
  EXPECT_TRUE(collection.Item(0) == first);
  EXPECT_TRUE(collection.Item(1) == second);
}

void CheckLists(const CTypedLists& lists) {
  ExpectItems(lists.GetHexBinary(), Bytes("\x00\x7F\xFF", 3), Bytes("", 0));
  ExpectItems(lists.GetBase64Binary(), Bytes("\xFB\xEF\xBE\x00", 4), Bytes("a", 1));
  ExpectItems(lists.GetI1(), char{-128}, char{127});
  ExpectItems(lists.GetI2(), short{-32768}, short{32767});
  ExpectItems(lists.GetI4(), std::numeric_limits<long>::min(), std::numeric_limits<long>::max());
  ExpectItems(lists.GetI8(), std::numeric_limits<long long>::min(),
              std::numeric_limits<long long>::max());
  ExpectItems(lists.GetUi1(), static_cast<unsigned char>(255), static_cast<unsigned char>(0));
  ExpectItems(lists.GetUi2(), static_cast<unsigned short>(65535), static_cast<unsigned short>(0));
  ExpectItems(lists.GetUi4(), std::numeric_limits<unsigned long>::max(), 0UL);
  ExpectItems(lists.GetUi8(), std::numeric_limits<unsigned long long>::max(), 0ULL);
  ExpectItems(lists.GetR4(), std::numeric_limits<float>::max(), -0.1F);
  ExpectItems(lists.GetR8(), std::numeric_limits<double>::denorm_min(),
              -std::numeric_limits<double>::infinity());
  ExpectItems(lists.GetDuration(), Duration("-P1Y2M3DT4H5M6.789S"), Duration("PT0S"));
  ExpectItems(lists.GetYearMonth(), Date("2024-02"), Date("0001-12Z"));
  ExpectItems(lists.GetMonthDay(), Date("--02-29"), Date("--12-31+14:00"));
  ExpectItems(lists.GetYear(), static_cast<unsigned short>(2024), static_cast<unsigned short>(9999));
  ExpectItems(lists.GetMonth(), static_cast<unsigned char>(12), static_cast<unsigned char>(1));
  ExpectItems(lists.GetDay(), static_cast<unsigned char>(31), static_cast<unsigned char>(1));
  ExpectItems(lists.GetDate(), Date("2024-02-29"), Date("1999-12-31-05:30"));
  ExpectItems(lists.GetDatetime(), DateTime("2024-02-29T23:59:59.123456789Z"),
              DateTime("0001-01-01T00:00:00"));
  ExpectItems(lists.GetTime(), Time("23:59:59.5"), Time("00:00:00+01:00"));
  ExpectItems(lists.GetString(), std::string("\xC3\xA4 <&> \"quoted\"  two blanks"), std::string());
  ExpectItems(lists.GetBoolean(), true, false);
  ExpectItems(lists.GetDecimal(), CDecimal("-0.000000000000000000000000000000000001"),
              CDecimal("123456789012345678901234567890.5"));
  ExpectItems(lists.GetInteger(), CBigInteger("-123456789012345678901234567890"), CBigInteger(0));
  ExpectItems(lists.GetColor(), std::string("red"), std::string("blue"));
}

}  // namespace

void FillAllTypes(CAllTypes& object) {
  CTypedAttributes& attributes = *object.GetAttributes();
  SetValues(attributes);
  attributes.SetColor(EColor::e_blue);
  attributes.SetCount(10);
  attributes.GetAnyAttribute().Add("extra", "1 < 2", "urn:other");
  SetValues(*object.GetMandatories());
  object.GetMandatories()->SetColor(EColor::e_red);
  SetValues(*object.GetOptionals());
  SetValues(*object.GetDefaults());
  object.GetDefaults()->SetColor(EColor::e_blue);
  SetValues(*object.GetNillables());
  object.GetNillables()->SetI4(TNillable<long>::Nil());
  SetLists(*object.GetLists());
}

void CheckAllTypes(const CAllTypes& object) {
  const CTypedAttributes& attributes = *object.GetAttributes();
  CheckValues(attributes);
  EXPECT_EQ(attributes.GetI4(), std::numeric_limits<long>::min());
  EXPECT_EQ(attributes.GetColor(), EColor::e_blue);
  EXPECT_EQ(attributes.GetCount(), 10);
  ASSERT_EQ(attributes.GetAnyAttribute().GetCount(), 1);
  EXPECT_EQ(attributes.GetAnyAttribute().Item(0)->GetValue(), "1 < 2");
  EXPECT_EQ(attributes.GetAnyAttribute().Item(0)->GetNamespace(), "urn:other");
  CheckValues(*object.GetMandatories());
  EXPECT_EQ(object.GetMandatories()->GetI4(), std::numeric_limits<long>::min());
  EXPECT_EQ(object.GetMandatories()->GetColor(), EColor::e_red);
  CheckValues(*object.GetOptionals());
  EXPECT_EQ(object.GetOptionals()->GetI4(), std::numeric_limits<long>::min());
  EXPECT_EQ(object.GetOptionals()->GetColor(), std::nullopt);
  CheckValues(*object.GetDefaults());
  EXPECT_EQ(object.GetDefaults()->GetI4(), std::numeric_limits<long>::min());
  EXPECT_EQ(object.GetDefaults()->GetColor(), EColor::e_blue);
  CheckValues(*object.GetNillables());
  EXPECT_TRUE(object.GetNillables()->GetI4().IsNil());
  CheckLists(*object.GetLists());
}

}  // namespace samples
