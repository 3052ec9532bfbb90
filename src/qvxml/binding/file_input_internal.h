// Whole files as input.

#ifndef QVXML_BINDING_FILE_INPUT_INTERNAL_H_
#define QVXML_BINDING_FILE_INPUT_INTERNAL_H_

#include <string>

#include "qvxml/types/binary_data.h"

namespace QvXmlLib16::detail {

/// The bytes of a regular file. Throws as CXmlDocument::Load.
CBinaryData ReadFile(const std::string& path);

}  // namespace QvXmlLib16::detail

#endif  // QVXML_BINDING_FILE_INPUT_INTERNAL_H_
