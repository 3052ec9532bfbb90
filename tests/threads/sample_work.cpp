#include "tests/threads/sample_work.h"

#include <iterator>

#include "tests/samples/all_types_data.h"
#include "tests/samples/sample_documents.h"

namespace thread_test {

using namespace QvXmlLib16;

namespace {

struct Format {
  CBinaryData (*write)(const CXmlObjectBase& object, const CSerializationContext& ctx);
  void (*read)(CXmlObjectBase& object, const CBinaryData& bytes, const CSerializationContext& ctx);
};

CBinaryData AsXml(const CXmlObjectBase& object, const CSerializationContext& ctx) {
  return CBinaryData(object.ToXml(true, true, EOL_CRLF, ctx).c_str());
}
CBinaryData AsGZip(const CXmlObjectBase& object, const CSerializationContext& ctx) {
  return object.ToXmlStream(true, false, Encoding_UTF8, EOL_LF, ctx, CompressionType_GZip);
}
CBinaryData AsJson(const CXmlObjectBase& object, const CSerializationContext& ctx) {
  return object.ToJsonStream(false, Encoding_UTF8, EOL_LF, ctx);
}
CBinaryData AsFastInfoset(const CXmlObjectBase& object, const CSerializationContext& ctx) {
  return object.ToFastInfosetStream(FInfoDecl_None, ctx);
}
CBinaryData AsZLib(const CXmlObjectBase& object, const CSerializationContext& ctx) {
  return object.ToFastInfosetStream(FInfoDecl_Version10StandaloneNo, ctx, CompressionType_ZLib);
}
void FromText(CXmlObjectBase& object, const CBinaryData& bytes, const CSerializationContext& ctx) {
  const std::string text(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
  object.FromXml(text.c_str(), ctx);
}
void FromBytes(CXmlObjectBase& object, const CBinaryData& bytes, const CSerializationContext& ctx) {
  object.FromXmlStream(bytes, ctx);
}
void FromJson(CXmlObjectBase& object, const CBinaryData& bytes, const CSerializationContext& ctx) {
  object.FromJsonStream(bytes, ctx);
}

constexpr Format kFormats[] = {{AsXml, FromText},
                               {AsGZip, FromBytes},
                               {AsJson, FromJson},
                               {AsFastInfoset, FromBytes},
                               {AsZLib, FromBytes}};

// The last document is the one of every type.
size_t CountDocuments() { return samples::SampleDocuments().size() + 1; }

CSmartPtr<CXmlObjectBase> MakeObject(size_t document) {
  const auto& documents = samples::SampleDocuments();
  return document < documents.size() ? documents[document].make()
                                     : samples::Make<samples::CAllTypes>();
}

CSmartPtr<CXmlObjectBase> ReadDocument(size_t document, const CSerializationContext& ctx) {
  const CSmartPtr<CXmlObjectBase> object = MakeObject(document);
  const auto& documents = samples::SampleDocuments();
  if (document < documents.size()) {
    object->FromXml(samples::InNamespace(documents[document].xml).c_str(), ctx);
  } else {
    samples::FillAllTypes(static_cast<samples::CAllTypes&>(*object));
  }
  return object;
}

void Append(std::string& result, const CBinaryData& bytes) {
  result.append(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength()) += '\n';
}

}  // namespace

SharedContexts::SharedContexts() {
  m_other.SetDefaultNamespaceURI("urn:qvxml:samples");
  m_other.GetJsonContext().SetWellFormed(true);
  m_other.GetFIContext().SetSuggestedValues();
}

const CSerializationContext& SharedContexts::At(size_t number) const {
  return number == 0 ? CSerializationContext::m_defaultContext : m_other;
}

size_t CountWork() { return CountDocuments() * SharedContexts::kCount * std::size(kFormats); }

std::string DoWork(size_t number, const SharedContexts& contexts) {
  const size_t document = number % CountDocuments();
  const size_t combination = number / CountDocuments();
  const CSerializationContext& ctx = contexts.At(combination % SharedContexts::kCount);
  const Format& format = kFormats[combination / SharedContexts::kCount % std::size(kFormats)];
  std::string result;
  try {
    const CSmartPtr<CXmlObjectBase> object = ReadDocument(document, ctx);
    const CBinaryData bytes = format.write(*object, ctx);
    Append(result, bytes);
    const CSmartPtr<CXmlObjectBase> copy = MakeObject(document);
    format.read(*copy, bytes, ctx);
    Append(result, format.write(*copy, ctx));
    result += copy->ToXml(false, false, EOL_LF, ctx);
  } catch (const CQvException& failure) {
    // Some documents do not survive lenient JSON.
    result += "thrown: " + failure.GetMessage();
  }
  return result;
}

}  // namespace thread_test
