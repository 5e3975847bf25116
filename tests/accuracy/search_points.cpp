// The ranges are those of the language's domains. They are shorter where exact values take long
// (parameters of thousands, long power series); the search prints a note about that.
#include "accuracy/search_points.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kalvex::accuracy {
namespace {

constexpr double kTiny = std::numeric_limits<double>::denorm_min();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kExactIntegers = 9007199254740992.0;

constexpr ArgumentRange AllX(double ordinary) {
    return {kTiny, kLargest, ordinary, true, false};
}
constexpr ArgumentRange Positive(double ordinary) {
    return {kTiny, kLargest, ordinary, false, false};
}
constexpr ArgumentRange UpTo(double most, double ordinary, bool bothSigns = false) {
    return {kTiny, most, ordinary, bothSigns, false};
}
constexpr ArgumentRange Degrees(double least, bool bothSigns = false) {
    return {least, kExactIntegers, 100, bothSigns, true};
}
constexpr ArgumentRange kUnit = {kTiny, 1, 1, true, false};
constexpr ArgumentRange kOrder = {kTiny, 1e5, 50, true, false};
constexpr ArgumentRange kOrderFromZero = {kTiny, 1e5, 50, false, false};
constexpr ArgumentRange kParameter = {1e-310, 300, 20, true, false, 1e-30};

double Uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

int Choice(Random& random, int count) {
    return std::uniform_int_distribution<int>(0, count - 1)(random);
}

double ByMagnitude(const ArgumentRange& range, Random& random) {
    const double low = std::log(std::max({range.least, range.ordinaryLeast, kTiny}));
    return std::exp(Uniform(random, low, std::log(range.most)));
}

/// The double that is `steps` doubles above x, or below it for a negative number of steps.
double Moved(double x, int steps) {
    for (; steps > 0; --steps)
        x = std::nextafter(x, HUGE_VAL);
    for (; steps < 0; ++steps)
        x = std::nextafter(x, -HUGE_VAL);
    return x;
}

double NextToHalves(const ArgumentRange& range, Random& random) {
    const double half = std::nearbyint(Uniform(random, 0, 2 * range.ordinary)) / 2;
    if (Choice(random, 2) == 0) return Moved(half, Choice(random, 9) - 4);
    return half + std::ldexp(Uniform(random, -1, 1), -Choice(random, 52));
}

double ShortDecimal(const ArgumentRange& range, Random& random) {
    const double scale = std::pow(10.0, Choice(random, 4));
    return std::nearbyint(Uniform(random, 0, range.ordinary) * scale) / scale;
}

double RandomArgument(const ArgumentRange& range, Random& random) {
    constexpr int kKinds = 8;
    const int kind = Choice(random, kKinds);
    double x = 0;
    if (kind < 3) {
        x = ByMagnitude(range, random);
    } else if (kind < 6) {
        x = Uniform(random, range.least, range.ordinary);
    } else if (kind == 6) {
        x = NextToHalves(range, random);
    } else {
        x = ShortDecimal(range, random);
    }
    if (range.integral) x = std::nearbyint(x);
    return range.bothSigns && Choice(random, 2) == 0 ? -x : x;
}

/// For the hypergeometric function: makes parameters nearly equal, or makes their difference nearly
/// an integer. Sometimes c and the parameter close to it are tiny, down to 1e-309.
void Tie(std::vector<double>& p, Random& random) {
    constexpr int kFarthest = 5;
    constexpr int kBits = 53;
    constexpr double kLeast = -309;  // a decimal exponent
    const auto shift = [&random] { return Choice(random, 2 * kFarthest + 1) - kFarthest; };
    const auto near = [&random](double of) {
        const int kind = Choice(random, 3);
        if (kind == 0) return of;
        if (kind == 1) return Moved(of, Choice(random, 2 * kFarthest + 1) - kFarthest);
        return of + of * std::ldexp(Uniform(random, -1, 1), -Choice(random, kBits));
    };
    double& other = p[static_cast<std::size_t>(Choice(random, 2))];
    if (Choice(random, 2) == 0)
        p[2] = std::copysign(std::pow(10, Uniform(random, kLeast, 0)), p[2]);
    const int kind = Choice(random, 4);
    if (kind == 0) p[1] = near(p[0]);
    if (kind == 1) p[2] = near(p[0] + p[1] + shift());
    if (kind == 2) other = near(p[2] + shift());
    if (kind == 3) other = near(p[2]);
}

bool IsInside(const ArgumentRange& range, double x) {
    const double magnitude = std::fabs(x);
    if (!(magnitude <= range.most) || (x < 0 && !range.bothSigns)) return false;
    if (range.integral && std::nearbyint(x) != x) return false;
    return magnitude >= range.least || (range.least == kTiny && range.bothSigns);
}

/// Checks the functions whose domain is not given by one range for each argument.
bool IsDefined(std::string_view name, const std::vector<double>& a) {
    constexpr double kLongSeries = 1e7;
    const auto integral = [](double x) { return std::floor(x) == x; };
    if (name == "J") return a[1] >= 0 || integral(a[0]);
    if (name == "Psi") return a[0] > 0 || !integral(a[0]);
    if (name == "Li") return a[0] > 1;
    if (name == "Gamma") return a[0] > 0 || !integral(a[0]);
    if (name == "log") return a[0] != 1;
    if (name == "power") return a[0] > 0 || integral(a[1]);
    if (name == "Hyper") return a[2] > 0 || !integral(a[2]);
    if (name == "Lag") return a[0] * std::fabs(a[1]) < kLongSeries;
    return name != "Ci" && name != "Chi" ? true : a[0] != 0;
}

}  // namespace

std::span<const SearchedFunction> SearchedFunctions() {
    static const std::vector<SearchedFunction> functions = {
        {"sin", {AllX(100)}},
        {"cos", {AllX(100)}},
        {"tg", {AllX(100)}},
        {"ln", {Positive(10)}},
        {"lg", {Positive(10)}},
        {"sh", {UpTo(720, 720, true)}},
        {"ch", {UpTo(720, 720, true)}},
        {"th", {AllX(40)}},
        {"exp", {UpTo(760, 760, true)}},
        {"acos", {kUnit}},
        {"asin", {kUnit}},
        {"atg", {AllX(20)}},
        {"Gamma", {UpTo(190, 180, true)}},
        {"Si", {AllX(50)}},
        {"Ci", {AllX(50)}},
        {"Shi", {UpTo(720, 50, true)}},
        {"Chi", {UpTo(720, 50, true)}},
        {"Psi", {AllX(50)}},
        {"DawsonF", {AllX(50)}},
        {"Ei", {UpTo(720, 50)}},
        {"Sf", {UpTo(1e18, 30, true)}},
        {"Cf", {UpTo(1e18, 30, true)}},
        {"Ai", {UpTo(1e20, 50, true)}},
        {"Bi", {UpTo(1e20, 50, true)}},
        {"erf", {AllX(7)}},
        {"Li", {{1, kLargest, 100, false, false}}},
        {"Beta", {Positive(100), Positive(100)}},
        {"J", {kOrder, UpTo(1e10, 100, true)}},
        {"Y", {kOrder, UpTo(1e10, 100)}},
        {"K", {kOrderFromZero, UpTo(1e5, 100)}},
        {"I", {kOrderFromZero, UpTo(1e5, 100)}},
        {"Hyper",
         {kParameter, kParameter, kParameter, {kTiny, Moved(1, -1), Moved(1, -1), true, false}}},
        {"log", {Positive(20), Positive(100)}},
        {"Cheb", {{1, 2, 2, false, true}, Degrees(0, true), kUnit}},
        {"Hi", {{0, 400, 100, false, true}, AllX(30)}},
        {"Lag", {Degrees(0), AllX(100)}},
        {"Leg", {Degrees(1), kUnit}},
        {"power", {AllX(20), UpTo(1100, 50, true)}},
    };
    return functions;
}

std::vector<double> RandomPoint(const SearchedFunction& function, Random& random) {
    std::vector<double> point;
    for (const ArgumentRange& range : function.arguments)
        point.push_back(RandomArgument(range, random));
    constexpr int kUntied = 3;  // times out of four
    if (function.name == "Hyper" && Choice(random, kUntied + 1) == kUntied) Tie(point, random);
    return point;
}

std::vector<double> MovedPoint(const SearchedFunction& function, const std::vector<double>& from,
                               Random& random) {
    constexpr int kFarthest = 16;
    constexpr int kBits = 50;
    std::vector<double> point = from;
    const auto which =
        static_cast<std::size_t>(Choice(random, static_cast<int>(function.arguments.size())));
    double& x = point[which];
    if (function.arguments[which].integral) {
        x += Choice(random, 5) - 2;
    } else if (Choice(random, 3) == 0) {
        x = Moved(x, Choice(random, 2 * kFarthest + 1) - kFarthest);
    } else {
        x += std::ldexp(x * Uniform(random, -1, 1), -Choice(random, kBits));
    }
    return point;
}

bool IsSearched(const SearchedFunction& function, const std::vector<double>& point) {
    for (std::size_t i = 0; i < point.size(); ++i) {
        if (!IsInside(function.arguments[i], point[i])) return false;
    }
    return IsDefined(function.name, point);
}

}  // namespace kalvex::accuracy
