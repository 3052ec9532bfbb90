#include "summary.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

using gpx11::CGpx;
using gpx11::CRte;
using gpx11::CRtept;
using gpx11::CTrk;
using gpx11::CTrkpt;
using gpx11::CTrkseg;
using gpx11::CWpt;
using gpx11::CWptType;
using QvXmlLib16::CDateTime;
using QvXmlLib16::CDecimal;
using QvXmlLib16::TObjectCollection;

namespace {

// Great-circle distance on a sphere with the earth's mean radius.
double Distance(const CWptType& from, const CWptType& to) {
  constexpr double kRadius = 6371008.8;
  constexpr double kRadians = 3.14159265358979323846 / 180;
  const double lat1 = from.GetLat()->ToDouble() * kRadians;
  const double lat2 = to.GetLat()->ToDouble() * kRadians;
  const double sinLat = std::sin((lat2 - lat1) / 2);
  const double sinLon =
      std::sin((to.GetLon()->ToDouble() - from.GetLon()->ToDouble()) * kRadians / 2);
  const double h = sinLat * sinLat + std::cos(lat1) * std::cos(lat2) * sinLon * sinLon;
  return 2 * kRadius * std::asin(std::min(1.0, std::sqrt(h)));
}

void AddPoint(const CWptType& point, Summary& summary) {
  const double lat = point.GetLat()->ToDouble();
  const double lon = point.GetLon()->ToDouble();
  if (!summary.bounds) summary.bounds = Bounds{lat, lon, lat, lon};
  Bounds& bounds = *summary.bounds;
  bounds = {std::min(bounds.minLat, lat), std::min(bounds.minLon, lon),
            std::max(bounds.maxLat, lat), std::max(bounds.maxLon, lon)};
  if (const std::optional<CDateTime>& time = point.GetTime()) {
    if (!summary.first || *time < *summary.first) summary.first = time;
    if (!summary.last || *time > *summary.last) summary.last = time;
  }
}

template <class TPoint>
void AddSegment(const TObjectCollection<TPoint>& points, LineSummary& line, Summary& summary) {
  ++line.segments;
  const CWptType* previous = nullptr;
  std::optional<CDecimal> elevation;
  for (const TPoint& point : points) {
    ++line.points;
    AddPoint(point, summary);
    if (previous != nullptr) line.metres += Distance(*previous, point);
    previous = &point;
    if (!point.GetEle()) continue;
    if (elevation && *point.GetEle() > *elevation) {
      line.metresClimbed += (*point.GetEle() - *elevation).ToDouble();
    }
    elevation = point.GetEle();
  }
}

void PrintLines(const char* kind, const std::vector<LineSummary>& lines) {
  for (const LineSummary& line : lines) {
    std::printf("  %s \"%s\": %ld segment%s, %ld points, %.2f km, climb %.0f m\n", kind,
                line.title.c_str(), line.segments, line.segments == 1 ? "" : "s", line.points,
                line.metres / 1000, line.metresClimbed);
  }
}

using Points = std::vector<const CWptType*>;

Points GetPoints(const CGpx& gpx) {
  Points points;
  for (const CWpt& point : gpx.GetWpt()) points.push_back(&point);
  for (const CRte& route : gpx.GetRte()) {
    for (const CRtept& point : route.GetRtept()) points.push_back(&point);
  }
  for (const CTrk& track : gpx.GetTrk()) {
    for (const CTrkseg& segment : track.GetTrkseg()) {
      for (const CTrkpt& point : segment.GetTrkpt()) points.push_back(&point);
    }
  }
  return points;
}

bool IsSame(const CWptType& left, const CWptType& right) {
  return left.GetLat() == right.GetLat() && left.GetLon() == right.GetLon() &&
         left.GetEle() == right.GetEle() && left.GetTime() == right.GetTime() &&
         left.GetName() == right.GetName() && left.GetFix() == right.GetFix() &&
         left.GetSat() == right.GetSat() && left.GetHdop() == right.GetHdop() &&
         left.GetElementName() == right.GetElementName() &&
         left.GetLink().GetCount() == right.GetLink().GetCount();
}

}  // namespace

Summary Summarise(const CGpx& gpx) {
  Summary summary;
  for (const CWpt& point : gpx.GetWpt()) {
    ++summary.waypoints;
    AddPoint(point, summary);
  }
  for (const CRte& route : gpx.GetRte()) {
    LineSummary& line = summary.routes.emplace_back();
    line.title = route.GetName().value_or("");
    AddSegment(route.GetRtept(), line, summary);
  }
  for (const CTrk& track : gpx.GetTrk()) {
    LineSummary& line = summary.tracks.emplace_back();
    line.title = track.GetName().value_or("");
    for (const CTrkseg& segment : track.GetTrkseg()) AddSegment(segment.GetTrkpt(), line, summary);
  }
  return summary;
}

void Print(const Summary& summary) {
  std::printf("%ld waypoints, %zu routes, %zu tracks\n", summary.waypoints, summary.routes.size(),
              summary.tracks.size());
  PrintLines("route", summary.routes);
  PrintLines("track", summary.tracks);
  if (const auto& bounds = summary.bounds) {
    std::printf("  bounds: latitude %.6f to %.6f, longitude %.6f to %.6f\n", bounds->minLat,
                bounds->maxLat, bounds->minLon, bounds->maxLon);
  }
  if (summary.first && summary.last) {
    std::printf("  time: %s to %s, duration %s\n", summary.first->ToString().c_str(),
                summary.last->ToString().c_str(),
                (*summary.last - *summary.first).ToString().c_str());
  }
}

std::string FindDifference(const CGpx& left, const CGpx& right) {
  const Points leftPoints = GetPoints(left);
  const Points rightPoints = GetPoints(right);
  if (leftPoints.size() != rightPoints.size()) {
    return std::to_string(leftPoints.size()) + " points became " +
           std::to_string(rightPoints.size());
  }
  for (size_t i = 0; i < leftPoints.size(); ++i) {
    if (!IsSame(*leftPoints[i], *rightPoints[i])) {
      return "point " + std::to_string(i + 1) + " of the document differs";
    }
  }
  return "";
}
