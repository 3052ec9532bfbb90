// Writes a document of 10 MB (attributes, numbers, text to escape) through the writer interface and
// compares that with libexpat parsing it and with what other libraries need to save it.

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/support/comparison.h"
#include "bench/support/expat_reference.h"

#include "qvxml/xml/xml_text_writer.h"

#if defined(QVXML_BENCH_PUGIXML)
#include <pugixml.hpp>
#endif
#if defined(QVXML_BENCH_LIBXML2)
#include <libxml/parser.h>
#include <libxml/tree.h>
#endif

namespace {

using namespace QvXmlLib16;
using namespace bench;

constexpr size_t kRecords = 32000;

const std::string kOrderNamespace = "urn:example:purchase:orders";
const std::string kExtraNamespace = "http://example.com/2024/schema/extra";
const std::string kNone;

// Names and values as the binding engine would hand them over.
const std::string kOrders = "orders", kOrder = "order", kId = "id", kStatus = "status",
                  kPriority = "priority", kCustomer = "customer", kDate = "date",
                  kAmount = "amount", kCurrency = "currency", kNote = "note", kOpen = "open",
                  kEuro = "EUR";

struct Record {
  std::string id, priority, customer, date, amount, note;
};

std::vector<Record> MakeRecords() {
  std::vector<Record> records(kRecords);
  for (size_t i = 0; i < records.size(); ++i) {
    records[i] = {std::to_string(i),
                  std::to_string(i % 5),
                  "Smith & Sons, Ltd. <sales" + std::to_string(i) + "@example.com>",
                  "2024-03-" + std::to_string(10 + i % 18) + "T10:11:12",
                  std::to_string(i * 7 % 10000) + "." + std::to_string(10 + i % 90),
                  "Deliver to the back door; call before arriving, the bell is broken."};
  }
  return records;
}

void WriteElement(CXmlWriter& writer, const std::string& name, const std::string& text,
                  ItemType type) {
  writer.WriteStartElement(name, kOrderNamespace);
  writer.WriteString(text, type, false);
  writer.WriteEndElement();
}

void WriteRecord(CXmlWriter& writer, const Record& record) {
  writer.WriteStartElement(kOrder, kOrderNamespace);
  writer.WriteAttributeString(kId, kNone, record.id, ItemType_i4);
  writer.WriteAttributeString(kStatus, kNone, kOpen, ItemType_string);
  writer.WriteAttributeString(kPriority, kExtraNamespace, record.priority, ItemType_i4);
  WriteElement(writer, kCustomer, record.customer, ItemType_string);
  WriteElement(writer, kDate, record.date, ItemType_datetime);
  writer.WriteStartElement(kAmount, kOrderNamespace);
  writer.WriteAttributeString(kCurrency, kNone, kEuro, ItemType_string);
  writer.WriteString(record.amount, ItemType_decimal, false);
  writer.WriteEndElement();
  WriteElement(writer, kNote, record.note, ItemType_string);
  writer.WriteEndElement();
}

void WriteDocument(CTextStream& stream, const std::vector<Record>& records) {
  CXmlTextWriter textWriter(stream);
  textWriter.Open();
  textWriter.WriteStartDocument();
  CXmlWriter& writer = textWriter;
  writer.AddNamespace("o", kOrderNamespace);
  writer.AddNamespace("x", kExtraNamespace);
  writer.WriteStartElement(kOrders, kOrderNamespace);
  for (const Record& record : records) WriteRecord(writer, record);
  writer.WriteEndElement();
  writer.Close();
}

#if defined(QVXML_BENCH_PUGIXML)
struct StringSink : pugi::xml_writer {
  void write(const void* bytes, size_t length) override {
    text.append(static_cast<const char*>(bytes), length);
  }
  std::string text;
};
#endif

}  // namespace

int main() {
  const std::vector<Record> records = MakeRecords();
  CTextStream stream;
  WriteDocument(stream, records);
  const std::string document = stream.GetString();
  const std::string path =
      (std::filesystem::temp_directory_path() / "xml_writer_bench.xml").string();

  std::vector<CProgram> programs;
  programs.push_back(ExpatReference(document));
  programs.push_back(Timed("writer, to memory", [&] {
    CTextStream memory;
    WriteDocument(memory, records);
  }));
  programs.push_back(Timed("writer, to memory, encoded", [&] {
    CTextStream memory;
    WriteDocument(memory, records);
    memory.GetEncodedStream();
  }));
  programs.push_back(Timed("writer, to a file", [&] {
    CFileTextStream file(path.c_str());
    WriteDocument(file, records);
  }));
#if defined(QVXML_BENCH_PUGIXML)
  pugi::xml_document pugiDocument;
  pugiDocument.load_buffer(document.data(), document.size());
  programs.push_back(Timed("pugixml, saving a ready tree", [&] {
    StringSink sink;
    pugiDocument.save(sink, "\t", pugi::format_default, pugi::encoding_utf8);
  }));
#endif
#if defined(QVXML_BENCH_LIBXML2)
  const xmlDocPtr libxmlDocument = xmlReadMemory(document.data(), static_cast<int>(document.size()),
                                                 nullptr, nullptr, XML_PARSE_NOBLANKS);
  programs.push_back(Timed("libxml2, saving a ready tree", [&] {
    xmlChar* text = nullptr;
    int length = 0;
    xmlDocDumpFormatMemoryEnc(libxmlDocument, &text, &length, "UTF-8", 1);
    xmlFree(text);
  }));
#endif

  Compare({"writer", document.size(), static_cast<double>(1 + 5 * kRecords)}, programs);
#if defined(QVXML_BENCH_LIBXML2)
  xmlFreeDoc(libxmlDocument);
#endif
  std::remove(path.c_str());
  return 0;
}
