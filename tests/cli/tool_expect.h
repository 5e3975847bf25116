// A run of the tool and its expected results.
#pragma once

#include <gtest/gtest.h>

#include "cli/tool_run.h"

namespace kalvex {

using Arguments = std::vector<std::string>;

inline std::string Joined(const Arguments& arguments) {
    std::string text = "kalvex-cli";
    for (const std::string& argument : arguments)
        text += " [" + argument.substr(0, 60) + "]";
    return text;
}

struct OutputRow {
    Arguments arguments;
    std::string input;
    int status;
    std::string out;
    std::string err;
};

inline void Expect(const OutputRow& row, const Arguments& environment = {}) {
    const ToolRun run = RunTool(row.arguments, row.input, environment);
    EXPECT_EQ(run.status, row.status) << Joined(row.arguments);
    EXPECT_EQ(run.out, row.out) << Joined(row.arguments);
    EXPECT_EQ(run.err, row.err) << Joined(row.arguments);
}

}  // namespace kalvex
