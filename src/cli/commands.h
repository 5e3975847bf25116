// The subcommands. Each function adds one to the command line. Parsing runs the subcommand that the
// user named and stores its result in `status`. Wrong arguments throw CLI::ParseError.
#pragma once

#include <optional>
#include <string>

#include "cli/exit_status.h"

namespace CLI {
class App;
}

namespace kalvex {

void AddNormaliseCommand(CLI::App& tool, ExitStatus& status);
void AddCheckCommand(CLI::App& tool, ExitStatus& status);
void AddEvalCommand(CLI::App& tool, ExitStatus& status);
void AddExplainCommand(CLI::App& tool, ExitStatus& status);
void AddInterpolateCommand(CLI::App& tool, ExitStatus& status);
void AddPointsCommand(CLI::App& tool, ExitStatus& status);
void AddSamplesCommand(CLI::App& tool, ExitStatus& status);
void AddDrawCommand(CLI::App& tool, ExitStatus& status);
void AddAnalyzeCommand(CLI::App& tool, ExitStatus& status);
void AddTableCommand(CLI::App& tool, ExitStatus& status);

/// All of them, in the order of the help.
void AddAllCommands(CLI::App& tool, ExitStatus& status);

/// Adds a subcommand with the option that all of them share, --version.
[[nodiscard]] CLI::App* AddCommand(CLI::App& tool, const std::string& name,
                                   const std::string& purpose);

/// Adds the optional argument TEXT; without it the texts come from standard input. `text` must
/// exist until parsing has ended.
void AddTextArgument(CLI::App& command, std::optional<std::string>& text);

/// Rewrites a text into the strict notation and checks it. A rejected text gives false and a line
/// on standard error.
[[nodiscard]] bool AcceptText(std::u16string& text, bool implicit);

/// Ends parsing with the message "OPTION: MESSAGE" and the status WrongUsage.
[[noreturn]] void WrongUsage(const std::string& option, const std::string& message);

}  // namespace kalvex
