// check: prints the code and the message of the syntax check.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "base/encoding.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "expr/checker.h"
#include "expr/normaliser.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

struct Arguments {
    bool implicit = false;
    bool asIs = false;
    std::optional<std::string> text;
};

ExitStatus CheckOne(const Arguments& arguments, std::u16string text) {
    if (!arguments.asIs) {
        if (arguments.implicit)
            NormaliseImplicit(text);
        else
            NormaliseExplicit(text, ShowOnStandardError);
    }
    const CheckResult result = CheckExpression(
        text, arguments.implicit ? CheckMode::TwoVariables : CheckMode::OneVariable);
    PrintText(ToUtf8(NumberText(result.code)) + '\t' + ToUtf8(result.message) + '\n');
    return result.code < 0 ? ExitStatus::Rejected : ExitStatus::Done;
}

}  // namespace

void AddCheckCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command = AddCommand(tool, "check", "Print the code and the message of the check.");
    const auto arguments = std::make_shared<Arguments>();
    command->add_flag("--implicit", arguments->implicit, "The text is a function of x and y.");
    command->add_flag("--as-is", arguments->asIs, "Do not rewrite the text first.");
    AddTextArgument(*command, arguments->text);
    command->callback([arguments, &status] {
        status = ForEachText(arguments->text, std::cin, [&](const std::u16string& text) {
            return CheckOne(*arguments, text);
        });
    });
}

}  // namespace kalvex
