// Input: a value, a NUL or a line feed, and a pattern of XSD.

#include "fuzz/fuzz_target.h"

#include "qvxml/binding/xsd_pattern.h"
#include "qvxml/core/exception.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const size_t valueLength = input.find_first_of(std::string("\0\n", 2));
  if (valueLength == std::string::npos) return 0;
  try {
    QvXmlLib16::TestRegEx(input.substr(0, valueLength), input.substr(valueLength + 1));
  } catch (const QvXmlLib16::CQvException&) {
  }
  return 0;
}
