// Documents of the sample classes, for the round trips of every format.

#ifndef TESTS_SAMPLES_SAMPLE_DOCUMENTS_H_
#define TESTS_SAMPLES_SAMPLE_DOCUMENTS_H_

#include <string>
#include <vector>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;

/// A document, without the declaration of the samples' namespace, and who reads it.
struct SampleDocument {
  CSmartPtr<CXmlObjectBase> (*make)();
  const char* xml;
};

/// Each is what the object that has read it writes.
const std::vector<SampleDocument>& SampleDocuments();

/// Puts the declaration into the root's start tag.
std::string InNamespace(std::string xml);

/// Makes the metadata of all sample classes, which then stay.
void MakeSampleMetaData();

template <class TObject>
CSmartPtr<CXmlObjectBase> Make() {
  return CSmartPtr<CXmlObjectBase>(new TObject);
}

}  // namespace samples

#endif  // TESTS_SAMPLES_SAMPLE_DOCUMENTS_H_
