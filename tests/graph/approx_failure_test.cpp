#include "graph/approx_failure.h"

#include <gtest/gtest.h>

#include "interp/approximation.h"

namespace kalvex {
namespace {

ApproxFailure FailureOf(int slot, const ApproxParameters& parameters, std::vector<double> x) {
    const std::vector<double> y(x.size(), 1.0);
    Approximation approximation = SetUpApproximation(x, y, parameters);
    double value = 0.0;
    const double at = 0.5;
    EvaluateApproximation(approximation, {&at, 1}, {&value, 1});
    return {slot, approximation.failure.value()};
}

TEST(ApproxFailure, WritesTheLinesOfEachFunction) {
    EXPECT_EQ(FailureLines({}), "");
    const ApproxFailure failures[] = {FailureOf(0, {9}, {0, 1, 2, 3}), FailureOf(4, {1}, {2, 2})};
    EXPECT_EQ(FailureLines(failures),
              "\nSPLINE_QUADRATIC_VAL - Fatal error!\n  NDATA must be odd.\n"
              "\nDATA_TO_DIF - Fatal error!\n  Two entries of XTAB are equal!\n"
              "  XTAB[%d] = 2\n  XTAB[%d] = 2\n");
}

TEST(ApproxFailure, ShowsOneBoxForAllFunctions) {
    EXPECT_TRUE(FailureBoxes({}).empty());
    const ApproxFailure failures[] = {FailureOf(0, {9}, {0, 1, 2, 3}), FailureOf(8, {5}, {0, 1})};
    const std::vector<MessageBox> boxes = FailureBoxes(failures);
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].caption, u"Warning!");
    EXPECT_EQ(boxes[0].text,
              u"In function 1:\nThe quadratic spline needs an odd number of points.\n\n"
              u"In function 9:\nThe Overhauser splines need at least three points.");
    EXPECT_EQ(boxes[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(boxes[0].buttons, MessageButtons::Ok);
}

TEST(ApproxFailure, ShowsTheBoxOfLeastSquaresFirst) {
    const ApproxFailure failures[] = {FailureOf(2, {0, 3}, {1, 1, 2})};
    const std::vector<MessageBox> boxes = FailureBoxes(failures);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].caption, u"error");
    EXPECT_EQ(boxes[0].text, u"LEAST_SET - Fatal error!");
    EXPECT_EQ(boxes[0].icon, MessageIcon::None);
    EXPECT_EQ(boxes[1].text,
              u"In function 3:\nThe least squares polynomial has more terms than the file has "
              u"different x values.");
}

TEST(ApproxFailure, HasAReasonForEveryCondition) {
    for (int id = static_cast<int>(StringId::QuadraticTooFew);
         id <= static_cast<int>(StringId::TooMuchWork); ++id)
        EXPECT_TRUE(Text(static_cast<StringId>(id)).ends_with(u'.')) << id;
}

}  // namespace
}  // namespace kalvex
