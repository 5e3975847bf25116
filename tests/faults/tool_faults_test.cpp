// The tool replaces an old file and one call fails. Then the old file or the whole new one is
// there, the status tells which, and standard error has a message.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <ostream>
#include <string_view>

#include "faults/fault_run.h"
#include "faults/whole_picture.h"

namespace kalvex {
namespace {

struct Flow {
    const char* name;
    std::vector<std::string> arguments;
    const char* file;  ///< what it writes; empty: standard output
};

const Flow kFlows[] = {
    {"table", {"table", "--width", "8", "decart:x*x", "-o"}, "out.csv"},
    {"report", {"analyze", "decart:x^3-x", "-o"}, "out.txt"},
    {"bitmap", {"draw", "--size", "120x90", "decart:x*x", "-o"}, "out.bmp"},
    {"png", {"draw", "--size", "120x90", "decart:x*x", "-o"}, "out.png"},
    {"svg", {"draw", "--size", "120x90", "decart:x*x", "-o"}, "out.svg"},
    {"pdf", {"draw", "--size", "120x90", "decart:x*x", "-o"}, "out.pdf"},
    {"list", {"draw", "--size", "120x90", "implicit:x^2+y^2-4", "-o"}, "out.draw.txt"},
    {"eval", {"eval", "--at=2", "sin(x)*Gamma(x)"}, ""},
    {"points", {"points", "POINTS"}, ""},
};

class ToolFaults : public testing::TestWithParam<Flow> {
  protected:
    ToolFaults() {
        std::ofstream(folder_.PathOf("points")) << "0 0\n1 1\n2 4\n";
        arguments_ = GetParam().arguments;
        if (arguments_.back() == "POINTS") arguments_.back() = folder_.PathOf("points");
        out_ = folder_.PathOf(GetParam().file);
        if (Writes()) arguments_.push_back(out_);
    }

    bool Writes() const { return *GetParam().file != '\0'; }

    bool Paints() const { return arguments_.front() == "draw"; }

    void PutOldFile() const {
        if (Writes()) std::ofstream(out_, std::ios::trunc) << "old";
    }

    // Only files of the test's folder fail. Those of the fonts and of their settings are the
    // system's, and without one of them there is another font.
    std::vector<std::string> Environment() const {
        if (!Paints()) return {};
        return {"KALVEX_FAULT_FOLDER=" + std::filesystem::path(out_).parent_path().string()};
    }

    /// Whether the libraries that load fonts and paint may get no memory. They then end the
    /// program, or go on with another font and tell nobody.
    bool HitsLibraries(const FaultKind& kind) const {
        return Paints() && std::string_view(kind.name) == "alloc";
    }

    std::string Result(const ToolRun& run) const {
        return Writes() ? WithoutTime(ReadFile(out_)) : run.out;
    }

    bool IsWhole(const FaultKind& kind, const std::string& result, const std::string& whole) const {
        return result == whole || (HitsLibraries(kind) && IsWholePicture(out_, result, whole));
    }

    void Check(const FaultKind& kind, const FaultRun& fault, const std::string& whole) const {
        const ToolRun& run = fault.run;
        const std::string result = Result(run);
        const auto told = GetParam().name + (" " + fault.fault) + ": status " +
                          std::to_string(run.status) + ", " + std::to_string(result.size()) +
                          " bytes, " + run.err;
        if (run.status == 0) {
            EXPECT_TRUE(IsWhole(kind, result, whole)) << told;
        } else {
            const bool mayCrash = kind.kills || HitsLibraries(kind);
            EXPECT_TRUE(mayCrash || (!run.err.empty() && run.status < 128)) << told;
        }
        if (Writes() && run.status != 0) {
            EXPECT_TRUE(result == "old" || (run.status >= 128 && IsWhole(kind, result, whole)))
                << told;
        }
        EXPECT_FALSE(fault.reached && kind.loses && run.status == 0) << told;
        EXPECT_TRUE((fault.reached && !kind.harmless) || run.status == 0) << told;
    }

    TemporaryFolder folder_;
    std::vector<std::string> arguments_;
    std::string out_;
};

TEST_P(ToolFaults, LeaveTheOldFileOrTheNewOne) {
    std::vector<std::string> command = {KALVEX_CLI_COMMAND};
    command.insert(command.end(), arguments_.begin(), arguments_.end());
    FaultyProgram program(command, Environment());
    PutOldFile();
    const ToolRun good = program.Run("").run;
    ASSERT_EQ(good.status, 0) << good.err;
    const std::string whole = Result(good);
    ASSERT_NE(whole, "old");
    ASSERT_FALSE(whole.empty());
    for (const FaultKind& kind : kFaultKinds) {
        const FaultSteps steps = {[this] { PutOldFile(); },
                                  [&](const FaultRun& fault) { Check(kind, fault, whole); }};
        RecordFaults(GetParam().name, kind, ForEachFault(program, kind, steps));
    }
}

void PrintTo(const Flow& flow, std::ostream* out) {
    *out << flow.name;
}

std::string NameOf(const testing::TestParamInfo<Flow>& flow) {
    return flow.param.name;
}

INSTANTIATE_TEST_SUITE_P(Flows, ToolFaults, testing::ValuesIn(kFlows), NameOf);

}  // namespace
}  // namespace kalvex
