// The settings are loaded and others stored, and one call fails. Then the file has the old values
// or all of the new ones, and the status tells which.
#include <gtest/gtest.h>

#include <fstream>

#include "faults/fault_run.h"

namespace kalvex {
namespace {

class StoreFaults : public testing::Test {
  protected:
    StoreFaults() : file_(folder_.PathOf("kalvex.ini")) {
        EXPECT_EQ(Store(1).status, 0);
        old_ = ReadFile(file_);
        EXPECT_EQ(Store(2).status, 0);
        new_ = ReadFile(file_);
        EXPECT_NE(old_, new_);
    }

    ToolRun Store(int number) const {
        return RunProgram({KALVEX_STORE_COMMAND}, {file_, std::to_string(number)});
    }

    void PutOldFile() const { std::ofstream(file_, std::ios::binary | std::ios::trunc) << old_; }

    void Check(const FaultKind& kind, const FaultRun& fault) const {
        const std::string result = ReadFile(file_);
        const auto told = fault.fault + ": status " + std::to_string(fault.run.status) + ", " +
                          std::to_string(result.size()) + " bytes, " + fault.run.err;
        EXPECT_TRUE(result == old_ || result == new_) << told << '\n' << result;
        if (fault.run.status == 0) {
            EXPECT_EQ(result, new_) << told;
        }
        EXPECT_TRUE(kind.kills || fault.run.status < 128) << told;
        EXPECT_FALSE(fault.reached && kind.loses && fault.run.status == 0) << told;
        EXPECT_TRUE((fault.reached && !kind.harmless) || fault.run.status == 0) << told;
    }

    TemporaryFolder folder_;
    std::string file_;
    std::string old_;
    std::string new_;
};

TEST_F(StoreFaults, LeaveTheOldValuesOrTheNewOnes) {
    FaultyProgram program({KALVEX_STORE_COMMAND, file_, "2"}, {});
    for (const FaultKind& kind : kFaultKinds) {
        const FaultSteps steps = {[this] { PutOldFile(); },
                                  [&](const FaultRun& fault) { Check(kind, fault); }};
        RecordFaults("store", kind, ForEachFault(program, kind, steps));
    }
}

}  // namespace
}  // namespace kalvex
