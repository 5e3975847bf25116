// What the subcommands share. CLI11 would accept "-" options of a parent inside a subcommand only
// with fallthrough, so each subcommand gets its own --version; --help it has by itself.
#include "cli/commands.h"

#include <CLI/CLI.hpp>

#include "cli/console.h"
#include "expr/checker.h"
#include "expr/normaliser.h"
#include "resources/strings.h"

namespace kalvex {

CLI::App* AddCommand(CLI::App& tool, const std::string& name, const std::string& purpose) {
    CLI::App* command = tool.add_subcommand(name, purpose);
    command->set_version_flag("--version", tool.version());
    return command;
}

void AddTextArgument(CLI::App& command, std::optional<std::string>& text) {
    // An empty text is a text: only the call tells it from one that was left out.
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
    ShowOnStandardError({std::u16string(Text(StringId::Error)),
                         FillIn(Text(StringId::ErrorFormat), {result.message}), MessageIcon::Stop,
                         MessageButtons::Ok});
    return false;
}

void WrongUsage(const std::string& option, const std::string& message) {
    throw CLI::ValidationError(option, message);
}

}  // namespace kalvex
