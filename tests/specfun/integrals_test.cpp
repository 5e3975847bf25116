// accuracy_tests holds the values to their goals. Tested here are the ends of the range, the
// symmetries and arguments that the language never passes.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kLeast = std::numeric_limits<double>::denorm_min();

using Function = double (*)(double);

TEST(ExponentialIntegral, BelowZero) {
    constexpr double kMost = 4e-15;
    const struct {
        double x, expected;
    } rows[] = {
        {-0.01, -4.0379295765381138112},   {-0.5, -0.55977359477616081175},
        {-0.999, -0.21975218202294454114}, {-1, -0.21938393439552027368},
        {-1.5, -0.1000195824066326519},    {-5, -0.0011482955912753257973},
        {-30, -3.0215520106888125448e-15}, {-700, -1.4065187662340329228e-307},
    };
    for (const auto& [x, expected] : rows)
        EXPECT_NEAR(Ei(x), expected, kMost * std::fabs(expected)) << x;
}

TEST(Integrals, KeepNotANumber) {
    for (const Function f :
         {Si, Ci, Shi, Chi, Ei, Li, DawsonF, FresnelS, FresnelC, AiryAi, AiryBi, Psi})
        EXPECT_TRUE(std::isnan(f(kNan)));
}

TEST(Integrals, EndsOfTheRange) {
    const double halfPi = std::acos(0.0);
    const struct {
        const char* call;
        double value;
        double expected;
    } rows[] = {
        {"Si(inf)", Si(kInfinity), halfPi},
        {"Si(-inf)", Si(-kInfinity), -halfPi},
        {"Si(largest)", Si(kLargest), halfPi},
        {"Si(-largest)", Si(-kLargest), -halfPi},
        {"Si(least)", Si(kLeast), kLeast},
        {"Ci(0)", Ci(0), -kInfinity},
        {"Ci(inf)", Ci(kInfinity), 0},
        {"Ci(-inf)", Ci(-kInfinity), 0},
        {"Shi(inf)", Shi(kInfinity), kInfinity},
        {"Shi(-inf)", Shi(-kInfinity), -kInfinity},
        {"Shi(-least)", Shi(-kLeast), -kLeast},
        {"Chi(0)", Chi(0), -kInfinity},
        {"Chi(-inf)", Chi(-kInfinity), kInfinity},
        {"Ei(0)", Ei(0), -kInfinity},
        {"Ei(717)", Ei(717), kInfinity},
        {"Ei(inf)", Ei(kInfinity), kInfinity},
        {"Ei(-inf)", Ei(-kInfinity), 0},
        {"Li(1)", Li(1), -kInfinity},
        {"Li(inf)", Li(kInfinity), kInfinity},
        {"DawsonF(inf)", DawsonF(kInfinity), 0},
        {"DawsonF(-least)", DawsonF(-kLeast), -kLeast},
        {"S(inf)", FresnelS(kInfinity), 0.5},
        {"S(-inf)", FresnelS(-kInfinity), -0.5},
        {"S(least)", FresnelS(kLeast), 0},
        {"C(largest)", FresnelC(kLargest), 0.5},
        {"C(-inf)", FresnelC(-kInfinity), -0.5},
        {"C(least)", FresnelC(kLeast), kLeast},
        {"Ai(inf)", AiryAi(kInfinity), 0},
        {"Ai(-inf)", AiryAi(-kInfinity), 0},
        {"Ai(110)", AiryAi(110), 0},
        {"Bi(inf)", AiryBi(kInfinity), kInfinity},
        {"Bi(-inf)", AiryBi(-kInfinity), 0},
        {"Bi(105)", AiryBi(105), kInfinity},
        {"Psi(inf)", Psi(kInfinity), kInfinity},
        {"Psi(least)", Psi(kLeast), -kInfinity},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.value, row.expected) << row.call;
}

TEST(Integrals, OddAndEven) {
    for (const double x :
         {1e-300, 1e-9, 0.3, 1.2, 1.6, 2.0, 3.0, 5.0, 9.0, 47.0, 90.0, 1e6, 1e20}) {
        for (const Function f : {Si, Shi, DawsonF, FresnelS, FresnelC})
            EXPECT_EQ(f(-x), -f(x)) << x;
        for (const Function f : {Ci, Chi})
            EXPECT_EQ(f(-x), f(x)) << x;
    }
}

/// At each seam between two methods the values on both sides must continue each other.
TEST(Integrals, NoJumpAtASeam) {
    const struct {
        const char* name;
        Function f;
        double at;
    } rows[] = {
        {"Si", Si, 1e-08},
        {"Si", Si, 0.5},
        {"Si", Si, 1.25},
        {"Si", Si, 4},
        {"Si", Si, 8},
        {"Si", Si, 64},
        {"Si", Si, 1e20},
        {"Ci", Ci, 0.5},
        {"Ci", Ci, 0.625},
        {"Ci", Ci, 1.5},
        {"Ci", Ci, 3},
        {"Ci", Ci, 4},
        {"Ci", Ci, 64},
        {"Shi", Shi, 0.5},
        {"Shi", Shi, 1.75},
        {"Shi", Shi, 4},
        {"Shi", Shi, 7},
        {"Shi", Shi, 32},
        {"Chi", Chi, 0.5},
        {"Chi", Chi, 0.625},
        {"Chi", Chi, 4},
        {"Chi", Chi, 10},
        {"Chi", Chi, 32},
        {"Ei", Ei, 0.25},
        {"Ei", Ei, 0.375},
        {"Ei", Ei, 1},
        {"Ei", Ei, 4},
        {"Ei", Ei, 448},
        {"Li", Li, 1.2840254166877414},
        {"Li", Li, 1.455},
        {"Li", Li, 54.598150033144236},
        {"Li", Li, 2980.9579870417283},
        {"DawsonF", DawsonF, 0.5},
        {"DawsonF", DawsonF, 1},
        {"DawsonF", DawsonF, 5},
        {"DawsonF", DawsonF, 16},
        {"DawsonF", DawsonF, 1000000000.0},
        {"S", FresnelS, 0.5},
        {"S", FresnelS, 1.5},
        {"S", FresnelS, 6},
        {"S", FresnelS, 8},
        {"C", FresnelC, 0.5},
        {"C", FresnelC, 1.5},
        {"C", FresnelC, 6},
        {"C", FresnelC, 8},
        {"Ai", AiryAi, -16},
        {"Ai", AiryAi, -8},
        {"Ai", AiryAi, -4},
        {"Ai", AiryAi, -1.875},
        {"Ai", AiryAi, -1.125},
        {"Ai", AiryAi, -0.5},
        {"Ai", AiryAi, 0.5},
        {"Ai", AiryAi, 1.25},
        {"Ai", AiryAi, 2.5},
        {"Bi", AiryBi, -16},
        {"Bi", AiryBi, -8},
        {"Bi", AiryBi, -4},
        {"Bi", AiryBi, -1.875},
        {"Bi", AiryBi, -0.5},
        {"Bi", AiryBi, 0.5},
        {"Bi", AiryBi, 1.25},
        {"Bi", AiryBi, 2.25},
        {"Bi", AiryBi, 3.375},
        {"Psi", Psi, -1.25},
        {"Psi", Psi, -0.5},
        {"Psi", Psi, 0.5},
        {"Psi", Psi, 1},
        {"Psi", Psi, 1.5},
        {"Psi", Psi, 2},
        {"Psi", Psi, 16},
    };
    for (const auto& row : rows) {
        const double step = row.at == 0 ? kLeast : 0;
        const double before = row.f(step != 0 ? -step : std::nextafter(row.at, -kInfinity));
        const double behind = row.f(std::nextafter(row.at, kInfinity));
        const double rate =
            std::fabs(row.at * (row.f(row.at + 1e-6) - row.f(row.at - 1e-6)) / 2e-6);
        EXPECT_NEAR(before, behind, 3e-16 * (3 * std::fabs(behind) + 2 * rate))
            << row.name << " at " << row.at;
    }
}

TEST(Integrals, ReportWhatHasNoValue) {
    EXPECT_THROW(static_cast<void>(Li(0)), ap::ap_error);
    EXPECT_THROW(static_cast<void>(Li(-1)), ap::ap_error);
    for (const double x : {0.0, -1.0, -20.0, -1e300}) {
        try {
            static_cast<void>(Psi(x));
            ADD_FAILURE() << x;
        } catch (const ap::ap_error& error) {
            EXPECT_EQ(error.msg, "Singularity in Psi(x)");
        }
    }
}

}  // namespace
}  // namespace kalvex::specfun
