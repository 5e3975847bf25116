// Run: scripts/fuzz
//
// A command line of the tool: one argument per line up to an empty line, behind it standard input.
// The whole tool runs, but for two things: no file is written, because the option -o is taken away,
// and `draw` stops when its arguments have been read, because painting has a target of its own.
// Numbers are cut to two digits, so that no input asks for a million points. Nothing may crash.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/console.h"
#include "fuzz_input.h"

namespace {

using namespace kalvex;

/// At most `most` digits of each run of digits.
std::string WithShortNumbers(const std::string& text, std::size_t most) {
    std::string result;
    std::size_t digits = 0;
    for (const char c : text) {
        digits = c >= '0' && c <= '9' ? digits + 1 : 0;
        if (digits <= most) result.push_back(c);
    }
    return result;
}

struct CommandLine {
    std::vector<std::string> arguments;
    std::string input;
};

CommandLine Parsed(std::string_view bytes) {
    constexpr std::size_t kDigits = 2;
    CommandLine line;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string argument = WithShortNumbers(std::string(bytes.substr(0, end)), kDigits);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (argument.empty()) break;
        line.arguments.push_back(std::move(argument));
    }
    line.input = bytes;
    return line;
}

/// The end of a command whose arguments have been read.
struct Read {};

ExitStatus RunTool(const CommandLine& line) {
    CLI::App tool("", "kalvex-cli");
    tool.set_version_flag("--version", "kalvex-cli");
    tool.require_subcommand(1);
    ExitStatus status = ExitStatus::Done;
    AddAllCommands(tool, status);
    for (const char* const name : {"draw", "analyze", "table"}) {
        CLI::App* const command = tool.get_subcommand(name);
        fuzz::Require(command->remove_option(command->get_option("-o")));
    }
    tool.get_subcommand("draw")->parse_complete_callback([] { throw Read(); });
    std::vector<std::string> arguments(line.arguments.rbegin(), line.arguments.rend());
    try {
        tool.parse(arguments);
    } catch (const Read&) {
        return status;
    } catch (const CLI::ParseError& error) {
        std::ostringstream out;
        std::ostringstream errors;
        if (tool.exit(error, out, errors) != 0) status = ExitStatus::WrongUsage;
        fuzz::Require(!out.str().empty() || !errors.str().empty());
    }
    return Worse(status, FinishOutput());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const CommandLine line = Parsed({reinterpret_cast<const char*>(data), size});
    std::istringstream input(line.input);
    std::streambuf* const before = std::cin.rdbuf(input.rdbuf());
    std::cin.clear();
    static_cast<void>(RunTool(line));
    std::cin.rdbuf(before);
    return 0;
}
