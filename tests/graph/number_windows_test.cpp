// The numbers of windows of all sizes, at zero and far from it.
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "base/encoding.h"
#include "graph/coordinates.h"
#include "graph/graph_fixtures.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;

double ValueOf(std::u16string_view text) {
    return ParseDecimalPrefix(text).value;
}

/// The offset of an axis ("+1000", "+(-1000)").
double OffsetOf(std::u16string_view text) {
    return ValueOf(text.substr(text.starts_with(u"+(") ? 2 : 1));
}

struct Window {
    double from;
    double to;
};

/// Both axes of these pictures show the same window.
struct Picture {
    Window window;
    fixtures::Size size;
    NumberLayout layout;
    std::size_t offsets = 0;
    double offset = 0.0;
};

Picture PictureOf(const Window& window, const fixtures::Size& size) {
    const Viewport viewport =
        MakeViewport(window.from, window.to, window.from, window.to, size.width, size.height);
    Picture picture{window, size, LayoutNumbers(viewport, fixtures::MeasureFixed, false)};
    for (const TextRecord& text : picture.layout.numbers) {
        if (!text.text.starts_with(u"+")) continue;
        ++picture.offsets;
        picture.offset = OffsetOf(text.text);
    }
    return picture;
}

/// How far the middle of a number is from where its value belongs on the x axis, and on the y axis.
struct Distance {
    double x;
    double y;
};

Distance DistanceWith(double offset, const Picture& picture, const TextRecord& number) {
    const TextExtent extent = fixtures::MeasureFixed(number.text, number.height);
    const double value = ValueOf(number.text);
    // Differences are taken before the sum, so that no digits are lost.
    const auto part = [&](double end) {
        return std::fabs((offset - end) + value) /
               std::fabs(picture.window.to - picture.window.from);
    };
    const double column = part(picture.window.from) * picture.size.width;
    const double row = part(picture.window.to) * picture.size.height;
    return {std::fabs(number.x + extent.width / 2 - std::trunc(column)),
            std::fabs(number.y + extent.height / 2 - std::trunc(row))};
}

/// When one axis has an offset and the other one none, a number may mean either.
Distance DistanceOf(const Picture& picture, const TextRecord& number) {
    const Distance distance = DistanceWith(picture.offset, picture, number);
    if (picture.offsets != 1) return distance;
    const Distance other = DistanceWith(0.0, picture, number);
    return {std::min(distance.x, other.x), std::min(distance.y, other.y)};
}

void ExpectReadable(const Picture& picture) {
    const auto where = [&] {
        std::string text = std::to_string(picture.window.from) + " width " +
                           FormatShortest(picture.window.to - picture.window.from) + ":";
        for (const TextRecord& number : picture.layout.numbers)
            text += " " + ToUtf8(number.text);
        return text;
    };
    std::set<std::u16string> onX;
    std::set<std::u16string> onY;
    for (const TextRecord& number : picture.layout.numbers) {
        EXPECT_LE(number.text.size(), 16u) << where();
        if (number.text == u"0") {  // belongs to both axes
            onX.insert(number.text);
            onY.insert(number.text);
        }
        if (number.text.starts_with(u"+") || number.text == u"0") continue;
        const Distance distance = DistanceOf(picture, number);
        EXPECT_LE(std::min(distance.x, distance.y), 1.0)
            << ToUtf8(number.text) << " of " << where();
        std::set<std::u16string>& axis =
            distance.x <= 1.0 && !onX.contains(number.text) ? onX : onY;
        EXPECT_TRUE(axis.insert(number.text).second) << ToUtf8(number.text) << " of " << where();
    }
    EXPECT_GE(onX.size(), 2u) << where();
    EXPECT_GE(onY.size(), 2u) << where();
    EXPECT_LE(picture.offsets, 2u) << where();
}

void ExpectTidy(const Picture& picture) {
    const auto& numbers = picture.layout.numbers;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const TextRecord& a = numbers[i];
        const TextExtent extent = fixtures::MeasureFixed(a.text, a.height);
        EXPECT_TRUE(a.x >= 0 && a.y >= 0 && a.x + extent.width <= picture.size.width &&
                    a.y + extent.height <= picture.size.height);
        for (std::size_t j = 0; j < i; ++j) {
            const TextRecord& b = numbers[j];
            const TextExtent other = fixtures::MeasureFixed(b.text, b.height);
            EXPECT_FALSE(a.x < b.x + other.width && b.x < a.x + extent.width &&
                         a.y < b.y + other.height && b.y < a.y + extent.height)
                << ToUtf8(a.text) << ' ' << ToUtf8(b.text);
        }
    }
    const auto zeros = std::count_if(numbers.begin(), numbers.end(),
                                     [](const TextRecord& one) { return one.text == u"0"; });
    EXPECT_LE(zeros, 1);
}

TEST(NumberWindows, HaveTwoNumbersOnEachAxis) {
    constexpr fixtures::Size kSizes[] = {{240, 268}, {480, 480}, {1280, 800}};
    for (int power = -300; power <= 300; ++power) {
        const double width = ParseDecimalPrefix("1.1e" + std::to_string(power)).value;
        for (const double start : {-0.5, 0.0, 0.3, 17.3, -123456.7, 1e9, 3.3e12}) {
            const double from = start * width;
            if (std::fabs(from) > 1e304) continue;  // the origin would overflow
            for (const Window& window : {Window{from, from + width}, {from + width, from}})
                for (const fixtures::Size& size : kSizes) {
                    const Picture picture = PictureOf(window, size);
                    ExpectReadable(picture);
                    ExpectTidy(picture);
                    if (HasFailure()) return;
                }
        }
    }
}

// Bounds next to each other as doubles, and a few of them apart.
TEST(NumberWindows, HaveThemDownToTheResolutionOfADouble) {
    for (const double start : {1000.0, -1000.0, 1.0, 4095.0, 1e15, -123456789.0}) {
        double end = start;
        for (int doubles = 1; doubles <= 20; ++doubles) {
            end = std::nextafter(end, start + 1.0);
            for (const Window& window : {Window{start, end}, {end, start}})
                for (const fixtures::Size& size : {fixtures::Size{240, 268}, {1280, 800}}) {
                    const Picture picture = PictureOf(window, size);
                    ExpectReadable(picture);
                    ExpectTidy(picture);
                    EXPECT_EQ(picture.offsets, 2u) << start << ' ' << doubles;
                    if (HasFailure()) return;
                }
        }
    }
}

TEST(NumberWindows, HaveTicksOfTheirOwnAtTheAxisOrTheEdge) {
    const Viewport viewport = MakeViewport(-0.5, 0.5, 1.5, 2.5, 480, 480);
    const NumberLayout layout = LayoutNumbers(viewport, fixtures::MeasureFixed, false);
    const std::vector<Segment> expected = {{{48, 479}, {48, 476}},   {{144, 479}, {144, 476}},
                                           {{240, 479}, {240, 476}}, {{336, 479}, {336, 476}},
                                           {{432, 479}, {432, 476}}, {{240, 432}, {243, 432}},
                                           {{240, 336}, {243, 336}}, {{240, 240}, {243, 240}},
                                           {{240, 144}, {243, 144}}, {{240, 48}, {243, 48}}};
    ASSERT_EQ(layout.ticks.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(layout.ticks[i], expected[i])
            << i << ": " << layout.ticks[i].from.x << ' ' << layout.ticks[i].from.y;
    EXPECT_EQ(layout.stepX, (NiceStep{2, -1}));
    EXPECT_EQ(layout.stepY, (NiceStep{2, -1}));
}

TEST(NumberWindows, KeepWholeUnitsWhereTwoAreSeen) {
    for (const Window& window : {Window{-10, 10}, {-2, 2}, {-500, 500}, {0.1, 2.2}, {-0.1, 1.2}}) {
        const NumberLayout layout = PictureOf(window, {480, 480}).layout;
        EXPECT_TRUE(layout.ticks.empty()) << window.from;
        for (const TextRecord& number : layout.numbers)
            EXPECT_EQ(number.text.find(u'.'), std::u16string::npos) << ToUtf8(number.text);
    }
}

TEST(NumberWindows, HaveNiceStepsForTheFineGrid) {
    const Viewport viewport = MakeViewport(-500, 500, -10, 10, 480, 480);
    EXPECT_EQ(LayoutNumbers(viewport, fixtures::MeasureFixed, false).stepX, std::nullopt);
    const NumberLayout layout = LayoutNumbers(viewport, fixtures::MeasureFixed, true);
    EXPECT_EQ(layout.stepX, (NiceStep{2, 2}));
    EXPECT_EQ(layout.stepY, (NiceStep{1, 0})) << "whole units are kept";
}

}  // namespace
}  // namespace kalvex
