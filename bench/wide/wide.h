// Generated from wide.xsd.

#ifndef BENCH_WIDE_WIDE_H_
#define BENCH_WIDE_WIDE_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace wide {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// Row
class CRow : public TGeneratedClass<CRow> {
 public:
  explicit CRow(const char* elementName = "row");

  const std::optional<long>& GetI0() const { return m_i0; }
  void SetI0(std::optional<long> value) { m_i0 = std::move(value); }
  const std::optional<double>& GetD1() const { return m_d1; }
  void SetD1(std::optional<double> value) { m_d1 = std::move(value); }
  const std::optional<std::string>& GetS2() const { return m_s2; }
  void SetS2(std::optional<std::string> value) { m_s2 = std::move(value); }
  const std::optional<CDateTime>& GetT3() const { return m_t3; }
  void SetT3(std::optional<CDateTime> value) { m_t3 = std::move(value); }
  const std::optional<bool>& GetB4() const { return m_b4; }
  void SetB4(std::optional<bool> value) { m_b4 = std::move(value); }
  const std::optional<long>& GetI5() const { return m_i5; }
  void SetI5(std::optional<long> value) { m_i5 = std::move(value); }
  const std::optional<double>& GetD6() const { return m_d6; }
  void SetD6(std::optional<double> value) { m_d6 = std::move(value); }
  const std::optional<std::string>& GetS7() const { return m_s7; }
  void SetS7(std::optional<std::string> value) { m_s7 = std::move(value); }
  const std::optional<CDateTime>& GetT8() const { return m_t8; }
  void SetT8(std::optional<CDateTime> value) { m_t8 = std::move(value); }
  const std::optional<bool>& GetB9() const { return m_b9; }
  void SetB9(std::optional<bool> value) { m_b9 = std::move(value); }
  const std::optional<long>& GetI10() const { return m_i10; }
  void SetI10(std::optional<long> value) { m_i10 = std::move(value); }
  const std::optional<double>& GetD11() const { return m_d11; }
  void SetD11(std::optional<double> value) { m_d11 = std::move(value); }
  const std::optional<std::string>& GetS12() const { return m_s12; }
  void SetS12(std::optional<std::string> value) { m_s12 = std::move(value); }
  const std::optional<CDateTime>& GetT13() const { return m_t13; }
  void SetT13(std::optional<CDateTime> value) { m_t13 = std::move(value); }
  const std::optional<bool>& GetB14() const { return m_b14; }
  void SetB14(std::optional<bool> value) { m_b14 = std::move(value); }
  const std::optional<long>& GetI15() const { return m_i15; }
  void SetI15(std::optional<long> value) { m_i15 = std::move(value); }
  const std::optional<double>& GetD16() const { return m_d16; }
  void SetD16(std::optional<double> value) { m_d16 = std::move(value); }
  const std::optional<std::string>& GetS17() const { return m_s17; }
  void SetS17(std::optional<std::string> value) { m_s17 = std::move(value); }
  const std::optional<CDateTime>& GetT18() const { return m_t18; }
  void SetT18(std::optional<CDateTime> value) { m_t18 = std::move(value); }
  const std::optional<bool>& GetB19() const { return m_b19; }
  void SetB19(std::optional<bool> value) { m_b19 = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int {
    kI0,
    kD1,
    kS2,
    kT3,
    kB4,
    kI5,
    kD6,
    kS7,
    kT8,
    kB9,
    kI10,
    kD11,
    kS12,
    kT13,
    kB14,
    kI15,
    kD16,
    kS17,
    kT18,
    kB19
  };

  std::optional<long> m_i0;
  std::optional<double> m_d1;
  std::optional<std::string> m_s2;
  std::optional<CDateTime> m_t3;
  std::optional<bool> m_b4;
  std::optional<long> m_i5;
  std::optional<double> m_d6;
  std::optional<std::string> m_s7;
  std::optional<CDateTime> m_t8;
  std::optional<bool> m_b9;
  std::optional<long> m_i10;
  std::optional<double> m_d11;
  std::optional<std::string> m_s12;
  std::optional<CDateTime> m_t13;
  std::optional<bool> m_b14;
  std::optional<long> m_i15;
  std::optional<double> m_d16;
  std::optional<std::string> m_s17;
  std::optional<CDateTime> m_t18;
  std::optional<bool> m_b19;
};

/// Wide: the document.
class CWide : public TGeneratedClass<CWide> {
 public:
  explicit CWide(const char* elementName = "wide");

  TObjectCollection<CRow>& GetRow() const { return *m_row; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kRow };

  CSmartPtr<TObjectCollection<CRow>> m_row;
};

}  // namespace wide

#endif  // BENCH_WIDE_WIDE_H_
