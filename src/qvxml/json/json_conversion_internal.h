// JSON text to XML text, in either mode.

#ifndef QVXML_JSON_JSON_CONVERSION_INTERNAL_H_
#define QVXML_JSON_JSON_CONVERSION_INTERNAL_H_

#include <string_view>

#include "qvxml/json/json_context.h"
#include "qvxml/types/binary_data.h"

namespace QvXmlLib16::detail {

enum class JsonEncoding { Locale, Utf8 };

/// The XML text, in UTF-8, of the JSON text `json` with the encoding `encoding`. Throws as
/// CJsonTextReader::ConvertJsonToXml.
CBinaryData ConvertJson(std::string_view json, JsonEncoding encoding, const CJsonContext& context);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_JSON_JSON_CONVERSION_INTERNAL_H_
