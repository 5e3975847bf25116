// Kernels next to the ends of the double's range: every table must have the right last finite and
// first infinite value, and tables with fused multiply-add must agree in every bit. The expected
// values were computed with mpmath.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "kernel_calls.h"
#include "numbers/double_double.h"

namespace kalvex {
namespace {

using testing_support::Compute;
using testing_support::ForEachTable;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Distance in units in the last place of the larger value; 0 for equal values, equal infinities
/// included.
double Units(double a, double b) {
    if (a == b) return 0.0;
    const double magnitude = std::max(std::fabs(a), std::fabs(b));
    return std::fabs(a - b) / (magnitude - std::nextafter(magnitude, 0.0));
}

constexpr OpCode kExp = FunctionOp(FunctionNumber::Exp);
constexpr OpCode kSh = FunctionOp(FunctionNumber::Sh);
constexpr OpCode kCh = FunctionOp(FunctionNumber::Ch);
constexpr OpCode kTh = FunctionOp(FunctionNumber::Th);
constexpr OpCode kGamma = FunctionOp(FunctionNumber::Gamma);

TEST(KernelEnds, AVanishedGammaHasTheSignOfTheFunction) {
    const struct {
        double x;
        bool isNegative;
    } rows[] = {{-200.5, true}, {-201.5, false}, {-16734.031864316188, true}, {-16735.5, false}};
    ForEachTable([&rows](const KernelTable& table) {
        for (const auto& [x, isNegative] : rows) {
            const double value = Compute(table, kGamma, {x})[0];
            EXPECT_EQ(value, 0.0) << x;
            EXPECT_EQ(std::signbit(value), isNegative) << x;
        }
    });
}

TEST(KernelEnds, OfFunctionsOfOneArgument) {
    constexpr double kBelowOne = 1.0 - 0x1p-53;
    const struct {
        OpCode op;
        double x;
        double value;
    } rows[] = {
        {kExp, 709.0, 0x1.d422d2be5dc9bp+1022},
        {kExp, 709.7827128, 0x1.fffffcddd6751p+1023},
        {kExp, 709.7827128933839, 0x1.ffffffffffb2ap+1023},
        {kExp, 709.782712893384, 0x1.fffffffffff2ap+1023},
        {kExp, 709.7827128933841, kInfinity},
        {kExp, 711.5, kInfinity},
        {kExp, 1e300, kInfinity},
        {kExp, kInfinity, kInfinity},
        {kExp, -kInfinity, 0.0},
        {kExp, -745.1332191019411, 5e-324},
        {kExp, -745.1332191019412, 0.0},
        {kSh, 710.4758600739437, 0x1.ffffffffff93bp+1023},
        {kSh, 710.4758600739439, 0x1.ffffffffffd3bp+1023},
        {kSh, 710.475860073944, kInfinity},
        {kSh, -710.4758600739439, -0x1.ffffffffffd3bp+1023},
        {kSh, -710.475860073944, -kInfinity},
        {kSh, -kInfinity, -kInfinity},
        {kCh, -710.4758600739439, 0x1.ffffffffffd3bp+1023},
        {kCh, -710.475860073944, kInfinity},
        {kCh, -kInfinity, kInfinity},
        {kTh, 18.714973875115287, kBelowOne},
        {kTh, -18.714973875115287, -kBelowOne},
        {kTh, 19.0615474653984, kBelowOne},
        {kTh, 19.061547465398505, 1.0},
        {kTh, -kInfinity, -1.0},
    };
    ForEachTable([&rows](const KernelTable& table) {
        for (const auto& row : rows) {
            const double value = Compute(table, row.op, {row.x})[0];
            EXPECT_LE(Units(value, row.value), 2.0)
                << static_cast<int>(row.op) << " of " << row.x << ": " << value;
        }
    });
}

TEST(KernelEnds, OfPowers) {
    const double beforeLast = 308.2547155599167;
    const struct {
        double base;
        double exponent;
        double value;
    } rows[] = {
        {2, 1023.999998, 0x1.ffffd17bd494ep+1023},
        {2, std::nextafter(1024.0, 0.0), 0x1.ffffffffffd3ap+1023},
        {2, std::nextafter(1024.0, 2000.0), kInfinity},
        {2, 1024, kInfinity},
        {0.5, -1023.999998, 0x1.ffffd17bd494ep+1023},
        {10, 308.254715, 0x1.ffffd4bd61e51p+1023},
        {10, beforeLast, 0x1.ffffffffffba1p+1023},
        {10, std::nextafter(beforeLast, 309.0), kInfinity},
        {0.0, -1.5, kInfinity},
        {kInfinity, 1.5, kInfinity},
        {2, kInfinity, kInfinity},
        {0.5, -kInfinity, kInfinity},
        {-2, 1025, -kInfinity},
        {-2, 1026, kInfinity},
        {-1.0000000000000002, 3196577161300661000.0, 0x1.fffffffffe864p+1023},
        {2, -1074, 5e-324},
        {2, -1073.5, 5e-324},
        {2, -1076, 0.0},
        {5e-324, 1, 5e-324},
        {5e-324, -0.95, 0x1.3b2c47bff8272p+1020},
    };
    ForEachTable([&rows](const KernelTable& table) {
        for (const auto& row : rows) {
            const double value = Compute(table, OpCode::Power, {row.base}, {row.exponent})[0];
            EXPECT_LE(Units(value, row.value), 2.0)
                << row.base << "^" << row.exponent << ": " << value;
        }
    });
}

/// The largest double whose n-th power rounds to a finite value: n ln x is below the logarithm of
/// 2^1024 (1 - 2^-54). The logarithms are compared with 31 digits.
double LargestBase(int n) {
    const DoubleDouble limit = kLn2 * 1024.0 - 0x1p-54;
    const auto excess = [&limit, n](double x) {
        const DoubleDouble power = Log(DoubleDouble{x}) * (static_cast<double>(n));
        return ToDouble(power - limit);
    };
    double x = std::exp2(1024.0 / n);
    x -= x * excess(x) / n;
    while (excess(x) < 0)
        x = std::nextafter(x, kInfinity);
    while (excess(x) >= 0)
        x = std::nextafter(x, 0.0);
    return x;
}

TEST(KernelEnds, OfIntegralPowers) {
    ForEachTable([](const KernelTable& table) {
        for (int n = kFirstFixedPower; n <= kLargestIntegerPower; ++n) {
            const double last = LargestBase(n);
            const double beyond = std::nextafter(last, kInfinity);
            const double sign = n % 2 == 0 ? 1.0 : -1.0;
            const std::vector<double> bases = {last, -last, beyond, -beyond};
            const auto powers = Compute(table, OpCode::IntegerPower, bases, {}, n);
            EXPECT_TRUE(std::isfinite(powers[0])) << last << "^" << n;
            EXPECT_GT(powers[0], 0x1.ffffffffffp+1023 * (1 - n * 0x1p-52)) << last << "^" << n;
            EXPECT_EQ(powers[1], sign * powers[0]) << -last << "^" << n;
            EXPECT_EQ(powers[2], kInfinity) << beyond << "^" << n;
            EXPECT_EQ(powers[3], sign * kInfinity) << -beyond << "^" << n;
            const double exponent = n;
            const auto general =
                Compute(table, OpCode::Power, bases, std::vector<double>(4, exponent));
            EXPECT_EQ(general, powers) << last << "^" << n << " by the general kernel";
        }
    });
}

TEST(KernelEnds, OfIntegralPowersHaveTheirDigits) {
    std::mt19937_64 generator(91);
    std::uniform_real_distribution<double> logarithm(690.0, 709.7);
    ForEachTable([&](const KernelTable& table) {
        for (int n = kFirstFixedPower; n <= kLargestIntegerPower; n += 7) {
            std::vector<double> bases(8);
            for (double& base : bases)
                base = std::exp(logarithm(generator) / n);
            const auto powers = Compute(table, OpCode::IntegerPower, bases, {}, n);
            for (std::size_t i = 0; i < bases.size(); ++i) {
                const auto ofBase = Log(DoubleDouble{bases[i]});
                const auto exponent = ofBase * (static_cast<double>(n));
                const double expected = ToDouble(Exp(exponent));
                EXPECT_LE(Units(powers[i], expected), 1.0) << bases[i] << "^" << n;
            }
        }
    });
}

/// Ordinary arguments, and among them some for which a kernel uses another method.
std::vector<double> Ends(OpCode op, std::mt19937_64& generator) {
    std::uniform_real_distribution<double> part(0.0, 1.0);
    std::vector<double> xs(2048);
    for (double& x : xs) {
        const double u = part(generator);
        const double sign = part(generator) < 0.5 ? -1.0 : 1.0;
        if (op == kTh) x = sign * (18 + 1.5 * u);
        if (op == kGamma) x = part(generator) < 0.5 ? -186 + 17 * u : 171.7 * u;
        if (op == kExp || op == kSh || op == kCh) x = sign * (705 + 6 * u);
        if (part(generator) < 0.2) x = 20 * u;
    }
    return xs;
}

void ExpectSameBits(const std::vector<double>& a, const std::vector<double>& b,
                    const std::vector<double>& xs, const char* name) {
    for (std::size_t i = 0; i < a.size(); ++i) {
        const bool same =
            std::memcmp(&a[i], &b[i], 8) == 0 || (std::isnan(a[i]) && std::isnan(b[i]));
        ASSERT_TRUE(same) << name << " at " << xs[i] << ": " << a[i] << ", " << b[i];
    }
}

/// The result of a whole array against that of each lane alone, and against every other table with
/// fused multiply-add.
void ExpectEqualBits(OpCode op, const std::vector<double>& a, const std::vector<double>& b,
                     const char* name) {
    const KernelTables available = AvailableKernelTables();
    const auto best = Compute(*available.tables[0], op, a, b);
    ForEachTable([&](const KernelTable& table) {
        const auto all = Compute(table, op, a, b);
        if (std::string(table.name) != "baseline") ExpectSameBits(best, all, a, name);
        std::vector<double> alone;
        for (std::size_t i = 0; i < a.size(); ++i)
            alone.push_back(Compute(table, op, {a[i]}, {b[i]})[0]);
        ExpectSameBits(all, alone, a, name);
    });
}

TEST(KernelEnds, HaveTheSameBitsInEveryLaneAndTable) {
    std::mt19937_64 generator(3);
    const struct {
        OpCode op;
        const char* name;
    } functions[] = {{kExp, "exp"}, {kSh, "sh"}, {kCh, "ch"}, {kTh, "th"}, {kGamma, "Gamma"}};
    for (const auto& function : functions) {
        const auto xs = Ends(function.op, generator);
        ExpectEqualBits(function.op, xs, xs, function.name);
    }
    std::uniform_real_distribution<double> logarithm(-740.0, 740.0);
    std::uniform_real_distribution<double> ofPower(709.5, 710.0);
    std::vector<double> bases(2048);
    std::vector<double> exponents(bases.size());
    std::vector<double> arguments(bases.size());
    for (std::size_t i = 0; i < bases.size(); ++i) {
        bases[i] = i % 3 == 0 ? 2.0 + static_cast<double>(i) : std::exp(logarithm(generator));
        exponents[i] = ofPower(generator) / std::log(bases[i]);
        if (i % 5 == 0) exponents[i] = std::round(exponents[i]);
        arguments[i] =
            i % 4 == 0 ? 1 + 1e-9 * logarithm(generator) : std::exp(logarithm(generator));
    }
    ExpectEqualBits(OpCode::Power, bases, exponents, "power");
    ExpectEqualBits(FunctionOp(FunctionNumber::Log), bases, arguments, "log");
}

}  // namespace
}  // namespace kalvex
