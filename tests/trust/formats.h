// Every way in which an object leaves for a format and comes back, as a table.

#ifndef TESTS_TRUST_FORMATS_H_
#define TESTS_TRUST_FORMATS_H_

#include <string>
#include <vector>

#include <qvxml/qvxml.h>

namespace qv_test {

struct Format {
  const char* name;
  /// Writes to bytes, or, where it is a file, to `path`.
  void (*write)(const QvXmlLib16::CXmlObjectBase& object,
                const QvXmlLib16::CSerializationContext& ctx, const std::string& path,
                QvXmlLib16::CBinaryData& bytes);
  void (*read)(QvXmlLib16::CXmlObjectBase& object, const QvXmlLib16::CSerializationContext& ctx,
               const std::string& path, const QvXmlLib16::CBinaryData& bytes);
  /// Sets the options.
  void (*prepare)(QvXmlLib16::CSerializationContext& ctx);
  bool isFile = false;
  /// Whether the file has the old content or the whole new one.
  bool isWholeFile = false;
};

const std::vector<Format>& AllFormats();

}  // namespace qv_test

#endif  // TESTS_TRUST_FORMATS_H_
