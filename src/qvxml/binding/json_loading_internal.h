// JSON from where the entry points take it, as XML text.

#ifndef QVXML_BINDING_JSON_LOADING_INTERNAL_H_
#define QVXML_BINDING_JSON_LOADING_INTERNAL_H_

#include "qvxml/types/binary_data.h"

namespace QvXmlLib16 {

class CSerializationContext;  // binding/serialization_context.h

namespace detail {

// What they return and throw: as CJsonTextReader::ConvertJsonToXml.

/// Text of the locale; null is "".
CBinaryData JsonTextToXml(const char* text, const CSerializationContext& ctx);
CBinaryData JsonTextToXml(const wchar_t* text, const CSerializationContext& ctx);
/// Bytes of UTF-8, plain or compressed. Throws as CQvZip::Decompress, too.
CBinaryData JsonStreamToXml(const unsigned char* bytes, unsigned long length,
                            const CSerializationContext& ctx);
/// Throws as CXmlDocument::Load, too. Null is "".
CBinaryData JsonFileToXml(const char* path, const CSerializationContext& ctx);

}  // namespace detail
}  // namespace QvXmlLib16

#endif  // QVXML_BINDING_JSON_LOADING_INTERNAL_H_
