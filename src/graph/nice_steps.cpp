// A bound divided by the step is needed to a small part of 1, although the quotient may have 17
// digits before its point. It is therefore computed as a double-double. The power of ten is split
// into powers of two, which are exact, and of five, which stay far from the ends of the range.
#include "graph/nice_steps.h"

#include <cmath>
#include <cstdlib>

#include "numbers/double_double.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

/// Positions this near to a whole pixel are that pixel. Most bounds are rounded decimals, and their
/// rounding would otherwise decide about the pixel.
constexpr double kWholePixel = 1e-6;

constexpr double kMostSteps = 4e18;  ///< a bound in steps must fit into 64 bits

DoubleDouble PowerOfFive(int exponent) {
    DoubleDouble power = {1.0, 0.0};
    DoubleDouble factor = {5.0, 0.0};
    for (int rest = exponent; rest > 0; rest /= 2) {
        if (rest % 2 != 0) power *= factor;
        if (rest > 1) factor *= factor;
    }
    return power;
}

/// value / step. The range of the quotient must not be left.
DoubleDouble Quotient(double value, const NiceStep& step) {
    const DoubleDouble power = PowerOfFive(std::abs(step.exponent));
    const double scaled = std::ldexp(value, -step.exponent);
    const DoubleDouble quotient = step.exponent < 0 ? power * scaled : scaled / power;
    return quotient / static_cast<double>(step.digit);
}

/// A coordinate in steps: whole + fraction, with a fraction at least 0 and less than 1.
struct InSteps {
    std::int64_t whole = 0;
    double fraction = 0.0;
};

InSteps Split(DoubleDouble steps) {
    const double high = std::floor(steps.high);
    const double low = std::floor(steps.low);
    const double rest = (steps.high - high) + (steps.low - low);
    const double carry = std::floor(rest);
    return {TruncateToInt64(high) + TruncateToInt64(low) + TruncateToInt64(carry), rest - carry};
}

/// to - from.
double Difference(const InSteps& from, const InSteps& to) {
    return static_cast<double>(to.whole - from.whole) + (to.fraction - from.fraction);
}

double Snapped(double position) {
    const double pixel = std::round(position) + 0.0;  // never -0
    return std::fabs(position - pixel) < kWholePixel ? pixel : position;
}

}  // namespace

NiceStep NextStep(const NiceStep& step) {
    if (step.digit == 1) return {2, step.exponent};
    if (step.digit == 2) return {5, step.exponent};
    return {1, step.exponent + 1};
}

AxisSpan SpanX(const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    return {view.Xmin, view.Xmax, viewport.ClientWidth, view.OriginX};
}

AxisSpan SpanY(const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    return {view.Ymax, view.Ymin, viewport.ClientHeight, view.OriginY};
}

NiceStep StepFor(const AxisSpan& span) {
    const double length = std::fabs(span.to - span.from);
    // The logarithm may be rounded to the exponent above, so the search begins one below it.
    NiceStep step{1, static_cast<int>(std::floor(std::log10(length))) - 2};
    while (Quotient(length, step).high > 8.0)
        step = NextStep(step);
    const NiceStep before{2, step.exponent};
    const bool few = step.digit == 5 && Quotient(length, before).high <= 10.0;
    return few ? before : step;
}

double SpacingOf(const AxisSpan& span, const NiceStep& step) {
    return span.pixels / Quotient(std::fabs(span.to - span.from), step).high;
}

std::vector<NiceMark> MarksAt(const AxisSpan& span, const NiceStep& step) {
    const DoubleDouble fromSteps = Quotient(span.from, step);
    const DoubleDouble toSteps = Quotient(span.to, step);
    if (!(std::fabs(fromSteps.high) < kMostSteps && std::fabs(toSteps.high) < kMostSteps))
        return {};
    const InSteps from = Split(fromSteps);
    const InSteps to = Split(toSteps);
    const double length = Difference(from, to);
    if (length == 0.0 || !(std::fabs(length) <= span.pixels)) return {};
    std::vector<NiceMark> marks;
    const InSteps& least = length > 0.0 ? from : to;
    const InSteps& greatest = length > 0.0 ? to : from;
    for (std::int64_t k = least.whole; k <= greatest.whole + 1; ++k) {
        const double position = Snapped(span.pixels * (Difference(from, {k, 0.0}) / length));
        if (position >= 0.0 && position < span.pixels)
            marks.push_back({k, k == 0 ? std::fmax(span.origin, 0.0) : position});
    }
    return marks;
}

}  // namespace kalvex
