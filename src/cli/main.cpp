// kalvex-cli: what the windows compute and draw, for the terminal, scripts and tests.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "cli/commands.h"
#include "cli/console.h"

int main(int argc, char** argv) {
    using kalvex::ExitStatus;

    std::ios::sync_with_stdio(false);
    CLI::App tool(
        "Kalvex from the command line: rewrites, checks, evaluates, draws and analyses functions.",
        "kalvex-cli");
    tool.set_version_flag("--version", "kalvex-cli " KALVEX_VERSION);
    tool.require_subcommand(1);
    tool.footer(
        "A text that begins with \"-\" goes behind \"--\", which ends the options.\n"
        "Exit status: 0 done; 1 a text was rejected or a point file could not be read; "
        "2 wrong usage; 3 a file could not be written.");

    ExitStatus status = ExitStatus::Done;
    kalvex::AddAllCommands(tool, status);
    try {
        tool.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (tool.exit(error) != 0) status = ExitStatus::WrongUsage;
        if (!std::cout.flush()) status = Worse(status, ExitStatus::NotWritten);
    } catch (const std::exception& error) {
        // For instance, there may not be enough memory for a very large picture.
        std::cerr << "kalvex-cli: " << error.what() << '\n';
        status = ExitStatus::Rejected;
    }
    return static_cast<int>(Worse(status, kalvex::FinishOutput()));
}
