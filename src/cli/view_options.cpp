// Each option writes into the records that the graph room reads; most come from the table of
// options. Any bounds of a window are accepted, also equal, reversed and infinite ones, because
// drawing has to handle them anyway.
#include "cli/view_options.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <limits>

#include "base/encoding.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/line_argument.h"
#include "cli/number_argument.h"
#include "graph/auto_zoom.h"
#include "graph/file_lines.h"
#include "graph/graph.h"
#include "workspace/function_list.h"
#include "workspace/option_rows.h"

namespace kalvex {
namespace {

constexpr std::int32_t kDefaultWidth = 240;
constexpr std::int32_t kDefaultHeight = 268;
constexpr std::int64_t kLargestSize = 16384;

struct QuickWord {
    std::string_view word;  ///< as in the QUICK menu
    QuickWindow preset;
};

constexpr QuickWord kQuickWords[] = {
    {"Init", QuickWindow::Init},         {"Trig", QuickWindow::Trig},
    {"Log(X)", QuickWindow::LogX},       {"exp(X)", QuickWindow::ExpX},
    {"X^2", QuickWindow::XSquared},      {"-X^2", QuickWindow::MinusXSquared},
    {"Standart", QuickWindow::Standart},
};

void SetWindow(Viewport& viewport, const std::string& text) {
    const auto bounds = ParseNumbers(text, 4);
    if (!bounds) WrongUsage("--window", "XMIN,XMAX,YMIN,YMAX expected");
    viewport.view.Xmin = (*bounds)[0];
    viewport.view.Xmax = (*bounds)[1];
    viewport.view.Ymin = (*bounds)[2];
    viewport.view.Ymax = (*bounds)[3];
}

void SetQuickWindow(Viewport& viewport, const std::string& text) {
    for (const QuickWord& quick : kQuickWords) {
        if (quick.word == text) return ApplyQuickWindow(viewport, quick.preset);
    }
    WrongUsage("--quick", "Init, Trig, Log(X), exp(X), X^2, -X^2 or Standart expected");
}

void SetSize(Viewport& viewport, const std::string& text) {
    const std::vector<std::string_view> parts = Split(text, 'x');
    const auto width = ParseWhole(parts[0], 1, kLargestSize);
    const auto height = parts.size() == 2 ? ParseWhole(parts[1], 1, kLargestSize) : std::nullopt;
    if (!width || !height) WrongUsage("--size", "WxH expected, each from 1 to 16384");
    viewport.ClientWidth = static_cast<std::int32_t>(*width);
    viewport.ClientHeight = static_cast<std::int32_t>(*height);
}

void SetParameterRange(Options& options, const std::string& text) {
    const auto bounds = ParseNumbers(text, 2);
    if (!bounds) WrongUsage("--param", "MIN,MAX expected");
    options.MinParam = (*bounds)[0];
    options.MaxParam = (*bounds)[1];
}

void SetWhole(Options& options, const OptionRow& row, const std::string& text) {
    const auto value = ParseWhole(text, 1, row.tool.largest);
    if (!value) {
        WrongUsage(std::string(row.tool.name),
                   "a whole number from 1 to " + std::to_string(row.tool.largest) + " expected");
    }
    SetValue(options, row, static_cast<double>(*value));
}

void AddWindowOptions(CLI::App& command, Viewport& viewport) {
    CLI::Option* window = command.add_option_function<std::string>(
        "--window", [&](const std::string& text) { SetWindow(viewport, text); },
        "The visible rectangle (default -10,10,-10,10).");
    window->type_name("XMIN,XMAX,YMIN,YMAX");
    command
        .add_option_function<std::string>(
            "--quick", [&](const std::string& text) { SetQuickWindow(viewport, text); },
            "A window of the QUICK menu, such as Trig.")
        ->type_name("NAME")
        ->excludes(window);
    command
        .add_option_function<std::string>(
            "--size", [&](const std::string& text) { SetSize(viewport, text); },
            "Size of the picture in pixels (default 240x268).")
        ->type_name("WxH");
}

void AddAutoOption(CLI::App& command, bool& automatic) {
    command.add_flag("--auto", automatic, "Fit the y bounds to the curves (automatic zoom).");
}

/// An option of the tool whose value is a whole number or the range of parameters.
void AddValueOption(CLI::App& command, Options& options, const OptionRow& row) {
    const auto take = [&options, &row](const std::string& text) {
        if (row.kind == OptionKind::Range) {
            SetParameterRange(options, text);
        } else {
            SetWhole(options, row, text);
        }
    };
    command
        .add_option_function<std::string>(std::string(row.tool.name), take,
                                          std::string(row.tool.help))
        ->type_name(std::string(row.tool.value));
}

CLI::Option* AddGridKind(CLI::App& command, Options& options) {
    const auto take = [&options](const std::string& text) {
        if (text != "rectangular" && text != "polar")
            WrongUsage("--grid-kind", "rectangular or polar expected");
        options.Setka = text == "polar" ? 2 : 1;
    };
    return command
        .add_option_function<std::string>("--grid-kind", take, "rectangular (default) or polar.")
        ->type_name("KIND");
}

/// The options of the tool that have a row in the table, those with a value first.
void AddTableOptions(CLI::App& command, Options& options) {
    const std::vector<const OptionRow*> rows = RowsInOrder(PlaceInTool);
    for (const OptionRow* const row : rows) {
        if (!row->tool.value.empty()) AddValueOption(command, options, *row);
    }
    CLI::Option* const kind = AddGridKind(command, options);
    for (const OptionRow* const row : rows) {
        if (!row->tool.value.empty()) continue;
        CLI::Option* const flag = command.add_flag_callback(
            std::string(row->tool.name),
            [&options, row] { SetValue(options, *row, row->tool.flagSets); },
            std::string(row->tool.help));
        if (row->kind == OptionKind::GridKind) flag->excludes(kind);
    }
}

/// Prints the question about a large file and answers it with Yes: a user who names the file wants
/// it drawn.
MessageAnswer ShowAndGoOn(const MessageBox& box) {
    ShowOnStandardError(box);
    return box.buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok;
}

}  // namespace

std::shared_ptr<ViewOptions> AddViewOptions(CLI::App& command) {
    auto view = std::make_shared<ViewOptions>();
    view->state.viewport.ClientWidth = kDefaultWidth;
    view->state.viewport.ClientHeight = kDefaultHeight;
    AddWindowOptions(command, view->state.viewport);
    AddAutoOption(command, view->automatic);
    AddTableOptions(command, view->options);
    return view;
}

bool PrepareLines(FunctionList& functions, const std::vector<std::string>& lines) {
    if (lines.size() > functions.size()) WrongUsage("LINE", "at most nine lines");
    std::vector<LineArgument> parsed;
    for (const std::string& line : lines) {
        parsed.push_back(ParseLineArgument(line, static_cast<std::int32_t>(parsed.size() + 1)));
        if (!parsed.back().error.empty()) WrongUsage("LINE", parsed.back().error);
    }
    FilePaths paths;
    for (std::size_t slot = 0; slot < parsed.size(); ++slot) {
        functions[slot] = parsed[slot].entry;
        paths[slot] = parsed[slot].path;
        if (!PrepareFunction(functions[slot], static_cast<int>(slot), parsed[slot].line,
                             ShowOnStandardError))
            return false;
    }
    return PrepareFileLines(functions, paths, ShowAndGoOn);
}

DrawList DrawOffScreen(ViewOptions& view, FunctionList& functions, const MeasureText& measure) {
    const auto draw = [&] { return DrawGraph(view.state, functions, view.options, measure, {}); };
    DrawList list = draw();
    std::fputs(FailureLines(view.state.approxFailures).c_str(), stderr);
    for (const MessageBox& box : FailureBoxes(view.state.approxFailures))
        ShowOnStandardError(box);
    if (!view.automatic) return list;
    // When no bounds can be found, the message says so and the window is not changed; the command
    // still succeeds.
    if (!AutoZoom(view.state.viewport, functions, ShowOnStandardError)) return list;
    return draw();
}

}  // namespace kalvex
