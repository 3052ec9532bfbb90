// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_MEASURE_H_
#define TESTS_SAMPLES_MEASURE_H_

#include "tests/samples/schema.h"

namespace samples {

/// Simple content of a type, with an attribute.
class CLength : public TGeneratedClass<CLength> {
 public:
  explicit CLength(const char* elementName = "length");

  const std::optional<CDecimal>& GetValue() const { return m_value; }

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

  const std::optional<std::string>& GetValue() const { return m_value; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kLang, kValue };

  std::optional<std::string> m_lang;
  std::optional<std::string> m_value;
};

/// Simple content of one character; only simple content may be of that type.
class CGrade : public TGeneratedClass<CGrade> {
 public:
  explicit CGrade(const char* elementName = "grade");

  const std::optional<char>& GetValue() const { return m_value; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kValue };

  std::optional<char> m_value;
};

/// Elements with simple content.
class CMeasure : public TGeneratedClass<CMeasure> {
 public:
  explicit CMeasure(const char* elementName = "measure");

  CLength* GetLength() const { return m_length.Ptr(); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kLength, kComment, kGrade };

  CSmartPtr<CLength> m_length;
  CSmartPtr<CComment> m_comment;
  CSmartPtr<CGrade> m_grade;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_MEASURE_H_
