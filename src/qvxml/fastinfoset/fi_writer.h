// Fast Infoset as an output format.

#ifndef QVXML_FASTINFOSET_FI_WRITER_H_
#define QVXML_FASTINFOSET_FI_WRITER_H_

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvxml/fastinfoset/fi_declaration.h"
#include "qvxml/support/export.h"
#include "qvxml/xml/xml_writer.h"

namespace QvXmlLib16 {

class CBinaryStream;        // xml/binary_stream.h
class CFastInfosetContext;  // fastinfoset/fi_context.h

namespace detail {
class CFIEncoder;  // fastinfoset/fi_encoder_internal.h
}  // namespace detail

/// Writes a Fast Infoset document (ITU-T X.891) to a stream.
///
/// To be called in this order: Open, WriteStartDocument, one element with comments and processing
/// instructions around it, WriteEndDocument, Close.
///
/// Text keeps every character, carriage returns and line feeds included; one that no XML document
/// may hold throws CQvException "Text holds a character that can not be written.". What is no name
/// without a colon throws "The name [%s] can not be written.", an element in the namespace of
/// declarations "The namespace [%s] can not be declared.".
///
/// Namespaces are declared where they are first needed, also where the caller bound a prefix and
/// declared nothing. Where a prefix is taken, another one is made. An attribute named xmlns, or
/// xmlns: and a prefix, becomes a declaration; it is left out where it contradicts the name of its
/// element. An element in no namespace stays in none where a default namespace is in force.
///
/// A failure within an item ends the document: what is called then throws CQvException "The
/// document can not be continued after a failure.".
class QVXML_API CFastInfosetWriter : public CXmlWriter {
 public:
  /// The context is read here and not needed afterwards; the stream must outlive the writer.
  CFastInfosetWriter(const CFastInfosetContext& context, CBinaryStream& stream);
  ~CFastInfosetWriter() override;

  /// Whether text is written that is the default value of its element; initially false.
  bool GetWriteDefaultElementValues() const noexcept { return m_writesDefaultElementValues; }
  void SetWriteDefaultElementValues(bool write) noexcept { m_writesDefaultElementValues = write; }

  // The document. Items outside it throw CQvException.

  /// Hands what was written to the stream, then throws as CXmlWriter::Close() when an element is
  /// still open.
  void Close() override;
  /// Writes the declaration, the identification and the external vocabulary. Throws CQvException
  /// "Invalid Fast Infoset declaration [%d]." for a number outside FInfoDecl, and "A generated
  /// vocabulary must have an external vocabulary URI.".
  void WriteStartDocument(FInfoDecl declaration = FInfoDecl_None);
  /// Throws CQvException "A document must have one element.", and as Close() when one is still
  /// open.
  void WriteEndDocument();
  void WriteComment(const std::string& text) override;
  /// Takes one or more instructions with their delimiters. Throws CQvException "Invalid processing
  /// instruction [%s].".
  void WritePI(const std::string& text) override;
  /// Writes nothing: schema text belongs into XML text.
  void WriteInlineSchema(const std::string& schemaText) override;

  // Namespaces.

  void SetDefaultNamespace(const std::string& namespaceUri) override;
  void AddNamespace(const std::string& prefix, const std::string& namespaceUri) override;

  // Elements. Those that need an open element throw CQvException "An Element has not been opened.".

  void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override;
  /// Writes text as the context says for its type. "" writes nothing, and neither does a default
  /// value unless they are to be written.
  void WriteString(const std::string& text, ItemType type, bool isDefaultValue) override;
  void WriteEndElement() override;
  /// In a class derived from this one, the three calls of CXmlWriter.
  void WriteTextElement(const std::string& localName, const std::string& namespaceUri,
                        std::string_view text, ItemType type, bool isDefaultValue) override;

  // Attributes. These throw CQvException "Attributes must be added before elements" unless the
  // start tag of the innermost element is open.

  /// An attribute in a namespace always has a prefix, even for the default namespace.
  void WriteAttributeString(const std::string& localName, const std::string& namespaceUri,
                            const std::string& value, ItemType type) override;
  /// In a class derived from this one, the call of CXmlWriter.
  void WriteTextAttribute(const std::string& localName, const std::string& namespaceUri,
                          std::string_view value, ItemType type) override;
  void WriteAttributeType(const std::string& typeNamespace, const std::string& typeName,
                          ItemType type) override;
  void WriteAttributeNil() override;

 private:
  // Numbers of the encoder; 0 for none.
  struct NamePrefix {
    unsigned prefix = 0;
    unsigned namespaceNumber = 0;
  };
  // The prefixes that names in the namespaces used last have here.
  struct KnownPrefixes {
    struct Entry {
      std::string namespaceUri;
      NamePrefix numbers;
    };
    Entry entries[2];
    size_t next = 0;

    const NamePrefix* Find(const std::string& namespaceUri) const noexcept;
    NamePrefix Remember(const std::string& namespaceUri, NamePrefix numbers);
    void Forget() noexcept;
  };
  // What a prefix is declared for: a namespace, by the element of that depth. Depths begin at 1, as
  // 0 is that of no element.
  struct Binding {
    unsigned namespaceNumber = 0;
    unsigned long depth = 0;
  };
  struct Undo {
    unsigned prefix;
    Binding earlier;
    unsigned long depth;
  };
  enum class Place { BeforeDocument, BeforeRoot, InRoot, AfterRoot, AfterDocument };

  // Where an item may stand; both throw.
  CXmlWriterContext& GetOpenStartTag() const;
  void RequireDocument() const;
  // Every item ends with m_isWhole set.
  void BeginItem();
  void EndStartTag();

  void DeclareRootNamespaces(const std::string& namespaceUri);
  // What ResolveElement gives where it need not declare anything, or null.
  const NamePrefix* FindElementPrefix(const std::string& namespaceUri) const noexcept;
  NamePrefix ResolveElement(CXmlWriterContext& context, const std::string& namespaceUri);
  NamePrefix ResolveAttribute(CXmlWriterContext& context, const std::string& namespaceUri);
  // A prefix for a namespace that is not "", declared here or around.
  NamePrefix RequirePrefix(CXmlWriterContext& context, const std::string& namespaceUri);
  std::string MakePrefix(const CXmlWriterContext& context) const;
  static bool IsDeclarationName(const std::string& localName,
                                const std::string& namespaceUri) noexcept;
  void WriteDeclarationAttribute(CXmlWriterContext& context, const std::string& localName,
                                 const std::string& namespaceUri, const std::string& value);

  // Whether the innermost declaration of the prefix, "" included, is for the namespace.
  bool IsDeclared(const std::string& prefix, const std::string& namespaceUri,
                  NamePrefix& numbers) const;
  // Whether the innermost element may declare the prefix anew.
  bool IsFree(const std::string& prefix) const;
  NamePrefix Declare(const std::string& prefix, const std::string& namespaceUri);
  void NoteChange();
  void UndoDeclarations(unsigned long depth) noexcept;

  const std::unique_ptr<detail::CFIEncoder> m_encoder;
  bool m_writesDefaultElementValues = false;
  bool m_isVocabularyNameless;
  // Whether no derived class hears of the operations; known from the root on.
  bool m_isPlain = false;
  Place m_place = Place::BeforeDocument;
  // Cleared while an item is written, and so after a failure.
  bool m_isWhole = true;
  KnownPrefixes m_elementPrefixes;
  KnownPrefixes m_attributePrefixes;
  // By the number of the prefix; 0 is the default namespace.
  std::vector<Binding> m_bindings;
  std::vector<Undo> m_undos;
  // Prefixes that the names of the open start tag have.
  std::vector<unsigned> m_usedPrefixes;
  std::string m_typeValue;
};

}  // namespace QvXmlLib16

#endif  // QVXML_FASTINFOSET_FI_WRITER_H_
