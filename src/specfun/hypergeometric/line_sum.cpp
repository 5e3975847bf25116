// On a line that ends half a step beyond its last nodes, the sum times the step is off by at most
//   the integrals of |f| on both lines at the distance d, divided by e^(2 pi d/h) - 1,
//   and at both ends the integral across, from -d to d, of |f| / (1 + e^(2 pi |y|/h)),
// by Cauchy's theorem for f / (1 - e^(-+2 pi i u/h)) on the two rectangles. Between two points
// ln |f| exceeds the greater of its values there by at most the length squared, over 8, times the
// greatest second derivative. Logarithms are added up from node to node:
//   ln (W'/W) = ln((1+y)/(1-y)),  y = (W'-W)/(W'+W).
#include "specfun/hypergeometric/line_sum.h"

#include <algorithm>
#include <cmath>

#include "numbers/extended.h"
#include "numbers/quick_log_exp.h"

namespace kalvex::specfun {
namespace {

// On each side, chosen: they take 30 us, and a peak that is nearly Gaussian takes 15.
constexpr int kMostNodes = 60;
// e-foldings: e^-50 is 2^-72. What is left out beyond a node so small stays below kEnough, 2^-62,
// if the rest of the path is not more than 2^10 steps long.
constexpr double kNegligible = 50;

/// The integral at an end of the line, in some pieces.
double EndError(const LoopIntegrand& f, const Line& line, PlainComplex at) {
    // Chosen: from one to the next the divisor 1 + e^(2 pi |y|/h) grows by e^8 at least.
    constexpr int kPieces = 6;
    const double length = line.d / kPieces;
    const PlainComplex direction = line.step / std::abs(line.step);
    double sum = 0;
    for (const double side : {-1.0, 1.0}) {
        const PlainComplex piece = direction * PlainComplex{0, side * length};
        double size = LogSize(f, at);
        for (int i = 0; i < kPieces; ++i) {
            const double next = LogSize(f, at + (i + 1.0) * piece);
            const double bend = MostCurvature(f, at + (i + 0.5) * piece, length / 2);
            const double most = std::max(size, next) + bend * length * length / 8;
            sum += length * std::exp(most - line.logAtStart - line.gain * i / kPieces);
            size = next;
        }
    }
    return sum;
}

/// ln |f|, by the start, beside a node on both lines at the distance d.
struct Beside {
    PlainComplex node;
    double left;
    double right;
};

Beside BesideOf(const LoopIntegrand& f, const Line& line, PlainComplex node) {
    const PlainComplex across = line.step * PlainComplex{0, line.d / std::abs(line.step)};
    return {node, LogSize(f, node + across) - line.logAtStart,
            LogSize(f, node - across) - line.logAtStart};
}

/// Bounds of |f| between two nodes on both lines, added.
double MostBetween(const LoopIntegrand& f, const Line& line, const Beside& one,
                   const Beside& other) {
    const double square = std::norm(line.step);
    const double radius = std::sqrt(line.d * line.d + square / 4);
    const double bend = MostCurvature(f, (one.node + other.node) * 0.5, radius) * square / 8;
    return std::exp(std::max(one.left, other.left) + bend) +
           std::exp(std::max(one.right, other.right) + bend);
}

/// ln((1+y)/(1-y)) for |y| below 1/16; relative error below 2^-54 |y|^4 + 2^-98.
ComplexPair LogOfRatio(const ComplexPair& y) {
    // What is left out, y^20/21 by the first term, is below 2^-68 |y|^4 for |y| below 1/16.
    constexpr int kLast = 19;
    const ComplexPair square = y * y;
    const PlainComplex s = Plain(square);
    double real = 1.0 / kLast;
    double imaginary = 0;
    for (int k = kLast - 2; k > 3; k -= 2) {
        const double next = real * s.real() - imaginary * s.imag() + 1.0 / k;
        imaginary = real * s.imag() + imaginary * s.real();
        real = next;
    }
    const ComplexPair inner = {kThird + (real * s.real() - imaginary * s.imag()),
                               {real * s.imag() + imaginary * s.real(), 0}};
    const ComplexPair twice = y * 2.0;
    return twice + twice * (square * inner);
}

/// A node, and ln f there less ln f at the start.
struct LineNode {
    ComplexPair at;
    ComplexPair log;
    double error = 0;  // a bound of the error of the logarithm
};

void Move(const LoopIntegrand& f, const ComplexPair& step, LineNode& node) {
    constexpr double kOfDoubles = 0x1p-53;  // 2^-54 of LogOfRatio, whose value is about 2y
    // 2^-98 of LogOfRatio in the same way, and as much, counted, for y and for adding up.
    constexpr double kOfPairs = 0x1p-96;
    const ComplexPair next = node.at + step;
    for (std::size_t k = 0; k < kFactors; ++k) {
        const ComplexPair rise = k == 0 ? step : step * -1.0;
        const ComplexPair y = rise / (FactorAt(f, k, node.at) + FactorAt(f, k, next));
        node.log = node.log + LogOfRatio(y) * f.exponents[k];
        const double square = std::norm(Plain(y));
        node.error += std::fabs(f.exponents[k].high) * std::sqrt(square) *
                      (kOfDoubles * square * square + kOfPairs);
    }
    node.at = next;
}

void AddTerm(const LoopIntegrand& f, const ComplexPair& log, PlainComplex at, double error,
             LineSum& sum) {
    // More than twice what cosine and sine, 2^-61 each, and QuickExp, 2^-66, come to together.
    constexpr double kOfTerm = 0x1p-59;
    // Chosen: e^-600 counts for nothing, and its products with other factors are no denormal
    // numbers.
    constexpr double kVanishing = -600;
    if (log.real.high < kVanishing) return;
    int exponent = 0;
    const DoubleDouble fraction = QuickExp(log.real, exponent);
    const DoubleDouble size = Scale(fraction, exponent);
    const CosineSine turn = CosineSineOf(log.imaginary);
    const ComplexPair value = {size * turn.cosine, size * turn.sine};
    sum.value = sum.value + value;
    sum.slope += Plain(value) / (f.roots[1].high - at);
    sum.sizes += size.high;
    sum.error += size.high * (kOfTerm + 2 * error);  // twice: e^x - 1 is at most 2x
}

double TailOf(const LoopIntegrand& f, const Line& line, PlainComplex at, const SideEnd& end) {
    if (!end.barrier) return BoundOfTail(f, line.logAtStart, at, end.end);
    const double left = (*end.barrier - line.start.real()) * (*end.barrier - at.real());
    if (!(left > 0)) return INFINITY;  // it lies behind already
    return std::fabs(*end.barrier - at.real()) * std::exp(LogSize(f, at) - line.logAtStart);
}

bool IsTooFar(const LoopIntegrand& f, const Line& line, const LineNode& node) {
    // Above 1, chosen: the bounds of |f| at the distance d then look at places 0.2 d from a root at
    // least, where they are finite.
    constexpr double kMargin = 1.2;
    const double radius = kMargin * line.d + std::abs(line.step);
    const PlainComplex at = Plain(node.at);
    // nor may |f| be above e times that at the start, where it is to be largest
    return node.log.real.high > 1 || at.imag() < 0 || !(LeastDistance(f, at) > radius);
}

}  // namespace

Line LineThrough(const LoopIntegrand& f, PlainComplex start, PlainComplex direction) {
    // Of the distance of the next root: up to 20 widths from the start the rule and its bound then
    // keep clear of the roots, if exponents are above some 300.
    constexpr double kPart = 0.15;
    constexpr double kWanted = 48;  // e-foldings: 2^-69, of which the integrals at d take 2^9
    const double curvature = -(SecondDerivative(f, start) * direction * direction).real();
    if (!(curvature > 0)) return {};
    const double d = std::min(std::sqrt(2 * kWanted / curvature), kPart * LeastDistance(f, start));
    // at d |f| is e^(curvature d^2/2) times as large, as on the line it is e^(-curvature u^2/2)
    const double gain = kWanted + curvature * d * d / 2;
    const double h = 2 * kPi.high * d / gain;
    if (std::sqrt(2 * kNegligible / curvature) > kMostNodes * h) return {};
    return {start, direction * h, d, gain, LogSize(f, start)};
}

void AddStart(const LoopIntegrand& f, const Line& line, double part, LineSum& sum) {
    sum.value.real += part;
    sum.slope += part / (f.roots[1].high - line.start);
    sum.sizes += part;
}

KALVEX_WITH_FMA
void AddSide(const LoopIntegrand& f, const Line& line, double sign, const SideEnd& end,
             LineSum& sum) {
    // Chosen: each bound of a tail takes as long as some nodes.
    constexpr int kMostTries = 4;
    constexpr double kEnough = 0x1p-62;  // by f at the start: 1/16 of kGoodEnough
    sum.failed = true;
    if (!(line.d > 0)) return;
    const double h = std::abs(line.step);
    const PlainComplex plainStep = sign * line.step;
    const ComplexPair step = {{plainStep.real(), 0}, {plainStep.imag(), 0}};
    LineNode node = {{{line.start.real(), 0}, {line.start.imag(), 0}}, {}};
    Beside beside = BesideOf(f, line, line.start);
    double offLine = 0;
    int tries = 0;
    for (int j = 1; j <= kMostNodes && tries < kMostTries; ++j) {
        Move(f, step, node);
        if (IsTooFar(f, line, node)) break;
        const PlainComplex at = Plain(node.at);
        AddTerm(f, node.log, at, node.error, sum);
        const Beside before = beside;
        beside = BesideOf(f, line, at);
        offLine += MostBetween(f, line, before, beside);
        if (node.log.real.high > -kNegligible) continue;
        ++tries;
        const PlainComplex last = at + plainStep * 0.5;
        const double left = TailOf(f, line, last, end) + EndError(f, line, last);
        if (!(left < kEnough * h)) continue;
        offLine += MostBetween(f, line, beside, BesideOf(f, line, at + plainStep));
        // twice, for the rounding of the bounds themselves
        sum.error += 2 * left / h + 2 * offLine / std::expm1(line.gain);
        sum.failed = false;
        return;
    }
}

}  // namespace kalvex::specfun
