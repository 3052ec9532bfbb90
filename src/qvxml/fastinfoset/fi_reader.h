// Reads Fast Infoset documents (ITU-T X.891 | ISO/IEC 24824-1) into a document.

#ifndef QVXML_FASTINFOSET_FI_READER_H_
#define QVXML_FASTINFOSET_FI_READER_H_

#include <cstddef>

#include "qvxml/support/export.h"
#include "qvxml/support/instance_monitor.h"

namespace QvXmlLib16 {

class CFastInfosetContext;  // fastinfoset/fi_context.h
class CXmlDocument;         // xml/xml_document.h

/// Reads the input of one document, once. Documents make their own; it lives on the stack for the
/// length of a parse.
///
/// The tree is the one that the XML reader makes of the same document: comments, processing
/// instructions, the document type declaration and unexpanded entity references are passed over.
/// No depth of nesting costs stack.
class QVXML_API CFastInfosetReader : private TInstanceCounted<CFastInfosetReader> {
 public:
  /// Both must outlive the reader, and nobody may change the context meanwhile.
  CFastInfosetReader(CXmlDocument& document, const CFastInfosetContext& context);
  ~CFastInfosetReader();
  CFastInfosetReader(const CFastInfosetReader&) = delete;
  CFastInfosetReader& operator=(const CFastInfosetReader&) = delete;

  /// Whether the bytes begin with E0 00, alone or behind one of the nine XML declarations of
  /// X.891. Such bytes are no XML text.
  static bool IsFastInfoset(const unsigned char* bytes, size_t length) noexcept;

  /// Parses the whole input of the document.
  ///
  /// Throws CQvException "%s at byte %lu", what is wrong and where, counted from 0 at the start of
  /// the input, and what the document's callback threw. The document then keeps what was read
  /// before. Refused are octets that X.891 does not allow, infosets that would be no well-formed
  /// XML 1.0 document with namespaces, an external vocabulary that the context does not hold, and
  /// more repetition than the context allows.
  void Parse();

 private:
  friend class TInstanceCounted<CFastInfosetReader>;
  static CInstanceCounter s_instances;

  CXmlDocument& m_document;
  const CFastInfosetContext& m_context;
};

}  // namespace QvXmlLib16

#endif  // QVXML_FASTINFOSET_FI_READER_H_
