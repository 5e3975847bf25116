// The tool with too little memory, whatever the limit is. Not with sanitizers, which take the
// address space for themselves, and not in an emulator.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "cli/tool_run.h"

namespace kalvex {
namespace {

/// Ways to end: well, rejected for lack of memory, not written, or not loaded by the system.
constexpr int kStatuses[] = {0, 1, 3, 127};

ToolRun RunWithin(int kilobytes, const std::string& command, const TemporaryFolder& folder) {
    return RunScript(
        "ulimit -c 0; ulimit -v " + std::to_string(kilobytes) + "; $tool " + command + " > out",
        folder.PathOf(""));
}

TEST(ToolMemory, TooLittleGivesALineAndLeavesTheOldFile) {
    const char* const commands[] = {
        "eval x", "table --size 16384x10 -o old.txt decart:x", "samples --max-angle 4 polar:x",
        "draw --size 6000x6000 -o old.bmp decart:x", "draw --size 300x200 -o old.svg decart:x"};
    for (const char* const command : commands) {
        for (int kilobytes = 20000; kilobytes < 450000; kilobytes += kilobytes / 7) {
            const TemporaryFolder folder;
            for (const char* const name : {"old.txt", "old.bmp", "old.svg"})
                std::ofstream(folder.PathOf(name)) << "old";
            const ToolRun run = RunWithin(kilobytes, command, folder);
            const auto what = std::string(command) + " with " + std::to_string(kilobytes) + ": " +
                              std::to_string(run.status) + ' ' + run.err;
            EXPECT_NE(std::find(std::begin(kStatuses), std::end(kStatuses), run.status),
                      std::end(kStatuses))
                << what;
            EXPECT_EQ(run.status == 0, run.err.empty()) << what;
            if (run.status == 0) continue;
            for (const char* const name : {"old.txt", "old.bmp", "old.svg"})
                EXPECT_EQ(ReadFile(folder.PathOf(name)), "old") << what;
        }
    }
}

/// Around the smallest limit with which the tool is loaded at all, its own first steps fail. Before
/// them the initialisation of a library may abort, which the tool cannot change.
TEST(ToolMemory, TheFirstStepsFailWithALine) {
    const TemporaryFolder folder;
    int tooLittle = 20000;
    int enough = 600000;
    while (enough - tooLittle > 4) {
        const int middle = (tooLittle + enough) / 2;
        (RunWithin(middle, "eval x", folder).status == 127 ? tooLittle : enough) = middle;
    }
    int lines = 0;
    for (int kilobytes = enough; kilobytes < enough + 2500; kilobytes += 20) {
        const ToolRun run = RunWithin(kilobytes, "eval x", folder);
        const bool own = run.err == "kalvex-cli: There is not enough memory.\n";
        lines += own ? 1 : 0;
        EXPECT_EQ(run.status == 1 && lines > 0, own) << kilobytes << ' ' << run.err;
        const bool ends = run.status == 0 || own;
        const bool before = lines == 0 && run.status != 139;
        EXPECT_TRUE(ends || before) << kilobytes << ": " << run.status << ' ' << run.err;
    }
    EXPECT_GT(lines, 0);
}

}  // namespace
}  // namespace kalvex
