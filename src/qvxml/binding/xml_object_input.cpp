// The entry points that read. The one that takes an untyped holder is in xml/untyped/element.cpp.

#include <string>

#include "qvxml/binding/ignore_namespaces_scope_internal.h"
#include "qvxml/binding/json_loading_internal.h"
#include "qvxml/binding/root_reader.h"
#include "qvxml/binding/wrap_failure_internal.h"
#include "qvxml/binding/xml_object_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/json/json_context.h"
#include "qvxml/licence/licence_check.h"
#include "qvxml/xml/node_access_internal.h"
#include "qvxml/xml/xml_document.h"
#include "qvxml/xml/xml_element.h"

namespace QvXmlLib16 {

namespace {

void ReadRoot(CXmlObjectBase& object, CXmlElement* root, const CSerializationContext& ctx) {
  if (auto* reader = dynamic_cast<IRootReader*>(&object)) {
    reader->ReadRoot_Int(root, ctx);
  } else {
    object.FromXml_Int(root, root->GetFirstElement(), ctx, false);
  }
}

// Of a document that goes when it is read: objects need not copy what they can have.
void ReadDocument(CXmlObjectBase& object, const CXmlDocument& document,
                  const CSerializationContext& ctx) {
  CXmlElement* const root = document.GetDocumentElement();
  detail::CNodeAccess::SetExpendable(*root);
  ReadRoot(object, root, ctx);
}

}  // namespace

void CXmlObjectBase::FromXml(const char* text, const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  CXmlDocument document(ctx);
  document.LoadXml(text);
  ReadDocument(*this, document, ctx);
}

void CXmlObjectBase::FromXml(const wchar_t* text, const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  CXmlDocument document(ctx);
  document.LoadXml(text);
  ReadDocument(*this, document, ctx);
}

void CXmlObjectBase::FromXmlFile(const char* path, const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  CXmlDocument document(ctx);
  document.Load(path);
  ReadDocument(*this, document, ctx);
}

void CXmlObjectBase::FromXmlStream(unsigned char* bytes, unsigned long length,
                                   const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  CXmlDocument document(ctx);
  document.LoadXmlStream(bytes, length);
  ReadDocument(*this, document, ctx);
}

void CXmlObjectBase::FromXmlStream(const CBinaryData& data, const CSerializationContext& ctx) {
  FromXmlStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), ctx);
}

void CXmlObjectBase::FromJson(const char* text, const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  FromJson_Int(detail::JsonTextToXml(text, ctx), ctx);
}

void CXmlObjectBase::FromJson(const wchar_t* text, const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  FromJson_Int(detail::JsonTextToXml(text, ctx), ctx);
}

void CXmlObjectBase::FromJsonFile(const char* path, const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  FromJson_Int(detail::JsonFileToXml(path, ctx), ctx);
}

void CXmlObjectBase::FromJsonStream(unsigned char* bytes, unsigned long length,
                                    const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  FromJson_Int(detail::JsonStreamToXml(bytes, length, ctx), ctx);
}

void CXmlObjectBase::FromJsonStream(const CBinaryData& data, const CSerializationContext& ctx) {
  FromJsonStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), ctx);
}

void CXmlObjectBase::FromJson_Int(const CBinaryData& xml, const CSerializationContext& ctx) {
  const bool ignoresNamespaces = ctx.GetJsonContext().GetSupportRoundtrip() != JsonRoundTrip_Full;
  const detail::CIgnoreNamespacesScope scope(ctx, ignoresNamespaces);
  detail::WrapFailure(
      [&] { FromXmlStream(xml, ctx); },
      [&xml] {
        return CQvException(
            "Error converting JSON to XML:\n" +
            std::string(reinterpret_cast<const char*>(xml.GetData()), xml.GetLength()));
      });
}

void CXmlObjectBase::FromXmlElement(const CXmlElement* element, const CSerializationContext& ctx) {
  CheckLicenceAndVersion();
  if (element == nullptr) throw CQvInvalidParamException("The element to read may not be NULL");
  // Reading walks the tree with pointers that could change it, and changes nothing.
  ReadRoot(*this, const_cast<CXmlElement*>(element), ctx);
}

}  // namespace QvXmlLib16
