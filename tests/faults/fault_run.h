// Runs of a program in which one call fails, one run for each call.
#pragma once

#include <functional>
#include <string>

#include "cli/tool_run.h"

namespace kalvex {

/// One kind of failing call, as fault_main.cpp names it.
struct FaultKind {
    const char* name;
    bool harmless = false;  ///< no error: the program has to finish its work
    bool kills = false;     ///< the process ends there, without a status of its own
    bool loses = false;     ///< what was to be written is not on the disk
};

inline constexpr FaultKind kFaultKinds[] = {{.name = "alloc"},
                                            {.name = "open"},
                                            {.name = "read"},
                                            {.name = "write", .loses = true},
                                            {.name = "full", .loses = true},
                                            {.name = "sync", .loses = true},
                                            {.name = "rename", .loses = true},
                                            {.name = "link"},
                                            {.name = "short", .harmless = true},
                                            {.name = "interrupt", .harmless = true},
                                            {.name = "kill", .kills = true}};

struct FaultRun {
    std::string fault;     ///< "write:3"
    bool reached = false;  ///< the program made that call
    ToolRun run;
};

/// A program that waits before its main function and runs from there as often as wanted.
class FaultyProgram final {
  public:
    /// Starts it with additional settings of the environment.
    FaultyProgram(const std::vector<std::string>& arguments,
                  const std::vector<std::string>& environment);
    ~FaultyProgram();
    FaultyProgram(const FaultyProgram&) = delete;
    FaultyProgram& operator=(const FaultyProgram&) = delete;

    /// One run to the end. Without a fault (an empty text) nothing fails.
    [[nodiscard]] FaultRun Run(const std::string& fault);

  private:
    TemporaryFolder folder_;
    StreamFiles streams_;
    int line_ = -1;
    pid_t process_ = -1;
};

/// What is done with each run.
struct FaultSteps {
    std::function<void()> before;
    std::function<void(const FaultRun&)> after;
};

/// Calls the steps for a run with each call of the kind, until a run does not come so far; that one
/// is checked as well. Then once more, with all later calls failing too. Of the allocations, which
/// are many, only some fail, each about an eighth later than the one before; with KALVEX_FAULTS=all
/// in the environment every single one, with KALVEX_FAULTS=5 every fifth. Gives the number of runs
/// in which a call failed.
[[nodiscard]] int ForEachFault(FaultyProgram& program, const FaultKind& kind,
                               const FaultSteps& steps);

/// Prints how many failing calls were tried and keeps the number with the results of the test.
void RecordFaults(const std::string& flow, const FaultKind& kind, int count);

}  // namespace kalvex
