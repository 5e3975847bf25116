// Compares the analysis with a slow second implementation, for functions of all types in random
// windows.
#include "analysis/slow_analysis.h"

#include <gtest/gtest.h>

#include <random>

#include "analysis/analysis_fixtures.h"
#include "base/encoding.h"
#include "expr/random_expression.h"

namespace kalvex {
namespace {

using fixtures::DrawnLine;
using testing_support::Below;
using testing_support::Generator;

/// Whether two doubles are the same number or both not-a-number.
bool Same(double one, double other) {
    return one == other || (std::isnan(one) && std::isnan(other));
}

std::vector<std::pair<double, double>> PointsOf(const std::vector<CurveSample>& samples) {
    std::vector<std::pair<double, double>> points;
    for (const CurveSample& sample : samples)
        points.emplace_back(sample.x, sample.y);
    return points;
}

void ExpectTheSame(const DrawnLine& drawn, const std::string& where) {
    const FunctionEntry& entry = drawn.functions[0];
    const int viewHeight = drawn.state.viewport.ClientHeight;
    const ViewWindow& view = drawn.state.viewport.view;
    AnalysisResult result;
    analyzeSampledCurve(result, entry, viewHeight, view);
    ASSERT_FALSE(entry.samples.empty()) << where;
    EXPECT_PRED2(Same, result.greatestY, slow::GreatestY(entry.samples)) << where;
    EXPECT_PRED2(Same, result.leastY, slow::LeastY(entry.samples)) << where;
    EXPECT_EQ(result.roots, slow::Roots(entry.samples, viewHeight)) << where;
    EXPECT_EQ(PointsOf(result.minimums), slow::Extremums(entry.samples, viewHeight, -1)) << where;
    EXPECT_EQ(PointsOf(result.maximums), slow::Extremums(entry.samples, viewHeight, 1)) << where;
    EXPECT_PRED2(Same, result.meanValue, slow::MeanValue(entry.samples)) << where;
    EXPECT_EQ(result.integralUndefined, slow::IntegralUndefined(entry.samples)) << where;
    EXPECT_PRED2(Same, result.integral, slow::Integral(entry.samples)) << where;
    const auto interval = slow::Interval(entry, view);
    EXPECT_EQ(result.a, interval.first) << where;
    EXPECT_EQ(result.b, interval.second) << where;
}

double Between(Generator& generator, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(generator);
}

fixtures::Window RandomWindow(Generator& generator) {
    fixtures::Window window;
    const double size = std::pow(10.0, Between(generator, -1.0, 2.0));
    const double middle = Between(generator, -size, size);
    window.xmin = middle - size;
    window.xmax = middle + size;
    if (Below(generator, 10) == 0) std::swap(window.xmin, window.xmax);
    const double height = std::pow(10.0, Between(generator, -1.0, 2.0));
    window.ymin = -height * Between(generator, 0.1, 1.0);
    window.ymax = height * Between(generator, 0.1, 1.0);
    window.width = 2 + static_cast<std::int32_t>(Below(generator, 700));
    window.height = 1 + static_cast<std::int32_t>(Below(generator, 500));
    return window;
}

std::string Where(const std::string& text, const fixtures::Window& window) {
    return text + " on " + std::to_string(window.xmin) + "," + std::to_string(window.xmax) + "," +
           std::to_string(window.ymin) + "," + std::to_string(window.ymax) + " at " +
           std::to_string(window.width) + "x" + std::to_string(window.height);
}

DrawnLine DrawFile(Generator& generator, const fixtures::Window& window) {
    DrawnLine drawn = fixtures::Draw(EquationType::File, u"", window);
    FunctionEntry& entry = drawn.functions[0];
    entry.method.approx = 2 + static_cast<std::int32_t>(Below(generator, kMethodCount - 2));
    const std::size_t count = 3 + 2 * Below(generator, 6);
    double x = std::min(window.xmin, window.xmax);
    for (std::size_t i = 0; i < count; ++i) {
        x += std::fabs(window.xmax - window.xmin) * Between(generator, 0.02, 0.3);
        entry.points.x.push_back(x);
        entry.points.y.push_back(Between(generator, window.ymin, window.ymax));
    }
    const auto measure = [](std::u16string_view, std::int32_t) { return TextExtent{}; };
    static_cast<void>(DrawGraph(drawn.state, drawn.functions, {}, measure, {}));
    return drawn;
}

TEST(SlowAnalysis, AgreesOnVariedCurves) {
    Generator generator(20261121);
    for (int i = 0; i < 100; ++i) {
        const std::string text = testing_support::RandomExpression(generator, 3, false);
        const std::string other = testing_support::RandomExpression(generator, 2, false);
        const EquationType type = i % 5 == 1   ? EquationType::Polar
                                  : i % 5 == 2 ? EquationType::Parametric
                                               : EquationType::Decart;
        for (int view = 0; view < 5; ++view) {
            const fixtures::Window window = RandomWindow(generator);
            const bool pair = type == EquationType::Parametric;
            ExpectTheSame(
                fixtures::Draw(type, Widen(text), window, pair ? Widen(other) : std::u16string()),
                Where(text + (pair ? ";" + other : ""), window));
        }
    }
}

TEST(SlowAnalysis, AgreesOnKnownCurves) {
    Generator generator(7);
    const char16_t* const texts[] = {u"sin(x)",      u"tg(x)",     u"1/x",          u"ln(x)",
                                     u"0",           u"int(x)",    u"frac(x)",      u"x^3-3*x",
                                     u"exp(0-x^2)",  u"abs(x)-2",  u"Gamma(x)",     u"sin(1/x)",
                                     u"1/(x^2-4)",   u"asin(x/5)", u"x^0.5",        u"J(0,x)",
                                     u"int(sin(x))", u"Ai(x)",     u"10^10*sin(x)", u"x*0"};
    for (const char16_t* const text : texts) {
        for (int view = 0; view < 10; ++view) {
            const fixtures::Window window = RandomWindow(generator);
            ExpectTheSame(fixtures::Draw(EquationType::Decart, text, window),
                          Where(ToUtf8(text), window));
        }
        const fixtures::Window whole = {-10, 10, -10, 10, 201, 201};  // samples on whole numbers
        ExpectTheSame(fixtures::Draw(EquationType::Decart, text, whole),
                      Where(ToUtf8(text), whole));
    }
}

TEST(SlowAnalysis, AgreesOnFiles) {
    Generator generator(11);
    for (int i = 0; i < 100; ++i) {
        const fixtures::Window window = RandomWindow(generator);
        const DrawnLine drawn = DrawFile(generator, window);
        ExpectTheSame(drawn,
                      Where("method " + std::to_string(drawn.functions[0].method.approx), window));
    }
}

}  // namespace
}  // namespace kalvex
