// Signals that end the tool while it computes, and fonts that it cannot load.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "cli/tool_run.h"

namespace kalvex {
namespace {

namespace fs = std::filesystem;

/// A text of x each value of which takes two or three milliseconds.
std::string SlowText() {
    std::string text;
    for (int i = 0; i < 10; ++i)
        text += (i == 0 ? "" : "+") + std::string("Hyper(-5000.5,abs(x)+700") + std::to_string(i) +
                ".3,8000.1,0.9)";
    return text;
}

/// Commands that take ten seconds or longer. $text is the slow text, $points a file of points.
const char* const kSlowCommands[] = {
    "eval --range 0,1,100000 \"$text\"",
    "eval --implicit --range 0,1,100000 \"y+$text\"",
    "samples --size 16384x10 \"decart:$text\"",
    "table --size 16384x10 -o old \"decart:$text\"",
    "analyze --size 16384x10 -o old \"decart:$text\"",
    "draw --size 16384x16384 --format png -o old \"implicit:y-$text\"",
    "draw --size 16384x10 --format txt -o old \"parametric:x;$text\"",
    "interpolate --method 12 --range=-9,9,1000000000 points",
};

void WritePoints(const std::string& path) {
    std::ofstream file(path);
    for (int i = 0; i < 2000; ++i)
        file << i * 0.01 - 10 << " 1\n";
}

std::size_t EntriesIn(const std::string& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(ToolStop, SignalsEndItAtOnceWithALineAndNoHalfFile) {
    const std::pair<const char*, int> signals[] = {{"INT", 130}, {"TERM", 143}, {"HUP", 129}};
    for (const char* const command : kSlowCommands) {
        for (const auto& [name, status] : signals) {
            const TemporaryFolder folder;
            WritePoints(folder.PathOf("points"));
            std::ofstream(folder.PathOf("old")) << "old";
            const std::string script = "text='" + SlowText() + "'\n" +
                                       "timeout --preserve-status -s " + name + " 0.4 $tool " +
                                       command + " > out";
            const ToolRun run = RunScript(script, folder.PathOf(""));
            EXPECT_EQ(run.status, status) << command;
            EXPECT_EQ(run.err, "kalvex-cli: stopped before its end.\n") << command;
            EXPECT_EQ(ReadFile(folder.PathOf("old")), "old") << command;
            EXPECT_EQ(EntriesIn(folder.PathOf("")), 3u) << command;
            const std::string out = ReadFile(folder.PathOf("out"));
            EXPECT_TRUE(out.empty() || out.back() == '\n') << command << ": " << out.size();
        }
    }
}

TEST(ToolStop, ALargePictureLeavesNoTemporaryFile) {
    for (const char* const wait : {"0.2", "0.5", "0.9", "1.4"}) {
        const TemporaryFolder folder;
        std::ofstream(folder.PathOf("old.png")) << "old";
        const ToolRun run = RunScript("timeout --preserve-status -s INT " + std::string(wait) +
                                          " $tool draw --size 9000x9000 -o old.png decart:x",
                                      folder.PathOf(""));
        EXPECT_EQ(EntriesIn(folder.PathOf("")), 1u) << wait;
        const bool isOld = ReadFile(folder.PathOf("old.png")) == "old";
        EXPECT_EQ(isOld ? 130 : 0, run.status) << wait;
    }
}

TEST(ToolStop, AnIgnoredSignalStaysIgnored) {
    const TemporaryFolder folder;
    const ToolRun run = RunScript("trap '' INT; $tool samples --size 900x10 'decart:" + SlowText() +
                                      "' > out & pid=$!; sleep 0.3; kill -INT $pid; wait $pid",
                                  folder.PathOf(""));
    EXPECT_EQ(run.status, 0) << run.err;
    const std::string out = ReadFile(folder.PathOf("out"));
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 900);
}

TEST(ToolStop, AFullPipeForMessagesDoesNotHoldItUp) {
    const TemporaryFolder folder;
    const ToolRun run = RunScript(
        "mkfifo errors; exec 3<>errors; dd if=/dev/zero bs=65536 count=1 >&3 2>/dev/null; timeout "
        "--preserve-status -k 9 -s TERM 0.4 $tool samples --size 16384x10 'decart:" +
            SlowText() + "' > /dev/null 2>&3",
        folder.PathOf(""));
    EXPECT_EQ(run.status, 143);
}

TEST(ToolStop, ALimitOfTheSizeOfFilesIsAFailedWrite) {
    const TemporaryFolder folder;
    std::ofstream(folder.PathOf("old")) << "old";
    const ToolRun run =
        RunScript("ulimit -f 1; $tool table --size 2000x10 -o old decart:x", folder.PathOf(""));
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err, "The table could not be written: old: File too large\n");
    EXPECT_EQ(ReadFile(folder.PathOf("old")), "old");
    EXPECT_EQ(EntriesIn(folder.PathOf("")), 1u);
}

TEST(ToolStop, AClosedPipeIsNoSuccess) {
    const TemporaryFolder folder;
    std::ofstream(folder.PathOf("old")) << "old";
    const ToolRun run = RunScript(
        "(sleep 0.2; $tool eval --range 0,1,100000 x; echo $? > status) "
        "| true; sleep 0.5; cat status",
        folder.PathOf(""));
    EXPECT_NE(run.out, "0\n");
    EXPECT_NE(run.out, "");
}

TEST(ToolFont, APictureWithoutItsFontIsNotWritten) {
    const TemporaryFolder folder;
    std::ofstream(folder.PathOf("fonts.conf"))
        << "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>"
           "</fontconfig>";
    const std::string draw = "export FONTCONFIG_FILE=$PWD/fonts.conf; $tool draw -o picture.png ";
    const ToolRun run = RunScript(draw + "decart:x", folder.PathOf(""));
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err,
              "The picture could not be written: picture.png: no font for its texts could be "
              "loaded\n");
    EXPECT_FALSE(fs::exists(folder.PathOf("picture.png")));
    const ToolRun plain = RunScript(draw + "--no-labels --no-coords decart:x", folder.PathOf(""));
    EXPECT_EQ(plain.status, 0) << plain.err;
}

}  // namespace
}  // namespace kalvex
