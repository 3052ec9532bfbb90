// Input: a byte of options, and calls of a writer, one for each byte with its arguments behind it.
// The Fast Infoset writer and both JSON writers get the same calls.
//
// What the first two accept must be read: Fast Infoset as a document, well-formed JSON as JSON.
// With calls that make a document, both must give its tree. The other JSON has no promise to hold.

#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "fuzz/fuzz_target.h"
#include "fuzz/shadow_tree.h"
#include "fuzz/writer_input.h"

#include "qvxml/qvxml.h"

using namespace QvXmlLib16;

namespace {

constexpr uint8_t kPlain = 1, kCRLF = 2, kSuggested = 4, kUtf16 = 8, kAnyOrder = 16,
                  kAllIndexed = 32, kStandard = 64, kNoRoundTrip = 128;

struct Call {
  enum Kind {
    kStart,
    kEnd,
    kText,
    kAttribute,
    kType,
    kNil,
    kDefaultNamespace,
    kAlias,
    kComment,
    kInstruction,
    kState,
    kSchema,
    kKinds
  };
  Kind kind;
  // A local name or a prefix.
  std::string name;
  std::string namespaceUri;
  std::string text;
  ItemType type = ItemType_string;
  bool isDefault = false;
  bool isOfAnyBytes = false;
  uint8_t state = 0;
};

bool HasHighBytes(const std::string& text) {
  return std::any_of(text.begin(), text.end(),
                     [](char character) { return static_cast<uint8_t>(character) >= 0x80; });
}

std::string TypedText(Input& input) {
  static const char* const kTexts[] = {"0",
                                       "-1",
                                       "127",
                                       "65536",
                                       "-9223372036854775808",
                                       "1.50",
                                       "1e5",
                                       "INF",
                                       "NaN",
                                       "2024-02-29",
                                       "12:30:00.5",
                                       "true",
                                       "1",
                                       "0AFF",
                                       "A",
                                       "AQID",
                                       "-0",
                                       "007",
                                       "+1",
                                       " 1",
                                       "123456789012345678901",
                                       "P1DT2H",
                                       "--",
                                       ""};
  return kTexts[input.Byte() % std::size(kTexts)];
}

Call TakeCall(Input& input) {
  const uint8_t first = input.Byte();
  Call call;
  call.kind = static_cast<Call::Kind>(first % Call::kKinds);
  call.isOfAnyBytes = first >= 0xF0;
  const bool isTyped = !call.isOfAnyBytes && first >= 0x80;
  if (call.kind == Call::kEnd || call.kind == Call::kNil) return call;
  call.name = call.kind == Call::kAlias ? input.Prefix() : input.LocalName();
  call.namespaceUri = input.Namespace();
  call.text = isTyped ? TypedText(input) : call.isOfAnyBytes ? input.AnyBytes() : input.Text();
  if (call.isOfAnyBytes && input.Byte() % 2 != 0) call.name = call.text;
  if (call.kind == Call::kInstruction && !call.isOfAnyBytes) call.text = "<?p " + call.text + "?>";
  if (isTyped) call.type = static_cast<ItemType>(input.Byte() % (ItemType_xmlCollection + 1));
  call.state = input.Byte();
  call.isDefault = call.state >= 0xC0;
  return call;
}

void Make(CXmlWriter& writer, const Call& call) {
  switch (call.kind) {
    case Call::kStart:
      return writer.WriteStartElement(call.name, call.namespaceUri);
    case Call::kEnd:
      return writer.WriteEndElement();
    case Call::kText:
      return writer.WriteString(call.text, call.type, call.isDefault);
    case Call::kAttribute:
      return writer.WriteAttributeString(call.name, call.namespaceUri, call.text, call.type);
    case Call::kType:
      return writer.WriteAttributeType(call.namespaceUri, call.name, call.type);
    case Call::kNil:
      return writer.WriteAttributeNil();
    case Call::kDefaultNamespace:
      return writer.SetDefaultNamespace(call.namespaceUri);
    case Call::kAlias:
      return writer.AddNamespace(call.name, call.namespaceUri);
    case Call::kComment:
      return writer.WriteComment(call.text);
    case Call::kInstruction:
      return writer.WritePI(call.text);
    case Call::kState:
      return writer.SetContextState(static_cast<ContextState>(call.state % 4));
    default:
      return writer.WriteInlineSchema(call.text);
  }
}

// The document that the calls make.
class Model {
 public:
  // Whether a document is still made with this call; else nothing changes.
  bool Accept(const Call& call) {
    if (!IsAllowed(call)) return false;
    switch (call.kind) {
      case Call::kStart:
        // Kept: in JSON a root in no namespace comes into the default one.
        if (m_tree.GetDepth() == 0 && call.namespaceUri.empty() && m_hasDefault) m_isJson = false;
        m_tree.Open(call.namespaceUri, call.name);
        BeginStartTag();
        break;
      case Call::kEnd:
        m_tree.Close();
        m_isStartTagOpen = false;
        break;
      case Call::kText:
        if (!call.isDefault && !call.text.empty()) {
          m_tree.GetOpen()->text += WithoutCharacters(call.text, "\r");
          m_isStartTagOpen = false;
        }
        // JSON has no defaults, and takes an empty number for nil.
        if (call.isDefault || call.text.empty()) m_isJson = false;
        break;
      case Call::kAttribute:
        m_attributeNames.emplace(call.namespaceUri, call.name);
        m_tree.GetOpen()->attributes.push_back({call.namespaceUri, call.name, call.text});
        break;
      case Call::kNil:
        m_attributeNames.emplace(kXsi, "nil");
        m_tree.GetOpen()->attributes.push_back({kXsi, "nil", "true"});
        m_isJson = false;
        break;
      case Call::kDefaultNamespace:
      case Call::kAlias:
        NoteBinding(call);
        break;
      case Call::kComment:
      case Call::kInstruction:
        m_isStartTagOpen = m_isStartTagOpen && m_tree.GetDepth() == 0;
        break;
      default:
        break;
    }
    return true;
  }

  const ShadowTree& GetTree() const { return m_tree; }
  // Whether JSON carries it.
  bool IsJson() const { return m_isJson; }

 private:
  bool IsAllowed(const Call& call) const {
    const bool isInside = m_tree.GetDepth() != 0;
    switch (call.kind) {
      case Call::kStart:
        return isInside || m_tree.GetRoot() == nullptr;
      case Call::kEnd:
      case Call::kText:
        return isInside;
      case Call::kAttribute:
        return m_isStartTagOpen && m_attributeNames.count({call.namespaceUri, call.name}) == 0;
      case Call::kType:
        // Its value has a prefix that the writers choose.
        return false;
      case Call::kNil:
        return m_isStartTagOpen && m_attributeNames.count({kXsi, "nil"}) == 0;
      case Call::kDefaultNamespace:
        return call.namespaceUri != kXml;
      case Call::kAlias:
        return !call.namespaceUri.empty() &&
               call.namespaceUri.compare(0, sizeof kXml - 1, kXml) != 0;
      case Call::kComment:
        return (call.text + "-").find("--") == std::string::npos;
      case Call::kInstruction:
        return !call.isOfAnyBytes && call.text.find("?>") == call.text.size() - 2;
      default:
        return true;
    }
  }

  void BeginStartTag() {
    m_isStartTagOpen = true;
    m_attributeNames.clear();
  }

  // JSON declares what was bound before the root only.
  void NoteBinding(const Call& call) {
    if (m_tree.GetRoot() != nullptr) m_isJson = false;
    if (call.kind == Call::kDefaultNamespace) m_hasDefault = !call.namespaceUri.empty();
    if (call.kind == Call::kDefaultNamespace || call.name.empty()) return;
    const auto added = m_namespaceByPrefix.emplace(call.name, call.namespaceUri);
    if (added.first->second != call.namespaceUri) m_isJson = false;
  }

  ShadowTree m_tree;
  bool m_isJson = true;
  bool m_hasDefault = false;
  bool m_isStartTagOpen = false;
  std::set<std::pair<std::string, std::string>> m_attributeNames;
  std::map<std::string, std::string> m_namespaceByPrefix;
};

struct Plan {
  uint8_t options = 0;
  std::vector<Call> calls;
  Model model;

  bool Has(uint8_t option) const { return (options & option) != 0; }
  bool IsDocument() const { return !Has(kAnyOrder) && model.GetTree().GetRoot() != nullptr; }
  // Bytes that form no character are written as others.
  bool IsText() const {
    return std::none_of(calls.begin(), calls.end(), [](const Call& call) {
      return call.isOfAnyBytes && HasHighBytes(call.text);
    });
  }
};

void MakePlan(Input& input, Plan& plan) {
  plan.options = input.Byte();
  while (!input.IsAtEnd()) {
    Call call = TakeCall(input);
    const bool isAccepted = plan.model.Accept(call);
    if (isAccepted || plan.Has(kAnyOrder)) plan.calls.push_back(std::move(call));
  }
  Call end;
  end.kind = Call::kEnd;
  while (plan.model.GetTree().GetDepth() != 0) {
    plan.model.Accept(end);
    plan.calls.push_back(end);
  }
}

// The failure, or nothing.
template <class TCall>
std::optional<std::string> FailureOf(const TCall& call) {
  try {
    call();
  } catch (const CQvException& failure) {
    return failure.GetFullMessage();
  }
  return std::nullopt;
}

void ExpectDocument(const char* format, const CBinaryData& xml, const CSerializationContext& ctx,
                    const Plan& plan, bool hasTree) {
  CXmlDocument document(ctx);
  const auto failure = FailureOf([&] { document.LoadXmlStream(xml.GetData(), xml.GetLength()); });
  // That no attribute comes twice is for the caller to see to.
  if (failure && !hasTree && failure->find("occurs twice") != std::string::npos) return;
  if (failure) FuzzFailure(std::string(format) + " is not read: " + *failure);
  if (hasTree) {
    ExpectSameTree(document.GetDocumentElement(), plan.model.GetTree().GetRoot(), false);
  }
}

bool IsReal(const Call& call) { return call.type == ItemType_r4 || call.type == ItemType_r8; }

// False for names and characters that no document may hold.
bool WriteFastInfoset(const Plan& plan) {
  CSerializationContext ctx;
  CFastInfosetContext& options = ctx.GetFIContext();
  if (plan.Has(kSuggested)) options.SetSuggestedValues();
  options.SetDefaultStringEncoding(plan.Has(kUtf16) ? 1 : 0);
  if (plan.Has(kAllIndexed)) options.SetAttributeMaxAddLength(1000);
  if (plan.Has(kAllIndexed)) options.SetElementMaxAddLength(1000);
  CBinaryStream stream;
  CFastInfosetWriter writer(options, stream);
  writer.Open();
  writer.WriteStartDocument(static_cast<FInfoDecl>(plan.options % 3));
  for (const Call& call : plan.calls) {
    const auto failure = FailureOf([&] { Make(writer, call); });
    // Any bytes may be no characters.
    if (failure && !plan.Has(kAnyOrder) &&
        failure->find("can not be written") == std::string::npos) {
      FuzzFailure("Fast Infoset: " + *failure);
    }
    if (failure && !plan.Has(kAnyOrder)) return false;
  }
  if (FailureOf([&] { writer.WriteEndDocument(); })) {
    if (plan.IsDocument()) FuzzFailure("Fast Infoset does not end");
    return false;
  }
  writer.Close();
  // Reals come back as the same number, maybe in another text.
  const bool isSameText =
      !plan.Has(kSuggested) || std::none_of(plan.calls.begin(), plan.calls.end(), IsReal);
  ExpectDocument("Fast Infoset", stream.GetBinaryStream(), ctx, plan,
                 plan.IsDocument() && plan.IsText() && isSameText);
  return true;
}

template <class TWriter>
CBinaryData WriteJson(const Plan& plan, bool mayFail) {
  CTextStream stream;
  TWriter writer(stream);
  writer.Open();
  writer.SetFormat(!plan.Has(kPlain));
  writer.SetEOLType(plan.Has(kCRLF) ? EOL_CRLF : EOL_LF);
  if (plan.Has(kStandard)) writer.SetSupportRoundtrip(JsonRoundTrip_Standard);
  if (plan.Has(kNoRoundTrip)) writer.SetSupportRoundtrip(JsonRoundTrip_None);
  writer.WriteStartDocument();
  for (const Call& call : plan.calls) {
    const auto failure = FailureOf([&] { Make(writer, call); });
    if (failure && !mayFail) FuzzFailure("JSON: " + *failure);
  }
  while (!FailureOf([&] { writer.WriteEndElement(); })) {
  }
  writer.WriteEndDocument();
  writer.Close();
  return stream.GetEncodedStream();
}

void WriteWellFormedJson(const Plan& plan, bool isXml) {
  const CBinaryData json = WriteJson<CWellFormedJsonWriter>(plan, plan.Has(kAnyOrder));
  CSerializationContext ctx;
  ctx.GetJsonContext().SetWellFormed(true);
  ctx.GetJsonContext().SetMaxDepth(10000);
  const std::string text(reinterpret_cast<const char*>(json.GetData()), json.GetLength());
  CJsonTextReader reader(text);
  reader.SetWellFormed(true);
  reader.SetMaxDepth(10000);
  const auto failure = FailureOf([&] { reader.Read(); });
  if (failure) FuzzFailure("JSON is not read: " + *failure + "\n" + text);
  if (!plan.IsDocument() || !plan.model.IsJson() || plan.Has(kStandard | kNoRoundTrip)) return;
  if (!plan.IsText() || !isXml) return;
  CBinaryData xml;
  const auto refusal = FailureOf([&] { xml = CJsonTextReader::ConvertJsonToXml(text, ctx); });
  if (refusal) FuzzFailure("JSON is not converted: " + *refusal + "\n" + text);
  ExpectDocument("JSON", xml, ctx, plan, true);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  {
    Input input(data, size);
    Plan plan;
    MakePlan(input, plan);
    const bool isXml = WriteFastInfoset(plan);
    WriteWellFormedJson(plan, isXml);
    WriteJson<CJsonTextWriter>(plan, true);
  }
  for (const char* name : {"CXmlWriterContext", "CTextStream", "CBinaryStream", "CXmlElement"}) {
    if (CInstanceMonitor::GetCount(name) != 0) FuzzFailure(std::string(name) + " left behind");
  }
  return 0;
}
