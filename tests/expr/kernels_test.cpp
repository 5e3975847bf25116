#include "expr/kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "base/encoding.h"
#include "expr/evaluator.h"
#include "expr/program.h"
#include "random_expression.h"

namespace kalvex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct Results {
    std::vector<double> values;
    std::vector<std::int32_t> errors;
};

Results EvaluateWith(const std::u16string& text, const KernelTable& kernels,
                     const std::vector<double>& xs) {
    const CompiledExpression expression{CompileProgram(text, kernels)};
    Results results{std::vector<double>(xs.size()), std::vector<std::int32_t>(xs.size())};
    EvaluateInto(expression, xs, 0.75, results.values, results.errors);
    return results;
}

std::vector<double> Arguments() {
    std::vector<double> xs;
    for (int i = -400; i <= 400; ++i)
        xs.push_back(0.0173 * i);
    for (const double special : {0.0, -0.0, 1e-310, 1e-30, 1e5, 1e15, 1e300, kInfinity, kNan, 0.5,
                                 1.0, 709.0, 710.0, -745.0, 170.5, 171.7}) {
        xs.push_back(special);
        xs.push_back(-special);
    }
    return xs;
}

bool HasFusedMultiplyAdd(const KernelTable& table) {
    return std::string(table.name) != "baseline";
}

/// Distance in units in the last place; 0 for two not-a-numbers.
double Distance(double a, double b) {
    if (std::isnan(a) && std::isnan(b)) return 0.0;
    if (a == b) return 0.0;
    const double magnitude = std::max(std::fabs(a), std::fabs(b));
    const double ulp = magnitude - std::nextafter(magnitude, 0.0);
    return std::fabs(a - b) / ulp;
}

TEST(KernelTables, AgreeWithEachOther) {
    const KernelTables available = AvailableKernelTables();
    ASSERT_GE(available.count, 1u);
    EXPECT_STREQ(available.tables[available.count - 1]->name, "baseline");
    testing_support::Generator generator(4711);
    const std::vector<double> xs = Arguments();
    for (int i = 0; i < 400; ++i) {
        const std::u16string text = Widen(testing_support::RandomExpression(generator, 3, true));
        const Results best = EvaluateWith(text, *available.tables[0], xs);
        for (std::size_t t = 1; t < available.count; ++t) {
            if (!HasFusedMultiplyAdd(*available.tables[t])) continue;
            const Results other = EvaluateWith(text, *available.tables[t], xs);
            for (std::size_t k = 0; k < xs.size(); ++k) {
                ASSERT_EQ(best.errors[k], other.errors[k]) << ToUtf8(text) << " at " << xs[k];
                const bool same = std::memcmp(&best.values[k], &other.values[k], 8) == 0 ||
                                  (std::isnan(best.values[k]) && std::isnan(other.values[k]));
                ASSERT_TRUE(same) << ToUtf8(text) << " at " << xs[k];
            }
        }
    }
}

TEST(KernelTables, AgreeInTheBaselineButForTheLastPlaces) {
    const KernelTables available = AvailableKernelTables();
    const char* const texts[] = {"sin(x)", "cos(x)",   "tg(x)",   "exp(x)", "sh(x)",   "ch(x)",
                                 "th(x)",  "atg(x)",   "ln(x)",   "lg(x)",  "acos(x)", "asin(x)",
                                 "erf(x)", "Gamma(x)", "x^3",     "x^7",    "x^(0-5)", "x^0.5",
                                 "x^1.7",  "int(x)",   "frac(x)", "abs(x)", "1/x",     "log(3,x)"};
    const std::vector<double> xs = Arguments();
    for (const char* text : texts) {
        const Results best = EvaluateWith(Widen(text), *available.tables[0], xs);
        const Results base = EvaluateWith(Widen(text), *available.tables[available.count - 1], xs);
        for (std::size_t k = 0; k < xs.size(); ++k) {
            ASSERT_EQ(best.errors[k], base.errors[k]) << text << " at " << xs[k];
            // SLEEF promises errors of at most one unit for both families.
            ASSERT_LE(Distance(best.values[k], base.values[k]), 2.0)
                << text << " at " << xs[k] << ": " << best.values[k] << ", " << base.values[k];
        }
    }
}

TEST(KernelTables, ComputeEachLaneIndependentlyOfItsNeighbours) {
    const KernelTables available = AvailableKernelTables();
    testing_support::Generator generator(31);
    const std::vector<double> xs = Arguments();
    for (std::size_t t = 0; t < available.count; ++t) {
        for (int i = 0; i < 60; ++i) {
            const std::u16string text =
                Widen(testing_support::RandomExpression(generator, 2, false));
            const Results all = EvaluateWith(text, *available.tables[t], xs);
            for (std::size_t k = 0; k < xs.size(); ++k) {
                const Results one = EvaluateWith(text, *available.tables[t], {xs[k]});
                ASSERT_EQ(all.errors[k], one.errors[0]) << ToUtf8(text) << " at " << xs[k];
                const bool same = std::memcmp(&all.values[k], &one.values[0], 8) == 0 ||
                                  (std::isnan(all.values[k]) && std::isnan(one.values[0]));
                ASSERT_TRUE(same) << ToUtf8(text) << " at " << xs[k];
            }
        }
    }
}

TEST(KernelTables, StayCloseToTheCLibrary) {
    const struct {
        const char* text;
        double (*reference)(double);
    } rows[] = {{"sin(x)", std::sin},   {"cos(x)", std::cos},  {"tg(x)", std::tan},
                {"exp(x)", std::exp},   {"atg(x)", std::atan}, {"ln(abs(x)+1)", nullptr},
                {"acos(x/7)", nullptr}, {"th(x)", std::tanh},  {"erf(x)", std::erf}};
    std::vector<double> xs;
    for (int i = -400; i <= 400; ++i)
        xs.push_back(0.0173 * i);
    for (const auto& row : rows) {
        const Results results = EvaluateWith(Widen(row.text), ActiveKernels(), xs);
        for (std::size_t k = 0; k < xs.size(); ++k) {
            const double expected = row.reference != nullptr ? row.reference(xs[k])
                                    : row.text[0] == 'l'     ? std::log(std::fabs(xs[k]) + 1)
                                                             : std::acos(xs[k] / 7);
            // SLEEF is within 1 unit, glibc within 2; its tanh is the least accurate of these.
            EXPECT_LE(Distance(results.values[k], expected), 3.0) << row.text << " at " << xs[k];
        }
    }
}

TEST(Divide, ByANumberHasTheBitsOfADivision) {
    const KernelTables available = AvailableKernelTables();
    testing_support::Generator generator(17);
    std::uniform_real_distribution<double> mantissa(1.0, 2.0);
    std::uniform_int_distribution<int> exponent(-450, 450);
    for (int i = 0; i < 2000; ++i) {
        const double divisor = i == 0   ? 3.0
                               : i == 1 ? std::nextafter(2.0, 1.0)
                                        : std::ldexp(mantissa(generator), exponent(generator) / 2);
        std::vector<double> xs = {0.0, -0.0, kInfinity, -kInfinity, kNan, 5e-324, 1e308};
        for (int k = 0; k < 200; ++k) {
            const double x = std::ldexp(mantissa(generator), exponent(generator));
            xs.push_back(k % 2 == 0 ? x : -x);
            xs.push_back(std::nextafter(divisor * (1.0 + k), kInfinity));
        }
        std::vector<double> out(xs.size() / kPaddedLanes * kPaddedLanes);
        std::vector<std::int32_t> errors(out.size());
        const Source sources[] = {{xs.data(), 0.0}, {nullptr, divisor}};
        for (std::size_t t = 0; t < available.count; ++t) {
            const auto op = static_cast<std::size_t>(OpCode::Divide);
            EXPECT_FALSE(available.tables[t]->kernels[op](
                {out.data(), sources, out.size(), errors.data(), 0}));
            for (std::size_t k = 0; k < out.size(); ++k) {
                const double expected = xs[k] / divisor;
                ASSERT_TRUE(std::memcmp(&out[k], &expected, 8) == 0 || std::isnan(expected))
                    << xs[k] << " / " << divisor;
            }
        }
    }
}

}  // namespace
}  // namespace kalvex
