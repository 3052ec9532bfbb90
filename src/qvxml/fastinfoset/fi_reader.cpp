#include "qvxml/fastinfoset/fi_reader.h"

#include <cstring>
#include <string_view>

#include "qvxml/fastinfoset/fi_decoder_internal.h"
#include "qvxml/fastinfoset/fi_encoding_internal.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CFastInfosetReader::s_instances("CFastInfosetReader");

CFastInfosetReader::CFastInfosetReader(CXmlDocument& document, const CFastInfosetContext& context)
    : m_document(document), m_context(context) {}

CFastInfosetReader::~CFastInfosetReader() = default;

bool CFastInfosetReader::IsFastInfoset(const unsigned char* bytes, size_t length) noexcept {
  return detail::fi::DeclarationLength(bytes, length) != detail::fi::kNoDocument;
}

void CFastInfosetReader::Parse() { detail::fi::CDecoder(m_document, m_context).Decode(); }

}  // namespace QvXmlLib16
