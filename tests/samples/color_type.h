// Generated from samples.xsd.

#ifndef TESTS_SAMPLES_COLOR_TYPE_H_
#define TESTS_SAMPLES_COLOR_TYPE_H_

namespace samples {

/// colorType
enum class EColor : int { e_red, e_green, e_blue };

const char* ColorToText(int value);
int ColorFromText(const char* text);

}  // namespace samples

#endif  // TESTS_SAMPLES_COLOR_TYPE_H_
