// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_SHAPES_H_
#define TESTS_SAMPLES_SHAPES_H_

#include "tests/samples/schema.h"

namespace samples {

/// shapeType, abstract.
class CShape : public CXmlGeneratedClass {
 public:
  void SetId(std::optional<std::string> value) { m_id = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;

 protected:
  explicit CShape(const char* elementName);
  enum Property : int { kId, kArea, kPropertyCountShape };

 private:
  std::optional<std::string> m_id;
  std::optional<double> m_area;
};

/// circleType, which extends shapeType; xsi:type names it.
class CCircle : public TGeneratedClass<CCircle, CShape> {
 public:
  explicit CCircle(const char* elementName = "shape");

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kRadius = kPropertyCountShape };

  std::optional<double> m_radius;
};

/// squareType, which extends shapeType.
class CSquare : public TGeneratedClass<CSquare, CShape> {
 public:
  explicit CSquare(const char* elementName = "shape");

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kSide = kPropertyCountShape };

  std::optional<double> m_side;
};

/// labelType, the abstract head of a substitution group.
class CLabel : public CXmlGeneratedClass {
 public:
  const std::optional<std::string>& GetText() const { return m_text; }
  void SetText(std::optional<std::string> value) { m_text = std::move(value); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;

 protected:
  explicit CLabel(const char* elementName);
  enum Property : int { kText, kPropertyCountLabel };

 private:
  std::optional<std::string> m_text;
};

/// Element caption, in the substitution group of label.
class CCaption : public TGeneratedClass<CCaption, CLabel> {
 public:
  explicit CCaption(const char* elementName = "caption");

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int {};
};

/// Element legend, in the substitution group of label.
class CLegend : public TGeneratedClass<CLegend, CLabel> {
 public:
  explicit CLegend(const char* elementName = "legend");

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kColumns = kPropertyCountLabel };

  std::optional<long> m_columns;
};

/// Finds the classes of elements whose class is not fixed by the schema.
class CShapesFactory : public CClassfactoryBase {
 public:
  /// A type derived from shapeType, named by xsi:type; null when it is another.
  static CSmartPtr<CXmlObjectBase> CreateShape(CXmlElement* element);
  /// A member of the substitution group of "label"; null when it is none.
  static CSmartPtr<CXmlObjectBase> CreateLabel(CXmlElement* element);
};

/// Members whose class the document names.
class CDrawing : public TGeneratedClass<CDrawing> {
 public:
  explicit CDrawing(const char* elementName = "drawing");

  void SetLabel(CSmartPtr<CLabel> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kLabel, kBest, kShape };

  CSmartPtr<CLabel> m_label;
  CSmartPtr<CShape> m_best;
  CSmartPtr<TObjectCollection<CShape>> m_shape;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_SHAPES_H_
