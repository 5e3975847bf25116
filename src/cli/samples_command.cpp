// samples: draws one line off screen and prints its sample cache. Nothing is painted, so neither a
// window system nor fonts are needed; the names on the picture are given the size 0.
#include <CLI/CLI.hpp>
#include <memory>

#include "base/encoding.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/line_argument.h"
#include "cli/view_options.h"
#include "numbers/decimal.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

std::string SampleLine(const CurveSample& sample) {
    return ToUtf8(NumberText(sample.column)) + '\t' + ToUtf8(NumberText(sample.row)) + '\t' +
           FormatGeneral17(sample.x) + '\t' + FormatGeneral17(sample.y) + '\t' +
           FormatGeneral17(sample.parameter) + '\t' + ToUtf8(NumberText(sample.status)) + '\n';
}

ExitStatus Run(ViewOptions& view, const std::string& line) {
    FunctionList functions;
    if (!PrepareLines(functions, {line})) return ExitStatus::Rejected;
    const auto measure = [](std::u16string_view, std::int32_t) { return TextExtent{}; };
    static_cast<void>(DrawOffScreen(view, functions, measure));  // for the samples it leaves
    for (const CurveSample& sample : functions[0].samples) {
        if (!WriteOut(SampleLine(sample))) break;
    }
    return ExitStatus::Done;
}

}  // namespace

void AddSamplesCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command =
        AddCommand(tool, "samples",
                   "Draw a line off screen and print its samples: column, row, x, y, t, status.");
    const std::shared_ptr<ViewOptions> view = AddViewOptions(*command);
    const auto line = std::make_shared<std::string>();
    command->add_option("LINE", *line, "TYPE[,KEY=VALUE]...:TEXT")->required();
    command->footer(LineHelp() + "\n\n" + tool.get_footer());
    command->callback([view, line, &status] { status = Run(*view, *line); });
}

}  // namespace kalvex
