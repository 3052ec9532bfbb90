// What every XML row is compared with.

#ifndef BENCH_SUPPORT_EXPAT_REFERENCE_H_
#define BENCH_SUPPORT_EXPAT_REFERENCE_H_

#include <string>

#include "bench/support/comparison.h"

namespace bench {

/// Parses `xml` with libexpat: namespaces, handlers that do nothing. Ends the process when libexpat
/// refuses it.
void ParseWithExpat(const std::string& xml);

/// Elements of `xml`, counted by libexpat.
double CountElements(const std::string& xml);

/// The row of ParseWithExpat; `xml` outlives it.
CProgram ExpatReference(const std::string& xml);

}  // namespace bench

#endif  // BENCH_SUPPORT_EXPAT_REFERENCE_H_
