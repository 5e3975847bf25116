// The built tool from the outside: arguments and standard input, printed lines and exit status.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "cli/tool_expect.h"
#include "resources/methods.h"

namespace kalvex {
namespace {

const OutputRow kNormalise[] = {
    {{"normalise", "2x"}, "", 0, "2*x\n", ""},
    {{"normalise", "--", "-x"}, "", 0, "0-x\n", ""},
    {{"normalise", "-1+x"}, "", 0, "0-1+x\n", ""},
    {{"normalise", ""}, "ignored\n", 0, "\n", ""},
    {{"normalise", "--implicit", "xy"}, "", 0, "x*0+x*y\n", ""},
    {{"normalise", "--implicit", ""}, "", 0, "\n", ""},
    {{"normalise"}, "2x\n\n3x", 0, "2*x\n\n3*x\n", ""},
    {{"normalise"}, "", 0, "", ""},
};

const OutputRow kCheck[] = {
    {{"check", "sin(x)"}, "", 0, "0\tSucsses!\n", ""},
    {{"check", ""}, "", 1, "-11\tEmpty string\n", ""},
    {{"check", "y+1"}, "", 1, "-6\tThere is an unknown lexeme\n", ""},
    {{"check", "--implicit", "y+1"}, "", 0, "0\tSucsses!\n", ""},
    {{"check", "2x"}, "", 0, "0\tSucsses!\n", ""},
    {{"check", "--as-is", "2x"}, "", 1, "-6\tThere is an unknown lexeme\n", ""},
    {{"check"}, "x\n\nx", 1, "0\tSucsses!\n-11\tEmpty string\n0\tSucsses!\n", ""},
};

const OutputRow kEval[] = {
    {{"eval", "x^2", "--at", "3", "--at", "-1.5"}, "", 0, "3\t9\t0\n-1.5\t2.25\t0\n", ""},
    {{"eval", "x+1"}, "", 0, "0\t1\t0\n", ""},
    {{"eval", "1/x", "--range", "-1,1,3"}, "", 0, "-1\t-1\t0\n0\t1e+30\t1\n1\t1\t0\n", ""},
    {{"eval", "--range=-1,1,2", "--at", "5", "--", "-x"},
     "",
     0,
     "5\t-5\t0\n-1\t1\t0\n1\t-1\t0\n",
     ""},
    {{"eval", "x", "--range", "2,9,1"}, "", 0, "2\t2\t0\n", ""},
    {{"eval", "--implicit", "--at", "-1,2", "--at", "3", "x*y"},
     "",
     0,
     "-1\t2\t-2\t0\n3\t0\t0\t0\n",
     ""},
    {{"eval", ""}, "", 1, "", "Error!: Error Empty string\n"},
    {{"eval"}, "x\n\nx+1\n", 1, "0\t0\t0\n0\t1\t0\n", "Error!: Error Empty string\n"},
};

const OutputRow kExplain[] = {
    {{"explain", "2x^3+x"},
     "",
     0,
     "text\n  2*x^3+x\n"
     "tree\n  +\n    *\n      2\n      ^ 3\n        x\n    x\n"
     "program\n  r0 = 2 * x ^ 3 + x\n  value = r0\n",
     ""},
    {{"explain", "1/x"},
     "",
     0,
     "text\n  1/x\ntree\n  / may fail\n    1\n    x\n"
     "program\n  r0 = 1 / x\n  value = r0\n",
     ""},
    {{"explain", "--implicit", "x^2-y"},
     "",
     0,
     "text\n  x*0+x^2-y\n"
     "tree\n  +\n    *\n      x\n      0\n    -\n      *\n        x\n        x\n      y\n"
     "program\n  r0 = x * 0\n  r1 = x * x - y\n  r0 = r0 + r1\n  value = r0\n"
     "program of a grid\n  r0 = x * x\n  X1 = r0\n  r0 = X1 - y\n  value = r0\n",
     ""},
    {{"explain"},
     "x\n\n2+1",
     1,
     "text\n  x\ntree\n  x\nprogram\n  value = x\n"
     "text\n  2+1\ntree\n  3\nprogram\n  value = 3\n",
     "Error!: Error Empty string\n"},
};

TEST(Tool, Normalises) {
    for (const OutputRow& row : kNormalise)
        Expect(row);
}

TEST(Tool, ShowsABoxAsOneLine) {
    Expect({{"normalise", "(x)2"}, "", 0, "(x)*2\n", "Test: (x)*2\n"});
}

TEST(Tool, Checks) {
    for (const OutputRow& row : kCheck)
        Expect(row);
}

TEST(Tool, Evaluates) {
    for (const OutputRow& row : kEval)
        Expect(row);
}

TEST(Tool, Explains) {
    for (const OutputRow& row : kExplain)
        Expect(row);
}

// Neither a locale with a decimal comma nor one without UTF-8 changes the output.
TEST(Tool, FollowsNoLocale) {
    for (const char* locale : {"LC_ALL=de_DE.UTF-8", "LC_ALL=C"}) {
        Expect({{"eval", "x/2", "--at", "0.5"}, "", 0, "0.5\t0.25\t0\n", ""}, {locale});
        Expect({{"normalise", "\xd1\x8f"}, "", 0, "\xd1\x8f\n", ""}, {locale});
    }
}

TEST(Tool, AnswersWrongUsageWithTwo) {
    const Arguments rows[] = {
        {},
        {"unknown"},
        {"normalise", "-x"},
        {"normalise", "a", "b"},
        {"normalise", "--bogus"},
        {"check", "--at", "1", "x"},
        {"eval", "x", "--at", "a"},
        {"eval", "x", "--at", "1,2"},
        {"eval", "x", "--at"},
        {"eval", "x", "--range", "1,2"},
        {"eval", "x", "--range", "1,2,0"},
        {"eval", "x", "--range", "1,2,1.5"},
        {"samples"},
        {"samples", "x^2"},
        {"samples", "decart:x", "decart:x"},
        {"interpolate", "points.txt"},
        {"interpolate", "--method", "8"},
        {"interpolate", "--method", std::to_string(kMethodCount), "points.txt"},
        {"interpolate", "--method", "-1", "points.txt"},
        {"interpolate", "--method", "1.5", "points.txt"},
        {"interpolate", "--method", "8", "--at", "a", "points.txt"},
        {"interpolate", "--method", "8", "--at", "1,2", "points.txt"},
        {"interpolate", "--method", "8", "--range", "1,2,0", "points.txt"},
        {"interpolate", "--method", "0", "--approx-val", "99999999999", "points.txt"},
        {"interpolate", "--method", "3", "--beta1", "x", "points.txt"},
        {"points"},
        {"points", "a", "b"},
        {"samples", "--size", "0x10", "decart:x"},
        {"samples", "--size", "16385x10", "decart:x"},
        {"samples", "--size", "10", "decart:x"},
        {"samples", "--window", "1,2,3", "decart:x"},
        {"samples", "--quick", "init", "decart:x"},
        {"samples", "--quick", "Init", "--window", "1,2,3,4", "decart:x"},
        {"samples", "--max-angle", "5", "polar:1"},
        {"samples", "--grid-kind", "square", "decart:x"},
        {"analyze"},
        {"analyze", "--form", "pages", "decart:x"},
        {"analyze", "implicit:x-y"},
        {"analyze", "decart:x", "decart:1"},
        {"table", "decart:x"},
        {"table", "-o", "table.txt"},
        {"table", "-o", "table.txt", "implicit:x-y"},
        {"draw", "decart:x"},
        {"draw", "-o", "picture.png"},
        {"draw", "-o", "picture.gif", "decart:x"},
        {"draw", "-o", "png", "decart:x"},
        {"draw", "-o", "a.png", "decart:1", "decart:2", "decart:3", "decart:4", "decart:5",
         "decart:6", "decart:7", "decart:8", "decart:9", "decart:10"},
    };
    for (const Arguments& row : rows) {
        const ToolRun run = RunTool(row, "x\n");
        EXPECT_EQ(run.status, 2) << Joined(row);
        EXPECT_EQ(run.out, "") << Joined(row);
        EXPECT_NE(run.err, "") << Joined(row);
    }
}

TEST(Tool, ExplainsItself) {
    for (const char* command : {"", "normalise", "check", "eval", "explain", "interpolate",
                                "points", "samples", "draw", "analyze", "table"}) {
        for (const char* option : {"--help", "--version"}) {
            Arguments arguments = {option};
            if (*command != '\0') arguments.insert(arguments.begin(), command);
            const ToolRun run = RunTool(arguments);
            EXPECT_EQ(run.status, 0) << Joined(arguments);
            EXPECT_NE(run.out, "") << Joined(arguments);
            EXPECT_EQ(run.err, "") << Joined(arguments);
        }
    }
}

TEST(Tool, SurvivesAnyInput) {
    std::string garbage;
    for (int i = 0; i < 4096; ++i)
        garbage += static_cast<char>(i * 7 + i / 256);
    const std::string million(1000000, 'x');
    const std::string brackets(1000000, '(');
    for (const Arguments& arguments :
         {Arguments{"normalise"}, Arguments{"normalise", "--implicit"}, Arguments{"check"},
          Arguments{"check", "--implicit"}, Arguments{"check", "--as-is"}, Arguments{"eval"},
          Arguments{"eval", "--implicit"}}) {
        const int expected = arguments[0] == "normalise" ? 0 : 1;
        for (const std::string& input : {garbage, million + '\n', brackets + '\n'})
            EXPECT_EQ(RunTool(arguments, input).status, expected) << Joined(arguments);
    }
}

/// A text with this many products behind ")": three tokens for each factor, one for each "*" that
/// the normaliser puts in.
std::string Products(int count) {
    std::string text;
    for (int i = 0; i <= count; ++i)
        text += "(x)";
    return text;
}

// The check takes 255 tokens. A longer text is rejected, so its "Test" lines end where it has more.
TEST(Tool, TellsTheProductsOfATextThatMayBeAccepted) {
    const auto lines = [](const std::string& text) {
        return std::count(text.begin(), text.end(), '\n');
    };
    const ToolRun longest = RunTool({"check", Products(63)});
    EXPECT_EQ(longest.out, "0\tSucsses!\n");
    EXPECT_EQ(lines(longest.err), 63);
    const ToolRun longer = RunTool({"check", Products(63) + "+x"});
    EXPECT_EQ(longer.out, "-8\tCheck the placement of commas\n");
    EXPECT_EQ(lines(longer.err), 61) << "with the 62nd product it has 256 tokens";
    const std::string huge = Products(300000) + '\n';
    for (const Arguments& arguments : {Arguments{"normalise"}, {"check"}, {"eval"}}) {
        const ToolRun run = RunTool(arguments, huge);
        EXPECT_LE(run.err.size(), 100u) << Joined(arguments);
    }
    EXPECT_EQ(lines(RunTool({"samples", "decart:" + Products(90)}).err), 1) << "the rejection";
}

TEST(Tool, RefusesPensAndTextsThatCannotBeDrawn) {
    const struct {
        const char* option;
        const char* largest;
        const char* tooLarge;
    } rows[] = {{"--width", "64", "65"}, {"--text-size", "200", "201"}};
    for (const auto& row : rows) {
        Expect({{"samples", "--size", "1x1", row.option, row.largest, "decart:0"},
                "",
                0,
                "0\t0\t-10\t0\t0\t0\n",
                ""});
        for (const char* number : {"0", row.tooLarge, "1000"}) {
            const ToolRun run = RunTool({"samples", row.option, number, "decart:0"});
            EXPECT_EQ(run.status, 2) << row.option << ' ' << number;
            const std::string wanted = "a whole number from 1 to " + std::string(row.largest);
            EXPECT_NE(run.err.find(wanted), std::string::npos) << run.err;
        }
    }
}

TEST(Tool, NoticesThatItsOutputIsLost) {
    EXPECT_EQ(RunTool({"eval", "x", "--range", "0,1,9007199254740992"}, "", {}, "/dev/full").status,
              3);
    EXPECT_EQ(RunTool({"normalise", "x"}, "", {}, "/dev/full").status, 3);
}

TEST(Tool, PrintsTheSamplesOfALine) {
    Expect({{"samples", "--size", "3x5", "decart:x"},
            "",
            0,
            "0\t5\t-10\t-10\t0\t0\n1\t2\t0\t0\t0\t0\n3\t0\t10\t10\t0\t0\n",
            ""});
    const ToolRun polar = RunTool({"samples", "--max-angle", "2", "polar:1"});
    EXPECT_EQ(std::count(polar.out.begin(), polar.out.end(), '\n'), 360);
    Expect({{"samples", "--size", "20x20", "implicit:x*y-1"}, "", 0, "", ""});
    Expect({{"samples", "decart:x+*"},
            "",
            1,
            "",
            "Error!: Error in 1 function:\\nx+*\\nNext two characters\n"});
    Expect(
        {{"samples", "parametric:x"},
         "",
         1,
         "",
         "Error!: You have entered only one equation, while the parametric type requires two!\n"});
}

TEST(Tool, PrintsSamplesOfExtremeWindows) {
    for (const char* window : {"-1e300,1e300,-1e300,1e300", "1e-300,2e-300,0,1", "1,1,1,1",
                               "10,-10,10,-10", "-inf,inf,nan,nan"}) {
        const ToolRun run = RunTool({"samples", "--window", window, "decart:x^2"});
        EXPECT_EQ(run.status, 0) << window;
        EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 240) << window;
    }
}

TEST(Tool, DrawsPictures) {
    const TemporaryFolder folder;
    const std::string png = folder.PathOf("a.png");
    Expect({{"draw", "-o", png, "decart:x^2", "polar,color=Blue:5"}, "", 0, "", ""});
    EXPECT_EQ(ReadFile(png).substr(0, 4), "\x89PNG");
    const std::string bitmap = folder.PathOf("b.BMP");
    Expect({{"draw", "--size", "30x20", "-o", bitmap, "implicit:x-y"}, "", 0, "", ""},
           {"LC_ALL=C"});
    EXPECT_EQ(ReadFile(bitmap).substr(0, 2), "BM");
    const std::string svg = folder.PathOf("c.svg");
    Expect({{"draw", "--size", "30x20", "-o", svg, "decart:x"}, "", 0, "", ""});
    EXPECT_NE(ReadFile(svg).find("viewBox=\"0 0 30 20\""), std::string::npos);
    const std::string pdf = folder.PathOf("d.Pdf");
    Expect({{"draw", "-o", pdf, "decart:x"}, "", 0, "", ""});
    EXPECT_EQ(ReadFile(pdf).substr(0, 4), "%PDF");
    for (const char* name :
         {"missing/a.png", "missing/a.bmp", "missing/a.svg", "missing/a.pdf", "missing/a.txt"}) {
        const ToolRun run = RunTool({"draw", "-o", folder.PathOf(name), "decart:x"});
        EXPECT_EQ(run.status, 3) << name;
        EXPECT_NE(run.err, "") << name;
    }
}

TEST(Tool, WritesTheDrawingRecordsAsText) {
    const TemporaryFolder folder;
    const std::string text = folder.PathOf("a.txt");
    Expect({{"draw", "--size", "4x4", "--window", "-2,2,-2,2", "--no-coords", "--no-labels", "-o",
             text, "decart:x", "implicit,color=Blue:y"},
            "",
            0,
            "",
            ""});
    EXPECT_EQ(ReadFile(text),
              "picture\t4\t4\n"
              "segments\tgrid\t-\t#828282\t1\t2,0,2,4 0,2,4,2\n"
              "segments\taxes\t-\t#000000\t1\t"
              "2,0,2,4 0,2,4,2 1,2,1,1 3,2,3,1 2,1,3,1 2,3,3,3\n"
              "polyline\tcurve\t1\t#ff0000\t1\t0,4 1,2 2,1 4,0\n"
              "pixels\tcurve\t2\t#0000ff\t-\t0,2,4\n");
    const std::string points = folder.PathOf("\xd0\xb6.txt");
    std::ofstream(points) << "-1 -1\n0 0\n1 1\n";
    Expect({{"draw", "--size", "4x4", "--window", "-2,2,-2,2", "--no-coords", "--no-axes",
             "--no-grid", "-o", text, "file:" + points},
            "",
            0,
            "",
            ""},
           {"LC_ALL=de_DE.UTF-8"});
    EXPECT_EQ(ReadFile(text),
              "picture\t4\t4\n"
              "ellipse\tcurve\t1\t#ff0000\t1\t-2,0,4,6\t-\n"
              "ellipse\tcurve\t1\t#ff0000\t1\t-1,-1,5,5\t-\n"
              "ellipse\tcurve\t1\t#ff0000\t1\t0,-2,6,4\t-\n"
              "polyline\tcurve\t1\t#ff0000\t1\t0,2 1,2 2,2 4,2\n"
              "text\tname\t1\t#ff0000\t-\t5,5\t14\t\xd0\xb6.tx\n");
    EXPECT_EQ(RunTool({"draw", "-o", folder.PathOf("a.jpg"), "decart:x"}).err,
              "-o: a name that ends in .png, .svg, .pdf, .bmp or .txt expected\n"
              "Run with --help for more information.\n");
}

TEST(Tool, ZoomsAutomatically) {
    Expect({{"samples", "--auto", "--size", "5x5", "decart:x^2"},
            "",
            0,
            "0\t0\t-10\t100\t0\t0\n1\t3\t-5\t25\t0\t0\n2\t4\t0\t0\t0\t0\n"
            "3\t3\t5\t25\t0\t0\n5\t0\t10\t100\t0\t0\n",
            ""});
    // When no bounds can be found there is a message and the window is not changed.
    Expect({{"samples", "--auto", "--size", "1x4", "decart:x+200"},
            "",
            0,
            "0\t-36\t-10\t190\t0\t0\n",
            "Error!: Certain automatically coordinates are too big!\n"});
    const ToolRun run = RunTool({"samples", "--auto", "--size", "2x4", "decart:ln(x-50)"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err,
              "Error!: We can not determine the boundaries automatically. Just enter a border by "
              "hand in the window 'Window View'\n");
}

TEST(Tool, WritesNoPictureOfARejectedLine) {
    const TemporaryFolder folder;
    const std::string png = folder.PathOf("a.png");
    Expect({{"draw", "-o", png, "decart:x", "decart:"},
            "",
            1,
            "",
            "Error!: Error in 2 function:\\n\\nEmpty string\n"});
    EXPECT_EQ(ReadFile(png), "");
}

}  // namespace
}  // namespace kalvex
