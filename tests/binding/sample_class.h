// A generated class whose metadata a test puts together; its properties are variants by index.

#ifndef TESTS_BINDING_SAMPLE_CLASS_H_
#define TESTS_BINDING_SAMPLE_CLASS_H_

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "qvxml/binding/metadata/element_infos.h"
#include "qvxml/binding/metadata/parent_element_info.h"
#include "qvxml/binding/metadata/xml_generated_class.h"
#include "qvxml/binding/xml_collection_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/xml/xml_writer.h"

namespace qv_test {

class CSample;

/// What the static metadata of a generated class are.
struct Schema {
  Schema(QvXmlLib16::XmlElementGroupType group, const char* name,
         QvXmlLib16::XmlElementType elementType = QvXmlLib16::XmlElementType_Element)
      : info(group, elementType, name, "", true, false, -1, QvXmlLib16::ItemType_none, "", false) {}

  template <class TInfo, class... TArguments>
  TInfo& Add(TArguments&&... arguments) {
    owned.push_back(std::make_unique<TInfo>(std::forward<TArguments>(arguments)...));
    elements.back() = owned.back().get();
    elements.push_back(nullptr);
    return static_cast<TInfo&>(*owned.back());
  }

  QvXmlLib16Data::CParentElementInfo info;
  std::vector<std::unique_ptr<QvXmlLib16Data::CElementInfo>> owned;
  std::vector<QvXmlLib16Data::CElementInfo*> elements{nullptr};
  /// Makes what the class holds from the start.
  std::function<void(CSample&)> init;
};

class CSample : public QvXmlLib16::CXmlGeneratedClass {
 public:
  /// Access to this property throws.
  static constexpr int kBroken = 99;

  explicit CSample(Schema& schema)
      : CXmlGeneratedClass(schema.info.GetName().c_str()), m_schema(schema) {
    if (m_schema.init) m_schema.init(*this);
  }

  std::string GetTargetNamespace() const override { return ""; }
  std::string GetNamespace() const override { return ""; }
  void AccessProperty(int index, bool get, QvXmlLib16::QvVariant& value) override {
    if (index == kBroken) throw QvXmlLib16::CQvException(get ? "no get" : "no set");
    if (get) {
      value = values[index];
    } else {
      Store(index, value);
    }
  }
  QvXmlLib16Data::CParentElementInfo* GetClassInfo() const override { return &m_schema.info; }
  QvXmlLib16Data::CElementInfo** GetClassElementInfo() const override {
    return m_schema.elements.data();
  }
  QvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() const override { return nullptr; }
  void AttributesToXml_Int(QvXmlLib16::CXmlWriter* writer,
                           const QvXmlLib16::CSerializationContext& ctx) const override {
    if (!attribute.empty()) {
      writer->WriteAttributeString(attribute, "", "", QvXmlLib16::ItemType_string);
    }
    CXmlGeneratedClass::AttributesToXml_Int(writer, ctx);
  }
  void Init() override {
    values.clear();
    held.clear();
    if (m_schema.init) m_schema.init(*this);
  }

  void Store(int index, const QvXmlLib16::QvVariant& value) {
    held[index] = value.GetXmlObject();
    values[index] = value;
  }
  void Hold(int index, QvXmlLib16::CXmlObjectBase* object) {
    held[index] = object;
    values[index].SetXmlObject(object);
  }
  void HoldCollection(int index, QvXmlLib16::CXmlCollectionBase* collection) {
    held[index] = collection;
    values[index].SetXmlCollection(collection);
  }
  CSample* Child(int index) { return dynamic_cast<CSample*>(held[index].Ptr()); }

  /// "index=text" of each property that is set; children in parentheses, collections by count.
  std::string Dump() const {
    std::string text;
    for (const auto& [index, value] : values) {
      if (!value.IsValid()) continue;
      if (!text.empty()) text += ' ';
      text += std::to_string(index) + "=" + DumpValue(index, value);
    }
    return text;
  }

  std::map<int, QvXmlLib16::QvVariant> values;
  std::map<int, QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase>> held;
  /// Name of an attribute to write.
  std::string attribute;

 private:
  std::string DumpValue(int index, const QvXmlLib16::QvVariant& value) const {
    if (value.IsNil()) return "nil";
    if (value.GetItemType() == QvXmlLib16::ItemType_xmlCollection) {
      return std::to_string(value.GetXmlCollection()->GetCount()) + " items";
    }
    if (value.GetItemType() != QvXmlLib16::ItemType_xmlObject) return value.ToString();
    const auto* child = dynamic_cast<const CSample*>(held.at(index).Ptr());
    return child == nullptr ? held.at(index)->GetElementName() : "(" + child->Dump() + ")";
  }

  Schema& m_schema;
};

}  // namespace qv_test

#endif  // TESTS_BINDING_SAMPLE_CLASS_H_
