// The rows that the library has for every document, by format.

#ifndef BENCH_DOCUMENTS_BINDING_ROWS_H_
#define BENCH_DOCUMENTS_BINDING_ROWS_H_

#include <string>
#include <utility>
#include <vector>

#include "bench/documents/bound_document.h"
#include "bench/support/comparison.h"
#include <qvxml/qvxml.h>

namespace bench {

using CObject = QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase>;

/// `document` outlives the rows, in these functions too; `object` holds what it says.
void AddXmlRows(const CBoundDocument& document, const CObject& object,
                std::vector<CProgram>& programs);
void AddJsonRows(const CBoundDocument& document, const CObject& object,
                 std::vector<CProgram>& programs);
void AddFastInfosetRows(const CBoundDocument& document, const CObject& object,
                        std::vector<CProgram>& programs);
/// How much more two threads read and write, each its own objects, than one: a row of words, timed
/// here by the clock on the wall. It says so where the machine has one core only.
void AddThreadsRow(const CBoundDocument& document, std::vector<CProgram>& programs);

/// A row whose result lives until the time is taken, as it would in a program; taking it down is
/// not timed.
template <class TWork>
CProgram Kept(std::string name, TWork work) {
  return {std::move(name), [work] {
            decltype(work()) result;
            return TimeOf([&] { result = work(); });
          }};
}

/// A row that reads into a new object.
template <class TRead>
CProgram Reading(std::string name, const CBoundDocument& document, TRead read) {
  return Kept(std::move(name), [&document, read] {
    CObject object = document.makeObject();
    read(*object);
    return object;
  });
}

}  // namespace bench

#endif  // BENCH_DOCUMENTS_BINDING_ROWS_H_
