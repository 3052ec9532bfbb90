// The process-wide switches of CXmlObjectBase.

#ifndef QVXML_BINDING_OBJECT_FLAGS_INTERNAL_H_
#define QVXML_BINDING_OBJECT_FLAGS_INTERNAL_H_

namespace QvXmlLib16::detail {

/// Set by AsyncToXmlFile, read when a file is written.
inline bool g_isAsyncToFile = false;
/// Set by AsyncFromXmlFile; nothing reads it.
inline bool g_isAsyncFromFile = false;

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_OBJECT_FLAGS_INTERNAL_H_
