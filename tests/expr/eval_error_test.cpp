#include "expr/eval_error.h"

#include <gtest/gtest.h>

#include <limits>
#include <thread>
#include <vector>

#include "base/encoding.h"

namespace kalvex {
namespace {

struct Row {
    std::int32_t code;
    const char* title;
    const char* message;
};

constexpr const char* kLogarithm = "The logarithm of a negative argument is not specified";
constexpr const char* kBessel =
    "Bessel function is not defined in the negative numbers of the second argument and the first "
    "non-integer";
constexpr const char* kModified =
    "Modified Bessel function is not defined in non-positive numbers of the second argument and "
    "negative first";

constexpr Row kRows[] = {
    {1, "Devide error", "Division by 0 not allowed"},
    {2, "Pow error", "Fractional degree is defined only on nonnegative numbers"},
    {3, "ln error", kLogarithm},
    {4, "lg error", kLogarithm},
    {5, "acos error", "acos is defined on the interval [-1,1]"},
    {6, "asin error", "asin is defined on the interval [-1,1]"},
    {7, "Ci error", "The function Ci is not defined at zero"},
    {8, "Chi error", "The function Chi is not defined at zero"},
    {9, "Psi error", "The function Psi is not defined in the negative integers"},
    {10, "Ei error", "The function Ei is defined only on nonnegative numbers"},
    {11, "Beta error", "Beta function of a negative argument is not specified"},
    {12, "J error", kBessel},
    {13, "Y error", kBessel},
    {14, "K error", kModified},
    {15, "I error", kModified},
    {16, "Hyper error", "Hypergeometric function is defined on the interval [-1,1]"},
    {17, "log error", kLogarithm},
    {18, "Cheb error",
     "Cheb first argument should be either 1 or 2, the second must be an integer, the third should "
     "be in the range [-1, 1]"},
    {19, "Hi error", "Hi first argument should be an integer non-negative number"},
    {20, "Lag error", "Lag first argument should be a positive integer"},
    {21, "Leg error",
     "First argument Leg must be a positive integer, the second should be from the interval [-1, "
     "1]"},
    {1000, "Interpolation error", "When linear interpolation, extrapolation is impossible"},
};

struct Description {
    std::u16string title = u"old title";
    std::u16string message = u"old message";
    std::vector<MessageBox> boxes;
};

Description Describe(std::int32_t code) {
    Description d;
    DescribeEvalError(code, d.title, d.message, [&d](const MessageBox& box) {
        d.boxes.push_back(box);
        return MessageAnswer::Ok;
    });
    return d;
}

TEST(EvalError, DescribesEachCode) {
    for (const Row& row : kRows) {
        const Description d = Describe(row.code);
        EXPECT_EQ(ToUtf8(d.title), row.title);
        EXPECT_EQ(ToUtf8(d.message), row.message) << row.code;
        EXPECT_TRUE(d.boxes.empty()) << row.code;
    }
}

TEST(EvalError, ShowsUnknownCodesAndKeepsTheMessage) {
    for (const std::int32_t code :
         {0, -1, 22, 999, 1001, std::numeric_limits<std::int32_t>::min()}) {
        const Description d = Describe(code);
        EXPECT_EQ(ToUtf8(d.title), "Unknown error");
        EXPECT_EQ(ToUtf8(d.message), "old message");
        ASSERT_EQ(d.boxes.size(), 1U);
        EXPECT_EQ(ToUtf8(d.boxes[0].caption), "батарея " + std::to_string(code));
        EXPECT_EQ(ToUtf8(d.boxes[0].text), "RegOpenKeyEx");
        EXPECT_EQ(d.boxes[0].icon, MessageIcon::None);
        EXPECT_EQ(d.boxes[0].buttons, MessageButtons::Ok);
    }
}

TEST(EvalError, NeedsNobodyToShowABox) {
    std::u16string title;
    std::u16string message = u"old message";
    DescribeEvalError(77, title, message, nullptr);
    EXPECT_EQ(ToUtf8(title), "Unknown error");
    EXPECT_EQ(ToUtf8(message), "old message");
}

TEST(EvalError, BelongsToItsThread) {
    EvalError = 5;
    std::int32_t other = -1;
    std::thread([&other] {
        other = EvalError;
        EvalError = 9;
    }).join();
    EXPECT_EQ(other, 0);
    EXPECT_EQ(EvalError, 5);
    EvalError = 0;
}

}  // namespace
}  // namespace kalvex
