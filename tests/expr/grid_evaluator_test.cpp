#include "expr/grid_evaluator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "base/encoding.h"
#include "random_expression.h"

namespace kalvex {
namespace {

const std::vector<double> kOrdinates = {-1.5, 0.0, 0.25, 2.0, 700.0};

void ExpectRowLikePoints(const CompiledExpression& expression, Grid& grid,
                         const std::vector<double>& xs, std::size_t row) {
    for (const std::size_t first : {std::size_t{0}, xs.size() / 3}) {
        const std::size_t count = xs.size() - first;
        std::vector<double> values(count + 8);
        EvaluateGridRow(grid, row, first, count, values.data());
        for (std::size_t i = 0; i < count; ++i) {
            EvalError = 0;
            double expected = EvaluateExpression(expression, xs[first + i], kOrdinates[row]);
            if (EvalError != 0) expected = UndefinedValue;
            // A zero may have the other sign; == treats the two zeros as equal, and no other values
            // that differ in a bit.
            const bool same =
                values[i] == expected || (std::isnan(values[i]) && std::isnan(expected));
            ASSERT_TRUE(same) << " at (" << xs[first + i] << ", " << kOrdinates[row]
                              << "): " << values[i] << " against " << expected;
        }
    }
}

/// Checks that every value lies within the bounds of its tile, if the tile has bounds.
void ExpectBoundsHold(Grid& grid, const std::vector<double>& xs) {
    std::vector<double> values(xs.size() + 8);
    for (std::size_t first = 0; first < kOrdinates.size(); ++first) {
        const auto bounds = GridTileBounds(grid, first, kOrdinates.size() - first);
        ASSERT_EQ(bounds.size(), (xs.size() + kTileColumns - 1) / kTileColumns);
        for (std::size_t row = first; row < kOrdinates.size(); ++row) {
            EvaluateGridRow(grid, row, 0, xs.size(), values.data());
            for (std::size_t i = 0; i < xs.size(); ++i) {
                const auto& tile = bounds[i / kTileColumns];
                if (!tile || std::isnan(values[i])) continue;
                ASSERT_LE(tile->low, values[i]) << " at (" << xs[i] << ", " << kOrdinates[row];
                ASSERT_GE(tile->high, values[i]) << " at (" << xs[i] << ", " << kOrdinates[row];
            }
        }
    }
}

void ExpectRowsLikePoints(const std::u16string& text, const std::vector<double>& xs) {
    SCOPED_TRACE(ToUtf8(text));
    const CompiledExpression expression = CompileExpression(text);
    const auto grid = PrepareGrid(expression, xs, kOrdinates);
    for (std::size_t row = 0; row < kOrdinates.size(); ++row) {
        ExpectRowLikePoints(expression, *grid, xs, row);
    }
    ExpectBoundsHold(*grid, xs);
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
        u"Psi(x+y)",
        u"1/Psi(x-y)",
        u"J(2,y)*x",
        u"Psi(y)+Psi(x)",
        u"J(x+y,y)",
        u"(x+y)^(x-y)",
        u"x/0+y",
        u"x+y/0",
        u"x+",
    };
    for (const std::u16string& text : texts) {
        ExpectRowsLikePoints(text, Abscissas(150));
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

TEST(GridRows, HoldTheirBoundsAtTheEndsOfTheRange) {
    const std::vector<double> xs = {-1e308,
                                    -710.4758600739439,
                                    -19.0615,
                                    -1e-320,
                                    0.0,
                                    5e-324,
                                    18.715,
                                    308.254715,
                                    709.78,
                                    709.7827128,
                                    709.782712893384,
                                    710.4758600739439,
                                    1e154,
                                    1e200,
                                    1.7976931348623157e308};
    for (const std::u16string_view text :
         {u"exp(x)*y", u"exp(x)-exp(y+9.7827128)", u"10^x+y", u"sh(x)*y-ch(x)", u"th(x)*y",
          u"th(x+y)-1", u"x^3*y", u"(x*y)^2", u"x^13+y", u"log(2,abs(x)+1)*y", u"erf(x-y)",
          u"1/(exp(x)+y+2)", u"abs(x*y)^0.5", u"int(exp(x)*y)"}) {
        ExpectRowsLikePoints(std::u16string(text), xs);
    }
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

TEST(GridTileBounds, AreTightWhereTheyCanBe) {
    const auto boundsOf = [](std::u16string_view text) {
        const auto grid = PrepareGrid(CompileExpression(text), std::vector<double>{1.0, 2.0, 3.0},
                                      std::vector<double>{-1.0, 4.0});
        return GridTileBounds(*grid, 0, 2)[0];
    };
    const struct {
        std::u16string_view text;
        double low;
        double high;
    } rows[] = {{u"x+y", 0, 7},
                {u"x-y", -3, 4},
                {u"x*y", -3, 12},
                {u"y/x", -1, 4},
                {u"(x*y)^2", 0, 144},
                {u"abs(x*y)", 0, 12},
                {u"int(x*y)", -3, 12},
                {u"(x+y)^0.5", 0, 2.6457513110645907},
                {u"x*y+5", 2, 17},
                {u"(x*y+x)-5", -7, 10},
                {u"sin(x*y)", -1.001, 1.001},
                {u"th(x*y)", -1.001, 1.001}};
    for (const auto& row : rows) {
        const auto bounds = boundsOf(row.text);
        ASSERT_TRUE(bounds) << ToUtf8(row.text);
        EXPECT_EQ(bounds->low, row.low) << ToUtf8(row.text);
        EXPECT_EQ(bounds->high, row.high) << ToUtf8(row.text);
    }
    for (const std::u16string_view text :
         {u"x/y", u"1/(x+y)", u"(x*y)^0.5", u"exp(x*y)", u"(x*y)^3", u"ln(x-2)+y", u"Si(x*y)"}) {
        EXPECT_FALSE(boundsOf(text)) << ToUtf8(text);
    }
}

TEST(GridRows, TakeNoAbscissas) {
    const auto grid = PrepareGrid(CompileExpression(u"x+y"), {}, kOrdinates);
    EvaluateGridRow(*grid, 0, 0, 0, nullptr);
    EXPECT_TRUE(GridTileBounds(*grid, 0, 1).empty());
}

}  // namespace
}  // namespace kalvex
