// Generated from numbers.xsd.

#ifndef BENCH_NUMBERS_NUMBERS_H_
#define BENCH_NUMBERS_NUMBERS_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace numbers {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// Doubles
class CDoubles : public TGeneratedClass<CDoubles> {
 public:
  explicit CDoubles(const char* elementName = "doubles");

  Cr8Col& GetD() const { return *m_d; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kD };

  CSmartPtr<Cr8Col> m_d;
};

/// Ints
class CInts : public TGeneratedClass<CInts> {
 public:
  explicit CInts(const char* elementName = "ints");

  Ci4Col& GetI() const { return *m_i; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kI };

  CSmartPtr<Ci4Col> m_i;
};

/// Series
class CSeries : public TGeneratedClass<CSeries> {
 public:
  explicit CSeries(const char* elementName = "series");

  const std::optional<std::string>& GetName() const { return m_name; }
  void SetName(std::optional<std::string> value) { m_name = std::move(value); }
  CDoubles* GetDoubles() const { return m_doubles.Ptr(); }
  void SetDoubles(CSmartPtr<CDoubles> value);
  CInts* GetInts() const { return m_ints.Ptr(); }
  void SetInts(CSmartPtr<CInts> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kName, kDoubles, kInts };

  std::optional<std::string> m_name;
  CSmartPtr<CDoubles> m_doubles;
  CSmartPtr<CInts> m_ints;
};

/// Numbers: the document.
class CNumbers : public TGeneratedClass<CNumbers> {
 public:
  explicit CNumbers(const char* elementName = "numbers");

  TObjectCollection<CSeries>& GetSeries() const { return *m_series; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kSeries };

  CSmartPtr<TObjectCollection<CSeries>> m_series;
};

}  // namespace numbers

#endif  // BENCH_NUMBERS_NUMBERS_H_
