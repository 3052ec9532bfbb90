// One flag for each entry of a metadata array, without a heap allocation for ordinary classes.

#ifndef QVXML_BINDING_METADATA_FLAG_SET_INTERNAL_H_
#define QVXML_BINDING_METADATA_FLAG_SET_INTERNAL_H_

#include <bitset>
#include <cstddef>
#include <vector>

namespace QvXmlLib16::detail {

class CFlagSet {
 public:
  /// All flags are false.
  explicit CFlagSet(size_t count) {
    if (count > kInlineFlags) m_more.resize(count - kInlineFlags);
  }

  bool Get(size_t index) const {
    return index < kInlineFlags ? m_first[index] : m_more[index - kInlineFlags];
  }
  void Set(size_t index, bool value) {
    if (index < kInlineFlags) {
      m_first[index] = value;
    } else {
      m_more[index - kInlineFlags] = value;
    }
  }

 private:
  static constexpr size_t kInlineFlags = 128;

  std::bitset<kInlineFlags> m_first;
  std::vector<bool> m_more;
};

/// Entries before the null that ends a metadata array; 0 for no array.
template <class TInfo>
size_t CountInfos(TInfo* const* infos) {
  size_t count = 0;
  while (infos != nullptr && infos[count] != nullptr) ++count;
  return count;
}

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_METADATA_FLAG_SET_INTERNAL_H_
