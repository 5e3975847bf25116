// The tool with point files.
#include <gtest/gtest.h>

#include <fstream>

#include "cli/tool_expect.h"

namespace kalvex {
namespace {

/// A point file in its own temporary folder.
struct PointFileOf {
    TemporaryFolder folder;
    std::string path;
    explicit PointFileOf(const std::string& text) : path(folder.PathOf("p.txt")) {
        std::ofstream(path, std::ios::binary) << text;
    }
};

TEST(PointTool, PrintsThePointsOfAFile) {
    const PointFileOf good("0 1\r\n1.5  2e3\r\n0.1 0\r\n\r\n");
    Expect({{"points", good.path}, "", 0, "0\t1\n1.5\t2000\n0.10000000000000001\t0\n", ""},
           {"LC_ALL=de_DE.UTF-8"});
    const PointFileOf bad("0 1\n1,5 2\n");
    const std::string error = "Warning!: Error in file!\n";
    for (const std::string& path :
         {bad.path, bad.path + "x", std::string("/"), std::string("/dev/zero")}) {
        Expect({{"points", path}, "", 1, "", error});
        Expect({{"interpolate", "--method", "8", path}, "", 1, "", error});
        Expect({{"samples", "file:" + path}, "", 1, "", error});
        Expect({{"draw", "-o", bad.folder.PathOf("a.png"), "file:" + path}, "", 1, "", error});
    }
    EXPECT_EQ(ReadFile(bad.folder.PathOf("a.png")), "");
}

// A file name is a sequence of bytes and need not be UTF-8. Every subcommand opens it as given.
TEST(PointTool, OpensAFileWhoseNameIsNotUtf8) {
    const TemporaryFolder folder;
    const std::string path = folder.PathOf(
        "m\xe9"
        "tre.txt");
    std::ofstream(path, std::ios::binary) << "0 1\n1 2\n";
    Expect({{"points", path}, "", 0, "0\t1\n1\t2\n", ""});
    Expect({{"interpolate", "--method", "8", "--at", "0.5", path}, "", 0, "0.5\t1.5\n", ""});
    Expect({{"samples", "--size", "2x2", "--window", "0,1,0,2", "file,approx=8:" + path},
            "",
            0,
            "0\t1\t0\t1\t0\t0\n2\t0\t1\t2\t0\t0\n",
            ""});
    Expect({{"draw", "-o", folder.PathOf("a.png"), "file,approx=8:" + path}, "", 0, "", ""});
}

TEST(PointTool, InterpolatesAFile) {
    const PointFileOf file("0 0\n1 2\n3 1\n");
    Expect(
        {{"interpolate", "--method", "8", "--at", "0.5", "--at=-1", "--range", "1,3,3", file.path},
         "",
         0,
         "0.5\t1\n-1\t-2\n1\t2\n2\t1.5\n3\t1\n",
         ""});
    Expect({{"interpolate", "--method", "7", file.path}, "", 0, "0\t0\n1\t2\n3\t1\n", ""});
    Expect({{"interpolate", "--method=10", "--approx-val", "2", "--approx-val2", "2", "--beta1",
             "0", "--beta2", "0", "--at", "1", file.path},
            "",
            0,
            "1\t2\n",
            ""});
    const PointFileOf one("1 2\n");
    Expect({{"interpolate", "--method", "8", "--at", "1", one.path}, "", 0, "1\t1e+30\n", ""});
}

TEST(PointTool, TellsWhyAMethodHasNoValues) {
    const PointFileOf four("0 0\n1 1\n2 4\n3 9\n");
    const std::string even = "\nSPLINE_QUADRATIC_VAL - Fatal error!\n  NDATA must be odd.\n";
    Expect({{"interpolate", "--method", "9", "--at", "1", "--at", "2", four.path},
            "",
            0,
            "1\t1e+30\n2\t1e+30\n",
            even});
    const PointFileOf late("0 0\n1 1\n2 4\n2 9\n5 6\n");
    Expect({{"interpolate", "--method", "9", "--at", "1", "--at", "3", late.path},
            "",
            0,
            "1\t1e+30\n3\t1e+30\n",
            "\nSPLINE_QUADRATIC_VAL - Fatal error!\n  T2 <= T1 or T3 <= T2.\n"});
    Expect({{"interpolate", "--method", "0", "--approx-val", "5", "--at", "1", late.path},
            "",
            0,
            "1\t1e+30\n",
            "error: LEAST_SET - Fatal error!\n"
            "\nLEAST_SET - Fatal error!\n  The number of distinct X values must be\n"
            "  at least NTERMS = 5\n  but the input data has only 4\n  distinct entries.\n"});
    const ToolRun samples = RunTool({"samples", "--size", "5x5", "file,approx=9:" + four.path});
    EXPECT_EQ(samples.status, 0);
    EXPECT_EQ(samples.out.substr(0, 23), "0\t0\t-10\t1e+30\t0\t1000\n0\t");
    EXPECT_EQ(samples.err,
              even +
                  "Warning!: In function 1:\\nThe quadratic spline needs an odd number of "
                  "points.\n");
}

TEST(PointTool, ChecksTheNumberOfTerms) {
    const PointFileOf file("0 0\n1 2\n3 1\n");
    const std::string message =
        "Warning!: In function 1:\\nThe number of terms to use in the approximating polynomial, "
        "must be at least 1 and it must less than the number of input points.\n";
    for (const char* terms : {"0", "-5", "4"}) {
        Expect({{"interpolate", "--method", "0", "--approx-val", terms, file.path},
                "",
                1,
                "",
                message});
        Expect({{"samples", "file,approx=0,approx_val=" + std::string(terms) + ":" + file.path},
                "",
                1,
                "",
                message});
    }
    EXPECT_EQ(RunTool({"interpolate", "--method", "0", "--approx-val", "3", "--at", "4", file.path})
                  .status,
              0);
}

TEST(PointTool, DrawsFileLines) {
    std::string many;
    for (int i = 0; i < 51; ++i)
        many += std::to_string(i) + " 1\n";
    const PointFileOf file(many);
    const ToolRun run =
        RunTool({"samples", "--size", "3x9", "--window", "0,50,0,2", "file,approx=8:" + file.path});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "0\t4\t0\t1\t0\t0\n1\t4\t25\t1\t0\t0\n3\t4\t50\t1\t0\t0\n");
    EXPECT_EQ(run.err,
              "Warning!: The file p.txt has very many lines, the construction schedule can take a "
              "very long time. Continue?\n");
    const std::string png = file.folder.PathOf("a.png");
    EXPECT_EQ(
        RunTool({"draw", "-o", png, "decart:x", "file,approx=2,color=Blue:" + file.path}).status,
        0);
    EXPECT_EQ(ReadFile(png).substr(0, 4), "\x89PNG");
}

}  // namespace
}  // namespace kalvex
