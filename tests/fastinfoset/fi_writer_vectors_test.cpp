// Documents of an independent implementation: the events of the XML file give the very octets.

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <expat.h>
#include <gtest/gtest.h>

#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/fastinfoset/fi_writer.h"
#include "qvxml/xml/binary_stream.h"

using namespace QvXmlLib16;

namespace {

std::string Load(const std::string& name) {
  std::ifstream file(QVXML_VECTORS "/" + name, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

// Hands what libexpat reports to the writer.
class Replay {
 public:
  explicit Replay(CFastInfosetWriter& writer) : m_writer(writer) {}

  void Run(const std::string& xml) {
    const XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetReturnNSTriplet(parser, 1);
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, OnStart, OnEnd);
    XML_SetNamespaceDeclHandler(parser, OnDeclaration, nullptr);
    XML_SetCharacterDataHandler(parser, OnText);
    XML_SetCommentHandler(parser, OnComment);
    XML_SetProcessingInstructionHandler(parser, OnInstruction);
    EXPECT_EQ(XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1), XML_STATUS_OK);
    XML_ParserFree(parser);
  }

 private:
  struct Name {
    std::string uri, local, prefix;
    explicit Name(const std::string& triplet) {
      const size_t first = triplet.find('|');
      if (first == std::string::npos) {
        local = triplet;
        return;
      }
      uri = triplet.substr(0, first);
      const size_t second = triplet.find('|', first + 1);
      local = triplet.substr(first + 1, second - first - 1);
      if (second != std::string::npos) prefix = triplet.substr(second + 1);
    }
  };

  static Replay& Of(void* user) { return *static_cast<Replay*>(user); }

  static void OnDeclaration(void* user, const char* prefix, const char* uri) {
    Of(user).m_declarations.emplace_back(prefix == nullptr ? "" : prefix,
                                         uri == nullptr ? "" : uri);
  }

  static void OnStart(void* user, const char* triplet, const char** attributes) {
    Replay& replay = Of(user);
    CFastInfosetWriter& writer = replay.m_writer;
    replay.EndText();
    const Name name(triplet);
    // The prefix of the element is to be known before it is started.
    writer.SetDefaultNamespace(name.prefix.empty() ? name.uri : "");
    if (!name.prefix.empty()) writer.AddNamespace(name.prefix, name.uri);
    writer.WriteStartElement(name.local, name.uri);
    for (const auto& [prefix, uri] : replay.m_declarations) {
      writer.WriteAttributeString(prefix.empty() ? "xmlns" : "xmlns:" + prefix, "", uri,
                                  ItemType_string);
    }
    replay.m_declarations.clear();
    for (; *attributes != nullptr; attributes += 2) {
      const Name attribute(attributes[0]);
      if (!attribute.prefix.empty()) writer.AddNamespace(attribute.prefix, attribute.uri);
      writer.WriteAttributeString(attribute.local, attribute.uri, attributes[1], ItemType_string);
    }
  }

  static void OnEnd(void* user, const char*) {
    Of(user).EndText();
    Of(user).m_writer.WriteEndElement();
  }

  static void OnText(void* user, const char* text, int length) {
    Of(user).m_text.append(text, static_cast<size_t>(length));
  }

  static void OnComment(void* user, const char* text) {
    Of(user).EndText();
    Of(user).m_writer.WriteComment(text);
  }

  static void OnInstruction(void* user, const char* target, const char* content) {
    Of(user).EndText();
    Of(user).m_writer.WritePI(std::string("<?") + target + " " + content + "?>");
  }

  void EndText() {
    m_writer.WriteString(m_text, ItemType_string, false);
    m_text.clear();
  }

  CFastInfosetWriter& m_writer;
  std::vector<std::pair<std::string, std::string>> m_declarations;
  std::string m_text;
};

}  // namespace

TEST(CFastInfosetWriter, WritesTheOctetsOfAnotherImplementation) {
  const char* const names[] = {"plain",  "defaultns", "prefixes", "xsi",   "repeats",
                               "index2", "index3",    "lengths",  "empty", "misc",
                               "mixed",  "addlength", "unicode"};
  for (const char* const name : names) {
    SCOPED_TRACE(name);
    const std::string expected = Load(std::string(name) + ".finf");
    ASSERT_FALSE(expected.empty());
    const CFastInfosetContext context;
    CBinaryStream stream;
    CFastInfosetWriter writer(context, stream);
    writer.WriteStartDocument();
    Replay(writer).Run(Load(std::string(name) + ".xml"));
    writer.WriteEndDocument();
    writer.Close();
    const CBinaryData& octets = stream.GetBinaryStream();
    EXPECT_TRUE(octets == CBinaryData(reinterpret_cast<const unsigned char*>(expected.data()),
                                      expected.size()))
        << octets.GetLength() << " in place of " << expected.size();
  }
}
