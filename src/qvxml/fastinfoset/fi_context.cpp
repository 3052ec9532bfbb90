#include "qvxml/fastinfoset/fi_context.h"

#include "qvxml/core/exception.h"
#include "qvxml/core/format.h"
#include "qvxml/fastinfoset/fi_encoding_internal.h"

namespace QvXmlLib16 {

constinit CInstanceCounter CFastInfosetContext::s_instances("CFastInfosetContext");

namespace {

using Encoded = CFastInfosetContext::EncodedCharacterString;

Encoded Literal() { return {}; }

Encoded In(detail::fi::Alphabet alphabet) {
  return {CFastInfosetContext::EncodingKind_RestrictedAlphabet, alphabet};
}

Encoded By(detail::fi::Algorithm algorithm) {
  return {CFastInfosetContext::EncodingKind_Algorithm, algorithm};
}

}  // namespace

CFastInfosetContext::CFastInfosetContext() = default;
CFastInfosetContext::CFastInfosetContext(const CFastInfosetContext& other) = default;
CFastInfosetContext& CFastInfosetContext::operator=(const CFastInfosetContext& other) = default;
CFastInfosetContext::~CFastInfosetContext() = default;

void CFastInfosetContext::SetDefaultStringEncoding(unsigned char encoding) {
  if (encoding > detail::fi::kUtf16) {
    throw CQvInvalidParamException(
        FormatString("Invalid string encoding [%d].", static_cast<int>(encoding)));
  }
  m_defaultStringEncoding = encoding;
}

Encoded CFastInfosetContext::GetEncoding(int itemType) const {
  CheckItemType(itemType);
  return m_encodings[itemType];
}

void CFastInfosetContext::SetEncoding(int itemType, EncodedCharacterString encoding) {
  CheckItemType(itemType);
  m_encodings[itemType] = encoding;
}

void CFastInfosetContext::SetSuggestedValues() {
  using namespace detail::fi;
  for (Encoded& encoding : m_encodings) encoding = Literal();
#define QVXML_ITEM_TYPE(name, number, accessor, carrier, held, facets, fastInfoset) \
  m_encodings[number] = fastInfoset;
#include "qvxml/core/value/item_types.def"
}

void CFastInfosetContext::CheckItemType(int itemType) {
  if (itemType >= 0 && itemType < kItemTypes) return;
  throw CQvInvalidParamException(FormatString("Invalid item type [%d].", itemType));
}

void CFastInfosetContext::SetExternalVocabularyURI(const char* uri) {
  m_externalVocabularyUri = uri != nullptr ? uri : "";
}

}  // namespace QvXmlLib16
