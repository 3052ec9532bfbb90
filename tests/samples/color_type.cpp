// Generated from samples.xsd.

#include "tests/samples/color_type.h"

#include <qvxml/qvxml.h>

namespace samples {

namespace {

constexpr const char* kColorTexts[] = {"red", "green", "blue"};

}  // namespace

const char* ColorToText(int value) { return QvXmlLib16::GetEnumText(kColorTexts, value); }

int ColorFromText(const char* text) {
  return QvXmlLib16::FindEnumValue(kColorTexts, "Color", text);
}

}  // namespace samples
