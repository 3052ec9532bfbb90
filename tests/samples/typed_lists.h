// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_TYPED_LISTS_H_
#define TESTS_SAMPLES_TYPED_LISTS_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// A repeated element of every type.
class CTypedLists : public TGeneratedClass<CTypedLists> {
 public:
  explicit CTypedLists(const char* elementName = "lists");

  ChexBinaryCol& GetHexBinary() const { return *m_hexBinary; }
  Cbase64BinaryCol& GetBase64Binary() const { return *m_base64Binary; }
  Ci1Col& GetI1() const { return *m_i1; }
  Ci2Col& GetI2() const { return *m_i2; }
  Ci4Col& GetI4() const { return *m_i4; }
  Ci8Col& GetI8() const { return *m_i8; }
  Cui1Col& GetUi1() const { return *m_ui1; }
  Cui2Col& GetUi2() const { return *m_ui2; }
  Cui4Col& GetUi4() const { return *m_ui4; }
  Cui8Col& GetUi8() const { return *m_ui8; }
  Cr4Col& GetR4() const { return *m_r4; }
  Cr8Col& GetR8() const { return *m_r8; }
  CdurationCol& GetDuration() const { return *m_duration; }
  CyearMonthCol& GetYearMonth() const { return *m_yearMonth; }
  CmonthDayCol& GetMonthDay() const { return *m_monthDay; }
  CyearCol& GetYear() const { return *m_year; }
  CmonthCol& GetMonth() const { return *m_month; }
  CdayCol& GetDay() const { return *m_day; }
  CdateCol& GetDate() const { return *m_date; }
  CdatetimeCol& GetDatetime() const { return *m_datetime; }
  CtimeCol& GetTime() const { return *m_time; }
  CstringCol& GetString() const { return *m_string; }
  CbooleanCol& GetBoolean() const { return *m_boolean; }
  CdecimalCol& GetDecimal() const { return *m_decimal; }
  CintegerCol& GetInteger() const { return *m_integer; }
  CstringCol& GetColor() const { return *m_color; }

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
    kString,
    kBoolean,
    kDecimal,
    kInteger,
    kColor
  };

  CSmartPtr<ChexBinaryCol> m_hexBinary;
  CSmartPtr<Cbase64BinaryCol> m_base64Binary;
  CSmartPtr<Ci1Col> m_i1;
  CSmartPtr<Ci2Col> m_i2;
  CSmartPtr<Ci4Col> m_i4;
  CSmartPtr<Ci8Col> m_i8;
  CSmartPtr<Cui1Col> m_ui1;
  CSmartPtr<Cui2Col> m_ui2;
  CSmartPtr<Cui4Col> m_ui4;
  CSmartPtr<Cui8Col> m_ui8;
  CSmartPtr<Cr4Col> m_r4;
  CSmartPtr<Cr8Col> m_r8;
  CSmartPtr<CdurationCol> m_duration;
  CSmartPtr<CyearMonthCol> m_yearMonth;
  CSmartPtr<CmonthDayCol> m_monthDay;
  CSmartPtr<CyearCol> m_year;
  CSmartPtr<CmonthCol> m_month;
  CSmartPtr<CdayCol> m_day;
  CSmartPtr<CdateCol> m_date;
  CSmartPtr<CdatetimeCol> m_datetime;
  CSmartPtr<CtimeCol> m_time;
  CSmartPtr<CstringCol> m_string;
  CSmartPtr<CbooleanCol> m_boolean;
  CSmartPtr<CdecimalCol> m_decimal;
  CSmartPtr<CintegerCol> m_integer;
  CSmartPtr<CstringCol> m_color;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TYPED_LISTS_H_
