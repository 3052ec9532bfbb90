// A tree of the expected content, made without the library, to hold its documents against.

#ifndef FUZZ_SHADOW_TREE_H_
#define FUZZ_SHADOW_TREE_H_

#include <algorithm>
#include <cstring>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/fuzz_target.h"

#include "qvxml/xml/xml_element.h"

struct ShadowAttribute {
  std::string namespaceUri, localName, value;
};

struct ShadowElement {
  std::string namespaceUri, localName, text;
  std::vector<ShadowAttribute> attributes;
  std::vector<ShadowElement*> children;
};

/// Owns the elements in one list, so that no depth of nesting costs stack.
class ShadowTree {
 public:
  const ShadowElement* GetRoot() const { return m_root; }
  ShadowElement* GetOpen() const { return m_open.empty() ? nullptr : m_open.back(); }
  size_t GetDepth() const { return m_open.size(); }

  ShadowElement& Open(std::string namespaceUri, std::string localName) {
    ShadowElement& element = m_elements.emplace_back();
    element.namespaceUri = std::move(namespaceUri);
    element.localName = std::move(localName);
    (m_open.empty() ? m_root : m_open.back()->children.emplace_back()) = &element;
    m_open.push_back(&element);
    return element;
  }
  void Close() { m_open.pop_back(); }
  void RemoveLastChild() { m_open.back()->children.pop_back(); }

 private:
  std::deque<ShadowElement> m_elements;
  std::vector<ShadowElement*> m_open;
  ShadowElement* m_root = nullptr;
};

inline std::string WithoutCharacters(std::string text, const char* dropped) {
  text.erase(std::remove_if(text.begin(), text.end(),
                            [dropped](char character) {
                              return character != '\0' &&
                                     std::strchr(dropped, character) != nullptr;
                            }),
             text.end());
  return text;
}

/// Reports the first difference. `isFormatted` tells that whitespace around children is layout.
inline void ExpectSameTree(const QvXmlLib16::CXmlElement* actual, const ShadowElement* expected,
                           bool isFormatted) {
  std::vector<std::pair<const QvXmlLib16::CXmlElement*, const ShadowElement*>> pending;
  if ((actual == nullptr) != (expected == nullptr)) FuzzFailure("one tree has no root");
  if (actual != nullptr) pending.emplace_back(actual, expected);
  while (!pending.empty()) {
    const auto [element, shadow] = pending.back();
    pending.pop_back();
    const std::string name = "{" + shadow->namespaceUri + "}" + shadow->localName;
    if (element->GetNamespaceURI() != shadow->namespaceUri ||
        element->GetLocalName() != shadow->localName) {
      FuzzFailure(name + " is called {" + element->GetNamespaceURI() + "}" +
                  element->GetLocalName());
    }
    const char* const layout = isFormatted && !shadow->children.empty() ? " \t\n" : "";
    if (WithoutCharacters(element->GetText(), layout) != WithoutCharacters(shadow->text, layout)) {
      FuzzFailure(name + " has the text [" + element->GetText() + "], not [" + shadow->text + "]");
    }
    if (element->GetAttributes().size() != shadow->attributes.size()) {
      FuzzFailure(name + " has another number of attributes");
    }
    for (size_t i = 0; i < shadow->attributes.size(); ++i) {
      const QvXmlLib16::CXmlAttribute& attribute = *element->GetAttributes()[i];
      const ShadowAttribute& wanted = shadow->attributes[i];
      if (attribute.GetNamespaceURI() != wanted.namespaceUri ||
          attribute.GetLocalName() != wanted.localName || attribute.GetValue() != wanted.value) {
        FuzzFailure(name + " has an attribute {" + attribute.GetNamespaceURI() + "}" +
                    attribute.GetLocalName() + "=[" + attribute.GetValue() + "], not [" +
                    wanted.value + "]");
      }
    }
    const QvXmlLib16::CXmlElement* child = element->GetFirstElement();
    for (const ShadowElement* shadowChild : shadow->children) {
      if (child == nullptr) FuzzFailure(name + " lacks a child");
      pending.emplace_back(child, shadowChild);
      child = child->GetNextSiblingElement();
    }
    if (child != nullptr) FuzzFailure(name + " has a child too many");
  }
}

#endif  // FUZZ_SHADOW_TREE_H_
