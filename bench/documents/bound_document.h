// The documents of the benchmarks, each with the class that is generated for it.

#ifndef BENCH_DOCUMENTS_BOUND_DOCUMENT_H_
#define BENCH_DOCUMENTS_BOUND_DOCUMENT_H_

#include <cstddef>
#include <string>

#include "bench/support/comparison.h"
#include <qvxml/qvxml.h>

namespace bench {

struct CBoundDocument {
  std::string name;
  std::string xml;
  /// Makes an empty object of the document's class.
  QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase> (*makeObject)();
  /// Declares the namespaces as the document does.
  QvXmlLib16::CSerializationContext ctx{};
  double elements = 0;
  /// The same as JSON, "" where there is none.
  std::string json{};

  /// A new object filled from `xml`.
  QvXmlLib16::CSmartPtr<QvXmlLib16::CXmlObjectBase> Read() const;
  CDocument Description() const { return {name, xml.size(), elements}; }
};

/// Reads a file made by gen.py, with the JSON file beside it, or a GPX file; its name without
/// folder and ending names the document. Its root element tells the class. Throws CQvException.
CBoundDocument ReadDocument(const std::string& path);

/// One track of about `bytes`, indented: points with position, elevation and time.
CBoundDocument MakeGpx(const std::string& name, std::size_t bytes);

/// Makes sure that the document survives: that reading and writing it gives as many elements as it
/// has, and reading that and writing it again gives the same text. Throws CQvException otherwise.
void CheckRoundTrip(const CBoundDocument& document);

}  // namespace bench

#endif  // BENCH_DOCUMENTS_BOUND_DOCUMENT_H_
