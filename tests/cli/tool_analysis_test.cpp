// The tool's reports and point tables.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "analysis/export_files.h"
#include "base/encoding.h"
#include "cli/tool_expect.h"

namespace kalvex {
namespace {

const Arguments kView = {"--window", "-2,2,-5,5", "--size", "5x11"};

Arguments With(Arguments first, const Arguments& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

constexpr char kPages[] =
    "== General ==\n"
    "On the interval (-2.000000,2.000000)\n"
    "x^2-1 has:\n"
    "  4 roots (See 'Roots Tab')\n"
    "  0 maximums (See 'Maximums Tab')\n"
    "  1 minimums  (See 'Minimums Tab')\n"
    "\n"
    "x^2-1 reaches a maximum:\n"
    "  y=3.000000\n"
    "x^2-1 reaches a maximum:\n"
    "  y=-1.000000\n"
    "\n"
    "Mean value of function: 0.400000\n"
    "The integral of a function x^2-1\n"
    "in the range of -2.000000 to 2.000000 is 2.000000\n"
    "== Roots ==\n"
    "The roots of x^2-1\n"
    "on the interval (-2.000000,2.000000):\n"
    "x=-1.000000\n"
    "x=-1.000000\n"
    "x=1.000000\n"
    "x=1.000000\n"
    "== Maximums ==\n"
    "Maximums of x^2-1 on the interval (-2.000000,2.000000) not found.\n"
    "== Minimums ==\n"
    "The minimums of x^2-1\n"
    "on the interval (-2.000000,2.000000):\n"
    "x=0.000000  y=-1.000000\n";

constexpr char kSingle[] =
    "On the interval (-2.000000,2.000000)\n"
    "x^2-1 has:\n"
    "  4 roots (See below)\n"
    "  0 maximums (See below)\n"
    "  1 minimums  (See below)\n"
    "\n"
    "x^2-1 reaches a maximum:\n"
    "  y=3.000000\n"
    "x^2-1 reaches a maximum:\n"
    "  y=-1.000000\n"
    "Mean value of function: 0.400000\n"
    "The roots of x^2-1\n"
    "on the interval (-2.000000,2.000000):\n"
    "  x=-1.000000\n"
    "  x=-1.000000\n"
    "  x=1.000000\n"
    "  x=1.000000\n"
    "Maximums of x^2-1 on the interval (-2.000000,2.000000) not found.\n"
    "The minimums of x^2-1\n"
    "on the interval (-2.000000,2.000000):\n"
    "  x=0.000000  y=-1.000000\n";

TEST(AnalysisTool, PrintsTheReport) {
    const Arguments paged = With({"analyze"}, kView);
    Expect({With(paged, {"decart:x^2-1"}), "", 0, kPages, ""});
    Expect({With(paged, {"--form", "paged", "decart:x^2-1"}), "", 0, kPages, ""},
           {"LC_ALL=de_DE.UTF-8"});
    Expect({With(paged, {"--form", "single", "decart:x^2-1"}), "", 0, kSingle, ""});
}

TEST(AnalysisTool, MeasuresJumpsByTheHeight) {
    const struct {
        const char* line;
        const char* roots;
    } rows[] = {{"decart:60*int(x-1.5)+31", "  0 roots"}, {"decart:30*int(x-1.5)+16", "  1 roots"}};
    for (const auto& row : rows) {
        // Jumps of 60 and of 30 rows in a picture of 50.
        const ToolRun run =
            RunTool({"analyze", "--size", "400x50", "--window", "0,3,-25,25", row.line});
        EXPECT_NE(run.out.find(row.roots), std::string::npos) << run.out;
    }
}

TEST(AnalysisTool, WritesTheReportFile) {
    const TemporaryFolder folder;
    const std::string report = folder.PathOf("отчёт.kx");
    std::ofstream(report) << std::string(5000, 'x');
    Expect({With(With({"analyze"}, kView), {"-o", report, "decart:x^2-1"}), "", 0, kPages, ""});
    std::u16string expected;
    for (const char16_t unit : ToUtf16(kSingle)) {
        if (unit == u'\n') expected += u'\r';
        expected += unit;
    }
    EXPECT_EQ(ReadFile(report), ReportFile(expected));
    EXPECT_EQ(ReadFile(report).substr(0, 4), std::string("\xFF\xFEO\0", 4));
}

TEST(AnalysisTool, WritesThePointTable) {
    const TemporaryFolder folder;
    const std::string table = folder.PathOf("table.kx");
    Expect({{"table", "--window", "0,2,0,1", "--size", "3x3", "-o", table, "decart:1/(x-1)"},
            "",
            0,
            "",
            ""});
    EXPECT_EQ(ReadFile(table),
              "0.00000000000000000 -1.00000000000000000\n"
              "2.00000000000000000 1.00000000000000000\n");
}

TEST(AnalysisTool, TellsWhatItCannotDo) {
    const TemporaryFolder folder;
    const std::string good = folder.PathOf("good.txt");
    std::ofstream(good) << "old";
    const std::string error = "Error!: Error in 1 function:\\nx+*\\nNext two characters\n";
    Expect({{"analyze", "decart:x+*"}, "", 1, "", error});
    Expect({{"analyze", "-o", good, "decart:x+*"}, "", 1, "", error});
    Expect({{"table", "-o", good, "decart:x+*"}, "", 1, "", error});
    EXPECT_EQ(ReadFile(good), "old");
    const struct {
        std::string path;
        std::string reason;
    } rows[] = {{folder.PathOf("missing/a.txt"), "No such file or directory"},
                {folder.PathOf(""), "Is a directory"}};
    for (const auto& [path, reason] : rows) {
        Expect({{"table", "-o", path, "decart:x"},
                "",
                3,
                "",
                "The table could not be written: " + path + ": " + reason + "\n"});
        const ToolRun run = RunTool({"analyze", "-o", path, "decart:x"});
        EXPECT_EQ(run.status, 3);
        EXPECT_EQ(run.err, "The report could not be written: " + path + ": " + reason + "\n");
    }
    EXPECT_EQ(RunTool({"table", "-o", "/dev/full", "decart:x"}).status, 3);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(AnalysisTool, TakesExtremeWindows) {
    for (const char* window : {"-1e300,1e300,-1e300,1e300", "1e-300,2e-300,0,1", "1,1,1,1",
                               "10,-10,10,-10", "-inf,inf,nan,nan"}) {
        for (const char* line : {"decart:x^2", "polar:x", "parametric:x;1/x", "decart:ln(x)"}) {
            const ToolRun run = RunTool({"analyze", "--window", window, line});
            EXPECT_EQ(run.status, 0) << window << ' ' << line;
            EXPECT_NE(run.out.find("== Minimums ==\n"), std::string::npos) << window;
        }
    }
    EXPECT_EQ(RunTool({"analyze", "--size", "1x1", "decart:x"}).status, 0);
}

}  // namespace
}  // namespace kalvex
