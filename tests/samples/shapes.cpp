// Generated from samples.xsd.

#include "tests/samples/shapes.h"

namespace samples {

using namespace schema;

CSmartPtr<CXmlObjectBase> CShapesFactory::CreateShape(CXmlElement* element) {
  if (element->GetLocalName() != "shape" && element->GetLocalName() != "best") return nullptr;
  if (GetElementTypeNamespaceUri(element) != kNamespace) return nullptr;
  const std::string type = GetElementType(element);
  if (type == "circleType") return new CCircle(element->GetLocalName().c_str());
  if (type == "squareType") return new CSquare(element->GetLocalName().c_str());
  return nullptr;
}

CSmartPtr<CXmlObjectBase> CShapesFactory::CreateLabel(CXmlElement* element) {
  if (element->GetNamespaceURI() != kNamespace) return nullptr;
  const std::string& name = element->GetLocalName();
  if (name == "caption") return new CCaption(name.c_str());
  if (name == "legend") return new CLegend(name.c_str());
  return nullptr;
}

CShape::CShape(const char* elementName) : CXmlGeneratedClass(elementName) { CShape::Init(); }

void CShape::Init() { ResetProperties(m_id, m_area); }

void CShape::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kId: return AccessValue<ItemType_string>(get, value, m_id);
    case kArea: return AccessValue<ItemType_r8>(get, value, m_area);
  }
  // clang-format on
}

CCircle::CCircle(const char* elementName) : TGeneratedClass(elementName) { CCircle::Init(); }

void CCircle::Init() {
  CShape::Init();
  ResetProperties(m_radius);
}

void CCircle::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kRadius: return AccessValue<ItemType_r8>(get, value, m_radius);
    default: return CShape::AccessProperty(index, get, value);
  }
  // clang-format on
}

const CClassMetaData& CCircle::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "circleType", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("area", kNamespace, kArea, false, ItemType_r8, "%.17g", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("radius", kNamespace, kRadius, false, ItemType_r8, "%.17g", kCollapse, NoFacets(), "")},
      {new CAttributeInfoPrimitive("id", "", kId, true, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CSquare::CSquare(const char* elementName) : TGeneratedClass(elementName) { CSquare::Init(); }

void CSquare::Init() {
  CShape::Init();
  ResetProperties(m_side);
}

void CSquare::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kSide: return AccessValue<ItemType_r8>(get, value, m_side);
    default: return CShape::AccessProperty(index, get, value);
  }
  // clang-format on
}

const CClassMetaData& CSquare::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "squareType", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("area", kNamespace, kArea, false, ItemType_r8, "%.17g", kCollapse, NoFacets(), ""),
       new CElementInfoSeqPrimMnd("side", kNamespace, kSide, false, ItemType_r8, "%.17g", kCollapse, NoFacets(), "")},
      {new CAttributeInfoPrimitive("id", "", kId, true, ItemType_string, "", kPreserve, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CLabel::CLabel(const char* elementName) : CXmlGeneratedClass(elementName) { CLabel::Init(); }

void CLabel::Init() { ResetProperties(m_text); }

void CLabel::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kText: return AccessValue<ItemType_string>(get, value, m_text);
  }
  // clang-format on
}

CCaption::CCaption(const char* elementName) : TGeneratedClass(elementName) { CCaption::Init(); }

void CCaption::Init() { CLabel::Init(); }

void CCaption::AccessProperty(int index, bool get, QvVariant& value) {
  CLabel::AccessProperty(index, get, value);
}

const CClassMetaData& CCaption::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "caption", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("text", kNamespace, kText, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {});
  // clang-format on
  return metaData;
}

CLegend::CLegend(const char* elementName) : TGeneratedClass(elementName) { CLegend::Init(); }

void CLegend::Init() {
  CLabel::Init();
  ResetProperties(m_columns);
}

void CLegend::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kColumns: return AccessValue<ItemType_i4>(get, value, m_columns);
    default: return CLabel::AccessProperty(index, get, value);
  }
  // clang-format on
}

const CClassMetaData& CLegend::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "legend", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqPrimMnd("text", kNamespace, kText, false, ItemType_string, "", kPreserve, NoFacets(), "")},
      {new CAttributeInfoPrimitive("columns", "", kColumns, true, ItemType_i4, "", kCollapse, NoFacets(), "")});
  // clang-format on
  return metaData;
}

CDrawing::CDrawing(const char* elementName) : TGeneratedClass(elementName) { CDrawing::Init(); }

void CDrawing::SetLabel(CSmartPtr<CLabel> value) {
  Throw_IfPropertyIsNull(value.Ptr(), "label");
  m_label = std::move(value);
}

void CDrawing::Init() {
  ResetProperties(m_label, m_best);
  ResetCollection(m_shape, "shape", kNamespace, 0, kUnbounded, XmlElementType_Element,
                  CShapesFactory::CreateShape);
}

void CDrawing::AccessProperty(int index, bool get, QvVariant& value) {
  // clang-format off
  switch (index) {
    case kLabel: return AccessObject(get, value, m_label);
    case kBest: return AccessObject(get, value, m_best);
    case kShape: return AccessCollection(get, value, m_shape.Ptr());
  }
  // clang-format on
}

const CClassMetaData& CDrawing::GetMetaData() {
  // clang-format off
  static const CClassMetaData metaData(
      new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "drawing", kNamespace, true, false, -1, ItemType_none, "", false),
      {new CElementInfoSeqAbsClsMnd("label", kNamespace, kLabel, XmlElementType_Element, CShapesFactory::CreateLabel),
       new CElementInfoSeqAbsClsOpt("best", kNamespace, kBest, XmlElementType_Element, CShapesFactory::CreateShape),
       new CElementInfoSeqAbsClsCol("shape", kNamespace, kShape, XmlElementType_Element)},
      {});
  // clang-format on
  return metaData;
}

}  // namespace samples
