// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_TYPED_ELEMENTS_H_
#define TESTS_SAMPLES_TYPED_ELEMENTS_H_

#include <optional>
#include <string>
#include <utility>

#include "tests/samples/color_type.h"
#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// An optional element of every type.
class CTypedOptionals : public TGeneratedClass<CTypedOptionals> {
 public:
  explicit CTypedOptionals(const char* elementName = "optionals");

  const std::optional<CBinaryData>& GetHexBinary() const { return m_hexBinary; }
  void SetHexBinary(std::optional<CBinaryData> value) { m_hexBinary = std::move(value); }
  const std::optional<CBinaryData>& GetBase64Binary() const { return m_base64Binary; }
  void SetBase64Binary(std::optional<CBinaryData> value) { m_base64Binary = std::move(value); }
  const std::optional<char>& GetI1() const { return m_i1; }
  void SetI1(std::optional<char> value) { m_i1 = std::move(value); }
  const std::optional<short>& GetI2() const { return m_i2; }
  void SetI2(std::optional<short> value) { m_i2 = std::move(value); }
  const std::optional<long>& GetI4() const { return m_i4; }
  void SetI4(std::optional<long> value) { m_i4 = std::move(value); }
  const std::optional<long long>& GetI8() const { return m_i8; }
  void SetI8(std::optional<long long> value) { m_i8 = std::move(value); }
  const std::optional<unsigned char>& GetUi1() const { return m_ui1; }
  void SetUi1(std::optional<unsigned char> value) { m_ui1 = std::move(value); }
  const std::optional<unsigned short>& GetUi2() const { return m_ui2; }
  void SetUi2(std::optional<unsigned short> value) { m_ui2 = std::move(value); }
  const std::optional<unsigned long>& GetUi4() const { return m_ui4; }
  void SetUi4(std::optional<unsigned long> value) { m_ui4 = std::move(value); }
  const std::optional<unsigned long long>& GetUi8() const { return m_ui8; }
  void SetUi8(std::optional<unsigned long long> value) { m_ui8 = std::move(value); }
  const std::optional<float>& GetR4() const { return m_r4; }
  void SetR4(std::optional<float> value) { m_r4 = std::move(value); }
  const std::optional<double>& GetR8() const { return m_r8; }
  void SetR8(std::optional<double> value) { m_r8 = std::move(value); }
  const std::optional<CDateTimeSpan>& GetDuration() const { return m_duration; }
  void SetDuration(std::optional<CDateTimeSpan> value) { m_duration = std::move(value); }
  const std::optional<CDateTime>& GetYearMonth() const { return m_yearMonth; }
  void SetYearMonth(std::optional<CDateTime> value) { m_yearMonth = std::move(value); }
  const std::optional<CDateTime>& GetMonthDay() const { return m_monthDay; }
  void SetMonthDay(std::optional<CDateTime> value) { m_monthDay = std::move(value); }
  const std::optional<unsigned short>& GetYear() const { return m_year; }
  void SetYear(std::optional<unsigned short> value) { m_year = std::move(value); }
  const std::optional<unsigned char>& GetMonth() const { return m_month; }
  void SetMonth(std::optional<unsigned char> value) { m_month = std::move(value); }
  const std::optional<unsigned char>& GetDay() const { return m_day; }
  void SetDay(std::optional<unsigned char> value) { m_day = std::move(value); }
  const std::optional<CDateTime>& GetDate() const { return m_date; }
  void SetDate(std::optional<CDateTime> value) { m_date = std::move(value); }
  const std::optional<CDateTime>& GetDatetime() const { return m_datetime; }
  void SetDatetime(std::optional<CDateTime> value) { m_datetime = std::move(value); }
  const std::optional<CDateTime>& GetTime() const { return m_time; }
  void SetTime(std::optional<CDateTime> value) { m_time = std::move(value); }
  const std::optional<char>& GetCharacter() const { return m_character; }
  void SetCharacter(std::optional<char> value) { m_character = std::move(value); }
  const std::optional<std::string>& GetString() const { return m_string; }
  void SetString(std::optional<std::string> value) { m_string = std::move(value); }
  const std::optional<bool>& GetBoolean() const { return m_boolean; }
  void SetBoolean(std::optional<bool> value) { m_boolean = std::move(value); }
  const std::optional<CDecimal>& GetDecimal() const { return m_decimal; }
  void SetDecimal(std::optional<CDecimal> value) { m_decimal = std::move(value); }
  const std::optional<CBigInteger>& GetInteger() const { return m_integer; }
  void SetInteger(std::optional<CBigInteger> value) { m_integer = std::move(value); }
  const std::optional<EColor>& GetColor() const { return m_color; }
  void SetColor(std::optional<EColor> value) { m_color = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 protected:
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
    kInteger,
    kColor,
    kPropertyCountTypedOptionals
  };

 private:
  std::optional<CBinaryData> m_hexBinary;
  std::optional<CBinaryData> m_base64Binary;
  std::optional<char> m_i1;
  std::optional<short> m_i2;
  std::optional<long> m_i4;
  std::optional<long long> m_i8;
  std::optional<unsigned char> m_ui1;
  std::optional<unsigned short> m_ui2;
  std::optional<unsigned long> m_ui4;
  std::optional<unsigned long long> m_ui8;
  std::optional<float> m_r4;
  std::optional<double> m_r8;
  std::optional<CDateTimeSpan> m_duration;
  std::optional<CDateTime> m_yearMonth;
  std::optional<CDateTime> m_monthDay;
  std::optional<unsigned short> m_year;
  std::optional<unsigned char> m_month;
  std::optional<unsigned char> m_day;
  std::optional<CDateTime> m_date;
  std::optional<CDateTime> m_datetime;
  std::optional<CDateTime> m_time;
  std::optional<char> m_character;
  std::optional<std::string> m_string;
  std::optional<bool> m_boolean;
  std::optional<CDecimal> m_decimal;
  std::optional<CBigInteger> m_integer;
  std::optional<EColor> m_color;
};

/// The same elements, mandatory.
class CTypedMandatories : public TGeneratedClass<CTypedMandatories, CTypedOptionals> {
 public:
  explicit CTypedMandatories(const char* elementName = "mandatories");

  static const CClassMetaData& GetMetaData();
};

/// The same elements, each with a default.
class CTypedDefaults : public TGeneratedClass<CTypedDefaults, CTypedOptionals> {
 public:
  explicit CTypedDefaults(const char* elementName = "defaults");

  static const CClassMetaData& GetMetaData();
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TYPED_ELEMENTS_H_
