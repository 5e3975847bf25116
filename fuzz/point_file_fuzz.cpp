// Run: scripts/fuzz
//
// The first five bytes choose a method and its parameters, the rest is a point file. Nothing may
// crash, and the x of every point read is finite. A method that fails says why and leaves all
// values undefined. The binary search for the piece of a spline must agree with a linear search.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "expr/eval_error.h"
#include "interp/approximation.h"
#include "interp/point_file.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

/// The linear search: the piece before the first inner knot that is greater than t.
std::size_t SearchedLeft(const std::vector<double>& x, double t) {
    for (std::size_t i = 1; i + 1 < x.size(); ++i)
        if (t < x[i]) return i - 1;
    return x.size() - 2;
}

void RunMethod(const kalvex::PointTable& points, const kalvex::ApproxParameters& parameters) {
    std::vector<double> abscissas = {-1e308, -1.0, 0.0, 0.5, 1e308, NAN, INFINITY};
    abscissas.insert(abscissas.end(), points.x.begin(), points.x.end());
    std::vector<double> values(abscissas.size());
    const kalvex::WorkProgress stop = [](double) { return false; };
    kalvex::Approximation approximation =
        kalvex::SetUpApproximation(points.x, points.y, parameters, stop);
    kalvex::EvaluateApproximation(approximation, abscissas, values, stop);
    if (approximation.failure) {
        Require(kalvex::StandardErrorText(*approximation.failure).starts_with('\n'));
        for (const double value : values)
            Require(value == kalvex::UndefinedValue);
    }
    if (points.x.size() < 2) return;
    const kalvex::Knots knots = kalvex::MakeKnots(points.x);
    for (const double t : abscissas)
        Require(kalvex::LeftOf(knots, t) == SearchedLeft(points.x, t));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 5) return 0;
    const kalvex::ApproxParameters parameters{data[0] % (kalvex::kMethodCount + 2) - 1, data[1] - 2,
                                              data[2] - 2, data[3] / 8.0 - 4.0,
                                              data[4] / 8.0 - 4.0};
    const std::string_view text(reinterpret_cast<const char*>(data + 5), size - 5);
    const kalvex::PointFile file = kalvex::ReadPointText(text);
    Require(file.points.x.size() == file.points.y.size());
    Require(file.error == kalvex::PointFileError::None || file.points.x.empty());
    for (const double x : file.points.x)
        Require(std::isfinite(x));
    RunMethod(file.points, parameters);
    return 0;
}
