// The logarithm to any base is rounded once, so it is exact wherever a double can hold the value.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "kernel_calls.h"

namespace kalvex {
namespace {

using testing_support::Compute;
using testing_support::ForEachTable;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr OpCode kLog = FunctionOp(FunctionNumber::Log);

TEST(Logarithm, OfAnExactPowerIsTheExponent) {
    std::vector<double> bases;
    std::vector<double> arguments;
    std::vector<double> exponents;
    const auto add = [&](double base, double argument, int exponent) {
        bases.push_back(base);
        arguments.push_back(argument);
        exponents.push_back(exponent);
    };
    for (int base = 2; base <= 1000; ++base) {
        double power = 1;
        for (int k = 0; power <= 0x1p53; ++k, power *= base)
            add(base, power, k);
    }
    for (const int step : {1, 2, 3, 10}) {
        const double base = std::ldexp(1.0, step);
        for (int k = -1074 / step; k <= 1023 / step; ++k) {
            add(base, std::ldexp(1.0, k * step), k);
            add(1 / base, std::ldexp(1.0, k * step), -k);
        }
    }
    ForEachTable([&](const KernelTable& table) {
        const auto values = Compute(table, kLog, bases, arguments);
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_EQ(values[i], exponents[i]) << "log(" << bases[i] << "," << arguments[i] << ")";
        }
    });
}

TEST(Logarithm, OfWhatIsNotFiniteIsItself) {
    ForEachTable([](const KernelTable& table) {
        const auto values = Compute(table, kLog, {2, 0.5, kInfinity, kInfinity, 2, kNan, 3},
                                    {kInfinity, kInfinity, 2, kInfinity, kNan, 2, 1});
        EXPECT_EQ(values[0], kInfinity);
        EXPECT_EQ(values[1], -kInfinity);
        EXPECT_EQ(values[2], 0.0);
        for (const std::size_t i : {3, 4, 5})
            EXPECT_TRUE(std::isnan(values[i])) << i;
        EXPECT_EQ(values[6], 0.0);
    });
}

TEST(Logarithm, OfOneBaseIsThatOfEachLane) {
    std::mt19937_64 generator(5);
    std::uniform_real_distribution<double> logarithm(-700.0, 700.0);
    std::vector<double> arguments(64);
    for (double& argument : arguments)
        argument = std::exp(logarithm(generator));
    arguments[3] = -1;
    ForEachTable([&](const KernelTable& table) {
        for (const double base : {3.0, 0.1, 1e-310, 1.0, 0.0, -2.0, kNan, kInfinity}) {
            const auto expected =
                Compute(table, kLog, std::vector<double>(arguments.size(), base), arguments);
            std::vector<double> out(arguments.size());
            std::vector<std::int32_t> errors(arguments.size());
            const Source sources[] = {{nullptr, base}, {arguments.data(), 0.0}};
            const bool failed = table.kernels[static_cast<std::size_t>(kLog)](
                {out.data(), sources, out.size(), errors.data(), 0});
            EXPECT_TRUE(failed);
            for (std::size_t i = 0; i < out.size(); ++i) {
                const bool fails = arguments[i] <= 0 || base <= 0 || base == 1;
                EXPECT_EQ(errors[i], fails ? 17 : 0) << base << " " << arguments[i];
                if (fails) continue;
                EXPECT_EQ(std::memcmp(&out[i], &expected[i], 8), 0) << base << " " << arguments[i];
            }
        }
    });
}

}  // namespace
}  // namespace kalvex
