#include "tests/samples/typed_nillables.h"

#include <type_traits>

namespace samples {

using namespace schema;

namespace {

template <ItemType kType>
using TInfo =
    std::conditional_t<(kType < ItemType_duration), CElementInfoSeqPrimMnd, CElementInfoSeqPrimOpt>;

template <ItemType... kTypes>
CClassMetaData MakeMetaData(TItemTypes<kTypes...>) {
  return CClassMetaData(NewTypedClassInfo("nillables"),
                        {NewTypedInfo<TInfo<kTypes>, kTypes>(kNamespace, true)...}, {});
}

}  // namespace

CTypedNillables::CTypedNillables(const char* elementName) : TGeneratedClass(elementName) {
  CTypedNillables::Init();
}

void CTypedNillables::Init() {
  m_typed = decltype(m_typed)();
  QvVariant nil;
  nil.SetNil();
  for (int type = ItemType_hexBinary; type < ItemType_duration; ++type) {
    AccessProperty(type, false, nil);
  }
}

void CTypedNillables::AccessProperty(int index, bool get, QvVariant& value) {
  AllItemTypes::Access(index, get, value, m_typed);
}

const CClassMetaData& CTypedNillables::GetMetaData() {
  static const CClassMetaData metaData = MakeMetaData(AllItemTypes());
  return metaData;
}

}  // namespace samples
