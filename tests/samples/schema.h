// What all sources of one schema share. A small schema has it at the top of its only source; tree.h
// and tree.cpp show that.

#ifndef TESTS_SAMPLES_SCHEMA_H_
#define TESTS_SAMPLES_SCHEMA_H_

#include <optional>
#include <string>
#include <utility>

#include <qvxml/qvxml.h>

namespace samples {

using namespace QvXmlLib16;
using namespace QvXmlLib16Data;

namespace schema {

inline constexpr char kNamespace[] = "urn:qvxml:samples";
inline constexpr auto kCollapse = CWhitespaceUtils::ws_collapse;
inline constexpr auto kPreserve = CWhitespaceUtils::ws_preserve;
inline constexpr unsigned int kUnbounded = CXmlCollectionBase::kUnbounded;

inline CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }

}  // namespace schema

}  // namespace samples

#endif  // TESTS_SAMPLES_SCHEMA_H_
