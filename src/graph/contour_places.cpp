// All crossings are improved together, so that each step is one evaluation over an array. A step is
// that of the Illinois method (M. Dowell and P. Jarratt, A modified regula falsi method, BIT 11,
// 1971), which halves the value at an end that stays for a second time; every third one halves the
// interval, which bounds the number of steps whatever the function is. A crossing is done when its
// interval is short. When a value is small, the next place is a short step beyond the expected
// zero: if the sign has changed there, the interval is short.
#include "graph/contour_places.h"

#include <algorithm>
#include <cmath>

namespace kalvex {
namespace {

constexpr double kShort = 1.0 / 256.0;   ///< of a side, which is 0.7 pixels long
constexpr double kSmall = 1.0 / 256.0;   ///< of the smaller one of both values
constexpr double kProbe = 0.9 * kShort;  ///< from a place that is near a zero to beyond the zero
constexpr int kMostSteps = 24;           ///< eight of them halve the interval
constexpr std::size_t kPiece = 4096;     ///< crossings that are improved together

/// The interval of one crossing: parts of the side, and the values there.
struct Bracket {
    double low = 0.0;
    double high = 1.0;
    double lowValue = 0.0;
    double highValue = 0.0;
    double lowWeight = 1.0;  ///< halved while the end stays
    double highWeight = 1.0;
    bool isNegativeAtLow = false;
    int stayed = 0;  ///< how often in a row the low (below 0) or the high end was kept
    int steps = 1;
    double place = 0.0;
    bool isDone = false;
};

/// Values beyond this say nothing of where the sign changes; undefined values are among them.
constexpr double kHuge = 1e29;

bool IsUseful(const Bracket& bracket) {
    return std::fabs(bracket.lowValue) < kHuge && std::fabs(bracket.highValue) < kHuge;
}

/// Where the straight line through both ends is 0; the middle where it says nothing.
double Secant(const Bracket& bracket) {
    const double middle = (bracket.low + bracket.high) / 2.0;
    if (!IsUseful(bracket)) return middle;
    const double low = bracket.lowValue * bracket.lowWeight;
    const double part = low / (low - bracket.highValue * bracket.highWeight);
    const double place = bracket.low + part * (bracket.high - bracket.low);
    return place >= bracket.low && place <= bracket.high ? place : middle;
}

/// Whether the values at the ends and at the present place lie on an almost straight line, so that
/// a small value means a small distance. Near a multiple zero they do not.
bool IsStraight(const Bracket& bracket, double value) {
    const double before = (value - bracket.lowValue) * (bracket.high - bracket.place);
    const double behind = (bracket.highValue - value) * (bracket.place - bracket.low);
    return before * behind > 0.0 && std::fabs(before) < 2.0 * std::fabs(behind) &&
           std::fabs(behind) < 2.0 * std::fabs(before);
}

void Narrow(Bracket& bracket, double value) {
    const double smaller = std::min(std::fabs(bracket.lowValue), std::fabs(bracket.highValue));
    const bool isNear = std::fabs(value) <= kSmall * smaller && IsStraight(bracket, value);
    bracket.isDone = value == 0.0;
    if (bracket.isDone) return;
    const double place = bracket.place;
    const bool keepsLow = std::isnan(value) || (value < 0.0) != bracket.isNegativeAtLow;
    if (keepsLow) {
        bracket.high = place;
        bracket.highValue = value;
        bracket.highWeight = 1.0;
        bracket.stayed = std::min(bracket.stayed, 0) - 1;
        if (bracket.stayed < -1) bracket.lowWeight /= 2.0;
    } else {
        bracket.low = place;
        bracket.lowValue = value;
        bracket.lowWeight = 1.0;
        bracket.stayed = std::max(bracket.stayed, 0) + 1;
        if (bracket.stayed > 1) bracket.highWeight /= 2.0;
    }
    const double length = bracket.high - bracket.low;
    bracket.isDone = length < kShort;
    const bool halves = bracket.steps % 3 == 2 && !bracket.isDone;
    ++bracket.steps;
    bracket.place = halves ? (bracket.low + bracket.high) / 2.0 : Secant(bracket);
    // A small value may lie far from a multiple zero. A change of sign beside it proves that not.
    if (isNear && length > kShort) bracket.place = place + (keepsLow ? -kProbe : kProbe);
}

Bracket BracketOf(const Crossing& crossing) {
    Bracket bracket;
    bracket.lowValue = crossing.from;
    bracket.highValue = crossing.to;
    bracket.isNegativeAtLow = crossing.from < 0.0;
    bracket.place = Secant(bracket);
    // A zero at an end is the place itself.
    bracket.isDone = crossing.from == 0.0 || crossing.to == 0.0;
    if (crossing.from == 0.0) bracket.place = 0.0;
    if (crossing.to == 0.0) bracket.place = 1.0;
    return bracket;
}

WorldPoint Between(const WorldPoint& from, const WorldPoint& to, double part) {
    return {from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)};
}

WorldPoint PlaceOn(const Crossing& crossing, const HalfPixelPoints& points, double part) {
    const std::array<PixelPoint, 2> ends = EndsOf(crossing);
    return Between(WorldOf(points, ends[0]), WorldOf(points, ends[1]), part);
}

void Improve(std::span<const Crossing> crossings, const HalfPixelPoints& points,
             const CompiledExpression& expression, std::span<Bracket> brackets,
             Interruption* interruption) {
    std::vector<double> xs;
    std::vector<double> ys;
    std::vector<double> values;
    for (int step = 1; step <= kMostSteps && !IsStopped(interruption); ++step) {
        xs.clear();
        ys.clear();
        for (std::size_t i = 0; i < brackets.size(); ++i) {
            if (brackets[i].isDone) continue;
            const WorldPoint at = PlaceOn(crossings[i], points, brackets[i].place);
            xs.push_back(at.x);
            ys.push_back(at.y);
        }
        if (xs.empty()) return;
        values.resize(xs.size());
        EvaluatePoints(expression, xs, ys, values, interruption);
        std::size_t next = 0;
        for (Bracket& bracket : brackets)
            if (!bracket.isDone) Narrow(bracket, values[next++]);
    }
}

/// The coordinate of a number of half pixels, rounded as the grid of the curve rounds it: a middle
/// is half a step behind a centre, but for the one before the first.
double Coordinate(double start, double step, std::int32_t halves) {
    if (halves < 0) return start - step / 2.0;
    const std::int32_t pixel = halves / 2;
    const double centre = start + pixel * step;
    return halves % 2 == 0 ? centre : centre + step / 2.0;
}

}  // namespace

HalfPixelPoints HalfPixelPointsOf(const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    return {view.Xmin, view.Ymax, PixelStep(view.Xmin, view.Xmax, viewport.ClientWidth),
            PixelStep(view.Ymin, view.Ymax, viewport.ClientHeight)};
}

WorldPoint WorldOf(const HalfPixelPoints& points, const PixelPoint& halves) {
    return {Coordinate(points.left, points.stepX, halves.x),
            Coordinate(points.top, -points.stepY, halves.y)};
}

std::array<PixelPoint, 2> EndsOf(const Crossing& crossing) {
    const auto edge = static_cast<std::size_t>(crossing.edge);
    const auto end = [&](const PixelPoint& middle) {
        return PixelPoint{2 * crossing.column + middle.x, 2 * crossing.row + middle.y};
    };
    return {end(kEdgeMiddles[edge]), end(kEdgeMiddles[(edge + 1) % kEdgeMiddles.size()])};
}

std::vector<WorldPoint> PlacesOf(std::span<const Crossing> crossings, const HalfPixelPoints& points,
                                 const CompiledExpression& expression, Interruption* interruption) {
    std::vector<WorldPoint> places;
    places.reserve(crossings.size());
    std::vector<Bracket> brackets;
    for (std::size_t first = 0; first < crossings.size(); first += kPiece) {
        const auto piece = crossings.subspan(first, std::min(kPiece, crossings.size() - first));
        brackets.clear();
        for (const Crossing& crossing : piece)
            brackets.push_back(BracketOf(crossing));
        Improve(piece, points, expression, brackets, interruption);
        for (std::size_t i = 0; i < piece.size(); ++i)
            places.push_back(PlaceOn(piece[i], points, brackets[i].place));
    }
    return places;
}

}  // namespace kalvex
