#ifndef TESTS_SAMPLES_TYPED_LISTS_H_
#define TESTS_SAMPLES_TYPED_LISTS_H_

#include <tuple>

#include "tests/samples/typed_members.h"

namespace samples {

/// Collections in the order of AllItemTypes.
template <class... TCollection>
using TLists = std::tuple<CSmartPtr<TCollection>...>;
using AllLists = TLists<ChexBinaryCol, Cbase64BinaryCol, Ci1Col, Ci2Col, Ci4Col, Ci8Col, Cui1Col,
                        Cui2Col, Cui4Col, Cui8Col, Cr4Col, Cr8Col, CdurationCol, CyearMonthCol,
                        CmonthDayCol, CyearCol, CmonthCol, CdayCol, CdateCol, CdatetimeCol,
                        CtimeCol, CstringCol, CbooleanCol, CdecimalCol, CintegerCol>;

/// A repeated element of every type.
class CTypedLists : public TGeneratedClass<CTypedLists> {
 public:
  explicit CTypedLists(const char* elementName = "lists");

  const AllLists& GetTyped() const { return m_typed; }
  Ci4Col& GetI4() const { return *std::get<CSmartPtr<Ci4Col>>(m_typed); }
  CstringCol& GetColor() const { return *m_color; }

  // For the library.
  void Init() override;
  void AccessProperty(int index, bool get, QvVariant& value) override;
  static const CClassMetaData& GetMetaData();

 private:
  AllLists m_typed;
  CSmartPtr<CstringCol> m_color;
};

}  // namespace samples

#endif  // TESTS_SAMPLES_TYPED_LISTS_H_
