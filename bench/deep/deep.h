// Generated from deep.xsd.

#ifndef BENCH_DEEP_DEEP_H_
#define BENCH_DEEP_DEEP_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace deep {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

/// Node
class CNode : public TGeneratedClass<CNode> {
 public:
  explicit CNode(const char* elementName = "node");

  const std::optional<long>& GetId() const { return m_id; }
  void SetId(std::optional<long> value) { m_id = std::move(value); }
  const std::optional<std::string>& GetLabel() const { return m_label; }
  void SetLabel(std::optional<std::string> value) { m_label = std::move(value); }
  CNode* GetNode() const { return m_node.Ptr(); }
  void SetNode(CSmartPtr<CNode> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kId, kLabel, kNode };

  std::optional<long> m_id;
  std::optional<std::string> m_label;
  CSmartPtr<CNode> m_node;
};

/// Chain
class CChain : public TGeneratedClass<CChain> {
 public:
  explicit CChain(const char* elementName = "chain");

  CNode* GetNode() const { return m_node.Ptr(); }
  void SetNode(CSmartPtr<CNode> value);

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kNode };

  CSmartPtr<CNode> m_node;
};

/// Deep: the document.
class CDeep : public TGeneratedClass<CDeep> {
 public:
  explicit CDeep(const char* elementName = "deep");

  TObjectCollection<CChain>& GetChain() const { return *m_chain; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kChain };

  CSmartPtr<TObjectCollection<CChain>> m_chain;
};

}  // namespace deep

#endif  // BENCH_DEEP_DEEP_H_
