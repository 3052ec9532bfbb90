// Generated from samples.xsd.
#ifndef TESTS_SAMPLES_MEASURE_H_
#define TESTS_SAMPLES_MEASURE_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// Simple content of a type, with an attribute.
class CLength : public TGeneratedClass<CLength> {
 public:
  explicit CLength(const char* elementName = "length");

  const std::optional<std::string>& GetUnit() const { return m_unit; }
  void SetUnit(std::optional<std::string> value) { m_unit = std::move(value); }
  const std::optional<CDecimal>& GetValue() const { return m_value; }
  void SetValue(std::optional<CDecimal> value) { m_value = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kUnit, kValue };

  std::optional<std::string> m_unit;
  std::optional<CDecimal> m_value;
};

/// Simple content that keeps its text as it stands.
class CComment : public TGeneratedClass<CComment> {
 public:
  explicit CComment(const char* elementName = "comment");

  const std::optional<std::string>& GetLang() const { return m_lang; }
  void SetLang(std::optional<std::string> value) { m_lang = std::move(value); }
  const std::optional<std::string>& GetValue() const { return m_value; }
  void SetValue(std::optional<std::string> value) { m_value = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kLang, kValue };

  std::optional<std::string> m_lang;
  std::optional<std::string> m_value;
};

/// Elements with simple content.
class CMeasure : public TGeneratedClass<CMeasure> {
 public:
  explicit CMeasure(const char* elementName = "measure");

  CLength* GetLength() const { return m_length.Ptr(); }
  void SetLength(CSmartPtr<CLength> value);
  CComment* GetComment() const { return m_comment.Ptr(); }
  void SetComment(CSmartPtr<CComment> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kLength, kComment };

  CSmartPtr<CLength> m_length;
  CSmartPtr<CComment> m_comment;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_MEASURE_H_
