// Pictures of the tool: the drawing records of classic pictures, and the sizes of the others.
#include <QImage>
#include <algorithm>
#include <cstdint>

#include "base/temporary_folder.h"
#include "cli/tool_expect.h"

namespace kalvex {
namespace {

std::uint64_t HashOf(std::string_view bytes) {
    std::uint64_t hash = 14695981039346656037u;  // FNV-1a
    for (const char byte : bytes)
        hash = (hash ^ static_cast<std::uint8_t>(byte)) * 1099511628211u;
    return hash;
}

/// The records before there were unrounded positions in them.
TEST(ToolPicture, ClassicRecordsStayWhatTheyWere) {
    const struct {
        Arguments arguments;
        std::uint64_t hash;
    } rows[] = {
        {{"--size", "240x268", "polar:2*x", "decart:x^3-3*x+1", "parametric:x^2-3;x/2",
          "implicit:x^2+y^2-4"},
         0x4fad15cdb0ad1c41u},
        {{"--size", "480x480", "--width", "2", "decart:5*sin(x)", "decart:1/x",
          "implicit,color=3:x^2-y^2"},
         0xd38368de5e808d10u},
        {{"--size", "333x201", "--window", "3,-4,0.001,2", "decart:x^2", "polar:1+x",
          "parametric:x;x^2"},
         0xd106812554a6acf5u},
        {{"--size", "300x200", "--grid-kind", "polar", "implicit:(x^2+y^2)^2-4*(x^2-y^2)",
          "decart:abs(x)"},
         0xe54bb28213d41949u},
        {{"--size", "300x200", "--grid-kind", "polar", "--window", "5,9,100,120", "decart:x*15"},
         0x9be2026883259b6au},
        {{"--size", "64x48", "--window=-100000,100000,-1,1", "decart:x/100000", "implicit:y-0.5"},
         0x66c272300ddbf764u},
        {{"--size", "7x300", "--window", "0,1,0,1", "decart:x", "implicit:0*x"},
         0x093fa811e0c70447u},
        {{"--size", "200x100", "--window", "1e300,-1e300,5,5", "decart:x", "polar:x"},
         0x27763d49352ddd94u},
        {{"--size", "500x400", "--max-angle", "4", "--param=-3,3", "polar:x/4",
          "parametric:x^3-x;x^2"},
         0xb2a1abb3822b27e1u},
    };
    for (const auto& row : rows) {
        Arguments arguments = {"draw", "--no-coords", "--no-labels", "-o", "-", "--format", "txt"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(HashOf(run.out), row.hash) << Joined(row.arguments);
    }
}

QImage PictureOf(Arguments arguments) {
    const TemporaryFolder folder;
    const std::string path = folder.PathOf("a.png");
    arguments.insert(arguments.begin(), {"draw", "--size", "60x40", "-o", path});
    const ToolRun run = RunTool(arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    return QImage(QString::fromStdString(path));
}

bool HasOnly(const QImage& picture, std::initializer_list<QRgb> colors) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (std::ranges::find(colors, picture.pixel(x, y)) == colors.end()) return false;
    return true;
}

TEST(ToolPicture, PixelsAndScalesArePngOnly) {
    constexpr QRgb kWhite = 0xFFFFFFFF;
    constexpr QRgb kRed = 0xFFFF0000;
    const Arguments bare = {"--no-grid", "--no-axes", "--no-coords", "--no-labels",
                            "decart,color=Red:x/3"};
    const auto with = [&bare](const Arguments& more) {
        Arguments all = more;
        all.insert(all.end(), bare.begin(), bare.end());
        return all;
    };
    EXPECT_FALSE(HasOnly(PictureOf(bare), {kWhite, kRed})) << "soft edges";
    EXPECT_TRUE(HasOnly(PictureOf(with({"--pixels"})), {kWhite, kRed}));
    EXPECT_EQ(PictureOf(with({"--scale", "2.5"})).size(), QSize(150, 100));
    EXPECT_EQ(PictureOf(with({"--scale", "0.25"})).size(), QSize(15, 10));
    for (const char* const scale : {"0.24", "16.01", "nan", "x", "", "1,2"}) {
        const ToolRun run = RunTool({"draw", "--scale", scale, "-o", "a.png", "decart:x"});
        EXPECT_EQ(run.status, 2) << scale;
        EXPECT_NE(run.err.find("--scale: a number from 0.25 to 16 expected"), std::string::npos)
            << run.err;
    }
    for (const char* const name : {"a.bmp", "a.svg", "a.pdf", "a.txt"}) {
        const ToolRun run = RunTool({"draw", "--scale", "2", "-o", name, "decart:x"});
        EXPECT_EQ(run.status, 2) << name;
        EXPECT_NE(run.err.find("only a .png picture has a scale"), std::string::npos) << run.err;
    }
}

}  // namespace
}  // namespace kalvex
