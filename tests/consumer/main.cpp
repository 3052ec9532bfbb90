// A user's program: the umbrella header, the values, an exception caught by type across the library's
// boundary.

#include <cstdio>
#include <qvxml/qvxml.h>

using namespace QvXmlLib16;

int main() {
  const CDecimal price = CConversions::decimalFromString(" 1.050 ", CWhitespaceUtils::ws_collapse);
  QvVariant value;
  value.SetDecimal(price);
  try {
    CConversions::i1FromString("128", CWhitespaceUtils::ws_none);
  } catch (const CQvInvalidValueException& exception) {
    std::printf("%s %s: %s\n", value.GetType().c_str(), value.ToString().c_str(),
                exception.GetMessage().c_str());
    return 0;
  }
  return 1;
}
