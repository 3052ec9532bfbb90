// Durations: the XSD type duration.

#ifndef QVXML_TYPES_DATE_TIME_SPAN_H_
#define QVXML_TYPES_DATE_TIME_SPAN_H_

#include <cstddef>
#include <string>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

/// A length of time in years, months, days, hours, minutes, seconds and a fraction of nine digits,
/// with one sign for all of them.
///
/// The components are kept as they are given: 90 minutes stay 90 minutes. A new span is zero.
class QVXML_API CDateTimeSpan : private TInstanceCounted<CDateTimeSpan> {
 public:
  // Construction. The span is positive; a fraction above 999 throws as its setter does.

  CDateTimeSpan() = default;
  CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                unsigned long long minutes, unsigned long long seconds, unsigned short milliSeconds,
                unsigned short microSeconds, unsigned short nanoSeconds);
  CDateTimeSpan(unsigned long days, unsigned long long minutes, unsigned long long seconds);

  // Components, without the sign.

  unsigned short GetYears() const { return m_years; }
  unsigned long GetMonths() const { return m_months; }
  unsigned long GetDays() const { return m_days; }
  unsigned long GetHours() const { return m_hours; }
  unsigned long long GetMinutes() const { return m_minutes; }
  unsigned long long GetSeconds() const { return m_seconds; }
  /// The fraction of the seconds in three groups of three digits, 0 to 999 each.
  unsigned short GetMilliSeconds() const { return m_milliSeconds; }
  unsigned short GetMicroSeconds() const { return m_microSeconds; }
  unsigned short GetNanoSeconds() const { return m_nanoSeconds; }

  void SetYears(unsigned short years) { m_years = years; }
  void SetMonths(unsigned long months) { m_months = months; }
  void SetDays(unsigned long days) { m_days = days; }
  void SetHours(unsigned long hours) { m_hours = hours; }
  void SetMinutes(unsigned long long minutes) { m_minutes = minutes; }
  void SetSeconds(unsigned long long seconds) { m_seconds = seconds; }
  /// Each throws CQvInvalidValueException, and stores nothing, above 999.
  void SetMilliSeconds(unsigned short milliSeconds);
  void SetMicroSeconds(unsigned short microSeconds);
  void SetNanoSeconds(unsigned short nanoSeconds);

  /// Replaces the whole span by a positive one. Throws CQvInvalidValueException, and changes
  /// nothing, when a fraction is above 999.
  void SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                       unsigned long hours, unsigned long long minutes, unsigned long long seconds,
                       unsigned short milliSeconds, unsigned short microSeconds,
                       unsigned short nanoSeconds);
  /// Replaces the whole span by a positive one with these components only.
  void SetDateTimeSpan(unsigned long days, unsigned long long minutes, unsigned long long seconds);
  /// Makes the span zero and positive.
  void Clear();

  // Sign.

  bool IsNegative() const { return m_isNegative; }
  /// Turns the sign around; a zero span has one too.
  void Negate() { m_isNegative = !m_isNegative; }
  /// A copy with the sign turned around.
  CDateTimeSpan GetAsNegative() const;

  // Text.

  /// Replaces the span by the XSD duration in `text`, which must hold nothing else.
  ///
  /// At least one component, and at least one after "T"; a fraction, on the seconds only, has one
  /// to nine digits. Throws CQvInvalidValueException for null, for an empty or malformed text and
  /// for a number that its component cannot hold; the span is then cleared.
  void ParseXSDDuration(const char* text);
  /// The same for `length` characters, which need no NUL behind them.
  void ParseXSDDuration(const char* text, std::size_t length);
  /// The XSD form without the components that are zero; "PT0S" when all are. A negative zero keeps
  /// its sign: "-PT0S".
  std::string ToString() const;
  /// Appends the same to `text`.
  void AppendTo(std::string& text) const;

  // Order.

  /// 0 equal, 1 this span is shorter, 2 this span is longer, 3 the order is indeterminate.
  ///
  /// Spans of the same months and the same seconds are equal. Others are added to the four
  /// reference dates of XSD and the results compared; when the four do not agree (one month
  /// against 30 days), or a result is outside the years -9999 to 9999, the order is
  /// indeterminate.
  int CompareTo(const CDateTimeSpan& other) const;

  bool operator==(const CDateTimeSpan& other) const { return CompareTo(other) == 0; }
  bool operator!=(const CDateTimeSpan& other) const { return CompareTo(other) != 0; }
  bool operator<(const CDateTimeSpan& other) const { return CompareTo(other) == 1; }
  bool operator>(const CDateTimeSpan& other) const { return CompareTo(other) == 2; }

 private:
  friend class TInstanceCounted<CDateTimeSpan>;
  static CInstanceCounter s_instances;

  unsigned short m_years = 0;
  unsigned long m_months = 0;
  unsigned long m_days = 0;
  unsigned long m_hours = 0;
  unsigned long long m_minutes = 0;
  unsigned long long m_seconds = 0;
  unsigned short m_milliSeconds = 0;
  unsigned short m_microSeconds = 0;
  unsigned short m_nanoSeconds = 0;
  bool m_isNegative = false;
};

}  // namespace QvXmlLib16

#endif  // QVXML_TYPES_DATE_TIME_SPAN_H_
