// Rows of other libraries that do the same typed work on the orders document: from its text to
// plain structs, and from those to text.

#ifndef BENCH_ORDERS_PEERS_H_
#define BENCH_ORDERS_PEERS_H_

#include <string>
#include <vector>

#include "bench/support/comparison.h"

namespace bench {

/// Adds the rows of pugixml and libxml2. Each was made sure to write as many elements as it reads;
/// ends the process otherwise. `xml` outlives the rows.
void AddXmlPeers(const std::string& xml, std::vector<CProgram>& programs);

/// Adds the rows of RapidJSON and nlohmann-json for the JSON twin of the document. Each was made
/// sure to write again what it reads from its own text, with as many orders as the document has;
/// ends the process otherwise. `json` outlives the rows.
void AddJsonPeers(const std::string& json, std::vector<CProgram>& programs);

}  // namespace bench

#endif  // BENCH_ORDERS_PEERS_H_
