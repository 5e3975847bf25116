#include "graph/implicit.h"

#include <gtest/gtest.h>

#include <string>

#include "base/encoding.h"
#include "expr/random_expression.h"
#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;
using Mask = std::vector<std::uint8_t>;

double ValueAt(const CompiledExpression& expression, double x, double y) {
    EvalError = 0;
    const double value = EvaluateExpression(expression, x, y);
    return EvalError == 0 ? value : UndefinedValue;
}

/// The method as defined: 3 W + 1 evaluations for each row. Pictures of more than one pixel only.
Mask PlainImplicitPixels(const CompiledExpression& expression, const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    const std::int32_t width = viewport.ClientWidth;
    const std::int32_t height = viewport.ClientHeight;
    const double hx = (view.Xmax - view.Xmin) / (width - 1);
    const double hy = (view.Ymax - view.Ymin) / (height - 1);
    std::vector<double> above;
    for (int i = 0; i < width; ++i)
        above.push_back(ValueAt(expression, view.Xmin + i * hx, view.Ymax + hy / 2));
    Mask mask;
    for (int j = 0; j < height; ++j) {
        const double y = view.Ymax - j * hy;
        double left = ValueAt(expression, view.Xmin - hx / 2, y);
        for (int i = 0; i < width; ++i) {
            const double x = view.Xmin + i * hx;
            const double right = ValueAt(expression, x + hx / 2, y);
            const double below = ValueAt(expression, x, y - hy / 2);
            const std::size_t column = static_cast<std::size_t>(i);
            mask.push_back(right * left <= 0 || above[column] * below <= 0);
            above[column] = below;
            left = right;
        }
    }
    return mask;
}

Mask MaskOf(const PixelRunsRecord& record, const Viewport& viewport) {
    Mask mask(static_cast<std::size_t>(viewport.ClientWidth) *
              static_cast<std::size_t>(viewport.ClientHeight));
    for (const PixelRun& run : record.runs)
        for (std::int32_t i = 0; i < run.length; ++i)
            ++mask.at(static_cast<std::size_t>(run.row * viewport.ClientWidth + run.column + i));
    return mask;
}

TEST(Implicit, HasThePixelsOfThePlainMethod) {
    const char16_t* const texts[] = {
        u"x*0+x^2+y^2-4",
        u"x*0+sin(x)*cos(y)-0.3",
        u"x*0+y-x",
        u"x*0+1/x-y",
        u"x*0+ln(x)+y",
        u"x*0+x^3+y^3-3*x*y",
        u"x*0+y-2",
        u"x*0+x*0",
        u"x*0+tg(x)-y",
        u"x*0+x^y-2",
        u"x*0+1/0",
        u"x*0+ln(x)*ln(y)-0.5",
        u"x*0+sin(x^2+y^2)-cos(x*y)",
        u"x*0+exp(x*300)-y",
        u"x*0+(0-1)*ln(x)",
        u"x*0+int(x)-int(y)",
        u"x*0+Gamma(x)-y",
    };
    const Viewport views[] = {
        MakeViewport(-10, 10, -10, 10, 60, 67),
        MakeViewport(0, 4, -1, 1, 33, 20),
        MakeViewport(10, -10, 3, -3, 40, 21),
        MakeViewport(-1e-3, 2e-3, 0, 1e3, 25, 31),
        MakeViewport(-1e300, 1e300, -1e200, 1e200, 16, 16),
        MakeViewport(2, 2, -1, 1, 12, 12),
        MakeViewport(-10, 10, -10, 10, 2, 300),
        MakeViewport(-10, 10, -10, 10, 200, 90),
        MakeViewport(-1e-200, 1e-200, -1e-170, 2e-170, 140, 40),
    };
    for (const auto* text : texts) {
        const CompiledExpression expression = CompileExpression(text);
        for (const Viewport& viewport : views) {
            const PixelRunsRecord record = ImplicitPixels(expression, viewport, {1, 2, 3}, {});
            EXPECT_EQ(record.color, (Rgb{1, 2, 3}));
            EXPECT_EQ(MaskOf(record, viewport), PlainImplicitPixels(expression, viewport))
                << testing::PrintToString(std::u16string(text)) << ' ' << viewport.view.Xmin << ' '
                << viewport.ClientWidth;
        }
    }
}

// The pictures consist of several tiles and bands, so that some tiles are skipped.
TEST(Implicit, HasThePixelsOfThePlainMethodForRandomExpressions) {
    testing_support::Generator generator(2718);
    const Viewport views[] = {
        MakeViewport(-10, 10, -10, 10, 150, 70),
        MakeViewport(-0.75, 2.25, 1, 7, 130, 66),
        MakeViewport(-1e160, 1e160, -1e150, 1e155, 70, 40),
    };
    for (int i = 0; i < 120; ++i) {
        const std::string text = i % 2 == 0 ? testing_support::RandomArithmetic(generator, 3, true)
                                            : testing_support::RandomExpression(generator, 3, true);
        const CompiledExpression expression = CompileExpression(u"x*0+" + Widen(text));
        for (const Viewport& viewport : views) {
            const PixelRunsRecord record = ImplicitPixels(expression, viewport, {}, {});
            ASSERT_EQ(MaskOf(record, viewport), PlainImplicitPixels(expression, viewport))
                << text << ' ' << viewport.view.Xmin;
        }
    }
}

TEST(Implicit, DrawsAOnePixelRing) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    const auto mask =
        MaskOf(ImplicitPixels(CompileExpression(u"x*0+x^2+y^2-4"), viewport, {}, {}), viewport);
    const auto at = [&](int column, int row) {
        return mask[static_cast<std::size_t>(row * 240 + column)];
    };
    EXPECT_EQ(at(120, 134), 0) << "the middle is empty";
    int crossings = 0;
    for (int column = 0; column < 240; ++column)
        crossings += at(column, 134);
    EXPECT_EQ(crossings, 2);
}

TEST(Implicit, FillsARegionOfZeros) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    const auto record = ImplicitPixels(CompileExpression(u"x*0+0*x"), viewport, {}, {});
    EXPECT_EQ(record.runs.size(), 268u);
    for (const PixelRun& run : record.runs)
        EXPECT_EQ(run.length, 240);
}

TEST(Implicit, CountsUndefinedAgainstNegativeAsACrossing) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10, 21, 21);
    const auto record = ImplicitPixels(CompileExpression(u"x*0-1+0*ln(x)"), viewport, {}, {});
    const auto mask = MaskOf(record, viewport);
    EXPECT_EQ(mask[10], 1) << "-1 right of x = 0, undefined left of it";
    EXPECT_EQ(mask[5], 0);
    EXPECT_EQ(mask[15], 0);
}

TEST(Implicit, TellsItsProgressAndStops) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10, 100, 300);
    std::int32_t next = 0;
    std::int32_t told = 0;
    const auto watch = [&](const ProgressStretch& stretch) {
        EXPECT_EQ(stretch.firstColumn, next);
        EXPECT_LE(stretch.firstColumn, stretch.lastColumn);
        EXPECT_EQ(stretch.color, (Rgb{9, 8, 7}));
        next = stretch.lastColumn + 1;
        return ++told < 50;
    };
    const auto stopped = ImplicitPixels(CompileExpression(u"x*0+0*x"), viewport, {9, 8, 7}, watch);
    EXPECT_EQ(told, 50);
    EXPECT_EQ(stopped.runs.size(), 148u) << "the 50th stretch comes with row 147";
    told = -1000;
    next = 0;
    static_cast<void>(ImplicitPixels(CompileExpression(u"x*0+0*x"), viewport, {9, 8, 7}, watch));
    EXPECT_EQ(next, 299 * 100 / 300 + 1) << "just short of the right edge";
}

TEST(Implicit, ExtendsItsBarAsPublished) {
    const struct {
        std::int32_t row, width, height, first, last;
    } rows[] = {{0, 240, 268, 0, 0},       {1, 240, 268, 1, 0},   {2, 240, 268, 1, 1},
                {267, 240, 268, 239, 239}, {0, 1920, 1080, 0, 0}, {1, 1920, 1080, 1, 1},
                {2, 1920, 1080, 2, 3},     {0, 500, 100, -4, 0},  {1, 500, 100, 1, 5}};
    for (const auto& row : rows) {
        const ProgressStretch stretch = StretchOfRow(row.row, row.width, row.height, {});
        EXPECT_EQ(stretch.firstColumn, row.first) << row.row << ' ' << row.width;
        EXPECT_EQ(stretch.lastColumn, row.last) << row.row << ' ' << row.width;
    }
}

TEST(Implicit, SurvivesEveryWindow) {
    const CompiledExpression expression = CompileExpression(u"x*0+x^2+y^2-4");
    for (const auto& [xmin, xmax] : fixtures::ExtremeBounds())
        for (const auto& size : {fixtures::Size{0, 0}, {1, 1}, {1, 50}, {50, 1}, {24, 26}}) {
            const Viewport viewport = MakeViewport(xmin, xmax, xmin, xmax, size.width, size.height);
            MaskOf(ImplicitPixels(expression, viewport, {}, {}), viewport);
            MaskOf(ImplicitPixels(CompiledExpression{}, viewport, {}, {}), viewport);
        }
}

}  // namespace
}  // namespace kalvex
