// analyze: draws one line off screen, analyses its samples and prints the report of the windows
// with line feeds as line ends. The file of -o has the bytes that the windows would export.
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "analysis/export_files.h"
#include "analysis/report.h"
#include "base/encoding.h"
#include "cli/analyzed_line.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/line_argument.h"
#include "cli/view_options.h"
#include "cli/write_file.h"

namespace kalvex {
namespace {

struct Arguments {
    std::string line;
    std::string form = "paged";
    std::optional<std::string> report;
};

/// The text in UTF-8 with "\n" as line ends, also at its end.
std::string Printed(std::u16string_view text) {
    std::string lines = ToUtf8(text);
    std::erase(lines, '\r');
    if (!lines.ends_with('\n')) lines += '\n';
    return lines;
}

void PrintPages(const AnalysisResult& result, std::u16string_view name) {
    for (const ReportPage& page : ReportPages(result, name))
        WriteOut("== " + ToUtf8(page.title) + " ==\n" + Printed(page.text));
}

/// Standard output gets either the text or, with -o -, the file: together nobody could read them.
void Print(const AnalysisResult& result, std::u16string_view name, const Arguments& arguments) {
    if (arguments.report && IsStandardOutput(*arguments.report)) return;
    if (arguments.form == "single") {
        WriteOut(Printed(ReportText(result, name)));
    } else {
        PrintPages(result, name);
    }
}

ExitStatus Run(ViewOptions& view, const Arguments& arguments) {
    FunctionList functions;
    if (!DrawAnalysable(view, functions, arguments.line)) return ExitStatus::Rejected;
    const Viewport& viewport = view.state.viewport;
    AnalysisResult result;
    analyzeSampledCurve(result, functions[0], viewport.ClientHeight, viewport.view);
    const std::u16string& name = functions[0].text;
    Print(result, name, arguments);
    if (!arguments.report) return ExitStatus::Done;
    return WriteFile(*arguments.report, ReportFile(ReportText(result, name)), "report");
}

}  // namespace

void AddAnalyzeCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command =
        AddCommand(tool, "analyze", "Draw a line off screen and print the report of its analysis.");
    const std::shared_ptr<ViewOptions> view = AddViewOptions(*command);
    const auto arguments = std::make_shared<Arguments>();
    command
        ->add_option("--form", arguments->form,
                     "paged (default): four pages, each under its title; single: one text.")
        ->type_name("FORM")
        ->check([](const std::string& form) {
            return form == "paged" || form == "single" ? std::string()
                                                       : std::string("paged or single expected");
        });
    command
        ->add_option("-o", arguments->report,
                     "Write the report file too, as the windows export it (UTF-16); - writes it to "
                     "standard output instead of the text.")
        ->type_name("REPORT");
    command->add_option("LINE", arguments->line, "TYPE[,KEY=VALUE]...:TEXT")->required();
    command->footer(LineHelp() + "\n\n" + tool.get_footer());
    command->callback([view, arguments, &status] { status = Run(*view, *arguments); });
}

}  // namespace kalvex
