// Dates and times: the XSD types dateTime, date, time, gYearMonth, gYear, gMonthDay, gMonth, gDay.

#ifndef QVXML_TYPES_DATE_TIME_H_
#define QVXML_TYPES_DATE_TIME_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/types/date_time_span.h"

namespace QvXmlLib16 {

namespace detail {
struct Moment;               // qvxml/types/date_time_internal.h
enum class TimeField : int;  // qvxml/types/date_time_internal.h
}  // namespace detail

/// A date, a time of day, both, or a part of a date, with an optional zone.
///
/// The kind says which fields a value carries; the others are 0. A new value has no kind. Dates
/// are Gregorian in all years, also in those before the calendar's time; years BCE are negative,
/// -1 comes before 1, and IsLeapYear says of the number as written whether a year has a
/// 29 February.
///
/// A parse or whole-value setter that throws leaves the value cleared or partly filled.
class QVXML_API CDateTime : private TInstanceCounted<CDateTime> {
 public:
  /// The kind of a value.
  enum DTType : unsigned {
    dt_unset = 0,
    dt_dateTime = 1,
    dt_date = 2,
    dt_gYearMonth = 3,
    dt_gYear = 4,
    dt_time = 5,
    dt_gDay = 6,
    dt_gMonth = 7,
    dt_gMonthDay = 8
  };

  // Construction. All that take fields or text throw CQvInvalidValueException when a field is out
  // of range or the text is malformed.

  /// A value without a kind.
  CDateTime() = default;
  /// A value of that kind with all fields 0, to be filled.
  explicit CDateTime(DTType type) : m_type(type) {}
  /// A date.
  CDateTime(short year, unsigned char month, unsigned char day);
  /// A dateTime.
  CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
            unsigned char minute, unsigned char second);
  CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
            unsigned char minute, unsigned char second, unsigned short milliSecond,
            unsigned short microSecond, unsigned short nanoSecond);
  /// The dateTime in UTC that is `t` seconds after 1970-01-01T00:00:00Z, or before it when `t` is
  /// negative. Throws CQvInvalidValueException outside the years -9999 to 9999.
  explicit CDateTime(const long& t);
  /// The same, so that CDateTime(0) is a time and not a null text.
  explicit CDateTime(int t);
  /// The dateTime in `text`, as ParseXSDDateTime reads it; null throws as it does there.
  explicit CDateTime(const char* text);

  CDateTime(const CDateTime& other) = default;
  CDateTime& operator=(const CDateTime& other) = default;
  /// Replaces the whole value, its kind included, by CDateTime(t). An assignment of `{}` ends up
  /// here as 0; to empty a value call Clear.
  CDateTime& operator=(const long& t);
  virtual ~CDateTime();

  /// The present moment as a dateTime in UTC, with its fraction.
  static CDateTime GetCurrentTime();

  /// Sets every field, the kind included, to 0.
  void Clear();

  // Kind.

  DTType GetType() const { return m_type; }
  /// GetTypeAsString(GetType()).
  std::string GetTypeAsString() const { return GetTypeAsString(m_type); }
  /// "dateTime", "gYearMonth" and so on; "yearZero" for dt_unset, "" for any other number.
  static std::string GetTypeAsString(DTType type);
  /// Whether a value of kind `from` carries every field that kind `to` needs, so that
  /// SetDateTime(value, to) can take it: every kind from itself, each kind from dateTime, the
  /// parts of a date from date. Never to or from dt_unset.
  static bool CheckConversion(DTType from, DTType to);

  // Fields. Each getter throws CQvInvalidStateException when the kind does not carry the field.

  /// -9999 to 9999; 0 only in a value that is still to be filled.
  short GetYear() const;
  unsigned char GetMonth() const;
  unsigned char GetDay() const;
  unsigned char GetHour() const;
  unsigned char GetMinute() const;
  /// The whole seconds, 0 to 59.
  unsigned char GetSecond() const;
  /// The seconds with their fraction.
  double GetRealSecond() const;
  /// The fraction of the second in three groups of three digits, 0 to 999 each.
  unsigned short GetMilliSecond() const;
  unsigned short GetMicroSecond() const;
  unsigned short GetNanoSecond() const;
  /// 1 to 366, for kinds with year, month and day. Throws CQvInvalidValueException, as the next
  /// two do, when the value is still to be filled.
  int GetDayOfYear() const;
  /// 0 for Sunday to 6 for Saturday, for kinds with year, month and day. The week runs on without
  /// a gap from -0001-12-31, a Sunday, to 0001-01-01.
  int GetDayOfWeek() const;
  /// Seconds from 1970-01-01T00:00:00Z to the value, for kinds with year, month and day: the
  /// inverse of CDateTime(long). An explicit offset is applied; without zone the value counts as
  /// UTC, a date counts as its first second, and the fraction is dropped.
  long GetTime() const;

  // Each setter throws CQvInvalidStateException when the kind does not carry the field, and
  // CQvInvalidValueException when the field is out of range or would make the day, if it is set
  // already, one that its month does not have. Nothing is stored then. A value without a kind
  // takes all of them and becomes a dateTime.

  void SetYear(short year);
  void SetMonth(unsigned char month);
  void SetDay(unsigned char day);
  void SetHour(unsigned char hour);
  void SetMinute(unsigned char minute);
  void SetSecond(unsigned char second);
  void SetMilliSecond(unsigned short milliSecond);
  void SetMicroSecond(unsigned short microSecond);
  void SetNanoSecond(unsigned short nanoSecond);
  void SetFracTime(unsigned short milliSecond, unsigned short microSecond,
                   unsigned short nanoSecond);

  // Whole values. Each clears the value, its zone included, stores and validates. A value that has
  // another kind already throws CQvInvalidStateException and stays as it is: Clear it first.

  void SetDateTime(DTType type, short year, unsigned char month, unsigned char day,
                   unsigned char hour, unsigned char minute, unsigned char second,
                   unsigned short milliSecond, unsigned short microSecond,
                   unsigned short nanoSecond);
  void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                   unsigned char minute, unsigned char second);
  void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                   unsigned char minute, unsigned char second, unsigned short milliSecond,
                   unsigned short microSecond, unsigned short nanoSecond);
  /// Takes the fields that kind `type` carries, and the zone, from `source`. Throws
  /// CQvInvalidStateException when CheckConversion(source.GetType(), type) is false.
  void SetDateTime(const CDateTime& source, DTType type);
  void SetDate(short year, unsigned char month, unsigned char day);
  void SetTime(unsigned char hour, unsigned char minute, unsigned char second);
  void SetTime(unsigned char hour, unsigned char minute, unsigned char second,
               unsigned short milliSecond, unsigned short microSecond, unsigned short nanoSecond);
  void SetGYear(short year);
  void SetGYearMonth(short year, unsigned char month);
  void SetGMonth(unsigned char month);
  void SetGMonthDay(unsigned char month, unsigned char day);
  /// Refuses day 0 only.
  void SetGDay(unsigned char day);

  // Zone.

  /// Whether the value carries zone information, "Z" or an offset.
  bool IsUTC() const { return m_isUTC; }
  /// Whether the zone is an explicit offset.
  bool HasTimeZone() const { return m_hasTimeZone; }
  /// The offset, -23 to 23 hours east of UTC, and its minutes, which have the sign of the hours.
  /// Both throw CQvInvalidStateException without an explicit offset.
  short GetZoneHour() const;
  unsigned char GetZoneMinute() const;
  /// Gives the value an explicit offset without changing its fields. Throws
  /// CQvInvalidValueException unless -23 <= hour <= 23 and minute <= 59.
  void SetTimeZone(short hour, unsigned char minute);
  /// Makes the zone "Z" without changing the fields.
  void SetUTC();
  /// Reads "Z", or "+hh:mm" or "-hh:mm" with 24 hours read as 0. Throws CQvInvalidValueException
  /// for anything else; null is the empty text.
  void SetZone(const char* text);

  // Text. The parses throw CQvInvalidValueException.

  /// Replaces the value by the one in `text`, whose form decides the kind: CCYY-MM-DD, CCYY-MM,
  /// CCYY (each after "-" when BCE), --MM-DD, --MM, --MM-- or ---DD, then an optional zone.
  void ParseXSDDate(const char* text);
  /// Replaces the value by the time hh:mm:ss with an optional fraction of up to nine digits and an
  /// optional zone.
  void ParseXSDTime(const char* text);
  /// Replaces the value by a dateTime: a date without zone, "T", and a time.
  void ParseXSDDateTime(const char* text);
  // The same for `length` characters, which need no NUL behind them.
  void ParseXSDDate(const char* text, std::size_t length);
  void ParseXSDTime(const char* text, std::size_t length);
  void ParseXSDDateTime(const char* text, std::size_t length);

  /// ToString("s").
  std::string ToString() const { return ToString("s"); }
  /// "s" gives the XSD form of the kind, without trailing zeros in the fraction. Throws nothing:
  /// a value without a kind, or other than a time with all fields 0, gives "Error: Date Not Set";
  /// else null and "G" give "", any other format "Unknown Format: " and the format.
  std::string ToString(const char* format) const;
  /// Appends ToString("s") to `text`.
  void AppendTo(std::string& text) const;

  // Order.

  /// 0 equal, 1 this value is earlier, 2 this value is later, 3 the order is indeterminate.
  ///
  /// Values with an explicit offset are compared in UTC, a date or part of a date as its first
  /// instant; a time stays within its day. A value without zone against one with zone has an order
  /// only when it is the same for all offsets from -14:00 to +14:00. An instant outside the years
  /// -9999 to 9999 makes the order indeterminate; otherwise it is that of Compare.
  int CompareTo(const CDateTime& other) const;

  bool operator==(const CDateTime& other) const { return CompareTo(other) == 0; }
  bool operator!=(const CDateTime& other) const { return CompareTo(other) != 0; }
  bool operator<(const CDateTime& other) const { return CompareTo(other) == 1; }
  bool operator>(const CDateTime& other) const { return CompareTo(other) == 2; }
  bool operator<=(const CDateTime& other) const {
    const int order = CompareTo(other);
    return order == 0 || order == 1;
  }
  bool operator>=(const CDateTime& other) const {
    const int order = CompareTo(other);
    return order == 0 || order == 2;
  }

  /// The same moment in UTC; the value itself when it has no explicit offset.
  ///
  /// A dateTime stays one, and a time stays one and wraps within its day. A date or a part of a
  /// date becomes the dateTime of its first instant, in the year 1972 when it has no year. Throws
  /// CQvInvalidValueException when the value is not valid or the moment is outside the years -9999
  /// to 9999.
  CDateTime GetNormalized() const;

  // Arithmetic.

  /// Adds `span` by the XSD algorithm and returns this value: months first, the day clipped to the
  /// new month, then the rest.
  ///
  /// The zone stays. Fields that the kind does not carry count as 0, month and day as 1, the year
  /// as 1972, and are dropped again. Throws CQvInvalidValueException, and changes nothing, when
  /// the value is not valid or its year would leave -9999 to 9999.
  CDateTime& AddDateTimeSpan(const CDateTimeSpan& span);
  CDateTime& operator+=(const CDateTimeSpan& span) { return AddDateTimeSpan(span); }
  CDateTime& operator-=(const CDateTimeSpan& span) { return AddDateTimeSpan(span.GetAsNegative()); }
  CDateTime operator+(const CDateTimeSpan& span) const { return CDateTime(*this) += span; }
  CDateTime operator-(const CDateTimeSpan& span) const { return CDateTime(*this) -= span; }
  /// The time from `other` to this value in days, hours, minutes, seconds and fraction, negative
  /// when this value is earlier; months and years are left 0.
  ///
  /// Both sides are taken as CompareTo takes them, and a side without zone counts as UTC. Throws
  /// CQvInvalidStateException when one side has a year and the other has none, when one is a time
  /// and the other is not, or when one has no kind, and CQvInvalidValueException when one is not
  /// valid.
  CDateTimeSpan operator-(const CDateTime& other) const;

  /// Compares the fields and ignores zones; results as CompareTo's.
  ///
  /// From the year down to the fraction the first difference decides. Fields that a kind does not
  /// carry count as 0, month and day as 1, the year as -1. Years of opposite signs, and so a value
  /// with a year CE against one without a year, give 3.
  friend QVXML_API int Compare(const CDateTime& a, const CDateTime& b);

 private:
  friend class TInstanceCounted<CDateTime>;
  static CInstanceCounter s_instances;

  bool Carries(unsigned field) const;
  void RequireField(unsigned field, const char* message) const;
  void RequireTimeZone() const;
  CDateTime CopyToSet(unsigned field, const char* message) const;
  template <class TNumber>
  void SetTimeField(detail::TimeField field, TNumber CDateTime::*member, TNumber value,
                    const char* message);
  void SetSecondsSinceEpoch(long seconds);

  void Validate() const;
  void ValidateMonth() const;
  void ValidateYear() const;
  void ValidateDay() const;
  void ValidateStartedDay() const;
  void ValidateTime() const;
  long long GetDayNumber(const char* message) const;

  void SetXSDDate(std::string_view text);
  void SetXSDTime(std::string_view text);
  bool SetDateForm(std::string_view body);
  void SetZoneText(std::string_view text);
  bool IsSet() const;
  std::string_view WriteText(char* buffer) const;
  char* WriteDate(char* out) const;
  char* WriteTime(char* out) const;
  char* WriteZone(char* out) const;

  detail::Moment ToMoment() const;
  detail::Moment ToUtcMoment() const;
  detail::Moment ToUtcMoment(int offsetMinutes) const;
  void StoreMoment(const detail::Moment& moment);
  int CompareInUtc(const CDateTime& other) const;
  int GetOffsetMinutes() const;

  DTType m_type = dt_unset;
  short m_year = 0;
  unsigned char m_month = 0;
  unsigned char m_day = 0;
  unsigned char m_hour = 0;
  unsigned char m_minute = 0;
  unsigned char m_second = 0;
  unsigned short m_milliSecond = 0;
  unsigned short m_microSecond = 0;
  unsigned short m_nanoSecond = 0;
  bool m_isUTC = false;
  bool m_hasTimeZone = false;
  short m_zoneHour = 0;
  unsigned char m_zoneMinute = 0;
  // Part of the layout; no operation reads it.
  unsigned char m_flag = 0;
};

QVXML_API int Compare(const CDateTime& a, const CDateTime& b);

}  // namespace QvXmlLib16

#endif  // QVXML_TYPES_DATE_TIME_H_
