// What every thread does: the sample documents through every format and back.

#ifndef TESTS_THREADS_SAMPLE_WORK_H_
#define TESTS_THREADS_SAMPLE_WORK_H_

#include <cstddef>
#include <string>

#include <qvxml/qvxml.h>

namespace thread_test {

/// The contexts that all threads share, none of which is changed any more: the default one (lenient
/// JSON, literal Fast Infoset) and one that asks for the other form of each.
class SharedContexts {
 public:
  SharedContexts();
  const QvXmlLib16::CSerializationContext& At(size_t number) const;
  static constexpr size_t kCount = 2;

 private:
  QvXmlLib16::CSerializationContext m_other;
};

/// Number of different pieces of work: documents times contexts times formats.
size_t CountWork();
/// Reads a document, writes it in a format, reads that and writes again. Returns all that came of
/// it: both outputs and the XML text of the copy, or the whole message of what was thrown. Depends
/// on `number` alone, whatever is done before or beside it.
std::string DoWork(size_t number, const SharedContexts& contexts);

}  // namespace thread_test

#endif  // TESTS_THREADS_SAMPLE_WORK_H_
