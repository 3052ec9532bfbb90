// Work that doubles takes at most 2.3 times as long: nothing is searched from its start, copied
// again or counted anew for each of many siblings, attributes, prefixes or tokens. Processor time
// of this thread, and in the long form only (QVXML_SIZES=full), since other programs disturb it.

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "tests/samples/contact.h"
#include "tests/samples/sample_documents.h"
#include "tests/samples/tree.h"
#include "tests/samples/typed_lists.h"
#include "tests/sizes/long_form.h"
#include <gtest/gtest.h>
#include <time.h>

#include "qvxml/qvxml.h"

using namespace samples;

namespace {

constexpr double kMostGrowth = 2.3;

std::string Repeat(size_t count, const std::function<std::string(const std::string&)>& item) {
  std::string text;
  for (size_t i = 0; i < count; ++i) text += item(std::to_string(i));
  return text;
}

double ProcessorSeconds() {
  timespec time;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// A median of five.
double Measure(const std::function<void()>& work) {
  std::array<double, 5> seconds;
  for (double& second : seconds) {
    const double start = ProcessorSeconds();
    work();
    second = ProcessorSeconds() - start;
  }
  std::sort(seconds.begin(), seconds.end());
  return seconds[2];
}

void Load(const std::string& xml) {
  CXmlDocument document;
  document.LoadXml(xml.c_str());
}

CSmartPtr<CElement> Untyped() { return CSmartPtr<CElement>(new CElement("any")); }

CSmartPtr<CXmlObjectBase> Read(const CSmartPtr<CXmlObjectBase>& object, const std::string& xml) {
  object->FromXml(InNamespace(xml).c_str());
  return object;
}

CSerializationContext WellFormedJson() {
  CSerializationContext ctx;
  ctx.GetJsonContext().SetWellFormed(true);
  return ctx;
}

// What is prepared for a size, and not measured, returns what is.
struct Row {
  const char* name;
  size_t size;
  std::function<std::function<void()>(size_t)> prepare;
};

std::function<void()> LoadingOf(const std::string& xml) {
  return [xml] { Load(xml); };
}

template <class TMake>
std::function<void()> ReadingOf(TMake make, const std::string& xml) {
  return [make, xml] { Read(make(), xml); };
}

std::function<void()> FastInfosetReadingOf(const std::string& xml) {
  const CSmartPtr<CElement> element = Untyped();
  element->FromXml(xml.c_str());
  const CBinaryData octets = element->ToFastInfosetStream();
  return [octets] {
    CXmlDocument document;
    document.LoadXmlStream(octets.GetData(), octets.GetLength());
  };
}

template <class TMake>
std::function<void()> WritingOf(TMake make, const std::string& xml) {
  return [object = Read(make(), xml)] {
    object->ToXml();
    object->ToFastInfosetStream();
    object->ToJson(true, EOL_LF, WellFormedJson());
  };
}

std::string Nodes(size_t count) {
  return "<node id='0'>" +
         Repeat(count, [](const std::string& i) { return "<node id='" + i + "'/>"; }) + "</node>";
}
std::string Items(size_t count) {
  return "<lists>" + Repeat(count, [](const std::string& i) { return "<i8>" + i + "</i8>"; }) +
         "</lists>";
}
// Groups of two elements each.
std::string Facts(size_t count) {
  return "<contact><name>n</name><phone>1</phone>" +
         Repeat(count, [](const std::string& i) { return "<key>" + i + "</key><value/>"; }) +
         "</contact>";
}
std::string Attributes(size_t count) {
  return "<a" + Repeat(count, [](const std::string& i) { return " n" + i + "='" + i + "'"; }) +
         "/>";
}
std::string Prefixes(size_t count) {
  return "<a" +
         Repeat(count, [](const std::string& i) { return " xmlns:p" + i + "='urn:" + i + "'"; }) +
         ">" + Repeat(count, [](const std::string& i) { return "<p" + i + ":b/>"; }) + "</a>";
}
// Each child declares its own.
std::string Namespaces(size_t count) {
  return "<a>" +
         Repeat(count,
                [](const std::string& i) { return "<p:b xmlns:p='urn:" + i + "' p:c=''/>"; }) +
         "</a>";
}
// All on one element, used by it.
std::string OwnNamespaces(size_t count) {
  return "<a" +
         Repeat(count,
                [](const std::string& i) {
                  return " xmlns:p" + i + "='urn:" + i + "' p" + i + ":c=''";
                }) +
         "/>";
}
std::string Names(size_t count) {
  return "<a>" +
         Repeat(count, [](const std::string& i) { return "<n" + i + ">" + i + "</n" + i + ">"; }) +
         "</a>";
}

std::function<void()> JsonReadingOf(const std::string& json, bool isWellFormed) {
  return [json, isWellFormed] {
    CSerializationContext ctx;
    ctx.GetJsonContext().SetWellFormed(isWellFormed);
    CXmlDocument document(ctx);
    document.LoadJson(json.c_str());
  };
}
std::string JsonNames(size_t count) {
  return R"({"a": {"z": 0)" +
         Repeat(count, [](const std::string& i) { return ",\n\"n" + i + "\": " + i; }) + "}}";
}
std::string JsonItems(size_t count) {
  return R"({"a": {"n": [0)" + Repeat(count, [](const std::string& i) { return "," + i; }) + "]}}";
}

// clang-format off
const Row kRows[] = {
    {"siblings, loaded", 200000, [](size_t n) { return LoadingOf(Nodes(n)); }},
    {"siblings, read", 200000, [](size_t n) { return ReadingOf(Make<CNode>, Nodes(n)); }},
    {"siblings, written", 50000, [](size_t n) { return WritingOf(Make<CNode>, Nodes(n)); }},
    {"siblings of other names", 50000, [](size_t n) { return LoadingOf(Names(n)); }},
    {"items of a list, read", 50000, [](size_t n) { return ReadingOf(Make<CTypedLists>, Items(n)); }},
    {"items of a list, written", 50000, [](size_t n) { return WritingOf(Make<CTypedLists>, Items(n)); }},
    {"groups, read", 50000, [](size_t n) { return ReadingOf(Make<CContact>, Facts(n)); }},
    {"groups, written", 50000, [](size_t n) { return WritingOf(Make<CContact>, Facts(n)); }},
    {"attributes, loaded", 50000, [](size_t n) { return LoadingOf(Attributes(n)); }},
    {"attributes, from Fast Infoset", 50000, [](size_t n) { return FastInfosetReadingOf(Attributes(n)); }},
    {"attributes, read", 50000, [](size_t n) { return ReadingOf(Untyped, Attributes(n)); }},
    {"attributes, written", 50000, [](size_t n) { return WritingOf(Untyped, Attributes(n)); }},
    {"prefixes, loaded", 20000, [](size_t n) { return LoadingOf(Prefixes(n)); }},
    {"prefixes, from Fast Infoset", 20000, [](size_t n) { return FastInfosetReadingOf(Namespaces(n)); }},
    {"namespaces, loaded", 20000, [](size_t n) { return LoadingOf(Namespaces(n)); }},
    {"namespaces, read", 20000, [](size_t n) { return ReadingOf(Untyped, Namespaces(n)); }},
    {"namespaces, written", 20000, [](size_t n) { return WritingOf(Untyped, Namespaces(n)); }},
    {"namespaces of one element, written", 20000, [](size_t n) { return WritingOf(Untyped, OwnNamespaces(n)); }},
    {"entries of Fast Infoset's tables", 50000, [](size_t n) { return FastInfosetReadingOf(Names(n)); }},
    {"names of well-formed JSON", 50000, [](size_t n) { return JsonReadingOf(JsonNames(n), true); }},
    {"names of JSON", 50000, [](size_t n) { return JsonReadingOf(JsonNames(n), false); }},
    {"items of well-formed JSON", 100000, [](size_t n) { return JsonReadingOf(JsonItems(n), true); }},
    {"items of JSON", 100000, [](size_t n) { return JsonReadingOf(JsonItems(n), false); }},
    {"levels, loaded", 200000, [](size_t n) {
       return LoadingOf(Repeat(n, [](const std::string&) { return "<a>"; }) +
                        Repeat(n, [](const std::string&) { return "</a>"; })); }},
    {"pieces of text", 100000, [](size_t n) {
       return LoadingOf("<a>" + Repeat(n, [](const std::string&) { return "&lt;<![CDATA[x]]>\r<!---->"; }) + "</a>"); }},
    {"pieces of text between elements", 100000, [](size_t n) {
       return LoadingOf("<a>" + Repeat(n, [](const std::string&) { return "text<b/>"; }) + "</a>"); }},
    {"one text", 1000000, [](size_t n) {
       return WritingOf(Untyped, "<a>" + std::string(n, 't') + "</a>"); }},
};
// clang-format on

TEST(Growth, IsLinear) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    if (!size_test::IsLongForm()) {
      // That each row is work at all.
      EXPECT_NO_THROW(row.prepare(20)());
      continue;
    }
    // What else the machine does can only make one of them longer.
    double growth = std::numeric_limits<double>::max();
    for (int attempt = 0; attempt < 4 && growth > kMostGrowth; ++attempt) {
      const double once = Measure(row.prepare(row.size));
      const double twice = Measure(row.prepare(2 * row.size));
      growth = std::min(growth, twice / once);
      std::printf("%-36s %8.2f ms %8.2f ms  %.2f\n", row.name, once * 1e3, twice * 1e3,
                  twice / once);
    }
    EXPECT_LE(growth, kMostGrowth);
  }
}

}  // namespace
