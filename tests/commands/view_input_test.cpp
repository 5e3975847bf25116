#include "commands/view_input.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

using Bounds = std::array<std::u16string, 4>;

TEST(ReadBounds, TakesFiniteNumbersThatDiffer) {
    const struct {
        Bounds texts;
        std::array<double, 4> bounds;
    } rows[] = {
        {{u"-1", u"2", u"-3.5", u"4e2"}, {-1, 2, -3.5, 400}},
        {{u"5", u"-5", u"1", u"0"}, {5, -5, 1, 0}},
        {{u"  1 ", u"\t2\u00a0", u".5", u"7."}, {1, 2, 0.5, 7}},
        {{u"-1e300", u"1e300", u"1e-300", u"2e-300"}, {-1e300, 1e300, 1e-300, 2e-300}},
        {{u"1e-999", u"1", u"-1.7976931348623157e308", u"+0"}, {0, 1, -1.7976931348623157e308, 0}},
    };
    for (const auto& row : rows) {
        ViewWindow view;
        EXPECT_FALSE(ReadBounds(row.texts, view).has_value());
        EXPECT_EQ((std::array{view.Xmin, view.Xmax, view.Ymin, view.Ymax}), row.bounds);
    }
}

TEST(ReadBounds, RefusesAndSaysWhy) {
    const struct {
        Bounds texts;
        std::size_t field;
        std::u16string_view message;
    } rows[] = {
        {{u"", u"1", u"2", u"3"}, 0, u"X minimum is not a number."},
        {{u"0", u"1x", u"2", u"3"}, 1, u"X maximum is not a number."},
        {{u"0", u"1", u"1,5", u"3"}, 2, u"Y minimum is not a number."},
        {{u"0", u"1", u"2", u"nan"}, 3, u"Y maximum is not a number."},
        {{u"inf", u"1", u"2", u"3"}, 0, u"X minimum is not a number."},
        {{u"1 2", u"1", u"2", u"3"}, 0, u"X minimum is not a number."},
        {{u"0", u"1e999", u"2", u"3"}, 1, u"X maximum is too large."},
        {{u"0", u"1", u"-1e309", u"3"}, 2, u"Y minimum is too large."},
        {{u"4", u"4.0", u"2", u"3"}, 1, u"X minimum and X maximum must differ."},
        {{u"4", u"5", u"-0", u"0"}, 3, u"Y minimum and Y maximum must differ."},
        {{u"1e-400", u"0", u"1", u"2"}, 1, u"X minimum and X maximum must differ."},
    };
    for (const auto& row : rows) {
        ViewWindow view;
        const std::optional<InputProblem> problem = ReadBounds(row.texts, view);
        ASSERT_TRUE(problem.has_value());
        EXPECT_EQ(problem->field, row.field);
        EXPECT_EQ(problem->message, row.message);
        EXPECT_EQ(view.Xmin, -10) << "nothing is taken";
        EXPECT_EQ(view.Xmax, 10);
        EXPECT_EQ(view.Ymin, -10);
        EXPECT_EQ(view.Ymax, 10);
    }
}

TEST(ReadFactors, TakesFiniteNumbersAboveZero) {
    ViewWindow view;
    EXPECT_FALSE(ReadFactors({u"1e-3", u" 3.5"}, view).has_value());
    EXPECT_EQ(view.Xfactor, 1e-3);
    EXPECT_EQ(view.Yfactor, 3.5);
}

TEST(ReadFactors, RefusesEverythingElse) {
    for (const char16_t* const text :
         {u"", u"0", u"-0", u"-2", u"1e999", u"1e-999", u"two", u"1,5", u"nan", u"inf"}) {
        ViewWindow view;
        std::optional<InputProblem> problem = ReadFactors({text, u"2"}, view);
        ASSERT_TRUE(problem.has_value());
        EXPECT_EQ(problem->field, 0u);
        EXPECT_EQ(problem->message, u"X factor must be a number greater than 0.");
        problem = ReadFactors({u"3", text}, view);
        ASSERT_TRUE(problem.has_value());
        EXPECT_EQ(problem->field, 1u);
        EXPECT_EQ(problem->message, u"Y factor must be a number greater than 0.");
        EXPECT_EQ(view.Xfactor, 2);
    }
}

}  // namespace
}  // namespace kalvex
