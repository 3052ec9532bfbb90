#include "tests/trust/formats.h"

namespace qv_test {

using namespace QvXmlLib16;

namespace {

using Context = CSerializationContext;

void PrepareNothing(Context&) {}

template <bool kIsWellFormed, JsonRoundTrip kMode>
void PrepareJson(Context& ctx) {
  ctx.GetJsonContext().SetWellFormed(kIsWellFormed);
  ctx.GetJsonContext().SetSupportRoundtrip(kMode);
}

void PrepareSuggested(Context& ctx) {
  ctx.GetFIContext().SetSuggestedValues();
  ctx.GetFIContext().SetDefaultStringEncoding(1);
}

// XML

void WriteXmlText(const CXmlObjectBase& object, const Context& ctx, const std::string&,
                  CBinaryData& bytes) {
  const std::string text = object.ToXml(true, true, EOL_LF, ctx);
  bytes.SetBuffer(reinterpret_cast<const unsigned char*>(text.data()), text.size());
}

template <XmlEncoding kEncoding, CompressionType kCompression>
void WriteXmlStream(const CXmlObjectBase& object, const Context& ctx, const std::string&,
                    CBinaryData& bytes) {
  bytes = object.ToXmlStream(true, false, kEncoding, EOL_LF, ctx, kCompression);
}

template <CompressionType kCompression, bool kIsAsync>
void WriteXmlFile(const CXmlObjectBase& object, const Context& ctx, const std::string& path,
                  CBinaryData&) {
  CXmlObjectBase::AsyncToXmlFile(kIsAsync);
  struct Reset {
    ~Reset() { CXmlObjectBase::AsyncToXmlFile(false); }
  } const reset;
  object.ToXmlFile(path.c_str(), true, true, Encoding_UTF8, EOL_LF, ctx, kCompression);
}

void ReadXmlText(CXmlObjectBase& object, const Context& ctx, const std::string&,
                 const CBinaryData& bytes) {
  const std::string text(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
  object.FromXml(text.c_str(), ctx);
}

void ReadStream(CXmlObjectBase& object, const Context& ctx, const std::string&,
                const CBinaryData& bytes) {
  object.FromXmlStream(bytes, ctx);
}

// The wide characters that the writer makes, without their mark; they lie in memory as they should.
void ReadWide(CXmlObjectBase& object, const Context& ctx, const std::string&,
              const CBinaryData& bytes) {
  const std::wstring text(reinterpret_cast<const wchar_t*>(bytes.GetData()),
                          bytes.GetLength() / sizeof(wchar_t));
  object.FromXml(text.c_str(), ctx);
}

void ReadFile(CXmlObjectBase& object, const Context& ctx, const std::string& path,
              const CBinaryData&) {
  object.FromXmlFile(path.c_str(), ctx);
}

// Fast Infoset

template <FInfoDecl kDeclaration, CompressionType kCompression>
void WriteInfoset(const CXmlObjectBase& object, const Context& ctx, const std::string&,
                  CBinaryData& bytes) {
  bytes = object.ToFastInfosetStream(kDeclaration, ctx, kCompression);
}

template <CompressionType kCompression>
void WriteInfosetFile(const CXmlObjectBase& object, const Context& ctx, const std::string& path,
                      CBinaryData&) {
  object.ToFastInfosetFile(path.c_str(), FInfoDecl_None, ctx, kCompression);
}

// JSON

void WriteJsonText(const CXmlObjectBase& object, const Context& ctx, const std::string&,
                   CBinaryData& bytes) {
  const std::string text = object.ToJson(true, EOL_LF, ctx);
  bytes.SetBuffer(reinterpret_cast<const unsigned char*>(text.data()), text.size());
}

template <XmlEncoding kEncoding, CompressionType kCompression>
void WriteJsonStream(const CXmlObjectBase& object, const Context& ctx, const std::string&,
                     CBinaryData& bytes) {
  bytes = object.ToJsonStream(false, kEncoding, EOL_LF, ctx, kCompression);
}

template <CompressionType kCompression>
void WriteJsonFile(const CXmlObjectBase& object, const Context& ctx, const std::string& path,
                   CBinaryData&) {
  object.ToJsonFile(path.c_str(), true, Encoding_UTF8, EOL_LF, ctx, kCompression);
}

void ReadJsonText(CXmlObjectBase& object, const Context& ctx, const std::string&,
                  const CBinaryData& bytes) {
  const std::string text(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
  object.FromJson(text.c_str(), ctx);
}

void ReadJsonStream(CXmlObjectBase& object, const Context& ctx, const std::string&,
                    const CBinaryData& bytes) {
  object.FromJsonStream(bytes, ctx);
}

void ReadJsonWide(CXmlObjectBase& object, const Context& ctx, const std::string&,
                  const CBinaryData& bytes) {
  const std::wstring text(reinterpret_cast<const wchar_t*>(bytes.GetData()),
                          bytes.GetLength() / sizeof(wchar_t));
  object.FromJson(text.c_str(), ctx);
}

void ReadJsonFile(CXmlObjectBase& object, const Context& ctx, const std::string& path,
                  const CBinaryData&) {
  object.FromJsonFile(path.c_str(), ctx);
}

constexpr auto kNone = CompressionType_None;
constexpr auto kGZip = CompressionType_GZip;
constexpr auto kZLib = CompressionType_ZLib;
constexpr auto kUtf8 = Encoding_UTF8;
constexpr auto kWide = Encoding_UTF16;

}  // namespace

const std::vector<Format>& AllFormats() {
  // clang-format off
  static const std::vector<Format> formats = {
      {"XML text", WriteXmlText, ReadXmlText, PrepareNothing},
      {"XML bytes", WriteXmlStream<kUtf8, kNone>, ReadStream, PrepareNothing},
      {"XML wide", WriteXmlStream<kWide, kNone>, ReadWide, PrepareNothing},
      {"XML gzip", WriteXmlStream<kUtf8, kGZip>, ReadStream, PrepareNothing},
      {"XML zlib", WriteXmlStream<kUtf8, kZLib>, ReadStream, PrepareNothing},
      {"XML file", WriteXmlFile<kNone, false>, ReadFile, PrepareNothing, true, true},
      {"XML file as it goes", WriteXmlFile<kNone, true>, ReadFile, PrepareNothing, true},
      {"XML gzip file", WriteXmlFile<kGZip, false>, ReadFile, PrepareNothing, true, true},
      {"Fast Infoset", WriteInfoset<FInfoDecl_None, kNone>, ReadStream, PrepareNothing},
      {"Fast Infoset of values", WriteInfoset<FInfoDecl_Plain, kNone>, ReadStream, PrepareSuggested},
      {"Fast Infoset gzip", WriteInfoset<FInfoDecl_None, kGZip>, ReadStream, PrepareNothing},
      {"Fast Infoset file", WriteInfosetFile<kNone>, ReadFile, PrepareSuggested, true, true},
      {"Fast Infoset gzip file", WriteInfosetFile<kGZip>, ReadFile, PrepareNothing, true, true},
      {"JSON", WriteJsonText, ReadJsonText, PrepareJson<true, JsonRoundTrip_Full>},
      {"JSON standard", WriteJsonText, ReadJsonText, PrepareJson<true, JsonRoundTrip_Standard>},
      {"JSON none", WriteJsonText, ReadJsonText, PrepareJson<true, JsonRoundTrip_None>},
      {"JSON wide", WriteJsonStream<kWide, kNone>, ReadJsonWide, PrepareJson<true, JsonRoundTrip_Full>},
      {"JSON zlib", WriteJsonStream<kUtf8, kZLib>, ReadJsonStream, PrepareJson<true, JsonRoundTrip_Full>},
      {"JSON file", WriteJsonFile<kNone>, ReadJsonFile, PrepareJson<true, JsonRoundTrip_Full>, true, true},
      {"JSON gzip file", WriteJsonFile<kGZip>, ReadJsonFile, PrepareJson<true, JsonRoundTrip_Full>, true, true},
      {"lenient JSON", WriteJsonStream<kUtf8, kNone>, ReadJsonStream, PrepareJson<false, JsonRoundTrip_Full>},
      {"lenient JSON standard", WriteJsonText, ReadJsonText, PrepareJson<false, JsonRoundTrip_Standard>},
      {"lenient JSON none", WriteJsonText, ReadJsonText, PrepareJson<false, JsonRoundTrip_None>},
  };
  // clang-format on
  return formats;
}

}  // namespace qv_test
