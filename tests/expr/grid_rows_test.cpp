#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "base/encoding.h"
#include "expr/evaluator.h"
#include "random_expression.h"

namespace kalvex {
namespace {

void ExpectRowsLikePoints(const std::u16string& text, const std::vector<double>& xs) {
    const CompiledExpression expression = CompileExpression(text);
    const auto rows = PrepareGridRows(expression, xs);
    std::vector<double> values(xs.size());
    for (const double y : {-1.5, 0.0, 0.25, 2.0}) {
        EvaluateGridRow(*rows, y, values);
        for (std::size_t i = 0; i < xs.size(); ++i) {
            EvalError = 0;
            double expected = EvaluateExpression(expression, xs[i], y);
            if (EvalError != 0) expected = UndefinedValue;
            // Equality takes the two zeros for one; nothing else with other bits is equal.
            const bool same =
                values[i] == expected || (std::isnan(values[i]) && std::isnan(expected));
            ASSERT_TRUE(same) << ToUtf8(text) << " at (" << xs[i] << ", " << y << "): " << values[i]
                              << " against " << expected;
        }
    }
}

std::vector<double> Abscissas(std::size_t count) {
    std::vector<double> xs(count);
    for (std::size_t i = 0; i < count; ++i)
        xs[i] = -2.0 + 0.25 * static_cast<double>(i);
    return xs;
}

TEST(GridRows, AgreeWithPointsBitForBit) {
    const std::u16string texts[] = {
        u"x*0+x^2+y^2-4",
        u"x*0+1/x+1/y",
        u"x*0+ln(x)*ln(y)",
        u"x*0+5",
        u"x*0+y",
        u"y",
        u"x",
        u"7",
        u"ln(y)",
        u"ln(x)",
        u"1/(x-y)",
        u"sin(x)*cos(y)-0.3",
        u"x*y*x*y",
        u"Si(x)+Si(y)",
        u"(x+y)^(x-y)",
        u"x/0+y",
        u"x+y/0",
        u"x+",
    };
    for (const std::u16string& text : texts) {
        ExpectRowsLikePoints(text, Abscissas(17));
        ExpectRowsLikePoints(text, Abscissas(1));
    }
    testing_support::Generator generator(5);
    for (int i = 0; i < 400; ++i) {
        const std::string text = testing_support::RandomExpression(generator, 3, true);
        ExpectRowsLikePoints(u"x*0+" + Widen(text), Abscissas(19));
    }
}

TEST(GridRows, KeepTheZeroTermWhereItIsNotZero) {
    const double infinity = std::numeric_limits<double>::infinity();
    ExpectRowsLikePoints(u"x*0+y", {1.0, infinity, -infinity});
    ExpectRowsLikePoints(u"x*0+y", {1.0, std::numeric_limits<double>::quiet_NaN()});
}

TEST(HasSignChange, FindsProductsThatAreNotPositive) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (std::size_t count = 0; count < 40; ++count) {
        std::vector<double> a(count, 2.0);
        std::vector<double> b(count, 3.0);
        EXPECT_FALSE(HasSignChange(a.data(), b.data(), count));
        for (std::size_t at = 0; at < count; ++at) {
            for (const double value : {-1.0, 0.0, -0.0}) {
                b[at] = value;
                EXPECT_TRUE(HasSignChange(a.data(), b.data(), count)) << at << " of " << count;
            }
            b[at] = nan;
            EXPECT_FALSE(HasSignChange(a.data(), b.data(), count));
            b[at] = 3.0;
        }
    }
}

TEST(GridRows, TakeNoAbscissas) {
    const auto rows = PrepareGridRows(CompileExpression(u"x+y"), {});
    EvaluateGridRow(*rows, 1.0, {});
    EXPECT_NE(rows, nullptr);
}

}  // namespace
}  // namespace kalvex
