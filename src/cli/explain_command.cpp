// explain: what the compiler makes of each text, for whoever works on the compiler and for tests
// of what it merges.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "base/encoding.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "expr/evaluator.h"
#include "expr/program_text.h"

namespace kalvex {
namespace {

struct Arguments {
    bool implicit = false;
    std::optional<std::string> text;
};

/// A heading, and the lines of a text below it, indented.
std::string Section(const std::string& heading, const std::string& text) {
    std::string section = heading + "\n  ";
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        section += text[i];
        if (text[i] == '\n') section += "  ";
    }
    return section + "\n";
}

ExitStatus ExplainOne(const Arguments& arguments, std::u16string text) {
    if (!AcceptText(text, arguments.implicit)) return ExitStatus::Rejected;
    const CompiledExpression expression = CompileExpression(text);
    const Program& program = *expression.program;
    std::string explanation = Section("text", ToUtf8(text) + "\n");
    explanation += Section("tree", TreeText(program.tree));
    explanation += Section("program", ProgramText(program.instructions));
    if (arguments.implicit) {
        explanation += Section("program of a grid", GridText(PlanGrid(program.tree, true)));
    }
    PrintText(explanation);
    return ExitStatus::Done;
}

}  // namespace

void AddExplainCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command =
        AddCommand(tool, "explain", "Print the syntax tree and the compiled program of a text.");
    const auto arguments = std::make_shared<Arguments>();
    command->add_flag("--implicit", arguments->implicit, "The text is a function of x and y.");
    AddTextArgument(*command, arguments->text);
    command->callback([arguments, &status] {
        status = ForEachText(arguments->text, std::cin, [&](const std::u16string& text) {
            return ExplainOne(*arguments, text);
        });
    });
}

}  // namespace kalvex
