#include "analysis/integral.h"

#include <gtest/gtest.h>

#include "analysis/analysis_fixtures.h"

namespace kalvex {
namespace {

using fixtures::At;

TEST(IntegrateSamples, SumsTrapezoids) {
    const struct {
        std::vector<CurveSample> samples;
        double value;
        bool undefined;
    } rows[] = {
        {{}, 0.0, false},
        {{At(1, 5)}, 0.0, false},
        {{At(1, 5, 0, 2)}, 0.0, false},
        {{At(0, 1), At(2, 1), At(4, 1)}, 4.0, false},
        {{At(0, 0), At(1, 1), At(2, 4)}, 3.0, false},
        {{At(4, 1), At(2, 1), At(0, 1)}, -4.0, false},  // a mirrored window
        // The step of the first panel is used for all panels.
        {{At(0, 1), At(1, 1), At(11, 1)}, 2.0, false},
        {{At(0, 1), At(0, 1), At(5, 1)}, 0.0, false},
        // Only the left sample of a panel is tested.
        {{At(0, 1), At(1, 1), At(2, 9, 0, 2), At(3, 1)}, 6.0, true},
        {{At(0, 1, 0, 2), At(1, 1)}, 0.0, true},
        {{At(0, 1), At(1, 3, 0, 2)}, 2.0, false},
    };
    for (const auto& row : rows) {
        const SampledIntegral integral = IntegrateSamples(row.samples);
        EXPECT_EQ(integral.value, row.value) << row.samples.size();
        EXPECT_EQ(integral.undefined, row.undefined) << row.samples.size();
    }
}

TEST(IntegrateSamples, OfOneIsTheWidthOfTheSamples) {
    const fixtures::DrawnLine drawn =
        fixtures::Draw(EquationType::Decart, u"1", {0, 10, -10, 10, 240, 268});
    const auto& samples = drawn.functions[0].samples;
    ASSERT_EQ(samples.size(), 240U);
    const double step = samples[1].x - samples[0].x;
    EXPECT_NEAR(IntegrateSamples(samples).value, 239.0 * step, 1e-12);
}

TEST(IntegrateSamples, OfALogarithmFromBelowZeroIsNotDefined) {
    const fixtures::DrawnLine drawn = fixtures::Draw(EquationType::Decart, u"ln(x)", {-1, 1});
    const SampledIntegral integral = IntegrateSamples(drawn.functions[0].samples);
    EXPECT_TRUE(integral.undefined);
    EXPECT_EQ(integral.value, 0.0);
}

}  // namespace
}  // namespace kalvex
