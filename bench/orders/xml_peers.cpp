#include <cstdio>
#include <cstdlib>
#include <memory>

#include "bench/orders/peers.h"
#include "bench/orders/plain_orders.h"
#include "bench/support/expat_reference.h"

#if defined(QVXML_BENCH_PUGIXML)
#include <pugixml.hpp>
#endif
#if defined(QVXML_BENCH_LIBXML2)
#include <libxml/xmlreader.h>
#include <libxml/xmlwriter.h>
#endif

namespace bench {

namespace {

using plain::CBuffer;
using plain::CName;

// Reads structs from a cursor: GetAttribute tells a value or null, IsAt whether the cursor is at
// such an element, Enter goes to its first child, Leave behind it, TakeText reads a leaf and goes
// behind it.
template <class TCursor>
class TReading {
 public:
  template <class... TArguments>
  explicit TReading(TArguments&&... arguments) : m_cursor(arguments...) {}

  plain::COrders ReadDocument() {
    plain::COrders orders;
    Element(plain::kRootName, orders);
    return orders;
  }

  template <class T>
  void Attribute(CName name, T& member) {
    const char* const text = m_cursor.GetAttribute(name);
    if constexpr (plain::TIsOptional<T>::value) {
      if (text != nullptr) plain::Parse(text, member.emplace());
    } else {
      if (text == nullptr) plain::Refuse(name.local);
      plain::Parse(text, member);
    }
  }
  template <class T>
  void Element(CName name, T& member) {
    if constexpr (plain::TIsOptional<T>::value) {
      if (m_cursor.IsAt(name)) Element(name, member.emplace());
    } else if constexpr (plain::TIsVector<T>::value) {
      while (m_cursor.IsAt(name)) Element(name, member.emplace_back());
    } else if (!m_cursor.IsAt(name)) {
      plain::Refuse(name.local);
    } else if constexpr (plain::Described<T, TReading>) {
      m_cursor.Enter();
      member.Describe(*this);
      m_cursor.Leave();
    } else {
      m_cursor.TakeText([&member](std::string_view text) { plain::Parse(text, member); });
    }
  }

 private:
  TCursor m_cursor;
};

// Writes structs to an output: PutAttribute, PutLeaf, Enter and Leave.
template <class TOutput>
class TWriting {
 public:
  std::string WriteDocument(plain::COrders& orders) {
    m_output.Enter(plain::kRootName);
    m_output.PutAttribute("xmlns", plain::kOrdersNamespace);
    m_output.PutAttribute("xmlns:c", plain::kCommonNamespace);
    orders.Describe(*this);
    m_output.Leave();
    return m_output.Finish();
  }

  template <class T>
  void Attribute(CName name, T& member) {
    if constexpr (plain::TIsOptional<T>::value) {
      if (member) Attribute(name, *member);
    } else {
      CBuffer buffer;
      m_output.PutAttribute(name.qualified, plain::Format(member, buffer));
    }
  }
  template <class T>
  void Element(CName name, T& member) {
    if constexpr (plain::TIsOptional<T>::value) {
      if (member) Element(name, *member);
    } else if constexpr (plain::TIsVector<T>::value) {
      for (auto& item : member) Element(name, item);
    } else if constexpr (plain::Described<T, TWriting>) {
      m_output.Enter(name.qualified);
      member.Describe(*this);
      m_output.Leave();
    } else {
      CBuffer buffer;
      m_output.PutLeaf(name.qualified, plain::Format(member, buffer));
    }
  }

 private:
  TOutput m_output;
};

template <class TCursor, class TOutput>
void AddRows(const std::string& reading, const std::string& writing, const std::string& xml,
             std::vector<CProgram>& programs) {
  const auto orders = std::make_shared<plain::COrders>(TReading<TCursor>(xml).ReadDocument());
  if (CountElements(TWriting<TOutput>().WriteDocument(*orders)) != CountElements(xml)) {
    std::fprintf(stderr, "%s loses elements\n", reading.c_str());
    std::exit(1);
  }
  programs.push_back({reading, [&xml] {
                        plain::COrders result;
                        return TimeOf([&] { result = TReading<TCursor>(xml).ReadDocument(); });
                      }});
  programs.push_back({writing, [orders] {
                        std::string result;
                        return TimeOf([&] { result = TWriting<TOutput>().WriteDocument(*orders); });
                      }});
}

#if defined(QVXML_BENCH_PUGIXML)

class CPugiCursor {
 public:
  explicit CPugiCursor(const std::string& xml) {
    if (!m_document.load_buffer(xml.data(), xml.size())) plain::Refuse("pugixml");
    m_node = m_document.document_element();
  }

  const char* GetAttribute(CName name) const {
    const pugi::xml_attribute attribute = m_parent.attribute(name.qualified);
    return attribute ? attribute.value() : nullptr;
  }
  bool IsAt(CName name) const {
    return m_node && std::string_view(m_node.name()) == name.qualified;
  }
  void Enter() {
    m_parent = m_node;
    m_node = m_parent.first_child();
  }
  void Leave() {
    m_node = m_parent.next_sibling();
    m_parent = m_parent.parent();
  }
  template <class TTake>
  void TakeText(TTake take) {
    take(m_node.child_value());
    m_node = m_node.next_sibling();
  }

 private:
  pugi::xml_document m_document;
  pugi::xml_node m_parent;
  pugi::xml_node m_node;
};

class CPugiOutput {
 public:
  void PutAttribute(const char* name, const char* value) {
    m_node.append_attribute(name).set_value(value);
  }
  void PutLeaf(const char* name, const char* text) {
    m_node.append_child(name).append_child(pugi::node_pcdata).set_value(text);
  }
  void Enter(const char* name) { m_node = m_node.append_child(name); }
  void Leave() { m_node = m_node.parent(); }
  std::string Finish() {
    struct CSink : pugi::xml_writer {
      void write(const void* bytes, size_t length) override {
        text.append(static_cast<const char*>(bytes), length);
      }
      std::string text;
    } sink;
    m_document.save(sink, "", pugi::format_raw, pugi::encoding_utf8);
    return std::move(sink.text);
  }

 private:
  pugi::xml_document m_document;
  pugi::xml_node m_node = m_document;
};

#endif

#if defined(QVXML_BENCH_LIBXML2)

const xmlChar* Xml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }
const char* Text(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

class CLibxmlCursor {
 public:
  explicit CLibxmlCursor(const std::string& xml)
      : m_reader(xmlReaderForMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr,
                                    XML_PARSE_NONET | XML_PARSE_HUGE)) {
    Advance();
  }
  ~CLibxmlCursor() { xmlFreeTextReader(m_reader); }
  CLibxmlCursor(const CLibxmlCursor&) = delete;
  CLibxmlCursor& operator=(const CLibxmlCursor&) = delete;

  // Called between Enter and the first element, while the reader is still at the start tag.
  const char* GetAttribute(CName name) {
    if (xmlTextReaderMoveToAttribute(m_reader, Xml(name.qualified)) != 1) return nullptr;
    m_attribute = Text(xmlTextReaderConstValue(m_reader));
    xmlTextReaderMoveToElement(m_reader);
    return m_attribute.c_str();
  }
  bool IsAt(CName name) {
    if (m_isAtStartTag) {
      m_isAtStartTag = false;
      Advance();
    }
    return xmlTextReaderNodeType(m_reader) == XML_READER_TYPE_ELEMENT &&
           Text(xmlTextReaderConstLocalName(m_reader)) == name.local;
  }
  void Enter() { m_isAtStartTag = true; }
  void Leave() { Advance(); }
  template <class TTake>
  void TakeText(TTake take) {
    m_text.clear();
    if (xmlTextReaderIsEmptyElement(m_reader) == 0) {
      while (Read() != XML_READER_TYPE_END_ELEMENT)
        m_text += Text(xmlTextReaderConstValue(m_reader));
    }
    take(m_text);
    Advance();
  }

 private:
  int Read() {
    if (xmlTextReaderRead(m_reader) < 0) plain::Refuse("libxml2");
    return xmlTextReaderNodeType(m_reader);
  }
  // To the next start or end tag, or to the end of the document.
  void Advance() {
    int type = Read();
    while (type != XML_READER_TYPE_ELEMENT && type != XML_READER_TYPE_END_ELEMENT &&
           type != XML_READER_TYPE_NONE) {
      type = Read();
    }
  }

  xmlTextReaderPtr m_reader;
  bool m_isAtStartTag = false;
  std::string m_attribute;
  std::string m_text;
};

class CLibxmlOutput {
 public:
  CLibxmlOutput() : m_buffer(xmlBufferCreate()), m_writer(xmlNewTextWriterMemory(m_buffer, 0)) {
    xmlTextWriterStartDocument(m_writer, nullptr, "UTF-8", nullptr);
  }
  ~CLibxmlOutput() {
    xmlFreeTextWriter(m_writer);
    xmlBufferFree(m_buffer);
  }
  CLibxmlOutput(const CLibxmlOutput&) = delete;
  CLibxmlOutput& operator=(const CLibxmlOutput&) = delete;

  void PutAttribute(const char* name, const char* value) {
    xmlTextWriterWriteAttribute(m_writer, Xml(name), Xml(value));
  }
  void PutLeaf(const char* name, const char* text) {
    xmlTextWriterWriteElement(m_writer, Xml(name), Xml(text));
  }
  void Enter(const char* name) { xmlTextWriterStartElement(m_writer, Xml(name)); }
  void Leave() { xmlTextWriterEndElement(m_writer); }
  std::string Finish() {
    xmlTextWriterEndDocument(m_writer);
    return Text(xmlBufferContent(m_buffer));
  }

 private:
  xmlBufferPtr m_buffer;
  xmlTextWriterPtr m_writer;
};

#endif

}  // namespace

void AddXmlPeers([[maybe_unused]] const std::string& xml, std::vector<CProgram>& programs) {
#if defined(QVXML_BENCH_PUGIXML)
  AddRows<CPugiCursor, CPugiOutput>("pugixml, tree to structs", "pugixml, structs to tree to text",
                                    xml, programs);
#else
  programs.push_back({"pugixml", {}, "not installed"});
#endif
#if defined(QVXML_BENCH_LIBXML2)
  AddRows<CLibxmlCursor, CLibxmlOutput>("libxml2, reader to structs", "libxml2, structs to writer",
                                        xml, programs);
#else
  programs.push_back({"libxml2", {}, "not installed"});
#endif
}

}  // namespace bench
