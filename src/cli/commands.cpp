// What the subcommands share. CLI11 does not accept an option of the tool behind a subcommand
// unless options may fall through to the parent, so each subcommand gets a --version of its own.
// CLI11 itself adds --help to each.
#include "cli/commands.h"

#include <CLI/CLI.hpp>

#include "cli/console.h"
#include "expr/checker.h"
#include "expr/normaliser.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"

namespace kalvex {

void AddAllCommands(CLI::App& tool, ExitStatus& status) {
    AddNormaliseCommand(tool, status);
    AddCheckCommand(tool, status);
    AddEvalCommand(tool, status);
    AddExplainCommand(tool, status);
    AddInterpolateCommand(tool, status);
    AddPointsCommand(tool, status);
    AddSamplesCommand(tool, status);
    AddDrawCommand(tool, status);
    AddAnalyzeCommand(tool, status);
    AddTableCommand(tool, status);
}

CLI::App* AddCommand(CLI::App& tool, const std::string& name, const std::string& purpose) {
    CLI::App* command = tool.add_subcommand(name, purpose);
    command->set_version_flag("--version", tool.version());
    return command;
}

void AddTextArgument(CLI::App& command, std::optional<std::string>& text) {
    // An empty text counts as given; only this callback tells it from one that was left out.
    command.add_option_function<std::string>(
        "TEXT", [&text](const std::string& given) { text = given; },
        "Left out: one text per line of standard input.");
}

bool AcceptText(std::u16string& text, bool implicit) {
    if (implicit)
        NormaliseImplicit(text);
    else
        NormaliseExplicit(text, ShowOnStandardError);
    const CheckResult result =
        CheckExpression(text, implicit ? CheckMode::TwoVariables : CheckMode::OneVariable);
    if (result.code >= 0) return true;
    ShowOnStandardError(ErrorBox(FillIn(Text(StringId::ErrorFormat), {result.message})));
    return false;
}

void WrongUsage(const std::string& option, const std::string& message) {
    throw CLI::ValidationError(option, message);
}

}  // namespace kalvex
