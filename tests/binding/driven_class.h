// CSample with what the driver looks at beside the members: attributes, simple content, a
// namespace, nil, any compositor.

#ifndef TESTS_BINDING_DRIVEN_CLASS_H_
#define TESTS_BINDING_DRIVEN_CLASS_H_

#include <memory>
#include <optional>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "tests/binding/sample_class.h"
#include <cxxabi.h>
#include <stdlib.h>

#include "qvxml/binding/metadata/attribute_info.h"
#include "qvxml/binding/nillable.h"

namespace qv_test {

struct DrivenSchema : Schema {
  using Schema::Schema;

  /// Replaces the class info.
  template <class... TArguments>
  void Describe(TArguments&&... arguments) {
    classInfo.emplace(std::forward<TArguments>(arguments)...);
  }
  template <class TInfo, class... TArguments>
  TInfo& AddAttribute(TArguments&&... arguments) {
    ownedAttributes.push_back(std::make_unique<TInfo>(std::forward<TArguments>(arguments)...));
    attributes.back() = ownedAttributes.back().get();
    attributes.push_back(nullptr);
    return static_cast<TInfo&>(*ownedAttributes.back());
  }

  std::optional<QvXmlLib16Data::CParentElementInfo> classInfo;
  std::vector<std::unique_ptr<QvXmlLib16Data::CAttributeInfo>> ownedAttributes;
  std::vector<QvXmlLib16Data::CAttributeInfo*> attributes{nullptr};
  std::string targetNamespace;
};

class CDriven : public CSample {
 public:
  explicit CDriven(DrivenSchema& schema) : CSample(schema), m_driven(schema) {}

  std::string GetTargetNamespace() const override { return m_driven.targetNamespace; }
  QvXmlLib16Data::CParentElementInfo* GetClassInfo() const override {
    return m_driven.classInfo ? &*m_driven.classInfo : CSample::GetClassInfo();
  }
  QvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() const override {
    return m_driven.attributes.data();
  }

 private:
  DrivenSchema& m_driven;
};

class CNillableDriven : public CDriven, public QvXmlLib16::INillable {
 public:
  using CDriven::CDriven;

  bool IsNil() const override { return m_isNil; }
  void SetNil(bool isNil) override { m_isNil = isNil; }
  void Init() override {
    CDriven::Init();
    m_isNil = false;
  }

 private:
  bool m_isNil = false;
};

/// A context with the options that `letters` name: A and E ignore unknown attributes and elements,
/// M and C missing members and choices, N namespaces, K counts; L has local names, T no xsi:type.
inline QvXmlLib16::CSerializationContext Context(const std::string& letters) {
  QvXmlLib16::CSerializationContext ctx;
  const auto has = [&](char letter) { return letters.find(letter) != std::string::npos; };
  ctx.SetIgnoreUnknownAttributes(has('A'));
  ctx.SetIgnoreUnknownElements(has('E'));
  ctx.SetIgnoreMissingMandatoryElements(has('M'));
  ctx.SetIgnoreMissingChoice(has('C'));
  ctx.SetIgnoreNamespaces(has('N'));
  ctx.SetIgnoreInvalidCollectionCounts(has('K'));
  if (has('L')) ctx.SetSchemaType(QvXmlLib16::SchemaType_LocalNames);
  ctx.SetWriteTypeAttribute(!has('T'));
  return ctx;
}

inline QvXmlLib16::QvVariant I4(long value) {
  QvXmlLib16::QvVariant variant;
  variant.SetI4(value);
  return variant;
}

inline QvXmlLib16::QvVariant Nil() {
  QvXmlLib16::QvVariant variant;
  variant.SetNil();
  return variant;
}

/// An enumeration: red, green, blue.
inline const char* ColourToText(int value) {
  static constexpr const char* kNames[] = {"red", "green", "blue"};
  return value >= 0 && value < 3 ? kNames[value] : nullptr;
}
inline int TextToColour(const char* text) {
  for (int value = 0; value < 3; ++value) {
    if (std::string(text) == ColourToText(value)) return value;
  }
  throw QvXmlLib16::CQvInvalidValueException(std::string("no colour: ") + text);
}

/// Name of the class of an object, behind the namespace.
template <class TObject>
std::string ClassNameOf(const TObject& object, const std::string& prefix) {
  const std::unique_ptr<char, void (*)(void*)> name(
      abi::__cxa_demangle(typeid(object).name(), nullptr, nullptr, nullptr), &free);
  return std::string(name.get()).substr(prefix.size());
}

/// The chain of what `statement` throws, outermost first: "CQvException: message" and " | " between
/// the links; "-" when it throws nothing.
template <class TStatement>
std::string ChainOf(const TStatement& statement) {
  try {
    statement();
  } catch (const QvXmlLib16::CQvException& caught) {
    std::string text;
    for (const auto* link = &caught; link != nullptr; link = link->GetInnerException()) {
      if (!text.empty()) text += " | ";
      text += ClassNameOf(*link, "QvXmlLib16::") + ": " + link->GetMessage();
    }
    return text;
  }
  return "-";
}

}  // namespace qv_test

#endif  // TESTS_BINDING_DRIVEN_CLASS_H_
