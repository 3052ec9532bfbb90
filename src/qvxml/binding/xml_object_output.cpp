// The entry points that write.

#include "qvxml/binding/object_flags_internal.h"
#include "qvxml/binding/xml_object_base.h"
#include "qvxml/core/exception.h"
#include "qvxml/fastinfoset/fi_context.h"
#include "qvxml/fastinfoset/fi_writer.h"
#include "qvxml/json/json_text_writer.h"
#include "qvxml/json/well_formed_json_writer.h"
#include "qvxml/licence/licence_check.h"
#include "qvxml/xml/binary_stream.h"
#include "qvxml/xml/text_stream.h"
#include "qvxml/xml/xml_text_writer.h"

namespace QvXmlLib16 {

namespace {

void WriteXml(const CXmlObjectBase& object, CTextStream& stream, bool includeDocHeader, bool format,
              EOLType eol, const CSerializationContext& ctx) {
  CXmlTextWriter writer(stream);
  writer.Open();
  writer.SetFormat(format);
  writer.SetIndentChars(ctx.GetIndentChars().c_str());
  writer.SetEOLType(eol);
  writer.SetWriteDefaultElementValues(ctx.GetWriteDefaultElementValues());
  writer.SetWriteCDATA(ctx.GetWriteCDATA());
  if (includeDocHeader) writer.WriteStartDocument();
  if (const char* comment = GetEvaluationComment()) writer.WriteComment(comment);
  object.ToXml_Int(&writer, true, object.GetTargetNamespace().c_str(), ctx, false);
  writer.Close();
}

template <class TWriter>
void WriteJson(const CXmlObjectBase& object, TWriter& writer, CTextStream& stream, bool format,
               EOLType eol, const CSerializationContext& ctx) {
  stream.Open();
  writer.Open();
  writer.SetFormat(format);
  writer.SetEOLType(eol);
  writer.SetSupportRoundtrip(ctx.GetJsonContext().GetSupportRoundtrip());
  writer.SetIndentChars(ctx.GetIndentChars().c_str());
  writer.WriteStartDocument();
  if (const char* comment = GetEvaluationComment()) writer.WriteComment(comment);
  object.ToXml_Int(&writer, true, object.GetTargetNamespace().c_str(), ctx, false);
  writer.WriteEndDocument();
  writer.Close();
  stream.Close();
}

void WriteJson(const CXmlObjectBase& object, CTextStream& stream, bool format, EOLType eol,
               const CSerializationContext& ctx) {
  if (!ctx.GetJsonContext().GetWellFormed()) {
    CJsonTextWriter writer(stream);
    WriteJson(object, writer, stream, format, eol, ctx);
  } else {
    CWellFormedJsonWriter writer(stream);
    WriteJson(object, writer, stream, format, eol, ctx);
  }
}

void RefuseZLibFile(CompressionType compression) {
  if (compression == CompressionType_ZLib) {
    throw CQvException("ZLIB Compression only available for To Stream methods.");
  }
}

void WriteFile(const char* path, XmlEncoding encoding, CompressionType compression,
               const CBinaryData& data) {
  // A byte-order mark before compressed bytes would hide what they are.
  const XmlEncoding mark = compression == CompressionType_None ? encoding : Encoding_Unspecified;
  CFileBinaryStream(path, mark, data).ToFile();
}

}  // namespace

std::string CXmlObjectBase::ToXml(bool includeDocHeader, bool format, EOLType eol,
                                  const CSerializationContext& ctx) const {
  CheckLicenceAndVersion();
  CTextStream stream;
  WriteXml(*this, stream, includeDocHeader, format, eol, ctx);
  return stream.GetString();
}

CBinaryData CXmlObjectBase::ToXmlStream(bool includeDocHeader, bool format, XmlEncoding encoding,
                                        EOLType eol, const CSerializationContext& ctx,
                                        CompressionType compression) const {
  CheckLicenceAndVersion();
  CTextStream stream(encoding);
  WriteXml(*this, stream, includeDocHeader, format, eol, ctx);
  CBinaryData data = stream.GetEncodedStream();
  CQvZip::CompressData(data, compression);
  return data;
}

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration,
                                                const CSerializationContext& ctx,
                                                CompressionType compression) const {
  CheckLicenceAndVersion();
  CBinaryStream stream;
  CFastInfosetWriter writer(ctx.GetFIContext(), stream);
  writer.Open();
  writer.SetWriteDefaultElementValues(ctx.GetWriteDefaultElementValues());
  writer.WriteStartDocument(declaration);
  ToXml_Int(&writer, true, GetTargetNamespace().c_str(), ctx, false);
  writer.WriteEndDocument();
  writer.Close();
  CBinaryData data = stream.GetBinaryStream();
  CQvZip::CompressData(data, compression);
  return data;
}

void CXmlObjectBase::ToFastInfosetFile(const char* path, FInfoDecl declaration,
                                       const CSerializationContext& ctx,
                                       CompressionType compression) const {
  CheckLicenceAndVersion();
  RefuseZLibFile(compression);
  WriteFile(path, Encoding_Unspecified, compression,
            ToFastInfosetStream(declaration, ctx, compression));
}

void CXmlObjectBase::ToXmlFile(const char* path, bool includeDocHeader, bool format,
                               XmlEncoding encoding, EOLType eol, const CSerializationContext& ctx,
                               CompressionType compression) const {
  CheckLicenceAndVersion();
  RefuseZLibFile(compression);
  if (compression == CompressionType_None && detail::g_isAsyncToFile) {
    CFileTextStream stream(path, encoding);
    WriteXml(*this, stream, includeDocHeader, format, eol, ctx);
    return;
  }
  WriteFile(path, encoding, compression,
            ToXmlStream(includeDocHeader, format, encoding, eol, ctx, compression));
}

std::string CXmlObjectBase::ToJson(bool format, EOLType eol,
                                   const CSerializationContext& ctx) const {
  CheckLicenceAndVersion();
  CTextStream stream;
  WriteJson(*this, stream, format, eol, ctx);
  return stream.GetString();
}

CBinaryData CXmlObjectBase::ToJsonStream(bool format, XmlEncoding encoding, EOLType eol,
                                         const CSerializationContext& ctx,
                                         CompressionType compression) const {
  CheckLicenceAndVersion();
  CTextStream stream(encoding);
  WriteJson(*this, stream, format, eol, ctx);
  CBinaryData data = stream.GetEncodedStream();
  CQvZip::CompressData(data, compression);
  return data;
}

void CXmlObjectBase::ToJsonFile(const char* path, bool format, XmlEncoding encoding, EOLType eol,
                                const CSerializationContext& ctx,
                                CompressionType compression) const {
  CheckLicenceAndVersion();
  RefuseZLibFile(compression);
  if (compression == CompressionType_None && detail::g_isAsyncToFile) {
    CFileTextStream stream(path, encoding);
    WriteJson(*this, stream, format, eol, ctx);
    return;
  }
  WriteFile(path, encoding, compression, ToJsonStream(format, encoding, eol, ctx, compression));
}

}  // namespace QvXmlLib16
