// normalise: prints each text as the normaliser rewrites it.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "base/encoding.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "expr/normaliser.h"

namespace kalvex {
namespace {

struct Arguments {
    bool implicit = false;
    std::optional<std::string> text;
};

ExitStatus Run(const Arguments& arguments) {
    return ForEachText(arguments.text, std::cin, [&](std::u16string text) {
        if (arguments.implicit)
            NormaliseImplicit(text);
        else
            NormaliseExplicit(text, ShowOnStandardError);
        PrintText(ToUtf8(text) + '\n');
        return ExitStatus::Done;
    });
}

}  // namespace

void AddNormaliseCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command =
        AddCommand(tool, "normalise", "Print a text as it is rewritten before the check.");
    const auto arguments = std::make_shared<Arguments>();
    command->add_flag("--implicit", arguments->implicit, "The text is a function of x and y.");
    AddTextArgument(*command, arguments->text);
    command->callback([arguments, &status] { status = Run(*arguments); });
}

}  // namespace kalvex
