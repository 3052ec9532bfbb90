// Writes a document in every format, reads it back and proves that nothing changed.

#ifndef EXAMPLES_GPX_ROUND_TRIP_H_
#define EXAMPLES_GPX_ROUND_TRIP_H_

#include <string>

#include "gpx11.h"

/// Prints a table with a row for each format: size, times of writing and reading, verdict. With a
/// `stem` that is not empty, each format is also written to the file of that name with the format's
/// ending. Returns whether all survived; throws what the library throws.
bool RunRoundTrips(const gpx11::CGpx& gpx, const std::string& stem);

#endif  // EXAMPLES_GPX_ROUND_TRIP_H_
