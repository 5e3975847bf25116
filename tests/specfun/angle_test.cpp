// Reference values: 80 digits by mpmath, split into two doubles.
#include "specfun/polynomials/angle.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kalvex::specfun {
namespace {

/// |a - b| <= bound |b|.
void ExpectClose(DoubleDouble a, DoubleDouble b, double bound, const char* what, double at) {
    EXPECT_LE(std::fabs((a - b).high), bound * std::fabs(b.high))
        << what << " at " << at << ": " << a.high << " + " << a.low << ", expected " << b.high
        << " + " << b.low;
}

TEST(Angle, OfACosine) {
    const struct {
        double x;
        int quarters;
        DoubleDouble rest;
        DoubleDouble sine;
    } rows[] = {
        {1e-300, 1, {-1e-300, 0.0}, {1.0, 0.0}},
        {1e-5,
         1,
         {-1.0000000000166668e-05, 6.182252729529485e-22},
         {0.99999999995, 4.135768541774151e-18}},
        {0.25,
         1,
         {-0.25268025514207865, -6.584019697419058e-18},
         {0.9682458365518543, -3.40525771686592e-17}},
        {0.7,
         1,
         {-0.775397496610753, -3.395027444633425e-17},
         {0.7141428428542851, -4.369925361283289e-17}},
        {0.7000000000000001,
         0,
         {0.7953988301841435, -1.715795104764548e-17},
         {0.714142842854285, -4.150057446515342e-17}},
        {0.9,
         0,
         {0.45102681179626236, 2.0305914376241248e-17},
         {0.43588989435406733, -2.1595443708134054e-17}},
        {0.9999999999999999,
         0,
         {1.4901161193847656e-08, 1.378634354255046e-25},
         {1.4901161193847656e-08, -4.1359030627651384e-25}},
        {1, 0, {0.0, 0.0}, {0.0, 0.0}},
    };
    for (const auto& row : rows) {
        const Angle angle = AngleOf(row.x);
        EXPECT_EQ(angle.quarters, row.quarters) << row.x;
        ExpectClose(angle.rest, row.rest, 0x1p-103, "rest", row.x);
        ExpectClose(angle.sine, row.sine, 0x1p-103, "sine", row.x);
    }
}

TEST(Angle, HyperbolicOfACosine) {
    const struct {
        double x;
        DoubleDouble angle;
        DoubleDouble sine;
    } rows[] = {
        {1, {0.0, 0.0}, {0.0, 0.0}},
        {1.0000000000000002,
         {2.1073424255447014e-08, 1.478246810224244e-24},
         {2.1073424255447017e-08, -2.707289189150986e-25}},
        {1.1,
         {0.4435682543851154, 3.7701489292566654e-18},
         {0.4582575694955842, -2.1892013498209098e-18}},
        {10,
         {2.993222846126381, 1.1064435035101492e-16},
         {9.9498743710662, 1.1739767929486026e-16}},
        {1e30, {69.77069997038132, 5.252114779688569e-16}, {1e+30, -4.9999999999999995e-31}},
    };
    for (const auto& row : rows) {
        const HyperbolicAngle result = HyperbolicAngleOf(row.x);
        ExpectClose(result.angle, row.angle, 0x1p-90, "angle", row.x);
        ExpectClose(result.sine, row.sine, 0x1p-102, "sine", row.x);
    }
}

TEST(Angle, CosineAndSineOfPhases) {
    const struct {
        double phase;
        int quarters;
        DoubleDouble cosine;
        DoubleDouble sine;
    } rows[] = {
        {0, 2, {-1.0, 0.0}, {0.0, 0.0}},
        {1e-300, 0, {1.0, 0.0}, {1e-300, 0.0}},
        {0.5,
         0,
         {0.8775825618903728, -4.2623149864279997e-17},
         {0.479425538604203, -5.103969860556013e-18}},
        {0.78,
         1,
         {-0.7032794192004101, -5.363975116463942e-17},
         {0.7109135380122773, 3.667412669706698e-17}},
        {-0.5,
         2,
         {-0.8775825618903728, 4.2623149864279997e-17},
         {0.479425538604203, -5.103969860556013e-18}},
        {100,
         3,
         {-0.5063656411097588, -3.050947053792115e-18},
         {-0.8623188722876839, -4.334809858136501e-17}},
        {1e9,
         0,
         {0.8378871813639024, -5.4718713289282437e-17},
         {0.5458434494486996, 6.1757333566640775e-18}},
        {5e15,
         1,
         {0.901711760523585, -4.753982212027478e-17},
         {-0.432337716297638, 1.78498490355577e-17}},
        {-9007199254740992.0,
         0,
         {-0.5285117844130887, -3.5407039616510736e-17},
         {0.848925964814655, 1.208317900745565e-17}},
    };
    for (const auto& row : rows) {
        const double bound = 0x1p-58 + 0x1p-104 * std::fabs(row.phase);
        const auto [cosine, sine] = CosineSineAt({row.phase, 0}, row.quarters);
        ExpectClose(cosine, row.cosine, bound, "cosine", row.phase);
        ExpectClose(sine, row.sine, bound, "sine", row.phase);
    }
}

TEST(Angle, QuartersOfHugeNumbers) {
    const struct {
        double n;
        int expected;
    } rows[] = {{0, 0}, {7, 3}, {0x1p53 - 1, 3}, {0x1p53 + 2, 2}, {1e300, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(QuartersOf(row.n), row.expected) << row.n;
}

}  // namespace
}  // namespace kalvex::specfun
