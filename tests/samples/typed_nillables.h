// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_TYPED_NILLABLES_H_
#define TESTS_SAMPLES_TYPED_NILLABLES_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// A nillable element of every type; the first half is mandatory.
class CTypedNillables : public TGeneratedClass<CTypedNillables> {
 public:
  explicit CTypedNillables(const char* elementName = "nillables");

  const TNillable<CBinaryData>& GetHexBinary() const { return m_hexBinary; }
  void SetHexBinary(TNillable<CBinaryData> value) { m_hexBinary = std::move(value); }
  const TNillable<CBinaryData>& GetBase64Binary() const { return m_base64Binary; }
  void SetBase64Binary(TNillable<CBinaryData> value) { m_base64Binary = std::move(value); }
  const TNillable<char>& GetI1() const { return m_i1; }
  void SetI1(TNillable<char> value) { m_i1 = std::move(value); }
  const TNillable<short>& GetI2() const { return m_i2; }
  void SetI2(TNillable<short> value) { m_i2 = std::move(value); }
  const TNillable<long>& GetI4() const { return m_i4; }
  void SetI4(TNillable<long> value) { m_i4 = std::move(value); }
  const TNillable<long long>& GetI8() const { return m_i8; }
  void SetI8(TNillable<long long> value) { m_i8 = std::move(value); }
  const TNillable<unsigned char>& GetUi1() const { return m_ui1; }
  void SetUi1(TNillable<unsigned char> value) { m_ui1 = std::move(value); }
  const TNillable<unsigned short>& GetUi2() const { return m_ui2; }
  void SetUi2(TNillable<unsigned short> value) { m_ui2 = std::move(value); }
  const TNillable<unsigned long>& GetUi4() const { return m_ui4; }
  void SetUi4(TNillable<unsigned long> value) { m_ui4 = std::move(value); }
  const TNillable<unsigned long long>& GetUi8() const { return m_ui8; }
  void SetUi8(TNillable<unsigned long long> value) { m_ui8 = std::move(value); }
  const TNillable<float>& GetR4() const { return m_r4; }
  void SetR4(TNillable<float> value) { m_r4 = std::move(value); }
  const TNillable<double>& GetR8() const { return m_r8; }
  void SetR8(TNillable<double> value) { m_r8 = std::move(value); }
  const TNillable<CDateTimeSpan>& GetDuration() const { return m_duration; }
  void SetDuration(TNillable<CDateTimeSpan> value) { m_duration = std::move(value); }
  const TNillable<CDateTime>& GetYearMonth() const { return m_yearMonth; }
  void SetYearMonth(TNillable<CDateTime> value) { m_yearMonth = std::move(value); }
  const TNillable<CDateTime>& GetMonthDay() const { return m_monthDay; }
  void SetMonthDay(TNillable<CDateTime> value) { m_monthDay = std::move(value); }
  const TNillable<unsigned short>& GetYear() const { return m_year; }
  void SetYear(TNillable<unsigned short> value) { m_year = std::move(value); }
  const TNillable<unsigned char>& GetMonth() const { return m_month; }
  void SetMonth(TNillable<unsigned char> value) { m_month = std::move(value); }
  const TNillable<unsigned char>& GetDay() const { return m_day; }
  void SetDay(TNillable<unsigned char> value) { m_day = std::move(value); }
  const TNillable<CDateTime>& GetDate() const { return m_date; }
  void SetDate(TNillable<CDateTime> value) { m_date = std::move(value); }
  const TNillable<CDateTime>& GetDatetime() const { return m_datetime; }
  void SetDatetime(TNillable<CDateTime> value) { m_datetime = std::move(value); }
  const TNillable<CDateTime>& GetTime() const { return m_time; }
  void SetTime(TNillable<CDateTime> value) { m_time = std::move(value); }
  const TNillable<char>& GetCharacter() const { return m_character; }
  void SetCharacter(TNillable<char> value) { m_character = std::move(value); }
  const TNillable<std::string>& GetString() const { return m_string; }
  void SetString(TNillable<std::string> value) { m_string = std::move(value); }
  const TNillable<bool>& GetBoolean() const { return m_boolean; }
  void SetBoolean(TNillable<bool> value) { m_boolean = std::move(value); }
  const TNillable<CDecimal>& GetDecimal() const { return m_decimal; }
  void SetDecimal(TNillable<CDecimal> value) { m_decimal = std::move(value); }
  const TNillable<CBigInteger>& GetInteger() const { return m_integer; }
  void SetInteger(TNillable<CBigInteger> value) { m_integer = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int {
    kHexBinary,
    kBase64Binary,
    kI1,
    kI2,
    kI4,
    kI8,
    kUi1,
    kUi2,
    kUi4,
    kUi8,
    kR4,
    kR8,
    kDuration,
    kYearMonth,
    kMonthDay,
    kYear,
    kMonth,
    kDay,
    kDate,
    kDatetime,
    kTime,
    kCharacter,
    kString,
    kBoolean,
    kDecimal,
    kInteger
  };

  TNillable<CBinaryData> m_hexBinary;
  TNillable<CBinaryData> m_base64Binary;
  TNillable<char> m_i1;
  TNillable<short> m_i2;
  TNillable<long> m_i4;
  TNillable<long long> m_i8;
  TNillable<unsigned char> m_ui1;
  TNillable<unsigned short> m_ui2;
  TNillable<unsigned long> m_ui4;
  TNillable<unsigned long long> m_ui8;
  TNillable<float> m_r4;
  TNillable<double> m_r8;
  TNillable<CDateTimeSpan> m_duration;
  TNillable<CDateTime> m_yearMonth;
  TNillable<CDateTime> m_monthDay;
  TNillable<unsigned short> m_year;
  TNillable<unsigned char> m_month;
  TNillable<unsigned char> m_day;
  TNillable<CDateTime> m_date;
  TNillable<CDateTime> m_datetime;
  TNillable<CDateTime> m_time;
  TNillable<char> m_character;
  TNillable<std::string> m_string;
  TNillable<bool> m_boolean;
  TNillable<CDecimal> m_decimal;
  TNillable<CBigInteger> m_integer;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TYPED_NILLABLES_H_
