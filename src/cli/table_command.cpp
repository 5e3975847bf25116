// table: draws one line off screen and writes its points as the windows export them.
#include <CLI/CLI.hpp>
#include <memory>

#include "analysis/export_files.h"
#include "cli/analyzed_line.h"
#include "cli/commands.h"
#include "cli/line_argument.h"
#include "cli/view_options.h"
#include "cli/write_file.h"

namespace kalvex {
namespace {

struct Arguments {
    std::string line;
    std::string table;
};

ExitStatus Run(ViewOptions& view, const Arguments& arguments) {
    FunctionList functions;
    if (!DrawAnalysable(view, functions, arguments.line)) return ExitStatus::Rejected;
    return WriteFile(arguments.table, PointTableFile(functions[0].samples), "table");
}

}  // namespace

void AddTableCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command =
        AddCommand(tool, "table", "Draw a line off screen and write its points: x, blank, y.");
    const std::shared_ptr<ViewOptions> view = AddViewOptions(*command);
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("-o", arguments->table, "The file; - is standard output.")
        ->required()
        ->type_name("FILE");
    command->add_option("LINE", arguments->line, "TYPE[,KEY=VALUE]...:TEXT")->required();
    command->footer(LineHelp() + "\n\n" + tool.get_footer());
    command->callback([view, arguments, &status] { status = Run(*view, *arguments); });
}

}  // namespace kalvex
