// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_TREE_H_
#define TESTS_SAMPLES_TREE_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// A tree: a recursive type with any number of itself.
class CNode : public TGeneratedClass<CNode> {
 public:
  explicit CNode(const char* elementName = "node");

  const std::optional<long>& GetId() const { return m_id; }
  void SetId(std::optional<long> value) { m_id = std::move(value); }
  const std::optional<std::string>& GetLabel() const { return m_label; }
  void SetLabel(std::optional<std::string> value) { m_label = std::move(value); }
  TObjectCollection<CNode>& GetNode() const { return *m_node; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kId, kLabel, kNode };

  std::optional<long> m_id;
  std::optional<std::string> m_label;
  CSmartPtr<TObjectCollection<CNode>> m_node;
};

/// A chain: a recursive type with one of itself.
class CChain : public TGeneratedClass<CChain> {
 public:
  explicit CChain(const char* elementName = "chain");

  const std::optional<long>& GetId() const { return m_id; }
  void SetId(std::optional<long> value) { m_id = std::move(value); }
  CChain* GetChain() const { return m_chain.Ptr(); }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kId, kChain };

  std::optional<long> m_id;
  CSmartPtr<CChain> m_chain;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TREE_H_
