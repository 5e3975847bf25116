#include "graph/contours.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "base/encoding.h"
#include "expr/normaliser.h"
#include "graph/axis_marks.h"
#include "graph/graph_fixtures.h"
#include "graph/implicit.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;

CompiledExpression Implicit(std::u16string text) {
    NormaliseImplicit(text);
    return CompileExpression(text);
}

PixelRunsRecord CurveOf(const std::u16string& text, const Viewport& viewport,
                        bool withContours = true) {
    return ImplicitPixels(Implicit(text), viewport, {}, {}, nullptr, withContours);
}

struct Piece {
    Position from;
    Position to;
};

std::vector<Piece> PiecesOf(const Contours& contours) {
    std::vector<Piece> pieces;
    std::size_t first = 0;
    for (const std::size_t end : contours.ends) {
        if (end - first == 1) pieces.push_back({contours.points[first], contours.points[first]});
        for (std::size_t i = first + 1; i < end; ++i)
            pieces.push_back({contours.points[i - 1], contours.points[i]});
        first = end;
    }
    return pieces;
}

double DistanceTo(const Piece& piece, double x, double y) {
    const double dx = piece.to.x - piece.from.x;
    const double dy = piece.to.y - piece.from.y;
    const double squared = dx * dx + dy * dy;
    const double along =
        squared > 0.0 ? ((x - piece.from.x) * dx + (y - piece.from.y) * dy) / squared : 0.0;
    const double t = std::min(std::max(along, 0.0), 1.0);
    return std::hypot(x - piece.from.x - t * dx, y - piece.from.y - t * dy);
}

double NearestPiece(const std::vector<Piece>& pieces, double x, double y) {
    double nearest = 1e300;
    for (const Piece& piece : pieces)
        nearest = std::min(nearest, DistanceTo(piece, x, y));
    return nearest;
}

TEST(Contours, FollowTheTrueCircle) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10, 480, 480);
    const PixelRunsRecord curve = CurveOf(u"x^2+y^2-4", viewport);
    ASSERT_TRUE(curve.contours.has_value());
    EXPECT_EQ(curve.contours->ends.size(), 1u) << "one closed line";
    EXPECT_TRUE(curve.contours->filled.empty());
    EXPECT_EQ(curve.contours->points.front(), curve.contours->points.back());
    double length = 0.0;
    for (const Piece& piece : PiecesOf(*curve.contours)) {
        length += std::hypot(piece.to.x - piece.from.x, piece.to.y - piece.from.y);
        for (const double t : {0.0, 0.5}) {
            const double x = piece.from.x + t * (piece.to.x - piece.from.x);
            const double y = piece.from.y + t * (piece.to.y - piece.from.y);
            EXPECT_NEAR(std::hypot(x - 240.0, y - 240.0), 48.0, 0.02) << x << ' ' << y;
        }
    }
    EXPECT_NEAR(length, 2.0 * 3.14159265 * 48.0, 0.5);
}

TEST(Contours, JoinBranchesThatMeet) {
    const std::u16string texts[] = {u"(x^2+y^2)^2-4*(x^2-y^2)", u"x*y", u"x^2-y^2",
                                    u"y^2-x^2*(x+1)", u"x^2-y^2+x^4"};
    for (const std::u16string& text : texts) {
        for (const auto& [width, height] :
             {std::pair{480, 480}, {481, 480}, {333, 201}, {600, 601}}) {
            for (const double shift : {0.0, 0.0123, 0.0311, -0.271}) {
                const Viewport viewport = MakeViewport(-5 + shift, 5 + shift, -5 - shift / 3,
                                                       5 - shift / 3, width, height);
                const PixelRunsRecord curve = CurveOf(text, viewport);
                ASSERT_TRUE(curve.contours.has_value());
                const std::vector<Piece> pieces = PiecesOf(*curve.contours);
                EXPECT_LT(NearestPiece(pieces, viewport.view.OriginX, viewport.view.OriginY), 0.75)
                    << ToUtf8(text) << ' ' << width << ' ' << shift;
            }
        }
    }
}

/// The pixels that the contours of a picture touch, with a margin of so many pixels.
std::set<std::pair<int, int>> PixelsNear(const Contours& contours, const Viewport& viewport,
                                         int margin) {
    std::set<std::pair<int, int>> near;
    const auto add = [&](double x, double y) {
        for (int dy = -margin; dy <= margin; ++dy)
            for (int dx = -margin; dx <= margin; ++dx)
                near.insert(
                    {static_cast<int>(std::floor(x)) + dx, static_cast<int>(std::floor(y)) + dy});
    };
    for (const Piece& piece : PiecesOf(contours))
        for (const double t : {0.0, 0.5, 1.0})
            add(piece.from.x + t * (piece.to.x - piece.from.x),
                piece.from.y + t * (piece.to.y - piece.from.y));
    for (const PixelRun& run : contours.filled)
        for (int i = 0; i < run.length; ++i)
            add(run.column + i, run.row);
    static_cast<void>(viewport);
    return near;
}

TEST(Contours, AreWhereThePixelsAre) {
    const std::u16string texts[] = {u"1/(x-y)",
                                    u"ln(x)-y",
                                    u"tg(x*y)-1",
                                    u"x+abs(x)",
                                    u"0*x",
                                    u"x^y-y^x",
                                    u"(x-1)^2",
                                    u"0-(x-1)^2",
                                    u"sin(x^2+y^2)-cos(x*y)",
                                    u"frac(x)-y/5",
                                    u"int(x)-y",
                                    u"x^0.5-y",
                                    u"exp(0-x^2-y^2)-2",
                                    u"1e-200*(x-y)",
                                    u"ln(x-1)*ln(0-x)",
                                    u"(x^2+y^2-4)^3",
                                    u"Gamma(x)-y",
                                    u"J(0,x)*J(0,y)",
                                    u"y-1/x",
                                    u"abs(x*y)-0.01"};
    for (const std::u16string& text : texts) {
        for (const auto& [width, height] : {std::pair{101, 101}, {64, 90}}) {
            const Viewport viewport = MakeViewport(-5, 5, -5, 5, width, height);
            const PixelRunsRecord curve = CurveOf(text, viewport);
            ASSERT_TRUE(curve.contours.has_value()) << ToUtf8(text);
            const auto near = PixelsNear(*curve.contours, viewport, 1);
            std::set<std::pair<int, int>> pixels;
            for (const PixelRun& run : curve.runs)
                for (int i = 0; i < run.length; ++i) {
                    EXPECT_TRUE(near.contains({run.column + i, run.row}))
                        << ToUtf8(text) << ": nothing at " << run.column + i << ' ' << run.row;
                    for (int dy = -2; dy <= 2; ++dy)
                        for (int dx = -2; dx <= 2; ++dx)
                            pixels.insert({run.column + i + dx, run.row + dy});
                }
            for (const auto& at : PixelsNear(*curve.contours, viewport, 0))
                EXPECT_TRUE(pixels.contains(at))
                    << ToUtf8(text) << ": too much at " << at.first << ' ' << at.second;
        }
    }
}

TEST(Contours, FillRegionsOfZero) {
    const Viewport viewport = MakeViewport(-5, 5, -5, 5, 100, 100);
    const PixelRunsRecord all = CurveOf(u"0*x", viewport);
    ASSERT_TRUE(all.contours.has_value());
    EXPECT_EQ(all.contours->filled, all.runs);
    EXPECT_TRUE(all.contours->points.empty());
    // A double zero on a column of points is a line there, not two columns of pixels.
    const Viewport exact = MakeViewport(0, 100, 0, 100, 101, 101);
    const PixelRunsRecord line = CurveOf(u"(x-50)^2", exact);
    ASSERT_TRUE(line.contours.has_value());
    EXPECT_TRUE(line.contours->filled.empty());
    for (const Position& point : line.contours->points)
        EXPECT_NEAR(point.x, PositionX(exact.view, 50.0), 1e-9);
}

TEST(Contours, FindPolesAndBordersExactly) {
    const Viewport viewport = MakeViewport(-5, 5, -5, 5, 100, 100);
    const struct {
        std::u16string text;
        double x;
    } rows[] = {{u"1/(x-0.123)", 0.123},
                {u"(x-0.123)^9", 0.123},
                {u"atg(1000*(x-1.7))", 1.7},
                {u"0-1-(x-0.377)^0.5*0.0001", 0.377}};
    for (const auto& row : rows) {
        const PixelRunsRecord curve = CurveOf(row.text, viewport);
        ASSERT_TRUE(curve.contours.has_value());
        EXPECT_GE(curve.contours->points.size(), 100u) << ToUtf8(row.text);
        for (const Position& point : curve.contours->points)
            EXPECT_NEAR(point.x, PositionX(viewport.view, row.x), 0.01) << ToUtf8(row.text);
    }
}

TEST(Contours, FindMultipleZerosAsExactly) {
    const Viewport viewport = MakeViewport(-5, 5, -5, 5, 480, 480);
    for (const std::u16string& text :
         {std::u16string(u"(y-sin(x))^3"), std::u16string(u"(y-sin(x))^7"),
          std::u16string(u"(y-sin(x))^21")}) {
        const PixelRunsRecord curve = CurveOf(text, viewport);
        ASSERT_TRUE(curve.contours.has_value());
        EXPECT_GE(curve.contours->points.size(), 480u);
        for (const Position& point : curve.contours->points) {
            const double x = (point.x - 240.0) / 48.0;
            EXPECT_NEAR(point.y, PositionY(viewport.view, std::sin(x)), 0.01)
                << ToUtf8(text) << ' ' << x;
        }
    }
}

TEST(Contours, SurviveEveryWindow) {
    for (const auto* text : {u"x^2+y^2-4", u"1/x-y", u"x*y", u"ln(x)-ln(y)", u"0*y"})
        for (const auto& [low, high] : fixtures::ExtremeBounds())
            for (const auto& [width, height] : fixtures::kExtremeSizes) {
                if (width > 300) continue;
                const Viewport viewport = MakeViewport(low, high, low, high, width, height);
                const PixelRunsRecord curve = CurveOf(text, viewport);
                EXPECT_EQ(curve.contours.has_value(),
                          width > 0 && height > 0 && HasUsableMapping(viewport.view));
            }
}

TEST(Contours, AreMadeOnlyWhenAskedForAndNotStopped) {
    const Viewport viewport = MakeViewport(-5, 5, -5, 5, 100, 100);
    EXPECT_FALSE(CurveOf(u"x-y", viewport, false).contours.has_value());
    const DrawProgress stop = [](const ProgressStretch& stretch) {
        return stretch.lastColumn < 50;
    };
    const PixelRunsRecord stopped =
        ImplicitPixels(Implicit(u"x-y"), viewport, {}, stop, nullptr, true);
    EXPECT_FALSE(stopped.runs.empty());
    EXPECT_FALSE(stopped.contours.has_value()) << "its pixels are shown instead";
}

}  // namespace
}  // namespace kalvex
