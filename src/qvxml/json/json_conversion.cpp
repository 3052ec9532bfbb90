// Without the virtual handlers and the writer, whose results are the same: the tokens go straight
// into the bytes of the XML text.

#include <string>

#include "qvxml/core/locale_text.h"
#include "qvxml/core/unicode_internal.h"
#include "qvxml/json/json_conversion_internal.h"
#include "qvxml/json/json_lenient_lexer_internal.h"
#include "qvxml/json/json_parser_internal.h"
#include "qvxml/json/json_standard_to_xml_internal.h"
#include "qvxml/json/json_strict_lexer_internal.h"
#include "qvxml/json/json_to_xml_internal.h"
#include "qvxml/json/xml_emitter_internal.h"
#include "qvxml/xml/encoder.h"

namespace QvXmlLib16::detail {

namespace {

// Most texts fit, as names are repeated in end tags.
size_t GuessXmlSize(std::string_view json) { return 2 * json.size() + 256; }

bool IsUtf8(std::string_view text) {
  return AsciiLength(text.data(), text.size()) == text.size() ||
         (IsLocaleTextUtf8() && ValidUtf8Length(text.data(), text.size()) == text.size());
}

// Kept: bytes that are no character become "?".
CBinaryData Encode(CXmlEmitter& emitter) {
  const std::string_view text = emitter.GetText();
  if (IsUtf8(text)) return emitter.TakeBytes();
  return CEncoder::LocalCodePageToUtf8Binary(text.data(), text.size());
}

CBinaryData ConvertLenient(std::string_view json, const CJsonContext& context) {
  using CToXml = TJsonToXml<CXmlEmitter>;
  const std::string rootName = context.GetRootElementName();
  CXmlEmitter emitter(GuessXmlSize(json), CXmlEmitter::Style::Formatted);
  TJsonParser<CLenientLexer, CToXml> parser(json, nullptr, rootName, kLenientMaxDepth,
                                            context.GetAllowComments());
  CToXml toXml(emitter, context.GetSupportRoundtrip(), parser);
  parser.Read(toXml);
  return Encode(emitter);
}

CBinaryData ConvertWellFormed(std::string_view json, const CJsonContext& context) {
  const std::string rootName = context.GetRootElementName();
  CXmlEmitter emitter(GuessXmlSize(json), CXmlEmitter::Style::Exact);
  TJsonParser<CStrictLexer, CStandardJsonToXml> parser(json, nullptr, rootName,
                                                       static_cast<size_t>(context.GetMaxDepth()));
  CStandardJsonToXml toXml(emitter, context.GetSupportRoundtrip(), parser);
  parser.Read(toXml);
  return emitter.TakeBytes();
}

CBinaryData Convert(std::string_view json, const CJsonContext& context) {
  return context.GetWellFormed() ? ConvertWellFormed(json, context) : ConvertLenient(json, context);
}

}  // namespace

CBinaryData ConvertJson(std::string_view json, JsonEncoding encoding, const CJsonContext& context) {
  const JsonEncoding wanted = context.GetWellFormed() ? JsonEncoding::Utf8 : JsonEncoding::Locale;
  if (encoding == wanted || IsLocaleTextUtf8()) return Convert(json, context);
  const bool isLocale = encoding == JsonEncoding::Locale;
  return Convert(isLocale ? LocalCodePageToUtf8(json.data(), json.size())
                          : Utf8ToLocalCodePage(json.data(), json.size()),
                 context);
}

}  // namespace QvXmlLib16::detail
