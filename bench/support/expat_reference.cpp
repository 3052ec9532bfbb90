#include "bench/support/expat_reference.h"

#include <cstdio>
#include <cstdlib>

#include <expat.h>

namespace bench {

namespace {

void IgnoreStart(void*, const XML_Char*, const XML_Char**) {}
void IgnoreEnd(void*, const XML_Char*) {}
void IgnoreText(void*, const XML_Char*, int) {}
void IgnoreNamespace(void*, const XML_Char*, const XML_Char*) {}
void CountStart(void* count, const XML_Char*, const XML_Char**) { ++*static_cast<double*>(count); }

void Parse(XML_Parser parser, const std::string& xml) {
  if (XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1) != XML_STATUS_OK) {
    std::fputs("libexpat refuses the document\n", stderr);
    std::exit(1);
  }
  XML_ParserFree(parser);
}

}  // namespace

void ParseWithExpat(const std::string& xml) {
  XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
  XML_SetElementHandler(parser, IgnoreStart, IgnoreEnd);
  XML_SetCharacterDataHandler(parser, IgnoreText);
  XML_SetNamespaceDeclHandler(parser, IgnoreNamespace, IgnoreEnd);
  Parse(parser, xml);
}

double CountElements(const std::string& xml) {
  double count = 0;
  XML_Parser parser = XML_ParserCreate(nullptr);
  XML_SetUserData(parser, &count);
  XML_SetElementHandler(parser, CountStart, IgnoreEnd);
  Parse(parser, xml);
  return count;
}

CProgram ExpatReference(const std::string& xml) {
  return Timed("libexpat, namespaces, empty handlers", [&xml] { ParseWithExpat(xml); });
}

}  // namespace bench
