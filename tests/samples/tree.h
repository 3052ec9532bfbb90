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

/// A recursive type: a chain and a tree of itself.
class CNode : public TGeneratedClass<CNode> {
 public:
  explicit CNode(const char* elementName = "node");

  const std::optional<long>& GetId() const { return m_id; }
  void SetId(std::optional<long> value) { m_id = std::move(value); }
  const std::optional<std::string>& GetLabel() const { return m_label; }
  void SetLabel(std::optional<std::string> value) { m_label = std::move(value); }
  CNode* GetNext() const { return m_next.Ptr(); }
  void SetNext(CSmartPtr<CNode> value);
  TObjectCollection<CNode>& GetNode() const { return *m_node; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  enum Property : int { kId, kLabel, kNext, kNode };

  std::optional<long> m_id;
  std::optional<std::string> m_label;
  CSmartPtr<CNode> m_next;
  CSmartPtr<TObjectCollection<CNode>> m_node;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TREE_H_
