// Runs of a program in which one call fails, one run for each call.
#pragma once

#include <functional>
#include <string>

#include "cli/tool_run.h"

namespace kalvex {

/// One kind of failing call, as fault_library.cpp names it.
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
                                            {.name = "short", .harmless = true},
                                            {.name = "interrupt", .harmless = true},
                                            {.name = "kill", .kills = true}};

/// Starts the program with additional settings of the environment.
using StartWith = std::function<ToolRun(const std::vector<std::string>& environment)>;

struct FaultRun {
    std::string fault;     ///< "write:3"
    bool reached = false;  ///< the program made that call
    ToolRun run;
};

/// One run in which the given call fails, and with `lasting` all later ones of the kind.
[[nodiscard]] FaultRun RunWithFault(const FaultKind& kind, long number, bool lasting,
                                    const StartWith& start);

/// Calls `check` for a run with each call of the kind, until a run does not come so far; that one
/// is checked as well. Of the allocations, which are many, only some fail, each about an eighth
/// later than the one before; with KALVEX_FAULTS=all in the environment every single one.
void ForEachFault(const FaultKind& kind, const StartWith& start,
                  const std::function<void(const FaultRun&)>& check);

}  // namespace kalvex
