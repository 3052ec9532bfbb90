#include <cstddef>
#include <string>
#include <utility>

#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/item_type.h"
#include "qvxml/json/well_formed_json_writer.h"
#include "qvxml/xml/untyped/attribute_col.h"
#include "qvxml/xml/untyped/element.h"
#include "qvxml/xml/untyped/element_col.h"
#include "qvxml/xml/untyped/untyped_writer_internal.h"
#include "qvxml/xml/xml_text_writer.h"

namespace QvXmlLib16::detail {

namespace {

const CElement& ChildAt(const CElementCol& children, size_t index) {
  return *children.begin()[static_cast<std::ptrdiff_t>(index)];
}

}  // namespace

// A root stands in no other element, and the context's default namespace is not declared on it.
CUntypedWriter::CUntypedWriter(CXmlWriter& writer, bool isRoot, const CSerializationContext& ctx)
    : m_writer(writer),
      m_textWriter(dynamic_cast<CXmlTextWriter*>(&writer)),
      m_jsonWriter(m_textWriter != nullptr ? nullptr
                                           : dynamic_cast<CWellFormedJsonWriter*>(&writer)),
      m_ctx(ctx),
      m_hasDefaultNamespace(!isRoot && !ctx.GetDefaultNamespaceURI().empty()) {}

CUntypedWriter::~CUntypedWriter() = default;

void CUntypedWriter::Write(const CElement& element) {
  Start(element);
  while (!m_levels.empty()) {
    CLevel& level = m_levels.back();
    const CElementCol* const children = level.element->FindElements();
    if (children == nullptr || level.nextChild == static_cast<size_t>(children->GetCount())) {
      End();
    } else {
      if (m_jsonWriter != nullptr) MarkRun(*children, level.nextChild);
      Start(ChildAt(*children, level.nextChild++));
    }
  }
}

// Children of one name that stand next to each other are like the items of a collection.
void CUntypedWriter::MarkRun(const CElementCol& children, size_t index) {
  const auto areAlike = [&children](size_t left) {
    const CElement& first = ChildAt(children, left);
    const CElement& second = ChildAt(children, left + 1);
    return first.GetName() == second.GetName() && first.m_namespace == second.m_namespace;
  };
  const bool isInRun = (index > 0 && areAlike(index - 1)) ||
                       (index + 1 < static_cast<size_t>(children.GetCount()) && areAlike(index));
  m_jsonWriter->SetContextState(isInRun ? ContextState_CollectionBegin : ContextState_None);
}

void CUntypedWriter::Start(const CElement& element) {
  m_loopCheck.Check(m_levels);
  const bool isOutermost = m_levels.empty();
  const bool isInDefaultNamespace =
      isOutermost ? m_hasDefaultNamespace : m_levels.back().hasDefaultNamespace;
  CLevel level{&element,           0,       isOutermost ? &m_writer : m_levels.back().writer,
               TextWriterAround(), nullptr, false};
  if (level.textWriter != nullptr && !element.m_namespace.empty()) {
    level.textWriter->CloseParentElm();
    level.ownWriter = MakeOwnWriter(*level.textWriter);
    level.ownWriter->SetDefaultNamespace(element.m_namespace);
    level.writer = level.textWriter = level.ownWriter.get();
  }
  level.writer->WriteStartElement(element.GetName(), element.m_namespace);
  WriteAttributes(level, isInDefaultNamespace);
  m_levels.push_back(std::move(level));
}

// The text comes last: where it stood is not known.
void CUntypedWriter::End() {
  CLevel level = std::move(m_levels.back());
  m_levels.pop_back();
  level.writer->WriteString(level.element->m_text, ItemType_string, false);
  level.writer->WriteEndElement();
  if (level.ownWriter == nullptr) return;
  m_spareWriters.push_back(std::move(level.ownWriter));
  // Kept: the element has ended its line, and this ends one more.
  TextWriterAround()->WriteRawElement(std::string());
}

void CUntypedWriter::WriteAttributes(CLevel& level, bool isInDefaultNamespace) {
  const CElement& element = *level.element;
  const bool hasNamespace = !element.m_namespace.empty();
  bool hasDeclaration = false;
  if (const CAttributeCol* attributes = element.FindAttributes()) {
    for (const CSmartPtr<CAttribute>& attribute : *attributes) {
      const bool isDeclaration = attribute->IsDefaultNamespaceDeclaration();
      hasDeclaration |= isDeclaration;
      // The namespace is declared already, and twice is malformed.
      if (isDeclaration && hasNamespace) continue;
      attribute->ToXml_Int(level.writer, false, "", m_ctx, false);
    }
  }
  // A declaration among the attributes means that the document was read without namespaces: the
  // children that seem to be in none then belong to this one.
  level.hasDefaultNamespace = level.textWriter != nullptr && hasNamespace && !hasDeclaration;
  if (isInDefaultNamespace && level.textWriter != nullptr && !hasNamespace && !hasDeclaration) {
    level.writer->WriteAttributeString("xmlns", "", "", ItemType_string);
  }
}

std::unique_ptr<CXmlTextWriter> CUntypedWriter::MakeOwnWriter(CXmlTextWriter& outer) {
  if (!m_spareWriters.empty()) {
    std::unique_ptr<CXmlTextWriter> writer = std::move(m_spareWriters.back());
    m_spareWriters.pop_back();
    return writer;
  }
  auto writer = std::make_unique<CXmlTextWriter>(outer.GetStream());
  writer->SetEOLType(outer.GetEOLType());
  writer->SetFormat(outer.GetFormat());
  writer->SetWriteCDATA(outer.GetWriteCDATA());
  // Kept: the indent characters stay those of a new writer.
  return writer;
}

CXmlTextWriter* CUntypedWriter::TextWriterAround() const {
  return m_levels.empty() ? m_textWriter : m_levels.back().textWriter;
}

}  // namespace QvXmlLib16::detail
