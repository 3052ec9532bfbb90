// What a GPX document holds, in figures.

#ifndef EXAMPLES_GPX_SUMMARY_H_
#define EXAMPLES_GPX_SUMMARY_H_

#include <optional>
#include <string>
#include <vector>

#include "gpx11.h"

/// A line of points: a track or a route.
struct LineSummary {
  std::string title;
  long segments = 0;
  long points = 0;
  double metres = 0;         ///< Along the line, segments not joined.
  double metresClimbed = 0;  ///< Sum of all rises between neighbours.
};

struct Bounds {
  double minLat, minLon, maxLat, maxLon;
};

struct Summary {
  long waypoints = 0;
  std::vector<LineSummary> routes;
  std::vector<LineSummary> tracks;
  std::optional<Bounds> bounds;                      ///< Of all points; none without points.
  std::optional<QvXmlLib16::CDateTime> first, last;  ///< Earliest and latest time of a point.
};

Summary Summarise(const gpx11::CGpx& gpx);
void Print(const Summary& summary);

/// Compares the points of two documents, value by value; returns what differs first, or "".
std::string FindDifference(const gpx11::CGpx& left, const gpx11::CGpx& right);

#endif  // EXAMPLES_GPX_SUMMARY_H_
