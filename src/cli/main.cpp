// kalvex-cli: what the windows compute and draw, for the terminal, scripts and tests.
#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "base/stack_room.h"
#include "base/stop_signal.h"
#include "cli/commands.h"
#include "cli/console.h"

namespace {

using kalvex::ExitStatus;

/// Needs no memory.
ExitStatus TellLackOfMemory() {
    std::fputs("kalvex-cli: There is not enough memory.\n", stderr);
    return ExitStatus::Rejected;
}

ExitStatus TellFailure(const char* what) {
    std::fprintf(stderr, "kalvex-cli: %s\n", what);
    return ExitStatus::Rejected;
}

/// Ends the process because of an exception that a library has let out of a function without
/// exceptions. Qt does that when memory is short.
[[noreturn]] void OnTerminate() {
    ExitStatus status = ExitStatus::Rejected;
    try {
        if (std::current_exception()) throw;
        status = TellFailure("an unexpected end");
    } catch (const std::bad_alloc&) {
        status = TellLackOfMemory();
    } catch (const std::exception& error) {
        status = TellFailure(error.what());
    } catch (...) {
        status = TellFailure("an unknown failure");
    }
    std::_Exit(static_cast<int>(status));
}

ExitStatus RunTool(int argc, char** argv) {
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
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    std::set_terminate(OnTerminate);
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);  // beyond a limit of the size of files a write fails
#endif
    kalvex::EndOnStopSignals("kalvex-cli: stopped before its end.\n");
    ExitStatus status = ExitStatus::Done;
    try {
        kalvex::MakeStackRoom();
        std::ios::sync_with_stdio(false);
        status = RunTool(argc, argv);
    } catch (const std::bad_alloc&) {
        status = TellLackOfMemory();
    } catch (const std::exception& error) {
        status = TellFailure(error.what());
    }
    return static_cast<int>(Worse(status, kalvex::FinishOutput()));
}
