// The end of the work on contours. First the squares with an odd number of crossings: the missing
// one lies on a side of a pixel that does not belong to the curve, because its opposite edges have
// the same sign although its neighbouring ones have not. Such pixels lie where two branches meet or
// almost meet. Then, in each square with four crossings, the sign at the saddle point of the
// bilinear function through its corners tells which two belong together; where the value there is
// almost 0 the branches meet. At last the pieces are followed from crossing to crossing.
#include <algorithm>
#include <cmath>
#include <map>

#include "graph/axis_marks.h"
#include "graph/contour_places.h"
#include "graph/contours.h"

namespace kalvex {
namespace {

/// More odd squares than this are noise, not branches that meet.
constexpr std::size_t kMostOddCorners = 20'000;

using Four = std::array<std::int32_t, 4>;
using PixelKey = std::pair<std::int32_t, std::int32_t>;  // row, column

/// The pixel that has side i of the square between four pixels, and the number of its own edge.
struct SideOwner {
    PixelKey pixel;
    std::size_t edge;
};

SideOwner OwnerOf(const OddCorner& corner, std::size_t side) {
    static constexpr std::array<std::array<std::int32_t, 3>, 4> kOwners = {
        {{0, 1, 3}, {1, 1, 0}, {1, 0, 1}, {0, 0, 2}}};
    const auto& [down, right, edge] = kOwners[side];
    return {{corner.row + down, corner.column + right}, static_cast<std::size_t>(edge)};
}

/// The crossings of the pixels that the odd squares miss, by pixel.
std::map<PixelKey, Four> FindMissing(ContourTrace& trace, const HalfPixelPoints& points,
                                     const CompiledExpression& expression,
                                     Interruption* interruption) {
    std::map<PixelKey, Four> missing;
    for (const OddCorner& corner : trace.oddCorners)
        for (std::size_t side = 0; side < 4; ++side)
            if (corner.crossings[side] < 0) missing[OwnerOf(corner, side).pixel] = {-1, -1, -1, -1};
    std::vector<double> xs;
    std::vector<double> ys;
    for (const auto& [pixel, unused] : missing) {
        for (const PixelPoint& middle : kEdgeMiddles) {
            const WorldPoint at =
                WorldOf(points, {2 * pixel.second + middle.x, 2 * pixel.first + middle.y});
            xs.push_back(at.x);
            ys.push_back(at.y);
        }
    }
    std::vector<double> values(xs.size());
    EvaluatePoints(expression, xs, ys, values, interruption);
    std::size_t next = 0;
    for (auto& [pixel, crossings] : missing) {
        const std::array<double, 4> v = {values[next], values[next + 1], values[next + 2],
                                         values[next + 3]};
        next += 4;
        if (!(v[0] * v[2] > 0.0 && v[1] * v[3] > 0.0 && v[0] * v[1] < 0.0)) continue;
        crossings = AddCrossings(trace, pixel.second, pixel.first, v);
        AddPixelSaddle(trace, pixel.second, pixel.first, crossings, v);
    }
    return missing;
}

/// Joins the odd squares with the crossings of the pixels that they miss.
void CompleteOddCorners(ContourTrace& trace, const HalfPixelPoints& points,
                        const CompiledExpression& expression, Interruption* interruption) {
    if (trace.oddCorners.size() > kMostOddCorners) return;
    const std::map<PixelKey, Four> missing = FindMissing(trace, points, expression, interruption);
    for (const OddCorner& corner : trace.oddCorners) {
        Four crossings = corner.crossings;
        Four known = {};
        std::size_t count = 0;
        for (std::size_t side = 0; side < 4; ++side) {
            const SideOwner owner = OwnerOf(corner, side);
            if (crossings[side] < 0) crossings[side] = missing.at(owner.pixel)[owner.edge];
            if (crossings[side] >= 0) known[count++] = crossings[side];
        }
        if (count == 2) Link(trace, known[0], known[1], 1);
        if (count == 4) AddCornerSaddle(trace, corner.column, corner.row, crossings);
    }
}

/// The points of the lines, and the two neighbours of each; -1 for none.
struct Web {
    std::vector<WorldPoint> places;
    std::vector<std::array<std::int32_t, 2>> links;
};

/// The saddle point of the bilinear function through the corners, as parts of the sides 0-1 and
/// 0-3. The middle when the values say nothing.
struct SaddlePoint {
    double along = 0.5;
    double across = 0.5;
};

SaddlePoint SaddlePointOf(const std::array<double, 4>& v) {
    const double twist = v[0] - v[1] + v[2] - v[3];
    const double along = (v[0] - v[3]) / twist;
    const double across = (v[0] - v[1]) / twist;
    const bool isInside = along > 0.0 && along < 1.0 && across > 0.0 && across < 1.0;
    return isInside ? SaddlePoint{along, across} : SaddlePoint{};
}

WorldPoint PlaceOf(const Saddle& saddle, const HalfPixelPoints& points) {
    const SaddlePoint at = SaddlePointOf(saddle.values);
    const WorldPoint start = WorldOf(points, saddle.points[0]);
    const WorldPoint along = WorldOf(points, saddle.points[1]);
    const WorldPoint across = WorldOf(points, saddle.points[3]);
    return {start.x + at.along * (along.x - start.x) + at.across * (across.x - start.x),
            start.y + at.along * (along.y - start.y) + at.across * (across.y - start.y)};
}

void LinkThrough(Web& web, std::int32_t a, std::int32_t b, const WorldPoint& place,
                 std::size_t side) {
    const auto middle = static_cast<std::int32_t>(web.places.size());
    web.places.push_back(place);
    web.links.push_back({a, b});
    web.links[static_cast<std::size_t>(a)][side] = middle;
    web.links[static_cast<std::size_t>(b)][side] = middle;
}

void Resolve(Web& web, const Saddle& saddle, const WorldPoint& place, double value) {
    constexpr double kMeets = 1e-3;  // branches closer than a hundredth of a pixel meet
    const Four& c = saddle.crossings;
    const std::size_t side = saddle.isPixel ? 0 : 1;
    const auto link = [&](std::int32_t a, std::int32_t b) {
        web.links[static_cast<std::size_t>(a)][side] = b;
        web.links[static_cast<std::size_t>(b)][side] = a;
    };
    double least = std::fabs(saddle.values[0]);
    for (const double corner : saddle.values)
        least = std::min(least, std::fabs(corner));
    if (std::fabs(value) <= kMeets * least) {
        LinkThrough(web, c[0], c[2], place, side);
        LinkThrough(web, c[1], c[3], place, side);
    } else if ((value < 0.0) == (saddle.values[0] < 0.0)) {
        link(c[0], c[1]);  // about corner 1
        link(c[2], c[3]);
    } else {
        link(c[3], c[0]);  // about corner 0
        link(c[1], c[2]);
    }
}

void ResolveSaddles(Web& web, const ContourTrace& trace, const HalfPixelPoints& points,
                    const CompiledExpression& expression, Interruption* interruption) {
    std::vector<double> xs;
    std::vector<double> ys;
    for (const Saddle& saddle : trace.saddles) {
        const WorldPoint at = PlaceOf(saddle, points);
        xs.push_back(at.x);
        ys.push_back(at.y);
    }
    std::vector<double> values(xs.size());
    EvaluatePoints(expression, xs, ys, values, interruption);
    for (std::size_t i = 0; i < trace.saddles.size(); ++i)
        Resolve(web, trace.saddles[i], {xs[i], ys[i]}, values[i]);
}

Position PositionOf(const ViewWindow& view, const WorldPoint& point) {
    return {PositionX(view, point.x), PositionY(view, point.y)};
}

/// Follows the links from a point, in the direction of one of them, until they end or meet a point
/// that was visited.
void Follow(const Web& web, std::int32_t start, const ViewWindow& view,
            std::vector<std::uint8_t>& visited, Contours& contours) {
    std::int32_t last = -1;
    std::int32_t point = start;
    while (point >= 0) {
        const auto index = static_cast<std::size_t>(point);
        contours.points.push_back(PositionOf(view, web.places[index]));
        if (visited[index] != 0) break;
        visited[index] = 1;
        const auto& [a, b] = web.links[index];
        const std::int32_t other = a >= 0 ? a : b;
        const std::int32_t next = a == last ? b : b == last ? a : other;
        last = point;
        point = next;
    }
    contours.ends.push_back(contours.points.size());
}

bool IsEnd(const std::array<std::int32_t, 2>& links) {
    return links[0] < 0 || links[1] < 0;
}

void FollowAll(const Web& web, const ViewWindow& view, Contours& contours) {
    std::vector<std::uint8_t> visited(web.places.size());
    for (const bool endsOnly : {true, false}) {
        for (std::size_t i = 0; i < web.places.size(); ++i) {
            if (visited[i] != 0 || (endsOnly && !IsEnd(web.links[i]))) continue;
            Follow(web, static_cast<std::int32_t>(i), view, visited, contours);
        }
    }
}

void AddZeroLines(const ContourTrace& trace, const HalfPixelPoints& points, const ViewWindow& view,
                  Contours& contours) {
    for (const auto& [from, to] : trace.zeroLines) {
        contours.points.push_back(PositionOf(view, WorldOf(points, from)));
        if (from != to) contours.points.push_back(PositionOf(view, WorldOf(points, to)));
        contours.ends.push_back(contours.points.size());
    }
}

}  // namespace

std::optional<Contours> FinishContours(ContourTrace trace, const CompiledExpression& expression,
                                       const Viewport& viewport, Interruption* interruption) {
    if (trace.isTooLarge || !HasUsableMapping(viewport.view)) return std::nullopt;
    const HalfPixelPoints points = HalfPixelPointsOf(viewport);
    CompleteOddCorners(trace, points, expression, interruption);
    Web web;
    web.places = PlacesOf(trace.crossings, points, expression, interruption);
    web.links = std::move(trace.links);
    ResolveSaddles(web, trace, points, expression, interruption);
    if (IsStopped(interruption)) return std::nullopt;
    Contours contours;
    contours.filled = std::move(trace.filled);
    FollowAll(web, viewport.view, contours);
    AddZeroLines(trace, points, viewport.view, contours);
    return contours;
}

}  // namespace kalvex
