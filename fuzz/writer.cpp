// Input: calls of the text writer, in any order, one for each byte with its arguments behind it.
// The first byte chooses formatting, line ends and default values. A model tells which calls must
// fail and, while all calls make a well-formed document, what reading the text back must give.

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "fuzz/fuzz_target.h"
#include "fuzz/shadow_tree.h"
#include "fuzz/writer_input.h"

#include "qvxml/binding/serialization_context.h"
#include "qvxml/core/exception.h"
#include "qvxml/support/instance_monitor.h"
#include "qvxml/xml/xml_document.h"
#include "qvxml/xml/xml_text_writer.h"

using namespace QvXmlLib16;

namespace {

constexpr uint8_t kPlain = 1, kCRLF = 2, kDefaultValues = 4, kDeclaration = 8, kAnyOrder = 16;
class ProbedWriter : public CXmlTextWriter {
 public:
  using CXmlTextWriter::CXmlTextWriter;
  std::string PrefixOf(const std::string& namespaceUri) const {
    return GetOpenContext().GetNamespaceMapValue(namespaceUri);
  }
};

class Run {
 public:
  explicit Run(Input& input) : m_input(input), m_options(input.Byte()), m_writer(m_stream) {
    m_writer.SetFormat(!Has(kPlain));
    m_writer.SetEOLType(Has(kCRLF) ? EOL_CRLF : EOL_LF);
    m_writer.SetWriteDefaultElementValues(Has(kDefaultValues));
    m_writer.Open();
    if (Has(kDeclaration)) m_writer.WriteStartDocument();
  }

  void All() {
    while (!m_input.IsAtEnd()) One();
    while (m_tree.GetDepth() > m_input.Byte() % 2u) End();
    Expect(m_tree.GetDepth() != 0, [&] { m_writer.Close(); });
    if (m_tree.GetDepth() == 0 && m_tree.GetRoot() != nullptr && m_isWellFormed) ReadBack();
  }

 private:
  bool Has(uint8_t option) const { return (m_options & option) != 0; }

  // For a call that is allowed but spoils the document if the condition holds: whether to make it.
  bool MayCall(bool isSpoiling) {
    if (isSpoiling && !Has(kAnyOrder)) return false;
    if (isSpoiling) m_isWellFormed = false;
    return true;
  }

  template <class Call>
  static void Expect(bool mustFail, const Call& call) {
    bool failed = false;
    try {
      call();
    } catch (const CQvException&) {
      failed = true;
    }
    if (failed != mustFail) FuzzFailure(mustFail ? "a call succeeds" : "a call fails");
  }

  void One() {
    switch (m_input.Byte() % 13) {
      case 0:
      case 1:
        return Start();
      case 2:
        return End();
      case 3:
        return Text(m_input.Text());
      case 4:
        return Attribute();
      case 5:
        return Type();
      case 6:
        return Nil();
      case 7:
        return DefaultNamespace();
      case 8:
        return Alias();
      case 9:
        return Comment();
      case 10:
        return Instruction();
      case 11:
        return Expect(m_tree.GetDepth() != 0, [&] { m_writer.WriteHeaderDirective(" "); });
      default:
        return Unchecked();
    }
  }

  void Start() {
    const std::string localName = m_input.LocalName();
    const std::string namespaceUri = m_input.Namespace();
    const bool isRoot = m_tree.GetDepth() == 0;
    if (!MayCall(isRoot && m_tree.GetRoot() != nullptr)) return;
    if (isRoot) BeginRoot();
    m_writer.WriteStartElement(localName, namespaceUri);
    // Kept: what is in no namespace comes into the default one.
    m_tree.Open(namespaceUri.empty() ? m_rootDefaultNamespace : namespaceUri, localName);
    m_isStartTagOpen = true;
    m_attributeNames.clear();
  }

  void BeginRoot() {
    m_rootDefaultNamespace = m_defaultNamespace;
    std::set<std::string> prefixes;
    for (const auto& alias : m_aliases) {
      if (!alias.second.empty() && !prefixes.insert(alias.second).second) m_isWellFormed = false;
    }
  }

  void End() {
    Expect(m_tree.GetDepth() == 0, [&] { m_writer.WriteEndElement(); });
    if (m_tree.GetDepth() != 0) m_tree.Close();
    m_isStartTagOpen = false;
  }

  void Text(const std::string& text) {
    const bool isDefaultValue = m_input.Byte() % 4 == 0;
    const bool isWritten = !text.empty() && (!isDefaultValue || Has(kDefaultValues));
    if (!MayCall(isWritten && text.compare(0, 9, "<![CDATA[") == 0)) return;
    Expect(isWritten && m_tree.GetDepth() == 0,
           [&] { m_writer.WriteString(text, ItemType_string, isDefaultValue); });
    if (!isWritten || m_tree.GetDepth() == 0) return;
    m_isStartTagOpen = false;
    m_tree.GetOpen()->text += WithoutCharacters(text, "\r");
  }

  void Attribute() {
    const std::string localName = m_input.LocalName();
    const std::string namespaceUri = m_input.Namespace();
    const std::string value = m_input.Text();
    if (!MayCall(m_attributeNames.count({namespaceUri, localName}) != 0)) return;
    Expect(!m_isStartTagOpen,
           [&] { m_writer.WriteAttributeString(localName, namespaceUri, value, ItemType_string); });
    AddAttribute(namespaceUri, localName, value);
  }

  void Nil() {
    if (!MayCall(m_attributeNames.count({kXsi, "nil"}) != 0)) return;
    Expect(!m_isStartTagOpen, [&] { m_writer.WriteAttributeNil(); });
    AddAttribute(kXsi, "nil", "true");
  }

  void Type() {
    const std::string typeNamespace = m_input.Namespace();
    if (!MayCall(m_attributeNames.count({kXsi, "type"}) != 0)) return;
    Expect(!m_isStartTagOpen,
           [&] { m_writer.WriteAttributeType(typeNamespace, "t", ItemType_string); });
    if (!m_isStartTagOpen) return;
    const bool isBare = typeNamespace.empty() || typeNamespace == m_rootDefaultNamespace;
    const std::string prefix = isBare ? "" : m_writer.PrefixOf(typeNamespace);
    if (!isBare) m_typePrefixes.insert(prefix);
    AddAttribute(kXsi, "type", isBare ? "t" : prefix + ":t");
  }

  void AddAttribute(const std::string& namespaceUri, const std::string& localName,
                    std::string value) {
    if (!m_isStartTagOpen) return;
    m_attributeNames.emplace(namespaceUri, localName);
    value = WithoutCharacters(value, "\r");
    // As parsers read them.
    std::replace(value.begin(), value.end(), '\t', ' ');
    m_tree.GetOpen()->attributes.push_back({namespaceUri, localName, value});
  }

  // With an element open, this and the next leave the declaration to the caller.
  void DefaultNamespace() {
    const std::string namespaceUri = m_input.Namespace();
    if (!MayCall(m_tree.GetDepth() != 0 || namespaceUri == kXml)) return;
    m_writer.SetDefaultNamespace(namespaceUri);
    m_defaultNamespace = namespaceUri;
  }

  void Alias() {
    const std::string prefix = m_input.Prefix();
    const std::string namespaceUri = m_input.Namespace();
    const bool isReserved = namespaceUri.compare(0, sizeof kXml - 1, kXml) == 0;
    if (!MayCall(m_tree.GetDepth() != 0 || namespaceUri.empty() || isReserved)) return;
    m_writer.AddNamespace(prefix, namespaceUri);
    m_aliases[namespaceUri] = prefix;
  }

  void Comment() {
    const std::string text = m_input.Text();
    const bool isComment = (WithoutCharacters(text, "\r") + "-").find("--") == std::string::npos;
    if (!MayCall(m_isStartTagOpen || !isComment)) return;
    m_writer.WriteComment(text);
    if (m_tree.GetDepth() != 0) m_tree.GetOpen()->text += "\n";
  }

  void Instruction() {
    if (!MayCall(m_isStartTagOpen)) return;
    m_writer.WritePI("<?p <&?>");
    if (m_tree.GetDepth() != 0) m_tree.GetOpen()->text += "\n\n";
  }

  // Calls whose outcome is only to be survived.
  void Unchecked() {
    if (!MayCall(true)) return;
    const std::string bytes = m_input.AnyBytes();
    switch (m_input.Byte() % 4) {
      case 0:
        return m_writer.WriteRawElement(bytes);
      case 1:
        return m_writer.WriteInlineSchema(bytes);
      case 2:
        return Text(bytes);
      default:
        m_writer.SetContextState(ContextState_ArrayOpen);
        return m_writer.AddNamespace(bytes, bytes);
    }
  }

  void ReadBack() {
    const std::string text = m_stream.GetString();
    const CBinaryData bytes = m_stream.GetEncodedStream();
    if (bytes != CBinaryData(reinterpret_cast<const unsigned char*>(text.data()), text.size())) {
      FuzzFailure("encoding changes the text");
    }
    CXmlDocument document;
    try {
      document.LoadXmlStream(bytes.GetData(), bytes.GetLength());
    } catch (const CQvException& exception) {
      FuzzFailure(exception.GetMessage() + " in\n" + text);
    }
    for (const std::string& prefix : m_typePrefixes) {
      if (prefix != "xml" && document.LookupNamespaceFromAlias(prefix.c_str()).empty()) {
        FuzzFailure("the prefix of a type is not declared: " + prefix);
      }
    }
    ExpectSameTree(document.GetDocumentElement(), m_tree.GetRoot(), !Has(kPlain));
  }

  Input& m_input;
  const uint8_t m_options;
  CTextStream m_stream;
  ProbedWriter m_writer;
  ShadowTree m_tree;
  bool m_isWellFormed = true;
  bool m_isStartTagOpen = false;
  std::set<std::pair<std::string, std::string>> m_attributeNames;
  std::string m_defaultNamespace;
  std::string m_rootDefaultNamespace;
  std::map<std::string, std::string> m_aliases;
  std::set<std::string> m_typePrefixes;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Input input(data, size);
  Run(input).All();
  for (const char* name : {"CXmlWriterContext", "CTextStream", "CXmlElement"}) {
    if (CInstanceMonitor::GetCount(name) != 0) FuzzFailure(std::string(name) + " left behind");
  }
  return 0;
}
