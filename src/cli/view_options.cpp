// Each option writes into the records that the graph room reads. Any bounds of a window are
// accepted, also equal, reversed and infinite ones, because drawing has to handle them anyway.
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

template <typename Field>
void SetWhole(Field& field, const std::string& name, const std::string& text, std::int64_t last) {
    const auto value = ParseWhole(text, 1, last);
    if (!value) WrongUsage(name, "a whole number from 1 to " + std::to_string(last) + " expected");
    field = static_cast<Field>(*value);
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

void AddCurveOptions(CLI::App& command, Options& options) {
    command
        .add_option_function<std::string>(
            "--max-angle",
            [&](const std::string& text) { SetWhole(options.MaxAngle, "--max-angle", text, 4); },
            "Turns of a polar curve, 1 to 4 (default 1).")
        ->type_name("N");
    command
        .add_option_function<std::string>(
            "--param", [&](const std::string& text) { SetParameterRange(options, text); },
            "Parameter range of parametric curves (default 0 and 2 pi).")
        ->type_name("MIN,MAX");
    command
        .add_option_function<std::string>(
            "--width",
            [&](const std::string& text) { SetWhole(options.Wight, "--width", text, kWidestPen); },
            "Pen width of the curves in pixels, 1 to 64 (default 1; implicit curves have 1).")
        ->type_name("N");
}

void AddLayerOptions(CLI::App& command, Options& options) {
    command
        .add_option_function<std::string>(
            "--text-size",
            [&](const std::string& text) {
                SetWhole(options.TextSize, "--text-size", text, kTallestText);
            },
            "Height of the function names in pixels, 1 to 200 (default 14).")
        ->type_name("N");
    CLI::Option* kind = command.add_option_function<std::string>(
        "--grid-kind",
        [&](const std::string& text) {
            if (text != "rectangular" && text != "polar")
                WrongUsage("--grid-kind", "rectangular or polar expected");
            options.Setka = text == "polar" ? 2 : 1;
        },
        "rectangular (default) or polar.");
    kind->type_name("KIND");
    command.add_flag_callback(
        "--no-axes", [&] { options.Axex = 0; }, "Leave the axes out.");
    command
        .add_flag_callback(
            "--no-grid", [&] { options.Setka = 0; }, "Leave the grid out.")
        ->excludes(kind);
    command.add_flag_callback(
        "--no-coords", [&] { options.Coord = 0; }, "Leave the coordinate numbers out.");
    command.add_flag_callback(
        "--no-labels", [&] { options.Label = 0; }, "Leave the function names out.");
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
    AddCurveOptions(command, view->options);
    AddLayerOptions(command, view->options);
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
