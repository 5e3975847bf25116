// Distributions of the standard library differ between its makers, so numbers are drawn here.
#include "accuracy/hypergeometric_points.h"

#include <cmath>
#include <cstdint>
#include <utility>

namespace kalvex::accuracy {
namespace {

using Arguments = HypergeometricArguments;
using Random = std::mt19937_64;

double Uniform(Random& random, double low, double high) {
    return low + (high - low) * static_cast<double>(random() >> 11) * 0x1p-53;
}

/// From `low` to `high`, both included.
int Choice(Random& random, int low, int high) {
    return low + static_cast<int>(random() % static_cast<std::uint64_t>(high - low + 1));
}

bool Coin(Random& random) {
    return (random() & 1) != 0;
}

double ByMagnitude(Random& random, double leastExponent, double mostExponent) {
    const double size = std::pow(10, Uniform(random, leastExponent, mostExponent));
    return Coin(random) ? size : -size;
}

/// Some units in the last place away.
double Moved(Random& random, double x, int most) {
    const int by = Choice(random, -most, most);
    for (int i = 0; i < std::abs(by); ++i)
        x = std::nextafter(x, by > 0 ? INFINITY : -INFINITY);
    return x;
}

/// -1 < x < 1, often next to one of the ends or to 0.
double DrawX(Random& random) {
    constexpr double kDigits = -15;
    switch (Choice(random, 0, 6)) {
        case 0:
            return Uniform(random, 0.5, 1);
        case 1:
            return ByMagnitude(random, -6, 0) * 0.999;
        case 2:
            return 1 - std::fabs(ByMagnitude(random, kDigits, 0)) * 0.99;
        case 3:
            return std::fabs(ByMagnitude(random, kDigits, 0)) * 0.99 - 1;
        default:
            return Uniform(random, -1, 1) * 0.9999;
    }
}

/// Any number, an integer, a half or an eighth, up to `size`.
double Parameter(Random& random, double size) {
    const double x = Uniform(random, -size, size);
    const double parts[] = {0, 1, 2, 8};
    const double part = parts[Choice(random, 0, 3)];
    return part == 0 ? x : std::nearbyint(x * part) / part;
}

Arguments UpTo(Random& random, double size) {
    return {Parameter(random, size), Parameter(random, size), Parameter(random, size),
            DrawX(random)};
}

Arguments Exchanged(Random& random, Arguments at) {
    if (Coin(random)) std::swap(at.a, at.b);
    return at;
}

Arguments ByMagnitudes(Random& random, double least, double most) {
    return {ByMagnitude(random, least, most), ByMagnitude(random, least, most),
            ByMagnitude(random, least, most), DrawX(random)};
}

/// Parameters or their differences next to integers.
Arguments NextToIntegers(Random& random) {
    constexpr int kUnits = 4;
    constexpr int kApart = 60;
    const double size = Coin(random) ? 60 : 300;
    Arguments at = {Uniform(random, -size, size), Uniform(random, -size, size),
                    Uniform(random, -size, size), DrawX(random)};
    const double shift = Choice(random, -kApart, kApart);
    const double fraction = Uniform(random, 0, 1);
    switch (Choice(random, 0, 5)) {
        case 0:
            at.c = Moved(random, at.a + shift, kUnits);
            break;
        case 1:
            at.b = Moved(random, at.c - at.a - shift, kUnits);
            break;
        case 2:
            at.a = Moved(random, std::nearbyint(at.a), kUnits);
            break;
        case 3:
            at.c = Moved(random, std::nearbyint(at.c), kUnits);
            break;
        case 4:
            at.a = Moved(random, std::nearbyint(at.a) + fraction, kUnits);
            at.b = std::nearbyint(at.b);
            at.c = std::nearbyint(at.c) + fraction;
            break;
        default:
            at.a = Moved(random, std::nearbyint(at.a), kUnits);
            at.b = Moved(random, std::nearbyint(at.b), kUnits);
            at.c = Moved(random, std::nearbyint(at.c), kUnits);
    }
    return Exchanged(random, at);
}

Arguments NextToPolynomials(Random& random) {
    constexpr int kUnits = 4;
    const double size = Coin(random) ? 40 : 300;
    const int degree = Choice(random, 1, static_cast<int>(size));
    const auto other = [&] {
        const double integer = std::nearbyint(Uniform(random, -size, size));
        return Choice(random, 0, 2) != 0 ? integer : Moved(random, integer, kUnits);
    };
    const double b = other();
    const double c = other();
    return Exchanged(random, {Moved(random, -degree, kUnits), b, c, DrawX(random)});
}

Arguments NextToPoles(Random& random) {
    constexpr int kUnits = 8;
    const double size = Coin(random) ? 10 : 200;
    const double pole = -Choice(random, 0, static_cast<int>(size));
    const double b = Parameter(random, size);
    const double a = Parameter(random, size);
    const double c = pole == 0 ? ByMagnitude(random, -60, -5) : Moved(random, pole, kUnits);
    return {a, b, c, DrawX(random)};
}

Arguments TinyNumerator(Random& random) {
    constexpr double kLeast = -20;
    const double a = ByMagnitude(random, kLeast, -10);
    const double b = Parameter(random, Coin(random) ? 15 : 200);
    const double c = Choice(random, 0, 3) == 0 ? Uniform(random, -5, 60) : Uniform(random, -200, 0);
    return Exchanged(random, {a, b, c, DrawX(random)});
}

constexpr std::array<HypergeometricKind, kHypergeometricKinds> kKinds = {{
    {"to10", "to 10", [](Random& random) { return UpTo(random, 10); }},
    {"to200", "to 200", [](Random& random) { return UpTo(random, 200); }},
    {"to1000", "to 1000", [](Random& random) { return UpTo(random, 1000); }},
    {"to10000", "to 10,000", [](Random& random) { return UpTo(random, 1e4); }},
    {"to100000", "to 100,000", [](Random& random) { return UpTo(random, 1e5); }},
    {"sizes", "all three from 1 to 100,000, evenly by their logarithms",
     [](Random& random) { return ByMagnitudes(random, 0, 5); }},
    {"small", "all three from 1e-20 to 1000, evenly by their logarithms",
     [](Random& random) { return ByMagnitudes(random, -20, 3); }},
    {"integers", "differences integral but for some bits, to 300", NextToIntegers},
    {"polynomials", "the same, next to polynomials", NextToPolynomials},
    {"poles", "c next to 0, -1, -2, ...", NextToPoles},
    {"numerators", "a next to 0, c from -200 to 60", TinyNumerator},
    {"tied", "a, b and c within 30 of each other, to 1000",
     [](Random& random) {
         constexpr double kApart = 30;
         const double size = Uniform(random, -1000, 1000);
         return Arguments{size + Parameter(random, kApart), size + Parameter(random, kApart),
                          size + Parameter(random, kApart), DrawX(random)};
     }},
}};

}  // namespace

const std::array<HypergeometricKind, kHypergeometricKinds>& HypergeometricKinds() {
    return kKinds;
}

}  // namespace kalvex::accuracy
