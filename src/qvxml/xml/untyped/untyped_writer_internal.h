// Writes trees of untyped elements.

#ifndef QVXML_XML_UNTYPED_UNTYPED_WRITER_INTERNAL_H_
#define QVXML_XML_UNTYPED_UNTYPED_WRITER_INTERNAL_H_

#include <cstddef>
#include <memory>
#include <vector>

#include "qvxml/xml/untyped/loop_check_internal.h"

namespace QvXmlLib16 {

class CElement;               // xml/untyped/element.h
class CElementCol;            // xml/untyped/element_col.h
class CSerializationContext;  // binding/serialization_context.h
class CWellFormedJsonWriter;  // json/well_formed_json_writer.h
class CXmlTextWriter;         // xml/xml_text_writer.h
class CXmlWriter;             // xml/xml_writer.h

namespace detail {

/// Writes elements one after the other into the open element of `writer`, without recursion.
///
/// In XML text each element in a namespace is written by a text writer of its own, which knows
/// nothing of the namespaces around it, and whose output stands in the document as raw text:
///
///   writer of the document      <doc> ...                                    ... </doc>
///   writer of the element a           <a xmlns="urn:a"> ...           ... </a>
///   writer of its child b                               <b xmlns="urn:b"/>
///
/// All of them write to the document's stream, so no text is copied from one to the other.
class CUntypedWriter {
 public:
  /// `writer` and `ctx` must outlive the object.
  CUntypedWriter(CXmlWriter& writer, bool isRoot, const CSerializationContext& ctx);
  CUntypedWriter(const CUntypedWriter&) = delete;
  CUntypedWriter& operator=(const CUntypedWriter&) = delete;
  ~CUntypedWriter();

  void Write(const CElement& element);

 private:
  // An element whose end has not been written.
  struct CLevel {
    const CElement* element;
    size_t nextChild;
    // What writes its content; `textWriter` is the same one, or null when that is not XML text.
    CXmlWriter* writer;
    CXmlTextWriter* textWriter;
    // Set when the element has a writer of its own.
    std::unique_ptr<CXmlTextWriter> ownWriter;
    // Whether children in no namespace would be taken into a default namespace.
    bool hasDefaultNamespace;
  };

  void MarkRun(const CElementCol& children, size_t index);
  void Start(const CElement& element);
  void End();
  void WriteAttributes(CLevel& level, bool isInDefaultNamespace);
  std::unique_ptr<CXmlTextWriter> MakeOwnWriter(CXmlTextWriter& outer);
  CXmlTextWriter* TextWriterAround() const;

  CXmlWriter& m_writer;
  CXmlTextWriter* const m_textWriter;
  // Likewise, where arrays are known by what is marked as a collection.
  CWellFormedJsonWriter* const m_jsonWriter;
  const CSerializationContext& m_ctx;
  const bool m_hasDefaultNamespace;
  std::vector<CLevel> m_levels;
  CLoopCheck m_loopCheck;
  // Own writers of elements that have ended.
  std::vector<std::unique_ptr<CXmlTextWriter>> m_spareWriters;
};

}  // namespace detail
}  // namespace QvXmlLib16

#endif  // QVXML_XML_UNTYPED_UNTYPED_WRITER_INTERNAL_H_
