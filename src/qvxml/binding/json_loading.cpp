// JSON as input: the members of the reader and of the document that need the serialization context,
// which their own layers do not know.

#include <string>
#include <string_view>
#include <utility>

#include "qvxml/binding/file_input_internal.h"
#include "qvxml/binding/json_loading_internal.h"
#include "qvxml/binding/serialization_context.h"
#include "qvxml/json/json_conversion_internal.h"
#include "qvxml/json/json_text_reader.h"
#include "qvxml/xml/compression.h"
#include "qvxml/xml/encoder.h"
#include "qvxml/xml/xml_document.h"

namespace QvXmlLib16 {

using detail::JsonEncoding;

namespace {

CBinaryData Convert(const unsigned char* bytes, unsigned long length, JsonEncoding encoding,
                    const CSerializationContext& ctx) {
  const std::string_view json(length != 0 ? reinterpret_cast<const char*>(bytes) : "", length);
  return detail::ConvertJson(json, encoding, ctx.GetJsonContext());
}

}  // namespace

CBinaryData CJsonTextReader::ConvertJsonToXml(const std::string& json,
                                              const CSerializationContext& ctx) {
  return detail::ConvertJson(json, JsonEncoding::Locale, ctx.GetJsonContext());
}

namespace detail {

CBinaryData JsonTextToXml(const char* text, const CSerializationContext& ctx) {
  return ConvertJson(text != nullptr ? text : "", JsonEncoding::Locale, ctx.GetJsonContext());
}

CBinaryData JsonTextToXml(const wchar_t* text, const CSerializationContext& ctx) {
  const CBinaryData utf8 = CEncoder::UnicodeToUtf8Binary(text);
  return Convert(utf8.GetData(), utf8.GetLength(), JsonEncoding::Utf8, ctx);
}

CBinaryData JsonStreamToXml(const unsigned char* bytes, unsigned long length,
                            const CSerializationContext& ctx) {
  if (!CQvZip::IsCompressed(bytes, length)) {
    return Convert(bytes, bytes != nullptr ? length : 0, JsonEncoding::Utf8, ctx);
  }
  const CBinaryData plain =
      CQvZip::Decompress(CBinaryData(bytes, length), ctx.GetMaxDecompressedSize());
  return Convert(plain.GetData(), plain.GetLength(), JsonEncoding::Utf8, ctx);
}

CBinaryData JsonFileToXml(const char* path, const CSerializationContext& ctx) {
  const CBinaryData content = ReadFile(path != nullptr ? path : "");
  return JsonStreamToXml(content.GetData(), content.GetLength(), ctx);
}

}  // namespace detail

// The input is converted before the tree goes, as it may be text of the tree. What cannot be
// converted leaves the document empty.
template <class TConvert>
CBinaryData CXmlDocument::ParseJson(const TConvert& convert) {
  CBinaryData xml;
  try {
    xml = convert();
  } catch (...) {
    Cleanup();
    throw;
  }
  ParseJsonText(xml);
  return xml;
}

void CXmlDocument::ParseJsonText(const CBinaryData& xml) {
  SetInput(CBinaryData(xml));
  ParseText();
}

CBinaryData CXmlDocument::LoadJson(const char* text) {
  return ParseJson([&] { return detail::JsonTextToXml(text, *m_context); });
}

CBinaryData CXmlDocument::LoadJson(const wchar_t* text) {
  return ParseJson([&] { return detail::JsonTextToXml(text, *m_context); });
}

CBinaryData CXmlDocument::LoadJsonStream(const unsigned char* data, unsigned long length) {
  return ParseJson([&] { return detail::JsonStreamToXml(data, length, *m_context); });
}

CBinaryData CXmlDocument::LoadJsonFile(const char* path) {
  return ParseJson([&] { return detail::JsonFileToXml(path, *m_context); });
}

}  // namespace QvXmlLib16
