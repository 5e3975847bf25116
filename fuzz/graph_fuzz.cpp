// Run: scripts/fuzz
//
// A window of any bounds, any stored options and up to three lines of any type become a picture, as
// Draw makes it: prepared, drawn, drawn again after the automatic zoom, explored and analysed. It
// has at most 64 by 64 pixels, and drawing is stopped after some parts of the progress bar. Nothing
// may crash; all pixels of runs are within the picture; a second drawing of the same state gives
// the same records unless it was stopped.
#include <string>
#include <string_view>

#include "analysis/analysis.h"
#include "analysis/report.h"
#include "base/encoding.h"
#include "fuzz_input.h"
#include "graph/auto_zoom.h"
#include "graph/explore_commands.h"
#include "graph/graph.h"
#include "graph/overlay.h"
#include "interp/point_file.h"
#include "painter/draw_list_text.h"
#include "workspace/function_list.h"

namespace {

using namespace kalvex;
using namespace kalvex::fuzz;

constexpr std::size_t kMostEntries = 3;

const ShowMessage kAnswer = [](const MessageBox& box) {
    return box.buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok;
};

TextExtent Measure(std::u16string_view text, std::int32_t height) {
    return {static_cast<std::int32_t>(text.size()) * height / 2, height};
}

Options TakeOptions(Input& input) {
    constexpr std::int32_t kMostTurns = 20;
    Options options;
    options.Axex = TakeByte(input);
    options.Coord = TakeByte(input);
    options.Setka = TakeByte(input);
    options.Label = TakeByte(input);
    options.Diff = TakeByte(input);
    // No byte of its own, so that older inputs keep their meaning.
    options.FineGrid = options.Diff % 2;
    options.TextSize = TakeWhole(input);
    options.Wight = TakeWhole(input);
    // The number of samples grows with it, and so would the time.
    options.MaxAngle = TakeWhole(input) % kMostTurns;
    options.MinParam = TakeDouble(input);
    options.MaxParam = TakeDouble(input);
    return options;
}

void TakeViewport(Input& input, Viewport& viewport) {
    constexpr std::size_t kMostPixels = 65;
    viewport.ClientWidth = static_cast<std::int32_t>(TakeChoice(input, kMostPixels));
    viewport.ClientHeight = static_cast<std::int32_t>(TakeChoice(input, kMostPixels));
    viewport.view.Xmin = TakeDouble(input);
    viewport.view.Xmax = TakeDouble(input);
    viewport.view.Ymin = TakeDouble(input);
    viewport.view.Ymax = TakeDouble(input);
    viewport.view.Xfactor = TakeDouble(input);
    viewport.view.Yfactor = TakeDouble(input);
}

/// A line of any stored type, 0 and 6 included, which are none. A File line has its points in place
/// of a text.
void TakeLine(Input& input, FunctionEntry& entry, int slot) {
    constexpr std::size_t kTypes = 7;
    constexpr std::size_t kMostBytes = 100;
    entry.type = static_cast<EquationType>(TakeChoice(input, kTypes));
    entry.color = TakeWhole(input);
    entry.selected = static_cast<std::uint8_t>(TakeChoice(input, 4) == 3 ? 0 : 1);
    if (entry.type == EquationType::File) {
        entry.method = {TakeWhole(input), TakeWhole(input), TakeWhole(input), TakeDouble(input),
                        TakeDouble(input)};
    }
    const std::string text = TakeText(input, kMostBytes);
    if (!PrepareFunction(entry, slot, ToUtf16(text), kAnswer)) entry.selected = 0;
    if (entry.type == EquationType::File) entry.points = ReadPointText(text).points;
}

struct Drawn {
    DrawList list;
    bool stopped = false;
};

Drawn Draw(GraphState& state, FunctionList& functions, const Options& options) {
    constexpr int kMostParts = 400;
    Drawn drawn;
    int parts = 0;
    const DrawProgress progress = [&](const ProgressStretch&) {
        drawn.stopped = drawn.stopped || ++parts > kMostParts;
        return !drawn.stopped;
    };
    drawn.list = DrawGraph(state, functions, options, Measure, progress);
    return drawn;
}

void CheckRuns(const DrawList& list) {
    for (const DrawRecord& record : list.records) {
        const auto* const pixels = std::get_if<PixelRunsRecord>(&record);
        if (pixels == nullptr) continue;
        for (const PixelRun& run : pixels->runs) {
            Require(run.row >= 0 && run.row < list.height && run.length > 0);
            Require(run.column >= 0 && run.column <= list.width - run.length);
        }
    }
}

void Analyse(const FunctionList& functions, const Viewport& viewport) {
    for (const FunctionEntry& entry : functions) {
        if (entry.selected == 0 || !CanAnalyse(entry)) continue;
        AnalysisResult result;
        analyzeSampledCurve(result, entry, viewport.ClientHeight, viewport.view);
        Require(!ReportText(result, entry.text).empty());
    }
}

/// Gestures and commands, each followed by what the window shows.
void Explore(Input& input, GraphState& state, FunctionList& functions, const Options& options) {
    ZoomGesture gesture;
    while (input.left > 0) {
        const PixelPoint at = {TakeWhole(input), TakeWhole(input)};
        switch (TakeChoice(input, 5)) {
            case 0:
                static_cast<void>(ZoomAtOnce(state, at, ZoomDirection::In));
                break;
            case 1:
                static_cast<void>(StepGesture(state, gesture, at, TakeDouble(input), 1.25));
                break;
            case 2:
                static_cast<void>(PanByTenths(state, at.x, at.y));
                break;
            case 3:
                RestorePrevious(state.viewport);
                break;
            default:
                static_cast<void>(AutoZoom(state.viewport, functions, kAnswer));
                break;
        }
        LayoutViewport(state.viewport);
        static_cast<void>(OverlayOf(state, functions, options));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input = {data, size};
    GraphState state;
    FunctionList functions;
    TakeViewport(input, state.viewport);
    const Options options = TakeOptions(input);
    const std::size_t lines = TakeChoice(input, kMostEntries) + 1;
    for (std::size_t slot = 0; slot < lines; ++slot)
        TakeLine(input, functions[slot], static_cast<int>(slot));
    const Drawn first = Draw(state, functions, options);
    CheckRuns(first.list);
    Analyse(functions, state.viewport);
    const Drawn again = Draw(state, functions, options);
    Require(first.stopped || again.stopped || DrawListText(first.list) == DrawListText(again.list));
    Explore(input, state, functions, options);
    CheckRuns(Draw(state, functions, options).list);
    return 0;
}
